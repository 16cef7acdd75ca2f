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

/* A cash-flow set crosses the interface as the caller's parallel arrays and a count; the library keeps
 * nothing. amts[k] is the amount of flow k (any unit: per 100 or money), times[k] its time from settlement
 * in periods of 1 / freq year (periodic and Treasury forms) or in years (money-market and discount forms),
 * cf_m[k], cf_d[k], cf_y[k] its date (dated forms). Flows need not be sorted, except that the Treasury
 * form takes element 0 as the nearest. No element at or past count is read, and times_out receives
 * exactly count elements. A count below 1 is an empty set (a price of 0.0, no error).
 *
 * Checks shared by the family, in the place each function's list gives them:
 *   - the set of the timed forms: count above 100000 is 15300 (always, before anything else); with
 *     validate, each amount finite (15301) and each time finite (15302), after the function's own checks;
 *   - the set of the dated forms: count above 1000 is 14010 (always), since a bad flow date is numbered
 *     12000 + k; with validate, after the function's own checks, settlement required (its ok_MDY number
 *     + 7), each flow date valid and not before settlement (12000 + k), each amount finite (15301);
 *   - freq by ok_cpn_freq, its number replaced by 650; prec, the decimal places of a solved yield, 0..12,
 *     else 15303: a solve returns the first candidate whose price is within 10^-(prec + 1) of the one given;
 *   - always: 4090 when 1 + yld / (100 freq) is zero or negative; the solver's 9020 (a degenerate step, a
 *     value not finite, or 1,000 steps).
 * Yields are percent a year compounded freq times (money market: simple interest, percent a year).
 * On failure the result is 0.0 and every output is left as the caller filled it, except times_out: the
 * dated forms fill it once their checks pass, before a price or a solve that may still fail. */

/* Price at yld compounding freq times a year: sum amts[k] / (1 + yld / (100 freq))^times[k].
 * Validation: 4011 yld zero or not finite, 650 freq, then the set. */
ORVEL_EXPORT(double) cfs_p(double yld, int32_t freq, const double* amts, const double* times, int32_t count,
                           int32_t validate, uint32_t* err_code);

/* Yield (percent) at which cfs_p equals price, started at 10, 9 and 11; the first start that reprices
 * within the tolerance is returned as it is (exactly 10 when 10 fits).
 * Validation: 4012 price not above 0 or not finite, 650 freq, 15303 prec, then the set. */
ORVEL_EXPORT(double) cfs_y(double price, int32_t freq, int32_t prec, const double* amts, const double* times,
                           int32_t count, int32_t validate, uint32_t* err_code);

/* cfs_y started at guess, guess - 1 and guess + 1 (a guess of exactly 1.0 starts at 1.1, 0.1, 2.1).
 * Validation as cfs_y, with 15305 guess not finite after prec. */
ORVEL_EXPORT(double) cfs_yg(double price, int32_t freq, int32_t prec, const double* amts, const double* times,
                            int32_t count, double guess, int32_t validate, uint32_t* err_code);

/* Money-market price: sum amts[k] / (1 + yld 0.01 times[k]), times in years.
 * Validation: 4011 yld, then the set. A discount base of 0 gives an infinite term, not an error. */
ORVEL_EXPORT(double) cfs_mm_p(double yld, const double* amts, const double* times, int32_t count, int32_t validate,
                              uint32_t* err_code);

/* Yield at which cfs_mm_p equals price, started at 10, 9, 11. Validation: 4012 price, 15303 prec, the set. */
ORVEL_EXPORT(double) cfs_mm_y(double price, int32_t prec, const double* amts, const double* times, int32_t count,
                              int32_t validate, uint32_t* err_code);

/* Treasury price: simple interest over the times[0] periods to the first flow, compounding from it on.
 * With j = yld / (100 freq): (amts[0] + sum over k >= 1 of amts[k] / (1 + j)^(times[k] - times[0])) /
 * (1 + j times[0]). Element 0 must be the nearest flow. rsv1..rsv3 are reserved and never read.
 * Validation: 4001 yld zero or not finite, 650 freq, then the set. */
