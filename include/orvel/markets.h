/*
 * ORVEL market bond families and ex-dividend rules: each national market's conventions on the fixed-coupon engine.
 */
#ifndef ORVEL_MARKETS_H
#define ORVEL_MARKETS_H

#include "orvel/frame.h"

/* ---- Market families ---------------------------------------------------------------------------------
 * A family is one market: its members take the market's conventions from get_sec_dflt's table (its code
 * below) for every convention argument left at -1 (day_type, eom, cpn_freq, l1p_rule and the option slots
 * the market names); any other value overrides the default, 0 included. They validate once when validate
 * is non-zero and hand everything to the fixed-coupon engine. Members of one kind share one argument list,
 * declared once below (ORVEL_MKT_*); the option slots opt1 .. opt3 carry a market's own options where its
 * family says so and are reserved (not read) elsewhere. Dates are month, day, four-digit year; a blank
 * dated or first coupon date (0/0/0) runs the schedule regularly back from maturity; exdiv_dt is read only
 * with ex_type 1. Amounts per 100 of face unless a member is for a holding of face_k thousand.
 * Every member returns 0 (or nothing) on failure with err_code written and its outputs unwritten.
 */

/* _ai: accrued interest per 100 at settlement under the market's accrual rule, and the three numbers the
 * kernels price on (*nxt_frac, *cpn_amt, *n_after, as bond_ai). The conventions stand after the dates and the
 * coupon rate; rsv_dt and the option slots a market does not name are reserved (not read).
 * ex_type 0: no ex-dividend treatment; 1: negative accrued interest when the ex-dividend date exdiv_dt is on
 * or before settlement and settlement is before the coupon date that ends exdiv_dt's period.
 * Validation (validate != 0), in order: the conventions, coupon rate and dates as ok_bond_in checks them
 * (500/501, 600/601, 4100, date errors + role, 2171 ...); 960 ex_type not 0 or 1; when ex_type is 1,
 * ok_exdiv_MDY (+9, 1609, 2191); then the market's options. Returns 0.0 on failure, outputs unwritten. */
#define ORVEL_MKT_AI_PARAMS \
        int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, \
        int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, \
        int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, \
        int32_t rsv_dt_m, int32_t rsv_dt_d, int32_t rsv_dt_y, double cpn_rate, int32_t day_type, \
        int32_t eom, int32_t cpn_freq, int32_t opt1, int32_t opt2, int32_t opt3, double* nxt_frac, \
        double* cpn_amt, int32_t* n_after, int32_t validate, uint32_t* err_code
#define ORVEL_MKT_AI(name) ORVEL_EXPORT(double) name(ORVEL_MKT_AI_PARAMS)

/* _py_ai: calc_type 1 prices the yield value, 2 yields the clean price value (per 100), into *result; the
 * accrued interest of _ai goes to *ai. The kernel is the market's (below); l1p_rule 2 prices the final
 * coupon period with simple interest, 1 compounds throughout (-1: the market default).
 * Validation: ok_bond_in on the conventions, calc_type (200), value (4001 yield, 4002 price), coupon rate,
 * dates and redemptn (4200); then ex_type and options as _ai. Without validation a calc_type other than
 * 1 or 2 writes *ai and then fails with 200. Errors of the kernels: 4090, 4400, 9020. */
#define ORVEL_MKT_PY_AI_PARAMS \
        int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double value, double cpn_rate, \
        int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, \
        int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, \
        int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, \
        double redemptn, int32_t l1p_rule, int32_t opt1, int32_t opt2, double* result, double* ai, \
        int32_t validate, uint32_t* err_code
#define ORVEL_MKT_PY_AI(name) ORVEL_EXPORT(void) name(ORVEL_MKT_PY_AI_PARAMS)

/* _1di: the interest one day earns for a holding of face_k thousand: A1 - A0, the market's accrued interest
 * at settlement less that of the day before, times face_k x 10. When the two straddle a coupon date or the
 * ex-dividend date (A1 < A0), the coupon of the day before is added back (A1 - A0 + cpn_amt): across a
 * coupon date that is the coupon less A0, never a negative amount. 0 when settlement is the dated date.
 * Validation: as _ai, then 14100 face_k negative or not finite. */
#define ORVEL_MKT_1DI_PARAMS \
        int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m, \
        int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y, \
        int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, \
        int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double face_k, \
        int32_t opt1, int32_t opt2, int32_t validate, uint32_t* err_code
#define ORVEL_MKT_1DI(name) ORVEL_EXPORT(double) name(ORVEL_MKT_1DI_PARAMS)

/* _fpi (the next coupon payment) and _pip (the coupon of the period that settlement falls in, or ends),
 * for a holding of face_k thousand: cpn_amt x face_k x 10, with *pay the coupon date it is due on.
 * _fpi returns 0 when the bond trades ex-dividend (the seller receives that coupon). _pip at maturity looks
 * at the last period; on a coupon date it reports the coupon paid that day (as bond_pip).
 * Validation: as _ai, then 14100 face_k. */
