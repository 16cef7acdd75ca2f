// Street and true yields: the street yield discounts the coupon dates as scheduled, the true yield the days
// they are actually paid, a date on a weekend or holiday rolled to the following business day.
#include "bond/accrued.hpp"
#include "bond/dates.hpp"
#include "bond/kernels.hpp"
#include "bond/price_yield.hpp"
#include "bond/street.hpp"
#include "calendar/business.hpp"
#include "core/check.hpp"
#include "core/power.hpp"
#include "orvel/bond.h"

namespace {

using orvel::Date;
using orvel::bond::Reduced;

// The payments of a reduced schedule with the delay of each: flow k falls on its coupon date (the odd
// first coupon on the first coupon date, the others stepped back from maturity) and is paid
// delay(k) coupon periods later, the days it is rolled over the actual days of the period it ends.
struct Payments {
    Date mat, first_cpn;
    bool before_first;
    Reduced r;
    int32_t cpn_freq, eom;
    orvel::cal::Holidays holidays;

    Date due(int32_t k, int32_t back) const {
        if (k == 0 && before_first) return orvel::bond::step_periods(first_cpn, -back, cpn_freq, eom);
        return orvel::bond::step_periods(mat, k - r.n_after - back, cpn_freq, eom);
    }

    double delay(int32_t k) const {
        const Date date = due(k, 0);
        const int64_t j = orvel::cal::jdn(date.m, date.d, date.y);
        const int64_t paid = orvel::cal::roll(j, 1, holidays);
        if (paid == j) return 0.0;
        const Date start = due(k, 1);
        const int64_t period = j - orvel::cal::jdn(start.m, start.d, start.y);
        return period > 0 ? static_cast<double>(paid - j) / static_cast<double>(period) : 0.0;
    }
};

// The flows paid late, found once before the solve so that each price evaluation only discounts. Beyond
// late_capacity of them (only bonds of more than 40 years of monthly coupons come near) the delays are
// looked up again in each evaluation instead.
constexpr int32_t late_capacity = 512;

class LateFlows {
public:
    explicit LateFlows(const Payments& p) : p_(p) {
        for (int32_t k = 0; k <= p.r.n_after; ++k) {
            const double d = p.delay(k);
            if (d == 0.0) continue;
            if (count_ == late_capacity) {
                count_ = -1;
                return;
            }
            late_[count_++] = {k, d};
        }
    }

    // Full price at yld: the next coupon at nxt_frac + delay(0) periods, the later coupons and the
    // redemption at nxt_frac + k + delay(k), compounding once a period.
    double value(double yld, double cpn_rate, double redemptn, uint32_t* err) const {
        const double v = 1.0 + yld / (100.0 * p_.cpn_freq);
        if (!(v > 0.0)) return orvel::bond::fail_price(err, ORVEL_E_NEG_BASE);
        const double coupon = cpn_rate / p_.cpn_freq;
        double discount = orvel::pow(v, -p_.r.nxt_frac);
        const double log_v = orvel::log(v);  // a delay d discounts by exp(-d log v) = v^-d
        double pv = 0.0;
        int32_t next = 0;  // the next entry of late_ to meet
        for (int32_t k = 0; k <= p_.r.n_after; ++k) {
            if (k > 0) discount /= v;
            const double flow = (k == 0 ? p_.r.cpn_amt : coupon) + (k == p_.r.n_after ? redemptn : 0.0);
            double d = 0.0;
            if (count_ < 0) d = p_.delay(k);
            else if (next < count_ && late_[next].k == k) d = late_[next++].delay;
            pv += flow * (d == 0.0 ? discount : discount * orvel::exp(-d * log_v));
        }
        return pv;
    }

private:
    struct Late {
        int32_t k;
        double delay;
    };
    const Payments& p_;
    Late late_[late_capacity];
    int32_t count_ = 0;  // -1: more than late_capacity
};

}  // namespace

double orvel::bond::true_yield(const Date& settle, const Date& mat, Date dated, Date first_cpn, const Reduced& r,
                               double ai, double price, double cpn_rate, double redemptn, int32_t cpn_freq,
                               int32_t eom, int32_t hol_count, const int32_t* holidays, uint32_t* err,
                               SolveStats* stats) {
    default_first_period(mat, &dated, &first_cpn, cpn_freq, eom);
    const Payments pay{mat, first_cpn, days_between(settle, first_cpn, actual_days) > 0, r, cpn_freq, eom,
                       {holidays, hol_count}};
    if (r.n_after == 0)  // the final period, by simple interest to the day the last payment is made
        return yield_l1p(price, cpn_rate, redemptn, 0.0, cpn_freq, r.nxt_frac + pay.delay(0), ai, err);
    const LateFlows late(pay);
    const double guess = yield_guess(price, cpn_rate, redemptn, r.n_after, r.nxt_frac);
    return solve_yield(
        price, guess, [&](double y, uint32_t* e) { return late.value(y, cpn_rate, redemptn, e) - ai; }, err, stats);
}

ORVEL_EXPORT(void) bond_st_ylds(double price, double cpn_rate, double redemptn, int32_t day_type, int32_t eom,
                                int32_t cpn_freq, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, int32_t hol_count,
                                const int32_t* holidays, double* street_yld, double* true_yld, int32_t validate,
                                uint32_t* err_code) {
    using namespace orvel::bond;
    if (!orvel::cal::readable({holidays, hol_count})) {
        *err_code = ORVEL_E_HOL_COUNT;
        return;
    }
    if (validate != 0 &&
        !orvel::Check(err_code).call(0, ok_given, price, 2).call(0, ok_redemptn, redemptn).ok())
        return;
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    Reduced r;
    uint32_t err = 0;
    const double ai = accrued(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, validate, &r, &err);
    if (err == 0 && validate != 0) {
        uint32_t scratch = 0;
        if (!ok_hol_table(hol_count, holidays, &scratch)) err = scratch;
    }
    if (err == 0 && !(r.n_after >= 0 && r.n_after <= max_walk_periods)) err = ORVEL_E_FULL_PER;
    const double street =
        err != 0 ? 0.0 : yield_on(r, ai, price, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, &err, nullptr);
    const double actual = err != 0 ? 0.0
                                   : true_yield(settle, mat, dated, first_cpn, r, ai, price, cpn_rate, redemptn,
                                                cpn_freq, eom, hol_count, holidays, &err, nullptr);
    if (err != 0) {
        *err_code = err;
        return;
    }
    *street_yld = street;
    *true_yld = actual;
}
