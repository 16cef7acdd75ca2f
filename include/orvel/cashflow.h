/*
 * ORVEL time value of money and cash-flow sets: annuities, present and future values, amortization tables, price, yield and risk of dated or timed cash flows.
 */
#ifndef ORVEL_CASHFLOW_H
#define ORVEL_CASHFLOW_H

#include "orvel/frame.h"

/* ---- Time value of money -----------------------------------------------------------------------------
 * The five keys of an annuity: pv (amount at time 0), fv (amount at the end of period n), pmt (the level
 * payment of every payment period), n (payment periods, need not be whole) and the rate: iy percent a year
 * compounded cpy times a year, paid ppy times a year, or epi, the effective rate per payment period as a
 * fraction (0.01 = 1%). due = 1 puts the payments at the start of each period (annuity due); any other
 * value at the end. Money received and money paid carry opposite signs, and the five keys satisfy
 *     pv (1+epi)^n + pmt (1 + epi d) ((1+epi)^n - 1) / epi + fv = 0,   d = 1 when due is 1, else 0,
 * so a loan of 1000 received (pv = 1000) is repaid with negative payments. At a rate of exactly 0 every
 * closed form falls back to its linear formula (fv = -(n pmt + pv)).
 * Validation (validate != 0) of the annuity functions, in order: 675 cpy below 1; 680 ppy below 1; then
 * each double argument in argument order, refused when not a finite number: 15201 fv, 15202 pmt, 15203 pv,
 * 15204 iy, 15205 n. Every function returns 0.0 on failure. */

/* Effective rate per payment period: iy / (100 ppy) when cpy equals ppy, else
 * (1 + iy / (100 cpy))^(cpy / ppy) - 1 (iy 12, cpy 12, ppy 1 gives 1.01^12 - 1 = 0.126825...).
 * Validation: 675, 680, 15204 iy. */
ORVEL_EXPORT(double) tvm_iy_2_epi(double iy, int32_t cpy, int32_t ppy, int32_t validate, uint32_t* err_code);

/* Future value: with i = epi and A = pmt (1 + i d) / i, fv = A - (1+i)^n (A + pv); -(n pmt + pv) at i = 0.
 * pmt -100, pv 0, iy 12, n 12, cpy = ppy = 12 gives 1268.25 (1280.93 with due 1).
 * Validation: 675, 680, 15202 pmt, 15203 pv, 15204 iy, 15205 n. */
ORVEL_EXPORT(double) tvm_FV(double pmt, double pv, double iy, double n, int32_t cpy, int32_t ppy, int32_t due,
                            int32_t validate, uint32_t* err_code);

/* Present value: (A - fv) / (1+i)^n - A; -(n pmt + fv) at i = 0.
 * Validation: 675, 680, 15201 fv, 15202 pmt, 15204 iy, 15205 n. */
ORVEL_EXPORT(double) tvm_PV(double fv, double pmt, double iy, double n, int32_t cpy, int32_t ppy, int32_t due,
                            int32_t validate, uint32_t* err_code);

/* Level payment: -(i / (1 + i d)) (pv + (pv + fv) / ((1+i)^n - 1)); -(pv + fv) / n at i = 0 (n = 0 then
 * divides by zero: an infinite or NaN result, not an error).
 * Validation: 675, 680, 15201 fv, 15203 pv, 15204 iy, 15205 n. */
ORVEL_EXPORT(double) tvm_pmt(double fv, double pv, double iy, double n, int32_t cpy, int32_t ppy, int32_t due,
                             int32_t validate, uint32_t* err_code);

/* Number of payment periods, not rounded: with B = (1 + i d) pmt, ln((B - i fv) / (B + i pv)) / ln(1+i);
 * -(pv + fv) / pmt at i = 0. Left to the caller, without an error: when the ratio inside the logarithm is
 * not positive (no number of periods brings the amounts together) the result is NaN, and at a zero rate
 * with a zero payment it is a division by zero (infinite or NaN).
 * Validation: 675, 680, 15201 fv, 15202 pmt, 15203 pv, 15204 iy. */
ORVEL_EXPORT(double) tvm_n(double fv, double pmt, double pv, double iy, int32_t cpy, int32_t ppy, int32_t due,
                           int32_t validate, uint32_t* err_code);

