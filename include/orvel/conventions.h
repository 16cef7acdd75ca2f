/*
 * ORVEL named conventions: a name for every code the library takes, so that a caller can write
 * ORVEL_DC_ACT_ACT instead of 1, ORVEL_MKT_UKGB instead of 410. Each list is an X-macro, the one source
 * of both these names and the tables inside the library (the market defaults are the rows of
 * ORVEL_MARKET_TABLE; the error numbers are ORVEL_ERROR_TABLE in frame.h). The orvel command accepts
 * each name, with or without its ORVEL_ prefix, wherever it takes an integer (`orvel call days_b_MDYs
 * 1/15/2024 7/15/2024 ACT_ACT`).
 */
#ifndef ORVEL_CONVENTIONS_H
#define ORVEL_CONVENTIONS_H

/* Day-count codes (day_type, odd_day_type): X(name, code, meaning). */
#define ORVEL_DAY_COUNT_TABLE(X)                                                                        \
    X(ORVEL_DC_ACT_ACT, 1, "actual/actual: actual days over the actual days of the year from the date")  \
    X(ORVEL_DC_30_360_NASD, 2, "30/360, NASD rule")                                                  \
    X(ORVEL_DC_30_360_MSRB, 3, "30/360, MSRB rule (US municipals)")                                  \
    X(ORVEL_DC_30_360_SIA_FEB, 4, "30/360, SIA rule with February month ends")                        \
    X(ORVEL_DC_30E_360, 5, "30E/360, AIBD (Eurobond) rule")                                           \
    X(ORVEL_DC_30_360_EOM, 6, "30/360 with month ends counted as the 30th")                           \
    X(ORVEL_DC_ACT_360, 7, "actual/360 (money markets, bills)")                                      \
    X(ORVEL_DC_ACT_365, 8, "actual/365 by anniversary years")                                        \
    X(ORVEL_DC_ACT_365_NL, 9, "actual/365 without 29 February")                                      \
    X(ORVEL_DC_30_360_SIA, 10, "30/360, SIA rule (US corporates and municipals)")                     \
    X(ORVEL_DC_30E_360_ROLL, 11, "30/360 European with the 31st rolled forward")                      \
    X(ORVEL_DC_ACT_365_FIXED, 12, "actual/365 fixed (gilts, Irish and Italian bonds)")                \
    X(ORVEL_DC_NL_365, 13, "no-leap days/365 (Japanese bonds)")

/* Coupon frequencies (cpn_freq): X(name, payments a year, meaning). */
#define ORVEL_FREQUENCY_TABLE(X)                                                                        \
    X(ORVEL_ANNUAL, 1, "one coupon a year")                                                         \
    X(ORVEL_SEMIANNUAL, 2, "two coupons a year")                                                    \
    X(ORVEL_QUARTERLY, 4, "four coupons a year")                                                    \
    X(ORVEL_MONTHLY, 12, "twelve coupons a year")

/* What a given value is, and what to compute (given_type, calc_type), the final-period rule (l1p_rule),
 * the ex-dividend selector of bond_ex_ai (ex_type), prepayment speed kinds (spd_type) and the business-day
 * roll direction (dir): X(name, code, meaning). */
