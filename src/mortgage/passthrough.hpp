// Pass-through arithmetic: the payment-delay time grid, discounting monthly flows at a bond-equivalent
// yield, the sums that price, duration and convexity are made of, the yield solve, the survival tables of a
// prepayment speed and the month-by-month projection of a pool, and the checks the exports share.
//
// Time of flow k in years: t_k = t_0 + k/12, t_0 = 1/12 + delay/360 - a/360, a = days accrued with 30 read
// as 29. Discount factor of flow k: 1 / b^(2 t_k), b = 1 + yld/200.
#pragma once

#include <algorithm>
#include <cstdint>

#include "bond/solver.hpp"
#include "core/check.hpp"
#include "core/validators.hpp"
#include "mortgage/speeds.hpp"
#include "orvel/frame.h"

namespace mbs {

// The longest projection or flow list taken: 600 months (50 years).
inline constexpr int32_t max_months = 600;

// Years from settlement to the first flow.
inline double first_time(int32_t paymt_dly, int32_t days_acrd) {
    const int32_t a = days_acrd == 30 ? 29 : days_acrd;
    return 1.0 / 12 + paymt_dly / 360.0 - a / 360.0;
}

// Sums over the flows of cf_k v_k, t_k cf_k v_k and t_k (t_k + 1/2) cf_k v_k, v_k = b^(-2 t_k).
struct Sums {
    double pv = 0.0, pvt = 0.0, pvtt = 0.0;
};

template <bool Moments>
inline void add(Sums* s, double cf, double t, double factor) {
    const double v = cf / factor;
    s->pv += v;
    if (Moments) {
        s->pvt += t * v;
        s->pvtt += t * (t + 0.5) * v;
    }
}

// The sums with each factor b^(2 t_k) as a power of its own: the path taken when the monthly product would
// overflow. A factor that overflows to infinity discounts its flow to 0.
template <bool Moments>
Sums discount_direct(double b, int32_t n, double t0, const double* cfs) {
    Sums s;
    for (int32_t k = 0; k < n; ++k) {
        const double t = t0 + k / 12.0;
        add<Moments>(&s, cfs[k], t, orvel::pow(b, 2.0 * t));
    }
    return s;
}

// The sums for a base b >= 0: the factor of flow 0 is b^(2 t_0), each later one the previous times
// b^(1/6). A factor at or above 1e30 / b^(1/6) (overflow ahead) abandons the product for the direct powers.
template <bool Moments>
Sums discount(double b, int32_t n, double t0, const double* cfs) {
    Sums s;
    const double step = orvel::pow(b, 1.0 / 6);
    const double limit = 1e30 / step;
    double factor = orvel::pow(b, 2.0 * t0);
    for (int32_t k = 0; k < n; ++k) {
        add<Moments>(&s, cfs[k], t0 + k / 12.0, factor);
        if (factor >= limit) return discount_direct<Moments>(b, n, t0, cfs);
        factor *= step;
    }
    return s;
}

// b = 1 + yld/200, or 4090 when it is negative.
inline bool base_of(double yld, double* b, uint32_t* err_code) {
    *b = 1.0 + yld * 0.005;
    return !(*b < 0.0) || orvel::fail(err_code, ORVEL_E_NEG_BASE);
}

// Price (the present value of the flows) at a bond-equivalent yield.
inline bool price(double yld, int32_t n, double t0, const double* cfs, double* out, uint32_t* err_code) {
    double b = 0.0;
    if (!base_of(yld, &b, err_code)) return false;
    *out = discount<false>(b, n, t0, cfs).pv;
    return true;
}

// Yield at which the flows are worth `target`: starts 10, 9, 11 percent, stops within 5e-7 of price.
inline double yield(double target, int32_t n, double t0, const double* cfs, uint32_t* err_code,
                    orvel::SolveStats* stats = nullptr) {
    const double start[3] = {10.0, 9.0, 11.0};
    auto residual = [&](double y, uint32_t* e) {
        double p = 0.0;
        return price(y, n, t0, cfs, &p, e) ? target - p : 0.0;
    };
    return orvel::solve3(start, residual, orvel::ResidualBelow{5e-7}, err_code, stats);
}

// Time-weighted mean of the flows on the grid: sum t_k cf_k / sum cf_k.
inline double mean_time(int32_t n, double t0, const double* cfs) {
    double w = 0.0, sum = 0.0;
    for (int32_t k = 0; k < n; ++k) {
        w += (t0 + k / 12.0) * cfs[k];
        sum += cfs[k];
    }
    return w / sum;
}

// ---- Prepayment tables and the pool projection ------------------------------------------------------

// surv[0..wam] (surv[0] = 1) and prepd[0..wam-1]: prepd[k] = surv[k] smm_k, surv[k+1] = surv[k] - prepd[k].
// smm_k from the speed: a CPR (percent a year) through 1 - (1 - cpr)^(1/12), an SMM (percent a month), or
// the CPR of the PSA ramp at the loan age of month k. The CPR is converted only when it changes.
inline void survival(int32_t orig_term, int32_t wam, int32_t spd_type, double speed, double* surv, double* prepd) {
    const int32_t term = std::clamp(orig_term, -1000000, 1000000);  // keeps the loan age in range
    double cpr = 0.0, smm = speed * 0.01;
    bool known = false;
    surv[0] = 1.0;
    for (int32_t k = 0; k < wam; ++k) {
        if (spd_type != 2) {
            const double c = spd_type == 1 ? speed : mtg::psa_cpr(mtg::loan_age(k, wam, term), speed);
            if (!known || !(c == cpr)) smm = mtg::smm_of_cpr_fraction(c * 0.01);
            cpr = c;
            known = true;
        }
        prepd[k] = surv[k] * smm;
        surv[k + 1] = surv[k] - prepd[k];
    }
}

// What the projection puts in each month's flow.
struct Parts {
    bool prn, net_int, svc;
};

// The monthly projection per 100 of the current balance, the pool amortizing as a loan of its remaining
// term at the gross rate with scheduled payment payment(k, S) (S the scheduled balance of month k):
// sp = payment - S rg; principal p = surv[k+1] sp + prepd[k] S; the flow is p (with bal[k+1] = bal[k] - p)
// plus S surv[k] rn (net interest) plus S surv[k] (rg - rn) (servicing), each as `parts` asks. bal[0] = 100.
template <class Payment>
void project(double cpn_rate, double pass_rate, int32_t wam, Parts parts, const double* surv, const double* prepd,
             Payment payment, double* cfs, double* bal, double* prn) {
    const double rg = mtg::monthly_rate(cpn_rate), rn = mtg::monthly_rate(pass_rate);
    double s = 100.0;
    bal[0] = 100.0;
    for (int32_t k = 0; k < wam; ++k) {
        const double sp = payment(k, s) - s * rg;
        const double p = surv[k + 1] * sp + prepd[k] * s;
        double cf = 0.0, pr = 0.0;
        if (parts.prn) {
            cf = p;
            pr = p;
            bal[k + 1] = bal[k] - p;
        }
        if (parts.net_int) cf += s * rn * surv[k];
        if (parts.svc) cf += s * surv[k] * (rg - rn);
        cfs[k] = cf;
        prn[k] = pr;
        s -= sp;
    }
}

// The level-payment projection of a pool at a speed, principal and net interest, into flows[0..wam-1]
// (scratch arrays of at least max_months + 1 given by the caller).
inline void project_level(int32_t orig_term, int32_t wam, double cpn_rate, double pass_rate, int32_t spd_type,
                          double speed, double* surv, double* prepd, double* bal, double* prn, double* flows) {
    survival(orig_term, wam, spd_type, speed, surv, prepd);
    const double pmt = mtg::level_payment(wam, cpn_rate);
    project(cpn_rate, pass_rate, wam, Parts{true, true, false}, surv, prepd, [pmt](int32_t, double) { return pmt; },
            flows, bal, prn);
}

// ---- Checks shared by the exports --------------------------------------------------------------------

// Every element finite (15601).
inline bool all_finite(int32_t n, const double* x, uint32_t* err_code) {
    for (int32_t k = 0; k < n; ++k)
        if (!orvel::finite(x[k]))
            return orvel::fail(err_code, ORVEL_E_MBS_ELEMENT);
    return true;
}

// At most max_months flows (15600): run on every call, validated or not.
inline bool count_fits(int32_t n, uint32_t* err_code) {
    return n <= max_months || orvel::fail(err_code, ORVEL_E_MBS_MONTHS);
}

// The grid and its flows, in order: ok_wam(wam, 0), ok_paymt_dly, ok_days_acrd, every flow finite.
inline bool valid_grid(int32_t wam, int32_t paymt_dly, int32_t days_acrd, const double* cfs, uint32_t* err_code) {
    return orvel::Check(err_code)
        .call(0, ok_wam, wam, 0)
        .call(0, ok_paymt_dly, paymt_dly)
        .call(0, ok_days_acrd, days_acrd)
        .step([&](uint32_t* e) { return all_finite(wam, cfs, e); })
        .ok();
}

}  // namespace mbs

