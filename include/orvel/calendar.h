/* ORVEL calendar: MDY dates, day numbers, calendar arithmetic and day-count conventions.
 *
 * A date is three int32 arguments: month (1..12), day (1..last day of the month) and four-digit year
 * (1800..2300). A date changed in place is three int32 pointers. Functions without err_code cannot fail;
 * they take any input and give some value without crashing (arithmetic is done in 64 bits and narrowed to
 * int32 modulo 2^32), but their results mean something only for valid dates.
 *
 * julian: the astronomical Julian Day Number (1/1/1800 = 2378497, 1/1/2000 = 2451545,
 * 12/31/2300 = 2561482). Day of week: 1 Monday .. 7 Sunday. Day of year: 1 for 1 January.
 * Packed dates: dt = YYYYMMDD; dtA = MMDDYY; dtE = DDMMYY.
 *
 * day_type, the day-count code (days counted / year basis):
 *   1 actual / actual (year that starts on the date)   7 actual / 360
 *   2 30/360 NASD      3 30/360 MSRB (counts as 2)      8 actual / 365
 *   4 30/360 SIA with February month ends              9 actual without 29 February / 365
 *   5 30E/360 (AIBD)                                    10 30/360 SIA (counts as 4)
 *   6 30/360 with every month end as the 30th           11 European 30/360, a second 31st rolled forward
 *   12 actual / 365    13 actual / 365 (years_b_MDYs measures it without leap days)
 * Day counts are signed: a second date before the first gives a negative count.
 */
#ifndef ORVEL_CALENDAR_H
#define ORVEL_CALENDAR_H

#include "orvel/frame.h"

/* ---- Leap years and month ends ---------------------------------------------------------------------- */

/* 1 when y is a leap year of the Gregorian calendar (divisible by 4 and not by 100, or by 400), else 0. */
ORVEL_EXPORT(int32_t) is_leap_year(int32_t y);

/* The last day of month m in year y (28..31); a month outside 1..12 comes back as it is. */
ORVEL_EXPORT(int32_t) last_dom(int32_t m, int32_t y);

/* 1 when d is the last day of month m of year y; 0 otherwise and for a month outside 1..12. */
ORVEL_EXPORT(int32_t) is_last_dom(int32_t m, int32_t d, int32_t y);

/* Fixes the day of a date (*m, *d, *y) that was moved from (m0, d0, y0): when eom is non-zero and d0 is
 * the last day of its month, the day becomes the last day of the target month; otherwise a day past the
 * target month's end is lowered to it, and any other day is kept. Returns the last day of the target
 * month (*m, *y). Cannot fail. */
ORVEL_EXPORT(int32_t) eom_fixup(int32_t m0, int32_t d0, int32_t y0, int32_t* m, int32_t* d, int32_t* y,
                                int32_t eom);

/* ---- Day numbers, day of week, day of year ---------------------------------------------------------- */

/* The julian day number of a date. Cannot fail. */
ORVEL_EXPORT(int32_t) MDY_2_julian(int32_t m, int32_t d, int32_t y);

/* Writes the date of a julian day number to *m, *d, *y and returns the year. Cannot fail. */
ORVEL_EXPORT(int32_t) julian_2_MDY(int32_t julian, int32_t* m, int32_t* d, int32_t* y);

/* Day of week, 1 Monday .. 7 Sunday. With validate the date is checked as a required date (1100, 1200,
 * 1300, 1500); on failure returns 0. */
ORVEL_EXPORT(int32_t) MDY_2_dow(int32_t m, int32_t d, int32_t y, int32_t validate, uint32_t* err_code);

/* Day of year, 1 for 1 January. With validate the date is checked as a required date (1100, 1200, 1300,
 * 1500); on failure returns 0. */
ORVEL_EXPORT(int32_t) MDY_2_doy(int32_t m, int32_t d, int32_t y, int32_t validate, uint32_t* err_code);

/* Writes the date of day doy of year y to *m, *d, *y and returns its year. Day 366 of a common year is
 * 1 January of the next; without validation any doy is counted from 1 January of y. With validate: doy
 * outside 1..366 is 5103, y outside 1800..2300 is 5104; nothing is written and 0 is returned. */
