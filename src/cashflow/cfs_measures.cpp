// What a desk asks of a projected cash-flow set beyond price and yield: the discount margin of a
// floating-rate set, total and horizon returns with reinvestment, tax-equivalent and after-tax yields,
// and dollar risk (value of a basis point, price change for a shift, shift for a price change).
#include "cashflow/cfs.hpp"
#include "core/power.hpp"
#include "core/validators.hpp"
#include "orvel/cashflow.h"

namespace {

using namespace orvel::cfs;
using orvel::Check;
using orvel::within;

// A period count on a 365.25-day year read on a 360-day year: t / (360 / 365.25).
constexpr double mm_year_ratio = 360.0 / 365.25;

bool rate_ok(double rate, uint32_t* e) { return orvel::finite(rate) || orvel::fail(e, ORVEL_E_CFS_RATE); }
bool margin_ok(double dm, uint32_t* e) { return within(dm, -3000.0, 3000.0) || orvel::fail(e, ORVEL_E_FLT_MARGIN); }
bool tax_ok(double tax, uint32_t* e) { return within(tax, 0.0, 100.0) || orvel::fail(e, ORVEL_E_TAX_RATE); }

// Count (always) and, with validate, the checks of `first` and then the set itself.
template <class First>
bool checked(const double* amts, const double* times, int32_t count, int32_t validate, uint32_t* err_code,
             First first) {
    if (count > max_flows) return orvel::fail(err_code, ORVEL_E_CFS_COUNT);
    return validate == 0 || (Check(err_code).step(first).ok() && valid_set(amts, times, count, validate, err_code));
}

// ---- Discount margin ----------------------------------------------------------------------------------

// The factor per period (as the times count periods) at index + margin: v, or v^(365.25/360) when mode 2
// reads the times on a 360-day year. 270 for another mode, 4090 when v is not positive.
bool margin_factor(double index, double dm, int32_t freq, int32_t mode, double* v, uint32_t* err) {
    if (mode != 1 && mode != 2) return orvel::fail(err, ORVEL_E_DM_MODE);
    if (!period_factor(index + dm / 100.0, freq, v, err)) return false;
    if (mode == 2) *v = orvel::pow(*v, 1.0 / mm_year_ratio);
    return true;
}

double margin_price(double dm, double index, int32_t freq, int32_t mode, const double* amts, const double* times,
                    int32_t count, uint32_t* err) {
    double v = 0.0;
    if (!margin_factor(index, dm, freq, mode, &v, err)) return 0.0;
    return discounted(v, amts, times, count);
}

// The margin (basis points) that prices the set at price: solved as index + margin from the index and a
// point on either side.
double margin_of(double price, double index, int32_t freq, int32_t mode, int32_t prec, const double* amts,
                 const double* times, int32_t count, uint32_t* err) {
    if (mode != 1 && mode != 2) return failed(err, ORVEL_E_DM_MODE);
    auto price_at = [&](double y, uint32_t* e) {
        return margin_price(100.0 * (y - index), index, freq, mode, amts, times, count, e);
    };
    const double start[3] = {index, index - 1.0, index + 1.0};
    uint32_t e = 0;
    const double y = solve_price(price, start, tolerance(prec), price_at, &e);
    return settled(100.0 * (y - index), e, err);
}

// ---- Returns --------------------------------------------------------------------------------------------

// The value at horizon h (periods) of the flows: those due by h reinvested at w per period to h, those
// after it sold at vh per period.
struct Horizon {
    double received = 0.0;    // the flows due by h, as paid
    double reinvested = 0.0;  // the same grown to h
    double sold = 0.0;        // the later flows discounted to h
};

Horizon at_horizon(double w, double vh, double h, const double* amts, const double* times, int32_t count) {
    Horizon r;
    for (int32_t k = 0; k < count; ++k) {
        if (times[k] <= h) {
            r.received += amts[k];
            r.reinvested += amts[k] * orvel::pow(w, h - times[k]);
        } else {
            r.sold += amts[k] * orvel::pow(vh, h - times[k]);
        }
    }
    return r;
}

// The return that grows price to value (> 0) over h periods, compounding freq times a year, in percent
// a year.
double annualised(double price, double value, double h, int32_t freq) {
    return 100.0 * static_cast<double>(freq) * (orvel::pow(value / price, 1.0 / h) - 1.0);
}

bool horizon_checks(double price, double reinv, double hrz_yld, double hrz, int32_t freq, uint32_t* e) {
    return Check(e)
        .call(0, ok_given, price, 12)
        .step([&](uint32_t* x) { return rate_ok(reinv, x) && rate_ok(hrz_yld, x); })
        .expect(within(hrz, 0.0, orvel::kMaxDouble) && hrz > 0.0, ORVEL_E_CFS_HORIZON)
        .step([&](uint32_t* x) { return valid_freq(freq, x); })
        .ok();
}

// The horizon value and return of cfs_tr_hrz and cfs_sr_hrz; false with the error written.
bool horizon_return(double price, double reinv, double hrz_yld, double hrz, int32_t freq, const double* amts,
                    const double* times, int32_t count, uint32_t* err, Horizon* parts, double* ret) {
    double w = 0.0, vh = 0.0;
    if (!(hrz > 0.0)) return orvel::fail(err, ORVEL_E_CFS_HORIZON);
    if (!period_factor(reinv, freq, &w, err) || !period_factor(hrz_yld, freq, &vh, err)) return false;
    *parts = at_horizon(w, vh, hrz, amts, times, count);
    const double value = parts->reinvested + parts->sold;
    if (!(value > 0.0)) return orvel::fail(err, ORVEL_E_CFS_VALUE);
    *ret = annualised(price, value, hrz, freq);
    return true;
}

// ---- Taxes and dollar risk ----------------------------------------------------------------------------

// The yield of the set at price, each flow less tax times its taxable part.
double after_tax_yield(double price, double t, int32_t freq, int32_t prec, const double* amts, const double* ints,
                       const double* times, int32_t count, uint32_t* err) {
    auto price_at = [&](double y, uint32_t* e) {
        double v = 0.0;
        if (!period_factor(y, freq, &v, e)) return 0.0;
        const double gross = discounted(v, amts, times, count);
        return t == 0.0 ? gross : gross - t * discounted(v, ints, times, count);
    };
    return solve_price(price, standard_start, tolerance(prec), price_at, err);
}

}  // namespace

