// Price and yield kernels on a reduced schedule, checked against explicit discounting of the flows, the
// meaning of the taxes, round trips and hand-worked values.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "orvel/bond.h"

namespace {

// Present value of the flows the compound kernels describe, one flow at a time: the next coupon at w
// periods, the regular coupon at w + 1 .. w + n, the redemption at w + n.
double discounted_flows(double yld, double cpn_rate, double redemptn, int f, int n, double w, double cpn_amt) {
    const double v = 1.0 + yld / (100.0 * f);
    double pv = cpn_amt * std::pow(v, -w);
    for (int i = 1; i <= n; ++i) pv += cpn_rate / f * std::pow(v, -(w + i));
    return pv + redemptn * std::pow(v, -(w + n));
}

TEST(PriceG1p, HandWorkedSemiAnnualBond) {
    // 10% semi-annual, 8% yield, half a period to the next coupon and three more after it:
    // v = 1.04; 5/1.04^0.5 + 5/1.04^1.5 + 5/1.04^2.5 + 105/1.04^3.5 = 105.682171588 dirty,
    // less 2.5 accrued = 103.182171588 clean.
    uint32_t err = 0;
    EXPECT_NEAR(bond_ptm_g1p(8.0, 10.0, 100.0, 0.0, 0.0, 2, 3, 0.5, 5.0, 2.5, 1, &err), 103.18217158801228, 1e-11);
    EXPECT_EQ(err, 0u);
}

TEST(PriceG1p, EqualsTheFlowsDiscountedOneByOne) {
    const int freqs[] = {1, 2, 4, 12};
    const double ylds[] = {-3.0, 0.01, 2.5, 7.25, 19.0, 60.0};
    const double fracs[] = {0.0, 0.013, 0.5, 1.0};
    for (int f : freqs)
        for (int n : {1, 2, 7, 59, 479})
            for (double y : ylds)
                for (double w : fracs) {
                    SCOPED_TRACE(testing::Message() << "f " << f << " n " << n << " y " << y << " w " << w);
                    const double cpn_amt = 6.5 / f * 1.3;  // an odd next coupon
                    uint32_t err = 0;
                    const double p = bond_ptm_g1p(y, 6.5, 101.0, 0.0, 0.0, f, n, w, cpn_amt, 1.25, 0, &err);
                    const double expected = discounted_flows(y, 6.5, 101.0, f, n, w, cpn_amt) - 1.25;
                    EXPECT_NEAR(p, expected, 1e-10 * std::fabs(expected));
                    EXPECT_EQ(err, 0u);
                }
}

TEST(PriceG1p, ZeroYieldSumsTheFlowsAndJoinsTheCurve) {
    // 3 later coupons of 4 + the next 4 + redemption 100 - accrued 1 = 115.
    uint32_t err = 0;
    EXPECT_DOUBLE_EQ(bond_ptm_g1p(0.0, 8.0, 100.0, 0.0, 0.0, 2, 3, 0.4, 4.0, 1.0, 0, &err), 115.0);
    // Without a fraction to the next coupon the next coupon is not counted.
    EXPECT_DOUBLE_EQ(bond_ptm_g1p(0.0, 8.0, 100.0, 0.0, 0.0, 2, 3, 0.0, 4.0, 1.0, 0, &err), 111.0);
    // Just outside the zero branch the compound formula gives the same price.
    EXPECT_NEAR(bond_ptm_g1p(1e-6, 8.0, 100.0, 0.0, 0.0, 2, 3, 0.4, 4.0, 1.0, 0, &err), 115.0, 1e-5);
    EXPECT_EQ(err, 0u);
}

TEST(PriceG1p, RedemptionTaxFallsOnTheGain) {
    // The taxed price P solves P = PV(after-tax flows) - (1 - T1) ai - T2 (R - P) v^-(n+w).
    const double cases[][2] = {{0.30, 0.0}, {0.0, 0.25}, {0.30, 0.25}, {0.45, 0.10}};
    for (const auto& t : cases) {
        SCOPED_TRACE(testing::Message() << "tax1 " << t[0] << " tax2 " << t[1]);
        const double y = 9.0, w = 0.37, ai = 2.1, r = 100.0;
        const int f = 2, n = 13;
        uint32_t err = 0;
        const double p = bond_ptm_g1p(y, 5.0, r, t[0], t[1], f, n, w, 2.5, ai, 1, &err);
        const double after_tax = discounted_flows(y, 5.0 * (1 - t[0]), r, f, n, w, 2.5 * (1 - t[0]));
        const double d = std::pow(1.0 + y / 200.0, -(n + w));
        EXPECT_NEAR(p, after_tax - (1 - t[0]) * ai - t[1] * (r - p) * d, 1e-10);
        EXPECT_EQ(err, 0u);
    }
}

TEST(PriceG1p, TaxAsPercentOrFractionIsTheSame) {
    uint32_t err = 0;
    const double percent = bond_ptm_g1p(7.0, 9.0, 100.0, 30.0, 15.0, 2, 10, 0.6, 4.5, 1.8, 1, &err);
    const double fraction = bond_ptm_g1p(7.0, 9.0, 100.0, 0.30, 0.15, 2, 10, 0.6, 4.5, 1.8, 1, &err);
    EXPECT_DOUBLE_EQ(percent, fraction);
    EXPECT_EQ(bond_ytm_g1p(percent, 9.0, 100.0, 30.0, 15.0, 2, 10, 0.6, 4.5, 1.8, 1, &err),
              bond_ytm_g1p(percent, 9.0, 100.0, 0.30, 0.15, 2, 10, 0.6, 4.5, 1.8, 1, &err));
    EXPECT_EQ(err, 0u);
}

TEST(YieldG1p, RoundTripsThePrice) {
    int checked = 0;
    for (int f : {1, 2, 4, 12})
        for (int n : {1, 3, 20, 119, 479})
            for (double cpn : {0.0, 2.0, 8.5, 20.0})
                for (double y : {-2.0, 0.5, 4.0, 11.0, 35.0})
                    for (double tax : {0.0, 0.3}) {
                        SCOPED_TRACE(testing::Message() << "f " << f << " n " << n << " cpn " << cpn << " y " << y
                                                        << " tax " << tax);
                        uint32_t err = 0;
                        const double w = 0.71, k = cpn / f, ai = 0.29 * k;
                        const double p = bond_ptm_g1p(y, cpn, 100.0, tax, tax, f, n, w, k, ai, 1, &err);
                        if (!(p > 0.5 && p <= 10000.0)) continue;  // a price, not a rounding residue
                        const double back = bond_ytm_g1p(p, cpn, 100.0, tax, tax, f, n, w, k, ai, 1, &err);
                        ASSERT_EQ(err, 0u);
                        // The solve stops at 5e-7 on the price; the yield is then within that over the slope.
                        EXPECT_NEAR(bond_ptm_g1p(back, cpn, 100.0, tax, tax, f, n, w, k, ai, 1, &err), p, 5e-7);
                        ++checked;
                    }
    EXPECT_GT(checked, 700);
}

TEST(YieldG1p, StartOfExactlyZeroIsTheAnswer) {
    // A zero coupon priced at its redemption: the first estimate is exactly 0.
    uint32_t err = 0;
    EXPECT_EQ(bond_ytm_g1p(100.0, 0.0, 100.0, 0.0, 0.0, 2, 4, 0.5, 0.0, 0.0, 1, &err), 0.0);
    EXPECT_EQ(err, 0u);
}

TEST(YieldG1p, StartOfExactlyOneStillConverges) {
    // cpn 1, price = redemption: the estimate is exactly t cpn / (R t) x 100 = 1.0, moved to 1.1 first.
    uint32_t err = 0;
    const double y = bond_ytm_g1p(100.0, 1.0, 100.0, 0.0, 0.0, 1, 4, 1.0, 1.0, 0.0, 1, &err);
    EXPECT_EQ(err, 0u);
    EXPECT_NEAR(y, 1.0, 1e-6);  // at par on a coupon date the yield is the coupon
}

TEST(YieldG1p, UnreachablePricesEndWithAnError) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (double price : {nan, inf, -inf, -5.0, 0.0, 1e300}) {
        SCOPED_TRACE(testing::Message() << "price " << price);
        uint32_t err = 0;
        EXPECT_EQ(bond_ytm_g1p(price, 8.0, 100.0, 0.0, 0.0, 2, 10, 0.5, 4.0, 1.0, 0, &err), 0.0);
        EXPECT_TRUE(err == 9020u || err == 4090u) << err;
        err = 0;
        EXPECT_EQ(aibd_y(price, 8.0, 100.0, 2, 10, 0.5, 4.0, 1.0, 0, &err), 0.0);
        EXPECT_TRUE(err == 9020u || err == 4090u || err == 4001u) << err;
    }
}

