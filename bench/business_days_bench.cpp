// incr_by_bdys per call with a 3,000-entry holiday table (every weekday holiday from 1/3/2000 on, about
// eleven and a half years of them: the worst table ok_hol_table accepts) and with none, stepping from dates
// spread over that span by a mix of business-day counts.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "orvel/calendar.h"

namespace {

std::vector<int32_t> full_table() {
    std::vector<int32_t> t;
    for (int32_t j = MDY_2_julian(1, 3, 2000); t.size() < 3000; ++j)
        if (j % 7 + 1 <= 5 && j % 3 != 0) t.push_back(j);  // two weekdays in three: runs of holidays, gaps
    return t;
}

void incr_by_bdys_table(benchmark::State& state) {
    const std::vector<int32_t> table = state.range(0) ? full_table() : std::vector<int32_t>{0};
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
    state.SetLabel(std::string(count ? "3000 holidays" : "no holidays") + (validate ? ", validate" : ""));
}
BENCHMARK(incr_by_bdys_table)->ArgsProduct({{0, 1}, {0, 1}});

}  // namespace