ORVEL_EXPORT(double) cfs_dm_p(double dm, double index, int32_t freq, int32_t mode, const double* amts,
                              const double* times, int32_t count, int32_t validate, uint32_t* err_code) {
    auto first = [&](uint32_t* e) { return margin_ok(dm, e) && rate_ok(index, e) && valid_freq(freq, e); };
    if (!checked(amts, times, count, validate, err_code, first)) return 0.0;
    return margin_price(dm, index, freq, mode, amts, times, count, err_code);
}

ORVEL_EXPORT(double) cfs_pdm(double price, double index, int32_t freq, int32_t mode, int32_t prec, const double* amts,
                             const double* times, int32_t count, int32_t validate, uint32_t* err_code) {
    auto first = [&](uint32_t* e) {
        return ok_given(price, 2, e) != 0 && rate_ok(index, e) && valid_freq(freq, e) && valid_prec(prec, e);
    };
    if (!checked(amts, times, count, validate, err_code, first)) return 0.0;
    return margin_of(price, index, freq, mode, prec, amts, times, count, err_code);
}

ORVEL_EXPORT(double) cfs_p_dm(double given, int32_t given_type, double index, int32_t freq, int32_t mode,
                              int32_t prec, const double* amts, const double* times, int32_t count, int32_t validate,
                              uint32_t* err_code) {
    if (given_type != 1 && given_type != 2) return failed(err_code, ORVEL_E_SELECTOR);
    auto first = [&](uint32_t* e) {
        return (given_type == 1 ? margin_ok(given, e) : ok_given(given, 2, e) != 0) && rate_ok(index, e) &&
               valid_freq(freq, e) && valid_prec(prec, e);
    };
    if (!checked(amts, times, count, validate, err_code, first)) return 0.0;
    if (given_type == 1) return margin_price(given, index, freq, mode, amts, times, count, err_code);
    return margin_of(given, index, freq, mode, prec, amts, times, count, err_code);
}

ORVEL_EXPORT(double) cfs_tr(double price, double reinv, int32_t freq, const double* amts, const double* times,
                            int32_t count, int32_t validate, uint32_t* err_code) {
    auto first = [&](uint32_t* e) {
        return ok_given(price, 12, e) != 0 && rate_ok(reinv, e) && valid_freq(freq, e);
    };
    if (!checked(amts, times, count, validate, err_code, first)) return 0.0;
    double h = 0.0;  // the last flow
    for (int32_t k = 0; k < count; ++k) h = times[k] > h ? times[k] : h;
    if (!(h > 0.0)) return failed(err_code, ORVEL_E_CFS_HORIZON);
    double w = 0.0;
    if (!period_factor(reinv, freq, &w, err_code)) return 0.0;
    const double value = discounted(w, amts, times, count, h);
    if (!(value > 0.0)) return failed(err_code, ORVEL_E_CFS_VALUE);
    return annualised(price, value, h, freq);
}

ORVEL_EXPORT(double) cfs_tr_hrz(double price, double reinv, double hrz_yld, double hrz, int32_t freq,
                                const double* amts, const double* times, int32_t count, int32_t validate,
                                uint32_t* err_code) {
    auto first = [&](uint32_t* e) { return horizon_checks(price, reinv, hrz_yld, hrz, freq, e); };
    if (!checked(amts, times, count, validate, err_code, first)) return 0.0;
    Horizon parts;
    double ret = 0.0;
    if (!horizon_return(price, reinv, hrz_yld, hrz, freq, amts, times, count, err_code, &parts, &ret)) return 0.0;
    return ret;
}

