// Single-formula compound and simple interest: future and present values of one amount or of a uniform
// series, the present value of a bond's coupons, and effective annual rates.
#include <cmath>

#include "cashflow/tvm.hpp"
#include "core/check.hpp"
#include "core/power.hpp"
#include "core/validators.hpp"
#include "orvel/cashflow.h"

namespace {

inline bool is_finite(double x) { return orvel::finite(x); }

// The checks of the unit-amount factors: both arguments finite.
bool rate_and_periods(double rate, double n, int32_t validate, uint32_t* err_code) {
    return validate == 0 ||
           orvel::Check(err_code).expect(is_finite(rate), ORVEL_E_RATE).expect(is_finite(n), ORVEL_E_PERIODS).ok();
}

// A frequency refused by ok_cpn_freq, reported as 650 whatever number the validator wrote.
bool freq_ok(int32_t freq, uint32_t* err_code) {
    uint32_t scratch = 0;
    return ok_cpn_freq(freq, &scratch) != 0 || orvel::fail(err_code, ORVEL_E_FLT_FREQ);
}

// The growth per period 1 + rate / (100 freq); false with 4090 when it is negative.
bool growth(double rate, int32_t freq, double* base, uint32_t* err_code) {
    *base = 1.0 + rate / (static_cast<double>(freq) * 100.0);
    return !(*base < 0.0) || orvel::fail(err_code, ORVEL_E_NEG_BASE);
}

// The checks of one amount compounded n_pers times: the rate, the amount finite (15203), freq at least 1.
bool one_amount_ok(double amount, double rate, int32_t freq, int32_t validate, uint32_t* err_code) {
    return validate == 0 || orvel::Check(err_code)
                                .call(0, ok_cpn_rate, rate)
                                .expect(is_finite(amount), ORVEL_E_PV)
                                .expect(freq >= 1, ORVEL_E_CMPD_FREQ)
                                .ok();
}

// (1 + rate / 100 / freq)^n_pers.
double compound_factor(double rate, int32_t freq, int32_t n_pers) {
    return orvel::pow(1.0 + rate / 100.0 / freq, n_pers);
}

}  // namespace

ORVEL_EXPORT(double) FV_of_1_PV(double pv, double rate, int32_t freq, int32_t n_pers, int32_t validate,
                                uint32_t* err_code) {
    if (!one_amount_ok(pv, rate, freq, validate, err_code)) return 0.0;
    return pv * compound_factor(rate, freq, n_pers);
}

ORVEL_EXPORT(double) PV_of_1_FV(double fv, double rate, int32_t freq, int32_t n_pers, int32_t validate,
                                uint32_t* err_code) {
    if (!one_amount_ok(fv, rate, freq, validate, err_code)) return 0.0;
    const double factor = compound_factor(rate, freq, n_pers);
    if (factor == 0.0) {
        *err_code = ORVEL_E_FACTOR_ZERO;
        return 0.0;
    }
    return fv / factor;
}

ORVEL_EXPORT(double) FV_of_PV(double pv, double n, double rate, int32_t freq, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .step([&](uint32_t* e) { return freq_ok(freq, e); })
                              .call(0, ok_given, rate, 1)
                              .expect(is_finite(pv), ORVEL_E_PV)
                              .expect(is_finite(n), ORVEL_E_PERIODS)
                              .ok())
        return 0.0;
    double base = 0.0;
    if (!growth(rate, freq, &base, err_code)) return 0.0;
    return pv * orvel::pow(base, n);
}

ORVEL_EXPORT(double) PV_of_RV(double redemptn, double n, double rate, int32_t freq, int32_t validate,
                              uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .call(1, ok_redemptn, redemptn)
                              .step([&](uint32_t* e) { return freq_ok(freq, e); })
                              .call(0, ok_given, rate, 1)
                              .expect(is_finite(n), ORVEL_E_PERIODS)
                              .ok())
        return 0.0;
    double base = 0.0;
    if (!growth(rate, freq, &base, err_code)) return 0.0;
    return redemptn * orvel::pow(base, -n);
}

ORVEL_EXPORT(double) FV_of_sp_1d(double rate, double n, int32_t validate, uint32_t* err_code) {
    if (!rate_and_periods(rate, n, validate, err_code)) return 0.0;
    return orvel::tvm::compounded(rate / 100.0, n);
}

ORVEL_EXPORT(double) FV_of_us_1d(double rate, double n, int32_t validate, uint32_t* err_code) {
    if (!rate_and_periods(rate, n, validate, err_code)) return 0.0;
    const double r = rate / 100.0;
    return orvel::tvm::series_future(r, orvel::tvm::compounded(r, n));
}

ORVEL_EXPORT(double) PV_of_sp_1d(double rate, double n, int32_t validate, uint32_t* err_code) {
    if (!rate_and_periods(rate, n, validate, err_code)) return 0.0;
    return orvel::tvm::compounded(rate / 100.0, -n);
}

ORVEL_EXPORT(double) PV_of_us_1d(double rate, double n, int32_t validate, uint32_t* err_code) {
    if (!rate_and_periods(rate, n, validate, err_code)) return 0.0;
    const double r = rate / 100.0;
    return orvel::tvm::series_present(r, orvel::tvm::compounded(r, -n));
}

ORVEL_EXPORT(double) PV_of_uscp(double cpn_rate, int32_t cpn_freq, double n, double rate, int32_t freq,
                                int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_cpn_rate, cpn_rate)
                              .call(0, ok_cpn_freq, cpn_freq)
                              .step([&](uint32_t* e) { return freq_ok(freq, e); })
                              .call(0, ok_given, rate, 1)
                              .expect(is_finite(n), ORVEL_E_PERIODS)
                              .ok())
        return 0.0;
    double base = 0.0;
    if (!growth(rate, freq, &base, err_code)) return 0.0;
    const double j = rate / (static_cast<double>(freq) * 100.0);
    return cpn_rate / cpn_freq * (1.0 - orvel::pow(base, -n)) / j;
}

ORVEL_EXPORT(double) er_cont_cmpd(double rate, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code).expect(is_finite(rate), ORVEL_E_RATE).ok()) return 0.0;
    return (orvel::exp(rate / 100.0) - 1.0) * 100.0;
}

ORVEL_EXPORT(double) er_per_cmpd(double rate, double m, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .expect(is_finite(rate), ORVEL_E_RATE)
                              .expect(orvel::positive(m), ORVEL_E_CMPD_FREQ)
                              .ok())
        return 0.0;
    return (orvel::pow(1.0 + rate / (m * 100.0), m) - 1.0) * 100.0;
}

ORVEL_EXPORT(double) simple_int(double principal, double rate, int32_t days, int32_t year_days) {
    return principal * rate * 0.01 * (static_cast<double>(days) / year_days);
}
