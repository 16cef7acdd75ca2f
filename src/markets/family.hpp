// The family layer: what every member of a market family does, written once. A member states only its
// market (code, accrual, kernels and its own rules) and its kind:
//
//   constexpr orvel::markets::Market augb{110, Accrual::ExDividend, Kernels::Aibd};
//   ORVEL_MARKET_AI(augb_ai, augb)
//
// Each ORVEL_MARKET_<KIND> defines the export with the shape's argument list (ORVEL_MKT_<KIND> of
// orvel/markets.h) and forwards every argument to the kind's body here: the opening (convention slots to
// the market's defaults, validation with ok_bond_in and ok_exdiv_MDY), then the engine with nothing more
// to check.
#pragma once

#include <cstdint>

#include "bond/market.hpp"
#include "core/civil.hpp"
#include "orvel/markets.h"

namespace orvel::markets {

// The accrual a market runs on: bond_ex_ai's rule (ex-dividend by days over 365 on a 365-day basis) or
// bond_pp_ai's (coupons paid on the business day, ex-dividend as the coupon's share of the period left).
enum class Accrual { ExDividend, PayDay };

// The price and yield kernels: the compound aibd pair with bond_ptm_l1p / bond_ytm_l1p in the final
// period; the same compounding with bond_ppp_l1p / bond_ppy_l1p (the actual last coupon); or the taxed
// bond_ptm_g1p / bond_ytm_g1p pair (zero-yield form) with the taxed final-period kernels.
enum class Kernels { Aibd, Pp, G1p };

// The market option an option slot (opt1, opt2) takes its default from, in get_sec_dflt's table.
enum class Slot { None, OddDayType, Opt5, Opt7, Opt8 };

// A member's option slots after the defaults.
struct Options {
    int32_t opt1, opt2;
};

// The bond a member is called on.
struct Bond {
    Date settle, exdiv;
    int32_t ex_type;
    Date mat, dated, first_cpn;
    double cpn_rate;
    int32_t day_type, eom, cpn_freq;
    bool dated_given = true;  // false once a blank dated date has taken its default
};

// A market's own rules, each null where the market has none.
struct Rules {
    bool (*valid_options)(const Options&, uint32_t* err) = nullptr;     // checked after the bond
    int32_t (*accrual_basis)(const Bond&, const Options&) = nullptr;     // the day count the accrual runs on
    double (*round_ai)(double ai, const Options&) = nullptr;            // the accrued interest as the market states it
    int32_t (*yield_freq)(int32_t cpn_freq, const Options&) = nullptr;  // the yield's compounding frequency
    bool counts_settlement_day = false;  // the accrual runs through settlement, the day included
    bool regular_schedule = false;  // prices on the regular schedule, an odd first coupon ignored
    bool par_at_coupon = false;     // a yield equal to the coupon rate is a price of exactly 100, and back
    double tax1 = 0.0;  // G1p kernels: a fraction of the coupons and accrued interest
    double tax2 = 0.0;  // G1p kernels: a fraction of the gain to redemption
    double withheld = 0.0;  // the fraction of every interest amount a holding member reports that is withheld
    // Prices from the bond's own flows as _cfs lists them (a cash-flow set, times in coupon periods) on the
    // set's kernels: compound sums and the set's yield solve; the final-period rule stays the market's.
    bool cash_flows = false;
};

struct Market {
    int32_t code;  // get_sec_dflt's market code
    Accrual accrual;
    Kernels kernels;
    Slot opt1 = Slot::None, opt2 = Slot::None;
    Rules rules{};
};

// One body per kind; the arguments are the shape's, in its order.
double ai(const Market& market, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m,
    int32_t exdiv_dt_d, int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y,
    int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d,
    int32_t first_cpn_y, int32_t rsv_dt_m, int32_t rsv_dt_d, int32_t rsv_dt_y, double cpn_rate, int32_t day_type,
    int32_t eom, int32_t cpn_freq, int32_t opt1, int32_t opt2, int32_t opt3, double* nxt_frac, double* cpn_amt,
    int32_t* n_after, int32_t validate, uint32_t* err_code);
void py_ai(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double value,
    double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d,
    int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
    int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
    double redemptn, int32_t l1p_rule, int32_t opt1, int32_t opt2, double* result, double* ai, int32_t validate,
    uint32_t* err_code);
double one_day(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate,
    int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d,
    int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
    int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double face_k,
    int32_t opt1, int32_t opt2, int32_t validate, uint32_t* err_code);
double fpi(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
    int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y, int32_t ex_type,
    int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
    int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double face_k, int32_t opt1, int32_t opt2,
    int32_t opt3, int32_t* pay_m, int32_t* pay_d, int32_t* pay_y, int32_t validate, uint32_t* err_code);
double pip(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate, int32_t settle_m,
    int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y, int32_t ex_type,
    int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y,
    int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y, double face_k, int32_t opt1, int32_t opt2,
    int32_t opt3, int32_t* pay_m, int32_t* pay_d, int32_t* pay_y, int32_t validate, uint32_t* err_code);
int32_t cfs(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, double cpn_rate,
    int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d,
    int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
    int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
    double redemptn, double face_k, int32_t opt1, int32_t opt2, int32_t opt3, int32_t rsv, int32_t capacity,
    int32_t* cf_m, int32_t* cf_d, int32_t* cf_y, double* int_amts, double* prin_amts, double* times, int32_t* count,
    double* ai, int32_t validate, uint32_t* err_code);
void risk(const Market& market, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double value,
    double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d,
    int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m, int32_t mat_d, int32_t mat_y, int32_t dated_m,
    int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d, int32_t first_cpn_y,
    double redemptn, int32_t l1p_rule, int32_t opt1, int32_t opt2, int32_t opt3, double* price, double* yld,
    double* ai, double* mac_dur, double* mod_dur, double* convexity, double* cur_yld, double* pvbp, double* tot_int,
    double* cpn_int, double* ioi, int32_t* prev_cpn_m, int32_t* prev_cpn_d, int32_t* prev_cpn_y,
    int32_t* next_cpn_m, int32_t* next_cpn_d, int32_t* next_cpn_y, int32_t* da, int32_t* dp, int32_t* dr,
    double* nxt_frac, double* cpn_amt, int32_t* n_after, int32_t validate, uint32_t* err_code);
double i_earn(const Market& market, int32_t from_m, int32_t from_d, int32_t from_y, int32_t to_m, int32_t to_d,
    int32_t to_y, int32_t exdiv_dt_m, int32_t exdiv_dt_d, int32_t exdiv_dt_y, int32_t ex_type, int32_t mat_m,
    int32_t mat_d, int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m,
    int32_t first_cpn_d, int32_t first_cpn_y, int32_t rsv_dt_m, int32_t rsv_dt_d, int32_t rsv_dt_y, double cpn_rate,
    double face_k, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t opt1, int32_t opt2, int32_t opt3,
    double* ai_from, double* ai_to, double* cpn_paid, double* one_day, double* cpn_amt, int32_t* n_cpns,
    int32_t* days_act, int32_t* days_basis, int32_t* from_pcd_m, int32_t* from_pcd_d, int32_t* from_pcd_y,
    int32_t* from_ncd_m, int32_t* from_ncd_d, int32_t* from_ncd_y, int32_t* to_pcd_m, int32_t* to_pcd_d,
    int32_t* to_pcd_y, int32_t* to_ncd_m, int32_t* to_ncd_d, int32_t* to_ncd_y, int32_t capacity, int32_t* cf_m,
    int32_t* cf_d, int32_t* cf_y, double* earned, double* paid, int32_t* days, int32_t* count, int32_t validate,
    uint32_t* err_code);
int32_t ifs_pfs(const Market& market, int32_t method, int32_t day_type, int32_t eom, int32_t cpn_freq,
    double cpn_rate, int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
    int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_cpn_m, int32_t first_cpn_d,
    int32_t first_cpn_y, double face_k, int32_t capacity, int32_t* cf_m, int32_t* cf_d, int32_t* cf_y,
    double* int_flows, double* prin_flows, int32_t* count, int32_t validate, uint32_t* err_code);

}  // namespace orvel::markets

