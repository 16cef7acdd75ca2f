// Swedish government bonds: 30E/360 annual, ex-coupon, simple interest in the final period.
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market sdgb{370, Accrual::ExDividend, Kernels::Aibd};

}  // namespace

ORVEL_MARKET_AI(sdgb_ai, sdgb)
ORVEL_MARKET_PY_AI(sdgb_py_ai, sdgb)
ORVEL_MARKET_1DI(sdgb_1di, sdgb)
ORVEL_MARKET_FPI(sdgb_fpi, sdgb)
ORVEL_MARKET_PIP(sdgb_pip, sdgb)
ORVEL_MARKET_CFS(sdgb_cfs, sdgb)
ORVEL_MARKET_RISK(sdgb_risk, sdgb)
ORVEL_MARKET_I_EARN(sdgb_i_earn, sdgb)
