/*
 * ORVEL fixed-income analytics: the calling frame shared by every export.
 *
 * Every export is a plain C function. Dates are three int32 arguments (month, day, four-digit year);
 * results come back as the function value and through output pointers; a function that can fail takes
 * `err_code` as its last argument and, on failure, writes an error number there and returns 0 (or 0.0;
 * `rslt_fix_plc` returns its unrounded input, `hol_maint` the table's count for a holiday already there).
 * On success `err_code` is left as it was (clean-ups excepted: a date-group validator that supplies a
 * default for a blank optional date writes 0 over its own probe's 1500, `ok_hol_table` writes 0 when it
 * accepts a table, `hol_maint` once its checks pass, and the date sorts write 0 on a list of two or more
 * dates that is not strictly descending). Set it to 0 before a call and test it afterwards: a result of 0 alone is no sign of failure.
 *
 * With `validate` non-zero a function checks its arguments (the ok_ validators) before computing and stops
 * at the first failure; with 0 it trusts them. Rates, yields and percentages are in percent (6.5 = 6.5%).
 * Prices, redemption values and accrued interest are per 100 of face.
 *
 * The library keeps no state, allocates no memory, starts no threads and prints nothing; every function
 * is re-entrant.
 */
#ifndef ORVEL_FRAME_H
#define ORVEL_FRAME_H

#include <stdint.h>

/* ORVEL_EXPORT(type) opens every declaration and definition of an export: C linkage, visible from the
 * shared library, and on 32-bit Windows the callee-pops (__stdcall) convention. Windows exports come from
 * the module definition (plain and decorated name), not from dllexport. */
#if defined(_WIN32) && (defined(__i386__) || defined(_M_IX86))
#define ORVEL_CALL __stdcall
#else
#define ORVEL_CALL
#endif
#if defined(_WIN32)
#define ORVEL_API
#elif defined(__GNUC__)
#define ORVEL_API __attribute__((visibility("default")))
#else
#define ORVEL_API
#endif
#ifdef __cplusplus
#define ORVEL_LINKAGE extern "C"
#else
#define ORVEL_LINKAGE extern
#endif
#define ORVEL_EXPORT(type) ORVEL_LINKAGE ORVEL_API type ORVEL_CALL

/* Error numbers. A composite validator adds the role of the failing date to the base number (1 maturity,
 * 2 dated date, 3 first coupon, 4 trade date, 5 step date, 6 last regular coupon, 7 settlement, 8 the
 * date checked by ok_lt_MDY, 9 ex-dividend date): 1207 is a bad settlement month. An ordering failure adds
 * both roles, earlier first: 2171 is settlement not before maturity. 4000 + k is a bad given value of
 * kind k; 12000 + i a bad date at index i of a date list. err_2_text() gives the meaning of any number.
 *
 * No number built on a base can reach another meaning, because every part added to a base is bounded:
 *   a role 1..9 on 1100, 1200, 1300, 1500;        two roles 11..99 on 2000 and 2100, 31 or 36 on 2200;
 *   +1 for a code of -1 on 500, 590, 600;          4000 + a given kind 1..22;
 *   4100 + 1 (a coupon amount) or 8 (a risk-free rate); 4200 + 1 (a redemption to discount);
 *   4300 + 1 or 2 (the first or second tax rate);  16000 + a flow index 0..999 (a flow after the period);
 *   4800 + least, for a least of 0..299 only (4800..5099): ok_days_per writes 4750 for any other least;
 *   12000 + index, for indexes 0..999 only (12000..12999): every function that reports a bad list date by
 *   its index refuses a list longer than ORVEL_DATE_LIST_MAX (1000) dates with 14010 (ok_sf_in: 14300)
 *   before it checks any date of the list. Without validation nothing is reported by index and no length bound
 *   applies; the sorts report a bad date by the number of ok_MDY and take a list of any length.
 * The rows 501, 591, 601, 2057, 2097, 2179, 2191, 2199, 4013, 4101, 4108, 4201, 4301 and 4302 are built numbers whose
 * meaning is spelled out for the one check that writes them.
 *
 * One row per number: constant, number, meaning. The table is append-only. */
