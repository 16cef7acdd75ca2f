// Leap years and month ends of the Gregorian calendar.
#include "core/civil.hpp"
#include "orvel/calendar.h"

ORVEL_EXPORT(int32_t) is_leap_year(int32_t y) { return orvel::cal::leap(y) ? 1 : 0; }

ORVEL_EXPORT(int32_t) last_dom(int32_t m, int32_t y) { return orvel::cal::month_end(m, y); }

ORVEL_EXPORT(int32_t) is_last_dom(int32_t m, int32_t d, int32_t y) { return orvel::cal::is_month_end(m, d, y) ? 1 : 0; }

ORVEL_EXPORT(int32_t) eom_fixup(int32_t m0, int32_t d0, int32_t y0, int32_t* m, int32_t* d, int32_t* y, int32_t eom) {
    const orvel::Date to{*m, *d, *y};
    *d = orvel::cal::fixed_day({m0, d0, y0}, to, eom != 0);
    return orvel::cal::month_end(to.m, to.y);
}
