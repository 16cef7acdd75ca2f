// Day-count kernels: closed formulas, inline so that the schedule and bond engines pay no call.
//
// Arguments are (m1, d1, y1, m2, d2, y2); a count is signed (negative when the second date is first).
// Arithmetic is 64-bit and narrowed at the end, so garbage dates give some count, never an overflow.
#pragma once

#include <cstdint>

#include "core/civil.hpp"

namespace orvel::cal {

// Serial day number for actual counts: 365 days a year, 31 a month, then the leap days of the years
// before (of the year itself from March on) and the shortfall of the months before (c = 0.4m + 2.3,
// truncated, from March on; written in integers as (4m + 23) / 10, which never lands on a whole number).
constexpr int64_t serial00(int64_t m, int64_t d, int64_t y) {
    const bool jan_feb = m < 3;
    const int64_t z = jan_feb ? y - 1 : y;
    const int64_t c = jan_feb ? 0 : (4 * m + 23) / 10;
    return 365 * y + 31 * (m - 1) + d + z / 4 - z / 100 + z / 400 - c;
}

// The same serial without leap days: 29 February counts as 1 March.
constexpr int64_t serial_no_leap(int64_t m, int64_t d, int64_t y) {
    const int64_t c = m < 3 ? 0 : (4 * m + 23) / 10;
    return 365 * y + 31 * (m - 1) + d - c;
}

constexpr int32_t narrow(int64_t v) { return static_cast<int32_t>(v); }

inline int32_t days_actual(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return narrow(serial00(m2, d2, y2) - serial00(m1, d1, y1));
}

inline int32_t days_no_leap(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return narrow(serial_no_leap(m2, d2, y2) - serial_no_leap(m1, d1, y1));
}

// Every 30/360 count: whole months of 30 days, then the adjusted days of the two dates.
constexpr int32_t thirty360(int64_t m1, int64_t d1_adj, int64_t y1, int64_t m2, int64_t d2_adj, int64_t y2) {
    return narrow(((y2 - y1) * 12 + m2 - m1) * 30 - d1_adj + d2_adj);
}

// NASD / MSRB: the 31st counts as the 30th; a second 31st only when the first date became the 30th.
// No February rule.
inline int32_t days_30_nasd(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    const int32_t a = d1 == 31 ? 30 : d1;
    const int32_t b = (d2 == 31 && a == 30) ? 30 : d2;
    return thirty360(m1, a, y1, m2, b, y2);
}

// 30E/360 (AIBD, Eurobond basis): every 31st counts as the 30th.
inline int32_t days_30e(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return thirty360(m1, d1 == 31 ? 30 : d1, y1, m2, d2 == 31 ? 30 : d2, y2);
}

// Month ends as the 30th: the last day of any month, 28 or 29 February included, counts as the 30th.
inline int32_t days_30_month_end(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return thirty360(m1, is_month_end(m1, d1, y1) ? 30 : d1, y1, m2, is_month_end(m2, d2, y2) ? 30 : d2, y2);
}

// SIA: the 31st and the last day of February count as the 30th for the first date; the second date's
// 31st follows a first date that became the 30th. The second date's February end is moved only when both
// dates are February month ends (then both count as the 30th), so equal dates always count 0.
inline int32_t days_30_sia(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    const bool feb_end1 = m1 == 2 && is_month_end(m1, d1, y1);
    if (feb_end1 && m2 == 2 && is_month_end(m2, d2, y2)) return thirty360(m1, 30, y1, m2, 30, y2);
    const int32_t a = (d1 == 31 || feb_end1) ? 30 : d1;
    const int32_t b = (d2 == 31 && a == 30) ? 30 : d2;
    return thirty360(m1, a, y1, m2, b, y2);
}

// European 30/360 with the 31st rolled forward: a first 31st counts as the 30th; a second 31st becomes
// the 1st of the next month (January of the next year after December), one day more than the 30th.
inline int32_t days_30_eur(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    const int32_t a = d1 == 31 ? 30 : d1;
    if (d2 != 31) return thirty360(m1, a, y1, m2, d2, y2);
    const bool december = m2 == 12;
    return thirty360(m1, a, y1, december ? 1 : int64_t{m2} + 1, 1, december ? int64_t{y2} + 1 : y2);
}

// The count of a day_type (1..13); any other code counts 0.
inline int32_t days_by_type(int32_t day_type, int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2,
                            int32_t y2) {
    switch (day_type) {
    case 1: case 7: case 8: case 12: case 13: return days_actual(m1, d1, y1, m2, d2, y2);
    case 2: case 3: return days_30_nasd(m1, d1, y1, m2, d2, y2);
    case 4: case 10: return days_30_sia(m1, d1, y1, m2, d2, y2);
    case 5: return days_30e(m1, d1, y1, m2, d2, y2);
    case 6: return days_30_month_end(m1, d1, y1, m2, d2, y2);
    case 9: return days_no_leap(m1, d1, y1, m2, d2, y2);
    case 11: return days_30_eur(m1, d1, y1, m2, d2, y2);
    default: return 0;
    }
}

inline int32_t days_by_type(int32_t day_type, Date a, Date b) {
    return days_by_type(day_type, a.m, a.d, a.y, b.m, b.d, b.y);
}

constexpr bool is_thirty360(int32_t day_type) {
    return (day_type >= 2 && day_type <= 6) || day_type == 10 || day_type == 11;
}

// Year basis of a day_type other than actual/actual (code 1, which depends on the date): 360 or 365;
// 0 for a code outside 1..13.
constexpr int32_t fixed_year_basis(int32_t day_type) {
    if (is_thirty360(day_type) || day_type == 7) return 360;
    if (day_type == 8 || day_type == 9 || day_type == 12 || day_type == 13) return 365;
    return 0;
}

}  // namespace orvel::cal
