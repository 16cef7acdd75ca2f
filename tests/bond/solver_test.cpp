// The shared three-point solver: how many steps bond yields take, and that every solve ends.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "bond/solver.hpp"
#include "orvel/bond.h"

namespace {

// Yields of 0.5 .. 30% on bonds of 1 .. 480 periods, coupons 0 .. 20%, at every frequency, solved from the
// bond yields' start: the gain to redemption spread over the periods left, and 1 either side.
TEST(Solver, TypicalBondsConvergeInAFewSteps) {
    int solves = 0, most_steps = 0, total_evaluations = 0;
    for (int f : {1, 2, 4, 12})
        for (int n : {1, 4, 19, 59, 119, 479})
            for (double cpn : {0.0, 3.0, 7.5, 20.0})
                for (double y : {0.5, 2.0, 5.0, 9.0, 15.0, 30.0}) {
                    auto price_at = [&](double x, uint32_t* e) {
                        return bond_ptm_g1p(x, cpn, 100.0, 0.0, 0.0, f, n, 0.4, cpn / f, 0.6 * cpn / f, 0, e);
                    };
                    uint32_t err = 0;
                    const double price = price_at(y, &err);
                    if (!(price > 0.01)) continue;
                    const double d = 100.0 - price, t = n + 0.4;
                    const double guess = (t * cpn + d) / ((100.0 - 0.5 * d) * t - 0.25 * d) * 100.0;
                    const double start[3] = {guess, guess - 1.0, guess + 1.0};
                    orvel::SolveStats stats;
                    const double back = orvel::solve3(
                        start, [&](double x, uint32_t* e) { return price - price_at(x, e); },
                        orvel::ResidualBelow{5e-7}, &err, &stats);
                    SCOPED_TRACE(testing::Message() << "f " << f << " n " << n << " cpn " << cpn << " y " << y);
                    ASSERT_EQ(err, 0u);
                    EXPECT_NEAR(back, y, 1e-4);
                    EXPECT_EQ(back, bond_ytm_g1p(price, cpn, 100.0, 0.0, 0.0, f, n, 0.4, cpn / f, 0.6 * cpn / f, 0,
                                                 &err));
                    most_steps = std::max(most_steps, stats.steps);
                    total_evaluations += stats.evaluations;
                    ++solves;
                }
    // Recorded: 558 solves take 5.92 price evaluations on average (the three start points, 2 to 4
    // interpolation steps), at most 10 steps: none comes near the cap of 1,000.
    EXPECT_LE(most_steps, 10);
    EXPECT_LE(total_evaluations, solves * 6);
}

// A residual that jitters around 5 by +-0.1 never gets within the tolerance, while its interpolation steps
// stay well-formed: the solve must give up after exactly 1,000 steps.
TEST(Solver, ResidualThatNeverConvergesStopsAtTheCap) {
    bool up = false;
    auto jitter = [&up](double x, uint32_t*) { return (x - 5.0) + ((up = !up) ? 0.1 : -0.1); };
    orvel::SolveStats stats;
    uint32_t err = 0;
    const double start[3] = {4.0, 3.0, 6.0};
    EXPECT_EQ(orvel::solve3(start, jitter, orvel::ResidualBelow{1e-12}, &err, &stats), 0.0);
    EXPECT_EQ(err, 9020u);
    EXPECT_EQ(std::pair(stats.steps, stats.evaluations), std::pair(1000, 1003));
}

// A start point that meets the rule is returned at once; a residual's error number or a non-finite
// residual ends the solve.
TEST(Solver, StartPointsAndResidualErrors) {
    const double start[3] = {2.0, 1.0, 3.0};
    orvel::SolveStats stats;
    uint32_t err = 0;
    EXPECT_EQ(orvel::solve3(start, [](double x, uint32_t*) { return x * x - 1.0; }, orvel::ResidualBelow{1e-9}, &err,
                            &stats), 1.0);
    EXPECT_EQ(std::pair(stats.steps, stats.evaluations), std::pair(0, 2));
    auto refuses = [](double x, uint32_t* e) { return x > 2.5 ? (*e = 4090, x) : x; };
    EXPECT_EQ(orvel::solve3(start, refuses, orvel::ResidualBelow{1e-9}, &err), 0.0);
    EXPECT_EQ(err, 4090u);
    err = 0;
    auto not_finite = [](double x, uint32_t*) { return x > 2.5 ? NAN : x; };
    EXPECT_EQ(orvel::solve3(start, not_finite, orvel::ResidualBelow{1e-9}, &err), 0.0);
    EXPECT_EQ(err, 9020u);
}

// A rule on the step size instead of the residual: stop when x moves less than 1e-6 (far tighter rules
// meet the 1e-10 floor on the step denominator first).
TEST(Solver, StatefulStopRuleComparesSteps) {
    double last = NAN;
    auto small_step = [&last](double x, double) { return std::fabs(x - std::exchange(last, x)) < 1e-6; };
    uint32_t err = 0;
    const double start[3] = {1.0, 2.0, 3.0};
    auto f = [](double x, uint32_t*) { return std::exp(x) - 10.0; };
    EXPECT_NEAR(orvel::solve3(start, f, small_step, &err), std::log(10.0), 1e-9);
    EXPECT_EQ(err, 0u);
}

}  // namespace
