// The order of two dates as a step of a Check chain, counted under a day-count convention (under 30/360
// the 30th and the 31st are one day): the numbers of is_MDYltMDY (2100) and is_MDYleMDY (2000), to which
// the chain adds the pair of roles.
#pragma once

#include <cstdint>

#include "calendar/day_count.hpp"
#include "core/check.hpp"

namespace orvel::cal {

inline bool before(Date a, Date b, int32_t day_type, uint32_t* err_code) {
    return days_by_type(day_type, a, b) > 0 || fail(err_code, ORVEL_E_NOT_LT);
}

inline bool not_after(Date a, Date b, int32_t day_type, uint32_t* err_code) {
    return days_by_type(day_type, a, b) >= 0 || fail(err_code, ORVEL_E_NOT_LE);
}

// The same after both dates (required, no roles) and the day_type are checked: the validated forms of
// is_MDYltMDY and is_MDYleMDY.
inline bool dates_and_type_ok(Date a, Date b, int32_t day_type, uint32_t* err_code) {
    return Check(err_code)
        .call(0, ok_MDY, a.m, a.d, a.y, 1)
        .call(0, ok_MDY, b.m, b.d, b.y, 1)
        .call(0, ok_day_type, day_type)
        .ok();
}
inline bool checked_before(Date a, Date b, int32_t day_type, uint32_t* err_code) {
    return dates_and_type_ok(a, b, day_type, err_code) && before(a, b, day_type, err_code);
}
inline bool checked_not_after(Date a, Date b, int32_t day_type, uint32_t* err_code) {
    return dates_and_type_ok(a, b, day_type, err_code) && not_after(a, b, day_type, err_code);
}

}  // namespace orvel::cal
