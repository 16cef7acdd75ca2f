// Cash-flow sets against independent values: the annuity rate, the bond engine's yield, the identities
// between the conventions and between the measures, the array limits and the solver's step counts.
// Hand-worked values and every error number are rows of tests/calls/cashflow.calls.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "cashflow/cfs.hpp"
#include "orvel/bond.h"
#include "orvel/cashflow.h"

namespace {

using Vec = std::vector<double>;

double annuity(double r, int n) { return (1.0 - std::pow(1.0 + r, -n)) / r; }

// A level series: pv now, then n payments of pmt. The rate of pv = pmt a(n, r), solved by cf_irr, is r,
// and tvm_iy gives it too.
TEST(CashFlowIrr, LevelSeriesGivesTheAnnuityRate) {
    const double cases[][2] = {{12, 1.0}, {12, 2.9228540769}, {60, 0.5}, {360, 0.5}, {360, 1.25}, {24, 15.0},
                               {1, 4.0},  {480, 0.05},        {36, 30.0}};
    for (const auto& c : cases) {
        const int n = static_cast<int>(c[0]);
        const double amt[] = {100.0};
        const int32_t cnt[] = {n};
        uint32_t err = 0;
        const double pv = -100.0 * annuity(c[1] / 100, n);
        EXPECT_NEAR(cf_irr(pv, amt, cnt, 1, 1, &err), c[1], 1e-6) << n << " " << c[1];
        // the time-value-of-money key of the same annuity, 12 periods a year
        EXPECT_NEAR(tvm_iy(0.0, 100.0, pv, n, 12, 12, 0, 1, &err) / 12, cf_irr(pv, amt, cnt, 1, 1, &err), 1e-6);
        EXPECT_EQ(err, 0u);
    }
}

// cash_flow's npv of groups equals cfs_p of the same flows laid out one a period (freq 1, yield = rate).
TEST(CashFlowGroups, NpvEqualsTheFlowsPricedOneByOne) {
    const Vec amts{50.0, -20.0, 300.0, 7.5};
    const std::vector<int32_t> counts{3, 1, 0, 17};
    for (double rate : {-20.0, 0.7, 4.0, 11.0}) {
        Vec flows, times;
        for (std::size_t j = 0; j < amts.size(); ++j)
            for (int i = 0; i < counts[j]; ++i) flows.push_back(amts[j]), times.push_back(times.size() + 1.0);
        uint32_t err = 0;
        double npv = 0, nfv = 0, nus = 0, total = 0;
        cash_flow(-250.0, amts.data(), counts.data(), 4, rate, &npv, &nfv, &nus, &total, 1, &err);
        const double want = -250.0 + cfs_p(rate, 1, flows.data(), times.data(), 21, 1, &err);
        EXPECT_NEAR(npv, want, 1e-12 * 500) << rate;
        EXPECT_NEAR(nus * annuity(rate / 100, 21), npv, 1e-12 * 500) << rate;
        EXPECT_EQ(total, -250.0 + 150.0 - 20.0 + 127.5);
        EXPECT_EQ(err, 0u);
    }
}

// cfs_y on bond_flows' flows at the bond's full price gives bond_py_ai's yield, to the two solves' tolerance.
TEST(CashFlowYield, RegularBondFlowsGiveTheBondYield) {
    struct Bond { int f, day_type, sm, sd, sy, mm, md, my; double cpn, price; };
    const Bond bonds[] = {{2, 1, 3, 9, 2021, 11, 15, 2030, 4.25, 97.5}, {2, 2, 4, 15, 2024, 7, 15, 2054, 7.0, 112.0},
                          {1, 1, 6, 30, 2020, 6, 30, 2031, 0.5, 88.0},  {4, 5, 1, 31, 2019, 2, 28, 2029, 12.0, 131.0},
                          {12, 2, 5, 5, 2022, 9, 1, 2032, 3.0, 100.0},  {2, 1, 8, 1, 2023, 2, 15, 2025, 9.0, 95.0}};
    for (const Bond& b : bonds) {
        SCOPED_TRACE(testing::Message() << b.f << " " << b.cpn << " " << b.price);
        int32_t m[200], d[200], y[200], n = 0;
        double amts[200], times[200], ai = 0, yld = 0, ai2 = 0;
        uint32_t err = 0;
        bond_flows(b.day_type, 0, b.f, b.cpn, b.sm, b.sd, b.sy, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0, 100.0, 200, m, d, y,
                   amts, times, &n, &ai, 1, &err);
        bond_py_ai(1, b.day_type, 0, b.f, 2, b.price, b.cpn, b.sm, b.sd, b.sy, b.mm, b.md, b.my, 0, 0, 0, 0, 0, 0,
                   100.0, 0, 0, &yld, &ai2, 1, &err);
        const double cy = cfs_y(b.price + ai, b.f, 8, amts, times, n, 1, &err);
        ASSERT_EQ(err, 0u);
        // Each solve reprices within its tolerance (5e-7 and 1e-9): the yields agree to that over the slope.
        const double slope = std::fabs(cfs_p(cy + 0.005, b.f, amts, times, n, 1, &err) -
                                       cfs_p(cy - 0.005, b.f, amts, times, n, 1, &err)) / 0.01;
        EXPECT_NEAR(cy, yld, (5e-7 + 1e-9) / slope * 1.01);
        // The dated form times the bond's own flow dates as bond_flows does.
        double t2[200];
        EXPECT_NEAR(cfs_py(cy, 1, b.day_type, 0, b.f, 8, b.sm, b.sd, b.sy, amts, m, d, y, n, t2, 1, &err),
                    b.price + ai, 1e-9);
        for (int k = 0; k < n; ++k) EXPECT_NEAR(t2[k], times[k], 1e-12) << k;
    }
}

// With the first flow exactly one period (one year) away, simple interest to it is compound interest.
TEST(CashFlowConventions, AgreeWhereTheyMustCoincide) {
    const Vec a{5.0, 5.0, 105.0}, t{1.0, 2.0, 3.5}, t0{0.0, 1.0, 2.5};
    for (double yld : {-4.0, 3.0, 9.5}) {
        uint32_t err = 0;
        EXPECT_NEAR(cfs_ustp_p(yld, 2, a.data(), t.data(), 3, 0, 0, 0, 1, &err),
                    cfs_p(yld, 2, a.data(), t.data(), 3, 1, &err), 1e-12);
        EXPECT_NEAR(cfs_ustp_p(yld, 2, a.data(), t0.data(), 3, 0, 0, 0, 1, &err),
                    cfs_p(yld, 2, a.data(), t0.data(), 3, 1, &err), 1e-12);
        EXPECT_NEAR(cfs_mm_p(yld, a.data(), t.data(), 1, 1, &err), cfs_p(yld, 1, a.data(), t.data(), 1, 1, &err),
                    1e-14);
        EXPECT_EQ(err, 0u);
    }
}

// Returns: reinvested at the set's own yield and sold at it, every horizon earns that yield; the sources
// of return add up to the horizon value.
TEST(CashFlowReturns, AtTheSetsOwnYieldEveryHorizonEarnsIt) {
    const Vec a{3.0, 3.0, 3.0, 3.0, 103.0}, t{0.4, 1.4, 2.4, 3.4, 4.4};
    uint32_t err = 0;
    const double y = 7.3, price = cfs_p(y, 2, a.data(), t.data(), 5, 1, &err);
    EXPECT_NEAR(cfs_tr(price, y, 2, a.data(), t.data(), 5, 1, &err), y, 1e-10);
    for (double h : {0.2, 1.0, 2.4, 4.4, 6.0}) {
        EXPECT_NEAR(cfs_tr_hrz(price, y, y, h, 2, a.data(), t.data(), 5, 1, &err), y, 1e-10) << h;
        double flows = 0, ioi = 0, sale = 0;
        const double r = cfs_sr_hrz(price, 2.0, 11.0, h, 2, a.data(), t.data(), 5, &flows, &ioi, &sale, 1, &err);
        const double v = std::pow(1 + r / 200, h) * price;
        EXPECT_NEAR(flows + ioi + sale, v, 1e-10) << h;
        EXPECT_EQ(r, cfs_tr_hrz(price, 2.0, 11.0, h, 2, a.data(), t.data(), 5, 1, &err));
    }
    EXPECT_EQ(err, 0u);
}

// A par bond's after-tax yield is its after-tax coupon; tax-equivalent yield grosses the yield back up.
TEST(CashFlowTaxes, ParBondAfterTaxYieldIsTheAfterTaxCoupon) {
    const Vec a{3.0, 3.0, 3.0, 103.0}, ints{3.0, 3.0, 3.0, 3.0}, t{1.0, 2.0, 3.0, 4.0};
    for (double tax : {0.0, 0.25, 1.0, 35.0, 60.0}) {
        const double frac = tax > 1 ? tax / 100 : tax;
        uint32_t err = 0;
        EXPECT_NEAR(cfs_aty(100.0, tax, 2, 9, a.data(), ints.data(), t.data(), 4, 1, &err), 6.0 * (1 - frac), 1e-8);
        if (frac < 1) {
            EXPECT_NEAR(cfs_tey(100.0, tax, 2, 9, a.data(), t.data(), 4, 1, &err), 6.0 / (1 - frac), 1e-7);
        }
        EXPECT_EQ(err, 0u) << tax;
    }
}

// The dollar-risk trio: the shift for a price change inverts the price change for a shift; a basis point
// is worth the modified duration times the price, to second order.
TEST(CashFlowDollarRisk, TrioIsCoherentAndMatchesDuration) {
    const Vec a{4.0, 4.0, 4.0, 104.0};
    const std::vector<int32_t> m{7, 1, 7, 1}, d{15, 15, 15, 15}, y{2024, 2025, 2025, 2026};
    double t[4], mac = 0, mod = 0;
    uint32_t err = 0;
    cfs_dur(0.0, 6.5, 1, 0, 2, 3, 1, 2024, a.data(), m.data(), d.data(), y.data(), 4, t, &mac, &mod, 1, &err);
    const double p = cfs_p(6.5, 2, a.data(), t, 4, 1, &err);
    EXPECT_NEAR(cfs_drs_p(6.5, 2, a.data(), t, 4, 1, &err), mod * p * 1e-4, 1e-8);
    for (double shift : {-250.0, -1.0, 0.5, 40.0, 300.0}) {
        const double dp = cfs_drs_ps(6.5, shift, 2, a.data(), t, 4, 1, &err);
        EXPECT_NEAR(cfs_drs_s(6.5, dp, 2, 10, a.data(), t, 4, 1, &err), shift, 1e-6) << shift;
    }
    // Discount margin: the margin of the price at a margin is that margin, under both period bases.
    for (int mode : {1, 2})
        for (double dm : {-150.0, 0.0, 35.0, 420.0}) {
            const double price = cfs_dm_p(dm, 5.2, 4, mode, a.data(), t, 4, 1, &err);
            EXPECT_NEAR(cfs_pdm(price, 5.2, 4, mode, 10, a.data(), t, 4, 1, &err), dm, 1e-6) << mode << " " << dm;
        }
    EXPECT_EQ(err, 0u);
}

// Counts beyond the limits are refused before anything is read or written; times_out gets count elements.
TEST(CashFlowArrays, LimitsAndWritesStayWithinCount) {
    Vec big(orvel::cfs::max_flows + 1, 1.0);
    std::vector<int32_t> ones(big.size(), 1), m(1001, 7), d(1001, 1), y(1001, 2030);
    uint32_t err = 0;
    EXPECT_EQ(cfs_p(5.0, 2, big.data(), big.data(), orvel::cfs::max_flows + 1, 0, &err), 0.0);
    EXPECT_EQ(err, static_cast<uint32_t>(ORVEL_E_CFS_COUNT));
    err = 0;
    EXPECT_EQ(cf_irr(-1.0, big.data(), ones.data(), orvel::cfs::max_flows + 1, 0, &err), 0.0);
    EXPECT_EQ(err, static_cast<uint32_t>(ORVEL_E_CFS_COUNT));
    Vec times(1002, -7.0);
    err = 0;
    cfs_py(5.0, 1, 1, 0, 2, 6, 1, 1, 2024, big.data(), m.data(), d.data(), y.data(), 1001, times.data(), 0, &err);
    EXPECT_EQ(err, static_cast<uint32_t>(ORVEL_E_LIST_LENGTH));
    EXPECT_EQ(times[0], -7.0);
    err = 0;
    cfs_py(5.0, 1, 1, 0, 2, 6, 1, 1, 2024, big.data(), m.data(), d.data(), y.data(), 1000, times.data(), 1, &err);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(times[999], 13.0);
    EXPECT_EQ(times[1000], -7.0);
    EXPECT_EQ(cfs_arrayloc(1, 1, 1000, m.data(), d.data(), y.data(), nullptr, 0, 0, 0, 0, 0, 1, &err), 0);
}

// A guess of exactly 1 starts at 1.1: the second start, 1.1 - 1, is returned as it is.
TEST(CashFlowYield, GuessOfOneStartsAtOnePointOne) {
    const double a[] = {100.1}, t[] = {1.0};
    uint32_t err = 0;
    EXPECT_EQ(cfs_yg(100.0, 1, 6, a, t, 1, 1.0, 1, &err), 1.1 - 1.0);
    EXPECT_EQ(err, 0u);
}

// The hardest convergent solves stay far below the 1,000-step cap: long level series at high and low
// rates, and 120 dated flows at extreme yields.
TEST(CashFlowSolver, StepCountsOfTheHardestCases) {
    int most = 0;
    for (double r : {0.01, 0.5, 5.0, 40.0, 150.0}) {
        const double amt[] = {1.0, 2.0};
        const int32_t cnt[] = {180, 180};
        const double pv = annuity(r / 100, 180) * (1 + 2 * std::pow(1 + r / 100, -180));
        orvel::SolveStats s;
        uint32_t err = 0;
        EXPECT_NEAR(orvel::cfs::irr(-pv, amt, cnt, 2, &err, &s), r, 1e-5 * (1 + r));
        EXPECT_EQ(err, 0u) << r;
        most = std::max(most, s.steps);
    }
    Vec a(120, 2.5), t(120);
    a[119] = 102.5;
    for (int k = 0; k < 120; ++k) t[k] = 0.37 + k;
    for (double y : {-1.5, 0.01, 25.0, 90.0}) {
        uint32_t err = 0;
        const double p = cfs_p(y, 2, a.data(), t.data(), 120, 1, &err);
        orvel::SolveStats s;
        orvel::cfs::periodic_yield(p, 2, 8, a.data(), t.data(), 120, orvel::cfs::standard_start, &err, &s);
        EXPECT_EQ(err, 0u) << y;
        most = std::max(most, s.steps);
    }
    EXPECT_LE(most, 40);
    RecordProperty("most_steps", most);
}

}  // namespace