#define ORVEL_MKT_FPI_PARAMS \
        int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m, \
        int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y, \
        int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, \
        int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double face_k, \
        int32_t opt1, int32_t opt2, int32_t opt3, int32_t* pay_m, int32_t* pay_d, int32_t* pay_y, \
        int32_t validate, uint32_t* err_code
#define ORVEL_MKT_FPI(name) ORVEL_EXPORT(double) name(ORVEL_MKT_FPI_PARAMS)

/* _cfs: the remaining flows of a holding of face_k thousand (per 100 x face_k x 10): for each coupon date
 * k < *count its date (cf_m, cf_d, cf_y), interest int_amts[k], principal prin_amts[k] (redemptn at maturity)
 * and times[k] in coupon periods from settlement. Ex-dividend, the next coupon is the seller's: its
 * interest is 0. *ai is the accrued interest of the holding (negative ex-dividend). Returns the count.
 * Validation: as _ai, then 4200 redemptn, 14100 face_k (negative: with or without ex_type). Errors: 13000
 * capacity below the count (the count needed written to *count, arrays untouched), 4600. rsv is reserved. */
#define ORVEL_MKT_CFS_PARAMS \
        int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m, \
        int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y, \
        int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, \
        int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double redemptn, \
        double face_k, int32_t opt1, int32_t opt2, int32_t opt3, int32_t rsv, int32_t capacity, \
        int32_t* cf_m, int32_t* cf_d, int32_t* cf_y, double* int_amts, double* prin_amts, double* times, \
        int32_t* count, double* ai, int32_t validate, uint32_t* err_code
#define ORVEL_MKT_CFS(name) ORVEL_EXPORT(int32_t) name(ORVEL_MKT_CFS_PARAMS)

/* _risk: price and yield as _py_ai (*price, *yld, *ai), and at that yield: Macaulay and modified duration
 * in years and convexity of the flows the buyer receives (compounded per period at the yield restated at
 * the coupon frequency, weighted by their present value), *cur_yld = cpn_rate / price x 100, *pvbp the
 * price change for 0.01 of yield (half the difference of the prices 1 bp either side, by the market's own
 * kernel), *tot_int, *cpn_int, *ioi income to maturity with reinvestment at the yield (as bond_int_ioi),
 * the coupon dates around settlement, days accrued, in the period and remaining under day_type, and the
 * schedule numbers. Validation as _py_ai; errors as _py_ai. */
#define ORVEL_MKT_RISK_PARAMS \
        int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double value, double cpn_rate, \
        int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, \
        int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, \
        int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, \
        double redemptn, int32_t l1p_rule, int32_t opt1, int32_t opt2, int32_t opt3, double* price, \
        double* yld, double* ai, double* mac_dur, double* mod_dur, double* convexity, double* cur_yld, \
        double* pvbp, double* tot_int, double* cpn_int, double* ioi, int32_t* prev_cpn_m, \
        int32_t* prev_cpn_d, int32_t* prev_cpn_y, int32_t* next_cpn_m, int32_t* next_cpn_d, \
        int32_t* next_cpn_y, int32_t* da, int32_t* dp, int32_t* dr, double* nxt_frac, double* cpn_amt, \
        int32_t* n_after, int32_t validate, uint32_t* err_code
#define ORVEL_MKT_RISK(name) ORVEL_EXPORT(void) name(ORVEL_MKT_RISK_PARAMS)

/* _i_earn: interest a holding of face_k thousand earns from `from` to `to` (from <= to < maturity): the
 * accrued interest at `to` less that at `from`, plus the coupons paid on coupon dates after `from` and on or
 * before `to`, times face_k x 10. Interest is earned whoever receives the coupon, so the ex-dividend rule
 * does not enter (exdiv_dt and ex_type are validated as in _ai). Outputs: *ai_from, *ai_to (per 100),
 * *cpn_paid (the coupons, money), *one_day (_1di at `to`), *cpn_amt (the coupon of `to`'s period, per 100),
 * *n_cpns, *days_act (actual days) and *days_basis (days under day_type) from `from` to `to`, the coupon
 * dates around `from` and `to`; and per coupon period met, k < *count: the date it ends in the window
 * (cf_m, cf_d, cf_y: its coupon date, or `to`), the interest earned in it, the coupon paid at its end and
 * its days held. Conventions at arguments 25 to 27; rsv_dt reserved.
 * Validation: as _ai at `from` and at `to`, then 15803 `to` before `from`, 14100 face_k. Errors: 13000 capacity
 * below the number of periods (needed in *count). */
