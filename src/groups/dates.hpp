// Pieces shared by the date-group validators: the checks of validity and order as steps of a Check chain
// (the role or pair of roles added to the number), and the coupon period of settlement.
#pragma once

#include <cstdint>

#include "calendar/order.hpp"
#include "core/validators.hpp"
#include "orvel/frame.h"
#include "schedule/odd_periods.hpp"

namespace orvel {

struct Conventions {
    int32_t day_type, eom, cpn_freq;
};

// Valid and not blank: the only dates that later checks may compare with.
inline bool is_given(Date x) { return !is_blank(x) && is_valid(x); }

inline Check& required(Check& c, uint32_t role, Date x) { return c.call(role, ok_MDY, x.m, x.d, x.y, 1); }
inline Check& optional(Check& c, uint32_t role, Date x) { return c.call(role, ok_MDY, x.m, x.d, x.y, 0); }

// a before b (2100 + roles) and a not after b (2000 + roles), compared under day_type.
inline Check& before(Check& c, uint32_t roles, Date a, Date b, int32_t day_type) {
    return c.call(roles, cal::before, a, b, day_type);
}
inline Check& not_after(Check& c, uint32_t roles, Date a, Date b, int32_t day_type) {
    return c.call(roles, cal::not_after, a, b, day_type);
}

// A first coupon date given without a dated date: 1502, and the dated date is zeroed.
inline Check& dated_for_first(Check& check, DateRef dated, Date first) {
    if (check && is_blank(dated.get()) && !is_blank(first)) {
        dated.set({0, 0, 0});
        check.expect(false, with_role(ORVEL_E_BLANK, ORVEL_ROLE_DATED));
    }
    return check;
}

// a before b in calendar order.
inline bool earlier(Date a, Date b) { return cal::compare(a, b) < 0; }

// Two dates on one coupon cycle (ok_cpn_sync's test): the same day of the month, a month end counting as
// any later day under eom (and February's end as any later day), in months a whole number of periods apart.
bool same_cycle(Date a, Date b, int32_t eom, int32_t cpn_freq);

// The coupon period that holds settlement, for a schedule with an optional odd first period (dated to
// first_cpn) and an optional odd last period (last_cpn to mat); blank or invalid optional dates are left out.
inline schedule::Bracket settlement_period(Date settle, Date mat, Date dated, Date first_cpn, Date last_cpn,
                                           int32_t eom, int32_t cpn_freq) {
    const auto given_or_blank = [](Date x) { return is_given(x) ? x : Date{0, 0, 0}; };
    return schedule::odd_period_of(
        settle, {mat, given_or_blank(dated), given_or_blank(first_cpn), given_or_blank(last_cpn), eom, cpn_freq});
}

}  // namespace orvel
