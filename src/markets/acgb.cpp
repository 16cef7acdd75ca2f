// Australian Commonwealth government bonds: actual/actual semi-annual, ex-interest, simple interest in the
// final period; an out-of-step first period accrues on odd_day_type.
#include "bond/dates.hpp"
#include "core/check.hpp"
#include "markets/family.hpp"
#include "groups/dates.hpp"

namespace {

using namespace orvel;
using namespace orvel::markets;

bool odd_basis_known(const Options& o, uint32_t* err) {
    return Check(err).call(0, ok_day_type, o.opt1).ok();
}

// The accrual's day count: odd_day_type while settlement is before a first coupon out of step with the
// dated date, day_type otherwise.
int32_t accrual_basis(const Bond& b, const Options& o) {
    const bool before_first =
        !is_blank(b.first_cpn) && bond::days_between(b.settle, b.first_cpn, bond::actual_days) > 0;
    const bool out_of_step =
        b.dated_given && !is_blank(b.dated) && !same_cycle(b.dated, b.first_cpn, b.eom, b.cpn_freq);
    return before_first && out_of_step ? o.opt1 : b.day_type;
}

constexpr Market acgb{100, Accrual::ExDividend, Kernels::Aibd, Slot::OddDayType, Slot::None,
                      {.valid_options = odd_basis_known, .accrual_basis = accrual_basis}};

}  // namespace

ORVEL_MARKET_AI(acgb_ai, acgb)
ORVEL_MARKET_PY_AI(acgb_py_ai, acgb)
ORVEL_MARKET_1DI(acgb_1di, acgb)
ORVEL_MARKET_FPI(acgb_fpi, acgb)
ORVEL_MARKET_PIP(acgb_pip, acgb)
ORVEL_MARKET_CFS(acgb_cfs, acgb)
ORVEL_MARKET_RISK(acgb_risk, acgb)
ORVEL_MARKET_I_EARN(acgb_i_earn, acgb)
