// A bill given by its dates: the term split into half-years, every quote from any one of them, before or
// after tax, the coupon-equivalent yield, and the Japanese and US bill conventions on top.
#include "calendar/day_count.hpp"
#include "calendar/years.hpp"
#include "core/check.hpp"
#include "core/defaults.hpp"
#include "core/validators.hpp"
#include "money/discount.hpp"
#include "money/bills.hpp"
#include "orvel/money.h"

namespace orvel::money {

bool simple_term(Date settle, Date mat, int32_t day_type, Term* t, uint32_t* err) {
    t->days = cal::days_by_type(day_type, settle, mat);
    t->basis = cal::year_basis(day_type, settle);
    return t->basis != 0 || fail(err, code_error(day_type, ORVEL_E_DAY_TYPE));
}

bool split_term(Date settle, Date mat, int32_t day_type, int32_t act_yr_type, int32_t validate, Term* t,
                uint32_t* err) {
    if (validate != 0 && (act_yr_type == 2 || act_yr_type == 6))  // the year of a dated date
        return fail(err, with_role(ORVEL_E_BLANK, ORVEL_ROLE_DATED));
    if (!simple_term(settle, mat, day_type, t, err)) return false;
    t->act_year = cal::act_year(settle, Date{0, 0, 0}, mat, act_yr_type);
    if (!(t->act_year == 365 || t->act_year == 366)) return fail(err, ORVEL_E_ACT_YEAR);
    const double q = t->days / (t->act_year * 0.5);  // |q| < 2^31 / 182.5: the truncation fits
    t->full_per = static_cast<int32_t>(q);
    t->days_pcnt = q - t->full_per;
    return true;
}

bool simple_quotes(double value, int32_t calc_type, const Term& t, double redemptn, double tau, Quotes* q) {
    const double d = t.days, b = t.basis;
    q->price = calc_type == 2 ? value
               : calc_type == 1 ? price_from_yld(value, redemptn, d, b, tau)
                                : price_from_disc(value, redemptn, d, b, tau);
    q->yld = calc_type == 1 ? value : yld_from_price(q->price, redemptn, d, b, tau);
    q->disc = calc_type == 3 ? value : disc_from_price(q->price, redemptn, d, b, tau);
    return std::isfinite(q->price) && std::isfinite(q->yld) && std::isfinite(q->disc);
}

bool all_quotes(double value, int32_t calc_type, const Term& t, double redemptn, double tau, Quotes* q,
                uint32_t* err) {
    const bool compound = t.full_per > 0;
    const double to_actual = static_cast<double>(t.act_year) / t.basis;  // a yield of the basis year, moved
    uint32_t e = 0;
    if (calc_type <= 3) {
        if (!simple_quotes(value, calc_type, t, redemptn, tau, q)) return fail(err, ORVEL_E_NO_QUOTE);
    } else {
        // A compound quote prices by its own kernel; over less than a half-year it is a simple yield of the
        // actual year, which is the money-market yield moved to the day_type year.
        const double price = !compound ? price_from_yld(value / to_actual, redemptn, t.days, t.basis, tau)
                             : calc_type == 4 ? price_from_cey(value, redemptn, t.days_pcnt, t.full_per, tau, &e)
                                              : price_from_bey(value, redemptn, t.days_pcnt, t.full_per, tau, &e);
        if (e != 0) return fail(err, e);
        if (!simple_quotes(price, 2, t, redemptn, tau, q)) return fail(err, ORVEL_E_NO_QUOTE);
    }
    // The given quote is kept as it came, not recomputed.
    if (!compound) {
        q->cey = calc_type == 4 ? value : q->yld * to_actual;
        q->bey = calc_type == 5 ? value : q->yld * to_actual;
    } else {
        q->cey = calc_type == 4 ? value : cey_from_price(q->price, redemptn, t.days_pcnt, t.full_per, tau, &e);
        q->bey = calc_type == 5 ? value : bey_from_price(q->price, redemptn, t.days_pcnt, t.full_per, tau);
        if (e != 0) return fail(err, e);
    }
    return (std::isfinite(q->cey) && std::isfinite(q->bey)) || fail(err, ORVEL_E_NO_QUOTE);
}

bool inputs_ok(int32_t day_type, int32_t calc_type, int32_t highest, double value, Date settle, Date mat,
               double redemptn, double tax1, double tax2, uint32_t* err) {
    return Check(err)
        .call(0, ok_day_type, day_type)
        .expect(calc_type >= 1 && calc_type <= highest, ORVEL_E_SELECTOR)
        .call(0, ok_disc_in, day_type, calc_type, value, settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, redemptn,
              tax1, tax2)
        .ok();
}

bool bill_quotes(double value, int32_t calc_type, int32_t highest, Date settle, Date mat, int32_t day_type,
                 int32_t act_yr_type, double redemptn, double tax_rate, double lt_tax_rate, int32_t validate,
                 Quotes* q, Term* t, uint32_t* err) {
    if (validate != 0 &&
        !inputs_ok(day_type, calc_type, highest, value, settle, mat, redemptn, tax_rate, lt_tax_rate, err))
        return false;
    if (!(calc_type >= 1 && calc_type <= highest)) return fail(err, ORVEL_E_SELECTOR);
    if (highest <= 3) {
        if (!simple_term(settle, mat, day_type, t, err)) return false;
        return simple_quotes(value, calc_type, *t, redemptn, term_tax(*t, tax_rate, lt_tax_rate), q) ||
               fail(err, ORVEL_E_NO_QUOTE);
    }
    return split_term(settle, mat, day_type, act_yr_type, validate, t, err) &&
           all_quotes(value, calc_type, *t, redemptn, term_tax(*t, tax_rate, lt_tax_rate), q, err);
}

int32_t market_day_type(int32_t day_type) {
    market_defaults(usbl_market, MarketSlots{&day_type});
    return day_type;
}

}  // namespace orvel::money

