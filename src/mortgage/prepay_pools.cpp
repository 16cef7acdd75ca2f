// Prepayment rates implied by a pool's factors, the projection of a factor by speed, and the PSA speed
// that carries one factor to another.
#include <cmath>

#include "bond/solver.hpp"
#include "core/check.hpp"
#include "mortgage/amort.hpp"
#include "mortgage/prepay.hpp"
#include "mortgage/speeds.hpp"
#include "orvel/mortgage.h"

using orvel::Check;

namespace mtg {

double psa_of_factors(int32_t orig_term, int32_t wam, double cpn_rate, int32_t n, const int32_t* mths,
                      const double* factors, uint32_t* err_code, orvel::SolveStats* stats) {
    const double cap = 10000.0 / psa_cpr(mths[n - 1] - wam + orig_term, 100.0) - 1e-10;
    double observed = 0.0;
    for (int32_t i = 1; i < n; ++i) observed += factors[i];
    auto residual = [&](double speed, uint32_t*) {
        const MonthlySmm smm(3, speed < cap ? speed : cap);
        double projected = 0.0;
        int32_t next = 1;
        projected += project_factor(orig_term, wam, cpn_rate, 1, factors[0], mths[0], mths[n - 1], smm,
                                    [&](int32_t t, double f) {
                                        if (next < n - 1 && t == mths[next]) {
                                            projected += f;
                                            ++next;
                                        }
                                    });
        return (observed - projected) / (n - 1);
    };
    const double start[3] = {100.0, 99.0, 101.0};
    uint32_t failed = 0;
    const double speed = orvel::solve3(start, residual, orvel::ResidualBelow{0.0005}, &failed, stats);
    if (failed != 0) return orvel::fail(err_code, failed);  // 0.0, not the cap (which may be negative)
    return speed < cap ? speed : cap;
}

}  // namespace mtg

namespace {

bool short_months(int32_t orig_term, int32_t wam, int32_t mth1, int32_t mth2, uint32_t* err_code) {
    return (mtg::short_enough(orig_term) && mtg::short_enough(wam) && mtg::short_enough(mth1) &&
            mtg::short_enough(mth2)) ||
           orvel::fail(err_code, ORVEL_E_MTG_LONG);
}

// The pool's terms, then each factor, then the months as indexes within the remaining term.
bool valid_pool(int32_t orig_term, int32_t wam, double cpn_rate, int32_t mth1, double factor1, int32_t mth2,
                double factor2, uint32_t* err_code) {
    return Check(err_code)
        .call(0, ok_orig_term, orig_term)
        .call(0, ok_wam, wam, orig_term)
        .call(0, ok_cpn_rate, cpn_rate)
        .call(0, ok_mbs_fctr, factor1)
        .call(0, ok_mbs_fctr, factor2)
        .expect(mth1 >= 0 && mth1 < wam, ORVEL_E_MTH1)
        .expect(mth2 >= 0 && mth2 < wam, ORVEL_E_MTH2)
        .ok();
}

// The rates between two observations n = mth2 - mth1 months apart: the factor scheduled at mth2 from
// factor1, the mean SMM that leaves factor2 of it, its CPR, and that CPR over the mean of the 100 PSA ramp
// over the months' ages.
struct Rates {
    double smm, cpr, psa;
};

bool rates_between(int32_t orig_term, int32_t wam, double cpn_rate, int32_t mth1, double factor1, int32_t mth2,
                   double factor2, Rates* out, uint32_t* err_code) {
    const double scheduled = mtg::scheduled_balance(wam, wam - mth2, cpn_rate) /
                             mtg::scheduled_balance(wam, wam - mth1, cpn_rate) * factor1;
    if (!(scheduled > 0.0)) return orvel::fail(err_code, ORVEL_E_PPR_SCHED);
    const int32_t n = mth2 - mth1;
    double ramp = 0.0;
    for (int32_t t = mth1; t < mth2; ++t) ramp += mtg::psa_cpr(mtg::loan_age(t, wam, orig_term), 100.0);
    out->smm = (1.0 - orvel::pow(factor2 / scheduled, 1.0 / n)) * 100.0;
    out->cpr = mtg::cpr_of_smm_percent(out->smm);
    out->psa = out->cpr * 100.0 / (ramp / n);
    return true;
}

// Observations: 2..max_term + 1 of them, months increasing, each within the guard (and, validating, an
// index of the remaining term: 11600 for the first, 11700 for a later one), factors not negative.
bool valid_observations(int32_t orig_term, int32_t wam, double cpn_rate, int32_t n, const int32_t* mths,
                        const double* factors, int32_t validate, uint32_t* err_code) {
    if (validate != 0 &&
        !Check(err_code).call(0, ok_orig_term, orig_term).call(0, ok_wam, wam, orig_term).call(0, ok_cpn_rate, cpn_rate))
        return false;
    if (!(n >= 2 && n <= mtg::max_term + 1)) return orvel::fail(err_code, ORVEL_E_MTG_COUNT);
    Check check(err_code);
    for (int32_t i = 0; validate != 0 && check && i < n; ++i)
        check.call(0, ok_mbs_fctr, factors[i])
            .expect(mths[i] >= 0 && mths[i] < wam, i == 0 ? ORVEL_E_MTH1 : ORVEL_E_MTH2);
    if (!check || !short_months(orig_term, wam, mths[0], mths[0], err_code)) return false;
    for (int32_t i = 1; i < n; ++i) {
        if (!mtg::short_enough(mths[i])) return orvel::fail(err_code, ORVEL_E_MTG_LONG);
        if (mths[i] <= mths[i - 1]) return orvel::fail(err_code, ORVEL_E_MTG_ORDER);
    }
    return true;
}

}  // namespace

