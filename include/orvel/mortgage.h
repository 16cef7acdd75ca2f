/*
 * ORVEL mortgages and pass-throughs: level and graduated payments, balances, prepayment speeds, pass-through cash flows, price, yield and risk.
 */
#ifndef ORVEL_MORTGAGE_H
#define ORVEL_MORTGAGE_H

#include "orvel/frame.h"

/* ==== Pass-throughs ======================================================================================
 * Monthly flows of a pass-through, the first being the next payment. Time of flow k in years:
 *   t_k = t_0 + k/12,  t_0 = 1/12 + paymt_dly/360 - a/360,
 * a = days_acrd, except that 30 days accrued are read as 29. The yield is bond-equivalent (percent,
 * compounded twice a year): flow k is discounted by b^(2 t_k), b = 1 + yld/200. Prices are per 100 of the
 * current balance and are full prices (the present value of the flows, accrued interest included).
 * Arrays of flows hold `wam` monthly amounts; more than 600 (50 years) is 15600 on every call, validated or
 * not, before any other check. With validate, every element of an input array must be finite (15601).
 * On failure: err_code written, 0 returned, no output touched (except the count that 13000 writes). */

/* Price at a bond-equivalent yield: sum of cfs[k] / b^(2 t_k). The factors are formed month by month
 * (b^(2 t_0), then times b^(1/6)); when the running factor reaches 1e30 / b^(1/6) the sum is started again
 * with a direct power for every flow, so a yield high enough to overflow the product still prices.
 * b = 0 (yld = -200) discounts by 0: an infinite (or NaN) price, kept.
 * Errors in order: 15600; with validate ok_given(yld, 1) (4001 for 0 or a non-number), ok_wam(wam, 0)
 * (11901), ok_paymt_dly (6300), ok_days_acrd (11200), 15601; then 4090 when b < 0. */
ORVEL_EXPORT(double) mbs_p(double yld,        /* bond-equivalent yield, percent */
                           int32_t wam,       /* number of monthly flows, 1..600 */
                           int32_t paymt_dly, /* payment delay beyond the month's end, days, >= 0 */
                           int32_t days_acrd, /* days accrued in the current month, >= 0 (30 read as 29) */
                           const double* cfs, /* wam monthly flows per 100 */
                           int32_t validate, uint32_t* err_code);

/* Yield from price: the root of price - mbs_p(y), solved from 10, 9 and 11 percent by three-point steps
 * until the price is met within 5e-7. Errors: 15600; with validate ok_given(price, 2) (4002: price not in
 * (0, 10000]), ok_wam(wam, 0), ok_paymt_dly, ok_days_acrd, 15601; then 4090 when a step lands below -200,
 * 9020 when a step degenerates, a value is not finite, or after 1,000 steps. */
ORVEL_EXPORT(double) mbs_y(double price, int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* cfs,
                           int32_t validate, uint32_t* err_code);

/* Price (given_type 1: `given` is a yield) or yield (2: `given` is a price), as mbs_p and mbs_y. Errors:
 * 15600; with validate ok_given(given, given_type) (4000 + kind, or 200), then the grid checks of mbs_p;
 * then 200 for any type other than 1 and 2, and the errors of mbs_p or mbs_y. */
ORVEL_EXPORT(double) mbs_py(double given, int32_t given_type, int32_t paymt_dly, int32_t days_acrd, int32_t wam,
                            const double* cfs, int32_t validate, uint32_t* err_code);

/* Accrued interest: rate x days_acrd / 36000, the rate chosen by the selectors: sel_a 0 and sel_b 0 none
 * (0); sel_a 0, sel_b non-zero the servicing spread gross_rate - net_rate; sel_a non-zero, sel_b 0 net_rate;
 * both non-zero gross_rate. Rates in percent; 6 percent for 30 days gives 0.005 (a fraction of face).
 * Errors with validate: ok_cpn_rate(gross_rate) 4100, ok_cpn_rate(net_rate) 4101, ok_days_acrd 11200. */
ORVEL_EXPORT(double) mbs_ai(double gross_rate, double net_rate, int32_t days_acrd, int32_t sel_a, int32_t sel_b,
                            int32_t validate, uint32_t* err_code);

/* Average life in years of principal flows: sum t_k cfs[k] / sum cfs[k]. Principal summing to 0 (or wam
 * below 1 without validate) gives 0/0, NaN, kept. Errors: 15600; with validate the grid checks of mbs_p. */
ORVEL_EXPORT(double) mbs_avg_life(int32_t wam, int32_t paymt_dly, int32_t days_acrd,
                                  const double* cfs, /* principal of each month per 100 */
                                  int32_t validate, uint32_t* err_code);

/* Macaulay duration (sum t_k cfs[k] / b^(2 t_k)) / price in years, and modified duration mac_dur / b. The
 * price is used as given, not recomputed from the yield. Errors: 15600; with validate ok_given(yld, 1),
 * ok_given(price, 2), the grid checks of mbs_p; then 4090 when b < 0. */
ORVEL_EXPORT(void) mbs_duration(double yld, double price, int32_t paymt_dly, int32_t days_acrd, int32_t wam,
                                const double* cfs, double* mac_dur, double* mod_dur, int32_t validate,
                                uint32_t* err_code);

/* Monthly projection per 100 of the current balance. The pool amortizes as a level-payment loan of term
 * wam at the gross rate: rg = cpn_rate/1200, rn = pass_rate/1200, P = level payment per 100 for wam
 * months; scheduled balance S = 100. surv[k] is the fraction of the pool surviving prepayments to the start
 * of month k (surv[0] normally 1, wam + 1 entries), prepd[k] the fraction prepaid in month k (normally
 * surv[k] - surv[k+1]). For k = 0..wam-1: sp = P - S rg, principal p = surv[k+1] sp + prepd[k] S;
 * cfs_out[k] = p if inc_prn, plus S rn surv[k] if inc_int (net interest), plus S surv[k] (rg - rn) if
 * inc_svc (servicing); prn_out[k] = p if inc_prn, else 0; then S = S - sp. bal_out[0] = 100 and, with
 * inc_prn, bal_out[k+1] = bal_out[k] - p; without it the balances after bal_out[0] are left unwritten.
 * *n_out = wam.
 * Errors in order: 10010 when cap is not above wam (or below 1), on every call; 15600; with validate
 * ok_orig_term (6401/6402), ok_cpn_rate(cpn_rate) 4100, ok_cpn_rate(pass_rate) 4101, ok_wam(wam,
 * orig_term) (11901/11902), 15601 for a surv or prepd element. */
ORVEL_EXPORT(void) mbs_cfs_bals(int32_t orig_term,   /* term at origination, months */
                                double cpn_rate,     /* gross note rate, percent */
                                double pass_rate,    /* net pass-through rate, percent */
                                int32_t wam,         /* months projected, 1..orig_term */
                                int32_t inc_prn, int32_t inc_int, int32_t inc_svc, /* parts of each flow */
                                const double* surv,  /* wam + 1 survival fractions */
                                const double* prepd, /* wam prepaid fractions */
                                int32_t cap,         /* capacity of each output array, above wam */
                                double* cfs_out, double* bal_out, double* prn_out, int32_t* n_out,
                                int32_t validate, uint32_t* err_code);

#endif /* ORVEL_MORTGAGE_H */
