// Regular schedules swept day by day against the schedule written out with the calendar's period step;
// distances and interest earned against their own additivity; any input answered without checks.
// Hand-worked cases and every error number are rows of tests/calls/schedule.calls.
#include <gtest/gtest.h>

#include <climits>

#include "schedule_testing.hpp"

namespace {

using schedule_testing::D;
using schedule_testing::serial;

struct Info {
    int32_t da, dp, dr, nper, frac;
    friend bool operator==(const Info&, const Info&) = default;
};

Info reg_info(D s, D mat, int32_t day_type, int32_t eom, int32_t freq) {
    Info i{};
    uint32_t err = 0;
    reg_per_info(s.m, s.d, s.y, mat.m, mat.d, mat.y, day_type, eom, freq, &i.da, &i.dp, &i.dr, &i.nper, &i.frac, 0,
                 &err);
    EXPECT_EQ(err, 0u);
    return i;
}

// Every settlement day of the last three years of each schedule: the coupon dates are those of the
// written-out schedule, the actual-day counts are the calendar's, the whole and partial periods count
// the coupons left under every day count, and the other forms of the same answer agree.
TEST(RegularSchedule, EverySettlementAgreesWithTheWrittenOutSchedule) {
    const D maturities[] = {{8, 31, 2030}, {2, 28, 2031}, {2, 29, 2032}, {5, 15, 2027},
                            {1, 31, 2029}, {6, 30, 2026}, {12, 31, 2040}, {11, 30, 2025}};
    for (const D mat : maturities)
        for (int32_t freq : {1, 2, 4, 12})
            for (int32_t eom : {0, 1}) {
                const auto dates = schedule_testing::written_out(mat, 4 * freq, freq, eom);
                for (D s = schedule_testing::day_after(mat, -3 * 365); serial(s) < serial(mat);
                     s = schedule_testing::day_after(s, 1)) {
                    SCOPED_TRACE(testing::Message() << "settle " << s << " mat " << mat << " freq " << freq
                                                    << " eom " << eom);
                    const auto want = schedule_testing::scan(dates, s);
                    D pcd{}, ncd{}, p2{}, n2{};
                    uint32_t err = 0;
                    lst_nxt_ncpn(s.m, s.d, s.y, mat.m, mat.d, mat.y, freq, eom, &pcd.m, &pcd.d, &pcd.y, &ncd.m,
                                 &ncd.d, &ncd.y, 1, &err);
                    per_cpn_MDYs(s.m, s.d, s.y, mat.m, mat.d, mat.y, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, eom, freq, &p2.m,
                                 &p2.d, &p2.y, &n2.m, &n2.d, &n2.y, 1, &err);
                    ASSERT_EQ(err, 0u);
                    ASSERT_EQ(pcd, want.pcd);
                    ASSERT_EQ(ncd, want.ncd);
                    ASSERT_EQ(p2, pcd);
                    ASSERT_EQ(n2, ncd);
                    const bool on_coupon = pcd == s;
                    const Info act = reg_info(s, mat, 1, eom, freq);
                    ASSERT_EQ(act, (Info{serial(s) - serial(pcd), serial(ncd) - serial(pcd), serial(ncd) - serial(s),
                                         on_coupon ? want.after : want.after - 1, on_coupon ? 0 : 1}));
                    for (int32_t day_type = 2; day_type <= 13; ++day_type) {
                        const Info i = reg_info(s, mat, day_type, eom, freq);
                        ASSERT_EQ(i.nper + i.frac, want.after) << "day_type " << day_type;
                        // On a coupon date a whole period is ahead; but code 11 counts a 31st to itself as a day.
                        ASSERT_TRUE(!on_coupon || i.frac == 0 || (day_type == 11 && s.d == 31)) << day_type;
                        int32_t nper = -1, frac = -1;
                        num_per_dt(s.m, s.d, s.y, mat.m, mat.d, mat.y, day_type, eom, freq, &nper, &frac, 0, &err);
                        ASSERT_EQ(nper, i.nper);
                        ASSERT_EQ(frac, i.frac);
                        double x[5];
                        d_regperinfo(s.m, s.d, s.y, mat.m, mat.d, mat.y, day_type, eom, freq, x, x + 1, x + 2, x + 3,
                                     x + 4, 0, &err);
                        ASSERT_EQ((Info{int32_t(x[0]), int32_t(x[1]), int32_t(x[2]), int32_t(x[3]), int32_t(x[4])}),
                                  i);
                        d_qlb2dpdadr(s.m, s.d, s.y, mat.m, mat.d, mat.y, day_type, eom, freq, x, x + 1, x + 2, 0, &err);
                        ASSERT_EQ((Info{int32_t(x[0]), int32_t(x[1]), int32_t(x[2]), i.nper, i.frac}), i);
                    }
                }
            }
}

double dper(D a, D b, int32_t day_type, int32_t freq) {
    uint32_t err = 0;
    const double v = num_dper(a.m, a.d, a.y, b.m, b.d, b.y, day_type, 0, freq, 1, &err);
    EXPECT_EQ(err, 0u);
    return v;
}

// Moving the start one day on under actual days shortens the distance by one day of its period.
TEST(PeriodDistance, FallsByOneDayOverThePeriodEachDay) {
    const D mat{11, 30, 2027};
    for (D a{1, 1, 2024}; serial(a) < serial(mat) - 1; a = schedule_testing::day_after(a, 1)) {
        SCOPED_TRACE(testing::Message() << a);
        const Info i = reg_info(a, mat, 1, 0, 2);
        ASSERT_NEAR(dper(a, mat, 1, 2) - dper(schedule_testing::day_after(a, 1), mat, 1, 2), 1.0 / i.dp, 1e-12);
    }
}

double earned(D a, D b, D mat, int32_t day_type) {
    uint32_t err = 0;
    const double v = i_earn_MDYs(a.m, a.d, a.y, b.m, b.d, b.y, mat.m, mat.d, mat.y, 6.0, day_type, 1, 2, 1, &err);
    EXPECT_EQ(err, 0u);
    return v;
}

// Earned interest adds up over consecutive holdings, for every split day of a two-year span (NASD 30/360
// is left out: its 31st counts differently as an end and as a start).
TEST(InterestEarned, AddsUpOverConsecutiveHoldings) {
    const D mat{8, 31, 2030}, a{1, 10, 2027}, c{2, 20, 2029};
    for (int32_t day_type : {1, 5, 6, 8, 9}) {
        const double whole = earned(a, c, mat, day_type);
        for (D b = a; serial(b) <= serial(c); b = schedule_testing::day_after(b, 1)) {
            SCOPED_TRACE(testing::Message() << "type " << day_type << " split " << b);
            ASSERT_NEAR(earned(a, b, mat, day_type) + earned(b, c, mat, day_type), whole, 1e-12);
        }
    }
}

// Without validation no input may hang, crash or overflow: nonsense frequencies and day counts, years far
// outside any calendar, malformed months and days, dates in either order. Run under the sanitizers too.
TEST(ScheduleWithoutChecks, AnyInputGivesAnAnswer) {
    const D dates[] = {{6, 30, 2030}, {1, 1, 9999}, {1, 1, -5}, {12, 31, INT_MAX}, {1, 1, INT_MIN}, {0, 0, 0},
                       {1000, 99, 2020}, {-7, -3, 2020}, {2, 29, 2023}, {INT_MAX, INT_MAX, INT_MAX},
                       {INT_MIN, INT_MIN, INT_MIN}, {INT_MIN, 1, 2020}};
    for (const int32_t freq : {0, -7, 1000, 5, 13, INT_MIN, INT_MAX, 2})
        for (const D a : dates)
            for (const D b : dates) {
                SCOPED_TRACE(testing::Message() << a << " " << b << " freq " << freq);
                uint32_t err = 0;
                int32_t o[8], m[4], d[4], y[4];
                double x[5];
                lst_nxt_ncpn(a.m, a.d, a.y, b.m, b.d, b.y, freq, 1, o, o + 1, o + 2, o + 3, o + 4, o + 5, 0, &err);
                num_per(a.m, a.d, a.y, b.m, b.d, b.y, freq, o, o + 1, 0, &err);
                per_cpn_MDYs(a.m, a.d, a.y, b.m, b.d, b.y, a.m, a.d, a.y, b.m, b.d, b.y, 0, 0, 0, 1, 1, freq, o,
                             o + 1, o + 2, o + 3, o + 4, o + 5, 0, &err);
                all_cpn_dts(a.m, a.d, a.y, b.m, b.d, b.y, 0, 0, 0, 0, 0, 0, 1, freq, 4, m, d, y, o, 0, &err);
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
                EXPECT_TRUE(err == 0 || err == ORVEL_E_CAPACITY);
            }
}

}  // namespace
