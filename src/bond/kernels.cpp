// The exported price and yield kernels on a schedule reduced to numbers, and the solver's step.
#include "bond/kernels.hpp"

#include "bond/solver.hpp"
#include "core/check.hpp"
#include "core/validators.hpp"
#include "orvel/bond.h"

namespace {

using orvel::Check;
using orvel::bond::tax_fraction;
using orvel::bond::Terms;
using orvel::bond::valid_g1p;

constexpr int32_t given_yield = 1;
constexpr int32_t given_price = 2;

// The final period has no second tax, no whole periods after the next coupon and no separate next coupon:
// neutral values pass those checks and keep the order of the rest.
bool valid_l1p(double given, int32_t given_type, double cpn_rate, double redemptn, double tax1, int32_t cpn_freq,
               double nxt_frac, double ai, uint32_t* err_code) {
    return valid_g1p(given, given_type, cpn_rate, redemptn, tax1, 0.0, cpn_freq, 1, nxt_frac, 0.0, ai, err_code);
}

Terms terms_of(double cpn_rate, double redemptn, double tax1, double tax2, int32_t cpn_freq, int32_t n_after,
               double nxt_frac, double cpn_amt, double ai) {
    return Terms{cpn_rate, redemptn, tax_fraction(tax1), tax_fraction(tax2), cpn_freq, n_after, nxt_frac, cpn_amt, ai};
}

}  // namespace

bool orvel::bond::valid_g1p(double given, int32_t given_type, double cpn_rate, double redemptn, double tax1,
                            double tax2, int32_t cpn_freq, int32_t n_after, double nxt_frac, double cpn_amt, double ai,
                            uint32_t* err_code) {
    return Check(err_code)
        .call(0, ok_given, given, given_type)
        .call(0, ok_cpn_rate, cpn_rate)
        .call(0, ok_redemptn, redemptn)
        .call(1, ok_tax_rate, tax1)
        .call(2, ok_tax_rate, tax2)
        .call(0, ok_cpn_freq, cpn_freq)
        .call(0, ok_full_per, n_after)
        .call(0, ok_days_pcnt, nxt_frac)
        .call(1, ok_cpn_rate, cpn_amt)
        .call(0, ok_ai, ai)
        .ok();
}

ORVEL_EXPORT(double) bond_ptm_g1p(double yld, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, int32_t n_after, double nxt_frac, double cpn_amt, double ai,
                                  int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_g1p(yld, given_yield, cpn_rate, redemptn, tax1, tax2, cpn_freq, n_after, nxt_frac,
                                    cpn_amt, ai, err_code))
        return 0.0;
    const Terms t = terms_of(cpn_rate, redemptn, tax1, tax2, cpn_freq, n_after, nxt_frac, cpn_amt, ai);
    return orvel::bond::price_g1p(t, yld, err_code);
}

ORVEL_EXPORT(double) bond_ytm_g1p(double price, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, int32_t n_after, double nxt_frac, double cpn_amt, double ai,
                                  int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_g1p(price, given_price, cpn_rate, redemptn, tax1, tax2, cpn_freq, n_after,
                                    nxt_frac, cpn_amt, ai, err_code))
        return 0.0;
    const Terms t = terms_of(cpn_rate, redemptn, tax1, tax2, cpn_freq, n_after, nxt_frac, cpn_amt, ai);
    const double guess = orvel::bond::yield_guess(price, cpn_rate, redemptn, n_after, nxt_frac);
    return orvel::bond::solve_yield(price, guess,
                                    [&t](double y, uint32_t* e) { return orvel::bond::price_g1p(t, y, e); }, err_code);
}

ORVEL_EXPORT(double) bond_ptm_l1p(double yld, double cpn_rate, double redemptn, double tax1, int32_t cpn_freq,
                                  double nxt_frac, double ai, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_l1p(yld, given_yield, cpn_rate, redemptn, tax1, cpn_freq, nxt_frac, ai, err_code))
        return 0.0;
    return orvel::bond::price_l1p(yld, cpn_rate, redemptn, tax_fraction(tax1), cpn_freq, nxt_frac, ai, err_code);
}

ORVEL_EXPORT(double) bond_ytm_l1p(double price, double cpn_rate, double redemptn, double tax1, int32_t cpn_freq,
                                  double nxt_frac, double ai, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_l1p(price, given_price, cpn_rate, redemptn, tax1, cpn_freq, nxt_frac, ai, err_code))
        return 0.0;
    return orvel::bond::yield_l1p(price, cpn_rate, redemptn, tax_fraction(tax1), cpn_freq, nxt_frac, ai, err_code);
}

ORVEL_EXPORT(double) approx_yield(double y_a, double y_b, double y_c, double f_a, double f_b, double f_c,
                                  uint32_t* err_code) {
    double next = 0.0;
    if (!orvel::interpolate3(y_a, y_b, y_c, f_a, f_b, f_c, &next) || !std::isfinite(next))
        return orvel::bond::fail_price(err_code, ORVEL_E_SOLVER);
    return next;
}

// ---- Compound in every period, untaxed -----------------------------------------------------------------

namespace {

bool valid_aibd(double given, int32_t given_type, double cpn_rate, double redemptn, int32_t cpn_freq,
                int32_t n_after, double nxt_frac, double cpn_amt, double ai, uint32_t* err_code) {
    return Check(err_code)
        .call(0, ok_given, given, given_type)
        .call(0, ok_cpn_rate, cpn_rate)
        .call(0, ok_redemptn, redemptn)
        .call(0, ok_cpn_freq, cpn_freq)
        .call(0, ok_full_per, n_after)
        .call(0, ok_days_pcnt, nxt_frac)
        .call(1, ok_cpn_rate, cpn_amt)
        .expect(orvel::finite(ai), ORVEL_E_AI)  // any sign: a negative ai is the ex-dividend case
        .ok();
}

}  // namespace

ORVEL_EXPORT(double) aibd_p(double yld, double cpn_rate, double redemptn, int32_t cpn_freq, int32_t n_after,
                            double nxt_frac, double cpn_amt, double ai, int32_t validate, uint32_t* err_code) {
    if (validate != 0 &&
        !valid_aibd(yld, given_yield, cpn_rate, redemptn, cpn_freq, n_after, nxt_frac, cpn_amt, ai, err_code))
        return 0.0;
    const Terms t = terms_of(cpn_rate, redemptn, 0.0, 0.0, cpn_freq, n_after, nxt_frac, cpn_amt, ai);
    return orvel::bond::price_aibd(t, yld, err_code);
}

ORVEL_EXPORT(double) aibd_y(double price, double cpn_rate, double redemptn, int32_t cpn_freq, int32_t n_after,
                            double nxt_frac, double cpn_amt, double ai, int32_t validate, uint32_t* err_code) {
    if (validate != 0 &&
        !valid_aibd(price, given_price, cpn_rate, redemptn, cpn_freq, n_after, nxt_frac, cpn_amt, ai, err_code))
        return 0.0;
    const Terms t = terms_of(cpn_rate, redemptn, 0.0, 0.0, cpn_freq, n_after, nxt_frac, cpn_amt, ai);
    const double guess = orvel::bond::yield_guess(price, cpn_rate, redemptn, n_after, nxt_frac);
    return orvel::bond::solve_yield(price, guess,
                                    [&t](double y, uint32_t* e) { return orvel::bond::price_aibd(t, y, e); }, err_code);
}