#define ORVEL_ERROR_TABLE(X)                                                                        \
    X(ORVEL_E_SELECTOR, 200, "a selector or code argument is outside its set")                     \
    X(ORVEL_E_GIVEN_PS, 210, "the price/spread selector is not allowed")                           \
    X(ORVEL_E_SEC_TYPE, 300, "security type or method not known")                                  \
    X(ORVEL_E_DAY_TYPE, 500, "day-count code (day_type) not 1..13")                                \
    X(ORVEL_E_DAY_TYPE_MISSING, 501, "day-count code (day_type) not supplied (-1)")                \
    X(ORVEL_E_USPM_TYPE1, 505, "payment-type code invalid")                                        \
    X(ORVEL_E_FLT_CODE, 535, "floating-rate input code outside its set")                           \
    X(ORVEL_E_SIDE, 590, "side code not 1 or 2")                                                   \
    X(ORVEL_E_SIDE_MISSING, 591, "side code not supplied (-1)")                                    \
    X(ORVEL_E_CPN_FREQ, 600, "coupon frequency (cpn_freq) not 1, 2, 4 or 12")                      \
    X(ORVEL_E_CPN_FREQ_MISSING, 601, "coupon frequency (cpn_freq) not supplied (-1)")              \
    X(ORVEL_E_USPM_TYPE2, 605, "payment-type code does not fit the frequency")                     \
    X(ORVEL_E_FLT_FREQ, 650, "floating-rate reset frequency invalid")                              \
    X(ORVEL_E_PCNT_SPD_MODEL, 700, "prepayment model code not known")                              \
    X(ORVEL_E_USPM_TYPE3, 705, "payment-type code does not fit the security")                      \
    X(ORVEL_E_PPS, 970, "prepayment schedule invalid")                                             \
    X(ORVEL_E_EX_TYPE, 960, "ex-dividend rule code (ex_type) not 0, 1 or 2")                       \
    X(ORVEL_E_YEAR, 1100, "year outside 1800..2300")                                               \
    X(ORVEL_E_MONTH, 1200, "month outside 1..12")                                                  \
    X(ORVEL_E_DAY, 1300, "day outside 1..last day of the month")                                   \
    X(ORVEL_E_BLANK, 1500, "a required date is blank")                                             \
    X(ORVEL_E_EXDIV, 1609, "ex-dividend date outside the coupon period of settlement")             \
    X(ORVEL_E_NOT_LE, 2000, "date must not be after the other")                                    \
    X(ORVEL_E_NOT_LT, 2100, "date must be before the other")                                       \
    X(ORVEL_E_EXDIV_ORDER, 2191, "ex-dividend date must be before maturity")                       \
    X(ORVEL_E_SYNC, 2200, "dates not on one coupon cycle")                                         \
    X(ORVEL_E_ODD_SYNC, 2206, "odd-period dates not on one coupon cycle")                          \
    X(ORVEL_E_LT_MDY, 2281, "date not a whole number of coupon periods before the other")          \
    X(ORVEL_E_FRN_DATES, 2600, "floating-rate note schedule inconsistent")                         \
    X(ORVEL_E_DOW, 2710, "day of week not 1..7")                                                   \
    X(ORVEL_E_DOW_OCCUR, 2720, "occurrence of a weekday in a month not 0..5")                      \
    X(ORVEL_E_ODD_PERIOD1, 2851, "odd first period shorter than 0 months")                 \
    X(ORVEL_E_ODD_PERIOD2, 2852, "odd first period longer than two coupon periods")                 \
    X(ORVEL_E_ODD_PERIOD3, 2853, "odd last period shorter than 0 months")                 \
    X(ORVEL_E_ODD_PERIOD4, 2854, "odd last period longer than two coupon periods")                 \
    X(ORVEL_E_ODD_PERIOD5, 2855, "first coupon date not the odd first period after the dated date")                 \
    X(ORVEL_E_ODD_PERIOD6, 2856, "last regular coupon date not the odd last period before maturity")                 \
    X(ORVEL_E_NEG_BASE, 4090, "1 + yield per period is negative: no price")                        \
    X(ORVEL_E_CPN_RATE, 4100, "coupon rate outside 0..3000")                                       \
    X(ORVEL_E_CPN_AMT, 4101, "next coupon amount outside 0..3000")                                 \
    X(ORVEL_E_REDEMPTN, 4200, "redemption value not positive")                                     \
    X(ORVEL_E_TAX_RATE, 4300, "tax rate outside 0..100")                                           \
    X(ORVEL_E_TAX1, 4301, "first tax rate outside 0..100")                                         \
    X(ORVEL_E_TAX2, 4302, "second tax rate outside 0..100")                                        \
    X(ORVEL_E_DAYS_PCNT, 4400, "fraction of a period (nxt_frac) negative, or zero in a final-period kernel") \
    X(ORVEL_E_LCPN_LEN, 4410, "last coupon length not positive")                                   \
    X(ORVEL_E_AI, 4500, "accrued interest negative")                                               \
    X(ORVEL_E_FULL_PER, 4600, "number of whole periods below 1")                                   \
    X(ORVEL_E_DAYS_YEAR, 4700, "days in the year not 360..366")                                    \
    X(ORVEL_E_SF_AMT, 5100, "sinking-fund amount negative")                                        \
    X(ORVEL_E_DOY, 5103, "day of year not 1..366")                                                 \
    X(ORVEL_E_DOY_YEAR, 5104, "year of day-of-year outside 1800..2300")                            \
    X(ORVEL_E_NEG_YEARS, 5200, "negative number of years")                                         \
    X(ORVEL_E_MAINT_ACTION, 5310, "date-list action code not 1, -1 or -2")                         \
    X(ORVEL_E_ABD_FLAG, 5350, "business-day flag not 0, 1 or 2")                                   \
    X(ORVEL_E_HOL_COUNT, 5400, "holiday count outside 0..3000")                                    \
    X(ORVEL_E_HOL_ORDER, 5401, "holiday outside 1800..2300 or not after the one before")           \
    X(ORVEL_E_HOL_WEEKEND, 5403, "holiday on a Saturday or Sunday")                                \
    X(ORVEL_E_BD_SCHEDULE1, 5410, "weekday occurrence of a business-day schedule not 0..5")         \
    X(ORVEL_E_BD_SCHEDULE2, 5411, "weekday of a business-day schedule not 1..7")         \
    X(ORVEL_E_BD_SCHEDULE3, 5412, "holiday table of a business-day schedule invalid")         \
    X(ORVEL_E_BD_SCHEDULE4, 5413, "coupon frequency of a business-day schedule not 1, 2, 4 or 12")         \
    X(ORVEL_E_SRVC_FEE_LOW, 6201, "servicing fee below 0")                                         \
    X(ORVEL_E_SRVC_FEE_HIGH, 6202, "servicing fee above its bound")                                \
    X(ORVEL_E_PAYMT_DLY, 6300, "payment delay negative")                                           \
    X(ORVEL_E_TERM_LOW, 6401, "term below its lower bound")                                        \
    X(ORVEL_E_TERM_HIGH, 6402, "term above its upper bound")                                       \
    X(ORVEL_E_POOL_AGE_LOW, 6501, "pool age negative")                                             \
    X(ORVEL_E_POOL_AGE_HIGH, 6502, "pool age not below the term")                                  \
    X(ORVEL_E_AVG_LIFE_LOW, 6601, "average life negative")                                         \
    X(ORVEL_E_AVG_LIFE_HIGH, 6602, "average life above the term")                                  \
    X(ORVEL_E_M_INC_BAL_LOW, 6701, "month of balance increase negative")                           \
    X(ORVEL_E_M_INC_BAL_HIGH, 6702, "month of balance increase above the term")                    \
    X(ORVEL_E_RT_BALINC, 6800, "rate of balance increase negative")                                \
    X(ORVEL_E_SD_2_MD_LOW, 6901, "days to maturity below 1")                                       \
    X(ORVEL_E_SD_2_MD_HIGH, 6902, "days to maturity above 600")                                    \
    X(ORVEL_E_PCNT_SPD1, 7001, "prepayment speed invalid for the model")                           \
    X(ORVEL_E_PCNT_SPD2, 7002, "prepayment speed invalid for the model")                           \
    X(ORVEL_E_PCNT_SPD3, 7003, "prepayment speed invalid for the model")                           \
    X(ORVEL_E_PCNT_SPD4, 7004, "prepayment speed invalid for the model")                           \
    X(ORVEL_E_CONV_RATE, 7100, "conversion rate not positive, or (mtg_ppr) ending month not after the starting one") \
    X(ORVEL_E_LIST_ORDER1, 7701, "first date list not in ascending order")                         \
    X(ORVEL_E_LIST_ORDER2, 7702, "second date list not in ascending order")                        \
    X(ORVEL_E_ER_IN, 8510, "effective-rate inputs invalid")                                        \
    X(ORVEL_E_SOLVER, 9020, "the solver did not converge (degenerate step, value not finite, or 1000 iterations)") \
    X(ORVEL_E_FLT_CPN_COUNT, 10040, "floating-rate coupon count not positive")                     \
    X(ORVEL_E_FLT_RST_COUNT, 10041, "floating-rate reset count not positive")                      \
    X(ORVEL_E_FLT_INPUT2, 10042, "floating-rate coupon or reset inputs inconsistent")              \
    X(ORVEL_E_FLT_INPUT3, 10043, "floating-rate coupon or reset inputs inconsistent")              \
    X(ORVEL_E_FLT_INPUT4, 10044, "floating-rate coupon or reset inputs inconsistent")              \
    X(ORVEL_E_FLT_RST_ORDER, 10045, "floating-rate reset dates out of order")                      \
    X(ORVEL_E_FLT_FIRST, 10046, "first floating-rate list date after the reference date")          \
    X(ORVEL_E_FLT_LAST, 10047, "reference date not before the last floating-rate list date")       \
    X(ORVEL_E_BALLOON, 11101, "balloon month negative")                                            \
    X(ORVEL_E_DAYS_ACRD, 11200, "days accrued negative")                                           \
    X(ORVEL_E_HLDNG_MTH_LOW, 11301, "holding month below 1")                                       \
    X(ORVEL_E_HLDNG_MTH_HIGH, 11302, "holding month above the term")                               \
    X(ORVEL_E_LOCK_OUT, 11401, "lock-out months negative")                                         \
    X(ORVEL_E_PMTINC_LOW, 11501, "payment increase rate or month negative")                        \
    X(ORVEL_E_PMTINC_HIGH, 11502, "month of payment increase above the term")                      \
    X(ORVEL_E_WAM_LOW, 11901, "remaining term below 1")                                            \
    X(ORVEL_E_WAM_HIGH, 11902, "remaining term above the original term")                           \
    X(ORVEL_E_CAPACITY, 13000, "output arrays too small: the count needed is written")              \
    X(ORVEL_E_MBS_BAL, 13100, "balance not positive")                                              \
    X(ORVEL_E_MBS_FCTR, 13200, "pool factor negative")                                             \
    X(ORVEL_E_FACE, 14100, "face amount negative")                                                 \
    X(ORVEL_E_SF_IN, 14300, "sinking-fund inputs invalid")                                         \
    X(ORVEL_E_DWM_MATURITY, 2241, "maturity date not on the weekday-of-month rule")                \
    X(ORVEL_E_DWM_LAST_CPN, 2246, "last regular coupon date not on the weekday-of-month rule")     \
    X(ORVEL_E_GIVEN_SPREAD, 4031, "given spread not a finite number")                              \
    X(ORVEL_E_FLT_MARGIN, 4130, "floating-rate margin outside -3000..3000")                        \
    X(ORVEL_E_ER_DATED, 8512, "early redemption date before the dated date")                      \
    X(ORVEL_E_SF_AFTER_MAT, 14301, "sinking-fund date after maturity")                             \
    X(ORVEL_E_FLT_RST_SETTLE, 2057, "last reset date after settlement")                            \
    X(ORVEL_E_FRN_RST_SETTLE, 2097, "last reset date after settlement")                            \
    X(ORVEL_E_FRN_NEXT_RST, 2179, "settlement not before the next reset date")                     \
    X(ORVEL_E_FRN_RST_ORDER, 2199, "last reset date not before the next reset date")               \
    X(ORVEL_E_LIST_LENGTH, 14010, "date list longer than 1000 dates")                              \
    X(ORVEL_E_DAYS_PER_BELOW, 4750, "days in the period below the least given (a least outside 0..299)") \
    X(ORVEL_E_MBS_CAPACITY, 10010, "projection arrays hold no more entries than the months projected") \
    X(ORVEL_E_MBS_MONTHS, 15600, "more than 600 monthly flows or months")                          \
    X(ORVEL_E_MBS_ELEMENT, 15601, "an array element not a finite number, or a balance negative")   \
    X(ORVEL_E_MBS_PRN_SUM, 15602, "principal flows sum to zero or less: no half-life")             \
    X(ORVEL_E_MBS_PRICE, 15603, "price of the flows zero or less: no duration")                    \
    X(ORVEL_E_MBS_SHIFT, 15604, "yield shift not above 0 and at most 10 percent")                  \
    X(ORVEL_E_MBS_SF_SUM, 15605, "sinking-fund amounts retire more than the balance")              \
    X(ORVEL_E_MBS_MONTH_ORDER, 15606, "maturity not in a later month than settlement")             \
    X(ORVEL_E_MBS_HORIZON, 15607, "horizon value or time not positive: no annual return")          \
    X(ORVEL_E_MBS_GPM, 15608, "graduated payments have no value at these rates")                   \
    X(ORVEL_E_ACT_YEAR, 15100, "actual-year method (act_yr_type) gives no year of 365 or 366 days") \
    X(ORVEL_E_NO_QUOTE, 15101, "quote not finite (a 100% tax rate, a zero price, or a term of no days)") \
    X(ORVEL_E_SALE_DATE, 15102, "sale date invalid or blank")                                      \
    X(ORVEL_E_SALE_ORDER, 15103, "purchase date not before the sale date")                         \
    X(ORVEL_E_SALE_AFTER_MAT, 15104, "sale date after maturity")                                   \
    X(ORVEL_E_NOT_FINAL, 15900, "settlement not in the final coupon period")                       \
    X(ORVEL_E_REINV_RATE, 15901, "reinvestment rate not finite, or 1 + rate per period not positive") \
    X(ORVEL_E_TAX_ALL, 15902, "tax rate of 100%: no taxable equivalent")                           \
    X(ORVEL_E_PRICE_MOVE, 15903, "price move not in (0, 100]")                                     \
    X(ORVEL_E_IRR_START, 9010, "internal rate of return: no value at the start rates")             \
    X(ORVEL_E_DM_MODE, 270, "discount-margin period basis (mode) not 1 or 2")                      \
    X(ORVEL_E_RESERVED, 630, "a reserved argument is not zero")                                    \
    X(ORVEL_E_DATE_WHICH, 820, "date-search selector not 1 (latest) or 2 (earliest)")              \
    X(ORVEL_E_CFS_COUNT, 15300, "cash-flow count above 100000")                                    \
    X(ORVEL_E_CFS_AMOUNT, 15301, "a cash-flow amount not a finite number")                         \
    X(ORVEL_E_CFS_TIME, 15302, "a cash-flow time not a finite number")                             \
    X(ORVEL_E_CFS_PREC, 15303, "decimal places (prec) not 0..12")                                  \
    X(ORVEL_E_CFS_GROUP, 15304, "payments in a group of equal flows not 0..100000")                \
    X(ORVEL_E_CFS_RATE, 15305, "a rate (reinvestment, horizon, index, period) or a guess not finite") \
    X(ORVEL_E_CFS_HORIZON, 15306, "horizon not after settlement, or no flow after settlement")     \
    X(ORVEL_E_CFS_VALUE, 15307, "the flows are worth 0: no duration or convexity")                 \
    X(ORVEL_E_CFS_NO_DISC, 15308, "a flow at time 0 or of amount 0 has no discount rate")          \
    X(ORVEL_E_CFS_TAX_ALL, 15309, "a tax of 100%: no tax-equivalent yield")                        \
    X(ORVEL_E_CFS_SHIFT, 15310, "yield shift or price change not a finite number")                 \
    X(ORVEL_E_NO_FIFTH_WEEKDAY, 2700, "the month has no fifth such weekday")                       \
    X(ORVEL_E_HOL_ACTION, 5300, "holiday table action not -1, 0 or 1")                             \
    X(ORVEL_E_HOL_ABSENT, 5301, "holiday to delete not in the table")                              \
    X(ORVEL_E_HOL_PRESENT, 5302, "holiday to insert already in the table")                         \
    X(ORVEL_E_HOL_INSERT_WEEKEND, 5303, "holiday to insert falls on a Saturday or Sunday")         \
    X(ORVEL_E_NOT_BUSINESS_DAY, 14000, "date is not a business day")                               \
    X(ORVEL_E_EXD_RULE, 965, "ex-dividend rule not 1, 2 or 3")                                     \
    X(ORVEL_E_HOL_FULL, 15700, "holiday table full: 3000 entries, no room to insert")              \
    X(ORVEL_E_CPY, 675, "compounding periods a year (cpy) below 1")                                \
    X(ORVEL_E_PPY, 680, "payment periods a year (ppy) below 1")                                    \
    X(ORVEL_E_NO_RATE, 681, "no interest rate gives these cash flows (payment and amounts of one sign)") \
    X(ORVEL_E_RATE_DOMAIN, 682, "a candidate rate has 1 + rate or |rate| below 1e-10")             \
    X(ORVEL_E_FACTOR_ZERO, 8000, "compound factor exactly 0: no present value")                    \
    X(ORVEL_E_REDEMPTN_PV, 4201, "redemption value not positive")                                  \
    X(ORVEL_E_FV, 15201, "future value (fv) not a finite number")                                  \
    X(ORVEL_E_PMT, 15202, "payment (pmt) not a finite number")                                     \
    X(ORVEL_E_PV, 15203, "present value or amount not a finite number")                            \
    X(ORVEL_E_RATE, 15204, "interest rate not a finite number")                                    \
    X(ORVEL_E_PERIODS, 15205, "number of periods not a finite number")                             \
    X(ORVEL_E_CMPD_FREQ, 15206, "compounding frequency not above 0")                               \
    X(ORVEL_E_AMORT_ROWS, 15210, "amortization table rows outside 0..100000")                      \
    X(ORVEL_E_AMORT_SHORT, 15211, "amortization table has fewer rows than whole periods in n")     \
    X(ORVEL_E_DIETZ_DENOM, 710, "Modified Dietz denominator below 1e-7 in magnitude")              \
    X(ORVEL_E_BEGIN_VAL, 720, "beginning value not above 1e-7, or fewer than two values")          \
    X(ORVEL_E_END_VAL, 730, "ending value not above 1e-7 (or rejected by the return solve)")       \
    X(ORVEL_E_ZERO_BASE, 740, "a beginning value below 1e-7, or a total weight of zero")           \
    X(ORVEL_E_SD_COUNT, 760, "fewer than two values for a standard deviation")                     \
    X(ORVEL_E_BETA, 770, "beta below 1e-7 in magnitude")                                           \
    X(ORVEL_E_FLOW_DAY, 810, "flow-day flag not 0 or 1")                                           \
    X(ORVEL_E_SD_KIND, 830, "standard deviation kind not -1, 0 or 1")                              \
    X(ORVEL_E_NO_DISPERSION, 9030, "weighted variance below 1e-7: no measurable dispersion")       \
    X(ORVEL_E_SHORT_PERIOD, 10100, "the period is shorter than one day")                           \
    X(ORVEL_E_FLOW_OUTSIDE, 14210, "a flow dated before the beginning or after the end of the period") \
    X(ORVEL_E_NO_FLOWS, 14250, "fewer than one flow")                                              \
    X(ORVEL_E_RF_RATE, 4108, "risk-free rate outside 0..3000")                                     \
    X(ORVEL_E_SD_SMALL, 4013, "standard deviation below 1e-7")                                     \
    X(ORVEL_E_PERF_COUNT, 15400, "more values than the maximum of 100000")                         \
    X(ORVEL_E_PERF_VALUE, 15401, "a return, value, amount or flow not a finite number")            \
    X(ORVEL_E_RETURN, 15402, "a return below -100 percent")                                        \
    X(ORVEL_E_PREC, 15403, "decimal places (prec) outside 0..12")                                  \
    X(ORVEL_E_PRINCIPAL, 15410, "proceeds or principal not above 0")                               \
    X(ORVEL_E_DEBT_PERIODS, 15411, "number of periods outside 1..100000")                          \
    X(ORVEL_E_DEBT_SRVC, 15412, "a debt service or principal amount negative or not finite")       \
    X(ORVEL_E_FX_RATE, 15420, "exchange rate not above 0")                                         \
    X(ORVEL_E_FX_DEP_RATE, 15421, "deposit rate not finite, or its interest to the forward date below -100 percent") \
    X(ORVEL_E_FX_DAYS, 15422, "days to the forward date outside 0..36600")                         \
    X(ORVEL_E_PPR_SCHED, 7200, "scheduled factor (starting factor times the balance ratio) not positive") \
    X(ORVEL_E_GPM_YEARS, 10030, "more loan years than the payment array holds")                    \
    X(ORVEL_E_MTH1, 11600, "starting month outside 0..remaining term - 1")                         \
    X(ORVEL_E_MTH2, 11700, "ending month outside 0..remaining term - 1")                           \
    X(ORVEL_E_ONE_MONTH, 11800, "the two months are not one month apart")                          \
    X(ORVEL_E_MTG_LONG, 15500, "term beyond 600 months, or an age or month outside the term")      \
    X(ORVEL_E_MTG_COUNT, 15501, "number of observations or speeds outside its range")              \
    X(ORVEL_E_MTG_ORDER, 15502, "months not increasing")                                           \
    X(ORVEL_E_MTG_NONFINITE, 15503, "the loan's terms give no finite result")                      \
    X(ORVEL_E_YLD_FREQ, 15800, "yield compounding frequency not 1, 2, 4 or 12")                    \
    X(ORVEL_E_YLD_FREQ_MISSING, 15801, "yield compounding frequency not supplied (-1)")            \
    X(ORVEL_E_MKT_OPT, 15802, "market option outside its set")                                     \
    X(ORVEL_E_PERIOD_ORDER, 15803, "end of the interest period before its start")                 \
    X(ORVEL_E_CFS_FLOWS, 15810, "a bond priced from its flows has more than 1200 of them")

