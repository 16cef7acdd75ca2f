// Performance measures against identities: the money-weighted return equals Modified Dietz when every flow
// is at the start or the end of the period; a level-debt issue sold at par costs its coupon; parity
// converts back to its own deposit rate; the standard deviation keeps its digits on large values.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "orvel/perf.h"
#include "perf/solves.hpp"

namespace {

// With flows on the begin and end dates only, the weights are 1 and 0 and the money-weighted equation is
// linear: E = (B + F0)(1 + r) + F1, whose r is the Dietz return. Begin value as the flow on 3/1/2023.
TEST(Returns, MoneyWeightedIsDietzWhenFlowsAreAtTheEnds) {
    int most_steps = 0;
    for (double b : {100.0, 2.5e6})
        for (double f0 : {0.0, 0.3, -0.2})
            for (double f1 : {0.0, 0.1, -0.25})
                for (double growth : {0.97, 1.0004, 1.08, 1.6}) {
                    const double e = (b + f0 * b) * growth + f1 * b;
                    const int32_t m[] = {3, 3, 9}, d[] = {1, 1, 30}, y[] = {2023, 2023, 2023};
                    const double amts[] = {b, f0 * b, f1 * b};
                    uint32_t err = 0;
                    const double dietz = aimr_rdietz(1, 0, 3, 1, 2023, 9, 30, 2023, 2, m + 1, d + 1, y + 1, amts + 1,
                                                     b, e, 0, 0.0, 1, &err);
                    orvel::SolveStats stats;
                    const orvel::perf::FlowList flows{3, m, d, y, amts};
                    const double mwr = orvel::perf::money_weighted(1, 0, 10, {9, 30, 2023}, e, flows, &err, &stats);
                    ASSERT_EQ(err, 0u) << b << " " << f0 << " " << f1 << " " << growth;
                    EXPECT_NEAR(mwr, (growth - 1.0) * 100.0, 1e-9);
                    EXPECT_NEAR(dietz, mwr, 1e-9);
                    most_steps = std::max(most_steps, stats.steps);
                }
    EXPECT_LE(most_steps, 3);  // recorded: a linear residual, solved by the first interpolation step or two
}

// Mid-period flows: the money-weighted return stays near Dietz, its first-order form (within 0.2 points at a
// loss of 30%), and takes a handful of steps; a hundred flows, one every other day.
TEST(Returns, MoneyWeightedNearDietzWithFlowsThroughThePeriod) {
    std::vector<int32_t> m(101), d(101), y(101, 2024);
    std::vector<double> a(101);
    int most_steps = 0;
    for (double r : {-0.3, 0.02, 0.15}) {
        double e = 1e6 * (1.0 + r);
        for (int k = 0; k <= 100; ++k) {
            m[k] = 1 + k * 2 / 31 % 12;
            d[k] = 1 + k * 2 % 31 % 28;
            a[k] = k == 0 ? 1e6 : (k % 3 == 0 ? -2000.0 : 3000.0);
            e += k == 0 ? 0.0 : a[k] * (1.0 + r * 0.5);
        }
        uint32_t err = 0;
        orvel::SolveStats stats;
        const orvel::perf::FlowList flows{101, m.data(), d.data(), y.data(), a.data()};
        const double mwr = orvel::perf::money_weighted(1, 0, 6, {12, 31, 2024}, e, flows, &err, &stats);
        ASSERT_EQ(err, 0u);
        const double dietz = aimr_rdietz(1, 0, 1, 1, 2024, 12, 31, 2024, 100, &m[1], &d[1], &y[1], &a[1], 1e6, e, 0,
                                         0.0, 1, &err);
        EXPECT_NEAR(mwr, dietz, 0.2) << r;
        most_steps = std::max(most_steps, stats.steps);
    }
    EXPECT_LE(most_steps, 6);
}

TEST(Dispersion, StandardDeviationKeepsItsDigitsOnLargeValues) {
    std::vector<double> small, large;
    for (int k = 0; k < 600; ++k) {
        small.push_back(0.01 * (k % 6));  // 0 .. 0.05
        large.push_back(1e6 + small.back());
    }
    double m1 = 0.0, m2 = 0.0;
    uint32_t err = 0;
    const double s1 = std_dev(small.data(), 600, 0, &m1, 1, &err);
    const double s2 = std_dev(large.data(), 600, 0, &m2, 1, &err);
    EXPECT_NEAR(s1, std::sqrt(0.00175 / 6 * 600 / 599), 1e-15);  // deviations +-0.025, 0.015, 0.005
    EXPECT_NEAR(s2 / s1, 1.0, 1e-8);                              // 1e6 + 0.01 k is exact to 1.2e-10
    EXPECT_NEAR(m2 - 1e6, m1, 1e-9);
}

// A level-debt issue sold at par costs its coupon; so does a serial issue at par with one coupon.
TEST(Debt, IssueAtParCostsItsCoupon) {
    for (int32_t freq : {1, 2, 12})
        for (double cpn : {0.5, 4.25, 11.0}) {
            const int32_t n = 20 * freq;
            uint32_t err = 0;
            std::vector<double> level(static_cast<std::size_t>(n), debt_level(5e7, cpn, n, freq, 1, &err));
            std::vector<double> prn(static_cast<std::size_t>(n), 5e7 / n), rates(prn.size(), cpn), serial(prn.size());
            debt_srvc(n, prn.data(), rates.data(), freq, serial.data(), 1, &err);
            orvel::SolveStats stats;
            EXPECT_NEAR(orvel::perf::true_interest_cost(5e7, n, level.data(), freq, &err, &stats), cpn, 1e-7);
            EXPECT_LE(stats.steps, 6);  // recorded: at most 5
            EXPECT_NEAR(debt_tic(5e7, n, serial.data(), freq, 1, &err), cpn, 1e-7);
            EXPECT_EQ(err, 0u);
        }
}

// The forward of fx_US_2_for gives back the dollar rate it was built on; converting there and back gives
// back the amount.
TEST(Currency, ParityGivesBackItsDollarRate) {
    for (double usd : {-0.5, 0.0, 5.25})
        for (double other : {-0.75, 2.0, 40.0})
            for (int32_t days : {1, 91, 730})
                for (int32_t basis : {360, 365}) {
                    uint32_t err = 0;
                    const double fwd = fx_US_2_for(1.0, 1.3, usd, other, days, basis, 1, &err);
                    EXPECT_NEAR(fx_US_dep_rt(1.3, fwd, other, days, basis, 1, &err), usd, 1e-10);
                    EXPECT_NEAR(fx_for_2_US(fx_US_2_for(250.0, 1.3, usd, other, days, basis, 1, &err), 1.3, usd,
                                            other, days, basis, 1, &err),
                                250.0, 1e-11);
                    EXPECT_EQ(err, 0u);
                }
}

}  // namespace