ORVEL_EXPORT(double) cfs_ustp_p(double yld, int32_t freq, const double* amts, const double* times, int32_t count,
                                int32_t rsv1, int32_t rsv2, int32_t rsv3, int32_t validate, uint32_t* err_code);

/* Yield at which cfs_ustp_p equals price, started at 10, 9, 11.
 * Validation: 4002 price not in (0, 10000], 650 freq, 15303 prec, then the set. */
ORVEL_EXPORT(double) cfs_ustp_y(double price, int32_t freq, int32_t prec, const double* amts, const double* times,
                                int32_t count, int32_t rsv1, int32_t rsv2, int32_t rsv3, int32_t validate,
                                uint32_t* err_code);

/* Simple-discount price: sum amts[k] (1 - disc times[k] / 100), disc percent a year, times in years.
 * Validation: 4003 disc not in (0, 25], then the set. */
ORVEL_EXPORT(double) cfs_d2p(double disc, const double* amts, const double* times, int32_t count, int32_t validate,
                             uint32_t* err_code);

/* Simple discount rate of a single flow bought at price: 100 (1 - price / amts[0]) / times[0] (times in
 * years). Several flows add their rates as they stand: sum 100 (1 - price / amts[k]) / times[k].
 * Validation: 4011 price zero or not finite, then the set. Always: 15308 a flow of amount 0 or at time 0. */
ORVEL_EXPORT(double) cfs_p2d(double price, const double* amts, const double* times, int32_t count, int32_t validate,
                             uint32_t* err_code);

/* Dated price or yield. The flows are timed from settlement in periods of 1 / freq year under day_type
 * (num_dper: whole periods on the grid anchored on each flow date, plus the day-count fraction of the
 * period settlement falls in), written to times_out, then cfs_p (given_type 1 or 11: given is the yield,
 * the price is returned) or cfs_y (2 or 12: given is the price).
 * Errors in order: with validate, ok_given(given, given_type) (200, 4000 + given_type); 200 any other
 * given_type (always); with validate 500/501 day_type, 650 freq, 15303 prec; then the set's checks. */
ORVEL_EXPORT(double) cfs_py(double given, int32_t given_type, int32_t day_type, int32_t eom, int32_t freq, int32_t prec,
                            int32_t settle_m, int32_t settle_d, int32_t settle_y, const double* amts,
                            const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y, int32_t count,
                            double* times_out, int32_t validate, uint32_t* err_code);

/* cfs_py solving as cfs_yg from guess; 15305 guess not finite after prec. */
ORVEL_EXPORT(double) cfs_pyg(double given, int32_t given_type, int32_t day_type, int32_t eom, int32_t freq,
                             int32_t prec, int32_t settle_m, int32_t settle_d, int32_t settle_y, const double* amts,
                             const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y, int32_t count,
                             double* times_out, double guess, int32_t validate, uint32_t* err_code);

/* Dated money-market price (given_type 1, 11) or yield (2, 12). Several flows are timed in years
 * (num_dper with frequency 1) and priced by cfs_mm_p. A single flow is timed in periods of 1 / freq year
 * and its yield scaled by s = freq: a given yield is divided by s before pricing, a solved one multiplied.
 * Errors as cfs_py, except that freq is checked (650) only for a single flow. */
ORVEL_EXPORT(double) cfs_mm_py(double given, int32_t given_type, int32_t day_type, int32_t eom, int32_t freq,
                               int32_t prec, int32_t settle_m, int32_t settle_d, int32_t settle_y, const double* amts,
                               const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y, int32_t count,
                               double* times_out, int32_t validate, uint32_t* err_code);

/* Dated Treasury price (given_type 1) or yield (2) by cfs_ustp_p / cfs_ustp_y; 11 and 12 are 200.
 * rsv1..rsv3 are passed through and never read. Errors as cfs_py. */
