// Price, yield, accrued interest, average life and duration of a pass-through's monthly flows, and the
// monthly projection of a pool from its survival and prepaid tables.
#include "core/check.hpp"
#include "mortgage/passthrough.hpp"
#include "orvel/mortgage.h"

ORVEL_EXPORT(double) mbs_p(double yld, int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* cfs,
                           int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_given, yld, 1)
                              .step([&](uint32_t* e) { return mbs::valid_grid(wam, paymt_dly, days_acrd, cfs, e); })
                              .ok())
        return 0.0;
    double p = 0.0;
    return mbs::price(yld, wam, mbs::first_time(paymt_dly, days_acrd), cfs, &p, err_code) ? p : 0.0;
}

ORVEL_EXPORT(double) mbs_y(double price, int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* cfs,
                           int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_given, price, 2)
                              .step([&](uint32_t* e) { return mbs::valid_grid(wam, paymt_dly, days_acrd, cfs, e); })
                              .ok())
        return 0.0;
    return mbs::yield(price, wam, mbs::first_time(paymt_dly, days_acrd), cfs, err_code);
}

ORVEL_EXPORT(double) mbs_py(double given, int32_t given_type, int32_t paymt_dly, int32_t days_acrd, int32_t wam,
                            const double* cfs, int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_given, given, given_type)
                              .step([&](uint32_t* e) { return mbs::valid_grid(wam, paymt_dly, days_acrd, cfs, e); })
                              .ok())
        return 0.0;
    if (given_type == 1) return mbs_p(given, wam, paymt_dly, days_acrd, cfs, 0, err_code);
    if (given_type == 2) return mbs_y(given, wam, paymt_dly, days_acrd, cfs, 0, err_code);
    orvel::fail(err_code, ORVEL_E_SELECTOR);
    return 0.0;
}

ORVEL_EXPORT(double) mbs_ai(double gross_rate, double net_rate, int32_t days_acrd, int32_t sel_a, int32_t sel_b,
                            int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_cpn_rate, gross_rate)
                              .call(1, ok_cpn_rate, net_rate)
                              .call(0, ok_days_acrd, days_acrd)
                              .ok())
        return 0.0;
    if (sel_a == 0 && sel_b == 0) return 0.0;
    const double rate = sel_a == 0 ? gross_rate - net_rate : (sel_b == 0 ? net_rate : gross_rate);
    return rate * (days_acrd / 36000.0);
}

ORVEL_EXPORT(double) mbs_avg_life(int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* cfs,
                                  int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !mbs::valid_grid(wam, paymt_dly, days_acrd, cfs, err_code)) return 0.0;
    return mbs::mean_time(wam, mbs::first_time(paymt_dly, days_acrd), cfs);
}

ORVEL_EXPORT(void) mbs_duration(double yld, double price, int32_t paymt_dly, int32_t days_acrd, int32_t wam,
                                const double* cfs, double* mac_dur, double* mod_dur, int32_t validate,
                                uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return;
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_given, yld, 1)
                              .call(0, ok_given, price, 2)
                              .step([&](uint32_t* e) { return mbs::valid_grid(wam, paymt_dly, days_acrd, cfs, e); })
                              .ok())
        return;
    double b = 0.0;
    if (!mbs::base_of(yld, &b, err_code)) return;
    const double mac = mbs::discount<true>(b, wam, mbs::first_time(paymt_dly, days_acrd), cfs).pvt / price;
    *mac_dur = mac;
    *mod_dur = mac / b;
}

ORVEL_EXPORT(void) mbs_cfs_bals(int32_t orig_term, double cpn_rate, double pass_rate, int32_t wam, int32_t inc_prn,
                                int32_t inc_int, int32_t inc_svc, const double* surv, const double* prepd,
                                int32_t cap, double* cfs_out, double* bal_out, double* prn_out, int32_t* n_out,
                                int32_t validate, uint32_t* err_code) {
    if (!(cap > wam && cap >= 1)) {
        orvel::fail(err_code, ORVEL_E_MBS_CAPACITY);
        return;
    }
    if (!mbs::count_fits(wam, err_code)) return;
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_orig_term, orig_term)
                              .call(0, ok_cpn_rate, cpn_rate)
                              .call(1, ok_cpn_rate, pass_rate)
                              .call(0, ok_wam, wam, orig_term)
                              .step([&](uint32_t* e) { return mbs::all_finite(wam + 1, surv, e); })
                              .step([&](uint32_t* e) { return mbs::all_finite(wam, prepd, e); })
                              .ok())
        return;
    bal_out[0] = 100.0;
    if (wam >= 1) {
        const double pmt = mtg::level_payment(wam, cpn_rate);
        mbs::project(cpn_rate, pass_rate, wam, mbs::Parts{inc_prn != 0, inc_int != 0, inc_svc != 0}, surv, prepd,
                     [pmt](int32_t, double) { return pmt; }, cfs_out, bal_out, prn_out);
    }
    *n_out = wam;
}
