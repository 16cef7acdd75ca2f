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
 * 1 below and 1 above it; the first candidate that reprices within 5e-7 is the yield (typically 5 to 6 price
 * evaluations in all). A start of exactly 0 returns 0.0
 * without an error (a price equal to the redemption with no coupon). Arguments and validation as
 * bond_ptm_g1p, with price (above 0, at most 10000: 4002) in place of yld. Errors: 9020 when the solve fails
 * (a degenerate step, a value that is not finite, or 1,000 steps), 4090 when the solve reaches a yield of
 * -100 cpn_freq or below.
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
 * 4002 when price plus after-tax accrued interest is zero (nothing invested, no yield); 4090 when the
 * yield found has 1 + nxt_frac yld / (100 cpn_freq) zero or below (a negative price, say).
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

/* ---- Accrued interest and the schedule numbers --------------------------------------------------------
 * The date arguments of a bond: settlement, maturity, dated date (interest accrues from it) and first
 * coupon date, each as month, day, four-digit year. A blank dated date (0/0/0) with a blank first coupon runs
 * the schedule regularly back from maturity; a dated date alone gets a first coupon one period after it.
 * Date errors carry the role of the date (1 maturity, 2 dated, 3 first coupon, 7 settlement; 1207 is a bad
 * settlement month, 2171 settlement not before maturity, 2231 first coupon off maturity's cycle). */

/* Accrued interest at settlement, per unit of cpn_rate (per 100 of face for a rate in percent), on a
 * regular schedule or with an odd (short or long) first coupon, and the three numbers every kernel prices
 * on: *nxt_frac (periods from settlement to the next coupon; exactly 1.0 on a coupon date except under
 * day_type 12), *cpn_amt (the next coupon: cpn_rate / cpn_freq, or the prorated odd first coupon) and
 * *n_after (whole periods after the next coupon). With nothing left to run all three are 0 but cpn_amt.
 *   cpn_rate 0..3000; day_type 1..13; eom non-zero keeps month ends on month ends; cpn_freq 1, 2, 4, 12.
 * Validation (validate != 0), in order: 4100 cpn_rate; 500/501 day_type; 600/601 cpn_freq; the date group
 * (bad dates 1100/1200/1300/1500 + role, 1502 first coupon without dated date, 1503 odd first period
 * without first coupon, 2027, 2123, 2171, 2231).
 * Returns the accrued interest; 0.0 on failure, the outputs then unwritten. */
ORVEL_EXPORT(double) bond_ai(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                             int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                             int32_t first_cpn_d, int32_t first_cpn_y, double cpn_rate, int32_t day_type, int32_t eom,
                             int32_t cpn_freq, double* nxt_frac, double* cpn_amt, int32_t* n_after, int32_t validate,
                             uint32_t* err_code);

/* Accrued interest under an ex-dividend rule: bond_ai at settlement, made negative when the bond trades
 * ex-dividend, i.e. the ex-dividend date is on or before the test date (settlement for ex_type 1, the trade
 * date for 2) and settlement is before the coupon date N that ends the ex-dividend date's period. Then a
 * 365-day basis (day_type 8, 9, 12, 13) gives -(days from settlement to N) x cpn_rate / 365, any other the
 * accrued interest less the whole next coupon. ex_type 0 is plain bond_ai. Outputs as bond_ai.
 * Validation (validate != 0): for ex_type != 0 the ex-dividend date against the bond (+9, 2191, 1609), for
 * ex_type 2 the trade date (+4, 2141, 2024); then bond_ai's. Error 960 for ex_type not 0, 1 or 2.
 * Returns the accrued interest, negative ex-dividend; 0.0 on failure. */
ORVEL_EXPORT(double) bond_ex_ai(int32_t trade_m, int32_t trade_d, int32_t trade_y, int32_t settle_m, int32_t settle_d,
                                int32_t settle_y, int32_t exdiv_m, int32_t exdiv_d, int32_t exdiv_y, int32_t ex_type,
                                int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                                int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                                double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq, double* nxt_frac,
                                double* cpn_amt, int32_t* n_after, int32_t validate, uint32_t* err_code);

/* Accrued interest at settlement as seen from the trade date: bond_ai, plus the coupon of the trade date's
 * period when a coupon date falls after the trade date and on or before settlement (the buyer owes the
 * coupon the seller no longer receives). Outputs as bond_ai at settlement.
 * Validation (validate != 0): the trade date (+4, 2141, 2024), then bond_ai's.
 * Returns the accrued interest per 100; 0.0 on failure. */
ORVEL_EXPORT(double) bond_td_ai(int32_t trade_m, int32_t trade_d, int32_t trade_y, int32_t settle_m, int32_t settle_d,
                                int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                                int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d,
                                int32_t first_cpn_y, double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                double* nxt_frac, double* cpn_amt, int32_t* n_after, int32_t validate,
                                uint32_t* err_code);

/* The next coupon payment of a holding of face_k thousand: bond_ai's cpn_amt x face_k x 10.
 * Errors: with validate, 14100 face_k negative or not finite; then bond_ai's. Returns the payment; 0.0 on failure. */
