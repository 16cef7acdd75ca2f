// Swiss government bonds: 30/360 annual, compound yield to maturity.
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market swgb{380, Accrual::ExDividend, Kernels::Aibd};

}  // namespace

ORVEL_MARKET_AI(swgb_ai, swgb)
ORVEL_MARKET_PY_AI(swgb_py_ai, swgb)
ORVEL_MARKET_1DI(swgb_1di, swgb)
ORVEL_MARKET_FPI(swgb_fpi, swgb)
ORVEL_MARKET_PIP(swgb_pip, swgb)
ORVEL_MARKET_CFS(swgb_cfs, swgb)
ORVEL_MARKET_RISK(swgb_risk, swgb)