ORVEL_EXPORT(int32_t) doy_2_MDY(int32_t doy, int32_t y, int32_t* m, int32_t* d, int32_t* y_out, int32_t validate,
                                uint32_t* err_code);

/* ---- Packed dates ----------------------------------------------------------------------------------- */

/* y * 10000 + m * 100 + d (YYYYMMDD). Cannot fail. */
ORVEL_EXPORT(int32_t) MDY_2_dt(int32_t m, int32_t d, int32_t y);

/* The day of a packed date: dt modulo 100. */
ORVEL_EXPORT(int32_t) dt_2_DD(int32_t dt);

/* The month of a packed date: (dt / 100) modulo 100. */
ORVEL_EXPORT(int32_t) dt_2_MM(int32_t dt);

/* The four-digit year of a packed date. yy = dt / 10000; a yy above 99 is the year as it is; a two-digit
 * yy is 1900 + yy when above pivot_yr and 2000 + yy otherwise (950630 with pivot 50 is 1995, 200630 is
 * 2020). */
ORVEL_EXPORT(int32_t) dt_2_YYYY(int32_t dt, int32_t pivot_yr);

/* MMDDYY to DDMMYY: the two leading two-digit fields exchanged (123195 gives 311295). No validation. */
ORVEL_EXPORT(int32_t) dtA_2_dtE(int32_t dtA);

/* DDMMYY to MMDDYY, the same exchange. */
ORVEL_EXPORT(int32_t) dtE_2_dtA(int32_t dtE);

/* ---- Comparison ------------------------------------------------------------------------------------- */
/* Dates are compared through the day count of day_type (days_b_MDYs): under a 30/360 code the 30th and
 * the 31st of a month are equal. With validate both dates are checked as required dates (1100, 1200,
 * 1300, 1500), then day_type (500, 501); a failed check returns 0. Without validation a day_type outside
 * 1..13 counts 0 days, so every pair compares equal. */

/* 1 when the dates are equal under day_type, else 0 (no error: unequal dates are not a failure). */
ORVEL_EXPORT(int32_t) is_MDYeqMDY(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t day_type, int32_t validate, uint32_t* err_code);

/* 1 when date1 is not after date2; otherwise 0 and error 2000. */
ORVEL_EXPORT(int32_t) is_MDYleMDY(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t day_type, int32_t validate, uint32_t* err_code);

/* 1 when date1 is before date2; otherwise 0 and error 2100. */
ORVEL_EXPORT(int32_t) is_MDYltMDY(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t day_type, int32_t validate, uint32_t* err_code);

/* ---- Date steps ------------------------------------------------------------------------------------- */

/* Moves the date by n days (n may be negative) and returns the new year. An invalid day is carried into
 * the following months (2/30 + 0 days is 3/1 or 3/2). Cannot fail. */
ORVEL_EXPORT(int32_t) incr_by_days(int32_t n, int32_t* m, int32_t* d, int32_t* y);

/* Moves the date by n months (n may be negative), the month carried into the year (13 is January of the
 * next year, 0 December of the one before), then the day fixed with eom_fixup from the old date and eom
 * (1/31 + 1 month is 2/28 or 2/29; 2/28/2001 + 1 month is 3/28, or 3/31 with eom). Returns the new year.
 * Cannot fail. */
ORVEL_EXPORT(int32_t) incr_by_mths(int32_t n, int32_t* m, int32_t* d, int32_t* y, int32_t eom);

/* Moves the date by n coupon periods of 12 / cpn_freq months (truncated: a frequency of 5 moves 2 months,
 * above 12 none); a cpn_freq below 1 is taken as 1. eom as in incr_by_mths. Returns the new year. Cannot
 * fail. */
ORVEL_EXPORT(int32_t) incr_by_pers(int32_t n, int32_t cpn_freq, int32_t* m, int32_t* d, int32_t* y, int32_t eom);

