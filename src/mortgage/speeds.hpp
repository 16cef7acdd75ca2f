// The monthly-pay arithmetic that every mortgage and pass-through function rests on: the level payment,
// the scheduled balance, the loan age of a month, and the prepayment measures with their conversions.
// CPR is a percent a year, SMM a percent a month and PSA a percent of the standard ramp, except where a
// name says "fraction".
#pragma once

#include <cstdint>

#include "core/power.hpp"

namespace mtg {

// The note rate as a rate a month: 6.0 percent a year is 0.005.
inline double monthly_rate(double cpn_rate) { return cpn_rate * (1.0 / 1200); }

// Level monthly payment per 100 of the balance at origination; 100 / term at a rate of exactly 0.
inline double level_payment(int32_t term, double cpn_rate) {
    const double r = monthly_rate(cpn_rate);
    if (r == 0.0) return 100.0 / term;
    return 100.0 * r / (1.0 - orvel::pow(1.0 + r, -static_cast<double>(term)));
}

// The first-year payment per 100 of a graduated loan whose payments rise by grad_rate percent once a year
// during the first grad_mths months: 100 r / ((1 - q^-L)(G/Q)^k + (1 - (G/Q)^k) / (1 - G/Q) (1 - 1/Q)),
// q = 1 + r, Q = q^12, G = 1 + grad_rate/100, k = grad_mths/12, L = term - grad_mths. NaN at a rate of 0.
inline double gpm_first_payment(int32_t term, double cpn_rate, int32_t grad_mths, double grad_rate) {
    const double r = monthly_rate(cpn_rate);
    const double q = 1.0 + r;
    const double big_q = orvel::pow(q, 12.0);
    const double g_over_q = (1.0 + grad_rate / 100.0) / big_q;
    const double gk = orvel::pow(g_over_q, grad_mths / 12.0);
    const double level_months = static_cast<double>(term) - grad_mths;
    return 100.0 * r /
           ((1.0 - orvel::pow(q, -level_months)) * gk + (1.0 - gk) / (1.0 - g_over_q) * (1.0 - 1.0 / big_q));
}

// The payments per 100 of loan years 0 .. years - 1 of that loan: the first year's, then each year grad_rate
// percent above the one before up to year trunc(grad_mths / 12), level from there.
inline void graduated_payments(int32_t term, double cpn_rate, int32_t grad_mths, double grad_rate, int32_t years,
                               double* pay) {
    const double g = 1.0 + grad_rate / 100.0;
    const int32_t graduated = grad_mths / 12;
    pay[0] = gpm_first_payment(term, cpn_rate, grad_mths, grad_rate);
    for (int32_t y = 1; y < years; ++y) pay[y] = y <= graduated ? pay[y - 1] * g : pay[y - 1];
}

// Scheduled balance per unit of the balance at origination with `remaining` of `term` months left. No
// zero-rate branch: a rate of 0 gives 0/0, NaN.
inline double scheduled_balance(int32_t term, int32_t remaining, double cpn_rate) {
    const double q = 1.0 + monthly_rate(cpn_rate);
    return (1.0 - orvel::pow(q, -static_cast<double>(remaining))) / (1.0 - orvel::pow(q, -static_cast<double>(term)));
}

// Age of the loans in month index t (0 = the pool's current month): the first month of a new loan is age 1.
inline int32_t loan_age(int32_t t, int32_t wam, int32_t orig_term) { return t - wam + orig_term + 1; }

// SMM from CPR, both fractions: 1 - |1 - cpr|^(1/12), negated when cpr is above 1.
inline double smm_of_cpr_fraction(double cpr) {
    const double one_minus = 1.0 - cpr;
    const double smm = 1.0 - orvel::pow(one_minus < 0.0 ? -one_minus : one_minus, 1.0 / 12);
    return cpr > 1.0 ? -smm : smm;
}

// CPR in percent from SMM in percent: (1 - (1 - smm/100)^12) 100.
inline double cpr_of_smm_percent(double smm) { return (1.0 - orvel::pow(1.0 - smm / 100.0, 12.0)) * 100.0; }

// CPR in percent on the standard ramp at `psa` percent: age x 0.2 % x psa/100 up to age 30, then 6 % x psa/100.
// Ages of 0 or below give 0 or a negative rate, unchecked.
inline double psa_cpr(int32_t age, double psa) { return age >= 30 ? psa * 0.06 : age * psa * 0.002; }

}  // namespace mtg
