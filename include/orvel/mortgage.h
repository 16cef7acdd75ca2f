/*
 * ORVEL mortgages and pass-throughs: level and graduated payments, balances, prepayment speeds, pass-through cash flows, price, yield and risk.
 */
#ifndef ORVEL_MORTGAGE_H
#define ORVEL_MORTGAGE_H

#include "orvel/frame.h"

/* ==== Amortization and prepayment ==========================================================================
 * Monthly-pay loans and pools. Units: orig_term, wam (remaining term), ages and months are int32 months;
 * cpn_rate is the note rate in percent a year (monthly rate cpn_rate/1200); a factor is the outstanding
 * balance as a fraction of the original (0..1); CPR is percent a year, SMM percent a month and PSA percent
 * of the standard ramp, except where a function says "fraction". A month index `mth` counts from the
 * pool's current month (0 = now, valid 0 .. wam - 1); the month with index t has loan age
 * t - wam + orig_term + 1 (a new loan's first month is age 1). The PSA ramp prepays at a CPR of
 * age x 0.2 % below age 30 and 6 % from age 30 on, times psa/100.
 *
 * Terms, ages and months beyond 600 months (or an age outside the term) are refused with 15500 whether or
 * not the call validates, wherever a function projects month by month; no loop runs longer. Output arrays
 * take their capacity: a table longer than the capacity fails with 13000 and writes the count needed to
 * *count, leaving the arrays untouched.
 *
 * Whole loans (mtg_): a level loan, or a graduated-payment loan (the FHA plans: payments rise by grad_rate
 * percent once a year for the first grad_mths months, then stay level; plan I 2.5 %, II 5 %, III 7.5 % for
 * 60 months, IV 2 %, V 3 % for 120 months), seasoned `age` payments (0 .. orig_term - 1), prepaying at a
 * constant CPR: the monthly mortality smm = 1 - (1 - cpr/100)^(1/12) of the balance left after each
 * scheduled payment. Flows are per 100 of the balance at `age`; flow k (k = 0 the month after `age`) falls
 * at t_k = (k + 1)/12 years, the pass-through time grid with no delay and no accrued days, and a
 * bond-equivalent yield y discounts it by (1 + y/200)^(2 t_k). The scheduled balance runs month by month,
 * S_m = S_(m-1) (1 + r) - payment_m from 100, the last payment repaying what is left. A graduated loan's
 * first-year payment is that of mbs_m_pmtgpm (at a note rate of 0: 100 over the sum of the months'
 * graduation factors). Validation of a whole loan, in order: 6401/6402 orig_term (1..480), 4100 cpn_rate,
 * for a graduated loan 11501/11502 grad_mths (0..orig_term) and 11501 grad_rate (>= 0), 6501/6502 age,
 * 7001 cpr (0..100), then the given value (200 given_type not 1 or 2, 4001 a yield of 0 or not finite, 4002
 * a price outside (0, 10000]). Always: 15500 orig_term outside 1..600 or age outside 0 .. orig_term - 1;
 * 4090 when 1 + y/200 is not above 0; 15503 when the terms give no finite result (graduated payments
 * that overflow, or a graduation rate equal to the note rate compounded over a year, where the first-year
 * payment is 0/0); a yield from price solves from 10, 9 and 11 % to within
 * 5e-7 of the price, 9020 when the solve fails.
 */

/* ---- Payments, balances and factors ---- */

/* Level monthly payment per 100 of the balance at origination: 100 r / (1 - (1 + r)^-orig_term), r =
 * cpn_rate/1200; 100/orig_term at a rate of exactly 0. mbs_m_pmt(360, 12) = 1.028612.
 * Validation: 6401/6402 orig_term, 4100 cpn_rate. */
ORVEL_EXPORT(double) mbs_m_pmt(int32_t orig_term, double cpn_rate, int32_t validate, uint32_t* err_code);

/* Scheduled balance per unit of the original with wam of orig_term months left:
 * (1 - (1 + r)^-wam) / (1 - (1 + r)^-orig_term). A rate of 0 gives NaN, left so on purpose.
 * Validation: 6401/6402 orig_term, 11901/11902 wam (1..orig_term), 4100 cpn_rate. */
ORVEL_EXPORT(double) mbs_m_bal(int32_t orig_term, int32_t wam, double cpn_rate, int32_t validate,
                               uint32_t* err_code);

