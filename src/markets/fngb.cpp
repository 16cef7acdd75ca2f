// Finnish government bonds: 30E/360 annual, simple interest in the final period.
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market fngb{180, Accrual::ExDividend, Kernels::Aibd};

}  // namespace

ORVEL_MARKET_AI(fngb_ai, fngb)
ORVEL_MARKET_PY_AI(fngb_py_ai, fngb)
ORVEL_MARKET_1DI(fngb_1di, fngb)
ORVEL_MARKET_FPI(fngb_fpi, fngb)
ORVEL_MARKET_PIP(fngb_pip, fngb)
ORVEL_MARKET_CFS(fngb_cfs, fngb)
ORVEL_MARKET_RISK(fngb_risk, fngb)
ORVEL_MARKET_I_EARN(fngb_i_earn, fngb)
