// Spanish government bonds: the caller's coupon frequency, yields compounded mkt_opt7 times a year (annual).
#include "core/check.hpp"
#include "markets/family.hpp"

namespace {

using namespace orvel;
using namespace orvel::markets;

bool yield_frequency(const Options& o, uint32_t* err) {
    const bool known = o.opt1 == 1 || o.opt1 == 2 || o.opt1 == 4 || o.opt1 == 12;
    return known || fail(err, o.opt1 == -1 ? ORVEL_E_YLD_FREQ_MISSING : ORVEL_E_YLD_FREQ);
}

int32_t yield_freq(int32_t, const Options& o) { return o.opt1; }

constexpr Market spgb{360, Accrual::ExDividend, Kernels::G1p, Slot::Opt7, Slot::None,
                      {.valid_options = yield_frequency, .yield_freq = yield_freq}};
constexpr Market spgb_flows{360, Accrual::ExDividend, Kernels::G1p, Slot::Opt7, Slot::None,
                            {.valid_options = yield_frequency, .yield_freq = yield_freq, .cash_flows = true}};

}  // namespace

ORVEL_MARKET_AI(spgb_ai, spgb)
ORVEL_MARKET_PY_AI(spgb_py_ai, spgb)
ORVEL_MARKET_1DI(spgb_1di, spgb)
ORVEL_MARKET_FPI(spgb_fpi, spgb)
ORVEL_MARKET_PIP(spgb_pip, spgb)
ORVEL_MARKET_CFS(spgb_cfs, spgb)
ORVEL_MARKET_RISK(spgb_risk, spgb)
ORVEL_MARKET_PY_AI(spgb_cf_py, spgb_flows)
ORVEL_MARKET_RISK(spgb_cfsrisk, spgb_flows)