ORVEL_EXPORT(double) bond_fpi(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
                              int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                              int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                              int32_t first_cpn_d, int32_t first_cpn_y, double face_k, int32_t validate,
                              uint32_t* err_code);

/* Interest a holding of face_k thousand earns on the day before settlement: the accrued interest at
 * settlement less that of the day before, or, when a coupon was paid on settlement, the coupon less the
 * accrued interest of the day before. 0.0 when settlement is the (given) dated date.
 * Errors: with validate, 14100 face_k negative or not finite; then bond_ai's. Returns the interest; 0.0 on failure. */
ORVEL_EXPORT(double) bond_1di(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
                              int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                              int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                              int32_t first_cpn_d, int32_t first_cpn_y, double face_k, int32_t validate,
                              uint32_t* err_code);

/* The coupon payment of the period settlement falls in, for a holding of face_k thousand: on a coupon
 * date the coupon paid that day, at maturity the final coupon (settlement is then taken two days earlier).
 * Errors: with validate, 14100 face_k negative or not finite; then bond_ai's. Returns the payment; 0.0 on
 * failure. */
ORVEL_EXPORT(double) bond_pip(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
                              int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                              int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                              int32_t first_cpn_d, int32_t first_cpn_y, double face_k, int32_t validate,
                              uint32_t* err_code);

/* ---- Price and yield from dates -------------------------------------------------------------------------- */

/* Clean price from a yield (calc_type 1) or yield from a clean price (calc_type 2) of a fixed-coupon bond:
 * bond_ai reduces the dates, then bond_ptm_g1p / bond_ytm_g1p price while a whole period follows the next
 * coupon (n_after >= 1), bond_ptm_l1p / bond_ytm_l1p in the final period.
 *   method   1..8 except 2. 3, 6 and 8 price on the regular schedule (the dated date moved to 1901 and the
 *            first coupon to 1902, month and day kept, 29 February as 28): an odd first coupon is ignored.
 *            6 also returns 100.0 for a yield equal to the coupon and the coupon for a price of 100.0.
 *            1, 4, 5 and 7 price alike.
 *   given    the yield (percent) or the clean price (per 100)
 *   redemptn per 100; tax1, tax2 as the kernels read them.
 * Writes *ai (the accrued interest at settlement on the bond's own schedule) and *result.
 * Validation (validate != 0): 500/501 day_type, 600/601 cpn_freq, 200 calc_type, 4001/4002 given, 4100
 * cpn_rate, the date group as bond_ai, 4200 redemptn, 4301 tax1, 4302 tax2.
 * Always checked: 300 method (after *ai is written), 200 calc_type; the kernels' 4090, 4400, 4002, 9020.
 * On failure *result is left unwritten. */
ORVEL_EXPORT(void) bond_py_ai(int32_t method, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type,
                              double given, double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                              int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                              int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                              double redemptn, double tax1, double tax2, double* result, double* ai, int32_t validate,
                              uint32_t* err_code);

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

/* ---- Risk measures ---------------------------------------------------------------------------------------
 * Duration and convexity walk the flows bond_ai describes, compounding once a period in every period: the
 * next coupon at nxt_frac periods, cpn_rate / cpn_freq at each of the n_after later coupon dates, the
 * redemption with the last. Schedules of more than 100,000 periods (beyond any the calendar can date, so
 * only from unvalidated garbage) are refused with 4600 rather than walked. */

/* Macaulay and modified duration in years. The time-weighted present value of the flows is divided by
 * price when price is non-zero, else by the present value of the flows (a price with accrued interest):
 * passing a clean price weights by it instead and gives a larger duration. *mod_dur = *mac_dur / v, with
 * v = 1 + yld / (100 cpn_freq). With nothing left to run (settlement at maturity) both are 0.0.
 *   price  0 or a clean price per 100; yld percent; cpn_rate percent; redemptn per 100.
 * Validation (validate != 0): 4001 yld zero; 4002 a non-zero price not in (0, 10000]; 4200 redemptn;
 * then bond_ai's.
 * Errors always checked: 4090 v zero or negative; 4600 a schedule too long to walk.
 * On failure the outputs are left unwritten. */
ORVEL_EXPORT(void) bond_dur(double price, double yld, double cpn_rate, double redemptn, int32_t day_type, int32_t eom,
                            int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                            int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                            int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double* mac_dur,
                            double* mod_dur, int32_t validate, uint32_t* err_code);

/* Convexity in years squared: the sum over the flows of t (t + h) x present value, t the time in years
 * and h = 1 / cpn_freq, divided by v^2 and by price when non-zero, else by the present value of the flows
 * (it is then the second derivative of that value in the yield, as a decimal, over the value).
 * Arguments, validation and errors as bond_dur. Returns the convexity; 0.0 with nothing left to run and
 * on failure. */
ORVEL_EXPORT(double) bond_cvx(double price, double yld, double cpn_rate, double redemptn, int32_t day_type, int32_t eom,
                              int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                              int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                              int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, int32_t validate,
                              uint32_t* err_code);

