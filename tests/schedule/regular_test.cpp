// Coupon dates, period counts and day splits of regular schedules: hand-worked cases, and sweeps over
// every settlement day against the schedule written out with the calendar's period step.
#include <gtest/gtest.h>

#include <climits>

#include "schedule_testing.hpp"

namespace {

using schedule_testing::D;

struct Info {
    int32_t da, dp, dr, nper, frac;
    friend bool operator==(const Info&, const Info&) = default;
    friend std::ostream& operator<<(std::ostream& os, const Info& i) {
        return os << "da " << i.da << " dp " << i.dp << " dr " << i.dr << " nper " << i.nper << " frac " << i.frac;
    }
};

Info reg_info(D settle, D mat, int32_t day_type, int32_t eom, int32_t freq) {
    Info i{};
    uint32_t err = 0;
    const int32_t dr = reg_per_info(settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, day_type, eom, freq, &i.da,
                                    &i.dp, &i.dr, &i.nper, &i.frac, 0, &err);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(dr, i.dr);
    return i;
}

struct HandCase {
    D settle, mat;
    int32_t freq, eom, day_type;
    D pcd, ncd;
    Info info;
    const char* working;
};

// Each row worked by hand; the day counts are spelled out in `working`.
const HandCase kHandCases[] = {
    {{3, 15, 2020}, {6, 10, 2025}, 2, 0, 1, {12, 10, 2019}, {6, 10, 2020}, {96, 183, 87, 10, 1},
     "Dec10->Mar15 21+31+29+15; Dec10->Jun10 183; 11 coupons after settle, one partial"},
    {{3, 15, 2020}, {6, 10, 2025}, 2, 0, 2, {12, 10, 2019}, {6, 10, 2020}, {95, 180, 85, 10, 1},
     "30/360: 3 months * 30 - 10 + 15 = 95; dp fixed at 180, dr = 180 - 95"},
    {{6, 10, 2020}, {6, 10, 2025}, 2, 0, 1, {6, 10, 2020}, {12, 10, 2020}, {0, 183, 183, 10, 0},
     "settlement on a coupon date: nothing accrued, 10 whole periods"},
    {{9, 15, 2030}, {2, 28, 2031}, 2, 1, 1, {8, 31, 2030}, {2, 28, 2031}, {15, 181, 166, 0, 1},
     "eom: Feb 28 anchor steps back to Aug 31; Aug31->Feb28 30+31+30+31+31+28"},
    {{9, 15, 2030}, {2, 28, 2031}, 2, 0, 1, {8, 28, 2030}, {2, 28, 2031}, {18, 184, 166, 0, 1},
     "no eom: Feb 28 steps back to Aug 28; Aug28->Feb28 3+30+31+30+31+31+28"},
    {{9, 15, 2030}, {2, 28, 2031}, 2, 1, 5, {8, 31, 2030}, {2, 28, 2031}, {15, 180, 165, 0, 1},
     "30E/360 over a 181-day calendar period: dp is still 180"},
    {{11, 1, 2025}, {12, 31, 2025}, 4, 1, 1, {9, 30, 2025}, {12, 31, 2025}, {32, 92, 60, 0, 1},
     "quarterly last period: Sep30->Nov1 31+1, Sep30->Dec31 31+30+31"},
    {{3, 1, 2024}, {3, 31, 2026}, 12, 1, 1, {2, 29, 2024}, {3, 31, 2024}, {1, 31, 30, 24, 1},
     "monthly month ends through a leap February; 25 coupons after settle"},
    {{3, 1, 2024}, {3, 31, 2026}, 12, 0, 1, {2, 29, 2024}, {3, 31, 2024}, {1, 31, 30, 24, 1},
     "without eom the 31st is clamped to Feb 29 and kept elsewhere: same dates"},
    {{7, 4, 2021}, {1, 15, 2030}, 1, 0, 1, {1, 15, 2021}, {1, 15, 2022}, {170, 365, 195, 8, 1},
     "annual: Jan15->Jul4 16+28+31+30+31+30+4"},
    {{3, 15, 2024}, {6, 15, 2024}, 2, 0, 13, {12, 15, 2023}, {6, 15, 2024}, {91, 182, 92, 0, 1},
     "code 13 accrues actual days (16+31+29+15) but measures without Feb 29 (183-1, 92)"},
    {{3, 15, 2024}, {6, 15, 2024}, 2, 0, 7, {12, 15, 2023}, {6, 15, 2024}, {91, 180, 92, 0, 1},
     "actual/360: fixed 180-day period, actual days remaining"},
    {{5, 31, 2025}, {11, 30, 2025}, 2, 0, 2, {5, 30, 2025}, {11, 30, 2025}, {0, 180, 180, 1, 0},
     "30/360 counts May 30 -> May 31 as no day: a whole period remains"},
    {{5, 31, 2025}, {11, 30, 2025}, 2, 0, 1, {5, 30, 2025}, {11, 30, 2025}, {1, 184, 183, 0, 1},
     "the same settlement in actual days is one day into the period"},
    {{1, 15, 2030}, {1, 15, 2030}, 2, 0, 1, {1, 15, 2030}, {1, 15, 2030}, {0, 0, 0, 0, 0},
     "settlement on maturity: maturity twice, nothing left"},
};

TEST(RegularSchedule, HandWorkedCases) {
    for (const HandCase& c : kHandCases) {
        SCOPED_TRACE(testing::Message() << c.settle << " to " << c.mat << " freq " << c.freq << " eom " << c.eom
                                        << " type " << c.day_type << ": " << c.working);
        D ncd{};
        const D pcd = schedule_testing::pcd_of(c.settle, c.mat, c.freq, c.eom, &ncd);
        EXPECT_EQ(pcd, c.pcd);
        EXPECT_EQ(ncd, c.ncd);
        EXPECT_EQ(reg_info(c.settle, c.mat, c.day_type, c.eom, c.freq), c.info);
    }
}

TEST(RegularSchedule, DoubleFormsAgreeWithIntegerForms) {
    for (const HandCase& c : kHandCases) {
        SCOPED_TRACE(testing::Message() << c.settle << " to " << c.mat << " type " << c.day_type);
        const Info i = reg_info(c.settle, c.mat, c.day_type, c.eom, c.freq);
        double da = -1, dp = -1, dr = -1, nper = -1, frac = -1;
        uint32_t err = 0;
        EXPECT_EQ(d_regperinfo(c.settle.m, c.settle.d, c.settle.y, c.mat.m, c.mat.d, c.mat.y, c.day_type, c.eom,
                               c.freq, &da, &dp, &dr, &nper, &frac, 0, &err),
                  i.dr);
        EXPECT_EQ((Info{int32_t(da), int32_t(dp), int32_t(dr), int32_t(nper), int32_t(frac)}), i);
        EXPECT_EQ(d_qlb2dpdadr(c.settle.m, c.settle.d, c.settle.y, c.mat.m, c.mat.d, c.mat.y, c.day_type, c.eom,
                               c.freq, &da, &dp, &dr, 0, &err),
                  i.dr);
        EXPECT_EQ(da, i.da);
        EXPECT_EQ(dp, i.dp);
        int32_t nper_i = -1, frac_i = -1;
        EXPECT_EQ(num_per_dt(c.settle.m, c.settle.d, c.settle.y, c.mat.m, c.mat.d, c.mat.y, c.day_type, c.eom,
                             c.freq, &nper_i, &frac_i, 0, &err),
                  i.nper);
        EXPECT_EQ(frac_i, i.frac);
        EXPECT_EQ(err, 0u);
    }
}

// The day split of every family on one period: Aug 31 -> Feb 28 2031 (181 calendar days), settle Sep 15.
TEST(DaySplit, EachFamily) {
    struct Row {
        int32_t day_type, da, dp, dr;
        const char* working;
    };
    const Row rows[] = {
        {1, 15, 181, 166, "actual"},
        {2, 15, 180, 165, "NASD: 31 -> 30, 30+15-30"},
        {3, 15, 180, 165, "MSRB counts like NASD"},
        {4, 15, 180, 163, "SIA: dr Sep15->Feb28 = 5*30 - 15 + 28"},
        {5, 15, 180, 165, "30E/360"},
        {6, 15, 180, 165, "month ends as 30: Aug31 = 30, Feb28 = 30"},
        {7, 15, 180, 166, "actual/360: fixed period, actual remaining"},
        {8, 15, 181, 166, "actual/365"},
        {9, 15, 181, 166, "no leap day in the period"},
        {10, 15, 180, 165, "code 10 splits as the fixed 30/360 family: 180 - 15"},
        {11, 15, 180, 165, "European: dr = 180 - 15"},
        {12, 15, 181, 166, "actual/365"},
        {13, 15, 181, 166, "no leap day: as 9"},
        {0, 15, 181, 166, "unknown code: actual days"},
        {99, 15, 181, 166, "unknown code: actual days"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(testing::Message() << "day_type " << r.day_type << ": " << r.working);
        int32_t da = -1, dp = -1, dr = -1;
        uint32_t err = 0;
        EXPECT_EQ(per2dp_da_dr(8, 31, 2030, 2, 28, 2031, 9, 15, 2030, r.day_type, 2, &da, &dp, &dr, 0, &err), r.dr);
        EXPECT_EQ(da, r.da);
        EXPECT_EQ(dp, r.dp);
        EXPECT_EQ(dr, r.dr);
    }
}

// Every settlement day of the last three years of each schedule against a scan of the written-out dates.
TEST(RegularSchedule, EverySettlementAgreesWithTheWrittenOutSchedule) {
    const D maturities[] = {{8, 31, 2030}, {2, 28, 2031}, {2, 29, 2032}, {5, 15, 2027},
                            {1, 31, 2029}, {6, 30, 2026}, {12, 31, 2040}, {11, 30, 2025}};
    for (const D mat : maturities) {
        for (int32_t freq : {1, 2, 4, 12}) {
            for (int32_t eom : {0, 1}) {
                const auto dates = schedule_testing::written_out(mat, 4 * freq, freq, eom);
                for (D settle = schedule_testing::day_after(mat, -3 * 365); schedule_testing::serial(settle) <
                                                                             schedule_testing::serial(mat);
                     settle = schedule_testing::day_after(settle, 1)) {
                    SCOPED_TRACE(testing::Message() << "settle " << settle << " mat " << mat << " freq " << freq
                                                    << " eom " << eom);
                    const auto want = schedule_testing::scan(dates, settle);
                    D ncd{};
                    const D pcd = schedule_testing::pcd_of(settle, mat, freq, eom, &ncd);
                    ASSERT_EQ(pcd, want.pcd);
                    ASSERT_EQ(ncd, want.ncd);
                    const bool on_coupon = pcd == settle;
                    // Actual days: whole periods are the coupons after settlement, less the partial one.
                    const Info act = reg_info(settle, mat, 1, eom, freq);
                    ASSERT_EQ(act.nper, on_coupon ? want.after : want.after - 1);
                    ASSERT_EQ(act.frac, on_coupon ? 0 : 1);
                    uint32_t unused = 0;
                    ASSERT_EQ(act.dp, days_b_MDYs(pcd.m, pcd.d, pcd.y, ncd.m, ncd.d, ncd.y, 1, 0, &unused));
                    ASSERT_EQ(act.da + act.dr, act.dp);
                    ASSERT_EQ(act.da == 0, on_coupon);
                    for (int32_t day_type = 2; day_type <= 13; ++day_type) {
                        const Info i = reg_info(settle, mat, day_type, eom, freq);
                        uint32_t err = 0;
                        ASSERT_EQ(i.da, days_b_MDYs(pcd.m, pcd.d, pcd.y, settle.m, settle.d, settle.y, day_type, 0,
                                                    &err));
                        switch (day_type) {
                        case 2: case 3: case 5: case 10: case 11:
                            ASSERT_EQ(i.dp, 360 / freq);
                            ASSERT_EQ(i.dr, i.dp - i.da);
                            ASSERT_EQ(i.frac, i.da == 0 ? 0 : 1);
                            break;
                        case 6: case 8: case 9: case 12:
                            ASSERT_EQ(i.dp, days_b_MDYs(pcd.m, pcd.d, pcd.y, ncd.m, ncd.d, ncd.y, day_type, 0, &err));
                            ASSERT_EQ(i.da + i.dr, i.dp);
                            ASSERT_EQ(i.frac, i.da == 0 ? 0 : 1);
                            break;
                        case 4:
                            ASSERT_EQ(i.dp, 360 / freq);
                            break;
                        default:  // 7, 13: the whole-period test is on calendar days
                            ASSERT_EQ(i.frac, act.frac);
                            ASSERT_EQ(i.nper, act.nper);
                        }
                        ASSERT_EQ(i.nper + i.frac, act.nper + act.frac);
                        int32_t nper = -1, frac = -1;
                        num_per_dt(settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, day_type, eom, freq, &nper,
                                   &frac, 0, &err);
                        ASSERT_EQ(i.nper, nper);
                        ASSERT_EQ(i.frac, frac);
                    }
                }
            }
        }
    }
}

TEST(RegularSchedule, SettlementOnMaturityGivesMaturityTwice) {
    D ncd{};
    EXPECT_EQ(schedule_testing::pcd_of({8, 31, 2030}, {8, 31, 2030}, 2, 1, &ncd), (D{8, 31, 2030}));
    EXPECT_EQ(ncd, (D{8, 31, 2030}));
}

struct MonthCase {
    D settle, mat;
    int32_t freq, nper, frac;
    const char* working;
};

TEST(PeriodsByMonths, HandWorkedCases) {
    const MonthCase cases[] = {
        {{3, 15, 2020}, {6, 10, 2025}, 2, 10, 1, "63 months; Jun 10 back 63 is Mar 10, before settle: 62"},
        {{6, 10, 2020}, {6, 10, 2025}, 2, 10, 0, "60 months landing on settle, a multiple of 6"},
        {{9, 10, 2020}, {6, 10, 2025}, 2, 9, 1, "57 months land on settle but are no multiple of 6"},
        {{8, 31, 2020}, {2, 28, 2021}, 2, 1, 0, "month ends stay month ends: Feb 28 back 6 is Aug 31"},
        {{8, 30, 2020}, {2, 28, 2021}, 2, 1, 1, "Aug 31 lies after Aug 30: 6 months stand, partial"},
        {{1, 15, 2025}, {1, 15, 2030}, 1, 5, 0, "five whole years"},
        {{1, 16, 2025}, {1, 15, 2030}, 12, 59, 1, "59 whole months and a partial one"},
        {{2, 15, 2025}, {5, 15, 2025}, 4, 1, 0, "3 months land on settle: one whole quarter"},
    };
    for (const MonthCase& c : cases) {
        SCOPED_TRACE(testing::Message() << c.settle << " to " << c.mat << ": " << c.working);
        int32_t nper = -1, frac = -1;
        uint32_t err = 0;
        EXPECT_EQ(num_per(c.settle.m, c.settle.d, c.settle.y, c.mat.m, c.mat.d, c.mat.y, c.freq, &nper, &frac, 1,
                          &err),
                  c.nper);
        EXPECT_EQ(nper, c.nper);
        EXPECT_EQ(frac, c.frac);
        EXPECT_EQ(err, 0u);
    }
}

}  // namespace
