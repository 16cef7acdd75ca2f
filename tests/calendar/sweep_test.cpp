// Every date from 1/1/1800 to 12/31/2300, against std::chrono's civil calendar (an independent
// implementation of the proleptic Gregorian calendar) and against the identities between the functions.
#include <gtest/gtest.h>

#include <chrono>

#include "orvel/calendar.h"

namespace {

namespace chr = std::chrono;

constexpr chr::sys_days first_day = chr::sys_days{chr::year{1800} / 1 / 1};
constexpr chr::sys_days last_day = chr::sys_days{chr::year{2300} / 12 / 31};
// The julian number of 1/1/1970, the epoch of sys_days (1/1/2000 is 2451545, 10957 days later).
constexpr int32_t julian_of_epoch = 2451545 - 10957;

struct Civil {
    int32_t m, d, y;
};

Civil civil(chr::sys_days day) {
    const chr::year_month_day ymd{day};
    return {static_cast<int32_t>(static_cast<unsigned>(ymd.month())),
            static_cast<int32_t>(static_cast<unsigned>(ymd.day())), static_cast<int32_t>(ymd.year())};
}

TEST(DateSweep, JulianMatchesCivilCalendarAndRoundTrips) {
    int failures = 0;
    for (chr::sys_days day = first_day; day <= last_day && failures < 5; day += chr::days{1}) {
        const Civil c = civil(day);
        const int32_t expected = julian_of_epoch + static_cast<int32_t>(day.time_since_epoch().count());
        const int32_t j = MDY_2_julian(c.m, c.d, c.y);
        int32_t m = 0, d = 0, y = 0;
        const int32_t year = julian_2_MDY(j, &m, &d, &y);
        if (j != expected || m != c.m || d != c.d || y != c.y || year != c.y) {
            ADD_FAILURE() << c.m << "/" << c.d << "/" << c.y << ": julian " << j << " (expected " << expected
                          << "), back " << m << "/" << d << "/" << y;
            ++failures;
        }
    }
}

TEST(DateSweep, PublishedDayNumbersOfTheRange) {
    EXPECT_EQ(MDY_2_julian(1, 1, 1800), 2378497);
    EXPECT_EQ(MDY_2_julian(1, 1, 2000), 2451545);
    EXPECT_EQ(MDY_2_julian(12, 31, 2300), 2561482);
}

// days_act runs on its own serial number; every difference must equal the julian difference. Checked
// from a fixed origin and between neighbours a year apart, which covers every month and leap-day shape.
TEST(DateSweep, ActualDaysEqualJulianDifferences) {
    int failures = 0;
    const Civil origin{1, 1, 1800};
    const int32_t j0 = MDY_2_julian(origin.m, origin.d, origin.y);
    for (chr::sys_days day = first_day; day <= last_day && failures < 5; day += chr::days{1}) {
        const Civil c = civil(day);
        const Civil later = civil(day + chr::days{366});
        const int32_t from_origin = days_act(origin.m, origin.d, origin.y, c.m, c.d, c.y);
        const int32_t across = days_act(c.m, c.d, c.y, later.m, later.d, later.y);
        const int32_t back = days_act(later.m, later.d, later.y, c.m, c.d, c.y);
        if (from_origin != MDY_2_julian(c.m, c.d, c.y) - j0 || across != 366 || back != -366) {
            ADD_FAILURE() << c.m << "/" << c.d << "/" << c.y << ": " << from_origin << " " << across << " " << back;
            ++failures;
        }
    }
}

TEST(DateSweep, WeekdaysCycleFromSaturdayFirstOfJanuary2000) {
    uint32_t err = 0;
    EXPECT_EQ(MDY_2_dow(1, 1, 2000, 1, &err), 6);
    EXPECT_EQ(err, 0u);
    int failures = 0;
    for (chr::sys_days day = first_day; day <= last_day && failures < 5; day += chr::days{1}) {
        const Civil c = civil(day);
        const unsigned iso = chr::weekday{day}.iso_encoding();  // 1 Monday .. 7 Sunday
        if (MDY_2_dow(c.m, c.d, c.y, 1, &err) != static_cast<int32_t>(iso)) {
            ADD_FAILURE() << c.m << "/" << c.d << "/" << c.y << ": " << MDY_2_dow(c.m, c.d, c.y, 0, &err);
            ++failures;
        }
    }
    EXPECT_EQ(err, 0u);
}

TEST(DateSweep, DayOfYearBothWays) {
    uint32_t err = 0;
    int failures = 0;
    for (chr::sys_days day = first_day; day <= last_day && failures < 5; day += chr::days{1}) {
        const Civil c = civil(day);
        const chr::sys_days jan1{chr::year{c.y} / 1 / 1};
        const int32_t expected = static_cast<int32_t>((day - jan1).count()) + 1;
        int32_t m = 0, d = 0, y = 0;
        const int32_t doy = MDY_2_doy(c.m, c.d, c.y, 1, &err);
        const int32_t year = doy_2_MDY(expected, c.y, &m, &d, &y, 1, &err);
        if (doy != expected || m != c.m || d != c.d || y != c.y || year != c.y) {
            ADD_FAILURE() << c.m << "/" << c.d << "/" << c.y << ": doy " << doy << " expected " << expected;
            ++failures;
        }
    }
    EXPECT_EQ(err, 0u);
}

TEST(DateSweep, LeapYearsAndMonthEndsMatchCivilCalendar) {
    for (int32_t y = 1800; y <= 2300; ++y) {
        SCOPED_TRACE(y);
        ASSERT_EQ(is_leap_year(y), chr::year{y}.is_leap() ? 1 : 0);
        for (int32_t m = 1; m <= 12; ++m) {
            const chr::year_month_day_last end{chr::year{y}, chr::month_day_last{chr::month(static_cast<unsigned>(m))}};
            const int32_t last = static_cast<int32_t>(static_cast<unsigned>(end.day()));
            ASSERT_EQ(last_dom(m, y), last) << "month " << m;
            ASSERT_EQ(is_last_dom(m, last, y), 1);
            ASSERT_EQ(is_last_dom(m, last - 1, y), 0);
        }
    }
}

}  // namespace
