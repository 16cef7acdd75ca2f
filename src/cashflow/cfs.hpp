// The sums and solves of the cash-flow sets: a set is the caller's parallel arrays of amounts and times
// (and, in the dated forms, dates). Shared by the price, yield, risk, return and margin exports; nothing
// here validates, every sum takes the count as the caller gave it and reads no element at or past it.
#pragma once

#include <cstdint>

#include "bond/solver.hpp"
#include "core/check.hpp"
#include "core/civil.hpp"
#include "orvel/frame.h"

namespace orvel::cfs {

// The longest set of the undated forms (15300 beyond it); the dated forms stop at ORVEL_DATE_LIST_MAX,
// since a bad date is numbered 12000 + its index.
inline constexpr int32_t max_flows = 100000;

// Sum of amts[k] v^-(times[k] - origin), in array order. The factor of a step between two neighbouring
// times is reused while the spacing repeats, so a regular schedule costs two powers, not one a flow.
double discounted(double v, const double* amts, const double* times, int32_t count, double origin = 0.0);

// The value of the set at v per period and its first two moments in time (t in periods).
struct Moments {
    double value = 0.0;   // sum a v^-t
    double first = 0.0;   // sum t a v^-t
    double second = 0.0;  // sum t^2 a v^-t
};
Moments moments(double v, const double* amts, const double* times, int32_t count);

// Sum of amts[k] / (1 + yld 0.01 times[k]): simple money-market discounting, times in years.
double simple_discounted(double yld, const double* amts, const double* times, int32_t count);

// The Treasury price: simple interest over times[0] periods before the first flow, compounding from it.
double treasury(double v, double j, const double* amts, const double* times, int32_t count);

// The discount factor of one period at yld percent a year compounded freq times: 1 + yld / (100 freq);
// false with 4090 written when it is not positive.
bool period_factor(double yld, int32_t freq, double* v, uint32_t* err);

// The price tolerance of a yield wanted to `prec` decimal places: 10^-(prec + 1).
double tolerance(int32_t prec);

// The yield at which price_at(y) equals price, from the three start points, the first candidate that
// reprices within tol being the answer.
template <class PriceAt>
double solve_price(double price, const double (&start)[3], double tol, PriceAt price_at, uint32_t* err,
                   SolveStats* stats = nullptr) {
    auto residual = [&](double y, uint32_t* e) { return price - price_at(y, e); };
    return solve3(start, residual, ResidualBelow{tol}, err, stats);
}

// The checks common to the undated forms: count at most max_flows (15300) always; with validate each
// amount (15301) and each time (15302) finite.
bool valid_set(const double* amts, const double* times, int32_t count, int32_t validate, uint32_t* err);

// prec 0..12, else 15303.
bool valid_prec(int32_t prec, uint32_t* err);

// ok_cpn_freq with its number replaced by 650.
bool valid_freq(int32_t freq, uint32_t* err);

// A dated set: count at most ORVEL_DATE_LIST_MAX (14010) always; with validate, settlement required (its
// ok_MDY number + 7), each flow date valid and not before settlement (12000 + k), each amount finite
// (15301).
bool valid_dated(const Date& settle, const double* amts, const int32_t* cf_m, const int32_t* cf_d,
                 const int32_t* cf_y, int32_t count, int32_t validate, uint32_t* err);

// times_out[k] = the periods (of 1/freq year under day_type) from settle to flow k, as num_dper counts.
void flow_times(const Date& settle, const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y, int32_t count,
                int32_t day_type, int32_t eom, int32_t freq, double* times_out);

// The core forms without their checks (4090 and the solver's errors only). A yield solve starts from
// the three points given and stops within tolerance(prec) of the price.
double periodic_price(double yld, int32_t freq, const double* amts, const double* times, int32_t count,
                      uint32_t* err);
double periodic_yield(double price, int32_t freq, int32_t prec, const double* amts, const double* times,
                      int32_t count, const double (&start)[3], uint32_t* err, SolveStats* stats = nullptr);
double mm_yield(double price, int32_t prec, const double* amts, const double* times, int32_t count, uint32_t* err);
double treasury_price(double yld, int32_t freq, const double* amts, const double* times, int32_t count,
                      uint32_t* err);
double treasury_yield(double price, int32_t freq, int32_t prec, const double* amts, const double* times,
                      int32_t count, uint32_t* err);
double discount_price(double disc, const double* amts, const double* times, int32_t count);
double discount_rate(double price, const double* amts, const double* times, int32_t count, uint32_t* err);

// The internal rate of return (percent per period) of cf0 now and the groups of equal payments after it.
double irr(double cf0, const double* amts, const int32_t* counts, int32_t n_groups, uint32_t* err,
           SolveStats* stats = nullptr);

// The start points of cfs_y, cfs_mm_y and cfs_ustp_y: 10, 9 and 11 percent.
inline constexpr double standard_start[3] = {10.0, 9.0, 11.0};

// The failure of a double function: number written, 0.0 returned.
inline double failed(uint32_t* err, uint32_t number) {
    *err = number;
    return 0.0;
}

// value, or 0.0 with e written to err_code when the step that gave it failed (e non-zero).
inline double settled(double value, uint32_t e, uint32_t* err_code) { return e != 0 ? failed(err_code, e) : value; }

// A tax rate as a fraction: at most 1 it already is one, above 1 it is a percentage.
inline double tax_fraction(double tax) { return tax > 1.0 ? tax * 0.01 : tax; }

}  // namespace orvel::cfs
