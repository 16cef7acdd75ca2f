// Validators of coupon cycles: whether dates lie a whole number of coupon periods apart, by month and day
// of month or by a weekday-of-month rule, and the odd-period dates derived from period lengths.
#include <cstdint>
#include <cstdlib>

#include "calendar/business.hpp"
#include "groups/dates.hpp"

using orvel::Check;
using orvel::Date;
using orvel::DateRef;

namespace {

using orvel::cal::months_per_period;

// Month numbers a whole number of periods apart (years do not enter); periods of no months (a frequency
// above 12) never leave their month.
bool months_in_step(int32_t m1, int32_t m2, int32_t cpn_freq) {
    const int32_t per_months = months_per_period(cpn_freq);
    const int64_t apart = std::llabs(int64_t{m1} - m2);
    return per_months == 0 ? apart == 0 : apart % per_months == 0;
}

// The day of the month as a coupon cycle sees it: a month end counts as 99 under the end-of-month rule.
int32_t day_key(Date x, int32_t eom) { return eom != 0 && orvel::cal::is_month_end(x.m, x.d, x.y) ? 99 : x.d; }

// February's last day stands for any later day of the month: 2/28 pairs with 8/30 and 8/31.
bool february_end_before(Date feb, int32_t feb_key, int32_t other_key) {
    return feb.m == 2 && orvel::cal::is_month_end(feb.m, feb.d, feb.y) && other_key > feb_key;
}

}  // namespace

bool orvel::same_cycle(Date a, Date b, int32_t eom, int32_t cpn_freq) {
    const int32_t ka = day_key(a, eom), kb = day_key(b, eom);
    const bool days = ka == kb || february_end_before(a, ka, kb) || february_end_before(b, kb, ka);
    return days && months_in_step(a.m, b.m, cpn_freq);
}

namespace {

// The weekday-of-month day of x's month, rolled forward over weekends and holidays, is x itself.
bool on_weekday_rule(Date x, int32_t occur, int32_t dow, int32_t hol_count, const int32_t* hols) {
    if (!orvel::is_given(x) || occur < 0 || occur > 5 || dow < 1 || dow > 7) return false;
    const int32_t day = orvel::cal::weekday_of_month(x.m, x.y, occur, dow);
    return day != 0 && orvel::cal::roll(orvel::cal::jdn(x.m, day, x.y), 1, {hols, hol_count}) == orvel::cal::jdn(x);
}

Check& weekday_rule_codes(Check& check, int32_t occur, int32_t dow) {
    return check.call(0, ok_dow_occur, occur).call(0, ok_dow, dow);
}


// The codes of a business-day schedule, each with its own number.
Check& business_day_codes(Check& check, int32_t cpn_freq, int32_t occur, int32_t dow, int32_t hol_count,
                          const int32_t* hols) {
    uint32_t scratch = 0;
    return check.expect(ok_cpn_freq(cpn_freq, &scratch) != 0, ORVEL_E_BD_SCHEDULE4)
        .expect(occur >= 0 && occur <= 5, ORVEL_E_BD_SCHEDULE1)
        .expect(dow >= 1 && dow <= 7, ORVEL_E_BD_SCHEDULE2)
        .expect(ok_hol_table(hol_count, hols, &scratch) != 0, ORVEL_E_BD_SCHEDULE3);
}

// Maturity and settlement required, the dated date probed as optional and needed by a given first coupon.
Check& odd_period_ends(Check& check, Date settle, Date mat, DateRef dated, Date first) {
    orvel::required(check, ORVEL_ROLE_MATURITY, mat);
    orvel::required(check, ORVEL_ROLE_SETTLE, settle);
    orvel::optional(check, ORVEL_ROLE_DATED, dated.get());
    return orvel::dated_for_first(check, dated, first);
}

// The order of the dates that are given: dated date not after settlement (2027) and before the first
// coupon (2123), settlement before maturity (2171).
Check& given_order(Check& check, Date settle, Date mat, Date dated, Date first, int32_t day_type) {
    if (!orvel::is_blank(dated)) orvel::not_after(check, 27, dated, settle, day_type);
    if (!orvel::is_blank(dated) && !orvel::is_blank(first)) orvel::before(check, 23, dated, first, day_type);
    return orvel::before(check, 71, settle, mat, day_type);
}

// x moved by n months, and whether two dates are the same day.
Date months_from(Date x, int32_t n, int32_t eom) { return orvel::cal::add_months(x, n, eom != 0); }
bool same_day(Date a, Date b) { return a.m == b.m && a.d == b.d && a.y == b.y; }

}  // namespace

ORVEL_EXPORT(int32_t) ok_cpn_sync(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2, int32_t eom,
                                  int32_t cpn_freq, int32_t validate, uint32_t* err_code) {
    Check check(err_code);
    if (validate != 0) check.call(0, orvel::cal::checked_before, Date{m1, d1, y1}, Date{m2, d2, y2}, 1).call(0, ok_cpn_freq, cpn_freq);
    return check.expect(orvel::same_cycle({m1, d1, y1}, {m2, d2, y2}, eom, cpn_freq), ORVEL_E_SYNC).ok();
}

