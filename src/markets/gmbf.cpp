// German federal securities: the market gives the day count only; compound yield to maturity.
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market gmbf{170, Accrual::ExDividend, Kernels::Aibd};

}  // namespace

ORVEL_MARKET_PY_AI(gmbf_py_ai, gmbf)
ORVEL_MARKET_RISK(gmbf_risk, gmbf)
ORVEL_MARKET_PY_AI(gmms_py_ai, gmbf)
ORVEL_MARKET_RISK(gmms_risk, gmbf)
