// Austrian government bonds: 30E/360 annual coupons, ex-dividend accrual, simple interest in the final
// period by default.
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market augb{110, Accrual::ExDividend, Kernels::Aibd};

}  // namespace

ORVEL_MARKET_AI(augb_ai, augb)
ORVEL_MARKET_PY_AI(augb_py_ai, augb)
ORVEL_MARKET_1DI(augb_1di, augb)
ORVEL_MARKET_FPI(augb_fpi, augb)
ORVEL_MARKET_PIP(augb_pip, augb)
ORVEL_MARKET_CFS(augb_cfs, augb)
ORVEL_MARKET_RISK(augb_risk, augb)
ORVEL_MARKET_I_EARN(augb_i_earn, augb)
