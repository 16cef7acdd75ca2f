// The coupon grid of a schedule: coupon dates stepped a whole number of periods back from an anchor
// (maturity, or the last regular coupon date). Every date is derived from the anchor itself, never from
// its neighbour, so an end-of-month anchor keeps its month ends all along the schedule.
#pragma once

#include <cstdint>
#include <limits>

#include "core/civil.hpp"

namespace orvel::schedule {

// Serial month of a date (year * 12 + month - 1), 64-bit so that no caller's year can overflow it.
constexpr int64_t month_index(Date x) { return int64_t{x.y} * 12 + (int64_t{x.m} - 1); }

// Calendar order read off the fields (year, then month, then day): for valid dates the same as comparing
// day numbers, without computing them.
constexpr bool on_or_before(Date a, Date b) {
    if (a.y != b.y) return a.y < b.y;
    if (a.m != b.m) return a.m < b.m;
    return a.d <= b.d;
}
constexpr bool same_date(Date a, Date b) { return a.m == b.m && a.d == b.d && a.y == b.y; }

// The anchor moved n periods (negative n: back), with the end-of-month rule when eom is set.
constexpr Date grid_date(Date anchor, int64_t n, int32_t cpn_freq, int32_t eom) {
    return cal::add_periods(anchor, n, cpn_freq, eom != 0);
}

// A bond given neither a dated nor a first coupon date runs regularly back from its anchor without a
// first-period limit: the dated date takes the anchor's month and day in 1804 (a month end kept under
// eom), the first coupon one period later. The date validators write these defaults back and the engine
// runs on them, both from here.
inline constexpr int32_t no_limit_year = 1804;
struct FirstPeriod {
    Date dated, first_cpn;
};
constexpr FirstPeriod unlimited_first_period(Date anchor, int32_t cpn_freq, int32_t eom) {
    Date dated{anchor.m, anchor.d, no_limit_year};
    dated.d = cal::fixed_day(anchor, dated, eom != 0);
    return {dated, grid_date(dated, 1, cpn_freq, eom)};
}

// Whole periods in a month distance, truncated toward zero; the usual period lengths divide by a constant.
constexpr int64_t whole_periods(int64_t months, int32_t per_months) {
    switch (per_months) {
    case 12: return months / 12;
    case 6: return months / 6;
    case 3: return months / 3;
    case 1: return months;
    default: return months / per_months;
    }
}

// Where `settle` stands on the grid of `anchor`: pcd <= settle < ncd, pcd being `periods` periods before
// the anchor (negative when settle lies after the anchor: the grid runs on past it).
struct Bracket {
    Date pcd;
    Date ncd;
    int64_t periods;
};

// The month distance gives the estimate q = months / (months per period). Grid date q - 1 lies in a later
// month than settle, grid date q + 1 in an earlier one, so the answer is q or q + 1: two probes, no walk,
// for every input (a year of 1e9 as much as a real one). A frequency above 12 has periods of no months:
// the grid is the anchor alone and both dates are the anchor.
constexpr Bracket locate(Date settle, Date anchor, int32_t cpn_freq, int32_t eom) {
    const int32_t per_months = cal::months_per_period(cpn_freq);
    if (per_months == 0) return {anchor, anchor, 0};
    const int64_t q = whole_periods(month_index(anchor) - month_index(settle), per_months);
    const bool keep_ends = eom != 0;
    const Date probe = cal::add_months(anchor, -q * per_months, keep_ends);
    if (on_or_before(probe, settle)) return {probe, cal::add_months(anchor, (1 - q) * per_months, keep_ends), q};
    return {cal::add_months(anchor, (-q - 1) * per_months, keep_ends), probe, q + 1};
}

// A period count narrowed to int32 (a count beyond it only arises from years far outside any calendar).
constexpr int32_t saturate(int64_t v) {
    if (v > std::numeric_limits<int32_t>::max()) return std::numeric_limits<int32_t>::max();
    if (v < std::numeric_limits<int32_t>::min()) return std::numeric_limits<int32_t>::min();
    return static_cast<int32_t>(v);
}

// A frequency as the 30/360 period length divides by it: below 1 counts as 1, as in the period step.
constexpr int32_t usable_freq(int32_t cpn_freq) { return cpn_freq < 1 ? 1 : cpn_freq; }

}  // namespace orvel::schedule
