// Date comparison through the day count of a convention: under 30/360 the 30th and 31st are one day.
#include "calendar/order.hpp"
#include "core/check.hpp"
#include "orvel/calendar.h"

using orvel::cal::dates_and_type_ok;

ORVEL_EXPORT(int32_t) is_MDYeqMDY(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t day_type, int32_t validate, uint32_t* err_code) {
    if (validate && !dates_and_type_ok({m1, d1, y1}, {m2, d2, y2}, day_type, err_code)) return 0;
    return orvel::cal::days_by_type(day_type, m1, d1, y1, m2, d2, y2) == 0 ? 1 : 0;
}

ORVEL_EXPORT(int32_t) is_MDYleMDY(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t day_type, int32_t validate, uint32_t* err_code) {
    if (validate && !dates_and_type_ok({m1, d1, y1}, {m2, d2, y2}, day_type, err_code)) return 0;
    return orvel::cal::not_after({m1, d1, y1}, {m2, d2, y2}, day_type, err_code) ? 1 : 0;
}

ORVEL_EXPORT(int32_t) is_MDYltMDY(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                                  int32_t day_type, int32_t validate, uint32_t* err_code) {
    if (validate && !dates_and_type_ok({m1, d1, y1}, {m2, d2, y2}, day_type, err_code)) return 0;
    return orvel::cal::before({m1, d1, y1}, {m2, d2, y2}, day_type, err_code) ? 1 : 0;
}
