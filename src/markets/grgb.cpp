// Greek government bonds: 30E/360 annual, ex-coupon, compound yield to maturity.
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market grgb{200, Accrual::ExDividend, Kernels::Aibd};

}  // namespace

ORVEL_MARKET_AI(grgb_ai, grgb)
ORVEL_MARKET_PY_AI(grgb_py_ai, grgb)
ORVEL_MARKET_1DI(grgb_1di, grgb)
ORVEL_MARKET_FPI(grgb_fpi, grgb)
ORVEL_MARKET_PIP(grgb_pip, grgb)
ORVEL_MARKET_CFS(grgb_cfs, grgb)
ORVEL_MARKET_RISK(grgb_risk, grgb)
ORVEL_MARKET_I_EARN(grgb_i_earn, grgb)
