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
