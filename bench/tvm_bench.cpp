// The annuity rate solve: tvm_iy on 64 loans with and without a balloon (1 to 30 years, 1 to 52 payments a
// year, rates 0.5 to 20% a year, payments at the start or the end), one per iteration in turn, with
// validation on and off; the counter evals_per_solve gives the residual evaluations each solve performs. The closed
// form tvm_pmt alongside for scale.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "cashflow/tvm.hpp"
#include "orvel/cashflow.h"

namespace {

struct Loan {
    double fv, pmt, pv, n, iy;
    int32_t ppy, due;
};

const std::vector<Loan>& loans() {
    static const std::vector<Loan> all = [] {
        const int32_t freqs[] = {1, 2, 4, 12, 52};
        std::vector<Loan> v;
        for (int k = 0; k < 64; ++k) {
            Loan l{};
            l.ppy = freqs[k % 5];
            l.due = (k / 5) % 2;
            l.n = l.ppy * (1.0 + (k * 7) % 30);
            l.iy = 0.5 + (k * 13 % 40) * 0.5;
            l.pv = 1000.0 * (1 + k);            // a loan received
            l.fv = -0.1 * (k % 4) * l.pv;       // and a balloon of 0 to 30% of it repaid at the end
            uint32_t err = 0;
            l.pmt = tvm_pmt(l.fv, l.pv, l.iy, l.n, l.ppy, l.ppy, l.due, 1, &err);
            v.push_back(l);
        }
        return v;
    }();
    return all;
}

void tvm_iy_solve(benchmark::State& state) {
    const int32_t validate = static_cast<int32_t>(state.range(0));
    const auto& all = loans();
    std::size_t i = 0;
    for (auto _ : state) {
        const Loan& l = all[i++ % all.size()];
        uint32_t err = 0;
        benchmark::DoNotOptimize(tvm_iy(l.fv, l.pmt, l.pv, l.n, l.ppy, l.ppy, l.due, validate, &err));
    }
    int evaluations = 0;
    for (const Loan& l : all) {
        orvel::SolveStats stats;
        uint32_t err = 0;
        orvel::tvm::solve_epi(l.fv, l.pmt, l.pv, l.n, l.ppy, l.due, &err, &stats);
        evaluations += stats.evaluations;
    }
    state.counters["evals_per_solve"] = static_cast<double>(evaluations) / static_cast<double>(all.size());
    state.SetLabel(validate ? "validate" : "no validation");
}
BENCHMARK(tvm_iy_solve)->Arg(1)->Arg(0);

void tvm_pmt_closed_form(benchmark::State& state) {
    const auto& all = loans();
    std::size_t i = 0;
    for (auto _ : state) {
        const Loan& l = all[i++ % all.size()];
        uint32_t err = 0;
        benchmark::DoNotOptimize(tvm_pmt(l.fv, l.pv, l.iy, l.n, l.ppy, l.ppy, l.due, 1, &err));
    }
}
BENCHMARK(tvm_pmt_closed_form);

}  // namespace
