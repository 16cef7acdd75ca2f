// Accrued interest, and the reduction of a bond's dates to the three numbers every kernel prices on.
#include "bond/accrued.hpp"

#include "bond/dates.hpp"
#include "core/check.hpp"
#include "groups/dates.hpp"
#include "orvel/bond.h"
#include "schedule/periods.hpp"

namespace {

using orvel::Date;
using orvel::bond::Reduced;
using orvel::schedule::RegularInfo;

// Whole periods as the schedule counts them less one, kept inside int32 (garbage dates only).
int32_t less_one(int32_t periods) { return orvel::schedule::saturate(int64_t{periods} - 1); }

// A first period is regular when the dated date lies on the coupon cycle of the first coupon (the
// end-of-month rule counted only for a month-end maturity) exactly one period before it.
bool regular_first_period(const Date& mat, const Date& dated, const Date& first_cpn, int32_t eom, int32_t cpn_freq) {
    const int32_t sync_eom = orvel::cal::is_month_end(mat.m, mat.d, mat.y) ? eom : 0;
    if (!orvel::same_cycle(dated, first_cpn, sync_eom, cpn_freq)) return false;
    const Date one_before = orvel::bond::step_periods(first_cpn, -1, cpn_freq, eom);
    return orvel::bond::days_between(dated, one_before, orvel::bond::actual_days) <= 0;
}

double regular_accrual(const Date& settle, const Date& mat, double cpn_rate, int32_t day_type, int32_t eom,
                       int32_t cpn_freq, Reduced* out) {
    const RegularInfo p = orvel::schedule::regular_info(settle, mat, day_type, eom, cpn_freq);
    out->cpn_amt = cpn_rate / cpn_freq;
    if (p.count.nper == 0 && p.count.frac == 0) {  // nothing left to run
        out->nxt_frac = 0.0;
        out->n_after = 0;
        return 0.0;
    }
    const double da = p.days.da, dp = p.days.dp, dr = p.days.dr;
    // A settlement strictly inside a period that counts as whole is a whole period ahead, except under
    // the actual/365 variant 12, which keeps its day fraction.
    out->nxt_frac = (dr != 0.0 && p.count.frac == 0 && day_type != 12) ? 1.0 : dr / dp;
    out->n_after = dr == 0.0 || p.count.frac == 1 ? p.count.nper : less_one(p.count.nper);
    return da * out->cpn_amt / dp;
}

// Settlement before an odd (short or long) first coupon: the odd period is measured in quasi-coupon
// periods of the schedule that runs back from the first coupon.
double odd_first_accrual(const Date& settle, const Date& mat, const Date& dated, const Date& first_cpn,
                         double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq, Reduced* out) {
    using orvel::schedule::regular_info;
    const RegularInfo s = regular_info(settle, first_cpn, day_type, eom, cpn_freq);  // quasi-period of settlement
    const RegularInfo d = regular_info(dated, first_cpn, day_type, eom, cpn_freq);   // quasi-period of the dated date
    const double s_da = s.days.da, s_dp = s.days.dp, s_dr = s.days.dr, d_dp = d.days.dp;
    // whole quasi-periods between (in 64 bits: garbage dates may give counts whose difference leaves int32)
    const double between = static_cast<double>(int64_t{d.count.nper} - s.count.nper - (s.days.da > 0 ? 1 : 0));
    const double elapsed = orvel::bond::days_between(dated, settle, day_type);
    const Date quasi_ncd = orvel::schedule::coupon_dates(dated, mat, cpn_freq, eom).ncd;
    const double first_stub = orvel::bond::days_between(dated, quasi_ncd, day_type);  // dated to its quasi-coupon
    const double c2 = (d.days.dr != 0 && d.count.frac == 0) ? 1.0 : 0.0;
    const double regular = cpn_rate / cpn_freq;
    const double ai = (between < 1.0 && elapsed <= s_da)
                          ? elapsed / s_dp * regular
                          : (s_da / s_dp + between - c2 + first_stub / d_dp) * regular;
    out->cpn_amt = (d.count.nper - c2 + first_stub / d_dp) * regular;
    const double c = (s.days.dr != 0 && s.count.frac == 0) ? 1.0 : 0.0;
    out->nxt_frac = s_dr / s_dp + s.count.nper - c;
    const int32_t to_mat = orvel::schedule::month_periods(settle, mat, cpn_freq).nper;
    out->n_after = orvel::schedule::saturate(int64_t{to_mat} - s.count.nper);
    return ai;
}

}  // namespace

namespace orvel::bond {

using orvel::Check;

// Run on a scratch word (Check::call): the 0 the group writes after supplying a default is its own clean-up,
// and an engine that succeeds leaves the caller's err_code alone.
bool valid_bond_dates(Date settle, Date mat, Date* dated, Date* first_cpn, int32_t day_type, int32_t eom,
                      int32_t cpn_freq, uint32_t* err_code) {
    return Check(err_code)
        .call(0, ok_bond_MDYs, settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, &dated->m, &dated->d, &dated->y,
              &first_cpn->m, &first_cpn->d, &first_cpn->y, day_type, eom, cpn_freq)
        .ok();
}

double reduce(const Date& settle, const Date& mat, Date dated, Date first_cpn, double cpn_rate, int32_t day_type,
              int32_t eom, int32_t cpn_freq, Reduced* out) {
    default_first_period(mat, &dated, &first_cpn, cpn_freq, eom);
    const int32_t to_first = days_between(settle, first_cpn, actual_days);
    if (to_first < 1 || regular_first_period(mat, dated, first_cpn, eom, cpn_freq))
        return regular_accrual(settle, mat, cpn_rate, day_type, eom, cpn_freq, out);
    return odd_first_accrual(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, out);
}

}  // namespace orvel::bond

double orvel::bond::accrued(Date settle, Date mat, Date dated, Date first_cpn, double cpn_rate, int32_t day_type,
                            int32_t eom, int32_t cpn_freq, int32_t validate, Reduced* out, uint32_t* err_code) {
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_cpn_rate, cpn_rate)
                              .call(0, ok_day_type, day_type)
                              .call(0, ok_cpn_freq, cpn_freq)
                              .step([&](uint32_t* e) {
                                  return valid_bond_dates(settle, mat, &dated, &first_cpn, day_type, eom, cpn_freq, e);
                              })
                              .ok())
        return 0.0;
    return reduce(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, out);
}

double orvel::bond::accrued_to(Date settle, Date mat, Date dated, Date first_cpn, double cpn_rate, int32_t day_type,
                               int32_t eom, int32_t cpn_freq, double* nxt_frac, double* cpn_amt, int32_t* n_after,
                               int32_t validate, uint32_t* err_code) {
    Reduced r;
    uint32_t err = 0;
    const double ai = accrued(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, validate, &r, &err);
    if (err != 0) {
        *err_code = err;
        return 0.0;
    }
    *nxt_frac = r.nxt_frac;
    *cpn_amt = r.cpn_amt;
    *n_after = r.n_after;
    return ai;
}

ORVEL_EXPORT(double) bond_ai(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                             int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                             int32_t first_cpn_d, int32_t first_cpn_y, double cpn_rate, int32_t day_type, int32_t eom,
                             int32_t cpn_freq, double* nxt_frac, double* cpn_amt, int32_t* n_after, int32_t validate,
                             uint32_t* err_code) {
    return orvel::bond::accrued_to({settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y},
                                   {first_cpn_m, first_cpn_d, first_cpn_y}, cpn_rate, day_type, eom, cpn_freq,
                                   nxt_frac, cpn_amt, n_after, validate, err_code);
}
