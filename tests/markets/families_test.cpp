// Every market family on a current bond of its market, one table row a family: price -> yield -> price
// round trip, -1 taking the market default and any other value overriding it, the l1p_rule switch in the
// final period, negative accrued interest and no next coupon inside the ex-dividend window, and one day's
// interest across a coupon date never negative. Worked values per member are rows of
// tests/calls/markets.calls.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "markets/family.hpp"
#include "orvel/markets.h"

namespace {

struct D {
    int32_t m, d, y;
};

// ustb's members open with the engine's method code; method 1 gives them the model shapes.
ORVEL_MKT_PY_AI(ustb1_py_ai) { ustb_py_ai(1, ORVEL_MKT_PY_AI_ARGS); }
ORVEL_MKT_AI(ustb1_ai) {
    return ustb_ai(1, day_type, eom, cpn_freq, settle_m, settle_d, settle_y, exdiv_dt_m, exdiv_dt_d, exdiv_dt_y, ex_type,
                   mat_m, mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, rsv_dt_m,
                   rsv_dt_d, rsv_dt_y, cpn_rate, opt1, opt2, opt3, nxt_frac, cpn_amt, n_after, validate, err_code);
}
ORVEL_MKT_FPI(ustb1_fpi) { return ustb_fpi(1, ORVEL_MKT_FPI_ARGS); }
ORVEL_MKT_1DI(ustb1_1di) { return ustb_1di(1, ORVEL_MKT_1DI_ARGS); }

struct Family {
    const char* name;
    decltype(&augb_py_ai) py_ai;
    decltype(&augb_ai) ai;
    decltype(&augb_fpi) fpi;
    decltype(&augb_1di) one_di;
    int32_t day_type, eom, cpn_freq, l1p_rule;  // the market's defaults (l1p_rule -1: none)
    int32_t other_day_type;                     // an override that changes the accrued interest
    double cpn_rate;
    D mat, settle, exdiv, ex_settle, coupon, last_period;  // a coupon date; a settlement in the final period
    int32_t opt1, opt2;
    int32_t freq_given = -1;  // what a caller passes for cpn_freq where the market has no default
};

const Family families[] = {
    // name    py_ai        ai        fpi        1di        day eom frq l1p  other cpn  mat            settle         exdiv          ex_settle      coupon         final period
    {"augb", augb_py_ai, augb_ai, augb_fpi, augb_1di, 5, 1, 1, 2, 1, 6.25, {7, 15, 2027}, {3, 10, 2020}, {7, 1, 2020}, {7, 10, 2020}, {7, 15, 2020}, {3, 10, 2027}, -1, -1},
    {"ukgb", ukgb_py_ai, ukgb_ai, ukgb_fpi, ukgb_1di, 12, 0, 2, 1, 5, 4.25, {6, 7, 2032}, {3, 10, 2020}, {5, 28, 2020}, {6, 1, 2020}, {6, 7, 2020}, {3, 10, 2032}, -1, -1},
    {"ustb", ustb1_py_ai, ustb1_ai, ustb1_fpi, ustb1_1di, 1, 1, 2, -1, 5, 2.875, {5, 15, 2028}, {3, 10, 2020}, {5, 1, 2020}, {5, 5, 2020}, {5, 15, 2020}, {3, 10, 2028}, -1, -1},
    {"acgb", acgb_py_ai, acgb_ai, acgb_fpi, acgb_1di, 1, 1, 2, 2, 5, 2.75, {11, 21, 2029}, {3, 10, 2020}, {5, 14, 2020}, {5, 18, 2020}, {5, 21, 2020}, {8, 10, 2029}, -1, -1, -1},
    {"argb", argb_py_ai, argb_ai, argb_fpi, argb_1di, 5, 1, 2, 2, 1, 7.0, {4, 22, 2026}, {3, 10, 2020}, {4, 10, 2020}, {4, 15, 2020}, {4, 22, 2020}, {12, 10, 2025}, -1, -1, -1},
    {"blgb", blgb_py_ai, blgb_ai, blgb_fpi, blgb_1di, 5, 1, 1, 1, 1, 0.8, {6, 22, 2028}, {3, 10, 2020}, {6, 15, 2020}, {6, 18, 2020}, {6, 22, 2020}, {3, 10, 2028}, 0, -1, -1},
    {"dngb", dngb_py_ai, dngb_ai, dngb_fpi, dngb_1di, 5, 1, 1, -1, 1, 0.5, {11, 15, 2027}, {3, 10, 2020}, {10, 16, 2020}, {10, 20, 2020}, {11, 15, 2020}, {3, 10, 2027}, -1, -1, -1},
    {"dusl", dusl_py_ai, dusl_ai, dusl_fpi, dusl_1di, 5, 1, 1, -1, 1, 0.75, {7, 15, 2028}, {3, 10, 2020}, {7, 1, 2020}, {7, 10, 2020}, {7, 15, 2020}, {3, 10, 2028}, -1, -1, -1},
    {"fngb", fngb_py_ai, fngb_ai, fngb_fpi, fngb_1di, 5, 1, 1, 2, 1, 0.5, {9, 15, 2028}, {3, 10, 2020}, {9, 1, 2020}, {9, 10, 2020}, {9, 15, 2020}, {3, 10, 2028}, -1, -1, -1},
    {"grgb", grgb_py_ai, grgb_ai, grgb_fpi, grgb_1di, 5, 1, 1, -1, 1, 3.875, {3, 12, 2029}, {5, 10, 2020}, {2, 10, 2021}, {2, 20, 2021}, {3, 12, 2021}, {5, 10, 2028}, -1, -1, -1},
    {"irgb", irgb_py_ai, irgb_ai, irgb_fpi, irgb_1di, 12, 0, 2, -1, 5, 1.1, {5, 15, 2029}, {3, 10, 2020}, {4, 24, 2020}, {5, 1, 2020}, {5, 15, 2020}, {1, 10, 2029}, -1, -1, -1},
    {"nzgb", nzgb_py_ai, nzgb_ai, nzgb_fpi, nzgb_1di, 1, 1, 2, 2, 5, 3.0, {4, 20, 2029}, {3, 10, 2020}, {4, 11, 2020}, {4, 14, 2020}, {4, 20, 2020}, {1, 10, 2029}, -1, -1, -1},
    {"sdgb", sdgb_py_ai, sdgb_ai, sdgb_fpi, sdgb_1di, 5, 1, 1, 2, 1, 1.0, {11, 12, 2026}, {3, 10, 2020}, {11, 3, 2020}, {11, 6, 2020}, {11, 12, 2020}, {3, 10, 2026}, -1, -1, -1},
    {"spgb", spgb_py_ai, spgb_ai, spgb_fpi, spgb_1di, 12, 1, 1, -1, 5, 1.4, {4, 30, 2028}, {3, 10, 2020}, {4, 20, 2020}, {4, 25, 2020}, {4, 30, 2020}, {3, 10, 2028}, -1, -1, 1},
    {"swgb", swgb_py_ai, swgb_ai, swgb_fpi, swgb_1di, 10, 1, 1, -1, 1, 4.0, {4, 8, 2028}, {3, 10, 2020}, {3, 30, 2020}, {4, 3, 2020}, {4, 8, 2020}, {3, 10, 2028}, -1, -1, -1},
    {"gmbf", gmbf_py_ai, nullptr, nullptr, nullptr, 5, 1, 1, -1, 1, 6.5, {7, 4, 2027}, {3, 10, 2020}, {6, 25, 2020}, {6, 30, 2020}, {7, 4, 2020}, {3, 10, 2027}, -1, -1, 1},
    {"gmms", gmms_py_ai, nullptr, nullptr, nullptr, 5, 1, 1, -1, 1, 6.5, {7, 4, 2027}, {3, 10, 2020}, {6, 25, 2020}, {6, 30, 2020}, {7, 4, 2020}, {3, 10, 2027}, -1, -1, 1},
    {"itgb", itgb_py_ai, itgb_ai, itgb_fpi, itgb_1di, 12, 1, 2, -1, 5, 3.5, {3, 1, 2030}, {3, 10, 2020}, {8, 20, 2020}, {8, 25, 2020}, {9, 1, 2020}, {10, 10, 2029}, 0, -1, 2},
    {"frgb", frgb_py_ai, frgb_ai, frgb_fpi, frgb_1di, 1, 1, 1, 1, 5, 5.5, {4, 25, 2029}, {3, 10, 2020}, {4, 16, 2020}, {4, 20, 2020}, {4, 25, 2020}, {3, 10, 2029}, -1, -1},
};

struct Call {
    const Family& f;
    int32_t day_type = -1, eom = -1, cpn_freq = f.freq_given, l1p_rule = -1;

