// The exported day-count kernels and the dispatcher over day_type.
#include "calendar/day_count.hpp"

#include "calendar/checks.hpp"
#include "orvel/calendar.h"

namespace cal = orvel::cal;

ORVEL_EXPORT(int32_t) days_b_MDYs(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t day_type, int32_t validate, uint32_t* err_code) {
    if (validate && !cal::day_count_args_ok(day_type, m1, d1, y1, m2, d2, y2, err_code)) return 0;
    return cal::days_by_type(day_type, m1, d1, y1, m2, d2, y2);
}

ORVEL_EXPORT(int32_t) days_act(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return cal::days_actual(m1, d1, y1, m2, d2, y2);
}

ORVEL_EXPORT(int32_t) days_act_nl(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return cal::days_no_leap(m1, d1, y1, m2, d2, y2);
}

ORVEL_EXPORT(int32_t) days_nasd360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return cal::days_30_nasd(m1, d1, y1, m2, d2, y2);
}

// The municipal (MSRB) rule counts exactly as NASD; the market keeps its own name for it.
ORVEL_EXPORT(int32_t) days_msrb360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return cal::days_30_nasd(m1, d1, y1, m2, d2, y2);
}

ORVEL_EXPORT(int32_t) days_sia360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return cal::days_30_sia(m1, d1, y1, m2, d2, y2);
}

ORVEL_EXPORT(int32_t) days_aibd360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return cal::days_30e(m1, d1, y1, m2, d2, y2);
}

ORVEL_EXPORT(int32_t) days_new360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return cal::days_30_month_end(m1, d1, y1, m2, d2, y2);
}

ORVEL_EXPORT(int32_t) days_eurp360(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2) {
    return cal::days_30_eur(m1, d1, y1, m2, d2, y2);
}

ORVEL_EXPORT(int32_t) days_base00(int32_t m, int32_t d, int32_t y) { return cal::narrow(cal::serial00(m, d, y)); }

ORVEL_EXPORT(int32_t) days_bsnl(int32_t m, int32_t d, int32_t y) { return cal::narrow(cal::serial_no_leap(m, d, y)); }
