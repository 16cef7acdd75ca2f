// Duration, convexity and the full risk set of a fixed-coupon bond, from one walk along its flows.
#include <cmath>

#include "bond/accrued.hpp"
#include "bond/dates.hpp"
#include "bond/kernels.hpp"
#include "bond/market.hpp"
#include "bond/price_yield.hpp"
#include "core/check.hpp"
#include "core/power.hpp"
#include "orvel/bond.h"

namespace {

using orvel::Date;
using orvel::bond::Reduced;
using orvel::bond::max_walk_periods;
using orvel::bond::Moments;
using orvel::bond::walk_flows;

// The schedule numbers and the discount factor per period of a duration or convexity call; false with
// the error written when there is nothing to measure on or the yield has no discount factor.
struct Measured {
    Reduced r;
    double v = 1.0;
    bool nothing_left = false;
};

bool measure(double price, double yld, double cpn_rate, double redemptn, int32_t day_type, int32_t eom,
             int32_t cpn_freq, const Date& settle, const Date& mat, const Date& dated, const Date& first_cpn,
             int32_t validate, uint32_t* err_code, Measured* out) {
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_given, yld, 1)
                              .step([&](uint32_t* e) { return price == 0.0 || ok_given(price, 2, e); })
                              .call(0, ok_redemptn, redemptn)
                              .ok())
        return false;
    uint32_t err = 0;
    orvel::bond::accrued(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, validate, &out->r, &err);
    if (err != 0) return orvel::fail(err_code, err);
    if (out->r.nxt_frac == 0.0 && out->r.n_after == 0) {
        out->nothing_left = true;
        return true;
    }
    if (!(out->r.n_after >= 0 && out->r.n_after <= max_walk_periods)) return orvel::fail(err_code, ORVEL_E_FULL_PER);
    out->v = 1.0 + yld / (cpn_freq * 100.0);
    if (!(out->v > 0.0)) return orvel::fail(err_code, ORVEL_E_NEG_BASE);
    return true;
}

}  // namespace

ORVEL_EXPORT(void) bond_dur(double price, double yld, double cpn_rate, double redemptn, int32_t day_type, int32_t eom,
                            int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                            int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                            int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double* mac_dur,
                            double* mod_dur, int32_t validate, uint32_t* err_code) {
    Measured s;
    if (!measure(price, yld, cpn_rate, redemptn, day_type, eom, cpn_freq, Date{settle_m, settle_d, settle_y},
                 Date{mat_m, mat_d, mat_y}, Date{dated_m, dated_d, dated_y}, Date{first_cpn_m, first_cpn_d, first_cpn_y},
                 validate, err_code, &s))
        return;
    if (s.nothing_left) {
        *mac_dur = 0.0;
        *mod_dur = 0.0;
        return;
    }
    const Moments m = walk_flows(s.r, cpn_rate, redemptn, cpn_freq, s.v);
    // A caller's price weights the duration instead of the computed value of the flows.
    const double divisor = price != 0.0 ? price : m.pv;
    *mac_dur = m.time_pv / divisor / cpn_freq;
    *mod_dur = *mac_dur / s.v;
}

ORVEL_EXPORT(double) bond_cvx(double price, double yld, double cpn_rate, double redemptn, int32_t day_type, int32_t eom,
                              int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                              int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                              int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, int32_t validate,
                              uint32_t* err_code) {
    Measured s;
    if (!measure(price, yld, cpn_rate, redemptn, day_type, eom, cpn_freq, Date{settle_m, settle_d, settle_y},
                 Date{mat_m, mat_d, mat_y}, Date{dated_m, dated_d, dated_y}, Date{first_cpn_m, first_cpn_d, first_cpn_y},
                 validate, err_code, &s))
        return 0.0;
    if (s.nothing_left) return 0.0;
    const Moments m = walk_flows(s.r, cpn_rate, redemptn, cpn_freq, s.v);
    const double divisor = price != 0.0 ? price : m.pv;
    return m.cvx_sum / (s.v * s.v * divisor);
}

// ---- The risk set in one call, and the convexity estimate ----------------------------------------------

namespace {

double rounded(int32_t sec_type, double x) {
    uint32_t scratch = 0;
    return rslt_fix_plc(sec_type, 2, x, &scratch);
}

bool known_sec_type(int32_t sec_type, uint32_t* err_code) {
    uint32_t probe = 0;
    rslt_fix_plc(sec_type, 2, 0.0, &probe);
    return probe == 0 || orvel::fail(err_code, probe);
}

// The full price (with accrued interest) of the flows compounded in every period, the final one included.
double full_price(const Reduced& r, double yld, double cpn_rate, double redemptn, int32_t cpn_freq, uint32_t* err) {
    const orvel::bond::Terms t{cpn_rate, redemptn, 0.0, 0.0, cpn_freq, r.n_after, r.nxt_frac, r.cpn_amt, 0.0};
    return orvel::bond::price_g1p(t, yld, err);
}

}  // namespace

