// The grouped cash-flow calculator: an amount now, then groups of equal amounts at consecutive periods;
// their net present and future values, the level payment of the same value, and the internal rate of
// return.
#include <cmath>

#include "cashflow/cfs.hpp"
#include "cashflow/tvm.hpp"
#include "core/power.hpp"
#include "core/validators.hpp"
#include "orvel/cashflow.h"

namespace {

using orvel::Check;

inline constexpr int32_t max_group_payments = 100000;

// cf0 plus each group's uniform series discounted from its start: the uniform-series factor
// (1 - v^-c) / r, v = 1 + r, and the discount v^-T over the periods before the group, T carried as a
// running product of the groups' v^-c (each power taken once while the group length repeats). Two
// neighbouring groups of one length are taken together, the running discount stepping by v^-2c, so that
// the chain of products a value waits on is half as long. Zero rate: 0/0, on purpose.
double grouped_npv(double cf0, const double* amts, const int32_t* counts, int32_t n_groups, double rate) {
    const double r = rate / 100.0;
    double npv = cf0, before = 1.0;  // v^-T_j
    double vc = 1.0, vc2 = 1.0, annuity = 0.0;
    int64_t periods = 0;
    int32_t len = 0;
    for (int32_t j = 0; j < n_groups;) {
        const int32_t c = counts[j];
        if (j == 0 || c != len) {
            len = c;
            vc = orvel::tvm::compounded(r, -static_cast<double>(c));
            vc2 = vc * vc;
            annuity = orvel::tvm::series_present(r, vc);
        }
        if (j + 1 < n_groups && counts[j + 1] == c) {
            npv += annuity * (amts[j] * before + amts[j + 1] * (before * vc));
            before *= vc2;
            periods += 2 * int64_t{c};
            j += 2;
        } else {
            npv += annuity * amts[j] * before;
            before *= vc;
            periods += c;
            j += 1;
        }
        if (!(std::fabs(before) > 0.0 && std::fabs(before) <= orvel::kMaxDouble))
            before = orvel::tvm::compounded(r, -static_cast<double>(periods));
    }
    return npv;
}

// The checks of both calculators: the number of groups (always), then with validate cf0 and the amounts
// finite, the counts within 0..max_group_payments.
bool valid_groups(double cf0, const double* amts, const int32_t* counts, int32_t n_groups, int32_t validate,
                  uint32_t* err_code) {
    if (n_groups > orvel::cfs::max_flows) return orvel::fail(err_code, ORVEL_E_CFS_COUNT);
    if (validate == 0) return true;
    if (!orvel::finite(cf0)) return orvel::fail(err_code, ORVEL_E_CFS_AMOUNT);
    for (int32_t j = 0; j < n_groups; ++j) {
        if (!orvel::finite(amts[j])) return orvel::fail(err_code, ORVEL_E_CFS_AMOUNT);
        if (!(counts[j] >= 0 && counts[j] <= max_group_payments)) return orvel::fail(err_code, ORVEL_E_CFS_GROUP);
    }
    return true;
}

// The price tolerance of the rate solve, by the plain sum of the group amounts.
double irr_tolerance(const double* amts, int32_t n_groups) {
    double sum = 0.0;
    for (int32_t j = 0; j < n_groups; ++j) sum += amts[j];
    if (sum < 1e5) return 5e-6;
    if (sum < 1e6) return 5e-5;
    if (sum < 1e7) return 5e-4;
    return 5e-3;
}

}  // namespace

ORVEL_EXPORT(void) cash_flow(double cf0, const double* amts, const int32_t* counts, int32_t n_groups, double rate,
                             double* npv, double* nfv, double* nus, double* total, int32_t validate,
                             uint32_t* err_code) {
    if (!valid_groups(cf0, amts, counts, n_groups, validate, err_code)) return;
    if (validate != 0 && !orvel::finite(rate)) {
        orvel::fail(err_code, ORVEL_E_CFS_RATE);
        return;
    }
    double sum = cf0, periods = 0.0;
    for (int32_t j = 0; j < n_groups; ++j) {
        sum += counts[j] * amts[j];
        periods += counts[j];
    }
    const double value = grouped_npv(cf0, amts, counts, n_groups, rate);
    const double r = rate / 100.0;
    const double growth = orvel::tvm::compounded(r, periods);  // FV of one unit over T periods
    *npv = value;
    *nfv = growth * value;
    *nus = value / orvel::tvm::series_present(r, 1.0 / growth);
    *total = sum;
}

double orvel::cfs::irr(double cf0, const double* amts, const int32_t* counts, int32_t n_groups, uint32_t* err_code,
                       SolveStats* stats) {
    const double tol = irr_tolerance(amts, n_groups);
    int32_t evaluated = 0;
    double previous = 0.0;
    // The residual is -npv; a start point without a value stops the solve before it iterates (9010).
    auto residual = [&](double rate, uint32_t* e) {
        const double f = -grouped_npv(cf0, amts, counts, n_groups, rate);
        if (!std::isfinite(f) && evaluated < 3) *e = ORVEL_E_IRR_START;
        return f;
    };
    // A start point must meet the tolerance; a later rate may also stop on a step that no longer moves
    // the value (the npv changed by less than the tolerance).
    auto stop = [&](double, double f) {
        const bool done = std::fabs(f) < tol || (evaluated >= 3 && std::fabs(previous - f) < tol);
        ++evaluated;
        previous = f;
        return done;
    };
    const double start[3] = {10.0, 9.0, 11.0};
    return orvel::solve3(start, residual, stop, err_code, stats);
}

ORVEL_EXPORT(double) cf_irr(double cf0, const double* amts, const int32_t* counts, int32_t n_groups, int32_t validate,
                            uint32_t* err_code) {
    if (!valid_groups(cf0, amts, counts, n_groups, validate, err_code)) return 0.0;
    return orvel::cfs::irr(cf0, amts, counts, n_groups, err_code, nullptr);
}
