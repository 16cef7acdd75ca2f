/*
 * ORVEL coupon schedules: previous and next coupon dates, numbers of periods, days accrued and remaining.
 *
 * A schedule is never stored. Each coupon date is its anchor (maturity, or the last regular coupon date)
 * moved back a whole number of periods of 12 / cpn_freq months, with the end-of-month rule when `eom` is
 * non-zero (an anchor on a month's last day keeps every coupon on a month end). Because each date comes
 * from the anchor, never from its neighbour, the month ends never drift (a 31 August anchor gives 28
 * February, then 31 August again, not 28 August).
 *
 * Common to every function below:
 *   - dates are (month, day, year) int32 triples; out dates are three int32 pointers;
 *   - pcd / ncd: the previous and next coupon dates around settlement (pcd <= settle < ncd);
 *   - da, dp, dr: days accrued (pcd to settle), days in the period, days remaining (settle to ncd), under
 *     the bond's day_type (see per2dp_da_dr for each family);
 *   - nper: whole coupon periods; frac: 1 when settlement lies strictly inside a period (a partial period
 *     precedes the nper whole ones), 0 when a whole period starts at settlement;
 *   - on failure the number goes to *err_code, the function returns 0 (0.0) and writes no output.
 *
 * Without validation nothing is checked and every input gives an answer, never a crash or a hang:
 *   - a cpn_freq below 1 counts as 1 (a 12-month period); one between 1 and 12 not in {1, 2, 4, 12} gives
 *     periods of 12 / cpn_freq months (integer division: 5 gives 2 months); one above 12 gives periods of no
 *     months, so the schedule is its anchor alone: pcd = ncd = the anchor, the day counts are taken against
 *     it, and num_per reports nper = frac = 0;
 *   - settlement after maturity locates it on the grid continued past maturity (nper then counts negative);
 *   - a day_type outside 1..13 counts actual days, like code 1;
 *   - malformed dates give some dates and counts. No loop walks the schedule to find settlement: the
 *     month distance puts it within one period of two stepped dates, whatever the years.
 */
#ifndef ORVEL_SCHEDULE_H
#define ORVEL_SCHEDULE_H

#include "orvel/frame.h"

/* ---- Regular schedules anchored on maturity -------------------------------------------------------- */

/* Previous and next coupon dates of settlement in the regular schedule that ends at maturity: pcd on or
 * before settle, ncd after it; settlement on a coupon date gives that date as pcd. Settlement on maturity
 * gives pcd = ncd = maturity.
 *   settle, mat  dates; cpn_freq 1, 2, 4, 12; eom non-zero keeps month-end anchors on month ends
 *   pcd, ncd     out dates
 * Errors with validate: the date errors of ok_MDY on either date (1100, 1200, 1300, 1500, no role added);
 * 2000 settle after mat; 600/601 cpn_freq. On failure nothing is written. */
ORVEL_EXPORT(void) lst_nxt_ncpn(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                int32_t mat_y, int32_t cpn_freq, int32_t eom, int32_t* pcd_m, int32_t* pcd_d,
                                int32_t* pcd_y, int32_t* ncd_m, int32_t* ncd_d, int32_t* ncd_y, int32_t validate,
                                uint32_t* err_code);

/* The day counts of the coupon period pcd -> ncd split at settle; returns dr.
 *   da is always the days from pcd to settle under day_type; dp and dr by family:
 *     1, 6, 8, 9, 12      dp = days pcd -> ncd, dr = days settle -> ncd, both under day_type
 *     2, 3, 5, 10, 11     dp = 360 / cpn_freq (180 semi-annual, whatever the calendar), dr = dp - da
 *     4, 7                dp = 360 / cpn_freq, dr = days settle -> ncd under day_type
 *     13                  da under 13 (actual days), dp and dr without 29 February (code 9)
 *     any other code      (reachable only without validation) actual days for all three, like code 1
 *   A cpn_freq below 1 counts as 1 in 360 / cpn_freq.
 * Errors with validate: the ok_MDY errors (no role), 500/501 day_type, 2100 pcd not before ncd under
 * day_type, 2000 settle before pcd or after ncd under day_type. On failure returns 0, writes nothing. */
