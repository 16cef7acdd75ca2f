/*
 * ORVEL discount securities: bills and other discount paper, their prices, discount rates, money-market and bond-equivalent yields.
 *
 * A bill is bought below face and redeemed at redemptn (per 100) with no coupon. It is quoted four ways
 * besides its price: the discount rate disc (on face), the money-market yield yld (simple interest on
 * price), the compound-equivalent yield cey and the bond-equivalent yield bey, all in percent a year.
 *
 * Terms: D days from settlement to maturity under day_type and B days in the day_type year at settlement
 * (360 or 365; actual/actual 365 or 366); for the compound quotes the term in half-years of the actual
 * year A (365 or 366, chosen by act_yr_type as days_act_yr does): q = D / (A / 2), full_per = q truncated,
 * days_pcnt = q - full_per. A term of less than half the actual year (full_per 0) is simple interest
 * throughout.
 *
 * Tax: a tax_rate of at most 1 is a fraction, above 1 a percentage (1 is a 100% tax, 1.5 is 1.5%); tau
 * below is the fraction. 0 gives the pre-tax quotes.
 *
 * Errors beyond the validators': 4090 a compounding base 1 + y/200 (or a stub factor) zero or negative;
 * 15101 a result that is not a finite number (a 100% tax on a discount rate, a zero price or a term of no
 * days without validation); 9020 the yield solve failed.
 */
#ifndef ORVEL_MONEY_H
#define ORVEL_MONEY_H

#include "orvel/frame.h"

/* ---- Price and each quote on days and a year basis ----------------------------------------------------
 * D = days (settlement to maturity), B = yr_days, R = redemptn:
 *   disc_d_2_p  price = R (1 - (disc / 100 / (1 - tau)) D / B)
 *   disc_p_2_d  disc  = (R - price) (1 - tau) / R x B / D x 100
 *   disc_p_2_y  yld   = (R - price) (1 - tau) / price x B / D x 100
 *   disc_y_2_p  price = R / ((yld / 100 / (1 - tau)) D / B + 1)
 * Validation (validate != 0), in order: the given value (ok_given: a discount rate above 0 and at most 25:
 * 4003; a price above 0 and at most 10000: 4002; a yield non-zero: 4001); 4200 redemptn; 4801 days below
 * 1; 4700 yr_days not 360..366; 4300 tax_rate not 0..100. Always: 15101 a result not finite (disc_d_2_p
 * with a 100% tax). Returns the quote; 0.0 on failure. */
ORVEL_EXPORT(double) disc_d_2_p(double disc, double redemptn, int32_t days, int32_t yr_days, double tax_rate,
                                int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) disc_p_2_d(double price, double redemptn, int32_t days, int32_t yr_days, double tax_rate,
                                int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) disc_p_2_y(double price, double redemptn, int32_t days, int32_t yr_days, double tax_rate,
                                int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) disc_y_2_p(double yld, double redemptn, int32_t days, int32_t yr_days, double tax_rate,
                                int32_t validate, uint32_t* err_code);

/* ---- Price and each quote on half-years ----------------------------------------------------------------
 * n = full_per whole half-years and f = days_pcnt of one, R = redemptn:
 *   disc_bey_2_p  price = (1 - tau) R / (1 + bey / 200)^(n + f)
 *   disc_p_2_bey  bey   = (((1 - tau) R / price)^(1 / (n + f)) - 1) x 200
 *   disc_cey_2_p  with y = cey / 100, a = 1 + f y / 2, b = 1 + y / 2:
 *                 price = (1 / b^n - tau) x (1 - tau) R / a: the tax enters twice; untaxed this is
 *                 R / ((1 + f y / 2)(1 + y / 2)^n), a simple-interest stub and n compounded half-years.
 *   disc_p_2_cey  the cey at which disc_cey_2_p gives price, to 5e-7 per 100 of price, by the library's
 *                 three-point solver from y0 = (((100 - price)(1 - tau) / price + 1)^(1 / (n + f)) - 1) x 200
 *                 (100, not R: a start only; exactly 1.0 starts at 1.1, exactly 0 is the answer), then
 *                 y0 - 1 and y0 + 1; the first candidate within the tolerance is returned (at most 7
 *                 price evaluations over terms to two years).
 * Validation (validate != 0), in order: the given value (a bey or cey above 0: 4005, 4004; a price: 4002);
 * 4200 redemptn; 4400 days_pcnt negative; 4600 full_per below 1; 4300 tax_rate.
 * Always: 4090 when 1 + bey / 200, b or a is zero or negative; 9020 when the solve fails (a degenerate
 * step, a value not finite, 1,000 steps); 15101 a result not finite. Returns the quote; 0.0 on failure. */