/* The risk set of a bond in one call, from a yield (calc_type 1) or a clean price (calc_type 2), untaxed,
 * priced as bond_py_ai with method 1:
 *   *price, *yld   the clean price per 100 and the yield in percent (the given one and the solved one)
 *   *ai            accrued interest per 100
 *   *mac_dur, *mod_dur, *convexity   as bond_dur and bond_cvx with price 0 (weighted by the value of the
 *                  flows at the yield)
 *   *cur_yld       bond_cur_yld of the clean price
 *   *pvbp          value of a basis point: (price at yld - 0.01 less price at yld + 0.01) / 2, per 100
 * Durations, convexity and pvbp are rounded for the market of sec_type by rslt_fix_plc (result type 2).
 * Validation (validate != 0): 300 sec_type not known; then 500/501 day_type, 600/601 cpn_freq, 200
 * calc_type, 4001/4002 given, 4100 cpn_rate, the date group as bond_ai, 4200 redemptn.
 * Always checked: 200 calc_type; the kernels' 4090, 4400, 4002, 9020; 4600 a schedule too long to walk.
 * On failure no output is written. */
ORVEL_EXPORT(void) bond_risk(int32_t sec_type, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type,
                             double given, double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                             int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                             int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                             double redemptn, double* price, double* yld, double* ai, double* mac_dur, double* mod_dur,
                             double* convexity, double* cur_yld, double* pvbp, int32_t validate, uint32_t* err_code);

/* Convexity estimated from three prices: (P(yld - shift) + P(yld + shift) - 2 P(yld)) / (P(yld) x
 * (shift / 100)^2), P the value of the flows with accrued interest, compounding in every period. Agrees
 * with bond_cvx (price 0) to the order of shift squared.
 *   shift  yield change in percent, in (0, 100]; any other value (0 included) takes 0.01, a basis point.
 * Validation (validate != 0): 4001 shift not finite, then as bond_dur. Errors as bond_dur.
 * Returns the estimate in years squared; 0.0 with nothing left to run and on failure. */
ORVEL_EXPORT(double) bond_est_cvx(double yld, double cpn_rate, double redemptn, int32_t day_type, int32_t eom,
                                  int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                  int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                                  int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                                  double shift, int32_t validate, uint32_t* err_code);

/* ---- Cash flows -------------------------------------------------------------------------------------------
 * The flows still to come after settlement, oldest first: the next coupon (the prorated odd first coupon
 * when settlement precedes it), every later regular coupon, the redemption with the last (dates stepped
 * back from maturity). n_after + 1 flows, none when nothing is left to run. The arrays hold capacity
 * elements each; *count receives the number of flows, also when they do not fit (a call with capacity 0
 * sizes the arrays). Errors common to the three: 13000 capacity below the number of flows (arrays
 * untouched); 4600 a schedule too long to walk. Each returns the number of flows written, 0 on failure. */

/* The flows per 100 of face with their times: amts[k] is the coupon plus, on the last, redemptn;
 * times[k] the coupon periods from settlement (nxt_frac + k), so that the clean price bond_py_ai gives for
 * a yield y (while a whole period follows the next coupon) is sum amts[k] (1 + y / (100 cpn_freq))^-times[k]
 * less *ai. The dates go to cf_m, cf_d, cf_y; *ai receives the accrued interest per 100.
 * Validation (validate != 0): 4100 cpn_rate, 500/501 day_type, 600/601 cpn_freq, the date group as
 * bond_ai, 4200 redemptn. */
ORVEL_EXPORT(int32_t) bond_flows(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
                                 int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                                 int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                                 int32_t first_cpn_d, int32_t first_cpn_y, double redemptn, int32_t capacity,
                                 int32_t* cf_m, int32_t* cf_d, int32_t* cf_y, double* amts, double* times,
                                 int32_t* count, double* ai, int32_t validate, uint32_t* err_code);

/* The dated flows of a holding of face_k thousand, as the dated cash-flow sets take them: amts[k] is the
 * coupon plus, on the last, redemptn, per 100 times face_k x 10; *ai the accrued interest of the holding.
 * Validation as bond_flows, then 14100 face_k negative or not finite. */
ORVEL_EXPORT(int32_t) bond_cfs(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
                               int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                               int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                               int32_t first_cpn_d, int32_t first_cpn_y, double redemptn, double face_k,
                               int32_t capacity, int32_t* cf_m, int32_t* cf_d, int32_t* cf_y, double* amts,
                               int32_t* count, double* ai, int32_t validate, uint32_t* err_code);

/* Interest and principal flows of a holding of face_k thousand (0 is taken as 1.0), one entry per remaining
 * coupon date: int_flows[k] the coupon x face_k x 10, prin_flows[k] zero until maturity, there the face
 * (face_k x 1000). method as bond_py_ai: 3, 6 and 8 ignore an odd first coupon.
 * Validation (validate != 0): 300 method not 1..8 or 2; then as bond_cfs (4100, 500/501, 600/601, the
 * date group, 14100 face_k negative or not finite). */
