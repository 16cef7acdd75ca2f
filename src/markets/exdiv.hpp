// The ex-dividend date rules of the markets whose bonds go ex some days before a coupon: the opening every
// rule shares (the market's conventions, the checks, the next coupon date), then each rule from that date.
#pragma once

#include <cstdint>

#include "calendar/business.hpp"
#include "core/civil.hpp"

namespace orvel::markets {

// A bond's conventions and dates as an _exd member receives them; -1 in a convention asks for the market's.
struct ExdivBond {
    int32_t day_type, eom, cpn_freq;
    Date settle, mat, dated, first_cpn;
};

// The shared opening: the conventions left at -1 take the defaults of market `code`; with validate,
// ok_cpn_freq then the coupon-bond date group (blank dated and first coupon dates take its defaults);
// then the next coupon date after settlement into *ncd. False, with err_code written, on a failed check.
bool next_coupon(int32_t code, ExdivBond bond, int32_t validate, Date* ncd, uint32_t* err_code);

// The holidays a rule rolls over: with validate ok_hol_table, and always a count of 0..3000 (5400).
bool holidays_ok(cal::Holidays h, int32_t validate, uint32_t* err_code);

// The ex-dividend date, written through the member's out date; returns its year.
inline int32_t write_exd(Date exd, int32_t* m, int32_t* d, int32_t* y) { return store(exd, m, d, y); }

// The rules, each from the next coupon date N.
Date days_before(Date n, int32_t days);                   // N less a fixed number of calendar days
Date austrian(Date n);                                    // the first Monday of N's month, or after the 14th
Date irish(Date n);                                       // the Wednesday of the week of N - 21 days
Date german(Date n, int32_t adj_bdt, cal::Holidays h);  // the 1st or the 16th, rolled
Date british(Date n, int32_t spec_exd, int32_t adj_bdt, cal::Holidays h);

}  // namespace orvel::markets