ORVEL_EXPORT(double) cfs_ustp_py(double given, int32_t given_type, int32_t day_type, int32_t eom, int32_t freq,
                                 int32_t prec, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                 const double* amts, const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y,
                                 int32_t count, int32_t rsv1, int32_t rsv2, int32_t rsv3, double* times_out,
                                 int32_t validate, uint32_t* err_code);

/* Dated simple discount: times in years (num_dper with frequency 1); given_type 3 gives the price at the
 * discount rate given (cfs_d2p), 2 or 12 the rate of the price given (cfs_p2d).
 * Errors as cfs_py without freq and prec; 15308 as cfs_p2d. */
ORVEL_EXPORT(double) cfs_pd(double given, int32_t given_type, int32_t day_type, int32_t eom, int32_t settle_m,
                            int32_t settle_d, int32_t settle_y, const double* amts, const int32_t* cf_m,
                            const int32_t* cf_d, const int32_t* cf_y, int32_t count, double* times_out,
                            int32_t validate, uint32_t* err_code);

/* Macaulay and modified duration of a dated set, in years. With t the times in periods (as cfs_py) and
 * v = 1 + yld / (100 freq): P = price when non-zero, else sum a v^-t; *mac_dur = (sum t a v^-t) / P / freq;
 * *mod_dur = *mac_dur / v.
 * Validation: 4011 yld, 4012 a non-zero price not above 0, 500/501 day_type, 650 freq, then the set.
 * Always: 4090; 15307 P is 0 (no flows and no price, or flows that cancel). */
ORVEL_EXPORT(void) cfs_dur(double price, double yld, int32_t day_type, int32_t eom, int32_t freq, int32_t settle_m,
                           int32_t settle_d, int32_t settle_y, const double* amts, const int32_t* cf_m,
                           const int32_t* cf_d, const int32_t* cf_y, int32_t count, double* times_out,
                           double* mac_dur, double* mod_dur, int32_t validate, uint32_t* err_code);

/* Convexity in years squared: with u = t / freq, sum (u + 1 / freq) u a v^-t / (v^2 P), P as cfs_dur.
 * Arguments, validation and errors as cfs_dur. */
ORVEL_EXPORT(double) cfs_cvx(double price, double yld, int32_t day_type, int32_t eom, int32_t freq, int32_t settle_m,
                             int32_t settle_d, int32_t settle_y, const double* amts, const int32_t* cf_m,
                             const int32_t* cf_d, const int32_t* cf_y, int32_t count, double* times_out,
                             int32_t validate, uint32_t* err_code);

/* The 0-based index of the latest (which 1) or earliest (which 2) of count dates, compared by the day
 * count of day_type (under 30/360 the 30th and the 31st are one day); of equal dates the first. 0 when
 * count is below 2. rsv_p (may be null), rsv_i, rsv_d and rsv1..rsv3 are reserved: never written.
 * Errors in order: with validate, 630 a reserved argument not zero (*rsv_p read when rsv_p is not null);
 * 820 which not 1 or 2 (always); with validate 500/501 day_type; 14010 count above 1000 (always); with
 * validate each date by ok_MDY: 12000 + k. Returns 0 on failure. */
ORVEL_EXPORT(int32_t) cfs_arrayloc(int32_t which, int32_t day_type, int32_t count, const int32_t* cf_m,
                                   const int32_t* cf_d, const int32_t* cf_y, double* rsv_p, int32_t rsv_i,
                                   double rsv_d, int32_t rsv1, int32_t rsv2, int32_t rsv3, int32_t validate,
                                   uint32_t* err_code);

/* The grouped calculator: cf0 at time 0, then group j pays amts[j] at each of counts[j] consecutive periods,
 * starting the period after the groups before it. With r = rate / 100 per period, v = 1 + r, T_j the
 * periods before group j and T their total:
 *   *npv   = cf0 + sum amts[j] (1 - v^-counts[j]) / r v^-T_j
 *   *nfv   = v^T *npv                      *nus = *npv / ((1 - v^-T) / r), the level payment of that value
 *   *total = cf0 + sum counts[j] amts[j]   (undiscounted)
 * A rate of exactly 0 is not guarded: npv, nfv and nus are NaN (0 / 0), on purpose.
 * Errors: 15300 n_groups above 100000 (always); with validate 15301 cf0 or an amount not finite, 15304 a
 * count outside 0..100000, 15305 rate not finite. */
