// Whole-loan balances, pool factors, survival factors, monthly flows and the prepayment rate implied by
// two factors.
#include <cmath>

#include "core/check.hpp"
#include "mortgage/amort.hpp"
#include "mortgage/whole_loan.hpp"
#include "orvel/mortgage.h"

using mtg::LoanTerms;
using orvel::Check;

namespace {

// The term on which mtg_ppr values balances.
constexpr int32_t ppr_term = 360;
// mtg_ppr's number for an ending month not after the starting one (shared with ok_conv_rate).
constexpr uint32_t ppr_months_error = ORVEL_E_CONV_RATE;  // 7100, shared with the conversion rate

// Scheduled balance per 100 of the original after `age` payments of a level loan; straight-line at 0 %.
double level_balance(int32_t term, int32_t age, double cpn_rate) {
    if (mtg::monthly_rate(cpn_rate) == 0.0) return 100.0 * (term - age) / term;
    return 100.0 * mtg::scheduled_balance(term, term - age, cpn_rate);
}

// The monthly mortality of a speed of type 1 (CPR), 2 (SMM) or 3 (PSA) in a month of loan age `age`.
double mortality(int32_t spd_type, double speed, int32_t age) {
    switch (spd_type) {
        case 1: return mtg::smm_of_cpr_fraction(speed / 100.0);
        case 2: return speed / 100.0;
        default: return mtg::smm_of_cpr_fraction(mtg::psa_cpr(age, speed) / 100.0);
    }
}

// Survival factors from 1.0 at `age` through the term: surv[k] = surv[k-1] (1 - smm of month k), prepd[k]
// = surv[k] - surv[k+1]. Writes *count = term - age + 1 first; 13000 when it is above capacity.
template <class Smm>
int32_t survival(int32_t term, int32_t age, int32_t capacity, double* surv, double* prepd, int32_t* count,
                 uint32_t* err_code, Smm smm_of_month) {
    const int32_t n = term - age;
    *count = n + 1;
    if (capacity < n + 1) return orvel::fail(err_code, ORVEL_E_CAPACITY);
    surv[0] = 1.0;
    for (int32_t k = 1; k <= n; ++k) {
        surv[k] = surv[k - 1] * (1.0 - smm_of_month(k));
        prepd[k - 1] = surv[k - 1] - surv[k];
    }
    return n + 1;
}

int32_t flows(const LoanTerms& t, int32_t validate, int32_t capacity, double* cfs, double* bals, double* prns,
              int32_t* count, uint32_t* err_code) {
    if (!mtg::valid_loan(t, validate, err_code)) return 0;
    const mtg::Loan loan = t.loan();
    const double smm = t.smm();
    double total = 0.0;
    const int32_t n = mtg::run_flows(loan, t.age, smm, [&](int32_t, const mtg::Flow& f) {
        total += f.interest + f.principal;
    });
    if (!mtg::finite_result(total, err_code)) return 0;
    *count = n;
    if (capacity < n) return orvel::fail(err_code, ORVEL_E_CAPACITY);
    mtg::run_flows(loan, t.age, smm, [&](int32_t k, const mtg::Flow& f) {
        cfs[k] = f.interest + f.principal;
        bals[k] = f.balance;
        prns[k] = f.principal;
    });
    return n;
}

// CPR (percent) of the mean monthly mortality that takes factor1 at loan age mth1 to factor2 at mth2,
// beyond the scheduled factor factor1 b(mth2) / b(mth1); the SMM (percent) to *smm_out.
double ppr(const mtg::Loan* graduated, double cpn_rate, int32_t mth1, double factor1, int32_t mth2, double factor2,
           double* smm_out, uint32_t* err_code) {
    if (!(mth1 >= 0 && mth1 < ppr_term && mth2 >= 0 && mth2 < ppr_term)) return orvel::fail(err_code, ORVEL_E_MTG_LONG);
    if (mth2 <= mth1) return orvel::fail(err_code, ppr_months_error);
    const double b1 = graduated ? graduated->balance_at(mth1) : level_balance(ppr_term, mth1, cpn_rate);
    const double b2 = graduated ? graduated->balance_at(mth2) : level_balance(ppr_term, mth2, cpn_rate);
    const double scheduled = factor1 * (b2 / b1);
    if (!(scheduled > 0.0)) return orvel::fail(err_code, ORVEL_E_PPR_SCHED);
    const double smm = (1.0 - orvel::pow(factor2 / scheduled, 1.0 / (mth2 - mth1))) * 100.0;
    const double cpr = mtg::cpr_of_smm_percent(smm);
    if (!mtg::finite_result(cpr, err_code)) return 0.0;
    *smm_out = smm;
    return cpr;
}

bool valid_ppr(double cpn_rate, int32_t mth1, double factor1, int32_t mth2, double factor2, uint32_t* err_code) {
    return Check(err_code)
        .call(0, ok_cpn_rate, cpn_rate)
        .call(0, ok_pool_age, mth1, ppr_term)
        .call(0, ok_mbs_fctr, factor1)
        .call(0, ok_pool_age, mth2, ppr_term)
        .call(0, ok_mbs_fctr, factor2)
        .ok();
}

}  // namespace

