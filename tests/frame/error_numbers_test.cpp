// No two meanings share an error number. The meanings are the rows of the error table, the numbers built
// on a base (roles, orderings, -1 codes, given kinds), and the numbers that ok_days_per and the date-list
// checks build from their arguments, collected by calling them over every bound and index they can take.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "orvel/calendar.h"
#include "orvel/frame.h"

namespace {

std::vector<uint32_t> from_to(uint32_t lo, uint32_t hi) {
    std::vector<uint32_t> v;
    for (uint32_t a = lo; a <= hi; ++a) v.push_back(a);
    return v;
}

std::vector<uint32_t> role_pairs() {
    std::vector<uint32_t> v;
    for (uint32_t a = 1; a <= 9; ++a)
        for (uint32_t b = 1; b <= 9; ++b) v.push_back(10 * a + b);
    return v;
}

// The bases that take an addend, and every addend that a validator adds to them.
struct Built {
    uint32_t base;
    std::vector<uint32_t> addends;
};
const std::vector<Built> built = {
    {ORVEL_E_YEAR, from_to(1, 9)},  {ORVEL_E_MONTH, from_to(1, 9)},     {ORVEL_E_DAY, from_to(1, 9)},
    {ORVEL_E_BLANK, from_to(1, 9)}, {ORVEL_E_NOT_LE, role_pairs()},     {ORVEL_E_NOT_LT, role_pairs()},
    {ORVEL_E_SYNC, {31, 36}},       {ORVEL_E_DAY_TYPE, {1}},            {ORVEL_E_SIDE, {1}},
    {ORVEL_E_CPN_FREQ, {1}},        {ORVEL_E_GIVEN_BASE, from_to(1, 22)}, {ORVEL_E_CPN_RATE, {1}},
    {ORVEL_E_TAX_RATE, {1, 2}},
};

// Rows that spell out a built number for the one check that writes it: the same meaning, not a second one.
const std::map<uint32_t, uint32_t> spelled_out = {
    {ORVEL_E_DAY_TYPE_MISSING, ORVEL_E_DAY_TYPE}, {ORVEL_E_SIDE_MISSING, ORVEL_E_SIDE},
    {ORVEL_E_CPN_FREQ_MISSING, ORVEL_E_CPN_FREQ}, {ORVEL_E_FLT_RST_SETTLE, ORVEL_E_NOT_LE},
    {ORVEL_E_FRN_RST_SETTLE, ORVEL_E_NOT_LE},     {ORVEL_E_FRN_NEXT_RST, ORVEL_E_NOT_LT},
    {ORVEL_E_EXDIV_ORDER, ORVEL_E_NOT_LT},        {ORVEL_E_FRN_RST_ORDER, ORVEL_E_NOT_LT},
    {ORVEL_E_CPN_AMT, ORVEL_E_CPN_RATE},          {ORVEL_E_TAX1, ORVEL_E_TAX_RATE},
    {ORVEL_E_TAX2, ORVEL_E_TAX_RATE},
};

// The checks that report a bad list date by its index, each with its refusal of a list too long, over
// one list of 1/15/2001 (amounts 0.01).
std::vector<int32_t> ms(ORVEL_DATE_LIST_MAX + 101, 1), ds(ms.size(), 15), ys(ms.size(), 2001);
std::vector<double> as(ms.size(), 0.01);
int32_t *m = ms.data(), *d = ds.data(), *y = ys.data();
double* a = as.data();
const std::pair<uint32_t, std::function<void(int32_t, uint32_t*)>> list_checks[] = {
    {ORVEL_E_LIST_LENGTH, [](int32_t n, uint32_t* e) { ok_flt_cpns(3, 1, 2024, n, m, d, y, e); }},
    {ORVEL_E_LIST_LENGTH, [](int32_t n, uint32_t* e) { ok_flt_rcs(3, 1, 2024, n, m, d, y, a, e); }},
    {ORVEL_E_SF_IN, [](int32_t n, uint32_t* e) { ok_sf_in(3, 1, 2024, 11, 15, 2033, n, m, d, y, a, e); }},
    {ORVEL_E_LIST_LENGTH, [](int32_t n, uint32_t* e) { MDY_maint(1, m, d, y, a, n, n, m, d, y, a, 0, 1, e); }},
    {ORVEL_E_LIST_LENGTH, [](int32_t n, uint32_t* e) { MDY_maint(-1, m, d, y, a, 0, 0, m, d, y, a, n, 1, e); }},
};

// The number of a list check on a list of index + 1 dates whose last one is bad.
uint32_t bad_last(const std::function<void(int32_t, uint32_t*)>& call, int32_t index) {
    uint32_t err = 0;
    m[index] = 13;
    call(index + 1, &err);
    m[index] = 1;
    return err;
}

TEST(ErrorNumbers, NoTwoMeaningsShareANumber) {
    std::map<uint32_t, std::set<std::string>> meanings = {{0, {"no error"}}};
#define ORVEL_ROW_(name, number, meaning) meanings[number].insert(#name);
    ORVEL_ERROR_TABLE(ORVEL_ROW_)
#undef ORVEL_ROW_
    for (const Built& b : built)
        for (uint32_t add : b.addends) {
            const auto row = spelled_out.find(b.base + add);
            if (row == spelled_out.end() || row->second != b.base)
                meanings[b.base + add].insert(std::to_string(b.base) + " + " + std::to_string(add));
        }
    // A number built from an argument, unless it is the check's documented refusal of that argument.
    auto record = [&](uint32_t number, uint32_t refused, const std::string& meaning) {
        if (number != refused) meanings[number].insert(meaning);
    };
    std::vector<int32_t> leasts = {INT32_MIN + 1, INT32_MAX};
    for (int32_t least = -6000; least <= 6000; ++least) leasts.push_back(least);
    for (int32_t least : leasts) {
        uint32_t err = 0;
        ok_days_per(least - 1, least, &err);
        record(err, ORVEL_E_DAYS_PER_BELOW, "days in the period below " + std::to_string(least));
    }
    // Every list check with a list of 1..1101 dates, the last one bad (index 1100 would read as 13100).
    for (const auto& [refused, call] : list_checks)
        for (int32_t i = 0; i <= ORVEL_DATE_LIST_MAX + 100; ++i)
            record(bad_last(call, i), refused, "bad date at index " + std::to_string(i));
    ASSERT_EQ(meanings.count(ORVEL_E_DATE_LIST_BASE + ORVEL_DATE_LIST_MAX - 1), 1u) << "no sweep reached index 999";
    ASSERT_EQ(meanings.count(ORVEL_E_DAYS_PER_BASE + ORVEL_DAYS_PER_LEAST_MAX), 1u) << "no sweep reached 5099";

    for (const auto& [number, names] : meanings) {
        std::string all;
        for (const std::string& n : names) all += n + "; ";
        EXPECT_EQ(names.size(), 1u) << number << " means " << all;
        char text[128];
        err_2_text(static_cast<int32_t>(number), text, sizeof text);
        EXPECT_EQ(std::string(text).find("unknown"), std::string::npos) << number << " (" << all << ") has no text";
    }
}

// 1000 dates reach the date checks, 1001 are refused before them. Without validation MDY_maint takes a
// list of any length; with validation it refuses a merge that would pass 1000 dates.
TEST(ErrorNumbers, DateListsHoldAtMostOneThousandDates) {
    for (const auto& [refused, call] : list_checks) {
        EXPECT_EQ(bad_last(call, ORVEL_DATE_LIST_MAX - 1), ORVEL_E_DATE_LIST_BASE + 999u);
        uint32_t err = 0;
        call(ORVEL_DATE_LIST_MAX + 1, &err);
        EXPECT_EQ(err, refused);
    }
    std::vector<int32_t> am(1001), ad(1001), ay(1001);  // 1000 days from 1/1/2000, room for one more
    std::vector<double> amt(1001, 1.0);
    for (int32_t i = 0; i < 1000; ++i) julian_2_MDY(2451545 + i, &am[i], &ad[i], &ay[i]);
    const int32_t cm = 12, cd = 31, cy = 2002;  // after the last of them (9/26/2002)
    const double camt = 1.0;
    const auto merge_last = [&](int32_t validate, uint32_t* err) {
        return MDY_maint(1, am.data(), ad.data(), ay.data(), amt.data(), 1000, 1001, &cm, &cd, &cy, &camt, 1,
                         validate, err);
    };
    uint32_t err = 0;
    EXPECT_EQ(merge_last(1, &err), 0);
    EXPECT_EQ(err, ORVEL_E_LIST_LENGTH);
    err = 0;
    EXPECT_EQ(merge_last(0, &err), 1001);
    EXPECT_EQ(err, 0u);
}

}  // namespace
