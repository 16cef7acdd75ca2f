// Gregorian calendar arithmetic on day numbers, inline for the schedule and bond engines.
//
// Every intermediate is 64-bit: a caller's garbage (a year of 2e9, a step of INT32_MAX days) gives some
// date, never a signed overflow. Results narrowed back to int32 wrap modulo 2^32.
#pragma once

#include <cstdint>

namespace orvel {

// The one date type of the library: month, day and four-digit year, as the exports take them.
struct Date {
    int32_t m, d, y;
};

// The three spellings of a blank (absent) optional date: 0/0/0, 0/0/1900 and 0/0/2000.
constexpr bool is_blank(Date x) { return x.m == 0 && x.d == 0 && (x.y == 0 || x.y == 1900 || x.y == 2000); }

// Writes a date through the three pointers of an in-place or output date; returns the year.
inline int32_t store(Date date, int32_t* m, int32_t* d, int32_t* y) {
    *m = date.m;
    *d = date.d;
    *y = date.y;
    return date.y;
}

// A date the caller passes as three pointers (changed in place or filled with a default).
struct DateRef {
    int32_t* m;
    int32_t* d;
    int32_t* y;
    Date get() const { return {*m, *d, *y}; }
    void set(Date v) const { store(v, m, d, y); }
};

}  // namespace orvel

namespace orvel::cal {

// Astronomical Julian Day Number of a Gregorian date (1/1/2000 is 2451545). Division truncates toward
// zero, which the formula relies on for the January and February shift (a = -1 for them, 0 otherwise).
constexpr int64_t jdn(int64_t m, int64_t d, int64_t y) {
    const int64_t a = (m - 14) / 12;
    return d - 32075 + 1461 * (y + 4800 + a) / 4 + 367 * (m - 2 - 12 * a) / 12 -
           3 * ((y + 4900 + a) / 100) / 4;
}

// The inverse of jdn: exact for every day number of the years 1800..2300 and far beyond.
constexpr Date from_jdn(int64_t j) {
    int64_t l = j + 68569;
    const int64_t n = 4 * l / 146097;
    l -= (146097 * n + 3) / 4;
    const int64_t i = 4000 * (l + 1) / 1461001;
    l = l - 1461 * i / 4 + 31;
    const int64_t k = 80 * l / 2447;
    const int64_t day = l - 2447 * k / 80;
    l = k / 11;
    const int64_t month = k + 2 - 12 * l;
    const int64_t year = 100 * (n - 49) + i + l;
    return {static_cast<int32_t>(month), static_cast<int32_t>(day), static_cast<int32_t>(year)};
}

// Day of week 1 (Monday) .. 7 (Sunday); the floored remainder keeps garbage day numbers in 1..7 too.
constexpr int32_t weekday(int64_t j) { return static_cast<int32_t>(((j % 7) + 7) % 7 + 1); }

constexpr bool leap(int64_t y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

// Last day of month m (1..12) of year y; a month outside 1..12 comes back as it is.
constexpr int32_t month_end(int32_t m, int64_t y) {
    switch (m) {
    case 2: return leap(y) ? 29 : 28;
    case 4: case 6: case 9: case 11: return 30;
    case 1: case 3: case 5: case 7: case 8: case 10: case 12: return 31;
    default: return m;
    }
}

constexpr bool is_month_end(int32_t m, int32_t d, int64_t y) { return m >= 1 && m <= 12 && d == month_end(m, y); }

// The day of a date moved from `from` to the month and year of `to`: a month end stays a month end when
// eom asks for it; otherwise a day past the target month's end is lowered to that end.
constexpr int32_t fixed_day(Date from, Date to, bool eom) {
    const int32_t last = month_end(to.m, to.y);
    if (eom && is_month_end(from.m, from.d, from.y)) return last;
    return to.d > last ? last : to.d;
}

// Floored division and remainder by 12, for carrying months into years.
constexpr int64_t floor_div12(int64_t v) { return v >= 0 ? v / 12 : -((-v + 11) / 12); }

// The date n months on, the day kept (or fixed up to the month end as above).
constexpr Date add_months(Date from, int64_t n, bool eom) {
    const int64_t total = int64_t{from.y} * 12 + (int64_t{from.m} - 1) + n;
    const int64_t years = floor_div12(total);
    Date to{static_cast<int32_t>(total - years * 12 + 1), from.d, static_cast<int32_t>(years)};
    to.d = fixed_day(from, to, eom);
    return to;
}

// Months in one coupon period, the one conversion of a frequency to months: a frequency below 1 is taken
// as 1, 12 / f truncates (5 gives 2 months), and a frequency above 12 has periods of no months (0), which
// every caller treats as a schedule of its anchor alone.
constexpr int32_t months_per_period(int32_t cpn_freq) { return cpn_freq < 1 ? 12 : 12 / cpn_freq; }

// The date n coupon periods on (negative n: back), month ends kept under eom.
constexpr Date add_periods(Date from, int64_t n, int32_t cpn_freq, bool eom) {
    return add_months(from, n * months_per_period(cpn_freq), eom);
}

constexpr int64_t jdn(Date x) { return jdn(x.m, x.d, x.y); }
constexpr Date add_days(Date from, int64_t n) { return from_jdn(jdn(from) + n); }

// Ordering of two dates in calendar order (not through a day count).
constexpr int64_t compare(Date a, Date b) { return jdn(a) - jdn(b); }

}  // namespace orvel::cal
