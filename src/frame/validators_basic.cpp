// The validators of a single date and of the two convention codes that every calculation takes.
#include "frame/check.hpp"
#include "orvel/calendar.h"
#include "orvel/frame.h"

namespace {

bool is_blank(int32_t m, int32_t d, int32_t y) { return m == 0 && d == 0 && (y == 0 || y == 1900 || y == 2000); }

// An integer code missing from the call (-1) gets its base plus 1, any other bad value the base.
uint32_t code_error(int32_t code, uint32_t base) { return code == -1 ? base + 1 : base; }

}  // namespace

ORVEL_EXPORT(int32_t) ok_MDY(int32_t m, int32_t d, int32_t y, int32_t required, uint32_t* err_code) {
    if (is_blank(m, d, y)) return required == 0 ? 1 : orvel::fail(err_code, ORVEL_E_BLANK);
    // The day is checked before the year, against the year as given.
    return orvel::Check(err_code)
        .expect(m >= 1 && m <= 12, ORVEL_E_MONTH)
        .expect(d >= 1 && d <= last_dom(m, y), ORVEL_E_DAY)
        .expect(y >= 1800 && y <= 2300, ORVEL_E_YEAR)
        .ok();
}

ORVEL_EXPORT(int32_t) ok_day_type(int32_t day_type, uint32_t* err_code) {
    if (day_type >= 1 && day_type <= 13) return 1;
    return orvel::fail(err_code, code_error(day_type, ORVEL_E_DAY_TYPE));
}

ORVEL_EXPORT(int32_t) ok_cpn_freq(int32_t cpn_freq, uint32_t* err_code) {
    if (cpn_freq == 1 || cpn_freq == 2 || cpn_freq == 4 || cpn_freq == 12) return 1;
    return orvel::fail(err_code, code_error(cpn_freq, ORVEL_E_CPN_FREQ));
}
