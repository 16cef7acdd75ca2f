// The dated forms of the cash-flow sets: flow dates turned into times from settlement, then the timed
// price or yield; durations and convexity; the search for the latest or earliest date of a set.
#include "calendar/day_count.hpp"
#include "cashflow/cfs.hpp"
#include "core/validators.hpp"
#include "orvel/cashflow.h"

namespace {

using namespace orvel::cfs;
using orvel::Check;
using orvel::Date;

bool is_yield(int32_t given_type) { return given_type == 1 || given_type == 11; }
bool is_price(int32_t given_type) { return given_type == 2 || given_type == 12; }

// The flows of a dated call: their amounts and dates, and the settlement they are timed from.
struct Dated {
    Date settle;
    const double* amts;
    const int32_t* cf_m;
    const int32_t* cf_d;
    const int32_t* cf_y;
    int32_t count;

    bool valid(int32_t validate, uint32_t* err) const {
        return valid_dated(settle, amts, cf_m, cf_d, cf_y, count, validate, err);
    }
    void time(int32_t day_type, int32_t eom, int32_t freq, double* times_out) const {
        flow_times(settle, cf_m, cf_d, cf_y, count, day_type, eom, freq, times_out);
    }
};

// The checks of a combined form in their order: the given value (validate), the kind it is given as
// against the kinds the form takes (always), the day count, what `more` adds (validate), then the set.
template <class Accepts, class More>
bool checked(double given, int32_t given_type, Accepts accepts, int32_t day_type, const Dated& set, int32_t validate,
             uint32_t* err_code, More more) {
    if (validate != 0 && !Check(err_code).call(0, ok_given, given, given_type).ok()) return false;
    if (!accepts(given_type)) return orvel::fail(err_code, ORVEL_E_SELECTOR);
    if (validate != 0 && !Check(err_code).call(0, ok_day_type, day_type).step(more).ok()) return false;
    return set.valid(validate, err_code);
}

auto periodic_checks(int32_t freq, int32_t prec) {
    return [=](uint32_t* e) { return valid_freq(freq, e) && valid_prec(prec, e); };
}

// The checks and the sums of cfs_dur and cfs_cvx; false with the error written. P (the price given, or
// the value of the flows) goes to m->value.
bool risk_sums(double price, double yld, int32_t day_type, int32_t eom, int32_t freq, const Dated& set,
               double* times_out, int32_t validate, uint32_t* err_code, double* v, Moments* m) {
    if (validate != 0 && !Check(err_code)
                              .call(0, ok_given, yld, 11)
                              .step([&](uint32_t* e) { return price == 0.0 || ok_given(price, 12, e) != 0; })
                              .call(0, ok_day_type, day_type)
                              .step([&](uint32_t* e) { return valid_freq(freq, e); })
                              .ok())
        return false;
    if (!set.valid(validate, err_code) || !period_factor(yld, freq, v, err_code)) return false;
    set.time(day_type, eom, freq, times_out);
    *m = moments(*v, set.amts, times_out, set.count);
    if (price != 0.0) m->value = price;
    return m->value != 0.0 || orvel::fail(err_code, ORVEL_E_CFS_VALUE);
}

}  // namespace

ORVEL_EXPORT(double) cfs_py(double given, int32_t given_type, int32_t day_type, int32_t eom, int32_t freq, int32_t prec,
                            int32_t settle_m, int32_t settle_d, int32_t settle_y, const double* amts,
                            const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y, int32_t count,
                            double* times_out, int32_t validate, uint32_t* err_code) {
    const Dated set{{settle_m, settle_d, settle_y}, amts, cf_m, cf_d, cf_y, count};
    auto accepts = [](int32_t t) { return is_yield(t) || is_price(t); };
    if (!checked(given, given_type, accepts, day_type, set, validate, err_code, periodic_checks(freq, prec)))
        return 0.0;
    set.time(day_type, eom, freq, times_out);
    if (is_yield(given_type)) return periodic_price(given, freq, amts, times_out, count, err_code);
    return periodic_yield(given, freq, prec, amts, times_out, count, standard_start, err_code);
}