ORVEL_EXPORT(double) mtg_mbal(int32_t orig_term, double cpn_rate, int32_t age, int32_t validate, uint32_t* err_code) {
    if (!mtg::valid_loan(LoanTerms{orig_term, cpn_rate, age, 0.0}, validate, err_code)) return 0.0;
    return level_balance(orig_term, age, cpn_rate);
}

ORVEL_EXPORT(double) mtg_mpf(int32_t orig_term, double cpn_rate, int32_t age, double cpr, int32_t validate,
                             uint32_t* err_code) {
    const LoanTerms t{orig_term, cpn_rate, age, cpr};
    if (!mtg::valid_loan(t, validate, err_code)) return 0.0;
    return level_balance(orig_term, age, cpn_rate) / 100.0 * orvel::pow(1.0 - t.smm(), age);
}

ORVEL_EXPORT(int32_t) mtg_mlpf_cpr(int32_t orig_term, int32_t age, double cpr, int32_t capacity, double* surv,
                                   double* prepd, int32_t* count, int32_t validate, uint32_t* err_code) {
    if (!mtg::valid_loan(LoanTerms{orig_term, 0.0, age, cpr}, validate, err_code)) return 0;
    const double smm = mtg::smm_of_cpr_fraction(cpr / 100.0);
    return survival(orig_term, age, capacity, surv, prepd, count, err_code, [smm](int32_t) { return smm; });
}

ORVEL_EXPORT(int32_t) mtg_mlpf_exp(int32_t orig_term, int32_t age, int32_t spd_type, int32_t n_spd,
                                   const double* speeds, int32_t capacity, double* surv, double* prepd,
                                   int32_t* count, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_orig_term, orig_term)
                              .call(0, ok_pool_age, age, orig_term)
                              .call(0, ok_pps, spd_type, n_spd, speeds))
        return 0;
    if (!mtg::valid_loan(LoanTerms{orig_term, 0.0, age, 0.0}, 0, err_code)) return 0;
    if (!(n_spd >= 1 && n_spd <= mtg::max_term)) return orvel::fail(err_code, ORVEL_E_MTG_COUNT);
    if (spd_type < 1 || spd_type > 3) return orvel::fail(err_code, ORVEL_E_PCNT_SPD_MODEL);
    return survival(orig_term, age, capacity, surv, prepd, count, err_code, [&](int32_t k) {
        return mortality(spd_type, speeds[k <= n_spd ? k - 1 : n_spd - 1], age + k);
    });
}

ORVEL_EXPORT(int32_t) mtg_cfbp_cpr(int32_t orig_term, double cpn_rate, int32_t age, double cpr, int32_t capacity,
                                   double* cfs, double* bals, double* prns, int32_t* count, int32_t validate,
                                   uint32_t* err_code) {
    return flows(LoanTerms{orig_term, cpn_rate, age, cpr}, validate, capacity, cfs, bals, prns, count, err_code);
}

ORVEL_EXPORT(int32_t) mtg_cfbp_gpm(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate,
                                   int32_t age, double cpr, int32_t capacity, double* cfs, double* bals,
                                   double* prns, int32_t* count, int32_t validate, uint32_t* err_code) {
    return flows(LoanTerms{orig_term, cpn_rate, age, cpr, true, grad_mths, grad_rate}, validate, capacity, cfs, bals,
                 prns, count, err_code);
}

ORVEL_EXPORT(double) mtg_ppr(double cpn_rate, int32_t mth1, double factor1, int32_t mth2, double factor2,
                             double* smm, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_ppr(cpn_rate, mth1, factor1, mth2, factor2, err_code)) return 0.0;
    return ppr(nullptr, cpn_rate, mth1, factor1, mth2, factor2, smm, err_code);
}

ORVEL_EXPORT(double) mtg_ppr_gpm(double cpn_rate, int32_t grad_mths, double grad_rate, int32_t mth1, double factor1,
                                 int32_t mth2, double factor2, double* smm, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_cpn_rate, cpn_rate)
                              .call(0, ok_m_pmtinc, grad_mths, ppr_term)
                              .call(0, ok_rt_pmtinc, grad_rate)
                              .step([&](uint32_t* e) { return valid_ppr(cpn_rate, mth1, factor1, mth2, factor2, e); }))
        return 0.0;
    const mtg::Loan loan = mtg::Loan::graduated(ppr_term, cpn_rate, grad_mths, grad_rate);
    return ppr(&loan, cpn_rate, mth1, factor1, mth2, factor2, smm, err_code);
}
