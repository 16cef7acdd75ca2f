// Cost of locating settlement in a coupon schedule: the calls the accrued-interest engine makes on every
// price. Settlement dates walk through a 30-year schedule so that each call sees a different period.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "core/civil.hpp"
#include "orvel/orvel.h"

namespace {

struct Case {
    int32_t sm, sd, sy;
};

// 4096 settlement dates spread over 30 years before an end-of-month maturity of 8/31/2050.
const std::vector<Case>& settlements() {
    static const std::vector<Case> cases = [] {
        std::vector<Case> v;
        const auto start = orvel::cal::jdn(9, 1, 2020);
        for (int64_t i = 0; i < 4096; ++i) {
            const auto d = orvel::cal::from_jdn(start + (i * 2671) % 10950);
            v.push_back({d.m, d.d, d.y});
        }
        return v;
    }();
    return cases;
}

// Runs call(settlement) once per iteration, the settlement walking through the 4096 dates.
template <class Call>
void over_settlements(benchmark::State& state, Call call) {
    const auto& cases = settlements();
    std::size_t i = 0;
    for (auto _ : state) call(cases[i++ & 4095]);
}

void BM_lst_nxt_ncpn(benchmark::State& state) {
    const auto validate = static_cast<int32_t>(state.range(0));
    over_settlements(state, [validate](const Case& c) {
        int32_t o[6];
        uint32_t err = 0;
        lst_nxt_ncpn(c.sm, c.sd, c.sy, 8, 31, 2050, 2, 1, o, o + 1, o + 2, o + 3, o + 4, o + 5, validate, &err);
        benchmark::DoNotOptimize(o);
    });
}
BENCHMARK(BM_lst_nxt_ncpn)->ArgName("validate")->Arg(0)->Arg(1);

void BM_reg_per_info(benchmark::State& state) {
    const auto day_type = static_cast<int32_t>(state.range(0));
    const auto validate = static_cast<int32_t>(state.range(1));
    over_settlements(state, [day_type, validate](const Case& c) {
        int32_t o[5];
        uint32_t err = 0;
        benchmark::DoNotOptimize(reg_per_info(c.sm, c.sd, c.sy, 8, 31, 2050, day_type, 1, 2, o, o + 1, o + 2, o + 3,
                                              o + 4, validate, &err));
    });
}
BENCHMARK(BM_reg_per_info)->ArgNames({"day_type", "validate"})->ArgsProduct({{1, 2, 4, 7, 13}, {0, 1}});

void BM_d_regperinfo(benchmark::State& state) {
    over_settlements(state, [](const Case& c) {
        double o[5];
        uint32_t err = 0;
        benchmark::DoNotOptimize(
            d_regperinfo(c.sm, c.sd, c.sy, 8, 31, 2050, 1, 1, 2, o, o + 1, o + 2, o + 3, o + 4, 0, &err));
    });
}
BENCHMARK(BM_d_regperinfo);

void BM_per_cpn_MDYs(benchmark::State& state) {
    over_settlements(state, [](const Case& c) {
        int32_t o[6];
        uint32_t err = 0;
        per_cpn_MDYs(c.sm, c.sd, c.sy, 8, 31, 2050, 3, 1, 2020, 8, 31, 2021, 0, 0, 0, 1, 1, 2, o, o + 1, o + 2, o + 3,
                     o + 4, o + 5, 0, &err);
        benchmark::DoNotOptimize(o);
    });
}
BENCHMARK(BM_per_cpn_MDYs);

}  // namespace