ORVEL_EXPORT(double) cfs_pyg(double given, int32_t given_type, int32_t day_type, int32_t eom, int32_t freq,
                             int32_t prec, int32_t settle_m, int32_t settle_d, int32_t settle_y, const double* amts,
                             const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y, int32_t count,
                             double* times_out, double guess, int32_t validate, uint32_t* err_code) {
    const Dated set{{settle_m, settle_d, settle_y}, amts, cf_m, cf_d, cf_y, count};
    auto accepts = [](int32_t t) { return is_yield(t) || is_price(t); };
    auto more = [&](uint32_t* e) {
        return periodic_checks(freq, prec)(e) && (orvel::finite(guess) || orvel::fail(e, ORVEL_E_CFS_RATE));
    };
    if (!checked(given, given_type, accepts, day_type, set, validate, err_code, more)) return 0.0;
    set.time(day_type, eom, freq, times_out);
    if (is_yield(given_type)) return periodic_price(given, freq, amts, times_out, count, err_code);
    const double g = guess == 1.0 ? 1.1 : guess;
    const double start[3] = {g, g - 1.0, g + 1.0};
    return periodic_yield(given, freq, prec, amts, times_out, count, start, err_code);
}

ORVEL_EXPORT(double) cfs_mm_py(double given, int32_t given_type, int32_t day_type, int32_t eom, int32_t freq,
                               int32_t prec, int32_t settle_m, int32_t settle_d, int32_t settle_y, const double* amts,
                               const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y, int32_t count,
                               double* times_out, int32_t validate, uint32_t* err_code) {
    const Dated set{{settle_m, settle_d, settle_y}, amts, cf_m, cf_d, cf_y, count};
    auto accepts = [](int32_t t) { return is_yield(t) || is_price(t); };
    auto more = [&](uint32_t* e) { return (count != 1 || valid_freq(freq, e)) && valid_prec(prec, e); };
    if (!checked(given, given_type, accepts, day_type, set, validate, err_code, more)) return 0.0;
    // One flow is timed in periods and its yield scaled by freq; several are timed in years.
    const int32_t unit = count == 1 ? freq : 1;
    const double s = static_cast<double>(unit);
    set.time(day_type, eom, unit, times_out);
    if (is_yield(given_type)) return simple_discounted(given / s, amts, times_out, count);
    return mm_yield(given, prec, amts, times_out, count, err_code) * s;  // 0.0 on failure
}

ORVEL_EXPORT(double) cfs_ustp_py(double given, int32_t given_type, int32_t day_type, int32_t eom, int32_t freq,
                                 int32_t prec, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                 const double* amts, const int32_t* cf_m, const int32_t* cf_d, const int32_t* cf_y,
                                 int32_t count, int32_t /*rsv1*/, int32_t /*rsv2*/, int32_t /*rsv3*/,
                                 double* times_out, int32_t validate, uint32_t* err_code) {
    const Dated set{{settle_m, settle_d, settle_y}, amts, cf_m, cf_d, cf_y, count};
    auto accepts = [](int32_t t) { return t == 1 || t == 2; };
    if (!checked(given, given_type, accepts, day_type, set, validate, err_code, periodic_checks(freq, prec)))
        return 0.0;
    set.time(day_type, eom, freq, times_out);
    if (given_type == 1) return treasury_price(given, freq, amts, times_out, count, err_code);
    return treasury_yield(given, freq, prec, amts, times_out, count, err_code);
}

ORVEL_EXPORT(double) cfs_pd(double given, int32_t given_type, int32_t day_type, int32_t eom, int32_t settle_m,
                            int32_t settle_d, int32_t settle_y, const double* amts, const int32_t* cf_m,
                            const int32_t* cf_d, const int32_t* cf_y, int32_t count, double* times_out,
                            int32_t validate, uint32_t* err_code) {
    const Dated set{{settle_m, settle_d, settle_y}, amts, cf_m, cf_d, cf_y, count};
    auto accepts = [](int32_t t) { return t == 3 || is_price(t); };
    auto more = [](uint32_t*) { return true; };
    if (!checked(given, given_type, accepts, day_type, set, validate, err_code, more)) return 0.0;
    set.time(day_type, eom, 1, times_out);
    if (given_type == 3) return discount_price(given, amts, times_out, count);
    return discount_rate(given, amts, times_out, count, err_code);
}