#define ORVEL_MKT_I_EARN_PARAMS \
        int32_t from_m, int32_t from_d, int32_t from_y, int32_t to_m, int32_t to_d, int32_t to_y, \
        int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, \
        int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, \
        int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, int32_t rsv_dt_m, int32_t rsv_dt_d, \
        int32_t rsv_dt_y, double cpn_rate, double face_k, int32_t day_type, int32_t eom, int32_t cpn_freq, \
        int32_t opt1, int32_t opt2, int32_t opt3, double* ai_from, double* ai_to, double* cpn_paid, \
        double* one_day, double* cpn_amt, int32_t* n_cpns, int32_t* days_act, int32_t* days_basis, \
        int32_t* from_pcd_m, int32_t* from_pcd_d, int32_t* from_pcd_y, int32_t* from_ncd_m, \
        int32_t* from_ncd_d, int32_t* from_ncd_y, int32_t* to_pcd_m, int32_t* to_pcd_d, int32_t* to_pcd_y, \
        int32_t* to_ncd_m, int32_t* to_ncd_d, int32_t* to_ncd_y, int32_t capacity, int32_t* cf_m, \
        int32_t* cf_d, int32_t* cf_y, double* earned, double* paid, int32_t* days, int32_t* count, \
        int32_t validate, uint32_t* err_code
#define ORVEL_MKT_I_EARN(name) ORVEL_EXPORT(double) name(ORVEL_MKT_I_EARN_PARAMS)

/* The members of a family that opens every member with an argument of its own (ustb: the engine's method
 * code) have the shapes above after that argument, with the conventions at arguments 2 to 4 in every member:
 * _ai and _i_earn bring theirs forward, the rest of their arguments in the model order. */
#define ORVEL_MKT_UST_AI_PARAMS \
        int32_t method, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d, \
        int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y, int32_t ex_type, \
        int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, \
        int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, int32_t rsv_dt_m, int32_t rsv_dt_d, \
        int32_t rsv_dt_y, double cpn_rate, int32_t opt1, int32_t opt2, int32_t opt3, double* nxt_frac, \
        double* cpn_amt, int32_t* n_after, int32_t validate, uint32_t* err_code
#define ORVEL_MKT_UST_AI(name) ORVEL_EXPORT(double) name(ORVEL_MKT_UST_AI_PARAMS)
#define ORVEL_MKT_UST_PY_AI(name) ORVEL_EXPORT(void) name(int32_t method, ORVEL_MKT_PY_AI_PARAMS)
#define ORVEL_MKT_UST_1DI(name) ORVEL_EXPORT(double) name(int32_t method, ORVEL_MKT_1DI_PARAMS)
#define ORVEL_MKT_UST_FPI(name) ORVEL_EXPORT(double) name(int32_t method, ORVEL_MKT_FPI_PARAMS)
#define ORVEL_MKT_UST_CFS(name) ORVEL_EXPORT(int32_t) name(int32_t method, ORVEL_MKT_CFS_PARAMS)
#define ORVEL_MKT_UST_RISK(name) ORVEL_EXPORT(void) name(int32_t method, ORVEL_MKT_RISK_PARAMS)
#define ORVEL_MKT_UST_I_EARN_PARAMS \
        int32_t method, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t from_m, int32_t from_d, \
        int32_t from_y, int32_t to_m, int32_t to_d, int32_t to_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, \
        int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, \
        int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, \
        int32_t rsv_dt_m, int32_t rsv_dt_d, int32_t rsv_dt_y, double cpn_rate, double face_k, int32_t opt1, \
        int32_t opt2, int32_t opt3, double* ai_from, double* ai_to, double* cpn_paid, double* one_day, \
        double* cpn_amt, int32_t* n_cpns, int32_t* days_act, int32_t* days_basis, int32_t* from_pcd_m, \
        int32_t* from_pcd_d, int32_t* from_pcd_y, int32_t* from_ncd_m, int32_t* from_ncd_d, int32_t* from_ncd_y, \
        int32_t* to_pcd_m, int32_t* to_pcd_d, int32_t* to_pcd_y, int32_t* to_ncd_m, int32_t* to_ncd_d, \
        int32_t* to_ncd_y, int32_t capacity, int32_t* cf_m, int32_t* cf_d, int32_t* cf_y, double* earned, \
        double* paid, int32_t* days, int32_t* count, int32_t validate, uint32_t* err_code
#define ORVEL_MKT_UST_I_EARN(name) ORVEL_EXPORT(double) name(ORVEL_MKT_UST_I_EARN_PARAMS)

/* _ifs_pfs: the interest and principal flows of a holding of face_k thousand (0 taken as 1), one entry a
 * remaining coupon date k < *count: cf_m, cf_d, cf_y, int_flows[k], prin_flows[k] (the face at maturity).
 * The method code as bond_ifs_pfs reads it (3, 6, 8: the regular schedule). Returns the count.
 * Validation: the method (300, also without validation), then the bond as _ai and 14100 face_k. Errors:
 * 13000 capacity below the count (needed in *count), 4600. */
#define ORVEL_MKT_UST_IFS_PFS_PARAMS \
        int32_t method, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m, \
        int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, \
        int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, \
        double face_k, int32_t capacity, int32_t* cf_m, int32_t* cf_d, int32_t* cf_y, double* int_flows, \
        double* prin_flows, int32_t* count, int32_t validate, uint32_t* err_code
#define ORVEL_MKT_UST_IFS_PFS(name) ORVEL_EXPORT(int32_t) name(ORVEL_MKT_UST_IFS_PFS_PARAMS)

