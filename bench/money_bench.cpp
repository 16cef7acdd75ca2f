// Bills: every quote of a US bill from its discount rate (a 91-day bill, all simple interest; a 273-day
// bill, whose compound-equivalent yield is solved), with validation on and off, and the bond-equivalent
// conversion of a price alone.
#include <benchmark/benchmark.h>

#include "orvel/money.h"

namespace {

// range(0): days to maturity from 3/7/2024 (91: 6/6/2024, 273: 12/5/2024); range(1): validate
void usbl_pydbey_from_discount(benchmark::State& state) {
    const bool long_bill = state.range(0) == 273;
    const int32_t mm = long_bill ? 12 : 6, md = long_bill ? 5 : 6, validate = static_cast<int32_t>(state.range(1));
    double yld = 0, price = 0, disc = 0, cey = 0, bey = 0;
    uint32_t err = 0;
    for (auto _ : state) {
        usbl_pydbey(-1, 5.0, 3, 3, 7, 2024, mm, md, 2024, 100.0, &yld, &price, &disc, &cey, &bey, validate, &err);
        benchmark::DoNotOptimize(bey);
    }
    state.SetLabel(validate != 0 ? "validated" : "unvalidated");
}
BENCHMARK(usbl_pydbey_from_discount)->Args({91, 1})->Args({91, 0})->Args({273, 1})->Args({273, 0});

// range(0): validate
void disc_p_2_bey_price(benchmark::State& state) {
    const int32_t validate = static_cast<int32_t>(state.range(0));
    uint32_t err = 0;
    double price = 96.2;
    for (auto _ : state) {
        benchmark::DoNotOptimize(price);
        benchmark::DoNotOptimize(disc_p_2_bey(price, 100.0, 0.4958904, 1, 0.0, validate, &err));
    }
}
BENCHMARK(disc_p_2_bey_price)->Arg(1)->Arg(0);

void disc_p_2_cey_price(benchmark::State& state) {
    uint32_t err = 0;
    double price = 96.2;
    for (auto _ : state) {
        benchmark::DoNotOptimize(price);
        benchmark::DoNotOptimize(disc_p_2_cey(price, 100.0, 0.4958904, 1, 0.0, 0, &err));
    }
}
BENCHMARK(disc_p_2_cey_price);

}  // namespace
