// Price and yield kernels on a reduced schedule against the flows discounted one by one, the meaning of the taxes
// and round trips. Hand-worked values and every error number are rows of tests/calls/bond.calls.
#include <gtest/gtest.h>

#include <cmath>

#include "orvel/bond.h"

namespace {

// Present value of the flows the compound kernels describe, one flow at a time: the next coupon at w
// periods, the regular coupon at w + 1 .. w + n, the redemption at w + n.
double discounted_flows(double yld, double cpn_rate, double redemptn, int f, int n, double w, double cpn_amt) {
    const double v = 1.0 + yld / (100.0 * f);
    double pv = cpn_amt * std::pow(v, -w) + redemptn * std::pow(v, -(w + n));
    for (int i = 1; i <= n; ++i) pv += cpn_rate / f * std::pow(v, -(w + i));
    return pv;
}

// Both compound kernels (bond_ptm_g1p untaxed, aibd_p) and the ex-dividend form of aibd_p, with an odd next
// coupon k.
TEST(CompoundPrice, EqualsTheFlowsDiscountedOneByOne) {
    for (int f : {1, 2, 4, 12})
        for (int n : {1, 2, 7, 59, 479})
            for (double y : {-3.0, 0.01, 2.5, 7.25, 19.0, 60.0})
                for (double w : {0.0, 0.013, 0.5, 1.0}) {
                    SCOPED_TRACE(testing::Message() << "f " << f << " n " << n << " y " << y << " w " << w);
                    const double k = 6.5 / f * 1.3, want = discounted_flows(y, 6.5, 101.0, f, n, w, k) - 1.25;
                    const double ex = discounted_flows(y, 6.5, 101.0, f, n, w, 0.0);
                    uint32_t err = 0;
                    EXPECT_NEAR(bond_ptm_g1p(y, 6.5, 101.0, 0.0, 0.0, f, n, w, k, 1.25, 0, &err), want, 1e-10 * want);
                    EXPECT_NEAR(aibd_p(y, 6.5, 101.0, f, n, w, k, 1.25, 0, &err), want, 1e-10 * want);
                    EXPECT_NEAR(aibd_p(y, 6.5, 101.0, f, n, w, k, -0.2, 0, &err), ex + 0.2, 1e-10 * ex);
                    EXPECT_EQ(err, 0u);
                }
}

// The taxed price P solves P = PV(after-tax flows) - (1 - T1) ai - T2 (R - P) v^-(n+w).
TEST(CompoundPrice, RedemptionTaxFallsOnTheGain) {
    const double cases[][2] = {{0.30, 0.0}, {0.0, 0.25}, {0.30, 0.25}, {45.0, 10.0}};
    for (const auto& t : cases) {
        const double t1 = t[0] >= 1 ? t[0] / 100 : t[0], t2 = t[1] >= 1 ? t[1] / 100 : t[1];
        uint32_t err = 0;
        const double p = bond_ptm_g1p(9.0, 5.0, 100.0, t[0], t[1], 2, 13, 0.37, 2.5, 2.1, 1, &err);
        const double after_tax = discounted_flows(9.0, 5.0 * (1 - t1), 100.0, 2, 13, 0.37, 2.5 * (1 - t1));
        EXPECT_NEAR(p, after_tax - (1 - t1) * 2.1 - t2 * (100.0 - p) * std::pow(1.045, -13.37), 1e-10) << t[0];
        EXPECT_EQ(err, 0u) << t[0];
    }
}

// price -> yield -> price for both solves; the yield reprices within the solver's 5e-7.
TEST(CompoundYield, RoundTripsThePrice) {
    int checked = 0;
    for (int f : {1, 2, 4, 12})
        for (int n : {1, 3, 20, 119, 479})
            for (double cpn : {0.0, 2.0, 8.5, 20.0})
                for (double y : {-2.0, 0.5, 4.0, 11.0, 35.0})
                    for (double tax : {0.0, 0.3}) {
                        SCOPED_TRACE(testing::Message() << f << " " << n << " " << cpn << " " << y << " " << tax);
                        const double w = 0.71, k = cpn / f, ai = 0.29 * k;
                        uint32_t err = 0;
                        const double p = bond_ptm_g1p(y, cpn, 100.0, tax, tax, f, n, w, k, ai, 1, &err);
                        if (!(p > 0.5 && p <= 10000.0)) continue;  // a price, not a rounding residue
                        const double back = bond_ytm_g1p(p, cpn, 100.0, tax, tax, f, n, w, k, ai, 1, &err);
                        ASSERT_EQ(err, 0u);
                        EXPECT_NEAR(bond_ptm_g1p(back, cpn, 100.0, tax, tax, f, n, w, k, ai, 1, &err), p, 5e-7);
                        if (tax == 0.0 && y != 0.0) {
                            const double q = aibd_p(y, cpn, 100.0, f, n, w, k, ai, 1, &err),
                                         aibd_back = aibd_y(q, cpn, 100.0, f, n, w, k, ai, 1, &err);
                            ASSERT_EQ(err, 0u);
                            EXPECT_NEAR(aibd_p(aibd_back, cpn, 100.0, f, n, w, k, ai, 1, &err), q, 5e-7);
                        }
                        ++checked;
                    }
    EXPECT_GT(checked, 700);
}

TEST(FinalPeriod, UntaxedYieldInvertsPriceAndTaxFallsOnTheGain) {
    for (int f : {1, 2, 4, 12})
        for (double w : {0.01, 0.3, 0.99, 1.0})
            for (double y : {-5.0, 0.0, 3.0, 12.0, 80.0}) {
                SCOPED_TRACE(testing::Message() << "f " << f << " w " << w << " y " << y);
                const double ai = (1.0 - w) * 7.0 / f, v = 1.0 + w * y / (100.0 * f);
                uint32_t err = 0;
                const double p = bond_ptm_l1p(y, 7.0, 100.0, 0.0, f, w, ai, 0, &err);
                EXPECT_NEAR(p, (7.0 / f + 100.0) / v - ai, 1e-10);
                EXPECT_NEAR(bond_ytm_l1p(p, 7.0, 100.0, 0.0, f, w, ai, 0, &err), y, 1e-9);
                // Taxed: P = (after-tax coupon + R - T R) / V - (1 - T) ai + T P / V.
                const double pt = bond_ptm_l1p(y, 7.0, 100.0, 30.0, f, w, ai, 0, &err);
                EXPECT_NEAR(pt, (0.7 * 7.0 / f + 70.0) / v - 0.7 * ai + 0.3 * pt / v, 1e-9);
                EXPECT_EQ(err, 0u);
            }
}

TEST(IncomeToMaturity, EqualsEachCouponGrownToMaturity) {
    for (int f : {1, 2, 12})
        for (int n : {1, 9, 60})
            for (double y : {4.0, 9.5})
                for (double w : {0.0, 0.4}) {
                    SCOPED_TRACE(testing::Message() << "f " << f << " n " << n << " y " << y << " w " << w);
                    const double p = 6.0 / f, next = 2.2, g = y / (100.0 * f);
                    double grown = next * std::pow(1 + g, n);  // the next coupon grows n periods, the i-th n - i
                    for (int i = 1; i <= n; ++i) grown += p * std::pow(1 + g, n - i);
                    double tot = 0, cpn = 0, ioi = 0;
                    uint32_t err = 0;
                    bond_int_ioi(y, f, 6.0, next, n, w, &tot, &cpn, &ioi, 1, &err);
                    ASSERT_EQ(err, 0u);
                    EXPECT_NEAR(tot, grown, 1e-10 * grown);
                    // Without a fraction to the next coupon it counts wholly as interest on interest.
                    EXPECT_NEAR(cpn, n * p + (w != 0.0 ? next : 0.0), 1e-10 * grown);
                    EXPECT_NEAR(tot, cpn + ioi, 1e-12 * grown);
                }
}

}  // namespace