ORVEL_EXPORT(int32_t) ok_sync_dwm(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t cpn_freq, int32_t occur, int32_t dow, int32_t validate, uint32_t* err_code) {
    Check check(err_code);
    if (validate != 0) {
        check.call(0, orvel::cal::checked_before, Date{m1, d1, y1}, Date{m2, d2, y2}, 1).call(0, ok_cpn_freq, cpn_freq);
        weekday_rule_codes(check, occur, dow);
    }
    const bool rule = on_weekday_rule({m1, d1, y1}, occur, dow, 0, nullptr) &&
                      on_weekday_rule({m2, d2, y2}, occur, dow, 0, nullptr);
    return check.expect(rule && months_in_step(m1, m2, cpn_freq), ORVEL_E_SYNC).ok();
}

ORVEL_EXPORT(int32_t) ok_lt_MDY(int32_t m, int32_t d, int32_t y, int32_t rm, int32_t rd, int32_t ry, int32_t eom,
                                int32_t cpn_freq, uint32_t* err_code) {
    const Date date{m, d, y}, ref{rm, rd, ry};
    Check check(err_code);
    check.call(0, ok_cpn_freq, cpn_freq);
    orvel::required(check, ORVEL_ROLE_CHECKED, date);
    orvel::required(check, ORVEL_ROLE_MATURITY, ref);
    orvel::before(check, 81, date, ref, 1);
    return check.expect(orvel::same_cycle(date, ref, eom, cpn_freq), ORVEL_E_LT_MDY).ok();
}

ORVEL_EXPORT(int32_t) ok_ofsl_dwm(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my, int32_t* dm,
                                  int32_t* dd, int32_t* dy, int32_t* fm, int32_t* fd, int32_t* fy, int32_t* lm,
                                  int32_t* ld, int32_t* ly, int32_t day_type, int32_t cpn_freq, int32_t occur,
                                  int32_t dow, int32_t hol_count, const int32_t* hols, uint32_t* err_code) {
    const Date settle{sm, sd, sy}, mat{mm, md, my};
    const DateRef dated{dm, dd, dy}, first{fm, fd, fy}, last{lm, ld, ly};
    Check check(err_code);
    check.call(0, ok_day_type, day_type);
    business_day_codes(check, cpn_freq, occur, dow, hol_count, hols);
    odd_period_ends(check, settle, mat, dated, first.get());
    orvel::required(check, ORVEL_ROLE_FIRST_CPN, first.get());
    orvel::optional(check, ORVEL_ROLE_LAST_CPN, last.get());
    if (!check) return 0;
    if (orvel::is_blank(last.get())) last.set(mat);
    const Date f = first.get(), l = last.get();
    given_order(check, settle, mat, dated.get(), f, day_type);
    orvel::not_after(check, 61, l, mat, day_type);
    const auto on_rule = [&](Date x) { return on_weekday_rule(x, occur, dow, hol_count, hols); };
    // First coupon off the rule or off maturity's months (2231), off the last coupon's months (2236);
    // maturity (2241) or last coupon (2246) off the weekday rule.
    return check.expect(on_rule(f) && months_in_step(f.m, mat.m, cpn_freq), ORVEL_E_SYNC + 31)
        .expect(months_in_step(f.m, l.m, cpn_freq), ORVEL_E_SYNC + 36)
        .expect(on_rule(mat), ORVEL_E_DWM_MATURITY)
        .expect(on_rule(l), ORVEL_E_DWM_LAST_CPN)
        .ok();
}

ORVEL_EXPORT(int32_t) ok_ogpd_MDYs(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my, int32_t* dm,
                                   int32_t* dd, int32_t* dy, int32_t* fm, int32_t* fd, int32_t* fy, int32_t* lm,
                                   int32_t* ld, int32_t* ly, int32_t first_mths, int32_t last_mths, int32_t eom,
                                   int32_t cpn_freq, uint32_t* err_code) {
    const Date settle{sm, sd, sy}, mat{mm, md, my};
    const DateRef dated{dm, dd, dy}, first{fm, fd, fy}, last{lm, ld, ly};
    const int32_t longest = 2 * months_per_period(cpn_freq);
    Check check(err_code);
    check.call(0, ok_cpn_freq, cpn_freq);
    odd_period_ends(check, settle, mat, dated, first.get());
    orvel::optional(check, ORVEL_ROLE_FIRST_CPN, first.get());
    orvel::optional(check, ORVEL_ROLE_LAST_CPN, last.get());
    check.expect(first_mths >= 0, ORVEL_E_ODD_PERIOD1)
        .expect(first_mths <= longest, ORVEL_E_ODD_PERIOD2)
        .expect(last_mths >= 0, ORVEL_E_ODD_PERIOD3)
        .expect(last_mths <= longest, ORVEL_E_ODD_PERIOD4);
    if (!check) return 0;
    // A given coupon date must sit where its period length puts it.
    const Date f = first.get(), l = last.get(), dt = dated.get();
    if (!orvel::is_blank(dt) && !orvel::is_blank(f) && first_mths > 0)
        check.expect(same_day(months_from(dt, first_mths, eom), f), ORVEL_E_ODD_PERIOD5);
    if (!orvel::is_blank(l) && last_mths > 0)
        check.expect(same_day(months_from(l, last_mths, eom), mat), ORVEL_E_ODD_PERIOD6);
    given_order(check, settle, mat, dt, f, 1);
    if (!orvel::is_blank(f) && !orvel::is_blank(l)) check.expect(months_in_step(f.m, l.m, cpn_freq), ORVEL_E_ODD_SYNC);
    return check.ok();
}
