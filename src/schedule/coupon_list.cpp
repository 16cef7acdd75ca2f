// Every coupon date still to come, written into the caller's arrays.
#include "core/check.hpp"
#include "orvel/schedule.h"
#include "schedule/periods.hpp"

namespace {

using orvel::Date;
using orvel::is_blank;
using orvel::cal::compare;


// The coupon dates after settle as three pieces, oldest first: the first coupon (when settlement precedes
// it), the regular dates stepped back from the anchor, and maturity after a last regular coupon.
struct CouponList {
    bool lead;            // first_cpn comes first
    Date anchor;          // the regular dates are anchor - k periods, k = grid - 1 .. 0
    int64_t grid;
    bool tail;            // maturity follows the anchor
    int64_t total() const { return (lead ? 1 : 0) + grid + (tail ? 1 : 0); }
};

CouponList coupons_after(Date settle, Date mat, Date first, Date last, int32_t eom, int32_t cpn_freq) {
    if (compare(settle, mat) >= 0) return {false, mat, 0, false};
    const bool has_last = !is_blank(last) && compare(last, mat) < 0;
    if (has_last && compare(settle, last) >= 0) return {false, mat, 0, true};
    const Date anchor = has_last ? last : mat;
    const bool lead = !is_blank(first) && compare(settle, first) < 0 && compare(first, anchor) <= 0;
    // Regular dates strictly after the later of settlement and the first coupon, up to the anchor.
    const auto b = orvel::schedule::locate(lead ? first : settle, anchor, cpn_freq, eom);
    return {lead, anchor, b.periods > 0 ? b.periods : 0, has_last};
}

}  // namespace

ORVEL_EXPORT(int32_t) all_cpn_dts(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m,
                                  int32_t mat_d, int32_t mat_y, int32_t first_m, int32_t first_d, int32_t first_y,
                                  int32_t last_m, int32_t last_d, int32_t last_y, int32_t eom, int32_t cpn_freq,
                                  int32_t capacity, int32_t* months, int32_t* days, int32_t* years, int32_t* count,
                                  int32_t validate, uint32_t* err_code) {
    const Date settle{settle_m, settle_d, settle_y}, mat{mat_m, mat_d, mat_y};
    const Date first{first_m, first_d, first_y}, last{last_m, last_d, last_y};
    if (validate && !orvel::Check(err_code)
                         .call(0, ok_cpn_freq, cpn_freq)
                         .call(ORVEL_ROLE_SETTLE, ok_MDY, settle.m, settle.d, settle.y, 1)
                         .call(ORVEL_ROLE_MATURITY, ok_MDY, mat.m, mat.d, mat.y, 1)
                         .call(ORVEL_ROLE_FIRST_CPN, ok_MDY, first.m, first.d, first.y, 0)
                         .call(ORVEL_ROLE_LAST_CPN, ok_MDY, last.m, last.d, last.y, 0)
                         .expect(compare(settle, mat) < 0, ORVEL_E_NOT_LT + 71)
                         .expect(is_blank(first) || is_blank(last) || compare(first, last) <= 0, ORVEL_E_NOT_LE + 36)
                         .expect(is_blank(last) || compare(last, mat) < 0, ORVEL_E_NOT_LT + 61)
                         .ok())
        return 0;
    const CouponList list = coupons_after(settle, mat, first, last, eom, cpn_freq);
    const int32_t needed = orvel::schedule::saturate(list.total());
    *count = needed;
    if (list.total() > capacity) return orvel::fail(err_code, ORVEL_E_CAPACITY);
    int32_t i = 0;
    auto write = [&](Date x) {
        months[i] = x.m;
        days[i] = x.d;
        years[i] = x.y;
        ++i;
    };
    if (list.lead) write(first);
    for (int64_t k = list.grid - 1; k >= 0; --k)
        write(orvel::schedule::grid_date(list.anchor, -k, cpn_freq, eom));
    if (list.tail) write(mat);
    return needed;
}
