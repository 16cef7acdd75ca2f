// What the rows of tests/calls/frame.calls cannot say: sweeps over handles, places and the double range.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

#include "orvel/frame.h"

namespace {

// m + j/8 for odd j is an exact half at 2 places (0.125 is 12.5 hundredths): rounding must go away from
// zero and truncation toward it, for every handle and both signs; the expected value is the decimal
// worked out in whole hundredths.
TEST(TruncRound, ExactHalvesOverEveryHandle) {
    for (int64_t m = 0; m <= (int64_t{1} << 20); m += m < 5000 ? 1 : 997)
        for (int j : {1, 3, 5, 7}) {
            const double x = static_cast<double>(m) + j / 8.0;
            const int64_t tenths_of_cents = 1000 * m + 125 * j;  // x in thousandths, ending in 5
            const double up = static_cast<double>(tenths_of_cents + 5) / 1000.0;
            const double down = static_cast<double>(tenths_of_cents - 5) / 1000.0;
            for (double sign : {1.0, -1.0}) {
                EXPECT_DOUBLE_EQ(d_trunc_rnd(sign * x, 2, 1), sign * up) << sign * x;
                EXPECT_DOUBLE_EQ(d_trunc_rnd(sign * x, 2, 0), sign * down) << sign * x;
            }
        }
}

// Every int32 places against doubles from the smallest denormal to the largest finite: the result is a
// number of num's sign, within one step of the places' grid of num (a step of 1 for negative places), and
// truncation never moves away from zero by more than the rounding of the scaling.
TEST(TruncRound, EveryPlacesOverTheDoubleRange) {
    const double dmin = std::numeric_limits<double>::denorm_min();
    const double nums[] = {dmin,   3 * dmin, 1e-320, 2.2250738585072014e-308, 1e-300, 1e-290, 1e-17, 0.1,
                           0.5,    1.3065,   2.5,    99.999999, 4503599627370495.5, 9007199254740993.0, 1e300,
                           std::numeric_limits<double>::max()};
    auto check = [](double num, int32_t places) {
        const double grid = places < 0 ? 1.0 : places > 400 ? 0.0 : std::pow(10.0, -static_cast<double>(places));
        for (int32_t rnd : {0, 1, INT32_MIN})
            for (double x : {num, -num}) {
                const double r = d_trunc_rnd(x, places, rnd);
                SCOPED_TRACE(testing::Message() << x << " to " << places << " places, rnd " << rnd << ": " << r);
                ASSERT_TRUE(std::isfinite(r) && std::signbit(r) == std::signbit(x));
                const double slack = 4 * (std::nextafter(std::fabs(x), INFINITY) - std::fabs(x));
                ASSERT_LE(std::fabs(r - x), grid + slack);
                ASSERT_TRUE(rnd != 0 || std::fabs(r) <= std::fabs(x) + slack) << "truncation moved away from zero";
            }
    };
    for (double num : nums) {
        for (int32_t places = -400; places <= 400; ++places) check(num, places);
        for (int32_t places : {INT32_MIN, INT32_MIN + 1, -1000000, 1000000, INT32_MAX}) check(num, places);
    }
}

}  // namespace