ORVEL_EXPORT(int32_t) mbs_1m_ppr(int32_t orig_term, int32_t wam, double cpn_rate, int32_t mth1, double factor1,
                                 int32_t mth2, double factor2, double* smm_out, double* cpr_out, double* psa_out,
                                 int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !(valid_pool(orig_term, wam, cpn_rate, mth1, factor1, mth2, factor2, err_code) &&
                           Check(err_code).expect(mth2 - mth1 == 1, ORVEL_E_ONE_MONTH)))
        return 0;
    if (!short_months(orig_term, wam, mth1, mth2, err_code)) return 0;
    const double b1 = mtg::scheduled_balance(wam, wam - mth1, cpn_rate);
    const double b2 = mtg::scheduled_balance(wam, wam - mth2, cpn_rate);
    const double s = b2 / b1 * factor1;
    const double smm = (s - factor2) / s * 100.0;
    const double cpr = mtg::cpr_of_smm_percent(smm);
    *smm_out = smm;
    *cpr_out = cpr;
    *psa_out = cpr * 100.0 / mtg::psa_cpr(mtg::loan_age(mth1, wam, orig_term), 100.0);
    return 0;
}

ORVEL_EXPORT(int32_t) mbs_nm_ppr(int32_t orig_term, int32_t wam, double cpn_rate, int32_t mth1, double factor1,
                                 int32_t mth2, double factor2, double* smm_out, double* cpr_out, double* psa_out,
                                 int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_pool(orig_term, wam, cpn_rate, mth1, factor1, mth2, factor2, err_code)) return 0;
    if (!short_months(orig_term, wam, mth1, mth2, err_code)) return 0;
    if (mth2 <= mth1) return orvel::fail(err_code, ORVEL_E_MTG_ORDER);
    Rates r{};
    if (!rates_between(orig_term, wam, cpn_rate, mth1, factor1, mth2, factor2, &r, err_code)) return 0;
    *smm_out = r.smm;
    *cpr_out = r.cpr;
    *psa_out = r.psa;
    return 0;
}

ORVEL_EXPORT(double) mbs_nm_pf(int32_t orig_term, int32_t wam, double cpn_rate, int32_t apply, double factor,
                               int32_t mth1, int32_t mth2, int32_t spd_type, double speed, int32_t validate,
                               uint32_t* err_code) {
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_orig_term, orig_term)
                              .call(0, ok_wam, wam, orig_term)
                              .call(0, ok_cpn_rate, cpn_rate)
                              .call(0, ok_mbs_fctr, factor)
                              .call(0, ok_pcnt_spd, speed, spd_type)
                              .expect(mth1 >= 0 && mth1 < wam, ORVEL_E_MTH1)
                              .expect(mth2 >= 0 && mth2 < wam, ORVEL_E_MTH2))
        return 0.0;
    if (!short_months(orig_term, wam, mth1, mth2, err_code)) return 0.0;
    if (mth1 < mth2 && (spd_type < 1 || spd_type > 3)) return orvel::fail(err_code, ORVEL_E_PCNT_SPD_MODEL);
    return mtg::project_factor(orig_term, wam, cpn_rate, apply, factor, mth1, mth2, mtg::MonthlySmm(spd_type, speed),
                               [](int32_t, double) {});
}

ORVEL_EXPORT(double) mbs_pfs2psa(int32_t orig_term, int32_t wam, double cpn_rate, int32_t mth1, double factor1,
                                 int32_t mth2, double factor2, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_pool(orig_term, wam, cpn_rate, mth1, factor1, mth2, factor2, err_code)) return 0.0;
    if (!short_months(orig_term, wam, mth1, mth2, err_code)) return 0.0;
    const int32_t mths[2] = {mth1, mth2};
    const double factors[2] = {factor1, factor2};
    return mtg::psa_of_factors(orig_term, wam, cpn_rate, 2, mths, factors, err_code);
}

ORVEL_EXPORT(int32_t) mbs_pool_ppr(int32_t orig_term, int32_t wam, double cpn_rate, int32_t n_obs,
                                   const int32_t* mths, const double* factors, int32_t capacity, double* smm,
                                   double* cpr, double* psa, int32_t* count, int32_t validate, uint32_t* err_code) {
    if (!valid_observations(orig_term, wam, cpn_rate, n_obs, mths, factors, validate, err_code)) return 0;
    Rates first{};
    uint32_t scratch = 0;
    for (int32_t i = 1; i < n_obs; ++i)  // every interval computes before anything is written
        if (!rates_between(orig_term, wam, cpn_rate, mths[i - 1], factors[i - 1], mths[i], factors[i], &first,
                           &scratch))
            return orvel::fail(err_code, scratch);
    *count = n_obs - 1;
    if (capacity < n_obs - 1) return orvel::fail(err_code, ORVEL_E_CAPACITY);
    for (int32_t i = 1; i < n_obs; ++i) {
        Rates r{};
        rates_between(orig_term, wam, cpn_rate, mths[i - 1], factors[i - 1], mths[i], factors[i], &r, &scratch);
        smm[i - 1] = r.smm;
        cpr[i - 1] = r.cpr;
        psa[i - 1] = r.psa;
    }
    return n_obs - 1;
}

ORVEL_EXPORT(double) mbs_pool2psa(int32_t orig_term, int32_t wam, double cpn_rate, int32_t n_obs,
                                  const int32_t* mths, const double* factors, int32_t validate, uint32_t* err_code) {
    if (!valid_observations(orig_term, wam, cpn_rate, n_obs, mths, factors, validate, err_code)) return 0.0;
    return mtg::psa_of_factors(orig_term, wam, cpn_rate, n_obs, mths, factors, err_code);
}
