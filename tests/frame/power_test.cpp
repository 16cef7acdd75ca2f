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
    for (int i = 0; i < 400000; ++i) {
        // every third base within 1% of 1 (a period's discount factor); exponents whole or not, to 10^5
        const double x = i % 3 == 0 ? 1.0 + (unit(gen) - 0.5) * 0.02 : std::exp(log_base(gen));
        const double e = (unit(gen) - 0.5) * (i % 4 < 2 ? 2e5 : 400.0);
        const double y = i % 2 == 0 ? std::round(e) : e;
        const long double ref = powl(x, y);
        if (!(std::fabs(static_cast<double>(ref)) > 1e-300 && std::fabs(static_cast<double>(ref)) < 1e300)) continue;
        EXPECT_LE(std::fabs(ulps(orvel::pow(x, y), ref)), 0.5 + 1.0 / 1024) << std::hexfloat << x << " ^ " << y;
    }
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
    const double cases[][2] = {{1.0, 0.0}, {0.0, -INFINITY}, {INFINITY, INFINITY}};  // x, log x = y, exp y = x
    for (const auto& c : cases) EXPECT_TRUE(orvel::log(c[0]) == c[1] && orvel::exp(c[1]) == c[0]) << c[0];
    EXPECT_TRUE(std::isnan(orvel::log(-1.0)) && orvel::exp(711.0) == INFINITY && orvel::exp(-750.0) == 0.0);
}

// log1p and expm1 against the x87 log1pl and expm1l, on the rates and exponents of the rate solves: within
// about an ulp, where pow is within half of one.
TEST(Power, Log1pAndExpm1WithinAnUlpOfLongDouble) {
    std::mt19937_64 gen(13);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    double worst_log = 0.0, worst_exp = 0.0;
    for (int i = 0; i < 400000; ++i) {
        // rates from 1e-12 to 10 a period, either sign below 1; exponents from 1e-12 to 700, either sign
        const double mag = std::pow(10.0, -12.0 + 13.0 * unit(gen));
        const double x = i % 2 == 0 ? mag : -std::fmin(mag, 0.999999);
        worst_log = std::max(worst_log, std::fabs(ulps(orvel::log1p(x), log1pl(x))));
        const double t = (i % 3 == 0 ? -1.0 : 1.0) * std::fmin(std::pow(10.0, -12.0 + 14.85 * unit(gen)), 700.0);
        worst_exp = std::max(worst_exp, std::fabs(ulps(orvel::expm1(t), expm1l(t))));
    }
    EXPECT_LE(worst_log, 1.2);  // measured 1.13 where log c and r cancel (1 + x just below 1 - 1/256)
    EXPECT_LE(worst_exp, 1.01);
    const double inf = INFINITY;
    const double log1p_cases[][2] = {{0.0, 0.0}, {-1.0, -inf}, {inf, inf}, {1e-300, 1e-300}, {-1e-300, -1e-300}};
    for (const auto& c : log1p_cases) EXPECT_EQ(orvel::log1p(c[0]), c[1]) << c[0];
    const double expm1_cases[][2] = {{0.0, 0.0}, {-50.0, -1.0}, {800.0, inf}, {1e-300, 1e-300}, {-1e-300, -1e-300}};
    for (const auto& c : expm1_cases) EXPECT_EQ(orvel::expm1(c[0]), c[1]) << c[0];
    for (double x : {-1.5, -inf, double{NAN}}) EXPECT_TRUE(std::isnan(orvel::log1p(x))) << x;
    EXPECT_TRUE(std::isnan(orvel::expm1(NAN)));
}

}  // namespace
