// Validators of single amounts, rates and given values. Every test is written so that NaN and the two
// infinities fail it with the validator's own number.
#include "core/validators.hpp"
#include "orvel/frame.h"

using orvel::Check;
using orvel::non_negative;
using orvel::positive;
using orvel::within;

namespace {

// A price per 100 of face: above zero and at most 10000.
bool is_price(double value) { return value > 0.0 && value <= 10000.0; }

bool is_nonzero_finite(double value) { return value != 0.0 && orvel::finite(value); }

// The seasoned CPR of a PSA speed is speed x 6 / 100; above 5000/3 it would prepay more than the whole pool.
constexpr double kMaxPsa = 5000.0 / 3.0;

// The number ok_pcnt_spd writes for speed under model, or 0 when the speed is acceptable.
uint32_t speed_error(double speed, int32_t model) {
    switch (model) {
        case 1: return within(speed, 0.0, 100.0) ? 0 : ORVEL_E_PCNT_SPD1;
        case 2: return within(speed, 0.0, 100.0) ? 0 : ORVEL_E_PCNT_SPD2;
        case 3:
            if (!(speed >= 0.0)) return ORVEL_E_PCNT_SPD3;
            return speed <= kMaxPsa ? 0 : ORVEL_E_PCNT_SPD4;
        default: return ORVEL_E_PCNT_SPD_MODEL;
    }
}

}  // namespace

ORVEL_EXPORT(int32_t) ok_cpn_rate(double cpn_rate, uint32_t* err_code) {
    return Check(err_code).expect(within(cpn_rate, 0.0, 3000.0), ORVEL_E_CPN_RATE).ok();
}

ORVEL_EXPORT(int32_t) ok_tax_rate(double rate, uint32_t* err_code) {
    return Check(err_code).expect(within(rate, 0.0, 100.0), ORVEL_E_TAX_RATE).ok();
}

ORVEL_EXPORT(int32_t) ok_redemptn(double redemptn, uint32_t* err_code) {
    return Check(err_code).expect(positive(redemptn), ORVEL_E_REDEMPTN).ok();
}

ORVEL_EXPORT(int32_t) ok_conv_rate(double rate, uint32_t* err_code) {
    return Check(err_code).expect(positive(rate), ORVEL_E_CONV_RATE).ok();
}

ORVEL_EXPORT(int32_t) ok_lcpn_len(double length, uint32_t* err_code) {
    return Check(err_code).expect(positive(length), ORVEL_E_LCPN_LEN).ok();
}

ORVEL_EXPORT(int32_t) ok_mbs_bal(double balance, uint32_t* err_code) {
    return Check(err_code).expect(positive(balance), ORVEL_E_MBS_BAL).ok();
}

ORVEL_EXPORT(int32_t) ok_ai(double ai, uint32_t* err_code) {
    return Check(err_code).expect(non_negative(ai), ORVEL_E_AI).ok();
}

ORVEL_EXPORT(int32_t) ok_days_pcnt(double value, uint32_t* err_code) {
    return Check(err_code).expect(non_negative(value), ORVEL_E_DAYS_PCNT).ok();
}

ORVEL_EXPORT(int32_t) ok_mbs_fctr(double factor, uint32_t* err_code) {
    return Check(err_code).expect(non_negative(factor), ORVEL_E_MBS_FCTR).ok();
}

ORVEL_EXPORT(int32_t) ok_rt_balinc(double rate, uint32_t* err_code) {
    return Check(err_code).expect(non_negative(rate), ORVEL_E_RT_BALINC).ok();
}

ORVEL_EXPORT(int32_t) ok_rt_pmtinc(double rate, uint32_t* err_code) {
    return Check(err_code).expect(non_negative(rate), ORVEL_E_PMTINC_LOW).ok();
}

ORVEL_EXPORT(int32_t) ok_sf_amt(double amount, uint32_t* err_code) {
    return Check(err_code).expect(non_negative(amount), ORVEL_E_SF_AMT).ok();
}

// An infinite fee or bound counts as above the bound.
ORVEL_EXPORT(int32_t) ok_srvc_fee(double fee, double bound, uint32_t* err_code) {
    return Check(err_code)
        .expect(fee >= 0.0, ORVEL_E_SRVC_FEE_LOW)
        .expect(fee <= bound && bound <= orvel::kMaxDouble, ORVEL_E_SRVC_FEE_HIGH)
        .ok();
}

ORVEL_EXPORT(int32_t) ok_given(double value, int32_t given_type, uint32_t* err_code) {
    bool good = false;
    switch (given_type) {
        case 1: case 11: good = is_nonzero_finite(value); break;          // a yield
        case 2: good = is_price(value); break;                              // a price
        case 3: good = value > 0.0 && value <= 25.0; break;                 // a discount rate
        case 4: case 5: case 12: good = positive(value); break;
        default: return orvel::fail(err_code, ORVEL_E_SELECTOR);
    }
    return Check(err_code).expect(good, ORVEL_E_GIVEN_BASE + static_cast<uint32_t>(given_type)).ok();
}

// Code 2 is a price; code 31 a spread, any finite number.
ORVEL_EXPORT(int32_t) ok_given_ps(double value, int32_t given_type, uint32_t* err_code) {
    if (given_type == 2) return Check(err_code).expect(is_price(value), ORVEL_E_GIVEN_BASE + 2).ok();
    if (given_type == 31) return Check(err_code).expect(orvel::finite(value), ORVEL_E_GIVEN_SPREAD).ok();
    return orvel::fail(err_code, ORVEL_E_GIVEN_PS);
}

// Codes 1 and 21 are real yields (non-zero), 2 and 22 prices; the codes between are not given values.
ORVEL_EXPORT(int32_t) ok_infl_gvn(double value, int32_t given_type, uint32_t* err_code) {
    bool good = false;
    switch (given_type) {
        case 1: case 21: good = is_nonzero_finite(value); break;
        case 2: case 22: good = is_price(value); break;
        default: return orvel::fail(err_code, ORVEL_E_SELECTOR);
    }
    return Check(err_code).expect(good, ORVEL_E_GIVEN_BASE + static_cast<uint32_t>(given_type)).ok();
}

ORVEL_EXPORT(int32_t) ok_pcnt_spd(double speed, int32_t model, uint32_t* err_code) {
    const uint32_t number = speed_error(speed, model);
    return Check(err_code).expect(number == 0, number).ok();
}

// One speed a month, each valid under the schedule's model.
ORVEL_EXPORT(int32_t) ok_pps(int32_t spd_type, int32_t count, const double* speeds, uint32_t* err_code) {
    Check check(err_code);
    check.expect(spd_type >= 1 && spd_type <= 3 && count >= 1 && count <= 480 && speeds != nullptr, ORVEL_E_PPS);
    for (int32_t i = 0; check && i < count; ++i) check.expect(speed_error(speeds[i], spd_type) == 0, ORVEL_E_PPS);
    return check.ok();
}
