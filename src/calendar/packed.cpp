// Packed dates: YYYYMMDD integers and the two national six-digit orders MMDDYY and DDMMYY.
#include "orvel/calendar.h"

ORVEL_EXPORT(int32_t) MDY_2_dt(int32_t m, int32_t d, int32_t y) {
    return static_cast<int32_t>(int64_t{y} * 10000 + int64_t{m} * 100 + d);
}

ORVEL_EXPORT(int32_t) dt_2_DD(int32_t dt) { return dt % 100; }

ORVEL_EXPORT(int32_t) dt_2_MM(int32_t dt) { return dt / 100 % 100; }

// A two-digit year is placed in the century window that the pivot sets: above it 19yy, else 20yy.
ORVEL_EXPORT(int32_t) dt_2_YYYY(int32_t dt, int32_t pivot_yr) {
    const int32_t yy = dt / 10000;
    if (yy > 99) return yy;
    return yy > pivot_yr ? 1900 + yy : 2000 + yy;
}

// Exchanges the two leading two-digit fields of a six-digit date; the same step serves both directions.
static int32_t swap_leading_fields(int32_t v) {
    const int64_t a = v / 10000;
    const int64_t b = (v - 10000 * a) / 100;
    return static_cast<int32_t>(v + 9900 * (b - a));
}

ORVEL_EXPORT(int32_t) dtA_2_dtE(int32_t dtA) { return swap_leading_fields(dtA); }

ORVEL_EXPORT(int32_t) dtE_2_dtA(int32_t dtE) { return swap_leading_fields(dtE); }