/* augb: Austrian government bonds, market code 110 (30E/360, annual, end of month; simple interest in the
 * final period, l1p_rule 2). Accrual bond_ex_ai (ex-dividend by ex_type), prices on aibd_p / aibd_y and
 * bond_ptm_l1p / bond_ytm_l1p. No market options. */
ORVEL_MKT_AI(augb_ai);
ORVEL_MKT_PY_AI(augb_py_ai);
ORVEL_MKT_1DI(augb_1di);
ORVEL_MKT_FPI(augb_fpi);
ORVEL_MKT_FPI(augb_pip);
ORVEL_MKT_CFS(augb_cfs);
ORVEL_MKT_RISK(augb_risk);
ORVEL_MKT_I_EARN(augb_i_earn);

/* ukgb: UK gilts. _ai, _py_ai and _risk take code 410 (actual/actual, semi-annual, no end-of-month rule,
 * l1p_rule 1: compound to maturity, as the Debt Management Office's price/yield formula does); _1di, _fpi,
 * _pip, _cfs, _cf_py and _cfsrisk take 411 (l1p_rule 2). Accrual bond_pp_ai: a coupon falling on a weekend is paid the next
 * business day but accrual runs between the scheduled dates; inside the ex-dividend period (seven business
 * days before the coupon) the buyer is owed -cpn_amt x days to the coupon / days in the period. Prices on
 * bond_ppp_g1p / bond_ppy_g1p at the semi-annual yield (the next coupon as it is paid, none ex-dividend), and
 * bond_ppp_l1p / bond_ppy_l1p in the final period under l1p_rule 2. No market options. */
ORVEL_MKT_AI(ukgb_ai);
ORVEL_MKT_PY_AI(ukgb_py_ai);
ORVEL_MKT_RISK(ukgb_risk);
ORVEL_MKT_1DI(ukgb_1di);
ORVEL_MKT_FPI(ukgb_fpi);
ORVEL_MKT_FPI(ukgb_pip);
ORVEL_MKT_CFS(ukgb_cfs);

/* _cf_py and _cfsrisk (ukgb, spgb): the _py_ai and _risk shapes priced from the bond's own flows. The flows
 * are those _cfs lists, per 100: the next coupon at nxt_frac coupon periods (none when the bond trades
 * ex-dividend, the accrued interest then negative), each later coupon one period on, the redemption with
 * the last. The full price is the flow set discounted at the yield restated at the coupon frequency,
 * sum amts[k] (1 + y / (100 cpn_freq))^-times[k] (cfs_p over the set's times, which for gilts are the
 * actual/actual fractions of a period); *result (calc_type 1) is that less the accrued interest, and a
 * price (calc_type 2) is solved for by cfs_y's solve on the set (from 10, 9 and 11 percent, to 1e-10 of the
 * full price). Under l1p_rule 2, settlement in the final period prices on the simple-interest kernels of
 * the family's _py_ai. _cfsrisk's measures are those of _risk taken over the same set: Macaulay duration
 * sum t a v^-t / (f P), modified duration Macaulay / v, convexity sum (t^2 + t) a v^-t / (f^2 v^2 P),
 * t in coupon periods, and pvbp, current yield and income as _risk.
 * Where they meet _py_ai and _risk: on every bond outside the final period, and in it when both use the
 * same l1p_rule, they agree with them to the yield solve's tolerance. They differ in three places only:
 * ukgb's take code 411 (l1p_rule 2: simple interest in the final period by default, where ukgb_py_ai
 * compounds to the end); a yield of exactly 0, which validation refuses (4001), prices with validate 0 as
 * the plain sum of the flows, where ukgb_py_ai's kernel still fails with 4001; and the yield is the set's
 * solve, not the kernel's (yields a few 1e-13 apart).
 * Validation and errors as _py_ai and _risk, and 15810 when the bond has more than 1200 flows to run
 * (4600 for a schedule no calendar can date), checked before any output is written. */
ORVEL_MKT_PY_AI(ukgb_cf_py);
ORVEL_MKT_RISK(ukgb_cfsrisk);

/* ustb: US Treasury notes and bonds, market code 10 (actual/actual, semi-annual, end of month). Every member
 * opens with bond_py_ai's method code (1, 3..8; 300 otherwise, with or without validation): methods 3, 6 and
 * 8 price on the regular schedule, an odd first coupon ignored (the accrued interest reported stays the
 * bond's own), and method 6 takes a yield equal to the coupon as a price of exactly 100 and back. Accrual
 * bond_ex_ai (the US market has no ex-dividend period: pass ex_type 0); prices on aibd_p / aibd_y, with
 * bond_ptm_l1p / bond_ytm_l1p in the final period when l1p_rule is 2 (the market leaves it to the caller:
 * -1 compounds). Conventions at arguments 2 to 4. */
