// Validators swept against independent references, and the clean-ups of err_code on success. The error
// numbers of every validator at its boundaries are rows of tests/calls/frame_validators.calls.
#include <gtest/gtest.h>

#include <chrono>
#include <set>
#include <string>
#include <vector>

#include "call_syntax.hpp"
#include "orvel/calendar.h"
#include "orvel/frame.h"
#include "samples.hpp"

namespace {

struct D { int32_t m, d, y; bool operator==(const D&) const = default; };
std::ostream& operator<<(std::ostream& os, const D& v) { return os << v.m << "/" << v.d << "/" << v.y; }

// Every month and day around the valid ones, in every year of the range and one beyond each end, against
// the civil calendar of the standard library: month first (1200), then the day in the year as given
// (1300), then the year (1100).
TEST(OneDate, AgreesWithTheCivilCalendarEverywhere) {
    using namespace std::chrono;
    for (int32_t y = 1799; y <= 2301; ++y)
        for (int32_t m = -1; m <= 13; ++m)
            for (int32_t d = -1; d <= 32; ++d) {
                if (m == 0 && d == 0) continue;  // blank spellings are rows of their own
                uint32_t err = 0;
                const int32_t accepted = ok_MDY(m, d, y, 1, &err);
                const bool civil = m >= 1 && m <= 12 && d >= 1 &&
                                   year_month_day{year{y}, month{unsigned(m)}, day{unsigned(d)}}.ok();
                const uint32_t expected =
                    (m < 1 || m > 12) ? 1200u : !civil ? 1300u : (y < 1800 || y > 2300) ? 1100u : 0u;
                ASSERT_EQ(err, expected) << m << "/" << d << "/" << y;
                ASSERT_EQ(accepted, expected == 0 ? 1 : 0) << m << "/" << d << "/" << y;
            }
}

// Stepping whole periods from a day the shortest month still has always stays on the cycle; a month
// more is off it whenever a period is longer than one month.
TEST(CouponCycle, AgreesWithPeriodStepsOverFourYears) {
    for (int32_t j = MDY_2_julian(1, 1, 2000); j <= MDY_2_julian(12, 31, 2003); ++j) {
        D a{};
        julian_2_MDY(j, &a.m, &a.d, &a.y);
        if (a.d > 28) continue;
        for (int32_t f : {1, 2, 4, 12})
            for (int32_t n = 1; n <= 6; ++n) {
                D b = a;
                incr_by_pers(n, f, &b.m, &b.d, &b.y, 0);
                uint32_t err = 0;
                ASSERT_EQ(ok_cpn_sync(a.m, a.d, a.y, b.m, b.d, b.y, 0, f, 1, &err), 1) << a << " f " << f;
                if (f == 12) continue;
                incr_by_mths(1, &b.m, &b.d, &b.y, 0);
                ASSERT_EQ(ok_cpn_sync(a.m, a.d, a.y, b.m, b.d, b.y, 0, f, 1, &err), 0) << a << " f " << f;
                ASSERT_EQ(err, 2200u);
            }
    }
}

// Under the end-of-month rule the defaults of every maturity of four years pass the group's own checks:
// the dated date is maturity's month in 1804, the first coupon one period after it.
TEST(BondDates, DefaultsOfEveryMaturityPassUnderTheMonthEndRule) {
    for (int32_t j = MDY_2_julian(1, 1, 2030); j <= MDY_2_julian(12, 31, 2033); ++j) {
        D mat{};
        julian_2_MDY(j, &mat.m, &mat.d, &mat.y);
        for (int32_t f : {1, 2, 4, 12}) {
            D dated{0, 0, 0}, first{0, 0, 0};
            uint32_t err = 77;
            const int32_t ok = ok_bond_MDYs(3, 1, 2024, mat.m, mat.d, mat.y, &dated.m, &dated.d, &dated.y, &first.m,
                                            &first.d, &first.y, 1, 1, f, &err);
            ASSERT_EQ(ok, 1) << mat << " f " << f << ": " << err;
            D next = dated;
            incr_by_pers(1, f, &next.m, &next.d, &next.y, 1);
            ASSERT_EQ(first, next) << mat << " f " << f;
            ASSERT_TRUE(dated.y == 1804 && dated.m == mat.m) << mat << " dated " << dated;
            ASSERT_EQ(err, 0u) << "a supplied default clears the probe's 1500";
        }
    }
}

// err_code after a call that succeeds when the caller set it to 77; -1 for a call that fails or has none.
int64_t after_77(const std::string& line) {
    orvel::callkit::PreparedCall call;
    std::string error;
    if (!orvel::callkit::parse_line(line, call, error) || !call.has_err()) return -1;
    call.invoke();
    if (call.failed()) return -1;
    call.err_before = 77;
    call.invoke();
    return call.err_code();
}

// A success leaves err_code as the caller set it, but for the documented clean-ups to 0: an accepted
// non-empty holiday table, a date group that supplied a default over its own probe's 1500, the sorts after
// a comparison that keeps the order, hol_maint once its checks pass; none by input groups (their date group runs on copies). Then every
// sample that succeeds.
TEST(ErrCode, SuccessLeavesItAloneButForTheCleanUps) {
    const std::pair<const char*, int64_t> rows[] = {
        {"ok_hol_table 2451549", 0},
        {"ok_hol_table []", 77},
        {"ok_bond_MDYs 3/1/2024 11/15/2033 11/15/2023 5/15/2024 1 1 2", 77},
        {"ok_bond_MDYs 3/1/2024 11/15/2033 11/15/2023 0/0/0 1 1 2", 0},
        {"ok_bond_in 1 1 2 2 99.5 6.5 3/1/2024 11/15/2033 0/0/0 0/0/0 100 0 0", 77},
        {"sort_MDYs 2,1 1,1 2001,2001 1,2 1", 77}, {"sort2_MDYs 1,2 1,1 2001,2001 1,2 1,2 1", 0},  // exchange, keep
    };
    for (const auto& [line, after] : rows) EXPECT_EQ(after_77(line), after) << line;
    const std::set<std::string> clean_ups = {
        "ok_hol_table", "sort_MDYs",    "sort2_MDYs",   "ok_bond_MDYs", "ok_jpgb_MDYs", "ok_auct_MDYs",
        "ok_mtrm_MDYs", "ok_ofsl_MDYs", "ok_stpd_MDYs", "ok_stpd_d_ol", "ok_jpgb_d_ol", "hol_maint",
    };
    for (const orvel::testkit::Sample& s : orvel::testkit::read_samples(orvel::testkit::samples_folder())) {
        const int64_t after = after_77(s.text);
        const bool clean_up = clean_ups.contains(s.text.substr(0, s.text.find(' ')));
        EXPECT_TRUE(after == -1 || after == 77 || (after == 0 && clean_up))
            << s.file << ":" << s.line << ": " << s.text << " left " << after;
    }
}

}  // namespace