    // price (calc 1) or yield (calc 2) and the accrued interest, at settlement s; ex-dividend when x is given
    double py(int32_t calc, double value, D s, double* ai, D x = {0, 0, 0}, int32_t validate = 1) const {
        double result = 0.0;
        uint32_t err = 0;
        f.py_ai(day_type, eom, cpn_freq, calc, value, f.cpn_rate, s.m, s.d, s.y, x.m, x.d, x.y, x.m != 0 ? 1 : 0,
                f.mat.m, f.mat.d, f.mat.y, 0, 0, 0, 0, 0, 0, 100.0, l1p_rule, f.opt1, f.opt2, &result, ai, validate,
                &err);
        EXPECT_EQ(err, 0u);
        return result;
    }
    double ai(D s, D x = {0, 0, 0}) const {
        double w = 0.0, c = 0.0;
        int32_t n = 0;
        uint32_t err = 0;
        const double a = f.ai(s.m, s.d, s.y, x.m, x.d, x.y, x.m != 0 ? 1 : 0, f.mat.m, f.mat.d, f.mat.y, 0, 0, 0, 0, 0,
                              0, 0, 0, 0, f.cpn_rate, day_type, eom, cpn_freq, f.opt1, f.opt2, -1, &w, &c, &n, 1, &err);
        EXPECT_EQ(err, 0u);
        return a;
    }
    double fpi(D s, D x) const {
        int32_t m = 0, d = 0, y = 0;
        uint32_t err = 0;
        const double v = f.fpi(day_type, eom, cpn_freq, f.cpn_rate, s.m, s.d, s.y, x.m, x.d, x.y, 1, f.mat.m, f.mat.d,
                               f.mat.y, 0, 0, 0, 0, 0, 0, 1000.0, f.opt1, f.opt2, -1, &m, &d, &y, 1, &err);
        EXPECT_EQ(err, 0u);
        return v;
    }
    double one_day(D s) const {
        uint32_t err = 0;
        const double v = f.one_di(day_type, eom, cpn_freq, f.cpn_rate, s.m, s.d, s.y, 0, 0, 0, 0, f.mat.m, f.mat.d,
                                  f.mat.y, 0, 0, 0, 0, 0, 0, 1000.0, f.opt1, f.opt2, 1, &err);
        EXPECT_EQ(err, 0u);
        return v;
    }
};

TEST(MarketFamilies, ConventionsRoundTripsAndMarketRules) {
    for (const Family& f : families) {
        SCOPED_TRACE(f.name);
        const Call dflt{f};
        double ai = 0.0, ai2 = 0.0;
        // price -> yield -> price
        const double price = dflt.py(1, 5.0, f.settle, &ai);
        const double yld = dflt.py(2, price, f.settle, &ai2);
        EXPECT_NEAR(yld, 5.0, 1e-7);
        EXPECT_NEAR(dflt.py(1, yld, f.settle, &ai2), price, 1e-6);
        EXPECT_EQ(ai, ai2);
        // -1 is the market default; another value overrides it
        const Call spelled{f, f.day_type, f.eom, f.cpn_freq, f.l1p_rule};
        EXPECT_EQ(spelled.py(1, 5.0, f.settle, &ai2), price);
        if (f.ai != nullptr) {  // the members beside _py_ai and _risk, where the family has them
            EXPECT_EQ(dflt.ai(f.settle), spelled.ai(f.settle));
            const Call other{f, f.other_day_type, -1, f.freq_given};
            EXPECT_NE(other.ai(f.settle), dflt.ai(f.settle));
        }
        // the l1p_rule switch shows in the final period only
        const Call simple{f, -1, -1, f.freq_given, 2}, compound{f, -1, -1, f.freq_given, 1};
        EXPECT_NE(simple.py(1, 5.0, f.last_period, &ai2), compound.py(1, 5.0, f.last_period, &ai2));
        EXPECT_EQ(simple.py(1, 5.0, f.settle, &ai2), compound.py(1, 5.0, f.settle, &ai2));
        // inside the ex-dividend window
        double ai_ex = 0.0;
        dflt.py(1, 5.0, f.ex_settle, &ai_ex, f.exdiv);
        EXPECT_LT(ai_ex, 0.0);
        if (f.ai == nullptr) continue;
        EXPECT_EQ(dflt.fpi(f.ex_settle, f.exdiv), 0.0);
        EXPECT_GT(dflt.fpi(f.settle, f.exdiv), 0.0);
        // one day's interest across the coupon date: the coupon less the accrued interest of the day before
        const double across = dflt.one_day(f.coupon);
        EXPECT_GT(across, 0.0);
        EXPECT_NEAR(across, dflt.one_day(f.settle), 0.02 * across + 1e-9);
    }
}

}  // namespace

