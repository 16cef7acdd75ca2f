// Moving dates by days, months, coupon periods and (fractional) years.
#include <cmath>

#include "core/civil.hpp"
#include "calendar/day_count.hpp"
#include "calendar/years.hpp"
#include "core/check.hpp"
#include "orvel/calendar.h"

namespace cal = orvel::cal;

ORVEL_EXPORT(int32_t) incr_by_days(int32_t n, int32_t* m, int32_t* d, int32_t* y) {
    return orvel::store(cal::add_days({*m, *d, *y}, n), m, d, y);
}

ORVEL_EXPORT(int32_t) incr_by_mths(int32_t n, int32_t* m, int32_t* d, int32_t* y, int32_t eom) {
    return orvel::store(cal::add_months({*m, *d, *y}, n, eom != 0), m, d, y);
}

ORVEL_EXPORT(int32_t) incr_by_pers(int32_t n, int32_t cpn_freq, int32_t* m, int32_t* d, int32_t* y, int32_t eom) {
    const int64_t months = int64_t{n} * cal::months_per_period(cpn_freq);
    return orvel::store(cal::add_months({*m, *d, *y}, months, eom != 0), m, d, y);
}

namespace {

// Days in a fraction f (0 < f < 1) of a year of `length` days, truncated after a small allowance for
// the binary representation of f (0.25 * 360 must give 90, not 89).
int64_t fraction_days(double f, int32_t length) { return static_cast<int64_t>(f * length + 0.00005); }

// The date moved by the fraction f of a year, as the convention of day_type measures a year.
orvel::Date move_by_fraction(orvel::Date date, double f, int32_t day_type) {
    if (cal::is_thirty360(day_type)) {
        const int64_t k = fraction_days(f, 360);
        return cal::add_days(cal::add_months(date, k / 30, true), k % 30);
    }
    switch (day_type) {
    case 1: case 7: case 8: case 12: case 13: {
        // Of a 365- and a 366-day step, the one whose measured fraction lies closer to f.
        const orvel::Date w365 = cal::add_days(date, fraction_days(f, 365));
        const orvel::Date w366 = cal::add_days(date, fraction_days(f, 366));
        const double off365 = std::fabs(cal::years_between(day_type, date, w365) - f);
        const double off366 = std::fabs(cal::years_between(day_type, date, w366) - f);
        return off366 < off365 ? w366 : w365;
    }
    case 9: return cal::add_days(date, fraction_days(f, 365));
    default: return date;
    }
}

}  // namespace

ORVEL_EXPORT(int32_t) incr_by_yrs(double yrs, int32_t* m, int32_t* d, int32_t* y, int32_t day_type, int32_t validate,
                                  uint32_t* err_code) {
    if (validate && !orvel::Check(err_code)
                         .expect(orvel::within(yrs, 0.0, 1e6), ORVEL_E_NEG_YEARS)
                         .call(0, ok_MDY, *m, *d, *y, 1)
                         .call(0, ok_day_type, day_type)
                         .ok())
        return 0;
    if (!orvel::within(yrs, -1e9, 1e9)) return *y;  // not a number, or no year of any calendar
    const double f = std::fmod(yrs, 1.0);
    const orvel::Date start{*m, *d, *y};
    const orvel::Date w = f > 0.0 ? move_by_fraction(start, f, day_type) : start;
    // The whole years move the fraction's date with its month end kept (2/28/2001 + 3 years is 2/29/2004).
    orvel::Date to{w.m, w.d, static_cast<int32_t>(w.y + static_cast<int64_t>(yrs - f))};
    to.d = cal::fixed_day(w, to, true);
    return orvel::store(to, m, d, y);
}