/* Yearly payments per 100 of a graduated-payment loan, into pmts[0 .. Y-1], Y = trunc(orig_term/12 + 0.5)
 * loan years (at least 1): with q = 1 + r, Q = q^12, G = 1 + grad_rate/100, k = grad_mths/12,
 * L = orig_term - grad_mths, pmts[0] = 100 r / ((1 - q^-L)(G/Q)^k + (1 - (G/Q)^k)/(1 - G/Q) (1 - 1/Q)),
 * pmts[y] = pmts[y-1] G for y = 1 .. trunc(k), later years level. For a whole number of graduated years the
 * payments amortize the loan exactly; a rate of 0 gives NaN. FHA plan III (7.5 %, 60 months) at 9 % over
 * 360 months pays 0.607882 a month per 100 in year 1, rising to 0.872694 from year 6.
 * Validation: 6401/6402 orig_term, 4100 cpn_rate, 11501/11502 grad_mths (0..orig_term), 11501 grad_rate.
 * Always: 15500 orig_term outside 1..600; 10030 Y above max_yrs (pmts untouched).
 * Returns Y, the number of payments written; 0 on failure. */
ORVEL_EXPORT(int32_t) mbs_m_pmtgpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                   int32_t max_yrs, double* pmts, int32_t validate, uint32_t* err_code);

/* Scheduled factor bal2 / bal1 x factor1: factor1 carried from balance bal1 to bal2 by amortization alone.
 * Validation: 13200 factor1, 13100 bal1, 13100 bal2. */
ORVEL_EXPORT(double) mbs_f_sched(double bal1, double factor1, double bal2, int32_t validate, uint32_t* err_code);

/* Mortgage (monthly compounded) yield in percent of a bond-equivalent (semi-annual) yield bey in percent,
 * at the same effective rate: ((1 + bey/200)^(1/6) - 1) 1200. mbs_bey2my(12) = 11.7106. No errors. */
ORVEL_EXPORT(double) mbs_bey2my(double bey);

/* ---- Prepayment measures and one month's prepayment ---- */

/* SMM from CPR, both fractions: 1 - |1 - cpr|^(1/12), negated when cpr is above 1 (mbs_cpr2smm(1.5) =
 * -(1 - 0.5^(1/12))). Note the units: fractions here, percents in mbs_smm2cpr. No errors. */
ORVEL_EXPORT(double) mbs_cpr2smm(double cpr);

/* CPR in percent from SMM in percent: (1 - (1 - smm/100)^12) 100. No errors. */
ORVEL_EXPORT(double) mbs_smm2cpr(double smm);

/* CPR in percent at loan age `age` on the ramp at speed psa: psa 0.06 from age 30, age psa 0.002 below
 * (0.2 at age 1 and 100 PSA). Ages of 0 or below give 0 or a negative rate, unchecked.
 * Validation: the speed as a CPR, 7001 outside 0..100 (so a speed above 100 only unvalidated). */
ORVEL_EXPORT(double) mbs_get_psa(int32_t age, double psa, int32_t validate, uint32_t* err_code);

/* Factor left after one month's prepayment: factor - mbs_cpr2smm(cpr/100) factor.
 * Validation: 13200 factor, 7001 cpr (0..100). */
ORVEL_EXPORT(double) mbs_cpr_nsf(double cpr, double factor, int32_t validate, uint32_t* err_code);

/* The same at an SMM in percent: factor - smm/100 factor. Validation: 13200 factor, 7002 smm (0..100). */
ORVEL_EXPORT(double) mbs_smm_nsf(double smm, double factor, int32_t validate, uint32_t* err_code);

/* The same at the ramp's CPR for `age`: c = psa/100, the CPR fraction c 0.06 from age 30, age c 0.002 below.
 * Validation: 13200 factor, 7003 psa below 0, 7004 above 5000/3. */
ORVEL_EXPORT(double) mbs_psa_nsf(double psa, int32_t age, double factor, int32_t validate, uint32_t* err_code);

/* mbs_cpr_nsf, mbs_smm_nsf or mbs_psa_nsf by spd_type 1, 2 or 3 (age is used by 3 only).
 * Validation: 13200 factor, the speed for its type (7001..7004). Always: 700 spd_type not 1, 2 or 3. */
ORVEL_EXPORT(double) mbs_nsf(int32_t spd_type, double speed, int32_t age, double factor, int32_t validate,
                             uint32_t* err_code);

/* ---- Pool factors: implied rates, projection, implied PSA speed ----
 * Validation common to the functions of two factors, in order: 6401/6402 orig_term, 11901/11902 wam,
 * 4100 cpn_rate, 13200 factor1, 13200 factor2, 11600 mth1 outside 0 .. wam - 1, 11700 mth2 outside
 * 0 .. wam - 1. Always: 15500 orig_term, wam, mth1 or mth2 beyond 600 months either way. */

/* Prepayment rates of the month between two consecutive factors. The pool amortizes as a loan of term wam:
 * b1 = mbs_m_bal(wam, wam - mth1), b2 = mbs_m_bal(wam, wam - mth2), s = b2/b1 factor1 (scheduled);
 * *smm_out = (s - factor2)/s 100, *cpr_out = mbs_smm2cpr(*smm_out), *psa_out = *cpr_out 100 / the 100 PSA
 * CPR at the age of month mth1. Validation as above, then 11800 mth2 - mth1 not 1. Returns 0. */