ORVEL_EXPORT(int32_t) bond_ifs_pfs(int32_t method, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate,
                                   int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                   int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double face_k,
                                   int32_t capacity, int32_t* cf_m, int32_t* cf_d, int32_t* cf_y, double* int_flows,
                                   double* prin_flows, int32_t* count, int32_t validate, uint32_t* err_code);

/* ---- Annual-equivalent yields ------------------------------------------------------------------------------
 * The yields of this section compound once a year whatever the coupon frequency: the annual equivalent
 * (effective annual) yield, which sets semi-annual, quarterly and monthly bonds beside annual-pay bonds
 * (Eurobonds, most European governments) on one basis. A yield y_a here is the engine's yield y_f
 * (compounding cpn_freq times a year) with the same growth over a year:
 *   1 + y_a / 100 = (1 + y_f / (100 cpn_freq))^cpn_freq
 * so for cpn_freq 1 the two are the same; a semi-annual 8% is 8.16% annual. */

/* Clean price from an annual-equivalent yield on the schedule of bond_ptm_g1p: the flows discounted at
 * (1 + yld / 100)^(t / cpn_freq), t in coupon periods; that is bond_ptm_g1p at the converted yield.
 * Arguments, units and validation as bond_ptm_g1p (4001 yld zero or not finite, 4100, 4200, 4301, 4302,
 * 600/601, 4600, 4400, 4101, 4500). Errors always checked: 4090 when 1 + yld / 100 is zero or negative,
 * or as bond_ptm_g1p. Returns the clean price per 100; 0.0 on failure. */
ORVEL_EXPORT(double) bond_ptm_crr(double yld, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, int32_t n_after, double nxt_frac, double cpn_amt, double ai,
                                  int32_t validate, uint32_t* err_code);

/* Annual-equivalent yield of a clean price: bond_ytm_g1p's yield (the same solve, to 5e-7 per 100 on the
 * price) converted to annual compounding. Arguments, validation and errors as bond_ytm_g1p; also 4090 when
 * the yield found has 1 + y / (100 cpn_freq) zero or negative. Returns the yield in percent; 0.0 on failure. */
ORVEL_EXPORT(double) bond_ytm_crr(double price, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, int32_t n_after, double nxt_frac, double cpn_amt, double ai,
                                  int32_t validate, uint32_t* err_code);

/* bond_py_ai with the yield stated annual-equivalent: calc_type 1 converts the given yield to the bond's
 * compounding and prices it; calc_type 2 converts the yield of the price. Everything else (method, the
 * kernel choice with simple interest in the final period, taxes) is bond_py_ai's, so a price is the same
 * as bond_py_ai's at the converted yield. Arguments, units and validation as bond_py_ai (500/501, 600/601,
 * 200, 4001/4002, 4100, the date group, 4200, 4301, 4302).
 * Always checked: 4090 when the yield to convert has a growth factor zero or negative; then bond_py_ai's
 * 300, 200, 4090, 4400, 4002, 9020. Writes *result and *ai on success only. */
ORVEL_EXPORT(void) bond_py_crr(int32_t method, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type,
                               double given, double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                               int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                               int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                               double redemptn, double tax1, double tax2, double* result, double* ai, int32_t validate,
                               uint32_t* err_code);

/* ---- The final coupon period after tax -----------------------------------------------------------------
 * In the final period an investor taxed at tax1 on income (the last coupon and, against it, the accrued
 * interest bought) and at tax2 on the capital gain redemptn - price earns, by simple interest over the
 * nxt_frac periods left, V = 1 + nxt_frac y / (100 cpn_freq) on the after-tax full price:
 *   (k + redemptn - tax2 (redemptn - price)) = V (price + (1 - tax1) ai),   k = (1 - tax1) cpn_rate / cpn_freq
 * (k = 0 when ai is negative: ex-dividend, the seller keeps the coupon). The two functions below solve it
 * for y and for price and are exact inverses; with tax1 = tax2 the price is bond_ptm_l1p's (whose yield
 * bond_ytm_l1p takes the gain tax per 100 of face, and so does not invert it).
 *   cpn_rate percent; redemptn per 100; tax1, tax2 0..100 (1.0 or more read as percent);
 *   nxt_frac periods left (> 0); ai accrued interest per 100 (>= 0 with validation).
 * Validation (validate != 0), in order: 4001 yld / 4002 price; 4100 cpn_rate; 4200 redemptn; 4301 tax1;
 * 4302 tax2; 600/601 cpn_freq; 4400 nxt_frac negative; 4500 ai negative.
 * Errors always checked: 4400 nxt_frac zero; 4090 V zero or negative (or, for the price, not finite);
 * 4002 nothing invested (price + (1 - tax1) ai zero). 0.0 on failure. */

/* Yield after tax of a clean price in the final period: y = (V - 1) 100 cpn_freq / nxt_frac. */
ORVEL_EXPORT(double) bond_yat_l1p(double price, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, double nxt_frac, double ai, int32_t validate, uint32_t* err_code);

/* Price before tax in the final period: the clean price at which the taxed investor earns yld after tax,
 * ((k + redemptn (1 - tax2)) / V - (1 - tax1) ai) / (1 - tax2 / V). */
