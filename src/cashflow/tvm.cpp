// The five-key annuity solver: rate per payment period, future and present value, payment, number of
// periods, rate, and the amortization table.
#include "cashflow/tvm.hpp"

#include <cmath>
#include <limits>

#include "core/check.hpp"
#include "core/validators.hpp"
#include "orvel/cashflow.h"

namespace orvel::tvm {

double rate_tolerance(double fv, double pv) {
    // 5 x 10^(e - 13) for e = 3 .. 22 as literals (each the double nearest its value).
    static constexpr double tolerance[] = {5e-10, 5e-9, 5e-8, 5e-7, 5e-6, 5e-5, 5e-4, 5e-3, 5e-2, 5e-1,
                                           5e0,   5e1,  5e2,  5e3,  5e4,  5e5,  5e6,  5e7,  5e8,  5e9};
    const double m = std::fmax(std::fabs(fv), std::fabs(pv));
    // Decimal digits before the point: 10^e <= m < 10^(e+1). Powers up to 10^22 are exact products;
    // beyond them the library's power gives the double nearest 10^e.
    int e = 3;
    double next = 1e4;
    while (m >= next && e < 308) {
        ++e;
        next = e < 22 ? next * 10.0 : orvel::pow(10.0, e + 1);
    }
    return e <= 22 ? tolerance[e - 3] : 5.0 * orvel::pow(10.0, e - 13);
}

namespace {

// Stops on a residual below tolerance, or on a candidate that comes back unchanged with a residual that
// rounding alone explains.
struct RateStop {
    double tolerance;
    double rounding;  // 1,000 units in the last place of the largest amount
    double last = std::numeric_limits<double>::quiet_NaN();
    bool operator()(double x, double fx) {
        if (std::fabs(fx) < tolerance) return true;
        const bool unchanged = x == last;
        last = x;
        return unchanged && std::fabs(fx) <= rounding;
    }
};

double ulp(double x) { return std::nextafter(x, std::numeric_limits<double>::infinity()) - x; }

}  // namespace

double solve_epi(double fv, double pmt, double pv, double n, int32_t ppy, int32_t due, uint32_t* err,
                 SolveStats* stats) {
    const double d = due_factor(due);
    // The steps run in the units of a bond yield solve: the rate in percent a year (x = 100 ppy i) and
    // the residual scaled so that the tolerance reads 5e-7. The interpolation step is the same in any units;
    // in these its degenerate-step test (1e-10) trips where it does in the bond yields, not long before
    // convergence as it would on a rate per period and a tolerance of 5e-10.
    const double per = static_cast<double>(ppy) * 100.0;
    const double largest = std::fmax(std::fmax(std::fabs(fv), std::fabs(pv)), std::fabs(pmt));
    const double tolerance = rate_tolerance(fv, pv);
    const double scale = 5e-7 / tolerance;
    const double start[3] = {10.0, 9.0, 11.0};
    RateStop stop{5e-7, 1000.0 * ulp(largest) * scale};
    auto residual = [&](double x, uint32_t* e) {
        const double i = x / per;
        if (!(1.0 + i >= 1e-10 && std::fabs(i) >= 1e-10)) {
            *e = ORVEL_E_RATE_DOMAIN;
            return 0.0;
        }
        return rate_residual(i, fv, pmt, pv, n, d) * scale;
    };
    const double x = solve3(start, residual, stop, err, stats);
    return *err != 0 ? 0.0 : x / per;
}

}  // namespace orvel::tvm

namespace {

inline bool is_finite(double x) { return orvel::finite(x); }
using orvel::tvm::due_factor;
using orvel::tvm::epi_of;

// The frequency checks of every annuity function.
orvel::Check& frequencies(orvel::Check& c, int32_t cpy, int32_t ppy) {
    return c.expect(cpy >= 1, ORVEL_E_CPY).expect(ppy >= 1, ORVEL_E_PPY);
}

// One of the four values a closed form is given, and its number when it is not finite.
struct Key {
    double value;
    uint32_t number;
};

// The checks of a closed form: the frequencies, then each value given finite, in argument order.
bool keys_ok(int32_t cpy, int32_t ppy, const Key (&keys)[4], uint32_t* err_code) {
    orvel::Check c(err_code);
    frequencies(c, cpy, ppy);
    for (const Key& k : keys) c.expect(is_finite(k.value), k.number);
    return c.ok();
}

// The amounts can have a rate only when the payment and the amounts point in opposite directions.
bool can_have_rate(double fv, double pmt, double pv) {
    if (pmt <= 1e-10) return !(pv < -1e-10 || fv > 1e-10);
    return !(pv > 1e-10 || fv < -1e-10);
}

}  // namespace

ORVEL_EXPORT(double) tvm_iy_2_epi(double iy, int32_t cpy, int32_t ppy, int32_t validate, uint32_t* err_code) {
    if (validate != 0) {
        orvel::Check c(err_code);
        if (!frequencies(c, cpy, ppy).expect(is_finite(iy), ORVEL_E_RATE).ok()) return 0.0;
    }
    return epi_of(iy, cpy, ppy);
}

ORVEL_EXPORT(double) tvm_FV(double pmt, double pv, double iy, double n, int32_t cpy, int32_t ppy, int32_t due,
                            int32_t validate, uint32_t* err_code) {
    const Key keys[4] = {{pmt, ORVEL_E_PMT}, {pv, ORVEL_E_PV}, {iy, ORVEL_E_RATE}, {n, ORVEL_E_PERIODS}};
    if (validate != 0 && !keys_ok(cpy, ppy, keys, err_code)) return 0.0;
    return orvel::tvm::future_value(epi_of(iy, cpy, ppy), pmt, pv, n, due_factor(due));
}