/* Effective rate per payment period that solves the time-value equation (no closed form), with the
 * library's three-point solver on the residual -((1 - (1+i)^-n) / i (1 + i d) pmt + fv (1+i)^-n + pv):
 *   - start rates 10%, 9% and 11% a year spread over ppy periods (0.1 / ppy, 0.09 / ppy, 0.11 / ppy), tried
 *     in that order, then three-point interpolation steps;
 *   - converged when |residual| < tol, with tol = 5e-10 while the larger of |fv| and |pv| is below 10,000
 *     and 5 x 10^(e - 13) when it has e >= 4 digits before the point (1,000,000 gives 5e-7);
 *   - below about 0.1% a period rounding does not always let the residual reach tol: a candidate that comes
 *     back unchanged (the same value twice in a row) with a residual within 1,000 units in the last place
 *     of the largest of |fv|, |pmt| and |pv| is then taken as converged.
 * The residual is evaluated without the cancellation of 1 - (1+i)^-n, so the tolerance is reached down to
 * rates of 0.0001% a period. A rate of 0 has no solution here (it ends in 682 or 9020): use the closed
 * forms.
 * Validation: 680 ppy below 1; 15201 fv, 15202 pmt, 15203 pv, 15205 n not finite; 681 when the amounts
 * are not those of a loan: pmt <= 1e-10 with pv < -1e-10 or fv > 1e-10, or pmt > 1e-10 with pv > 1e-10 or
 * fv < -1e-10. This test takes pv as the amount on the other side of the payments and fv as a balloon on
 * their side, so it also refuses a savings plan (pv = 0, fv opposite to pmt), which has a rate: solve one
 * with validate = 0 (pmt -100, fv 1268.25, 12 periods: 1% a period).
 * Errors always checked: 682 a candidate rate with 1 + i or |i| below 1e-10; 9020 the solve failed (a
 * degenerate step, a value not finite, a candidate repeated with a residual above the rounding bound, or
 * 1,000 steps; amounts of one sign without validation end in 682 or 9020). */
ORVEL_EXPORT(double) tvm_epi(double fv, double pmt, double pv, double n, int32_t ppy, int32_t due, int32_t validate,
                             uint32_t* err_code);

/* Nominal rate in percent a year: tvm_epi's rate converted back, epi ppy 100 when cpy equals ppy, else
 * 100 cpy ((1 + epi)^(ppy / cpy) - 1). Validation: 675 cpy below 1, then as tvm_epi. Errors as tvm_epi. */
ORVEL_EXPORT(double) tvm_iy(double fv, double pmt, double pv, double n, int32_t cpy, int32_t ppy, int32_t due,
                            int32_t validate, uint32_t* err_code);

/* The largest amortization table tvm_amort writes. */
#define ORVEL_TVM_AMORT_MAX_ROWS 100000

/* Amortization table of a loan of pv repaid by pmt a period at i = epi, into five 1-based caller arrays of
 * rows + 1 elements each (element 0 is never written): rows 1 .. floor(n) are written, nothing when
 * n < 1 (no error). fv is not used. For row k:
 *   interest  k = 1: 0 when due is 1, else i pv;  k >= 2: i bal[k-1]
 *   prn_amt[k] = pmt + interest          bal[k] = (k = 1 ? pv : bal[k-1]) + prn_amt[k]
 *   int_amt[k] = interest, negated when pmt < 0 (interest carries the sign of the payment)
 *   cum_int[k], cum_prn[k]: the running sums of int_amt and prn_amt from row 1.
 * Validation: 675, 680, 15201 fv, 15202 pmt, 15203 pv, 15204 iy, 15205 n.
 * Errors always checked (before anything is written): 15210 rows outside 0..ORVEL_TVM_AMORT_MAX_ROWS;
 * 15211 rows below floor(n). On failure no array is written. */
ORVEL_EXPORT(void) tvm_amort(double fv, double pmt, double pv, double iy, double n, int32_t cpy, int32_t ppy,
                             int32_t due, int32_t rows, double* int_amt, double* prn_amt, double* bal, double* cum_int,
                             double* cum_prn, int32_t validate, uint32_t* err_code);

/* ---- Compound and simple interest ----------------------------------------------------------------------
 * Rates in percent; r below is rate / 100. The unit-amount factors (_sp_1d: a single payment, _us_1d: a
 * uniform series of one unit a period) and the effective rates refuse, with validate set, only arguments
 * that are not finite numbers (15204 rate, 15205 n); they cannot fail otherwise. */