#define ORVEL_ERROR_ENUM_(name, number, meaning) name = number,
enum orvel_error { ORVEL_ERROR_TABLE(ORVEL_ERROR_ENUM_) };
#undef ORVEL_ERROR_ENUM_

/* Bases that take a role or an index on top: 1100 + role, 2100 + roles, 4000 + kind, 4800 + least,
 * 12000 + index (the bounds above). */
#define ORVEL_E_GIVEN_BASE 4000
#define ORVEL_E_DAYS_PER_BASE 4800
#define ORVEL_DAYS_PER_LEAST_MAX 299
#define ORVEL_E_DATE_LIST_BASE 12000
/* The longest date list that a function reporting a bad date by its index (12000 + index) takes: MDY_maint
 * with validate, ok_flt_cpns, ok_flt_rcs and ok_sf_in. */
#define ORVEL_DATE_LIST_MAX 1000
/* A flow dated after the end of the period of a money-weighted return: 16000 + the flow's index (0..999;
 * the list is refused beyond ORVEL_DATE_LIST_MAX flows with 14010 first). */
#define ORVEL_E_FLOW_AFTER_END_BASE 16000

/* Date roles, added to a date error by the composite validators. */
enum orvel_role {
    ORVEL_ROLE_MATURITY = 1,
    ORVEL_ROLE_DATED = 2,
    ORVEL_ROLE_FIRST_CPN = 3,
    ORVEL_ROLE_TRADE = 4,
    ORVEL_ROLE_STEP = 5,
    ORVEL_ROLE_LAST_CPN = 6,
    ORVEL_ROLE_SETTLE = 7,
    ORVEL_ROLE_CHECKED = 8,
    ORVEL_ROLE_EXDIV = 9
};

