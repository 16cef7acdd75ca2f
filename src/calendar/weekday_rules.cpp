// Weekday-of-month rules (the fourth Thursday, the last Monday) and the splitting of packed dates.
#include "calendar/business.hpp"
#include "core/check.hpp"
#include "orvel/calendar.h"

namespace cal = orvel::cal;
using orvel::Check;

namespace {

// With validate: the first of the month as a required date, the occurrence, the weekday. Then the day
// (2700 for a fifth weekday the month lacks), or 0 on failure.
int32_t rule_day(int32_t m, int32_t y, int32_t occur, int32_t dow, int32_t validate, uint32_t* err_code) {
    Check check(err_code);
    if (validate != 0) check.call(0, ok_MDY, m, 1, y, 1).call(0, ok_dow_occur, occur).call(0, ok_dow, dow);
    if (!check) return 0;
    const int32_t day = cal::weekday_of_month(m, y, occur, dow);
    return check.expect(day != 0, ORVEL_E_NO_FIFTH_WEEKDAY).ok() ? day : 0;
}

// The date moved by `months` months and put on the weekday rule; unchanged on failure.
int32_t move_onto_rule(int64_t months, int32_t occur, int32_t dow, int32_t* m, int32_t* d, int32_t* y,
                       uint32_t* err_code) {
    const orvel::Date to = cal::add_months({*m, 1, *y}, months, false);
    const int32_t day = rule_day(to.m, to.y, occur, dow, 1, err_code);
    return day == 0 ? 0 : orvel::store({to.m, day, to.y}, m, d, y);
}

}  // namespace

ORVEL_EXPORT(int32_t) dwm_2_day(int32_t m, int32_t y, int32_t occur, int32_t dow, int32_t validate,
                                uint32_t* err_code) {
    return rule_day(m, y, occur, dow, validate, err_code);
}

ORVEL_EXPORT(int32_t) dwm_2_bdt(int32_t m, int32_t y, int32_t occur, int32_t dow, int32_t dir, int32_t hol_count,
                                const int32_t* holidays, int32_t* m_out, int32_t* d_out, int32_t* y_out,
                                int32_t validate, uint32_t* err_code) {
    const cal::Holidays h{holidays, hol_count};
    Check check(err_code);
    if (validate != 0)
        check.call(0, ok_MDY, m, 1, y, 1).call(0, ok_dow_occur, occur).call(0, ok_dow, dow).call(0, ok_hol_table,
                                                                                                 hol_count, holidays);
    const int32_t day = check ? cal::weekday_of_month(m, y, occur, dow) : 0;
    if (!check.expect(day != 0, ORVEL_E_NO_FIFTH_WEEKDAY).expect(cal::readable(h), ORVEL_E_HOL_COUNT).ok()) return 0;
    return orvel::store(cal::roll(orvel::Date{m, day, y}, dir, h), m_out, d_out, y_out);
}

ORVEL_EXPORT(int32_t) incr_by_mdwm(int32_t n, int32_t occur, int32_t dow, int32_t* m, int32_t* d, int32_t* y,
                                   uint32_t* err_code) {
    return move_onto_rule(n, occur, dow, m, d, y, err_code);
}

ORVEL_EXPORT(int32_t) incr_by_pdwm(int32_t n, int32_t cpn_freq, int32_t occur, int32_t dow, int32_t* m, int32_t* d,
                                   int32_t* y, uint32_t* err_code) {
    return move_onto_rule(int64_t{n} * cal::months_per_period(cpn_freq), occur, dow, m, d, y, err_code);
}

ORVEL_EXPORT(int32_t) breakup_date(int32_t dt, int32_t pivot_yr, int32_t* m, int32_t* d, int32_t* y) {
    *d = dt % 100;
    *m = dt / 100 % 100;
    int32_t year = dt / 10000;
    if (year <= 99 && (*m != 0 || *d != 0)) year += year <= pivot_yr ? 2000 : 1900;
    return *y = year;
}