ORVEL_EXPORT(double) cfs_sr_hrz(double price, double reinv, double hrz_yld, double hrz, int32_t freq,
                                const double* amts, const double* times, int32_t count, double* flows, double* ioi,
                                double* sale, int32_t validate, uint32_t* err_code) {
    auto first = [&](uint32_t* e) { return horizon_checks(price, reinv, hrz_yld, hrz, freq, e); };
    if (!checked(amts, times, count, validate, err_code, first)) return 0.0;
    Horizon parts;
    double ret = 0.0;
    if (!horizon_return(price, reinv, hrz_yld, hrz, freq, amts, times, count, err_code, &parts, &ret)) return 0.0;
    *flows = parts.received;
    *ioi = parts.reinvested - parts.received;
    *sale = parts.sold;
    return ret;
}

ORVEL_EXPORT(double) cfs_tey(double price, double tax, int32_t freq, int32_t prec, const double* amts,
                             const double* times, int32_t count, int32_t validate, uint32_t* err_code) {
    auto first = [&](uint32_t* e) {
        return ok_given(price, 12, e) != 0 && tax_ok(tax, e) && valid_freq(freq, e) && valid_prec(prec, e);
    };
    if (!checked(amts, times, count, validate, err_code, first)) return 0.0;
    const double t = tax_fraction(tax);
    if (t == 1.0) return failed(err_code, ORVEL_E_CFS_TAX_ALL);
    uint32_t e = 0;
    const double y = periodic_yield(price, freq, prec, amts, times, count, standard_start, &e);
    return settled(y / (1.0 - t), e, err_code);
}

ORVEL_EXPORT(double) cfs_aty(double price, double tax, int32_t freq, int32_t prec, const double* amts,
                             const double* ints, const double* times, int32_t count, int32_t validate,
                             uint32_t* err_code) {
    auto first = [&](uint32_t* e) {
        if (!(ok_given(price, 12, e) != 0 && tax_ok(tax, e) && valid_freq(freq, e) && valid_prec(prec, e)))
            return false;
        for (int32_t k = 0; k < count; ++k)
            if (!orvel::finite(ints[k])) return orvel::fail(e, ORVEL_E_CFS_AMOUNT);
        return true;
    };
    if (!checked(amts, times, count, validate, err_code, first)) return 0.0;
    return after_tax_yield(price, tax_fraction(tax), freq, prec, amts, ints, times, count, err_code);
}

ORVEL_EXPORT(double) cfs_drs_p(double yld, int32_t freq, const double* amts, const double* times, int32_t count,
                               int32_t validate, uint32_t* err_code) {
    auto first = [&](uint32_t* e) { return ok_given(yld, 11, e) != 0 && valid_freq(freq, e); };
    if (!checked(amts, times, count, validate, err_code, first)) return 0.0;
    uint32_t e = 0;
    const double down = periodic_price(yld - 0.01, freq, amts, times, count, &e);
    const double up = periodic_price(yld + 0.01, freq, amts, times, count, &e);
    return settled((down - up) / 2.0, e, err_code);
}

ORVEL_EXPORT(double) cfs_drs_ps(double yld, double shift, int32_t freq, const double* amts, const double* times,
                                int32_t count, int32_t validate, uint32_t* err_code) {
    auto first = [&](uint32_t* e) {
        return ok_given(yld, 11, e) != 0 && (orvel::finite(shift) || orvel::fail(e, ORVEL_E_CFS_SHIFT)) &&
               valid_freq(freq, e);
    };
    if (!checked(amts, times, count, validate, err_code, first)) return 0.0;
    uint32_t e = 0;
    const double base = periodic_price(yld, freq, amts, times, count, &e);
    const double moved = periodic_price(yld + shift / 100.0, freq, amts, times, count, &e);
    return settled(moved - base, e, err_code);
}

ORVEL_EXPORT(double) cfs_drs_s(double yld, double dprice, int32_t freq, int32_t prec, const double* amts,
                               const double* times, int32_t count, int32_t validate, uint32_t* err_code) {
    auto first = [&](uint32_t* e) {
        return ok_given(yld, 11, e) != 0 && (orvel::finite(dprice) || orvel::fail(e, ORVEL_E_CFS_SHIFT)) &&
               valid_freq(freq, e) && valid_prec(prec, e);
    };
    if (!checked(amts, times, count, validate, err_code, first)) return 0.0;
    uint32_t e = 0;
    const double base = periodic_price(yld, freq, amts, times, count, &e);
    if (e != 0) return failed(err_code, e);
    const double start[3] = {yld, yld - 1.0, yld + 1.0};
    const double y = periodic_yield(base + dprice, freq, prec, amts, times, count, start, &e);
    return settled(100.0 * (y - yld), e, err_code);
}
