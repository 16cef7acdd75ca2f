// The holiday table and business days: maintenance of the caller's table, the business-day tests, rolling
// dates to business days, stepping by business days and counting them.
#include "calendar/business.hpp"
#include "core/check.hpp"
#include "orvel/calendar.h"

namespace cal = orvel::cal;
using orvel::Check;
using orvel::Date;

namespace {

// The table's count bounds what is read, so it is checked with or without validation (5400).
Check& readable_table(Check& check, cal::Holidays h) {
    return check.expect(cal::readable(h), ORVEL_E_HOL_COUNT);
}

// With validate: the date as a required date, then the table (ok_hol_table); without: the count alone.
bool date_and_table_ok(Date x, cal::Holidays h, int32_t validate, uint32_t* err_code) {
    Check check(err_code);
    if (validate != 0) check.call(0, ok_MDY, x.m, x.d, x.y, 1).call(0, ok_hol_table, h.count, h.day);
    return readable_table(check, h).ok();
}

int32_t refuse(uint32_t* err_code, uint32_t number, int32_t result) {
    orvel::fail(err_code, number);
    return result;
}

int32_t store_julian(int64_t j, int32_t* m, int32_t* d, int32_t* y) { return orvel::store(cal::from_jdn(j), m, d, y); }

}  // namespace

ORVEL_EXPORT(int32_t) hol_maint(int32_t m, int32_t d, int32_t y, int32_t action, int32_t* hol_count, int32_t* holidays,
                                int32_t validate, uint32_t* err_code) {
    const cal::Holidays h{holidays, *hol_count};
    Check check(err_code);
    if (validate != 0) {
        check.call(0, ok_hol_table, h.count, h.day)
            .call(0, ok_MDY, m, d, y, 1)
            .expect(action >= -1 && action <= 1, ORVEL_E_HOL_ACTION);
        if (check) *err_code = 0;
    }
    if (!readable_table(check, h)) return 0;
    const int64_t j = cal::jdn(m, d, y);
    const int32_t k = cal::first_not_before(h, j);
    const bool present = k < h.count && holidays[k] == j;
    switch (action) {
    case 0: return present ? 1 : 0;
    case -1:
        if (!present) return refuse(err_code, ORVEL_E_HOL_ABSENT, 0);
        for (int32_t i = k; i + 1 < h.count; ++i) holidays[i] = holidays[i + 1];
        --*hol_count;
        return k < *hol_count && holidays[k] == j ? 1 : 0;
    case 1:
        if (present) return refuse(err_code, ORVEL_E_HOL_PRESENT, h.count);  // the count, as a query would tell
        if (cal::is_weekend(j)) return refuse(err_code, ORVEL_E_HOL_INSERT_WEEKEND, 0);
        if (h.count == cal::max_holidays) return refuse(err_code, ORVEL_E_HOL_FULL, 0);
        for (int32_t i = h.count; i > k; --i) holidays[i] = holidays[i - 1];
        holidays[k] = static_cast<int32_t>(j);
        return ++*hol_count;
    default: return 0;
    }
}

ORVEL_EXPORT(int32_t) is_bdt(int32_t m, int32_t d, int32_t y, int32_t hol_count, const int32_t* holidays,
                             int32_t validate, uint32_t* err_code) {
    const cal::Holidays h{holidays, hol_count};
    if (!date_and_table_ok({m, d, y}, h, validate, err_code)) return 0;
    return cal::is_business_day(cal::jdn(m, d, y), h) ? 1 : 0;
}

ORVEL_EXPORT(int32_t) is_weekend(int32_t m, int32_t d, int32_t y, int32_t validate, uint32_t* err_code) {
    if (validate != 0 && !Check(err_code).call(0, ok_MDY, m, d, y, 1).ok()) return 0;
    return cal::is_weekend(cal::jdn(m, d, y)) ? 1 : 0;
}

ORVEL_EXPORT(int32_t) adj_to_bdt(int32_t m, int32_t d, int32_t y, int32_t dir, int32_t* m_out, int32_t* d_out,
                                 int32_t* y_out, int32_t hol_count, const int32_t* holidays, int32_t validate,
                                 uint32_t* err_code) {
    const cal::Holidays h{holidays, hol_count};
    if (!date_and_table_ok({m, d, y}, h, validate, err_code)) return 0;
    return store_julian(cal::roll(cal::jdn(m, d, y), dir, h), m_out, d_out, y_out);
}

ORVEL_EXPORT(int32_t) adj_cfs_dts(int32_t* months, int32_t* days, int32_t* years, int32_t n, const int32_t* holidays,
                                  int32_t hol_count, int32_t dir, int32_t* adjusted, int32_t validate,
                                  uint32_t* err_code) {
    const cal::Holidays h{holidays, hol_count};
    Check check(err_code);
    check.expect(n >= 0 && n <= ORVEL_DATE_LIST_MAX, ORVEL_E_LIST_LENGTH);
    for (int32_t i = 0; validate != 0 && check && i < n; ++i) {
        uint32_t scratch = 0;
        check.expect(ok_MDY(months[i], days[i], years[i], 1, &scratch) != 0,
                     ORVEL_E_DATE_LIST_BASE + static_cast<uint32_t>(i));
    }
    if (validate != 0) check.call(0, ok_hol_table, h.count, h.day);
    if (!readable_table(check, h)) return 0;
    int32_t moved = 0;
    for (int32_t i = 0; i < n; ++i) {
        const int64_t j = cal::jdn(months[i], days[i], years[i]);
        if (cal::is_business_day(j, h)) continue;
        store_julian(cal::roll(j, dir, h), &months[i], &days[i], &years[i]);
        ++moved;
    }
    *adjusted = moved > 0 ? 1 : 0;
    return moved;
}

ORVEL_EXPORT(int32_t) incr_by_bdys(int32_t m, int32_t d, int32_t y, int32_t n, int32_t* m_out, int32_t* d_out,
                                   int32_t* y_out, int32_t hol_count, const int32_t* holidays, int32_t validate,
                                   uint32_t* err_code) {
    const cal::Holidays h{holidays, hol_count};
    if (!date_and_table_ok({m, d, y}, h, validate, err_code)) return 0;
    return store_julian(cal::add_business_days(cal::jdn(m, d, y), n, h), m_out, d_out, y_out);
}

ORVEL_EXPORT(int32_t) days_bus(int32_t m1, int32_t d1, int32_t y1, int32_t m2, int32_t d2, int32_t y2,
                               int32_t hol_count, const int32_t* holidays, int32_t validate, uint32_t* err_code) {
    const cal::Holidays h{holidays, hol_count};
    Check check(err_code);
    if (validate != 0)
        check.call(0, ok_MDY, m1, d1, y1, 1).call(0, ok_MDY, m2, d2, y2, 1).call(0, ok_hol_table, h.count, h.day);
    const int64_t j1 = cal::jdn(m1, d1, y1), j2 = cal::jdn(m2, d2, y2);
    if (!readable_table(check, h)
             .expect(cal::is_business_day(j1, h) && cal::is_business_day(j2, h), ORVEL_E_NOT_BUSINESS_DAY)
             .ok())
        return 0;
    return static_cast<int32_t>(cal::business_days(j1, j2, h));
}