#define ORVEL_MKT_AI_ARGS \
    settle_m, settle_d, settle_y, exdiv_dt_m, exdiv_dt_d, exdiv_dt_y, ex_type, mat_m, mat_d, mat_y, dated_m, \
    dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, rsv_dt_m, rsv_dt_d, rsv_dt_y, cpn_rate, \
    day_type, eom, cpn_freq, opt1, opt2, opt3, nxt_frac, cpn_amt, n_after, validate, err_code

#define ORVEL_MKT_PY_AI_ARGS \
    day_type, eom, cpn_freq, calc_type, value, cpn_rate, settle_m, settle_d, settle_y, exdiv_dt_m, \
    exdiv_dt_d, exdiv_dt_y, ex_type, mat_m, mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m, \
    first_cpn_d, first_cpn_y, redemptn, l1p_rule, opt1, opt2, result, ai, validate, err_code

#define ORVEL_MKT_1DI_ARGS \
    day_type, eom, cpn_freq, cpn_rate, settle_m, settle_d, settle_y, exdiv_dt_m, exdiv_dt_d, exdiv_dt_y, \
    ex_type, mat_m, mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, face_k, \
    opt1, opt2, validate, err_code

#define ORVEL_MKT_FPI_ARGS \
    day_type, eom, cpn_freq, cpn_rate, settle_m, settle_d, settle_y, exdiv_dt_m, exdiv_dt_d, exdiv_dt_y, \
    ex_type, mat_m, mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, face_k, \
    opt1, opt2, opt3, pay_m, pay_d, pay_y, validate, err_code

