// What the market families take from the engine: the accruals under an ex-dividend or pay-day rule, the
// price and yield of a reduced schedule by the kernel a market chooses, the flows and their moments. None
// of these validates; the families check their arguments once, at the top.
#pragma once

#include <cstdint>

#include "bond/accrued.hpp"
#include "bond/kernels.hpp"

namespace orvel::bond {

// The coupon dates either side of a date on the bond's own schedule (odd first period included).
struct Coupons {
    Date previous, next;
};
Coupons coupons_around(const Date& date, const Date& mat, Date dated, Date first_cpn, int32_t eom, int32_t cpn_freq);

// bond_ex_ai's rule on an accrued interest ai already reduced at settlement (r): made negative inside the
// ex-dividend window (by days over 365 where the basis has a 365-day year, else as the accrued interest
// less the coupon). 960 for an ex_type other than 0, 1, 2 once the rule is reached. ex_accrued reduces too.
double ex_rule(double ai, const Reduced& r, const Date& trade, const Date& settle, const Date& exdiv, int32_t ex_type,
               const Date& mat, const Date& dated, const Date& first_cpn, double cpn_rate, int32_t day_type,
               int32_t eom, int32_t cpn_freq, uint32_t* err);
double ex_accrued(const Date& trade, const Date& settle, const Date& exdiv, int32_t ex_type, const Date& mat,
                  const Date& dated, const Date& first_cpn, double cpn_rate, int32_t day_type, int32_t eom,
                  int32_t cpn_freq, Reduced* out, uint32_t* err);

// bond_pp_ai: the accrued interest of a market that pays on the coupon date's business day: accrual runs
// between the scheduled dates, and inside the ex-dividend window it is the coupon's share of the period
// left, AI - cpn_amt, whatever the basis. 960 for an ex_type other than 0 or 1. pp_rule applies the rule to
// an accrued interest already reduced at settlement.
double pp_rule(double ai, const Reduced& r, const Date& settle, const Date& exdiv, int32_t ex_type, const Date& mat,
               const Date& dated, const Date& first_cpn, int32_t eom, int32_t cpn_freq, uint32_t* err);
double pp_accrued(const Date& settle, const Date& exdiv, int32_t ex_type, const Date& mat, const Date& dated,
                  const Date& first_cpn, double cpn_rate, int32_t day_type, int32_t eom, int32_t cpn_freq,
                  Reduced* out, uint32_t* err);

// The yield compounded yld_freq times a year that is worth the same as yld compounded from_freq times;
// 4090 when 1 + yld / (100 from_freq) is not positive.
double yield_equivalent(double yld, int32_t from_freq, int32_t to_freq, uint32_t* err);

// Clean price at a yield compounded yld_freq times a year (the next coupon, its own amount, to the seller
// when ai is negative); and in the final period with simple interest on the actual last coupon.
double price_ppp(const Terms& t, int32_t yld_freq, double yld, uint32_t* err);
double price_ppp_l1p(double yld, double redemptn, int32_t cpn_freq, double nxt_frac, double cpn_amt, double ai,
                     uint32_t* err);
double yield_ppp(const Terms& t, int32_t yld_freq, double price, uint32_t* err, SolveStats* stats = nullptr);
double yield_ppp_l1p(double price, double redemptn, int32_t cpn_freq, double nxt_frac, double cpn_amt, double ai,
                     uint32_t* err);

// Sums over the flows discounted at v per period: the next coupon at w periods, the regular coupon at
// w + 1 .. w + n, the redemption with the last (bond_dur, bond_cvx, bond_risk walk them).
struct Moments {
    double pv = 0.0;       // present value of every flow (a price with accrued interest)
    double time_pv = 0.0;  // sum of time in periods x present value
    double cvx_sum = 0.0;  // sum of t (t + h) x present value, t in years and h a period in years
};
Moments walk_flows(const Reduced& r, double cpn_rate, double redemptn, int32_t cpn_freq, double v);

// Income to maturity with reinvestment at the yield (bond_int_ioi): coupons plus interest on interest, the
// coupons alone, the interest on interest; per 100.
struct Income {
    double tot_int, cpn_int, ioi;
};
Income income_to_maturity(double yld, int32_t cpn_freq, double cpn_rate, double cpn_amt, int32_t n_after,
                          double nxt_frac);

// The remaining flows of a holding of face_k thousand into the caller's arrays (dates, interest, principal,
// time in periods unless times is null), the next coupon left out when the seller keeps it (ex-dividend).
// Returns the count, or -1 with 4600 (a schedule no calendar can date) or 13000 (capacity too small, the
// count needed written).
int32_t holding_flows(const Date& settle, const Date& mat, const Date& dated, const Date& first_cpn, const Reduced& r,
                      double cpn_rate, double redemptn, double face_k, bool seller_keeps_next, int32_t eom,
                      int32_t cpn_freq, int32_t capacity, int32_t* cf_m, int32_t* cf_d, int32_t* cf_y,
                      double* int_amts, double* prin_amts, double* times, int32_t* count, uint32_t* err);

// The same flows per 100 as a cash-flow set: amts[k] the coupon and principal of flow k (the next coupon 0
// when the seller keeps it), times[k] its coupon periods from settlement. Returns the count, or -1 with
// 4600 (a schedule no calendar can date) or 15810 (more than capacity flows) written.
int32_t flow_set(const Reduced& r, double cpn_rate, double redemptn, bool seller_keeps_next, int32_t cpn_freq,
                 int32_t capacity, double* amts, double* times, uint32_t* err);

}  // namespace orvel::bond
