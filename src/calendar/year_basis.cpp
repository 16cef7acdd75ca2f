// Year bases: the days in the year that a convention divides by, and the ISDA year fraction.
#include "core/civil.hpp"
#include "calendar/day_count.hpp"
#include "calendar/years.hpp"
#include "core/check.hpp"
#include "orvel/calendar.h"

namespace cal = orvel::cal;

namespace {

int32_t actual_days(orvel::Date a, orvel::Date b) { return cal::days_actual(a.m, a.d, a.y, b.m, b.d, b.y); }

int32_t year_from(orvel::Date a) { return actual_days(a, cal::add_months(a, 12, true)); }
int32_t year_to(orvel::Date a) { return actual_days(cal::add_months(a, -12, true), a); }
int32_t calendar_year(int64_t y) { return cal::leap(y) ? 366 : 365; }

// 29 February of year y (when it has one) lies in [a, b].
bool holds_leap_day(int32_t y, orvel::Date a, orvel::Date b) {
    const orvel::Date leap_day{2, 29, y};
    return cal::leap(y) && cal::compare(a, leap_day) <= 0 && cal::compare(leap_day, b) <= 0;
}

}  // namespace

int32_t cal::year_basis(int32_t day_type, orvel::Date a) {
    return day_type == 1 ? year_from(a) : fixed_year_basis(day_type);
}

int32_t cal::act_year(orvel::Date d1, orvel::Date d2, orvel::Date d3, int32_t yr_method) {
    switch (yr_method) {
    case 1: return year_from(d1);
    case 2: return year_from(d2);
    case 3: return year_to(d1);
    case 4: return year_to(d3);
    case 5: return calendar_year(d1.y);
    case 6: return calendar_year(d2.y);
    case 7: return calendar_year(d3.y);
    case 8: {
        const int32_t span = actual_days(d1, d3);
        if (span < 1 || span > 366) return 0;
        return holds_leap_day(d1.y, d1, d3) || holds_leap_day(d3.y, d1, d3) ? 366 : 365;
    }
    case 9: return 365;
    case 10: return 366;
    default: return 0;
    }
}

namespace {

// date1 plays settlement, date3 maturity and date2 (where it is read) the dated date.
bool act_yr_dates_ok(orvel::Date d1, orvel::Date d2, orvel::Date d3, bool reads_date2, uint32_t* err_code) {
    orvel::Check check(err_code);
    check.call(ORVEL_ROLE_SETTLE, ok_MDY, d1.m, d1.d, d1.y, 1).call(ORVEL_ROLE_MATURITY, ok_MDY, d3.m, d3.d, d3.y, 1);
    if (reads_date2) check.call(ORVEL_ROLE_DATED, ok_MDY, d2.m, d2.d, d2.y, 1);
    return check.ok();
}

}  // namespace

ORVEL_EXPORT(int32_t) days_yrbasis(int32_t m, int32_t d, int32_t y, int32_t day_type, int32_t validate,
                                   uint32_t* err_code) {
    if (validate && !orvel::Check(err_code).call(0, ok_day_type, day_type).call(0, ok_MDY, m, d, y, 1).ok()) return 0;
    return cal::year_basis(day_type, {m, d, y});
}

ORVEL_EXPORT(int32_t) days_act_yr(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t m3, int32_t d3, int32_t y3, int32_t yr_method, int32_t validate,
                                  uint32_t* err_code) {
    const orvel::Date a{m1, d1, y1}, b{m2, d2, y2}, c{m3, d3, y3};
    if (validate && !act_yr_dates_ok(a, b, c, yr_method == 2 || yr_method == 6, err_code)) return 0;
    return cal::act_year(a, b, c, yr_method);
}

