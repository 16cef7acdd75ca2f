// The remaining cash flows of a bond, per 100 of face or for a holding, into the caller's arrays.
#include "bond/accrued.hpp"
#include "bond/dates.hpp"
#include "bond/kernels.hpp"
#include "bond/market.hpp"
#include "bond/price_yield.hpp"
#include "core/check.hpp"
#include "orvel/bond.h"

namespace {

using orvel::Date;
using orvel::bond::Reduced;

struct Flow {
    Date date;
    double coupon;     // per 100
    double principal;  // per 100, non-zero at maturity only
    double time;       // coupon periods from settlement
};

// The flows a reduced schedule describes: the next coupon (an odd first one included) at nxt_frac
// periods, a regular coupon at each later period, the redemption with the last. Every date is stepped
// back from maturity (never from the previous coupon), except an odd first coupon's, which is its own.
class Flows {
public:
    Flows(const Date& settle, const Date& mat, Date dated, Date first_cpn, const Reduced& r, double cpn_rate,
          double redemptn, int32_t cpn_freq, int32_t eom)
        : mat_(mat), r_(r), cpn_rate_(cpn_rate), redemptn_(redemptn), cpn_freq_(cpn_freq), eom_(eom) {
        orvel::bond::default_first_period(mat, &dated, &first_cpn, cpn_freq, eom);
        before_first_ = orvel::bond::days_between(settle, first_cpn, orvel::bond::actual_days) > 0;
        first_cpn_ = first_cpn;
    }
    // The amounts and times only (money_at), no dates.
    Flows(const Reduced& r, double cpn_rate, double redemptn, int32_t cpn_freq)
        : r_(r), cpn_rate_(cpn_rate), redemptn_(redemptn), cpn_freq_(cpn_freq), eom_(0) {}

    // 0 when nothing is left to run; -1 when the schedule is beyond any the calendar can date.
    int32_t count() const {
        if (r_.nxt_frac == 0.0 && r_.n_after == 0) return 0;
        if (!(r_.n_after >= 0 && r_.n_after < orvel::bond::max_walk_periods)) return -1;
        return r_.n_after + 1;
    }

    Flow at(int32_t k) const {
        Flow f = money_at(k);
        f.date = (k == 0 && before_first_) ? first_cpn_
                                           : orvel::bond::step_periods(mat_, k - r_.n_after, cpn_freq_, eom_);
        return f;
    }

    // Flow k without its date.
    Flow money_at(int32_t k) const {
        Flow f{};
        f.coupon = k == 0 ? r_.cpn_amt : cpn_rate_ / cpn_freq_;
        f.principal = k == r_.n_after ? redemptn_ : 0.0;
        f.time = r_.nxt_frac + k;
        return f;
    }

private:
    Date mat_;
    Date first_cpn_{};
    Reduced r_;
    double cpn_rate_, redemptn_;
    int32_t cpn_freq_, eom_;
    bool before_first_ = false;
};

// The number of flows, or the error that stops the listing: a schedule too long to walk (4600) or
// arrays too small (13000, the number needed still written to *count).
bool fits(int32_t n, int32_t capacity, int32_t* count, uint32_t* err_code) {
    if (n < 0) return orvel::fail(err_code, ORVEL_E_FULL_PER);
    *count = n;
    return n <= capacity || orvel::fail(err_code, ORVEL_E_CAPACITY);
}

// Reduces the bond, lists its flows when they fit in capacity: the dates into cf_m, cf_d, cf_y and the
// amounts through amounts(k, flow). Returns the number of flows, or -1 with the error written.
template <class Amounts>
int32_t list_flows(const Date& settle, const Date& mat, const Date& dated, const Date& first_cpn, double cpn_rate,
                   int32_t day_type, int32_t eom, int32_t cpn_freq, double redemptn, int32_t capacity, int32_t* cf_m,
                   int32_t* cf_d, int32_t* cf_y, int32_t* count, double* accrued, uint32_t* err_code,
                   Amounts amounts) {
    Reduced r;
    *accrued = orvel::bond::reduce(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, &r);
    const Flows flows(settle, mat, dated, first_cpn, r, cpn_rate, redemptn, cpn_freq, eom);
    const int32_t n = flows.count();
    if (!fits(n, capacity, count, err_code)) return -1;
    for (int32_t k = 0; k < n; ++k) {
        const Flow f = flows.at(k);
        cf_m[k] = f.date.m;
        cf_d[k] = f.date.d;
        cf_y[k] = f.date.y;
        amounts(k, f);
    }
    return n;
}

using orvel::bond::holding;

bool valid_bond(double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq, const Date& settle, const Date& mat,
                Date dated, Date first_cpn, double redemptn, double face_k, uint32_t* err_code) {
    return orvel::Check(err_code)
        .call(0, ok_cpn_rate, cpn_rate)
        .call(0, ok_day_type, day_type)
        .call(0, ok_cpn_freq, cpn_freq)
        .step([&](uint32_t* e) {
            return orvel::bond::valid_bond_dates(settle, mat, &dated, &first_cpn, day_type, eom, cpn_freq, e);
        })
        .call(0, ok_redemptn, redemptn)
        .expect(orvel::bond::valid_face(face_k), ORVEL_E_FACE)
        .ok();
}

}  // namespace

