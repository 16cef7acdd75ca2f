// The two rate solves of the performance layer, unvalidated, with the solver's statistics for the tests.
#pragma once

#include <cstdint>

#include "bond/solver.hpp"
#include "perf/flows.hpp"

namespace orvel::perf {

// The money-weighted return, percent for the period, of the flows f (with amounts) against end_val, as
// aimr_rmodbai states it: from 10, 9 and 11 to 10^-(prec + 1) on the ending value. 10100 when the period
// is shorter than a day, 4090 when the solve reaches -100% or below, 9020 when it fails.
double money_weighted(int32_t day_type, int32_t flow_day, int32_t prec, Date end, double end_val, const FlowList& f,
                      uint32_t* err, SolveStats* stats = nullptr);

// The true interest cost, percent a year compounded freq times, as debt_tic states it.
double true_interest_cost(double proceeds, int32_t n, const double* srvc, int32_t freq, uint32_t* err,
                          SolveStats* stats = nullptr);

}  // namespace orvel::perf
