// Price and yield of a timed cash-flow set under periodic compounding, simple money-market discounting,
// the Treasury convention and simple discount.
#include "cashflow/cfs.hpp"
#include "core/validators.hpp"
#include "orvel/cashflow.h"

namespace orvel::cfs {

double periodic_price(double yld, int32_t freq, const double* amts, const double* times, int32_t count,
                      uint32_t* err) {
    double v = 0.0;
    if (!period_factor(yld, freq, &v, err)) return 0.0;
    return discounted(v, amts, times, count);
}

double periodic_yield(double price, int32_t freq, int32_t prec, const double* amts, const double* times,
                      int32_t count, const double (&start)[3], uint32_t* err, SolveStats* stats) {
    auto price_at = [&](double y, uint32_t* e) { return periodic_price(y, freq, amts, times, count, e); };
    return solve_price(price, start, tolerance(prec), price_at, err, stats);
}

double mm_yield(double price, int32_t prec, const double* amts, const double* times, int32_t count, uint32_t* err) {
    auto price_at = [&](double y, uint32_t*) { return simple_discounted(y, amts, times, count); };
    return solve_price(price, standard_start, tolerance(prec), price_at, err);
}

double treasury_price(double yld, int32_t freq, const double* amts, const double* times, int32_t count,
                      uint32_t* err) {
    double v = 0.0;
    if (!period_factor(yld, freq, &v, err)) return 0.0;
    return treasury(v, v - 1.0, amts, times, count);
}

double treasury_yield(double price, int32_t freq, int32_t prec, const double* amts, const double* times,
                      int32_t count, uint32_t* err) {
    auto price_at = [&](double y, uint32_t* e) { return treasury_price(y, freq, amts, times, count, e); };
    return solve_price(price, standard_start, tolerance(prec), price_at, err);
}

double discount_price(double disc, const double* amts, const double* times, int32_t count) {
    double sum = 0.0;
    for (int32_t k = 0; k < count; ++k) sum += amts[k] * (1.0 - disc * times[k] / 100.0);
    return sum;
}

double discount_rate(double price, const double* amts, const double* times, int32_t count, uint32_t* err) {
    for (int32_t k = 0; k < count; ++k) {
        if (amts[k] == 0.0 || times[k] == 0.0) return failed(err, ORVEL_E_CFS_NO_DISC);
    }
    double sum = 0.0;
    for (int32_t k = 0; k < count; ++k) sum += 100.0 * (1.0 - price / amts[k]) / times[k];
    return sum;
}

}  // namespace orvel::cfs

namespace {

using namespace orvel::cfs;
using orvel::Check;

// The checks of a core form: the given value by its kind, then what `more` adds, then the set.
template <class More>
bool checked(double given, int32_t kind, const double* amts, const double* times, int32_t count, int32_t validate,
             uint32_t* err_code, More more) {
    if (count > max_flows) return orvel::fail(err_code, ORVEL_E_CFS_COUNT);
    if (validate == 0) return true;
    return Check(err_code).call(0, ok_given, given, kind).step(more).ok() &&
           valid_set(amts, times, count, validate, err_code);
}

auto freq_and_prec(int32_t freq, int32_t prec) {
    return [=](uint32_t* e) { return valid_freq(freq, e) && (prec < 0 || valid_prec(prec, e)); };
}

auto nothing_more() {
    return [](uint32_t*) { return true; };
}

}  // namespace

ORVEL_EXPORT(double) cfs_p(double yld, int32_t freq, const double* amts, const double* times, int32_t count,
                           int32_t validate, uint32_t* err_code) {
    if (!checked(yld, 11, amts, times, count, validate, err_code, freq_and_prec(freq, -1))) return 0.0;
    return periodic_price(yld, freq, amts, times, count, err_code);
}

ORVEL_EXPORT(double) cfs_y(double price, int32_t freq, int32_t prec, const double* amts, const double* times,
                           int32_t count, int32_t validate, uint32_t* err_code) {
    if (!checked(price, 12, amts, times, count, validate, err_code, freq_and_prec(freq, prec))) return 0.0;
    return periodic_yield(price, freq, prec, amts, times, count, standard_start, err_code);
}

ORVEL_EXPORT(double) cfs_yg(double price, int32_t freq, int32_t prec, const double* amts, const double* times,
                            int32_t count, double guess, int32_t validate, uint32_t* err_code) {
    auto more = [&](uint32_t* e) {
        return freq_and_prec(freq, prec)(e) && (orvel::finite(guess) || orvel::fail(e, ORVEL_E_CFS_RATE));
    };
    if (!checked(price, 12, amts, times, count, validate, err_code, more)) return 0.0;
    const double g = guess == 1.0 ? 1.1 : guess;
    const double start[3] = {g, g - 1.0, g + 1.0};
    return periodic_yield(price, freq, prec, amts, times, count, start, err_code);
}

ORVEL_EXPORT(double) cfs_mm_p(double yld, const double* amts, const double* times, int32_t count, int32_t validate,
                              uint32_t* err_code) {
    if (!checked(yld, 11, amts, times, count, validate, err_code, nothing_more())) return 0.0;
    return simple_discounted(yld, amts, times, count);
}

ORVEL_EXPORT(double) cfs_mm_y(double price, int32_t prec, const double* amts, const double* times, int32_t count,
                              int32_t validate, uint32_t* err_code) {
    auto more = [&](uint32_t* e) { return valid_prec(prec, e); };
    if (!checked(price, 12, amts, times, count, validate, err_code, more)) return 0.0;
    return mm_yield(price, prec, amts, times, count, err_code);
}

ORVEL_EXPORT(double) cfs_ustp_p(double yld, int32_t freq, const double* amts, const double* times, int32_t count,
                                int32_t /*rsv1*/, int32_t /*rsv2*/, int32_t /*rsv3*/, int32_t validate,
                                uint32_t* err_code) {
    if (!checked(yld, 1, amts, times, count, validate, err_code, freq_and_prec(freq, -1))) return 0.0;
    return treasury_price(yld, freq, amts, times, count, err_code);
}

ORVEL_EXPORT(double) cfs_ustp_y(double price, int32_t freq, int32_t prec, const double* amts, const double* times,
                                int32_t count, int32_t /*rsv1*/, int32_t /*rsv2*/, int32_t /*rsv3*/, int32_t validate,
                                uint32_t* err_code) {
    if (!checked(price, 2, amts, times, count, validate, err_code, freq_and_prec(freq, prec))) return 0.0;
    return treasury_yield(price, freq, prec, amts, times, count, err_code);
}

ORVEL_EXPORT(double) cfs_d2p(double disc, const double* amts, const double* times, int32_t count, int32_t validate,
                             uint32_t* err_code) {
    if (!checked(disc, 3, amts, times, count, validate, err_code, nothing_more())) return 0.0;
    return discount_price(disc, amts, times, count);
}

ORVEL_EXPORT(double) cfs_p2d(double price, const double* amts, const double* times, int32_t count, int32_t validate,
                             uint32_t* err_code) {
    if (!checked(price, 11, amts, times, count, validate, err_code, nothing_more())) return 0.0;
    return discount_rate(price, amts, times, count, err_code);
}