ORVEL_EXPORT(int32_t) per2dp_da_dr(int32_t pcd_m, int32_t pcd_d, int32_t pcd_y, int32_t ncd_m, int32_t ncd_d,
                                   int32_t ncd_y, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                   int32_t day_type, int32_t cpn_freq, int32_t* da, int32_t* dp, int32_t* dr,
                                   int32_t validate, uint32_t* err_code);

/* Coupon periods from settle to mat by calendar months only (no day count); returns nper.
 * Maturity is stepped back by the month distance (end-of-month rule on); one month less when that lands
 * after settlement. frac = 0 only when it lands on settlement exactly and the months are a whole number of
 * periods; nper = whole periods in the months.
 * Errors with validate: the ok_MDY errors (no role), 2100 settle not before mat, 600/601 cpn_freq. */
ORVEL_EXPORT(int32_t) num_per(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                              int32_t mat_y, int32_t cpn_freq, int32_t* nper, int32_t* frac, int32_t validate,
                              uint32_t* err_code);

/* Coupon periods from settle to mat by the stepped coupon dates; returns nper. P being the periods from pcd
 * to mat: nper = P, frac = 0 when a whole period remains at settlement (settlement on a coupon date, tested
 * under the day count: 30/360 codes when nothing has accrued, actual-day codes on calendar days); otherwise
 * nper = P - 1 and frac = 1.
 * Errors with validate: the ok_MDY errors (no role), 2100 settle not before mat, 600/601 cpn_freq,
 * 500/501 day_type. */
ORVEL_EXPORT(int32_t) num_per_dt(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                 int32_t mat_y, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t* nper,
                                 int32_t* frac, int32_t validate, uint32_t* err_code);

/* Everything about settlement in a regular bond in one call: da, dp, dr of per2dp_da_dr for the dates of
 * lst_nxt_ncpn, and nper, frac of num_per_dt; returns dr.
 * Errors with validate: the ok_MDY errors (no role), 2100 settle not before mat, 600/601 cpn_freq
 * (day_type is not checked: a code outside 1..13 counts actual days). */
ORVEL_EXPORT(int32_t) reg_per_info(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                   int32_t mat_d, int32_t mat_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                   int32_t* da, int32_t* dp, int32_t* dr, int32_t* nper, int32_t* frac,
                                   int32_t validate, uint32_t* err_code);

/* reg_per_info with its five results as doubles (the form the accrued-interest engine consumes); returns
 * dr. Same checks and errors; 0.0 on failure. */
ORVEL_EXPORT(double) d_regperinfo(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                  double* da, double* dp, double* dr, double* nper, double* frac, int32_t validate,
                                  uint32_t* err_code);

/* per2dp_da_dr with its three results as doubles; returns dr. Same checks and errors; 0.0 on failure. */
ORVEL_EXPORT(double) d_per2dpdadr(int32_t pcd_m, int32_t pcd_d, int32_t pcd_y, int32_t ncd_m, int32_t ncd_d,
                                  int32_t ncd_y, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                  int32_t day_type, int32_t cpn_freq, double* da, double* dp, double* dr,
                                  int32_t validate, uint32_t* err_code);

/* The quasi-coupon period of settle, looked up back from an anchor (maturity, or a first coupon date when
 * measuring an odd first period): da, dp, dr of per2dp_da_dr for the dates lst_nxt_ncpn finds, as doubles;
 * returns dr. Settlement on the anchor gives the anchor as both dates.
 * Errors with validate: the ok_MDY errors (no role), 2000 settle after the anchor, 600/601 cpn_freq,
 * 500/501 day_type. 0.0 on failure. */
ORVEL_EXPORT(double) d_qlb2dpdadr(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                  double* da, double* dp, double* dr, int32_t validate, uint32_t* err_code);

/* ---- Schedules with odd first and last periods ----------------------------------------------------------
 * An odd first period runs from the dated date to the first coupon date, an odd last period from the last
 * regular coupon date to maturity; the regular schedule between them is anchored on the last regular
 * coupon date (on maturity when there is none). A first period may be short or long: before the first
 * coupon the previous coupon date is the dated date, however far back it lies. */

