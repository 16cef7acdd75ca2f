// Discount securities on numbers: the price of a bill from each of its quotes and back, and the term of a
// bill given by dates split into whole half-years and a remainder. Nothing here validates; each function
// that can meet a value without a price writes its error to err and returns 0.0.
#pragma once

#include <cmath>
#include <cstdint>

#include "bond/kernels.hpp"
#include "bond/solver.hpp"
#include "core/civil.hpp"
#include "core/power.hpp"
#include "orvel/frame.h"

namespace orvel::money {

// A tax rate of at most 1 is a fraction, above 1 a percentage: 1 is a 100% tax, 1.5 is 1.5%.
inline double tax_fraction(double tax) { return tax <= 1.0 ? tax : tax * 0.01; }

// A result that came out infinite or NaN (a 100% tax, no days) is no quote: 15101.
inline double finite_or_fail(double x, uint32_t* err) {
    if (std::isfinite(x)) return x;
    *err = ORVEL_E_NO_QUOTE;
    return 0.0;
}

// ---- Simple interest over days / basis (money-market year) ------------------------------------------

inline double price_from_disc(double disc, double redemptn, double days, double basis, double tau) {
    return redemptn * (1.0 - (disc * 0.01 / (1.0 - tau)) * days / basis);
}

inline double disc_from_price(double price, double redemptn, double days, double basis, double tau) {
    return (redemptn - price) * (1.0 - tau) / redemptn * basis / days * 100.0;
}

inline double yld_from_price(double price, double redemptn, double days, double basis, double tau) {
    return (redemptn - price) * (1.0 - tau) / price * basis / days * 100.0;
}

inline double price_from_yld(double yld, double redemptn, double days, double basis, double tau) {
    return redemptn / ((yld * 0.01 / (1.0 - tau)) * days / basis + 1.0);
}

// ---- Semi-annual compounding over full_per half-years and a fraction days_pcnt of one --------------

inline double price_from_bey(double bey, double redemptn, double days_pcnt, int32_t full_per, double tau,
                             uint32_t* err) {
    const double base = 1.0 + bey * 0.005;
    if (!(base > 0.0)) return bond::fail_price(err, ORVEL_E_NEG_BASE);
    return (1.0 - tau) * redemptn / orvel::pow(base, full_per + days_pcnt);
}

inline double bey_from_price(double price, double redemptn, double days_pcnt, int32_t full_per, double tau) {
    return (orvel::pow((1.0 - tau) * redemptn / price, 1.0 / (full_per + days_pcnt)) - 1.0) * 200.0;
}

// b^n for whole n. A bill of up to a year has at most one whole half-year: b^0 and b^1 need no power
// function (and are exactly what it gives), which keeps the compound-equivalent solve of a bill cheap.
inline double whole_power(double b, int32_t n) { return n == 1 ? b : n == 0 ? 1.0 : orvel::pow(b, n); }

// A simple-interest stub of days_pcnt half-years and full_per compounded ones. The tax enters twice, on the
// discount factor and on the redemption; untaxed this is R / ((1 + f y / 2)(1 + y / 2)^n).
inline double price_from_cey(double cey, double redemptn, double days_pcnt, int32_t full_per, double tau,
                             uint32_t* err) {
    const double y = cey * 0.01;
    const double a = days_pcnt * 0.5 * y + 1.0;
    const double b = 1.0 + 0.5 * y;
    if (!(a > 0.0 && b > 0.0)) return bond::fail_price(err, ORVEL_E_NEG_BASE);
    return (1.0 / whole_power(b, full_per) - tau) * ((1.0 - tau) * redemptn / a);
}

// The compound-equivalent yield of a price: the shared solver from a start that compounds the gain to 100
// over the whole term (1 either side next), to 5e-7 per 100 of price.
inline double cey_from_price(double price, double redemptn, double days_pcnt, int32_t full_per, double tau,
                             uint32_t* err, SolveStats* stats = nullptr) {
    const double start = (orvel::pow((100.0 - price) * (1.0 - tau) / price + 1.0, 1.0 / (full_per + days_pcnt)) - 1.0) *
                         200.0;
    return bond::solve_yield(
        price, start,
        [&](double y, uint32_t* e) { return price_from_cey(y, redemptn, days_pcnt, full_per, tau, e); }, err,
        stats);
}

// ---- A bill given by dates --------------------------------------------------------------------------

struct Term {
    int32_t days = 0;       // settlement to maturity under day_type
    int32_t basis = 0;      // the day_type year at settlement
    int32_t act_year = 0;   // the actual year of the term's act_yr_type (0 when not asked for)
    int32_t full_per = 0;   // whole half-years of the actual year in the term
    double days_pcnt = 0.0; // the rest, in half-years
};

// Days and year basis under day_type (500 for a code without one, checked even unvalidated).
bool simple_term(Date settle, Date mat, int32_t day_type, Term* t, uint32_t* err);

// simple_term, then the actual year of act_yr_type and the split of the term into half-years of it.
// act_yr_type 2 and 6 measure from a dated date a bill does not have (1502 when validating); a method that
// gives no year is 15100.
bool split_term(Date settle, Date mat, int32_t day_type, int32_t act_yr_type, int32_t validate, Term* t,
                uint32_t* err);

// Every quote of a bill from any one of them (calc_type 1 money-market yield, 2 price, 3 discount rate,
// 4 compound-equivalent, 5 bond-equivalent yield), after the tax tau (a fraction). The given quote is kept
// as it is. False with err written when a quote has no value.
struct Quotes {
    double yld = 0.0, price = 0.0, disc = 0.0, cey = 0.0, bey = 0.0;
};
bool all_quotes(double value, int32_t calc_type, const Term& t, double redemptn, double tau, Quotes* q,
                uint32_t* err);

// The tax of a term: the long-term rate when the term is longer than the year basis.
inline double term_tax(const Term& t, double tax_rate, double lt_tax_rate) {
    return tax_fraction(t.days > t.basis ? lt_tax_rate : tax_rate);
}

}  // namespace orvel::money
