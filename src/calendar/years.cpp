// Years between two dates by convention: 30/360 and 365-day codes by their day count, the actual codes
// in whole anniversaries plus the fraction of the anniversary year in progress.
#include "calendar/years.hpp"

#include "calendar/day_count.hpp"
#include "calendar/checks.hpp"
#include "calendar/order.hpp"
#include "orvel/calendar.h"

namespace orvel::cal {

namespace {

int32_t actual_days(Date a, Date b) { return days_actual(a.m, a.d, a.y, b.m, b.d, b.y); }

// a's month and day in year y, a month end kept a month end.
Date in_year(Date a, int32_t y) {
    Date moved{a.m, a.d, y};
    moved.d = fixed_day(a, moved, true);
    return moved;
}

}  // namespace

double anniversary_years(Date a, Date b) {
    // The last anniversary of a strictly before b; b on an anniversary counts a whole year.
    Date anniv = in_year(a, b.y);
    if (compare(anniv, b) >= 0) anniv = in_year(a, static_cast<int32_t>(int64_t{b.y} - 1));
    const Date next = add_months(anniv, 12, true);
    const double whole = static_cast<double>(int64_t{anniv.y} - a.y);
    return whole + static_cast<double>(actual_days(anniv, b)) / static_cast<double>(actual_days(anniv, next));
}

double years_between(int32_t day_type, Date a, Date b) {
    constexpr double per_360 = 1.0 / 360.0;
    constexpr double per_365 = 1.0 / 365.0;
    if (is_thirty360(day_type)) return days_by_type(day_type, a.m, a.d, a.y, b.m, b.d, b.y) * per_360;
    switch (day_type) {
    case 1: case 7: case 8: return anniversary_years(a, b);
    case 9: case 13: return days_no_leap(a.m, a.d, a.y, b.m, b.d, b.y) * per_365;
    case 12: return actual_days(a, b) * per_365;
    default: return 0.0;
    }
}

}  // namespace orvel::cal

namespace cal = orvel::cal;

ORVEL_EXPORT(double) years_b_MDYs(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t day_type, int32_t validate, uint32_t* err_code) {
    const auto args_ok = [&](uint32_t* e) { return cal::day_count_args_ok(day_type, m1, d1, y1, m2, d2, y2, e); };
    const orvel::Date a{m1, d1, y1}, b{m2, d2, y2};
    if (validate && !orvel::Check(err_code).step(args_ok).call(0, cal::not_after, a, b, day_type).ok()) return 0.0;
    return cal::years_between(day_type, a, b);
}