/* Previous coupon date of settle in a schedule with odd first and last periods.
 *   settle, mat, dated, first_cpn, last_cpn   five dates (blank dates as ok_mtrm_MDYs allows and fills)
 *   day_type, eom, cpn_freq                   conventions; pcd out date
 * The date group is checked by ok_mtrm_MDYs on every call, whatever validate says (validate is not read);
 * its defaults for blank dates apply to this call only. Errors: those of ok_mtrm_MDYs (date errors with
 * roles 1, 7, 2, 3, 6; 1502, 1503; 2027, 2123, 2171, 2061 ...). On failure nothing is written. */
ORVEL_EXPORT(void) per_pcd(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                           int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m,
                           int32_t first_d, int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y,
                           int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t* pcd_m, int32_t* pcd_d,
                           int32_t* pcd_y, int32_t validate, uint32_t* err_code);

/* Next coupon date of settle in a schedule with odd first and last periods: the same arguments, checks and
 * errors as per_pcd, with ncd as the out date. */
ORVEL_EXPORT(void) per_ncd(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                           int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m,
                           int32_t first_d, int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y,
                           int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t* ncd_m, int32_t* ncd_d,
                           int32_t* ncd_y, int32_t validate, uint32_t* err_code);

/* Previous and next coupon dates of `date` in a schedule whose odd periods are optional: per_pcd and
 * per_ncd in one call, for callers that already hold checked dates (the ex-dividend and trade-date rules
 * of the bond engine).
 *   date                the date looked up (settlement, an ex-dividend date, a trade date)
 *   mat                 maturity
 *   dated, first_cpn    the odd first period; a blank first_cpn means none (the schedule runs back from its
 *                       anchor without limit); a blank dated with a given first_cpn starts the first period
 *                       one regular period before first_cpn
 *   last_cpn            the last regular coupon date; blank means none (the schedule is anchored on mat)
 *   day_type            checked only; eom, cpn_freq as everywhere; pcd, ncd out dates
 * Before first_cpn: pcd = dated, ncd = first_cpn. On or after last_cpn: pcd = last_cpn, ncd = mat.
 * Otherwise the regular coupon dates around `date`; `date` on maturity with no last_cpn gives mat twice.
 * Errors with validate: 500/501, 600/601; date errors with roles (date 7, mat 1, dated 2, first_cpn 3,
 * last_cpn 6; blanks allowed except for date and mat, 1507 / 1501); 2071 date after mat; 2123 dated not
 * before first_cpn; 2036 first_cpn after last_cpn; 2161 last_cpn not before mat. Nothing is written on
 * failure. */
ORVEL_EXPORT(void) per_cpn_MDYs(int32_t date_m, int32_t date_d, int32_t date_y, int32_t mat_m, int32_t mat_d,
                                int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m,
                                int32_t first_d, int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y,
                                int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t* pcd_m, int32_t* pcd_d,
                                int32_t* pcd_y, int32_t* ncd_m, int32_t* ncd_d, int32_t* ncd_y, int32_t validate,
                                uint32_t* err_code);

/* The last coupon date of a schedule before maturity: the start of the period that ends at maturity.
 * That is last_cpn when given; otherwise dated when the first coupon is maturity itself (a single odd
 * period); otherwise maturity one regular period back.
 *   mat, dated, first_cpn, last_cpn, day_type, eom, cpn_freq as in per_cpn_MDYs; lcd out date
 * Errors with validate: those of per_cpn_MDYs that concern these arguments (500/501, 600/601, mat 1501,
 * 12xx/13xx/11xx + role, 2123, 2036, 2161). Nothing is written on failure. */
ORVEL_EXPORT(void) per_lcd(int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                           int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y, int32_t last_m,
                           int32_t last_d, int32_t last_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                           int32_t* lcd_m, int32_t* lcd_d, int32_t* lcd_y, int32_t validate, uint32_t* err_code);

