#include <chrono>

#include "orvel/frame.h"
#include "validators_test_util.hpp"

namespace {

using orvel_test::expect_rows;
using orvel_test::kInf;
using orvel_test::kNaN;
using orvel_test::Row;

TEST(OneDate, EdgeCases) {
    expect_rows({
        {"blank 0/0/1900 optional", [](uint32_t* e) { return ok_MDY(0, 0, 1900, 0, e); }, 0},
        {"blank 0/0/0 optional", [](uint32_t* e) { return ok_MDY(0, 0, 0, 0, e); }, 0},
        {"blank 0/0/2000 optional", [](uint32_t* e) { return ok_MDY(0, 0, 2000, 0, e); }, 0},
        {"blank 0/0/1900 required", [](uint32_t* e) { return ok_MDY(0, 0, 1900, 1, e); }, 1500},
        {"0/0/1999 is no blank", [](uint32_t* e) { return ok_MDY(0, 0, 1999, 0, e); }, 1200},
        {"2/29/1900 (not leap)", [](uint32_t* e) { return ok_MDY(2, 29, 1900, 0, e); }, 1300},
        {"2/29/2400: day passes, year fails", [](uint32_t* e) { return ok_MDY(2, 29, 2400, 0, e); }, 1100},
        {"13/1/2000", [](uint32_t* e) { return ok_MDY(13, 1, 2000, 1, e); }, 1200},
        {"4/31/2000", [](uint32_t* e) { return ok_MDY(4, 31, 2000, 1, e); }, 1300},
        {"1/1/1800", [](uint32_t* e) { return ok_MDY(1, 1, 1800, 1, e); }, 0},
        {"12/31/2300", [](uint32_t* e) { return ok_MDY(12, 31, 2300, 1, e); }, 0},
        {"12/31/1799", [](uint32_t* e) { return ok_MDY(12, 31, 1799, 1, e); }, 1100},
        {"1/1/2301", [](uint32_t* e) { return ok_MDY(1, 1, 2301, 1, e); }, 1100},
        {"INT32_MIN month", [](uint32_t* e) { return ok_MDY(INT32_MIN, 1, 2000, 1, e); }, 1200},
        {"INT32_MAX day", [](uint32_t* e) { return ok_MDY(1, INT32_MAX, 2000, 1, e); }, 1300},
    });
}

// Every month and day around the valid ones, in every year of the range and one beyond each end, against
// the civil calendar of the standard library.
TEST(OneDate, AgreesWithTheCivilCalendarEverywhere) {
    using namespace std::chrono;
    for (int32_t y = 1799; y <= 2301; ++y) {
        for (int32_t m = -1; m <= 13; ++m) {
            for (int32_t d = -1; d <= 32; ++d) {
                if (m == 0 && d == 0) continue;  // blank spellings are their own case
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
    }
}

TEST(Codes, RangesAndMissingConventions) {
    expect_rows({
        {"day_type 1", [](uint32_t* e) { return ok_day_type(1, e); }, 0},
        {"day_type 13", [](uint32_t* e) { return ok_day_type(13, e); }, 0},
        {"day_type 0", [](uint32_t* e) { return ok_day_type(0, e); }, 500},
        {"day_type 14", [](uint32_t* e) { return ok_day_type(14, e); }, 500},
        {"day_type -1", [](uint32_t* e) { return ok_day_type(-1, e); }, 501},
        {"day_type -2", [](uint32_t* e) { return ok_day_type(-2, e); }, 500},
        {"cpn_freq 12", [](uint32_t* e) { return ok_cpn_freq(12, e); }, 0},
        {"cpn_freq 3", [](uint32_t* e) { return ok_cpn_freq(3, e); }, 600},
        {"cpn_freq 0", [](uint32_t* e) { return ok_cpn_freq(0, e); }, 600},
        {"cpn_freq -1", [](uint32_t* e) { return ok_cpn_freq(-1, e); }, 601},
        {"side 2", [](uint32_t* e) { return ok_1or2_side(2, e); }, 0},
        {"side 3", [](uint32_t* e) { return ok_1or2_side(3, e); }, 590},
        {"side -1", [](uint32_t* e) { return ok_1or2_side(-1, e); }, 591},
        {"abd_flag 2", [](uint32_t* e) { return ok_abd_flag(2, e); }, 0},
        {"abd_flag 3", [](uint32_t* e) { return ok_abd_flag(3, e); }, 5350},
        {"abd_flag -1", [](uint32_t* e) { return ok_abd_flag(-1, e); }, 5350},
        {"dow 7", [](uint32_t* e) { return ok_dow(7, e); }, 0},
        {"dow 0", [](uint32_t* e) { return ok_dow(0, e); }, 2710},
        {"dow 8", [](uint32_t* e) { return ok_dow(8, e); }, 2710},
        {"occur 0 (last)", [](uint32_t* e) { return ok_dow_occur(0, e); }, 0},
        {"occur 6", [](uint32_t* e) { return ok_dow_occur(6, e); }, 2720},
        {"occur -1", [](uint32_t* e) { return ok_dow_occur(-1, e); }, 2720},
        {"days_year 360", [](uint32_t* e) { return ok_days_year(360, e); }, 0},
        {"days_year 366", [](uint32_t* e) { return ok_days_year(366, e); }, 0},
        {"days_year 359", [](uint32_t* e) { return ok_days_year(359, e); }, 4700},
        {"days_year 367", [](uint32_t* e) { return ok_days_year(367, e); }, 4700},
        {"full_per 1", [](uint32_t* e) { return ok_full_per(1, e); }, 0},
        {"full_per 0", [](uint32_t* e) { return ok_full_per(0, e); }, 4600},
        {"days_acrd 0", [](uint32_t* e) { return ok_days_acrd(0, e); }, 0},
        {"days_acrd -1", [](uint32_t* e) { return ok_days_acrd(-1, e); }, 11200},
        {"paymt_dly 0", [](uint32_t* e) { return ok_paymt_dly(0, e); }, 0},
        {"paymt_dly -1", [](uint32_t* e) { return ok_paymt_dly(-1, e); }, 6300},
        {"days_per 1 of 1", [](uint32_t* e) { return ok_days_per(1, 1, e); }, 0},
        {"days_per 0 of 1", [](uint32_t* e) { return ok_days_per(0, 1, e); }, 4801},
        {"days_per 5 of 30", [](uint32_t* e) { return ok_days_per(5, 30, e); }, 4830},
        {"days_per with INT32_MIN bound", [](uint32_t* e) { return ok_days_per(INT32_MIN, INT32_MIN, e); }, 0},
    });
}

TEST(Terms, BoundsBelowAndAbove) {
    expect_rows({
        {"balloon 0", [](uint32_t* e) { return ok_balloon(0, 360, e); }, 0},
        {"balloon beyond the term is no concern", [](uint32_t* e) { return ok_balloon(400, 360, e); }, 0},
        {"balloon -1", [](uint32_t* e) { return ok_balloon(-1, 360, e); }, 11101},
        {"lock_out -1", [](uint32_t* e) { return ok_lock_out(-1, 360, e); }, 11401},
        {"orig_term 1", [](uint32_t* e) { return ok_orig_term(1, e); }, 0},
        {"orig_term 480", [](uint32_t* e) { return ok_orig_term(480, e); }, 0},
        {"orig_term 0", [](uint32_t* e) { return ok_orig_term(0, e); }, 6401},
        {"orig_term 481", [](uint32_t* e) { return ok_orig_term(481, e); }, 6402},
        {"id_2_md 600", [](uint32_t* e) { return ok_id_2_md(600, e); }, 0},
        {"id_2_md 0", [](uint32_t* e) { return ok_id_2_md(0, e); }, 6401},
        {"id_2_md 601", [](uint32_t* e) { return ok_id_2_md(601, e); }, 6402},
        {"sd_2_md 0", [](uint32_t* e) { return ok_sd_2_md(0, e); }, 6901},
        {"sd_2_md 601", [](uint32_t* e) { return ok_sd_2_md(601, e); }, 6902},
        {"wam 360 of 360", [](uint32_t* e) { return ok_wam(360, 360, e); }, 0},
        {"wam 361 of 360", [](uint32_t* e) { return ok_wam(361, 360, e); }, 11902},
        {"wam 0", [](uint32_t* e) { return ok_wam(0, 360, e); }, 11901},
        {"wam with no term known", [](uint32_t* e) { return ok_wam(5000, 0, e); }, 0},
        {"avg_life 0", [](uint32_t* e) { return ok_avg_life(0, 360, e); }, 0},
        {"avg_life -1", [](uint32_t* e) { return ok_avg_life(-1, 360, e); }, 6601},
        {"avg_life 361", [](uint32_t* e) { return ok_avg_life(361, 360, e); }, 6602},
        {"hldng_mth 1", [](uint32_t* e) { return ok_hldng_mth(1, 360, e); }, 0},
        {"hldng_mth 0", [](uint32_t* e) { return ok_hldng_mth(0, 360, e); }, 11301},
        {"hldng_mth 361", [](uint32_t* e) { return ok_hldng_mth(361, 360, e); }, 11302},
        {"m_inc_bal 0", [](uint32_t* e) { return ok_m_inc_bal(0, 360, e); }, 0},
        {"m_inc_bal -1", [](uint32_t* e) { return ok_m_inc_bal(-1, 360, e); }, 6701},
        {"m_inc_bal 361", [](uint32_t* e) { return ok_m_inc_bal(361, 360, e); }, 6702},
        {"m_pmtinc -1", [](uint32_t* e) { return ok_m_pmtinc(-1, 360, e); }, 11501},
        {"m_pmtinc 361", [](uint32_t* e) { return ok_m_pmtinc(361, 360, e); }, 11502},
        {"pool_age 0", [](uint32_t* e) { return ok_pool_age(0, 360, e); }, 0},
        {"pool_age 359", [](uint32_t* e) { return ok_pool_age(359, 360, e); }, 0},
        {"pool_age 360 (paid off)", [](uint32_t* e) { return ok_pool_age(360, 360, e); }, 6502},
        {"pool_age -1", [](uint32_t* e) { return ok_pool_age(-1, 360, e); }, 6501},
    });
}

TEST(HolidayTable, OrderRangeAndWeekdays) {
    // 2451545 is Saturday 1/1/2000; 2451549 Wednesday 1/5/2000, 2451550 Thursday.
    const int32_t good[] = {2451549, 2451550};
    const int32_t sunday[] = {2451549, 2451546};
    const int32_t equal[] = {2451549, 2451549};
    const int32_t descending[] = {2451550, 2451549};
    const int32_t before_1800[] = {2378496};
    const int32_t after_2300[] = {2561483};
    const int32_t sunday_only[] = {2451553};
    expect_rows({
        {"a Sunday", [&](uint32_t* e) { return ok_hol_table(1, sunday_only, e); }, 5403},
        {"a Sunday before the next", [&](uint32_t* e) { return ok_hol_table(2, sunday, e); }, 5401},
        {"two equal holidays", [&](uint32_t* e) { return ok_hol_table(2, equal, e); }, 5401},
        {"descending", [&](uint32_t* e) { return ok_hol_table(2, descending, e); }, 5401},
        {"before 1800", [&](uint32_t* e) { return ok_hol_table(1, before_1800, e); }, 5401},
        {"after 2300", [&](uint32_t* e) { return ok_hol_table(1, after_2300, e); }, 5401},
        {"count -1", [&](uint32_t* e) { return ok_hol_table(-1, good, e); }, 5400},
        {"count 3001", [&](uint32_t* e) { return ok_hol_table(3001, good, e); }, 5400},
        {"null table", [&](uint32_t* e) { return ok_hol_table(2, nullptr, e); }, 5400},
    });
}

// An accepted non-empty table clears err_code; an empty one is not looked at.
TEST(HolidayTable, CleanUpOnlyForANonEmptyTable) {
    const int32_t good[] = {2451549};
    uint32_t err = 77;
    EXPECT_EQ(ok_hol_table(1, good, &err), 1);
    EXPECT_EQ(err, 0u);
    err = 77;
    EXPECT_EQ(ok_hol_table(0, nullptr, &err), 1);
    EXPECT_EQ(err, 77u);
}

TEST(HolidayTable, TakesThreeThousandWeekdays) {
    std::vector<int32_t> table;
    for (int32_t j = 2451549; table.size() < 3000; ++j)
        if (j % 7 + 1 <= 5) table.push_back(j);
    uint32_t err = 77;
    EXPECT_EQ(ok_hol_table(3000, table.data(), &err), 1);
    EXPECT_EQ(err, 0u);
}

TEST(PaymentType, TreasuryDefaultsFillMissingConventions) {
    expect_rows({
        {"coupon, defaults", [](uint32_t* e) { return ok_uspm_type(1, -1, -1, e); }, 0},
        {"discount, any frequency", [](uint32_t* e) { return ok_uspm_type(2, 7, 3, e); }, 0},
        {"type 0", [](uint32_t* e) { return ok_uspm_type(0, 1, 2, e); }, 505},
        {"type 4", [](uint32_t* e) { return ok_uspm_type(4, 1, 2, e); }, 505},
        {"coupon with frequency 3", [](uint32_t* e) { return ok_uspm_type(1, 1, 3, e); }, 605},
        {"coupon with day_type 14", [](uint32_t* e) { return ok_uspm_type(1, 14, 2, e); }, 705},
        {"at maturity with day_type 0", [](uint32_t* e) { return ok_uspm_type(3, 0, -1, e); }, 705},
    });
}

}  // namespace
