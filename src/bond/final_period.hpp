// The final coupon period with an income tax and a separate capital-gains tax, in closed form both ways.
// With the two rates equal the price is that of price_l1p; unlike yield_l1p the yield here inverts the
// price exactly, the gain tax being taken per unit of face in both.
#pragma once

#include <cmath>
#include <cstdint>

#include "bond/kernels.hpp"

namespace orvel::bond {

// Taxes as fractions: t1 on the last coupon and the accrued interest, t2 on the gain redemptn - price.
struct FinalPeriod {
    double cpn_rate, redemptn, t1, t2;
    int32_t cpn_freq;
    double nxt_frac, ai;
    // The after-tax last coupon per 100; none when ai is negative (ex-dividend: the seller keeps it).
    double coupon() const { return ai < 0.0 ? 0.0 : (1.0 - t1) * cpn_rate / cpn_freq; }
};

// P = ((k + R (1 - t2)) / V - (1 - t1) ai) / (1 - t2 / V), V = 1 + w y / (100 f): the price whose after-tax
// flows, the gain tax t2 (R - P) included, return y by simple interest over the w periods left.
inline double price_final(const FinalPeriod& p, double yld, uint32_t* err) {
    if (p.nxt_frac == 0.0) return fail_price(err, ORVEL_E_DAYS_PCNT);
    const double v = 1.0 + p.nxt_frac * yld / (100.0 * p.cpn_freq);
    if (!(v > 0.0)) return fail_price(err, ORVEL_E_NEG_BASE);
    const double price =
        ((p.coupon() + p.redemptn * (1.0 - p.t2)) / v - (1.0 - p.t1) * p.ai) / (1.0 - p.t2 / v);
    return std::isfinite(price) ? price : fail_price(err, ORVEL_E_NEG_BASE);
}

// The inverse: V = (k + R - t2 (R - P)) / (P + (1 - t1) ai), y = (V - 1) 100 f / w.
inline double yield_final(const FinalPeriod& p, double price, uint32_t* err) {
    if (p.nxt_frac == 0.0) return fail_price(err, ORVEL_E_DAYS_PCNT);
    const double invested = price + (1.0 - p.t1) * p.ai;
    const double v = (p.coupon() + p.redemptn - p.t2 * (p.redemptn - price)) / invested;
    if (!std::isfinite(v)) return fail_price(err, ORVEL_E_GIVEN_BASE + 2);  // nothing invested: no yield
    if (!(v > 0.0)) return fail_price(err, ORVEL_E_NEG_BASE);
    return (v - 1.0) * 100.0 * p.cpn_freq / p.nxt_frac;
}

}  // namespace orvel::bond
