// The reduction of a bond's dates to the numbers the kernels price on, shared by every date-driven member
// of the engine (the exports bond_ai and its callers go through it without re-validating).
#pragma once

#include <cstdint>

#include "bond/dates.hpp"

namespace orvel::bond {

// No bond the calendar can date (1800..2300, monthly coupons) has more periods; a walk along the flows
// longer than this can only come from unvalidated garbage, and is refused (4600) rather than run.
inline constexpr int32_t max_walk_periods = 100000;

struct Reduced {
    double nxt_frac = 0.0;  // coupon periods from settlement to the next coupon
    double cpn_amt = 0.0;   // the next coupon per 100
    int32_t n_after = 0;    // whole periods after the next coupon
};

// A per-100 amount in the money of a holding of face_k thousand.
inline double holding(double per_100, double face_k) { return per_100 * face_k * 10.0; }

// A face amount in thousands: zero or more, and finite.
inline bool valid_face(double face_k) { return face_k >= 0.0 && face_k <= 1.7976931348623157e308; }

// The accrued interest at settlement, with the schedule numbers in *out. Blank dated and first coupon
// dates take the defaults of default_first_period. Validates nothing.
double reduce(const Date& settle, const Date& mat, Date dated, Date first_cpn, double cpn_rate, int32_t day_type,
              int32_t eom, int32_t cpn_freq, Reduced* out);

// The date group of a coupon bond (ok_bond_MDYs): writes the defaults of blank dated and first coupon
// dates back, and its number on failure.
bool valid_bond_dates(Date settle, Date mat, Date* dated, Date* first_cpn, int32_t day_type, int32_t eom,
                      int32_t cpn_freq, uint32_t* err_code);

// bond_ai: the conventions and the date group checked when validate is set (blank dated and first coupon
// dates then take the group's defaults), then the reduction.
double accrued(Date settle, Date mat, Date dated, Date first_cpn, double cpn_rate, int32_t day_type, int32_t eom,
               int32_t cpn_freq, int32_t validate, Reduced* out, uint32_t* err_code);

// The same with bond_ai's three outputs, written only on success.
double accrued_to(Date settle, Date mat, Date dated, Date first_cpn, double cpn_rate, int32_t day_type, int32_t eom,
                  int32_t cpn_freq, double* nxt_frac, double* cpn_amt, int32_t* n_after, int32_t validate,
                  uint32_t* err_code);

}  // namespace orvel::bond
