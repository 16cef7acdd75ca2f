// The opening every ex-dividend rule shares, and the rules that are more than a fixed count of days.
#include "markets/exdiv.hpp"

#include "bond/accrued.hpp"
#include "core/check.hpp"
#include "core/defaults.hpp"
#include "schedule/odd_periods.hpp"

namespace orvel::markets {

bool next_coupon(int32_t code, ExdivBond b, int32_t validate, Date* ncd, uint32_t* err_code) {
    market_defaults(code, {.day_type = &b.day_type, .eom = &b.eom, .cpn_freq = &b.cpn_freq});
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_cpn_freq, b.cpn_freq)
                              .step([&](uint32_t* e) {
                                  return bond::valid_bond_dates(b.settle, b.mat, &b.dated, &b.first_cpn, b.day_type,
                                                                b.eom, b.cpn_freq, e);
                              })
                              .ok())
        return false;
    *ncd = schedule::odd_period_of(b.settle, {b.mat, b.dated, b.first_cpn, Date{0, 0, 0}, b.eom, b.cpn_freq}).ncd;
    return true;
}

bool holidays_ok(cal::Holidays h, int32_t validate, uint32_t* err_code) {
    Check check(err_code);
    if (validate != 0) check.call(0, ok_hol_table, h.count, h.day);
    return check.expect(cal::readable(h), ORVEL_E_HOL_COUNT).ok();
}

Date days_before(Date n, int32_t days) { return cal::add_days(n, -days); }

namespace {

int32_t weekday(Date x) { return cal::weekday(cal::jdn(x)); }
Date on_day(Date x, int32_t day) { return {x.m, day, x.y}; }

// The same day of the month before (the 1st or the 16th: no month end to keep).
Date month_before(Date x) { return cal::add_months(x, -1, false); }

}  // namespace

// A coupon from the 10th to the 24th goes ex on the first Monday of its month; any other on the first
// Monday after the 14th, and a 14th that is a Monday moves on to the 21st.
Date austrian(Date n) {
    if (n.d >= 10 && n.d <= 24) {
        const Date first = on_day(n, 1);
        return weekday(first) == 1 ? first : cal::add_days(first, 8 - weekday(first));
    }
    const Date fourteenth = on_day(n, 14);
    return cal::add_days(fourteenth, 8 - weekday(fourteenth));
}

Date irish(Date n) {
    const Date e = cal::add_days(n, -21);
    return cal::add_days(e, 3 - weekday(e));
}

// A coupon from the 3rd to the 16th goes ex on the 1st of its month, a later one on the 16th, one on the
// 1st or 2nd on the 16th of the month before; then the following business day when adj_bdt asks for it.
Date german(Date n, int32_t adj_bdt, cal::Holidays h) {
    Date e = n.d >= 3 && n.d <= 16 ? on_day(n, 1) : n.d > 16 ? on_day(n, 16) : month_before(on_day(n, 16));
    return adj_bdt != 0 ? cal::roll(e, 1, h) : e;
}

// Up to 1 January 1996: a January, April, July or October coupon on the 5th to the 8th goes ex on the 1st
// of the month before, any other 37 days before; 21 days earlier still for a special ex-dividend period,
// and rolled to the following business day under adj_bdt. From then on: six business days before the
// coupon, 21 days earlier under spec_exd, and rolled only when both flags are set.
Date british(Date n, int32_t spec_exd, int32_t adj_bdt, cal::Holidays h) {
    const bool quarter_month = n.m == 1 || n.m == 4 || n.m == 7 || n.m == 10;
    Date e = quarter_month && n.d >= 5 && n.d <= 8 ? month_before(on_day(n, 1)) : cal::add_days(n, -37);
    if (spec_exd != 0) e = cal::add_days(e, -21);
    if (adj_bdt != 0) e = cal::roll(e, 1, h);
    if (cal::compare(e, Date{1, 1, 1996}) <= 0) return e;
    e = cal::add_business_days(n, -6, h);
    if (spec_exd != 0) {
        e = cal::add_days(e, -21);
        if (adj_bdt != 0) e = cal::roll(e, 1, h);
    }
    return e;
}

}  // namespace orvel::markets