#define ORVEL_MKT_CFS_ARGS \
    day_type, eom, cpn_freq, cpn_rate, settle_m, settle_d, settle_y, exdiv_dt_m, exdiv_dt_d, exdiv_dt_y, \
    ex_type, mat_m, mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, \
    redemptn, face_k, opt1, opt2, opt3, rsv, capacity, cf_m, cf_d, cf_y, int_amts, prin_amts, times, count, \
    ai, validate, err_code

#define ORVEL_MKT_RISK_ARGS \
    day_type, eom, cpn_freq, calc_type, value, cpn_rate, settle_m, settle_d, settle_y, exdiv_dt_m, \
    exdiv_dt_d, exdiv_dt_y, ex_type, mat_m, mat_d, mat_y, dated_m, dated_d, dated_y, first_cpn_m, \
    first_cpn_d, first_cpn_y, redemptn, l1p_rule, opt1, opt2, opt3, price, yld, ai, mac_dur, mod_dur, \
    convexity, cur_yld, pvbp, tot_int, cpn_int, ioi, prev_cpn_m, prev_cpn_d, prev_cpn_y, next_cpn_m, \
    next_cpn_d, next_cpn_y, da, dp, dr, nxt_frac, cpn_amt, n_after, validate, err_code

#define ORVEL_MKT_I_EARN_ARGS \
    from_m, from_d, from_y, to_m, to_d, to_y, exdiv_dt_m, exdiv_dt_d, exdiv_dt_y, ex_type, mat_m, mat_d, \
    mat_y, dated_m, dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, rsv_dt_m, rsv_dt_d, rsv_dt_y, \
    cpn_rate, face_k, day_type, eom, cpn_freq, opt1, opt2, opt3, ai_from, ai_to, cpn_paid, one_day, cpn_amt, \
    n_cpns, days_act, days_basis, from_pcd_m, from_pcd_d, from_pcd_y, from_ncd_m, from_ncd_d, from_ncd_y, \
    to_pcd_m, to_pcd_d, to_pcd_y, to_ncd_m, to_ncd_d, to_ncd_y, capacity, cf_m, cf_d, cf_y, earned, paid, \
    days, count, validate, err_code
#define ORVEL_MKT_UST_IFS_PFS_ARGS \
    method, day_type, eom, cpn_freq, cpn_rate, settle_m, settle_d, settle_y, mat_m, mat_d, mat_y, dated_m, \
    dated_d, dated_y, first_cpn_m, first_cpn_d, first_cpn_y, face_k, capacity, cf_m, cf_d, cf_y, int_flows, \
    prin_flows, count, validate, err_code

// The export `name`, a member of `market`'s family, of each kind.
#define ORVEL_MARKET_AI(name, market) \
    ORVEL_MKT_AI(name) { return orvel::markets::ai(market, ORVEL_MKT_AI_ARGS); }
#define ORVEL_MARKET_PY_AI(name, market) \
    ORVEL_MKT_PY_AI(name) { orvel::markets::py_ai(market, ORVEL_MKT_PY_AI_ARGS); }
#define ORVEL_MARKET_1DI(name, market) \
    ORVEL_MKT_1DI(name) { return orvel::markets::one_day(market, ORVEL_MKT_1DI_ARGS); }
#define ORVEL_MARKET_FPI(name, market) \
    ORVEL_MKT_FPI(name) { return orvel::markets::fpi(market, ORVEL_MKT_FPI_ARGS); }
#define ORVEL_MARKET_PIP(name, market) \
    ORVEL_MKT_FPI(name) { return orvel::markets::pip(market, ORVEL_MKT_FPI_ARGS); }
#define ORVEL_MARKET_CFS(name, market) \
    ORVEL_MKT_CFS(name) { return orvel::markets::cfs(market, ORVEL_MKT_CFS_ARGS); }
#define ORVEL_MARKET_RISK(name, market) \
    ORVEL_MKT_RISK(name) { orvel::markets::risk(market, ORVEL_MKT_RISK_ARGS); }
#define ORVEL_MARKET_I_EARN(name, market) \
    ORVEL_MKT_I_EARN(name) { return orvel::markets::i_earn(market, ORVEL_MKT_I_EARN_ARGS); }
