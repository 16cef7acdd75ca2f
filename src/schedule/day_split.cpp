// Days accrued, in the period and remaining, by day-count family.
#include "schedule/day_split.hpp"

#include "calendar/day_count.hpp"

#include "calendar/order.hpp"
#include "orvel/schedule.h"
#include "core/check.hpp"

namespace orvel::schedule {

int32_t count_days(Date a, Date b, int32_t day_type) {
    const int32_t basis = (day_type >= 1 && day_type <= 13) ? day_type : 1;
    return cal::days_by_type(basis, a.m, a.d, a.y, b.m, b.d, b.y);
}

namespace {

// The serial day numbers of the three dates under one count, each computed once: the actual and the
// no-leap counts are differences of serials, so the split needs three of them rather than four.
struct Serials {
    int64_t pcd, settle, ncd;
};

template <int64_t (*serial)(int64_t, int64_t, int64_t)>
Serials serials_of(Date pcd, Date ncd, Date settle) {
    return {serial(pcd.m, pcd.d, pcd.y), serial(settle.m, settle.d, settle.y), serial(ncd.m, ncd.d, ncd.y)};
}

constexpr int32_t accrued(const Serials& s) { return cal::narrow(s.settle - s.pcd); }
constexpr int32_t remaining(const Serials& s) { return cal::narrow(s.ncd - s.settle); }
constexpr int32_t period(const Serials& s) { return cal::narrow(s.ncd - s.pcd); }

}  // namespace

DaySplit split_period(Date pcd, Date ncd, Date settle, int32_t day_type, int32_t cpn_freq) {
    const int32_t fixed_period = 360 / usable_freq(cpn_freq);
    switch (day_type) {
    case 2: case 3: case 5: case 10: case 11: {
        // 64-bit, then narrowed modulo 2^32: a garbage day count cannot overflow the subtraction.
        const int32_t da = count_days(pcd, settle, day_type);
        return {da, fixed_period, cal::narrow(int64_t{fixed_period} - da)};
    }
    case 4:
        return {count_days(pcd, settle, 4), fixed_period, count_days(settle, ncd, 4)};
    case 6: {  // month ends as the 30th: each date's adjustment is its own, so the counts add up
        const int32_t da = count_days(pcd, settle, 6), dr = count_days(settle, ncd, 6);
        return {da, cal::narrow(int64_t{da} + dr), dr};
    }
    case 7: {
        const Serials actual = serials_of<cal::serial00>(pcd, ncd, settle);
        return {accrued(actual), fixed_period, remaining(actual)};
    }
    case 9: {
        const Serials no_leap = serials_of<cal::serial_no_leap>(pcd, ncd, settle);
        return {accrued(no_leap), period(no_leap), remaining(no_leap)};
    }
    case 13: {
        const Serials no_leap = serials_of<cal::serial_no_leap>(pcd, ncd, settle);
        return {count_days(pcd, settle, 13), period(no_leap), remaining(no_leap)};
    }
    default: {  // 1, 8, 12 and any unknown code: actual days
        const Serials actual = serials_of<cal::serial00>(pcd, ncd, settle);
        return {accrued(actual), period(actual), remaining(actual)};
    }
    }
}

bool leaves_whole_period(const DaySplit& s, int32_t day_type) {
    const int32_t remaining = (s.da == 0 && day_type == 4) ? s.dp : s.dr;
    if (remaining == s.dp) return true;
    switch (day_type) {
    case 7: case 8: case 9: case 12: case 13: return s.da == 0;
    default: return false;
    }
}

}  // namespace orvel::schedule

namespace {

using orvel::Date;

// pcd strictly before ncd, settle between them, all under the bond's day count.
bool valid_period(Date pcd, Date ncd, Date settle, int32_t day_type, uint32_t* err_code) {
    return orvel::Check(err_code)
        .call(0, orvel::cal::checked_before, pcd, ncd, day_type)
        .call(0, orvel::cal::checked_not_after, pcd, settle, day_type)
        .call(0, orvel::cal::checked_not_after, settle, ncd, day_type)
        .ok();
}

// per2dp_da_dr in the integer or the double form.
template <class T>
T split_as(Date pcd, Date ncd, Date settle, int32_t day_type, int32_t cpn_freq, T* da, T* dp, T* dr,
           int32_t validate, uint32_t* err_code) {
    if (validate && !valid_period(pcd, ncd, settle, day_type, err_code)) return 0;
    const auto s = orvel::schedule::split_period(pcd, ncd, settle, day_type, cpn_freq);
    *da = s.da;
    *dp = s.dp;
    *dr = s.dr;
    return s.dr;
}

}  // namespace

ORVEL_EXPORT(int32_t) per2dp_da_dr(int32_t pcd_m, int32_t pcd_d, int32_t pcd_y, int32_t ncd_m, int32_t ncd_d,
                                   int32_t ncd_y, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                   int32_t day_type, int32_t cpn_freq, int32_t* da, int32_t* dp, int32_t* dr,
                                   int32_t validate, uint32_t* err_code) {
    return split_as<int32_t>({pcd_m, pcd_d, pcd_y}, {ncd_m, ncd_d, ncd_y}, {settle_m, settle_d, settle_y}, day_type,
                             cpn_freq, da, dp, dr, validate, err_code);
}

ORVEL_EXPORT(double) d_per2dpdadr(int32_t pcd_m, int32_t pcd_d, int32_t pcd_y, int32_t ncd_m, int32_t ncd_d,
                                  int32_t ncd_y, int32_t settle_m, int32_t settle_d, int32_t settle_y,
                                  int32_t day_type, int32_t cpn_freq, double* da, double* dp, double* dr,
                                  int32_t validate, uint32_t* err_code) {
    return split_as<double>({pcd_m, pcd_d, pcd_y}, {ncd_m, ncd_d, ncd_y}, {settle_m, settle_d, settle_y}, day_type,
                            cpn_freq, da, dp, dr, validate, err_code);
}
