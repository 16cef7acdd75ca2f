// Error exits: one row per (call, bad argument, expected number), each call with validate set.
#include <gtest/gtest.h>

#include <functional>

#include "orvel/calendar.h"

namespace {

struct ErrorRow {
    const char* what;
    std::function<double(uint32_t*)> call;
    uint32_t expected;
};

TEST(Validation, EachBadArgumentGivesItsNumber) {
    int32_t m = 0, d = 0, y = 0, basis = 0;
    const ErrorRow rows[] = {
        {"dow: month 13", [](uint32_t* e) { return MDY_2_dow(13, 1, 2000, 1, e); }, 1200},
        {"dow: blank", [](uint32_t* e) { return MDY_2_dow(0, 0, 0, 1, e); }, 1500},
        {"doy: 2/29/2001", [](uint32_t* e) { return MDY_2_doy(2, 29, 2001, 1, e); }, 1300},
        {"doy: year 1799", [](uint32_t* e) { return MDY_2_doy(1, 1, 1799, 1, e); }, 1100},
        {"doy_2_MDY: day 367", [&](uint32_t* e) { return doy_2_MDY(367, 2000, &m, &d, &y, 1, e); }, 5103},
        {"doy_2_MDY: year 1799", [&](uint32_t* e) { return doy_2_MDY(1, 1799, &m, &d, &y, 1, e); }, 5104},
        {"eq: first date day 32", [](uint32_t* e) { return is_MDYeqMDY(1, 32, 2000, 1, 1, 2000, 1, 1, e); }, 1300},
        {"le: second date blank", [](uint32_t* e) { return is_MDYleMDY(1, 1, 2000, 0, 0, 1900, 1, 1, e); }, 1500},
        {"lt: day_type -1", [](uint32_t* e) { return is_MDYltMDY(1, 1, 2000, 1, 2, 2000, -1, 1, e); }, 501},
        {"le: later first date", [](uint32_t* e) { return is_MDYleMDY(1, 2, 2000, 1, 1, 2000, 1, 1, e); }, 2000},
        {"lt: equal dates", [](uint32_t* e) { return is_MDYltMDY(1, 1, 2000, 1, 1, 2000, 1, 1, e); }, 2100},
        {"lt: 30th and 31st under 30/360", [](uint32_t* e) { return is_MDYltMDY(3, 30, 2000, 3, 31, 2000, 2, 0, e); },
         2100},
        {"days: day_type 14", [](uint32_t* e) { return days_b_MDYs(1, 1, 2000, 1, 1, 2001, 14, 1, e); }, 500},
        {"days: day_type before dates", [](uint32_t* e) { return days_b_MDYs(0, 0, 0, 1, 1, 2001, -1, 1, e); }, 501},
        {"days: second date year 2301", [](uint32_t* e) { return days_b_MDYs(1, 1, 2000, 1, 1, 2301, 1, 1, e); }, 1100},
        {"years: date2 first", [](uint32_t* e) { return years_b_MDYs(1, 2, 2000, 1, 1, 2000, 1, 1, e); }, 2000},
        {"years: bad month", [](uint32_t* e) { return years_b_MDYs(0, 1, 2000, 1, 1, 2000, 1, 1, e); }, 1200},
        {"yrbasis: day_type 0", [](uint32_t* e) { return days_yrbasis(1, 1, 2000, 0, 1, e); }, 500},
        {"yrbasis: bad date", [](uint32_t* e) { return days_yrbasis(4, 31, 2000, 1, 1, e); }, 1300},
        {"act_yr: settlement month",
         [](uint32_t* e) { return days_act_yr(13, 1, 2000, 1, 1, 2000, 1, 1, 2001, 1, 1, e); }, 1207},
        {"act_yr: maturity blank", [](uint32_t* e) { return days_act_yr(1, 1, 2000, 1, 1, 2000, 0, 0, 0, 1, 1, e); },
         1501},
        {"act_yr: dated date read by 2",
         [](uint32_t* e) { return days_act_yr(1, 1, 2000, 2, 30, 2000, 1, 1, 2001, 2, 1, e); }, 1302},
        {"act_yr: dated date read by 6",
         [](uint32_t* e) { return days_act_yr(1, 1, 2000, 1, 1, 1700, 1, 1, 2001, 6, 1, e); }, 1102},
        {"actf_yr: dated date read by 11",
         [](uint32_t* e) { return days_actf_yr(1, 1, 2000, 0, 0, 0, 1, 1, 2001, 11, 2, 1, e); }, 1502},
        {"actf_yr: frequency -1",
         [](uint32_t* e) { return days_actf_yr(1, 1, 2000, 1, 1, 2000, 1, 1, 2001, 12, -1, 1, e); }, 601},
        {"dn_365: day_type 99", [](uint32_t* e) { return is_dt_dn_365(99, 1, e); }, 500},
        {"isda: date2 first", [&](uint32_t* e) { return isda_dcf(1, 2, 2000, 1, 1, 2000, 1, 0, 0, 0, &basis, 1, e); },
         2000},
        {"isda: bad date before day_type",
         [&](uint32_t* e) { return isda_dcf(1, 1, 2000, 2, 30, 2000, -1, 0, 0, 0, &basis, 1, e); }, 1300},
        {"isda: day_type", [&](uint32_t* e) { return isda_dcf(1, 1, 2000, 1, 1, 2001, -1, 0, 0, 0, &basis, 1, e); },
         501},
    };
    for (const ErrorRow& r : rows) {
        SCOPED_TRACE(r.what);
        uint32_t err = 0;
        EXPECT_EQ(r.call(&err), 0.0);
        EXPECT_EQ(err, r.expected);
    }
}

TEST(Validation, SuccessLeavesErrCodeAlone) {
    uint32_t err = 4242;
    int32_t basis = 0, m = 0, d = 0, y = 0;
    EXPECT_EQ(MDY_2_dow(2, 29, 2000, 1, &err), 2);
    EXPECT_EQ(days_b_MDYs(1, 1, 2000, 1, 1, 2001, 2, 1, &err), 360);
    EXPECT_EQ(is_MDYeqMDY(1, 1, 2000, 1, 2, 2000, 1, 1, &err), 0);     // unequal is no failure
    EXPECT_EQ(is_MDYleMDY(3, 31, 2000, 3, 30, 2000, 5, 1, &err), 1);   // 30E: the 31st is the 30th
    EXPECT_EQ(is_MDYltMDY(3, 30, 2000, 3, 31, 2000, 11, 1, &err), 1);  // rolled forward: the 31st is later
    EXPECT_EQ(doy_2_MDY(60, 2000, &m, &d, &y, 1, &err), 2000);
    EXPECT_DOUBLE_EQ(isda_dcf(1, 1, 2000, 1, 1, 2000, 1, 0, 0, 0, &basis, 1, &err), 0.0);
    EXPECT_EQ(basis, 366);
    EXPECT_EQ(m * 100 + d, 229);
    EXPECT_EQ(err, 4242u);
}

// Under a 30/360 code the 30th and the 31st of a month are one day; under actual codes they are not.
TEST(Comparison, ThroughTheDayCountOfTheCode) {
    uint32_t err = 0;
    for (int32_t code : {2, 3, 4, 5, 10}) {
        SCOPED_TRACE(code);
        EXPECT_EQ(is_MDYeqMDY(3, 30, 2001, 3, 31, 2001, code, 1, &err), 1);
        EXPECT_EQ(is_MDYleMDY(3, 31, 2001, 3, 30, 2001, code, 1, &err), 1);
    }
    EXPECT_EQ(is_MDYeqMDY(3, 30, 2001, 3, 31, 2001, 1, 1, &err), 0);
    EXPECT_EQ(is_MDYeqMDY(2, 28, 2001, 3, 1, 2001, 9, 1, &err), 0);
    EXPECT_EQ(is_MDYeqMDY(2, 29, 2000, 3, 1, 2000, 9, 1, &err), 1);  // no leap day: 29 Feb is 1 March
    EXPECT_EQ(is_MDYeqMDY(2, 28, 2001, 3, 30, 2001, 6, 1, &err), 0);
    EXPECT_EQ(err, 0u);
}

}  // namespace
