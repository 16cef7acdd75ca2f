// The implied PSA speed of two pool factors: 12 and 60 months apart, on seasoned and new pools, with
// validation on and off; and the one-month projection it repeats, and a whole-loan yield for scale.
#include <benchmark/benchmark.h>

#include <cstdint>

#include "orvel/orvel.h"

namespace {

// wam, months apart, and a factor2 projected at 150 PSA from 0.9 at month 3.
struct Pool {
    int32_t wam, months;
    double factor2;
};

Pool pool(int32_t wam, int32_t months) {
    uint32_t err = 0;
    return Pool{wam, months, mbs_nm_pf(360, wam, 7.5, 1, 0.9, 3, 3 + months, 3, 150.0, 1, &err)};
}

void BM_pfs2psa(benchmark::State& state) {
    const Pool p = pool(static_cast<int32_t>(state.range(0)), static_cast<int32_t>(state.range(1)));
    const int32_t validate = static_cast<int32_t>(state.range(2));
    for (auto _ : state) {
        uint32_t err = 0;
        benchmark::DoNotOptimize(mbs_pfs2psa(360, p.wam, 7.5, 3, 0.9, 3 + p.months, p.factor2, validate, &err));
    }
}
// wam 300 (seasoned, every month at the flat 6 % part of the ramp) and 355 (on the ramp); 12 and 60 months.
BENCHMARK(BM_pfs2psa)->Args({300, 12, 1})->Args({300, 12, 0})->Args({355, 12, 1})->Args({300, 60, 1})
    ->Args({355, 60, 1});

void BM_nm_pf(benchmark::State& state) {
    const int32_t months = static_cast<int32_t>(state.range(0));
    for (auto _ : state) {
        uint32_t err = 0;
        benchmark::DoNotOptimize(mbs_nm_pf(360, 355, 7.5, 1, 0.9, 3, 3 + months, 3, 150.0, 1, &err));
    }
}
BENCHMARK(BM_nm_pf)->Arg(12)->Arg(60);

void BM_mtg_cfy(benchmark::State& state) {
    for (auto _ : state) {
        uint32_t err = 0;
        benchmark::DoNotOptimize(mtg_cfy(360, 6.5, 24, 8.0, 98.5, 1, &err));
    }
}
BENCHMARK(BM_mtg_cfy);

}  // namespace
