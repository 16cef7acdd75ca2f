// The dated flows of the performance measures: three parallel date arrays and their amounts, with the
// checks every measure runs on them.
#pragma once

#include <cstdint>

#include "calendar/day_count.hpp"
#include "core/check.hpp"
#include "core/civil.hpp"
#include "core/validators.hpp"
#include "orvel/perf.h"

namespace orvel::perf {

// The failure of a measure: the number written, 0.0 returned.
inline double fail0(uint32_t* err_code, uint32_t number) {
    *err_code = number;
    return 0.0;
}

struct FlowList {
    int32_t n;
    const int32_t* m;
    const int32_t* d;
    const int32_t* y;
    const double* amts;
    Date date(int32_t k) const { return {m[k], d[k], y[k]}; }
};

// A day number that orders dates (of any values: 64-bit, never overflows).
inline int64_t serial(Date x) { return cal::serial00(x.m, x.d, x.y); }

// Every amount finite; else 15401.
inline bool all_finite(const double* v, int32_t n, uint32_t* err_code) {
    for (int32_t k = 0; k < n; ++k)
        if (!finite(v[k])) return fail(err_code, ORVEL_E_PERF_VALUE);
    return true;
}

// At least one flow (14250) and at most a date list's 1000 (14010); each date valid (12000 + index) and
// each amount, when there are amounts, finite (15401).
inline bool flows_ok(const FlowList& f, uint32_t* err_code) {
    if (f.n < 1) return fail(err_code, ORVEL_E_NO_FLOWS);
    if (f.n > ORVEL_DATE_LIST_MAX) return fail(err_code, ORVEL_E_LIST_LENGTH);
    for (int32_t k = 0; k < f.n; ++k)
        if (!is_valid(f.date(k))) return fail(err_code, ORVEL_E_DATE_LIST_BASE + static_cast<uint32_t>(k));
    return f.amts == nullptr || all_finite(f.amts, f.n, err_code);
}

// Every flow dated from begin to end, both included; else 14210.
inline bool flows_within(const FlowList& f, Date begin, Date end, uint32_t* err_code) {
    for (int32_t k = 0; k < f.n; ++k) {
        const int64_t s = serial(f.date(k));
        if (s < serial(begin) || s > serial(end)) return fail(err_code, ORVEL_E_FLOW_OUTSIDE);
    }
    return true;
}

}  // namespace orvel::perf
