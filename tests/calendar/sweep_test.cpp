// Every date from 1/1/1800 to 12/31/2300 against std::chrono's civil calendar (an independent
// implementation of the proleptic Gregorian calendar) and against the identities between the functions.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <random>
#include <vector>

#include "orvel/calendar.h"

namespace {

namespace chr = std::chrono;

struct MDY {
    int32_t m, d, y;
    bool operator==(const MDY&) const = default;
};
std::ostream& operator<<(std::ostream& os, const MDY& v) { return os << v.m << "/" << v.d << "/" << v.y; }

MDY of_julian(int32_t j) {
    MDY v{};
    julian_2_MDY(j, &v.m, &v.d, &v.y);
    return v;
}
int32_t last_of(chr::year y, chr::month m) {
    return int32_t(unsigned(chr::year_month_day_last{y, chr::month_day_last{m}}.day()));
}
MDY civil(chr::sys_days day) {
    const chr::year_month_day ymd{day};
    return {int32_t(unsigned(ymd.month())), int32_t(unsigned(ymd.day())), int32_t(ymd.year())};
}

// The julian number against the civil day count (1/1/2000 is 2451545, 10957 days after 1/1/1970) and back;
// the weekday against the ISO weekday; the day of year both ways; leap years and month ends; days_act, which runs on its own serial
// number, against julian differences from a fixed origin and across 366 days either way.
TEST(DateSweep, EveryDayAgainstTheCivilCalendar) {
    constexpr int32_t julian_of_epoch = 2451545 - 10957;
    const int32_t j0 = MDY_2_julian(1, 1, 1800);
    uint32_t err = 0;
    for (auto day = chr::sys_days{chr::year{1800} / 1 / 1}; day <= chr::sys_days{chr::year{2300} / 12 / 31} &&
                                                            !HasFailure(); day += chr::days{1}) {
        const MDY c = civil(day), later = civil(day + chr::days{366});
        const int32_t j = MDY_2_julian(c.m, c.d, c.y), last = last_of(chr::year{c.y}, chr::month(unsigned(c.m)));
        MDY back{}, from_doy{};
        const int32_t year = julian_2_MDY(j, &back.m, &back.d, &back.y);
        const auto doy = int32_t((day - chr::sys_days{chr::year{c.y} / 1 / 1}).count()) + 1;
        const int32_t doy_year = doy_2_MDY(doy, c.y, &from_doy.m, &from_doy.d, &from_doy.y, 1, &err);
        EXPECT_TRUE(j == julian_of_epoch + int32_t(day.time_since_epoch().count()) && back == c && year == c.y &&
                    MDY_2_dow(c.m, c.d, c.y, 1, &err) == int32_t(chr::weekday{day}.iso_encoding()) &&
                    MDY_2_doy(c.m, c.d, c.y, 1, &err) == doy && from_doy == c && doy_year == c.y &&
                    days_act(1, 1, 1800, c.m, c.d, c.y) == j - j0 &&
                    days_act(c.m, c.d, c.y, later.m, later.d, later.y) == 366 &&
                    days_act(later.m, later.d, later.y, c.m, c.d, c.y) == -366 &&
                    is_leap_year(c.y) == (chr::year{c.y}.is_leap() ? 1 : 0) && last_dom(c.m, c.y) == last &&
                    is_last_dom(c.m, c.d, c.y) == (c.d == last ? 1 : 0))
            << c << ": julian " << j << ", back " << back << ", day of year " << doy;
    }
    EXPECT_EQ(err, 0u);
}

// Every date moved by several month counts: the same day in the target month, lowered to its end when it
// does not exist, or its end when the date was a month end and eom is set.
TEST(DateSweep, MonthStepsAgainstTheCivilCalendar) {
    for (auto day = chr::sys_days{chr::year{1811} / 1 / 1}; day <= chr::sys_days{chr::year{2289} / 12 / 31} &&
                                                            !HasFailure(); day += chr::days{1}) {
        const chr::year_month_day ymd{day};
        const MDY from = civil(day);
        const bool month_end = last_of(ymd.year(), ymd.month()) == from.d;
        for (int32_t n : {1, -1, 6, -7, 12, 25, -120}) {
            const chr::year_month to = chr::year_month{ymd.year(), ymd.month()} + chr::months{n};
            const int32_t last = last_of(to.year(), to.month());
            const MDY plain{int32_t(unsigned(to.month())), std::min(from.d, last), int32_t(to.year())};
            MDY a = from, b = from;
            incr_by_mths(n, &a.m, &a.d, &a.y, 0);
            incr_by_mths(n, &b.m, &b.d, &b.y, 1);
            EXPECT_EQ(a, plain) << from << " + " << n << " months";
            EXPECT_EQ(b, (MDY{plain.m, month_end ? last : plain.d, plain.y})) << from << " + " << n << ", eom";
        }
    }
}

// A date moved by n anniversaries (month ends kept) is n anniversary years away, exactly; and moving by
// n whole years is the same step. 28 February of a leap year is left out: its anniversaries in common
// years are month ends, so the anniversary year that starts there runs to 29 February (see the table).
TEST(IdentitySweep, AnniversariesAreWholeYears) {
    uint32_t err = 0;
    for (int32_t j = MDY_2_julian(1, 1, 1800); j <= MDY_2_julian(12, 31, 2296) && !HasFailure(); ++j) {
        const MDY from = of_julian(j);
        if (from.m == 2 && from.d == 28 && is_leap_year(from.y)) continue;
        for (int32_t n = 1; n <= 4; ++n) {
            MDY to = from, by_years = from;
            incr_by_mths(12 * n, &to.m, &to.d, &to.y, 1);
            incr_by_yrs(n, &by_years.m, &by_years.d, &by_years.y, 1, 1, &err);
            EXPECT_EQ(by_years, to) << from << " + " << n << " years";
            for (int32_t code : {1, 7, 8})
                EXPECT_EQ(years_b_MDYs(from.m, from.d, from.y, to.m, to.d, to.y, code, 1, &err), n) << from << " " << n;
        }
    }
    EXPECT_EQ(err, 0u);
}

// Rules that adjust each date on its own (30E, month ends as the 30th, and the actual counts) are
// additive: a count through any date in between is the sum of its two parts.
TEST(IdentitySweep, PerDateRulesAreAdditive) {
    const MDY a{11, 30, 1999}, c{3, 31, 2001};
    for (int32_t j = MDY_2_julian(1, 1, 1999); j <= MDY_2_julian(12, 31, 2001) && !HasFailure(); ++j) {
        const MDY b = of_julian(j);
        for (auto k : {days_aibd360, days_new360, days_act, days_act_nl})
            EXPECT_EQ(k(a.m, a.d, a.y, b.m, b.d, b.y) + k(b.m, b.d, b.y, c.m, c.d, c.y),
                      k(a.m, a.d, a.y, c.m, c.d, c.y)) << "through " << b;
    }
}

// ISDA actual/actual against the plain year-by-year sum; the basis is the year length unless it varies.
TEST(IdentitySweep, IsdaActualMatchesYearByYearSum) {
    uint32_t err = 0;
    for (int32_t j = MDY_2_julian(1, 1, 1890); j <= MDY_2_julian(12, 31, 2110) && !HasFailure(); j += 3) {
        const MDY a = of_julian(j);
        for (int32_t span : {0, 1, 59, 180, 365, 366, 731, 1461, 3652}) {
            const MDY b = of_julian(j + span);
            double sum = 0.0;
            bool lengths_differ = false;
            for (int32_t year = a.y; year <= b.y; ++year) {
                const MDY from = year == a.y ? a : MDY{1, 1, year}, to = year == b.y ? b : MDY{1, 1, year + 1};
                sum += days_act(from.m, from.d, from.y, to.m, to.d, to.y) / (is_leap_year(year) ? 366.0 : 365.0);
                const bool has_days = year < b.y || !(b.m == 1 && b.d == 1) || year == a.y;
                lengths_differ |= has_days && is_leap_year(year) != is_leap_year(a.y);
            }
            int32_t basis = 0;
            const double got = isda_dcf(a.m, a.d, a.y, b.m, b.d, b.y, 1, 0, 0, 0, &basis, 1, &err);
            EXPECT_NEAR(got, sum, 1e-13) << a << " to " << b;
            EXPECT_EQ(basis, lengths_differ ? -1 : (is_leap_year(a.y) ? 366 : 365)) << a << " to " << b;
        }
    }
    EXPECT_EQ(err, 0u);
}

// The list maintenance against a std::map of dated amounts.
TEST(IdentitySweep, ListMaintenanceMatchesAMapOfDatedAmounts) {
    std::mt19937 rng(7);
    const auto random_list = [&](size_t n) {
        std::map<int32_t, double> list;
        while (list.size() < n) list[2451545 + int32_t(rng() % 60)] = (rng() % 8 + 1) * 0.25;
        return list;
    };
    for (int round = 0; round < 300; ++round) {
        const std::map<int32_t, double> first = random_list(rng() % 20), change = random_list(rng() % 20);
        const int32_t action = std::array<int32_t, 3>{1, -1, -2}[rng() % 3];
        std::map<int32_t, double> expected = first;
        for (const auto& [j, amount] : change) {
            if (action == 1) expected[j] += amount;
            if (action == -1) expected.erase(j);
            if (action == -2 && expected.count(j) && (expected[j] -= amount) == 0.0) expected.erase(j);
        }
        std::vector<int32_t> m(40), d(40), y(40), cm, cd, cy;
        std::vector<double> a(40), ca;
        int32_t count = 0;
        for (const auto& [j, amount] : first) julian_2_MDY(j, &m[count], &d[count], &y[count]), a[count++] = amount;
        for (const auto& [j, amount] : change) {
            const MDY v = of_julian(j);
            cm.push_back(v.m), cd.push_back(v.d), cy.push_back(v.y), ca.push_back(amount);
        }
        uint32_t err = 0;
        const int32_t n = MDY_maint(action, m.data(), d.data(), y.data(), a.data(), count, 40, cm.data(), cd.data(),
                                    cy.data(), ca.data(), int32_t(cm.size()), 1, &err);
        ASSERT_EQ(err, 0u);
        ASSERT_EQ(n, int32_t(expected.size())) << "round " << round << ", action " << action;
        int32_t i = 0;
        for (const auto& [j, amount] : expected) {
            ASSERT_EQ(MDY_2_julian(m[i], d[i], y[i]), j) << "round " << round << ", entry " << i;
            ASSERT_EQ(a[i++], amount);
        }
    }
}

}  // namespace
