/*
 * ORVEL time value of money and cash-flow sets: annuities, present and future values, amortization tables, price, yield and risk of dated or timed cash flows.
 */
#ifndef ORVEL_CASHFLOW_H
#define ORVEL_CASHFLOW_H

#include "orvel/frame.h"

/* ---- Time value of money ----------------------------------------------------------------------------- */



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