/* ---- Version, rounding and price fractions ------------------------------------------------------- */

/* Version 1.32 of 3/19/97: writes 1 to *major, 32 to *minor and 3, 19, 97 to the release month, day and
 * two-digit year. The last four pointers are accepted and never touched. */
ORVEL_EXPORT(void) ZEBA_vers(int32_t* major, int32_t* minor, int32_t* rel_month, int32_t* rel_day,
                             int32_t* rel_year, int32_t* spare1, int32_t* spare2, int32_t* spare3,
                             int32_t* spare4);

/* num truncated toward zero (rnd = 0) or rounded half away from zero (any other rnd) to `places` decimals.
 * Only the fractional part f of |num| is scaled: the result is floor(f * 10^places + h) / 10^places plus the
 * integer part, h = 0 or 0.5, with num's sign put back, so a large integer part loses no precision. The
 * arithmetic is on the double as stored: 1.15 is stored as 1.14999999999999991 and truncates to 1.14 at 2
 * places; 1.3065 is stored as 1.30649999999999999467, but 1000 times its fraction rounds to exactly 306.5,
 * so at 3 places it rounds up to 1.307.
 * Defined for every argument, never NaN for a number:
 *   - 0 and -0, NaN, +inf and -inf come back unchanged;
 *   - places < 0 (any size): the integer part with num's sign (-2.7 gives -2), whatever rnd says: negative
 *     places do not round to tens;
 *   - places 0..308: as above (a num below 10^-places truncates to 0 with num's sign: -5e-324 gives -0);
 *   - places above 308 (up to INT32_MAX), where 10^places overflows: the scaling is done in two steps, so
 *     a tiny num is still cut at `places` decimals (1e-320 gives 0 at 320 places); once f * 10^places
 *     reaches 2^53 there are no digits left to cut and num comes back unchanged (for any num of at least
 *     1e-290, and for every num from 340 places on).
 * Cannot fail. */
ORVEL_EXPORT(double) d_trunc_rnd(double num, int32_t places, int32_t rnd);

/* rslt rounded to the places that the market of sec_type quotes a result of kind rslt_type (1..5; 2 is a
 * risk measure) in, with d_trunc_rnd: sec_type 1, 5, 10, 20 round to 6 places; 2 to 6 (7 for a risk
 * measure); 3, 4, 6, 8, 30, 40 truncate to 4 places and round that to 3 (a risk measure truncates to 3);
 * 7 is returned as it is. NaN and +-inf come back unchanged, without an error. Errors (checked in this
 * order): 200 rslt_type not 1..5; 300 sec_type not known. On either error rslt comes back unchanged (not 0). */
ORVEL_EXPORT(double) rslt_fix_plc(int32_t sec_type, int32_t rslt_type, double rslt, uint32_t* err_code);

/* A decimal price in handle-and-ticks form: i + (dec - i) * denom / 100 with i = dec truncated toward zero,
 * so the fraction holds the number of 1/denom units as two decimal digits (99.5 with denom 32 gives 99.16;
 * -99.5 gives -99.16). Not rounded. Any denom goes through the same formula (0 gives the handle alone).
 * NaN and +-inf come back unchanged. Cannot fail. */
ORVEL_EXPORT(double) dec_2_frac(double dec, int32_t denom);

/* A handle-and-ticks price back to decimal: i + (frac - i) / denom * s, with i = frac truncated toward
 * zero and the units read from one decimal digit (s = 10) for denom <= 10, two (100) up to 100 and three
 * (1000) above (99.16 with denom 32 gives 99.5). Inverse of dec_2_frac only for denominators 11..100.
 * denom 0 gives the handle i alone (as dec_2_frac writes it for 0); a negative denom goes through the
 * formula (s = 10). NaN and +-inf come back unchanged. Cannot fail. */
ORVEL_EXPORT(double) frac_2_dec(double frac, int32_t denom);

/* The meaning of an error number as text, written into text[0..size-1] and always NUL-terminated
 * (nothing is written when size < 1). Covers the base numbers, the date roles added to them (1207: month
 * of the settlement date), the orderings (2171: settlement not before maturity), 4000 + kind, 4800 + least
 * and 12000 + index. Returns the length of the whole message, which may exceed size - 1 (then the text is
 * cut). 0 gives "no error"; an unknown number gives "unknown error number N". Cannot fail. */
ORVEL_EXPORT(int32_t) err_2_text(int32_t number, char* text, int32_t size);

/* ---- Argument validators ------------------------------------------------------------------------------
 * Each returns 1 when its argument is acceptable and 0 otherwise, writing its number to err_code. A
 * composite validator adds the role of the failing date (see orvel_role) and stops at the first failure. */

/* One date. A blank date (0/0/0, 0/0/1900, 0/0/2000) is accepted when `required` is 0 and is 1500 when it
 * is non-zero. Otherwise, in this order: month outside 1..12 is 1200; day outside 1..last day of the month
 * (of the year as given) is 1300; year outside 1800..2300 is 1100. */
