// Inputs far outside the calendar without validation: every function gives some value and returns.
// Run under the sanitizers (ORVEL_SANITIZE) these also prove that no signed overflow or bad index occurs.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "orvel/calendar.h"

namespace {

constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
const int32_t hostile[] = {kMin, kMin + 1, -2000000000, -100000,    -13,      -1,  0,
                           13,   32,       100000,      2000000000, kMax - 1, kMax};

TEST(HostileInput, DateFunctionsReturnOnAnyTriple) {
    uint32_t err = 0;
    int64_t sink = 0;
    auto keep = [&sink](int64_t v) { sink ^= v; };
    for (int32_t a : hostile) {
        for (int32_t b : hostile) {
            for (int32_t c : {kMin, -1, 0, 2000, 2000000000, kMax}) {
                keep(MDY_2_julian(a, b, c));
                keep(days_base00(a, b, c));
                keep(days_bsnl(a, b, c));
                keep(MDY_2_dt(a, b, c));
                keep(MDY_2_doy(a, b, c, 0, &err));
                keep(is_last_dom(a, b, c));
                keep(last_dom(a, c));
                const int32_t dow = MDY_2_dow(a, b, c, 0, &err);
                ASSERT_TRUE(dow >= 1 && dow <= 7) << a << "/" << b << "/" << c;
                int32_t m = a, d = b, y = c;
                keep(eom_fixup(b, a, c, &m, &d, &y, 1));
                keep(days_act(a, b, c, b, a, c));
                keep(days_act_nl(a, b, c, c, b, a));
                keep(days_nasd360(a, b, c, b, a, c));
                keep(days_sia360(a, b, c, 2, 29, c));
                keep(days_aibd360(a, 31, c, b, 31, c));
                keep(days_new360(a, b, c, b, a, c));
                keep(days_eurp360(a, b, c, 12, 31, c));
            }
        }
    }
    EXPECT_EQ(err, 0u);
    EXPECT_NE(sink, 1);  // keeps the calls
}

TEST(HostileInput, StepsWithExtremeCounts) {
    for (int32_t n : hostile) {
        for (int32_t y : {kMin, 1800, 2300, kMax}) {
            SCOPED_TRACE(testing::Message() << "n " << n << ", year " << y);
            int32_t m = 12, d = 31, yy = y;
            incr_by_days(n, &m, &d, &yy);
            m = 1, d = 31, yy = y;
            incr_by_mths(n, &m, &d, &yy, 1);
            EXPECT_TRUE(m >= 1 && m <= 12);
            m = 1, d = 31, yy = y;
            incr_by_pers(n, n, &m, &d, &yy, 0);
            incr_by_pers(n, 1, &m, &d, &yy, 0);
            EXPECT_TRUE(m >= 1 && m <= 12);
            int32_t jm = 0, jd = 0, jy = 0;
            julian_2_MDY(n, &jm, &jd, &jy);
            uint32_t err = 0;
            doy_2_MDY(n, y, &jm, &jd, &jy, 0, &err);
            EXPECT_EQ(err, 0u);
        }
    }
    int32_t m = 6, d = 15, y = 2001;
    EXPECT_EQ(incr_by_days(kMax, &m, &d, &y), y);  // far beyond the calendar, but a date
}

TEST(HostileInput, FractionalYearsThatAreNoNumber) {
    const double yrs[] = {std::numeric_limits<double>::quiet_NaN(),
                          std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity(),
                          1e300,
                          -1e300,
                          1e9 + 1,
                          -2.75,
                          5e8};
    for (double v : yrs) {
        for (int32_t day_type : {-1, 0, 1, 2, 9, 12, 14, kMax}) {
            SCOPED_TRACE(testing::Message() << v << " years, day_type " << day_type);
            int32_t m = 2, d = 29, y = 2000;
            uint32_t err = 0;
            incr_by_yrs(v, &m, &d, &y, day_type, 0, &err);
            EXPECT_EQ(err, 0u);
            if (!(std::fabs(v) <= 1e9)) {
                EXPECT_EQ(y, 2000);  // not moved
            }
        }
    }
}

TEST(HostileInput, CodesOutsideTheirSets) {
    uint32_t err = 0;
    int32_t basis = 7;
    for (int32_t code : {kMin, -1, 0, 14, kMax}) {
        SCOPED_TRACE(code);
        EXPECT_EQ(days_b_MDYs(1, 1, 2000, 1, 1, 2001, code, 0, &err), 0);
        EXPECT_EQ(years_b_MDYs(1, 1, 2000, 1, 1, 2001, code, 0, &err), 0.0);
        EXPECT_EQ(days_yrbasis(1, 1, 2000, code, 0, &err), 0);
        EXPECT_EQ(isda_dcf(1, 1, 2000, 1, 1, 2001, code, 0, 0, 0, &basis, 0, &err), 0.0);
        EXPECT_EQ(basis, 0);
        EXPECT_EQ(is_MDYeqMDY(1, 1, 2000, 5, 5, 2005, code, 0, &err), 1);  // no count: every pair is equal
        EXPECT_EQ(days_act_yr(1, 1, 2000, 1, 1, 2000, 1, 1, 2000, code, 0, &err), 0);
        days_actf_yr(1, 1, 2000, 1, 1, 2000, 7, 1, 2000, 11, code, 0, &err);
        days_actf_yr(1, 1, 2000, 1, 1, 2000, 7, 1, 2000, 12, code, 0, &err);
        EXPECT_EQ(is_dt_dn_365(code, 0, &err), 0);
    }
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(dt_2_YYYY(kMin, kMax), 2000 + kMin / 10000);  // a "two-digit" year below the pivot
    EXPECT_EQ(dt_2_YYYY(-5, kMin), 1900);
    dtA_2_dtE(kMax);
    dtE_2_dtA(kMin);
}

TEST(HostileInput, ListsWithBadCounts) {
    int32_t m[3] = {3, 2, 1}, d[3] = {1, 1, 1}, y[3] = {2001, 2001, 2001};
    double v[3] = {1, 2, 3};
    int32_t iv[3] = {1, 2, 3};
    uint32_t err = 0;
    EXPECT_EQ(sort_MDYs(m, d, y, v, -5, 0, &err), 1);
    EXPECT_EQ(sort2_MDYs(m, d, y, v, iv, kMin, 1, &err), 1);
    EXPECT_EQ(m[0], 3);  // untouched
    EXPECT_EQ(err, 0u);
    // Unsorted lists without validation: some list, and never a write past the capacity.
    int32_t lm[6] = {5, 1, 3, 0, 0, 0}, ld[6] = {1, 1, 1, 0, 0, 0}, ly[6] = {2001, 2001, 2001, 0, 0, 0};
    double la[6] = {1, 1, 1, 0, 0, 0};
    const int32_t cm[4] = {4, 1, 2, 1}, cd[4] = {1, 1, 1, 1}, cy[4] = {2001, 2001, 2001, 2001};
    const double ca[4] = {1, 1, 1, 1};
    for (int32_t action : {1, -1, -2}) {
        for (int32_t capacity = 0; capacity <= 6; ++capacity) {
            for (int32_t count = -1; count <= capacity + 1; ++count) {
                err = 0;
                const int32_t n = MDY_maint(action, lm, ld, ly, la, count, capacity, cm, cd, cy, ca, 4, 0, &err);
                EXPECT_TRUE(n >= 0 && n <= capacity);
                if (count > capacity) {
                    EXPECT_EQ(err, 13000u);
                }
            }
        }
    }
    err = 0;
    EXPECT_EQ(MDY_maint(1, lm, ld, ly, la, 0, kMin, cm, cd, cy, ca, -3, 0, &err), 0);
    EXPECT_EQ(err, 13000u);
}

}  // namespace
