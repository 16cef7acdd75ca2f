/*
 * ORVEL fixed-coupon bond engine: accrued interest, price and yield, cash flows and risk measures.
 *
 * Two layers. bond_ai reduces the dates and conventions of a bond to three numbers: nxt_frac (coupon
 * periods from settlement to the next coupon), cpn_amt (the next coupon per 100) and n_after (whole periods
 * after the next coupon). The kernels price on those numbers and know no dates: _g1p when at least one
 * whole period follows the next coupon (compound interest), _l1p in the final period (simple interest).
 *
 * Units: prices, redemption values, coupons and accrued interest per 100 of face; coupon rates and yields in
 * percent a year (8.5 = 8.5%). A tax rate of 1.0 or more is a percentage, below 1.0 a fraction (30 and 0.30
 * are the same tax); tax1 falls on coupons and accrued interest, tax2 on the gain to redemption.
 *
 * Every yield solve of the library stops with 9020 when an interpolation step degenerates, when a candidate
 * or a residual is not finite, or after 1,000 steps without convergence; it never loops for ever.
 */
#ifndef ORVEL_BOND_H
#define ORVEL_BOND_H

#include "orvel/frame.h"

/* ---- Price and yield kernels ------------------------------------------------------------------------ */

/* Clean price when at least one whole coupon period follows the next coupon, compounding once a period:
 * the next coupon cpn_amt at nxt_frac periods, cpn_rate / cpn_freq at each of the n_after later coupon
 * dates and the redemption with the last one, discounted at v = 1 + yld / (100 cpn_freq) per period, less
 * the accrued interest. tax1 reduces every coupon and the accrued interest; tax2 taxes the gain redemptn -
 * price. A yield within 5e-7 of zero sums the flows undiscounted.
 *   yld       yield, percent a year             cpn_rate  annual coupon, percent (0..3000)
 *   redemptn  redemption per 100 (> 0)           tax1, tax2 tax rates (0..100; >= 1.0 read as percent)
 *   cpn_freq  1, 2, 4 or 12                      n_after   whole periods after the next coupon (>= 1)
 *   nxt_frac  periods to the next coupon (>= 0)  cpn_amt   next coupon per 100 (0..3000)
 *   ai        accrued interest per 100 (>= 0)
 * Validation (validate != 0), in order: 4001 yld zero; 4100 cpn_rate; 4200 redemptn; 4301 tax1; 4302 tax2;
 * 600/601 cpn_freq; 4600 n_after; 4400 nxt_frac; 4101 cpn_amt; 4500 ai.
 * Errors always checked: 4090 when 1 + yld / (100 cpn_freq) is zero or negative.
 * Returns the clean price per 100; 0.0 on failure. */
ORVEL_EXPORT(double) bond_ptm_g1p(double yld, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, int32_t n_after, double nxt_frac, double cpn_amt, double ai,
                                  int32_t validate, uint32_t* err_code);

/* Yield of a clean price on the schedule of bond_ptm_g1p: solves price = bond_ptm_g1p(y) to 5e-7 per 100
 * with the library's three-point solver, starting from an estimate from the gain to redemption and points
 * 1 below and 1 above it. A start of exactly 0 returns 0.0 without an error (a price equal to the
 * redemption with no coupon). Arguments and validation as bond_ptm_g1p, with price (above 0, at most
 * 10000: 4002) in place of yld. Errors: 9020 when the solve fails (a degenerate step, a value that is not
 * finite, or 1,000 steps), 4090 when the solve reaches a yield of -100 cpn_freq or below.
 * Returns the yield in percent; 0.0 on failure. */
ORVEL_EXPORT(double) bond_ytm_g1p(double price, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, int32_t n_after, double nxt_frac, double cpn_amt, double ai,
                                  int32_t validate, uint32_t* err_code);

/* Clean price in the final coupon period, simple interest over the nxt_frac periods left: the last coupon
 * cpn_rate / cpn_freq (after tax1; none when ai is negative, the bond trading ex-dividend) and the
 * redemption discounted by 1 + nxt_frac yld / (100 cpn_freq), less the after-tax accrued interest, with
 * tax1 also levied on the gain redemptn - price.
 * Validation (validate != 0), in order: 4001 yld zero; 4100 cpn_rate; 4200 redemptn; 4301 tax1;
 * 600/601 cpn_freq; 4400 nxt_frac negative; 4500 ai negative.
 * Errors always checked: 4400 nxt_frac zero; 4090 when 1 + nxt_frac yld / (100 cpn_freq) is zero or below.
 * Returns the clean price per 100; 0.0 on failure. */
