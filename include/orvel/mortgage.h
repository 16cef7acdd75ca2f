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

#endif /* ORVEL_MORTGAGE_H */