#define ORVEL_SELECTOR_TABLE(X)                                                                         \
    X(ORVEL_GIVEN_YIELD, 1, "the given value is a yield: the price is wanted")                       \
    X(ORVEL_GIVEN_PRICE, 2, "the given value is a price: the yield is wanted")                       \
    X(ORVEL_GIVEN_DISCOUNT, 3, "the given value is a discount rate")                                  \
    X(ORVEL_CALC_PRICE, 1, "calc_type: price from yield")                                             \
    X(ORVEL_CALC_YIELD, 2, "calc_type: yield from price")                                             \
    X(ORVEL_L1P_COMPOUND, 1, "l1p_rule: compound kernels to the end")                                 \
    X(ORVEL_L1P_SIMPLE, 2, "l1p_rule: simple interest while settlement lies in the last period")     \
    X(ORVEL_EX_NONE, 0, "ex_type: no ex-dividend rule")                                               \
    X(ORVEL_EX_BY_SETTLE, 1, "ex_type: the ex-dividend date tested against settlement")                \
    X(ORVEL_EX_BY_TRADE, 2, "ex_type: the ex-dividend date tested against the trade date")             \
    X(ORVEL_SPD_CPR, 1, "spd_type: conditional prepayment rate, percent a year")                      \
    X(ORVEL_SPD_SMM, 2, "spd_type: single monthly mortality, percent a month")                        \
    X(ORVEL_SPD_PSA, 3, "spd_type: percent of the standard prepayment ramp")                          \
    X(ORVEL_ROLL_PRECEDING, -1, "dir: roll to the preceding business day")                           \
    X(ORVEL_ROLL_FOLLOWING, 1, "dir: roll to the following business day")

/* Market codes (sec_type) and their default conventions, the table get_sec_dflt and every market family
 * read: X(name, code, day_type, eom, cpn_freq, odd_day_type, mkt_opt5, l1p_rule, mkt_opt7, mkt_opt8,
 * mkt_opt9, mkt_opt10, market). -1: the market leaves that slot to the caller. Ascending by code. */