TEST(PriceG1p, NegativeBaseIsAnError) {
    uint32_t err = 0;
    EXPECT_EQ(bond_ptm_g1p(-250.0, 8.0, 100.0, 0.0, 0.0, 2, 10, 0.5, 4.0, 1.0, 0, &err), 0.0);
    EXPECT_EQ(err, 4090u);
    err = 0;
    EXPECT_EQ(aibd_p(-1300.0, 8.0, 100.0, 12, 10, 0.5, 4.0, 1.0, 0, &err), 0.0);
    EXPECT_EQ(err, 4090u);
}

TEST(PriceL1p, HandWorkedFinalPeriod) {
    // 8% semi-annual, 6% yield, half a period left, 2 accrued: V = 1 + 0.5 x 6 / 200 = 1.015;
    // 100 x ((8/200 + 1) / 1.015 - 0.02) = 100.463054187.
    uint32_t err = 0;
    EXPECT_NEAR(bond_ptm_l1p(6.0, 8.0, 100.0, 0.0, 2, 0.5, 2.0, 1, &err), 100.46305418719213, 1e-11);
    // Ex-dividend (negative accrued): the seller keeps the coupon, 100 x (1 / 1.015 + 0.02) = 100.522167488.
    EXPECT_NEAR(bond_ptm_l1p(6.0, 8.0, 100.0, 0.0, 2, 0.5, -2.0, 0, &err), 100.52216748768474, 1e-11);
    EXPECT_EQ(err, 0u);
}