ORVEL_EXPORT(void) bond_risk(int32_t sec_type, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type,
                             double given, double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                             int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                             int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                             double redemptn, double* price, double* yld, double* ai, double* mac_dur, double* mod_dur,
                             double* convexity, double* cur_yld, double* pvbp, int32_t validate, uint32_t* err_code) {
    using namespace orvel::bond;
    if (validate != 0 && !orvel::Check(err_code)
                              .step([&](uint32_t* e) { return known_sec_type(sec_type, e); })
                              .call(0, ok_bond_in, day_type, eom, cpn_freq, calc_type, given, cpn_rate, settle_m,
                                    settle_d, settle_y, mat_m, mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m,
                                    first_cpn_d, first_cpn_y, redemptn, 0.0, 0.0)
                              .ok())
        return;
    if (calc_type != 1 && calc_type != 2) {
        *err_code = ORVEL_E_SELECTOR;
        return;
    }
    Reduced r;
    const double accrued = reduce(Date{settle_m, settle_d, settle_y}, Date{mat_m, mat_d, mat_y},
                                  Date{dated_m, dated_d, dated_y}, Date{first_cpn_m, first_cpn_d, first_cpn_y}, cpn_rate,
                                  day_type, eom, cpn_freq, &r);
    // Each step runs only while the ones before it succeeded, so the first failure is the one reported.
    uint32_t err = 0;
    const double y =
        calc_type == 1 ? given : yield_on(r, accrued, given, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, &err, nullptr);
    const double p = calc_type == 2 || err != 0
                         ? given
                         : price_on(r, accrued, given, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, &err);
    // A basis point either side, through the same kernel as the price.
    const double p_down = err != 0 ? 0.0 : price_on(r, accrued, y - 0.01, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, &err);
    const double p_up = err != 0 ? 0.0 : price_on(r, accrued, y + 0.01, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, &err);
    const double v = 1.0 + y / (cpn_freq * 100.0);
    if (err == 0 && !(v > 0.0)) err = ORVEL_E_NEG_BASE;
    if (err == 0 && !(r.n_after >= 0 && r.n_after <= max_walk_periods)) err = ORVEL_E_FULL_PER;
    if (err != 0) {
        *err_code = err;
        return;
    }
    const bool nothing_left = r.nxt_frac == 0.0 && r.n_after == 0;
    const Moments m = nothing_left ? Moments{} : walk_flows(r, cpn_rate, redemptn, cpn_freq, v);
    const double mac = nothing_left ? 0.0 : m.time_pv / m.pv / cpn_freq;
    *price = p;
    *yld = y;
    *ai = accrued;
    *mac_dur = rounded(sec_type, mac);
    *mod_dur = rounded(sec_type, mac / v);
    *convexity = rounded(sec_type, nothing_left ? 0.0 : m.cvx_sum / (v * v * m.pv));
    *cur_yld = bond_cur_yld(cpn_rate, p, 0.0);
    *pvbp = rounded(sec_type, (p_down - p_up) / 2.0);
}

ORVEL_EXPORT(double) bond_est_cvx(double yld, double cpn_rate, double redemptn, int32_t day_type, int32_t eom,
                                  int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                  int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                                  int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                                  double shift, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code).expect(std::isfinite(shift), ORVEL_E_GIVEN_BASE + 1).ok())
        return 0.0;
    Measured s;
    if (!measure(0.0, yld, cpn_rate, redemptn, day_type, eom, cpn_freq, Date{settle_m, settle_d, settle_y},
                 Date{mat_m, mat_d, mat_y}, Date{dated_m, dated_d, dated_y}, Date{first_cpn_m, first_cpn_d, first_cpn_y},
                 validate, err_code, &s))
        return 0.0;
    if (s.nothing_left) return 0.0;
    const double dy = shift > 0.0 && shift <= 100.0 ? shift : 0.01;
    uint32_t err = 0;
    const double mid = full_price(s.r, yld, cpn_rate, redemptn, cpn_freq, &err);
    const double down = full_price(s.r, yld - dy, cpn_rate, redemptn, cpn_freq, &err);
    const double up = full_price(s.r, yld + dy, cpn_rate, redemptn, cpn_freq, &err);
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    const double dy_decimal = dy / 100.0;
    return (down + up - 2.0 * mid) / (mid * dy_decimal * dy_decimal);
}

namespace orvel::bond {

Moments walk_flows(const Reduced& r, double cpn_rate, double redemptn, int32_t cpn_freq, double v) {
    const double h = 1.0 / cpn_freq;
    const double c = h * cpn_rate;
    const double w = r.nxt_frac;
    double d = orvel::pow(v, w);
    double t = h * w;
    Moments m;
    m.pv = r.cpn_amt / d;
    m.time_pv = w * r.cpn_amt / d;
    m.cvx_sum = m.pv * t * (t + h);
    for (int32_t i = 1; i <= r.n_after; ++i) {
        d *= v;
        t += h;
        const double flow = c / d;
        m.pv += flow;
        m.time_pv += (i + w) * flow;
        m.cvx_sum += flow * t * (t + h);
    }
    const double red = redemptn / d;  // d is v^(n + w) now
    m.pv += red;
    m.time_pv += (r.n_after + w) * red;
    m.cvx_sum += red * t * (t + h);
    return m;
}

}  // namespace orvel::bond
