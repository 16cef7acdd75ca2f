// Currency conversion at spot or at the forward rate that covered interest parity implies, and the US
// dollar deposit rate that a forward rate implies.
#include <cmath>

#include "perf/flows.hpp"

namespace {

using orvel::Check;

constexpr double kUsdYearDays = 360.0;  // US dollar deposits: actual/360

bool rate_ok(double r) { return orvel::within(r, -100.0, 3000.0); }
bool spot_ok(double s) { return orvel::positive(s); }
bool days_ok(int32_t days, int32_t least) { return days >= least && days <= 36600; }

// The checks of a conversion: amount (15401), spot (15420), the two rates (15421), days (15422), the
// foreign currency's year (4700).
bool conversion_ok(double amount, double spot, double usd_rate, double for_rate, int32_t days,
                   int32_t for_year_days, uint32_t* err_code) {
    return Check(err_code)
        .expect(orvel::finite(amount), ORVEL_E_PERF_VALUE)
        .expect(spot_ok(spot), ORVEL_E_FX_RATE)
        .expect(rate_ok(usd_rate), ORVEL_E_FX_DEP_RATE)
        .expect(rate_ok(for_rate), ORVEL_E_FX_DEP_RATE)
        .expect(days_ok(days, 0), ORVEL_E_FX_DAYS)
        .call(0, ok_days_year, for_year_days)
        .ok();
}

// The outright forward, foreign units per US dollar: spot (1 + r_for t_for) / (1 + r_usd t_usd), simple
// money-market interest on each currency's year. False with 15421 when either growth is not positive.
bool forward_of(double spot, double usd_rate, double for_rate, int32_t days, int32_t for_year_days, double* fwd,
                uint32_t* err_code) {
    const double grow_for = 1.0 + for_rate / 100.0 * days / for_year_days;
    const double grow_usd = 1.0 + usd_rate / 100.0 * days / kUsdYearDays;
    if (!(grow_for > 0.0 && grow_usd > 0.0)) return orvel::fail(err_code, ORVEL_E_FX_DEP_RATE);
    *fwd = spot * grow_for / grow_usd;
    return true;
}

}  // namespace

ORVEL_EXPORT(double) fx_US_2_for(double usd_amt, double spot, double usd_rate, double for_rate, int32_t days,
                                 int32_t for_year_days, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !conversion_ok(usd_amt, spot, usd_rate, for_rate, days, for_year_days, err_code)) return 0.0;
    double fwd = 0.0;
    if (!forward_of(spot, usd_rate, for_rate, days, for_year_days, &fwd, err_code)) return 0.0;
    return usd_amt * fwd;
}

ORVEL_EXPORT(double) fx_for_2_US(double for_amt, double spot, double usd_rate, double for_rate, int32_t days,
                                 int32_t for_year_days, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !conversion_ok(for_amt, spot, usd_rate, for_rate, days, for_year_days, err_code)) return 0.0;
    double fwd = 0.0;
    if (!forward_of(spot, usd_rate, for_rate, days, for_year_days, &fwd, err_code)) return 0.0;
    return for_amt / fwd;
}

ORVEL_EXPORT(double) fx_US_dep_rt(double spot, double fwd, double for_rate, int32_t days, int32_t for_year_days,
                                  int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !Check(err_code)
                              .expect(spot_ok(spot), ORVEL_E_FX_RATE)
                              .expect(spot_ok(fwd), ORVEL_E_FX_RATE)
                              .expect(rate_ok(for_rate), ORVEL_E_FX_DEP_RATE)
                              .expect(days_ok(days, 1), ORVEL_E_FX_DAYS)
                              .call(0, ok_days_year, for_year_days)
                              .ok())
        return 0.0;
    // Parity solved for the dollar rate: 1 + r_usd t_usd = (1 + r_for t_for) spot / fwd.
    const double grow_for = 1.0 + for_rate / 100.0 * days / for_year_days;
    return (grow_for * spot / fwd - 1.0) * kUsdYearDays / days * 100.0;
}
