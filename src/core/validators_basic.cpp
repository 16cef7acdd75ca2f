// The validators of a single date, of the convention codes every calculation takes, and of the small
// integer counts and codes (weekdays, days, flags).
#include "core/defaults.hpp"
#include "core/validators.hpp"
#include "core/civil.hpp"
#include "orvel/frame.h"

using orvel::Check;

ORVEL_EXPORT(int32_t) ok_MDY(int32_t m, int32_t d, int32_t y, int32_t required, uint32_t* err_code) {
    if (orvel::is_blank({m, d, y})) return required == 0 ? 1 : orvel::fail(err_code, ORVEL_E_BLANK);
    // The day is checked before the year, against the year as given.
    return Check(err_code)
        .expect(m >= 1 && m <= 12, ORVEL_E_MONTH)
        .expect(d >= 1 && d <= orvel::cal::month_end(m, y), ORVEL_E_DAY)
        .expect(y >= 1800 && y <= 2300, ORVEL_E_YEAR)
        .ok();
}

ORVEL_EXPORT(int32_t) ok_day_type(int32_t day_type, uint32_t* err_code) {
    return Check(err_code).expect(day_type >= 1 && day_type <= 13, orvel::code_error(day_type, ORVEL_E_DAY_TYPE)).ok();
}

ORVEL_EXPORT(int32_t) ok_cpn_freq(int32_t cpn_freq, uint32_t* err_code) {
    const bool known = cpn_freq == 1 || cpn_freq == 2 || cpn_freq == 4 || cpn_freq == 12;
    return Check(err_code).expect(known, orvel::code_error(cpn_freq, ORVEL_E_CPN_FREQ)).ok();
}

ORVEL_EXPORT(int32_t) ok_1or2_side(int32_t side, uint32_t* err_code) {
    return Check(err_code).expect(side == 1 || side == 2, orvel::code_error(side, ORVEL_E_SIDE)).ok();
}

ORVEL_EXPORT(int32_t) ok_abd_flag(int32_t flag, uint32_t* err_code) {
    return Check(err_code).expect(flag >= 0 && flag <= 2, ORVEL_E_ABD_FLAG).ok();
}

ORVEL_EXPORT(int32_t) ok_dow(int32_t dow, uint32_t* err_code) {
    return Check(err_code).expect(dow >= 1 && dow <= 7, ORVEL_E_DOW).ok();
}

ORVEL_EXPORT(int32_t) ok_dow_occur(int32_t occur, uint32_t* err_code) {
    return Check(err_code).expect(occur >= 0 && occur <= 5, ORVEL_E_DOW_OCCUR).ok();
}

ORVEL_EXPORT(int32_t) ok_days_year(int32_t days, uint32_t* err_code) {
    return Check(err_code).expect(days >= 360 && days <= 366, ORVEL_E_DAYS_YEAR).ok();
}

ORVEL_EXPORT(int32_t) ok_full_per(int32_t periods, uint32_t* err_code) {
    return Check(err_code).expect(periods >= 1, ORVEL_E_FULL_PER).ok();
}

ORVEL_EXPORT(int32_t) ok_days_acrd(int32_t days, uint32_t* err_code) {
    return Check(err_code).expect(days >= 0, ORVEL_E_DAYS_ACRD).ok();
}

// The number carries the bound itself (4801 for a period that must hold at least one day) while the bound
// keeps it inside 4800..5099; any other bound would land on another meaning, so it gets 4750.
ORVEL_EXPORT(int32_t) ok_days_per(int32_t days, int32_t least, uint32_t* err_code) {
    const bool in_block = least >= 0 && least <= ORVEL_DAYS_PER_LEAST_MAX;
    const uint32_t number = in_block ? ORVEL_E_DAYS_PER_BASE + static_cast<uint32_t>(least) : uint32_t{ORVEL_E_DAYS_PER_BELOW};
    return Check(err_code).expect(days >= least, number).ok();
}

ORVEL_EXPORT(int32_t) ok_paymt_dly(int32_t days, uint32_t* err_code) {
    return Check(err_code).expect(days >= 0, ORVEL_E_PAYMT_DLY).ok();
}

// 1 January 1800 and 31 December 2300 as julian day numbers.
constexpr int32_t kFirstJulian = 2378497;
constexpr int32_t kLastJulian = 2561482;

// A caller's holiday table: sorted strictly ascending, inside the calendar's range, weekdays only.
ORVEL_EXPORT(int32_t) ok_hol_table(int32_t count, const int32_t* julians, uint32_t* err_code) {
    if (count == 0) return 1;
    Check check(err_code);
    check.expect(count > 0 && count <= 3000 && julians != nullptr, ORVEL_E_HOL_COUNT);
    int32_t previous = kFirstJulian - 1;
    for (int32_t i = 0; check && i < count; ++i) {
        const int32_t j = julians[i];
        check.expect(j > previous && j <= kLastJulian, ORVEL_E_HOL_ORDER).expect(j % 7 + 1 <= 5, ORVEL_E_HOL_WEEKEND);
        previous = j;
    }
    if (check) *err_code = 0;
    return check.ok();
}

// US Treasury payment types: 1 periodic coupons, 2 discount (no coupon), 3 interest at maturity. A
// day_type or cpn_freq of -1 takes the Treasury default.
ORVEL_EXPORT(int32_t) ok_uspm_type(int32_t uspm_type, int32_t day_type, int32_t cpn_freq, uint32_t* err_code) {
    orvel::MarketSlots slots;
    slots.day_type = &day_type;
    slots.cpn_freq = &cpn_freq;
    orvel::market_defaults(10, slots);
    uint32_t scratch = 0;
    return Check(err_code)
        .expect(uspm_type >= 1 && uspm_type <= 3, ORVEL_E_USPM_TYPE1)
        .expect(uspm_type != 1 || ok_cpn_freq(cpn_freq, &scratch), ORVEL_E_USPM_TYPE2)
        .expect(ok_day_type(day_type, &scratch), ORVEL_E_USPM_TYPE3)
        .ok();
}
