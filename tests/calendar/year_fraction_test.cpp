#include <gtest/gtest.h>

#include "orvel/calendar.h"

namespace {

struct YearsRow {
    int32_t m1, d1, y1, m2, d2, y2, day_type;
    double years;
};

TEST(YearsBetween, AnniversariesAndDayCounts) {
    const YearsRow rows[] = {
        {2, 29, 2000, 2, 28, 2001, 1, 1.0},          // the February month end of 2001 is the anniversary
        {1, 15, 2001, 1, 15, 2004, 1, 3.0},          // on an anniversary: whole years
        {1, 1, 2000, 7, 2, 2000, 1, 183.0 / 366.0},  // in the leap anniversary year
        {7, 1, 1999, 7, 1, 2000, 8, 1.0},
        {7, 1, 1999, 1, 1, 2000, 7, 184.0 / 366.0},  // anniversary year 7/1/1999..7/1/2000 holds 29 Feb
        {3, 1, 2000, 2, 28, 2001, 1, 364.0 / 365.0},
        // 2/28/2001 is a month end, so its anniversaries are month ends: 2/28/2003 to 2/29/2004 is the
        // last anniversary year, and 2/28/2004 lies a day before its end
        {2, 28, 2001, 2, 28, 2004, 1, 2.0 + 365.0 / 366.0},
        // 2/28/2004 is no month end, but its anniversary 2/28/2007 is, so that anniversary year runs to
        // 2/29/2008: four years less a day of 366
        {2, 28, 2004, 2, 28, 2008, 1, 3.0 + 365.0 / 366.0},
        {6, 10, 2001, 6, 10, 2001, 1, 0.0},
        {1, 31, 2001, 7, 31, 2001, 2, 0.5},            // 180 / 360
        {2, 28, 2001, 8, 28, 2001, 4, 178.0 / 360.0},  // SIA February end
        {1, 1, 2000, 1, 1, 2001, 12, 366.0 / 365.0},
        {1, 1, 2000, 1, 1, 2001, 13, 1.0},  // no leap days
        {1, 1, 2000, 1, 1, 2001, 9, 1.0},
    };
    for (const YearsRow& r : rows) {
        SCOPED_TRACE(testing::Message() << r.m1 << "/" << r.d1 << "/" << r.y1 << " to " << r.m2 << "/" << r.d2 << "/"
                                        << r.y2 << ", day_type " << r.day_type);
        uint32_t err = 0;
        EXPECT_NEAR(years_b_MDYs(r.m1, r.d1, r.y1, r.m2, r.d2, r.y2, r.day_type, 1, &err), r.years, 1e-15);
        EXPECT_EQ(err, 0u);
    }
}

TEST(YearsBetween, SecondDateFirstIsAnError) {
    uint32_t err = 0;
    EXPECT_EQ(years_b_MDYs(1, 2, 2001, 1, 1, 2001, 1, 1, &err), 0.0);
    EXPECT_EQ(err, 2000u);
    err = 0;
    EXPECT_EQ(years_b_MDYs(1, 1, 2001, 1, 2, 2001, 0, 1, &err), 0.0);
    EXPECT_EQ(err, 500u);
}

TEST(IsdaFraction, ActualSplitsAtYearEnds) {
    uint32_t err = 0;
    int32_t basis = 0;
    EXPECT_DOUBLE_EQ(isda_dcf(7, 1, 1999, 7, 1, 2000, 1, 0, 0, 0, &basis, 1, &err), 184.0 / 365 + 182.0 / 366);
    EXPECT_EQ(basis, -1);
    EXPECT_DOUBLE_EQ(isda_dcf(3, 1, 2004, 9, 1, 2004, 1, 0, 0, 0, &basis, 1, &err), 184.0 / 366);
    EXPECT_EQ(basis, 366);
    EXPECT_DOUBLE_EQ(isda_dcf(1, 1, 2001, 1, 1, 2003, 1, 0, 0, 0, &basis, 1, &err), 2.0);
    EXPECT_EQ(basis, 365);
    EXPECT_DOUBLE_EQ(isda_dcf(1, 1, 2004, 1, 1, 2005, 1, 0, 0, 0, &basis, 1, &err), 1.0);
    EXPECT_EQ(basis, 366);  // 1/1/2005 ends the period: 2005 has no day in it
    EXPECT_DOUBLE_EQ(isda_dcf(7, 1, 2003, 7, 1, 2005, 1, 0, 0, 0, &basis, 1, &err), 184.0 / 365 + 1 + 181.0 / 365);
    EXPECT_EQ(basis, -1);
    EXPECT_DOUBLE_EQ(isda_dcf(1, 31, 2001, 7, 31, 2001, 2, 0, 0, 0, &basis, 1, &err), 0.5);
    EXPECT_EQ(basis, 360);
    EXPECT_DOUBLE_EQ(isda_dcf(1, 1, 2000, 1, 1, 2001, 8, 0, 0, 0, &basis, 1, &err), 366.0 / 365);
    EXPECT_EQ(basis, 365);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(isda_dcf(1, 2, 2001, 1, 1, 2001, 1, 0, 0, 0, &basis, 1, &err), 0.0);
    EXPECT_EQ(err, 2000u);
}

struct ActYrRow {
    int32_t method, expected;
};

TEST(ActualYear, EveryMethod) {
    // date1 3/1/1999 (settlement), date2 1/15/2000 (dated), date3 9/1/1999 (maturity)
    const ActYrRow rows[] = {
        {1, 366},                                 // 3/1/1999 to 3/1/2000 holds 29 Feb 2000
        {2, 366},                                 // 1/15/2000 to 1/15/2001
        {3, 365},                                 // 3/1/1998 to 3/1/1999
        {4, 365},                                 // 9/1/1998 to 9/1/1999
        {5, 365}, {6, 366},  {7, 365}, {8, 365},  // 3/1/1999..9/1/1999 holds no 29 February
        {9, 365}, {10, 366}, {11, 0},  {0, 0},
    };
    for (const ActYrRow& r : rows) {
        SCOPED_TRACE(r.method);
        uint32_t err = 0;
        EXPECT_EQ(days_act_yr(3, 1, 1999, 1, 15, 2000, 9, 1, 1999, r.method, 1, &err), r.expected);
        if (r.method != 11) {  // the companion's own method: the coupon period date2..date3
            EXPECT_EQ(days_actf_yr(3, 1, 1999, 1, 15, 2000, 9, 1, 1999, r.method, 2, 1, &err), r.expected);
        }
        EXPECT_EQ(err, 0u);
    }
    uint32_t err = 0;
    EXPECT_EQ(days_act_yr(9, 1, 1999, 0, 0, 0, 3, 1, 2000, 8, 1, &err), 366);    // 29 Feb 2000 inside
    EXPECT_EQ(days_act_yr(2, 29, 2000, 0, 0, 0, 2, 28, 2001, 8, 1, &err), 366);  // on the first day
    EXPECT_EQ(days_act_yr(3, 1, 2000, 0, 0, 0, 3, 1, 2001, 8, 1, &err), 365);
    EXPECT_EQ(days_act_yr(1, 1, 2000, 0, 0, 0, 1, 3, 2001, 8, 1, &err), 0);  // 368 days
    EXPECT_EQ(days_act_yr(1, 1, 2000, 0, 0, 0, 1, 1, 2000, 8, 1, &err), 0);  // 0 days
    EXPECT_EQ(err, 0u);  // date2 is not read by these methods, so its blank passes
}

TEST(ActualYear, ByCouponPeriod) {
    uint32_t err = 0;
    // the period 1/1/2000..7/1/2000 is 182 days
    EXPECT_EQ(days_actf_yr(3, 1, 2000, 1, 1, 2000, 7, 1, 2000, 11, 2, 1, &err), 364);
    EXPECT_EQ(days_actf_yr(3, 1, 2000, 0, 0, 0, 7, 1, 2000, 12, 2, 1, &err), 364);
    EXPECT_EQ(days_actf_yr(5, 1, 2000, 0, 0, 0, 7, 1, 2000, 12, 4, 1, &err), 364);   // 4/1..7/1: 91
    EXPECT_EQ(days_actf_yr(6, 5, 2000, 0, 0, 0, 7, 1, 2000, 12, 12, 1, &err), 360);  // 6/1..7/1: 30
    EXPECT_EQ(days_actf_yr(6, 5, 2000, 0, 0, 0, 7, 1, 2000, 12, 1, 1, &err), 366);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(days_actf_yr(6, 5, 2000, 0, 0, 0, 7, 1, 2000, 12, 3, 1, &err), 0);
    EXPECT_EQ(err, 600u);
}

}  // namespace