ORVEL_MKT_UST_AI(ustb_ai);
ORVEL_MKT_UST_PY_AI(ustb_py_ai);
ORVEL_MKT_UST_1DI(ustb_1di);
ORVEL_MKT_UST_FPI(ustb_fpi);
ORVEL_MKT_UST_FPI(ustb_pip);
ORVEL_MKT_UST_CFS(ustb_cfs);
ORVEL_MKT_UST_RISK(ustb_risk);
ORVEL_MKT_UST_I_EARN(ustb_i_earn);
ORVEL_MKT_UST_IFS_PFS(ustb_ifs_pfs);

/* frgb: French government bonds (OATs), market code 190 (actual/actual, annual, end of month; l1p_rule 1:
 * compound to maturity, the French yield being an annual actuarial rate to the last flow). Accrual
 * bond_ex_ai, prices on aibd_p / aibd_y. opt1 is mkt_opt8 (default 0): the decimals to which the accrued
 * interest per 100 is rounded half up before it is reported and priced on, 0 unrounded; 0..9, else 15802.
 * The _ad_ members state the accrued interest as the Paris market publishes the coupon couru, in percent of
 * the nominal to 3 decimals (mkt_opt8, when not 0, sets other decimals), and price on that amount. _sd_ai
 * counts the settlement day itself: one day's interest more than _ai (the rest of the coupon on the eve of a
 * coupon date); the schedule outputs stay those of settlement. */
ORVEL_MKT_AI(frgb_ai);
ORVEL_MKT_PY_AI(frgb_py_ai);
ORVEL_MKT_1DI(frgb_1di);
ORVEL_MKT_FPI(frgb_fpi);
ORVEL_MKT_FPI(frgb_pip);
ORVEL_MKT_CFS(frgb_cfs);
ORVEL_MKT_RISK(frgb_risk);
ORVEL_MKT_I_EARN(frgb_i_earn);
ORVEL_MKT_AI(frgb_ad_ai);
ORVEL_MKT_PY_AI(frgb_ad_py);
ORVEL_MKT_RISK(frgb_ad_risk);
ORVEL_MKT_AI(frgb_sd_ai);

/* itgb: Italian government bonds (BTPs), market code 250 (actual/actual, end of month; no default coupon
 * frequency: -1 left in cpn_freq is refused with 601, pass 2). opt1 is mkt_opt7 (default 5): the accrued
 * interest per 100 rounded half up to that many decimals, as Italian settlement states the rateo (0
 * unrounded; 0..9, else 15802). opt2 is mkt_opt8 (default 1): the yield's compounding frequency; Italian
 * yields are annual effective rates on semi-annual coupons, so 6 % semi-annual reads 6.09 (bond_yld_equ;
 * 1, 2, 4, 12, else 15800/15801). Accrual bond_ex_ai; prices on bond_ptm_g1p / bond_ytm_g1p, compound to
 * maturity (l1p_rule 2 asks the taxed final-period kernels).
 * Tax twins (_1di_tax, _cfs_tax, _fpi_tax, _ie_tax, _pip_tax, _py_tax, risktax): the 12.5 % withholding on
 * government bond interest: the taxed kernels with tax1 = 12.5 % (the net yield of the Italian press) and
 * every interest amount of a holding net of 12.5 %. 1997-rule twins (_ai_97t, _cfs_97t, _py_97t, risk97t):
 * since 1997 the 12.5 % substitute tax falls on accrued interest as it accrues and on the discount to
 * redemption: the accrued interest is reported net of 12.5 %, prices and yields tax both the coupons
 * (tax1) and the gain to redemption (tax2); a holding's flows, which know no purchase price, are those of
 * _cfs_tax. _p1_ai counts the settlement day itself: one day's interest more than _ai (the rest of the
 * coupon on the eve of a coupon date); the schedule outputs stay those of settlement. */
ORVEL_MKT_AI(itgb_ai);
ORVEL_MKT_PY_AI(itgb_py_ai);
ORVEL_MKT_1DI(itgb_1di);
ORVEL_MKT_FPI(itgb_fpi);
ORVEL_MKT_FPI(itgb_pip);
ORVEL_MKT_CFS(itgb_cfs);
ORVEL_MKT_RISK(itgb_risk);
ORVEL_MKT_I_EARN(itgb_i_earn);
ORVEL_MKT_1DI(itgb_1di_tax);
ORVEL_MKT_CFS(itgb_cfs_tax);
ORVEL_MKT_FPI(itgb_fpi_tax);
ORVEL_MKT_I_EARN(itgb_ie_tax);
ORVEL_MKT_FPI(itgb_pip_tax);
ORVEL_MKT_PY_AI(itgb_py_tax);
ORVEL_MKT_RISK(itgb_risktax);
ORVEL_MKT_AI(itgb_ai_97t);
ORVEL_MKT_CFS(itgb_cfs_97t);
ORVEL_MKT_PY_AI(itgb_py_97t);
ORVEL_MKT_RISK(itgb_risk97t);
ORVEL_MKT_AI(itgb_p1_ai);

