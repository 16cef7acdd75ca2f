// The few date steps the engine takes, each a calendar kernel (no date arithmetic of its own).
#pragma once

#include <cstdint>

#include "calendar/day_count.hpp"
#include "core/civil.hpp"
#include "schedule/grid.hpp"

namespace orvel::bond {

// a moved by n coupon periods along a schedule (end-of-month rule under eom).
constexpr Date step_periods(Date a, int32_t n, int32_t cpn_freq, int32_t eom) {
    return cal::add_periods(a, n, cpn_freq, eom != 0);
}

constexpr Date step_days(Date a, int32_t n) { return cal::add_days(a, n); }

// Days from a to b under day_type, unvalidated (the engine's dates are checked once, at the top).
inline int32_t days_between(const Date& a, const Date& b, int32_t day_type) {
    return cal::days_by_type(day_type, a, b);
}

inline constexpr int32_t actual_days = 1;

// The dated and first coupon dates a bond without them runs on: regularly back from maturity without a
// first-period limit, and the first coupon one period after a dated date given alone. The same defaults
// the date validator writes back.
inline void default_first_period(const Date& mat, Date* dated, Date* first_cpn, int32_t cpn_freq, int32_t eom) {
    if (is_blank(*dated)) {
        const auto p = schedule::unlimited_first_period(mat, cpn_freq, eom);
        *dated = p.dated;
        *first_cpn = p.first_cpn;
    } else if (is_blank(*first_cpn)) {
        *first_cpn = step_periods(*dated, 1, cpn_freq, eom);
    }
}

}  // namespace orvel::bond
