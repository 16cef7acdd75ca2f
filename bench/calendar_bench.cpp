// Day counts and date steps per call, through the exported functions (as a host calls them) and through
// the inline kernels (as the schedule and bond engines call them).
#include <benchmark/benchmark.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <random>
#include <vector>

#include "calendar/day_count.hpp"
#include "orvel/calendar.h"

namespace {

struct Pair {
    int32_t m1, d1, y1, m2, d2, y2;
};

// Pairs of mixed shapes: month ends, February, the 31st, across years.
constexpr std::array<Pair, 8> pairs = {{
    {1, 31, 2001, 3, 31, 2001}, {2, 28, 2001, 8, 28, 2001}, {2, 29, 2000, 2, 28, 2001}, {6, 15, 1999, 12, 15, 2029},
    {12, 31, 2001, 12, 31, 2002}, {7, 1, 1999, 7, 1, 2000}, {3, 30, 2010, 9, 30, 2010}, {8, 15, 2001, 8, 31, 2001},
}};

void days_b_MDYs_by_type(benchmark::State& state) {
    const auto day_type = static_cast<int32_t>(state.range(0));
    const auto validate = static_cast<int32_t>(state.range(1));
    uint32_t err = 0;
    size_t i = 0;
    for (auto _ : state) {
        const Pair& p = pairs[i++ & 7];
        benchmark::DoNotOptimize(days_b_MDYs(p.m1, p.d1, p.y1, p.m2, p.d2, p.y2, day_type, validate, &err));
    }
    state.SetLabel(validate ? "validate" : "no validation");
}
BENCHMARK(days_b_MDYs_by_type)->ArgsProduct({benchmark::CreateDenseRange(1, 13, 1), {0, 1}});

void inline_kernel_by_type(benchmark::State& state) {
    const auto day_type = static_cast<int32_t>(state.range(0));
    size_t i = 0;
    for (auto _ : state) {
        const Pair& p = pairs[i++ & 7];
        benchmark::DoNotOptimize(orvel::cal::days_by_type(day_type, p.m1, p.d1, p.y1, p.m2, p.d2, p.y2));
    }
}
BENCHMARK(inline_kernel_by_type)->DenseRange(1, 13, 1);

// The same actual count through the standard library's civil calendar, as an outside yardstick.
void chrono_actual_days(benchmark::State& state) {
    namespace chr = std::chrono;
    size_t i = 0;
    for (auto _ : state) {
        const Pair& p = pairs[i++ & 7];
        const chr::sys_days a{chr::year{p.y1} / static_cast<unsigned>(p.m1) / static_cast<unsigned>(p.d1)};
        const chr::sys_days b{chr::year{p.y2} / static_cast<unsigned>(p.m2) / static_cast<unsigned>(p.d2)};
        benchmark::DoNotOptimize((b - a).count());
    }
}
BENCHMARK(chrono_actual_days);

void julian_round_trip(benchmark::State& state) {
    int32_t j = 2451545, m = 0, d = 0, y = 0;
    for (auto _ : state) {
        julian_2_MDY(j, &m, &d, &y);
        benchmark::DoNotOptimize(j = MDY_2_julian(m, d, y) + 1);
    }
}
BENCHMARK(julian_round_trip);

void incr_by_mths_month_end(benchmark::State& state) {
    int32_t m = 1, d = 31, y = 2001;
    for (auto _ : state) {
        incr_by_mths(1, &m, &d, &y, 1);
        if (y > 2290) y = 2001;
        benchmark::DoNotOptimize(d);
    }
}
BENCHMARK(incr_by_mths_month_end);

void years_b_MDYs_by_type(benchmark::State& state) {
    const auto day_type = static_cast<int32_t>(state.range(0));
    uint32_t err = 0;
    size_t i = 0;
    for (auto _ : state) {
        const Pair& p = pairs[i++ & 7];
        benchmark::DoNotOptimize(years_b_MDYs(p.m1, p.d1, p.y1, p.m2, p.d2, p.y2, day_type, 0, &err));
    }
}
BENCHMARK(years_b_MDYs_by_type)->Arg(1)->Arg(2)->Arg(12);

void isda_dcf_actual(benchmark::State& state) {
    uint32_t err = 0;
    int32_t basis = 0;
    size_t i = 0;
    for (auto _ : state) {
        const Pair& p = pairs[i++ & 7];
        if (p.m1 * 100 + p.d1 + p.y1 * 10000 > p.m2 * 100 + p.d2 + p.y2 * 10000) continue;
        benchmark::DoNotOptimize(isda_dcf(p.m1, p.d1, p.y1, p.m2, p.d2, p.y2, 1, 0, 0, 0, &basis, 0, &err));
    }
}
BENCHMARK(isda_dcf_actual);

// sort_MDYs on n dates drawn from 20 years (so with many equal dates), amounts carried along; every
// iteration sorts a fresh copy of the same list.
void sort_MDYs_random(benchmark::State& state) {
    const auto n = static_cast<size_t>(state.range(0));
    const auto validate = static_cast<int32_t>(state.range(1));
    std::mt19937 rng(7);
    std::uniform_int_distribution<int32_t> day(MDY_2_julian(1, 1, 2000), MDY_2_julian(12, 31, 2019));
    std::vector<int32_t> m0(n), d0(n), y0(n);
    std::vector<double> v0(n);
    for (size_t i = 0; i < n; ++i) {
        julian_2_MDY(day(rng), &m0[i], &d0[i], &y0[i]);
        v0[i] = static_cast<double>(i);
    }
    std::vector<int32_t> m, d, y;
    std::vector<double> v;
    uint32_t err = 0;
    for (auto _ : state) {
        state.PauseTiming();
        m = m0, d = d0, y = y0, v = v0;
        state.ResumeTiming();
        benchmark::DoNotOptimize(sort_MDYs(m.data(), d.data(), y.data(), v.data(), static_cast<int32_t>(n), validate, &err));
    }
    state.SetLabel(validate ? "validate" : "no validation");
}
BENCHMARK(sort_MDYs_random)->ArgsProduct({{1000, 10000, 100000}, {0, 1}})->Unit(benchmark::kMillisecond);

}  // namespace
