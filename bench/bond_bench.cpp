// The bond engine against QuantLib on the same bonds: accrued interest, price from yield, yield from price
// and duration. 64 semi-annual actual/actual bonds (2 to 30 years, coupons 1 to 10%), one per iteration in
// turn. QuantLib runs with its bond object built once ("prebuilt") and rebuilt on every call ("rebuilt");
// its yield solve is asked for 1e-10 in the yield, ours stops at 5e-7 per 100 of price.
// The kernel benchmarks show what a yield solve costs against the price evaluations it performs (the
// counter evals_per_solve gives their number).
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "bond/accrued.hpp"
#include "bond/kernels.hpp"
#include "bond/price_yield.hpp"
#include "orvel/orvel.h"

#ifdef ORVEL_WITH_QUANTLIB
// Only what the bond needs: the whole of ql/quantlib.hpp drags in parts of Boost that C++20 rejects.
#include <ql/instruments/bonds/fixedratebond.hpp>
#include <ql/pricingengines/bond/bondfunctions.hpp>
#include <ql/settings.hpp>
#include <ql/time/calendars/nullcalendar.hpp>
#include <ql/time/daycounters/actualactual.hpp>
#include <ql/time/schedule.hpp>
#endif

namespace {

struct BenchBond {
    int32_t sm, sd, sy, mm, md, my;
    double cpn, yld, price;
};

const std::vector<BenchBond>& bonds() {
    static const std::vector<BenchBond> all = [] {
        std::vector<BenchBond> v;
        for (int i = 0; i < 64; ++i) {
            BenchBond b{};
            b.sm = 1 + i % 12;
            b.sd = 3 + (i * 7) % 25;
            b.sy = 2021 + i % 2;
            b.mm = 1 + (i * 5) % 12;
            b.md = 15;
            b.my = b.sy + 2 + (i * 11) % 29;
            b.cpn = 1.0 + (i % 10);
            b.yld = 0.5 + (i * 3 % 17) * 0.5;
            double ai = 0.0;
            uint32_t err = 0;
            bond_py_ai(1, 1, 0, 2, 1, b.yld, b.cpn, b.sm, b.sd, b.sy, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, 100.0, 0.0,
                       0.0, &b.price, &ai, 1, &err);
            v.push_back(b);
        }
        return v;
    }();
    return all;
}

template <class Call>
void over_bonds(benchmark::State& state, Call call) {
    const auto& all = bonds();
    std::size_t i = 0;
    for (auto _ : state) call(all[i++ & 63]);
}

void BM_bond_ai(benchmark::State& state) {
    const auto validate = static_cast<int32_t>(state.range(0));
    over_bonds(state, [validate](const BenchBond& b) {
        double nxt = 0, cpn_amt = 0;
        int32_t n = 0;
        uint32_t err = 0;
        benchmark::DoNotOptimize(bond_ai(b.sm, b.sd, b.sy, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, b.cpn, 1, 0, 2, &nxt,
                                         &cpn_amt, &n, validate, &err));
    });
}
BENCHMARK(BM_bond_ai)->ArgName("validate")->Arg(0)->Arg(1);

void BM_bond_py_ai_price(benchmark::State& state) {
    const auto validate = static_cast<int32_t>(state.range(0));
    over_bonds(state, [validate](const BenchBond& b) {
        double price = 0, ai = 0;
        uint32_t err = 0;
        bond_py_ai(1, 1, 0, 2, 1, b.yld, b.cpn, b.sm, b.sd, b.sy, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, 100.0, 0.0, 0.0,
                   &price, &ai, validate, &err);
        benchmark::DoNotOptimize(price);
    });
}
BENCHMARK(BM_bond_py_ai_price)->ArgName("validate")->Arg(0)->Arg(1);

void BM_bond_py_ai_yield(benchmark::State& state) {
    const auto validate = static_cast<int32_t>(state.range(0));
    over_bonds(state, [validate](const BenchBond& b) {
        double yld = 0, ai = 0;
        uint32_t err = 0;
        bond_py_ai(1, 1, 0, 2, 2, b.price, b.cpn, b.sm, b.sd, b.sy, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, 100.0, 0.0, 0.0,
                   &yld, &ai, validate, &err);
        benchmark::DoNotOptimize(yld);
    });
}
BENCHMARK(BM_bond_py_ai_yield)->ArgName("validate")->Arg(0)->Arg(1);

void BM_bond_dur(benchmark::State& state) {
    const auto validate = static_cast<int32_t>(state.range(0));
    over_bonds(state, [validate](const BenchBond& b) {
        double mac = 0, mod = 0;
        uint32_t err = 0;
        bond_dur(0.0, b.yld, b.cpn, 100.0, 1, 0, 2, b.sm, b.sd, b.sy, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, &mac, &mod,
                 validate, &err);
        benchmark::DoNotOptimize(mod);
    });
}
BENCHMARK(BM_bond_dur)->ArgName("validate")->Arg(0)->Arg(1);

// ---- The solve against its price evaluations, on the reduced schedule --------------------------------

struct ReducedBond {
    orvel::bond::Reduced r;
    double ai;
    const BenchBond* b;
};

const std::vector<ReducedBond>& reduced() {
    static const std::vector<ReducedBond> all = [] {
        std::vector<ReducedBond> v;
        for (const BenchBond& b : bonds()) {
            ReducedBond x{};
            x.b = &b;
            x.ai =
                orvel::bond::reduce({b.sm, b.sd, b.sy}, {b.mm, b.md, b.my}, {0, 0, 0}, {0, 0, 0}, b.cpn, 1, 0, 2, &x.r);
            v.push_back(x);
        }
        return v;
    }();
    return all;
}

void BM_kernel_price(benchmark::State& state) {
    const auto& all = reduced();
    std::size_t i = 0;
    for (auto _ : state) {
        const ReducedBond& x = all[i++ & 63];
        uint32_t err = 0;
        benchmark::DoNotOptimize(
            orvel::bond::price_on(x.r, x.ai, x.b->yld, x.b->cpn, 100.0, 0.0, 0.0, 2, &err));
    }
}
BENCHMARK(BM_kernel_price);

void BM_kernel_yield(benchmark::State& state) {
    const auto& all = reduced();
    std::size_t i = 0;
    long evaluations = 0, solves = 0;
    for (auto _ : state) {
        const ReducedBond& x = all[i++ & 63];
        uint32_t err = 0;
        orvel::SolveStats stats;
        benchmark::DoNotOptimize(
            orvel::bond::yield_on(x.r, x.ai, x.b->price, x.b->cpn, 100.0, 0.0, 0.0, 2, &err, &stats));
        evaluations += stats.evaluations;
        ++solves;
    }
    state.counters["evals_per_solve"] = static_cast<double>(evaluations) / static_cast<double>(solves);
}
BENCHMARK(BM_kernel_yield);

#ifdef ORVEL_WITH_QUANTLIB
// ---- QuantLib on the same bonds ------------------------------------------------------------------------

namespace ql = QuantLib;

ql::Date ql_date(int32_t m, int32_t d, int32_t y) { return ql::Date(d, static_cast<ql::Month>(m), y); }

// The bond with its regular schedule back from maturity, unadjusted, actual/actual (ISMA) accrual.
ql::ext::shared_ptr<ql::FixedRateBond> ql_bond(const BenchBond& b) {
    const ql::Date mat = ql_date(b.mm, b.md, b.my);
    const ql::Date start = mat - ql::Period(6 * (2 * (b.my - b.sy) + 2), ql::Months);
    const ql::Schedule schedule(start, mat, ql::Period(ql::Semiannual), ql::NullCalendar(), ql::Unadjusted,
                                ql::Unadjusted, ql::DateGeneration::Backward, false);
    return ql::ext::make_shared<ql::FixedRateBond>(0, 100.0, schedule, std::vector<ql::Rate>{b.cpn / 100.0},
                                                   ql::ActualActual(ql::ActualActual::ISMA), ql::Unadjusted, 100.0);
}

struct QlCase {
    ql::ext::shared_ptr<ql::FixedRateBond> bond;
    ql::Date settle;
    const BenchBond* b;
};

const std::vector<QlCase>& ql_cases() {
    static const std::vector<QlCase> all = [] {
        ql::Settings::instance().evaluationDate() = ql::Date(1, ql::January, 2021);
        std::vector<QlCase> v;
        for (const BenchBond& b : bonds()) v.push_back({ql_bond(b), ql_date(b.sm, b.sd, b.sy), &b});
        return v;
    }();
    return all;
}

const ql::ActualActual& ql_dc() {
    static const ql::ActualActual dc(ql::ActualActual::ISMA);
    return dc;
}

template <class Call>
void over_ql(benchmark::State& state, Call call) {
    const auto& all = ql_cases();
    std::size_t i = 0;
    for (auto _ : state) call(all[i++ & 63]);
}

void BM_QL_accrued_prebuilt(benchmark::State& state) {
    over_ql(state,
            [](const QlCase& c) { benchmark::DoNotOptimize(ql::BondFunctions::accruedAmount(*c.bond, c.settle)); });
}
BENCHMARK(BM_QL_accrued_prebuilt);

void BM_QL_price_prebuilt(benchmark::State& state) {
    over_ql(state, [](const QlCase& c) {
        benchmark::DoNotOptimize(ql::BondFunctions::cleanPrice(*c.bond, c.b->yld / 100.0, ql_dc(), ql::Compounded,
                                                               ql::Semiannual, c.settle));
    });
}
BENCHMARK(BM_QL_price_prebuilt);

void BM_QL_yield_prebuilt(benchmark::State& state) {
    over_ql(state, [](const QlCase& c) {
        benchmark::DoNotOptimize(
            ql::BondFunctions::yield(*c.bond, c.b->price, ql_dc(), ql::Compounded, ql::Semiannual, c.settle));
    });
}
BENCHMARK(BM_QL_yield_prebuilt);

void BM_QL_duration_prebuilt(benchmark::State& state) {
    over_ql(state, [](const QlCase& c) {
        benchmark::DoNotOptimize(ql::BondFunctions::duration(*c.bond, c.b->yld / 100.0, ql_dc(), ql::Compounded,
                                                             ql::Semiannual, ql::Duration::Modified, c.settle));
    });
}
BENCHMARK(BM_QL_duration_prebuilt);

void BM_QL_accrued_rebuilt(benchmark::State& state) {
    over_ql(state, [](const QlCase& c) {
        benchmark::DoNotOptimize(ql::BondFunctions::accruedAmount(*ql_bond(*c.b), c.settle));
    });
}
BENCHMARK(BM_QL_accrued_rebuilt);

void BM_QL_price_rebuilt(benchmark::State& state) {
    over_ql(state, [](const QlCase& c) {
        benchmark::DoNotOptimize(ql::BondFunctions::cleanPrice(*ql_bond(*c.b), c.b->yld / 100.0, ql_dc(),
                                                               ql::Compounded, ql::Semiannual, c.settle));
    });
}
BENCHMARK(BM_QL_price_rebuilt);

void BM_QL_yield_rebuilt(benchmark::State& state) {
    over_ql(state, [](const QlCase& c) {
        benchmark::DoNotOptimize(
            ql::BondFunctions::yield(*ql_bond(*c.b), c.b->price, ql_dc(), ql::Compounded, ql::Semiannual, c.settle));
    });
}
BENCHMARK(BM_QL_yield_rebuilt);

void BM_QL_duration_rebuilt(benchmark::State& state) {
    over_ql(state, [](const QlCase& c) {
        benchmark::DoNotOptimize(ql::BondFunctions::duration(*ql_bond(*c.b), c.b->yld / 100.0, ql_dc(),
                                                             ql::Compounded, ql::Semiannual, ql::Duration::Modified,
                                                             c.settle));
    });
}
BENCHMARK(BM_QL_duration_rebuilt);

// Both libraries price the same bonds: the largest difference in clean price (per 100) is reported, so a
// mismatch of conventions would show rather than flatter the timing.
void BM_QL_agreement(benchmark::State& state) {
    double worst = 0.0;
    for (auto _ : state) {
        worst = 0.0;
        for (const QlCase& c : ql_cases()) {
            const double p = ql::BondFunctions::cleanPrice(*c.bond, c.b->yld / 100.0, ql_dc(), ql::Compounded,
                                                           ql::Semiannual, c.settle);
            worst = std::max(worst, std::abs(p - c.b->price));
        }
    }
    state.counters["max_price_diff"] = worst;
}
BENCHMARK(BM_QL_agreement)->Iterations(1);
#endif

}  // namespace
