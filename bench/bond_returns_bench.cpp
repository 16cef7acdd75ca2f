// Horizon return and street/true yields over 64 semi-annual actual/actual bonds (2 to 30 years, coupons 1 to
// 10%), one per iteration in turn, validate off and on. The true yield walks every flow's payment date for
// each price evaluation of its solve; the holiday table has four weekday holidays a year, 2021..2060.
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
            BenchBond b{1 + i % 12, 3 + (i * 7) % 25, 2021 + i % 2, 1 + (i * 5) % 12, 15, 0, 1.0 + (i % 10),
                        0.5 + (i * 3 % 17) * 0.5, 0.0};
            b.my = b.sy + 2 + (i * 11) % 29;
            double ai = 0.0;
            uint32_t err = 0;
            bond_py_ai(1, 1, 0, 2, 1, b.yld, b.cpn, b.sm, b.sd, b.sy, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, 100.0, 0.0,
                       0.0, &b.price, &ai, 1, &err);
            v.push_back(b);
        }
        return v;
    }();
    return all;
}

const std::vector<int32_t>& holidays() {
    static const std::vector<int32_t> all = [] {
        std::vector<int32_t> v;
        for (int32_t y = 2021; y <= 2060; ++y)
            for (const auto& md : {std::pair{1, 15}, std::pair{6, 15}, std::pair{7, 4}, std::pair{12, 15}}) {
                const int32_t j = MDY_2_julian(md.first, md.second, y);
                if (j % 7 < 5) v.push_back(j);  // weekdays only
            }
        return v;
    }();
    return all;
}

template <class Call>
void over_bonds(benchmark::State& state, Call call) {
    const auto& all = bonds();
    std::size_t i = 0;
    for (auto _ : state) call(all[i++ & 63]);
}

void BM_bond_hrz_rtn(benchmark::State& state) {
    const auto validate = static_cast<int32_t>(state.range(0));
    over_bonds(state, [validate](const BenchBond& b) {
        uint32_t err = 0;
        benchmark::DoNotOptimize(bond_hrz_rtn(b.price, b.yld + 0.5, 4.0, b.cpn, 100.0, 1, 0, 2, b.sm, b.sd, b.sy, b.sm,
                                              b.sd, b.sy + 1, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, validate, &err));
    });
}
BENCHMARK(BM_bond_hrz_rtn)->ArgName("validate")->Arg(0)->Arg(1);

void BM_bond_st_ylds(benchmark::State& state) {
    const auto validate = static_cast<int32_t>(state.range(0));
    const bool with_table = state.range(1) != 0;
    const auto& hols = holidays();
    const int32_t count = with_table ? static_cast<int32_t>(hols.size()) : 0;
    over_bonds(state, [&](const BenchBond& b) {
        double street = 0, actual = 0;
        uint32_t err = 0;
        bond_st_ylds(b.price, b.cpn, 100.0, 1, 0, 2, b.sm, b.sd, b.sy, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, count,
                     hols.data(), &street, &actual, validate, &err);
        benchmark::DoNotOptimize(actual);
    });
}
BENCHMARK(BM_bond_st_ylds)->ArgNames({"validate", "holidays"})->Args({0, 0})->Args({1, 0})->Args({0, 1})->Args({1, 1});

}  // namespace