namespace mbs {

// ---- Graduated payments --------------------------------------------------------------------------------

// The payments of a graduated-payment loan per 100 of the balance at origination, per loan year
// (mtg::graduated_payments), kept for the 50 years of the longest walk; later
// years repeat the 50th.
class Graduated {
public:
    Graduated(int32_t orig_term, double cpn_rate, int32_t grad_mths, double grad_rate) {
        mtg::graduated_payments(orig_term, cpn_rate, grad_mths, grad_rate, years, yearly_);
    }

    bool has_value() const { return orvel::finite(yearly_[0]) && yearly_[0] > 0.0; }

    // Payment in the month of loan age `age` (1 = the first month of the loan).
    double payment(int32_t age) const {
        const int32_t year = age < 1 ? 0 : (age - 1) / 12;
        return yearly_[year < years ? year : years - 1];
    }

private:
    static constexpr int32_t years = max_months / 12 + 1;  // every loan year of the longest walk
    double yearly_[years];
};

// Scheduled balance per 100 at origination at the start of loan age `age` (1 .. max_months + 1 walked).
inline double graduated_balance(const Graduated& gpm, double cpn_rate, int64_t age) {
    const int64_t months = std::clamp<int64_t>(age, 1, max_months + 1) - 1;
    const double r = mtg::monthly_rate(cpn_rate);
    double b = 100.0;
    for (int32_t a = 1; a <= months; ++a) b = b * (1.0 + r) - gpm.payment(a);
    return b;
}

}  // namespace mbs
