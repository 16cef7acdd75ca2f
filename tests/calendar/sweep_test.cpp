// Every date from 1/1/1800 to 12/31/2300 against std::chrono's civil calendar (an independent
// implementation of the proleptic Gregorian calendar) and against the identities between the functions.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "orvel/calendar.h"

namespace {

namespace chr = std::chrono;

struct MDY {
    int32_t m, d, y;
    bool operator==(const MDY&) const = default;
};
std::ostream& operator<<(std::ostream& os, const MDY& v) { return os << v.m << "/" << v.d << "/" << v.y; }

MDY civil(chr::sys_days day) {
    const chr::year_month_day ymd{day};
    return {static_cast<int32_t>(static_cast<unsigned>(ymd.month())),
            static_cast<int32_t>(static_cast<unsigned>(ymd.day())), static_cast<int32_t>(ymd.year())};
}

// The julian number against the civil day count (1/1/2000 is 2451545, 10957 days after 1/1/1970) and back;
// the weekday against the ISO weekday; the day of year both ways; days_act, which runs on its own serial
// number, against julian differences from a fixed origin and across 366 days either way.
TEST(DateSweep, EveryDayAgainstTheCivilCalendar) {
    constexpr int32_t julian_of_epoch = 2451545 - 10957;
    const chr::sys_days first = chr::sys_days{chr::year{1800} / 1 / 1}, last = chr::sys_days{chr::year{2300} / 12 / 31};
    const int32_t j0 = MDY_2_julian(1, 1, 1800);
    uint32_t err = 0;
    int failures = 0;
    for (chr::sys_days day = first; day <= last && failures < 5; day += chr::days{1}) {
        const MDY c = civil(day), later = civil(day + chr::days{366});
        const int32_t j = MDY_2_julian(c.m, c.d, c.y);
        MDY back{};
        const int32_t year = julian_2_MDY(j, &back.m, &back.d, &back.y);
        const auto doy = static_cast<int32_t>((day - chr::sys_days{chr::year{c.y} / 1 / 1}).count()) + 1;
        MDY from_doy{};
        const int32_t doy_year = doy_2_MDY(doy, c.y, &from_doy.m, &from_doy.d, &from_doy.y, 1, &err);
        const bool ok = j == julian_of_epoch + static_cast<int32_t>(day.time_since_epoch().count()) && back == c &&
                        year == c.y &&
                        MDY_2_dow(c.m, c.d, c.y, 1, &err) == static_cast<int32_t>(chr::weekday{day}.iso_encoding()) &&
                        MDY_2_doy(c.m, c.d, c.y, 1, &err) == doy && from_doy == c && doy_year == c.y &&
                        days_act(1, 1, 1800, c.m, c.d, c.y) == j - j0 &&
                        days_act(c.m, c.d, c.y, later.m, later.d, later.y) == 366 &&
                        days_act(later.m, later.d, later.y, c.m, c.d, c.y) == -366;
        if (!ok) {
            ADD_FAILURE() << c << ": julian " << j << ", back " << back << ", day of year " << doy;
            ++failures;
        }
    }
    EXPECT_EQ(err, 0u);
}

TEST(DateSweep, LeapYearsAndMonthEndsMatchTheCivilCalendar) {
    for (int32_t y = 1800; y <= 2300; ++y) {
        ASSERT_EQ(is_leap_year(y), chr::year{y}.is_leap() ? 1 : 0) << y;
        for (int32_t m = 1; m <= 12; ++m) {
            const chr::year_month_day_last end{chr::year{y}, chr::month_day_last{chr::month(static_cast<unsigned>(m))}};
            const auto last = static_cast<int32_t>(static_cast<unsigned>(end.day()));
            ASSERT_EQ(last_dom(m, y), last) << m << "/" << y;
            ASSERT_EQ(is_last_dom(m, last, y), 1) << m << "/" << y;
            ASSERT_EQ(is_last_dom(m, last - 1, y), 0) << m << "/" << y;
        }
    }
}

// Every date moved by several month counts: the same day in the target month, lowered to its end when it
// does not exist, or its end when the date was a month end and eom is set.
TEST(DateSweep, MonthStepsAgainstTheCivilCalendar) {
    const int32_t steps[] = {1, -1, 6, -7, 12, 25, -120};
    int failures = 0;
    for (chr::sys_days day = chr::sys_days{chr::year{1811} / 1 / 1};
         day <= chr::sys_days{chr::year{2289} / 12 / 31} && failures < 5; day += chr::days{1}) {
        const chr::year_month_day ymd{day};
        const MDY from = civil(day);
        const bool month_end = chr::year_month_day_last{ymd.year(), chr::month_day_last{ymd.month()}}.day() == ymd.day();
        for (int32_t n : steps) {
            const chr::year_month target = chr::year_month{ymd.year(), ymd.month()} + chr::months{n};
            const auto last = static_cast<int32_t>(
                static_cast<unsigned>(chr::year_month_day_last{target.year(), chr::month_day_last{target.month()}}.day()));
            const MDY plain{static_cast<int32_t>(static_cast<unsigned>(target.month())), std::min(from.d, last),
                            static_cast<int32_t>(target.year())};
            const MDY with_eom{plain.m, month_end ? last : plain.d, plain.y};
            MDY a = from, b = from;
            incr_by_mths(n, &a.m, &a.d, &a.y, 0);
            incr_by_mths(n, &b.m, &b.d, &b.y, 1);
            if (!(a == plain) || !(b == with_eom)) {
                ADD_FAILURE() << from << " + " << n << " months: " << a << ", with eom " << b;
                ++failures;
            }
        }
    }
}

}  // namespace
