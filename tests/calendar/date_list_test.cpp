#include <gtest/gtest.h>

#include <vector>

#include "orvel/calendar.h"

namespace {

TEST(SortDates, AscendingAndStableWithCompanions) {
    int32_t m[] = {3, 1, 12, 1, 6};
    int32_t d[] = {15, 31, 1, 31, 30};
    int32_t y[] = {2001, 2001, 2000, 2001, 2001};
    double v[] = {1, 2, 3, 4, 5};
    int32_t iv[] = {10, 20, 30, 40, 50};
    uint32_t err = 2100;
    EXPECT_EQ(sort2_MDYs(m, d, y, v, iv, 5, 1, &err), 1);
    const int32_t em[] = {12, 1, 1, 3, 6}, ed[] = {1, 31, 31, 15, 30}, ey[] = {2000, 2001, 2001, 2001, 2001};
    const double ev[] = {3, 2, 4, 1, 5};  // the two 1/31/2001 keep their order
    for (int i = 0; i < 5; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(m[i], em[i]);
        EXPECT_EQ(d[i], ed[i]);
        EXPECT_EQ(y[i], ey[i]);
        EXPECT_EQ(v[i], ev[i]);
        EXPECT_EQ(iv[i], static_cast<int32_t>(ev[i]) * 10);
    }
    EXPECT_EQ(err, 0u);  // comparisons that keep the order clear err_code
}

TEST(SortDates, ExchangesOnlyLeaveErrCodeAlone) {
    int32_t m[] = {2, 1}, d[] = {1, 1}, y[] = {2001, 2001};
    double v[] = {1, 2};
    uint32_t err = 77;
    EXPECT_EQ(sort_MDYs(m, d, y, v, 2, 1, &err), 1);
    EXPECT_EQ(m[0], 1);
    EXPECT_EQ(v[0], 2.0);
    EXPECT_EQ(err, 77u);  // one pass, one exchange, no pass without one: nothing cleared
}

TEST(SortDates, BadDateStopsBeforeSorting) {
    int32_t m[] = {2, 13, 1}, d[] = {1, 1, 1}, y[] = {2001, 2001, 2001};
    double v[] = {1, 2, 3};
    uint32_t err = 0;
    EXPECT_EQ(sort_MDYs(m, d, y, v, 3, 1, &err), 0);
    EXPECT_EQ(err, 1200u);
    EXPECT_EQ(m[0], 2);
}

struct Entry {
    int32_t m, d, y;
    double amount;
    bool operator==(const Entry&) const = default;
};

std::ostream& operator<<(std::ostream& os, const Entry& e) {
    return os << e.m << "/" << e.d << "/" << e.y << " " << e.amount;
}

struct Lists {
    std::vector<int32_t> m, d, y;
    std::vector<double> a;
    explicit Lists(const std::vector<Entry>& entries, size_t capacity)
        : m(capacity), d(capacity), y(capacity), a(capacity) {
        for (size_t i = 0; i < entries.size(); ++i) {
            m[i] = entries[i].m;
            d[i] = entries[i].d;
            y[i] = entries[i].y;
            a[i] = entries[i].amount;
        }
    }
    std::vector<Entry> first(int32_t n) const {
        std::vector<Entry> out;
        for (int32_t i = 0; i < n; ++i) out.push_back({m[i], d[i], y[i], a[i]});
        return out;
    }
};

int32_t maint(int32_t action, Lists& list, int32_t count, const Lists& chg, int32_t chg_count, uint32_t* err) {
    return MDY_maint(action, list.m.data(), list.d.data(), list.y.data(), list.a.data(), count,
                     static_cast<int32_t>(list.m.size()), chg.m.data(), chg.d.data(), chg.y.data(), chg.a.data(),
                     chg_count, 1, err);
}

TEST(DateListMaintenance, MergeAddsOnEqualDatesAndReduceUndoesIt) {
    const std::vector<Entry> original = {{1, 15, 2001, 100}, {7, 15, 2001, 100}, {1, 15, 2002, 100}};
    const std::vector<Entry> change = {{12, 31, 2000, 2.5}, {7, 15, 2001, 50.25}, {3, 1, 2002, 7}};
    Lists list(original, 8);
    const Lists chg(change, 3);
    uint32_t err = 0;
    const int32_t merged = maint(1, list, 3, chg, 3, &err);
    ASSERT_EQ(merged, 5);
    EXPECT_EQ(
        list.first(5),
        (std::vector<Entry>{
            {12, 31, 2000, 2.5}, {1, 15, 2001, 100}, {7, 15, 2001, 150.25}, {1, 15, 2002, 100}, {3, 1, 2002, 7}}));
    EXPECT_EQ(maint(-2, list, merged, chg, 3, &err), 3);
    EXPECT_EQ(list.first(3), original);
    EXPECT_EQ(maint(-1, list, 3, chg, 3, &err), 2);  // deletes 7/15/2001 whatever its amount
    EXPECT_EQ(list.first(2), (std::vector<Entry>{{1, 15, 2001, 100}, {1, 15, 2002, 100}}));
    EXPECT_EQ(err, 0u);
}

TEST(DateListMaintenance, ErrorsLeaveTheListAlone) {
    const std::vector<Entry> original = {{1, 15, 2001, 100}, {7, 15, 2001, 100}};
    uint32_t err = 0;
    Lists list(original, 3);
    const Lists chg({{1, 1, 2001, 1}, {2, 1, 2001, 1}}, 2);
    EXPECT_EQ(maint(1, list, 2, chg, 2, &err), 0);
    EXPECT_EQ(err, 13000u);  // needs 4 entries, room for 3
    EXPECT_EQ(list.first(2), original);
    err = 0;
    EXPECT_EQ(maint(2, list, 2, chg, 2, &err), 0);
    EXPECT_EQ(err, 5310u);
    err = 0;
    const Lists unsorted({{2, 1, 2001, 1}, {1, 1, 2001, 1}}, 2);
    EXPECT_EQ(maint(-1, list, 2, unsorted, 2, &err), 0);
    EXPECT_EQ(err, 7702u);
    err = 0;
    const Lists bad({{1, 1, 2001, 1}, {2, 30, 2001, 1}}, 2);
    EXPECT_EQ(maint(-1, list, 2, bad, 2, &err), 0);
    EXPECT_EQ(err, 12001u);
    EXPECT_EQ(list.first(2), original);
}

}  // namespace
