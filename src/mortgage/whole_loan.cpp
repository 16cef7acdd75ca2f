// Price, yield, average life and half-life of a whole loan's monthly flows, level or graduated.
#include "bond/solver.hpp"
#include "core/check.hpp"
#include "mortgage/amort.hpp"
#include "mortgage/whole_loan.hpp"
#include "orvel/mortgage.h"

using mtg::LoanTerms;
using mtg::Measures;

namespace {

// The measures at a bond-equivalent yield; 4090, 15503 on failure.
bool priced(const LoanTerms& t, double yld, Measures* m, uint32_t* err_code) {
    Measures out;
    if (!mtg::measure(t.loan(), t.age, t.smm(), yld, &out, err_code)) return false;
    if (!mtg::finite_result(out.price, err_code) || !mtg::finite_result(out.average_life, err_code)) return false;
    *m = out;
    return true;
}

// The yield at which the flows are worth `price`: from 10, 9, 11 percent to within 5e-7 of the price.
bool yielded(const LoanTerms& t, double price, double* yld, Measures* m, uint32_t* err_code) {
    const mtg::Loan loan = t.loan();
    const double smm = t.smm();
    const double start[3] = {10.0, 9.0, 11.0};
    uint32_t e = 0;
    const double y = orvel::solve3(
        start,
        [&](double x, uint32_t* step_err) {
            Measures at;
            return mtg::measure(loan, t.age, smm, x, &at, step_err) ? price - at.price : 0.0;
        },
        orvel::ResidualBelow{5e-7}, &e);
    if (e != 0) return orvel::fail(err_code, e);
    if (!priced(t, y, m, err_code)) return false;
    *yld = y;
    return true;
}

bool valid_given(double given, int32_t given_type, uint32_t* err_code) {
    return orvel::Check(err_code)
        .expect(given_type == 1 || given_type == 2, ORVEL_E_SELECTOR)
        .call(0, ok_given, given, given_type)
        .ok();
}

// Price for a given yield (given_type 1) or yield for a given price (2), with the measures.
bool solved(const LoanTerms& t, double given, int32_t given_type, int32_t validate, double* result, Measures* m,
            uint32_t* err_code) {
    if (!mtg::valid_loan(t, validate, err_code)) return false;
    if (validate != 0 && !valid_given(given, given_type, err_code)) return false;
    if (given_type == 1) {
        if (!priced(t, given, m, err_code)) return false;
        *result = m->price;
        return true;
    }
    if (given_type == 2) return yielded(t, given, result, m, err_code);
    return orvel::fail(err_code, ORVEL_E_SELECTOR);
}

LoanTerms level(int32_t term, double cpn_rate, int32_t age, double cpr) { return LoanTerms{term, cpn_rate, age, cpr}; }

LoanTerms gpm(int32_t term, double cpn_rate, int32_t grad_mths, double grad_rate, int32_t age, double cpr) {
    return LoanTerms{term, cpn_rate, age, cpr, true, grad_mths, grad_rate};
}

// Average life, writing the price or yield solved.
double average_life(const LoanTerms& t, double given, int32_t given_type, double* out, int32_t validate,
                    uint32_t* err_code) {
    double result = 0.0;
    Measures m;
    if (!solved(t, given, given_type, validate, &result, &m, err_code)) return 0.0;
    *out = result;
    return m.average_life;
}

double price_or_yield(const LoanTerms& t, double given, int32_t given_type, int32_t validate, uint32_t* err_code) {
    double result = 0.0;
    Measures m;
    return solved(t, given, given_type, validate, &result, &m, err_code) ? result : 0.0;
}

}  // namespace

ORVEL_EXPORT(double) mtg_cfp(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double yld,
                             int32_t validate, uint32_t* err_code) {
    return price_or_yield(level(orig_term, cpn_rate, age, cpr), yld, 1, validate, err_code);
}

ORVEL_EXPORT(double) mtg_cfy(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double price,
                             int32_t validate, uint32_t* err_code) {
    return price_or_yield(level(orig_term, cpn_rate, age, cpr), price, 2, validate, err_code);
}

ORVEL_EXPORT(double) mtg_cfpy(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double given,
                              int32_t given_type, int32_t validate, uint32_t* err_code) {
    return price_or_yield(level(orig_term, cpn_rate, age, cpr), given, given_type, validate, err_code);
}

ORVEL_EXPORT(double) mtg_cfpy_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                  int32_t age, double cpr, double given, int32_t given_type, int32_t validate,
                                  uint32_t* err_code) {
    return price_or_yield(gpm(orig_term, cpn_rate, grad_mths, grad_rate, age, cpr), given, given_type, validate,
                          err_code);
}

ORVEL_EXPORT(double) mtg_alp(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double yld, double* price,
                             int32_t validate, uint32_t* err_code) {
    return average_life(level(orig_term, cpn_rate, age, cpr), yld, 1, price, validate, err_code);
}

ORVEL_EXPORT(double) mtg_aly(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double price, double* yld,
                             int32_t validate, uint32_t* err_code) {
    return average_life(level(orig_term, cpn_rate, age, cpr), price, 2, yld, validate, err_code);
}

ORVEL_EXPORT(double) mtg_alpy(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double given,
                              int32_t given_type, double* result, int32_t validate, uint32_t* err_code) {
    return average_life(level(orig_term, cpn_rate, age, cpr), given, given_type, result, validate, err_code);
}

ORVEL_EXPORT(double) mtg_alp_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                 int32_t age, double cpr, double yld, double* price, int32_t validate,
                                 uint32_t* err_code) {
    return average_life(gpm(orig_term, cpn_rate, grad_mths, grad_rate, age, cpr), yld, 1, price, validate, err_code);
}

ORVEL_EXPORT(double) mtg_aly_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                 int32_t age, double cpr, double price, double* yld, int32_t validate,
                                 uint32_t* err_code) {
    return average_life(gpm(orig_term, cpn_rate, grad_mths, grad_rate, age, cpr), price, 2, yld, validate, err_code);
}

ORVEL_EXPORT(double) mtg_alpy_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                  int32_t age, double cpr, double given, int32_t given_type, double* result,
                                  int32_t validate, uint32_t* err_code) {
    return average_life(gpm(orig_term, cpn_rate, grad_mths, grad_rate, age, cpr), given, given_type, result,
                        validate, err_code);
}

ORVEL_EXPORT(double) mtg_albp_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                  int32_t age, double cpr, double* peak_bal, int32_t* peak_age, int32_t validate,
                                  uint32_t* err_code) {
    const LoanTerms t = gpm(orig_term, cpn_rate, grad_mths, grad_rate, age, cpr);
    Measures m;
    if (!mtg::valid_loan(t, validate, err_code) || !priced(t, 0.0, &m, err_code)) return 0.0;
    const mtg::Loan loan = t.loan();
    double s = 100.0, peak = 100.0;
    int32_t at = 0;
    for (int32_t k = 1; k <= loan.term(); ++k) {
        s = loan.next_balance(s, k);
        if (s > peak) {
            peak = s;
            at = k;
        }
    }
    *peak_bal = peak;
    *peak_age = at;
    return m.average_life;
}

ORVEL_EXPORT(double) mtg_halflife(int32_t orig_term, double cpn_rate, int32_t age, double cpr, int32_t validate,
                                  uint32_t* err_code) {
    const LoanTerms t = level(orig_term, cpn_rate, age, cpr);
    Measures m;
    if (!mtg::valid_loan(t, validate, err_code) || !priced(t, 0.0, &m, err_code)) return 0.0;
    return m.half_life;
}
