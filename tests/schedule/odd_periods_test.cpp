// Schedules with odd first and last periods, coupon lists, and distances measured in periods.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "schedule_testing.hpp"

namespace {

using schedule_testing::D;
using schedule_testing::serial;

const D kBlank{0, 0, 0};

struct Bond {
    D mat, dated, first, last;
    int32_t freq, eom;
    const char* name;
};

const Bond kBonds[] = {
    {{3, 1, 2030}, {2, 1, 2021}, {6, 15, 2021}, {12, 15, 2029}, 2, 0, "short first, short last"},
    {{3, 1, 2030}, {8, 1, 2020}, {6, 15, 2021}, {6, 15, 2029}, 2, 0, "long first, long last"},
    {{12, 15, 2029}, {11, 10, 2020}, {2, 28, 2021}, {8, 31, 2029}, 2, 1, "month-end regular dates"},
    {{5, 20, 2026}, {1, 5, 2021}, {3, 31, 2021}, {3, 31, 2026}, 4, 1, "quarterly month ends"},
    {{7, 10, 2024}, {1, 2, 2022}, {1, 31, 2022}, {6, 30, 2024}, 12, 1, "monthly"},
    {{9, 1, 2031}, {9, 1, 2021}, {9, 1, 2022}, {9, 1, 2030}, 1, 0, "annual, regular ends"},
};

D per_date(bool previous, D settle, const Bond& b, int32_t /*day_type: no bearing on the dates*/) {
    D pcd{-1, -1, -1}, ncd{-1, -1, -1};
    uint32_t err = 0;
    per_cpn_MDYs(settle.m, settle.d, settle.y, b.mat.m, b.mat.d, b.mat.y, b.dated.m, b.dated.d, b.dated.y, b.first.m,
                 b.first.d, b.first.y, b.last.m, b.last.d, b.last.y, 1, b.eom, b.freq, &pcd.m, &pcd.d, &pcd.y, &ncd.m,
                 &ncd.d, &ncd.y, 1, &err);
    EXPECT_EQ(err, 0u);
    return previous ? pcd : ncd;
}

// The regular part located the long way: periods to the last regular coupon by num_per_dt, one fewer when
// settlement is on a coupon date, then both dates stepped back from the last regular coupon.
void regular_part_long_way(D settle, const Bond& b, int32_t day_type, D* pcd, D* ncd) {
    int32_t nper = 0, frac = 0;
    uint32_t err = 0;
    num_per_dt(settle.m, settle.d, settle.y, b.last.m, b.last.d, b.last.y, day_type, b.eom, b.freq, &nper, &frac, 0,
               &err);
    if (frac == 0) --nper;
    *ncd = schedule_testing::stepped(b.last, -nper, b.freq, b.eom);
    *pcd = schedule_testing::stepped(b.last, -nper - 1, b.freq, b.eom);
}

TEST(OddPeriods, EverySettlementDayAgreesWithTheLongWay) {
    for (const Bond& b : kBonds) {
        for (int32_t day_type : {1, 2, 4, 9, 13}) {
            for (D settle = b.dated; serial(settle) < serial(b.mat); settle = schedule_testing::day_after(settle, 1)) {
                SCOPED_TRACE(testing::Message() << b.name << " type " << day_type << " settle " << settle);
                D want_pcd, want_ncd;
                if (serial(settle) < serial(b.first)) {
                    want_pcd = b.dated;  // however far back the dated date lies
                    want_ncd = b.first;
                } else if (serial(settle) >= serial(b.last)) {
                    want_pcd = b.last;
                    want_ncd = b.mat;
                } else {
                    regular_part_long_way(settle, b, day_type, &want_pcd, &want_ncd);
                }
                const D pcd = per_date(true, settle, b, day_type);
                const D ncd = per_date(false, settle, b, day_type);
                ASSERT_EQ(pcd, want_pcd);
                ASSERT_EQ(ncd, want_ncd);
                ASSERT_LE(serial(pcd), serial(settle));
                ASSERT_LT(serial(settle), serial(ncd));
            }
        }
    }
}

TEST(OddPeriods, CouponLookupWithoutOddPeriodsIsTheRegularSchedule) {
    const D mat{8, 31, 2030};
    for (D date{1, 1, 2027}; serial(date) <= serial(mat); date = schedule_testing::day_after(date, 1)) {
        SCOPED_TRACE(testing::Message() << date);
        D want_ncd{};
        const D want_pcd = schedule_testing::pcd_of(date, mat, 2, 1, &want_ncd);
        D pcd{}, ncd{};
        uint32_t err = 0;
        per_cpn_MDYs(date.m, date.d, date.y, mat.m, mat.d, mat.y, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 2, &pcd.m, &pcd.d,
                     &pcd.y, &ncd.m, &ncd.d, &ncd.y, 1, &err);
        ASSERT_EQ(err, 0u);
        ASSERT_EQ(pcd, want_pcd);
        ASSERT_EQ(ncd, want_ncd);
    }
}

// per_pcd and per_ncd check their dates with the multi-rate date group, then find what per_cpn_MDYs finds.
TEST(OddPeriods, PreviousAndNextCouponAgreeWithTheLookup) {
    for (const Bond& b : kBonds) {
        for (D date = b.dated; serial(date) < serial(b.mat); date = schedule_testing::day_after(date, 5)) {
            SCOPED_TRACE(testing::Message() << b.name << " " << date);
            D pcd{-1, -1, -1}, ncd{-1, -1, -1};
            uint32_t err = 0;
            per_pcd(date.m, date.d, date.y, b.mat.m, b.mat.d, b.mat.y, b.dated.m, b.dated.d, b.dated.y, b.first.m,
                    b.first.d, b.first.y, b.last.m, b.last.d, b.last.y, 1, b.eom, b.freq, &pcd.m, &pcd.d, &pcd.y, 0,
                    &err);
            per_ncd(date.m, date.d, date.y, b.mat.m, b.mat.d, b.mat.y, b.dated.m, b.dated.d, b.dated.y, b.first.m,
                    b.first.d, b.first.y, b.last.m, b.last.d, b.last.y, 1, b.eom, b.freq, &ncd.m, &ncd.d, &ncd.y, 0,
                    &err);
            ASSERT_EQ(err, 0u);
            ASSERT_EQ(pcd, per_date(true, date, b, 1));
            ASSERT_EQ(ncd, per_date(false, date, b, 1));
        }
    }
}

// The date group is checked even when validate is 0, and nothing is written on failure.
TEST(OddPeriods, DatesAreAlwaysChecked) {
    const Bond& b = kBonds[0];
    D pcd{-1, -1, -1};
    uint32_t err = 0;
    per_pcd(13, 1, 2022, b.mat.m, b.mat.d, b.mat.y, b.dated.m, b.dated.d, b.dated.y, b.first.m, b.first.d, b.first.y,
            b.last.m, b.last.d, b.last.y, 1, b.eom, b.freq, &pcd.m, &pcd.d, &pcd.y, 0, &err);
    EXPECT_EQ(err, 1207u);
    EXPECT_EQ(pcd, (D{-1, -1, -1}));
    err = 0;
    per_ncd(3, 1, 2031, b.mat.m, b.mat.d, b.mat.y, b.dated.m, b.dated.d, b.dated.y, b.first.m, b.first.d, b.first.y,
            b.last.m, b.last.d, b.last.y, 1, b.eom, b.freq, &pcd.m, &pcd.d, &pcd.y, 0, &err);
    EXPECT_EQ(err, 2171u);
}

TEST(OddPeriods, BlankDatedStartsTheFirstPeriodOnePeriodBack) {
    D pcd{}, ncd{};
    uint32_t err = 0;
    per_cpn_MDYs(3, 1, 2021, 3, 1, 2030, 0, 0, 0, 6, 15, 2021, 0, 0, 0, 1, 0, 2, &pcd.m, &pcd.d, &pcd.y, &ncd.m,
                 &ncd.d, &ncd.y, 1, &err);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(pcd, (D{12, 15, 2020}));
    EXPECT_EQ(ncd, (D{6, 15, 2021}));
}

TEST(OddPeriods, LastCouponDate) {
    struct Row {
        D mat, dated, first, last;
        int32_t freq, eom;
        D lcd;
        const char* why;
    };
    const Row rows[] = {
        {{3, 1, 2030}, {2, 1, 2021}, {6, 15, 2021}, {12, 15, 2029}, 2, 0, {12, 15, 2029}, "the last regular coupon"},
        {{8, 31, 2030}, kBlank, kBlank, kBlank, 2, 1, {2, 28, 2030}, "one period back, month end kept"},
        {{8, 31, 2030}, kBlank, kBlank, kBlank, 2, 0, {2, 28, 2030}, "one period back, day clamped"},
        {{6, 15, 2021}, {2, 1, 2021}, {6, 15, 2021}, kBlank, 2, 0, {2, 1, 2021}, "a single odd period"},
        {{6, 15, 2022}, {2, 1, 2021}, {6, 15, 2021}, kBlank, 1, 0, {6, 15, 2021}, "first coupon then maturity"},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.why);
        D lcd{};
        uint32_t err = 0;
        per_lcd(r.mat.m, r.mat.d, r.mat.y, r.dated.m, r.dated.d, r.dated.y, r.first.m, r.first.d, r.first.y, r.last.m,
                r.last.d, r.last.y, 1, r.eom, r.freq, &lcd.m, &lcd.d, &lcd.y, 1, &err);
        EXPECT_EQ(err, 0u);
        EXPECT_EQ(lcd, r.lcd);
    }
}

