// Coupon dates, period counts and the day counts of the current period of a regular schedule.
#include "schedule/periods.hpp"

#include "core/check.hpp"
#include "calendar/order.hpp"
#include "orvel/schedule.h"

namespace orvel::schedule {

Bracket coupon_dates(Date settle, Date mat, int32_t cpn_freq, int32_t eom) {
    if (same_date(settle, mat)) return {mat, mat, 0};
    return locate(settle, mat, cpn_freq, eom);
}

namespace {

PeriodCount count_from(const Bracket& b, const DaySplit& whole_basis_split, int32_t day_type) {
    if (leaves_whole_period(whole_basis_split, day_type)) return {saturate(b.periods), 0};
    return {saturate(b.periods - 1), 1};
}

}  // namespace

PeriodCount count_periods(Date settle, Date mat, int32_t day_type, int32_t eom, int32_t cpn_freq) {
    const Bracket b = locate(settle, mat, cpn_freq, eom);
    const DaySplit s = split_period(b.pcd, b.ncd, settle, whole_period_basis(day_type), cpn_freq);
    return count_from(b, s, day_type);
}

PeriodCount month_periods(Date settle, Date mat, int32_t cpn_freq) {
    const int32_t per_months = cal::months_per_period(cpn_freq);
    if (per_months == 0) return {0, 0};  // a frequency above 12: periods of no months, none to count
    int64_t months = month_index(mat) - month_index(settle);
    const int64_t offset = cal::compare(settle, cal::add_months(mat, -months, true));
    if (offset > 0) --months;
    return {saturate(months / per_months), (offset == 0 && months % per_months == 0) ? 0 : 1};
}

RegularInfo regular_info(Date settle, Date mat, int32_t day_type, int32_t eom, int32_t cpn_freq) {
    const Bracket b = locate(settle, mat, cpn_freq, eom);
    const bool at_maturity = same_date(settle, mat);
    const DaySplit days = split_period(at_maturity ? mat : b.pcd, at_maturity ? mat : b.ncd, settle, day_type, cpn_freq);
    // The whole-period test of count_periods without a second split: on calendar days (codes 1, 7, 8, 12,
    // 13, whose da is an actual count) a whole period remains exactly when nothing has accrued, as it does
    // at maturity; every other code tests under itself, on the split just made.
    const bool calendar_test = at_maturity || whole_period_basis(day_type) == 1;
    const bool whole = calendar_test ? days.da == 0 : leaves_whole_period(days, day_type);
    return {days, whole ? PeriodCount{saturate(b.periods), 0} : PeriodCount{saturate(b.periods - 1), 1}};
}

}  // namespace orvel::schedule

namespace {

using orvel::Date;

// Settlement before maturity (actual days), then the frequency: the common check of the period counters.
bool valid_term(Date settle, Date mat, int32_t cpn_freq, uint32_t* err_code) {
    return orvel::Check(err_code)
        .call(0, orvel::cal::checked_before, settle, mat, 1)
        .call(0, ok_cpn_freq, cpn_freq)
        .ok();
}

// Settlement on or before maturity, then the frequency.
bool valid_lookup(Date settle, Date mat, int32_t cpn_freq, uint32_t* err_code) {
    return orvel::Check(err_code)
        .call(0, orvel::cal::checked_not_after, settle, mat, 1)
        .call(0, ok_cpn_freq, cpn_freq)
        .ok();
}

}  // namespace

ORVEL_EXPORT(void) lst_nxt_ncpn(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                int32_t mat_y, int32_t cpn_freq, int32_t eom, int32_t* pcd_m, int32_t* pcd_d,
                                int32_t* pcd_y, int32_t* ncd_m, int32_t* ncd_d, int32_t* ncd_y, int32_t validate,
                                uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    if (validate && !valid_lookup(settle, mat, cpn_freq, err_code)) return;
    const auto b = orvel::schedule::coupon_dates(settle, mat, cpn_freq, eom);
    orvel::store(b.pcd, pcd_m, pcd_d, pcd_y);
    orvel::store(b.ncd, ncd_m, ncd_d, ncd_y);
}

ORVEL_EXPORT(int32_t) num_per(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                              int32_t mat_y, int32_t cpn_freq, int32_t* nper, int32_t* frac, int32_t validate,
                              uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    if (validate && !valid_term(settle, mat, cpn_freq, err_code)) return 0;
    const auto c = orvel::schedule::month_periods(settle, mat, cpn_freq);
    *nper = c.nper;
    *frac = c.frac;
    return c.nper;
}

ORVEL_EXPORT(int32_t) num_per_dt(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                 int32_t mat_y, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t* nper,
                                 int32_t* frac, int32_t validate, uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    if (validate && !orvel::Check(err_code)
                         .step([&](uint32_t* e) { return valid_term(settle, mat, cpn_freq, e); })
                         .call(0, ok_day_type, day_type)
                         .ok())
        return 0;
    const auto c = orvel::schedule::count_periods(settle, mat, day_type, eom, cpn_freq);
    *nper = c.nper;
    *frac = c.frac;
    return c.nper;
}

namespace {

// reg_per_info in the integer or the double form: the same checks, the same five results.
template <class T>
T regular_info_as(Date settle, Date mat, int32_t day_type, int32_t eom, int32_t cpn_freq, T* da, T* dp, T* dr,
                  T* nper, T* frac, int32_t validate, uint32_t* err_code) {
    if (validate && !valid_term(settle, mat, cpn_freq, err_code)) return 0;
    const auto r = orvel::schedule::regular_info(settle, mat, day_type, eom, cpn_freq);
    *da = r.days.da;
    *dp = r.days.dp;
    *dr = r.days.dr;
    *nper = r.count.nper;
    *frac = r.count.frac;
    return r.days.dr;
}

}  // namespace

ORVEL_EXPORT(int32_t) reg_per_info(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                   int32_t mat_d, int32_t mat_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                   int32_t* da, int32_t* dp, int32_t* dr, int32_t* nper, int32_t* frac,
                                   int32_t validate, uint32_t* err_code) {
    return regular_info_as<int32_t>({settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y}, day_type, eom, cpn_freq,
                                    da, dp, dr, nper, frac, validate, err_code);
}

ORVEL_EXPORT(double) d_regperinfo(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                  double* da, double* dp, double* dr, double* nper, double* frac, int32_t validate,
                                  uint32_t* err_code) {
    return regular_info_as<double>({settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y}, day_type, eom, cpn_freq,
                                   da, dp, dr, nper, frac, validate, err_code);
}

ORVEL_EXPORT(double) d_qlb2dpdadr(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                  double* da, double* dp, double* dr, int32_t validate, uint32_t* err_code) {
    using namespace orvel::schedule;
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    if (validate && !orvel::Check(err_code)
                         .step([&](uint32_t* e) { return valid_lookup(settle, mat, cpn_freq, e); })
                         .call(0, ok_day_type, day_type)
                         .ok())
        return 0.0;
    const Bracket b = coupon_dates(settle, mat, cpn_freq, eom);
    const DaySplit s = split_period(b.pcd, b.ncd, settle, day_type, cpn_freq);
    *da = s.da;
    *dp = s.dp;
    *dr = s.dr;
    return s.dr;
}