/* Moves the date by yrs years, possibly fractional, and returns the new year.
 * The fraction f of yrs moves the date first: under the actual codes 1, 7, 8, 12, 13 by f * 365 or
 * f * 366 days (truncated after adding 0.00005), whichever gives a years_b_MDYs closer to f (365 on a
 * tie); under the 30/360 codes by k = f * 360 days (likewise truncated) as k / 30 whole months (month
 * ends kept) and k modulo 30 days; under code 9 by f * 365 days. The whole years then move that date
 * with its month end kept: 2/28/2001 + 3 years is 2/29/2004.
 * With validate: yrs negative, not a number or above 1e6 is 5200; then the date (required: 1100, 1200,
 * 1300, 1500) and day_type (500, 501). On failure the date is unchanged and 0 is returned.
 * Without validation: a negative yrs moves back by its whole part (the fraction is ignored); a day_type
 * outside 1..13 ignores the fraction; a yrs that is not a number or beyond +-1e9 leaves the date as it is
 * and returns its year. */
ORVEL_EXPORT(int32_t) incr_by_yrs(double yrs, int32_t* m, int32_t* d, int32_t* y, int32_t day_type,
                                  int32_t validate, uint32_t* err_code);

/* ---- Year fractions --------------------------------------------------------------------------------- */

/* Years from date1 to date2.
 * 30/360 codes (2, 3, 4, 5, 6, 10, 11): the day count / 360. Codes 9 and 13: days without 29 February
 * / 365. Code 12: actual days / 365. Codes 1, 7, 8 in whole anniversaries: A is date1's month and day in
 * the last year in which it falls before date2 (month ends kept), and the result is the whole years from
 * date1 to A plus the actual days from A to date2 over the actual days from A to A + 12 months, that
 * step too keeping a month end (2/29/2000 to 2/28/2001 is 1.0; 2/28/2004 to 2/28/2008 is 3 + 365/366,
 * since the anniversary 2/28/2007 is a month end and its year runs to 2/29/2008).
 * With validate: day_type (500, 501), both dates required (1100, 1200, 1300, 1500), date2 before date1
 * is 2000; the result is then 0.0. Without validation a date2 before date1 gives a negative fraction
 * and a day_type outside 1..13 gives 0.0. */
ORVEL_EXPORT(double) years_b_MDYs(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t day_type, int32_t validate, uint32_t* err_code);

/* ---- Date lists ------------------------------------------------------------------------------------- */
/* A date list is three parallel arrays (months, days, years) with companion values, count entries long. */

/* Sorts the dates ascending in calendar order (by day number), exchanging vals with them. Stable: equal
 * dates keep their order, so the result is the one of a bubble sort that exchanges neighbours only when the
 * later date is strictly before the earlier. err_code is written 0 on success when the list has two or more
 * dates and is not strictly descending: the bubble sort's comparisons that keep two dates in place each
 * clear the 2100 that the "is before" comparison leaves, and only a strictly descending list has none.
 * O(n log n) time, no memory taken: a heap sort by date and original position, the position held for the
 * length of the call in the bits of each month and day above the low 8, which are cleared again. A list
 * with a month or day outside 0..255 (possible only without validation) is sorted instead by an in-place
 * merge of O(n log^2 n). Any count is taken; a count below 2 does nothing. With validate every date is
 * checked first as a required date; the first bad one gives the number of ok_MDY (1100, 1200, 1300, 1500)
 * and nothing is sorted. Returns 1, or 0 on failure. */
ORVEL_EXPORT(int32_t) sort_MDYs(int32_t* months, int32_t* days, int32_t* years, double* vals, int32_t count,
                                int32_t validate, uint32_t* err_code);

/* sort_MDYs carrying two companion arrays, vals (double) and ivals (int32). */
ORVEL_EXPORT(int32_t) sort2_MDYs(int32_t* months, int32_t* days, int32_t* years, double* vals, int32_t* ivals,
                                 int32_t count, int32_t validate, uint32_t* err_code);

