/*
 * ORVEL performance statistics: period returns and their linking, money-weighted returns, dispersion, risk-adjusted ratios, debt service and currency conversions.
 */
#ifndef ORVEL_PERF_H
#define ORVEL_PERF_H

#include "orvel/frame.h"

/* Returns and rates in percent (1.5 = 1.5%); values and flows in money of the portfolio. Arrays are
 * caller-owned with their count; no measure reads more than ORVEL_PERF_MAX_VALUES elements of an array:
 * a larger count fails with 15400 on every call, before anything is read. Every function returns 0.0 (or 0)
 * on failure and leaves its outputs as they were. */
#define ORVEL_PERF_MAX_VALUES 100000

/* ---- Linked and time-weighted returns --------------------------------------------------------------- */

/* Three monthly returns linked into a quarter: ((1 + r1/100)(1 + r2/100)(1 + r3/100) - 1) 100
 * (1, 1, 1 give 3.0301). Validation, in argument order: 15401 a return not finite; 15402 below -100. */
ORVEL_EXPORT(double) aimr_m2q_rtn(double r1, double r2, double r3, int32_t validate, uint32_t* err_code);

/* Four quarterly returns linked into a year, as aimr_m2q_rtn. */
ORVEL_EXPORT(double) aimr_q2y_rtn(double r1, double r2, double r3, double r4, int32_t validate,
                                  uint32_t* err_code);

/* Time-weighted return from a valuation at every flow: (prod end_vals[k] / begin_vals[k] - 1) 100 over the
 * n sub-periods, in order. Errors: 15400 n above the maximum (always); 720 n below 2 (validate); then per
 * sub-period 740 a beginning value below 1e-7 or not finite (always: it divides), 730 an ending value below
 * 1e-7 or not finite (validate). */
ORVEL_EXPORT(double) aimr_rdaily(int32_t n, const double* begin_vals, const double* end_vals, int32_t validate,
                                 uint32_t* err_code);

/* Modified Dietz return of the period from `begin` to `end`: with D = days from begin to end under
 * day_type and, for each flow dated in the period, d = days from begin to the flow and weight
 * w = (D - d + flow_day) / D (flow_day 1 counts the flow's own day as invested: a flow on the end date
 * then weighs 1/D, on the begin date (D + 1)/D), T = sum of the flows and W = sum of w flows:
 *     ((end_val - begin_val) - T) / (begin_val + W) 100.
 * Flows in, to the portfolio, are positive. Without flows, (end_val - begin_val) / begin_val 100. Flows
 * dated outside the period are left out when not validating.
 * Errors: 15400 n_flows above the maximum (always); with validate, in order: 500/501 day_type; begin date
 * (ok_MDY's number + 3) and end date (+ 6: err_2_text reads these two roles as first coupon and last
 * regular coupon); 10100 the period shorter than a day (always); 810 flow_day not 0 or 1; 14250 no flow;
 * 14010 more than 1000 flows; 12000 + j flow j's date invalid; 15401 a flow not finite; 14210 a flow dated
 * before begin or after end; 720 begin_val not above 1e-7; 730 end_val not above 1e-7; 630 a reserved
 * argument not 0. Always: 710 when |begin_val + W| is below 1e-7. */
ORVEL_EXPORT(double) aimr_rdietz(int32_t day_type, int32_t flow_day, int32_t begin_m, int32_t begin_d,
                                 int32_t begin_y, int32_t end_m, int32_t end_d, int32_t end_y, int32_t n_flows,
                                 const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y, const double* flows,
                                 double begin_val, double end_val, int32_t rsrv_i, double rsrv_d, int32_t validate,
                                 uint32_t* err_code);

/* Equal-weighted composite return: the mean of the n returns. Errors: 15400 (always); 720 n below 2 and
 * 15401 a return not finite (validate). */
ORVEL_EXPORT(double) eq_wt_return(const double* vals, int32_t n, int32_t validate, uint32_t* err_code);

