// Convexity, risk measures, effective duration and convexity, half-life, months from dates, price and
// yield with accrued interest, and total return of a pass-through's monthly flows.
#include <cstdint>

#include "core/check.hpp"
#include "mortgage/passthrough.hpp"
#include "orvel/mortgage.h"

namespace {

// ok_given on the yield, ok_given on the price (when one is given), then the grid.
bool valid_yield_price(double yld, const double* price, int32_t wam, int32_t paymt_dly, int32_t days_acrd,
                       const double* cfs, uint32_t* err_code) {
    return orvel::Check(err_code)
        .call(0, ok_given, yld, 1)
        .step([&](uint32_t* e) { return price == nullptr || ok_given(*price, 2, e) != 0; })
        .step([&](uint32_t* e) { return mbs::valid_grid(wam, paymt_dly, days_acrd, cfs, e); })
        .ok();
}

// Price, Macaulay duration and convexity at yld; 4090 for b < 0.
bool measures(double yld, int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* cfs, mbs::Sums* s,
              double* b, uint32_t* err_code) {
    if (!mbs::base_of(yld, b, err_code)) return false;
    *s = mbs::discount<true>(*b, wam, mbs::first_time(paymt_dly, days_acrd), cfs);
    return true;
}

// Accrued interest per 100 at the pass-through rate for days_acrd days of a 30-day month.
double accrued(double pass_rate, int32_t days_acrd) { return pass_rate * (days_acrd / 360.0); }

}  // namespace

ORVEL_EXPORT(double) mbs_cvx(double yld, double price, int32_t paymt_dly, int32_t days_acrd, int32_t wam,
                             const double* cfs, int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !valid_yield_price(yld, &price, wam, paymt_dly, days_acrd, cfs, err_code)) return 0.0;
    mbs::Sums s;
    double b = 0.0;
    if (!measures(yld, wam, paymt_dly, days_acrd, cfs, &s, &b, err_code)) return 0.0;
    return s.pvtt / (b * b * price);
}

ORVEL_EXPORT(void) mbs_risk(double yld, int32_t paymt_dly, int32_t days_acrd, int32_t wam, const double* cfs,
                            double* price, double* mac_dur, double* mod_dur, double* convexity, double* pvbp,
                            int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return;
    if (validate != 0 && !valid_yield_price(yld, nullptr, wam, paymt_dly, days_acrd, cfs, err_code)) return;
    mbs::Sums s;
    double b = 0.0;
    if (!measures(yld, wam, paymt_dly, days_acrd, cfs, &s, &b, err_code)) return;
    if (!(s.pv > 0.0)) {
        orvel::fail(err_code, ORVEL_E_MBS_PRICE);
        return;
    }
    const double mac = s.pvt / s.pv;
    *price = s.pv;
    *mac_dur = mac;
    *mod_dur = mac / b;
    *convexity = s.pvtt / (b * b * s.pv);
    *pvbp = mac / b * s.pv * 1e-4;
}

ORVEL_EXPORT(void) mbs_efdurcvx(int32_t orig_term, int32_t wam, double cpn_rate, double pass_rate, int32_t paymt_dly,
                                int32_t days_acrd, int32_t spd_type, double speed, double spd_dn, double spd_up,
                                double yld, double shift, double* price, double* eff_dur, double* eff_cvx,
                                int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return;
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_orig_term, orig_term)
                              .call(0, ok_wam, wam, orig_term)
                              .call(0, ok_cpn_rate, cpn_rate)
                              .call(1, ok_cpn_rate, pass_rate)
                              .call(0, ok_paymt_dly, paymt_dly)
                              .call(0, ok_days_acrd, days_acrd)
                              .call(0, ok_pcnt_spd, speed, spd_type)
                              .call(0, ok_pcnt_spd, spd_dn, spd_type)
                              .call(0, ok_pcnt_spd, spd_up, spd_type)
                              .call(0, ok_given, yld, 1)
                              .expect(shift > 0.0 && shift <= 10.0, ORVEL_E_MBS_SHIFT)
                              .ok())
        return;
    if (!(spd_type >= 1 && spd_type <= 3)) {
        orvel::fail(err_code, ORVEL_E_PCNT_SPD_MODEL);
        return;
    }
    const int32_t n = wam < 0 ? 0 : wam;
    const double t0 = mbs::first_time(paymt_dly, days_acrd);
    double surv[mbs::max_months + 1], prepd[mbs::max_months], bal[mbs::max_months + 1], prn[mbs::max_months];
    double flows[mbs::max_months];
    const double speeds[3] = {speed, spd_dn, spd_up};
    const double ylds[3] = {yld, yld - shift, yld + shift};
    double p[3];
    for (int i = 0; i < 3; ++i) {
        mbs::project_level(orig_term, n, cpn_rate, pass_rate, spd_type, speeds[i], surv, prepd, bal, prn, flows);
        if (!mbs::price(ylds[i], n, t0, flows, &p[i], err_code)) return;
    }
    if (!(p[0] > 0.0)) {
        orvel::fail(err_code, ORVEL_E_MBS_PRICE);
        return;
    }
    const double h = shift * 0.01;
    *price = p[0];
    *eff_dur = (p[1] - p[2]) / (2.0 * h * p[0]);
    *eff_cvx = (p[1] + p[2] - 2.0 * p[0]) / (h * h * p[0]);
}

