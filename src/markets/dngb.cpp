// Danish government bonds: 30E/360 annual, ex-coupon, compound yield to maturity.
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market dngb{160, Accrual::ExDividend, Kernels::Aibd};

}  // namespace

ORVEL_MARKET_AI(dngb_ai, dngb)
ORVEL_MARKET_PY_AI(dngb_py_ai, dngb)
ORVEL_MARKET_1DI(dngb_1di, dngb)
ORVEL_MARKET_FPI(dngb_fpi, dngb)
ORVEL_MARKET_PIP(dngb_pip, dngb)
ORVEL_MARKET_CFS(dngb_cfs, dngb)
ORVEL_MARKET_RISK(dngb_risk, dngb)
ORVEL_MARKET_I_EARN(dngb_i_earn, dngb)
