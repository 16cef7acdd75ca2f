// Leap years and month ends of the Gregorian calendar.
#include "orvel/calendar.h"

ORVEL_EXPORT(int32_t) is_leap_year(int32_t y) {
    return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0 ? 1 : 0;
}

ORVEL_EXPORT(int32_t) last_dom(int32_t m, int32_t y) {
    switch (m) {
    case 2: return 28 + is_leap_year(y);
    case 4: case 6: case 9: case 11: return 30;
    case 1: case 3: case 5: case 7: case 8: case 10: case 12: return 31;
    default: return m;  // a month outside 1..12 comes back as it is
    }
}

ORVEL_EXPORT(int32_t) is_last_dom(int32_t m, int32_t d, int32_t y) {
    if (m < 1 || m > 12) return 0;
    return d == last_dom(m, y) ? 1 : 0;
}
