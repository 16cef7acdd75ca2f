// Risk of a bill (one flow, so duration is its term), its rate of return between purchase and sale, and its
// one cash flow.
#include "calendar/day_count.hpp"
#include "calendar/years.hpp"
#include "core/check.hpp"
#include "core/validators.hpp"
#include "money/bills.hpp"
#include "orvel/money.h"

namespace {

using orvel::Date;
using namespace orvel::money;

struct Risk {
    double mac = 0.0, mod = 0.0, cvx = 0.0, pvbp = 0.0;
};

// Simple interest at yld (percent) over t years: P = R / (1 + yld t / 100).
double simple_price(double yld, double redemptn, double t) { return redemptn / (1.0 + yld * 0.01 * t); }

bool simple_risk(double yld, double redemptn, double t, Risk* r, uint32_t* err) {
    const double g = 1.0 + yld * 0.01 * t;
    if (!(g > 0.0)) return orvel::fail(err, ORVEL_E_NEG_BASE);
    r->mac = t;
    r->mod = t / g;
    r->cvx = 2.0 * t * t / (g * g);
    r->pvbp = (simple_price(yld - 0.01, redemptn, t) - simple_price(yld + 0.01, redemptn, t)) / 2.0;
    return true;
}

// Against the bond-equivalent yield: simple over a term of less than a half-year, else compounded over
// T = full_per + days_pcnt half-years, P = R v^-T with v = 1 + bey / 200.
bool bey_risk(double bey, double redemptn, const Term& t, Risk* r, uint32_t* err) {
    if (t.full_per == 0) return simple_risk(bey, redemptn, static_cast<double>(t.days) / t.act_year, r, err);
    const double periods = t.full_per + t.days_pcnt;
    const double v = 1.0 + bey / 200.0;
    uint32_t e = 0;
    const double down = price_from_bey(bey - 0.01, redemptn, t.days_pcnt, t.full_per, 0.0, &e);
    const double up = price_from_bey(bey + 0.01, redemptn, t.days_pcnt, t.full_per, 0.0, &e);
    if (e != 0 || !(v > 0.0)) return orvel::fail(err, ORVEL_E_NEG_BASE);
    r->mac = periods / 2.0;
    r->mod = r->mac / v;
    r->cvx = periods * (periods + 1.0) / (4.0 * v * v);
    r->pvbp = (down - up) / 2.0;
    return true;
}

bool known_sec_type(int32_t sec_type, uint32_t* err_code) {
    uint32_t probe = 0;
    rslt_fix_plc(sec_type, 2, 0.0, &probe);
    return probe == 0 || orvel::fail(err_code, probe);
}

bool all_finite(const Risk& r) {
    return std::isfinite(r.mac) && std::isfinite(r.mod) && std::isfinite(r.cvx) && std::isfinite(r.pvbp);
}

// Writes the risk set rounded for sec_type (rslt_fix_plc, a risk measure); the price and the yield as they are.
void write_risk(int32_t sec_type, const Risk& r, double p, double y, double* price, double* yld, double* mac_dur,
                double* mod_dur, double* convexity, double* pvbp) {
    uint32_t scratch = 0;
    *price = p;
    *yld = y;
    *mac_dur = rslt_fix_plc(sec_type, 2, r.mac, &scratch);
    *mod_dur = rslt_fix_plc(sec_type, 2, r.mod, &scratch);
    *convexity = rslt_fix_plc(sec_type, 2, r.cvx, &scratch);
    *pvbp = rslt_fix_plc(sec_type, 2, r.pvbp, &scratch);
}

// The risk set on the money-market yield (bey false: calc_type 1..highest) or the bond-equivalent yield.
void risk_of(int32_t sec_type, double value, int32_t calc_type, int32_t highest, Date settle, Date mat,
             int32_t day_type, int32_t act_yr_type, double redemptn, bool bey, double* price, double* yld,
             double* mac_dur, double* mod_dur, double* convexity, double* pvbp, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !known_sec_type(sec_type, err_code)) return;
    Quotes q;
    Term t;
    Risk r;
    if (!bill_quotes(value, calc_type, highest, settle, mat, day_type, act_yr_type, redemptn, 0.0, 0.0, validate, &q,
                     &t, err_code))
        return;
    const double y = bey ? q.bey : q.yld;
    const bool done = bey ? bey_risk(y, redemptn, t, &r, err_code)
                          : simple_risk(y, redemptn, static_cast<double>(t.days) / t.basis, &r, err_code);
    if (!done || (!all_finite(r) && orvel::fail(err_code, ORVEL_E_NO_QUOTE))) return;
    write_risk(sec_type, r, q.price, y, price, yld, mac_dur, mod_dur, convexity, pvbp);
}

}  // namespace

ORVEL_EXPORT(void) disc_risk(int32_t sec_type, double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                             int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type,
                             double redemptn, double* price, double* yld, double* mac_dur, double* mod_dur,
                             double* convexity, double* pvbp, int32_t validate, uint32_t* err_code) {
    risk_of(sec_type, value, calc_type, 3, {settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y}, day_type, 0,
            redemptn, false, price, yld, mac_dur, mod_dur, convexity, pvbp, validate, err_code);
}

