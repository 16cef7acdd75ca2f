// The three day counts of a coupon period split at settlement: days accrued (pcd to settle), days in the
// period and days remaining (settle to ncd), by the conventions of each day-count family.
#pragma once

#include <cstdint>

#include "schedule/grid.hpp"

namespace orvel::schedule {

struct DaySplit {
    int32_t da;
    int32_t dp;
    int32_t dr;
};

// Days from a to b under day_type (a code outside 1..13 counts actual days).
int32_t count_days(Date a, Date b, int32_t day_type);

// pcd -> settle -> ncd under day_type. The 30/360 families fix the period at 360 / cpn_freq days and let
// the remaining days make up the rest; the actual families count the calendar; code 13 accrues actual days
// but measures the period and the rest without 29 February (code 9). A code outside 1..13 counts actual
// days throughout, like code 1.
DaySplit split_period(Date pcd, Date ncd, Date settle, int32_t day_type, int32_t cpn_freq);

// The basis num_per_dt tests a whole period under: the actual-day codes all test on calendar days.
constexpr int32_t whole_period_basis(int32_t day_type) {
    switch (day_type) {
    case 1: case 7: case 8: case 12: case 13: return 1;
    default: return day_type;
    }
}

// Whether settlement at the start of `s` leaves a whole period ahead (frac = 0), under the basis of
// whole_period_basis(day_type): the remaining stretch is the whole period, or nothing has accrued under a
// basis that counts actual or no-leap days.
bool leaves_whole_period(const DaySplit& s, int32_t day_type);

}  // namespace orvel::schedule
