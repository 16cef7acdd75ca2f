// The dated-flow returns on a month of 20 flows (Modified Dietz, the money-weighted solve) and the
// standard deviation of 1,000 values, with validation on and off.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "orvel/perf.h"

namespace {

struct Month {
    std::vector<int32_t> m, d, y;
    std::vector<double> flows;
    Month() {
        for (int k = 0; k < 20; ++k) {
            m.push_back(5);
            d.push_back(1 + k * 3 / 2);
            y.push_back(2024);
            flows.push_back(k == 0 ? 1e6 : (k % 2 == 0 ? 2500.0 : -1800.0));
        }
    }
};

void dietz(benchmark::State& state) {
    const Month mo;
    const auto validate = static_cast<int32_t>(state.range(0));
    for (auto _ : state) {
        uint32_t err = 0;
        benchmark::DoNotOptimize(aimr_rdietz(1, 0, 5, 1, 2024, 5, 31, 2024, 19, &mo.m[1], &mo.d[1], &mo.y[1],
                                             &mo.flows[1], 1e6, 1.013e6, 0, 0.0, validate, &err));
    }
}
BENCHMARK(dietz)->Arg(1)->Arg(0);

void money_weighted(benchmark::State& state) {
    const Month mo;
    std::vector<double> times(20);
    const auto validate = static_cast<int32_t>(state.range(0));
    for (auto _ : state) {
        uint32_t err = 0;
        benchmark::DoNotOptimize(aimr_rmodbai(1, 0, 6, 5, 31, 2024, 1.013e6, 20, mo.m.data(), mo.d.data(),
                                              mo.y.data(), mo.flows.data(), 0, 0.0, times.data(), validate, &err));
    }
}
BENCHMARK(money_weighted)->Arg(1)->Arg(0);

void standard_deviation(benchmark::State& state) {
    std::vector<double> v(1000);
    for (std::size_t k = 0; k < v.size(); ++k) v[k] = 1e6 + 0.01 * static_cast<double>(k % 7);
    for (auto _ : state) {
        uint32_t err = 0;
        double mean = 0.0;
        benchmark::DoNotOptimize(std_dev(v.data(), 1000, 0, &mean, 1, &err));
    }
}
BENCHMARK(standard_deviation);

}  // namespace