ORVEL_EXPORT(double) bond_pbt_l1p(double yld, double cpn_rate, double redemptn, double tax1, double tax2,
                                  int32_t cpn_freq, double nxt_frac, double ai, int32_t validate, uint32_t* err_code);

/* Money-market equivalent yield of a bond in its final coupon period, on the day basis of the discount
 * securities, actual/360: what the last coupon and the redemption return on the full price,
 *   ((redemptn + cpn_amt) / (price + ai) - 1) x 360 / days x 100,   days = actual days settle -> mat,
 * with ai and cpn_amt (the last coupon, an odd one included) from bond_ai. Writes *ai.
 * Validation (validate != 0): 4002 price; 4200 redemptn; then bond_ai's (4100, 500/501, 600/601, the date
 * group). Always checked: 15900 settlement not in the final period (a whole period follows the next
 * coupon); 4400 no day left to maturity; 4002 a full price not above 0. 0.0 on failure, *ai unwritten. */
ORVEL_EXPORT(double) bond_mmey_dr(double price, double cpn_rate, double redemptn, int32_t day_type, int32_t eom,
                                  int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                  int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double* ai,
                                  int32_t validate, uint32_t* err_code);

/* ---- Street and true yields --------------------------------------------------------------------------- */

/* Street and true yields of a clean price, untaxed (bond_py_ai, method 1).
 *   *street_yld  the yield on the scheduled coupon dates (business-day shifts ignored): bond_py_ai's yield
 *   *true_yld    the yield on the days the flows are paid: each coupon date (the redemption with the last)
 *                that falls on a Saturday, Sunday or holiday is paid on the following business day, d days
 *                late, and discounted d / P coupon periods further, P the actual days of the coupon period
 *                that ends on the scheduled date. Accrued interest runs to the scheduled dates as usual. In
 *                the final period the simple-interest kernel runs to the day of payment; before it every
 *                flow is discounted on its own at 1 + y / (100 cpn_freq) a period and the yield is solved
 *                with the library's solver to 5e-7 per 100. With no date moved it is the street yield.
 *   hol_count, holidays   the holiday table: julian day numbers, ascending, weekdays only (as ok_hol_table).
 * Errors always checked, first: 5400 hol_count outside 0..3000 (or a null table with a count).
 * Validation (validate != 0): 4002 price; 4200 redemptn; bond_ai's (4100, 500/501, 600/601, the date
 * group); then the table, 5401 a holiday outside the calendar or not after the one before, 5403 a holiday
 * on a weekend. Always: 4600 a schedule too long to walk; the kernels' 4090, 4400, 4002, 9020.
 * Writes both yields on success only. */
ORVEL_EXPORT(void) bond_st_ylds(double price, double cpn_rate, double redemptn, int32_t day_type, int32_t eom,
                                int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, int32_t hol_count,
                                const int32_t* holidays, double* street_yld, double* true_yld, int32_t validate,
                                uint32_t* err_code);

/* ---- Taxes and sensitivities from dates ---------------------------------------------------------------- */

/* Price and yields with an income tax (inc_tax, on coupons and accrued interest) and a capital-gains tax
 * (cg_tax, on the gain redemptn - price), each read as the kernels read a tax (1.0 or more a percentage):
 * calc_type 1 takes given as the yield after tax and finds the clean price; calc_type 2 takes given as the
 * clean price and finds the yield after tax. While a whole period follows the next coupon the compound
 * kernel prices with tax1 = inc_tax and tax2 = cg_tax (bond_ptm_g1p); in the final period the after-tax
 * simple-interest form of bond_pbt_l1p / bond_yat_l1p. Writes *price, *yld_at (after tax), *yld_bt (the
 * untaxed yield of the same price, bond_py_ai method 1) and *ai.
 * Validation (validate != 0): as bond_py_ai with inc_tax, cg_tax as tax1, tax2 (500/501, 600/601, 200,
 * 4001/4002, 4100, the date group, 4200, 4301, 4302). Always: 200; the kernels' 4090, 4400, 4002, 9020.
 * Nothing is written on failure. */
ORVEL_EXPORT(void) bond_py_tax(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                               double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                               int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                               int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double redemptn,
                               double inc_tax, double cg_tax, double* price, double* yld_at, double* yld_bt, double* ai,
                               int32_t validate, uint32_t* err_code);

/* Price value of a basis point and yield value of a price move, untaxed, from a yield (calc_type 1) or a
 * clean price (calc_type 2), priced as bond_py_ai method 1:
 *   *price, *yld  the clean price per 100 and the yield in percent
 *   *pvbp         (P(yld - 0.01) - P(yld + 0.01)) / 2: the clean price change per 100 for one basis point
 *                 (bond_risk's, unrounded)
 *   *yv_move      (Y(price - price_move) - Y(price + price_move)) / 2: the yield change, in percent, for a
 *                 price move of price_move per 100 (1/32 = 0.03125 gives the yield value of a 32nd)
 * Validation (validate != 0): as bond_py_ai untaxed (500/501, 600/601, 200, 4001/4002, 4100, the date
 * group, 4200). Always: 200; 15903 price_move not in (0, 100]; the kernels' 4090, 4400, 4002, 9020 (a move
 * that takes the price to 0 or below has no yield). Nothing is written on failure. */