/* acgb: Australian Commonwealth government bonds, market code 100 (actual/actual, semi-annual, end of month,
 * l1p_rule 2). opt1 is odd_day_type (default 12, actual/365): the day count of the accrual while settlement
 * lies before a first coupon that is out of step with the dated date (ok_cpn_sync fails), as the market
 * prices a new line's odd first period; 500/501 when not 1..13. Accrual bond_ex_ai (ex-interest seven days
 * before the coupon), prices on aibd_p / aibd_y and bond_ptm_l1p / bond_ytm_l1p. */
ORVEL_MKT_AI(acgb_ai);
ORVEL_MKT_PY_AI(acgb_py_ai);
ORVEL_MKT_1DI(acgb_1di);
ORVEL_MKT_FPI(acgb_fpi);
ORVEL_MKT_FPI(acgb_pip);
ORVEL_MKT_CFS(acgb_cfs);
ORVEL_MKT_RISK(acgb_risk);
ORVEL_MKT_I_EARN(acgb_i_earn);

/* argb: Argentine government bonds, market code 90 (30E/360, semi-annual, end of month, l1p_rule 2). Accrual
 * bond_ex_ai, prices on aibd_p / aibd_y and the simple final-period kernels. No market options. */
ORVEL_MKT_AI(argb_ai);
ORVEL_MKT_PY_AI(argb_py_ai);
ORVEL_MKT_1DI(argb_1di);
ORVEL_MKT_FPI(argb_fpi);
ORVEL_MKT_FPI(argb_pip);
ORVEL_MKT_CFS(argb_cfs);
ORVEL_MKT_RISK(argb_risk);
ORVEL_MKT_I_EARN(argb_i_earn);

/* blgb: Belgian government bonds (OLOs), market code 120 (30E/360, annual, end of month, l1p_rule 1). Prices
 * on the bond_ptm_g1p / bond_ytm_g1p pair (a zero yield has its closed form). opt1 is mkt_opt5 (default 5)
 * in _ai, _i_earn, _py_ai and _risk: the accrued interest per 100 rounded half up to that many decimals, as
 * Belgian settlement states it (0 unrounded; 0..9, else 15802); the other members accrue unrounded. */
ORVEL_MKT_AI(blgb_ai);
ORVEL_MKT_PY_AI(blgb_py_ai);
ORVEL_MKT_RISK(blgb_risk);
ORVEL_MKT_I_EARN(blgb_i_earn);
ORVEL_MKT_1DI(blgb_1di);
ORVEL_MKT_FPI(blgb_fpi);
ORVEL_MKT_FPI(blgb_pip);
ORVEL_MKT_CFS(blgb_cfs);

/* dngb: Danish government bonds, market code 160 (30E/360, annual, end of month). Accrual bond_ex_ai (the
 * market trades ex-coupon for a month before the coupon); compound yield to maturity (aibd_p / aibd_y; the
 * market sets no l1p_rule, and only 2 from the caller asks for simple interest). No market options. */
ORVEL_MKT_AI(dngb_ai);
ORVEL_MKT_PY_AI(dngb_py_ai);
ORVEL_MKT_1DI(dngb_1di);
ORVEL_MKT_FPI(dngb_fpi);
ORVEL_MKT_FPI(dngb_pip);
ORVEL_MKT_CFS(dngb_cfs);
ORVEL_MKT_RISK(dngb_risk);
ORVEL_MKT_I_EARN(dngb_i_earn);

/* dusl: Dutch state loans (DSLs), market code 290 (30E/360, annual, end of month). Accrual bond_ai (ex_type
 * 0: no ex-coupon period); price or yield by aibd_py_exai's compound kernels to maturity. No market options. */
ORVEL_MKT_AI(dusl_ai);
ORVEL_MKT_PY_AI(dusl_py_ai);
ORVEL_MKT_1DI(dusl_1di);
ORVEL_MKT_FPI(dusl_fpi);
ORVEL_MKT_FPI(dusl_pip);
ORVEL_MKT_CFS(dusl_cfs);
ORVEL_MKT_RISK(dusl_risk);
ORVEL_MKT_I_EARN(dusl_i_earn);

/* fngb: Finnish government bonds, market code 180 (30E/360, annual, end of month, l1p_rule 2). Accrual
 * bond_ai (or bond_ex_ai by ex_type), prices on aibd_p / aibd_y and the simple final-period kernels. */
ORVEL_MKT_AI(fngb_ai);
ORVEL_MKT_PY_AI(fngb_py_ai);
ORVEL_MKT_1DI(fngb_1di);
ORVEL_MKT_FPI(fngb_fpi);
ORVEL_MKT_FPI(fngb_pip);
ORVEL_MKT_CFS(fngb_cfs);
ORVEL_MKT_RISK(fngb_risk);
ORVEL_MKT_I_EARN(fngb_i_earn);

/* grgb: Greek government bonds, market code 200 (30E/360, annual, end of month). Accrual bond_ex_ai (ex-coupon
 * thirty days before the coupon); compound yield to maturity on aibd_p / aibd_y. No market options. */
