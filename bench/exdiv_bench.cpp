// ukgb_exd per call: gilts with coupons spread over the years, with no holidays and with a table of about
// eight holidays a year from 1995 to 2030 (about 290 entries), validation off and on.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <vector>

#include "orvel/calendar.h"
#include "orvel/markets.h"

namespace {

void ukgb_exd_calls(benchmark::State& state) {
    std::vector<int32_t> table{0};
    if (state.range(0) != 0) {
        table.clear();
        for (int32_t j = MDY_2_julian(1, 1, 1995); j < MDY_2_julian(1, 1, 2031); j += 45)
            table.push_back(j % 7 + 1 <= 5 ? j : j + 2);  // moved off a weekend onto the Monday or Tuesday
    }
    const auto count = static_cast<int32_t>(state.range(0) ? table.size() : 0);
    const auto validate = static_cast<int32_t>(state.range(1));
    uint32_t err = 0;
    int32_t m, d, y;
    uint32_t i = 0;
    for (auto _ : state) {
        const int32_t settle = 2450000 + static_cast<int32_t>((i * 7919u) % 9000u);  // 1995..2020
        int32_t sm, sd, sy;
        julian_2_MDY(settle, &sm, &sd, &sy);
        const int32_t spec_exd = static_cast<int32_t>(i++ & 1);
        benchmark::DoNotOptimize(ukgb_exd(-1, -1, -1, sm, sd, sy, 3, 7, 2031, 0, 0, 0, 0, 0, 0, spec_exd, 1, count,
                                          table.data(), &m, &d, &y, validate, &err));
    }
    state.SetLabel(std::to_string(count) + " holidays" + (validate ? ", validate" : ""));
}
BENCHMARK(ukgb_exd_calls)->ArgsProduct({{0, 1}, {0, 1}});

}  // namespace
