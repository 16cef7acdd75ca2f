// Business days against a day-by-day walk over 2000..2009 with the US federal holidays (found by walking
// each month's days, observed on the Friday or Monday when they fall on a weekend), and the holiday table
// kept sorted by hol_maint under random inserts and deletes.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <vector>

#include "orvel/calendar.h"

namespace {

int32_t dow(int32_t j) { return j % 7 + 1; }

// The occur-th weekday wd of a month by walking its days (occur 0: the last one); 0 when there is none.
int32_t walked_day(int32_t m, int32_t y, int32_t occur, int32_t wd) {
    std::vector<int32_t> days;
    for (int32_t d = 1; d <= last_dom(m, y); ++d)
        if (dow(MDY_2_julian(m, d, y)) == wd) days.push_back(d);
    return occur == 0 ? days.back() : occur <= static_cast<int32_t>(days.size()) ? days[occur - 1] : 0;
}

TEST(BusinessDays, AgainstADayByDayWalk) {
    std::set<int32_t> hol;
    for (int32_t y = 1999; y <= 2010; ++y) {
        for (const auto& [m, d] : {std::pair{1, 1}, {7, 4}, {11, 11}, {12, 25}}) {
            const int32_t j = MDY_2_julian(m, d, y);
            hol.insert(dow(j) == 6 ? j - 1 : dow(j) == 7 ? j + 1 : j);
        }
        for (const auto& [m, occur, wd] : {std::tuple{1, 3, 1}, {2, 3, 1}, {5, 0, 1}, {9, 1, 1}, {10, 2, 1}, {11, 4, 4}})
            hol.insert(MDY_2_julian(m, walked_day(m, y, occur, wd), y));
    }
    const std::vector<int32_t> table(hol.begin(), hol.end());
    const auto n = static_cast<int32_t>(table.size());
    ASSERT_EQ(n, 12 * 10);
    const auto business = [&](int32_t j) { return dow(j) <= 5 && hol.count(j) == 0; };
    const auto step = [&](int32_t j, int32_t dir) { do j += dir; while (!business(j)); return j; };
    uint32_t err = 0;
    for (int32_t j = MDY_2_julian(1, 1, 2000); j <= MDY_2_julian(12, 31, 2009); ++j) {
        int32_t m, d, y, om, od, oy, km, kd, ky;
        julian_2_MDY(j, &m, &d, &y);
        SCOPED_TRACE(testing::Message() << m << "/" << d << "/" << y);
        const int32_t following = business(j) ? j : step(j, 1), preceding = business(j) ? j : step(j, -1);
        adj_to_bdt(m, d, y, 1, &om, &od, &oy, n, table.data(), 1, &err);
        EXPECT_EQ(MDY_2_julian(om, od, oy), following);
        adj_to_bdt(m, d, y, -1, &om, &od, &oy, n, table.data(), 1, &err);
        EXPECT_EQ(MDY_2_julian(om, od, oy), preceding);
        for (const int32_t steps : {-23, -11, -6, -5, -1, 0, 1, 4, 5, 6, 12, 26}) {
            int32_t want = steps < 0 ? preceding : following;
            for (int32_t k = 0; k < std::abs(steps); ++k) want = step(want, steps < 0 ? -1 : 1);
            incr_by_bdys(m, d, y, steps, &om, &od, &oy, n, table.data(), 1, &err);
            EXPECT_EQ(MDY_2_julian(om, od, oy), want) << steps;
        }
        // With no holidays the count is exact: the weekdays a walk passes from j to a weekday k.
        const int32_t k = j + j % 40 - 20;
        int32_t walk = 0;
        for (int32_t i = std::min(j, k); i < std::max(j, k); ++i) walk += dow(i + (k > j)) <= 5 ? 1 : 0;
        julian_2_MDY(k, &km, &kd, &ky);
        uint32_t ends = 0;  // 14000 when either end is a weekend
        const int32_t count = days_bus(m, d, y, km, kd, ky, 0, nullptr, 1, &ends);
        EXPECT_EQ(count, dow(j) > 5 || dow(k) > 5 ? 0 : k >= j ? walk : -walk) << k;
        EXPECT_EQ(ends, dow(j) > 5 || dow(k) > 5 ? 14000u : 0u);
    }
    for (int32_t i = 0; i < 10 * 12 * 6 * 7; ++i) {  // every month of the decade, occurrence and weekday
        const int32_t y = 2000 + i / 504, m = i / 42 % 12 + 1, occur = i / 7 % 6, wd = i % 7 + 1;
        const int32_t want = walked_day(m, y, occur, wd);
        uint32_t e = 0;
        EXPECT_EQ(dwm_2_day(m, y, occur, wd, 1, &e), want) << m << "/" << y << " " << occur << " " << wd;
        EXPECT_EQ(e, want == 0 ? 2700u : 0u);
    }
    EXPECT_EQ(err, 0u);
}

TEST(HolidayTable, StaysSortedUnderRandomInsertsAndDeletes) {
    std::mt19937 rng(20261123);
    std::set<int32_t> want;
    std::vector<int32_t> table(3001, -1);
    int32_t count = 0, reached = 0;
    for (int i = 0; i < 20000; ++i) {
        const int32_t j = MDY_2_julian(1, 1, 2000) + static_cast<int32_t>(rng() % 400);
        const int32_t action = static_cast<int32_t>(rng() % 3) - 1;
        int32_t m, d, y;
        julian_2_MDY(j, &m, &d, &y);
        const std::vector<int32_t> before(table.begin(), table.begin() + count);
        uint32_t err = 0;
        const int32_t r = hol_maint(m, d, y, action, &count, table.data(), 1, &err);
        const bool present = want.count(j) != 0;
        const uint32_t refused =
            action == 1 ? (present ? 5302 : dow(j) > 5 ? 5303 : 0) : action == -1 && !present ? 5301 : 0;
        ASSERT_EQ(err, refused) << i;
        if (refused == 0 && action == 1) want.insert(j);
        if (refused == 0 && action == -1) want.erase(j);
        ASSERT_TRUE(refused != 0 || r == (action == 1 ? count : action == 0 && present ? 1 : 0)) << i;
        const std::vector<int32_t> now(table.begin(), table.begin() + count);
        ASSERT_EQ(now, refused ? before : std::vector<int32_t>(want.begin(), want.end())) << i;
        reached = std::max(reached, count);
        ASSERT_EQ(table[reached], -1) << "nothing written past the longest table";
    }
    EXPECT_GT(want.size(), 100u);
}

TEST(HolidayTable, FullTableAndBoundsRefused) {
    std::vector<int32_t> table;
    for (int32_t j = MDY_2_julian(1, 3, 2000); table.size() < 3000; ++j)
        if (dow(j) <= 5) table.push_back(j);
    table.push_back(-1);
    int32_t count = 3000, adjusted = 7, m = 1, d = 1, y = 2000;
    uint32_t full = 0, too_long = 0, bad_count = 0, accepted = 77, longer = 0, negative = 0;
    EXPECT_EQ(ok_hol_table(3000, table.data(), &accepted) + ok_hol_table(3001, table.data(), &longer) +
              ok_hol_table(-1, table.data(), &negative), 1);
    EXPECT_EQ(hol_maint(1, 1, 2030, 1, &count, table.data(), 1, &full), 0);  // a Tuesday, past the last entry
    EXPECT_EQ(table[3000], -1);
    count = 3001;
    EXPECT_EQ(hol_maint(1, 1, 2030, 1, &count, table.data(), 0, &bad_count), 0);  // bounded without validation too
    EXPECT_EQ(adj_cfs_dts(&m, &d, &y, 1001, nullptr, 0, 1, &adjusted, 0, &too_long), 0);
    EXPECT_EQ(std::vector<uint32_t>({accepted, longer, negative, full, bad_count, too_long}),
              std::vector<uint32_t>({0, 5400, 5400, 15700, 5400, 14010}));
    EXPECT_EQ(adjusted + count, 7 + 3001);
}

}  // namespace
