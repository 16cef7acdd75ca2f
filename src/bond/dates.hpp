// The dates of a bond as the engine passes them around, and the few date steps it takes, each a call to
// the calendar (no date arithmetic of its own).
#pragma once

#include <cstdint>

#include "orvel/calendar.h"
#include "orvel/frame.h"

namespace orvel::bond {

struct Mdy {
    int32_t m, d, y;
};

inline bool is_blank(const Mdy& a) { return a.m == 0 && a.d == 0 && (a.y == 0 || a.y == 1900 || a.y == 2000); }

// a moved by n coupon periods along a schedule (end-of-month rule under eom).
inline Mdy step_periods(Mdy a, int32_t n, int32_t cpn_freq, int32_t eom) {
    incr_by_pers(n, cpn_freq, &a.m, &a.d, &a.y, eom);
    return a;
}

inline Mdy step_days(Mdy a, int32_t n) {
    incr_by_days(n, &a.m, &a.d, &a.y);
    return a;
}

// Days from a to b under day_type, unvalidated (the engine's dates are checked once, at the top).
inline int32_t days_between(const Mdy& a, const Mdy& b, int32_t day_type) {
    uint32_t scratch = 0;
    return days_b_MDYs(a.m, a.d, a.y, b.m, b.d, b.y, day_type, 0, &scratch);
}

inline constexpr int32_t actual_days = 1;

// The dated and first coupon dates a bond without them runs on: regularly back from maturity without a
// first-period limit (maturity's month and day in 1804, the first coupon one period later), and the first
// coupon one period after a dated date given alone. The same defaults the date validator writes back.
inline void default_first_period(const Mdy& mat, Mdy* dated, Mdy* first_cpn, int32_t cpn_freq, int32_t eom) {
    if (is_blank(*dated)) {
        *dated = Mdy{mat.m, mat.d, 1804};
        eom_fixup(mat.m, mat.d, mat.y, &dated->m, &dated->d, &dated->y, eom);
        *first_cpn = step_periods(*dated, 1, cpn_freq, eom);
    } else if (is_blank(*first_cpn)) {
        *first_cpn = step_periods(*dated, 1, cpn_freq, eom);
    }
}

}  // namespace orvel::bond
