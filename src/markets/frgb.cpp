// French government bonds (OATs): actual/actual, annual coupons, compound to maturity. The accrued interest
// may be stated rounded: mkt_opt8 decimals of the amount per 100 (0, the default, unrounded); the _ad_
// members state it as the Paris market publishes it, to 3 decimals unless mkt_opt8 asks for others; _sd_ai
// counts the settlement day itself.
#include "core/check.hpp"
#include "core/rounding.hpp"
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

bool decimals(const Options& o, uint32_t* err) {
    return (o.opt1 >= 0 && o.opt1 <= 9) || orvel::fail(err, ORVEL_E_MKT_OPT);
}

double rounded(double ai, const Options& o) { return o.opt1 == 0 ? ai : orvel::trunc_round(ai, o.opt1, true); }

double as_published(double ai, const Options& o) { return orvel::trunc_round(ai, o.opt1 == 0 ? 3 : o.opt1, true); }

constexpr Rules plain{.valid_options = decimals, .round_ai = rounded};
constexpr Rules published{.valid_options = decimals, .round_ai = as_published};
constexpr Rules settlement_day{.valid_options = decimals, .round_ai = rounded, .counts_settlement_day = true};

constexpr Market frgb{190, Accrual::ExDividend, Kernels::Aibd, Slot::Opt8, Slot::None, plain};
constexpr Market frgb_ad{190, Accrual::ExDividend, Kernels::Aibd, Slot::Opt8, Slot::None, published};
constexpr Market frgb_sd{190, Accrual::ExDividend, Kernels::Aibd, Slot::Opt8, Slot::None, settlement_day};

}  // namespace

ORVEL_MARKET_AI(frgb_ai, frgb)
ORVEL_MARKET_PY_AI(frgb_py_ai, frgb)
ORVEL_MARKET_1DI(frgb_1di, frgb)
ORVEL_MARKET_FPI(frgb_fpi, frgb)
ORVEL_MARKET_PIP(frgb_pip, frgb)
ORVEL_MARKET_CFS(frgb_cfs, frgb)
ORVEL_MARKET_RISK(frgb_risk, frgb)
ORVEL_MARKET_I_EARN(frgb_i_earn, frgb)
ORVEL_MARKET_AI(frgb_ad_ai, frgb_ad)
ORVEL_MARKET_PY_AI(frgb_ad_py, frgb_ad)
ORVEL_MARKET_RISK(frgb_ad_risk, frgb_ad)
ORVEL_MARKET_AI(frgb_sd_ai, frgb_sd)