ORVEL_EXPORT(double) disc_bey_2_p(double bey, double redemptn, double days_pcnt, int32_t full_per, double tax_rate,
                                  int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) disc_p_2_bey(double price, double redemptn, double days_pcnt, int32_t full_per, double tax_rate,
                                  int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) disc_cey_2_p(double cey, double redemptn, double days_pcnt, int32_t full_per, double tax_rate,
                                  int32_t validate, uint32_t* err_code);
ORVEL_EXPORT(double) disc_p_2_cey(double price, double redemptn, double days_pcnt, int32_t full_per, double tax_rate,
                                  int32_t validate, uint32_t* err_code);

/* ---- Money amounts of a position, the value of a basis point ------------------------------------------ */

/* A position of face_k thousand face bought at price: *cost = price x face_k x 10 and *face_amt =
 * face_k x 1000, each rounded to cents (d_trunc_rnd, 2 places, half away from zero); *dollar_disc =
 * *face_amt - *cost. Returns the face amount (the value written to *face_amt). Cannot fail; NaN comes back
 * as NaN. */
ORVEL_EXPORT(double) disc_ext(double price, double face_k, double* cost, double* dollar_disc, double* face_amt);

/* Money value of one basis point of discount on 1,000,000 face held from settlement to maturity:
 * D x 0.277777777778 (the stored decimal of 100 / 360), D the days under day_type.
 * Validation (validate != 0): 500/501 day_type; the dates (1100, 1200, 1300, 1500 + 1 maturity, + 7
 * settlement; 2171 settlement not before maturity). Returns the amount; 0.0 on failure. */
ORVEL_EXPORT(double) disc_dol_equ(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                  int32_t mat_y, int32_t day_type, int32_t validate, uint32_t* err_code);

/* ---- Every quote of a bill given by its dates -------------------------------------------------------- */

/* All five quantities from any one: value is (calc_type) 1 the money-market yield, 2 the price, 3 the
 * discount rate, 4 the compound-equivalent yield, 5 the bond-equivalent yield; it is copied unchanged to
 * its own output. The term: A = the actual year of act_yr_type (1..10 as days_act_yr, from settlement to
 * maturity with no dated date), D, B, full_per and days_pcnt as above. The tax is tax_rate, or lt_tax_rate
 * when D > B (a term longer than the year basis). The price comes from the given quote (4 and 5: their
 * kernels when full_per > 0, else the simple yield B x value / A through disc_y_2_p); then yld and disc from
 * the price (disc_p_2_y, disc_p_2_d); cey and bey are yld x A / B when full_per is 0, else disc_p_2_cey and
 * disc_p_2_bey.
 * Validation (validate != 0): ok_disc_in (500/501 day_type, 200 calc_type, 4001..4005 value, the dates +1,
 * +7, 2171, 4200 redemptn, 4301 tax_rate, 4302 lt_tax_rate); 1502 act_yr_type 2 or 6 (they measure from a
 * dated date). Always: 500/501 a day_type without a year basis; 15100 act_yr_type gives no year of 365 or
 * 366 days; then with calc_type outside 1..5 the call returns with nothing written and no error; the
 * kernels' 4090, 9020, 15101. On failure no output is written. */
ORVEL_EXPORT(void) disc_pydbey(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                               int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type, int32_t act_yr_type,
                               double redemptn, double tax_rate, double lt_tax_rate, double* yld, double* price,
                               double* disc, double* cey, double* bey, int32_t validate, uint32_t* err_code);

/* Price, money-market yield and discount rate from any one of them (calc_type 1 yield, 2 price, 3 discount
 * rate), after tax: disc_pydbey's simple part on D and B, the tax tax_rate or, for D > B, lt_tax_rate.
 * Validation (validate != 0): 500/501 day_type, 200 calc_type not 1..3, then ok_disc_in as disc_pydbey.
 * Always: 200 calc_type not 1..3; 500/501 day_type without a year basis; 15101 a quote not finite. On failure
 * no output is written. */