ORVEL_EXPORT(void) bond_py_vol(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                               double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                               int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                               int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double redemptn,
                               double price_move, double* price, double* yld, double* pvbp, double* yv_move,
                               int32_t validate, uint32_t* err_code);

/* Price and the value of a price point: the clean price and yield as bond_py_vol, and, returned, the yield
 * change in percent that moves the clean price by one point (1 per 100) at the rate of the price value of a
 * basis point: 0.01 / pvbp (a pvbp of 0.08 gives 0.125, 12.5 basis points a point). It is the scale a desk
 * quotes price concessions in yield with. Validation and errors as bond_py_vol without price_move; also
 * 4090 when pvbp is not positive. 0.0 on failure, nothing written. */
ORVEL_EXPORT(double) bond_pp_vpp(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                 int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                 int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double redemptn,
                                 double* price, double* yld, int32_t validate, uint32_t* err_code);

/* ---- Income and returns of a holding ---------------------------------------------------------------------
 * A holding bought at settlement (clean price plus the accrued interest of bond_ai) and held to a horizon
 * date hrz on or before maturity. The coupons paid after settlement, up to and on the horizon, are the
 * next coupon of bond_ai (an odd first coupon included) and regular coupons cpn_rate / cpn_freq after it.
 * Each is reinvested at reinv_rate (percent a year, compounding cpn_freq times a year, the bond's basis) to
 * the horizon, k periods plus the part of the horizon's period already run (the time from the last coupon
 * date to the horizon in periods, 1 - nxt_frac at the horizon). The holding period is H coupon periods,
 * nxt_frac at settlement + the coupons paid - nxt_frac at the horizon (1 at maturity).
 * Horizon checks: ok_MDY on hrz with role 8 (1108, 1208, 1308, 1508), 2178 hrz not after settlement, 2081
 * hrz after maturity. Reinvestment: 15901 reinv_rate not finite or 1 + reinv_rate / (100 cpn_freq) not
 * positive, checked always, after validation. */

/* Interest a holding of face_k thousand earns from d1 to d2: the coupons paid after d1 up to and on d2, plus
 * the accrued interest at d2, less that at d1 (bond_ai; none at maturity), x face_k x 10. On a regular
 * bond it is i_earn_MDYs x face_k x 10; with an odd first coupon the odd coupon counts in full. d1 after
 * d2 (without validation) gives the negative of the reverse.
 * Validation (validate != 0): 14100 face_k; bond_ai's at d1 (d1 the settlement, 2171 d1 not before mat);
 * d2 ok_MDY role 8; 2078 d1 after d2; 2081 d2 after mat. Returns the interest; 0.0 on failure. */
ORVEL_EXPORT(double) bond_i_earn(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t d1_m,
                                 int32_t d1_d, int32_t d1_y, int32_t d2_m, int32_t d2_d, int32_t d2_y, int32_t mat_m,
                                 int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                 int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double face_k,
                                 int32_t validate, uint32_t* err_code);

/* The money amounts of a position of face_k thousand at a clean price: *principal = price x face_k x 10,
 * *accrued = bond_ai's accrued interest x face_k x 10; returns their sum, the amount to settle.
 * Validation (validate != 0): 4002 price; 14100 face_k; then bond_ai's. 0.0 on failure, nothing written. */
ORVEL_EXPORT(double) bond_ext(double price, double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq,
                              int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                              int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                              int32_t first_cpn_d, int32_t first_cpn_y, double face_k, double* principal,
                              double* accrued, int32_t validate, uint32_t* err_code);

/* Total income per 100 from settlement to the horizon, bought at price and valued at hrz_price (clean; at
 * maturity pass the redemption), returned: (hrz_price + ai at hrz + coupons grown at reinv_rate) - (price +
 * ai at settlement), and split into exactly three parts that add up to it:
 *   *cpn_inc  coupon income: the coupons paid plus ai at hrz less ai at settlement (bond_i_earn per 100)
 *   *ioi      interest on interest: the grown coupons less the coupons
 *   *cap_chg  capital change: hrz_price - price
 * Validation (validate != 0): 4002 price; 4002 hrz_price; bond_ai's at settlement; the horizon checks.
 * Then 15901. 0.0 on failure, nothing written. */
ORVEL_EXPORT(double) bond_tot_inc(double price, double hrz_price, double reinv_rate, double cpn_rate, int32_t day_type,
                                  int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                  int32_t hrz_m, int32_t hrz_d, int32_t hrz_y, int32_t mat_m, int32_t mat_d,
                                  int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                                  int32_t first_cpn_d, int32_t first_cpn_y, double* cpn_inc, double* ioi,
                                  double* cap_chg, int32_t validate, uint32_t* err_code);

