// Schedules seen from their start: periods counted forward from a dated date, and the last coupon date
// before an early redemption.
#include "calendar/order.hpp"
#include "core/check.hpp"
#include "orvel/schedule.h"
#include "schedule/odd_periods.hpp"

namespace {

using namespace orvel::schedule;
using orvel::Date;
using orvel::cal::compare;

// Periods from `from` to `to` (from <= to) on the grid that starts at `from` and runs forward: the whole
// periods to the coupon date on or before `to`, plus the accrued part of the period `to` falls in.
double periods_forward(Date from, Date to, int32_t day_type, int32_t eom, int32_t cpn_freq) {
    if (compare(from, to) == 0) return 0.0;
    const Bracket b = locate(to, from, cpn_freq, eom);  // b.periods <= 0: the grid runs on past its anchor
    const DaySplit s = split_period(b.pcd, b.ncd, to, day_type, cpn_freq);
    const double part = s.dp == 0 ? 0.0 : static_cast<double>(s.da) / s.dp;
    return static_cast<double>(-b.periods) + part;
}

}  // namespace

ORVEL_EXPORT(double) num_dper_fb(int32_t d1_m, int32_t d1_d, int32_t d1_y, int32_t d2_m, int32_t d2_d, int32_t d2_y,
                                 int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t validate,
                                 uint32_t* err_code) {
    const Date d1{d1_m, d1_d, d1_y}, d2{d2_m, d2_d, d2_y};
    if (validate && !orvel::Check(err_code)
                         .call(0, ok_day_type, day_type)
                         .call(0, ok_cpn_freq, cpn_freq)
                         .call(0, orvel::cal::checked_not_after, d1, d2, 1)
                         .ok())
        return 0.0;
    if (compare(d1, d2) > 0) return -periods_forward(d2, d1, day_type, eom, cpn_freq);
    return periods_forward(d1, d2, day_type, eom, cpn_freq);
}

ORVEL_EXPORT(void) per_er_lcd(int32_t er_m, int32_t er_d, int32_t er_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                              int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d,
                              int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y, int32_t day_type,
                              int32_t eom, int32_t cpn_freq, int32_t* lcd_m, int32_t* lcd_d, int32_t* lcd_y,
                              int32_t validate, uint32_t* err_code) {
    const Date er{er_m, er_d, er_y};
    const OddSchedule s{{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_m, first_d, first_y},
                        {last_m, last_d, last_y}, eom, cpn_freq};
    if (validate && !orvel::Check(err_code)
                         .step([&](uint32_t* e) { return valid_odd_schedule(&er, s, day_type, e); })
                         .expect(orvel::is_blank(s.dated) || compare(s.dated, er) < 0, ORVEL_E_NOT_LT + 27)
                         .ok())
        return;
    // The coupon period holding the day before redemption starts at the last coupon date strictly before
    // it: a redemption on a coupon date is paid that coupon, and the period before it is the last.
    const Bracket b = odd_period_of(orvel::cal::add_days(er, -1), s);
    orvel::store(b.pcd, lcd_m, lcd_d, lcd_y);
}
