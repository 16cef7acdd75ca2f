// Price and yield with the yield compounded once a year whatever the coupon frequency: the annual
// equivalent (effective annual) yield that sets semi-annual, quarterly and monthly bonds beside annual ones.
#include "bond/kernels.hpp"
#include "core/check.hpp"
#include "core/power.hpp"
#include "orvel/bond.h"

namespace {

// The yield compounded cpn_freq times a year with the annual yield's growth over a year:
// 1 + y_f / (100 f) = (1 + y_a / 100)^(1 / f). False when the annual growth is not positive.
bool from_annual(double annual, int32_t cpn_freq, double* per_freq) {
    const double base = 1.0 + annual / 100.0;
    if (!(base > 0.0)) return false;
    *per_freq = 100.0 * cpn_freq * (orvel::pow(base, 1.0 / cpn_freq) - 1.0);
    return true;
}

// The reverse: 1 + y_a / 100 = (1 + y_f / (100 f))^f.
bool to_annual(double per_freq, int32_t cpn_freq, double* annual) {
    const double base = 1.0 + per_freq / (100.0 * cpn_freq);
    if (!(base > 0.0)) return false;
    *annual = 100.0 * (orvel::pow(base, static_cast<double>(cpn_freq)) - 1.0);
    return true;
}

}  // namespace

ORVEL_EXPORT(double) bond_ptm_crr(double yld, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, int32_t n_after, double nxt_frac, double cpn_amt, double ai,
                                  int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::bond::valid_g1p(yld, 1, cpn_rate, redemptn, tax1, tax2, cpn_freq, n_after,
                                                 nxt_frac, cpn_amt, ai, err_code))
        return 0.0;
    double y = 0.0;
    if (!from_annual(yld, cpn_freq, &y)) return orvel::bond::fail_price(err_code, ORVEL_E_NEG_BASE);
    return bond_ptm_g1p(y, cpn_rate, redemptn, tax1, tax2, cpn_freq, n_after, nxt_frac, cpn_amt, ai, 0, err_code);
}

ORVEL_EXPORT(double) bond_ytm_crr(double price, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, int32_t n_after, double nxt_frac, double cpn_amt, double ai,
                                  int32_t validate, uint32_t* err_code) {
    uint32_t err = 0;
    const double y = bond_ytm_g1p(price, cpn_rate, redemptn, tax1, tax2, cpn_freq, n_after, nxt_frac, cpn_amt, ai,
                                  validate, &err);
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    double annual = 0.0;
    if (!to_annual(y, cpn_freq, &annual)) return orvel::bond::fail_price(err_code, ORVEL_E_NEG_BASE);
    return annual;
}

ORVEL_EXPORT(void) bond_py_crr(int32_t method, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type,
                               double given, double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                               int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                               int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                               double redemptn, double tax1, double tax2, double* result, double* ai,
                               int32_t validate, uint32_t* err_code) {
    if (validate != 0 &&
        !orvel::Check(err_code)
             .call(0, ok_bond_in, day_type, eom, cpn_freq, calc_type, given, cpn_rate, settle_m, settle_d, settle_y,
                   mat_m, mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, redemptn,
                   tax1, tax2)
             .ok())
        return;
    double engine_given = given;
    if (calc_type == 1 && !from_annual(given, cpn_freq, &engine_given)) {
        *err_code = ORVEL_E_NEG_BASE;
        return;
    }
    double value = 0.0, accrued = 0.0;
    uint32_t err = 0;
    bond_py_ai(method, day_type, eom, cpn_freq, calc_type, engine_given, cpn_rate, settle_m, settle_d, settle_y, mat_m,
               mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, redemptn, tax1, tax2,
               &value, &accrued, 0, &err);
    if (err == 0 && calc_type == 2 && !to_annual(value, cpn_freq, &value)) err = ORVEL_E_NEG_BASE;
    if (err != 0) {
        *err_code = err;
        return;
    }
    *result = value;
    *ai = accrued;
}
