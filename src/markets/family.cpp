// The bodies of the family members, one per kind, over the market a member names.
#include "markets/family.hpp"

#include <cmath>

#include "bond/dates.hpp"
#include "bond/price_yield.hpp"
#include "cashflow/cfs.hpp"
#include "core/check.hpp"
#include "core/defaults.hpp"
#include "groups/dates.hpp"

namespace orvel::markets {
namespace {

using bond::Reduced;

constexpr Date no_date{0, 0, 0};
constexpr int32_t given_yield = 1;

// Step 1 of every member: the wanted convention slots, pointed at the member's own arguments, take the
// market's defaults where they hold -1. l1p_rule is null in the members that do not price.
void take_defaults(const Market& m, int32_t* day_type, int32_t* eom, int32_t* cpn_freq, int32_t* l1p_rule,
                   Options* o) {
    MarketSlots s;
    s.day_type = day_type;
    s.eom = eom;
    s.cpn_freq = cpn_freq;
    s.l1p_rule = l1p_rule;
    const auto point = [&s](Slot slot, int32_t* arg) {
        switch (slot) {
            case Slot::OddDayType: s.odd_day_type = arg; break;
            case Slot::Opt5: s.mkt_opt5 = arg; break;
            case Slot::Opt7: s.mkt_opt7 = arg; break;
            case Slot::Opt8: s.mkt_opt8 = arg; break;
            case Slot::None: break;
        }
    };
    point(m.opt1, &o->opt1);
    point(m.opt2, &o->opt2);
    market_defaults(m.code, s);
}

// Step 2: ok_bond_in on the bond (a member without a selector and given value passes a yield of 1, one
// without a redemption value 100), the ex-dividend rule with ok_exdiv_MDY, then the market's options.
bool valid_bond(const Market& m, const Bond& b, int32_t calc_type, double given, double redemptn, const Options& o,
                uint32_t* err_code) {
    return Check(err_code)
        .call(0, ok_bond_in, b.day_type, b.eom, b.cpn_freq, calc_type, given, b.cpn_rate, b.settle.m, b.settle.d,
              b.settle.y, b.mat.m, b.mat.d, b.mat.y, b.dated.m, b.dated.d, b.dated.y, b.first_cpn.m, b.first_cpn.d,
              b.first_cpn.y, redemptn, 0.0, 0.0)
        .expect(b.ex_type == 0 || b.ex_type == 1, ORVEL_E_EX_TYPE)
        .step([&](uint32_t* e) {
            return b.ex_type == 0 || ok_exdiv_MDY(b.exdiv.m, b.exdiv.d, b.exdiv.y, b.settle.m, b.settle.d, b.settle.y,
                                                  b.mat.m, b.mat.d, b.mat.y, b.dated.m, b.dated.d, b.dated.y,
                                                  b.first_cpn.m, b.first_cpn.d, b.first_cpn.y, b.day_type, b.eom,
                                                  b.cpn_freq, e);
        })
        .step([&](uint32_t* e) { return m.rules.valid_options == nullptr || m.rules.valid_options(o, e); })
        .ok();
}

// After validation: blank dated and first coupon dates take the defaults the date validators supply, once,
// rather than in every engine step.
void complete(Bond* b) {
    b->dated_given = !is_blank(b->dated);
    bond::default_first_period(b->mat, &b->dated, &b->first_cpn, b->cpn_freq, b->eom);
}

bool valid_face(double face_k, uint32_t* err_code) {
    return bond::valid_face(face_k) || fail(err_code, ORVEL_E_FACE);
}

// Steps 1 and 2 on a bond built from the member's arguments: the market's defaults in its convention slots
// (and in l1p_rule where the member prices), its checks when validating (the position's face amount too
// where the member has one), then its blank dates completed. False, the error written, when a check fails.
bool open_member(const Market& m, Bond* b, Options* o, int32_t* l1p_rule, int32_t calc_type, double given,
                 double redemptn, const double* face_k, int32_t validate, uint32_t* err_code) {
    take_defaults(m, &b->day_type, &b->eom, &b->cpn_freq, l1p_rule, o);
    if (validate != 0 && !(valid_bond(m, *b, calc_type, given, redemptn, *o, err_code) &&
                           (face_k == nullptr || valid_face(*face_k, err_code))))
        return false;
    complete(b);
    return true;
}

// The schedule numbers at settlement on the market's accrual basis, and the plain accrued interest.
// A market that counts the settlement day adds that day's interest: the accrual of the day after less
// today's, or, when a coupon date follows, the rest of today's coupon.
double reduce_at(const Market& m, const Bond& b, const Options& o, Reduced* r) {
    const int32_t basis = m.rules.accrual_basis != nullptr ? m.rules.accrual_basis(b, o) : b.day_type;
    const double ai = bond::reduce(b.settle, b.mat, b.dated, b.first_cpn, b.cpn_rate, basis, b.eom, b.cpn_freq, r);
    if (!m.rules.counts_settlement_day) return ai;
    Reduced after;
    const Date next_day = bond::step_days(b.settle, 1);
    const double day = bond::reduce(next_day, b.mat, b.dated, b.first_cpn, b.cpn_rate, basis, b.eom, b.cpn_freq,
                                    &after) - ai;
    return ai + (day < 0.0 ? day + r->cpn_amt : day);
}

// Step 3: the market's accrued interest (the engine's ex-dividend or pay-day rule, the market's rounding).
double accrue(const Market& m, const Bond& b, const Options& o, Reduced* r, uint32_t* err) {
    if (b.ex_type != 0 && b.ex_type != 1) return bond::fail_price(err, ORVEL_E_EX_TYPE);
    const double plain = reduce_at(m, b, o, r);
    const int32_t basis = m.rules.accrual_basis != nullptr ? m.rules.accrual_basis(b, o) : b.day_type;
    const double ai = m.accrual == Accrual::ExDividend
                          ? bond::ex_rule(plain, *r, no_date, b.settle, b.exdiv, b.ex_type, b.mat, b.dated,
                                          b.first_cpn, b.cpn_rate, basis, b.eom, b.cpn_freq, err)
                          : bond::pp_rule(plain, *r, b.settle, b.exdiv, b.ex_type, b.mat, b.dated, b.first_cpn,
                                          b.eom, b.cpn_freq, err);
    return m.rules.round_ai != nullptr ? m.rules.round_ai(ai, o) : ai;
}

// The reduction the market prices on: the settlement's own, or for a market that prices on the regular
// schedule, the one with the dated date moved to 1901 and the first coupon to 1902 (as bond_py_ai's
// methods 3, 6 and 8).
double pricing_accrual(const Market& m, const Bond& b, const Options& o, double accrued, Reduced* r, uint32_t* err) {
    if (!m.rules.regular_schedule) return accrued;
    Bond regular = b;
    bond::regular_dates(b.mat, &regular.dated, &regular.first_cpn, b.cpn_freq, b.eom);
    return accrue(m, regular, o, r, err);
}

// The flows of a market that prices from them (Rules::cash_flows), per 100: at most max of them (15810).
struct FlowSet {
    static constexpr int32_t max = 1200;  // a century of monthly coupons
    double amts[max], times[max];
    int32_t count = 0;