ORVEL_EXPORT(double) mbs_halflife(int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* cfs,
                                  int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !mbs::valid_grid(wam, paymt_dly, days_acrd, cfs, err_code)) return 0.0;
    double total = 0.0;
    for (int32_t k = 0; k < wam; ++k) total += cfs[k];
    if (!(total > 0.0)) return orvel::fail(err_code, ORVEL_E_MBS_PRN_SUM), 0.0;
    const double half = total * 0.5, t0 = mbs::first_time(paymt_dly, days_acrd);
    double paid = 0.0;
    int32_t k = 0;
    for (; k < wam - 1 && !(paid + cfs[k] >= half); ++k) paid += cfs[k];
    // Month k's principal is taken as paid evenly over the month that ends at its payment time t_k.
    return t0 + (k - 1) / 12.0 + (half - paid) / cfs[k] / 12.0;
}

ORVEL_EXPORT(int32_t) mbs_dts2mths(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t* days_acrd, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .call(ORVEL_ROLE_SETTLE, ok_MDY, settle_m, settle_d, settle_y, 1)
                              .call(ORVEL_ROLE_MATURITY, ok_MDY, mat_m, mat_d, mat_y, 1)
                              .ok())
        return 0;
    const int64_t months = (int64_t{mat_y} - settle_y) * 12 + (int64_t{mat_m} - settle_m);
    if (months < 1) return orvel::fail(err_code, ORVEL_E_MBS_MONTH_ORDER), 0;
    if (months > mbs::max_months) return orvel::fail(err_code, ORVEL_E_MBS_MONTHS), 0;
    *days_acrd = settle_d < 1 ? 0 : (settle_d > 30 ? 29 : settle_d - 1);
    return static_cast<int32_t>(months);
}

ORVEL_EXPORT(double) mbs_py_ai(double given, int32_t given_type, double pass_rate, int32_t paymt_dly,
                               int32_t days_acrd, int32_t wam, const double* cfs, double* ai, int32_t validate,
                               uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_given, given, given_type)
                              .call(0, ok_cpn_rate, pass_rate)
                              .step([&](uint32_t* e) { return mbs::valid_grid(wam, paymt_dly, days_acrd, cfs, e); })
                              .ok())
        return 0.0;
    if (given_type != 1 && given_type != 2) return orvel::fail(err_code, ORVEL_E_SELECTOR), 0.0;
    const double a = accrued(pass_rate, days_acrd), t0 = mbs::first_time(paymt_dly, days_acrd);
    double result = 0.0;
    if (given_type == 1) {
        if (!mbs::price(given, wam, t0, cfs, &result, err_code)) return 0.0;
        result -= a;
    } else {
        uint32_t failed = 0;
        result = mbs::yield(given + a, wam, t0, cfs, &failed);
        if (failed != 0) return orvel::fail(err_code, failed), 0.0;
    }
    *ai = a;
    return result;
}

ORVEL_EXPORT(double) mbs_tot_rtn(double price, int32_t hold_mths, double reinv_rate, double hzn_yld,
                                 int32_t paymt_dly, int32_t days_acrd, int32_t wam, const double* cfs,
                                 int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_given, price, 2)
                              .call(0, ok_cpn_rate, reinv_rate)
                              .call(0, ok_given, hzn_yld, 1)
                              .step([&](uint32_t* e) { return mbs::valid_grid(wam, paymt_dly, days_acrd, cfs, e); })
                              .ok())
        return 0.0;
    if (!ok_hldng_mth(hold_mths, wam, err_code)) return 0.0;
    // Horizon: just after flow hold_mths - 1 is paid; earlier flows grow at the monthly reinvestment rate,
    // later ones are sold at the horizon yield (the next flow one month away).
    const double t0 = mbs::first_time(paymt_dly, days_acrd), horizon = t0 + (hold_mths - 1) / 12.0;
    const double q = 1.0 + mtg::monthly_rate(reinv_rate);
    double value = 0.0;
    for (int32_t k = 0; k < hold_mths; ++k) value = value * q + cfs[k];
    double rest = 0.0;
    if (!mbs::price(hzn_yld, wam - hold_mths, 1.0 / 12, cfs + hold_mths, &rest, err_code)) return 0.0;
    value += rest;
    if (!(horizon > 0.0 && value > 0.0 && price > 0.0)) return orvel::fail(err_code, ORVEL_E_MBS_HORIZON), 0.0;
    return (orvel::pow(value / price, 0.5 / horizon) - 1.0) * 200.0;
}
