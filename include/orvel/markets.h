/*
 * ORVEL market bond families and ex-dividend rules: each national market's conventions on the fixed-coupon engine.
 */
#ifndef ORVEL_MARKETS_H
#define ORVEL_MARKETS_H

#include "orvel/frame.h"

/* ---- Market families --------------------------------------------------------------------------------- */



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