/* Day counts of an odd first period (dated -> first_cpn) at settlement before the first coupon, as doubles;
 * returns dr. The odd period is measured against the regular period it stands in for, the quasi-coupon
 * period that ends at first_cpn (first_cpn one period back -> first_cpn):
 *   da    days dated -> settle under day_type
 *   dp    days of that regular period by the family rule of per2dp_da_dr (360 / cpn_freq for 30/360)
 *   dr    days settle -> first_cpn under day_type (code 13: without 29 February)
 *   nper  whole regular periods from first_cpn to mat
 *   frac  1 when settle lies after dated, 0 on dated itself
 * so (da + dr) / dp is the first coupon in regular coupons (above 1 for a long first period).
 * Errors with validate: 500/501, 600/601; date errors with roles (settle 7, mat 1, dated 2, first_cpn 3,
 * all required); 2027 dated after settle; 2173 settle not before first_cpn; 2031 first_cpn after mat.
 * 0.0 on failure, nothing written. */
ORVEL_EXPORT(double) d_oddperinfo(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                  int32_t first_m, int32_t first_d, int32_t first_y, int32_t day_type, int32_t eom,
                                  int32_t cpn_freq, double* da, double* dp, double* dr, double* nper, double* frac,
                                  int32_t validate, uint32_t* err_code);

/* Day counts of an odd last period (last_cpn -> mat) at settlement inside it, as doubles; returns dr.
 * Measured against the regular period that starts at last_cpn (last_cpn -> last_cpn one period on):
 *   da    days last_cpn -> settle under day_type
 *   dp    days of that regular period by the family rule of per2dp_da_dr
 *   dr    days settle -> mat under day_type (code 13: without 29 February)
 *   nper  0 (no coupon follows maturity); frac 1 when settle lies after last_cpn, 0 on it
 * so dr / dp is the final period still to run in regular periods.
 * Errors with validate: 500/501, 600/601; date errors with roles (settle 7, mat 1, last_cpn 6, all
 * required); 2067 last_cpn after settle; 2171 settle not before mat. 0.0 on failure, nothing written. */
ORVEL_EXPORT(double) d_lstperinfo(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t last_m, int32_t last_d, int32_t last_y,
                                  int32_t day_type, int32_t eom, int32_t cpn_freq, double* da, double* dp, double* dr,
                                  double* nper, double* frac, int32_t validate, uint32_t* err_code);

/* ---- Coupon lists and distances in periods ----------------------------------------------------------- */

/* Every coupon date after settle, oldest first, into the caller's arrays: first_cpn (when settlement
 * precedes it), the regular dates stepped back from the anchor (last_cpn when given, else mat), and mat
 * after a last regular coupon. Returns the number of dates and writes it to *count.
 *   settle, mat              dates; first_cpn, last_cpn optional (blank: none)
 *   eom, cpn_freq            conventions
 *   capacity                 elements available in each of months[], days[], years[]
 * Settlement on or after maturity (without validation) gives no dates.
 * Errors: 13000 when capacity is below the number of dates: *count still receives the number needed
 * (so a call with capacity 0 sizes the arrays), the arrays are untouched, the result is 0.
 * With validate, first: 600/601; date errors with roles (settle 7, mat 1, first_cpn 3, last_cpn 6); 2171
 * settle not before mat; 2036 first_cpn after last_cpn; 2161 last_cpn not before mat (nothing written). */
ORVEL_EXPORT(int32_t) all_cpn_dts(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t first_m, int32_t first_d, int32_t first_y,
                                  int32_t last_m, int32_t last_d, int32_t last_y, int32_t eom, int32_t cpn_freq,
                                  int32_t capacity, int32_t* months, int32_t* days, int32_t* years, int32_t* count,
                                  int32_t validate, uint32_t* err_code);

/* Coupon periods from d1 to d2 as a fraction, on the regular schedule anchored on d2: the whole periods
 * plus, when d1 lies inside a period, dr / dp of that period (reg_per_info under day_type). A d1 after d2
 * (without validation) gives the negative of the reverse distance; equal dates 0.
 * Errors with validate: 500/501, 600/601, the ok_MDY errors (no role), 2000 d1 after d2. 0.0 on failure. */
