// Where settlement stands in a regular schedule anchored on maturity: the coupon dates around it, the
// day counts of its period and the periods still to run. Shared by the exports of this subsystem.
#pragma once

#include <cstdint>

#include "schedule/day_split.hpp"
#include "schedule/grid.hpp"

namespace orvel::schedule {

// The coupon dates around settle; settlement on maturity itself gives maturity twice.
Bracket coupon_dates(Date settle, Date mat, int32_t cpn_freq, int32_t eom);

struct PeriodCount {
    int32_t nper;  // whole periods after the partial one (or from settle when frac = 0)
    int32_t frac;  // 1 when a partial period runs from settle to the next coupon date
};

// Periods by the stepped coupon dates, with the day-count test for a whole period.
PeriodCount count_periods(Date settle, Date mat, int32_t day_type, int32_t eom, int32_t cpn_freq);

// Periods by calendar months alone (num_per): maturity stepped back by the month distance lands in
// settlement's month; frac = 1 when settle is not on the grid. A frequency above 12 counts nothing.
PeriodCount month_periods(Date settle, Date mat, int32_t cpn_freq);

struct RegularInfo {
    DaySplit days;
    PeriodCount count;
};

// Everything about settlement in a regular schedule in one pass.
RegularInfo regular_info(Date settle, Date mat, int32_t day_type, int32_t eom, int32_t cpn_freq);

// Coupon periods from d1 to d2 on the grid anchored on d2, as num_dper counts them (negative when d1 is
// after d2). Validates nothing.
double signed_periods(Date d1, Date d2, int32_t day_type, int32_t eom, int32_t cpn_freq);

}  // namespace orvel::schedule
