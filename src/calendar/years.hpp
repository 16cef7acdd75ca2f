// Year fractions between dates (the measure of years_b_MDYs and incr_by_yrs), unvalidated.
#pragma once

#include <cstdint>

#include "core/civil.hpp"

namespace orvel::cal {

// Years from a to b under day_type; 0.0 for a code outside 1..13.
double years_between(int32_t day_type, Date a, Date b);

// Actual/actual year fraction in whole anniversaries of a, month ends kept.
double anniversary_years(Date a, Date b);

}  // namespace orvel::cal
