// The discounted sums of a cash-flow set and the checks its exports share.
#include <cmath>

#include "cashflow/cfs.hpp"
#include "calendar/order.hpp"
#include "core/power.hpp"
#include "core/validators.hpp"
#include "schedule/periods.hpp"

namespace orvel::cfs {

namespace {

// Walks the set with a running discount factor d = v^-(times[k] - origin), calling visit(k, d). The step
// factor v^-(times[k] - times[k-1]) is kept while the spacing is the same; a spacing that differs from the
// last by a rounding of the times only (k + f stored in a wider binade as k grows) corrects the factor by
// exp(-delta ln v) to second order instead of taking a new power. A running factor that leaves the normal
// range (0 or infinite after many steps) is taken afresh from the power.
template <class Visit>
void walk(double v, const double* times, int32_t count, double origin, Visit visit) {
    if (count < 1) return;
    double d = orvel::pow(v, origin - times[0]);
    visit(0, d);
    double step = 0.0, factor = 1.0, log_v = 0.0;
    bool have_log = false;
    for (int32_t k = 1; k < count; ++k) {
        const double dt = times[k] - times[k - 1];
        const double delta = dt - step;
        if (delta != 0.0) {
            if (std::fabs(delta) <= 1e-10) {
                if (!have_log) {
                    log_v = orvel::log(v);
                    have_log = true;
                }
                const double x = delta * log_v;  // |x| tiny: exp(-x) = 1 - x + x^2 / 2 to the last bit
                factor *= 1.0 - x + 0.5 * x * x;
            } else {
                factor = orvel::pow(v, -dt);
            }
            step = dt;
        }
        d *= factor;
        if (!(d > 0.0 && d <= kMaxDouble)) d = orvel::pow(v, origin - times[k]);
        visit(k, d);
    }
}

}  // namespace

double discounted(double v, const double* amts, const double* times, int32_t count, double origin) {
    double sum = 0.0;
    walk(v, times, count, origin, [&](int32_t k, double d) { sum += amts[k] * d; });
    return sum;
}

Moments moments(double v, const double* amts, const double* times, int32_t count) {
    Moments m;
    walk(v, times, count, 0.0, [&](int32_t k, double d) {
        const double pv = amts[k] * d;
        m.value += pv;
        m.first += times[k] * pv;
        m.second += times[k] * times[k] * pv;
    });
    return m;
}

double simple_discounted(double yld, const double* amts, const double* times, int32_t count) {
    double sum = 0.0;
    for (int32_t k = 0; k < count; ++k) sum += amts[k] / (1.0 + yld * 0.01 * times[k]);
    return sum;
}

double treasury(double v, double j, const double* amts, const double* times, int32_t count) {
    if (count < 1) return 0.0;
    const double rest = count < 2 ? 0.0 : discounted(v, amts + 1, times + 1, count - 1, times[0]);
    return (amts[0] + rest) / (1.0 + j * times[0]);
}

bool period_factor(double yld, int32_t freq, double* v, uint32_t* err) {
    *v = 1.0 + yld / (static_cast<double>(freq) * 100.0);
    return *v > 0.0 || fail(err, ORVEL_E_NEG_BASE);
}

double tolerance(int32_t prec) { return orvel::pow(10.0, -(static_cast<double>(prec) + 1.0)); }

bool valid_set(const double* amts, const double* times, int32_t count, int32_t validate, uint32_t* err) {
    if (count > max_flows) return fail(err, ORVEL_E_CFS_COUNT);
    if (validate == 0) return true;
    for (int32_t k = 0; k < count; ++k) {
        if (!finite(amts[k])) return fail(err, ORVEL_E_CFS_AMOUNT);
        if (!finite(times[k])) return fail(err, ORVEL_E_CFS_TIME);
    }
    return true;
}

bool valid_prec(int32_t prec, uint32_t* err) { return (prec >= 0 && prec <= 12) || fail(err, ORVEL_E_CFS_PREC); }

bool valid_freq(int32_t freq, uint32_t* err) {
    uint32_t scratch = 0;
    return ok_cpn_freq(freq, &scratch) != 0 || fail(err, ORVEL_E_FLT_FREQ);
}

bool valid_dated(const Date& settle, const double* amts, const int32_t* cf_m, const int32_t* cf_d,
                 const int32_t* cf_y, int32_t count, int32_t validate, uint32_t* err) {
    if (count > ORVEL_DATE_LIST_MAX) return fail(err, ORVEL_E_LIST_LENGTH);
    if (validate == 0) return true;
    if (!Check(err).call(ORVEL_ROLE_SETTLE, ok_MDY, settle.m, settle.d, settle.y, 1).ok()) return false;
    for (int32_t k = 0; k < count; ++k) {
        const Date flow{cf_m[k], cf_d[k], cf_y[k]};
        if (!is_valid(flow) || cal::compare(settle, flow) > 0)
            return fail(err, ORVEL_E_DATE_LIST_BASE + static_cast<uint32_t>(k));
    }
    for (int32_t k = 0; k < count; ++k)
        if (!finite(amts[k])) return fail(err, ORVEL_E_CFS_AMOUNT);
    return true;
}

void flow_times(const Date& settle, const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y, int32_t count,
                int32_t day_type, int32_t eom, int32_t freq, double* times_out) {
    for (int32_t k = 0; k < count; ++k)
        times_out[k] = schedule::signed_periods(settle, Date{cf_m[k], cf_d[k], cf_y[k]}, day_type, eom, freq);
}

}  // namespace orvel::cfs
