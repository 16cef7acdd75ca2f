// Survival and prepaid tables from a prepayment speed, the graduated-payment scheduled balances, and the
// monthly projection of a graduated-payment pool.
#include <cstdint>

#include "core/check.hpp"
#include "mortgage/passthrough.hpp"
#include "orvel/mortgage.h"

namespace {

// The checks of a table: 15600; with validate the terms, the speed and the graduation (when graduated);
// then on every call the speed model (700), wam >= 1 (11901) and the capacity (13000, wam + 1 written).
template <class Extra>
bool valid_tables(int32_t orig_term, int32_t wam, int32_t spd_type, double speed, int32_t cap, int32_t* count,
                  int32_t validate, uint32_t* err_code, Extra extra) {
    if (!mbs::count_fits(wam, err_code)) return false;
    if (validate != 0 && !orvel::Check(err_code)
                             .call(0, ok_orig_term, orig_term)
                             .call(0, ok_wam, wam, orig_term)
                             .step(extra)
                             .call(0, ok_pcnt_spd, speed, spd_type)
                             .ok())
        return false;
    if (!orvel::Check(err_code)
             .expect(spd_type >= 1 && spd_type <= 3, ORVEL_E_PCNT_SPD_MODEL)
             .call(0, ok_wam, wam, 0)
             .ok())
        return false;
    if (cap < wam + 1) {
        *count = wam + 1;
        return orvel::fail(err_code, ORVEL_E_CAPACITY);
    }
    return true;
}

// The age of the pool's loans in its current month, kept within the walk of graduated_balance.
int64_t current_age(int32_t orig_term, int32_t wam) { return int64_t{orig_term} - wam + 1; }

}  // namespace

ORVEL_EXPORT(int32_t) mbs_gen_tbls(int32_t orig_term, int32_t wam, int32_t spd_type, double speed, int32_t cap,
                                   double* surv_out, double* prepd_out, int32_t* count, int32_t validate,
                                   uint32_t* err_code) {
    if (!valid_tables(orig_term, wam, spd_type, speed, cap, count, validate, err_code, [](uint32_t*) { return true; }))
        return 0;
    mbs::survival(orig_term, wam, spd_type, speed, surv_out, prepd_out);
    prepd_out[wam] = 0.0;
    *count = wam + 1;
    return wam + 1;
}

ORVEL_EXPORT(int32_t) mbs_gentblsg(int32_t orig_term, int32_t wam, double cpn_rate, int32_t grad_mths,
                                   double grad_rate, int32_t spd_type, double speed, int32_t cap, double* surv_out,
                                   double* prepd_out, double* sched_out, int32_t* count, int32_t validate,
                                   uint32_t* err_code) {
    const auto graduation = [&](uint32_t* e) {
        return orvel::Check(e)
            .call(0, ok_cpn_rate, cpn_rate)
            .call(0, ok_m_pmtinc, grad_mths, orig_term)
            .call(0, ok_rt_pmtinc, grad_rate)
            .ok();
    };
    if (!valid_tables(orig_term, wam, spd_type, speed, cap, count, validate, err_code, graduation)) return 0;
    const mbs::Graduated gpm(orig_term, cpn_rate, grad_mths, grad_rate);
    if (!gpm.has_value()) return orvel::fail(err_code, ORVEL_E_MBS_GPM), 0;
    mbs::survival(orig_term, wam, spd_type, speed, surv_out, prepd_out);
    prepd_out[wam] = 0.0;
    const int64_t age = current_age(orig_term, wam);
    const double r = mtg::monthly_rate(cpn_rate);
    double b = mbs::graduated_balance(gpm, cpn_rate, age);
    for (int32_t k = 0; k <= wam; ++k) {
        sched_out[k] = b;
        b = b * (1.0 + r) - gpm.payment(static_cast<int32_t>(std::clamp<int64_t>(age + k, -1, 1 << 20)));
    }
    *count = wam + 1;
    return wam + 1;
}

ORVEL_EXPORT(void) mbs_cfsbalsg(int32_t orig_term, double cpn_rate, double pass_rate, int32_t grad_mths,
                                double grad_rate, int32_t wam, int32_t inc_prn, int32_t inc_int, int32_t inc_svc,
                                const double* surv, const double* prepd, int32_t cap, double* cfs_out,
                                double* bal_out, double* prn_out, int32_t* n_out, int32_t validate,
                                uint32_t* err_code) {
    if (!(cap > wam && cap >= 1)) {
        orvel::fail(err_code, ORVEL_E_MBS_CAPACITY);
        return;
    }
    if (!mbs::count_fits(wam, err_code)) return;
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_orig_term, orig_term)
                              .call(0, ok_cpn_rate, cpn_rate)
                              .call(1, ok_cpn_rate, pass_rate)
                              .call(0, ok_m_pmtinc, grad_mths, orig_term)
                              .call(0, ok_rt_pmtinc, grad_rate)
                              .call(0, ok_wam, wam, orig_term)
                              .step([&](uint32_t* e) { return mbs::all_finite(wam + 1, surv, e); })
                              .step([&](uint32_t* e) { return mbs::all_finite(wam, prepd, e); })
                              .ok())
        return;
    const mbs::Graduated gpm(orig_term, cpn_rate, grad_mths, grad_rate);
    const int64_t age = current_age(orig_term, wam);
    const double start = mbs::graduated_balance(gpm, cpn_rate, age);
    if (!gpm.has_value() || !(orvel::finite(start) && start > 0.0)) {
        orvel::fail(err_code, ORVEL_E_MBS_GPM);
        return;
    }
    bal_out[0] = 100.0;
    if (wam >= 1) {
        const double scale = 100.0 / start;
        const auto payment = [&](int32_t k, double) {
            return gpm.payment(static_cast<int32_t>(std::clamp<int64_t>(age + k, -1, 1 << 20))) * scale;
        };
        mbs::project(cpn_rate, pass_rate, wam, mbs::Parts{inc_prn != 0, inc_int != 0, inc_svc != 0}, surv, prepd,
                     payment, cfs_out, bal_out, prn_out);
    }
    *n_out = wam;
}
