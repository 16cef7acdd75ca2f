// The shared three-point solver: how every solve ends, and the rules that stop it.
#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "bond/solver.hpp"

namespace {

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