/* Maintains a list of dated amounts (months, days, years, amounts: count entries, room for capacity) with
 * a second list (chg_months, chg_days, chg_years, chg_amounts: chg_count entries). Both lists hold their
 * dates strictly ascending. action:
 *    1  merge: each dated amount of the second list enters the first at its date; on a date that the first
 *       list already holds, the amounts are added.
 *   -1  delete: every date of the second list leaves the first, with its amount (the second list's
 *       amounts are not read); dates that the first list does not hold are ignored.
 *   -2  reduce: the second list's amounts are subtracted from the first's on the same dates, and a date
 *       whose amount becomes exactly 0 leaves the list; dates that the first list does not hold are
 *       ignored. Reducing by the list just merged gives the original list back (exactly when the sums
 *       are exact in binary floating point, as for multiples of 1/64).
 * Returns the new number of entries of the first list (the arrays are updated in place, entries beyond it
 * are left unspecified).
 * Errors: action not 1, -1 or -2 is 5310. Always (the arrays are never written past capacity): count
 * above capacity, or a merge that needs more than capacity entries, is 13000 (arrays too small). With
 * validate: either list longer than 1000 dates (ORVEL_DATE_LIST_MAX) is 14010; a bad date at index i of the
 * first list, then of the second, is 12000 + i; the first list not strictly ascending is 7701, the second
 * 7702; a merge that would make the list longer than 1000 dates is 14010. On any error the lists are
 * unchanged and 0 is returned. A count or chg_count below 0 is taken as 0. Without validation nothing is
 * reported by index, so the lists may be of any length (capacity permitting), and an unsorted list gives
 * some list, never a write outside the arrays. */
ORVEL_EXPORT(int32_t) MDY_maint(int32_t action, int32_t* months, int32_t* days, int32_t* years, double* amounts,
                                int32_t count, int32_t capacity, const int32_t* chg_months,
                                const int32_t* chg_days, const int32_t* chg_years, const double* chg_amounts,
                                int32_t chg_count, int32_t validate, uint32_t* err_code);

/* ---- Day counts ------------------------------------------------------------------------------------- */

/* Days from date1 to date2 under day_type (see the table at the top). With validate: day_type (500,
 * 501), then both dates as required dates (1100, 1200, 1300, 1500); on failure 0. Without validation a
 * day_type outside 1..13 counts 0. */
ORVEL_EXPORT(int32_t) days_b_MDYs(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t day_type, int32_t validate, uint32_t* err_code);

/* The kernels: days from date1 to date2, no validation, cannot fail. In the 30/360 kernels the count is
 * ((y2 - y1) * 12 + m2 - m1) * 30 - d1' + d2', d1' and d2' being the days after the rule's adjustment. */

/* Actual days (difference of days_base00; agrees with the julian difference). */
ORVEL_EXPORT(int32_t) days_act(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2);

/* Actual days without 29 February (difference of days_bsnl): 2/1/2000 to 3/1/2000 is 28. */
ORVEL_EXPORT(int32_t) days_act_nl(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2);

/* 30/360 NASD: d1 31 counts as 30; d2 31 counts as 30 when d1' is 30. No February rule. */
ORVEL_EXPORT(int32_t) days_nasd360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2);

/* 30/360 MSRB: the NASD rule, kept under its own name. */
ORVEL_EXPORT(int32_t) days_msrb360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2);

/* 30/360 SIA: d1 31 or the last day of February counts as 30; d2 31 counts as 30 when d1' is 30; when
 * both dates are February month ends both count as 30 (2/28/2001 to 2/28/2002 is 360, to 8/28/2001 178). */
ORVEL_EXPORT(int32_t) days_sia360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2);

/* 30E/360 (AIBD): every 31st counts as 30. */
ORVEL_EXPORT(int32_t) days_aibd360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2);

/* 30/360 with month ends: the last day of any month (28 or 29 February included) counts as 30. */
ORVEL_EXPORT(int32_t) days_new360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2);

/* European 30/360, 31st rolled forward: d1 31 counts as 30; a second date on the 31st is moved to the
 * 1st of the next month first, so it counts one day more than the 30th (1/31 to 3/31 is 61, and a 31st
 * to itself is 1: under code 11 a 31st is not equal to itself in is_MDYeqMDY). */
ORVEL_EXPORT(int32_t) days_eurp360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2);