ORVEL_EXPORT(int32_t) ok_MDY(int32_t m, int32_t d, int32_t y, int32_t required, uint32_t* err_code);

/* day_type 1..13; -1 (not supplied) is 501, any other value 500. */
ORVEL_EXPORT(int32_t) ok_day_type(int32_t day_type, uint32_t* err_code);

/* cpn_freq 1, 2, 4 or 12; -1 (not supplied) is 601, any other value 600. */
ORVEL_EXPORT(int32_t) ok_cpn_freq(int32_t cpn_freq, uint32_t* err_code);

/* ---- Validators of codes, counts and amounts -------------------------------------------------------------
 * One value (and, where named, its bound) against a range or a set. Each returns 1 or writes its number and
 * returns 0. Every range test of a double also fails for NaN and for both infinities, with the same number.
 * A code of -1 is a convention left to the market default: the codes that have a default (day_type,
 * cpn_freq, side) report it as base + 1; for other codes -1 is simply outside the set. */

/* side 1 or 2 (one-sided or two-sided); -1 (not supplied) is 591, any other value 590. */
ORVEL_EXPORT(int32_t) ok_1or2_side(int32_t side, uint32_t* err_code);

/* Business-day adjustment flag 0, 1 or 2; else 5350. */
ORVEL_EXPORT(int32_t) ok_abd_flag(int32_t flag, uint32_t* err_code);

/* Day of week 1 (Monday) .. 7 (Sunday); else 2710. */
ORVEL_EXPORT(int32_t) ok_dow(int32_t dow, uint32_t* err_code);

/* Occurrence of a weekday in a month: 1..5, or 0 for the last one; else 2720. */
ORVEL_EXPORT(int32_t) ok_dow_occur(int32_t occur, uint32_t* err_code);

/* Days in a year 360..366; else 4700. */
ORVEL_EXPORT(int32_t) ok_days_year(int32_t days, uint32_t* err_code);

/* Whole coupon periods, at least 1; else 4600. */
ORVEL_EXPORT(int32_t) ok_full_per(int32_t periods, uint32_t* err_code);

/* Days accrued, at least 0; else 11200. */
ORVEL_EXPORT(int32_t) ok_days_acrd(int32_t days, uint32_t* err_code);

/* days at least `least`; else 4800 + least for a least of 0..299 (4801 for a period that must hold one
 * day), and 4750 for any other least (a number built on a least of 300 would read as 5100 and one below 0
 * as some smaller number, 0 itself for -4800). */
ORVEL_EXPORT(int32_t) ok_days_per(int32_t days, int32_t least, uint32_t* err_code);

/* Payment delay in days, at least 0; else 6300. */
ORVEL_EXPORT(int32_t) ok_paymt_dly(int32_t days, uint32_t* err_code);

/* Balloon month, at least 0; else 11101. `term` (months) is the caller's context and is not checked. */
ORVEL_EXPORT(int32_t) ok_balloon(int32_t months, int32_t term, uint32_t* err_code);

/* Lock-out months, at least 0; else 11401. `term` is not checked. */
ORVEL_EXPORT(int32_t) ok_lock_out(int32_t months, int32_t term, uint32_t* err_code);

/* Original term in months 1..480: 6401 below, 6402 above. */
ORVEL_EXPORT(int32_t) ok_orig_term(int32_t months, uint32_t* err_code);

/* Issue-date-to-maturity days 1..600: 6401 below, 6402 above. */
ORVEL_EXPORT(int32_t) ok_id_2_md(int32_t days, uint32_t* err_code);

/* Settlement-to-maturity days 1..600: 6901 below, 6902 above. */
ORVEL_EXPORT(int32_t) ok_sd_2_md(int32_t days, uint32_t* err_code);

/* Remaining term (months) at least 1 (else 11901) and at most `term` (else 11902); a term of 0 or below
 * means the original term is not known and sets no upper bound. */
ORVEL_EXPORT(int32_t) ok_wam(int32_t months, int32_t term, uint32_t* err_code);

/* Average life in months 0..term: 6601 below, 6602 above. */
ORVEL_EXPORT(int32_t) ok_avg_life(int32_t months, int32_t term, uint32_t* err_code);

/* Holding month 1..term: 11301 below, 11302 above. */
ORVEL_EXPORT(int32_t) ok_hldng_mth(int32_t month, int32_t term, uint32_t* err_code);

/* Month of a balance increase 0..term: 6701 below, 6702 above. */
ORVEL_EXPORT(int32_t) ok_m_inc_bal(int32_t month, int32_t term, uint32_t* err_code);

/* Month of a payment increase 0..term: 11501 below, 11502 above. */
ORVEL_EXPORT(int32_t) ok_m_pmtinc(int32_t month, int32_t term, uint32_t* err_code);

/* Pool age in months, 0 <= age < term: 6501 below 0, 6502 at or above the term. */
ORVEL_EXPORT(int32_t) ok_pool_age(int32_t months, int32_t term, uint32_t* err_code);

/* Coupon rate in percent, 0..3000 inclusive; else 4100. */
ORVEL_EXPORT(int32_t) ok_cpn_rate(double cpn_rate, uint32_t* err_code);

/* Tax rate 0..100 inclusive; else 4300. */
ORVEL_EXPORT(int32_t) ok_tax_rate(double rate, uint32_t* err_code);

/* Redemption value per 100, above 0 and finite; else 4200. */
ORVEL_EXPORT(int32_t) ok_redemptn(double redemptn, uint32_t* err_code);

/* Conversion rate, above 0 and finite; else 7100. */
ORVEL_EXPORT(int32_t) ok_conv_rate(double rate, uint32_t* err_code);

/* Length of the last coupon period, above 0 and finite; else 4410. */
ORVEL_EXPORT(int32_t) ok_lcpn_len(double length, uint32_t* err_code);

/* Pool balance, above 0 and finite; else 13100. */
ORVEL_EXPORT(int32_t) ok_mbs_bal(double balance, uint32_t* err_code);

/* Accrued interest per 100, at least 0 and finite; else 4500. */
ORVEL_EXPORT(int32_t) ok_ai(double ai, uint32_t* err_code);

/* A fraction of a coupon period (nxt_frac), at least 0 and finite; else 4400. */
ORVEL_EXPORT(int32_t) ok_days_pcnt(double value, uint32_t* err_code);

/* Pool factor, at least 0 and finite; else 13200. */
ORVEL_EXPORT(int32_t) ok_mbs_fctr(double factor, uint32_t* err_code);

/* Rate of balance increase (percent), at least 0 and finite; else 6800. */
ORVEL_EXPORT(int32_t) ok_rt_balinc(double rate, uint32_t* err_code);

/* Rate of payment increase (percent), at least 0 and finite; else 11501 (shared with ok_m_pmtinc). */
ORVEL_EXPORT(int32_t) ok_rt_pmtinc(double rate, uint32_t* err_code);

/* Sinking-fund amount, at least 0 and finite; else 5100. */
ORVEL_EXPORT(int32_t) ok_sf_amt(double amount, uint32_t* err_code);

/* Servicing fee 0 <= fee <= bound: 6201 below 0 (or NaN), 6202 above the bound (or an infinite bound). */
ORVEL_EXPORT(int32_t) ok_srvc_fee(double fee, double bound, uint32_t* err_code);

/* A given value by its kind: 1 and 11 (yields) non-zero; 2 (price) above 0 and at most 10000; 3 (discount
 * rate) above 0 and at most 25; 4, 5 and 12 above 0; all finite. A bad value is 4000 + given_type. Kinds
 * 6..10 and anything outside 1..12 (-1 included) are 200. */
ORVEL_EXPORT(int32_t) ok_given(double value, int32_t given_type, uint32_t* err_code);

/* A given price or spread: kind 2 a price above 0 and at most 10000 (else 4002); kind 31 a spread, any
 * finite number (else 4031); any other kind 210. */
ORVEL_EXPORT(int32_t) ok_given_ps(double value, int32_t given_type, uint32_t* err_code);

/* A given value of an inflation-linked bond: kinds 1 and 21 (real yields) non-zero, 2 and 22 (prices) above
 * 0 and at most 10000, all finite; a bad value is 4000 + given_type; every other kind is 200. */
ORVEL_EXPORT(int32_t) ok_infl_gvn(double value, int32_t given_type, uint32_t* err_code);

