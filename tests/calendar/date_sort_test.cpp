// The date sorts against the stable bubble sort they replace (same order, companions and err_code) on
// random lists full of equal dates, valid or garbage, and against std::stable_sort on long lists.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "orvel/calendar.h"

namespace {

struct Entry {
    int32_t m, d, y;
    double v;
    int32_t iv;
    bool operator==(const Entry&) const = default;
};

// The day number of any triple, in 64 bits (the comparison the sorts are defined by).
int64_t day_number(const Entry& e) {
    const int64_t m = e.m, d = e.d, y = e.y, a = (m - 14) / 12;
    return d - 32075 + 1461 * (y + 4800 + a) / 4 + 367 * (m - 2 - 12 * a) / 12 - 3 * ((y + 4900 + a) / 100) / 4;
}
bool before(const Entry& a, const Entry& b) { return day_number(a) < day_number(b); }

// The bubble sort as first written: passes that shrink by one, exchange when the later date is strictly
// before, 0 to err_code on every comparison that does not exchange, stop after a pass without exchange.
void bubble(std::vector<Entry>& list, uint32_t* err) {
    for (size_t k = list.size(), exchanged = 1; k >= 2 && exchanged; --k) {
        exchanged = 0;
        for (size_t i = 0; i + 1 < k; ++i)
            if (before(list[i + 1], list[i])) std::swap(list[i], list[i + 1]), exchanged = 1;
            else *err = 0;
    }
}

// Sorts through sort2_MDYs, or sort_MDYs (ivals then read back from vals, which hold the index + 0.5).
std::vector<Entry> sorted_by_library(std::vector<Entry> list, bool two, int32_t validate, uint32_t* err) {
    std::vector<int32_t> m, d, y, iv;
    std::vector<double> v;
    for (const Entry& e : list)
        m.push_back(e.m), d.push_back(e.d), y.push_back(e.y), v.push_back(e.v), iv.push_back(e.iv);
    const auto n = static_cast<int32_t>(list.size());
    EXPECT_EQ(two ? sort2_MDYs(m.data(), d.data(), y.data(), v.data(), iv.data(), n, validate, err)
                  : sort_MDYs(m.data(), d.data(), y.data(), v.data(), n, validate, err), 1);
    for (size_t i = 0; i < list.size(); ++i) list[i] = {m[i], d[i], y[i], v[i], two ? iv[i] : int32_t(v[i])};
    return list;
}

// n entries over `days` consecutive days from 1/1/2000 (so with many equal dates); with `garbage` every
// third entry is some triple no validation passes (months and days far outside 0..255 among them).
std::vector<Entry> random_list(std::mt19937& rng, size_t n, int32_t days, bool garbage) {
    std::vector<Entry> list(n);
    std::uniform_int_distribution<int32_t> day(0, days - 1), any(INT32_MIN / 4, INT32_MAX / 4), small(-40, 300);
    for (size_t i = 0; i < n; ++i) {
        Entry& e = list[i];
        julian_2_MDY(2451545 + day(rng), &e.m, &e.d, &e.y);
        if (garbage && i % 3 == 0)
            e = {small(rng) % 2 ? any(rng) : small(rng), small(rng), 2000 + small(rng) % 3, 0, 0};
        e.v = static_cast<double>(i) + 0.5;
        e.iv = static_cast<int32_t>(i);
    }
    return list;
}

TEST(SortDates, SameOrderAndErrCodeAsTheBubbleSort) {
    std::mt19937 rng(20240301);
    for (int trial = 0; trial < 600; ++trial) {
        const size_t n = trial % 40 + (trial % 7 == 0 ? 300 : 0);
        std::vector<Entry> list = random_list(rng, n, 1 + trial % 50, trial % 2 == 1);
        if (trial % 5 == 1) std::sort(list.begin(), list.end(), [](auto& a, auto& b) { return before(b, a); });
        if (trial % 10 == 3)  // strictly descending: every comparison exchanges, err_code is left alone
            for (size_t i = 0; i < n; ++i) julian_2_MDY(2451545 + int32_t(n - i), &list[i].m, &list[i].d, &list[i].y);
        SCOPED_TRACE(::testing::Message() << "trial " << trial << ", " << n << " dates");
        std::vector<Entry> expected = list;
        uint32_t expected_err = 2100, err2 = 2100, err1 = 2100;
        bubble(expected, &expected_err);
        EXPECT_EQ(sorted_by_library(list, true, 0, &err2), expected);
        EXPECT_EQ(sorted_by_library(list, false, 0, &err1), expected);
        EXPECT_EQ(err2, expected_err);
        EXPECT_EQ(err1, expected_err);
    }
}

// Valid lists sorted with validation on, garbage ones without.
TEST(SortDates, LongListsAsStableSort) {
    std::mt19937 rng(7);
    for (bool garbage : {false, true}) {
        std::vector<Entry> list = random_list(rng, garbage ? 20000 : 100000, 3000, garbage), expected = list;
        std::stable_sort(expected.begin(), expected.end(), before);
        uint32_t err = 0;
        EXPECT_EQ(sorted_by_library(list, true, !garbage, &err), expected) << (garbage ? "garbage" : "valid");
        EXPECT_EQ(err, 0u);
    }
}

}  // namespace