/* The serial day number of days_act: 365y + 31(m - 1) + d + z/4 - z/100 + z/400 - c, with z = y - 1 and
 * c = 0 in January and February, z = y and c = trunc(0.4m + 2.3) from March. Only differences mean
 * anything. Cannot fail. */
ORVEL_EXPORT(int32_t) days_base00(int32_t m, int32_t d, int32_t y);

/* The serial day number of days_act_nl: 365y + 31(m - 1) + d - c (c as above), no leap days. */
ORVEL_EXPORT(int32_t) days_bsnl(int32_t m, int32_t d, int32_t y);

/* ---- Year bases ------------------------------------------------------------------------------------- */

/* Days in the year of day_type at the date: code 1 the actual days from the date to the date 12 months
 * on (month end kept), 365 or 366; codes 2..7, 10, 11: 360; codes 8, 9, 12, 13: 365; any other code 0.
 * With validate: day_type (500, 501), then the date as a required date (1100, 1200, 1300, 1500); on
 * failure 0. */
ORVEL_EXPORT(int32_t) days_yrbasis(int32_t m, int32_t d, int32_t y, int32_t day_type, int32_t validate,
                                   uint32_t* err_code);

/* The days of the year an actual/actual convention divides by, chosen by yr_method (months are moved
 * with the month end kept):
 *    1 date1 to date1 + 12 months        5 the calendar year of date1
 *    2 date2 to date2 + 12 months        6 the calendar year of date2
 *    3 date1 - 12 months to date1        7 the calendar year of date3
 *    4 date3 - 12 months to date3        9 365    10 366
 *    8 366 when a 29 February of the year of date1 or of date3 lies from date1 to date3, else 365;
 *      0 when date1 to date3 is not 1..366 actual days
 *   any other method: 0 (no error).
 * With validate date1 is checked as a required date with the settlement role added (1107, 1207, 1307,
 * 1507), date3 with the maturity role (1101 ...), and date2, with the dated-date role (1102 ...), only
 * for methods 2 and 6, which read it. On failure 0. */
ORVEL_EXPORT(int32_t) days_act_yr(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t m3, int32_t d3, int32_t y3, int32_t yr_method, int32_t validate,
                                  uint32_t* err_code);

/* days_act_yr with the coupon frequency, for actual/actual by coupon period (the year as cpn_freq
 * periods of the current one). yr_method 1..10 as days_act_yr (cpn_freq not read); and
 *   11 cpn_freq * the actual days from date2 to date3 (the coupon period [date2, date3] that holds
 *      date1: 1/1/2000 to 7/1/2000, semi-annual, is 2 * 182 = 364);
 *   12 cpn_freq * the actual days of the regular period that ends on date3 (date3 less 12 / cpn_freq
 *      months, month end kept), for a first or last period of irregular length.
 * With validate: the dates as in days_act_yr, date2 (dated-date role) also for method 11, then for
 * methods 11 and 12 cpn_freq (600, 601). Without validation a cpn_freq below 1 is taken as 1. On failure
 * 0. */
ORVEL_EXPORT(int32_t) days_actf_yr(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                   int32_t m3, int32_t d3, int32_t y3, int32_t yr_method, int32_t cpn_freq,
                                   int32_t validate, uint32_t* err_code);

/* 1 when day_type counts 365-day years (8, 9, 12, 13), else 0. With validate day_type is checked (500,
 * 501; result 0). */
ORVEL_EXPORT(int32_t) is_dt_dn_365(int32_t day_type, int32_t validate, uint32_t* err_code);

/* Year fraction from date1 to date2. day_type 1 (actual/actual ISDA): the days of the period in each
 * calendar year over that year's length (365 or 366), summed; *basis receives the length of the years
 * with days in the period, or -1 when they differ (7/1/1999 to 7/1/2000 is 184/365 + 182/366, basis -1;
 * equal dates give 0 with the length of date1's year). Any other code: days_b_MDYs / days_yrbasis at
 * date2, and *basis that year basis. The reference date (ref_m, ref_d, ref_y) is accepted for callers
 * that carry one and is not read.
 * With validate: date1 after date2 is 2000 (both dates checked as required dates first: 1100, 1200,
 * 1300, 1500), then day_type (500, 501); on failure 0.0 and *basis is not written. Without validation a
 * date2 before date1 gives the negative fraction, and a code outside 1..13 gives 0.0 with basis 0. */
