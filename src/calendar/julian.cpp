// Julian day numbers, day of week and day of year.
#include "core/civil.hpp"
#include "core/check.hpp"
#include "orvel/calendar.h"

namespace cal = orvel::cal;

ORVEL_EXPORT(int32_t) MDY_2_julian(int32_t m, int32_t d, int32_t y) { return static_cast<int32_t>(cal::jdn(m, d, y)); }

ORVEL_EXPORT(int32_t) julian_2_MDY(int32_t julian, int32_t* m, int32_t* d, int32_t* y) {
    return orvel::store(cal::from_jdn(julian), m, d, y);
}

ORVEL_EXPORT(int32_t) MDY_2_dow(int32_t m, int32_t d, int32_t y, int32_t validate, uint32_t* err_code) {
    if (validate && !orvel::Check(err_code).call(0, ok_MDY, m, d, y, 1).ok()) return 0;
    return cal::weekday(cal::jdn(m, d, y));
}

ORVEL_EXPORT(int32_t) MDY_2_doy(int32_t m, int32_t d, int32_t y, int32_t validate, uint32_t* err_code) {
    if (validate && !orvel::Check(err_code).call(0, ok_MDY, m, d, y, 1).ok()) return 0;
    return static_cast<int32_t>(cal::jdn(m, d, y) - cal::jdn(1, 1, y) + 1);
}

ORVEL_EXPORT(int32_t) doy_2_MDY(int32_t doy, int32_t y, int32_t* m, int32_t* d, int32_t* y_out, int32_t validate,
                                uint32_t* err_code) {
    if (validate && !orvel::Check(err_code)
                         .expect(doy >= 1 && doy <= 366, ORVEL_E_DOY)
                         .expect(y >= 1800 && y <= 2300, ORVEL_E_DOY_YEAR)
                         .ok())
        return 0;
    return orvel::store(cal::from_jdn(cal::jdn(1, 1, y) + doy - 1), m, d, y_out);
}
