// Distances measured in coupon periods on a regular schedule: fractional periods and years between two
// dates, and the coupon interest earned over a holding.
#include "core/check.hpp"
#include "calendar/order.hpp"
#include "orvel/schedule.h"
#include "schedule/periods.hpp"

namespace {

using namespace orvel::schedule;
using orvel::Date;
using orvel::cal::compare;

// Part of a period as a fraction; a period of no days (possible only for nonsense frequencies) adds none.
double part(int32_t days, int32_t period) { return period == 0 ? 0.0 : static_cast<double>(days) / period; }

// Periods from `from` to `to` on the grid anchored on `to` (from <= to): the whole periods, plus the
// stretch from `from` to the next coupon as a fraction of its period when settlement lies inside one.
double periods_between(Date from, Date to, int32_t day_type, int32_t eom, int32_t cpn_freq) {
    if (compare(from, to) == 0) return 0.0;
    const RegularInfo r = regular_info(from, to, day_type, eom, cpn_freq);
    return r.count.nper + (r.count.frac ? part(r.days.dr, r.days.dp) : 0.0);
}

// Coupon interest, in coupons, from `from` to `to` (from <= to) in the schedule anchored on mat: the rest
// of from's period, the whole periods between, and the accrued part of to's period.
double coupons_earned(Date from, Date to, Date mat, int32_t day_type, int32_t eom, int32_t cpn_freq) {
    const Bracket a = locate(from, mat, cpn_freq, eom);
    const Bracket b = locate(to, mat, cpn_freq, eom);
    const DaySplit sa = split_period(a.pcd, a.ncd, from, day_type, cpn_freq);
    if (a.periods == b.periods) return part(count_days(from, to, day_type), sa.dp);
    const DaySplit sb = split_period(b.pcd, b.ncd, to, day_type, cpn_freq);
    return part(sa.dr, sa.dp) + static_cast<double>(a.periods - b.periods - 1) + part(sb.da, sb.dp);
}

bool valid_span(Date d1, Date d2, int32_t day_type, int32_t cpn_freq, uint32_t* err_code) {
    return orvel::Check(err_code)
        .call(0, ok_day_type, day_type)
        .call(0, ok_cpn_freq, cpn_freq)
        .call(0, orvel::cal::checked_not_after, d1, d2, 1)
        .ok();
}

}  // namespace

double orvel::schedule::signed_periods(Date d1, Date d2, int32_t day_type, int32_t eom, int32_t cpn_freq) {
    if (compare(d1, d2) > 0) return -periods_between(d2, d1, day_type, eom, cpn_freq);
    return periods_between(d1, d2, day_type, eom, cpn_freq);
}

ORVEL_EXPORT(double) num_dper(int32_t d1_m, int32_t d1_d, int32_t d1_y, int32_t d2_m, int32_t d2_d, int32_t d2_y,
                              int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t validate, uint32_t* err_code) {
    const Date d1{d1_m, d1_d, d1_y}, d2{d2_m, d2_d, d2_y};
    if (validate && !valid_span(d1, d2, day_type, cpn_freq, err_code)) return 0.0;
    return signed_periods(d1, d2, day_type, eom, cpn_freq);
}

ORVEL_EXPORT(double) num_yrs(int32_t d1_m, int32_t d1_d, int32_t d1_y, int32_t d2_m, int32_t d2_d, int32_t d2_y,
                             int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t validate, uint32_t* err_code) {
    const Date d1{d1_m, d1_d, d1_y}, d2{d2_m, d2_d, d2_y};
    if (validate && !valid_span(d1, d2, day_type, cpn_freq, err_code)) return 0.0;
    return signed_periods(d1, d2, day_type, eom, cpn_freq) / usable_freq(cpn_freq);
}

ORVEL_EXPORT(double) i_earn_MDYs(int32_t d1_m, int32_t d1_d, int32_t d1_y, int32_t d2_m, int32_t d2_d, int32_t d2_y,
                                 int32_t mat_m, int32_t mat_d, int32_t mat_y, double cpn_rate, int32_t day_type,
                                 int32_t eom, int32_t cpn_freq, int32_t validate, uint32_t* err_code) {
    const Date d1{d1_m, d1_d, d1_y}, d2{d2_m, d2_d, d2_y}, mat{mat_m, mat_d, mat_y};
    if (validate && !orvel::Check(err_code)
                         .call(0, ok_day_type, day_type)
                         .call(0, ok_cpn_freq, cpn_freq)
                         .call(0, ok_cpn_rate, cpn_rate)
                         .call(ORVEL_ROLE_SETTLE, ok_MDY, d1.m, d1.d, d1.y, 1)
                         .call(ORVEL_ROLE_CHECKED, ok_MDY, d2.m, d2.d, d2.y, 1)
                         .call(ORVEL_ROLE_MATURITY, ok_MDY, mat.m, mat.d, mat.y, 1)
                         .expect(compare(d1, d2) <= 0, ORVEL_E_NOT_LE + 78)
                         .expect(compare(d2, mat) <= 0, ORVEL_E_NOT_LE + 81)
                         .ok())
        return 0.0;
    const double coupon = cpn_rate / usable_freq(cpn_freq);
    if (compare(d1, d2) > 0) return -coupon * coupons_earned(d2, d1, mat, day_type, eom, cpn_freq);
    return coupon * coupons_earned(d1, d2, mat, day_type, eom, cpn_freq);
}
