// The terms every whole-loan function shares: a level or graduated loan of term months at cpn_rate,
// seasoned age months, prepaying at a constant CPR (percent a year).
#pragma once

#include <cmath>
#include <cstdint>

#include "core/check.hpp"
#include "mortgage/amort.hpp"
#include "orvel/mortgage.h"

namespace mtg {

struct LoanTerms {
    int32_t term;
    double cpn_rate;
    int32_t age;
    double cpr;
    bool graduated = false;
    int32_t grad_mths = 0;
    double grad_rate = 0.0;

    Loan loan() const {
        return graduated ? Loan::graduated(term, cpn_rate, grad_mths, grad_rate) : Loan::level(term, cpn_rate);
    }
    // The monthly mortality 1 - (1 - cpr/100)^(1/12), a fraction.
    double smm() const { return smm_of_cpr_fraction(cpr / 100.0); }
};

// Validating: 6401/6402 term, 4100 note rate, for a graduated loan 11501/11502 graduation months (0..term)
// and 11501 graduation rate, 6501/6502 age (0 .. term - 1), 7001 CPR (0..100). Always: 15500 a term
// outside 1..600 months or an age outside 0 .. term - 1.
inline bool valid_loan(const LoanTerms& t, int32_t validate, uint32_t* err_code) {
    if (validate != 0) {
        orvel::Check check(err_code);
        check.call(0, ok_orig_term, t.term).call(0, ok_cpn_rate, t.cpn_rate);
        if (t.graduated) check.call(0, ok_m_pmtinc, t.grad_mths, t.term).call(0, ok_rt_pmtinc, t.grad_rate);
        if (!check.call(0, ok_pool_age, t.age, t.term).call(0, ok_pcnt_spd, t.cpr, 1)) return false;
    }
    return (t.term >= 1 && t.term <= max_term && t.age >= 0 && t.age < t.term) ||
           orvel::fail(err_code, ORVEL_E_MTG_LONG);
}

// A result the arithmetic could not give as a number (graduated payments that overflow, say): 15503.
inline bool finite_result(double x, uint32_t* err_code) {
    return std::isfinite(x) || orvel::fail(err_code, ORVEL_E_MTG_NONFINITE);
}

}  // namespace mtg
