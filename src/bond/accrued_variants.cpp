// Accrued interest seen through an ex-dividend rule or from the trade date, and the coupon payments and
// one day's interest of a holding: each a thin layer over bond_ai.
#include "bond/accrued.hpp"
#include "bond/dates.hpp"
#include "bond/kernels.hpp"
#include "bond/market.hpp"
#include "core/check.hpp"
#include "groups/dates.hpp"
#include "orvel/bond.h"
#include "schedule/odd_periods.hpp"

namespace orvel::bond {

Coupons coupons_around(const Date& date, const Date& mat, Date dated, Date first_cpn, int32_t eom, int32_t cpn_freq) {
    default_first_period(mat, &dated, &first_cpn, cpn_freq, eom);
    const auto b = schedule::odd_period_of(date, {mat, dated, first_cpn, Date{0, 0, 0}, eom, cpn_freq});
    return {b.pcd, b.ncd};
}

namespace {

constexpr double one_365th = 0.0027397260273972603;

// Settlement inside the ex-dividend window: the ex-dividend date on or before the test date and
// settlement before the coupon date that ends the ex-dividend date's period. That coupon date in *next.
bool in_ex_window(const Date& test, const Date& settle, const Date& exdiv, const Date& mat, const Date& dated,
                  const Date& first_cpn, int32_t eom, int32_t cpn_freq, Date* next) {
    *next = coupons_around(exdiv, mat, dated, first_cpn, eom, cpn_freq).next;
    return days_between(exdiv, test, actual_days) >= 0 && days_between(settle, *next, actual_days) > 0;
}

}  // namespace

double ex_rule(double ai, const Reduced& r, const Date& trade, const Date& settle, const Date& exdiv, int32_t ex_type,
               const Date& mat, const Date& dated, const Date& first_cpn, double cpn_rate, int32_t day_type,
               int32_t eom, int32_t cpn_freq, uint32_t* err) {
    if (ex_type == 0) return ai;
    if (ex_type != 1 && ex_type != 2) return fail_price(err, ORVEL_E_EX_TYPE);
    Date next;
    if (!in_ex_window(ex_type == 1 ? settle : trade, settle, exdiv, mat, dated, first_cpn, eom, cpn_freq, &next))
        return ai;
    // The buyer pays back the interest from settlement to the coupon the seller receives: by days over a
    // 365-day year where the basis has one, else as the accrued interest less the whole coupon.
    if (cal::fixed_year_basis(day_type) == 365)
        return -static_cast<double>(days_between(settle, next, day_type)) * cpn_rate * one_365th;
    return ai - r.cpn_amt;
}

double ex_accrued(const Date& trade, const Date& settle, const Date& exdiv, int32_t ex_type, const Date& mat,
                  const Date& dated, const Date& first_cpn, double cpn_rate, int32_t day_type, int32_t eom,
                  int32_t cpn_freq, Reduced* out, uint32_t* err) {
    const double ai = reduce(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, out);
    return ex_rule(ai, *out, trade, settle, exdiv, ex_type, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq,
                   err);
}

double pp_rule(double ai, const Reduced& r, const Date& settle, const Date& exdiv, int32_t ex_type, const Date& mat,
               const Date& dated, const Date& first_cpn, int32_t eom, int32_t cpn_freq, uint32_t* err) {
    if (ex_type == 0) return ai;
    if (ex_type != 1) return fail_price(err, ORVEL_E_EX_TYPE);
    Date next;
    // Ex-dividend: the buyer is owed the coupon's share of the period from settlement to the scheduled date.
    return in_ex_window(settle, settle, exdiv, mat, dated, first_cpn, eom, cpn_freq, &next) ? ai - r.cpn_amt : ai;
}

double pp_accrued(const Date& settle, const Date& exdiv, int32_t ex_type, const Date& mat, const Date& dated,
                  const Date& first_cpn, double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq,
                  Reduced* out, uint32_t* err) {
    const double ai = reduce(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, out);
    return pp_rule(ai, *out, settle, exdiv, ex_type, mat, dated, first_cpn, eom, cpn_freq, err);
}

}  // namespace orvel::bond

namespace {

using orvel::Date;
using orvel::bond::Coupons;
using orvel::bond::coupons_around;

// A bond seen from any date: bond_ai there, giving the accrued interest and the next coupon.
struct BondTerms {
    Date mat, dated, first_cpn;
    double cpn_rate;
    int32_t day_type, eom, cpn_freq;

    double accrued_at(const Date& at, int32_t validate, double* cpn_amt, uint32_t* err) const {
        orvel::bond::Reduced r;
        const double ai = orvel::bond::accrued(at, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, validate,
                                               &r, err);
        *cpn_amt = r.cpn_amt;
        return ai;
    }
};

using orvel::bond::holding;

}  // namespace

ORVEL_EXPORT(double) bond_ex_ai(int32_t trade_m, int32_t trade_d, int32_t trade_y, int32_t settle_m, int32_t settle_d,
                                int32_t settle_y, int32_t exdiv_m, int32_t exdiv_d, int32_t exdiv_y, int32_t ex_type,
                                int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                                int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                                double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq, double* nxt_frac,
                                double* cpn_amt, int32_t* n_after, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && ex_type != 0 &&
        !orvel::Check(err_code)
             .call(0, ok_exdiv_MDY, exdiv_m, exdiv_d, exdiv_y, settle_m, settle_d, settle_y, mat_m, mat_d, mat_y,
                   dated_m, dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, day_type, eom, cpn_freq)
             .step([&](uint32_t* e) {
                 return ex_type != 2 ||
                        ok_trade_MDY(trade_m, trade_d, trade_y, mat_m, mat_d, mat_y, dated_m, dated_d, dated_y, e);
             })
             .ok())
        return 0.0;
    uint32_t err = 0;
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    orvel::bond::Reduced r;
    // bond_ai's own checks (and its date defaults) with the caller's validate; its outputs are written
    // before the ex-dividend rule runs.
    const double ai = orvel::bond::accrued(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, validate,
                                           &r, &err);
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    *nxt_frac = r.nxt_frac;
    *cpn_amt = r.cpn_amt;
    *n_after = r.n_after;
    const Date trade{trade_m, trade_d, trade_y}, exdiv{exdiv_m, exdiv_d, exdiv_y};
    const double ex = orvel::bond::ex_rule(ai, r, trade, settle, exdiv, ex_type, mat, dated, first_cpn, cpn_rate,
                                           day_type, eom, cpn_freq, &err);
    return err != 0 ? orvel::bond::fail_price(err_code, err) : ex;
}

