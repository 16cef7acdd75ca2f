// Income and returns of a holding from settlement to a horizon: interest earned, the money amounts of a
// position, total income split into coupons, interest on interest and capital change, horizon and total
// returns, and the tax-equivalent yield.
#include <cmath>

#include "bond/accrued.hpp"
#include "bond/dates.hpp"
#include "bond/kernels.hpp"
#include "bond/price_yield.hpp"
#include "core/check.hpp"
#include "core/power.hpp"
#include "core/validators.hpp"
#include "orvel/bond.h"

namespace {

using orvel::Date;
using orvel::bond::Reduced;

// Coupons still to be paid after a date: the next one (when any period is left) and the n_after later ones.
int64_t coupons_left(const Reduced& r) { return int64_t{r.n_after} + (r.nxt_frac != 0.0 ? 1 : 0); }

// A holding from settlement to a horizon on or before maturity, both reduced by bond_ai.
struct Holding {
    Reduced at_settle, at_hrz;
    double ai_settle = 0.0, ai_hrz = 0.0;
    int64_t paid = 0;       // coupons paid after settlement, up to and on the horizon
    double coupons = 0.0;   // their sum per 100 (the first may be an odd first coupon)
    double periods = 0.0;   // coupon periods from settlement to the horizon
    double since_last = 0.0;  // periods from the last coupon paid to the horizon
    bool hrz_at_mat = false;

    // The coupons paid, each reinvested at reinv_rate compounding once a period to the horizon: the first
    // for paid - 1 + since_last periods, the regular ones after it as an annuity.
    double grown_coupons(double reinv_rate, double cpn_rate, int32_t cpn_freq) const {
        if (paid == 0) return 0.0;
        const double u = 1.0 + reinv_rate / (100.0 * cpn_freq);
        const double later = static_cast<double>(paid - 1);
        const double tail = orvel::pow(u, since_last);
        const double annuity = reinv_rate == 0.0 ? later : (orvel::pow(u, later) - 1.0) / (u - 1.0);
        return at_settle.cpn_amt * orvel::pow(u, later) * tail + cpn_rate / cpn_freq * annuity * tail;
    }
};

Holding hold(const Date& settle, const Date& hrz, const Date& mat, const Date& dated, const Date& first_cpn,
             double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq) {
    using orvel::bond::reduce;
    Holding h;
    h.ai_settle = reduce(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, &h.at_settle);
    h.ai_hrz = reduce(hrz, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, &h.at_hrz);
    h.hrz_at_mat = h.at_hrz.nxt_frac == 0.0 && h.at_hrz.n_after == 0;
    h.paid = coupons_left(h.at_settle) - coupons_left(h.at_hrz);
    if (h.paid > 0) h.coupons = h.at_settle.cpn_amt + static_cast<double>(h.paid - 1) * cpn_rate / cpn_freq;
    // At maturity the last coupon is paid on the horizon itself: a whole period after the one before.
    const double hrz_frac = h.hrz_at_mat ? 1.0 : h.at_hrz.nxt_frac;
    h.since_last = 1.0 - hrz_frac;
    h.periods = h.at_settle.nxt_frac - hrz_frac + static_cast<double>(h.paid);
    return h;
}

// The horizon date checked against settlement and maturity: a valid date (role 8), settlement before it
// (2178), not after maturity (2081).
bool valid_horizon(const Date& settle, const Date& hrz, const Date& mat, uint32_t* err_code) {
    using orvel::cal::compare;
    return orvel::Check(err_code)
        .call(ORVEL_ROLE_CHECKED, ok_MDY, hrz.m, hrz.d, hrz.y, 1)
        .expect(compare(settle, hrz) < 0, ORVEL_E_NOT_LT + 78)
        .expect(compare(hrz, mat) <= 0, ORVEL_E_NOT_LE + 81)
        .ok();
}

bool valid_reinv(double reinv_rate, int32_t cpn_freq, uint32_t* err_code) {
    return orvel::Check(err_code)
        .expect(orvel::finite(reinv_rate) && 1.0 + reinv_rate / (100.0 * cpn_freq) > 0.0, ORVEL_E_REINV_RATE)
        .ok();
}

// The bond's dates and conventions as bond_ai checks them, settlement (role 7) being `at`.
bool valid_bond_at(const Date& at, const Date& mat, const Date& dated, const Date& first_cpn, double cpn_rate,
                   int32_t day_type, int32_t eom, int32_t cpn_freq, uint32_t* err_code) {
    Reduced unused;
    uint32_t err = 0;
    orvel::bond::accrued(at, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, 1, &unused, &err);
    return err == 0 || orvel::fail(err_code, err);
}

// The checks of a holding bought at price and worth hrz_price clean at the horizon: with validate the two
// prices, the bond at settlement and the horizon; always the reinvestment rate.
bool valid_holding(double price, double hrz_price, double reinv_rate, double cpn_rate, int32_t day_type, int32_t eom,
                   int32_t cpn_freq, const Date& settle, const Date& hrz, const Date& mat, const Date& dated,
                   const Date& first_cpn, int32_t validate, uint32_t* err_code) {
    if (validate != 0 &&
        !orvel::Check(err_code)
             .call(0, ok_given, price, 2)
             .call(0, ok_given, hrz_price, 2)
             .step([&](uint32_t* e) {
                 return valid_bond_at(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, e);
             })
             .step([&](uint32_t* e) { return valid_horizon(settle, hrz, mat, e); })
             .ok())
        return false;
    return valid_reinv(reinv_rate, cpn_freq, err_code);
}

// What a holding bought at a clean price returns to a horizon where it is worth hrz_price clean, with its
// coupons reinvested: the value at the horizon over the full price paid, annualised on the bond's basis.
struct Outcome {
    double value_ratio = 0.0;  // (hrz_price + ai at horizon + grown coupons) / (price + ai at settlement)
    double annualised = 0.0;   // percent a year
};

bool outcome(const Holding& h, double price, double hrz_price, double reinv_rate, double cpn_rate, int32_t cpn_freq,
             uint32_t* err_code, Outcome* out) {
    const double paid = price + h.ai_settle;
    if (!(paid > 0.0)) return orvel::fail(err_code, ORVEL_E_GIVEN_BASE + 2);
    if (!(h.periods > 0.0)) return orvel::fail(err_code, ORVEL_E_NOT_LT + 78);
    const double ratio = (hrz_price + h.ai_hrz + h.grown_coupons(reinv_rate, cpn_rate, cpn_freq)) / paid;
    if (!(ratio > 0.0) || !std::isfinite(ratio)) return orvel::fail(err_code, ORVEL_E_NEG_BASE);
    const double f = 100.0 * cpn_freq;
    // Settled in the final period the bond is priced by simple interest, and so is its return annualised.
    out->annualised = h.at_settle.n_after == 0 ? (ratio - 1.0) * f / h.periods
                                               : (orvel::pow(ratio, 1.0 / h.periods) - 1.0) * f;
    out->value_ratio = ratio;
    return true;
}

}  // namespace

