// orvel::pow against the x87 powl (64-bit significand) over the bases and exponents the bond formulas use,
// and against exact values: 10^k as the decimal literal reads (strtod rounds correctly), 2^k by ldexp.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "core/power.hpp"

namespace {

// got - ref in units of the last place of the double nearest ref.
double ulps(double got, long double ref) {
    const double r = std::fabs(static_cast<double>(ref));
    return static_cast<double>((got - ref) / (std::nextafter(r, INFINITY) - r));
}

TEST(Power, WithinHalfAnUlpOfPowl) {
    std::mt19937_64 gen(7);
    std::uniform_real_distribution<double> log_base(std::log(0.01), std::log(100.0)), unit(0.0, 1.0);
    int n = 0, rounded = 0;
    double worst = 0.0;
    for (int i = 0; i < 400000; ++i) {
        // every third base within 1% of 1 (a period's discount factor); exponents whole or not, to 10^5
        const double x = i % 3 == 0 ? 1.0 + (unit(gen) - 0.5) * 0.02 : std::exp(log_base(gen));
        const double e = (unit(gen) - 0.5) * (i % 4 < 2 ? 2e5 : 400.0);
        const double y = i % 2 == 0 ? std::round(e) : e;
        const long double ref = powl(x, y);
        if (!(std::fabs(static_cast<double>(ref)) > 1e-300 && std::fabs(static_cast<double>(ref)) < 1e300)) continue;
        const double got = orvel::pow(x, y);
        const double err = std::fabs(ulps(got, ref));
        worst = std::max(worst, err);
        ++n;
        rounded += got == static_cast<double>(ref);
        EXPECT_LE(err, 0.5 + 1.0 / 1024) << std::hexfloat << x << " ^ " << y;  // powl's own error aside
    }
    std::printf("orvel::pow: %d cases, worst %.4f ulp, %.4f%% as powl rounded\n", n, worst, 100.0 * rounded / n);
}

TEST(Power, ExactPowersOfTenAndTwo) {
    for (int k = -400; k <= 700; ++k) {
        char literal[16];
        std::snprintf(literal, sizeof literal, "1e%d", k);
        EXPECT_EQ(orvel::pow(10.0, k), std::strtod(literal, nullptr)) << literal;  // 1e23 is a halfway case
    }
    for (int k = -1074; k <= 1023; ++k) EXPECT_EQ(orvel::pow(2.0, k), std::ldexp(1.0, k)) << k;
    EXPECT_EQ(orvel::pow(0.5, 1075), 0.0);  // 2^-1075 is halfway to 0: to even
}

// C's special values, against the platform's pow (they are exact, so the runtimes agree).
TEST(Power, SpecialValuesAsC) {
    const double inf = INFINITY, nan = NAN;
    for (double x : {0.0, -0.0, 1.0, -1.0, 0.5, -0.5, -2.0, inf, -inf, nan, 1e-310, -1e-310})
        for (double y : {0.0, -0.0, 1.0, -1.0, 3.0, -3.0, 0.5, -0.5, inf, -inf, nan, 1e300, -1e300, 0x1p53 + 2}) {
            const double got = orvel::pow(x, y), want = std::pow(x, y);
            EXPECT_TRUE(std::isnan(want) ? std::isnan(got) : got == want && std::signbit(got) == std::signbit(want))
                << x << " ^ " << y << " = " << got;
        }
}

}  // namespace

namespace {

// orvel::log and orvel::exp against the x87 logl and expl, and their special values.
TEST(Power, LogAndExpWithinHalfAnUlpOfLongDouble) {
    std::mt19937_64 gen(11);
    std::uniform_real_distribution<double> wide(-700.0, 700.0), near_one(-0.02, 0.02);
    for (int i = 0; i < 200000; ++i) {
        const double t = i % 2 == 0 ? wide(gen) : near_one(gen);
        EXPECT_LE(std::fabs(ulps(orvel::exp(t), expl(t))), 0.5 + 1.0 / 1024) << std::hexfloat << t;
        const double x = std::exp(t);
        EXPECT_LE(std::fabs(ulps(orvel::log(x), logl(x))), 0.5 + 1.0 / 1024) << std::hexfloat << x;
    }
    EXPECT_EQ(orvel::log(1.0), 0.0);
    EXPECT_EQ(orvel::exp(0.0), 1.0);
    EXPECT_EQ(orvel::log(0.0), -INFINITY);
    EXPECT_TRUE(std::isnan(orvel::log(-1.0)));
    EXPECT_EQ(orvel::exp(711.0), INFINITY);
    EXPECT_EQ(orvel::exp(-750.0), 0.0);
}

}  // namespace
