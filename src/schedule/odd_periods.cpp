// Coupon dates of a bond with an odd first period (dated -> first coupon) and an odd last period (last
// regular coupon -> maturity); the regular schedule between them is anchored on the last regular coupon.
#include "core/check.hpp"
#include "orvel/calendar.h"
#include "orvel/schedule.h"
#include "schedule/periods.hpp"

namespace {

using orvel::schedule::Bracket;
using orvel::schedule::Date;
using orvel::schedule::blank;
using orvel::cal::compare;


void put(Date x, int32_t* m, int32_t* d, int32_t* y) {
    *m = x.m;
    *d = x.d;
    *y = x.y;
}

struct OddSchedule {
    Date mat;
    Date dated;      // blank: the first period is a regular one ending at first_cpn
    Date first_cpn;  // blank: no odd first period, the schedule runs back without limit
    Date last_cpn;   // blank: no odd last period, the regular schedule is anchored on maturity
    int32_t eom;
    int32_t cpn_freq;
};

// The coupon period that contains settle: before the first coupon the (odd) first period, from the last
// regular coupon on the (odd) last period, in between the regular grid anchored on the last regular coupon.
Bracket period_of(Date settle, const OddSchedule& s) {
    using orvel::schedule::grid_date;
    if (!blank(s.first_cpn) && compare(settle, s.first_cpn) < 0) {
        const Date start = blank(s.dated) ? grid_date(s.first_cpn, -1, s.cpn_freq, s.eom) : s.dated;
        return {start, s.first_cpn, 0};
    }
    if (blank(s.last_cpn)) return orvel::schedule::coupon_dates(settle, s.mat, s.cpn_freq, s.eom);
    if (compare(settle, s.last_cpn) >= 0) return {s.last_cpn, s.mat, 0};
    return orvel::schedule::locate(settle, s.last_cpn, s.cpn_freq, s.eom);
}

// The multi-rate date group, run on copies: its defaults for blank dates apply to this call only.
bool checked_schedule(Date settle, OddSchedule& s, int32_t day_type, uint32_t* err_code) {
    return ok_mtrm_MDYs(settle.m, settle.d, settle.y, s.mat.m, s.mat.d, s.mat.y, &s.dated.m, &s.dated.d,
                        &s.dated.y, &s.first_cpn.m, &s.first_cpn.d, &s.first_cpn.y, &s.last_cpn.m, &s.last_cpn.d,
                        &s.last_cpn.y, day_type, s.eom, s.cpn_freq, err_code) != 0;
}

// An order between two dates that holds when either is blank; number = base + the two roles.
bool ordered_if_given(Date a, Date b, bool strict, uint32_t number, uint32_t* err_code) {
    if (blank(a) || blank(b)) return true;
    const int64_t c = compare(a, b);
    return (strict ? c < 0 : c <= 0) || orvel::fail(err_code, number);
}

// The dates of a schedule with optional odd periods, each with its role: the date looked up (7, when
// there is one), maturity (1), dated (2), first coupon (3), last regular coupon (6); then date <= mat
// (2071), dated < first coupon (2123), first coupon <= last coupon (2036), last coupon < mat (2161).
bool valid_odd_schedule(const Date* date, const OddSchedule& s, int32_t day_type, uint32_t* err_code) {
    orvel::Check check(err_code);
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

// per_pcd and per_ncd: the date group checked, then one of the two dates of settle's period.
bool checked_period_date(bool previous, Date settle, OddSchedule s, int32_t day_type, Date* out,
                         uint32_t* err_code) {
    if (!checked_schedule(settle, s, day_type, err_code)) return false;
    const Bracket b = period_of(settle, s);
    *out = previous ? b.pcd : b.ncd;
    return true;
}

}  // namespace

ORVEL_EXPORT(void) per_pcd(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                           int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m,
                           int32_t first_d, int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y,
                           int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t* pcd_m, int32_t* pcd_d,
                           int32_t* pcd_y, int32_t /*validate: the date group is always checked*/,
                           uint32_t* err_code) {
    Date pcd{};
    if (checked_period_date(true, {settle_m, settle_d, settle_y},
                            {{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_m, first_d, first_y},
                             {last_m, last_d, last_y}, eom, cpn_freq},
                            day_type, &pcd, err_code))
        put(pcd, pcd_m, pcd_d, pcd_y);
}

ORVEL_EXPORT(void) per_ncd(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                           int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m,
                           int32_t first_d, int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y,
                           int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t* ncd_m, int32_t* ncd_d,
                           int32_t* ncd_y, int32_t /*validate: the date group is always checked*/,
                           uint32_t* err_code) {
    Date ncd{};
    if (checked_period_date(false, {settle_m, settle_d, settle_y},
                            {{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_m, first_d, first_y},
                             {last_m, last_d, last_y}, eom, cpn_freq},
                            day_type, &ncd, err_code))
        put(ncd, ncd_m, ncd_d, ncd_y);
}

ORVEL_EXPORT(void) per_cpn_MDYs(int32_t date_m, int32_t date_d, int32_t date_y, int32_t mat_m, int32_t mat_d,
                                int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m,
                                int32_t first_d, int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y,
                                int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t* pcd_m, int32_t* pcd_d,
                                int32_t* pcd_y, int32_t* ncd_m, int32_t* ncd_d, int32_t* ncd_y, int32_t validate,
                                uint32_t* err_code) {
    const Date date{date_m, date_d, date_y};
    const OddSchedule s{{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_m, first_d, first_y},
                        {last_m, last_d, last_y}, eom, cpn_freq};
    if (validate && !valid_odd_schedule(&date, s, day_type, err_code)) return;
    const Bracket b = period_of(date, s);
    put(b.pcd, pcd_m, pcd_d, pcd_y);
    put(b.ncd, ncd_m, ncd_d, ncd_y);
}

ORVEL_EXPORT(void) per_lcd(int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                           int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y, int32_t last_m,
                           int32_t last_d, int32_t last_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                           int32_t* lcd_m, int32_t* lcd_d, int32_t* lcd_y, int32_t validate, uint32_t* err_code) {
    const OddSchedule s{{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_m, first_d, first_y},
                        {last_m, last_d, last_y}, eom, cpn_freq};
    if (validate && !valid_odd_schedule(nullptr, s, day_type, err_code)) return;
    // The start of the period that ends at maturity: the last regular coupon, or the first period's start
    // when the first coupon is maturity itself, or else one regular period before maturity.
    Date lcd = orvel::schedule::grid_date(s.mat, -1, cpn_freq, eom);
    if (!blank(s.last_cpn)) {
        lcd = s.last_cpn;
    } else if (!blank(s.first_cpn) && compare(s.first_cpn, s.mat) >= 0 && !blank(s.dated)) {
        lcd = s.dated;
    }
    put(lcd, lcd_m, lcd_d, lcd_y);
}
