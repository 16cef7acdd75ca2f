// The true yield of a bond: its flows discounted to the days they are paid, a coupon date on a weekend or
// holiday rolled to the following business day.
#pragma once

#include <cstdint>

#include "bond/accrued.hpp"
#include "bond/solver.hpp"

namespace orvel::bond {

// The yield of a clean price with every flow of the reduced schedule r (accrued interest ai) discounted to
// its day of payment: simple interest in the final period, compounding once a period before it (solved
// with the shared solver, tolerance 5e-7 per 100). Validates nothing; blank dated and first coupon dates
// take the engine's defaults. holidays: hol_count julian day numbers, ascending.
double true_yield(const Date& settle, const Date& mat, Date dated, Date first_cpn, const Reduced& r, double ai,
                  double price, double cpn_rate, double redemptn, int32_t cpn_freq, int32_t eom, int32_t hol_count,
                  const int32_t* holidays, uint32_t* err, SolveStats* stats);

}  // namespace orvel::bond
