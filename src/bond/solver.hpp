// The library's one root finder: three fixed starting points, then three-point interpolation steps on the
// last three points (the step of approx_yield). Every yield, rate, internal rate of return and prepayment
// speed of the library is solved here; a caller brings only its residual, its start points and its stop rule.
//
// How to use it:
//
//   const double start[3] = {y0, y0 - 1.0, y0 + 1.0};
//   auto residual = [&](double y, uint32_t* err) { return price - price_at(y, err); };
//   double y = orvel::solve3(start, residual, orvel::ResidualBelow{5e-7}, err_code);
//   if (*err_code != 0) return 0.0;          // or test the bool of a Check chain
//
// - residual(x, err) returns f(x). When x has no value (a negative base of a fractional power, say) it
//   writes its own error number to err and the solve ends with that number. err is a scratch word that
//   starts at 0 for every call, so a residual may call exports with it directly.
// - stop(x, fx) says whether the candidate x, whose residual is fx, is the answer. ResidualBelow is the
//   rule of the bond yields (|f| < tolerance); a rule may keep state (a lambda that remembers the last x
//   compares steps).
// - Each start point is evaluated in turn and returned as soon as it meets the stop rule.
// - The solve fails with 9020 (writes it, returns 0.0) when an interpolation step degenerates (its
//   denominator below 1e-10), when a candidate or a residual is not finite, or after 1,000 steps without
//   convergence. It never loops for ever and never touches err_code on success.
#pragma once

#include <cmath>
#include <cstdint>

#include "orvel/frame.h"

namespace orvel {

inline constexpr int solver_max_steps = 1000;

// One three-point step: the root of the linear fractional function through (a, fa), (b, fb), (c, fc).
// Exact when the residual is itself linear fractional in x. False when the three points are degenerate.
inline bool interpolate3(double a, double b, double c, double fa, double fb, double fc, double* next) {
    const double den = (a - b) * fb * fa + fc * fa * (c - a) + fc * fb * (b - c);
    if (std::fabs(den) < 1e-10) return false;
    *next = c + (fc * fa - fc * fb) * (c - a) * (b - c) / den;
    return true;
}

// The stop rule of the bond yields: the residual (a price difference per 100) below tolerance.
struct ResidualBelow {
    double tolerance;
    bool operator()(double /*x*/, double fx) const { return std::fabs(fx) < tolerance; }
};

// What a solve did: how many times it evaluated the residual and how many interpolation steps it took.
struct SolveStats {
    int evaluations = 0;
    int steps = 0;
};

template <class Residual, class Stop>
double solve3(const double (&start)[3], Residual&& residual, Stop&& stop, uint32_t* err_code,
              SolveStats* stats = nullptr) {
    SolveStats local;
    SolveStats& s = stats != nullptr ? *stats : local;
    double x[3];
    double f[3];
    // Evaluates the candidate into slot i; false (error written) when it or its residual is unusable.
    auto evaluate = [&](double candidate, int i) {
        if (!std::isfinite(candidate)) {
            *err_code = ORVEL_E_SOLVER;
            return false;
        }
        uint32_t scratch = 0;
        const double fx = residual(candidate, &scratch);
        ++s.evaluations;
        if (scratch != 0) {
            *err_code = scratch;
            return false;
        }
        if (!std::isfinite(fx)) {
            *err_code = ORVEL_E_SOLVER;
            return false;
        }
        x[i] = candidate;
        f[i] = fx;
        return true;
    };
    for (int i = 0; i < 3; ++i) {
        if (!evaluate(start[i], i)) return 0.0;
        if (stop(x[i], f[i])) return x[i];
    }
    for (s.steps = 1; s.steps <= solver_max_steps; ++s.steps) {
        double next = 0.0;
        if (!interpolate3(x[0], x[1], x[2], f[0], f[1], f[2], &next)) {
            *err_code = ORVEL_E_SOLVER;
            return 0.0;
        }
        x[0] = x[1];
        f[0] = f[1];
        x[1] = x[2];
        f[1] = f[2];
        if (!evaluate(next, 2)) return 0.0;
        if (stop(x[2], f[2])) return x[2];
    }
    s.steps = solver_max_steps;
    *err_code = ORVEL_E_SOLVER;
    return 0.0;
}

}  // namespace orvel