ORVEL_EXPORT(int32_t) mbs_1m_ppr(int32_t orig_term, int32_t wam, double cpn_rate, int32_t mth1, double factor1,
                                 int32_t mth2, double factor2, double* smm_out, double* cpr_out, double* psa_out,
                                 int32_t validate, uint32_t* err_code);

/* The same over n = mth2 - mth1 months: *smm_out the constant SMM that leaves factor2 of the scheduled
 * factor s, (1 - (factor2/s)^(1/n)) 100; *cpr_out its CPR; *psa_out that CPR over the mean 100 PSA CPR of
 * the n months' ages (so one month gives the figures of mbs_1m_ppr). Validation as above. Always: 15502
 * mth2 not after mth1; 7200 s not above 0. Returns 0. */
ORVEL_EXPORT(int32_t) mbs_nm_ppr(int32_t orig_term, int32_t wam, double cpn_rate, int32_t mth1, double factor1,
                                 int32_t mth2, double factor2, double* smm_out, double* cpr_out, double* psa_out,
                                 int32_t validate, uint32_t* err_code);

/* mbs_nm_ppr between each pair of consecutive observations of a pool (months mths[i], factors factors[i],
 * i = 0 .. n_obs - 1): the rates of interval i (mths[i] to mths[i+1]) go to smm[i], cpr[i], psa[i].
 * Validation: orig_term, wam and cpn_rate as above, then for each observation 13200 its factor and its
 * month (11600 the first, 11700 a later one outside 0 .. wam - 1). Always: 15501 n_obs outside 2..601,
 * 15500 as above, 15502 months not increasing, 7200 as mbs_nm_ppr, 13000 n_obs - 1 above capacity
 * (*count = n_obs - 1). Returns n_obs - 1, the intervals written; 0 on failure. */
ORVEL_EXPORT(int32_t) mbs_pool_ppr(int32_t orig_term, int32_t wam, double cpn_rate, int32_t n_obs,
                                   const int32_t* mths, const double* factors, int32_t capacity, double* smm,
                                   double* cpr, double* psa, int32_t* count, int32_t validate,
                                   uint32_t* err_code);

/* Projected factor at mth2 from `factor` at mth1. The pool pays as a level loan of term wam: P =
 * mbs_m_pmt(wam), B = mbs_m_bal(wam, wam - mth1) 100, ratio = factor/(B/100) (actual over scheduled),
 * F = 100 factor; for each month t = mth1 .. mth2 - 1: p = P - B r, new = mbs_nsf(spd_type, speed, age of
 * t, ratio); with apply non-zero F -= (ratio - new) B + new p; B -= p; ratio = new. Returns F/100; the
 * factor unchanged when mth1 >= mth2 or apply is 0. A rate of 0 gives NaN.
 * Validation: orig_term, wam, cpn_rate, 13200 factor, the speed for spd_type (700, 7001..7004), 11600
 * mth1, 11700 mth2. Always: 15500 as above; 700 spd_type not 1..3 (when a month is projected). */
ORVEL_EXPORT(double) mbs_nm_pf(int32_t orig_term, int32_t wam, double cpn_rate, int32_t apply, double factor,
                               int32_t mth1, int32_t mth2, int32_t spd_type, double speed, int32_t validate,
                               uint32_t* err_code);

/* PSA speed that carries factor1 at mth1 to factor2 at mth2: the root of factor2 - mbs_nm_pf(orig_term,
 * wam, cpn_rate, 1, factor1, mth1, mth2, 3, s), tried at 100, 99, 101, then by three-point interpolation
 * steps, until the residual is below 0.0005 in factor (so the speed is as exact as that factor tolerance
 * makes it). A speed above the cap 10000 / (100 PSA CPR at age mth2 - wam + orig_term) - 1e-10, the speed
 * at which the ramp reaches a CPR of 100 %, is taken at the cap. Validation as above. 9020 when the solve
 * fails (a degenerate step, a value not finite, 1,000 steps). */
ORVEL_EXPORT(double) mbs_pfs2psa(int32_t orig_term, int32_t wam, double cpn_rate, int32_t mth1, double factor1,
                                 int32_t mth2, double factor2, int32_t validate, uint32_t* err_code);

/* The PSA speed that best carries a pool through several observations: the root s of the mean over
 * i = 1 .. n_obs - 1 of factors[i] - (factors[0] projected as mbs_pfs2psa does from mths[0] to mths[i] at
 * s), solved as mbs_pfs2psa with its cap at the last month; with two observations it is mbs_pfs2psa.
 * Validation and always-checked numbers as mbs_pool_ppr (no 7200 nor 13000), then 9020 from the solve. */
