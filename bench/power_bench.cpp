// orvel::pow against the C runtime's pow on the discount factors of a price evaluation: v^-n for a whole
// number of periods and v^-w for the fraction to the next coupon; and the rate solves' pair, v^-n - 1 as
// expm1(-n log1p(i)).
#include <benchmark/benchmark.h>

#include <cmath>

#include "core/power.hpp"

namespace {

template <double (*Pow)(double, double)>
void discount_factors(benchmark::State& state) {
    const bool whole = state.range(0) != 0;
    double v = 1.0123, sum = 0.0;
    for (auto _ : state) {
        v += 1e-9;  // a new base each time, as in a yield solve
        sum += Pow(v, whole ? -59.0 : -0.4175824175824176);
        benchmark::DoNotOptimize(sum);
    }
    state.SetLabel(whole ? "v^-59" : "v^-0.4176");
}

double std_pow(double x, double y) { return std::pow(x, y); }
double orvel_pow(double x, double y) { return orvel::pow(x, y); }
double orvel_expm1_log1p(double x, double y) { return orvel::expm1(y * orvel::log1p(x - 1.0)); }

BENCHMARK(discount_factors<std_pow>)->Arg(1)->Arg(0);
BENCHMARK(discount_factors<orvel_pow>)->Arg(1)->Arg(0);
BENCHMARK(discount_factors<orvel_expm1_log1p>)->Arg(1)->Arg(0);

}  // namespace
