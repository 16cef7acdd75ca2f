// Price from yield and yield from price of a fixed-coupon bond given by its dates.
#include "bond/accrued.hpp"
#include "bond/dates.hpp"
#include "bond/kernels.hpp"
#include "bond/price_yield.hpp"
#include "core/check.hpp"
#include "orvel/bond.h"

namespace orvel::bond {

bool known_method(int32_t method) { return method >= 1 && method <= 8 && method != 2; }

bool ignores_odd_first(int32_t method) { return method == 3 || method == 6 || method == 8; }

Date in_year(Date a, int32_t year) {
    a.y = year;
    // 29 February has no 1901 or 1902: the month's last day stands in for it.
    if (a.m >= 1 && a.m <= 12 && a.d > orvel::cal::month_end(a.m, year)) a.d = orvel::cal::month_end(a.m, year);
    return a;
}

void regular_dates(const Date& mat, Date* dated, Date* first_cpn, int32_t cpn_freq, int32_t eom) {
    // A dated date in 1901 and a first coupon in 1902 put every later settlement on the regular schedule:
    // the odd first coupon is ignored.
    default_first_period(mat, dated, first_cpn, cpn_freq, eom);
    *dated = in_year(*dated, 1901);
    *first_cpn = in_year(*first_cpn, 1902);
}

double reduce_for_method(int32_t method, const Date& settle, const Date& mat, Date dated, Date first_cpn,
                         double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq, Reduced* out) {
    if (ignores_odd_first(method)) regular_dates(mat, &dated, &first_cpn, cpn_freq, eom);
    return reduce(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, out);
}

double price_on(const Reduced& r, double ai, double yld, double cpn_rate, double redemptn, double tax1, double tax2,
                int32_t cpn_freq, uint32_t* err) {
    if (r.n_after >= 1) {
        const Terms t{cpn_rate, redemptn, tax_fraction(tax1), tax_fraction(tax2), cpn_freq, r.n_after, r.nxt_frac,
                      r.cpn_amt, ai};
        return price_g1p(t, yld, err);
    }
    return price_l1p(yld, cpn_rate, redemptn, tax_fraction(tax1), cpn_freq, r.nxt_frac, ai, err);
}

double yield_on(const Reduced& r, double ai, double price, double cpn_rate, double redemptn, double tax1, double tax2,
                int32_t cpn_freq, uint32_t* err, SolveStats* stats) {
    if (r.n_after >= 1) {
        const Terms t{cpn_rate, redemptn, tax_fraction(tax1), tax_fraction(tax2), cpn_freq, r.n_after, r.nxt_frac,
                      r.cpn_amt, ai};
        const double guess = yield_guess(price, cpn_rate, redemptn, r.n_after, r.nxt_frac);
        return solve_yield(price, guess, [&t](double y, uint32_t* e) { return price_g1p(t, y, e); }, err, stats);
    }
    return yield_l1p(price, cpn_rate, redemptn, tax_fraction(tax1), cpn_freq, r.nxt_frac, ai, err);
}

}  // namespace orvel::bond

ORVEL_EXPORT(void) bond_py_ai(int32_t method, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type,
                              double given, double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                              int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
                              int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
                              double redemptn, double tax1, double tax2, double* result, double* ai, int32_t validate,
                              uint32_t* err_code) {
    using namespace orvel::bond;
    using orvel::Date;
    // The input group runs on a scratch word: its clean-up 0 after a supplied default stays inside it.
    if (validate != 0 &&
        !orvel::Check(err_code)
             .call(0, ok_bond_in, day_type, eom, cpn_freq, calc_type, given, cpn_rate, settle_m, settle_d, settle_y,
                   mat_m, mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, redemptn,
                   tax1, tax2)
             .ok())
        return;
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    Reduced r;
    double accrued = reduce(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, &r);
    *ai = accrued;
    if (!known_method(method)) {
        *err_code = ORVEL_E_SEC_TYPE;
        return;
    }
    if (ignores_odd_first(method))
        accrued = reduce_for_method(method, settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, &r);
    if (calc_type != 1 && calc_type != 2) {
        *err_code = ORVEL_E_SELECTOR;
        return;
    }
    if (method == 6 && calc_type == 1 && given == cpn_rate) {  // at its coupon a bond is at par
        *result = 100.0;
        return;
    }
    if (method == 6 && calc_type == 2 && given == 100.0) {
        *result = cpn_rate;
        return;
    }
    uint32_t err = 0;
    const double value = calc_type == 1
                             ? price_on(r, accrued, given, cpn_rate, redemptn, tax1, tax2, cpn_freq, &err)
                             : yield_on(r, accrued, given, cpn_rate, redemptn, tax1, tax2, cpn_freq, &err, nullptr);
    if (err != 0) {
        *err_code = err;
        return;
    }
    *result = value;
}
