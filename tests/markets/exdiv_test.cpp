// Ex-dividend dates over every coupon day of 1996..2010 (monthly coupons, days 1..28): the UK and German
// business-day rules against a day-by-day walk over a holiday table, the Austrian and Irish rules against
// what their dates must be, and -1 conventions against the market's defaults spelled out.
#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "orvel/calendar.h"
#include "orvel/markets.h"

namespace {

int32_t dow(int32_t j) { return j % 7 + 1; }

TEST(ExDividend, EveryCouponDayAgainstAWalk) {
    std::vector<int32_t> table;  // a weekday holiday every eleven days or so
    for (int32_t j = MDY_2_julian(12, 1, 1995); j < MDY_2_julian(1, 1, 2011); ++j)
        if (j % 11 == 0 && dow(j) <= 5) table.push_back(j);
    const std::set<int32_t> hol(table.begin(), table.end());
    const auto business = [&](int32_t j) { return dow(j) <= 5 && hol.count(j) == 0; };
    const auto n_hol = static_cast<int32_t>(table.size());
    for (int32_t jn = MDY_2_julian(1, 1, 1996); jn <= MDY_2_julian(12, 31, 2010); ++jn) {
        int32_t m, d, y, sm, sd, sy, em, ed, ey;
        julian_2_MDY(jn, &m, &d, &y);
        if (d > 28) continue;
        julian_2_MDY(jn - 1, &sm, &sd, &sy);
        SCOPED_TRACE(testing::Message() << "coupon " << m << "/" << d << "/" << y);
        uint32_t err = 0;
        // UK: after the first weeks of 1996, six business days before the coupon.
        ukgb_exd(12, 0, 12, sm, sd, sy, m, d, y + 5, 0, 0, 0, 0, 0, 0, 0, 0, n_hol, table.data(), &em, &ed, &ey, 1, &err);
        int32_t want = jn;  // a coupon on no business day counts from the business day before
        while (!business(want)) --want;
        for (int32_t k = 0; k < 6; ++k) do --want; while (!business(want));
        EXPECT_TRUE(jn <= MDY_2_julian(2, 8, 1996) || MDY_2_julian(em, ed, ey) == want);
        int32_t um, ud, uy;  // -1 takes the gilt defaults: actual/365, no month-end rule, semi-annual
        ukgb_exd(-1, -1, -1, sm, sd, sy, m, d, y + 5, 0, 0, 0, 0, 0, 0, 0, 0, n_hol, table.data(), &um, &ud, &uy, 1, &err);
        ukgb_exd(12, 0, 2, sm, sd, sy, m, d, y + 5, 0, 0, 0, 0, 0, 0, 0, 0, n_hol, table.data(), &em, &ed, &ey, 1, &err);
        EXPECT_EQ(MDY_2_julian(um, ud, uy), MDY_2_julian(em, ed, ey));
        // Germany: the 1st, the 16th or the 16th of the month before, then the next business day.
        gmgb_exd(-1, 0, 12, sm, sd, sy, m, d, y + 5, 0, 0, 0, 0, 0, 0, 1, n_hol, table.data(), &em, &ed, &ey, 1, &err);
        const int32_t sixteenth_before = jn - d - last_dom(m == 1 ? 12 : m - 1, y) + 16;
        want = d >= 3 && d <= 16 ? MDY_2_julian(m, 1, y) : d > 16 ? MDY_2_julian(m, 16, y) : sixteenth_before;
        while (!business(want)) ++want;
        EXPECT_EQ(MDY_2_julian(em, ed, ey), want);
        // Austria: a Monday of the coupon's month, in its first week for the 10th..24th, else the third.
        augb_exd(-1, -1, 12, sm, sd, sy, m, d, y + 5, 0, 0, 0, 0, 0, 0, &em, &ed, &ey, 1, &err);
        EXPECT_EQ(dow(MDY_2_julian(em, ed, ey)), 1);
        EXPECT_EQ(em, m);
        EXPECT_EQ((ed - 1) / 7, d >= 10 && d <= 24 ? 0 : 2);
        // Ireland: a Wednesday two days after the Monday that starts the week of N - 21.
        irgb_exd(-1, -1, 12, sm, sd, sy, m, d, y + 5, 0, 0, 0, 0, 0, 0, &em, &ed, &ey, 1, &err);
        EXPECT_EQ(dow(MDY_2_julian(em, ed, ey)), 3);
        const int32_t from_monday = jn - 21 - (MDY_2_julian(em, ed, ey) - 2);
        EXPECT_TRUE(from_monday >= 0 && from_monday <= 6) << from_monday;
        ASSERT_EQ(err, 0u);
    }
}

}  // namespace