ORVEL_EXPORT(void) cfs_dur(double price, double yld, int32_t day_type, int32_t eom, int32_t freq, int32_t settle_m,
                           int32_t settle_d, int32_t settle_y, const double* amts, const int32_t* cf_m,
                           const int32_t* cf_d, const int32_t* cf_y, int32_t count, double* times_out,
                           double* mac_dur, double* mod_dur, int32_t validate, uint32_t* err_code) {
    const Dated set{{settle_m, settle_d, settle_y}, amts, cf_m, cf_d, cf_y, count};
    double v = 1.0;
    Moments m;
    if (!risk_sums(price, yld, day_type, eom, freq, set, times_out, validate, err_code, &v, &m)) return;
    const double mac = m.first / m.value / static_cast<double>(freq);
    *mac_dur = mac;
    *mod_dur = mac / v;
}

ORVEL_EXPORT(double) cfs_cvx(double price, double yld, int32_t day_type, int32_t eom, int32_t freq, int32_t settle_m,
                             int32_t settle_d, int32_t settle_y, const double* amts, const int32_t* cf_m,
                             const int32_t* cf_d, const int32_t* cf_y, int32_t count, double* times_out,
                             int32_t validate, uint32_t* err_code) {
    const Dated set{{settle_m, settle_d, settle_y}, amts, cf_m, cf_d, cf_y, count};
    double v = 1.0;
    Moments m;
    if (!risk_sums(price, yld, day_type, eom, freq, set, times_out, validate, err_code, &v, &m)) return 0.0;
    // sum (u + h) u a v^-t with u = t h and h = 1 / freq is h^2 sum (t^2 + t) a v^-t.
    const double h = 1.0 / static_cast<double>(freq);
    return h * h * (m.second + m.first) / (v * v * m.value);
}

ORVEL_EXPORT(int32_t) cfs_arrayloc(int32_t which, int32_t day_type, int32_t count, const int32_t* cf_m,
                                   const int32_t* cf_d, const int32_t* cf_y, double* rsv_p, int32_t rsv_i,
                                   double rsv_d, int32_t rsv1, int32_t rsv2, int32_t rsv3, int32_t validate,
                                   uint32_t* err_code) {
    const bool reserved_zero = (rsv_p == nullptr || *rsv_p == 0.0) && rsv_i == 0 && rsv_d == 0.0 && rsv1 == 0 &&
                               rsv2 == 0 && rsv3 == 0;
    auto dates_ok = [&](uint32_t* e) {
        for (int32_t k = 0; k < count; ++k)
            if (!orvel::is_valid(Date{cf_m[k], cf_d[k], cf_y[k]}))
                return orvel::fail(e, ORVEL_E_DATE_LIST_BASE + static_cast<uint32_t>(k));
        return true;
    };
    if (!Check(err_code)
             .expect(validate == 0 || reserved_zero, ORVEL_E_RESERVED)
             .expect(which == 1 || which == 2, ORVEL_E_DATE_WHICH)
             .step([&](uint32_t* e) { return validate == 0 || ok_day_type(day_type, e) != 0; })
             .expect(count <= ORVEL_DATE_LIST_MAX, ORVEL_E_LIST_LENGTH)
             .step([&](uint32_t* e) { return validate == 0 || dates_ok(e); })
             .ok())
        return 0;
    // The sign the day count from the best date so far to a later best must have: the first of equal
    // dates stays (under 30/360 the 30th and the 31st are one day).
    const int32_t sign = which == 1 ? 1 : -1;
    int32_t best = 0;
    for (int32_t k = 1; k < count; ++k) {
        const int32_t days = orvel::cal::days_by_type(day_type, cf_m[best], cf_d[best], cf_y[best], cf_m[k], cf_d[k],
                                                      cf_y[k]);
        if ((days > 0 ? 1 : days < 0 ? -1 : 0) == sign) best = k;
    }
    return best;
}