    // The flows the buyer receives after settlement (not the next coupon when the accrued interest is
    // negative); true when the market does not price from flows.
    bool fill(const Market& m, const Reduced& r, double accrued, double cpn_rate, double redemptn, int32_t cpn_freq,
              uint32_t* err) {
        if (!m.rules.cash_flows) return true;
        count = bond::flow_set(r, cpn_rate, redemptn, accrued < 0.0, cpn_freq, max, amts, times, err);
        return count >= 0;
    }
};

// The set's yield solve wants the price to 10^-10 per 100.
constexpr int32_t set_prec = 9;

// A reduced bond priced by the market's kernels.
struct Pricing {
    const Market& m;
    const Reduced& r;
    double ai, cpn_rate, redemptn;
    int32_t cpn_freq, l1p_rule;
    Options o;
    const FlowSet* set = nullptr;  // the flows, for a market that prices from them

    int32_t yield_freq() const { return m.rules.yield_freq != nullptr ? m.rules.yield_freq(cpn_freq, o) : cpn_freq; }
    bool simple_final() const { return l1p_rule == 2 && r.n_after < 1; }
    bool taxed() const { return m.kernels == Kernels::G1p; }
    bond::Terms terms() const {
        const double tax1 = taxed() ? m.rules.tax1 : 0.0, tax2 = taxed() ? m.rules.tax2 : 0.0;
        // The seller keeps the next coupon ex-dividend (the aibd form drops it by itself).
        const double next = taxed() && ai < 0.0 ? 0.0 : r.cpn_amt;
        return bond::Terms{cpn_rate, redemptn, tax1, tax2, cpn_freq, r.n_after, r.nxt_frac, next, ai};
    }
    double compound(const bond::Terms& t, double y_per_period, uint32_t* err) const {
        return taxed() ? bond::price_g1p(t, y_per_period, err) : bond::price_aibd(t, y_per_period, err);
    }