ORVEL_EXPORT(double) num_dper(int32_t d1_m, int32_t d1_d, int32_t d1_y, int32_t d2_m, int32_t d2_d, int32_t d2_y,
                              int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t validate, uint32_t* err_code);

/* Years from d1 to d2 counted in coupon periods: num_dper / cpn_freq (a cpn_freq below 1 as 1). Same
 * arguments, checks and errors as num_dper. */
ORVEL_EXPORT(double) num_yrs(int32_t d1_m, int32_t d1_d, int32_t d1_y, int32_t d2_m, int32_t d2_d, int32_t d2_y,
                             int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t validate, uint32_t* err_code);

/* Coupon interest earned from d1 to d2 by a holding of a regular bond maturing at mat, per 100 of face
 * when cpn_rate is in percent: the rest of d1's coupon period, each whole period between, and the accrued
 * part of d2's period, each part as a fraction of its own period (per2dp_da_dr under day_type) times
 * cpn_rate / cpn_freq. Coupons paid in between count as earned. d1 after d2 (without validation) gives the
 * negative of the reverse.
 * Errors with validate: 500/501, 600/601, 4100 cpn_rate outside 0..3000 (NaN too), date errors with roles
 * (d1 7, d2 8, mat 1), 2078 d1 after d2, 2081 d2 after mat. 0.0 on failure. */
ORVEL_EXPORT(double) i_earn_MDYs(int32_t d1_m, int32_t d1_d, int32_t d1_y, int32_t d2_m, int32_t d2_d, int32_t d2_y,
                                 int32_t mat_m, int32_t mat_d, int32_t mat_y, double cpn_rate, int32_t day_type,
                                 int32_t eom, int32_t cpn_freq, int32_t validate, uint32_t* err_code);

/* ---- Schedules seen from their start, and early redemption ---------------------------------------------- */

/* Coupon periods from d1 to d2 as a fraction, on the schedule that starts at d1 and runs forward (a dated
 * date whose coupons fall every 12 / cpn_freq months after it, as for a bond issued on its coupon cycle):
 * the whole periods from d1 to the last forward coupon date on or before d2, plus da / dp of the period
 * that d2 falls in (per2dp_da_dr under day_type). num_dper anchors the grid on d2 instead, so its partial
 * period lies at the start and is measured against another period: annual actual/actual from 1/1/2019 to
 * 2/15/2020 is 1 + 45/366 here and 1 + 45/365 there. A d1 after d2 (without validation) gives the
 * negative of the reverse; equal dates 0. Same arguments, checks and errors as num_dper: with validate
 * 500/501, 600/601, the ok_MDY errors (no role), 2000 d1 after d2. 0.0 on failure. */
ORVEL_EXPORT(double) num_dper_fb(int32_t d1_m, int32_t d1_d, int32_t d1_y, int32_t d2_m, int32_t d2_d, int32_t d2_y,
                                 int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t validate, uint32_t* err_code);

/* The last coupon date of a bond redeemed early on er (a call or put date): the last coupon date strictly
 * before er in the schedule of per_cpn_MDYs. A redemption on a coupon date is paid that coupon with the
 * principal, so the last coupon date is then the one before it; on maturity this is per_lcd. Before the
 * first coupon it is the dated date (the start of the odd first period).
 *   er                   early redemption date; mat, dated, first_cpn, last_cpn, day_type, eom, cpn_freq
 *                        as in per_cpn_MDYs; lcd out date
 * Errors with validate: those of per_cpn_MDYs with er in the place of the date looked up (500/501,
 * 600/601, er 1107/1207/1307/1507, mat 1501, the optional dates + role, 2071 er after mat, 2123, 2036,
 * 2161), then 2127 er not after a given dated date. Nothing is written on failure. */
ORVEL_EXPORT(void) per_er_lcd(int32_t er_m, int32_t er_d, int32_t er_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                              int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d,
                              int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y, int32_t day_type,
                              int32_t eom, int32_t cpn_freq, int32_t* lcd_m, int32_t* lcd_d, int32_t* lcd_y,
                              int32_t validate, uint32_t* err_code);

#endif /* ORVEL_SCHEDULE_H */