ORVEL_MKT_AI(grgb_ai);
ORVEL_MKT_PY_AI(grgb_py_ai);
ORVEL_MKT_1DI(grgb_1di);
ORVEL_MKT_FPI(grgb_fpi);
ORVEL_MKT_FPI(grgb_pip);
ORVEL_MKT_CFS(grgb_cfs);
ORVEL_MKT_RISK(grgb_risk);
ORVEL_MKT_I_EARN(grgb_i_earn);

/* irgb: Irish government bonds, market code 230 (actual/365 variant 12, semi-annual, no end-of-month rule).
 * Coupons paid on the business day: accrual bond_pp_ai (ex-dividend as the coupon's share of the period
 * left); compound yield to maturity on aibd_p / aibd_y. No market options. */
ORVEL_MKT_AI(irgb_ai);
ORVEL_MKT_PY_AI(irgb_py_ai);
ORVEL_MKT_1DI(irgb_1di);
ORVEL_MKT_FPI(irgb_fpi);
ORVEL_MKT_FPI(irgb_pip);
ORVEL_MKT_CFS(irgb_cfs);
ORVEL_MKT_RISK(irgb_risk);
ORVEL_MKT_I_EARN(irgb_i_earn);

/* nzgb: New Zealand government bonds, market code 310 (actual/actual, semi-annual, end of month, l1p_rule 2).
 * Accrual bond_ex_ai (ex-interest nine days before the coupon), prices on aibd_p / aibd_y and the simple
 * final-period kernels. No market options. */
ORVEL_MKT_AI(nzgb_ai);
ORVEL_MKT_PY_AI(nzgb_py_ai);
ORVEL_MKT_1DI(nzgb_1di);
ORVEL_MKT_FPI(nzgb_fpi);
ORVEL_MKT_FPI(nzgb_pip);
ORVEL_MKT_CFS(nzgb_cfs);
ORVEL_MKT_RISK(nzgb_risk);
ORVEL_MKT_I_EARN(nzgb_i_earn);

/* sdgb: Swedish government bonds, market code 370 (30E/360, annual, end of month, l1p_rule 2). Accrual
 * bond_ex_ai (ex-coupon days before the coupon), prices on aibd_p / aibd_y and the simple final-period
 * kernels. No market options. */
ORVEL_MKT_AI(sdgb_ai);
ORVEL_MKT_PY_AI(sdgb_py_ai);
ORVEL_MKT_1DI(sdgb_1di);
ORVEL_MKT_FPI(sdgb_fpi);
ORVEL_MKT_FPI(sdgb_pip);
ORVEL_MKT_CFS(sdgb_cfs);
ORVEL_MKT_RISK(sdgb_risk);
ORVEL_MKT_I_EARN(sdgb_i_earn);

/* spgb: Spanish government bonds, market code 360 (actual/365 variant 12, end of month; no default coupon
 * frequency: -1 left in cpn_freq is refused with 601). Prices on the g1p kernels at a yield compounded
 * mkt_opt7 times a year (opt1, default 1: Spanish yields are annual effective rates whatever the coupon
 * frequency; 1, 2, 4, 12, else 15800/15801), converted by bond_yld_equ. No _i_earn. */
ORVEL_MKT_AI(spgb_ai);
ORVEL_MKT_PY_AI(spgb_py_ai);
ORVEL_MKT_1DI(spgb_1di);
ORVEL_MKT_FPI(spgb_fpi);
ORVEL_MKT_FPI(spgb_pip);
ORVEL_MKT_CFS(spgb_cfs);
ORVEL_MKT_RISK(spgb_risk);
/* From the flows (as ukgb_cf_py, ukgb_cfsrisk above): the set discounted at the mkt_opt7 yield restated at
 * the coupon frequency, so an annual yield on annual coupons discounts flow k by (1 + y/100)^-times[k]. */
ORVEL_MKT_PY_AI(spgb_cf_py);
ORVEL_MKT_RISK(spgb_cfsrisk);

/* swgb: Swiss government bonds, market code 380 (30/360 SIA, annual, end of month). Accrual bond_ai (or
 * bond_ex_ai by ex_type), compound yield to maturity on aibd_p / aibd_y. No _i_earn; no market options. */
ORVEL_MKT_AI(swgb_ai);
ORVEL_MKT_PY_AI(swgb_py_ai);
ORVEL_MKT_1DI(swgb_1di);
ORVEL_MKT_FPI(swgb_fpi);
ORVEL_MKT_FPI(swgb_pip);
ORVEL_MKT_CFS(swgb_cfs);
ORVEL_MKT_RISK(swgb_risk);

/* gmbf, gmms: German federal securities priced to maturity, market code 170, which gives only day_type
 * (30E/360): pass eom and cpn_freq. Accrual bond_ex_ai, compound yield to maturity on aibd_p / aibd_y.
 * _py_ai and _risk only. */
ORVEL_MKT_PY_AI(gmbf_py_ai);
ORVEL_MKT_RISK(gmbf_risk);
ORVEL_MKT_PY_AI(gmms_py_ai);
ORVEL_MKT_RISK(gmms_risk);

/* ---- Ex-dividend dates ------------------------------------------------------------------------------- */