std::vector<D> listed(D settle, const Bond& b, uint32_t* err, int32_t capacity = 400) {
    std::vector<int32_t> m(capacity > 0 ? capacity : 1), d(m.size()), y(m.size());
    int32_t count = -1;
    const int32_t n = all_cpn_dts(settle.m, settle.d, settle.y, b.mat.m, b.mat.d, b.mat.y, b.first.m, b.first.d,
                                  b.first.y, b.last.m, b.last.d, b.last.y, b.eom, b.freq, capacity, m.data(), d.data(),
                                  y.data(), &count, 1, err);
    std::vector<D> out;
    for (int32_t i = 0; i < n; ++i) out.push_back({m[i], d[i], y[i]});
    EXPECT_TRUE(n == count || *err != 0);
    return out;
}

// The list against the coupon dates found by stepping forward with per_cpn_MDYs from settlement.
TEST(CouponList, EqualsTheChainOfNextCouponDates) {
    for (const Bond& b : kBonds) {
        for (D settle = schedule_testing::day_after(b.dated, -40); serial(settle) < serial(b.mat);
             settle = schedule_testing::day_after(settle, 17)) {
            SCOPED_TRACE(testing::Message() << b.name << " settle " << settle);
            std::vector<D> chain;
            for (D at = serial(settle) < serial(b.dated) ? b.dated : settle; serial(at) < serial(b.mat);) {
                at = per_date(false, at, b, 1);
                chain.push_back(at);
            }
            uint32_t err = 0;
            ASSERT_EQ(listed(settle, b, &err), chain);
            ASSERT_EQ(err, 0u);
        }
    }
}

