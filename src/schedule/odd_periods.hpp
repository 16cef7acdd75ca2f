// A schedule with optional odd periods: an odd first period (dated -> first coupon), the regular grid
// anchored on the last regular coupon, and an odd last period (last regular coupon -> maturity).
#pragma once

#include <cstdint>

#include "schedule/periods.hpp"

namespace orvel::schedule {

struct OddSchedule {
    Date mat;
    Date dated;      // blank: the first period is a regular one ending at first_cpn
    Date first_cpn;  // blank: no odd first period, the schedule runs back without limit
    Date last_cpn;   // blank: no odd last period, the regular schedule is anchored on maturity
    int32_t eom;
    int32_t cpn_freq;
};

// The coupon period that contains settle: before the first coupon the (odd) first period, from the last
// regular coupon on the (odd) last period, in between the regular grid anchored on the last regular coupon.
Bracket odd_period_of(Date settle, const OddSchedule& s);

// The dates of such a schedule, each with its role: the date looked up (7, when there is one), maturity
// (1), dated (2), first coupon (3), last regular coupon (6); then date <= mat (2071), dated < first coupon
// (2123), first coupon <= last coupon (2036), last coupon < mat (2161). Blank optional dates pass.
bool valid_odd_schedule(const Date* date, const OddSchedule& s, int32_t day_type, uint32_t* err_code);

}  // namespace orvel::schedule
