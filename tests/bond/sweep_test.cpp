// Thousands of bonds priced from dates, checked against independent statements of the same value: the
// yield round trip, the listed flows discounted one by one, and finite differences for duration and
// convexity.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <vector>

#include "orvel/bond.h"
#include "orvel/calendar.h"
#include "orvel/schedule.h"

namespace {

struct Bond {
    int32_t day_type, eom, freq;
    double cpn;
    int32_t settle[3], mat[3], dated[3], first[3];
};
// The settlement, maturity, dated and first coupon dates, in the order every bond export takes them.
#define DATES(b)                                                                                                  \
    (b).settle[0], (b).settle[1], (b).settle[2], (b).mat[0], (b).mat[1], (b).mat[2], (b).dated[0], (b).dated[1], \
        (b).dated[2], (b).first[0], (b).first[1], (b).first[2]

std::ostream& operator<<(std::ostream& os, const Bond& b) {
    for (const int32_t* x : {b.settle, b.mat, b.dated, b.first}) os << x[0] << "/" << x[1] << "/" << x[2] << " ";
    return os << "day_type " << b.day_type << " eom " << b.eom << " freq " << b.freq << " cpn " << b.cpn;
}

struct Listed {
    std::vector<int32_t> m, d, y;
    std::vector<double> amts, times;
    double ai = 0.0;
    int32_t count = 0;
};

Listed flows_of(const Bond& b) {
    Listed l;
    l.m.resize(500); l.d.resize(500); l.y.resize(500); l.amts.resize(500); l.times.resize(500);
    uint32_t err = 0;
    bond_flows(b.day_type, b.eom, b.freq, b.cpn, DATES(b), 100.0, 500, l.m.data(), l.d.data(), l.y.data(),
               l.amts.data(), l.times.data(), &l.count, &l.ai, 0, &err);
    EXPECT_EQ(err, 0u);
    return l;
}

// Value with accrued interest of the listed flows, each discounted on its own at v per period.
double value_of(const Listed& l, double yld, int freq) {
    const double v = 1.0 + yld / (100.0 * freq);
    double pv = 0.0;
    for (int32_t k = 0; k < l.count; ++k) pv += l.amts[k] * std::pow(v, -l.times[k]);
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
    const int32_t terms_m[] = {1, 2, 5, 6, 7, 13, 24, 61, 119, 240, 360, 480};
    const int32_t shifts[] = {0, -1, 9, -17};
    const double cpns[] = {0.0, 2.375, 5.0, 8.5, 13.0, 20.0};
    int i = 0;
    for (const auto& mat : mats)
        for (int32_t freq : {1, 2, 4, 12})
            for (int32_t term : terms_m)
                for (int32_t shift : shifts) {
                    ++i;
                    Bond b{};
                    b.day_type = 1 + i % 13;
                    b.eom = (i / 13) % 2;
                    b.freq = freq;
                    b.cpn = cpns[i % 6];
                    for (int k = 0; k < 3; ++k) b.mat[k] = mat[k];
                    int32_t sm = mat[0], sd = mat[1], sy = mat[2];
                    incr_by_mths(-term, &sm, &sd, &sy, b.eom);
                    incr_by_days(shift, &sm, &sd, &sy);
                    b.settle[0] = sm; b.settle[1] = sd; b.settle[2] = sy;
                    bonds.push_back(b);
                    // The same settlement under an odd first coupon: short (dated a few days before
                    // settlement, first coupon the next one) and long (first coupon one period further).
                    int32_t pm, pd, py_, nm, nd, ny;
                    uint32_t err = 0;
                    lst_nxt_ncpn(sm, sd, sy, mat[0], mat[1], mat[2], freq, b.eom, &pm, &pd, &py_, &nm, &nd, &ny, 0,
                                 &err);
                    if (ny == mat[2] && nm == mat[0] && nd == mat[1]) continue;  // no room for an odd first
                    Bond odd = b;
                    int32_t dm = sm, dd = sd, dy = sy;
                    incr_by_days(-(3 + i % 20), &dm, &dd, &dy);
                    odd.dated[0] = dm; odd.dated[1] = dd; odd.dated[2] = dy;
                    odd.first[0] = nm; odd.first[1] = nd; odd.first[2] = ny;
                    if (i % 2 == 0) {
                        incr_by_pers(1, freq, &odd.first[0], &odd.first[1], &odd.first[2], b.eom);
                        incr_by_pers(-1, freq, &odd.dated[0], &odd.dated[1], &odd.dated[2], 0);
                    }
                    bonds.push_back(odd);
                }
    return bonds;
}

TEST(BondSweep, YieldRoundTripAndFlowsAgreeWithThePrice) {
    const double ylds[] = {0.7, 3.2, 6.5, 11.9, 19.5};
    int priced = 0, final_period = 0, odd = 0, rejected = 0;
    double worst_round_trip = 0.0;
    int i = 0;
    for (const Bond& b : sweep()) {
        const double y = ylds[i++ % 5];
        SCOPED_TRACE(testing::Message() << b << " y " << y);
        double ai = 0.0;
        uint32_t err = 0;
        const double price = py(b, 1, y, &ai, &err);
        if (err != 0) {  // the date validator's verdict on a generated combination
            ++rejected;
            continue;
        }
        ++priced;
        odd += b.dated[0] != 0;
        // price -> yield -> price
        const double yield = py(b, 2, price, &ai, &err);
        ASSERT_EQ(err, 0u);
        const double again = py(b, 1, yield, &ai, &err);
        worst_round_trip = std::max(worst_round_trip, std::fabs(again - price));
        // The solve stops at the first yield that reprices within 5e-7 per 100; that yield must also bracket
        // the true root: a hundredth of a basis point either side moves the price across the given one.
        EXPECT_NEAR(again, price, 5e-7);
        const double above = py(b, 1, yield + 1e-4, &ai, &err);
        const double below = py(b, 1, yield - 1e-4, &ai, &err);
        EXPECT_TRUE(above < price && price < below) << below << " " << price << " " << above;
        // the listed flows, discounted one at a time
        const Listed l = flows_of(b);
        EXPECT_EQ(l.ai, ai);
        double nxt = 0, cpn_amt = 0;
        int32_t n_after = 0;
        bond_ai(DATES(b), b.cpn, b.day_type, b.eom, b.freq, &nxt, &cpn_amt, &n_after, 0, &err);
        ASSERT_EQ(l.count, n_after + 1);
        if (n_after >= 1) {
            EXPECT_NEAR(value_of(l, y, b.freq) - ai, price, 1e-9 * std::max(1.0, price));
        } else if (cpn_amt == b.cpn / b.freq) {
            // Final period: one flow with simple interest over the fraction left.
            ++final_period;
            EXPECT_NEAR(l.amts[0] / (1.0 + l.times[0] * y / (100.0 * b.freq)) - ai, price, 1e-9 * price);
        }
    }
    std::printf("%d bonds priced (%d with an odd first coupon, %d in the final period), %d combinations refused "
                "by validation; worst price round trip %.3g\n",
                priced, odd, final_period, rejected, worst_round_trip);
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
        for (double shift : {0.01, 0.0}) {
            const double est = bond_est_cvx(y, b.cpn, 100.0, b.day_type, b.eom, b.freq, DATES(b), shift, 1, &err);
            EXPECT_NEAR(est, cvx, 1e-4 * std::max(1.0, cvx));
        }
        // The risk set in one call (unrounded) is these measures at the yield of the clean price it is given.
        double ai = 0.0;
        const double clean = py(b, 1, y, &ai, &err);
        double r[8];
        bond_risk(7, b.day_type, b.eom, b.freq, 2, clean, b.cpn, DATES(b), 100.0, r, r + 1, r + 2, r + 3, r + 4, r + 5,
                  r + 6, r + 7, 1, &err);
        ASSERT_EQ(err, 0u);
        const double solved = py(b, 2, clean, &ai, &err);
        double mac_at = 0, mod_at = 0;
        bond_dur(0.0, solved, b.cpn, 100.0, b.day_type, b.eom, b.freq, DATES(b), &mac_at, &mod_at, 1, &err);
        EXPECT_EQ(r[0], clean);
        EXPECT_EQ(r[1], solved);
        EXPECT_EQ(r[2], ai);
        EXPECT_NEAR(r[3], mac_at, 1e-12 * std::max(1.0, mac_at));
        EXPECT_NEAR(r[4], mod_at, 1e-12 * std::max(1.0, mod_at));
        EXPECT_NEAR(r[5], cvx, 1e-5 * std::max(1.0, cvx));
        EXPECT_EQ(r[6], bond_cur_yld(b.cpn, clean, 0.0));
        const double bp = (py(b, 1, solved - 0.01, &ai, &err) - py(b, 1, solved + 0.01, &ai, &err)) / 2;
        EXPECT_NEAR(r[7], bp, 1e-12 * std::max(1.0, bp));
        ++checked;
    }
    EXPECT_GT(checked, 500);
}

}  // namespace