// A regular bond's list is the calendar's period step from maturity, every frequency, month ends or not.
TEST(CouponList, RegularListIsTheWrittenOutSchedule) {
    for (const D mat : {D{8, 31, 2030}, D{2, 28, 2031}, D{5, 15, 2027}}) {
        for (int32_t freq : {1, 2, 4, 12}) {
            for (int32_t eom : {0, 1}) {
                const auto dates = schedule_testing::written_out(mat, 10 * freq, freq, eom);
                const Bond b{mat, kBlank, kBlank, kBlank, freq, eom, "regular"};
                for (D settle = dates.front(); serial(settle) < serial(mat);
                     settle = schedule_testing::day_after(settle, 11)) {
                    SCOPED_TRACE(testing::Message() << mat << " freq " << freq << " eom " << eom << " " << settle);
                    std::vector<D> want;
                    for (const D x : dates)
                        if (serial(x) > serial(settle)) want.push_back(x);
                    uint32_t err = 0;
                    ASSERT_EQ(listed(settle, b, &err), want);
                }
            }
        }
    }
}

TEST(CouponList, TooSmallArraysAreAnErrorWithTheCountNeeded) {
    const Bond& b = kBonds[0];
    int32_t m[3] = {-1, -1, -1}, d[3] = {-1, -1, -1}, y[3] = {-1, -1, -1}, count = -1;
    uint32_t err = 0;
    // From 1/1/2021: 6/15/2021, then 12/15/2021 .. 12/15/2029 (17 dates), then maturity.
    EXPECT_EQ(all_cpn_dts(1, 1, 2021, b.mat.m, b.mat.d, b.mat.y, b.first.m, b.first.d, b.first.y, b.last.m, b.last.d,
                          b.last.y, b.eom, b.freq, 3, m, d, y, &count, 1, &err),
              0);
    EXPECT_EQ(err, 13000u);
    EXPECT_EQ(count, 19);
    EXPECT_EQ(m[0], -1);  // nothing written
    err = 0;
    EXPECT_EQ(listed({1, 1, 2021}, b, &err, 19).size(), 19u);
    EXPECT_EQ(err, 0u);
    err = 0;
    EXPECT_EQ(all_cpn_dts(1, 1, 2021, b.mat.m, b.mat.d, b.mat.y, b.first.m, b.first.d, b.first.y, b.last.m, b.last.d,
                          b.last.y, b.eom, b.freq, -5, m, d, y, &count, 0, &err),
              0);
    EXPECT_EQ(err, 13000u);
}

