// The day counts of an odd first or odd last coupon period, measured against the regular period that the
// odd one replaces (the quasi-coupon period ending at the first coupon, or starting at the last regular
// coupon), so that dr / dp is the part of a regular coupon still to run.
#include "core/check.hpp"
#include "orvel/schedule.h"
#include "schedule/periods.hpp"

namespace {

using namespace orvel::schedule;
using orvel::Date;
using orvel::cal::compare;

// The regular period's length by the family rule of per2dp_da_dr.
int32_t regular_length(Date start, Date end, int32_t day_type, int32_t cpn_freq) {
    return split_period(start, end, start, day_type, cpn_freq).dp;
}

// Days remaining to the end of an odd period: counted like dr of the regular period (code 13 without
// 29 February) but always as a day count, since the odd period has no fixed length.
int32_t days_to_end(Date settle, Date end, int32_t day_type) {
    return count_days(settle, end, day_type == 13 ? 9 : day_type);
}

struct OddPeriod {
    double da, dp, dr, nper, frac;
};

void put(const OddPeriod& p, double* da, double* dp, double* dr, double* nper, double* frac) {
    *da = p.da;
    *dp = p.dp;
    *dr = p.dr;
    *nper = p.nper;
    *frac = p.frac;
}

// The conventions, then settlement (role 7) and maturity (role 1) as required dates.
bool valid_terms(Date settle, Date mat, int32_t day_type, int32_t cpn_freq, uint32_t* err_code) {
    return orvel::Check(err_code)
        .call(0, ok_day_type, day_type)
        .call(0, ok_cpn_freq, cpn_freq)
        .call(ORVEL_ROLE_SETTLE, ok_MDY, settle.m, settle.d, settle.y, 1)
        .call(ORVEL_ROLE_MATURITY, ok_MDY, mat.m, mat.d, mat.y, 1)
        .ok();
}

}  // namespace

ORVEL_EXPORT(double) d_oddperinfo(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                  int32_t first_m, int32_t first_d, int32_t first_y, int32_t day_type, int32_t eom,
                                  int32_t cpn_freq, double* da, double* dp, double* dr, double* nper, double* frac,
                                  int32_t validate, uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first{first_m, first_d, first_y};
    if (validate && !orvel::Check(err_code)
                         .step([&](uint32_t* e) { return valid_terms(settle, mat, day_type, cpn_freq, e); })
                         .call(ORVEL_ROLE_DATED, ok_MDY, dated.m, dated.d, dated.y, 1)
                         .call(ORVEL_ROLE_FIRST_CPN, ok_MDY, first.m, first.d, first.y, 1)
                         .expect(compare(dated, settle) <= 0, ORVEL_E_NOT_LE + 27)
                         .expect(compare(settle, first) < 0, ORVEL_E_NOT_LT + 73)
                         .expect(compare(first, mat) <= 0, ORVEL_E_NOT_LE + 31)
                         .ok())
        return 0.0;
    const Date quasi_start = grid_date(first, -1, cpn_freq, eom);
    const OddPeriod p{static_cast<double>(count_days(dated, settle, day_type)),
                      static_cast<double>(regular_length(quasi_start, first, day_type, cpn_freq)),
                      static_cast<double>(days_to_end(settle, first, day_type)),
                      static_cast<double>(saturate(locate(first, mat, cpn_freq, eom).periods)),
                      compare(dated, settle) < 0 ? 1.0 : 0.0};
    put(p, da, dp, dr, nper, frac);
    return p.dr;
}

ORVEL_EXPORT(double) d_lstperinfo(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t last_m, int32_t last_d, int32_t last_y,
                                  int32_t day_type, int32_t eom, int32_t cpn_freq, double* da, double* dp, double* dr,
                                  double* nper, double* frac, int32_t validate, uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y}, last{last_m, last_d, last_y};
    if (validate && !orvel::Check(err_code)
                         .step([&](uint32_t* e) { return valid_terms(settle, mat, day_type, cpn_freq, e); })
                         .call(ORVEL_ROLE_LAST_CPN, ok_MDY, last.m, last.d, last.y, 1)
                         .expect(compare(last, settle) <= 0, ORVEL_E_NOT_LE + 67)
                         .expect(compare(settle, mat) < 0, ORVEL_E_NOT_LT + 71)
                         .ok())
        return 0.0;
    const Date quasi_end = grid_date(last, 1, cpn_freq, eom);
    const OddPeriod p{static_cast<double>(count_days(last, settle, day_type)),
                      static_cast<double>(regular_length(last, quasi_end, day_type, cpn_freq)),
                      static_cast<double>(days_to_end(settle, mat, day_type)), 0.0,
                      compare(last, settle) < 0 ? 1.0 : 0.0};
    put(p, da, dp, dr, nper, frac);
    return p.dr;
}
