#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>

#include "orvel/calendar.h"

namespace {

struct MDY {
    int32_t m, d, y;
    bool operator==(const MDY&) const = default;
};

std::ostream& operator<<(std::ostream& os, const MDY& v) { return os << v.m << "/" << v.d << "/" << v.y; }

MDY months_on(MDY from, int32_t n, int32_t eom) {
    incr_by_mths(n, &from.m, &from.d, &from.y, eom);
    return from;
}

struct MonthStep {
    MDY from;
    int32_t n, eom;
    MDY to;
};

TEST(MonthSteps, DayFixedToTheTargetMonth) {
    const MonthStep rows[] = {
        {{1, 31, 2001}, 1, 0, {2, 28, 2001}},  // lowered to the month end
        {{3, 31, 2000}, -1, 0, {2, 29, 2000}},
        {{2, 28, 2001}, 1, 0, {3, 28, 2001}},  // a month end kept only with eom
        {{2, 28, 2001}, 1, 1, {3, 31, 2001}},
        {{2, 28, 2000}, 1, 1, {3, 28, 2000}},     // 28 February 2000 is no month end
        {{1, 15, 2001}, -13, 0, {12, 15, 1999}},  // the month carried into the year
        {{12, 15, 2001}, -24, 0, {12, 15, 1999}},
        {{12, 15, 2001}, 1, 0, {1, 15, 2002}},
        {{1, 15, 2001}, -1, 0, {12, 15, 2000}},
        {{4, 30, 2001}, 1, 1, {5, 31, 2001}},
        {{4, 30, 2001}, 1, 0, {5, 30, 2001}},
        {{8, 31, 2001}, 0, 0, {8, 31, 2001}},
    };
    for (const MonthStep& r : rows) {
        SCOPED_TRACE(testing::Message() << r.from << " + " << r.n << " months, eom " << r.eom);
        EXPECT_EQ(months_on(r.from, r.n, r.eom), r.to);
    }
}

TEST(MonthSteps, CouponPeriods) {
    MDY v{8, 31, 1998};
    EXPECT_EQ(incr_by_pers(2, 2, &v.m, &v.d, &v.y, 1), 1999);
    EXPECT_EQ(v, (MDY{8, 31, 1999}));
    v = {8, 31, 1998};
    incr_by_pers(1, 0, &v.m, &v.d, &v.y, 0);  // a frequency below 1 is annual
    EXPECT_EQ(v, (MDY{8, 31, 1999}));
    v = {1, 31, 2001};
    incr_by_pers(1, 5, &v.m, &v.d, &v.y, 0);  // 12 / 5 = 2 months
    EXPECT_EQ(v, (MDY{3, 31, 2001}));
    v = {2, 28, 2001};
    incr_by_pers(-1, 4, &v.m, &v.d, &v.y, 1);
    EXPECT_EQ(v, (MDY{11, 30, 2000}));
}

// Every date of the range moved by several month counts, against std::chrono: the same day in the target
// month, lowered to its end when it does not exist, or its end when the date was a month end and eom is set.
TEST(MonthSteps, EveryDateAgainstCivilCalendar) {
    namespace chr = std::chrono;
    const int32_t steps[] = {1, -1, 6, -7, 12, 25, -120};
    int failures = 0;
    for (chr::sys_days day = chr::sys_days{chr::year{1811} / 1 / 1};
         day <= chr::sys_days{chr::year{2289} / 12 / 31} && failures < 5; day += chr::days{1}) {
        const chr::year_month_day ymd{day};
        const MDY from{static_cast<int32_t>(static_cast<unsigned>(ymd.month())),
                       static_cast<int32_t>(static_cast<unsigned>(ymd.day())), static_cast<int32_t>(ymd.year())};
        const bool month_end =
            chr::year_month_day_last{ymd.year(), chr::month_day_last{ymd.month()}}.day() == ymd.day();
        for (int32_t n : steps) {
            const chr::year_month target = chr::year_month{ymd.year(), ymd.month()} + chr::months{n};
            const unsigned last = static_cast<unsigned>(
                chr::year_month_day_last{target.year(), chr::month_day_last{target.month()}}.day());
            const unsigned day_kept = std::min(static_cast<unsigned>(ymd.day()), last);
            const MDY expect_plain{static_cast<int32_t>(static_cast<unsigned>(target.month())),
                                   static_cast<int32_t>(day_kept), static_cast<int32_t>(target.year())};
            MDY expect_eom = expect_plain;
            if (month_end) expect_eom.d = static_cast<int32_t>(last);
            if (months_on(from, n, 0) != expect_plain || months_on(from, n, 1) != expect_eom) {
                ADD_FAILURE() << from << " + " << n << " months";
                ++failures;
            }
        }
    }
}

TEST(DaySteps, InvalidDayCarriesIntoTheNextMonth) {
    MDY v{2, 30, 2001};
    EXPECT_EQ(incr_by_days(0, &v.m, &v.d, &v.y), 2001);
    EXPECT_EQ(v, (MDY{3, 2, 2001}));
    v = {2, 30, 2000};
    incr_by_days(0, &v.m, &v.d, &v.y);
    EXPECT_EQ(v, (MDY{3, 1, 2000}));
    v = {12, 20, 1999};
    EXPECT_EQ(incr_by_days(45, &v.m, &v.d, &v.y), 2000);
    EXPECT_EQ(v, (MDY{2, 3, 2000}));  // 11 days to 12/31, 31 in January, 3 in February
}

TEST(EomFixup, ReturnsTheTargetMonthEnd) {
    MDY to{2, 31, 2001};
    EXPECT_EQ(eom_fixup(1, 31, 2001, &to.m, &to.d, &to.y, 0), 28);
    EXPECT_EQ(to.d, 28);
    to = {3, 28, 2001};
    EXPECT_EQ(eom_fixup(2, 28, 2001, &to.m, &to.d, &to.y, 1), 31);
    EXPECT_EQ(to.d, 31);
    to = {3, 15, 2001};
    EXPECT_EQ(eom_fixup(2, 15, 2001, &to.m, &to.d, &to.y, 1), 31);
    EXPECT_EQ(to.d, 15);
}

struct YearStep {
    double yrs;
    MDY from;
    int32_t day_type;
    MDY to;
};

TEST(YearSteps, WholeAndFractionalYears) {
    const YearStep rows[] = {
        {3.0, {2, 28, 2001}, 1, {2, 29, 2004}},  // a month end stays a month end
        {1.0, {2, 29, 2000}, 1, {2, 28, 2001}},
        {1.0, {3, 15, 2000}, 2, {3, 15, 2001}},
        {0.5, {1, 31, 2001}, 2, {7, 31, 2001}},   // 180 days: 6 months (month end kept), 0 days
        {0.25, {1, 10, 2001}, 5, {4, 10, 2001}},  // 90 days: 3 months
        {0.1, {1, 10, 2001}, 2, {2, 16, 2001}},   // 36 days: 1 month and 6 days
        // 0.5 of 2000: 182 days -> 7/1 measures 182/366, 183 days -> 7/2 measures exactly 0.5
        {1.5, {1, 1, 2000}, 1, {7, 2, 2001}},
        // 0.5 of 2001 under no-leap days: 182 days -> 7/2/2001
        {0.5, {1, 1, 2001}, 9, {7, 2, 2001}},
        {0.0, {6, 30, 2001}, 1, {6, 30, 2001}},
    };
    uint32_t err = 0;
    for (const YearStep& r : rows) {
        SCOPED_TRACE(testing::Message() << r.from << " + " << r.yrs << " years, day_type " << r.day_type);
        MDY v = r.from;
        EXPECT_EQ(incr_by_yrs(r.yrs, &v.m, &v.d, &v.y, r.day_type, 1, &err), r.to.y);
        EXPECT_EQ(v, r.to);
    }
    EXPECT_EQ(err, 0u);
}

TEST(YearSteps, RejectedYearsLeaveTheDate) {
    const double bad[] = {-1.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                          1e300};
    for (double yrs : bad) {
        SCOPED_TRACE(yrs);
        MDY v{6, 15, 2001};
        uint32_t err = 0;
        EXPECT_EQ(incr_by_yrs(yrs, &v.m, &v.d, &v.y, 1, 1, &err), 0);
        EXPECT_EQ(err, 5200u);
        EXPECT_EQ(v, (MDY{6, 15, 2001}));
    }
    MDY v{2, 30, 2001};
    uint32_t err = 0;
    EXPECT_EQ(incr_by_yrs(1.0, &v.m, &v.d, &v.y, 1, 1, &err), 0);
    EXPECT_EQ(err, 1300u);
    v = {2, 1, 2001};
    err = 0;
    EXPECT_EQ(incr_by_yrs(1.0, &v.m, &v.d, &v.y, -1, 1, &err), 0);
    EXPECT_EQ(err, 501u);
}

TEST(DayOfYear, DayThreeHundredSixtySixOfACommonYear) {
    MDY v{};
    uint32_t err = 0;
    EXPECT_EQ(doy_2_MDY(366, 1999, &v.m, &v.d, &v.y, 0, &err), 2000);
    EXPECT_EQ(v, (MDY{1, 1, 2000}));
    EXPECT_EQ(doy_2_MDY(366, 2000, &v.m, &v.d, &v.y, 1, &err), 2000);
    EXPECT_EQ(v, (MDY{12, 31, 2000}));
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(doy_2_MDY(0, 2000, &v.m, &v.d, &v.y, 1, &err), 0);
    EXPECT_EQ(err, 5103u);
    err = 0;
    EXPECT_EQ(doy_2_MDY(10, 2301, &v.m, &v.d, &v.y, 1, &err), 0);
    EXPECT_EQ(err, 5104u);
}

TEST(PackedDates, WindowsAndNationalOrders) {
    EXPECT_EQ(dt_2_YYYY(950630, 50), 1995);
    EXPECT_EQ(dt_2_YYYY(200630, 50), 2020);
    EXPECT_EQ(dt_2_YYYY(500630, 50), 2050);  // the pivot itself is in the 2000s
    EXPECT_EQ(dt_2_YYYY(19950630, 50), 1995);
    EXPECT_EQ(MDY_2_dt(6, 30, 1995), 19950630);
    EXPECT_EQ(dt_2_MM(19950630), 6);
    EXPECT_EQ(dt_2_DD(19950630), 30);
    EXPECT_EQ(dtA_2_dtE(123195), 311295);
    EXPECT_EQ(dtE_2_dtA(311295), 123195);
    EXPECT_EQ(dtA_2_dtE(10100), 10100);  // 1/1/00 reads the same in both orders
    EXPECT_EQ(dtA_2_dtE(70401), 40701);
}

}  // namespace
