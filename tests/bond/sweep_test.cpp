// Thousands of bonds priced from dates, checked against independent statements of the same value: the
// yield round trip, the listed flows discounted one by one, and finite differences for duration and
// convexity.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "orvel/bond.h"
#include "orvel/calendar.h"
#include "orvel/schedule.h"

namespace {

// Settlement, maturity, dated and first coupon dates as m, d, y, in the order every bond export takes them.
struct Bond {
    int32_t day_type, eom, freq;
    double cpn;
    int32_t x[12];
};
#define DATES(b) b.x[0], b.x[1], b.x[2], b.x[3], b.x[4], b.x[5], b.x[6], b.x[7], b.x[8], b.x[9], b.x[10], b.x[11]

std::ostream& operator<<(std::ostream& os, const Bond& b) {
    for (int k = 0; k < 12; k += 3) os << b.x[k] << "/" << b.x[k + 1] << "/" << b.x[k + 2] << " ";
    return os << "day_type " << b.day_type << " eom " << b.eom << " freq " << b.freq << " cpn " << b.cpn;
}

struct Listed { int32_t m[500], d[500], y[500], count = 0; double amts[500], times[500], ai = 0.0; };
Listed flows_of(const Bond& b) {
    Listed l;
    uint32_t err = 0;
    bond_flows(b.day_type, b.eom, b.freq, b.cpn, DATES(b), 100.0, 500, l.m, l.d, l.y, l.amts, l.times, &l.count,
               &l.ai, 0, &err);
    EXPECT_EQ(err, 0u);
    return l;
}

// Value with accrued interest of the listed flows, each discounted on its own at v per period.
double value_of(const Listed& l, double yld, int freq) {
    double pv = 0.0;
    for (int32_t k = 0; k < l.count; ++k) pv += l.amts[k] * std::pow(1.0 + yld / (100.0 * freq), -l.times[k]);
    return pv;
}

double py(const Bond& b, int32_t calc_type, double given, double* ai, uint32_t* err) {
    double result = 0.0;
    bond_py_ai(1, b.day_type, b.eom, b.freq, calc_type, given, b.cpn, DATES(b), 100.0, 0.0, 0.0, &result, ai, 1, err);
    return result;
}

// The bonds: maturities from a month to 40 years, month ends and mid-months, settlement on coupon dates
// and between them, in the first, a middle and the final period, and odd short and long first coupons.
std::vector<Bond> sweep() {
    std::vector<Bond> bonds;
    const int32_t mats[][3] = {{8, 31, 2061}, {2, 28, 2055}, {11, 15, 2047}, {6, 30, 2036},
                               {3, 10, 2029}, {4, 30, 2042}, {1, 31, 2050}};
    const double cpns[] = {0.0, 2.375, 5.0, 8.5, 13.0, 20.0};
    int i = 0;
    for (const auto& mat : mats)
        for (int32_t freq : {1, 2, 4, 12})
            for (int32_t term : {1, 2, 5, 6, 7, 13, 24, 61, 119, 240, 360, 480})
                for (int32_t shift : {0, -1, 9, -17}) {
                    Bond b{1 + ++i % 13, (i / 13) % 2, freq, cpns[i % 6], {mat[0], mat[1], mat[2], mat[0], mat[1],
                                                                         mat[2]}};
                    incr_by_mths(-term, &b.x[0], &b.x[1], &b.x[2], b.eom);
                    incr_by_days(shift, &b.x[0], &b.x[1], &b.x[2]);
                    bonds.push_back(b);
                    // The same settlement under an odd first coupon: short (dated a few days before
                    // settlement, first coupon the next one) and long (first coupon one period further).
                    int32_t p[3], n[3];
                    uint32_t err = 0;
                    lst_nxt_ncpn(b.x[0], b.x[1], b.x[2], b.x[3], b.x[4], b.x[5], freq, b.eom, p, p + 1, p + 2, n,
                                 n + 1, n + 2, 0, &err);
                    if (n[0] == mat[0] && n[1] == mat[1] && n[2] == mat[2]) continue;  // no room for an odd first
                    Bond odd = b;
                    for (int k = 0; k < 3; ++k) odd.x[6 + k] = b.x[k], odd.x[9 + k] = n[k];
                    incr_by_days(-(3 + i % 20), &odd.x[6], &odd.x[7], &odd.x[8]);
                    if (i % 2 == 0) {
                        incr_by_pers(1, freq, &odd.x[9], &odd.x[10], &odd.x[11], b.eom);
                        incr_by_pers(-1, freq, &odd.x[6], &odd.x[7], &odd.x[8], 0);
                    }
                    bonds.push_back(odd);
                }
    return bonds;
}

TEST(BondSweep, YieldRoundTripAndFlowsAgreeWithThePrice) {
    const double ylds[] = {0.7, 3.2, 6.5, 11.9, 19.5};
    int priced = 0, final_period = 0, odd = 0, i = 0;
    for (const Bond& b : sweep()) {
        const double y = ylds[i++ % 5];
        SCOPED_TRACE(testing::Message() << b << " y " << y);
        double ai = 0.0;
        uint32_t err = 0;
        const double price = py(b, 1, y, &ai, &err);
        if (err != 0) continue;  // the date validator's verdict on a generated combination
        ++priced, odd += b.x[6] != 0;
        // The solve stops at the first yield that reprices within 5e-7 per 100; that yield must also bracket
        // the true root: a hundredth of a basis point either side moves the price across the given one.
        const double yield = py(b, 2, price, &ai, &err);
        ASSERT_EQ(err, 0u);
        EXPECT_NEAR(py(b, 1, yield, &ai, &err), price, 5e-7);
        const double above = py(b, 1, yield + 1e-4, &ai, &err), below = py(b, 1, yield - 1e-4, &ai, &err);
        EXPECT_TRUE(above < price && price < below) << below << " " << price << " " << above;
        const Listed l = flows_of(b);
        EXPECT_EQ(l.ai, ai);
        double nxt = 0, cpn_amt = 0;
        int32_t n_after = 0;
        bond_ai(DATES(b), b.cpn, b.day_type, b.eom, b.freq, &nxt, &cpn_amt, &n_after, 0, &err);
        ASSERT_EQ(l.count, n_after + 1);
        if (n_after >= 1) {
            EXPECT_NEAR(value_of(l, y, b.freq) - ai, price, 1e-9 * std::max(1.0, price));
        } else if (cpn_amt == b.cpn / b.freq) {  // final period: one flow with simple interest over the fraction left
            ++final_period;
            EXPECT_NEAR(l.amts[0] / (1.0 + l.times[0] * y / (100.0 * b.freq)) - ai, price, 1e-9 * price);
        }
    }
    EXPECT_GT(priced, 2000);
    EXPECT_GT(odd, 500);
    EXPECT_GT(final_period, 50);
}

TEST(BondSweep, DurationAndConvexityMatchFiniteDifferences) {
    int checked = 0, i = 0;
    for (const Bond& b : sweep()) {
        if (++i % 3 != 0) continue;
        const double y = 2.0 + (i % 7) * 2.5;
        SCOPED_TRACE(testing::Message() << b << " y " << y);
        double mac = 0, mod = 0;
        uint32_t err = 0;
        bond_dur(0.0, y, b.cpn, 100.0, b.day_type, b.eom, b.freq, DATES(b), &mac, &mod, 1, &err);
        if (err != 0) continue;
        const double cvx = bond_cvx(0.0, y, b.cpn, 100.0, b.day_type, b.eom, b.freq, DATES(b), 1, &err);
        ASSERT_EQ(err, 0u);
        const Listed l = flows_of(b);
        const double h = 1e-3;  // percent
        const double mid = value_of(l, y, b.freq), up = value_of(l, y + h, b.freq), down = value_of(l, y - h, b.freq);
        EXPECT_NEAR(mod, -(up - down) / (2 * h / 100) / mid, 1e-6 * std::max(1.0, mod));
        EXPECT_NEAR(cvx, (up + down - 2 * mid) / (mid * (h / 100) * (h / 100)), 2e-4 * std::max(1.0, cvx));
        // Macaulay duration is the value-weighted time of the flows, in years.
        double weighted = 0.0;
        for (int32_t k = 0; k < l.count; ++k)
            weighted += l.times[k] / b.freq * l.amts[k] * std::pow(1 + y / (100.0 * b.freq), -l.times[k]);
        EXPECT_NEAR(mac, weighted / mid, 1e-9 * std::max(1.0, mac));
        // The estimate from three prices agrees to the order of the shift squared (a shift of 0 takes 0.01).
        for (double shift : {0.01, 0.0})
            EXPECT_NEAR(bond_est_cvx(y, b.cpn, 100.0, b.day_type, b.eom, b.freq, DATES(b), shift, 1, &err), cvx,
                        1e-4 * std::max(1.0, cvx));
        // The risk set in one call (unrounded) is these measures at the yield of the clean price it is given.
        double ai = 0.0, r[8], mac_at = 0, mod_at = 0;
        const double clean = py(b, 1, y, &ai, &err);
        bond_risk(7, b.day_type, b.eom, b.freq, 2, clean, b.cpn, DATES(b), 100.0, r, r + 1, r + 2, r + 3, r + 4, r + 5,
                  r + 6, r + 7, 1, &err);
        ASSERT_EQ(err, 0u);
        const double solved = py(b, 2, clean, &ai, &err);
        bond_dur(0.0, solved, b.cpn, 100.0, b.day_type, b.eom, b.freq, DATES(b), &mac_at, &mod_at, 1, &err);
        const double bp = (py(b, 1, solved - 0.01, &ai, &err) - py(b, 1, solved + 0.01, &ai, &err)) / 2;
        const double want[8] = {clean, solved, ai, mac_at, mod_at, cvx, bond_cur_yld(b.cpn, clean, 0.0), bp};
        const double tolerance[8] = {0, 0, 0, 1e-12, 1e-12, 1e-5, 0, 1e-12};
        for (int k = 0; k < 8; ++k) EXPECT_NEAR(r[k], want[k], tolerance[k] * std::max(1.0, want[k])) << "risk " << k;
        ++checked;
    }
    EXPECT_GT(checked, 500);
}

}  // namespace