/* ---- Money-weighted return ----------------------------------------------------------------------------
 * The period runs from the earliest flow (the beginning value is the flow on that date) to the end date.
 * Days are counted under day_type; flow_day 1 counts a flow's own day as invested, so that the period
 * has D + 1 days. Flow k's time is minus the fraction of the period from it to the end date:
 *     times[k] = -(days(flow k, end) + flow_day) / (D + flow_day),
 * negative because the flow is grown forward to the end date: the earliest flow has time -1, a flow on the
 * end date -1/(D + 1) with flow_day 1 and 0 without. The return r (percent, for the whole period, not
 * annualized) solves
 *     end_val = sum of flows[k] (1 + r/100)^(-times[k]).
 * Validation shared by the two functions: 500/501 day_type; 810 flow_day not 0 or 1; the end date
 * (ok_MDY's number + 6); 14250 no flow; 14010 more than 1000 flows; 12000 + k flow k's date invalid;
 * 15401 a flow not finite (aimr_rmodbai); 16000 + k flow k dated after the end date. Always: 15400
 * n_flows above the maximum; 10100 the period (earliest flow to end date) shorter than a day. */

/* Writes times[k] for the n_flows flows to times_out (n_flows elements) and returns the days D of the
 * period; 0 on failure, times_out then unwritten. Without validation a flow after the end date gets a
 * positive time. */
ORVEL_EXPORT(int32_t) pcnts_of_per(int32_t day_type, int32_t flow_day, int32_t end_m, int32_t end_d, int32_t end_y,
                                   int32_t n_flows, const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y,
                                   double* times_out, int32_t validate, uint32_t* err_code);

/* Money-weighted return of the period (the yield of the flows against the ending value), percent. Solved
 * with the library's three-point solver from 10, 9 and 11 percent, until the ending value is repriced within
 * 10^-(prec + 1). The flows' times are written to times_out (as pcnts_of_per) once the return is known.
 * Validation: 500/501; 810; 15403 prec outside 0..12; end date + 6; the flow checks above; 730 end_val
 * not above 1e-7 or not finite; 630 a reserved argument not 0. Always: 15400, 10100; 4090 when the solve
 * reaches a return of -100 percent or below; 9020 when it fails. */
ORVEL_EXPORT(double) aimr_rmodbai(int32_t day_type, int32_t flow_day, int32_t prec, int32_t end_m, int32_t end_d,
                                  int32_t end_y, double end_val, int32_t n_flows, const int32_t* cf_m,
                                  const int32_t* cf_d, const int32_t* cf_y, const double* flows, int32_t rsrv_i,
                                  double rsrv_d, double* times_out, int32_t validate, uint32_t* err_code);

/* ---- Dispersion and risk-adjusted ratios ---------------------------------------------------------------- */

/* Standard deviation of n values, the mean written to *mean: sqrt(S / (n - 1)) for sd_kind 0 or -1
 * (sample), sqrt(S / n) for 1 (population), with S the sum of squared deviations from the mean, taken in two
 * passes (values near 1e6 that differ by hundredths keep their digits). Errors: 15400 (always); with
 * validate 760 n below 2, 830 sd_kind outside -1..1, 15401 a value not finite. */
ORVEL_EXPORT(double) std_dev(const double* vals, int32_t n, int32_t sd_kind, double* mean, int32_t validate,
                             uint32_t* err_code);

/* Asset-weighted dispersion of the returns of a composite's portfolios: with W = sum of weights (the
 * portfolios' assets) and R = sum of weights[k] rtns[k] / W, sqrt(sum of (weights[k] / W)(rtns[k] - R)^2).
 * Errors: 15400 (always); with validate 720 n below 2, 15401 a weight or return not finite; always 740
 * |W| below 1e-7, and 9030 a weighted variance below 1e-7 (a composite with no measurable dispersion is
 * reported as an error). */
ORVEL_EXPORT(double) sw_disprsn(const double* weights, const double* rtns, int32_t n, int32_t validate,
                                uint32_t* err_code);

/* Sharpe ratio (rtn - rf_rate) / sd, all three in percent. Validation: 15401 rtn not finite; 4108 rf_rate
 * outside 0..3000 (ok_cpn_rate's number + 8); 4013 sd below 1e-7 or not finite. */
ORVEL_EXPORT(double) sharpe_msr(double rtn, double rf_rate, double sd, int32_t validate, uint32_t* err_code);

/* Treynor ratio (rtn - rf_rate) / beta. Validation: 15401, 4108 as sharpe_msr; 770 |beta| below 1e-7 or
 * not finite. */
ORVEL_EXPORT(double) treynor_msr(double rtn, double rf_rate, double beta, int32_t validate, uint32_t* err_code);