ORVEL_EXPORT(double) bond_ptm_l1p(double yld, double cpn_rate, double redemptn, double tax1, int32_t cpn_freq,
                                  double nxt_frac, double ai, int32_t validate, uint32_t* err_code);

/* Yield of a clean price in the final period, in closed form. Untaxed it inverts bond_ptm_l1p; with a tax
 * the gain tax tax1 (redemptn - price) is taken per 100 of face, so the two are then not inverses.
 * Validation as bond_ptm_l1p with price (4002) in place of yld. Errors always checked: 4400 nxt_frac zero;
 * 4002 when price plus after-tax accrued interest is zero (nothing invested, no yield).
 * Returns the yield in percent; 0.0 on failure. */
ORVEL_EXPORT(double) bond_ytm_l1p(double price, double cpn_rate, double redemptn, double tax1, int32_t cpn_freq,
                                  double nxt_frac, double ai, int32_t validate, uint32_t* err_code);

/* One step of the yield solver: the root of the linear fractional function through (y_a, f_a), (y_b, f_b),
 * (y_c, f_c), exact when the residual is itself linear fractional in the yield.
 * Errors: 9020 when the interpolation denominator is below 1e-10 in magnitude (or not a number).
 * Returns the next estimate; 0.0 on failure. */
ORVEL_EXPORT(double) approx_yield(double y_a, double y_b, double y_c, double f_a, double f_b, double f_c,
                                  uint32_t* err_code);

/* Clean price compounding in every period, the final one included, without taxes:
 * (A + (redemptn - A) v^-n_after + cpn_amt) v^-nxt_frac - ai, with A = cpn_rate / (g cpn_freq),
 * g = yld / (100 cpn_freq), v = 1 + g. When ai is negative (ex-dividend) the next coupon is left out.
 * Validation (validate != 0), in order: 4001 yld zero; 4100 cpn_rate; 4200 redemptn; 600/601 cpn_freq;
 * 4600 n_after below 1; 4400 nxt_frac negative; 4101 cpn_amt; 4500 ai not finite (any sign is accepted).
 * Errors always checked: 4090 when v is zero or negative; 4001 for a yield of exactly 0, which has no
 * closed form here.
 * Returns the clean price per 100; 0.0 on failure. */
ORVEL_EXPORT(double) aibd_p(double yld, double cpn_rate, double redemptn, int32_t cpn_freq, int32_t n_after,
                            double nxt_frac, double cpn_amt, double ai, int32_t validate, uint32_t* err_code);

/* Yield of a clean price under aibd_p, with the solver and start of bond_ytm_g1p. Validation: 4002 price
 * not above 0 or above 10000, then the checks of aibd_p from cpn_rate on. Errors: 9020, 4090 as
 * bond_ytm_g1p. Returns the yield in percent; 0.0 on failure. */
ORVEL_EXPORT(double) aibd_y(double price, double cpn_rate, double redemptn, int32_t cpn_freq, int32_t n_after,
                            double nxt_frac, double cpn_amt, double ai, int32_t validate, uint32_t* err_code);

/* ---- Income measures -------------------------------------------------------------------------------- */

/* Current yield in percent: (1 - T) cpn_rate / price x 100. Here T is tax1 when tax1 <= 1.0 and tax1 / 100
 * above, so a tax1 of exactly 1.0 is 100% (the price kernels read 1.0 as 1%). No checks and no err_code:
 * a zero price gives an infinite result, which is the caller's concern. */
ORVEL_EXPORT(double) bond_cur_yld(double cpn_rate, double price, double tax1);

/* Income to maturity with every coupon reinvested at the yield, per 100 of face. With g = yld /
 * (100 cpn_freq), p = cpn_rate / cpn_freq and G = (1 + g)^n_after:
 *   tot_int = (G - 1) / g p + G cpn_amt   (a yield of exactly 0: n_after p, plus cpn_amt when nxt_frac != 0)
 *   ioi     = tot_int - (n_after p + cpn_amt) when nxt_frac != 0, else tot_int - n_after p
 *   cpn_int = tot_int - ioi
 * With nxt_frac = 0 the grown next coupon stays in tot_int but not in the coupon sum: it counts wholly as
 * interest on interest.
 * Validation (validate != 0), in order: 4001 yld not finite; 4100 cpn_rate; 600/601 cpn_freq; 4600 n_after
 * below 1; 4400 nxt_frac negative; 4101 cpn_amt. On failure the three outputs are left unwritten. */
ORVEL_EXPORT(void) bond_int_ioi(double yld, int32_t cpn_freq, double cpn_rate, double cpn_amt, int32_t n_after,
                                double nxt_frac, double* tot_int, double* cpn_int, double* ioi, int32_t validate,
                                uint32_t* err_code);

#endif /* ORVEL_BOND_H */