ORVEL_EXPORT(double) mbs_pool2psa(int32_t orig_term, int32_t wam, double cpn_rate, int32_t n_obs,
                                  const int32_t* mths, const double* factors, int32_t validate, uint32_t* err_code);

/* ---- Whole loans: balances, factors and survival ---- */

/* Scheduled balance per 100 of the original of a level loan after `age` payments:
 * 100 (1 - (1 + r)^-(orig_term - age)) / (1 - (1 + r)^-orig_term), straight-line 100 (orig_term - age) /
 * orig_term at a rate of 0. Validation as a whole loan (no cpr). */
ORVEL_EXPORT(double) mtg_mbal(int32_t orig_term, double cpn_rate, int32_t age, int32_t validate, uint32_t* err_code);

/* Pool factor of a level loan after `age` months of prepayment at cpr from origination:
 * mtg_mbal / 100 x (1 - smm)^age. Validation as a whole loan. */
ORVEL_EXPORT(double) mtg_mpf(int32_t orig_term, double cpn_rate, int32_t age, double cpr, int32_t validate,
                             uint32_t* err_code);

/* Monthly survival factors from 1.0 at pool age `age` through the term at a constant monthly mortality
 * smm = 1 - (1 - cpr/100)^(1/12): surv[k] = surv[k-1] (1 - smm) for k = 1 .. n, n = orig_term - age, and
 * prepd[k] = surv[k] - surv[k+1] for k = 0 .. n - 1 (the survival and prepaid arrays of the pass-through
 * projection). *count = n + 1, the capacity needed (prepd gets one fewer).
 * Validation: 6401/6402 orig_term, 6501/6502 age, 7001 cpr. Always: 15500; 13000 n + 1 above capacity.
 * Returns n + 1; 0 on failure. */
ORVEL_EXPORT(int32_t) mtg_mlpf_cpr(int32_t orig_term, int32_t age, double cpr, int32_t capacity, double* surv,
                                   double* prepd, int32_t* count, int32_t validate, uint32_t* err_code);

/* The same along a prepayment experience: speeds[k-1] (type spd_type: 1 CPR, 2 SMM, 3 PSA by the month's
 * loan age age + k) is the speed of month k; the last speed holds for the months after the n_spd given.
 * Validation: 6401/6402 orig_term, 6501/6502 age, 970 the schedule (ok_pps: spd_type 1..3, n_spd 1..480,
 * each speed valid for its type). Always: 15500; 15501 n_spd outside 1..600; 700 spd_type not 1..3; 13000.
 * Returns n + 1; 0 on failure. */
ORVEL_EXPORT(int32_t) mtg_mlpf_exp(int32_t orig_term, int32_t age, int32_t spd_type, int32_t n_spd,
                                   const double* speeds, int32_t capacity, double* surv, double* prepd,
                                   int32_t* count, int32_t validate, uint32_t* err_code);

/* CPR (percent) implied by two factors of a level 360-month loan at loan ages mth1 < mth2: the scheduled
 * factor s = factor1 b(mth2)/b(mth1) (b as mtg_mbal, the product of the starting factor and the balance
 * ratio), the constant SMM (1 - (factor2/s)^(1/(mth2 - mth1))) 100 to *smm, its CPR returned.
 * Validation: 4100 cpn_rate, 6501/6502 mth1 (0..359), 13200 factor1, 6501/6502 mth2, 13200 factor2.
 * Always: 15500 a month outside 0..359; 7100 mth2 not after mth1; 7200 s not above 0. */
ORVEL_EXPORT(double) mtg_ppr(double cpn_rate, int32_t mth1, double factor1, int32_t mth2, double factor2,
                             double* smm, int32_t validate, uint32_t* err_code);

/* The same for a graduated 360-month loan, b its scheduled balance. Validation: 4100 cpn_rate, 11501/11502
 * grad_mths (0..360), 11501 grad_rate, then as mtg_ppr; always as mtg_ppr and 15503. */
ORVEL_EXPORT(double) mtg_ppr_gpm(double cpn_rate, int32_t grad_mths, double grad_rate, int32_t mth1,
                                 double factor1, int32_t mth2, double factor2, double* smm, int32_t validate,
                                 uint32_t* err_code);

/* ---- Whole loans: flows, price, yield, average life and half-life ---- */

/* The monthly flows after `age` per 100 of the balance then: for month k, interest A r, scheduled
 * principal A (S_(m-1) - S_m)/S_(m-1) (all of A in the last month), prepayment smm (A - scheduled
 * principal); cfs[k] interest plus principal, prns[k] the principal, bals[k] the balance A after it.
 * *count = orig_term - age. Validation and errors as a whole loan, then 13000 above capacity.
 * Returns the number of months; 0 on failure. */
