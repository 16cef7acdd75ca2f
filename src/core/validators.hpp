// Small predicates shared by the validators. Every range test is written so that NaN fails it.
#pragma once

#include <cstdint>
#include <limits>

#include "core/check.hpp"

namespace orvel {

constexpr double kMaxDouble = std::numeric_limits<double>::max();

// The three spellings of a blank date (0/0/0, 0/0/1900, 0/0/2000).
inline bool is_blank_date(int32_t m, int32_t d, int32_t y) {
    return m == 0 && d == 0 && (y == 0 || y == 1900 || y == 2000);
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
