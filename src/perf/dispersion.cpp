// Dispersion and risk-adjusted measures: standard deviation, asset-weighted dispersion of a composite, and
// the Sharpe and Treynor ratios.
#include <cmath>

#include "perf/flows.hpp"

namespace {

using orvel::Check;

// The excess return's checks: rtn finite (15401), then rf_rate as a rate 0..3000 (4108).
Check& excess_return(Check& c, double rtn, double rf_rate) {
    return c.expect(orvel::finite(rtn), ORVEL_E_PERF_VALUE).call(8, ok_cpn_rate, rf_rate);
}

}  // namespace

ORVEL_EXPORT(double) std_dev(const double* vals, int32_t n, int32_t sd_kind, double* mean, int32_t validate,
                             uint32_t* err_code) {
    if (!Check(err_code).expect(n <= ORVEL_PERF_MAX_VALUES, ORVEL_E_PERF_COUNT).ok()) return 0.0;
    if (validate != 0 && !Check(err_code)
                              .expect(n >= 2, ORVEL_E_SD_COUNT)
                              .expect(sd_kind >= -1 && sd_kind <= 1, ORVEL_E_SD_KIND)
                              .step([&](uint32_t* e) { return orvel::perf::all_finite(vals, n, e); })
                              .ok())
        return 0.0;
    double sum = 0.0;
    for (int32_t k = 0; k < n; ++k) sum += vals[k];
    const double m = sum / n;
    // Two passes: the squares of the deviations from the mean, less the square of their sum / n, which
    // takes out what the rounding of the mean left in them (and corrects the mean written). Values near 1e6 that differ by hundredths keep
    // their digits (a sum of squares less n mean^2 would cancel all of them).
    double squares = 0.0, deviations = 0.0;
    for (int32_t k = 0; k < n; ++k) {
        const double dev = vals[k] - m;
        squares += dev * dev;
        deviations += dev;
    }
    const double s = std::fmax(squares - deviations * deviations / n, 0.0);
    *mean = m + deviations / n;  // the mean's own rounding, put back
    return std::sqrt(s / (sd_kind == 1 ? n : n - 1.0));
}

ORVEL_EXPORT(double) sw_disprsn(const double* weights, const double* rtns, int32_t n, int32_t validate,
                                uint32_t* err_code) {
    if (!Check(err_code).expect(n <= ORVEL_PERF_MAX_VALUES, ORVEL_E_PERF_COUNT).ok()) return 0.0;
    if (validate != 0 && !Check(err_code)
                              .expect(n >= 2, ORVEL_E_BEGIN_VAL)
                              .step([&](uint32_t* e) { return orvel::perf::all_finite(weights, n, e); })
                              .step([&](uint32_t* e) { return orvel::perf::all_finite(rtns, n, e); })
                              .ok())
        return 0.0;
    double total = 0.0;
    for (int32_t k = 0; k < n; ++k) total += weights[k];
    if (!(std::fabs(total) >= 1e-7)) return orvel::perf::fail0(err_code, ORVEL_E_ZERO_BASE);
    double composite = 0.0;
    for (int32_t k = 0; k < n; ++k) composite += weights[k] * rtns[k] / total;
    double variance = 0.0;
    for (int32_t k = 0; k < n; ++k) {
        const double dev = rtns[k] - composite;
        variance += weights[k] / total * dev * dev;
    }
    if (!(variance >= 1e-7)) return orvel::perf::fail0(err_code, ORVEL_E_NO_DISPERSION);
    return std::sqrt(variance);
}

ORVEL_EXPORT(double) sharpe_msr(double rtn, double rf_rate, double sd, int32_t validate, uint32_t* err_code) {
    if (validate != 0) {
        Check c(err_code);
        if (!excess_return(c, rtn, rf_rate).expect(orvel::within(sd, 1e-7, orvel::kMaxDouble), ORVEL_E_SD_SMALL).ok())
            return 0.0;
    }
    return (rtn - rf_rate) / sd;
}

ORVEL_EXPORT(double) treynor_msr(double rtn, double rf_rate, double beta, int32_t validate, uint32_t* err_code) {
    if (validate != 0) {
        Check c(err_code);
        if (!excess_return(c, rtn, rf_rate)
                 .expect(orvel::within(std::fabs(beta), 1e-7, orvel::kMaxDouble), ORVEL_E_BETA)
                 .ok())
            return 0.0;
    }
    return (rtn - rf_rate) / beta;
}