ORVEL_EXPORT(void) cash_flow(double cf0, const double* amts, const int32_t* counts, int32_t n_groups, double rate,
                             double* npv, double* nfv, double* nus, double* total, int32_t validate,
                             uint32_t* err_code);

/* Internal rate of return of the grouped set, percent per period: the rate at which cash_flow's npv is 0.
 * Started at 10, 9 and 11; a start is the answer when |npv| < tol; then each interpolated rate is the
 * answer when |npv| < tol or when npv moved by less than tol from the rate before. tol by the plain sum of
 * the group amounts (not counts, not cf0): below 1e5 5e-6; below 1e6 5e-5; below 1e7 5e-4; else 5e-3.
 * Each value is one pass over the groups (one power per change of group length, none per payment).
 * Flows all of one sign have no rate in (-100, inf): the solve then ends with 9020 or on a rate below -100.
 * Errors: as cash_flow without rate; 9010 a start rate at which the set has no finite value; 9020. */
ORVEL_EXPORT(double) cf_irr(double cf0, const double* amts, const int32_t* counts, int32_t n_groups, int32_t validate,
                            uint32_t* err_code);

/* Discount margin of a floating-rate set, as a floating-rate desk quotes it. amts are the flows already
 * projected (coupons at the current index plus the quoted margin, and the principal); they are
 * discounted at the index plus the discount margin, held flat, compounding once a period:
 *   price = sum amts[k] / (1 + (index + dm / 100) / (100 freq))^t'_k
 * with dm in basis points, index in percent a year, t'_k = times[k] (mode 1) or times[k] / (360 / 365.25)
 * (mode 2: times counted in periods of a 365.25-day year, rates quoted on a 360-day year).
 * cfs_dm_p returns the price at margin dm.
 * Validation: 4130 dm outside -3000..3000, 15305 index not finite, 650 freq, then the set.
 * Always: 270 mode not 1 or 2; 4090 when 1 + (index + dm / 100) / (100 freq) is not positive. */
ORVEL_EXPORT(double) cfs_dm_p(double dm, double index, int32_t freq, int32_t mode, const double* amts,
                              const double* times, int32_t count, int32_t validate, uint32_t* err_code);

/* The discount margin (basis points) at which cfs_dm_p equals price, solved on index + margin started
 * at a margin of 0, -100 and +100.
 * Validation: 4002 price not in (0, 10000], 15305 index, 650 freq, 15303 prec, then the set. Always: 270;
 * 4090; 9020. */
ORVEL_EXPORT(double) cfs_pdm(double price, double index, int32_t freq, int32_t mode, int32_t prec, const double* amts,
                             const double* times, int32_t count, int32_t validate, uint32_t* err_code);

/* Price from a margin (given_type 1: given is dm in basis points) or margin from a price (2); any other
 * given_type is 200 (always). Then as cfs_dm_p or cfs_pdm, the given value checked as dm (4130) or as a
 * price (4002). */
ORVEL_EXPORT(double) cfs_p_dm(double given, int32_t given_type, double index, int32_t freq, int32_t mode,
                              int32_t prec, const double* amts, const double* times, int32_t count, int32_t validate,
                              uint32_t* err_code);

/* Total return to the last flow, percent a year compounded freq times: each flow reinvested at reinv
 * (percent a year, compounding freq times) from its time to H, the latest time, then
 *   100 freq ((sum amts[k] w^(H - times[k]) / price)^(1 / H) - 1), w = 1 + reinv / (100 freq).
 * price is what the whole set costs at settlement, in the amounts' unit.
 * Validation: 4012 price, 15305 reinv, 650 freq, then the set. Always: 15306 no flow after settlement
 * (H not above 0); 4090 w not positive; 15307 the value at H not above 0. */
