// The final coupon period: yield after tax and price before tax with separate income and gains taxes,
// and the money-market equivalent yield of a bond about to mature.
#include "bond/accrued.hpp"
#include "bond/dates.hpp"
#include "bond/final_period.hpp"
#include "bond/kernels.hpp"
#include "core/check.hpp"
#include "core/validators.hpp"
#include "orvel/bond.h"

namespace {

using orvel::Date;
using orvel::bond::FinalPeriod;
using orvel::bond::tax_fraction;

// The compound kernels' checks with neutral values for the whole periods and the next coupon, which the
// final period has none of: the order and numbers of the rest stay.
bool valid_final(double given, int32_t given_type, double cpn_rate, double redemptn, double tax1, double tax2,
                 int32_t cpn_freq, double nxt_frac, double ai, uint32_t* err_code) {
    return orvel::bond::valid_g1p(given, given_type, cpn_rate, redemptn, tax1, tax2, cpn_freq, 1, nxt_frac, 0.0, ai,
                                  err_code);
}

}  // namespace

ORVEL_EXPORT(double) bond_yat_l1p(double price, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, double nxt_frac, double ai, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_final(price, 2, cpn_rate, redemptn, tax1, tax2, cpn_freq, nxt_frac, ai, err_code))
        return 0.0;
    const FinalPeriod p{cpn_rate, redemptn, tax_fraction(tax1), tax_fraction(tax2), cpn_freq, nxt_frac, ai};
    return orvel::bond::yield_final(p, price, err_code);
}

ORVEL_EXPORT(double) bond_pbt_l1p(double yld, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, double nxt_frac, double ai, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_final(yld, 1, cpn_rate, redemptn, tax1, tax2, cpn_freq, nxt_frac, ai, err_code))
        return 0.0;
    const FinalPeriod p{cpn_rate, redemptn, tax_fraction(tax1), tax_fraction(tax2), cpn_freq, nxt_frac, ai};
    return orvel::bond::price_final(p, yld, err_code);
}

ORVEL_EXPORT(double) bond_mmey_dr(double price, double cpn_rate, double redemptn, int32_t day_type, int32_t eom,
                                  int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                  int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                                  int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                                  double* ai, int32_t validate, uint32_t* err_code) {
    if (validate != 0 &&
        !orvel::Check(err_code).call(0, ok_given, price, 2).call(0, ok_redemptn, redemptn).ok())
        return 0.0;
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    orvel::bond::Reduced r;
    uint32_t err = 0;
    const double accrued = orvel::bond::accrued(settle, mat, Date{dated_m, dated_d, dated_y},
                                                Date{first_cpn_m, first_cpn_d, first_cpn_y}, cpn_rate, day_type, eom,
                                                cpn_freq, validate, &r, &err);
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    if (r.n_after != 0) return orvel::bond::fail_price(err_code, ORVEL_E_NOT_FINAL);
    const int32_t days = orvel::bond::days_between(settle, mat, orvel::bond::actual_days);
    const double invested = price + accrued;
    if (days <= 0) return orvel::bond::fail_price(err_code, ORVEL_E_DAYS_PCNT);
    if (!(invested > 0.0)) return orvel::bond::fail_price(err_code, ORVEL_E_GIVEN_BASE + 2);
    // What the last coupon and the redemption return on the full price, simple interest on actual/360.
    const double mmy = ((redemptn + r.cpn_amt) / invested - 1.0) * 360.0 / days * 100.0;
    *ai = accrued;
    return mmy;
}
