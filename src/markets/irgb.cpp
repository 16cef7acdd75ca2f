// Irish government bonds: coupons paid on the business day, ex-dividend by the share of the period left,
// compound yield to maturity.
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market irgb{230, Accrual::PayDay, Kernels::Aibd};

}  // namespace

ORVEL_MARKET_AI(irgb_ai, irgb)
ORVEL_MARKET_PY_AI(irgb_py_ai, irgb)
ORVEL_MARKET_1DI(irgb_1di, irgb)
ORVEL_MARKET_FPI(irgb_fpi, irgb)
ORVEL_MARKET_PIP(irgb_pip, irgb)
ORVEL_MARKET_CFS(irgb_cfs, irgb)
ORVEL_MARKET_RISK(irgb_risk, irgb)
ORVEL_MARKET_I_EARN(irgb_i_earn, irgb)
