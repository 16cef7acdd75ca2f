// Coupon dates of a bond with an odd first period (dated -> first coupon) and an odd last period (last
// regular coupon -> maturity); the regular schedule between them is anchored on the last regular coupon.
#include "schedule/odd_periods.hpp"

#include "core/check.hpp"
#include "orvel/schedule.h"

namespace orvel::schedule {

using cal::compare;

Bracket odd_period_of(Date settle, const OddSchedule& s) {
    if (!is_blank(s.first_cpn) && compare(settle, s.first_cpn) < 0) {
        const Date start = is_blank(s.dated) ? grid_date(s.first_cpn, -1, s.cpn_freq, s.eom) : s.dated;
        return {start, s.first_cpn, 0};
    }
    if (is_blank(s.last_cpn)) return coupon_dates(settle, s.mat, s.cpn_freq, s.eom);
    if (compare(settle, s.last_cpn) >= 0) return {s.last_cpn, s.mat, 0};
    return locate(settle, s.last_cpn, s.cpn_freq, s.eom);
}

namespace {

// An order between two dates that holds when either is blank; number = base + the two roles.
bool ordered_if_given(Date a, Date b, bool strict, uint32_t number, uint32_t* err_code) {
    if (is_blank(a) || is_blank(b)) return true;
    const int64_t c = compare(a, b);
    return (strict ? c < 0 : c <= 0) || fail(err_code, number);
}

}  // namespace

bool valid_odd_schedule(const Date* date, const OddSchedule& s, int32_t day_type, uint32_t* err_code) {
    Check check(err_code);
    check.call(0, ok_day_type, day_type).call(0, ok_cpn_freq, s.cpn_freq);
    if (date != nullptr) check.call(ORVEL_ROLE_SETTLE, ok_MDY, date->m, date->d, date->y, 1);
    check.call(ORVEL_ROLE_MATURITY, ok_MDY, s.mat.m, s.mat.d, s.mat.y, 1)
        .call(ORVEL_ROLE_DATED, ok_MDY, s.dated.m, s.dated.d, s.dated.y, 0)
        .call(ORVEL_ROLE_FIRST_CPN, ok_MDY, s.first_cpn.m, s.first_cpn.d, s.first_cpn.y, 0)
        .call(ORVEL_ROLE_LAST_CPN, ok_MDY, s.last_cpn.m, s.last_cpn.d, s.last_cpn.y, 0)
        .expect(date == nullptr || compare(*date, s.mat) <= 0, ORVEL_E_NOT_LE + 71)
        .step([&](uint32_t* e) { return ordered_if_given(s.dated, s.first_cpn, true, ORVEL_E_NOT_LT + 23, e); })
        .step([&](uint32_t* e) { return ordered_if_given(s.first_cpn, s.last_cpn, false, ORVEL_E_NOT_LE + 36, e); })
        .step([&](uint32_t* e) { return ordered_if_given(s.last_cpn, s.mat, true, ORVEL_E_NOT_LT + 61, e); });
    return check.ok();
}

}  // namespace orvel::schedule

using orvel::Date;
using orvel::is_blank;
using orvel::schedule::OddSchedule;

ORVEL_EXPORT(void) per_cpn_MDYs(int32_t date_m, int32_t date_d, int32_t date_y, int32_t mat_m, int32_t mat_d,
                                int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m,
                                int32_t first_d, int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y,
                                int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t* pcd_m, int32_t* pcd_d,
                                int32_t* pcd_y, int32_t* ncd_m, int32_t* ncd_d, int32_t* ncd_y, int32_t validate,
                                uint32_t* err_code) {
    const Date date{date_m, date_d, date_y};
    const OddSchedule s{{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_m, first_d, first_y},
                        {last_m, last_d, last_y}, eom, cpn_freq};
    if (validate && !orvel::schedule::valid_odd_schedule(&date, s, day_type, err_code)) return;
    const auto b = orvel::schedule::odd_period_of(date, s);
    orvel::store(b.pcd, pcd_m, pcd_d, pcd_y);
    orvel::store(b.ncd, ncd_m, ncd_d, ncd_y);
}

ORVEL_EXPORT(void) per_lcd(int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                           int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y, int32_t last_m,
                           int32_t last_d, int32_t last_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                           int32_t* lcd_m, int32_t* lcd_d, int32_t* lcd_y, int32_t validate, uint32_t* err_code) {
    const OddSchedule s{{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_m, first_d, first_y},
                        {last_m, last_d, last_y}, eom, cpn_freq};
    if (validate && !orvel::schedule::valid_odd_schedule(nullptr, s, day_type, err_code)) return;
    // The start of the period that ends at maturity: the last regular coupon, or the first period's start
    // when the first coupon is maturity itself, or else one regular period before maturity.
    Date lcd = orvel::schedule::grid_date(s.mat, -1, cpn_freq, eom);
    if (!is_blank(s.last_cpn)) {
        lcd = s.last_cpn;
    } else if (!is_blank(s.first_cpn) && orvel::cal::compare(s.first_cpn, s.mat) >= 0 && !is_blank(s.dated)) {
        lcd = s.dated;
    }
    orvel::store(lcd, lcd_m, lcd_d, lcd_y);
}
