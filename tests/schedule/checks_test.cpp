// Error numbers of the schedule functions with validation, and answers without it for any input.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "schedule_testing.hpp"

namespace {

using schedule_testing::D;

struct ErrCase {
    const char* what;
    uint32_t expected;
    uint32_t (*call)();
};

template <class F>
uint32_t err_of(F f) {
    uint32_t err = 0;
    f(&err);
    return err;
}

// Each row: one bad argument (or order) and the number it must produce; outputs stay as they were.
const ErrCase kErrCases[] = {
    {"lst_nxt_ncpn settle after mat", 2000, [] {
         return err_of([](uint32_t* e) { int32_t o[6]; lst_nxt_ncpn(7, 1, 2030, 6, 30, 2030, 2, 0, o, o + 1, o + 2, o + 3, o + 4, o + 5, 1, e); });
     }},
    {"lst_nxt_ncpn settlement month 13", 1200, [] {
         return err_of([](uint32_t* e) { int32_t o[6]; lst_nxt_ncpn(13, 1, 2020, 6, 30, 2030, 2, 0, o, o + 1, o + 2, o + 3, o + 4, o + 5, 1, e); });
     }},
    {"lst_nxt_ncpn blank maturity", 1500, [] {
         return err_of([](uint32_t* e) { int32_t o[6]; lst_nxt_ncpn(1, 1, 2020, 0, 0, 0, 2, 0, o, o + 1, o + 2, o + 3, o + 4, o + 5, 1, e); });
     }},
    {"lst_nxt_ncpn frequency 3", 600, [] {
         return err_of([](uint32_t* e) { int32_t o[6]; lst_nxt_ncpn(1, 1, 2020, 6, 30, 2030, 3, 0, o, o + 1, o + 2, o + 3, o + 4, o + 5, 1, e); });
     }},
    {"lst_nxt_ncpn frequency missing", 601, [] {
         return err_of([](uint32_t* e) { int32_t o[6]; lst_nxt_ncpn(1, 1, 2020, 6, 30, 2030, -1, 0, o, o + 1, o + 2, o + 3, o + 4, o + 5, 1, e); });
     }},
    {"per2dp_da_dr pcd equal to ncd", 2100, [] {
         return err_of([](uint32_t* e) { int32_t o[3]; per2dp_da_dr(1, 15, 2020, 1, 15, 2020, 1, 15, 2020, 1, 2, o, o + 1, o + 2, 1, e); });
     }},
    {"per2dp_da_dr pcd 30th, ncd 31st under 30/360", 2100, [] {
         return err_of([](uint32_t* e) { int32_t o[3]; per2dp_da_dr(5, 30, 2020, 5, 31, 2020, 5, 30, 2020, 2, 2, o, o + 1, o + 2, 1, e); });
     }},
    {"per2dp_da_dr settle before pcd", 2000, [] {
         return err_of([](uint32_t* e) { int32_t o[3]; per2dp_da_dr(1, 15, 2020, 7, 15, 2020, 1, 14, 2020, 1, 2, o, o + 1, o + 2, 1, e); });
     }},
    {"per2dp_da_dr settle after ncd", 2000, [] {
         return err_of([](uint32_t* e) { int32_t o[3]; per2dp_da_dr(1, 15, 2020, 7, 15, 2020, 7, 16, 2020, 1, 2, o, o + 1, o + 2, 1, e); });
     }},
    {"per2dp_da_dr day_type 14", 500, [] {
         return err_of([](uint32_t* e) { int32_t o[3]; per2dp_da_dr(1, 15, 2020, 7, 15, 2020, 3, 1, 2020, 14, 2, o, o + 1, o + 2, 1, e); });
     }},
    {"num_per settle on mat", 2100, [] {
         return err_of([](uint32_t* e) { int32_t o[2]; num_per(6, 30, 2030, 6, 30, 2030, 2, o, o + 1, 1, e); });
     }},
    {"num_per frequency 6", 600, [] {
         return err_of([](uint32_t* e) { int32_t o[2]; num_per(6, 30, 2020, 6, 30, 2030, 6, o, o + 1, 1, e); });
     }},
    {"num_per_dt day_type missing", 501, [] {
         return err_of([](uint32_t* e) { int32_t o[2]; num_per_dt(6, 30, 2020, 6, 30, 2030, -1, 0, 2, o, o + 1, 1, e); });
     }},
    {"num_per_dt year 2301", 1100, [] {
         return err_of([](uint32_t* e) { int32_t o[2]; num_per_dt(6, 30, 2020, 6, 30, 2301, 1, 0, 2, o, o + 1, 1, e); });
     }},
    {"reg_per_info settle after mat", 2100, [] {
         return err_of([](uint32_t* e) { int32_t o[5]; reg_per_info(7, 1, 2030, 6, 30, 2030, 1, 0, 2, o, o + 1, o + 2, o + 3, o + 4, 1, e); });
     }},
    {"d_regperinfo Feb 30", 1300, [] {
         return err_of([](uint32_t* e) { double o[5]; d_regperinfo(2, 30, 2020, 6, 30, 2030, 1, 0, 2, o, o + 1, o + 2, o + 3, o + 4, 1, e); });
     }},
    {"per_cpn_MDYs date after maturity", 2071, [] {
         return err_of([](uint32_t* e) { int32_t o[6]; per_cpn_MDYs(7, 1, 2030, 6, 30, 2030, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 2, o, o + 1, o + 2, o + 3, o + 4, o + 5, 1, e); });
     }},
    {"per_cpn_MDYs bad first coupon day", 1303, [] {
         return err_of([](uint32_t* e) { int32_t o[6]; per_cpn_MDYs(7, 1, 2021, 6, 30, 2030, 1, 1, 2021, 6, 31, 2021, 0, 0, 0, 1, 0, 2, o, o + 1, o + 2, o + 3, o + 4, o + 5, 1, e); });
     }},
    {"per_cpn_MDYs dated after first coupon", 2123, [] {
         return err_of([](uint32_t* e) { int32_t o[6]; per_cpn_MDYs(7, 1, 2021, 6, 30, 2030, 7, 1, 2021, 6, 30, 2021, 0, 0, 0, 1, 0, 2, o, o + 1, o + 2, o + 3, o + 4, o + 5, 1, e); });
     }},
    {"per_cpn_MDYs last coupon on maturity", 2161, [] {
         return err_of([](uint32_t* e) { int32_t o[6]; per_cpn_MDYs(7, 1, 2021, 6, 30, 2030, 0, 0, 0, 0, 0, 0, 6, 30, 2030, 1, 0, 2, o, o + 1, o + 2, o + 3, o + 4, o + 5, 1, e); });
     }},
    {"per_lcd bad maturity month", 1201, [] {
         return err_of([](uint32_t* e) { int32_t o[3]; per_lcd(0, 30, 2030, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 2, o, o + 1, o + 2, 1, e); });
     }},
    {"all_cpn_dts settle on maturity", 2171, [] {
         return err_of([](uint32_t* e) { int32_t o[4]; all_cpn_dts(6, 30, 2030, 6, 30, 2030, 0, 0, 0, 0, 0, 0, 0, 2, 1, o, o + 1, o + 2, o + 3, 1, e); });
     }},
    {"num_dper dates reversed", 2000, [] {
         return err_of([](uint32_t* e) { num_dper(6, 30, 2030, 6, 30, 2020, 1, 0, 2, 1, e); });
     }},
    {"i_earn_MDYs NaN coupon", 4100, [] {
         return err_of([](uint32_t* e) { i_earn_MDYs(1, 1, 2021, 6, 30, 2021, 6, 30, 2030, std::nan(""), 1, 0, 2, 1, e); });
     }},
    {"i_earn_MDYs end after maturity", 2081, [] {
         return err_of([](uint32_t* e) { i_earn_MDYs(1, 1, 2021, 7, 1, 2030, 6, 30, 2030, 5.0, 1, 0, 2, 1, e); });
     }},
    {"d_oddperinfo settle on the first coupon", 2173, [] {
         return err_of([](uint32_t* e) { double o[5]; d_oddperinfo(6, 15, 2021, 6, 15, 2030, 2, 1, 2021, 6, 15, 2021, 1, 0, 2, o, o + 1, o + 2, o + 3, o + 4, 1, e); });
     }},
    {"d_lstperinfo settle before the last coupon", 2067, [] {
         return err_of([](uint32_t* e) { double o[5]; d_lstperinfo(12, 1, 2029, 3, 1, 2030, 12, 15, 2029, 1, 0, 2, o, o + 1, o + 2, o + 3, o + 4, 1, e); });
     }},
};

TEST(ScheduleChecks, EachBadArgumentHasItsNumber) {
    for (const ErrCase& c : kErrCases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(c.call(), c.expected);
    }
}

TEST(ScheduleChecks, FailureWritesNothingAndReturnsZero) {
    int32_t da = -7, dp = -7, dr = -7, nper = -7, frac = -7;
    uint32_t err = 0;
    EXPECT_EQ(reg_per_info(7, 1, 2030, 6, 30, 2030, 1, 0, 2, &da, &dp, &dr, &nper, &frac, 1, &err), 0);
    EXPECT_EQ(da + dp + dr + nper + frac, -35);
    double x[5] = {-7, -7, -7, -7, -7};
    err = 0;
    EXPECT_EQ(d_regperinfo(7, 1, 2030, 6, 30, 2030, 1, 0, 2, x, x + 1, x + 2, x + 3, x + 4, 1, &err), 0.0);
    EXPECT_EQ(x[0] + x[1] + x[2] + x[3] + x[4], -35.0);
}

TEST(ScheduleChecks, SuccessLeavesTheErrorWordAlone) {
    uint32_t err = 4242;
    int32_t da, dp, dr, nper, frac;
    EXPECT_EQ(reg_per_info(3, 15, 2020, 6, 10, 2025, 1, 0, 2, &da, &dp, &dr, &nper, &frac, 1, &err), 87);
    EXPECT_EQ(err, 4242u);
}

// Without validation no input may hang, crash or overflow: nonsense frequencies, years far outside any
// calendar, malformed months and days, settlement after maturity. Run under the sanitizers too.
TEST(ScheduleWithoutChecks, AnyInputGivesAnAnswer) {
    const int32_t freqs[] = {0, -7, 1000, 5, 13, INT_MIN, INT_MAX, 2};
    const D dates[] = {{6, 30, 2030}, {1, 1, 9999}, {1, 1, -5}, {12, 31, INT_MAX}, {1, 1, INT_MIN},
                       {0, 0, 0},     {1000, 99, 2020}, {-7, -3, 2020}, {2, 29, 2023}, {INT_MAX, INT_MAX, INT_MAX},
                       {INT_MIN, INT_MIN, INT_MIN}, {INT_MIN, 1, 2020}};
    for (const int32_t freq : freqs) {
        for (const D a : dates) {
            for (const D b : dates) {
                SCOPED_TRACE(testing::Message() << a << " " << b << " freq " << freq);
                uint32_t err = 0;
                int32_t o[8];
                double x[5];
                lst_nxt_ncpn(a.m, a.d, a.y, b.m, b.d, b.y, freq, 1, o, o + 1, o + 2, o + 3, o + 4, o + 5, 0, &err);
                for (int32_t day_type : {1, 2, 4, 13, 0, 99}) {
                    reg_per_info(a.m, a.d, a.y, b.m, b.d, b.y, day_type, 1, freq, o, o + 1, o + 2, o + 3, o + 4, 0,
                                 &err);
                    per2dp_da_dr(a.m, a.d, a.y, b.m, b.d, b.y, a.m, a.d, a.y, day_type, freq, o, o + 1, o + 2, 0, &err);
                    num_dper(a.m, a.d, a.y, b.m, b.d, b.y, day_type, 0, freq, 0, &err);
                    i_earn_MDYs(a.m, a.d, a.y, b.m, b.d, b.y, b.m, b.d, b.y, 5.0, day_type, 0, freq, 0, &err);
                    d_oddperinfo(a.m, a.d, a.y, b.m, b.d, b.y, a.m, a.d, a.y, b.m, b.d, b.y, day_type, 0, freq, x,
                                 x + 1, x + 2, x + 3, x + 4, 0, &err);
                    d_lstperinfo(a.m, a.d, a.y, b.m, b.d, b.y, a.m, a.d, a.y, day_type, 0, freq, x, x + 1, x + 2,
                                 x + 3, x + 4, 0, &err);
                }
                num_per(a.m, a.d, a.y, b.m, b.d, b.y, freq, o, o + 1, 0, &err);
                per_cpn_MDYs(a.m, a.d, a.y, b.m, b.d, b.y, a.m, a.d, a.y, b.m, b.d, b.y, 0, 0, 0, 1, 1, freq, o, o + 1,
                             o + 2, o + 3, o + 4, o + 5, 0, &err);
                int32_t m[4], d[4], y[4], count;
                all_cpn_dts(a.m, a.d, a.y, b.m, b.d, b.y, 0, 0, 0, 0, 0, 0, 1, freq, 4, m, d, y, &count, 0, &err);
                EXPECT_TRUE(err == 0 || err == ORVEL_E_CAPACITY);
            }
        }
    }
}

// A frequency below 1 steps whole years, as the period step does; above 12 the schedule is maturity alone.
TEST(ScheduleWithoutChecks, NonsenseFrequenciesFollowThePeriodStep) {
    D ncd{};
    EXPECT_EQ(schedule_testing::pcd_of({3, 15, 2020}, {6, 10, 2025}, 0, 0, &ncd), (D{6, 10, 2019}));
    EXPECT_EQ(ncd, (D{6, 10, 2020}));
    EXPECT_EQ(schedule_testing::pcd_of({3, 15, 2020}, {6, 10, 2025}, -7, 0, &ncd), (D{6, 10, 2019}));
    EXPECT_EQ(schedule_testing::pcd_of({3, 15, 2020}, {6, 10, 2025}, 1000, 0, &ncd), (D{6, 10, 2025}));
    EXPECT_EQ(ncd, (D{6, 10, 2025}));
    // Settlement after maturity: the grid runs on past maturity.
    EXPECT_EQ(schedule_testing::pcd_of({3, 15, 2027}, {6, 10, 2025}, 2, 0, &ncd), (D{12, 10, 2026}));
    EXPECT_EQ(ncd, (D{6, 10, 2027}));
    int32_t nper, frac;
    uint32_t err = 0;
    EXPECT_EQ(num_per_dt(3, 15, 2027, 6, 10, 2025, 1, 0, 2, &nper, &frac, 0, &err), -4);
}

}  // namespace
