// Belgian government bonds (OLOs): 30E/360 annual on the g1p kernels; the accrued interest to mkt_opt5
// decimals in the members that ask the option.
#include "core/check.hpp"
#include "core/rounding.hpp"
#include "markets/family.hpp"

namespace {

using namespace orvel;
using namespace orvel::markets;

bool decimals(const Options& o, uint32_t* err) {
    return (o.opt1 >= 0 && o.opt1 <= 9) || fail(err, ORVEL_E_MKT_OPT);
}

double rounded(double ai, const Options& o) { return o.opt1 == 0 ? ai : trunc_round(ai, o.opt1, true); }

constexpr Market blgb{120, Accrual::ExDividend, Kernels::G1p, Slot::Opt5, Slot::None,
                      {.valid_options = decimals, .round_ai = rounded}};
constexpr Market blgb_unrounded{120, Accrual::ExDividend, Kernels::G1p};

}  // namespace

ORVEL_MARKET_AI(blgb_ai, blgb)
ORVEL_MARKET_PY_AI(blgb_py_ai, blgb)
ORVEL_MARKET_RISK(blgb_risk, blgb)
ORVEL_MARKET_I_EARN(blgb_i_earn, blgb)
ORVEL_MARKET_1DI(blgb_1di, blgb_unrounded)
ORVEL_MARKET_FPI(blgb_fpi, blgb_unrounded)
ORVEL_MARKET_PIP(blgb_pip, blgb_unrounded)
ORVEL_MARKET_CFS(blgb_cfs, blgb_unrounded)
