// Argentine government bonds: 30E/360 semi-annual, simple interest in the final period.
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market argb{90, Accrual::ExDividend, Kernels::Aibd};

}  // namespace

ORVEL_MARKET_AI(argb_ai, argb)
ORVEL_MARKET_PY_AI(argb_py_ai, argb)
ORVEL_MARKET_1DI(argb_1di, argb)
ORVEL_MARKET_FPI(argb_fpi, argb)
ORVEL_MARKET_PIP(argb_pip, argb)
ORVEL_MARKET_CFS(argb_cfs, argb)
ORVEL_MARKET_RISK(argb_risk, argb)
ORVEL_MARKET_I_EARN(argb_i_earn, argb)