ORVEL_EXPORT(int32_t) mtg_cfbp_cpr(int32_t orig_term, double cpn_rate, int32_t age, double cpr, int32_t capacity,
                                   double* cfs, double* bals, double* prns, int32_t* count, int32_t validate,
                                   uint32_t* err_code);

/* The same for a graduated loan (its principal is negative while the payment is below the interest). */
ORVEL_EXPORT(int32_t) mtg_cfbp_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                   int32_t age, double cpr, int32_t capacity, double* cfs, double* bals,
                                   double* prns, int32_t* count, int32_t validate, uint32_t* err_code);

/* Price per 100 of the balance at `age`: sum of cfs[k] (1 + yld/200)^(-2 (k + 1)/12). */
ORVEL_EXPORT(double) mtg_cfp(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double yld,
                             int32_t validate, uint32_t* err_code);

/* Bond-equivalent yield (percent) at which mtg_cfp gives `price`. */
ORVEL_EXPORT(double) mtg_cfy(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double price,
                             int32_t validate, uint32_t* err_code);

/* mtg_cfp for given_type 1 (given a yield), mtg_cfy for 2 (given a price); 200 for any other type. */
ORVEL_EXPORT(double) mtg_cfpy(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double given,
                              int32_t given_type, int32_t validate, uint32_t* err_code);

/* mtg_cfpy for a graduated loan. */
ORVEL_EXPORT(double) mtg_cfpy_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                  int32_t age, double cpr, double given, int32_t given_type, int32_t validate,
                                  uint32_t* err_code);

/* Average life in years, sum t_k prns[k] / sum prns[k], returned; the price at yld to *price. */
ORVEL_EXPORT(double) mtg_alp(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double yld, double* price,
                             int32_t validate, uint32_t* err_code);

/* Average life; the yield at `price` to *yld. */
ORVEL_EXPORT(double) mtg_aly(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double price, double* yld,
                             int32_t validate, uint32_t* err_code);

/* Average life; the price (given_type 1) or yield (2) to *result. */
ORVEL_EXPORT(double) mtg_alpy(int32_t orig_term, double cpn_rate, int32_t age, double cpr, double given,
                              int32_t given_type, double* result, int32_t validate, uint32_t* err_code);

/* mtg_alp, mtg_aly and mtg_alpy for a graduated loan. */
ORVEL_EXPORT(double) mtg_alp_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                 int32_t age, double cpr, double yld, double* price, int32_t validate,
                                 uint32_t* err_code);
ORVEL_EXPORT(double) mtg_aly_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                 int32_t age, double cpr, double price, double* yld, int32_t validate,
                                 uint32_t* err_code);
ORVEL_EXPORT(double) mtg_alpy_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                  int32_t age, double cpr, double given, int32_t given_type, double* result,
                                  int32_t validate, uint32_t* err_code);

/* Average life of a graduated loan (as mtg_alp_gpm), and the peak of its scheduled balance per 100 of the
 * original to *peak_bal with the loan age at which it is first reached to *peak_age (100 and 0 when the
 * balance never rises above the original). */
ORVEL_EXPORT(double) mtg_albp_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                  int32_t age, double cpr, double* peak_bal, int32_t* peak_age, int32_t validate,
                                  uint32_t* err_code);

/* Half-life in years: the time after `age` at which the balance A (prepayments included) first reaches
 * half its value at `age`, linear within the month. */
ORVEL_EXPORT(double) mtg_halflife(int32_t orig_term, double cpn_rate, int32_t age, double cpr, int32_t validate,
                                  uint32_t* err_code);

/* ==== Pass-throughs ======================================================================================
 * Monthly flows of a pass-through, the first being the next payment. Time of flow k in years:
 *   t_k = t_0 + k/12,  t_0 = 1/12 + paymt_dly/360 - a/360,
 * a = days_acrd, except that 30 days accrued are read as 29. The yield is bond-equivalent (percent,
 * compounded twice a year): flow k is discounted by b^(2 t_k), b = 1 + yld/200. Prices are per 100 of the
 * current balance and are full prices (the present value of the flows, accrued interest included).
 * Arrays of flows hold `wam` monthly amounts; more than 600 (50 years) is 15600 on every call, validated or
 * not, before any other check but the projections' capacity (10010). With validate, every element of an
 * input array must be finite (15601).
 * On failure: err_code written, 0 returned, no output touched (except the count that 13000 writes). */

