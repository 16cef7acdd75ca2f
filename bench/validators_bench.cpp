// The cost of the checks a validated call runs first: one date, the coupon-bond date group (given dates,
// and blank dates that get the 1804 defaults), the whole bond input group, and the market-default lookup.
#include <benchmark/benchmark.h>

#include "orvel/frame.h"

namespace {

void ok_MDY_required(benchmark::State& state) {
    uint32_t err = 0;
    for (auto _ : state) benchmark::DoNotOptimize(ok_MDY(2, 29, 2024, 1, &err));
}
BENCHMARK(ok_MDY_required);

// range(0): 0 dated and first coupon given, 1 both blank (defaults supplied)
void ok_bond_MDYs_semiannual(benchmark::State& state) {
    const bool blank = state.range(0) != 0;
    uint32_t err = 0;
    for (auto _ : state) {
        int32_t dm = 11, dd = 15, dy = 2023, fm = 5, fd = 15, fy = 2024;
        if (blank) dm = dd = dy = fm = fd = fy = 0;
        benchmark::DoNotOptimize(ok_bond_MDYs(3, 1, 2024, 11, 15, 2033, &dm, &dd, &dy, &fm, &fd, &fy, 1, 1, 2, &err));
    }
    state.SetLabel(blank ? "blank dates" : "given dates");
}
BENCHMARK(ok_bond_MDYs_semiannual)->Arg(0)->Arg(1);

void ok_bond_in_price(benchmark::State& state) {
    uint32_t err = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(ok_bond_in(1, 1, 2, 2, 99.5, 6.5, 3, 1, 2024, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024,
                                            100.0, 0.0, 0.0, &err));
}
BENCHMARK(ok_bond_in_price);

void ok_exdiv_MDY_regular(benchmark::State& state) {
    uint32_t err = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            ok_exdiv_MDY(11, 8, 2026, 10, 1, 2026, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024, 1, 1, 2, &err));
}
BENCHMARK(ok_exdiv_MDY_regular);

void get_sec_dflt_all_slots(benchmark::State& state) {
    const int32_t code = static_cast<int32_t>(state.range(0));
    for (auto _ : state) {
        int32_t s[10] = {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
        int32_t absent = 0, spare = 0;
        uint32_t err = 0;
        benchmark::DoNotOptimize(get_sec_dflt(code, &s[0], &s[1], &s[2], &s[3], &s[4], &s[5], &s[6], &s[7], &s[8],
                                              &s[9], &absent, &spare, &spare, &spare, &spare, &err));
        benchmark::DoNotOptimize(s);
    }
}
BENCHMARK(get_sec_dflt_all_slots)->Arg(100)->Arg(4260)->Arg(999);

}  // namespace
