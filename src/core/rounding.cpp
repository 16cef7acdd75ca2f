// Rounding of results to a market's quoted places, and the handle-and-ticks form of prices.
#include <cmath>

#include "core/check.hpp"
#include "orvel/frame.h"

ORVEL_EXPORT(double) d_trunc_rnd(double num, int32_t places, int32_t rnd) {
    if (num == 0.0 || std::isnan(num)) return num;
    // Scale only the fractional part: a large handle keeps every digit it has.
    const double a = std::fabs(num);
    const double i = std::floor(a);
    const double p = std::pow(10.0, static_cast<double>(places));
    const double h = rnd != 0 ? 0.5 : 0.0;
    const double r = std::floor(p * (a - i) + h) / p + i;
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
    const double i = std::trunc(dec);
    return i + (dec - i) * denom * 0.01;
}

ORVEL_EXPORT(double) frac_2_dec(double frac, int32_t denom) {
    const double i = std::trunc(frac);
    // The units take one decimal digit up to tenths, two up to hundredths, three beyond.
    const double s = denom <= 10 ? 10.0 : denom <= 100 ? 100.0 : 1000.0;
    return i + (frac - i) / denom * s;
}
