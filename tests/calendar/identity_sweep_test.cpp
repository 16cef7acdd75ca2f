// Identities between the functions, walked over every date of the calendar range.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <random>
#include <tuple>
#include <vector>

#include "orvel/calendar.h"

namespace {

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

// Every date from 1/1/1800 to the last date whose `years` anniversaries stay in the range.
template <class Visit>
void for_each_date(int32_t last_year, Visit visit) {
    for (int32_t j = MDY_2_julian(1, 1, 1800); j <= MDY_2_julian(12, 31, last_year); ++j)
        if (!visit(of_julian(j))) return;
}

// A date moved by n anniversaries (month ends kept) is n anniversary years away, exactly; and moving by
// n whole years is the same step. 28 February of a leap year is left out: its anniversaries in common
// years are month ends, so the anniversary year that starts there runs to 29 February (see the table).
TEST(IdentitySweep, AnniversariesAreWholeYears) {
    int failures = 0;
    uint32_t err = 0;
    for_each_date(2296, [&](MDY from) {
        if (from.m == 2 && from.d == 28 && is_leap_year(from.y)) return true;
        for (int32_t n = 1; n <= 4; ++n) {
            MDY to = from;
            incr_by_mths(12 * n, &to.m, &to.d, &to.y, 1);
            MDY by_years = from;
            incr_by_yrs(n, &by_years.m, &by_years.d, &by_years.y, 1, 1, &err);
            for (int32_t code : {1, 7, 8}) {
                if (years_b_MDYs(from.m, from.d, from.y, to.m, to.d, to.y, code, 1, &err) != n || !(by_years == to)) {
                    ADD_FAILURE() << from << " + " << n << " years: " << to << ", by years " << by_years;
                    ++failures;
                }
            }
        }
        return failures < 5;
    });
    EXPECT_EQ(err, 0u);
}

// Rules that adjust each date on its own (30E, month ends as the 30th, and the actual counts) are
// additive: a count through any date in between is the sum of its two parts.
TEST(IdentitySweep, PerDateRulesAreAdditive) {
    using Kernel = int32_t (*)(int32_t, int32_t, int32_t, int32_t, int32_t, int32_t);
    const Kernel kernels[] = {days_aibd360, days_new360, days_act, days_act_nl};
    const MDY a{11, 30, 1999}, c{3, 31, 2001};
    int failures = 0;
    for (int32_t j = MDY_2_julian(1, 1, 1999); j <= MDY_2_julian(12, 31, 2001) && failures < 5; ++j) {
        const MDY b = of_julian(j);
        for (Kernel k : kernels) {
            if (k(a.m, a.d, a.y, b.m, b.d, b.y) + k(b.m, b.d, b.y, c.m, c.d, c.y) != k(a.m, a.d, a.y, c.m, c.d, c.y)) {
                ADD_FAILURE() << "through " << b;
                ++failures;
            }
        }
    }
}

// ISDA actual/actual against the plain year-by-year sum.
double isda_by_years(MDY a, MDY b) {
    double sum = 0.0;
    for (int32_t year = a.y; year <= b.y; ++year) {
        const MDY from = year == a.y ? a : MDY{1, 1, year};
        const MDY to = year == b.y ? b : MDY{1, 1, year + 1};
        sum +=
            static_cast<double>(days_act(from.m, from.d, from.y, to.m, to.d, to.y)) / (is_leap_year(year) ? 366 : 365);
    }
    return sum;
}

TEST(IdentitySweep, IsdaActualMatchesYearByYearSum) {
    uint32_t err = 0;
    int failures = 0;
    const int32_t spans[] = {0, 1, 59, 180, 365, 366, 731, 1461, 3652};
    for (int32_t j = MDY_2_julian(1, 1, 1890); j <= MDY_2_julian(12, 31, 2110) && failures < 5; j += 3) {
        const MDY a = of_julian(j);
        for (int32_t span : spans) {
            const MDY b = of_julian(j + span);
            int32_t basis = 0;
            const double got = isda_dcf(a.m, a.d, a.y, b.m, b.d, b.y, 1, 0, 0, 0, &basis, 1, &err);
            bool lengths_differ = false;
            for (int32_t year = a.y; year <= b.y; ++year) {
                const bool has_days = year < b.y || !(b.m == 1 && b.d == 1) || year == a.y;
                if (has_days && is_leap_year(year) != is_leap_year(a.y)) lengths_differ = true;
            }
            const int32_t expected_basis = lengths_differ ? -1 : (is_leap_year(a.y) ? 366 : 365);
            if (std::abs(got - isda_by_years(a, b)) > 1e-13 || basis != expected_basis) {
                ADD_FAILURE() << a << " to " << b << ": " << got << " basis " << basis;
                ++failures;
            }
        }
    }
    EXPECT_EQ(err, 0u);
}

// The date sorts against std::stable_sort, and the list maintenance against a std::map of dated amounts.
TEST(IdentitySweep, SortsMatchStableSort) {
    std::mt19937 rng(20261122);
    std::uniform_int_distribution<int32_t> day(MDY_2_julian(1, 1, 1990), MDY_2_julian(12, 31, 1992));
    for (int round = 0; round < 200; ++round) {
        const int32_t n = static_cast<int32_t>(rng() % 40);
        std::vector<int32_t> m(n), d(n), y(n), iv(n);
        std::vector<double> v(n);
        std::vector<std::tuple<int32_t, int32_t, double>> reference;  // julian, original index, value
        for (int32_t i = 0; i < n; ++i) {
            const int32_t j = day(rng);
            julian_2_MDY(j, &m[i], &d[i], &y[i]);
            v[i] = i * 0.5;
            iv[i] = i;
            reference.emplace_back(j, i, v[i]);
        }
        std::stable_sort(reference.begin(), reference.end(),
                         [](const auto& a, const auto& b) { return std::get<0>(a) < std::get<0>(b); });
        uint32_t err = 0;
        sort2_MDYs(m.data(), d.data(), y.data(), v.data(), iv.data(), n, 1, &err);
        for (int32_t i = 0; i < n; ++i) {
            ASSERT_EQ(MDY_2_julian(m[i], d[i], y[i]), std::get<0>(reference[i])) << "round " << round << ", " << i;
            ASSERT_EQ(iv[i], std::get<1>(reference[i]));
            ASSERT_EQ(v[i], std::get<2>(reference[i]));
        }
    }
}

TEST(IdentitySweep, ListMaintenanceMatchesAMapOfDatedAmounts) {
    std::mt19937 rng(7);
    for (int round = 0; round < 300; ++round) {
        auto random_list = [&](int32_t n) {
            std::map<int32_t, double> list;
            while (static_cast<int32_t>(list.size()) < n)
                list[MDY_2_julian(1, 1, 2000) + static_cast<int32_t>(rng() % 60)] =
                    static_cast<double>(rng() % 8 + 1) * 0.25;
            return list;
        };
        const std::map<int32_t, double> first = random_list(static_cast<int32_t>(rng() % 20));
        const std::map<int32_t, double> change = random_list(static_cast<int32_t>(rng() % 20));
        const int32_t action = std::array<int32_t, 3>{1, -1, -2}[rng() % 3];
        std::map<int32_t, double> expected = first;
        for (const auto& [j, amount] : change) {
            if (action == 1) expected[j] += amount;
            if (action == -1) expected.erase(j);
            if (action == -2 && expected.count(j) && (expected[j] -= amount) == 0.0) expected.erase(j);
        }
        const int32_t capacity = 40;
        std::vector<int32_t> m(capacity), d(capacity), y(capacity), cm, cd, cy;
        std::vector<double> a(capacity), ca;
        int32_t count = 0;
        for (const auto& [j, amount] : first) {
            julian_2_MDY(j, &m[count], &d[count], &y[count]);
            a[count++] = amount;
        }
        for (const auto& [j, amount] : change) {
            MDY v = of_julian(j);
            cm.push_back(v.m), cd.push_back(v.d), cy.push_back(v.y), ca.push_back(amount);
        }
        uint32_t err = 0;
        const int32_t n = MDY_maint(action, m.data(), d.data(), y.data(), a.data(), count, capacity, cm.data(),
                                    cd.data(), cy.data(), ca.data(), static_cast<int32_t>(cm.size()), 1, &err);
        ASSERT_EQ(err, 0u);
        ASSERT_EQ(n, static_cast<int32_t>(expected.size())) << "round " << round << ", action " << action;
        int32_t i = 0;
        for (const auto& [j, amount] : expected) {
            ASSERT_EQ(MDY_2_julian(m[i], d[i], y[i]), j) << "round " << round << ", entry " << i;
            ASSERT_EQ(a[i], amount);
            ++i;
        }
    }
}

}  // namespace
