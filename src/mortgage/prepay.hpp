// Pool-factor projection by prepayment speed and its inverse, the PSA speed implied by observed factors.
#pragma once

#include <cstdint>

#include "bond/solver.hpp"
#include "mortgage/speeds.hpp"

namespace mtg {

// The fraction of a balance prepaid in a month of loan age `age` at a speed of type 1 (CPR percent),
// 2 (SMM percent) or 3 (PSA percent of the ramp), as the one-month factor functions take it: a factor f
// becomes f - fraction(age) f. The seasoned fraction of a constant speed is worked once.
class MonthlySmm {
public:
    MonthlySmm(int32_t spd_type, double speed);
    double at(int32_t age) const;

private:
    int32_t type_;
    double speed_;
    double seasoned_;
};

// Pool factor at month index mth2 from `factor` at mth1, the pool paying as a level loan of term wam at
// cpn_rate and prepaying at smm by loan age (wam - orig_term + 1 months below month index, see loan_age).
// With apply 0 the factor comes back unchanged. After each month t (mth1 <= t < mth2) seen(t + 1, factor)
// is called. Every month argument within -max_term..max_term.
template <class Seen>
double project_factor(int32_t orig_term, int32_t wam, double cpn_rate, int32_t apply, double factor, int32_t mth1,
                      int32_t mth2, const MonthlySmm& smm, Seen&& seen) {
    const double r = monthly_rate(cpn_rate);
    const double pmt = level_payment(wam, cpn_rate);
    double b = scheduled_balance(wam, wam - mth1, cpn_rate) * 100.0;
    double ratio = factor / (b * 0.01);
    double f = factor * 100.0;
    if (mth1 >= mth2) return factor;
    for (int32_t t = mth1; t < mth2; ++t) {
        const double p = pmt - b * r;
        const double next = ratio - smm.at(loan_age(t, wam, orig_term)) * ratio;
        if (apply != 0) f = f - ((ratio - next) * b + next * p);
        b = b - p;
        ratio = next;
        seen(t + 1, f * 0.01);
    }
    return f * 0.01;
}

// The PSA speed carrying factors[0] at mths[0] to the later observations: the root of the mean of
// factors[i] - projected factor at mths[i] (i >= 1), from 100, 99, 101, within 0.0005; a candidate above
// the cap (the speed whose ramp reaches a CPR of 100 % at age mths[n-1] - wam + orig_term) is taken at the
// cap. Months increasing, each within -max_term..max_term, n >= 2. 9020 from the solver.
double psa_of_factors(int32_t orig_term, int32_t wam, double cpn_rate, int32_t n, const int32_t* mths,
                      const double* factors, uint32_t* err_code, orvel::SolveStats* stats = nullptr);

}  // namespace mtg
