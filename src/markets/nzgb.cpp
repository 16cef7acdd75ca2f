// New Zealand government bonds: actual/actual semi-annual, ex-interest, simple interest in the final period.
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market nzgb{310, Accrual::ExDividend, Kernels::Aibd};

}  // namespace

ORVEL_MARKET_AI(nzgb_ai, nzgb)
ORVEL_MARKET_PY_AI(nzgb_py_ai, nzgb)
ORVEL_MARKET_1DI(nzgb_1di, nzgb)
ORVEL_MARKET_FPI(nzgb_fpi, nzgb)
ORVEL_MARKET_PIP(nzgb_pip, nzgb)
ORVEL_MARKET_CFS(nzgb_cfs, nzgb)
ORVEL_MARKET_RISK(nzgb_risk, nzgb)
ORVEL_MARKET_I_EARN(nzgb_i_earn, nzgb)