double dper(D a, D b, int32_t day_type, int32_t freq) {
    uint32_t err = 0;
    const double v = num_dper(a.m, a.d, a.y, b.m, b.d, b.y, day_type, 0, freq, 1, &err);
    EXPECT_EQ(err, 0u);
    return v;
}

TEST(PeriodDistance, HandWorkedCases) {
    EXPECT_DOUBLE_EQ(dper({3, 15, 2020}, {6, 10, 2025}, 1, 2), 10 + 87.0 / 183);  // 10 whole + Mar15->Jun10
    EXPECT_DOUBLE_EQ(dper({3, 15, 2020}, {6, 10, 2025}, 2, 2), 10 + 85.0 / 180);
    EXPECT_DOUBLE_EQ(dper({6, 10, 2020}, {6, 10, 2025}, 1, 2), 10.0);
    EXPECT_DOUBLE_EQ(dper({6, 10, 2025}, {6, 10, 2025}, 1, 2), 0.0);
    uint32_t err = 0;
    EXPECT_DOUBLE_EQ(num_yrs(3, 15, 2020, 6, 10, 2025, 1, 0, 4, 1, &err), dper({3, 15, 2020}, {6, 10, 2025}, 1, 4) / 4);
    EXPECT_DOUBLE_EQ(num_dper(6, 10, 2025, 3, 15, 2020, 1, 0, 2, 0, &err), -(10 + 87.0 / 183));
}

// Moving the start across a period under actual days changes the distance by the days moved over the
// period's length, settlement by settlement.
TEST(PeriodDistance, FallsByOneDayOverThePeriodEachDay) {
    const D mat{11, 30, 2027};
    for (D a{1, 1, 2024}; serial(a) < serial(mat) - 1; a = schedule_testing::day_after(a, 1)) {
        SCOPED_TRACE(testing::Message() << a);
        const D b = schedule_testing::day_after(a, 1);
        int32_t da, dp, dr, nper, frac;
        uint32_t err = 0;
        reg_per_info(a.m, a.d, a.y, mat.m, mat.d, mat.y, 1, 0, 2, &da, &dp, &dr, &nper, &frac, 0, &err);
        ASSERT_NEAR(dper(a, mat, 1, 2) - dper(b, mat, 1, 2), 1.0 / dp, 1e-12);
    }
}

