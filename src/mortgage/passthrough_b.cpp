// Pass-throughs given by their balances (the _b forms) and sinking-fund pools (the mbs_sf_ forms): both turn
// their schedule into monthly flows and price them on the grid of the flow forms.
#include <cstdint>

#include "core/check.hpp"
#include "mortgage/passthrough.hpp"
#include "orvel/mortgage.h"

namespace {

// bals[0] a positive balance (13100), every later one finite and at least 0 (15601).
bool valid_balances(int32_t n, const double* bals, uint32_t* err_code) {
    if (n >= 1 && !ok_mbs_bal(bals[0], err_code)) return false;
    for (int32_t k = 1; k < n; ++k)
        if (!orvel::non_negative(bals[k])) return orvel::fail(err_code, ORVEL_E_MBS_ELEMENT);
    return true;
}

// The checks of a balance or sinking-fund form after its given values: ok_cpn_rate(pass_rate) (skipped
// when pass_rate is null), ok_wam(wam, 0), ok_paymt_dly, ok_days_acrd, then the schedule.
template <class Schedule>
bool valid_schedule(const double* pass_rate, int32_t wam, int32_t paymt_dly, int32_t days_acrd, uint32_t* err_code,
                    Schedule schedule) {
    return orvel::Check(err_code)
        .step([&](uint32_t* e) { return pass_rate == nullptr || ok_cpn_rate(*pass_rate, e) != 0; })
        .call(0, ok_wam, wam, 0)
        .call(0, ok_paymt_dly, paymt_dly)
        .call(0, ok_days_acrd, days_acrd)
        .step(schedule)
        .ok();
}

bool valid_bals(const double* pass_rate, int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* bals,
                uint32_t* err_code) {
    return valid_schedule(pass_rate, wam, paymt_dly, days_acrd, err_code,
                          [&](uint32_t* e) { return valid_balances(wam, bals, e); });
}

// Each amount ok_sf_amt (5100), all of them at most the balance of 100 (15605).
bool valid_sf(const double* pass_rate, int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* sf,
              uint32_t* err_code) {
    return valid_schedule(pass_rate, wam, paymt_dly, days_acrd, err_code, [&](uint32_t* e) {
        double sum = 0.0;
        for (int32_t k = 0; k < wam; ++k) {
            if (!ok_sf_amt(sf[k], e)) return false;
            sum += sf[k];
        }
        return sum <= 100.0 * (1.0 + 1e-12) || orvel::fail(e, ORVEL_E_MBS_SF_SUM);
    });
}

// Monthly flows per 100 of bals[0]: principal bals[k] - bals[k+1] (bals[n] = 0: the pool pays off in its
// last month) plus interest bals[k] x rn when rn is given.
class BalanceFlows {
public:
    BalanceFlows(double pass_rate, int32_t n, const double* bals, bool interest) : n_(n < 0 ? 0 : n) {
        const double rn = interest ? mtg::monthly_rate(pass_rate) : 0.0, scale = n_ >= 1 ? 100.0 / bals[0] : 1.0;
        for (int32_t k = 0; k < n_; ++k) {
            const double next = k + 1 < n_ ? bals[k + 1] : 0.0;
            flows_[k] = (bals[k] - next + bals[k] * rn) * scale;
        }
    }
    const double* data() const { return flows_; }

private:
    int32_t n_;
    double flows_[mbs::max_months];
};

// Monthly flows of a sinking-fund pool per 100: sf[k] retired each month with interest at rn on the
// balance before it, the balance left after the last amount repaid with the last flow.
class SinkingFlows {
public:
    SinkingFlows(double pass_rate, int32_t n, const double* sf, bool interest) : n_(n < 0 ? 0 : n) {
        const double rn = interest ? mtg::monthly_rate(pass_rate) : 0.0;
        double b = 100.0;
        for (int32_t k = 0; k < n_; ++k) {
            flows_[k] = sf[k] + b * rn;
            b -= sf[k];
        }
        if (n_ >= 1) flows_[n_ - 1] += b;
    }
    const double* data() const { return flows_; }

private:
    int32_t n_;
    double flows_[mbs::max_months];
};

}  // namespace

ORVEL_EXPORT(double) mbs_p_b(double yld, double pass_rate, int32_t wam, int32_t paymt_dly, int32_t days_acrd,
                             const double* bals, int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !(ok_given(yld, 1, err_code) &&
                           valid_bals(&pass_rate, wam, paymt_dly, days_acrd, bals, err_code)))
        return 0.0;
    const BalanceFlows f(pass_rate, wam, bals, true);
    return mbs_p(yld, wam, paymt_dly, days_acrd, f.data(), 0, err_code);
}