    double price(double yld, uint32_t* err) const {
        if (simple_final()) {
            if (m.kernels == Kernels::Pp)
                return bond::price_ppp_l1p(yld, redemptn, cpn_freq, r.nxt_frac, r.cpn_amt, ai, err);
            return bond::price_l1p(yld, cpn_rate, redemptn, taxed() ? m.rules.tax1 : 0.0, cpn_freq, r.nxt_frac, ai,
                                   err);
        }
        const double y = bond::yield_equivalent(yld, yield_freq(), cpn_freq, err);
        if (*err != 0) return 0.0;
        if (set != nullptr) return cfs::periodic_price(y, cpn_freq, set->amts, set->times, set->count, err) - ai;
        return compound(terms(), y, err);
    }

    double yield(double price, uint32_t* err) const {
        if (simple_final()) {
            if (m.kernels == Kernels::Pp)
                return bond::yield_ppp_l1p(price, redemptn, cpn_freq, r.nxt_frac, r.cpn_amt, ai, err);
            return bond::yield_l1p(price, cpn_rate, redemptn, taxed() ? m.rules.tax1 : 0.0, cpn_freq, r.nxt_frac, ai,
                                   err);
        }
        if (set != nullptr) {
            const double y = cfs::periodic_yield(price + ai, cpn_freq, set_prec, set->amts, set->times, set->count,
                                                 cfs::standard_start, err);
            return *err != 0 ? 0.0 : bond::yield_equivalent(y, cpn_freq, yield_freq(), err);
        }
        const bond::Terms t = terms();
        const double guess = bond::yield_guess(price, cpn_rate, redemptn, r.n_after, r.nxt_frac);
        const double y =
            bond::solve_yield(price, guess, [&](double x, uint32_t* e) { return compound(t, x, e); }, err);
        return *err != 0 ? 0.0 : bond::yield_equivalent(y, cpn_freq, yield_freq(), err);
    }
};

// walk_flows's sums over a flow set: t (t + h) with t in years and h a period is (tau^2 + tau) / f^2 in
// periods tau.
bond::Moments set_moments(const FlowSet& set, int32_t cpn_freq, double v) {
    const cfs::Moments m = cfs::moments(v, set.amts, set.times, set.count);
    const double f = cpn_freq;
    return bond::Moments{m.value, m.first, (m.second + m.first) / (f * f)};
}

// An interest amount as the holder receives it, net of what the market withholds.
double net(const Market& m, double interest) {
    return m.rules.withheld == 0.0 ? interest : interest * (1.0 - m.rules.withheld);
}

bool same_date(const Date& a, const Date& b) { return a.m == b.m && a.d == b.d && a.y == b.y; }

// One day's interest per 100 at settlement: A1 - A0, with the day before's coupon added back when the two
// straddle a coupon date or the ex-dividend date.
double one_day_at(const Market& m, const Bond& b, const Options& o, uint32_t* err) {
    if (b.dated_given && !is_blank(b.dated) && same_date(b.settle, b.dated)) return 0.0;
    Reduced r;
    const double today = accrue(m, b, o, &r, err);
    if (*err != 0) return 0.0;
    Bond before = b;
    before.settle = bond::step_days(b.settle, -1);
    const double yesterday = accrue(m, before, o, &r, err);
    if (*err != 0) return 0.0;
    const double day = today - yesterday;
    return day < 0.0 ? day + r.cpn_amt : day;
}

void write_date(const Date& x, int32_t* m, int32_t* d, int32_t* y) {
    *m = x.m;
    *d = x.d;
    *y = x.y;
}

bond::Coupons coupons_of(const Bond& b, const Date& at) {
    return bond::coupons_around(at, b.mat, b.dated, b.first_cpn, b.eom, b.cpn_freq);
}

}  // namespace

double ai(const Market& market, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m,
          int32_t exdiv_dt_d, int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y,
          int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d,
          int32_t first_cpn_y, int32_t, int32_t, int32_t, double cpn_rate, int32_t day_type, int32_t eom,
          int32_t cpn_freq, int32_t opt1, int32_t opt2, int32_t, double* nxt_frac, double* cpn_amt,
          int32_t* n_after, int32_t validate, uint32_t* err_code) {
    Options o{opt1, opt2};
    Bond b{{settle_m, settle_d, settle_y}, {exdiv_dt_m, exdiv_dt_d, exdiv_dt_y}, ex_type, {mat_m, mat_d, mat_y},
             {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y}, cpn_rate, day_type, eom, cpn_freq};
    if (!open_member(market, &b, &o, nullptr, given_yield, 1.0, 100.0, nullptr, validate, err_code)) return 0.0;
    Reduced r;
    uint32_t err = 0;
    const double accrued = accrue(market, b, o, &r, &err);
    if (err != 0) return bond::fail_price(err_code, err);
    *nxt_frac = r.nxt_frac;
    *cpn_amt = r.cpn_amt;
    *n_after = r.n_after;
    return net(market, accrued);
}

void py_ai(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double value,
           double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m,
           int32_t exdiv_dt_d, int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y,
           int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d,
           int32_t first_cpn_y, double redemptn, int32_t l1p_rule, int32_t opt1, int32_t opt2, double* result,
           double* ai, int32_t validate, uint32_t* err_code) {
    Options o{opt1, opt2};
    Bond b{{settle_m, settle_d, settle_y}, {exdiv_dt_m, exdiv_dt_d, exdiv_dt_y}, ex_type, {mat_m, mat_d, mat_y},
             {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y}, cpn_rate, day_type, eom, cpn_freq};
    if (!open_member(market, &b, &o, &l1p_rule, calc_type, value, redemptn, nullptr, validate, err_code)) return;
    Reduced r;
    uint32_t err = 0;
    const double accrued = accrue(market, b, o, &r, &err);
    FlowSet set;
    if (err != 0 || !set.fill(market, r, accrued, cpn_rate, redemptn, b.cpn_freq, &err)) {
        *err_code = err;
        return;
    }
    *ai = accrued;
    if (calc_type != 1 && calc_type != 2) {
        *err_code = ORVEL_E_SELECTOR;
        return;
    }
    if (market.rules.par_at_coupon && (calc_type == 1 ? value == cpn_rate : value == 100.0)) {
        *result = calc_type == 1 ? 100.0 : cpn_rate;  // at its coupon rate a bond is at par
        return;
    }
    const double priced_ai = pricing_accrual(market, b, o, accrued, &r, &err);
    if (err != 0) {
        *err_code = err;
        return;
    }
    const Pricing p{market, r, priced_ai, cpn_rate, redemptn, b.cpn_freq, l1p_rule, o,
                    market.rules.cash_flows ? &set : nullptr};
    const double v = calc_type == 1 ? p.price(value, &err) : p.yield(value, &err);
    if (err != 0) {
        *err_code = err;
        return;
    }
    *result = v;
}

double one_day(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate,
               int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d,
               int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
               int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
               double face_k, int32_t opt1, int32_t opt2, int32_t validate, uint32_t* err_code) {
    Options o{opt1, opt2};
    Bond b{{settle_m, settle_d, settle_y}, {exdiv_dt_m, exdiv_dt_d, exdiv_dt_y}, ex_type, {mat_m, mat_d, mat_y},
             {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y}, cpn_rate, day_type, eom, cpn_freq};
    if (!open_member(market, &b, &o, nullptr, given_yield, 1.0, 100.0, &face_k, validate, err_code)) return 0.0;
    uint32_t err = 0;
    const double day = one_day_at(market, b, o, &err);
    return err != 0 ? bond::fail_price(err_code, err) : bond::holding(net(market, day), face_k);
}

double fpi(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
           int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y,
           int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
           int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double face_k,
           int32_t opt1, int32_t opt2, int32_t, int32_t* pay_m, int32_t* pay_d, int32_t* pay_y, int32_t validate,
           uint32_t* err_code) {
    Options o{opt1, opt2};
    Bond b{{settle_m, settle_d, settle_y}, {exdiv_dt_m, exdiv_dt_d, exdiv_dt_y}, ex_type, {mat_m, mat_d, mat_y},
             {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y}, cpn_rate, day_type, eom, cpn_freq};
    if (!open_member(market, &b, &o, nullptr, given_yield, 1.0, 100.0, &face_k, validate, err_code)) return 0.0;
    Reduced r;
    uint32_t err = 0;
    const double accrued = accrue(market, b, o, &r, &err);
    if (err != 0) return bond::fail_price(err_code, err);
    write_date(coupons_of(b, b.settle).next, pay_m, pay_d, pay_y);
    return accrued < 0.0 ? 0.0 : bond::holding(net(market, r.cpn_amt), face_k);  // ex-dividend: the seller's coupon
}

double pip(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
           int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y,
           int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
           int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double face_k,
           int32_t opt1, int32_t opt2, int32_t, int32_t* pay_m, int32_t* pay_d, int32_t* pay_y, int32_t validate,
           uint32_t* err_code) {
    Options o{opt1, opt2};
    Bond b{{settle_m, settle_d, settle_y}, {exdiv_dt_m, exdiv_dt_d, exdiv_dt_y}, ex_type, {mat_m, mat_d, mat_y},
       {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y}, cpn_rate, day_type, eom, cpn_freq};
    if (!open_member(market, &b, &o, nullptr, given_yield, 1.0, 100.0, &face_k, validate, err_code)) return 0.0;
    // At maturity the period is the last one, seen from inside; on a coupon date it is the one ending there.
    if (bond::days_between(b.settle, b.mat, b.day_type) == 0) b.settle = bond::step_days(b.settle, -2);
    if (same_cycle(b.settle, b.mat, b.eom, b.cpn_freq) && !(b.dated_given && same_date(b.settle, b.dated)))
        b.settle = bond::step_days(b.settle, -1);
    Reduced r;
    reduce_at(market, b, o, &r);
    write_date(coupons_of(b, b.settle).next, pay_m, pay_d, pay_y);
    return bond::holding(net(market, r.cpn_amt), face_k);
}

int32_t cfs(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
            int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y,
            int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d,
            int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double redemptn,
            double face_k, int32_t opt1, int32_t opt2, int32_t, int32_t, int32_t capacity, int32_t* cf_m,
            int32_t* cf_d, int32_t* cf_y, double* int_amts, double* prin_amts, double* times, int32_t* count,
            double* ai, int32_t validate, uint32_t* err_code) {
    Options o{opt1, opt2};
    Bond b{{settle_m, settle_d, settle_y}, {exdiv_dt_m, exdiv_dt_d, exdiv_dt_y}, ex_type, {mat_m, mat_d, mat_y},
             {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y}, cpn_rate, day_type, eom, cpn_freq};
    if (!open_member(market, &b, &o, nullptr, given_yield, 1.0, redemptn, &face_k, validate, err_code)) return 0;
    Reduced r;
    uint32_t err = 0;
    const double accrued = accrue(market, b, o, &r, &err);
    if (err != 0) return static_cast<int32_t>(bond::fail_price(err_code, err));
    const int32_t n = bond::holding_flows(b.settle, b.mat, b.dated, b.first_cpn, r, cpn_rate, redemptn, face_k,
                                          accrued < 0.0, b.eom, b.cpn_freq, capacity, cf_m, cf_d, cf_y, int_amts,
                                          prin_amts, times, count, err_code);
    if (n < 0) return 0;
    for (int32_t k = 0; k < n; ++k) int_amts[k] = net(market, int_amts[k]);
    *ai = bond::holding(net(market, accrued), face_k);
    return n;
}

void risk(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double value,
          double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m,
          int32_t exdiv_dt_d, int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y,
          int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d,
          int32_t first_cpn_y, double redemptn, int32_t l1p_rule, int32_t opt1, int32_t opt2, int32_t, double* price,
          double* yld, double* ai, double* mac_dur, double* mod_dur, double* convexity, double* cur_yld,
          double* pvbp, double* tot_int, double* cpn_int, double* ioi, int32_t* prev_cpn_m, int32_t* prev_cpn_d,
          int32_t* prev_cpn_y, int32_t* next_cpn_m, int32_t* next_cpn_d, int32_t* next_cpn_y, int32_t* da,
          int32_t* dp, int32_t* dr, double* nxt_frac, double* cpn_amt, int32_t* n_after, int32_t validate,
          uint32_t* err_code) {
    Options o{opt1, opt2};
    Bond b{{settle_m, settle_d, settle_y}, {exdiv_dt_m, exdiv_dt_d, exdiv_dt_y}, ex_type, {mat_m, mat_d, mat_y},
             {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y}, cpn_rate, day_type, eom, cpn_freq};
    if (!open_member(market, &b, &o, &l1p_rule, calc_type, value, redemptn, nullptr, validate, err_code)) return;
    if (calc_type != 1 && calc_type != 2) {
        *err_code = ORVEL_E_SELECTOR;
        return;
    }
    Reduced r;
    uint32_t err = 0;
    const double accrued = accrue(market, b, o, &r, &err);
    const double priced_ai = err != 0 ? 0.0 : pricing_accrual(market, b, o, accrued, &r, &err);
    FlowSet set;
    if (err == 0) set.fill(market, r, priced_ai, cpn_rate, redemptn, b.cpn_freq, &err);
    const Pricing p{market, r, priced_ai, cpn_rate, redemptn, b.cpn_freq, l1p_rule, o,
                    market.rules.cash_flows ? &set : nullptr};
    // Each step runs only while the ones before it succeeded: the first failure is the one reported.
    const double y = err != 0 || calc_type == 1 ? value : p.yield(value, &err);
    const double px = err != 0 || calc_type == 2 ? value : p.price(value, &err);
    const double down = err != 0 ? 0.0 : p.price(y - 0.01, &err);
    const double up = err != 0 ? 0.0 : p.price(y + 0.01, &err);
    const double y_period = err != 0 ? 0.0 : bond::yield_equivalent(y, p.yield_freq(), b.cpn_freq, &err);
    const double v = 1.0 + y_period / (b.cpn_freq * 100.0);
    if (err == 0 && !(v > 0.0)) err = ORVEL_E_NEG_BASE;
    if (err == 0 && !(r.n_after >= 0 && r.n_after <= bond::max_walk_periods)) err = ORVEL_E_FULL_PER;
    if (err != 0) {
        *err_code = err;
        return;
    }
    Reduced received = r;  // the flows the buyer receives: not the next coupon ex-dividend
    if (priced_ai < 0.0) received.cpn_amt = 0.0;
    const bool nothing_left = r.nxt_frac == 0.0 && r.n_after == 0;
    const bond::Moments mm = nothing_left ? bond::Moments{}
                             : p.set != nullptr ? set_moments(set, b.cpn_freq, v)
                                                : bond::walk_flows(received, cpn_rate, redemptn, b.cpn_freq, v);
    const double mac = nothing_left ? 0.0 : mm.time_pv / mm.pv / b.cpn_freq;
    const bond::Income in =
        bond::income_to_maturity(y_period, b.cpn_freq, cpn_rate, received.cpn_amt, r.n_after, r.nxt_frac);
    const bond::Coupons around = coupons_of(b, b.settle);
    *price = px;
    *yld = y;
    *ai = accrued;
    *mac_dur = mac;
    *mod_dur = mac / v;
    *convexity = nothing_left ? 0.0 : mm.cvx_sum / (v * v * mm.pv);
    *cur_yld = cpn_rate / px * 100.0;
    *pvbp = (down - up) / 2.0;
    *tot_int = in.tot_int;
    *cpn_int = in.cpn_int;
    *ioi = in.ioi;
    write_date(around.previous, prev_cpn_m, prev_cpn_d, prev_cpn_y);
    write_date(around.next, next_cpn_m, next_cpn_d, next_cpn_y);
    *da = bond::days_between(around.previous, b.settle, b.day_type);
    *dp = bond::days_between(around.previous, around.next, b.day_type);
    *dr = bond::days_between(b.settle, around.next, b.day_type);
    *nxt_frac = r.nxt_frac;
    *cpn_amt = r.cpn_amt;
    *n_after = r.n_after;
}

double i_earn(const Market& market, int32_t from_m, int32_t from_d, int32_t from_y, int32_t to_m, int32_t to_d,
              int32_t to_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y, int32_t ex_type,
              int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
              int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, int32_t, int32_t, int32_t,
              double cpn_rate, double face_k, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t opt1,
              int32_t opt2, int32_t, double* ai_from, double* ai_to, double* cpn_paid, double* one_day,
              double* cpn_amt, int32_t* n_cpns, int32_t* days_act, int32_t* days_basis, int32_t* from_pcd_m,
              int32_t* from_pcd_d, int32_t* from_pcd_y, int32_t* from_ncd_m, int32_t* from_ncd_d,
              int32_t* from_ncd_y, int32_t* to_pcd_m, int32_t* to_pcd_d, int32_t* to_pcd_y, int32_t* to_ncd_m,
              int32_t* to_ncd_d, int32_t* to_ncd_y, int32_t capacity, int32_t* cf_m, int32_t* cf_d, int32_t* cf_y,
              double* earned, double* paid, int32_t* days, int32_t* count, int32_t validate, uint32_t* err_code) {
    Options o{opt1, opt2};
    take_defaults(market, &day_type, &eom, &cpn_freq, nullptr, &o);
    // Interest is earned whoever receives the coupon: the accruals run without the ex-dividend rule.
    const Bond at_to{{to_m, to_d, to_y}, {exdiv_dt_m, exdiv_dt_d, exdiv_dt_y}, ex_type,
                     {mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_cpn_m, first_cpn_d, first_cpn_y},
                     cpn_rate, day_type, eom, cpn_freq};
    Bond to_plain = at_to, from_plain = at_to;
    to_plain.ex_type = from_plain.ex_type = 0;
    from_plain.settle = Date{from_m, from_d, from_y};
    if (validate != 0 && !(valid_bond(market, from_plain, given_yield, 1.0, 100.0, o, err_code) &&
                           valid_bond(market, at_to, given_yield, 1.0, 100.0, o, err_code) &&
                           Check(err_code)
                               .expect(bond::days_between(from_plain.settle, at_to.settle, bond::actual_days) >= 0,
                                       ORVEL_E_PERIOD_ORDER)
                               .ok() &&
                           valid_face(face_k, err_code)))
        return 0.0;
    Reduced r_from, r_to;
    uint32_t err = 0;
    const double a_from = accrue(market, from_plain, o, &r_from, &err);
    const double a_to = accrue(market, to_plain, o, &r_to, &err);
    const double day = one_day_at(market, to_plain, o, &err);
    if (err != 0) return bond::fail_price(err_code, err);
    const Date from = from_plain.settle, to = to_plain.settle;
    const bond::Coupons around_from = coupons_of(to_plain, from), around_to = coupons_of(to_plain, to);
    // The pieces of the window: one per coupon date after `from` and on or before `to`, then the rest to `to`.
    const auto on_or_before_to = [&](const Date& c) { return bond::days_between(c, to, bond::actual_days) >= 0; };
    int32_t coupons = 0;
    for (Date c = around_from.next; on_or_before_to(c) && coupons < bond::max_walk_periods;
         c = coupons_of(to_plain, c).next)
        ++coupons;
    const Date last_end = coupons == 0 ? from : around_to.previous;
    const int32_t pieces = coupons + (same_date(last_end, to) ? 0 : 1);
    if (pieces > capacity) {
        *count = pieces;
        return bond::fail_price(err_code, ORVEL_E_CAPACITY);
    }
    double total_paid = 0.0;
    Date start = from;
    double start_ai = a_from;
    for (int32_t k = 0; k < pieces; ++k) {
        const bool is_coupon = k < coupons;
        const Date end = is_coupon ? coupons_of(to_plain, start).next : to;
        Reduced before;  // the coupon paid at a coupon date is the one of the period ending there
        Bond last_day = to_plain;
        last_day.settle = bond::step_days(end, -1);
        reduce_at(market, last_day, o, &before);
        const double coupon = is_coupon ? before.cpn_amt : 0.0;
        write_date(end, &cf_m[k], &cf_d[k], &cf_y[k]);
        earned[k] = bond::holding(net(market, (is_coupon ? coupon : a_to) - start_ai), face_k);
        paid[k] = bond::holding(net(market, coupon), face_k);
        days[k] = bond::days_between(start, end, bond::actual_days);
        total_paid += coupon;
        start = end;
        start_ai = 0.0;
    }
    *count = pieces;
    *ai_from = net(market, a_from);
    *ai_to = net(market, a_to);
    *cpn_paid = bond::holding(net(market, total_paid), face_k);
    *one_day = bond::holding(net(market, day), face_k);
    *cpn_amt = r_to.cpn_amt;
    *n_cpns = coupons;
    *days_act = bond::days_between(from, to, bond::actual_days);
    *days_basis = bond::days_between(from, to, day_type);
    write_date(around_from.previous, from_pcd_m, from_pcd_d, from_pcd_y);
    write_date(around_from.next, from_ncd_m, from_ncd_d, from_ncd_y);
    write_date(around_to.previous, to_pcd_m, to_pcd_d, to_pcd_y);
    write_date(around_to.next, to_ncd_m, to_ncd_d, to_ncd_y);
    return bond::holding(net(market, a_to - a_from + total_paid), face_k);
}

int32_t ifs_pfs(const Market& market, int32_t, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate,
                int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d, int32_t mat_y,
                int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d,
                int32_t first_cpn_y, double face_k, int32_t capacity, int32_t* cf_m, int32_t* cf_d, int32_t* cf_y,
                double* int_flows, double* prin_flows, int32_t* count, int32_t validate, uint32_t* err_code) {
    Options o{-1, -1};
    Bond b{{settle_m, settle_d, settle_y}, no_date, 0, {mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y},
           {first_cpn_m, first_cpn_d, first_cpn_y}, cpn_rate, day_type, eom, cpn_freq};
    if (!open_member(market, &b, &o, nullptr, given_yield, 1.0, 100.0, &face_k, validate, err_code)) return 0;
    if (market.rules.regular_schedule) bond::regular_dates(b.mat, &b.dated, &b.first_cpn, b.cpn_freq, b.eom);
    Reduced r;
    reduce_at(market, b, o, &r);
    const int32_t n = bond::holding_flows(b.settle, b.mat, b.dated, b.first_cpn, r, cpn_rate, 100.0,
                                          face_k == 0.0 ? 1.0 : face_k, false, b.eom, b.cpn_freq, capacity, cf_m,
                                          cf_d, cf_y, int_flows, prin_flows, nullptr, count, err_code);
    return n < 0 ? 0 : n;
}

}  // namespace orvel::markets
