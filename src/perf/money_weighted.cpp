// The money-weighted return of a period: the times of dated flows as fractions of the period, and the
// rate that grows them into the ending value.
#include <cmath>

#include "core/power.hpp"
#include "perf/solves.hpp"

namespace {

using orvel::Check;
using orvel::Date;
using orvel::perf::FlowList;

// Validation shared by pcnts_of_per and aimr_rmodbai, after their own first checks: the end date (+6), the
// flows (14250, 14010, 12000 + index, 15401) and none after the end date (16000 + index).
bool dated_flows_ok(const FlowList& f, Date end, uint32_t* err_code) {
    return Check(err_code)
        .call(6, ok_MDY, end.m, end.d, end.y, 1)
        .step([&](uint32_t* e) { return orvel::perf::flows_ok(f, e); })
        .step([&](uint32_t* e) {
            for (int32_t k = 0; k < f.n; ++k)
                if (orvel::perf::serial(f.date(k)) > orvel::perf::serial(end))
                    return orvel::fail(e, ORVEL_E_FLOW_AFTER_END_BASE + static_cast<uint32_t>(k));
            return true;
        })
        .ok();
}

// The period of dated flows: from the earliest flow to the end date, in days of day_type, with the
// flow's own day counted as invested when flow_day is 1. A flow's time is minus the share of the period
// from it to the end date.
struct Period {
    int32_t day_type;
    Date end;
    double counted;  // 1 when a flow's own day counts, else 0
    double length;   // days of the period + counted
    double time(Date at) const { return (0.0 - orvel::cal::days_by_type(day_type, at, end) - counted) / length; }
};

// The period of the flows, or false with 10100 when it is shorter than a day (or there is no flow).
bool period_of(int32_t day_type, int32_t flow_day, Date end, const FlowList& f, Period* p, int32_t* days,
               uint32_t* err_code) {
    int32_t first = 0;
    for (int32_t k = 1; k < f.n; ++k)
        if (orvel::perf::serial(f.date(k)) < orvel::perf::serial(f.date(first))) first = k;
    *days = f.n < 1 ? 0 : orvel::cal::days_by_type(day_type, f.date(first), end);
    if (*days < 1) return orvel::fail(err_code, ORVEL_E_SHORT_PERIOD);
    const double counted = flow_day == 1 ? 1.0 : 0.0;
    *p = Period{day_type, end, counted, *days + counted};
    return true;
}

void write_times(const Period& p, const FlowList& f, double* times) {
    for (int32_t k = 0; k < f.n; ++k) times[k] = p.time(f.date(k));
}

}  // namespace

double orvel::perf::money_weighted(int32_t day_type, int32_t flow_day, int32_t prec, Date end, double end_val,
                                   const FlowList& f, uint32_t* err, SolveStats* stats) {
    Period p{};
    int32_t days = 0;
    if (!period_of(day_type, flow_day, end, f, &p, &days, err)) return 0.0;
    // end_val = sum of amts[k] (1 + y/100)^-time[k]: each flow grown to the end date. The times are worked
    // out again at each step rather than kept, so that the caller's times are written only on success.
    auto residual = [&](double y, uint32_t* e) {
        const double base = 1.0 + y / 100.0;
        if (base < 0.0) return fail0(e, ORVEL_E_NEG_BASE);
        double value = 0.0;
        for (int32_t k = 0; k < f.n; ++k) value += f.amts[k] * orvel::pow(base, -p.time(f.date(k)));
        return end_val - value;
    };
    const double start[3] = {10.0, 9.0, 11.0};
    return solve3(start, residual, ResidualBelow{orvel::pow(10.0, -(prec + 1.0))}, err, stats);
}

ORVEL_EXPORT(int32_t) pcnts_of_per(int32_t day_type, int32_t flow_day, int32_t end_m, int32_t end_d, int32_t end_y,
                                   int32_t n_flows, const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y,
                                   double* times_out, int32_t validate, uint32_t* err_code) {
    const Date end{end_m, end_d, end_y};
    const FlowList f{n_flows, cf_m, cf_d, cf_y, nullptr};
    if (!Check(err_code).expect(n_flows <= ORVEL_PERF_MAX_VALUES, ORVEL_E_PERF_COUNT).ok()) return 0;
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_day_type, day_type)
                              .expect(flow_day == 0 || flow_day == 1, ORVEL_E_FLOW_DAY)
                              .step([&](uint32_t* e) { return dated_flows_ok(f, end, e); })
                              .ok())
        return 0;
    Period p{};
    int32_t days = 0;
    if (!period_of(day_type, flow_day, end, f, &p, &days, err_code)) return 0;
    write_times(p, f, times_out);
    return days;
}

ORVEL_EXPORT(double) aimr_rmodbai(int32_t day_type, int32_t flow_day, int32_t prec, int32_t end_m, int32_t end_d,
                                  int32_t end_y, double end_val, int32_t n_flows, const int32_t* cf_m,
                                  const int32_t* cf_d, const int32_t* cf_y, const double* flows, int32_t rsrv_i,
                                  double rsrv_d, double* times_out, int32_t validate, uint32_t* err_code) {
    const Date end{end_m, end_d, end_y};
    const FlowList f{n_flows, cf_m, cf_d, cf_y, flows};
    if (!Check(err_code).expect(n_flows <= ORVEL_PERF_MAX_VALUES, ORVEL_E_PERF_COUNT).ok()) return 0.0;
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_day_type, day_type)
                              .expect(flow_day == 0 || flow_day == 1, ORVEL_E_FLOW_DAY)
                              .expect(prec >= 0 && prec <= 12, ORVEL_E_PREC)
                              .step([&](uint32_t* e) { return dated_flows_ok(f, end, e); })
                              .expect(end_val > 1e-7 && end_val <= orvel::kMaxDouble, ORVEL_E_END_VAL)
                              .expect(rsrv_i == 0 && rsrv_d == 0.0, ORVEL_E_RESERVED)
                              .ok())
        return 0.0;
    uint32_t err = 0;
    const double y = orvel::perf::money_weighted(day_type, flow_day, prec, end, end_val, f, &err);
    if (err != 0) return orvel::perf::fail0(err_code, err);
    Period p{};
    int32_t days = 0;
    period_of(day_type, flow_day, end, f, &p, &days, &err);
    write_times(p, f, times_out);
    return y;
}
