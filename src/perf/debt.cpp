// Debt service of a bond issue: the level debt service, the schedule of a serial issue, and its true
// interest cost.
#include <cmath>

#include "cashflow/tvm.hpp"
#include "perf/solves.hpp"

namespace {

using orvel::Check;

bool periods_ok(int32_t n) { return n >= 1 && n <= ORVEL_PERF_MAX_VALUES; }

// Each amount finite and at least 0; else 15412.
bool amounts_ok(const double* v, int32_t n, uint32_t* err_code) {
    for (int32_t k = 0; k < n; ++k)
        if (!orvel::non_negative(v[k])) return orvel::fail(err_code, ORVEL_E_DEBT_SRVC);
    return true;
}

}  // namespace

ORVEL_EXPORT(double) debt_level(double par, double cpn_rate, int32_t n_pers, int32_t freq, int32_t validate,
                                uint32_t* err_code) {
    if (validate != 0 && !Check(err_code)
                              .expect(orvel::positive(par), ORVEL_E_PRINCIPAL)
                              .call(0, ok_cpn_rate, cpn_rate)
                              .expect(periods_ok(n_pers), ORVEL_E_DEBT_PERIODS)
                              .call(0, ok_cpn_freq, freq)
                              .ok())
        return 0.0;
    // The payment of a loan of par at the coupon rate a period, repaid over n_pers periods.
    const double j = cpn_rate / (static_cast<double>(freq) * 100.0);
    return -orvel::tvm::payment(j, par, 0.0, n_pers, 0.0);
}

ORVEL_EXPORT(double) debt_srvc(int32_t n, const double* prn_amts, const double* cpn_rates, int32_t freq,
                               double* srvc, int32_t validate, uint32_t* err_code) {
    if (!Check(err_code).expect(n <= ORVEL_PERF_MAX_VALUES, ORVEL_E_DEBT_PERIODS).ok()) return 0.0;
    if (validate != 0 && !Check(err_code)
                              .expect(n >= 1, ORVEL_E_DEBT_PERIODS)
                              .call(0, ok_cpn_freq, freq)
                              .step([&](uint32_t* e) { return amounts_ok(prn_amts, n, e); })
                              .step([&](uint32_t* e) {
                                  for (int32_t k = 0; k < n; ++k)
                                      if (!ok_cpn_rate(cpn_rates[k], e)) return false;
                                  return true;
                              })
                              .ok())
        return 0.0;
    // From the last maturity back: the interest of a period is the coupon of every bond still outstanding.
    const double f = 100.0 * freq;
    double interest = 0.0, total = 0.0;
    for (int32_t k = n - 1; k >= 0; --k) {
        interest += prn_amts[k] * cpn_rates[k] / f;
        srvc[k] = prn_amts[k] + interest;
        total += srvc[k];
    }
    return total;
}

ORVEL_EXPORT(double) debt_tic(double proceeds, int32_t n, const double* srvc, int32_t freq, int32_t validate,
                              uint32_t* err_code) {
    if (!Check(err_code).expect(n <= ORVEL_PERF_MAX_VALUES, ORVEL_E_DEBT_PERIODS).ok()) return 0.0;
    if (validate != 0 && !Check(err_code)
                              .expect(orvel::positive(proceeds), ORVEL_E_PRINCIPAL)
                              .expect(n >= 1, ORVEL_E_DEBT_PERIODS)
                              .step([&](uint32_t* e) { return amounts_ok(srvc, n, e); })
                              .call(0, ok_cpn_freq, freq)
                              .ok())
        return 0.0;
    uint32_t err = 0;
    const double y = orvel::perf::true_interest_cost(proceeds, n, srvc, freq, &err);
    return err != 0 ? orvel::perf::fail0(err_code, err) : y;
}

double orvel::perf::true_interest_cost(double proceeds, int32_t n, const double* srvc, int32_t freq, uint32_t* err,
                                       SolveStats* stats) {
    // proceeds = sum of srvc[k] / (1 + y / (100 freq))^(k + 1), the residual per 100 of proceeds.
    const double f = 100.0 * freq;
    auto residual = [&](double y, uint32_t* e) {
        const double base = 1.0 + y / f;
        if (!(base > 0.0)) return fail0(e, ORVEL_E_NEG_BASE);
        const double v = 1.0 / base;
        double value = 0.0, discount = 1.0;
        for (int32_t k = 0; k < n; ++k) {
            discount *= v;
            value += srvc[k] * discount;
        }
        return (proceeds - value) / proceeds * 100.0;
    };
    const double start[3] = {10.0, 9.0, 11.0};
    return solve3(start, residual, ResidualBelow{5e-9}, err, stats);
}
