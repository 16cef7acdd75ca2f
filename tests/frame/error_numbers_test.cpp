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

TEST(ErrorNumbers, NoTwoMeaningsShareANumber) {
    std::map<uint32_t, std::set<std::string>> meanings = {{0, {"no error"}}};
#define ORVEL_ROW_(name, number, meaning) meanings[number].insert(#name);
    ORVEL_ERROR_TABLE(ORVEL_ROW_)
#undef ORVEL_ROW_
    for (const Built& b : built)
        for (uint32_t a : b.addends) {
            const auto row = spelled_out.find(b.base + a);
            if (row == spelled_out.end() || row->second != b.base)
                meanings[b.base + a].insert(std::to_string(b.base) + " + " + std::to_string(a));
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
    const int32_t longest = ORVEL_DATE_LIST_MAX + 101;
    std::vector<int32_t> ms(longest, 1), ds(longest, 15), ys(longest, 2001);
    std::vector<double> as(longest, 0.01);
    int32_t *m = ms.data(), *d = ds.data(), *y = ys.data();
    double* a = as.data();
    const std::pair<uint32_t, std::function<void(int32_t, uint32_t*)>> list_checks[] = {
        {ORVEL_E_LIST_LENGTH, [&](int32_t n, uint32_t* e) { ok_flt_cpns(3, 1, 2024, n, m, d, y, e); }},
        {ORVEL_E_LIST_LENGTH, [&](int32_t n, uint32_t* e) { ok_flt_rcs(3, 1, 2024, n, m, d, y, a, e); }},
        {ORVEL_E_SF_IN, [&](int32_t n, uint32_t* e) { ok_sf_in(3, 1, 2024, 11, 15, 2033, n, m, d, y, a, e); }},
        {ORVEL_E_LIST_LENGTH, [&](int32_t n, uint32_t* e) { MDY_maint(1, m, d, y, a, n, n, m, d, y, a, 0, 1, e); }},
        {ORVEL_E_LIST_LENGTH, [&](int32_t n, uint32_t* e) { MDY_maint(-1, m, d, y, a, 0, 0, m, d, y, a, n, 1, e); }},
    };
    for (const auto& [refused, call] : list_checks)
        for (int32_t i = 0; i < longest; ++i) {
            uint32_t err = 0;
            m[i] = 13;
            call(i + 1, &err);
            m[i] = 1;
            record(err, refused, "bad date at index " + std::to_string(i));
        }
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

}  // namespace