using orvel::Date;
using namespace orvel::money;

ORVEL_EXPORT(void) disc_pydbey(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                               int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type, int32_t act_yr_type,
                               double redemptn, double tax_rate, double lt_tax_rate, double* yld, double* price,
                               double* disc, double* cey, double* bey, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_disc_in, day_type, calc_type, value, settle_m, settle_d, settle_y, mat_m,
                                    mat_d, mat_y, redemptn, tax_rate, lt_tax_rate)
                              .ok())
        return;
    Term t;
    if (!split_term({settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y}, day_type, act_yr_type, validate, &t,
                    err_code))
        return;
    if (calc_type < 1 || calc_type > 5) return;  // nothing to convert: nothing written, no error
    Quotes q;
    if (!all_quotes(value, calc_type, t, redemptn, term_tax(t, tax_rate, lt_tax_rate), &q, err_code)) return;
    *yld = q.yld;
    *price = q.price;
    *disc = q.disc;
    *cey = q.cey;
    *bey = q.bey;
}

ORVEL_EXPORT(void) disc_pyd_tax(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                                int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type,
                                double redemptn, double tax_rate, double lt_tax_rate, double* yld, double* price,
                                double* disc, int32_t validate, uint32_t* err_code) {
    Quotes q;
    Term t;
    if (!bill_quotes(value, calc_type, 3, {settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y}, day_type, 0,
                     redemptn, tax_rate, lt_tax_rate, validate, &q, &t, err_code))
        return;
    *yld = q.yld;
    *price = q.price;
    *disc = q.disc;
}

ORVEL_EXPORT(void) disc_pyd(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                            int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type, double redemptn,
                            double* yld, double* price, double* disc, int32_t validate, uint32_t* err_code) {
    disc_pyd_tax(value, calc_type, settle_m, settle_d, settle_y, mat_m, mat_d, mat_y, day_type, redemptn, 0.0, 0.0,
                 yld, price, disc, validate, err_code);
}

ORVEL_EXPORT(double) disc_equ_cpn(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                                  int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type,
                                  int32_t act_yr_type, double redemptn, int32_t validate, uint32_t* err_code) {
    Quotes q;
    Term t;
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    if (!bill_quotes(value, calc_type, 3, settle, mat, day_type, 0, redemptn, 0.0, 0.0, validate, &q, &t, err_code) ||
        !split_term(settle, mat, day_type, act_yr_type, validate, &t, err_code))
        return 0.0;
    // Actual days over the actual year; up to half a year simple interest, beyond it a coupon at the
    // half-year: P (1 + r (x - 1/2)) (1 + r / 2) = R, the root of (x/2 - 1/4) r^2 + x r + 1 - R/P = 0.
    const double x = static_cast<double>(orvel::cal::days_actual(settle_m, settle_d, settle_y, mat_m, mat_d, mat_y)) /
                     t.act_year;
    const double growth = redemptn / q.price;
    double r = (growth - 1.0) / x;
    if (x > 0.5) {
        const double a = 0.5 * x - 0.25, c = 1.0 - growth;
        r = (-x + std::sqrt(x * x - 4.0 * a * c)) / (2.0 * a);
    }
    return orvel::money::finite_or_fail(r * 100.0, err_code);
}

ORVEL_EXPORT(void) jptb_pyd(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                            int32_t mat_m, int32_t mat_d, int32_t mat_y, double redemptn, double* yld, double* price,
                            int32_t validate, uint32_t* err_code) {
    Quotes q;
    Term t;
    if (!bill_quotes(value, calc_type, 2, {settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y}, jptb_day_type, 0,
                     redemptn, 0.0, 0.0, validate, &q, &t, err_code))
        return;
    *yld = q.yld;
    *price = q.price;
}

ORVEL_EXPORT(void) usbl_pydbey(int32_t day_type, double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                               int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, double redemptn,
                               double* yld, double* price, double* disc, double* cey, double* bey, int32_t validate,
                               uint32_t* err_code) {
    Quotes q;
    Term t;
    if (!bill_quotes(value, calc_type, 5, {settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y},
                     market_day_type(day_type), usbl_act_yr_type, redemptn, 0.0, 0.0, validate, &q, &t, err_code))
        return;
    *yld = q.yld;
    *price = q.price;
    *disc = q.disc;
    *cey = q.cey;
    *bey = q.bey;
}
