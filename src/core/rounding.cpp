// Rounding of results to a market's quoted places, and the handle-and-ticks form of prices.
#include <cmath>

#include "core/check.hpp"
#include "core/power.hpp"
#include "core/rounding.hpp"
#include "orvel/frame.h"

ORVEL_EXPORT(double) d_trunc_rnd(double num, int32_t places, int32_t rnd) {
    return orvel::trunc_round(num, places, rnd != 0);
}

double orvel::trunc_round(double num, int32_t places, bool rnd) {
    if (num == 0.0 || !std::isfinite(num)) return num;
    // Only the fractional part is scaled: a large handle keeps every digit it has, and negative places
    // leave the handle alone (the fraction is dropped, rnd or not).
    const double a = std::fabs(num);
    const double i = std::floor(a);
    const double f = a - i;  // exact, in [0, 1)
    const double h = rnd ? 0.5 : 0.0;
    double r = i;
    if (places >= 0 && places <= 308) {  // 10^places is finite
        const double p = orvel::pow(10.0, static_cast<double>(places));
        r = std::floor(p * f + h) / p + i;
    } else if (places > 308 && f != 0.0) {
        // 10^places overflows: scale in two steps. Once the scaled fraction reaches 2^53 it has no digits
        // left to cut (every fraction of at least 1e-290 does, and every double from 340 places on), and
        // the value comes back as it is; below, the digits beyond `places` are cut as above.
        const double q = orvel::pow(10.0, static_cast<double>(places) - 308.0);  // may be +inf
        const double s = f * 1e308 * q;                                        // f * 1e308 is in (0, 1e308)
        r = s < 9007199254740992.0 ? std::floor(s + h) / q / 1e308 : a;
    }
    return num < 0.0 ? -r : r;
}

namespace {

enum class Places { Six, Seven, TruncFourRoundThree, TruncThree, AsIs, Unknown };

// The quoting of each market: government and agency markets to 6 places (one to 7 for risk), the
// municipal and corporate markets to 3.
Places places_of(int32_t sec_type, bool risk) {
    switch (sec_type) {
    case 1: case 5: case 10: case 20: return Places::Six;
    case 2: return risk ? Places::Seven : Places::Six;
    case 3: case 4: case 6: case 8: case 30: case 40:
        return risk ? Places::TruncThree : Places::TruncFourRoundThree;
    case 7: return Places::AsIs;
    default: return Places::Unknown;
    }
}

}  // namespace

ORVEL_EXPORT(double) rslt_fix_plc(int32_t sec_type, int32_t rslt_type, double rslt, uint32_t* err_code) {
    // Both error paths hand back the unrounded value: the caller keeps it and sees the number.
    if (rslt_type < 1 || rslt_type > 5) {
        orvel::fail(err_code, ORVEL_E_SELECTOR);
        return rslt;
    }
    switch (places_of(sec_type, rslt_type == 2)) {
    case Places::Six: return d_trunc_rnd(rslt, 6, 1);
    case Places::Seven: return d_trunc_rnd(rslt, 7, 1);
    case Places::TruncFourRoundThree: return d_trunc_rnd(d_trunc_rnd(rslt, 4, 0), 3, 1);
    case Places::TruncThree: return d_trunc_rnd(rslt, 3, 0);
    case Places::AsIs: return rslt;
    case Places::Unknown: break;
    }
    orvel::fail(err_code, ORVEL_E_SEC_TYPE);
    return rslt;
}

ORVEL_EXPORT(double) dec_2_frac(double dec, int32_t denom) {
    if (!std::isfinite(dec)) return dec;  // no handle to split off
    const double i = std::trunc(dec);
    return i + (dec - i) * denom * 0.01;
}

ORVEL_EXPORT(double) frac_2_dec(double frac, int32_t denom) {
    if (!std::isfinite(frac)) return frac;
    const double i = std::trunc(frac);
    if (denom == 0) return i;  // no units to read: the handle alone, as dec_2_frac writes it for 0
    // The units take one decimal digit up to tenths, two up to hundredths, three beyond.
    const double s = denom <= 10 ? 10.0 : denom <= 100 ? 100.0 : 1000.0;
    return i + (frac - i) / denom * s;
}