ORVEL_EXPORT(int32_t) bond_flows(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
                                 int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                                 int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                                 int32_t first_cpn_d, int32_t first_cpn_y, double redemptn, int32_t capacity,
                                 int32_t* cf_m, int32_t* cf_d, int32_t* cf_y, double* amts, double* times,
                                 int32_t* count, double* ai, int32_t validate, uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    if (validate != 0 &&
        !valid_bond(cpn_rate, day_type, eom, cpn_freq, settle, mat, dated, first_cpn, redemptn, 0.0, err_code))
        return 0;
    double accrued = 0.0;
    const int32_t n = list_flows(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, redemptn, capacity,
                                 cf_m, cf_d, cf_y, count, &accrued, err_code, [&](int32_t k, const Flow& f) {
                                     amts[k] = f.coupon + f.principal;
                                     times[k] = f.time;
                                 });
    if (n < 0) return 0;
    *ai = accrued;
    return n;
}

ORVEL_EXPORT(int32_t) bond_cfs(int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
                               int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                               int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
                               int32_t first_cpn_d, int32_t first_cpn_y, double redemptn, double face_k,
                               int32_t capacity, int32_t* cf_m, int32_t* cf_d, int32_t* cf_y, double* amts,
                               int32_t* count, double* ai, int32_t validate, uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    const Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    if (validate != 0 &&
        !valid_bond(cpn_rate, day_type, eom, cpn_freq, settle, mat, dated, first_cpn, redemptn, face_k, err_code))
        return 0;
    double accrued = 0.0;
    const int32_t n = list_flows(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, redemptn, capacity,
                                 cf_m, cf_d, cf_y, count, &accrued, err_code, [&](int32_t k, const Flow& f) {
                                     amts[k] = holding(f.coupon + f.principal, face_k);
                                 });
    if (n < 0) return 0;
    *ai = holding(accrued, face_k);
    return n;
}

ORVEL_EXPORT(int32_t) bond_ifs_pfs(int32_t method, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate,
                                   int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                                   int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
                                   int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double face_k,
                                   int32_t capacity, int32_t* cf_m, int32_t* cf_d, int32_t* cf_y, double* int_flows,
                                   double* prin_flows, int32_t* count, int32_t validate, uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    Date dated{dated_m, dated_d, dated_y}, first_cpn{first_cpn_m, first_cpn_d, first_cpn_y};
    if (validate != 0 && !orvel::Check(err_code)
                              .expect(orvel::bond::known_method(method), ORVEL_E_SEC_TYPE)
                              .step([&](uint32_t* e) {
                                  return valid_bond(cpn_rate, day_type, eom, cpn_freq, settle, mat, dated, first_cpn,
                                                    100.0, face_k, e);
                              })
                              .ok())
        return 0;
    const double face = face_k == 0.0 ? 1.0 : face_k;
    if (orvel::bond::ignores_odd_first(method)) orvel::bond::regular_dates(mat, &dated, &first_cpn, cpn_freq, eom);
    double accrued = 0.0;
    const int32_t n = list_flows(settle, mat, dated, first_cpn, cpn_rate, day_type, eom, cpn_freq, 100.0, capacity,
                                 cf_m, cf_d, cf_y, count, &accrued, err_code, [&](int32_t k, const Flow& f) {
                                     int_flows[k] = holding(f.coupon, face);
                                     prin_flows[k] = holding(f.principal, face);
                                 });
    return n < 0 ? 0 : n;
}

int32_t orvel::bond::holding_flows(const Date& settle, const Date& mat, const Date& dated, const Date& first_cpn,
                                   const Reduced& r, double cpn_rate, double redemptn, double face_k,
                                   bool seller_keeps_next, int32_t eom, int32_t cpn_freq, int32_t capacity,
                                   int32_t* cf_m, int32_t* cf_d, int32_t* cf_y, double* int_amts, double* prin_amts,
                                   double* times, int32_t* count, uint32_t* err) {
    const Flows flows(settle, mat, dated, first_cpn, r, cpn_rate, redemptn, cpn_freq, eom);
    const int32_t n = flows.count();
    if (!fits(n, capacity, count, err)) return -1;
    for (int32_t k = 0; k < n; ++k) {
        const Flow f = flows.at(k);
        cf_m[k] = f.date.m;
        cf_d[k] = f.date.d;
        cf_y[k] = f.date.y;
        int_amts[k] = k == 0 && seller_keeps_next ? 0.0 : holding(f.coupon, face_k);
        prin_amts[k] = holding(f.principal, face_k);
        if (times != nullptr) times[k] = f.time;
    }
    return n;
}

int32_t orvel::bond::flow_set(const Reduced& r, double cpn_rate, double redemptn, bool seller_keeps_next,
                              int32_t cpn_freq, int32_t capacity, double* amts, double* times, uint32_t* err) {
    const Flows flows(r, cpn_rate, redemptn, cpn_freq);
    const int32_t n = flows.count();
    if (n < 0) return static_cast<int32_t>(orvel::bond::fail_price(err, ORVEL_E_FULL_PER)) - 1;
    if (n > capacity) return static_cast<int32_t>(orvel::bond::fail_price(err, ORVEL_E_CFS_FLOWS)) - 1;
    for (int32_t k = 0; k < n; ++k) {
        const Flow f = flows.money_at(k);
        amts[k] = (k == 0 && seller_keeps_next ? 0.0 : f.coupon) + f.principal;
        times[k] = f.time;
    }
    return n;
}
