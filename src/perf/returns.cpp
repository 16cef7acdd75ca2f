// Period returns: linked sub-period returns, the time-weighted return from valuations, the Modified Dietz
// return and the equal-weighted composite return.
#include <cmath>

#include "calendar/day_count.hpp"
#include "core/check.hpp"
#include "core/validators.hpp"
#include "orvel/perf.h"
#include "perf/flows.hpp"

namespace {

using orvel::Check;

// A sub-period return: a finite number of at least -100 percent.
Check& period_return(Check& c, double r) {
    return c.expect(orvel::finite(r), ORVEL_E_PERF_VALUE).expect(r >= -100.0, ORVEL_E_RETURN);
}

// A value that can be divided by: finite and above 1e-7 (or at least 1e-7).
bool above_floor(double v) { return v > 1e-7 && v <= orvel::kMaxDouble; }
bool at_floor(double v) { return orvel::within(v, 1e-7, orvel::kMaxDouble); }

// Two returns linked: (1 + a/100)(1 + b/100) - 1 in percent, written as a + b + a b / 100 so that small
// returns lose nothing to the subtraction of 1 (1, 1, 1 link to 3.0301, not 3.03009999999999).
double link(double a, double b) { return a + b + a * b / 100.0; }

}  // namespace

ORVEL_EXPORT(double) aimr_m2q_rtn(double r1, double r2, double r3, int32_t validate, uint32_t* err_code) {
    if (validate != 0) {
        Check c(err_code);
        if (!period_return(period_return(period_return(c, r1), r2), r3).ok()) return 0.0;
    }
    return link(link(r1, r2), r3);
}

ORVEL_EXPORT(double) aimr_q2y_rtn(double r1, double r2, double r3, double r4, int32_t validate, uint32_t* err_code) {
    if (validate != 0) {
        Check c(err_code);
        if (!period_return(period_return(period_return(period_return(c, r1), r2), r3), r4).ok()) return 0.0;
    }
    return link(link(link(r1, r2), r3), r4);
}

ORVEL_EXPORT(double) aimr_rdaily(int32_t n, const double* begin_vals, const double* end_vals, int32_t validate,
                                 uint32_t* err_code) {
    if (!Check(err_code)
             .expect(n <= ORVEL_PERF_MAX_VALUES, ORVEL_E_PERF_COUNT)
             .expect(validate == 0 || n >= 2, ORVEL_E_BEGIN_VAL)
             .ok())
        return 0.0;
    double growth = 1.0;
    for (int32_t k = 0; k < n; ++k) {
        if (!at_floor(begin_vals[k])) return orvel::perf::fail0(err_code, ORVEL_E_ZERO_BASE);
        if (validate != 0 && !at_floor(end_vals[k])) return orvel::perf::fail0(err_code, ORVEL_E_END_VAL);
        growth *= end_vals[k] / begin_vals[k];
    }
    return (growth - 1.0) * 100.0;
}

ORVEL_EXPORT(double) aimr_rdietz(int32_t day_type, int32_t flow_day, int32_t begin_m, int32_t begin_d,
                                 int32_t begin_y, int32_t end_m, int32_t end_d, int32_t end_y, int32_t n_flows,
                                 const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y, const double* flows,
                                 double begin_val, double end_val, int32_t rsrv_i, double rsrv_d, int32_t validate,
                                 uint32_t* err_code) {
    const orvel::Date begin{begin_m, begin_d, begin_y}, end{end_m, end_d, end_y};
    const orvel::perf::FlowList list{n_flows, cf_m, cf_d, cf_y, flows};
    if (!Check(err_code).expect(n_flows <= ORVEL_PERF_MAX_VALUES, ORVEL_E_PERF_COUNT).ok()) return 0.0;
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_day_type, day_type)
                              .call(3, ok_MDY, begin_m, begin_d, begin_y, 1)
                              .call(6, ok_MDY, end_m, end_d, end_y, 1)
                              .ok())
        return 0.0;
    // The length of the period divides every weight: checked on every call.
    const double days = orvel::cal::days_by_type(day_type, begin, end);
    if (!(days >= 1.0)) return orvel::perf::fail0(err_code, ORVEL_E_SHORT_PERIOD);
    if (validate != 0 && !Check(err_code)
                              .expect(flow_day == 0 || flow_day == 1, ORVEL_E_FLOW_DAY)
                              .step([&](uint32_t* e) { return orvel::perf::flows_ok(list, e); })
                              .step([&](uint32_t* e) { return orvel::perf::flows_within(list, begin, end, e); })
                              .expect(above_floor(begin_val), ORVEL_E_BEGIN_VAL)
                              .expect(above_floor(end_val), ORVEL_E_END_VAL)
                              .expect(rsrv_i == 0 && rsrv_d == 0.0, ORVEL_E_RESERVED)
                              .ok())
        return 0.0;
    double total = 0.0, weighted = 0.0;
    const int64_t first = orvel::perf::serial(begin), last = orvel::perf::serial(end);
    for (int32_t k = 0; k < n_flows; ++k) {
        const orvel::Date at = list.date(k);
        const int64_t s = orvel::perf::serial(at);
        if (s < first || s > last) continue;  // outside the period: left out
        const double w = (days - orvel::cal::days_by_type(day_type, begin, at) + flow_day) / days;
        total += flows[k];
        weighted += w * flows[k];
    }
    const double invested = begin_val + weighted;
    if (!(std::fabs(invested) >= 1e-7)) return orvel::perf::fail0(err_code, ORVEL_E_DIETZ_DENOM);
    return (end_val - begin_val - total) / invested * 100.0;
}

ORVEL_EXPORT(double) eq_wt_return(const double* vals, int32_t n, int32_t validate, uint32_t* err_code) {
    if (!Check(err_code)
             .expect(n <= ORVEL_PERF_MAX_VALUES, ORVEL_E_PERF_COUNT)
             .expect(validate == 0 || n >= 2, ORVEL_E_BEGIN_VAL)
             .step([&](uint32_t* e) { return validate == 0 || orvel::perf::all_finite(vals, n, e); })
             .ok())
        return 0.0;
    double sum = 0.0;
    for (int32_t k = 0; k < n; ++k) sum += vals[k];
    return sum / n;
}