ORVEL_EXPORT(void) disc_pyd_tax(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                                int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type,
                                double redemptn, double tax_rate, double lt_tax_rate, double* yld, double* price,
                                double* disc, int32_t validate, uint32_t* err_code);

/* disc_pyd_tax before tax (both rates 0). */
ORVEL_EXPORT(void) disc_pyd(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                            int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type, double redemptn,
                            double* yld, double* price, double* disc, int32_t validate, uint32_t* err_code);

/* Coupon-equivalent yield (the US Treasury's investment rate): the yield a coupon security paying half-yearly
 * would need to match the bill. With x = actual days / A (A the actual year of act_yr_type) and g =
 * redemptn / price (the price from value as disc_pyd finds it): up to half a year (x <= 1/2) simple
 * interest, r = (g - 1) / x; beyond, a coupon at the half-year reinvested: (1 + r (x - 1/2))(1 + r/2) = g,
 * r = (-x + sqrt(x^2 - (2x - 1)(1 - g))) / (x - 1/2). Returns 100 r (percent).
 * Validation (validate != 0): as disc_pyd, then 1502 for act_yr_type 2 or 6. Always: as disc_pyd; 15100
 * act_yr_type without a year; 15101 no real root. Returns 0.0 on failure. */
ORVEL_EXPORT(double) disc_equ_cpn(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                                  int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type,
                                  int32_t act_yr_type, double redemptn, int32_t validate, uint32_t* err_code);

/* ---- Risk, return and cash flow ---------------------------------------------------------------------- */

/* Risk of a bill against its money-market yield: one flow R at t = D / B years, P = R / (1 + y t) with y
 * = yld / 100. *mac_dur = t; *mod_dur = t / (1 + y t); *convexity = 2 t^2 / (1 + y t)^2; *pvbp = (P(yld -
 * 0.01) - P(yld + 0.01)) / 2, per 100. The four measures are rounded for the market of sec_type
 * (rslt_fix_plc, a risk measure); *price and *yld are not. value and calc_type as disc_pyd (1..3).
 * Validation (validate != 0): 300 sec_type unknown to rslt_fix_plc; then as disc_pyd. Always: as disc_pyd;
 * 4090 when 1 + y t is zero or negative. On failure no output is written. */
ORVEL_EXPORT(void) disc_risk(int32_t sec_type, double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                             int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type,
                             double redemptn, double* price, double* yld, double* mac_dur, double* mod_dur,
                             double* convexity, double* pvbp, int32_t validate, uint32_t* err_code);

/* Risk of a bill against its bond-equivalent yield, the term split as disc_pydbey (value and calc_type
 * 1..5 as there, before tax). full_per 0: as disc_risk with t = D / A and bey. Otherwise over T = full_per
 * + days_pcnt half-years, P = R v^-T, v = 1 + bey / 200: *mac_dur = T / 2; *mod_dur = T / (2 v);
 * *convexity = T (T + 1) / (4 v^2); *pvbp = (P(bey - 0.01) - P(bey + 0.01)) / 2. Rounded as disc_risk.
 * Validation (validate != 0): 300 sec_type; then ok_disc_in as disc_pydbey (200 for calc_type not 1..5);
 * 1502 act_yr_type 2 or 6. Always: 200 calc_type; 15100; 4090 for a base zero or negative; 9020; 15101. */
ORVEL_EXPORT(void) disc_riskbey(int32_t sec_type, double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                                int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type,
                                int32_t act_yr_type, double redemptn, double* price, double* bey, double* mac_dur,
                                double* mod_dur, double* convexity, double* pvbp, int32_t validate,
                                uint32_t* err_code);

/* Rate of return of a bill bought on `buy` and sold on `sale`, both quoted alike (calc_type 1 money-market
 * yield, 2 price, 3 discount rate), each on its own days to maturity: with P1 and P2 the two prices (P2 =
 * redemptn when sold at maturity, sell_value then unread) and H the days from buy to sale under day_type,
 * ror = (P2 - P1) / P1 x B / H x 100, B the day_type year at the purchase: a simple money-market yield.
 * Validation (validate != 0): as disc_pyd for buy_value with the purchase as settlement (the purchase
 * date's errors + 7, 2171 purchase not before maturity); 15102 sale date invalid or blank; 15103 purchase
 * not before the sale; 15104 sale after maturity; ok_given on sell_value (4001..4003).
 * Always: 200 calc_type not 1..3; 500/501 day_type without a basis; 15101 no finite return (a purchase on
 * the sale date, say). Returns the rate in percent a year; 0.0 on failure. */