ORVEL_EXPORT(double) cfs_tr(double price, double reinv, int32_t freq, const double* amts, const double* times,
                            int32_t count, int32_t validate, uint32_t* err_code);

/* Horizon total return over hrz periods: the flows due by hrz (times[k] <= hrz) reinvested at reinv to
 * hrz, the later ones sold at hrz at the horizon yield hrz_yld (percent a year compounding freq times,
 * discounted over times[k] - hrz); the horizon value V annualised as in cfs_tr:
 * 100 freq ((V / price)^(1 / hrz) - 1).
 * Validation: 4012 price, 15305 reinv or hrz_yld, 15306 hrz not above 0 or not finite, 650 freq, then
 * the set. Always: 15306 hrz not above 0; 4090 a discount base not positive; 15307 V not above 0. */
ORVEL_EXPORT(double) cfs_tr_hrz(double price, double reinv, double hrz_yld, double hrz, int32_t freq,
                                const double* amts, const double* times, int32_t count, int32_t validate,
                                uint32_t* err_code);

/* cfs_tr_hrz with its sources of return: *flows the flows due by the horizon as paid, *ioi the interest
 * earned on reinvesting them, *sale the value at the horizon of the flows after it (V = flows + ioi +
 * sale). Returns the horizon return. Arguments, validation and errors as cfs_tr_hrz. */
ORVEL_EXPORT(double) cfs_sr_hrz(double price, double reinv, double hrz_yld, double hrz, int32_t freq,
                                const double* amts, const double* times, int32_t count, double* flows, double* ioi,
                                double* sale, int32_t validate, uint32_t* err_code);

/* Tax-equivalent yield of a tax-exempt set: cfs_y(price) / (1 - tax), the taxable yield that leaves the
 * same after tax. tax at most 1 is a fraction, above 1 a percentage (0.35 and 35 are the same tax).
 * Validation: 4012 price, 4300 tax outside 0..100, 650 freq, 15303 prec, then the set.
 * Always: 15309 a tax of 100% (1 or 100); the solver's errors. */
ORVEL_EXPORT(double) cfs_tey(double price, double tax, int32_t freq, int32_t prec, const double* amts,
                             const double* times, int32_t count, int32_t validate, uint32_t* err_code);

/* After-tax yield: the yield (as cfs_y) at which the flows after tax, amts[k] - tax ints[k], are worth
 * price; ints[k] is the taxable income in flow k (a gain taxed as income goes into the last flow's). tax
 * as cfs_tey. Validation: as cfs_tey, then 15301 an ints element not finite, then the set. */
ORVEL_EXPORT(double) cfs_aty(double price, double tax, int32_t freq, int32_t prec, const double* amts,
                             const double* ints, const double* times, int32_t count, int32_t validate,
                             uint32_t* err_code);

/* Dollar risk of a set at yld (percent compounding freq times), in the amounts' unit, all on cfs_p:
 *   cfs_drs_p   value of a basis point: (P(yld - 0.01) - P(yld + 0.01)) / 2 (as bond_risk's pvbp)
 *   cfs_drs_ps  price change for a shift of `shift` basis points: P(yld + shift / 100) - P(yld)
 *   cfs_drs_s   the shift in basis points that changes the price by dprice (the inverse of cfs_drs_ps),
 *               solved from yld, yld - 1, yld + 1 within 10^-(prec + 1)
 * Validation: 4011 yld zero or not finite, 15310 shift or dprice not finite, 650 freq, 15303 prec (cfs_drs_s),
 * then the set. Always: 4090; in cfs_drs_s a price change the set cannot reach ends with 4090 or 9020. */
ORVEL_EXPORT(double) cfs_drs_p(double yld, int32_t freq, const double* amts, const double* times, int32_t count,
                               int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) cfs_drs_ps(double yld, double shift, int32_t freq, const double* amts, const double* times,
                                int32_t count, int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) cfs_drs_s(double yld, double dprice, int32_t freq, int32_t prec, const double* amts,
                               const double* times, int32_t count, int32_t validate, uint32_t* err_code);



#endif /* ORVEL_CASHFLOW_H */