TEST(PriceL1p, UntaxedYieldInvertsPrice) {
    for (int f : {1, 2, 4, 12})
        for (double w : {0.01, 0.3, 0.99, 1.0})
            for (double y : {-5.0, 0.0, 3.0, 12.0, 80.0}) {
                SCOPED_TRACE(testing::Message() << "f " << f << " w " << w << " y " << y);
                uint32_t err = 0;
                const double ai = (1.0 - w) * 7.0 / f;
                const double p = bond_ptm_l1p(y, 7.0, 100.0, 0.0, f, w, ai, 0, &err);
                EXPECT_NEAR(bond_ytm_l1p(p, 7.0, 100.0, 0.0, f, w, ai, 0, &err), y, 1e-9);
                EXPECT_EQ(err, 0u);
            }
}

TEST(PriceL1p, TaxedPriceChargesTheGain) {
    // P = (after-tax coupon + R - T R) / V - (1 - T) ai + T P / V: the tax on the redemption is refunded on
    // the price paid, i.e. the gain R - P is taxed. Tax 30 and 0.30 alike.
    for (double tax : {30.0, 0.30}) {
        uint32_t err = 0;
        const double p = bond_ptm_l1p(6.0, 8.0, 100.0, tax, 2, 0.5, 2.0, 1, &err);
        const double v = 1.015;
        EXPECT_NEAR(p, (0.7 * 8.0 / 2 + 100.0 - 30.0) / v - 0.7 * 2.0 + 0.3 * p / v, 1e-10);
        EXPECT_EQ(err, 0u);
    }
}

