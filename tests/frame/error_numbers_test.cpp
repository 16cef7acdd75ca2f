// No two meanings share an error number. The meanings are the rows of the error table, the numbers built
// on a base (roles, orderings, -1 codes, given kinds), and the numbers that ok_days_per and the date-list
// checks build from their arguments, collected by calling them over every bound and index they can take.
// err_2_text never writes past the size it is given; the meanings themselves are rows of tests/calls.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "orvel/calendar.h"
#include "orvel/cashflow.h"
#include "orvel/frame.h"

namespace {

// lo..hi; with `pairs`, the role pairs 10a + b for a and b in 1..9.
std::vector<uint32_t> range(uint32_t lo, uint32_t hi, bool pairs = false) {
    std::vector<uint32_t> v;
    for (uint32_t a = lo; a <= hi; ++a)
        if (!pairs || a % 10 != 0) v.push_back(a);
    return v;
}

// The bases that take an addend, and every addend that a validator adds to them.
const std::pair<uint32_t, std::vector<uint32_t>> built[] = {
    {ORVEL_E_YEAR, range(1, 9)},  {ORVEL_E_MONTH, range(1, 9)},        {ORVEL_E_DAY, range(1, 9)},
    {ORVEL_E_BLANK, range(1, 9)}, {ORVEL_E_NOT_LE, range(11, 99, true)}, {ORVEL_E_NOT_LT, range(11, 99, true)},
    {ORVEL_E_SYNC, {31, 36}},     {ORVEL_E_DAY_TYPE, {1}},             {ORVEL_E_SIDE, {1}},
    {ORVEL_E_CPN_FREQ, {1}},      {ORVEL_E_GIVEN_BASE, range(1, 22)},  {ORVEL_E_CPN_RATE, {1, 8}},
    {ORVEL_E_TAX_RATE, {1, 2}},   {ORVEL_E_REDEMPTN, {1}},             {ORVEL_E_FLOW_AFTER_END_BASE, range(0, 999)},
    {ORVEL_E_YLD_FREQ, {1}},
};

// Rows that spell out a built number for the one check that writes it: the same meaning, not a second one.
const std::map<uint32_t, uint32_t> spelled_out = {
    {ORVEL_E_DAY_TYPE_MISSING, ORVEL_E_DAY_TYPE}, {ORVEL_E_SIDE_MISSING, ORVEL_E_SIDE},
    {ORVEL_E_CPN_FREQ_MISSING, ORVEL_E_CPN_FREQ}, {ORVEL_E_FLT_RST_SETTLE, ORVEL_E_NOT_LE},
    {ORVEL_E_FRN_RST_SETTLE, ORVEL_E_NOT_LE},     {ORVEL_E_FRN_NEXT_RST, ORVEL_E_NOT_LT},
    {ORVEL_E_EXDIV_ORDER, ORVEL_E_NOT_LT},        {ORVEL_E_FRN_RST_ORDER, ORVEL_E_NOT_LT},
    {ORVEL_E_CPN_AMT, ORVEL_E_CPN_RATE},          {ORVEL_E_TAX1, ORVEL_E_TAX_RATE},
    {ORVEL_E_TAX2, ORVEL_E_TAX_RATE},             {ORVEL_E_RF_RATE, ORVEL_E_CPN_RATE},
    {ORVEL_E_REDEMPTN_PV, ORVEL_E_REDEMPTN},      {ORVEL_E_SD_SMALL, ORVEL_E_GIVEN_BASE},
    {ORVEL_E_YLD_FREQ_MISSING, ORVEL_E_YLD_FREQ},
};

// The checks that report a bad list date by its index, each with its refusal of a list too long, over
// one list of 1/15/2001 (amounts 0.01).
std::vector<int32_t> ms(ORVEL_DATE_LIST_MAX + 101, 1), ds(ms.size(), 15), ys(ms.size(), 2001);
std::vector<double> as(ms.size(), 0.01), ts(ms.size());
int32_t *m = ms.data(), *d = ds.data(), *y = ys.data();
double *a = as.data(), *t = ts.data();
const std::pair<uint32_t, std::function<void(int32_t, uint32_t*)>> list_checks[] = {
    {ORVEL_E_LIST_LENGTH, [](int32_t n, uint32_t* e) { ok_flt_cpns(3, 1, 2024, n, m, d, y, e); }},
    {ORVEL_E_LIST_LENGTH, [](int32_t n, uint32_t* e) { ok_flt_rcs(3, 1, 2024, n, m, d, y, a, e); }},
    {ORVEL_E_SF_IN, [](int32_t n, uint32_t* e) { ok_sf_in(3, 1, 2024, 11, 15, 2033, n, m, d, y, a, e); }},
    {ORVEL_E_LIST_LENGTH, [](int32_t n, uint32_t* e) { MDY_maint(1, m, d, y, a, n, n, m, d, y, a, 0, 1, e); }},
    {ORVEL_E_LIST_LENGTH, [](int32_t n, uint32_t* e) { MDY_maint(-1, m, d, y, a, 0, 0, m, d, y, a, n, 1, e); }},
    {ORVEL_E_LIST_LENGTH, [](int32_t n, uint32_t* e) { cfs_py(5, 1, 1, 0, 2, 6, 1, 1, 2000, a, m, d, y, n, t, 1, e); }},
    {ORVEL_E_LIST_LENGTH, [](int32_t n, uint32_t* e) { cfs_arrayloc(1, 1, n, m, d, y, nullptr, 0, 0, 0, 0, 0, 1, e); }},
};

// The number of a list check on a list of `n` dates (index + 1 when the last is bad).
uint32_t list_check(const std::function<void(int32_t, uint32_t*)>& call, int32_t n, bool last_bad = true) {
    uint32_t err = 0;
    m[n - 1] = last_bad ? 13 : 1;
    call(n, &err);
    m[n - 1] = 1;
    return err;
}

TEST(ErrorNumbers, NoTwoMeaningsShareANumber) {
    std::map<uint32_t, std::set<std::string>> meanings = {{0, {"no error"}}};
#define ORVEL_ROW_(name, number, meaning) meanings[number].insert(#name);
    ORVEL_ERROR_TABLE(ORVEL_ROW_)
#undef ORVEL_ROW_
    for (const auto& [base, addends] : built)
        for (uint32_t add : addends)
            if (!spelled_out.contains(base + add) || spelled_out.at(base + add) != base)
                meanings[base + add].insert(std::to_string(base) + " + " + std::to_string(add));
    // Numbers built from an argument, but for the check's documented refusal of that argument.
    for (int32_t least = -6000; least <= 6002; ++least) {  // and the extremes, as 6001 and 6002
        const int32_t l = least == 6001 ? INT32_MIN + 1 : least == 6002 ? INT32_MAX : least;
        uint32_t err = 0;
        ok_days_per(l - 1, l, &err);
        if (err != ORVEL_E_DAYS_PER_BELOW) meanings[err].insert("days in the period below " + std::to_string(l));
    }
    // Every list check with a list of 1..1101 dates, the last one bad (index 1100 would read as 13100).
    for (const auto& [refused, call] : list_checks)
        for (int32_t n = 1; n <= ORVEL_DATE_LIST_MAX + 101; ++n)
            if (const uint32_t err = list_check(call, n); err != refused)
                meanings[err].insert("bad date at index " + std::to_string(n - 1));
    ASSERT_TRUE(meanings.contains(ORVEL_E_DATE_LIST_BASE + ORVEL_DATE_LIST_MAX - 1)) << "no sweep reached index 999";
    ASSERT_TRUE(meanings.contains(ORVEL_E_DAYS_PER_BASE + ORVEL_DAYS_PER_LEAST_MAX)) << "no sweep reached 5099";
    for (const auto& [number, names] : meanings) {
        std::string all;
        for (const std::string& n : names) all += n + "; ";
        char text[128];
        err_2_text(static_cast<int32_t>(number), text, sizeof text);
        EXPECT_EQ(names.size(), 1u) << number << " means " << all;
        EXPECT_EQ(std::string(text).find("unknown"), std::string::npos) << number << " (" << all << ") has no text";
    }
}

// 1000 dates reach the date checks, 1001 are refused before them. MDY_maint takes a list of any length
// without validation; with it, it refuses a merge that would pass 1000 dates.
TEST(ErrorNumbers, DateListsHoldAtMostOneThousandDates) {
    for (const auto& [refused, call] : list_checks) {
        EXPECT_EQ(list_check(call, ORVEL_DATE_LIST_MAX), ORVEL_E_DATE_LIST_BASE + 999u);
        EXPECT_EQ(list_check(call, ORVEL_DATE_LIST_MAX + 1, false), refused);
    }
    std::vector<int32_t> am(1001), ad(1001), ay(1001);  // 1000 days from 1/1/2000, room for one more
    std::vector<double> amt(1001, 1.0);
    for (int32_t i = 0; i < 1000; ++i) julian_2_MDY(2451545 + i, &am[i], &ad[i], &ay[i]);
    const int32_t cm = 12, cd = 31, cy = 2002;  // after the last of them (9/26/2002)
    const double camt = 1.0;
    const int32_t rows[][4] = {{1000, 1, 0, ORVEL_E_LIST_LENGTH}, {1000, 0, 1001, 0}, {999, 1, 1000, 0}};
    for (const auto& [count, validate, merged, number] : rows) {  // count, validate => new count, err_code
        uint32_t err = 0;
        EXPECT_EQ(MDY_maint(1, am.data(), ad.data(), ay.data(), amt.data(), count, 1001, &cm, &cd, &cy, &camt, 1,
                            validate, &err), merged) << count << " " << validate;
        EXPECT_EQ(err, static_cast<uint32_t>(number)) << count << " " << validate;
    }
}

// The text is cut to size - 1 characters and terminated, nothing written for a size below 1 or past the
// buffer; the result is always the whole length. Then every number from -10 to 15000 into a buffer of 8.
TEST(ErrorText, CutToTheBufferAndAlwaysTerminated) {
    const std::string full = "settlement date must be before maturity date";
    const auto whole = static_cast<int32_t>(full.size());
    for (int32_t size = -3; size <= whole + 40; ++size) {
        const auto n = static_cast<std::size_t>(std::max(size, 0));
        std::vector<char> buf(n + 1, '#');
        EXPECT_EQ(err_2_text(2171, size == 0 ? nullptr : buf.data(), size), whole) << size;
        const std::string shown(buf.data(), strnlen(buf.data(), n));  // all n characters when not terminated
        EXPECT_EQ(shown, size > 0 ? full.substr(0, n - 1) : "") << size;
        EXPECT_EQ(buf[n], '#') << size << ": canary overwritten";
    }
    for (int32_t number = -10; number <= 15000; ++number) {
        char buf[10] = "#########";
        const int32_t n = err_2_text(number, buf, 8);
        ASSERT_GT(n, 0) << number;
        ASSERT_EQ(std::strlen(buf), static_cast<std::size_t>(std::min(n, 7))) << number;
        ASSERT_EQ(buf[8], '#') << number;
    }
}

}  // namespace
