// Validation shared by the calendar's exports.
#pragma once

#include <cstdint>

#include "core/check.hpp"
#include "orvel/frame.h"

namespace orvel::cal {

// The arguments of a day count: day_type first, then both dates as required dates, no roles added.
inline bool day_count_args_ok(int32_t day_type, int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2,
                              int32_t y2, uint32_t* err_code) {
    return Check(err_code)
        .call(0, ok_day_type, day_type)
        .call(0, ok_MDY, m1, d1, y1, 1)
        .call(0, ok_MDY, m2, d2, y2, 1)
        .ok();
}

}  // namespace orvel::cal