/* Price at a bond-equivalent yield: sum of cfs[k] / b^(2 t_k). The factors are formed month by month
 * (b^(2 t_0), then times b^(1/6)); when the running factor reaches 1e30 / b^(1/6) the sum is started again
 * with a direct power for every flow, so a yield high enough to overflow the product still prices.
 * b = 0 (yld = -200) makes every factor 0: an infinite (or NaN) price, kept.
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

/* ---- Risk, half-life, dates, accrued interest and total return (same grid and discounting) ---------- */

/* Convexity in years squared: (sum t_k (t_k + 1/2) cfs[k] / b^(2 t_k)) / (b^2 price), the second derivative
 * of the price in the yield (as a fraction, compounded twice a year) over the price. The price is used as
 * given, as in mbs_duration. Errors: those of mbs_duration. */
ORVEL_EXPORT(double) mbs_cvx(double yld, double price, int32_t paymt_dly, int32_t days_acrd, int32_t wam,
                             const double* cfs, int32_t validate, uint32_t* err_code);

/* Everything at one yield: the price (mbs_p), Macaulay and modified duration and convexity with that price
 * as denominator, and the price value of a basis point mod_dur x price / 10000. Errors: 15600; with validate
 * ok_given(yld, 1) and the grid checks of mbs_p; then 4090 when b < 0, 15603 when the price is not above 0. */
ORVEL_EXPORT(void) mbs_risk(double yld, int32_t paymt_dly, int32_t days_acrd, int32_t wam, const double* cfs,
                            double* price, double* mac_dur, double* mod_dur, double* convexity, double* pvbp,
                            int32_t validate, uint32_t* err_code);

/* Effective duration and convexity of a level-payment pool whose speed moves with the yield. The pool (wam
 * months left of orig_term, gross cpn_rate, net pass_rate) is projected as mbs_gen_tbls then mbs_cfs_bals
 * with principal and net interest, once at each speed: `speed` at yld, spd_dn at yld - shift, spd_up at
 * yld + shift (the speeds the caller's prepayment model gives at those yields; all of spd_type). With
 * P0, P-, P+ the three prices (mbs_p) and h = shift/100:
 *   eff_dur = (P- - P+) / (2 h P0),  eff_cvx = (P- + P+ - 2 P0) / (h^2 P0);  *price = P0.
 * With the three speeds equal and a small shift they approach mbs_risk's modified duration and convexity.
 * Errors: 15600; with validate ok_orig_term, ok_wam(wam, orig_term), ok_cpn_rate (4100, pass_rate 4101),
 * ok_paymt_dly, ok_days_acrd, ok_pcnt_spd(speed, spd_dn, spd_up in turn, spd_type) (700, 7001..7004),
 * ok_given(yld, 1), shift above 0 and at most 10 (percent; 15604); then 700 for spd_type outside 1..3 on
 * every call, 4090 when a yield's b < 0, 15603 when P0 is not above 0. */
ORVEL_EXPORT(void) mbs_efdurcvx(int32_t orig_term, int32_t wam, double cpn_rate, double pass_rate, int32_t paymt_dly,
                                int32_t days_acrd, int32_t spd_type, double speed, double spd_dn, double spd_up,
                                double yld, double shift, /* yield shift, percent (0.25 = 25 basis points) */
                                double* price, double* eff_dur, double* eff_cvx, int32_t validate,
                                uint32_t* err_code);

/* Half-life in years: the time at which half the principal of the flows has been repaid, each month's
 * principal taken as paid evenly over the month that ends at its payment time t_k (so a month that
 * completes the half exactly gives t_k). Errors: 15600; with validate the grid checks of mbs_p; then 15602
 * when the principal does not sum above 0. */
ORVEL_EXPORT(double) mbs_halflife(int32_t wam, int32_t paymt_dly, int32_t days_acrd,
                                  const double* cfs, /* principal of each month */
                                  int32_t validate, uint32_t* err_code);

/* Monthly flows from settlement to maturity: 12 (year difference) + month difference (the settlement's
 * month pays the first flow, the maturity's month none), and *days_acrd the days of the settlement month
 * accrued on 30/360: day - 1, the 31st read as the 30th (29). The maturity's day is not used beyond its
 * validation. Errors: with validate ok_MDY on settlement (+7: 1207, 1307, 1107, 1507) and maturity (+1);
 * then on every call 15606 when fewer than 1 month, 15600 when more than 600. */
ORVEL_EXPORT(int32_t) mbs_dts2mths(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t* days_acrd, int32_t validate, uint32_t* err_code);

/* Price or yield quoted clean, with the accrued interest ai = pass_rate x days_acrd / 360 per 100 (30/360,
 * the actual days accrued: 30 is not read as 29 here). given_type 1: `given` is a yield; returns the full
 * price (mbs_p) less ai. 2: `given` is a clean price; returns the yield at which the flows are worth given
 * + ai (mbs_y). *ai is written on success. Errors: 15600; with validate ok_given(given, given_type),
 * ok_cpn_rate(pass_rate), the grid checks of mbs_p; then 200 for a type other than 1 and 2, and the errors
 * of mbs_p or mbs_y. */
