// The five keys of an annuity solved back from the other four, checked against the flows summed one by
// one; the amortization table against the future value; what the rate solve costs.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "cashflow/tvm.hpp"
#include "orvel/cashflow.h"

namespace {

// pv + the payments + fv, each discounted to time 0 in long double, for a whole number of periods: the
// time-value equation written as the flows it describes, not as its closed forms.
long double flows_pv(double fv, double pmt, double pv, int n, long double i, int due) {
    long double sum = pv, v = 1.0L;
    for (int k = 1; k <= n; ++k) {
        sum += pmt * (due == 1 ? v : v / (1.0L + i));
        v /= 1.0L + i;
    }
    return sum + fv * v;
}

TEST(Annuity, EachKeySolvedBackFromTheOtherFour) {
    const int freqs[][2] = {{12, 12}, {1, 1}, {12, 1}, {2, 12}, {52, 52}};  // cpy, ppy
    int cases = 0, most_steps = 0;
    for (const auto& f : freqs)
        for (int due : {0, 1})
            for (double n : {2.5, 7.0, 30.0, 360.0})
                for (double iy : {0.0, 0.05, 3.0, 12.0, 40.0})
                    for (double pv : {1000.0, -2.5e5})
                        for (double k : {0.0, -0.3, 0.6}) {
                            const int cpy = f[0], ppy = f[1];
                            if (n > 50.0 * ppy) continue;  // terms up to 50 years
                            const double fv = k * pv, scale = std::fabs(pv) * 1e-9;
                            SCOPED_TRACE(testing::Message() << cpy << "/" << ppy << " due " << due << " n " << n
                                                            << " iy " << iy << " pv " << pv << " fv " << fv);
                            uint32_t err = 0;
                            const double pmt = tvm_pmt(fv, pv, iy, n, cpy, ppy, due, 1, &err);
                            const double i = tvm_iy_2_epi(iy, cpy, ppy, 1, &err);
                            if (n == std::floor(n)) {
                                EXPECT_NEAR(static_cast<double>(flows_pv(fv, pmt, pv, static_cast<int>(n), i, due)),
                                            0.0, scale);
                            }
                            EXPECT_NEAR(tvm_FV(pmt, pv, iy, n, cpy, ppy, due, 1, &err), fv, scale);
                            EXPECT_NEAR(tvm_PV(fv, pmt, iy, n, cpy, ppy, due, 1, &err), pv, scale);
                            EXPECT_NEAR(tvm_n(fv, pmt, pv, iy, cpy, ppy, due, 1, &err), n, 1e-9 * n);
                            ASSERT_EQ(err, 0u);
                            const double back = tvm_iy(fv, pmt, pv, n, cpy, ppy, due, 1, &err);
                            ++cases;
                            if (k > 0.0 || iy == 0.0) {
                                // fv on the side of pv: the flows change sign twice and may have two rates,
                                // refused as having none. A rate of 0 has no solution: the closed forms
                                // serve it.
                                if (k > 0.0) {
                                    EXPECT_EQ(err, ORVEL_E_NO_RATE);
                                } else {
                                    EXPECT_TRUE(err == ORVEL_E_RATE_DOMAIN || err == ORVEL_E_SOLVER) << err;
                                }
                                continue;
                            }
                            ASSERT_EQ(err, 0u);
                            EXPECT_NEAR(back, iy, 1e-7 * std::max(1.0, iy));
                            orvel::SolveStats stats;
                            orvel::tvm::solve_epi(fv, pmt, pv, n, ppy, due, &err, &stats);
                            most_steps = std::max(most_steps, stats.steps);
                        }
    // Recorded: 1,080 cases; the hardest rate solve takes 9 interpolation steps, far from the cap of 1,000.
    EXPECT_EQ(cases, 1080);
    EXPECT_LE(most_steps, 9) << most_steps;
}

// Rates from 0.0001% to 5% a year, terms to 20,000 periods, amounts from 1 to 3e12: every solve reaches
// its tolerance, where the plain residual (1 - (1+i)^-n) / i fails in more than half of these below 0.1%
// a period.
TEST(Annuity, RateSolveReachesItsToleranceAtTinyRates) {
    for (int ppy : {1, 52, 365})
        for (double n : {0.5, 60.0, 20000.0})
            for (double iy : {0.0001, 0.01, 5.0})
                for (double pv : {1.0, -7.3e5, 3e12}) {
                    uint32_t err = 0;
                    const double pmt = tvm_pmt(0.0, pv, iy, n, ppy, ppy, 0, 1, &err);
                    const double i = orvel::tvm::solve_epi(0.0, pmt, pv, n, ppy, 0, &err);
                    ASSERT_EQ(err, 0u) << ppy << " " << n << " " << iy << " " << pv;
                    EXPECT_LT(std::fabs(orvel::tvm::rate_residual(i, 0.0, pmt, pv, n, 0.0)),
                              orvel::tvm::rate_tolerance(0.0, pv));
                }
}

TEST(Annuity, ToleranceFollowsTheDigitsOfTheLargerAmount) {
    const double cases[][2] = {{0.0, 5e-10}, {9999.99, 5e-10}, {1e4, 5e-9}, {1e6, 5e-7}, {-2.5e7, 5e-6},
                               {9e22, 5e9}, {5e23, 5e10}, {-3e25, 5e12}};  // past 10^22, powers of ten by pow
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(orvel::tvm::rate_tolerance(0.5, c[0]), c[1]) << c[0];
}

// Row k holds the balance after k payments: minus the future value of the loan after k periods, or with
// payments at the start, before the k-th period's interest (the future value / 1.0075). The table fills
// rows 1..floor(n) of arrays of rows + 1 elements and nothing else.
TEST(Amortization, BalancesAreFutureValuesAndWritesStayInTheRows) {
    for (int due : {0, 1}) {
        double a[5][8];
        std::fill(&a[0][0], &a[0][0] + 40, -7.0);
        uint32_t err = 0;
        tvm_amort(0.0, -88.0, 1000.0, 9.0, 5.9, 12, 12, due, 6, a[0], a[1], a[2], a[3], a[4], 1, &err);
        ASSERT_EQ(err, 0u);
        for (int k = 1; k <= 5; ++k) {
            const double fv = tvm_FV(-88.0, 1000.0, 9.0, k, 12, 12, due, 1, &err);
            EXPECT_NEAR(a[2][k], -fv / (due == 1 ? 1.0075 : 1.0), 1e-9) << k;
            EXPECT_NEAR(a[4][k], a[2][k] - 1000.0, 1e-9) << k;  // principal repaid so far
        }
        for (const auto& column : a)
            for (int k : {0, 6, 7}) EXPECT_EQ(column[k], -7.0) << k;
        for (int rows : {-1, ORVEL_TVM_AMORT_MAX_ROWS + 1}) {
            err = 0;
            tvm_amort(0.0, -88.0, 1000.0, 9.0, 0.5, 12, 12, due, rows, a[0], a[1], a[2], a[3], a[4], 0, &err);
            EXPECT_EQ(err, ORVEL_E_AMORT_ROWS);
        }
    }
}

}  // namespace
