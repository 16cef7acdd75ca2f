// Small predicates shared by the validators. Every range test is written so that NaN fails it.
#pragma once

#include <cstdint>
#include <limits>

#include "core/check.hpp"
#include "core/civil.hpp"

namespace orvel {

constexpr double kMaxDouble = std::numeric_limits<double>::max();

// A date of the calendar: month 1..12, a day of that month, year 1800..2300 (what ok_MDY accepts as given).
constexpr bool is_valid(Date x) {
    return x.m >= 1 && x.m <= 12 && x.d >= 1 && x.d <= cal::month_end(x.m, x.y) && x.y >= 1800 && x.y <= 2300;
}

// An integer convention missing from the call (-1) gets its base plus 1, any other bad value the base.
inline uint32_t code_error(int32_t code, uint32_t base) { return code == -1 ? base + 1 : base; }

// A base number plus the role (or pair of roles) of the argument it concerns.
constexpr uint32_t with_role(uint32_t base, uint32_t role) { return base + role; }

// Finite and above zero; finite and at least zero.
inline bool positive(double x) { return x > 0.0 && x <= kMaxDouble; }
inline bool non_negative(double x) { return within(x, 0.0, kMaxDouble); }
inline bool finite(double x) { return within(x, -kMaxDouble, kMaxDouble); }

}  // namespace orvel