ORVEL_EXPORT(double) tvm_PV(double fv, double pmt, double iy, double n, int32_t cpy, int32_t ppy, int32_t due,
                            int32_t validate, uint32_t* err_code) {
    const Key keys[4] = {{fv, ORVEL_E_FV}, {pmt, ORVEL_E_PMT}, {iy, ORVEL_E_RATE}, {n, ORVEL_E_PERIODS}};
    if (validate != 0 && !keys_ok(cpy, ppy, keys, err_code)) return 0.0;
    return orvel::tvm::present_value(epi_of(iy, cpy, ppy), pmt, fv, n, due_factor(due));
}

ORVEL_EXPORT(double) tvm_pmt(double fv, double pv, double iy, double n, int32_t cpy, int32_t ppy, int32_t due,
                             int32_t validate, uint32_t* err_code) {
    const Key keys[4] = {{fv, ORVEL_E_FV}, {pv, ORVEL_E_PV}, {iy, ORVEL_E_RATE}, {n, ORVEL_E_PERIODS}};
    if (validate != 0 && !keys_ok(cpy, ppy, keys, err_code)) return 0.0;
    return orvel::tvm::payment(epi_of(iy, cpy, ppy), pv, fv, n, due_factor(due));
}

ORVEL_EXPORT(double) tvm_n(double fv, double pmt, double pv, double iy, int32_t cpy, int32_t ppy, int32_t due,
                           int32_t validate, uint32_t* err_code) {
    const Key keys[4] = {{fv, ORVEL_E_FV}, {pmt, ORVEL_E_PMT}, {pv, ORVEL_E_PV}, {iy, ORVEL_E_RATE}};
    if (validate != 0 && !keys_ok(cpy, ppy, keys, err_code)) return 0.0;
    return orvel::tvm::periods(epi_of(iy, cpy, ppy), pmt, pv, fv, due_factor(due));
}

ORVEL_EXPORT(double) tvm_epi(double fv, double pmt, double pv, double n, int32_t ppy, int32_t due, int32_t validate,
                             uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .expect(ppy >= 1, ORVEL_E_PPY)
                              .expect(is_finite(fv), ORVEL_E_FV)
                              .expect(is_finite(pmt), ORVEL_E_PMT)
                              .expect(is_finite(pv), ORVEL_E_PV)
                              .expect(is_finite(n), ORVEL_E_PERIODS)
                              .expect(can_have_rate(fv, pmt, pv), ORVEL_E_NO_RATE)
                              .ok())
        return 0.0;
    uint32_t err = 0;
    const double epi = orvel::tvm::solve_epi(fv, pmt, pv, n, ppy, due, &err);
    if (err != 0) {
        *err_code = err;
        return 0.0;
    }
    return epi;
}

ORVEL_EXPORT(double) tvm_iy(double fv, double pmt, double pv, double n, int32_t cpy, int32_t ppy, int32_t due,
                            int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code).expect(cpy >= 1, ORVEL_E_CPY).ok()) return 0.0;
    uint32_t err = 0;
    const double epi = tvm_epi(fv, pmt, pv, n, ppy, due, validate, &err);
    if (err != 0) {
        *err_code = err;
        return 0.0;
    }
    return orvel::tvm::iy_of(epi, cpy, ppy);
}

ORVEL_EXPORT(void) tvm_amort(double fv, double pmt, double pv, double iy, double n, int32_t cpy, int32_t ppy,
                             int32_t due, int32_t rows, double* int_amt, double* prn_amt, double* bal, double* cum_int,
                             double* cum_prn, int32_t validate, uint32_t* err_code) {
    if (validate != 0) {
        orvel::Check c(err_code);
        if (!frequencies(c, cpy, ppy)
                 .expect(is_finite(fv), ORVEL_E_FV)
                 .expect(is_finite(pmt), ORVEL_E_PMT)
                 .expect(is_finite(pv), ORVEL_E_PV)
                 .expect(is_finite(iy), ORVEL_E_RATE)
                 .expect(is_finite(n), ORVEL_E_PERIODS)
                 .ok())
            return;
    }
    // Always checked: they bound the writes.
    if (!orvel::Check(err_code)
             .expect(rows >= 0 && rows <= ORVEL_TVM_AMORT_MAX_ROWS, ORVEL_E_AMORT_ROWS)
             .expect(!(n >= rows + 1.0), ORVEL_E_AMORT_SHORT)
             .ok())
        return;
    if (!(n >= 1.0)) return;  // no whole period: nothing to write (NaN included)
    const auto last = static_cast<int32_t>(std::floor(n));
    const double i = epi_of(iy, cpy, ppy);
    double balance = pv, total_int = 0.0, total_prn = 0.0;
    for (int32_t k = 1; k <= last; ++k) {
        const double interest = (k == 1 && due == 1) ? 0.0 : i * balance;
        const double principal = pmt + interest;
        balance += principal;
        const double shown = pmt < 0.0 ? -interest : interest;  // interest carries the payment's sign
        total_int += shown;
        total_prn += principal;
        int_amt[k] = shown;
        prn_amt[k] = principal;
        bal[k] = balance;
        cum_int[k] = total_int;
        cum_prn[k] = total_prn;
    }
}