/* Total return to a horizon at a horizon clean price, coupons reinvested at reinv_rate. With
 * W = (hrz_price + ai at hrz + grown coupons) / (price + ai at settlement) and H the holding in periods:
 *   *period_rtn  (W - 1) x 100, the return over the holding, not annualised
 *   returned     annualised on the bond's basis, as its yield is: 100 cpn_freq (W^(1/H) - 1), or, when
 *                settlement lies in the final period (priced by simple interest), 100 cpn_freq (W - 1) / H.
 * So a bond bought at its yield y and held to maturity with reinv_rate = y returns y.
 * Validation as bond_tot_inc. Always: 15901; 4002 a full price not above 0; 4090 W not positive.
 * 0.0 on failure, nothing written. */
ORVEL_EXPORT(double) bond_tr_hrz(double price, double hrz_price, double reinv_rate, double cpn_rate, int32_t day_type,
                                 int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                 int32_t hrz_m, int32_t hrz_d, int32_t hrz_y, int32_t mat_m, int32_t mat_d,
                                 int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                                 int32_t first_cpn_d, int32_t first_cpn_y, double* period_rtn, int32_t validate,
                                 uint32_t* err_code);

/* Horizon return with a horizon yield: bond_tr_hrz's annualised return with the holding sold at the
 * horizon at the clean price bond_py_ai (method 1, untaxed) gives for hrz_yld there, or redeemed at
 * redemptn when the horizon is maturity. With hrz_yld and reinv_rate both the purchase yield (and a whole
 * period after the horizon's next coupon) it returns the purchase yield.
 * Validation (validate != 0): 4002 price; 4001 hrz_yld; 4200 redemptn; bond_ai's at settlement; the
 * horizon checks. Always: 15901; the kernels' 4090, 4400; 4002, 4090 as bond_tr_hrz. 0.0 on failure. */
ORVEL_EXPORT(double) bond_hrz_rtn(double price, double hrz_yld, double reinv_rate, double cpn_rate, double redemptn,
                                  int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d,
                                  int32_t settle_y, int32_t hrz_m, int32_t hrz_d, int32_t hrz_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                  int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, int32_t validate,
                                  uint32_t* err_code);

/* Total return held to maturity: bond_tr_hrz's annualised return with the horizon at maturity and the
 * holding redeemed at redemptn. With reinv_rate equal to the bond's yield at price it is that yield.
 * Validation (validate != 0): 4002 price; 4200 redemptn; bond_ai's. Always: 15901; 4002, 4090 as
 * bond_tr_hrz. 0.0 on failure. */
ORVEL_EXPORT(double) bond_tr_htm(double price, double reinv_rate, double cpn_rate, double redemptn, int32_t day_type,
                                 int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                 int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                                 int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                                 int32_t validate, uint32_t* err_code);

/* Tax-equivalent yield of a tax-exempt bond: the taxable yield that leaves as much after tax,
 * yld / (1 - T), T = tax_rate read as the kernels read a tax (1.0 or more a percentage: 35 and 0.35 are
 * the same). Validation (validate != 0): 4001 yld not finite; 4300 tax_rate outside 0..100. Always: 15902
 * a tax of 100% (no taxable yield leaves anything). Returns the yield in percent; 0.0 on failure. */
ORVEL_EXPORT(double) bond_tey(double yld, double tax_rate, int32_t validate, uint32_t* err_code);

/* ---- Market engine routines ---------------------------------------------------------------------------
 * The routines the market families call beyond bond_ai and the aibd kernels. A yield compounded yld_freq
 * times a year (1, 2, 4 or 12) may differ from the coupon frequency: Italian and Spanish yields are quoted
 * compounded annually on semi-annual coupons. */

/* Accrued interest of a market whose coupons are paid on the coupon date's business day (gilts, Irish
 * government bonds). Accrual runs between the scheduled coupon dates, never the days the coupons are paid
 * on: a coupon due on a Saturday is paid the Monday after, and the next period still accrues from the
 * Saturday. Inside the ex-dividend window (ex_type 1: the ex-dividend date on or before settlement, and
 * settlement before the coupon date that ends the ex-dividend date's period) the buyer is owed the
 * interest from settlement to that coupon date as the coupon's share of the period left, AI - cpn_amt,
 * whatever the day count (bond_ex_ai counts such days over 365 where the basis has a 365-day year).
 * Outputs as bond_ai: *nxt_frac, *cpn_amt, *n_after (to the scheduled dates).
 * Validation (validate != 0), in order: 960 ex_type not 0 or 1; when ex_type is 1, ok_exdiv_MDY (bad
 * ex-dividend date + 9, 1609 outside settlement's period, 2191); then bond_ai's. Without validation an
 * ex_type other than 0 or 1 is 960 once the rule is reached, after the outputs are written.
 * Returns the accrued interest per 100 (negative ex-dividend); 0.0 on failure. */
ORVEL_EXPORT(double) bond_pp_ai(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_m, int32_t exdiv_d,
                                int32_t exdiv_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                                int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                                int32_t first_cpn_d, int32_t first_cpn_y, double cpn_rate, int32_t day_type,
                                int32_t eom, int32_t cpn_freq, double* nxt_frac, double* cpn_amt, int32_t* n_after,
                                int32_t validate, uint32_t* err_code);

