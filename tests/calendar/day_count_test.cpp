// The 30/360 kernels on every month-end shape, against counts worked by hand. The dispatcher, the actual
// counts and the year bases are rows of tests/calls/calendar.calls.
#include <gtest/gtest.h>

#include <vector>

#include "orvel/calendar.h"

namespace {

// Each 30/360 rule on every month-end shape: the 31st, the 30th of 30- and 31-day months, 28 February of
// a common year (its month end) and of a leap year (not its month end), 29 February, first date and
// second date, forwards and backwards. The comment of each row is the working: whole months * 30, then
// the adjusted days d1' -> d2' of the rules (NASD, SIA, AIBD (30E), month end (me), Eur) where they differ.
TEST(Thirty360, MonthEndShapesAgainstHandCounts) {
    const int32_t rows[][11] = {
        // m1 d1 y1 m2 d2 y2, nasd (= msrb), sia, aibd, month end, eur
        {1, 31, 2001, 3, 31, 2001, 60, 60, 60, 60, 61},  // 60: 30 -> 30; eur 30 -> 4/1: 90 - 30 + 1
        {1, 30, 2001, 3, 31, 2001, 60, 60, 60, 60, 61},  // 60: d1 30 lets d2 31 be 30; eur 90 - 30 + 1
        {1, 29, 2001, 3, 31, 2001, 62, 62, 61, 61, 62},  // 60: 29 -> 31; aibd, me 29 -> 30; eur 90-29+1
        {2, 28, 2001, 3, 31, 2001, 33, 30, 32, 30, 33},  // 30: 28->31; sia, me 30->30; aibd 28->30; eur 60-28+1
        {2, 28, 2001, 2, 28, 2002, 360, 360, 360, 360, 360},  // 360: sia (Feb ends), me 30 -> 30; others 28 -> 28
        {2, 28, 2001, 8, 28, 2001, 180, 178, 180, 178, 180},  // 180: sia, me 30 -> 28; others 28 -> 28
        {2, 28, 2000, 2, 29, 2000, 1, 1, 1, 2, 1},  // 0: 2/28/2000 is no month end: 28 -> 29; me 28 -> 30
        {2, 29, 2000, 3, 31, 2000, 32, 30, 31, 30, 32},  // 30: 29 -> 31; sia, me 30 -> 30; aibd 29 -> 30
        {2, 29, 2000, 2, 28, 2001, 359, 360, 359, 360, 359},  // 360: 29 -> 28; sia (Feb ends), me 30 -> 30
        {2, 28, 2001, 2, 29, 2004, 1081, 1080, 1081, 1080, 1081},  // 1080: 28 -> 29; sia (Feb ends), me 30 -> 30
        {3, 31, 2001, 4, 30, 2001, 30, 30, 30, 30, 30},  // 30: the 31st is 30 in every rule
        {4, 30, 2001, 5, 31, 2001, 30, 30, 30, 30, 31},  // 30: 30 -> 30; eur 30 -> 6/1: 60 - 30 + 1
        {4, 30, 2001, 5, 30, 2001, 30, 30, 30, 30, 30},  // 30: 5/30 is no month end
        {1, 15, 2001, 2, 28, 2001, 43, 43, 43, 45, 43},  // 30: 15 -> 28 (sia: no first Feb end); me 15 -> 30
        {1, 31, 2001, 2, 28, 2001, 28, 28, 28, 30, 28},  // 30: 30 -> 28; me 30 -> 30
        {2, 28, 2001, 3, 30, 2001, 32, 30, 32, 30, 32},  // 30: 28 -> 30; sia, me 30 -> 30
        {12, 31, 2001, 12, 31, 2002, 360, 360, 360, 360, 361},  // 360: eur 12/31 -> 1/1/2003: 13 x 30 - 30 + 1
        {7, 31, 2001, 8, 31, 2001, 30, 30, 30, 30, 31},  // 30: eur 30 -> 9/1: 60 - 30 + 1
        {8, 15, 2001, 8, 31, 2001, 16, 16, 15, 15, 16},  // 0: d1 15 leaves d2 31; aibd, me 15 -> 30
        {5, 31, 2001, 5, 15, 2001, -15, -15, -15, -15, -15},  // 0, backwards: 30 -> 15
        {3, 31, 2001, 2, 28, 2001, -32, -32, -32, -30, -32},  // -30: 30 -> 28; me 30 -> 30
        {2, 29, 2000, 2, 29, 2000, 0, 0, 0, 0, 0},  // 0: equal February month ends
        {5, 31, 2001, 5, 31, 2001, 0, 0, 0, 0, 1},  // 0: 30 -> 30; eur rolls the second to 6/1
    };
    for (const auto& r : rows) {
        const auto count = [&r](auto kernel) { return kernel(r[0], r[1], r[2], r[3], r[4], r[5]); };
        const int32_t got[] = {count(days_nasd360), count(days_msrb360), count(days_sia360), count(days_aibd360),
                               count(days_new360), count(days_eurp360)};
        EXPECT_EQ(std::vector<int32_t>(got, got + 6), std::vector<int32_t>({r[6], r[6], r[7], r[8], r[9], r[10]}))
            << r[0] << "/" << r[1] << "/" << r[2] << " to " << r[3] << "/" << r[4] << "/" << r[5];
    }
}

}  // namespace
