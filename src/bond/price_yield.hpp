// Price and yield of a bond whose schedule is already reduced, choosing the kernel the way bond_py_ai does:
// compound while a whole period follows the next coupon, simple interest in the final period.
#pragma once

#include <cstdint>

#include "bond/accrued.hpp"
#include "bond/solver.hpp"

namespace orvel::bond {

// method 1..8 except 2.
bool known_method(int32_t method);

// Methods 3, 6 and 8 price every bond on its regular schedule, ignoring an odd first coupon.
bool ignores_odd_first(int32_t method);

// The dated and first coupon dates of methods 3, 6 and 8: blank ones defaulted, then moved to 1901 and 1902
// (month and day kept, 29 February as 28).
void regular_dates(const Date& mat, Date* dated, Date* first_cpn, int32_t cpn_freq, int32_t eom);

// The reduction a method prices on (the regular one for methods 3, 6 and 8). Validates nothing.
double reduce_for_method(int32_t method, const Date& settle, const Date& mat, Date dated, Date first_cpn,
                         double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq, Reduced* out);

// Clean price at yld, or the yield of a clean price, on a reduced schedule (taxes as the kernels read them).
double price_on(const Reduced& r, double ai, double yld, double cpn_rate, double redemptn, double tax1, double tax2,
                int32_t cpn_freq, uint32_t* err);
double yield_on(const Reduced& r, double ai, double price, double cpn_rate, double redemptn, double tax1, double tax2,
                int32_t cpn_freq, uint32_t* err, SolveStats* stats);

}  // namespace orvel::bond