/* Every _exd member computes the date from which a bond of its market trades without its next coupon.
 * Common arguments and steps:
 *   day_type, eom, cpn_freq  -1 takes the market's default (get_sec_dflt with the member's market code),
 *                            any other value overrides it
 *   settle, mat              settlement and maturity (required); dated, first_cpn: optional (0/0/0), as in
 *                            bond_ai; a blank pair runs the schedule regularly back from maturity
 *   exd (m*, d*, y*)         the ex-dividend date, written on success only; the result is its year
 * With validate: ok_cpn_freq (600, 601), then the coupon-bond date group ok_bond_MDYs (500/501, 600/601, the
 * date errors with their roles, 1502, 1503, 2027, 2123, 2171, 2231); the members with a holiday table then
 * check it (5400, 5401, 5403), and refuse a count outside 0..3000 (5400) even without validation. The next
 * coupon date N after settlement (per_cpn_MDYs) is then moved by the market's rule. On failure 0. */

/* Australia (market 100): N - 7 calendar days. */
ORVEL_EXPORT(int32_t) acgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d,
                               int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                               int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y,
                               int32_t* exd_m, int32_t* exd_d, int32_t* exd_y, int32_t validate, uint32_t* err_code);

/* Austria (market 110): a coupon on the 10th to the 24th goes ex on the first Monday of its month (the 1st
 * when that is a Monday); any other on the first Monday after the 14th of its month, so a 14th that is a
 * Monday gives the 21st. */
ORVEL_EXPORT(int32_t) augb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d,
                               int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                               int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y,
                               int32_t* exd_m, int32_t* exd_d, int32_t* exd_y, int32_t validate, uint32_t* err_code);

/* Denmark (market 160): N - 30 calendar days. */
ORVEL_EXPORT(int32_t) dngb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d,
                               int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                               int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y,
                               int32_t* exd_m, int32_t* exd_d, int32_t* exd_y, int32_t validate, uint32_t* err_code);

/* Greece (market 200): N - 30 calendar days. reserved1..3 are reserved for market options and not read. */
ORVEL_EXPORT(int32_t) grgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d,
                               int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                               int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y,
                               int32_t reserved1, int32_t reserved2, int32_t reserved3, int32_t* exd_m, int32_t* exd_d,
                               int32_t* exd_y, int32_t validate, uint32_t* err_code);

/* Ireland (market 230): the Wednesday of the Monday-to-Sunday week of N - 21 days. */
ORVEL_EXPORT(int32_t) irgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d,
                               int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                               int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y,
                               int32_t* exd_m, int32_t* exd_d, int32_t* exd_y, int32_t validate, uint32_t* err_code);

/* New Zealand (market 310): N - 9 calendar days. reserved1..3 are reserved and not read. */
ORVEL_EXPORT(int32_t) nzgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d,
                               int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                               int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y,
                               int32_t reserved1, int32_t reserved2, int32_t reserved3, int32_t* exd_m, int32_t* exd_d,
                               int32_t* exd_y, int32_t validate, uint32_t* err_code);

/* Sweden (market 370): exd_rule 1 gives N - 4 calendar days, 2 N - 9, 3 N - 14; any other rule is 965,
 * checked after the common checks. */
ORVEL_EXPORT(int32_t) sdgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t exd_rule, int32_t settle_m,
                               int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                               int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d,
                               int32_t first_y, int32_t* exd_m, int32_t* exd_d, int32_t* exd_y, int32_t validate,
                               uint32_t* err_code);

/* United Kingdom gilts (market 410). First the rule of coupons up to 1996: a coupon in January, April, July
 * or October on the 5th to the 8th goes ex on the 1st of the month before; any other 37 calendar days
 * before; with spec_exd != 0 (a special ex-dividend period) 21 days earlier; with adj_bdt != 0 rolled to
 * the following business day (holidays as in adj_to_bdt). A date so found on or before 1/1/1996 is the
 * result. Otherwise the current rule: six business days before N (incr_by_bdys), and only when spec_exd is
 * set, 21 days earlier and then, only when adj_bdt is set too, rolled to the following business day. */
ORVEL_EXPORT(int32_t) ukgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d,
                               int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                               int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y,
                               int32_t spec_exd, int32_t adj_bdt, int32_t hol_count, const int32_t* holidays,
                               int32_t* exd_m, int32_t* exd_d, int32_t* exd_y, int32_t validate, uint32_t* err_code);

/* German bunds (market 170, which gives day_type only: cpn_freq must be passed, and an eom left at -1
 * counts as set). A coupon on the 3rd to the
 * 16th goes ex on the 1st of its month, a later one on the 16th, one on the 1st or 2nd on the 16th of the
 * month before; with adj_bdt != 0 rolled to the following business day over the holidays. */
ORVEL_EXPORT(int32_t) gmgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t settle_m, int32_t settle_d,
                               int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                               int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y,
                               int32_t adj_bdt, int32_t hol_count, const int32_t* holidays, int32_t* exd_m,
                               int32_t* exd_d, int32_t* exd_y, int32_t validate, uint32_t* err_code);



#endif /* ORVEL_MARKETS_H */