ORVEL_EXPORT(void) disc_riskbey(int32_t sec_type, double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                                int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t day_type,
                                int32_t act_yr_type, double redemptn, double* price, double* bey, double* mac_dur,
                                double* mod_dur, double* convexity, double* pvbp, int32_t validate,
                                uint32_t* err_code) {
    risk_of(sec_type, value, calc_type, 5, {settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y}, day_type,
            act_yr_type, redemptn, true, price, bey, mac_dur, mod_dur, convexity, pvbp, validate, err_code);
}

ORVEL_EXPORT(void) jptb_risk(double value, int32_t calc_type, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                             int32_t mat_m, int32_t mat_d, int32_t mat_y, double redemptn, double* price, double* yld,
                             double* mac_dur, double* mod_dur, double* convexity, double* pvbp, int32_t validate,
                             uint32_t* err_code) {
    // sec_type 7 keeps every measure as computed.
    risk_of(7, value, calc_type, 2, {settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y}, jptb_day_type, 0, redemptn,
            false, price, yld, mac_dur, mod_dur, convexity, pvbp, validate, err_code);
}

ORVEL_EXPORT(void) usbl_risk(int32_t day_type, double value, int32_t calc_type, int32_t settle_m, int32_t settle_d,
                             int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y, double redemptn,
                             double* price, double* bey, double* mac_dur, double* mod_dur, double* convexity,
                             double* pvbp, int32_t validate, uint32_t* err_code) {
    risk_of(usbl_sec_type, value, calc_type, 5, {settle_m, settle_d, settle_y}, {mat_m, mat_d, mat_y},
            market_day_type(day_type), usbl_act_yr_type, redemptn, true, price, bey, mac_dur, mod_dur, convexity,
            pvbp, validate, err_code);
}

ORVEL_EXPORT(double) disc_ror(double buy_value, double sell_value, int32_t calc_type, int32_t buy_m, int32_t buy_d,
                              int32_t buy_y, int32_t sale_m, int32_t sale_d, int32_t sale_y, int32_t mat_m,
                              int32_t mat_d, int32_t mat_y, int32_t day_type, double redemptn, int32_t validate,
                              uint32_t* err_code) {
    const Date buy{buy_m, buy_d, buy_y}, sale{sale_m, sale_d, sale_y}, mat{mat_m, mat_d, mat_y};
    const int32_t held = orvel::cal::days_by_type(day_type, buy, sale);
    const int32_t left = orvel::cal::days_by_type(day_type, sale, mat);
    if (validate != 0 && !orvel::Check(err_code)
                              .step([&](uint32_t* e) {
                                  return inputs_ok(day_type, calc_type, 3, buy_value, buy, mat, redemptn, 0.0, 0.0, e);
                              })
                              .expect(orvel::is_valid(sale), ORVEL_E_SALE_DATE)
                              .expect(held > 0, ORVEL_E_SALE_ORDER)
                              .expect(left >= 0, ORVEL_E_SALE_AFTER_MAT)
                              .call(0, ok_given, sell_value, calc_type)
                              .ok())
        return 0.0;
    Term at_buy, at_sale;
    Quotes bought, sold;
    if (!orvel::Check(err_code)
             .expect(calc_type >= 1 && calc_type <= 3, ORVEL_E_SELECTOR)
             .step([&](uint32_t* e) { return simple_term(buy, mat, day_type, &at_buy, e); })
             .step([&](uint32_t* e) { return simple_term(sale, mat, day_type, &at_sale, e); })
             .ok())
        return 0.0;
    // Sold at maturity, the bill is redeemed.
    const bool redeemed = left <= 0;
    // Only the two prices count: a price without a finite return shows in the return itself.
    simple_quotes(buy_value, calc_type, at_buy, redemptn, 0.0, &bought);
    if (!redeemed) simple_quotes(sell_value, calc_type, at_sale, redemptn, 0.0, &sold);
    const double proceeds = redeemed ? redemptn : sold.price;
    return finite_or_fail((proceeds - bought.price) / bought.price * at_buy.basis / held * 100.0, err_code);
}

ORVEL_EXPORT(int32_t) disc_cfs(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                               int32_t mat_y, int32_t day_type, double redemptn, double face_k, int32_t* cf_m,
                               int32_t* cf_d, int32_t* cf_y, double* amount, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !orvel::Check(err_code)
                              .call(0, ok_day_type, day_type)
                              .call(0, ok_disc_MDYs, settle_m, settle_d, settle_y, mat_m, mat_d, mat_y, day_type)
                              .call(0, ok_redemptn, redemptn)
                              .expect(orvel::non_negative(face_k), ORVEL_E_FACE)
                              .ok())
        return 0;
    const Date mat{mat_m, mat_d, mat_y};
    if (orvel::cal::days_by_type(day_type, Date{settle_m, settle_d, settle_y}, mat) <= 0) return 0;  // nothing left
    orvel::store(mat, cf_m, cf_d, cf_y);
    *amount = redemptn * face_k * 10.0;
    return 1;
}

ORVEL_EXPORT(int32_t) usbl_cfs(int32_t day_type, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                               int32_t mat_d, int32_t mat_y, double redemptn, double face_k, int32_t* cf_m,
                               int32_t* cf_d, int32_t* cf_y, double* amount, int32_t validate, uint32_t* err_code) {
    return disc_cfs(settle_m, settle_d, settle_y, mat_m, mat_d, mat_y, market_day_type(day_type), redemptn, face_k,
                    cf_m, cf_d, cf_y, amount, validate, err_code);
}