TEST(PriceL1p, ZeroFractionIsAnError) {
    uint32_t err = 0;
    EXPECT_EQ(bond_ptm_l1p(6.0, 8.0, 100.0, 0.0, 2, 0.0, 0.0, 0, &err), 0.0);
    EXPECT_EQ(err, 4400u);
    err = 0;
    EXPECT_EQ(bond_ytm_l1p(99.0, 8.0, 100.0, 0.0, 2, 0.0, 0.0, 0, &err), 0.0);
    EXPECT_EQ(err, 4400u);
}

TEST(ApproxYield, ExactOnALinearFractionalResidual) {
    // f(y) = (y - 3) / (y + 2) has its root at 3; one step from any three points finds it.
    auto f = [](double y) { return (y - 3.0) / (y + 2.0); };
    uint32_t err = 0;
    EXPECT_NEAR(approx_yield(0.0, 1.0, 7.0, f(0.0), f(1.0), f(7.0), &err), 3.0, 1e-12);
    EXPECT_EQ(err, 0u);
}

TEST(ApproxYield, DegenerateStepIsAnError) {
    uint32_t err = 0;
    EXPECT_EQ(approx_yield(1.0, 2.0, 3.0, 5.0, 5.0, 5.0, &err), 0.0);  // a flat residual: no root to aim at
    EXPECT_EQ(err, 9020u);
    err = 0;
    EXPECT_EQ(approx_yield(1.0, 1.0, 1.0, 1.0, 2.0, 3.0, &err), 0.0);  // one point three times
    EXPECT_EQ(err, 9020u);
    err = 0;
    EXPECT_EQ(approx_yield(1.0, 2.0, std::numeric_limits<double>::quiet_NaN(), 1.0, 2.0, 3.0, &err), 0.0);
    EXPECT_EQ(err, 9020u);
}

TEST(Aibd, PriceIsTheCompoundedFlowsInEveryPeriod) {
    for (int f : {1, 2, 4, 12})
        for (int n : {1, 5, 60})
            for (double w : {0.0, 0.25, 1.0}) {
                SCOPED_TRACE(testing::Message() << "f " << f << " n " << n << " w " << w);
                uint32_t err = 0;
                const double p = aibd_p(5.5, 7.0, 100.0, f, n, w, 3.1, 0.8, 1, &err);
                EXPECT_NEAR(p, discounted_flows(5.5, 7.0, 100.0, f, n, w, 3.1) - 0.8, 1e-10);
                EXPECT_NEAR(aibd_y(p, 7.0, 100.0, f, n, w, 3.1, 0.8, 1, &err), 5.5, 1e-6);
                EXPECT_EQ(err, 0u);
            }
}

TEST(Aibd, ExDividendLeavesTheNextCouponOut) {
    uint32_t err = 0;
    const double p = aibd_p(5.5, 7.0, 100.0, 2, 4, 0.1, 3.5, -0.2, 1 - 1, &err);
    EXPECT_NEAR(p, discounted_flows(5.5, 7.0, 100.0, 2, 4, 0.1, 0.0) + 0.2, 1e-10);
    EXPECT_EQ(err, 0u);
}

