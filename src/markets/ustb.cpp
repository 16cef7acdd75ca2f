// US Treasury notes and bonds: actual/actual, semi-annual, end of month; compound to maturity except with
// simple interest in the final period (as the Street prices the last coupon period). Every member opens
// with the engine's method code (bond_py_ai): 3, 6 and 8 price on the regular schedule, an odd first coupon
// ignored, and 6 takes a yield equal to the coupon as a price of exactly 100.
#include "bond/price_yield.hpp"
#include "core/check.hpp"
#include "markets/family.hpp"

namespace {

using namespace orvel::markets;

constexpr Market ustb{10, Accrual::ExDividend, Kernels::Aibd};
constexpr Market ustb_regular{10, Accrual::ExDividend, Kernels::Aibd, Slot::None, Slot::None,
                              {.regular_schedule = true}};
constexpr Market ustb_par{10, Accrual::ExDividend, Kernels::Aibd, Slot::None, Slot::None,
                          {.regular_schedule = true, .par_at_coupon = true}};

const Market& market_for(int32_t method) {
    return method == 6 ? ustb_par : orvel::bond::ignores_odd_first(method) ? ustb_regular : ustb;
}

// A method outside 1..8, or 2, is refused (300) with or without validation.
bool known(int32_t method, uint32_t* err_code) {
    return orvel::bond::known_method(method) || orvel::fail(err_code, ORVEL_E_SEC_TYPE);
}

}  // namespace

// The bodies take the model order; the arguments are forwarded by name, whatever order the member has.
#define ORVEL_USTB(kind, name, body, failed)                                               \
    ORVEL_MKT_UST_##kind(name) {                                                           \
        if (!known(method, err_code)) return failed;                                       \
        return orvel::markets::body(market_for(method), ORVEL_MKT_##kind##_ARGS);          \
    }

ORVEL_USTB(AI, ustb_ai, ai, 0.0)
ORVEL_USTB(PY_AI, ustb_py_ai, py_ai, )
ORVEL_USTB(1DI, ustb_1di, one_day, 0.0)
ORVEL_USTB(FPI, ustb_fpi, fpi, 0.0)
ORVEL_USTB(FPI, ustb_pip, pip, 0.0)
ORVEL_USTB(CFS, ustb_cfs, cfs, 0)
ORVEL_USTB(RISK, ustb_risk, risk, )
ORVEL_USTB(I_EARN, ustb_i_earn, i_earn, 0.0)

ORVEL_MKT_UST_IFS_PFS(ustb_ifs_pfs) {
    if (!known(method, err_code)) return 0;
    return orvel::markets::ifs_pfs(market_for(method), ORVEL_MKT_UST_IFS_PFS_ARGS);
}
