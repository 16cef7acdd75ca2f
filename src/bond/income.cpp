// Income measures on the reduced schedule: current yield and income to maturity with reinvestment.
#include <cmath>

#include "bond/market.hpp"
#include "core/check.hpp"
#include "core/power.hpp"
#include "core/validators.hpp"
#include "orvel/bond.h"

ORVEL_EXPORT(double) bond_cur_yld(double cpn_rate, double price, double tax1) {
    // Unlike the price kernels, a tax of exactly 1.0 is read here as a fraction: 100%.
    const double t = tax1 <= 1.0 ? tax1 : tax1 * 0.01;
    return (1.0 - t) * cpn_rate / price * 100.0;
}

ORVEL_EXPORT(void) bond_int_ioi(double yld, int32_t cpn_freq, double cpn_rate, double cpn_amt, int32_t n_after,
                                double nxt_frac, double* tot_int, double* cpn_int, double* ioi, int32_t validate,
                                uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .expect(orvel::finite(yld), ORVEL_E_GIVEN_BASE + 1)
                              .call(0, ok_cpn_rate, cpn_rate)
                              .call(0, ok_cpn_freq, cpn_freq)
                              .call(0, ok_full_per, n_after)
                              .call(0, ok_days_pcnt, nxt_frac)
                              .call(1, ok_cpn_rate, cpn_amt)
                              .ok())
        return;
    const orvel::bond::Income in = orvel::bond::income_to_maturity(yld, cpn_freq, cpn_rate, cpn_amt, n_after, nxt_frac);
    *tot_int = in.tot_int;
    *ioi = in.ioi;
    *cpn_int = in.cpn_int;
}

orvel::bond::Income orvel::bond::income_to_maturity(double yld, int32_t cpn_freq, double cpn_rate, double cpn_amt,
                                                    int32_t n_after, double nxt_frac) {
    const double f = static_cast<double>(cpn_freq);
    const double n = static_cast<double>(n_after);
    const double p = cpn_rate / f;
    const double coupons = n * p + (nxt_frac != 0.0 ? cpn_amt : 0.0);
    double total = coupons;
    if (yld != 0.0) {
        // The later coupons form an annuity at g; the next coupon grows for all n periods.
        const double g = yld / (f * 100.0);
        const double grown = orvel::pow(1.0 + g, n);
        total = (grown - 1.0) / g * p + grown * cpn_amt;
    }
    const double interest_on_interest = total - coupons;
    return {total, total - interest_on_interest, interest_on_interest};
}
