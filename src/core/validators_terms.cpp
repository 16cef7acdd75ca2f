// Validators of mortgage terms and of months and days counted within a term. A pair of numbers ending in
// 01 and 02 says on which side the value left its range: 01 below the lower bound, 02 above the upper.
#include "core/validators.hpp"
#include "orvel/frame.h"

using orvel::Check;

namespace {

// lo <= x <= hi with the below/above pair of numbers.
int32_t within_term(int32_t x, int32_t lo, int32_t hi, uint32_t* err_code, uint32_t below, uint32_t above) {
    return Check(err_code).expect(x >= lo, below).expect(x <= hi, above).ok();
}

}  // namespace

// The term is the caller's context only: a balloon or lock-out month is checked against zero alone.
ORVEL_EXPORT(int32_t) ok_balloon(int32_t months, int32_t /*term*/, uint32_t* err_code) {
    return Check(err_code).expect(months >= 0, ORVEL_E_BALLOON).ok();
}

ORVEL_EXPORT(int32_t) ok_lock_out(int32_t months, int32_t /*term*/, uint32_t* err_code) {
    return Check(err_code).expect(months >= 0, ORVEL_E_LOCK_OUT).ok();
}

// Forty years of monthly payments at most.
ORVEL_EXPORT(int32_t) ok_orig_term(int32_t months, uint32_t* err_code) {
    return within_term(months, 1, 480, err_code, ORVEL_E_TERM_LOW, ORVEL_E_TERM_HIGH);
}

ORVEL_EXPORT(int32_t) ok_id_2_md(int32_t days, uint32_t* err_code) {
    return within_term(days, 1, 600, err_code, ORVEL_E_TERM_LOW, ORVEL_E_TERM_HIGH);
}

ORVEL_EXPORT(int32_t) ok_sd_2_md(int32_t days, uint32_t* err_code) {
    return within_term(days, 1, 600, err_code, ORVEL_E_SD_2_MD_LOW, ORVEL_E_SD_2_MD_HIGH);
}

// A term of 0 (or below) means the original term is not known: no upper bound then.
ORVEL_EXPORT(int32_t) ok_wam(int32_t months, int32_t term, uint32_t* err_code) {
    return Check(err_code)
        .expect(months >= 1, ORVEL_E_WAM_LOW)
        .expect(term <= 0 || months <= term, ORVEL_E_WAM_HIGH)
        .ok();
}

ORVEL_EXPORT(int32_t) ok_avg_life(int32_t months, int32_t term, uint32_t* err_code) {
    return within_term(months, 0, term, err_code, ORVEL_E_AVG_LIFE_LOW, ORVEL_E_AVG_LIFE_HIGH);
}

ORVEL_EXPORT(int32_t) ok_hldng_mth(int32_t month, int32_t term, uint32_t* err_code) {
    return within_term(month, 1, term, err_code, ORVEL_E_HLDNG_MTH_LOW, ORVEL_E_HLDNG_MTH_HIGH);
}

ORVEL_EXPORT(int32_t) ok_m_inc_bal(int32_t month, int32_t term, uint32_t* err_code) {
    return within_term(month, 0, term, err_code, ORVEL_E_M_INC_BAL_LOW, ORVEL_E_M_INC_BAL_HIGH);
}

ORVEL_EXPORT(int32_t) ok_m_pmtinc(int32_t month, int32_t term, uint32_t* err_code) {
    return within_term(month, 0, term, err_code, ORVEL_E_PMTINC_LOW, ORVEL_E_PMTINC_HIGH);
}

// A pool as old as its term has paid off: the age must stay below the term.
ORVEL_EXPORT(int32_t) ok_pool_age(int32_t months, int32_t term, uint32_t* err_code) {
    return Check(err_code).expect(months >= 0, ORVEL_E_POOL_AGE_LOW).expect(months < term, ORVEL_E_POOL_AGE_HIGH).ok();
}
