// Whole-loan amortization: the payment of each loan month of a level or graduated loan, the scheduled
// balance walked month by month, and the flows of a loan seasoned `age` months that prepays at a constant
// monthly mortality, per 100 of its balance at `age`. Flow k (k = 0 for the month after `age`) falls at
// (k + 1) / 12 years and is discounted at a bond-equivalent yield, (1 + yld/200)^(2 t): the pass-through
// time grid with no payment delay and no accrued days.
#pragma once

#include <cstdint>

#include "core/check.hpp"
#include "mortgage/speeds.hpp"

namespace mtg {

// The longest term (months) any projection runs: terms, ages and months beyond it are refused with
// ORVEL_E_MTG_LONG whether or not the call validates, so no loop runs longer and no month sum overflows.
inline constexpr int32_t max_term = 600;
inline constexpr int32_t max_years = max_term / 12 + 1;

inline bool short_enough(int32_t months) { return months >= -max_term && months <= max_term; }

// Years 0 .. last of a graduated schedule: each year grad_rate percent above the one before until year
// trunc(grad_mths / 12), level from there.
inline int32_t graduated_years(int32_t grad_mths) {
    const int32_t k = grad_mths / 12;
    return k < 0 ? 0 : (k > max_years - 1 ? max_years - 1 : k);
}

// A loan of `term` months (1..max_term) at cpn_rate: its payment per 100 of the original balance in each
// loan month m = 1 .. term, by loan year.
class Loan {
public:
    static Loan level(int32_t term, double cpn_rate) {
        Loan loan(term, cpn_rate);
        loan.pay_[0] = level_payment(term, cpn_rate);
        return loan;
    }

    // At a note rate of 0 the first payment is 100 over the sum of the graduation factors of the months.
    static Loan graduated(int32_t term, double cpn_rate, int32_t grad_mths, double grad_rate) {
        Loan loan(term, cpn_rate);
        loan.last_ = graduated_years(grad_mths);
        const double g = 1.0 + grad_rate / 100.0;
        loan.pay_[0] = 1.0;
        for (int32_t y = 1; y <= loan.last_; ++y) loan.pay_[y] = loan.pay_[y - 1] * g;
        double first = gpm_first_payment(term, cpn_rate, grad_mths, grad_rate);
        if (loan.r_ == 0.0) {
            double units = 0.0;
            for (int32_t m = 1; m <= term; ++m) units += loan.payment(m);
            first = 100.0 / units;
        }
        for (int32_t y = 0; y <= loan.last_; ++y) loan.pay_[y] *= first;
        return loan;
    }

    int32_t term() const { return term_; }
    double rate() const { return r_; }
    double payment(int32_t m) const {
        const int32_t y = (m - 1) / 12;
        return pay_[y < last_ ? y : last_];
    }
    // Scheduled balance per 100 of the original after month m, from the one after month m - 1; the last
    // payment repays whatever is left.
    double next_balance(double balance, int32_t m) const {
        return m >= term_ ? 0.0 : balance * (1.0 + r_) - payment(m);
    }
    // Scheduled balance per 100 of the original after `age` payments.
    double balance_at(int32_t age) const {
        double s = 100.0;
        for (int32_t m = 1; m <= age; ++m) s = next_balance(s, m);
        return s;
    }

private:
    Loan(int32_t term, double cpn_rate) : term_(term), r_(monthly_rate(cpn_rate)) {}
    int32_t term_;
    double r_;
    int32_t last_ = 0;
    double pay_[max_years] = {};
};

// One month of a seasoned loan's flows per 100 of its balance at `age`.
struct Flow {
    double interest;
    double principal;  // scheduled principal and prepayment
    double balance;    // after the month
};

// Runs the months age + 1 .. term, prepaying the fraction smm of the balance left after each scheduled
// payment, and calls fn(k, flow) for k = 0, 1, ... Returns the number of months.
template <class Fn>
int32_t run_flows(const Loan& loan, int32_t age, double smm, Fn&& fn) {
    double scheduled = loan.balance_at(age);
    double a = 100.0;
    for (int32_t m = age + 1; m <= loan.term(); ++m) {
        const double next = loan.next_balance(scheduled, m);
        const double sched_prn = m >= loan.term() ? a : a * (scheduled - next) / scheduled;
        const double prepaid = smm * (a - sched_prn);
        const Flow f{a * loan.rate(), sched_prn + prepaid, a - sched_prn - prepaid};
        a = f.balance;
        scheduled = next;
        fn(m - age - 1, f);
    }
    return loan.term() - age;
}

// Price, average life and half-life of a seasoned loan's flows.
struct Measures {
    double price = 0.0;         // per 100 of the balance at age, at the yield given
    double average_life = 0.0;  // years
    double half_life = 0.0;     // years until half the balance is repaid
};

// The measures at bond-equivalent yield yld; false (4090 written) when 1 + yld/200 is not above 0.
inline bool measure(const Loan& loan, int32_t age, double smm, double yld, Measures* out, uint32_t* err) {
    const double b = 1.0 + yld * 0.005;
    if (!(b > 0.0)) return orvel::fail(err, ORVEL_E_NEG_BASE);
    const double v = orvel::pow(b, -1.0 / 6);
    double d = 1.0, price = 0.0, timed = 0.0, repaid = 0.0, half = -1.0, before = 100.0;
    run_flows(loan, age, smm, [&](int32_t k, const Flow& f) {
        d *= v;
        price += (f.interest + f.principal) * d;
        timed += (k + 1) * f.principal;
        repaid += f.principal;
        if (half < 0.0 && f.balance <= 50.0) half = k + (before - 50.0) / (before - f.balance);
        before = f.balance;
    });
    *out = Measures{price, timed / repaid / 12.0, half / 12.0};
    return true;
}

}  // namespace mtg