#define ORVEL_MARKET_TABLE(X)                                                                                        \
    X(ORVEL_MKT_US_MUNI_RISK, 3, 10, 1, 2, -1, -1, -1, -1, -1, -1, -1, "US municipal bonds (usmb py_ai, py_tax, risk, py_vol)") \
    X(ORVEL_MKT_US_CORP_RISK, 4, 10, 1, 2, -1, -1, -1, -1, -1, -1, -1, "US corporate bonds (uscb py_ai, risk)")   \
    X(ORVEL_MKT_UST, 10, 1, 1, 2, -1, -1, -1, -1, -1, -1, -1, "US Treasury notes and bonds (ustb, usti)")         \
    X(ORVEL_MKT_UST_OTHER, 11, 1, 1, 2, -1, -1, -1, -1, -1, -1, -1, "US Treasury (no family passes it)")          \
    X(ORVEL_MKT_USBL, 12, 7, 1, -1, -1, -1, -1, -1, -1, -1, -1, "US Treasury bills (usbl)")                      \
    X(ORVEL_MKT_US_AGENCY, 20, 2, 0, 2, -1, -1, -1, -1, -1, -1, -1, "US agency bonds (usab, usam, usas)")         \
    X(ORVEL_MKT_US_MUNI, 30, 10, 1, 2, -1, -1, -1, -1, -1, -1, -1, "US municipal bonds (usmb, usmm, usms)")       \
    X(ORVEL_MKT_US_CORP, 40, 10, 1, 2, -1, -1, -1, -1, -1, -1, -1, "US corporate bonds (uscb, uscm, uscs)")       \
    X(ORVEL_MKT_ARGB, 90, 5, 1, 2, -1, -1, 2, -1, -1, -1, -1, "Argentine government bonds (argb)")              \
    X(ORVEL_MKT_ACGB, 100, 1, 1, 2, 12, -1, 2, -1, -1, -1, -1, "Australian Commonwealth bonds (acgb)")          \
    X(ORVEL_MKT_AUGB, 110, 5, 1, 1, -1, -1, 2, -1, -1, -1, -1, "Austrian government bonds (augb)")              \
    X(ORVEL_MKT_BLGB, 120, 5, 1, 1, -1, 5, 1, -1, -1, -1, -1, "Belgian government bonds (blgb)")                \
    X(ORVEL_MKT_CNGB, 140, 1, 1, 2, -1, -1, -1, 8, -1, -1, -1, "Canadian government bonds (cngb)")              \
    X(ORVEL_MKT_DNGB, 160, 5, 1, 1, -1, -1, -1, -1, -1, -1, -1, "Danish government bonds (dngb)")               \
    X(ORVEL_MKT_GMGB, 170, 5, -1, -1, -1, -1, -1, -1, -1, -1, -1, "German Bunds (gmgb, gmbf, gmms, gmis_exd)")  \
    X(ORVEL_MKT_GMIS, 171, 5, -1, -1, -1, -1, 1, -1, -1, -1, -1, "German Bunds compounding to the end (gmis)")  \
    X(ORVEL_MKT_FNGB, 180, 5, 1, 1, -1, -1, 2, -1, -1, -1, -1, "Finnish government bonds (fngb)")               \
    X(ORVEL_MKT_FRGB, 190, 1, 1, 1, -1, -1, 1, -1, 0, -1, -1, "French government bonds, OATs (frgb)")          \
    X(ORVEL_MKT_GRGB, 200, 5, 1, 1, -1, -1, -1, -1, -1, -1, -1, "Greek government bonds (grgb)")                \
    X(ORVEL_MKT_IRGB, 230, 12, 0, 2, -1, -1, -1, -1, -1, -1, -1, "Irish government bonds (irgb)")               \
    X(ORVEL_MKT_ITGB, 250, 12, 1, -1, -1, -1, -1, 5, 1, -1, -1, "Italian BTPs and floaters (itgb, itgf)")       \
    X(ORVEL_MKT_JPGB, 260, 13, 1, 2, -1, -1, -1, -1, -1, 2, -1, "Japanese government bonds (jpgb)")             \
    X(ORVEL_MKT_JPDB, 261, 13, 1, 1, -1, -1, -1, -1, -1, 1, -1, "Japanese discount bonds (jpdb)")               \
    X(ORVEL_MKT_MXGB, 280, 5, 1, 2, -1, -1, -1, -1, -1, -1, -1, "Mexican government bonds (mxgb)")              \
    X(ORVEL_MKT_DUSL, 290, 5, 1, 1, -1, -1, -1, -1, -1, -1, -1, "Dutch state loans (dusl)")                     \
    X(ORVEL_MKT_NZGB, 310, 1, 1, 2, -1, -1, 2, -1, -1, -1, -1, "New Zealand government bonds (nzgb)")           \
    X(ORVEL_MKT_SPGB, 360, 12, 1, -1, -1, -1, -1, 1, -1, -1, -1, "Spanish government bonds (spgb)")             \
    X(ORVEL_MKT_SDGB, 370, 5, 1, 1, -1, -1, 2, -1, -1, -1, -1, "Swedish government bonds (sdgb)")               \
    X(ORVEL_MKT_SWGB, 380, 10, 1, 1, -1, -1, -1, -1, -1, -1, -1, "Swiss government bonds (swgb)")               \
    X(ORVEL_MKT_UKGB, 410, 12, 0, 2, -1, -1, 1, -1, -1, -1, -1, "UK gilts, compound throughout (ukgb ai, exd, py_ai, risk)") \
    X(ORVEL_MKT_UKGB_L1P, 411, 12, 0, 2, -1, -1, 2, -1, -1, -1, -1, "UK gilts, simple in the last period (ukgb 1di, cfs, fpi, pip)") \
    X(ORVEL_MKT_JPCB, 4260, 13, 1, 2, -1, -1, -1, -1, -1, 1, 1, "Japanese corporate bonds (jpcb)")

#define ORVEL_CODE_ENUM_(name, code, ...) name = code,
enum orvel_day_count { ORVEL_DAY_COUNT_TABLE(ORVEL_CODE_ENUM_) };
enum orvel_frequency { ORVEL_FREQUENCY_TABLE(ORVEL_CODE_ENUM_) };
enum orvel_selector { ORVEL_SELECTOR_TABLE(ORVEL_CODE_ENUM_) };
enum orvel_market { ORVEL_MARKET_TABLE(ORVEL_CODE_ENUM_) };
#undef ORVEL_CODE_ENUM_

#endif /* ORVEL_CONVENTIONS_H */