TEST(IncomeToMaturity, EqualsEachCouponGrownToMaturity) {
    // The next coupon grows for n periods, the i-th later coupon for n - i.
    for (double y : {0.0, 4.0, 9.5})
        for (double w : {0.0, 0.4}) {
            SCOPED_TRACE(testing::Message() << "y " << y << " w " << w);
            const int f = 2, n = 9;
            const double p = 6.0 / f, next = 2.2, g = y / 200.0;
            double grown = next * std::pow(1 + g, n);
            for (int i = 1; i <= n; ++i) grown += p * std::pow(1 + g, n - i);
            double tot = 0, cpn = 0, ioi = 0;
            uint32_t err = 0;
            bond_int_ioi(y, f, 6.0, next, n, w, &tot, &cpn, &ioi, 1, &err);
            EXPECT_EQ(err, 0u);
            if (y == 0.0) {
                EXPECT_EQ(ioi, 0.0);
                EXPECT_DOUBLE_EQ(tot, n * p + (w != 0.0 ? next : 0.0));
            } else {
                EXPECT_NEAR(tot, grown, 1e-10);
                // Without a fraction to the next coupon that coupon counts wholly as interest on interest.
                EXPECT_NEAR(cpn, n * p + (w != 0.0 ? next : 0.0), 1e-10);
            }
            EXPECT_NEAR(tot, cpn + ioi, 1e-12);
        }
}

TEST(CurrentYield, TaxReadings) {
    EXPECT_DOUBLE_EQ(bond_cur_yld(8.0, 80.0, 0.0), 10.0);
    EXPECT_DOUBLE_EQ(bond_cur_yld(8.0, 80.0, 1.0), 0.0);  // 1.0 is 100% here
    EXPECT_DOUBLE_EQ(bond_cur_yld(8.0, 80.0, 30.0), 7.0);
    EXPECT_DOUBLE_EQ(bond_cur_yld(8.0, 80.0, 0.3), 7.0);
}

// One bad argument at a time, in the order the kernels check them.
TEST(KernelValidation, FirstBadArgumentNamesItself) {
    struct Row {
        const char* what;
        double yld, cpn, red, tax1, tax2;
        int32_t f, n;
        double w, k, ai;
        uint32_t expected;
    };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Row rows[] = {
        {"zero yield", 0.0, 8, 100, 0, 0, 2, 4, 0.5, 4, 1, 4001},
        {"NaN yield", nan, 8, 100, 0, 0, 2, 4, 0.5, 4, 1, 4001},
        {"coupon", 6, 3000.5, 100, 0, 0, 2, 4, 0.5, 4, 1, 4100},
        {"redemption", 6, 8, 0.0, 0, 0, 2, 4, 0.5, 4, 1, 4200},
        {"tax1", 6, 8, 100, 101, 0, 2, 4, 0.5, 4, 1, 4301},
        {"tax2", 6, 8, 100, 0, -1, 2, 4, 0.5, 4, 1, 4302},
        {"frequency", 6, 8, 100, 0, 0, 3, 4, 0.5, 4, 1, 600},
        {"frequency missing", 6, 8, 100, 0, 0, -1, 4, 0.5, 4, 1, 601},
        {"whole periods", 6, 8, 100, 0, 0, 2, 0, 0.5, 4, 1, 4600},
        {"fraction", 6, 8, 100, 0, 0, 2, 4, -0.5, 4, 1, 4400},
        {"next coupon", 6, 8, 100, 0, 0, 2, 4, 0.5, -4, 1, 4101},
        {"accrued", 6, 8, 100, 0, 0, 2, 4, 0.5, 4, -1, 4500},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.what);
        uint32_t err = 0;
        EXPECT_EQ(bond_ptm_g1p(r.yld, r.cpn, r.red, r.tax1, r.tax2, r.f, r.n, r.w, r.k, r.ai, 1, &err), 0.0);
        EXPECT_EQ(err, r.expected);
        // The yield solver checks the same list with a price in place of the yield.
        err = 0;
        const double price = r.expected == 4001 ? -1.0 : 99.0;
        bond_ytm_g1p(price, r.cpn, r.red, r.tax1, r.tax2, r.f, r.n, r.w, r.k, r.ai, 1, &err);
        EXPECT_EQ(err, r.expected == 4001 ? 4002u : r.expected);
    }
}

}  // namespace
