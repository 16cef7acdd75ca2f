// Year fractions between dates (the measure of years_b_MDYs and incr_by_yrs), unvalidated.
#pragma once

#include <cstdint>

#include "core/civil.hpp"

namespace orvel::cal {

// Years from a to b under day_type; 0.0 for a code outside 1..13.
double years_between(int32_t day_type, Date a, Date b);

// Actual/actual year fraction in whole anniversaries of a, month ends kept.
double anniversary_years(Date a, Date b);

// Days in the year basis of day_type at date a (days_yrbasis unvalidated): 365 or 366 for code 1 (a to a
// plus 12 months), 360 or 365 for the others, 0 for a code outside 1..13.
int32_t year_basis(int32_t day_type, Date a);

// Days in the year chosen by yr_method from three dates (days_act_yr unvalidated); 0 for a method
// outside 1..10, or a method 8 span that is not 1..366 days.
int32_t act_year(Date d1, Date d2, Date d3, int32_t yr_method);

}  // namespace orvel::cal