/* A prepayment speed under its model: 1 a CPR (percent a year) 0..100, else 7001; 2 an SMM (percent a
 * month) 0..100, else 7002; 3 a PSA speed (percent of the standard ramp) below 0 is 7003, above 5000/3
 * (a seasoned CPR above 100%) is 7004. Any other model is 700. */
ORVEL_EXPORT(int32_t) ok_pcnt_spd(double speed, int32_t model, uint32_t* err_code);

/* A prepayment schedule: one speed a month for `count` months (1..480) under model spd_type (1..3, as in
 * ok_pcnt_spd), each speed valid for its model. Any failure is 970. */
ORVEL_EXPORT(int32_t) ok_pps(int32_t spd_type, int32_t count, const double* speeds, uint32_t* err_code);

/* A holiday table: count 0 is accepted and nothing is written. A count below 0 or above 3000 (or a null
 * table) is 5400; each julian must lie in 1/1/1800..12/31/2300 and be above the one before, else 5401; a
 * holiday on a Saturday or Sunday is 5403. Entries are checked in order, both tests for each. On success
 * err_code is written 0. */
ORVEL_EXPORT(int32_t) ok_hol_table(int32_t count, const int32_t* julians, uint32_t* err_code);

/* A US Treasury payment type: 1 periodic coupons, 2 discount, 3 interest at maturity; else 505. day_type
 * and cpn_freq of -1 take the Treasury defaults (actual/actual, semi-annual). A coupon type whose frequency
 * is not 1, 2, 4 or 12 is 605; a day_type outside 1..13 is 705. */
ORVEL_EXPORT(int32_t) ok_uspm_type(int32_t uspm_type, int32_t day_type, int32_t cpn_freq, uint32_t* err_code);

/* ---- Date groups -----------------------------------------------------------------------------------------
 * The dates of one kind of security. Each date is three int32 (month, day, year); a date the validator may
 * fill with a default is three int32 pointers. A failing date adds its role to the ok_MDY number (1207: bad
 * settlement month; 1502: a dated date missing while a first coupon is given); an ordering failure adds
 * both roles, earlier date first, to 2000 (must not be after) or 2100 (must be before). Orderings compare
 * under day_type where the group takes one (30/360: the 30th and 31st are equal), in actual days otherwise.
 *
 * The coupon-bond pattern (ok_bond_MDYs), in this order:
 *   1. ok_day_type, ok_cpn_freq (no role).
 *   2. Maturity required (+1), settlement required (+7).
 *   3. The dated date probed as optional (+2).
 *   4. Dated date blank: a given first coupon date is 1502 and the dated date is zeroed (0/0/0); with both
 *      blank the dated date becomes maturity's month and day in 1804 (eom_fixup from maturity under eom)
 *      and the first coupon that date plus one period: the schedule runs regularly back from maturity.
 *   5. Dated date given: the coupon periods from it to maturity are counted (num_per_dt under day_type,
 *      eom, cpn_freq). An odd period needs the first coupon date (blank 1503, malformed +3); a whole number
 *      of periods fills a blank first coupon with the dated date plus one period (malformed +3).
 *   6. Dated date not after settlement (2027), before the first coupon (2123); settlement before maturity
 *      (2171).
 *   7. First coupon and maturity on one coupon cycle (ok_cpn_sync, with eom only when maturity is a month
 *      end): else 2231. This holds for defaults too: without eom a maturity on the 31st whose period steps
 *      land on a 30th (3/31 semi-annual: first coupon 9/30/1804) fails here; pass eom = 1 for such bonds.
 *   8. When step 4 or 5 supplied a default, err_code is written 0 (over the 1500 of the blank probe).
 * Defaults are written back through the pointers even when a later step fails. */

/* Discount security: maturity (+1) and settlement (+7) required; settlement before maturity under
 * day_type (2171). */
ORVEL_EXPORT(int32_t) ok_disc_MDYs(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t day_type, uint32_t* err_code);

/* Interest at maturity: maturity (+1), settlement (+7) and dated date (+2) required; dated not after
 * settlement (2027), dated before maturity (2121), settlement before maturity (2171), under day_type. */
ORVEL_EXPORT(int32_t) ok_amat_MDYs(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t day_type,
                                   uint32_t* err_code);

/* Coupon bond: the pattern above. dated and first_cpn are read and may be written (defaults, zeroing). */
ORVEL_EXPORT(int32_t) ok_bond_MDYs(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t* dated_m, int32_t* dated_d, int32_t* dated_y,
                                   int32_t* first_m, int32_t* first_d, int32_t* first_y, int32_t day_type,
                                   int32_t eom, int32_t cpn_freq, uint32_t* err_code);

/* Japanese government bond: the coupon-bond pattern without step 7 (no 2231). */
ORVEL_EXPORT(int32_t) ok_jpgb_MDYs(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t* dated_m, int32_t* dated_d, int32_t* dated_y,
                                   int32_t* first_m, int32_t* first_d, int32_t* first_y, int32_t day_type,
                                   int32_t eom, int32_t cpn_freq, uint32_t* err_code);

/* Auction security: the coupon-bond pattern without step 7 (no 2231). */
ORVEL_EXPORT(int32_t) ok_auct_MDYs(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t* dated_m, int32_t* dated_d, int32_t* dated_y,
                                   int32_t* first_m, int32_t* first_d, int32_t* first_y, int32_t day_type,
                                   int32_t eom, int32_t cpn_freq, uint32_t* err_code);

/* Bond with odd first and odd last periods (multi-rate terms, and the date check of per_pcd/per_ncd): the
 * coupon-bond pattern with a last regular coupon date (role 6) that anchors the regular schedule. After
 * the dated-date probe the last coupon is probed as optional (+6) and a blank one becomes maturity; steps
 * 4 and 5 count from it instead of maturity; step 6 adds last coupon not after maturity (2061); there is
 * no step 7. dated, first_cpn and last_cpn are read and may be written. */
ORVEL_EXPORT(int32_t) ok_mtrm_MDYs(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t* dated_m, int32_t* dated_d, int32_t* dated_y,
                                   int32_t* first_m, int32_t* first_d, int32_t* first_y, int32_t* last_m,
                                   int32_t* last_d, int32_t* last_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                   uint32_t* err_code);

/* Odd first and last periods seen from a trade date: ok_mtrm_MDYs, then, unless the trade date is blank,
 * ok_trade_MDY on it (+4, 2141, 2024). */
ORVEL_EXPORT(int32_t) ok_ofsl_MDYs(int32_t trade_m, int32_t trade_d, int32_t trade_y, int32_t settle_m,
                                   int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                                   int32_t* dated_m, int32_t* dated_d, int32_t* dated_y, int32_t* first_m,
                                   int32_t* first_d, int32_t* first_y, int32_t* last_m, int32_t* last_d,
                                   int32_t* last_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                   uint32_t* err_code);

/* Step-coupon bond: the coupon-bond pattern with the step date (role 5, required) checked after the first
 * coupon; step 6 adds step date before maturity (2151) and first coupon not after the step date (2035). */
ORVEL_EXPORT(int32_t) ok_stpd_MDYs(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t* dated_m, int32_t* dated_d, int32_t* dated_y,
                                   int32_t* first_m, int32_t* first_d, int32_t* first_y, int32_t step_m,
                                   int32_t step_d, int32_t step_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                   uint32_t* err_code);

/* Step-coupon bond with an odd last period: ok_stpd_MDYs with the last regular coupon of ok_mtrm_MDYs
 * (+6, blank = maturity, 2061) anchoring the schedule; the cycle test (2231) is against that anchor. */
ORVEL_EXPORT(int32_t) ok_stpd_d_ol(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t* dated_m, int32_t* dated_d, int32_t* dated_y,
                                   int32_t* first_m, int32_t* first_d, int32_t* first_y, int32_t step_m,
                                   int32_t step_d, int32_t step_y, int32_t* last_m, int32_t* last_d,
                                   int32_t* last_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                   uint32_t* err_code);

/* Japanese bond with an odd last period: ok_jpgb_MDYs, then ok_mtrm_MDYs on the same (completed) dates. */
ORVEL_EXPORT(int32_t) ok_jpgb_d_ol(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t* dated_m, int32_t* dated_d, int32_t* dated_y,
                                   int32_t* first_m, int32_t* first_d, int32_t* first_y, int32_t* last_m,
                                   int32_t* last_d, int32_t* last_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                   uint32_t* err_code);

