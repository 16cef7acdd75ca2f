// The validation idiom of every export: a chain of checks that stops at the first failure, writes that
// check's number plus the role of the argument (1207 = a bad month of the settlement date) and leaves
// every later check unrun.
//
//   return orvel::Check(err_code)
//       .call(0, ok_day_type, day_type)
//       .call(ORVEL_ROLE_SETTLE, ok_MDY, sm, sd, sy, 1)
//       .expect(within(price, 0.0, 10000.0), 4002)
//       .ok();
#pragma once

#include <cstdint>

#include "orvel/frame.h"

namespace orvel {

// The failure path of every export: the number goes to err_code, the caller returns 0.
inline bool fail(uint32_t* err_code, uint32_t number) {
    *err_code = number;
    return false;
}

// x in [lo, hi]; false for NaN, so a range check written with it rejects NaN as well.
inline bool within(double x, double lo, double hi) { return x >= lo && x <= hi; }

class Check {
public:
    explicit Check(uint32_t* err_code) : err_code_(err_code) {}

    // Runs validator(args..., &scratch); on failure writes scratch + role to err_code.
    template <class Validator, class... Args>
    Check& call(uint32_t role, Validator validator, Args... args) {
        if (failed_) return *this;
        uint32_t scratch = 0;
        if (!validator(args..., &scratch)) {
            *err_code_ = scratch + role;
            failed_ = true;
        }
        return *this;
    }

    // A condition checked in place: number is written when it is false.
    Check& expect(bool condition, uint32_t number) {
        if (!failed_ && !condition) {
            *err_code_ = number;
            failed_ = true;
        }
        return *this;
    }

    // Runs any step that writes its own number through the err pointer it is given (a nested chain).
    template <class Step>
    Check& step(Step&& s) {
        if (!failed_ && !s(err_code_)) failed_ = true;
        return *this;
    }

    bool ok() const { return !failed_; }
    explicit operator bool() const { return !failed_; }

private:
    uint32_t* err_code_;
    bool failed_ = false;
};

}  // namespace orvel