ORVEL_EXPORT(double) disc_ror(double buy_value, double sell_value, int32_t calc_type, int32_t buy_m, int32_t buy_d,
                              int32_t buy_y, int32_t sale_m, int32_t sale_d, int32_t sale_y, int32_t mat_m,
                              int32_t mat_d, int32_t mat_y, int32_t day_type, double redemptn, int32_t validate,
                              uint32_t* err_code);

/* The one cash flow of a bill after settlement: the redemption at maturity, for a position of face_k
 * thousand: *cf = maturity, *amount = redemptn x face_k x 10. Returns the number of flows: 1, or 0 with
 * nothing written when settlement is not before maturity (possible only without validation).
 * Validation (validate != 0): 500/501 day_type; the dates (+1, +7, 2171); 4200 redemptn; 14100 face_k
 * negative or not finite. Returns 0 on failure. */
ORVEL_EXPORT(int32_t) disc_cfs(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                               int32_t mat_y, int32_t day_type, double redemptn, double face_k, int32_t* cf_m,
                               int32_t* cf_d, int32_t* cf_y, double* amount, int32_t validate, uint32_t* err_code);

/* ---- Japanese treasury bills -------------------------------------------------------------------------
 * The Japanese market quotes its bills by a simple yield on price over actual days and a 365-day year, leap
 * years included: yld = (R - price) / price x 365 / D x 100, price = R / (1 + yld D / 36500), D the actual
 * days from settlement to maturity (day_type 8). Results are not rounded. */

/* Price from yield (calc_type 1) or yield from price (2); both outputs written, the given one unchanged.
 * Validation (validate != 0): 200 calc_type not 1 or 2, then ok_disc_in as disc_pyd. Always: 200, 15101. */
ORVEL_EXPORT(void) jptb_pyd(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                            int32_t mat_m, int32_t mat_d, int32_t mat_y, double redemptn, double* yld, double* price,
                            int32_t validate, uint32_t* err_code);

/* disc_risk on the Japanese yield (t = D / 365), calc_type 1 or 2; the measures are not rounded. */
ORVEL_EXPORT(void) jptb_risk(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                             int32_t mat_m, int32_t mat_d, int32_t mat_y, double redemptn, double* price, double* yld,
                             double* mac_dur, double* mod_dur, double* convexity, double* pvbp, int32_t validate,
                             uint32_t* err_code);

/* ---- US Treasury bills (market 12) -------------------------------------------------------------------
 * day_type first; -1 takes the market's actual/360 (get_sec_dflt, market 12), any other value overrides it.
 * The actual year is the year from settlement (act_yr_type 1: 366 days when it holds a 29 February), and
 * bills are quoted before tax. */

/* disc_pydbey with the US conventions and no tax. */
ORVEL_EXPORT(void) usbl_pydbey(int32_t day_type, double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                               int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, double redemptn,
                               double* yld, double* price, double* disc, double* cey, double* bey, int32_t validate,
                               uint32_t* err_code);

/* disc_riskbey with the US conventions: the bond-equivalent yield is what bills are set against coupon
 * Treasuries by; measures rounded as US Treasuries (sec_type 10, 6 places). */
ORVEL_EXPORT(void) usbl_risk(int32_t day_type, double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                             int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, double redemptn,
                             double* price, double* bey, double* mac_dur, double* mod_dur, double* convexity,
                             double* pvbp, int32_t validate, uint32_t* err_code);

/* disc_cfs with the US conventions. */
ORVEL_EXPORT(int32_t) usbl_cfs(int32_t day_type, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                               int32_t mat_d, int32_t mat_y, double redemptn, double face_k, int32_t* cf_m,
                               int32_t* cf_d, int32_t* cf_y, double* amount, int32_t validate, uint32_t* err_code);

#endif /* ORVEL_MONEY_H */