ORVEL_EXPORT(double) mbs_py_ai(double given, int32_t given_type, double pass_rate, int32_t paymt_dly,
                               int32_t days_acrd, int32_t wam, const double* cfs, double* ai, int32_t validate,
                               uint32_t* err_code);

/* Total return, annualized as a bond-equivalent yield in percent, of buying the flows at the full `price`
 * and holding them for hold_mths payments. The horizon H = t_(hold_mths - 1) is the payment time of the
 * last flow received; each flow received grows to H at the monthly reinvestment rate (reinv_rate/1200 a
 * month); the flows after it are sold at H at hzn_yld (the next one a month away). With V the value at H:
 *   result = ((V / price)^(1 / (2 H)) - 1) x 200.
 * Reinvesting at the monthly equivalent of the purchase yield and selling at it gives that yield back.
 * Errors: 15600; with validate ok_given(price, 2), ok_cpn_rate(reinv_rate), ok_given(hzn_yld, 1), the grid
 * checks of mbs_p; then on every call ok_hldng_mth(hold_mths, wam) (11301/11302), 4090 for hzn_yld, 15607
 * when H or V is not above 0. */
ORVEL_EXPORT(double) mbs_tot_rtn(double price, int32_t hold_mths, double reinv_rate, double hzn_yld,
                                 int32_t paymt_dly, int32_t days_acrd, int32_t wam, const double* cfs,
                                 int32_t validate, uint32_t* err_code);

/* ---- Tables and graduated-payment pools ------------------------------------------------------------------
 * A speed is a CPR (spd_type 1, percent a year), an SMM (2, percent a month) or a PSA speed (3); the
 * monthly mortality of month k is smm_k = 1 - (1 - cpr/100)^(1/12), smm/100, or that of the ramp's CPR at
 * the loan age of month k (k - wam + orig_term + 1). */

/* Survival and prepaid tables of a speed, from 1.0: surv_out[0] = 1, prepd_out[k] = surv_out[k] smm_k,
 * surv_out[k+1] = surv_out[k] - prepd_out[k] for k = 0..wam-1, and prepd_out[wam] = 0: wam + 1 entries in
 * each, the count returned and written to *count. They are the tables mbs_cfs_bals takes.
 * Errors: 15600; with validate ok_orig_term, ok_wam(wam, orig_term), ok_pcnt_spd(speed, spd_type); then on
 * every call 700 for spd_type outside 1..3, ok_wam(wam, 0) (11901), and 13000 when cap is below wam + 1
 * (wam + 1 written to *count). */
ORVEL_EXPORT(int32_t) mbs_gen_tbls(int32_t orig_term, int32_t wam, int32_t spd_type, double speed,
                                   int32_t cap, /* capacity of each table */
                                   double* surv_out, double* prepd_out, int32_t* count, int32_t validate,
                                   uint32_t* err_code);

/* The tables of mbs_gen_tbls and the scheduled balance of a graduated-payment loan: sched_out[k] per 100 of
 * the balance at origination at the start of month k (k = 0..wam), the loan at age orig_term - wam + 1 in
 * month 0. The graduated payments (the market's GPM plan): payments rise by grad_rate percent once a year
 * for the first grad_mths months, then stay level; the first year's payment per 100 is
 *   100 r / ((1 - q^-L) (G/Q)^g + (1 - (G/Q)^g) / (1 - G/Q) (1 - 1/Q)),
 * r = cpn_rate/1200, q = 1 + r, Q = q^12, G = 1 + grad_rate/100, g = grad_mths/12, L = orig_term -
 * grad_mths, and year y's is G^min(y, trunc(g)) times it. Each month B = B (1 + r) - payment: the balance
 * grows while the payment is below the interest (negative amortization) and reaches 0 at orig_term.
 * Errors: those of mbs_gen_tbls, with ok_cpn_rate (4100), ok_m_pmtinc(grad_mths, orig_term) (11501/11502)
 * and ok_rt_pmtinc (11501) after ok_wam; then 15608 when the payment has no value (a zero rate, or G = Q). */
ORVEL_EXPORT(int32_t) mbs_gentblsg(int32_t orig_term, int32_t wam, double cpn_rate, int32_t grad_mths,
                                   double grad_rate, int32_t spd_type, double speed, int32_t cap, double* surv_out,
                                   double* prepd_out, double* sched_out, int32_t* count, int32_t validate,
                                   uint32_t* err_code);