ORVEL_EXPORT(double) isda_dcf(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                              int32_t day_type, int32_t ref_m, int32_t ref_d, int32_t ref_y, int32_t* basis,
                              int32_t validate, uint32_t* err_code);

/* ---- Holidays and business days ------------------------------------------------------------------- */

/* The holiday table is the caller's: hol_count julian day numbers (MDY_2_julian) in strictly ascending
 * order, from 1/1/1800 to 12/31/2300, weekdays only, at most 3000 (ok_hol_table: 5400, 5401, 5403). A
 * count of 0 means no holidays. A business day is a Monday to Friday not in the table. Every function
 * here refuses a count outside 0..3000 with 5400 even without validation, since the count bounds what it
 * reads; it reads no entry past hol_count. */

/* Queries, deletes or inserts one holiday in the caller's table, which stays sorted:
 *   action 0   returns 1 when the date is in the table, else 0;
 *   action -1  deletes it (the later entries move down, *hol_count drops by one) and returns 0; a date not
 *              in the table is 5301 (returns 0);
 *   action 1   inserts it (the later entries move up, *hol_count rises by one) and returns the new count;
 *              a date already there is 5302 and returns the count; a Saturday or Sunday is 5303
 *              (returns 0); a table of 3000 entries is full: 15700 (returns 0).
 * Any other action returns 0 and changes nothing. holidays must have room for *hol_count + 1 entries
 * when inserting. With validate: ok_hol_table on the current table (5400, 5401, 5403), the date as a
 * required date (1100, 1200, 1300, 1500), the action (5300); after these checks pass err_code is written
 * 0. A refusal leaves the table and the count as they were. */
ORVEL_EXPORT(int32_t) hol_maint(int32_t m, int32_t d, int32_t y, int32_t action, int32_t* hol_count, int32_t* holidays,
                                int32_t validate, uint32_t* err_code);

/* 1 for a business day, 0 for a Saturday, Sunday or holiday. With validate: the date (1100, 1200, 1300,
 * 1500), then the table (5400, 5401, 5403); on failure 0. */
ORVEL_EXPORT(int32_t) is_bdt(int32_t m, int32_t d, int32_t y, int32_t hol_count, const int32_t* holidays,
                             int32_t validate, uint32_t* err_code);

/* 1 for a Saturday or Sunday, else 0. With validate the date is checked (1100, 1200, 1300, 1500). */
ORVEL_EXPORT(int32_t) is_weekend(int32_t m, int32_t d, int32_t y, int32_t validate, uint32_t* err_code);

/* Writes the business day reached from the date and returns its year: the date itself when it is a
 * business day; otherwise, for dir >= 0, the following business day (a weekend jumps to the Monday, a
 * holiday moves one day on, until a business day), for dir < 0 the preceding one. A plain roll: it does
 * not turn back at a month end. Checks and errors as is_bdt; on failure 0 and nothing written. */
ORVEL_EXPORT(int32_t) adj_to_bdt(int32_t m, int32_t d, int32_t y, int32_t dir, int32_t* m_out, int32_t* d_out,
                                 int32_t* y_out, int32_t hol_count, const int32_t* holidays, int32_t validate,
                                 uint32_t* err_code);

/* Rolls each of the n dates of three parallel arrays that is not a business day, in place, as adj_to_bdt
 * in direction dir; *adjusted becomes 1 when any date moved, else 0. Returns the number of dates moved.
 * n above 1000 or negative is 14010 (with or without validation). With validate: each date as a required
 * date, the first bad one 12000 + its index; then the table (5400, 5401, 5403). On failure 0, and neither
 * the dates nor *adjusted are written. */
ORVEL_EXPORT(int32_t) adj_cfs_dts(int32_t* months, int32_t* days, int32_t* years, int32_t n, const int32_t* holidays,
                                  int32_t hol_count, int32_t dir, int32_t* adjusted, int32_t validate,
                                  uint32_t* err_code);