double earned(D a, D b, D mat, int32_t day_type) {
    uint32_t err = 0;
    const double v = i_earn_MDYs(a.m, a.d, a.y, b.m, b.d, b.y, mat.m, mat.d, mat.y, 6.0, day_type, 1, 2, 1, &err);
    EXPECT_EQ(err, 0u);
    return v;
}

TEST(InterestEarned, WholePeriodsEarnWholeCoupons) {
    const D mat{8, 31, 2030};
    EXPECT_DOUBLE_EQ(earned({2, 28, 2027}, {8, 31, 2030}, mat, 1), 7 * 3.0);
    EXPECT_DOUBLE_EQ(earned({2, 28, 2027}, {2, 28, 2027}, mat, 1), 0.0);
    // Mar 15 -> Aug 31 2029 within one period of 184 days (Feb 28 -> Aug 31): 169 days.
    EXPECT_DOUBLE_EQ(earned({3, 15, 2029}, {8, 31, 2029}, mat, 1), 3.0 * 169 / 184);
}

// Earned interest adds up over consecutive holdings, for every split day of a two-year span (NASD 30/360
// is left out: its 31st counts differently as an end and as a start).
TEST(InterestEarned, AddsUpOverConsecutiveHoldings) {
    const D mat{8, 31, 2030}, a{1, 10, 2027}, c{2, 20, 2029};
    for (int32_t day_type : {1, 5, 6, 8, 9}) {  // counts that add up over a split day
        const double whole = earned(a, c, mat, day_type);
        for (D b = a; serial(b) <= serial(c); b = schedule_testing::day_after(b, 1)) {
            SCOPED_TRACE(testing::Message() << "type " << day_type << " split " << b);
            ASSERT_NEAR(earned(a, b, mat, day_type) + earned(b, c, mat, day_type), whole, 1e-12);
        }
    }
}

TEST(OddPeriodInfo, ShortAndLongFirstAndLastPeriods) {
    double da, dp, dr, nper, frac;
    uint32_t err = 0;
    // Dated Feb 1 2021, first coupon Jun 15 2021, settle Mar 1 2021: 28 days accrued, 106 to run
    // (30+30+31+15), regular period Dec 15 -> Jun 15 = 182 days; 17 whole periods to Dec 15 2029... to mat.
    EXPECT_EQ(d_oddperinfo(3, 1, 2021, 12, 15, 2029, 2, 1, 2021, 6, 15, 2021, 1, 0, 2, &da, &dp, &dr, &nper, &frac,
                           1, &err),
              106.0);
    EXPECT_EQ(da, 28.0);
    EXPECT_EQ(dp, 182.0);
    EXPECT_EQ(nper, 17.0);
    EXPECT_EQ(frac, 1.0);
    // Long first period under 30/360: Aug 1 2020 -> Mar 1 2021 = 210, Mar 1 -> Jun 15 = 104; dp = 180.
    EXPECT_EQ(d_oddperinfo(3, 1, 2021, 12, 15, 2029, 8, 1, 2020, 6, 15, 2021, 2, 0, 2, &da, &dp, &dr, &nper, &frac,
                           1, &err),
              104.0);
    EXPECT_EQ(da, 210.0);
    EXPECT_EQ(dp, 180.0);
    // Short last period: Dec 15 2029 -> Mar 1 2030, settle Jan 15: 31 accrued, 45 to run, dp 182.
    EXPECT_EQ(d_lstperinfo(1, 15, 2030, 3, 1, 2030, 12, 15, 2029, 1, 0, 2, &da, &dp, &dr, &nper, &frac, 1, &err),
              45.0);
    EXPECT_EQ(da, 31.0);
    EXPECT_EQ(dp, 182.0);
    EXPECT_EQ(nper, 0.0);
    EXPECT_EQ(frac, 1.0);
    EXPECT_EQ(err, 0u);
}

}  // namespace
