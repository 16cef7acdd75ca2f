// Accrued interest, and the reduction of a bond's dates to the three numbers every kernel prices on.
#include "bond/accrued.hpp"

#include "bond/dates.hpp"
#include "core/check.hpp"
#include "orvel/bond.h"
#include "orvel/calendar.h"
#include "orvel/schedule.h"

namespace {

using orvel::bond::Mdy;
using orvel::bond::Reduced;

// The period around settlement as the schedule reports it, in doubles.
struct Period {
    double da = 0, dp = 0, dr = 0, nper = 0, frac = 0;
};

Period period_of(const Mdy& settle, const Mdy& anchor, int32_t day_type, int32_t eom, int32_t cpn_freq) {
    Period p;
    uint32_t scratch = 0;
    d_regperinfo(settle.m, settle.d, settle.y, anchor.m, anchor.d, anchor.y, day_type, eom, cpn_freq, &p.da, &p.dp,
                 &p.dr, &p.nper, &p.frac, 0, &scratch);
    return p;
}

// A count of periods the schedule gave as a double, back to int32 (it came from an int32 there).
int32_t whole(double periods) {
    if (!(periods > -2147483648.0 && periods < 2147483647.0)) return 0;
    return static_cast<int32_t>(periods);
}

// A first period is regular when the dated date lies on the coupon cycle of the first coupon (the
// end-of-month rule counted only for a month-end maturity) exactly one period before it.
bool regular_first_period(const Mdy& mat, const Mdy& dated, const Mdy& first_cpn, int32_t eom, int32_t cpn_freq) {
    uint32_t scratch = 0;
    const int32_t sync_eom = is_last_dom(mat.m, mat.d, mat.y) ? eom : 0;
    if (!ok_cpn_sync(dated.m, dated.d, dated.y, first_cpn.m, first_cpn.d, first_cpn.y, sync_eom, cpn_freq, 0,
                     &scratch))
        return false;
    const Mdy one_before = orvel::bond::step_periods(first_cpn, -1, cpn_freq, eom);
    return orvel::bond::days_between(dated, one_before, orvel::bond::actual_days) <= 0;
}

double regular_accrual(const Mdy& settle, const Mdy& mat, double cpn_rate, int32_t day_type, int32_t eom,
                       int32_t cpn_freq, Reduced* out) {
    const Period p = period_of(settle, mat, day_type, eom, cpn_freq);
    out->cpn_amt = cpn_rate / cpn_freq;
    if (p.nper == 0.0 && p.frac == 0.0) {  // nothing left to run
        out->nxt_frac = 0.0;
        out->n_after = 0;
        return 0.0;
    }
    // A settlement strictly inside a period that counts as whole is a whole period ahead, except under
    // the actual/365 variant 12, which keeps its day fraction.
    out->nxt_frac = (p.dr != 0.0 && p.frac == 0.0 && day_type != 12) ? 1.0 : p.dr / p.dp;
    out->n_after = whole(p.dr == 0.0 || p.frac == 1.0 ? p.nper : p.nper - 1.0);
    return p.da * out->cpn_amt / p.dp;
}

// Settlement before an odd (short or long) first coupon: the odd period is measured in quasi-coupon
// periods of the schedule that runs back from the first coupon.
double odd_first_accrual(const Mdy& settle, const Mdy& mat, const Mdy& dated, const Mdy& first_cpn, double cpn_rate,
                         int32_t day_type, int32_t eom, int32_t cpn_freq, Reduced* out) {
    const Period s = period_of(settle, first_cpn, day_type, eom, cpn_freq);  // quasi-period of settlement
    const Period d = period_of(dated, first_cpn, day_type, eom, cpn_freq);   // quasi-period of the dated date
    const double between = d.nper - s.nper - (s.da > 0.0 ? 1.0 : 0.0);       // whole quasi-periods between
    const double elapsed = orvel::bond::days_between(dated, settle, day_type);
    Mdy pcd{}, ncd{};
    uint32_t scratch = 0;
    lst_nxt_ncpn(dated.m, dated.d, dated.y, mat.m, mat.d, mat.y, cpn_freq, eom, &pcd.m, &pcd.d, &pcd.y, &ncd.m,
                 &ncd.d, &ncd.y, 0, &scratch);
    const double first_stub = orvel::bond::days_between(dated, ncd, day_type);  // dated to its quasi-coupon
    const double c2 = (d.dr != 0.0 && d.frac == 0.0) ? 1.0 : 0.0;
    const double regular = cpn_rate / cpn_freq;
    const double ai = (between < 1.0 && elapsed <= s.da)
                          ? elapsed / s.dp * regular
                          : (s.da / s.dp + between - c2 + first_stub / d.dp) * regular;
    out->cpn_amt = (d.nper - c2 + first_stub / d.dp) * regular;
    const double c = (s.dr != 0.0 && s.frac == 0.0) ? 1.0 : 0.0;
    out->nxt_frac = s.dr / s.dp + s.nper - c;
    int32_t nper_to_mat = 0, frac_to_mat = 0;
    num_per(settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, cpn_freq, &nper_to_mat, &frac_to_mat, 0, &scratch);
    // in 64 bits: garbage dates may give counts whose difference leaves int32
    out->n_after = whole(static_cast<double>(int64_t{nper_to_mat} - whole(s.nper)));
    return ai;
}

}  // namespace

namespace orvel::bond {

bool valid_bond_dates(Mdy settle, Mdy mat, Mdy* dated, Mdy* first_cpn, int32_t day_type, int32_t eom,
                      int32_t cpn_freq, uint32_t* err_code) {
    return ok_bond_MDYs(settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, &dated->m, &dated->d, &dated->y,
                        &first_cpn->m, &first_cpn->d, &first_cpn->y, day_type, eom, cpn_freq, err_code) != 0;
}

double reduce(const Mdy& settle, const Mdy& mat, Mdy dated, Mdy first_cpn, double cpn_rate, int32_t day_type,
              int32_t eom, int32_t cpn_freq, Reduced* out) {
    default_first_period(mat, &dated, &first_cpn, cpn_freq, eom);
    const int32_t to_first = days_between(settle, first_cpn, actual_days);
    if (to_first < 1 || regular_first_period(mat, dated, first_cpn, eom, cpn_freq))
        return regular_accrual(settle, mat, cpn_rate, day_type, eom, cpn_freq, out);
    return odd_first_accrual(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, out);
}

}  // namespace orvel::bond

ORVEL_EXPORT(double) bond_ai(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                             int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                             int32_t first_cpn_d, int32_t first_cpn_y, double cpn_rate, int32_t day_type, int32_t eom,
                             int32_t cpn_freq, double* nxt_frac, double* cpn_amt, int32_t* n_after, int32_t validate,
                             uint32_t* err_code) {
    const Mdy settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    Mdy dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_cpn_rate, cpn_rate)
                              .call(0, ok_day_type, day_type)
                              .call(0, ok_cpn_freq, cpn_freq)
                              .step([&](uint32_t* e) {
                                  return orvel::bond::valid_bond_dates(settle, mat, &dated, &first_cpn, day_type,
                                                                       eom, cpn_freq, e);
                              })
                              .ok())
        return 0.0;
    Reduced r;
    const double ai = orvel::bond::reduce(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, &r);
    *nxt_frac = r.nxt_frac;
    *cpn_amt = r.cpn_amt;
    *n_after = r.n_after;
    return ai;
}