ORVEL_EXPORT(double) mbs_y_b(double price, double pass_rate, int32_t wam, int32_t paymt_dly, int32_t days_acrd,
                             const double* bals, int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !(ok_given(price, 2, err_code) &&
                           valid_bals(&pass_rate, wam, paymt_dly, days_acrd, bals, err_code)))
        return 0.0;
    const BalanceFlows f(pass_rate, wam, bals, true);
    return mbs_y(price, wam, paymt_dly, days_acrd, f.data(), 0, err_code);
}

ORVEL_EXPORT(double) mbs_py_b(double given, int32_t given_type, double pass_rate, int32_t paymt_dly,
                              int32_t days_acrd, int32_t wam, const double* bals, int32_t validate,
                              uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !(ok_given(given, given_type, err_code) &&
                           valid_bals(&pass_rate, wam, paymt_dly, days_acrd, bals, err_code)))
        return 0.0;
    const BalanceFlows f(pass_rate, wam, bals, true);
    return mbs_py(given, given_type, paymt_dly, days_acrd, wam, f.data(), 0, err_code);
}

ORVEL_EXPORT(double) mbs_py_ai_b(double given, int32_t given_type, double pass_rate, int32_t paymt_dly,
                                 int32_t days_acrd, int32_t wam, const double* bals, double* ai, int32_t validate,
                                 uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !(ok_given(given, given_type, err_code) &&
                           valid_bals(&pass_rate, wam, paymt_dly, days_acrd, bals, err_code)))
        return 0.0;
    const BalanceFlows f(pass_rate, wam, bals, true);
    return mbs_py_ai(given, given_type, pass_rate, paymt_dly, days_acrd, wam, f.data(), ai, 0, err_code);
}

ORVEL_EXPORT(double) mbs_al_b(int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* bals, int32_t validate,
                              uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !valid_bals(nullptr, wam, paymt_dly, days_acrd, bals, err_code)) return 0.0;
    const BalanceFlows f(0.0, wam, bals, false);
    return mbs_avg_life(wam, paymt_dly, days_acrd, f.data(), 0, err_code);
}

ORVEL_EXPORT(void) mbs_dur_b(double yld, double price, double pass_rate, int32_t paymt_dly, int32_t days_acrd,
                             int32_t wam, const double* bals, double* mac_dur, double* mod_dur, int32_t validate,
                             uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return;
    if (validate != 0 && !(ok_given(yld, 1, err_code) && ok_given(price, 2, err_code) &&
                           valid_bals(&pass_rate, wam, paymt_dly, days_acrd, bals, err_code)))
        return;
    const BalanceFlows f(pass_rate, wam, bals, true);
    mbs_duration(yld, price, paymt_dly, days_acrd, wam, f.data(), mac_dur, mod_dur, 0, err_code);
}

ORVEL_EXPORT(double) mbs_cvx_b(double yld, double price, double pass_rate, int32_t paymt_dly, int32_t days_acrd,
                               int32_t wam, const double* bals, int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !(ok_given(yld, 1, err_code) && ok_given(price, 2, err_code) &&
                           valid_bals(&pass_rate, wam, paymt_dly, days_acrd, bals, err_code)))
        return 0.0;
    const BalanceFlows f(pass_rate, wam, bals, true);
    return mbs_cvx(yld, price, paymt_dly, days_acrd, wam, f.data(), 0, err_code);
}

ORVEL_EXPORT(double) mbs_sf_p(double yld, double pass_rate, int32_t wam, int32_t paymt_dly, int32_t days_acrd,
                              const double* sf, int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 &&
        !(ok_given(yld, 1, err_code) && valid_sf(&pass_rate, wam, paymt_dly, days_acrd, sf, err_code)))
        return 0.0;
    const SinkingFlows f(pass_rate, wam, sf, true);
    return mbs_p(yld, wam, paymt_dly, days_acrd, f.data(), 0, err_code);
}

ORVEL_EXPORT(double) mbs_sf_y(double price, double pass_rate, int32_t wam, int32_t paymt_dly, int32_t days_acrd,
                              const double* sf, int32_t validate, uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 &&
        !(ok_given(price, 2, err_code) && valid_sf(&pass_rate, wam, paymt_dly, days_acrd, sf, err_code)))
        return 0.0;
    const SinkingFlows f(pass_rate, wam, sf, true);
    return mbs_y(price, wam, paymt_dly, days_acrd, f.data(), 0, err_code);
}

ORVEL_EXPORT(double) mbs_sf_al(int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* sf, int32_t validate,
                               uint32_t* err_code) {
    if (!mbs::count_fits(wam, err_code)) return 0.0;
    if (validate != 0 && !valid_sf(nullptr, wam, paymt_dly, days_acrd, sf, err_code)) return 0.0;
    const SinkingFlows f(0.0, wam, sf, false);
    return mbs_avg_life(wam, paymt_dly, days_acrd, f.data(), 0, err_code);
}