namespace {

// The yield solves at a yield of its own frequency (annual yields on semi-annual coupons, as itgb and spgb
// quote): every price of a sweep comes back to its yield within a few interpolation steps; a price no yield
// reaches ends with 9020 rather than looping.
TEST(MarketFamilies, YieldSolvesAtTheirOwnFrequency) {
    int most_steps = 0;
    for (int32_t n : {1, 5, 20, 60})
        for (double cpn : {0.0, 3.0, 15.0})
            for (double y : {0.5, 4.0, 12.0, 30.0}) {
                const orvel::bond::Terms t{cpn, 100.0, 0.0, 0.0, 2, n, 0.4, cpn / 2, 0.6 * cpn / 2};
                uint32_t err = 0;
                const double price = orvel::bond::price_ppp(t, 1, y, &err);
                orvel::SolveStats stats;
                const double back = orvel::bond::yield_ppp(t, 1, price, &err, &stats);
                SCOPED_TRACE(testing::Message() << "n " << n << " cpn " << cpn << " y " << y);
                ASSERT_EQ(err, 0u);
                EXPECT_NEAR(back, y, 1e-5);
                most_steps = std::max(most_steps, stats.steps);
            }
    RecordProperty("most_steps", most_steps);
    EXPECT_LE(most_steps, 10);  // recorded: 9 at most, far from the cap of 1,000
    const orvel::bond::Terms t{5.0, 100.0, 0.0, 0.0, 2, 5, 0.4, 2.5, 1.5};
    uint32_t err = 0;
    EXPECT_EQ(orvel::bond::yield_ppp(t, 1, 1e300, &err), 0.0);
    EXPECT_EQ(err, 9020u);
}

}  // namespace
