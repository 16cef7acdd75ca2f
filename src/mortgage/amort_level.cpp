// Level and graduated monthly payments, scheduled balances and factors, and the mortgage yield of a
// bond-equivalent yield.
#include "core/check.hpp"
#include "mortgage/amort.hpp"
#include "mortgage/speeds.hpp"
#include "orvel/mortgage.h"

using orvel::Check;

ORVEL_EXPORT(double) mbs_m_pmt(int32_t orig_term, double cpn_rate, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !Check(err_code).call(0, ok_orig_term, orig_term).call(0, ok_cpn_rate, cpn_rate)) return 0.0;
    return mtg::level_payment(orig_term, cpn_rate);
}

ORVEL_EXPORT(double) mbs_m_bal(int32_t orig_term, int32_t wam, double cpn_rate, int32_t validate,
                               uint32_t* err_code) {
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_orig_term, orig_term)
                              .call(0, ok_wam, wam, orig_term)
                              .call(0, ok_cpn_rate, cpn_rate))
        return 0.0;
    return mtg::scheduled_balance(orig_term, wam, cpn_rate);
}

ORVEL_EXPORT(int32_t) mbs_m_pmtgpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                   int32_t max_yrs, double* pmts, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_orig_term, orig_term)
                              .call(0, ok_cpn_rate, cpn_rate)
                              .call(0, ok_m_pmtinc, grad_mths, orig_term)
                              .call(0, ok_rt_pmtinc, grad_rate))
        return 0;
    if (!(orig_term >= 1 && orig_term <= mtg::max_term)) return orvel::fail(err_code, ORVEL_E_MTG_LONG);
    const int32_t years_raw = static_cast<int32_t>(orig_term / 12.0 + 0.5);
    const int32_t years = years_raw < 1 ? 1 : years_raw;
    if (years > max_yrs) return orvel::fail(err_code, ORVEL_E_GPM_YEARS);
    mtg::graduated_payments(orig_term, cpn_rate, grad_mths, grad_rate, years, pmts);
    return years;
}

ORVEL_EXPORT(double) mbs_f_sched(double bal1, double factor1, double bal2, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_mbs_fctr, factor1)
                              .call(0, ok_mbs_bal, bal1)
                              .call(0, ok_mbs_bal, bal2))
        return 0.0;
    return bal2 / bal1 * factor1;
}

ORVEL_EXPORT(double) mbs_bey2my(double bey) {
    return (orvel::pow(1.0 + bey * 0.005, 1.0 / 6) - 1.0) * 1200.0;
}
