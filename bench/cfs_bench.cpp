// Cash-flow sets: the rate of return of 360 monthly flows (each its own group, amounts varying), the yield
// of 120 dated monthly flows, and QuantLib's CashFlows::yield on the same 360 flows (monthly dates under
// 30/360, so that its times are the same whole months, compounded monthly).
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "cashflow/cfs.hpp"
#include "core/power.hpp"
#include "orvel/cashflow.h"

#ifdef ORVEL_WITH_QUANTLIB
#include <ql/cashflows/cashflows.hpp>
#include <ql/cashflows/simplecashflow.hpp>
#include <ql/settings.hpp>
#include <ql/time/daycounters/thirty360.hpp>
#endif

namespace {

// 360 monthly payments of 1000 to 1060 (a mortgage with escrow changes, say) bought at their value at
// 0.55% a month.
struct Monthly {
    std::vector<double> amts;
    std::vector<int32_t> counts;
    double pv = 0.0;
};

const Monthly& monthly() {
    static const Monthly m = [] {
        Monthly x;
        for (int k = 0; k < 360; ++k) {
            x.amts.push_back(1000.0 + 10.0 * (k % 7));
            x.counts.push_back(1);
            x.pv += x.amts.back() / orvel::pow(1.0055, k + 1.0);
        }
        return x;
    }();
    return m;
}

void BM_cf_irr_360(benchmark::State& state) {
    const auto validate = static_cast<int32_t>(state.range(0));
    const Monthly& m = monthly();
    for (auto _ : state) {
        uint32_t err = 0;
        benchmark::DoNotOptimize(cf_irr(-m.pv, m.amts.data(), m.counts.data(), 360, validate, &err));
    }
    orvel::SolveStats stats;
    uint32_t err = 0;
    state.counters["rate"] = orvel::cfs::irr(-m.pv, m.amts.data(), m.counts.data(), 360, &err, &stats);
    state.counters["evals"] = stats.evaluations;
}
BENCHMARK(BM_cf_irr_360)->ArgName("validate")->Arg(0)->Arg(1);

// 120 monthly flows dated from 3/17/2024 (a coupon of 0.5 and the principal with the last), timed once
// as cfs_py times them (actual/actual, monthly periods), priced at 6.2%.
struct Dated {
    std::vector<double> amts, times;
    std::vector<int32_t> m, d, y;
    double price = 0.0;
};

const Dated& dated() {
    static const Dated s = [] {
        Dated x;
        for (int k = 0; k < 120; ++k) {
            x.amts.push_back(k == 119 ? 100.5 : 0.5);
            x.m.push_back(1 + (4 + k) % 12);
            x.d.push_back(1);
            x.y.push_back(2024 + (4 + k) / 12);
        }
        x.times.resize(120);
        uint32_t err = 0;
        x.price = cfs_py(6.2, 1, 1, 0, 12, 6, 3, 17, 2024, x.amts.data(), x.m.data(), x.d.data(), x.y.data(), 120,
                         x.times.data(), 1, &err);
        return x;
    }();
    return s;
}

void BM_cfs_y_120(benchmark::State& state) {
    const auto validate = static_cast<int32_t>(state.range(0));
    const Dated& s = dated();
    for (auto _ : state) {
        uint32_t err = 0;
        benchmark::DoNotOptimize(cfs_y(s.price, 12, 6, s.amts.data(), s.times.data(), 120, validate, &err));
    }
    orvel::SolveStats stats;
    uint32_t err = 0;
    state.counters["yield"] = orvel::cfs::periodic_yield(s.price, 12, 6, s.amts.data(), s.times.data(), 120,
                                                         orvel::cfs::standard_start, &err, &stats);
    state.counters["evals"] = stats.evaluations;
}
BENCHMARK(BM_cfs_y_120)->ArgName("validate")->Arg(0)->Arg(1);

// The same solve with the dating of the flows in the call.
void BM_cfs_py_yield_120(benchmark::State& state) {
    const auto validate = static_cast<int32_t>(state.range(0));
    const Dated& s = dated();
    std::vector<double> times(120);
    for (auto _ : state) {
        uint32_t err = 0;
        benchmark::DoNotOptimize(cfs_py(s.price, 2, 1, 0, 12, 6, 3, 17, 2024, s.amts.data(), s.m.data(), s.d.data(),
                                        s.y.data(), 120, times.data(), validate, &err));
    }
}
BENCHMARK(BM_cfs_py_yield_120)->ArgName("validate")->Arg(0)->Arg(1);

void BM_cfs_p_120(benchmark::State& state) {
    const Dated& s = dated();
    for (auto _ : state) {
        uint32_t err = 0;
        benchmark::DoNotOptimize(cfs_p(6.2, 12, s.amts.data(), s.times.data(), 120, 0, &err));
    }
}
BENCHMARK(BM_cfs_p_120);

#ifdef ORVEL_WITH_QUANTLIB
namespace ql = QuantLib;

struct QlMonthly {
    ql::Leg leg;
    ql::Date settle;
};

const QlMonthly& ql_monthly() {
    static const QlMonthly q = [] {
        QlMonthly x;
        x.settle = ql::Date(15, ql::January, 2024);
        ql::Settings::instance().evaluationDate() = x.settle;
        const Monthly& m = monthly();
        for (int k = 0; k < 360; ++k)
            x.leg.push_back(ql::ext::make_shared<ql::SimpleCashFlow>(m.amts[k], x.settle + ql::Period(k + 1, ql::Months)));
        return x;
    }();
    return q;
}

// Annual rate compounded monthly: 12 times cf_irr's monthly rate (6.6%). Accuracy 1e-10 on the rate.
void BM_QL_CashFlows_yield_360(benchmark::State& state) {
    const QlMonthly& q = ql_monthly();
    const ql::Thirty360 dc(ql::Thirty360::BondBasis);
    const double pv = monthly().pv;
    for (auto _ : state)
        benchmark::DoNotOptimize(ql::CashFlows::yield(q.leg, pv, dc, ql::Compounded, ql::Monthly, false, q.settle,
                                                      q.settle));
    state.counters["rate"] = ql::CashFlows::yield(q.leg, pv, dc, ql::Compounded, ql::Monthly, false, q.settle, q.settle);
}
BENCHMARK(BM_QL_CashFlows_yield_360);
#endif

}  // namespace