/* Writes the date n business days from the date (n < 0: back) and returns its year. A start that is no
 * business day is first rolled in the direction of n (following for n >= 0, preceding for n < 0); whole
 * weeks of five business days are then counted as seven calendar days, the remainder over a weekend adds
 * two, and each holiday between the start and the result moves it one business day further. Friday + 1
 * is the Monday; Monday - 1 the Friday before. Checks and errors as is_bdt. */
ORVEL_EXPORT(int32_t) incr_by_bdys(int32_t m, int32_t d, int32_t y, int32_t n, int32_t* m_out, int32_t* d_out,
                                   int32_t* y_out, int32_t hol_count, const int32_t* holidays, int32_t validate,
                                   uint32_t* err_code);

/* Business days from date1 to date2 (negative when date2 is earlier; 0 for equal dates): 5 per whole
 * week plus the remainder, less 2 when the remainder crosses a weekend. Of the holidays only one is ever
 * deducted: the table's first entry, when it lies from the earlier date to the later one (a table whose
 * first entry is before the earlier date deducts nothing, however many holidays lie between). Both dates
 * must be business days, else 14000. With validate first: date1, date2 (1100, 1200, 1300, 1500), the
 * table (5400, 5401, 5403). On failure 0. */
ORVEL_EXPORT(int32_t) days_bus(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                               int32_t hol_count, const int32_t* holidays, int32_t validate, uint32_t* err_code);

/* Day of month of the occur-th weekday dow (1 Monday .. 7 Sunday) of the month; occur 1..5, 0 for the
 * last one (dwm_2_day(11, 1998, 4, 4) = 26, the fourth Thursday). A fifth weekday the month lacks is 2700
 * (with or without validation). With validate first: the first of the month as a date (1100, 1200), occur
 * (2720), dow (2710). On failure 0. */
ORVEL_EXPORT(int32_t) dwm_2_day(int32_t m, int32_t y, int32_t occur, int32_t dow, int32_t validate, uint32_t* err_code);

/* The day of dwm_2_day rolled to a business day as adj_to_bdt in direction dir; writes it and returns its
 * year. With validate: the checks of dwm_2_day, then the table (5400, 5401, 5403); then 2700. On failure 0
 * and nothing written. */
ORVEL_EXPORT(int32_t) dwm_2_bdt(int32_t m, int32_t y, int32_t occur, int32_t dow, int32_t dir, int32_t hol_count,
                                const int32_t* holidays, int32_t* m_out, int32_t* d_out, int32_t* y_out,
                                int32_t validate, uint32_t* err_code);

/* Moves the date n months (the year carried as in incr_by_mths) onto the occur-th weekday dow of that
 * month and returns the new year. Always validated as dwm_2_day on the new month (1100, 1200, 2720, 2710,
 * 2700); on failure 0 and the date is left as it was. */
ORVEL_EXPORT(int32_t) incr_by_mdwm(int32_t n, int32_t occur, int32_t dow, int32_t* m, int32_t* d, int32_t* y,
                                   uint32_t* err_code);

/* incr_by_mdwm by n coupon periods: n * (12 / cpn_freq) months, a frequency below 1 counting as 1 (and
 * one above 12 as periods of no months). */
ORVEL_EXPORT(int32_t) incr_by_pdwm(int32_t n, int32_t cpn_freq, int32_t occur, int32_t dow, int32_t* m, int32_t* d,
                                   int32_t* y, uint32_t* err_code);

/* Splits a packed date YYYYMMDD (or YYMMDD) into month, day and year, and returns the year: day = dt mod
 * 100, month = (dt / 100) mod 100, year = dt / 10000. A year above 99 is kept, and so is a two-digit year
 * when month and day are both 0 (a blank date); otherwise a two-digit year becomes 2000 + year when it is
 * at most pivot_yr, 1900 + year above it (as dt_2_YYYY). The parts are not validated: 10150 gives
 * 1/50/2001. Cannot fail. */
ORVEL_EXPORT(int32_t) breakup_date(int32_t dt, int32_t pivot_yr, int32_t* m, int32_t* d, int32_t* y);

#endif /* ORVEL_CALENDAR_H */