/* mbs_cfs_bals for a graduated-payment pool: the scheduled payment of month k is the graduated payment at
 * loan age orig_term - wam + 1 + k (as mbs_gentblsg), scaled to 100 of the scheduled balance in month 0;
 * otherwise the same flows, balances and outputs. Errors: 10010 and 15600 as mbs_cfs_bals; with validate
 * ok_orig_term, ok_cpn_rate (4100, 4101), ok_m_pmtinc, ok_rt_pmtinc, ok_wam(wam, orig_term), 15601; then
 * 15608 when the payment or the month-0 balance has no positive value. */
ORVEL_EXPORT(void) mbs_cfsbalsg(int32_t orig_term, double cpn_rate, double pass_rate, int32_t grad_mths,
                                double grad_rate, int32_t wam, int32_t inc_prn, int32_t inc_int, int32_t inc_svc,
                                const double* surv, const double* prepd, int32_t cap, double* cfs_out,
                                double* bal_out, double* prn_out, int32_t* n_out, int32_t validate,
                                uint32_t* err_code);

/* ---- Balance forms (_b) -----------------------------------------------------------------------------------
 * The _b forms take the pool as its balance schedule instead of its flows: bals[k] is the balance at the
 * start of month k (k = 0..wam-1), in any unit, and the pool pays off in its last month (the balance after
 * it is 0). The flow of month k per 100 of bals[0] is
 *   (bals[k] - bals[k+1] + bals[k] x pass_rate/1200) x 100 / bals[0],   bals[wam] = 0,
 * principal and net interest; each function then is its flow form on those flows (mbs_al_b uses the
 * principal alone). Arguments: those of the flow form, pass_rate after the given values.
 * Errors: 15600; with validate the flow form's checks of its given values, ok_cpn_rate(pass_rate) (not in
 * mbs_al_b), ok_wam(wam, 0), ok_paymt_dly, ok_days_acrd, ok_mbs_bal(bals[0]) (13100), 15601 for a later
 * balance negative or not finite; then the errors of the flow form. */
ORVEL_EXPORT(double) mbs_p_b(double yld, double pass_rate, int32_t wam, int32_t paymt_dly, int32_t days_acrd,
                             const double* bals, int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) mbs_y_b(double price, double pass_rate, int32_t wam, int32_t paymt_dly, int32_t days_acrd,
                             const double* bals, int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) mbs_py_b(double given, int32_t given_type, double pass_rate, int32_t paymt_dly,
                              int32_t days_acrd, int32_t wam, const double* bals, int32_t validate,
                              uint32_t* err_code);
ORVEL_EXPORT(double) mbs_py_ai_b(double given, int32_t given_type, double pass_rate, int32_t paymt_dly,
                                 int32_t days_acrd, int32_t wam, const double* bals, double* ai, int32_t validate,
                                 uint32_t* err_code);
ORVEL_EXPORT(double) mbs_al_b(int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* bals, int32_t validate,
                              uint32_t* err_code);
ORVEL_EXPORT(void) mbs_dur_b(double yld, double price, double pass_rate, int32_t paymt_dly, int32_t days_acrd,
                             int32_t wam, const double* bals, double* mac_dur, double* mod_dur, int32_t validate,
                             uint32_t* err_code);
ORVEL_EXPORT(double) mbs_cvx_b(double yld, double price, double pass_rate, int32_t paymt_dly, int32_t days_acrd,
                               int32_t wam, const double* bals, int32_t validate, uint32_t* err_code);

/* ---- Sinking-fund pools (mbs_sf_p, mbs_sf_y, mbs_sf_al) -------------------------------------------------
 * A pass-through whose principal is retired by a fixed sinking-fund schedule (a project-loan or serial
 * pool): sf[k] per 100 of the current balance is retired in month k, net interest at pass_rate is paid on
 * the balance before it, and whatever is left after the last amount is repaid with the last flow:
 *   flow k = sf[k] + B_k x pass_rate/1200,  B_0 = 100, B_(k+1) = B_k - sf[k],  plus B_wam in the last.
 * Price, yield and average life (of the principal, sf[k] and the final balance) are those of the flow
 * forms on these flows. Errors: 15600; with validate ok_given as the flow form, ok_cpn_rate(pass_rate)
 * (not in mbs_sf_al), ok_wam(wam, 0), ok_paymt_dly, ok_days_acrd, ok_sf_amt on each amount (5100), 15605
 * when they sum above 100; then the errors of the flow form. */
ORVEL_EXPORT(double) mbs_sf_p(double yld, double pass_rate, int32_t wam, int32_t paymt_dly, int32_t days_acrd,
                              const double* sf, int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) mbs_sf_y(double price, double pass_rate, int32_t wam, int32_t paymt_dly, int32_t days_acrd,
                              const double* sf, int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) mbs_sf_al(int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* sf, int32_t validate,
                               uint32_t* err_code);

#endif /* ORVEL_MORTGAGE_H */
