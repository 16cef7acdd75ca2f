// The engine routines the market families name beyond bond_ai and the aibd kernels: pay-day accrual, the
// kernels at a yield of its own compounding frequency, the equivalence of yield bases, and the combined
// price-or-yield call on the compound kernels.
#include "bond/market.hpp"

#include <cmath>

#include "bond/dates.hpp"
#include "core/check.hpp"
#include "core/power.hpp"
#include "core/validators.hpp"
#include "orvel/bond.h"

namespace orvel::bond {

double yield_equivalent(double yld, int32_t from_freq, int32_t to_freq, uint32_t* err) {
    const double base = 1.0 + yld / (100.0 * from_freq);
    if (!(base > 0.0)) return fail_price(err, ORVEL_E_NEG_BASE);
    if (from_freq == to_freq) return yld;
    return 100.0 * to_freq * (orvel::pow(base, static_cast<double>(from_freq) / to_freq) - 1.0);
}

// The yield per coupon period worth yld compounded yld_freq times a year, as a yield in percent a year
// compounded cpn_freq times: the compound kernel then prices at it.
double price_ppp(const Terms& t, int32_t yld_freq, double yld, uint32_t* err) {
    const double y = yield_equivalent(yld, yld_freq, t.cpn_freq, err);
    return *err != 0 ? 0.0 : price_aibd(t, y, err);
}

double yield_ppp(const Terms& t, int32_t yld_freq, double price, uint32_t* err, SolveStats* stats) {
    const double guess = yield_guess(price, t.cpn_rate, t.redemptn, t.n_after, t.nxt_frac);
    const double y = solve_yield(price, guess, [&t](double x, uint32_t* e) { return price_aibd(t, x, e); }, err, stats);
    return *err != 0 ? 0.0 : yield_equivalent(y, t.cpn_freq, yld_freq, err);
}

double price_ppp_l1p(double yld, double redemptn, int32_t cpn_freq, double nxt_frac, double cpn_amt, double ai,
                     uint32_t* err) {
    if (nxt_frac == 0.0) return fail_price(err, ORVEL_E_DAYS_PCNT);
    const double v = 1.0 + nxt_frac * yld / (100.0 * cpn_freq);
    if (!(v > 0.0)) return fail_price(err, ORVEL_E_NEG_BASE);
    return ((ai < 0.0 ? 0.0 : cpn_amt) + redemptn) / v - ai;
}

double yield_ppp_l1p(double price, double redemptn, int32_t cpn_freq, double nxt_frac, double cpn_amt, double ai,
                     uint32_t* err) {
    if (nxt_frac == 0.0) return fail_price(err, ORVEL_E_DAYS_PCNT);
    const double paid = price + ai;  // the full price
    const double y = ((ai < 0.0 ? 0.0 : cpn_amt) + redemptn - paid) / paid * 100.0 * cpn_freq / nxt_frac;
    if (!std::isfinite(y)) return fail_price(err, ORVEL_E_GIVEN_BASE + 2);  // nothing paid: no yield
    return y;
}

}  // namespace orvel::bond

namespace {

using orvel::Check;
using orvel::Date;
using orvel::bond::Terms;

constexpr int32_t given_yield = 1;
constexpr int32_t given_price = 2;

// A yield's compounding frequency: 1, 2, 4 or 12 (15800; -1, not supplied, 15801).
Check& yield_frequency(Check& check, int32_t yld_freq) {
    return check.expect(yld_freq == 1 || yld_freq == 2 || yld_freq == 4 || yld_freq == 12,
                        orvel::code_error(yld_freq, ORVEL_E_YLD_FREQ));
}

bool valid_ppp(double given, int32_t given_type, double cpn_rate, double redemptn, int32_t cpn_freq, int32_t yld_freq,
               int32_t n_after, double nxt_frac, double cpn_amt, double ai, uint32_t* err_code) {
    Check check(err_code);
    check.call(0, ok_given, given, given_type)
        .call(0, ok_cpn_rate, cpn_rate)
        .call(0, ok_redemptn, redemptn)
        .call(0, ok_cpn_freq, cpn_freq);
    return yield_frequency(check, yld_freq)
        .call(0, ok_full_per, n_after)
        .call(0, ok_days_pcnt, nxt_frac)
        .call(1, ok_cpn_rate, cpn_amt)
        .expect(orvel::finite(ai), ORVEL_E_AI)  // any sign: a negative ai is the ex-dividend case
        .ok();
}

// The final period: no whole periods after the next coupon, no yield frequency (simple interest).
bool valid_ppp_l1p(double given, int32_t given_type, double redemptn, int32_t cpn_freq, double nxt_frac,
                   double cpn_amt, double ai, uint32_t* err_code) {
    return valid_ppp(given, given_type, 0.0, redemptn, cpn_freq, cpn_freq, 1, nxt_frac, cpn_amt, ai, err_code);
}

Terms untaxed(double cpn_rate, double redemptn, int32_t cpn_freq, int32_t n_after, double nxt_frac, double cpn_amt,
              double ai) {
    return Terms{cpn_rate, redemptn, 0.0, 0.0, cpn_freq, n_after, nxt_frac, cpn_amt, ai};
}

}  // namespace

