// Pass-throughs on a 30-year pool at 150 PSA (360 monthly flows, 24 days' delay): price from yield and yield
// from price, validated (1) and not (0), and the full projection of the pool (speed tables, then the
// monthly flows, balances and principal).
#include <benchmark/benchmark.h>

#include <vector>

#include "orvel/mortgage.h"

namespace {

constexpr int kMonths = 360;

struct Pool {
    std::vector<double> surv = std::vector<double>(kMonths + 1), prepd = surv, cfs = surv, bal = surv, prn = surv;
    int32_t n = 0;
    uint32_t err = 0;
    void project(double psa) {
        mbs_gen_tbls(kMonths, kMonths, 3, psa, kMonths + 1, surv.data(), prepd.data(), &n, 0, &err);
        mbs_cfs_bals(kMonths, 7.0, 6.5, kMonths, 1, 1, 0, surv.data(), prepd.data(), kMonths + 1, cfs.data(),
                     bal.data(), prn.data(), &n, 0, &err);
    }
};

void PassThroughPrice(benchmark::State& state) {
    Pool pool;
    pool.project(150.0);
    const int32_t validate = static_cast<int32_t>(state.range(0));
    double y = 6.0;
    for (auto _ : state) {
        y += 1e-9;
        benchmark::DoNotOptimize(mbs_p(y, kMonths, 24, 10, pool.cfs.data(), validate, &pool.err));
    }
}

void PassThroughYield(benchmark::State& state) {
    Pool pool;
    pool.project(150.0);
    const int32_t validate = static_cast<int32_t>(state.range(0));
    double price = 101.0;
    for (auto _ : state) {
        price += 1e-9;
        benchmark::DoNotOptimize(mbs_y(price, kMonths, 24, 10, pool.cfs.data(), validate, &pool.err));
    }
}

void PassThroughProjection(benchmark::State& state) {
    Pool pool;
    double psa = 150.0;
    for (auto _ : state) {
        psa += 1e-9;
        pool.project(psa);
        benchmark::DoNotOptimize(pool.cfs.data());
    }
}

BENCHMARK(PassThroughPrice)->Arg(0)->Arg(1);
BENCHMARK(PassThroughYield)->Arg(0)->Arg(1);
BENCHMARK(PassThroughProjection);

}  // namespace
