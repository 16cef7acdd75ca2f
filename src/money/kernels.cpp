// The price of a bill from each quote and each quote from the price, on days and a year basis (discount
// rate, money-market yield) or on half-years (compound-equivalent and bond-equivalent yields); the money
// amounts of a position; the value of a basis point of discount.
#include "calendar/day_count.hpp"
#include "core/check.hpp"
#include "money/discount.hpp"
#include "orvel/money.h"

using namespace orvel::money;

namespace {

// The checks of a kernel on days and a year basis: the given quote of `kind`, then the terms.
bool simple_ok(double given, int32_t kind, double redemptn, int32_t days, int32_t yr_days, double tax_rate,
               uint32_t* err_code) {
    return orvel::Check(err_code)
        .call(0, ok_given, given, kind)
        .call(0, ok_redemptn, redemptn)
        .call(0, ok_days_per, days, 1)
        .call(0, ok_days_year, yr_days)
        .call(0, ok_tax_rate, tax_rate)
        .ok();
}

// The checks of a kernel on half-years.
bool compound_ok(double given, int32_t kind, double redemptn, double days_pcnt, int32_t full_per, double tax_rate,
                 uint32_t* err_code) {
    return orvel::Check(err_code)
        .call(0, ok_given, given, kind)
        .call(0, ok_redemptn, redemptn)
        .call(0, ok_days_pcnt, days_pcnt)
        .call(0, ok_full_per, full_per)
        .call(0, ok_tax_rate, tax_rate)
        .ok();
}

// A quote computed with its own error word: the error goes to err_code and 0.0 comes back.
double settled(double x, uint32_t err, uint32_t* err_code) {
    if (err == 0) x = finite_or_fail(x, &err);
    if (err == 0) return x;
    *err_code = err;
    return 0.0;
}

}  // namespace

ORVEL_EXPORT(double) disc_d_2_p(double disc, double redemptn, int32_t days, int32_t yr_days, double tax_rate,
                                int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !simple_ok(disc, 3, redemptn, days, yr_days, tax_rate, err_code)) return 0.0;
    return settled(price_from_disc(disc, redemptn, days, yr_days, tax_fraction(tax_rate)), 0, err_code);
}

ORVEL_EXPORT(double) disc_p_2_d(double price, double redemptn, int32_t days, int32_t yr_days, double tax_rate,
                                int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !simple_ok(price, 2, redemptn, days, yr_days, tax_rate, err_code)) return 0.0;
    return settled(disc_from_price(price, redemptn, days, yr_days, tax_fraction(tax_rate)), 0, err_code);
}

ORVEL_EXPORT(double) disc_p_2_y(double price, double redemptn, int32_t days, int32_t yr_days, double tax_rate,
                                int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !simple_ok(price, 2, redemptn, days, yr_days, tax_rate, err_code)) return 0.0;
    return settled(yld_from_price(price, redemptn, days, yr_days, tax_fraction(tax_rate)), 0, err_code);
}

ORVEL_EXPORT(double) disc_y_2_p(double yld, double redemptn, int32_t days, int32_t yr_days, double tax_rate,
                                int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !simple_ok(yld, 1, redemptn, days, yr_days, tax_rate, err_code)) return 0.0;
    return settled(price_from_yld(yld, redemptn, days, yr_days, tax_fraction(tax_rate)), 0, err_code);
}

ORVEL_EXPORT(double) disc_bey_2_p(double bey, double redemptn, double days_pcnt, int32_t full_per, double tax_rate,
                                  int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !compound_ok(bey, 5, redemptn, days_pcnt, full_per, tax_rate, err_code)) return 0.0;
    uint32_t err = 0;
    const double price = price_from_bey(bey, redemptn, days_pcnt, full_per, tax_fraction(tax_rate), &err);
    return settled(price, err, err_code);
}

ORVEL_EXPORT(double) disc_p_2_bey(double price, double redemptn, double days_pcnt, int32_t full_per, double tax_rate,
                                  int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !compound_ok(price, 2, redemptn, days_pcnt, full_per, tax_rate, err_code)) return 0.0;
    return settled(bey_from_price(price, redemptn, days_pcnt, full_per, tax_fraction(tax_rate)), 0, err_code);
}

ORVEL_EXPORT(double) disc_cey_2_p(double cey, double redemptn, double days_pcnt, int32_t full_per, double tax_rate,
                                  int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !compound_ok(cey, 4, redemptn, days_pcnt, full_per, tax_rate, err_code)) return 0.0;
    uint32_t err = 0;
    const double price = price_from_cey(cey, redemptn, days_pcnt, full_per, tax_fraction(tax_rate), &err);
    return settled(price, err, err_code);
}

ORVEL_EXPORT(double) disc_p_2_cey(double price, double redemptn, double days_pcnt, int32_t full_per, double tax_rate,
                                  int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !compound_ok(price, 2, redemptn, days_pcnt, full_per, tax_rate, err_code)) return 0.0;
    uint32_t err = 0;
    const double cey = cey_from_price(price, redemptn, days_pcnt, full_per, tax_fraction(tax_rate), &err);
    return settled(cey, err, err_code);
}

ORVEL_EXPORT(double) disc_ext(double price, double face_k, double* cost, double* dollar_disc, double* face_amt) {
    const double face = d_trunc_rnd(face_k * 10.0 * 100.0, 2, 1);
    const double paid = d_trunc_rnd(price * face_k * 10.0, 2, 1);
    *cost = paid;
    *face_amt = face;
    *dollar_disc = face - paid;
    return face;
}

ORVEL_EXPORT(double) disc_dol_equ(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                  int32_t mat_y, int32_t day_type, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_day_type, day_type)
                              .call(0, ok_disc_MDYs, settle_m, settle_d, settle_y, mat_m, mat_d, mat_y, day_type)
                              .ok())
        return 0.0;
    // 1,000,000 x 0.0001 / 360 a day, as the stored decimal the desks quote it by.
    return orvel::cal::days_by_type(day_type, settle_m, settle_d, settle_y, mat_m, mat_d, mat_y) * 0.277777777778;
}