/* Two dates on one coupon cycle. With validate: date1 before date2 (is_MDYltMDY with validation: the
 * ok_MDY numbers, 2100) and ok_cpn_freq. The days of month must match, a month end counting as 99 under
 * eom; a last day of February also matches any later day (2/28 with 8/31). The month numbers must differ
 * by a multiple of 12 / cpn_freq (years do not enter; a frequency below 1 counts as 1; above 12 the periods
 * have no months, as in the schedule, and only the same month matches). Otherwise 2200. */
ORVEL_EXPORT(int32_t) ok_cpn_sync(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2, int32_t eom,
                                  int32_t cpn_freq, int32_t validate, uint32_t* err_code);

/* Two dates on one weekday-of-month cycle: each the occur-th weekday dow of its month (occur 0: the last;
 * moved to the Monday when the rule falls on a weekend) and the months a multiple of 12 / cpn_freq apart;
 * else 2200. With validate first: date1 before date2 (ok_MDY numbers, 2100), ok_cpn_freq, ok_dow_occur,
 * ok_dow. */
ORVEL_EXPORT(int32_t) ok_sync_dwm(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t cpn_freq, int32_t occur, int32_t dow, int32_t validate, uint32_t* err_code);

/* Odd first and last periods on a weekday-of-month schedule rolled forward over weekends and holidays.
 * Codes: ok_day_type; cpn_freq not 1, 2, 4, 12 is 5413; occur not 0..5 5410; dow not 1..7 5411; the
 * holiday table (julians, as ok_hol_table) 5412. Dates: maturity (+1), settlement (+7) required; dated
 * optional (+2), blank with a first coupon given 1502 (zeroed); first coupon required (+3, 1503); last
 * regular coupon optional (+6), maturity when blank. Order: 2027, 2123 (when a dated date is given), 2171,
 * 2061. Cycle: first coupon off the rule or off maturity's months 2231, off the last coupon's months 2236,
 * maturity off the rule 2241, last coupon off the rule 2246. */
ORVEL_EXPORT(int32_t) ok_ofsl_dwm(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                  int32_t mat_y, int32_t* dated_m, int32_t* dated_d, int32_t* dated_y,
                                  int32_t* first_m, int32_t* first_d, int32_t* first_y, int32_t* last_m,
                                  int32_t* last_d, int32_t* last_y, int32_t day_type, int32_t cpn_freq, int32_t occur,
                                  int32_t dow, int32_t hol_count, const int32_t* holidays, uint32_t* err_code);

/* Odd periods given by their length in months (first_mths from the dated date to the first coupon,
 * last_mths from the last regular coupon to maturity; 0 for a regular period). ok_cpn_freq; maturity (+1),
 * settlement (+7) required; dated (+2), first coupon (+3), last coupon (+6) optional; a dated date blank
 * while a first coupon is given 1502 (zeroed). first_mths below 0 2851, above two periods 2852; last_mths
 * below 0 2853, above two periods 2854; a given first coupon not first_mths months after the dated date
 * 2855; a given last coupon not last_mths months before maturity 2856 (months stepped with eom); then
 * 2027, 2123, 2171 in actual days; first and last coupon months out of step 2206. */
ORVEL_EXPORT(int32_t) ok_ogpd_MDYs(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t* dated_m, int32_t* dated_d, int32_t* dated_y,
                                   int32_t* first_m, int32_t* first_d, int32_t* first_y, int32_t* last_m,
                                   int32_t* last_d, int32_t* last_y, int32_t first_mths, int32_t last_mths,
                                   int32_t eom, int32_t cpn_freq, uint32_t* err_code);

/* A date (role 8) before a reference date (role 1) by a whole number of coupon periods: ok_cpn_freq; both
 * required (+8, +1); date before reference in actual days (2181); on one cycle as ok_cpn_sync sees it
 * (2281). */
ORVEL_EXPORT(int32_t) ok_lt_MDY(int32_t m, int32_t d, int32_t y, int32_t ref_m, int32_t ref_d, int32_t ref_y,
                                int32_t eom, int32_t cpn_freq, uint32_t* err_code);

/* Trade date: required (+4), before maturity (2141); a given dated date must not be after it (2024). Actual
 * days. */
ORVEL_EXPORT(int32_t) ok_trade_MDY(int32_t trade_m, int32_t trade_d, int32_t trade_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                   uint32_t* err_code);

/* Ex-dividend date: ok_cpn_freq; maturity (+1), settlement (+7), ex-dividend date (+9) required; ex-dividend
 * before maturity under day_type (2191); then it must fall in the coupon period holding settlement, after
 * its previous and not after its next coupon date (1609). The period: dated (or one period before the first
 * coupon) to the first coupon while settlement is before a given first coupon, else the regular schedule
 * back from maturity. */
ORVEL_EXPORT(int32_t) ok_exdiv_MDY(int32_t exdiv_m, int32_t exdiv_d, int32_t exdiv_y, int32_t settle_m,
                                   int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                                   int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d,
                                   int32_t first_y, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                   uint32_t* err_code);

/* The same for a bond with an odd last period: the regular schedule runs back from the last regular coupon
 * (blank: maturity) and settlement on or after it lies in the period last coupon to maturity. */
ORVEL_EXPORT(int32_t) ok_exdol_MDY(int32_t exdiv_m, int32_t exdiv_d, int32_t exdiv_y, int32_t settle_m,
                                   int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                                   int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d,
                                   int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y, int32_t day_type,
                                   int32_t eom, int32_t cpn_freq, uint32_t* err_code);

/* Early redemption: ok_trade_MDY(trade, mat, dated) (+4, 2141, 2024); the redemption date valid and not
 * after maturity, else 8510; not before a given dated date, else 8512. */
ORVEL_EXPORT(int32_t) ok_er_in(int32_t trade_m, int32_t trade_d, int32_t trade_y, int32_t er_m, int32_t er_d,
                               int32_t er_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                               int32_t dated_d, int32_t dated_y, uint32_t* err_code);

/* Floating-rate note: maturity (+1), settlement (+7), last and next reset dates (+9) required; last reset
 * not after settlement (2097), settlement before the next reset (2179), last before next reset (2199),
 * settlement before maturity (2171), actual days; a next reset after maturity is 2600. */
ORVEL_EXPORT(int32_t) ok_frn_MDYs(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                  int32_t mat_y, int32_t last_rst_m, int32_t last_rst_d, int32_t last_rst_y,
                                  int32_t next_rst_m, int32_t next_rst_d, int32_t next_rst_y, uint32_t* err_code);

/* Floating-rate coupon dates: the reference date (settlement) valid and not blank, else 1507; count > 0
 * (else 10040) and at most 1000 (else 14010); each list date valid (12000 + index); the first list date not after the reference date
 * (10046); the reference date before the last list date (10047). Lists are months[], days[], years[]. */
ORVEL_EXPORT(int32_t) ok_flt_cpns(int32_t ref_m, int32_t ref_d, int32_t ref_y, int32_t count, const int32_t* months,
                                  const int32_t* days, const int32_t* years, uint32_t* err_code);

/* Floating-rate resets: the reference date (1507 as above); count > 0 (10041) and at most 1000 (14010);
 * each reset date valid (12000 + index); each rate ok_cpn_rate (4100); the dates strictly ascending (10045). */
ORVEL_EXPORT(int32_t) ok_flt_rcs(int32_t ref_m, int32_t ref_d, int32_t ref_y, int32_t count, const int32_t* months,
                                 const int32_t* days, const int32_t* years, const double* rates, uint32_t* err_code);

/* Floating-rate inputs, in this order: index_type 1 (set in advance) or 2 (in arrears), else 535; given_type
 * 1 (a yield) or 2 (a price), else 200, then ok_given; the quoted margin (percent) within -3000..3000, else
 * 4130; settlement valid (1507); maturity (+1); dated optional (+2); last reset date required (+5);
 * cpn_count > 0 (10040); rst_count > 0 (10041); rst_freq 1, 2, 4 or 12 (650); last reset not after
 * settlement (2057); settlement before maturity (2171). */
ORVEL_EXPORT(int32_t) ok_flt_in(int32_t index_type, int32_t given_type, double given, double margin,
                                int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t last_rst_m,
                                int32_t last_rst_d, int32_t last_rst_y, int32_t rst_freq, int32_t cpn_count,
                                int32_t rst_count, uint32_t* err_code);

