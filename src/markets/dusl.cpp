// Dutch state loans: 30E/360 annual, compound yield to maturity.
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market dusl{290, Accrual::ExDividend, Kernels::Aibd};

}  // namespace

ORVEL_MARKET_AI(dusl_ai, dusl)
ORVEL_MARKET_PY_AI(dusl_py_ai, dusl)
ORVEL_MARKET_1DI(dusl_1di, dusl)
ORVEL_MARKET_FPI(dusl_fpi, dusl)
ORVEL_MARKET_PIP(dusl_pip, dusl)
ORVEL_MARKET_CFS(dusl_cfs, dusl)
ORVEL_MARKET_RISK(dusl_risk, dusl)
ORVEL_MARKET_I_EARN(dusl_i_earn, dusl)