ORVEL_EXPORT(int32_t) days_actf_yr(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                   int32_t m3, int32_t d3, int32_t y3, int32_t yr_method, int32_t cpn_freq,
                                   int32_t validate, uint32_t* err_code) {
    const orvel::Date a{m1, d1, y1}, b{m2, d2, y2}, c{m3, d3, y3};
    const bool by_period = yr_method == 11 || yr_method == 12;
    if (validate && !orvel::Check(err_code)
                         .step([&](uint32_t* e) {
                             return act_yr_dates_ok(a, b, c, yr_method == 2 || yr_method == 6 || yr_method == 11, e);
                         })
                         .step([&](uint32_t* e) { return !by_period || ok_cpn_freq(cpn_freq, e); })
                         .ok())
        return 0;
    if (!by_period) return cal::act_year(a, b, c, yr_method);
    // Actual/actual by coupon period: a year is cpn_freq periods as long as the period measured.
    const int64_t periods = cpn_freq < 1 ? 1 : cpn_freq;
    const orvel::Date start = yr_method == 11 ? b : cal::add_months(c, -cal::months_per_period(cpn_freq), true);
    return cal::narrow(periods * actual_days(start, c));
}

ORVEL_EXPORT(int32_t) is_dt_dn_365(int32_t day_type, int32_t validate, uint32_t* err_code) {
    if (validate && !orvel::Check(err_code).call(0, ok_day_type, day_type).ok()) return 0;
    return cal::fixed_year_basis(day_type) == 365 ? 1 : 0;
}

namespace {

// Leap years in [1, y] (for the years of the calendar range).
int64_t leap_years_through(int64_t y) { return y / 4 - y / 100 + y / 400; }

// Actual/actual ISDA from a to b (a not after b): each calendar year's days over that year's length.
// The whole years between the first and the last contribute 1 each, so the sum is closed-form; the
// basis is the common length of the years with days in the period, -1 when they differ.
double isda_actual(orvel::Date a, orvel::Date b, int32_t* basis) {
    if (a.y == b.y) {
        *basis = calendar_year(a.y);
        return static_cast<double>(actual_days(a, b)) / *basis;
    }
    const int32_t head_days = actual_days(a, {1, 1, static_cast<int32_t>(int64_t{a.y} + 1)});
    const int32_t tail_days = actual_days({1, 1, b.y}, b);
    const int64_t first_full = int64_t{a.y} + 1, last_full = int64_t{b.y} - 1;
    // Years with days in the period: the head's (always some), the whole ones, the tail's when it has days.
    const int64_t first = a.y, last = tail_days > 0 ? b.y : last_full;
    const int64_t years = last - first + 1;
    const int64_t leaps = leap_years_through(last) - leap_years_through(first - 1);
    *basis = leaps == 0 ? 365 : leaps == years ? 366 : -1;
    const double whole = static_cast<double>(last_full - first_full + 1);
    return static_cast<double>(head_days) / calendar_year(a.y) + whole +
           static_cast<double>(tail_days) / calendar_year(b.y);
}

}  // namespace

ORVEL_EXPORT(double) isda_dcf(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                              int32_t day_type, int32_t ref_m, int32_t ref_d, int32_t ref_y, int32_t* basis,
                              int32_t validate, uint32_t* err_code) {
    (void)ref_m, (void)ref_d, (void)ref_y;
    if (validate && !orvel::Check(err_code)
                         .call(0, is_MDYleMDY, m1, d1, y1, m2, d2, y2, 1, 1)
                         .call(0, ok_day_type, day_type)
                         .ok())
        return 0.0;
    const orvel::Date a{m1, d1, y1}, b{m2, d2, y2};
    if (day_type == 1) return cal::compare(a, b) <= 0 ? isda_actual(a, b, basis) : -isda_actual(b, a, basis);
    *basis = days_yrbasis(m2, d2, y2, day_type, 0, err_code);
    if (*basis == 0) return 0.0;
    return static_cast<double>(cal::days_by_type(day_type, m1, d1, y1, m2, d2, y2)) / *basis;
}