ORVEL_EXPORT(double) bond_fpi(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
                              int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                              int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                              int32_t first_cpn_d, int32_t first_cpn_y, double face_k, int32_t validate,
                              uint32_t* err_code) {
    if (validate != 0 && !orvel::bond::valid_face(face_k)) return orvel::bond::fail_price(err_code, ORVEL_E_FACE);
    const BondTerms bond{{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y},
                         cpn_rate, day_type, eom, cpn_freq};
    double cpn_amt = 0.0;
    uint32_t err = 0;
    bond.accrued_at(Date{settle_m, settle_d, settle_y}, validate, &cpn_amt, &err);
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    return holding(cpn_amt, face_k);
}

ORVEL_EXPORT(double) bond_td_ai(int32_t trade_m, int32_t trade_d, int32_t trade_y, int32_t settle_m, int32_t settle_d,
                                int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
                                int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d,
                                int32_t first_cpn_y, double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq,
                                double* nxt_frac, double* cpn_amt, int32_t* n_after, int32_t validate,
                                uint32_t* err_code) {
    if (validate != 0 && !ok_trade_MDY(trade_m, trade_d, trade_y, mat_m, mat_d, mat_y, dated_m, dated_d, dated_y,
                                       err_code))
        return 0.0;
    uint32_t err = 0;
    const double ai = orvel::bond::accrued_to({settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y},
                                              {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y},
                                              cpn_rate, day_type, eom, cpn_freq, nxt_frac, cpn_amt, n_after, validate,
                                              &err);
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    const Date trade{trade_m, trade_d, trade_y};
    const Coupons around = coupons_around(Date{settle_m, settle_d, settle_y}, Date{mat_m, mat_d, mat_y},
                                          Date{dated_m, dated_d, dated_y}, Date{first_cpn_m, first_cpn_d, first_cpn_y},
                                          eom, cpn_freq);
    if (orvel::bond::days_between(trade, around.previous, orvel::bond::actual_days) <= 0) return ai;
    // A coupon fell between trade and settlement: the buyer also owes the coupon of the trade's period.
    return ai + bond_fpi(day_type, eom, cpn_freq, cpn_rate, trade_m, trade_d, trade_y, mat_m, mat_d, mat_y, dated_m,
                         dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, 0.1, 0, err_code);
}

ORVEL_EXPORT(double) bond_1di(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
                              int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                              int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                              int32_t first_cpn_d, int32_t first_cpn_y, double face_k, int32_t validate,
                              uint32_t* err_code) {
    if (validate != 0 && !orvel::bond::valid_face(face_k)) return orvel::bond::fail_price(err_code, ORVEL_E_FACE);
    const BondTerms bond{{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y},
                         cpn_rate, day_type, eom, cpn_freq};
    const Date settle{settle_m, settle_d, settle_y};
    double cpn_amt = 0.0;
    uint32_t err = 0;
    const double today = bond.accrued_at(settle, validate, &cpn_amt, &err);  // validates, even on the dated date
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    if (dated_m != 0 && settle_m == dated_m && settle_d == dated_d && settle_y == dated_y) return 0.0;
    const double yesterday = bond.accrued_at(orvel::bond::step_days(settle, -1), 0, &cpn_amt, &err);
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    double day = today - yesterday;
    if (day < 0.0) day = cpn_amt - yesterday;  // a coupon paid on settlement restarted the accrual
    return holding(day, face_k);
}

ORVEL_EXPORT(double) bond_pip(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
                              int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                              int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                              int32_t first_cpn_d, int32_t first_cpn_y, double face_k, int32_t validate,
                              uint32_t* err_code) {
    if (validate != 0 && !orvel::bond::valid_face(face_k)) return orvel::bond::fail_price(err_code, ORVEL_E_FACE);
    const BondTerms bond{{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y},
                         cpn_rate, day_type, eom, cpn_freq};
    Date settle{settle_m, settle_d, settle_y};
    // At maturity the period is the last one: look at it from inside.
    if (orvel::bond::days_between(settle, bond.mat, day_type) == 0) settle = orvel::bond::step_days(settle, -2);
    double cpn_amt = 0.0;
    uint32_t err = 0;
    bond.accrued_at(settle, validate, &cpn_amt, &err);
    if (err != 0) return orvel::bond::fail_price(err_code, err);
    const bool on_coupon_date = orvel::same_cycle(settle, bond.mat, eom, cpn_freq);
    const bool is_dated = settle.m == dated_m && settle.d == dated_d && settle.y == dated_y;
    if (on_coupon_date && !is_dated) {
        // Report the coupon paid on settlement, i.e. the one of the period that ends there.
        bond.accrued_at(orvel::bond::step_days(settle, -1), 0, &cpn_amt, &err);
        if (err != 0) return orvel::bond::fail_price(err_code, err);
    }
    return holding(cpn_amt, face_k);
}
