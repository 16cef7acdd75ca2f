// UK gilts: coupons paid on the business day with accrual between the scheduled dates, ex-dividend as the
// coupon's share of the period left; prices and yields on the kernels that pay the actual next coupon.
// The pricing members take code 410 (compound to maturity), the holding members 411; the members that
// price from the flows take 411 too (simple interest in the final period).
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market ukgb_410{410, Accrual::PayDay, Kernels::Pp};
constexpr Market ukgb_411{411, Accrual::PayDay, Kernels::Pp};
constexpr Market ukgb_flows{411, Accrual::PayDay, Kernels::Pp, Slot::None, Slot::None, {.cash_flows = true}};

}  // namespace

ORVEL_MARKET_AI(ukgb_ai, ukgb_410)
ORVEL_MARKET_PY_AI(ukgb_py_ai, ukgb_410)
ORVEL_MARKET_RISK(ukgb_risk, ukgb_410)
ORVEL_MARKET_1DI(ukgb_1di, ukgb_411)
ORVEL_MARKET_FPI(ukgb_fpi, ukgb_411)
ORVEL_MARKET_PIP(ukgb_pip, ukgb_411)
ORVEL_MARKET_CFS(ukgb_cfs, ukgb_411)
ORVEL_MARKET_PY_AI(ukgb_cf_py, ukgb_flows)
ORVEL_MARKET_RISK(ukgb_cfsrisk, ukgb_flows)
