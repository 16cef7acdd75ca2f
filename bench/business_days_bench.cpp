// incr_by_bdys per call with no holidays and with 3,000-entry tables (the longest ok_hol_table accepts): one
// spread over 1800..2300 (six holidays a year, as a real calendar), one dense (two weekdays in three from
// 1/3/2000 on, so that long steps pass hundreds of holidays); starts spread over 2000..2013, steps mixed.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "orvel/calendar.h"

namespace {

std::vector<int32_t> table_of(int64_t kind) {
    std::vector<int32_t> t;
    if (kind == 1)
        for (int32_t j = MDY_2_julian(1, 1, 1800); t.size() < 3000; j += 61) t.push_back(j % 7 + 1 <= 5 ? j : j + 2);
    if (kind == 2)
        for (int32_t j = MDY_2_julian(1, 3, 2000); t.size() < 3000; ++j)
            if (j % 7 + 1 <= 5 && j % 3 != 0) t.push_back(j);
    if (t.empty()) t.push_back(0);
    return t;
}

void incr_by_bdys_table(benchmark::State& state) {
    const std::vector<int32_t> table = table_of(state.range(0));
    const auto count = static_cast<int32_t>(state.range(0) ? table.size() : 0);
    const auto validate = static_cast<int32_t>(state.range(1));
    constexpr int32_t steps[8] = {1, -1, 5, -6, 10, 22, -66, 250};
    uint32_t err = 0;
    int32_t m, d, y;
    uint32_t i = 0;
    for (auto _ : state) {
        const int32_t start = 2451600 + static_cast<int32_t>((i * 7919u) % 5000u);
        int32_t sm, sd, sy;
        julian_2_MDY(start, &sm, &sd, &sy);
        benchmark::DoNotOptimize(incr_by_bdys(sm, sd, sy, steps[i++ & 7], &m, &d, &y, count, table.data(), validate, &err));
    }
    const char* names[] = {"no holidays", "3000 over 500 years", "3000 dense"};
    state.SetLabel(std::string(names[state.range(0)]) + (validate ? ", validate" : ""));
}
BENCHMARK(incr_by_bdys_table)->ArgsProduct({{0, 1, 2}, {0, 1}});

}  // namespace