ORVEL_EXPORT(double) bond_i_earn(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t d1_m,
                                 int32_t d1_d, int32_t d1_y, int32_t d2_m, int32_t d2_d, int32_t d2_y, int32_t mat_m,
                                 int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                 int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double face_k,
                                 int32_t validate, uint32_t* err_code) {
    using orvel::cal::compare;
    const Date d1{d1_m, d1_d, d1_y}, d2{d2_m, d2_d, d2_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    if (validate != 0 &&
        !orvel::Check(err_code)
             .expect(orvel::bond::valid_face(face_k), ORVEL_E_FACE)
             .step([&](uint32_t* e) {
                 return valid_bond_at(d1, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, e);
             })
             .call(ORVEL_ROLE_CHECKED, ok_MDY, d2.m, d2.d, d2.y, 1)
             .expect(compare(d1, d2) <= 0, ORVEL_E_NOT_LE + 78)
             .expect(compare(d2, mat) <= 0, ORVEL_E_NOT_LE + 81)
             .ok())
        return 0.0;
    // Earned from the earlier date to the later; the reverse order earns the negative.
    const bool reversed = compare(d1, d2) > 0;
    const Holding h = hold(reversed ? d2 : d1, reversed ? d1 : d2, mat, dated, first_cpn, cpn_rate, day_type, eom,
                           cpn_freq);
    const double earned = h.coupons + h.ai_hrz - h.ai_settle;
    return orvel::bond::holding(reversed ? -earned : earned, face_k);
}

ORVEL_EXPORT(double) bond_ext(double price, double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq,
                              int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                              int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                              int32_t first_cpn_d, int32_t first_cpn_y, double face_k, double* principal,
                              double* accrued, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_given, price, 2)
                              .expect(orvel::bond::valid_face(face_k), ORVEL_E_FACE)
                              .ok())
        return 0.0;
    Reduced r;
    uint32_t err = 0;
    const double ai = orvel::bond::accrued(Date{settle_m, settle_d, settle_y}, Date{mat_m, mat_d, mat_y},
                                           Date{dated_m, dated_d, dated_y}, Date{first_cpn_m, first_cpn_d, first_cpn_y},
                                           cpn_rate, day_type, eom, cpn_freq, validate, &r, &err);
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    const double p = orvel::bond::holding(price, face_k);
    const double a = orvel::bond::holding(ai, face_k);
    *principal = p;
    *accrued = a;
    return p + a;
}