/* Clean price at a yield yld (percent a year) compounded yld_freq times a year, for a bond paying
 * cpn_freq coupons: the flows of aibd_p (next coupon cpn_amt at nxt_frac periods, cpn_rate / cpn_freq at
 * each of the n_after periods after it, redemptn with the last; no next coupon when ai < 0, ex-dividend)
 * discounted by (1 + yld / (100 yld_freq))^(-t yld_freq / cpn_freq) at t coupon periods, less ai. With
 * yld_freq = cpn_freq it is aibd_p.
 * Validation, in order: 4001 yld, 4100 cpn_rate, 4200 redemptn, 600/601 cpn_freq, 15800/15801 yld_freq,
 * 4600 n_after, 4400 nxt_frac, 4101 cpn_amt, 4500 ai not finite (any sign). Errors: 4090 when
 * 1 + yld / (100 yld_freq) is not positive; 4001 at a yield of exactly 0 (no perpetuity form).
 * Returns the clean price per 100; 0.0 on failure. */
ORVEL_EXPORT(double) bond_ppp_g1p(double yld, double cpn_rate, double redemptn, int32_t cpn_freq, int32_t yld_freq,
                                  int32_t n_after, double nxt_frac, double cpn_amt, double ai, int32_t validate,
                                  uint32_t* err_code);

/* The yield compounded yld_freq times a year at which bond_ppp_g1p gives price: the yield per coupon period
 * solved as aibd_y does (start, start -+ 1, three-point steps, 5e-7 on the price), then restated at
 * yld_freq. Validation as bond_ppp_g1p with 4002 for the price. Errors: 9020, 4090.
 * Returns the yield in percent; 0.0 on failure. */
ORVEL_EXPORT(double) bond_ppy_g1p(double price, double cpn_rate, double redemptn, int32_t cpn_freq, int32_t yld_freq,
                                  int32_t n_after, double nxt_frac, double cpn_amt, double ai, int32_t validate,
                                  uint32_t* err_code);

/* Clean price in the final period with simple interest on the actual last coupon:
 *   price = (cpn_amt + redemptn) / (1 + nxt_frac x yld / (100 cpn_freq)) - ai,
 * cpn_amt left out when ai < 0 (ex-dividend). Unlike bond_ptm_l1p, whose last coupon is cpn_rate / cpn_freq,
 * a short or long last (or only) coupon is priced as it is paid.
 * Validation, in order: 4001 yld, 4200 redemptn, 600/601 cpn_freq, 4400 nxt_frac negative, 4101 cpn_amt,
 * 4500 ai not finite. Errors: 4400 nxt_frac zero; 4090 when the discount base is not positive.
 * Returns the clean price per 100; 0.0 on failure. */
ORVEL_EXPORT(double) bond_ppp_l1p(double yld, double redemptn, int32_t cpn_freq, double nxt_frac, double cpn_amt,
                                  double ai, int32_t validate, uint32_t* err_code);

/* The inverse of bond_ppp_l1p in closed form: yield = (cpn_amt + redemptn - (price + ai)) / (price + ai)
 * x 100 cpn_freq / nxt_frac. Validation as bond_ppp_l1p with 4002 for the price. Errors: 4400 nxt_frac
 * zero; 4002 when price + ai is zero. Returns the yield in percent; 0.0 on failure. */
ORVEL_EXPORT(double) bond_ppy_l1p(double price, double redemptn, int32_t cpn_freq, double nxt_frac, double cpn_amt,
                                  double ai, int32_t validate, uint32_t* err_code);

/* The yield compounded to_freq times a year that is worth the same as yld compounded from_freq times:
 *   100 to_freq ((1 + yld / (100 from_freq))^(from_freq / to_freq) - 1); 6 semi-annual is 6.09 annual.
 * Validation, in order: 4001 yld, 600/601 from_freq, 15800/15801 to_freq. Errors: 4090 when
 * 1 + yld / (100 from_freq) is not positive. Returns the yield in percent; 0.0 on failure. */
ORVEL_EXPORT(double) bond_yld_equ(double yld, int32_t from_freq, int32_t to_freq, int32_t validate,
                                  uint32_t* err_code);

/* Price or yield, both excluding accrued interest, on the compound kernels in one call: calc_type 1 gives
 * aibd_p(given), 2 aibd_y(given), written to *result. The markets that compound to maturity (Dutch state
 * loans) call it with their reduced schedule.
 * Validation, in order: 200 calc_type not 1 or 2; then the checks of aibd_p (4001 or 4002 for given).
 * Errors: 200 calc_type (also without validation); 4090, 4001, 9020 as the kernels. On failure *result is
 * left as it was. */
ORVEL_EXPORT(void) aibd_py_exai(int32_t calc_type, double given, double cpn_rate, double redemptn, int32_t cpn_freq,
                                int32_t n_after, double nxt_frac, double cpn_amt, double ai, double* result,
                                int32_t validate, uint32_t* err_code);

#endif /* ORVEL_BOND_H */
