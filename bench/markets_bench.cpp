// A family member against the engine calls beneath it: augb_py_ai (conventions from the market table,
// ok_bond_in and ok_exdiv_MDY, then the engine unchecked) against the same checks and engine calls made by
// hand, on 64 annual 30E/360 bonds (2 to 30 years), ex-dividend rule on, one bond an iteration.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "orvel/orvel.h"

namespace {

struct BenchBond {
    int32_t sm, sd, sy, mm, md, my;
    double cpn, yld, price;
};

const std::vector<BenchBond>& bonds() {
    static const std::vector<BenchBond> all = [] {
        std::vector<BenchBond> v;
        for (int i = 0; i < 64; ++i) {
            BenchBond b{};
            b.sm = 1 + i % 12;
            b.sd = 3 + (i * 7) % 25;
            b.sy = 2020;
            b.mm = 1 + (i * 5) % 12;
            b.md = 1 + (i * 11) % 28;
            b.my = 2022 + i % 29;
            b.cpn = 1.0 + (i % 10);
            b.yld = 2.0 + (i % 7) * 0.75;
            double ai = 0.0;
            uint32_t err = 0;
            augb_py_ai(-1, -1, -1, 1, b.yld, b.cpn, b.sm, b.sd, b.sy, 0, 0, 0, 0, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0,
                       100.0, -1, 0, 0, &b.price, &ai, 1, &err);
            v.push_back(b);
        }
        return v;
    }();
    return all;
}

void family(benchmark::State& state, int32_t calc_type) {
    const auto& all = bonds();
    std::size_t i = 0;
    for (auto _ : state) {
        const BenchBond& b = all[i++ % all.size()];
        double result = 0.0, ai = 0.0;
        uint32_t err = 0;
        augb_py_ai(-1, -1, -1, calc_type, calc_type == 1 ? b.yld : b.price, b.cpn, b.sm, b.sd, b.sy, b.sm, b.sd, b.sy,
                   1, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, 100.0, -1, 0, 0, &result, &ai, 1, &err);
        benchmark::DoNotOptimize(result);
    }
}

// What a caller does by hand: the member's checks (ok_bond_in, ok_exdiv_MDY), then the accrual and the kernel
// unchecked (final period: simple interest). The difference from `family` is the family layer's own cost.
void engine(benchmark::State& state, int32_t calc_type) {
    const auto& all = bonds();
    std::size_t i = 0;
    for (auto _ : state) {
        const BenchBond& b = all[i++ % all.size()];
        double w = 0.0, c = 0.0, result = 0.0;
        int32_t n = 0;
        uint32_t err = 0;
        const double given = calc_type == 1 ? b.yld : b.price;
        if (!ok_bond_in(5, 1, 1, calc_type, given, b.cpn, b.sm, b.sd, b.sy, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, 100.0,
                        0.0, 0.0, &err) ||
            !ok_exdiv_MDY(b.sm, b.sd, b.sy, b.sm, b.sd, b.sy, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, 5, 1, 1, &err))
            continue;
        const double ai = bond_ex_ai(0, 0, 0, b.sm, b.sd, b.sy, b.sm, b.sd, b.sy, 1, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0,
                                     b.cpn, 5, 1, 1, &w, &c, &n, 0, &err);
        if (n < 1)
            result = calc_type == 1 ? bond_ptm_l1p(b.yld, b.cpn, 100.0, 0.0, 1, w, ai, 0, &err)
                                    : bond_ytm_l1p(b.price, b.cpn, 100.0, 0.0, 1, w, ai, 0, &err);
        else
            result = calc_type == 1 ? aibd_p(b.yld, b.cpn, 100.0, 1, n, w, c, ai, 0, &err)
                                    : aibd_y(b.price, b.cpn, 100.0, 1, n, w, c, ai, 0, &err);
        benchmark::DoNotOptimize(result);
    }
}

BENCHMARK_CAPTURE(family, augb_py_ai_price, 1);
BENCHMARK_CAPTURE(engine, bond_ex_ai_aibd_p, 1);
BENCHMARK_CAPTURE(family, augb_py_ai_yield, 2);
BENCHMARK_CAPTURE(engine, bond_ex_ai_aibd_y, 2);

}  // namespace

// The gilt members on the same bonds (semi-annual, no ex-dividend rule): the compound kernel's closed form
// against the bond's flows summed one by one (ukgb_cf_py; 411, so simple interest in the final period).
void gilt(benchmark::State& state, decltype(&ukgb_py_ai) member, int32_t calc_type) {
    const auto& all = bonds();
    std::size_t i = 0;
    for (auto _ : state) {
        const BenchBond& b = all[i++ % all.size()];
        double result = 0.0, ai = 0.0;
        uint32_t err = 0;
        member(-1, -1, -1, calc_type, calc_type == 1 ? b.yld : b.price, b.cpn, b.sm, b.sd, b.sy, 0, 0, 0, 0, b.mm,
               b.md, b.my, 0, 0, 0, 0, 0, 0, 100.0, -1, 0, 0, &result, &ai, 1, &err);
        benchmark::DoNotOptimize(result);
    }
}

BENCHMARK_CAPTURE(gilt, ukgb_py_ai_price, ukgb_py_ai, 1);
BENCHMARK_CAPTURE(gilt, ukgb_cf_py_price, ukgb_cf_py, 1);
BENCHMARK_CAPTURE(gilt, ukgb_py_ai_yield, ukgb_py_ai, 2);
BENCHMARK_CAPTURE(gilt, ukgb_cf_py_yield, ukgb_cf_py, 2);
