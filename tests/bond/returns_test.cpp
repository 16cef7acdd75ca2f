// Identities between the income, return and yield-basis members, each across one sweep of bonds: monthly
// to annual coupons, month-end and mid-month maturities, settlements in the first, a middle and the final
// period, on a coupon date and between, an odd first coupon, actual and 30/360 day counts.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "bond/street.hpp"
#include "orvel/bond.h"
#include "orvel/calendar.h"

namespace {

struct Bond {
    int32_t day_type, eom, freq;
    double cpn;
    int32_t x[12];  // settlement, maturity, dated, first coupon: m, d, y each
};
#define DATES(b) b.x[0], b.x[1], b.x[2], b.x[3], b.x[4], b.x[5], b.x[6], b.x[7], b.x[8], b.x[9], b.x[10], b.x[11]

std::vector<Bond> sweep() {
    const int32_t mats[][3] = {{8, 31, 2041}, {2, 28, 2035}, {11, 15, 2027}, {6, 30, 2030}, {3, 10, 2026}};
    const int32_t settles[][3] = {{1, 15, 2025}, {2, 28, 2025}, {5, 15, 2025}, {12, 31, 2025}, {3, 9, 2026}};
    std::vector<Bond> v;
    for (const auto& m : mats)
        for (const auto& s : settles)
            for (int32_t freq : {1, 2, 4, 12})
                for (int32_t day_type : {1, 2})
                    v.push_back({day_type, 1, freq, 4.5 + freq, {s[0], s[1], s[2], m[0], m[1], m[2]}});
    for (int32_t settle_m : {10, 12, 6})  // an odd (long) first coupon: dated 9/1/2024, first coupon 5/15/2025
        v.push_back({1, 0, 2, 7.25, {settle_m, 2, settle_m == 6 ? 2025 : 2024, 11, 15, 2027, 9, 1, 2024, 5, 15, 2025}});
    return v;
}

bool weekend(int32_t m, int32_t d, int32_t y) { return MDY_2_julian(m, d, y) % 7 >= 5; }

TEST(BondReturns, IdentitiesAcrossTheSweep) {
    int moved = 0, unmoved = 0;
    for (const Bond& b : sweep()) {
        if (MDY_2_julian(b.x[0], b.x[1], b.x[2]) >= MDY_2_julian(b.x[3], b.x[4], b.x[5])) continue;
        SCOPED_TRACE(::testing::Message()
                     << b.x[0] << "/" << b.x[1] << "/" << b.x[2] << " to " << b.x[3] << "/" << b.x[4] << "/" << b.x[5]
                     << " freq " << b.freq << " day_type " << b.day_type);
        uint32_t err = 0;
        const double y = 6.5, f = b.freq;
        double price = 0, ai = 0;
        bond_py_ai(1, b.day_type, b.eom, b.freq, 1, y, b.cpn, DATES(b), 100.0, 0, 0, &price, &ai, 1, &err);
        ASSERT_EQ(err, 0u);

        // Bought at the yield and reinvested at it to maturity, the holding returns the yield.
        EXPECT_NEAR(bond_tr_htm(price, y, b.cpn, 100.0, b.day_type, b.eom, b.freq, DATES(b), 1, &err), y, 1e-9);
        EXPECT_NEAR(bond_hrz_rtn(price, 3.0, y, b.cpn, 100.0, b.day_type, b.eom, b.freq, b.x[0], b.x[1], b.x[2],
                                 b.x[3], b.x[4], b.x[5], b.x[3], b.x[4], b.x[5], b.x[6], b.x[7], b.x[8], b.x[9],
                                 b.x[10], b.x[11], 1, &err), y, 1e-9);
        // ... and so it does to a horizon a year on, sold there at the yield, while compounding runs.
        const int32_t h[3] = {b.x[0], b.x[1] > 28 ? 28 : b.x[1], b.x[2] + 1};
        double nf = 0, ca = 0, hp = 0, hai = 0;
        int32_t n_at_settle = 0, n_at_hrz = 0;
        bond_ai(DATES(b), b.cpn, b.day_type, b.eom, b.freq, &nf, &ca, &n_at_settle, 0, &err);
        bond_ai(h[0], h[1], h[2], b.x[3], b.x[4], b.x[5], b.x[6], b.x[7], b.x[8], b.x[9], b.x[10], b.x[11], b.cpn,
                b.day_type, b.eom, b.freq, &nf, &ca, &n_at_hrz, 0, &err);
        if (n_at_settle >= 1 && n_at_hrz >= 1 &&
            MDY_2_julian(h[0], h[1], h[2]) < MDY_2_julian(b.x[3], b.x[4], b.x[5])) {
            const int32_t hd[12] = {b.x[0], b.x[1], b.x[2], h[0],   h[1],   h[2],
                                    b.x[3], b.x[4], b.x[5], b.x[6], b.x[7], b.x[8]};
            EXPECT_NEAR(
                bond_hrz_rtn(price, y, y, b.cpn, 100.0, b.day_type, b.eom, b.freq, hd[0], hd[1], hd[2], hd[3], hd[4],
                             hd[5], hd[6], hd[7], hd[8], hd[9], hd[10], hd[11], b.x[9], b.x[10], b.x[11], 1, &err),
                y, 1e-9);
            // Total income to that horizon is exactly its three parts.
            bond_py_ai(1, b.day_type, b.eom, b.freq, 1, 5.0, b.cpn, h[0], h[1], h[2], b.x[3], b.x[4], b.x[5], b.x[6],
                       b.x[7], b.x[8], b.x[9], b.x[10], b.x[11], 100.0, 0, 0, &hp, &hai, 1, &err);
            double ci = 0, ioi = 0, cap = 0;
            const double total = bond_tot_inc(price, hp, 4.0, b.cpn, b.day_type, b.eom, b.freq, hd[0], hd[1], hd[2],
                                              hd[3], hd[4], hd[5], hd[6], hd[7], hd[8], hd[9], hd[10], hd[11], b.x[9],
                                              b.x[10], b.x[11], &ci, &ioi, &cap, 1, &err);
            EXPECT_NEAR(total, ci + ioi + cap, 1e-12 * (1.0 + std::fabs(total)));
            EXPECT_GE(ioi, 0.0);  // coupons reinvested at 4% (none for a coupon paid on the horizon itself)
        }

        // The annual-equivalent yield is the engine's under 1 + y_a / 100 = (1 + y_f / (100 f))^f.
        double ya = 0, yf = 0, pa = 0;
        bond_py_crr(1, b.day_type, b.eom, b.freq, 2, price, b.cpn, DATES(b), 100.0, 0, 0, &ya, &ai, 1, &err);
        bond_py_ai(1, b.day_type, b.eom, b.freq, 2, price, b.cpn, DATES(b), 100.0, 0, 0, &yf, &ai, 1, &err);
        EXPECT_NEAR(1.0 + ya / 100.0, std::pow(1.0 + yf / (100.0 * f), f), 1e-12);
        EXPECT_NEAR(ya, bond_yld_equ(yf, b.freq, 1, 1, &err), 1e-9);  // the engine's own basis conversion
        bond_py_crr(1, b.day_type, b.eom, b.freq, 1, 100.0 * (std::pow(1.0 + y / (100.0 * f), f) - 1.0), b.cpn,
                    DATES(b), 100.0, 0, 0, &pa, &ai, 1, &err);
        EXPECT_NEAR(pa, price, 1e-9);

        // True yield is street yield unless a payment date falls on a weekend; then it is lower.
        int32_t cm[400], cd[400], cy[400], count = 0;
        double amts[400], times[400];
        bond_flows(b.day_type, b.eom, b.freq, b.cpn, DATES(b), 100.0, 400, cm, cd, cy, amts, times, &count, &ai, 1,
                   &err);
        bool any = false;
        for (int32_t k = 0; k < count; ++k) any = any || weekend(cm[k], cd[k], cy[k]);
        double street = 0, actual = 0;
        bond_st_ylds(price, b.cpn, 100.0, b.day_type, b.eom, b.freq, DATES(b), 0, nullptr, &street, &actual, 1, &err);
        EXPECT_NEAR(street, y, 2e-6);
        if (any) EXPECT_LT(actual, street - 1e-7);
        else EXPECT_NEAR(actual, street, 1e-7);
        ++(any ? moved : unmoved);
        ASSERT_EQ(err, 0u);
    }
    EXPECT_GT(moved, 20);
    EXPECT_GT(unmoved, 3);
}

// The true-yield solve on the shared solver: steps over long monthly and annual bonds at deep discounts and
// premiums, with a holiday table; and a price of 0.01 for a 40-year 1% bond ends with 9020.
TEST(BondReturns, TrueYieldSolveSteps) {
    const int32_t hols[] = {MDY_2_julian(12, 15, 2027), MDY_2_julian(1, 15, 2030), MDY_2_julian(6, 15, 2040)};
    int most_steps = 0;
    for (int32_t freq : {1, 2, 12})
        for (int32_t mat_y : {2027, 2035, 2065})
            for (double cpn : {0.0, 2.0, 9.0, 20.0})
                for (double price : {20.0, 60.0, 99.0, 140.0, 250.0}) {
                    const orvel::Date settle{3, 1, 2025}, mat{6, 15, mat_y};
                    orvel::bond::Reduced r;
                    const double ai = orvel::bond::reduce(settle, mat, {}, {}, cpn, 1, 0, freq, &r);
                    orvel::SolveStats stats;
                    uint32_t err = 0;
                    orvel::bond::true_yield(settle, mat, {}, {}, r, ai, price, cpn, 100.0, freq, 0, 3, hols, &err,
                                            &stats);
                    EXPECT_EQ(err, 0u) << freq << " " << mat_y << " " << cpn << " " << price;
                    most_steps = std::max(most_steps, stats.steps);
                }
    EXPECT_LE(most_steps, 8);  // recorded: at most 5 steps, far from the cap of 1,000
    const orvel::Date settle{3, 1, 2025}, mat{6, 15, 2065};
    orvel::bond::Reduced r;
    const double ai = orvel::bond::reduce(settle, mat, {}, {}, 1.0, 1, 0, 12, &r);
    uint32_t err = 0;
    orvel::SolveStats stats;
    orvel::bond::true_yield(settle, mat, {}, {}, r, ai, 0.01, 1.0, 100.0, 12, 0, 3, hols, &err, &stats);
    EXPECT_EQ(err, 9020u);  // a degenerate interpolation step, the fourth
    EXPECT_EQ(stats.steps, 4);
}

}  // namespace