/* Sinking-fund schedule: maturity (+1) and settlement (+7) required; count 0..1000 (else 14300); each date
 * valid (12000 + index); each amount ok_sf_amt (5100); dates strictly ascending (14300) and not after
 * maturity (14301); the amounts together at most 100 per 100 (14300). */
ORVEL_EXPORT(int32_t) ok_sf_in(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                               int32_t mat_y, int32_t count, const int32_t* months, const int32_t* days,
                               const int32_t* years, const double* amounts, uint32_t* err_code);

/* ---- Input groups ----------------------------------------------------------------------------------------
 * Every argument of one kind of calculation, in this order: ok_day_type, ok_cpn_freq (where the security has
 * coupons); calc_type (the given_type: 1 a yield, 2 a price; 1..5 for discount securities), else 200;
 * ok_given on the given value; ok_cpn_rate (a second rate +1: 4101); the family's date group (its numbers
 * and roles, run on copies: the defaults it supplies are not written back and err_code is not cleaned
 * up); ok_redemptn; tax rates +1 (4301) and +2 (4302) where the family has them. */

ORVEL_EXPORT(int32_t) ok_bond_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                 int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                 int32_t first_m, int32_t first_d, int32_t first_y, double redemptn, double tax1,
                                 double tax2, uint32_t* err_code);

/* Japanese government bonds: date group ok_jpgb_MDYs; no tax rates. */
ORVEL_EXPORT(int32_t) ok_jpgb_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                 int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                 int32_t first_m, int32_t first_d, int32_t first_y, double redemptn,
                                 uint32_t* err_code);

/* Auction securities: date group ok_auct_MDYs; no tax rates. */
ORVEL_EXPORT(int32_t) ok_auct_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                 int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                 int32_t first_m, int32_t first_d, int32_t first_y, double redemptn,
                                 uint32_t* err_code);

/* Multi-rate terms: date group ok_mtrm_MDYs; two tax rates. */
ORVEL_EXPORT(int32_t) ok_mtrm_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                 int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                 int32_t first_m, int32_t first_d, int32_t first_y, int32_t last_m, int32_t last_d,
                                 int32_t last_y, double redemptn, double tax1, double tax2, uint32_t* err_code);

/* Japanese bonds with an odd last period: ok_day_type, ok_1or2_side (590, 591), ok_cpn_freq; date group
 * ok_jpgb_d_ol; no tax rates. */
ORVEL_EXPORT(int32_t) ok_jpgb_inol(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t side, int32_t calc_type,
                                   double given, double cpn_rate, int32_t settle_m, int32_t settle_d,
                                   int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                                   int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d,
                                   int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y, double redemptn,
                                   uint32_t* err_code);

/* Odd first and last periods: date group ok_ofsl_MDYs (with the trade date); no tax rates. */
ORVEL_EXPORT(int32_t) ok_ofsl_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t trade_m, int32_t trade_d, int32_t trade_y, int32_t settle_m,
                                 int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                                 int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d,
                                 int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y, double redemptn,
                                 uint32_t* err_code);

/* Step coupons: the rate before the step, then the rate after it (+1: 4101); date group ok_stpd_MDYs. */
ORVEL_EXPORT(int32_t) ok_stpd_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, double cpn_rate2, int32_t settle_m, int32_t settle_d,
                                 int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                                 int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d, int32_t first_y,
                                 int32_t step_m, int32_t step_d, int32_t step_y, double redemptn, double tax1,
                                 double tax2, uint32_t* err_code);

/* Step coupons with an odd last period: as ok_stpd_in with date group ok_stpd_d_ol. */
ORVEL_EXPORT(int32_t) ok_stpd_inol(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                   double cpn_rate, double cpn_rate2, int32_t settle_m, int32_t settle_d,
                                   int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                                   int32_t dated_d, int32_t dated_y, int32_t first_m, int32_t first_d,
                                   int32_t first_y, int32_t step_m, int32_t step_d, int32_t step_y, int32_t last_m,
                                   int32_t last_d, int32_t last_y, double redemptn, double tax1, double tax2,
                                   uint32_t* err_code);

/* Interest at maturity: no frequency; date group ok_amat_MDYs (dated date required); two tax rates. */
ORVEL_EXPORT(int32_t) ok_at_mat_in(int32_t day_type, int32_t calc_type, double given, double cpn_rate,
                                   int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, double redemptn,
                                   double tax1, double tax2, uint32_t* err_code);

/* Discount securities: no frequency or coupon; calc_type 1..5 (1 money-market yield, 2 price, 3 discount
 * rate, 4 compound-equivalent and 5 bond-equivalent yield, as ok_given reads them); date group ok_disc_MDYs;
 * two tax rates. */
ORVEL_EXPORT(int32_t) ok_disc_in(int32_t day_type, int32_t calc_type, double given, int32_t settle_m, int32_t settle_d,
                                 int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, double redemptn,
                                 double tax1, double tax2, uint32_t* err_code);

/* ---- Security defaults ----------------------------------------------------------------------------------
 * get_sec_dflt: the conventions of market `sec_type`. Each of the ten slots is filled with the market's
 * default only when its pointer is not `absent` (nor null) and the word it points to holds -1; any other
 * value is the caller's override and is kept. A market without a default for a slot leaves it as it was;
 * an unknown sec_type leaves every slot. Slots: day_type, eom, cpn_freq, odd_day_type (day count of
 * periods out of step with maturity), mkt_opt5, l1p_rule (2 simple interest in the last period, 1 compound
 * throughout), mkt_opt7 .. mkt_opt10 (market options read by the families). Point every unwanted slot and
 * `absent` at one scratch word. spare1..spare4 and err_code are accepted and never read or written: the
 * function cannot fail. Returns sec_type.
 *
 *   code  day eom frq odd op5 l1p op7 op8 op9 op10      code  day eom frq odd op5 l1p op7 op8 op9 op10
 *     3    10   1   2   .   .   .   .   .   .   .        171    5   .   .   .   .   1   .   .   .   .
 *     4    10   1   2   .   .   .   .   .   .   .        180    5   1   1   .   .   2   .   .   .   .
 *    10     1   1   2   .   .   .   .   .   .   .        190    1   1   1   .   .   1   .   0   .   .
 *    11     1   1   2   .   .   .   .   .   .   .        200    5   1   1   .   .   .   .   .   .   .
 *    12     7   1   .   .   .   .   .   .   .   .        230   12   0   2   .   .   .   .   .   .   .
 *    20     2   0   2   .   .   .   .   .   .   .        250   12   1   .   .   .   .   5   1   .   .
 *    30    10   1   2   .   .   .   .   .   .   .        260   13   1   2   .   .   .   .   .   2   .
 *    40    10   1   2   .   .   .   .   .   .   .        261   13   1   1   .   .   .   .   .   1   .
 *    90     5   1   2   .   .   2   .   .   .   .        280    5   1   2   .   .   .   .   .   .   .
 *   100     1   1   2  12   .   2   .   .   .   .        290    5   1   1   .   .   .   .   .   .   .
 *   110     5   1   1   .   .   2   .   .   .   .        310    1   1   2   .   .   2   .   .   .   .
 *   120     5   1   1   .   5   1   .   .   .   .        360   12   1   .   .   .   .   1   .   .   .
 *   140     1   1   2   .   .   .   8   .   .   .        370    5   1   1   .   .   2   .   .   .   .
 *   160     5   1   1   .   .   .   .   .   .   .        380   10   1   1   .   .   .   .   .   .   .
 *   170     5   .   .   .   .   .   .   .   .   .        410   12   0   2   .   .   1   .   .   .   .
 *                                                       411   12   0   2   .   .   2   .   .   .   .
 *                                                      4260   13   1   2   .   .   .   .   .   1   1
 */
ORVEL_EXPORT(int32_t) get_sec_dflt(int32_t sec_type, int32_t* day_type, int32_t* eom, int32_t* cpn_freq,
                                   int32_t* odd_day_type, int32_t* mkt_opt5, int32_t* l1p_rule, int32_t* mkt_opt7,
                                   int32_t* mkt_opt8, int32_t* mkt_opt9, int32_t* mkt_opt10, int32_t* absent,
                                   int32_t* spare1, int32_t* spare2, int32_t* spare3, int32_t* spare4,
                                   uint32_t* err_code);

#endif /* ORVEL_FRAME_H */
