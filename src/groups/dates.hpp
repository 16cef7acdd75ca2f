// Pieces shared by the date-group validators: a date value, a date changed in place, and the checks of
// validity and order as steps of a Check chain (the role or pair of roles added to the number).
#pragma once

#include <cstdint>

#include "core/validators.hpp"
#include "orvel/calendar.h"
#include "orvel/frame.h"

namespace orvel {

struct Date {
    int32_t m, d, y;
};

// A date the validator may fill with a default (three caller pointers).
struct DateRef {
    int32_t* m;
    int32_t* d;
    int32_t* y;
    Date get() const { return {*m, *d, *y}; }
    void set(Date v) const { *m = v.m, *d = v.d, *y = v.y; }
};

struct Conventions {
    int32_t day_type, eom, cpn_freq;
};

inline bool is_blank(Date x) { return is_blank_date(x.m, x.d, x.y); }

// Valid and not blank: the only dates that later checks may compare with.
inline bool is_given(Date x) {
    uint32_t scratch = 0;
    return !is_blank(x) && ok_MDY(x.m, x.d, x.y, 0, &scratch) != 0;
}

inline Check& required(Check& c, uint32_t role, Date x) { return c.call(role, ok_MDY, x.m, x.d, x.y, 1); }
inline Check& optional(Check& c, uint32_t role, Date x) { return c.call(role, ok_MDY, x.m, x.d, x.y, 0); }

// a before b (2100 + roles) and a not after b (2000 + roles), compared under day_type.
inline Check& before(Check& c, uint32_t roles, Date a, Date b, int32_t day_type) {
    return c.call(roles, is_MDYltMDY, a.m, a.d, a.y, b.m, b.d, b.y, day_type, 0);
}
inline Check& not_after(Check& c, uint32_t roles, Date a, Date b, int32_t day_type) {
    return c.call(roles, is_MDYleMDY, a.m, a.d, a.y, b.m, b.d, b.y, day_type, 0);
}

// A first coupon date given without a dated date: 1502, and the dated date is zeroed.
inline Check& dated_for_first(Check& check, DateRef dated, Date first) {
    if (check && is_blank(dated.get()) && !is_blank(first)) {
        dated.set({0, 0, 0});
        check.expect(false, with_role(ORVEL_E_BLANK, ORVEL_ROLE_DATED));
    }
    return check;
}

inline Date periods_later(Date x, int32_t n, int32_t cpn_freq, int32_t eom) {
    incr_by_pers(n, cpn_freq, &x.m, &x.d, &x.y, eom);
    return x;
}

// Actual days from a to b, as the schedule counts them.
inline bool earlier(Date a, Date b) {
    uint32_t scratch = 0;
    return is_MDYltMDY(a.m, a.d, a.y, b.m, b.d, b.y, 1, 0, &scratch) != 0;
}

// The coupon period (pcd, ncd] that holds settlement, for a schedule with an optional odd first period
// (dated to first_cpn) and an optional odd last period (last_cpn to mat); blank or invalid optional dates
// are left out.
struct Period {
    Date pcd, ncd;
};
Period settlement_period(Date settle, Date mat, Date dated, Date first_cpn, Date last_cpn, int32_t eom,
                         int32_t cpn_freq);

}  // namespace orvel