ORVEL_EXPORT(double) bond_pp_ai(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_m, int32_t exdiv_d,
                                int32_t exdiv_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                                int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                                int32_t first_cpn_d, int32_t first_cpn_y, double cpn_rate, int32_t day_type,
                                int32_t eom, int32_t cpn_freq, double* nxt_frac, double* cpn_amt, int32_t* n_after,
                                int32_t validate, uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    if (validate != 0 &&
        !Check(err_code)
             .expect(ex_type == 0 || ex_type == 1, ORVEL_E_EX_TYPE)
             .step([&](uint32_t* e) {
                 return ex_type == 0 || ok_exdiv_MDY(exdiv_m, exdiv_d, exdiv_y, settle_m, settle_d, settle_y, mat_m,
                                                     mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m,
                                                     first_cpn_d, first_cpn_y, day_type, eom, cpn_freq, e);
             })
             .ok())
        return 0.0;
    orvel::bond::Reduced r;
    uint32_t err = 0;
    const double ai =
        orvel::bond::accrued(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, validate, &r, &err);
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    *nxt_frac = r.nxt_frac;
    *cpn_amt = r.cpn_amt;
    *n_after = r.n_after;
    const double pp = orvel::bond::pp_rule(ai, r, settle, Date{exdiv_m, exdiv_d, exdiv_y}, ex_type, mat, dated,
                                           first_cpn, eom, cpn_freq, &err);
    return err != 0 ? orvel::bond::fail_price(err_code, err) : pp;
}

ORVEL_EXPORT(double) bond_yld_equ(double yld, int32_t from_freq, int32_t to_freq, int32_t validate,
                                  uint32_t* err_code) {
    if (validate != 0) {
        Check check(err_code);
        check.call(0, ok_given, yld, given_yield).call(0, ok_cpn_freq, from_freq);
        if (!yield_frequency(check, to_freq).ok()) return 0.0;
    }
    uint32_t err = 0;
    const double y = orvel::bond::yield_equivalent(yld, from_freq, to_freq, &err);
    return err != 0 ? orvel::bond::fail_price(err_code, err) : y;
}

ORVEL_EXPORT(double) bond_ppp_g1p(double yld, double cpn_rate, double redemptn, int32_t cpn_freq, int32_t yld_freq,
                                  int32_t n_after, double nxt_frac, double cpn_amt, double ai, int32_t validate,
                                  uint32_t* err_code) {
    if (validate != 0 && !valid_ppp(yld, given_yield, cpn_rate, redemptn, cpn_freq, yld_freq, n_after, nxt_frac,
                                    cpn_amt, ai, err_code))
        return 0.0;
    uint32_t err = 0;
    const double p = orvel::bond::price_ppp(untaxed(cpn_rate, redemptn, cpn_freq, n_after, nxt_frac, cpn_amt, ai),
                                            yld_freq, yld, &err);
    return err != 0 ? orvel::bond::fail_price(err_code, err) : p;
}

ORVEL_EXPORT(double) bond_ppy_g1p(double price, double cpn_rate, double redemptn, int32_t cpn_freq, int32_t yld_freq,
                                  int32_t n_after, double nxt_frac, double cpn_amt, double ai, int32_t validate,
                                  uint32_t* err_code) {
    if (validate != 0 && !valid_ppp(price, given_price, cpn_rate, redemptn, cpn_freq, yld_freq, n_after, nxt_frac,
                                    cpn_amt, ai, err_code))
        return 0.0;
    uint32_t err = 0;
    const double y = orvel::bond::yield_ppp(untaxed(cpn_rate, redemptn, cpn_freq, n_after, nxt_frac, cpn_amt, ai),
                                            yld_freq, price, &err);
    return err != 0 ? orvel::bond::fail_price(err_code, err) : y;
}

ORVEL_EXPORT(double) bond_ppp_l1p(double yld, double redemptn, int32_t cpn_freq, double nxt_frac, double cpn_amt,
                                  double ai, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_ppp_l1p(yld, given_yield, redemptn, cpn_freq, nxt_frac, cpn_amt, ai, err_code))
        return 0.0;
    return orvel::bond::price_ppp_l1p(yld, redemptn, cpn_freq, nxt_frac, cpn_amt, ai, err_code);
}

ORVEL_EXPORT(double) bond_ppy_l1p(double price, double redemptn, int32_t cpn_freq, double nxt_frac, double cpn_amt,
                                  double ai, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_ppp_l1p(price, given_price, redemptn, cpn_freq, nxt_frac, cpn_amt, ai, err_code))
        return 0.0;
    return orvel::bond::yield_ppp_l1p(price, redemptn, cpn_freq, nxt_frac, cpn_amt, ai, err_code);
}

ORVEL_EXPORT(void) aibd_py_exai(int32_t calc_type, double given, double cpn_rate, double redemptn, int32_t cpn_freq,
                                int32_t n_after, double nxt_frac, double cpn_amt, double ai, double* result,
                                int32_t validate, uint32_t* err_code) {
    const bool known = calc_type == 1 || calc_type == 2;
    if (validate != 0 &&
        !Check(err_code)
             .expect(known, ORVEL_E_SELECTOR)
             .step([&](uint32_t* e) {
                 return valid_ppp(given, calc_type, cpn_rate, redemptn, cpn_freq, cpn_freq, n_after, nxt_frac,
                                  cpn_amt, ai, e);
             })
             .ok())
        return;
    if (!known) {
        *err_code = ORVEL_E_SELECTOR;
        return;
    }
    const Terms t = untaxed(cpn_rate, redemptn, cpn_freq, n_after, nxt_frac, cpn_amt, ai);
    uint32_t err = 0;
    const double value = calc_type == 1 ? orvel::bond::price_aibd(t, given, &err)
                                        : orvel::bond::yield_ppp(t, cpn_freq, given, &err);
    if (err != 0) {
        *err_code = err;
        return;
    }
    *result = value;
}
