// Business days: the caller's holiday table, rolling a date to a business day, stepping by business days,
// counting them, and the n-th weekday of a month. Day numbers are julians (int64 here, so that a caller's
// garbage gives some day, never an overflow).
#pragma once

#include <cstdint>

#include "core/civil.hpp"

namespace orvel::cal {

// The most holidays a table holds (ok_hol_table's bound), and what every function reads at most.
inline constexpr int32_t max_holidays = 3000;

// A caller's holiday table: ascending julians of weekday holidays. Every function here stays inside
// day[0..count) and terminates whatever the entries are; on an unsorted table the answers are only
// meaningless.
struct Holidays {
    const int32_t* day = nullptr;
    int32_t count = 0;
};

// A count the functions may read: 0..max_holidays, with an array when above 0.
constexpr bool readable(Holidays h) { return h.count >= 0 && h.count <= max_holidays && (h.count == 0 || h.day); }

constexpr bool is_weekend(int64_t j) { return weekday(j) > 5; }

// Index of the first entry >= j (the count when none): a binary search of the sorted table.
int32_t first_not_before(Holidays h, int64_t j);

bool is_holiday(int64_t j, Holidays h);
inline bool is_business_day(int64_t j, Holidays h) { return !is_weekend(j) && !is_holiday(j, h); }

// The plain following (dir >= 0) or preceding (dir < 0) roll: a weekend jumps to the Monday after or the
// Friday before, a weekday holiday moves one day on, until a business day; no turning back at a month end.
int64_t roll(int64_t j, int32_t dir, Holidays h);

// n business days from j (a start that is no business day is first rolled in the direction of n): whole
// weeks by arithmetic, then one pass over the holidays between the start and the result.
int64_t add_business_days(int64_t j, int64_t n, Holidays h);

// Business days from j1 to j2 (both business days), negative backwards. The week arithmetic is exact; of
// the holidays, only the table's first entry is deducted, when it lies from the earlier date to the later.
int64_t business_days(int64_t j1, int64_t j2, Holidays h);

// Day of month of the occur-th (1..5; 0 the last) weekday dow (1 Monday .. 7 Sunday) of month m of year y;
// 0 when the month has no such day (a fifth one). Arguments outside those ranges give some day number,
// no failure.
int32_t weekday_of_month(int32_t m, int64_t y, int32_t occur, int32_t dow);

inline Date roll(Date x, int32_t dir, Holidays h) { return from_jdn(roll(jdn(x), dir, h)); }
inline Date add_business_days(Date x, int64_t n, Holidays h) { return from_jdn(add_business_days(jdn(x), n, h)); }

}  // namespace orvel::cal