/* ---- Debt service of a bond issue --------------------------------------------------------------------
 * Periods of 1/freq year; the coupon rates in percent a year, paid freq times a year; the debt service of
 * a period is the principal maturing at its end plus the interest of every bond still outstanding. */

/* Level debt service a period of an issue of par repaid over n_pers periods at cpn_rate:
 * par j / (1 - (1 + j)^-n_pers) with j = cpn_rate / (100 freq); par / n_pers at a rate of 0.
 * Validation: 15410 par not above 0; 4100 cpn_rate outside 0..3000; 15411 n_pers outside 1..100000;
 * 600/601 freq. */
ORVEL_EXPORT(double) debt_level(double par, double cpn_rate, int32_t n_pers, int32_t freq, int32_t validate,
                                uint32_t* err_code);

/* Debt service schedule of a serial issue: bond k (0-based) of principal prn_amts[k] and coupon
 * cpn_rates[k] matures at the end of period k + 1. Writes srvc[k] = prn_amts[k] + the sum over j >= k of
 * prn_amts[j] cpn_rates[j] / (100 freq) (a period with no maturity has a principal of 0) and returns the
 * total debt service. Errors: 15411 n above 100000 (always) or below 1 (validate); with validate 600/601
 * freq, 15412 a principal negative or not finite, 4100 a coupon outside 0..3000. */
ORVEL_EXPORT(double) debt_srvc(int32_t n, const double* prn_amts, const double* cpn_rates, int32_t freq,
                               double* srvc, int32_t validate, uint32_t* err_code);

/* True interest cost of an issue, percent a year compounded freq times: the rate y at which the debt
 * service srvc[k], paid at the end of period k + 1, is worth the proceeds received at issue:
 * proceeds = sum of srvc[k] / (1 + y / (100 freq))^(k + 1). Solved with the library's three-point solver
 * from 10, 9 and 11 percent to 5e-9 per 100 of proceeds. Errors: 15411 n above 100000 (always); with
 * validate 15410 proceeds not above 0, 15411 n below 1, 15412 a debt service negative or not finite,
 * 600/601 freq; always 4090 when the solve reaches -100 freq percent or below, 9020 when it fails. */
ORVEL_EXPORT(double) debt_tic(double proceeds, int32_t n, const double* srvc, int32_t freq, int32_t validate,
                              uint32_t* err_code);

/* ---- Currency conversion ------------------------------------------------------------------------------
 * Exchange rates are quoted in units of the foreign currency per US dollar (spot 150 for the yen). A
 * conversion `days` ahead uses the outright forward of covered interest parity, simple money-market
 * interest on each currency's deposit rate (percent a year): the dollar on actual/360, the foreign
 * currency on for_year_days (360..366; 365 for sterling):
 *     fwd = spot (1 + for_rate/100 days/for_year_days) / (1 + usd_rate/100 days/360);
 * days = 0 converts at spot. Validation of the conversions, in order: 15401 amount not finite; 15420 spot
 * not above 0; 15421 usd_rate, then for_rate, outside -100..3000; 15422 days outside 0..36600; 4700
 * for_year_days. Always: 15421 when either interest factor is not above 0. */

/* usd_amt dollars in the foreign currency: usd_amt fwd. */
ORVEL_EXPORT(double) fx_US_2_for(double usd_amt, double spot, double usd_rate, double for_rate, int32_t days,
                                 int32_t for_year_days, int32_t validate, uint32_t* err_code);

/* for_amt of the foreign currency in dollars: for_amt / fwd. */
ORVEL_EXPORT(double) fx_for_2_US(double for_amt, double spot, double usd_rate, double for_rate, int32_t days,
                                 int32_t for_year_days, int32_t validate, uint32_t* err_code);

/* The US dollar deposit rate, percent a year actual/360, that parity implies from spot, the outright
 * forward fwd `days` ahead and the foreign deposit rate: ((1 + for_rate/100 days/for_year_days) spot/fwd
 * - 1) 360/days 100. Validation: 15420 spot, then fwd, not above 0; 15421 for_rate outside -100..3000;
 * 15422 days outside 1..36600; 4700 for_year_days. */
ORVEL_EXPORT(double) fx_US_dep_rt(double spot, double fwd, double for_rate, int32_t days, int32_t for_year_days,
                                  int32_t validate, uint32_t* err_code);


#endif /* ORVEL_PERF_H */
