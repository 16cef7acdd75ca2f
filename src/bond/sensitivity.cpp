// Price and yield with income and capital-gains taxes, and the price and yield sensitivities of a bond
// given by its dates: the price value of a basis point, the yield value of a price move, the value of a
// price point.
#include "bond/accrued.hpp"
#include "bond/final_period.hpp"
#include "bond/kernels.hpp"
#include "bond/price_yield.hpp"
#include "core/check.hpp"
#include "orvel/bond.h"

namespace {

using orvel::Date;
using orvel::bond::Reduced;

// A bond reduced at settlement (method 1, the odd first coupon priced), with its untaxed price and yield
// from a yield (calc_type 1) or a clean price (calc_type 2).
struct Priced {
    Reduced r;
    double ai = 0.0, price = 0.0, yld = 0.0;
};

bool price_and_yield(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                     double cpn_rate, const Date& settle, const Date& mat, const Date& dated, const Date& first_cpn,
                     double redemptn, double tax1, double tax2, int32_t validate, uint32_t* err_code, Priced* out) {
    using namespace orvel::bond;
    if (validate != 0 &&
        !orvel::Check(err_code)
             .call(0, ok_bond_in, day_type, eom, cpn_freq, calc_type, given, cpn_rate, settle.m, settle.d, settle.y,
                   mat.m, mat.d, mat.y, dated.m, dated.d, dated.y, first_cpn.m, first_cpn.d, first_cpn.y, redemptn,
                   tax1, tax2)
             .ok())
        return false;
    if (calc_type != 1 && calc_type != 2) return orvel::fail(err_code, ORVEL_E_SELECTOR);
    out->ai = reduce(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, &out->r);
    uint32_t err = 0;
    out->yld = calc_type == 1 ? given
                              : yield_on(out->r, out->ai, given, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, &err, nullptr);
    out->price =
        calc_type == 2 ? given : price_on(out->r, out->ai, given, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, &err);
    return err == 0 || orvel::fail(err_code, err);
}

// (P(y - 0.01) - P(y + 0.01)) / 2: the clean price change per 100 for a basis point, as bond_risk gives it.
double pvbp_of(const Priced& p, double cpn_rate, double redemptn, int32_t cpn_freq, uint32_t* err) {
    using orvel::bond::price_on;
    const double down = price_on(p.r, p.ai, p.yld - 0.01, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, err);
    const double up = price_on(p.r, p.ai, p.yld + 0.01, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, err);
    return (down - up) / 2.0;
}

}  // namespace

ORVEL_EXPORT(void) bond_py_tax(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                               double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                               int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                               int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double redemptn,
                               double inc_tax, double cg_tax, double* price, double* yld_at, double* yld_bt,
                               double* ai, int32_t validate, uint32_t* err_code) {
    using namespace orvel::bond;
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    if (validate != 0 &&
        !orvel::Check(err_code)
             .call(0, ok_bond_in, day_type, eom, cpn_freq, calc_type, given, cpn_rate, settle_m, settle_d, settle_y,
                   mat_m, mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, redemptn,
                   inc_tax, cg_tax)
             .ok())
        return;
    if (calc_type != 1 && calc_type != 2) {
        *err_code = ORVEL_E_SELECTOR;
        return;
    }
    Reduced r;
    const double accrued = reduce(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, &r);
    // The final period by simple interest with the gains tax of its own; earlier, the compound kernel,
    // whose second tax already falls on the gain to redemption.
    const FinalPeriod last{cpn_rate, redemptn, tax_fraction(inc_tax), tax_fraction(cg_tax), cpn_freq, r.nxt_frac,
                           accrued};
    uint32_t err = 0;
    double p = given, after_tax = given;
    if (calc_type == 1)
        p = r.n_after >= 1 ? price_on(r, accrued, given, cpn_rate, redemptn, inc_tax, cg_tax, cpn_freq, &err)
                           : price_final(last, given, &err);
    else
        after_tax = r.n_after >= 1
                        ? yield_on(r, accrued, given, cpn_rate, redemptn, inc_tax, cg_tax, cpn_freq, &err, nullptr)
                        : yield_final(last, given, &err);
    const double before_tax =
        err != 0 ? 0.0 : yield_on(r, accrued, p, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, &err, nullptr);
    if (err != 0) {
        *err_code = err;
        return;
    }
    *price = p;
    *yld_at = after_tax;
    *yld_bt = before_tax;
    *ai = accrued;
}

ORVEL_EXPORT(void) bond_py_vol(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                               double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                               int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                               int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double redemptn,
                               double price_move, double* price, double* yld, double* pvbp, double* yv_move,
                               int32_t validate, uint32_t* err_code) {
    Priced p;
    if (!price_and_yield(day_type, eom, cpn_freq, calc_type, given, cpn_rate, Date{settle_m, settle_d, settle_y},
                         Date{mat_m, mat_d, mat_y}, Date{dated_m, dated_d, dated_y},
                         Date{first_cpn_m, first_cpn_d, first_cpn_y}, redemptn, 0.0, 0.0, validate, err_code, &p))
        return;
    if (!(price_move > 0.0 && price_move <= 100.0)) {
        *err_code = ORVEL_E_PRICE_MOVE;
        return;
    }
    uint32_t err = 0;
    const double bp = pvbp_of(p, cpn_rate, redemptn, cpn_freq, &err);
    using orvel::bond::yield_on;
    const double y_down =
        err != 0 ? 0.0
                 : yield_on(p.r, p.ai, p.price - price_move, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, &err, nullptr);
    const double y_up =
        err != 0 ? 0.0
                 : yield_on(p.r, p.ai, p.price + price_move, cpn_rate, redemptn, 0.0, 0.0, cpn_freq, &err, nullptr);
    if (err != 0) {
        *err_code = err;
        return;
    }
    *price = p.price;
    *yld = p.yld;
    *pvbp = bp;
    *yv_move = (y_down - y_up) / 2.0;
}

ORVEL_EXPORT(double) bond_pp_vpp(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                 int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                 int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double redemptn,
                                 double* price, double* yld, int32_t validate, uint32_t* err_code) {
    Priced p;
    if (!price_and_yield(day_type, eom, cpn_freq, calc_type, given, cpn_rate, Date{settle_m, settle_d, settle_y},
                         Date{mat_m, mat_d, mat_y}, Date{dated_m, dated_d, dated_y},
                         Date{first_cpn_m, first_cpn_d, first_cpn_y}, redemptn, 0.0, 0.0, validate, err_code, &p))
        return 0.0;
    uint32_t err = 0;
    const double bp = pvbp_of(p, cpn_rate, redemptn, cpn_freq, &err);
    if (err == 0 && !(bp > 0.0)) err = ORVEL_E_NEG_BASE;  // a price that does not fall as the yield rises
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    *price = p.price;
    *yld = p.yld;
    return 0.01 / bp;  // percent of yield per point of price
}