ORVEL_EXPORT(double) bond_tot_inc(double price, double hrz_price, double reinv_rate, double cpn_rate, int32_t day_type,
                                  int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                  int32_t hrz_m, int32_t hrz_d, int32_t hrz_y, int32_t mat_m, int32_t mat_d,
                                  int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                  int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double* cpn_inc,
                                  double* ioi, double* cap_chg, int32_t validate, uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, hrz{hrz_m, hrz_d, hrz_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    if (!valid_holding(price, hrz_price, reinv_rate, cpn_rate, day_type, eom, cpn_freq, settle, hrz, mat, dated,
                       first_cpn, validate, err_code))
        return 0.0;
    const Holding h = hold(settle, hrz, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq);
    const double grown = h.grown_coupons(reinv_rate, cpn_rate, cpn_freq);
    // The whole change of value first, then its three parts, each on its own.
    const double total = (hrz_price + h.ai_hrz + grown) - (price + h.ai_settle);
    *cpn_inc = h.coupons + h.ai_hrz - h.ai_settle;
    *ioi = grown - h.coupons;
    *cap_chg = hrz_price - price;
    return total;
}

ORVEL_EXPORT(double) bond_tr_hrz(double price, double hrz_price, double reinv_rate, double cpn_rate, int32_t day_type,
                                 int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                 int32_t hrz_m, int32_t hrz_d, int32_t hrz_y, int32_t mat_m, int32_t mat_d,
                                 int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                 int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double* period_rtn,
                                 int32_t validate, uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, hrz{hrz_m, hrz_d, hrz_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    if (!valid_holding(price, hrz_price, reinv_rate, cpn_rate, day_type, eom, cpn_freq, settle, hrz, mat, dated,
                       first_cpn, validate, err_code))
        return 0.0;
    const Holding h = hold(settle, hrz, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq);
    Outcome o;
    if (!outcome(h, price, hrz_price, reinv_rate, cpn_rate, cpn_freq, err_code, &o)) return 0.0;
    *period_rtn = (o.value_ratio - 1.0) * 100.0;
    return o.annualised;
}

ORVEL_EXPORT(double) bond_hrz_rtn(double price, double hrz_yld, double reinv_rate, double cpn_rate, double redemptn,
                                  int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d,
                                  int32_t settle_y, int32_t hrz_m, int32_t hrz_d, int32_t hrz_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                  int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, int32_t validate,
                                  uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, hrz{hrz_m, hrz_d, hrz_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    if (validate != 0 &&
        !orvel::Check(err_code)
             .call(0, ok_given, price, 2)
             .call(0, ok_given, hrz_yld, 1)
             .call(0, ok_redemptn, redemptn)
             .step([&](uint32_t* e) {
                 return valid_bond_at(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, e);
             })
             .step([&](uint32_t* e) { return valid_horizon(settle, hrz, mat, e); })
             .ok())
        return 0.0;
    if (!valid_reinv(reinv_rate, cpn_freq, err_code)) return 0.0;
    const Holding h = hold(settle, hrz, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq);
    // Sold at the horizon yield by the engine's own kernels, or redeemed when the horizon is maturity.
    uint32_t err = 0;
    const double hrz_price = h.hrz_at_mat ? redemptn
                                          : orvel::bond::price_on(h.at_hrz, h.ai_hrz, hrz_yld, cpn_rate, redemptn, 0.0,
                                                                  0.0, cpn_freq, &err);
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    Outcome o;
    if (!outcome(h, price, hrz_price, reinv_rate, cpn_rate, cpn_freq, err_code, &o)) return 0.0;
    return o.annualised;
}

ORVEL_EXPORT(double) bond_tr_htm(double price, double reinv_rate, double cpn_rate, double redemptn, int32_t day_type,
                                 int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                 int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                                 int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                                 int32_t validate, uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    if (validate != 0 &&
        !orvel::Check(err_code)
             .call(0, ok_given, price, 2)
             .call(0, ok_redemptn, redemptn)
             .step([&](uint32_t* e) {
                 return valid_bond_at(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, e);
             })
             .ok())
        return 0.0;
    if (!valid_reinv(reinv_rate, cpn_freq, err_code)) return 0.0;
    const Holding h = hold(settle, mat, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq);
    Outcome o;
    if (!outcome(h, price, redemptn, reinv_rate, cpn_rate, cpn_freq, err_code, &o)) return 0.0;
    return o.annualised;
}

ORVEL_EXPORT(double) bond_tey(double yld, double tax_rate, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .expect(orvel::finite(yld), ORVEL_E_GIVEN_BASE + 1)
                              .call(0, ok_tax_rate, tax_rate)
                              .ok())
        return 0.0;
    const double t = orvel::bond::tax_fraction(tax_rate);
    if (!(t < 1.0)) return orvel::bond::fail_price(err_code, ORVEL_E_TAX_ALL);
    return yld / (1.0 - t);
}
