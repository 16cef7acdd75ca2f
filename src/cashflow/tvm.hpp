// The five-key annuity arithmetic: the rate per payment period, the closed forms of future value, present
// value, payment and number of periods, and the rate solve. They validate nothing; every amount follows the
// time-value equation pv (1+i)^n + pmt (1 + i d) ((1+i)^n - 1) / i + fv = 0, d = 1 for payments at the
// start of each period. Shared by the time-value exports and the debt-service measures.
#pragma once

#include <cstdint>

#include "bond/solver.hpp"
#include "core/power.hpp"

namespace orvel::tvm {

// The payment timing factor: 1 for payments at the start of each period (due = 1), 0 otherwise.
inline double due_factor(int32_t due) { return due == 1 ? 1.0 : 0.0; }

// Effective rate per payment period of iy percent a year compounded cpy times: iy / (100 ppy) when the
// two frequencies agree, else (1 + iy / (100 cpy))^(cpy / ppy) - 1, as expm1 of log1p so that a rate of
// 0.0001% keeps its digits (the plain power minus 1 leaves it seven). Frequencies divide as doubles.
inline double epi_of(double iy, int32_t cpy, int32_t ppy) {
    if (cpy == ppy) return iy / (static_cast<double>(ppy) * 100.0);
    return orvel::expm1(static_cast<double>(cpy) / ppy * orvel::log1p(iy * 0.01 / cpy));
}

// iy percent a year back from the rate per payment period: the inverse of epi_of.
inline double iy_of(double epi, int32_t cpy, int32_t ppy) {
    if (cpy == ppy) return epi * ppy * 100.0;
    return 100.0 * cpy * orvel::expm1(static_cast<double>(ppy) / cpy * orvel::log1p(epi));
}

// (1+i)^n - 1 and (1+i)^-n - 1 from i itself: no rounding of 1 + i (at i = 1e-8 it would cost eight
// digits), and no cancellation where the power is near 1 (at 0.01% a period over 12 periods the plain
// power minus 1 loses three). Within a few ulp for |n ln(1+i)| up to 1, within about 2 |n ln(1+i)| ulp
// beyond.
inline double grown_m1(double i, double n) { return orvel::expm1(n * orvel::log1p(i)); }
inline double discount_m1(double i, double n) { return grown_m1(i, -n); }

// The plain closed forms of one amount and of a uniform series of 1 a period at r per period (a fraction),
// as written, without the care of grown_m1: (1 + r)^n, and the series' values from it, future
// ((1 + r)^n - 1) / r and present (1 - (1 + r)^-n) / r. At r = 0 the series give 0/0, NaN.
inline double compounded(double r, double n) { return orvel::pow(1.0 + r, n); }
inline double series_future(double r, double grown) { return (grown - 1.0) / r; }        // grown = (1 + r)^n
inline double series_present(double r, double discount) { return (1.0 - discount) / r; }  // discount = (1 + r)^-n

// fv = -(pv (1+i)^n + pmt (1 + i d) ((1+i)^n - 1) / i); at i = 0 exactly, -(n pmt + pv).
inline double future_value(double i, double pmt, double pv, double n, double d) {
    if (i == 0.0) return -(n * pmt + pv);
    const double g = grown_m1(i, n);
    return -(pv * (1.0 + g) + (1.0 + i * d) * pmt / i * g);
}

// pv = -(fv (1+i)^-n + pmt (1 + i d) (1 - (1+i)^-n) / i); at i = 0 exactly, -(n pmt + fv).
inline double present_value(double i, double pmt, double fv, double n, double d) {
    if (i == 0.0) return -(n * pmt + fv);
    const double per_payment = (1.0 + i * d) * pmt / i;  // divides while the power is computed
    const double g = discount_m1(i, n);
    return g * per_payment - fv * (1.0 + g);
}

// pmt = -(i / (1 + i d)) (pv + (pv + fv) / ((1+i)^n - 1)); at i = 0 exactly, -(pv + fv) / n.
inline double payment(double i, double pv, double fv, double n, double d) {
    if (i == 0.0) return -(pv + fv) / n;
    return -(i / (1.0 + i * d)) * (pv + (pv + fv) / grown_m1(i, n));
}

// n = ln((B - i fv) / (B + i pv)) / ln(1+i) with B = (1 + i d) pmt; at i = 0 exactly, -(pv + fv) / pmt.
// Both logarithms are of 1 plus something small at small rates, taken as log1p of that something,
// -i (fv + pv) / (B + i pv) and i: ln(1 + i) of the rounded 1 + i would be off by 1e-8 of itself at
// i = 1e-8. A ratio that is not positive gives NaN (no such number of periods; -inf at 0), left to the
// caller.
inline double periods(double i, double pmt, double pv, double fv, double d) {
    if (i == 0.0) return -(pv + fv) / pmt;
    const double b = (1.0 + i * d) * pmt;
    return orvel::log1p(-i * (fv + pv) / (b + i * pv)) / orvel::log1p(i);
}

// The rate solve's residual: the present value of the payments and fv at rate i, less pv.
inline double rate_residual(double i, double fv, double pmt, double pv, double n, double d) {
    return present_value(i, pmt, fv, n, d) - pv;
}

// The residual tolerance of the rate solve: 5e-10 while the larger of |fv| and |pv| is below 10^4, and
// 5 x 10^(e - 13) once it has e >= 4 decimal digits before the point (1e6 gives 5e-7).
double rate_tolerance(double fv, double pv);

// The rate per period that solves the time-value equation, on the shared three-point solver from 10%, 9%
// and 11% a year spread over ppy periods. A candidate with 1 + i or |i| below 1e-10 ends the solve with
// 682. Converged when the residual is below rate_tolerance, or when the candidate comes back unchanged
// with a residual within 1,000 units in the last place of the largest of |fv|, |pmt|, |pv| (the tolerance
// is then below what rounding resolves); else 9020. Writes the error and returns 0.0 on failure.
double solve_epi(double fv, double pmt, double pv, double n, int32_t ppy, int32_t due, uint32_t* err,
                 SolveStats* stats = nullptr);

}  // namespace orvel::tvm