/* pv (1 + rate / (100 freq))^n_pers. Validation: 4100 rate outside 0..3000; 15203 pv not finite;
 * 15206 freq below 1. */
ORVEL_EXPORT(double) FV_of_1_PV(double pv, double rate, int32_t freq, int32_t n_pers, int32_t validate,
                                uint32_t* err_code);

/* pv (1 + rate / (100 freq))^n. Validation: 650 freq not 1, 2, 4 or 12; 4001 rate zero or not finite;
 * 15203 pv, 15205 n not finite. Always: 4090 when 1 + rate / (100 freq) is negative. */
ORVEL_EXPORT(double) FV_of_PV(double pv, double n, double rate, int32_t freq, int32_t validate, uint32_t* err_code);

/* (1 + r)^n: future value of one unit paid once. */
ORVEL_EXPORT(double) FV_of_sp_1d(double rate, double n, int32_t validate, uint32_t* err_code);

/* ((1 + r)^n - 1) / r: future value of one unit paid at the end of each of n periods. A rate of 0 is left
 * to the caller: 0 / 0 gives NaN, not an error. */
ORVEL_EXPORT(double) FV_of_us_1d(double rate, double n, int32_t validate, uint32_t* err_code);

/* fv / (1 + rate / (100 freq))^n_pers. Validation: 4100 rate outside 0..3000; 15203 fv not finite;
 * 15206 freq below 1. Always: 8000 when the factor is exactly 0. */
ORVEL_EXPORT(double) PV_of_1_FV(double fv, double rate, int32_t freq, int32_t n_pers, int32_t validate,
                                uint32_t* err_code);

/* redemptn (1 + rate / (100 freq))^-n. Validation: 4201 redemptn not above 0 (ok_redemptn's number + 1);
 * 650 freq; 4001 rate zero or not finite; 15205 n. Always: 4090 as FV_of_PV. */
ORVEL_EXPORT(double) PV_of_RV(double redemptn, double n, double rate, int32_t freq, int32_t validate,
                              uint32_t* err_code);

/* (1 + r)^-n: present value of one unit paid once. */
ORVEL_EXPORT(double) PV_of_sp_1d(double rate, double n, int32_t validate, uint32_t* err_code);

/* (1 - (1 + r)^-n) / r: present value of one unit at the end of each of n periods. A rate of 0 is left to
 * the caller: NaN, not an error. */
ORVEL_EXPORT(double) PV_of_us_1d(double rate, double n, int32_t validate, uint32_t* err_code);

/* Present value per 100 of n coupons of a bond paying cpn_rate percent a year in cpn_freq coupons:
 * (cpn_rate / cpn_freq) (1 - (1+j)^-n) / j with j = rate / (100 freq). Validation: 4100 cpn_rate;
 * 600/601 cpn_freq; 650 freq; 4001 rate zero or not finite; 15205 n. Always: 4090 when 1 + j is negative.
 * A rate of 0 without validation is left to the caller: NaN, not an error. */
ORVEL_EXPORT(double) PV_of_uscp(double cpn_rate, int32_t cpn_freq, double n, double rate, int32_t freq,
                                int32_t validate, uint32_t* err_code);

/* Effective annual rate, percent, of a continuously compounded rate: (e^(rate / 100) - 1) 100. */
ORVEL_EXPORT(double) er_cont_cmpd(double rate, int32_t validate, uint32_t* err_code);

/* Effective annual rate, percent, of a rate compounded m times a year: ((1 + rate / (100 m))^m - 1) 100.
 * Validation: 15204 rate not finite; 15206 m not above 0 or not finite. */
ORVEL_EXPORT(double) er_per_cmpd(double rate, double m, int32_t validate, uint32_t* err_code);

/* Simple interest: principal rate / 100 days / year_days (the day ratio taken in floating point). No
 * validation and no err_code: a year_days of 0 gives an infinite or NaN result. */
ORVEL_EXPORT(double) simple_int(double principal, double rate, int32_t days, int32_t year_days);



/* ---- Cash-flow sets ---------------------------------------------------------------------------------- */



#endif /* ORVEL_CASHFLOW_H */
