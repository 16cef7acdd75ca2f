// Italian government bonds (BTPs): actual/actual on semi-annual coupons the caller states (the market has
// no default frequency), the accrued interest to mkt_opt7 decimals, yields compounded mkt_opt8 times a year
// (annually), on the taxed compound kernels. The tax twins are net of the 12.5 % withholding on coupons and
// accrued interest; the 1997-rule twins also tax the gain to redemption; _p1_ai counts the settlement day.
#include "core/check.hpp"
#include "core/rounding.hpp"
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

bool options(const Options& o, uint32_t* err) {
    if (!(o.opt1 >= 0 && o.opt1 <= 9)) return orvel::fail(err, ORVEL_E_MKT_OPT);
    const bool freq = o.opt2 == 1 || o.opt2 == 2 || o.opt2 == 4 || o.opt2 == 12;
    return freq || orvel::fail(err, o.opt2 == -1 ? ORVEL_E_YLD_FREQ_MISSING : ORVEL_E_YLD_FREQ);
}

double rounded(double ai, const Options& o) { return o.opt1 == 0 ? ai : orvel::trunc_round(ai, o.opt1, true); }

int32_t yield_freq(int32_t, const Options& o) { return o.opt2; }

constexpr double withholding = 0.125;  // the imposta sostitutiva on government bond interest

constexpr Rules gross{.valid_options = options, .round_ai = rounded, .yield_freq = yield_freq};
constexpr Rules net_of_tax{.valid_options = options, .round_ai = rounded, .yield_freq = yield_freq,
                           .tax1 = withholding, .withheld = withholding};
constexpr Rules rule_1997{.valid_options = options, .round_ai = rounded, .yield_freq = yield_freq,
                          .tax1 = withholding, .tax2 = withholding, .withheld = withholding};
constexpr Rules settlement_day{.valid_options = options, .round_ai = rounded, .yield_freq = yield_freq,
                               .counts_settlement_day = true};

constexpr Market itgb{250, Accrual::ExDividend, Kernels::G1p, Slot::Opt7, Slot::Opt8, gross};
constexpr Market itgb_tax{250, Accrual::ExDividend, Kernels::G1p, Slot::Opt7, Slot::Opt8, net_of_tax};
constexpr Market itgb_97t{250, Accrual::ExDividend, Kernels::G1p, Slot::Opt7, Slot::Opt8, rule_1997};
constexpr Market itgb_p1{250, Accrual::ExDividend, Kernels::G1p, Slot::Opt7, Slot::Opt8, settlement_day};

}  // namespace

ORVEL_MARKET_AI(itgb_ai, itgb)
ORVEL_MARKET_PY_AI(itgb_py_ai, itgb)
ORVEL_MARKET_1DI(itgb_1di, itgb)
ORVEL_MARKET_FPI(itgb_fpi, itgb)
ORVEL_MARKET_PIP(itgb_pip, itgb)
ORVEL_MARKET_CFS(itgb_cfs, itgb)
ORVEL_MARKET_RISK(itgb_risk, itgb)
ORVEL_MARKET_I_EARN(itgb_i_earn, itgb)

ORVEL_MARKET_1DI(itgb_1di_tax, itgb_tax)
ORVEL_MARKET_CFS(itgb_cfs_tax, itgb_tax)
ORVEL_MARKET_FPI(itgb_fpi_tax, itgb_tax)
ORVEL_MARKET_I_EARN(itgb_ie_tax, itgb_tax)
ORVEL_MARKET_PIP(itgb_pip_tax, itgb_tax)
ORVEL_MARKET_PY_AI(itgb_py_tax, itgb_tax)
ORVEL_MARKET_RISK(itgb_risktax, itgb_tax)

ORVEL_MARKET_AI(itgb_ai_97t, itgb_97t)
ORVEL_MARKET_CFS(itgb_cfs_97t, itgb_97t)
ORVEL_MARKET_PY_AI(itgb_py_97t, itgb_97t)
ORVEL_MARKET_RISK(itgb_risk97t, itgb_97t)

ORVEL_MARKET_AI(itgb_p1_ai, itgb_p1)
