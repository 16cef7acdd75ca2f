// The prepayment measures: CPR, SMM and the PSA ramp, their conversions, and one month's prepayment on a
// pool factor.
#include "core/check.hpp"
#include "mortgage/prepay.hpp"
#include "mortgage/speeds.hpp"
#include "orvel/mortgage.h"

using orvel::Check;

namespace mtg {

// Type 3 takes the CPR fraction c 0.06 from age 30 (c = psa/100), age c 0.002 below.
MonthlySmm::MonthlySmm(int32_t spd_type, double speed) : type_(spd_type), speed_(speed), seasoned_(0.0) {
    switch (type_) {
        case 1: seasoned_ = smm_of_cpr_fraction(speed * 0.01); break;
        case 2: seasoned_ = speed * 0.01; break;
        default: seasoned_ = smm_of_cpr_fraction(speed * 0.01 * 0.06); break;
    }
}

double MonthlySmm::at(int32_t age) const {
    if (type_ != 3 || age >= 30) return seasoned_;
    return smm_of_cpr_fraction(age * (speed_ * 0.01) * 0.002);
}

}  // namespace mtg

namespace {

double next_factor(int32_t spd_type, double speed, int32_t age, double factor) {
    return factor - mtg::MonthlySmm(spd_type, speed).at(age) * factor;
}

bool valid_nsf(double factor, double speed, int32_t kind, uint32_t* err_code) {
    return Check(err_code).call(0, ok_mbs_fctr, factor).call(0, ok_pcnt_spd, speed, kind).ok();
}

}  // namespace

ORVEL_EXPORT(double) mbs_cpr2smm(double cpr) { return mtg::smm_of_cpr_fraction(cpr); }

ORVEL_EXPORT(double) mbs_smm2cpr(double smm) { return mtg::cpr_of_smm_percent(smm); }

// The PSA speed is checked as a CPR (0..100).
ORVEL_EXPORT(double) mbs_get_psa(int32_t age, double psa, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !Check(err_code).call(0, ok_pcnt_spd, psa, 1)) return 0.0;
    return mtg::psa_cpr(age, psa);
}

ORVEL_EXPORT(double) mbs_cpr_nsf(double cpr, double factor, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_nsf(factor, cpr, 1, err_code)) return 0.0;
    return next_factor(1, cpr, 0, factor);
}

ORVEL_EXPORT(double) mbs_smm_nsf(double smm, double factor, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_nsf(factor, smm, 2, err_code)) return 0.0;
    return next_factor(2, smm, 0, factor);
}

ORVEL_EXPORT(double) mbs_psa_nsf(double psa, int32_t age, double factor, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !valid_nsf(factor, psa, 3, err_code)) return 0.0;
    return next_factor(3, psa, age, factor);
}

ORVEL_EXPORT(double) mbs_nsf(int32_t spd_type, double speed, int32_t age, double factor, int32_t validate,
                             uint32_t* err_code) {
    if (validate != 0 && !valid_nsf(factor, speed, spd_type, err_code)) return 0.0;
    if (spd_type < 1 || spd_type > 3) return orvel::fail(err_code, ORVEL_E_PCNT_SPD_MODEL);
    return next_factor(spd_type, speed, age, factor);
}
