// The price formulas of the fixed-coupon engine on a schedule already reduced to numbers (whole periods
// after the next coupon, periods to the next coupon, next coupon, accrued interest). They validate nothing
// and are shared by the exported kernels, the yield solves and the risk measures. Each writes its error to
// err and returns 0.0 when the yield has no price.
#pragma once

#include <cmath>
#include <cstdint>

#include "bond/solver.hpp"
#include "core/power.hpp"
#include "orvel/frame.h"

namespace orvel::bond {

// A tax rate of 1.0 or more is a percentage, below 1.0 a fraction (so 30 and 0.30 are the same tax).
inline double tax_fraction(double tax) { return tax >= 1.0 ? tax * 0.01 : tax; }

// The schedule and terms the compound kernels price on.
struct Terms {
    double cpn_rate;  // annual coupon, percent
    double redemptn;  // per 100
    double tax1;      // on coupons and accrued interest, already a fraction
    double tax2;      // on the gain to redemption, already a fraction
    int32_t cpn_freq;
    int32_t n_after;   // whole periods after the next coupon
    double nxt_frac;   // periods from settlement to the next coupon
    double cpn_amt;    // the next coupon per 100
    double ai;         // accrued interest per 100
};

// The checks of the compound kernels, in their order, the given value (yield 1, price 2) first: the value,
// coupon rate, redemption, the two taxes (+1, +2), frequency, whole periods, days fraction, next coupon
// (+1) and accrued interest. The one place in this header that validates.
bool valid_g1p(double given, int32_t given_type, double cpn_rate, double redemptn, double tax1, double tax2,
               int32_t cpn_freq, int32_t n_after, double nxt_frac, double cpn_amt, double ai, uint32_t* err_code);

inline double fail_price(uint32_t* err, uint32_t number) {
    *err = number;
    return 0.0;
}

// Clean price compounding once a period: the next coupon k at w periods, the regular after-tax coupon
// c / f at w + 1 .. w + n and the redemption at w + n, written with the perpetuity A = c / (f g) as
// (A + (R - A) v^-n + k) v^-w. A tax on the gain to redemption turns the price into the root of
// P = PV - T2 (R - P) v^-(n+w), hence the divisor.
inline double price_g1p(const Terms& t, double yld, uint32_t* err) {
    const double c = (1.0 - t.tax1) * t.cpn_rate;
    const double k = (1.0 - t.tax1) * t.cpn_amt;
    const double f = static_cast<double>(t.cpn_freq);
    const double n = static_cast<double>(t.n_after);
    const double w = t.nxt_frac;
    const double r = t.redemptn;
    if (std::fabs(yld) <= 5e-7)  // the perpetuity has no value at zero yield: the flows simply add up
        return n * c / f + (w != 0.0 ? k : 0.0) + (1.0 - t.tax2) * r - t.ai;
    const double g = yld / (f * 100.0);
    const double v = 1.0 + g;
    if (!(v > 0.0)) return fail_price(err, ORVEL_E_NEG_BASE);
    const double a = c / (f * g);
    const double vn = orvel::pow(v, -n);
    const double vw = orvel::pow(v, -w);
    const double x = a + (r - a) * vn + k;
    if (t.tax1 == 0.0 && t.tax2 == 0.0) return x * vw - t.ai;
    const double discount = vn * vw;  // v^-(n + w)
    return (x * vw - (1.0 - t.tax1) * t.ai - t.tax2 * r * discount) / (1.0 - t.tax2 * discount);
}

// Clean price in the final period: the last coupon and the redemption discounted with simple interest
// over the w periods left. No coupon when the accrued interest is negative (ex-dividend: the seller keeps
// it). The divisor makes the redemption tax fall on the gain R - price.
inline double price_l1p(double yld, double cpn_rate, double redemptn, double tax1, int32_t cpn_freq,
                        double nxt_frac, double ai, uint32_t* err) {
    if (nxt_frac == 0.0) return fail_price(err, ORVEL_E_DAYS_PCNT);
    const double big_f = static_cast<double>(cpn_freq) * 100.0;
    const double c = ai < 0.0 ? 0.0 : (1.0 - tax1) * cpn_rate;
    const double v = 1.0 + nxt_frac * yld / big_f;
    if (!(v > 0.0)) return fail_price(err, ORVEL_E_NEG_BASE);
    return 100.0 * ((c / big_f + redemptn * 0.01 - tax1 * redemptn * 0.01) / v - (1.0 - tax1) * ai * 0.01) /
           (1.0 - tax1 / v);
}

// Yield in the final period, the closed inverse of price_l1p when untaxed. The gain tax T (R - P) is
// taken per 100 of face, without the 0.01 of the price formula: with a tax the two are not inverses.
inline double yield_l1p(double price, double cpn_rate, double redemptn, double tax1, int32_t cpn_freq,
                        double nxt_frac, double ai, uint32_t* err) {
    if (nxt_frac == 0.0) return fail_price(err, ORVEL_E_DAYS_PCNT);
    const double big_f = static_cast<double>(cpn_freq) * 100.0;
    const double c = ai < 0.0 ? 0.0 : (1.0 - tax1) * cpn_rate;
    const double d = (price + (1.0 - tax1) * ai) * 0.01;  // invested per unit of face
    const double y = 100.0 * (c / big_f + redemptn * 0.01 - tax1 * (redemptn - price) - d) / d *
                     static_cast<double>(cpn_freq) / nxt_frac;
    if (!std::isfinite(y)) return fail_price(err, ORVEL_E_GIVEN_BASE + 2);  // nothing invested: no yield
    // A yield whose discount base is not positive prices nothing (the price kernel refuses it too).
    if (!(1.0 + nxt_frac * y / big_f > 0.0)) return fail_price(err, ORVEL_E_NEG_BASE);
    return y;
}

// Untaxed compound price in every period; the next coupon goes to the seller when the accrued interest
// is negative. No zero-yield form: a yield of exactly 0 has no price here (4001, the bad-yield number).
inline double price_aibd(const Terms& t, double yld, uint32_t* err) {
    const double f = static_cast<double>(t.cpn_freq);
    const double g = yld / (f * 100.0);
    const double v = 1.0 + g;
    if (!(v > 0.0)) return fail_price(err, ORVEL_E_NEG_BASE);
    if (g == 0.0) return fail_price(err, ORVEL_E_GIVEN_BASE + 1);
    const double k = t.ai < 0.0 ? 0.0 : t.cpn_amt;
    const double a = t.cpn_rate / (g * f);
    const double vn = orvel::pow(v, -static_cast<double>(t.n_after));
    return (a + (t.redemptn - a) * vn + k) * orvel::pow(v, -t.nxt_frac) - t.ai;
}

// The first guess of the bond yield solves, from the gain to redemption spread over the periods left.
inline double yield_guess(double price, double cpn_rate, double redemptn, int32_t n_after, double nxt_frac) {
    const double d = redemptn - price;
    const double t = static_cast<double>(n_after) + nxt_frac;
    return (t * cpn_rate + d) / ((redemptn - 0.5 * d) * t - 0.25 * d) * 100.0;
}

// The yield at which price_at(y) equals price: the shared solver from the guess and one point on either
// side, tolerance 5e-7 per 100 on the price (the first candidate that reprices within it is the answer).
// A guess of exactly 1.0 moves to 1.1; a guess of exactly 0 is
// the answer (a price equal to the redemption with no coupon).
template <class PriceAt>
double solve_yield(double price, double guess, PriceAt price_at, uint32_t* err, SolveStats* stats = nullptr) {
    if (guess == 1.0) guess = 1.1;
    if (guess == 0.0) return 0.0;
    const double start[3] = {guess, guess - 1.0, guess + 1.0};
    auto residual = [&](double y, uint32_t* e) { return price - price_at(y, e); };
    return solve3(start, residual, ResidualBelow{5e-7}, err, stats);
}

}  // namespace orvel::bond
