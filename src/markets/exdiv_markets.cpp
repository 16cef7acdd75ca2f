// The ex-dividend date of each market: its market code and its rule from the next coupon date.
#include "core/check.hpp"
#include "markets/exdiv.hpp"
#include "orvel/markets.h"

using orvel::Date;
namespace mk = orvel::markets;

namespace {

// The members whose rule is a fixed number of calendar days before the coupon.
int32_t days_before_coupon(int32_t code, int32_t days, const mk::ExdivBond& bond, int32_t* m, int32_t* d, int32_t* y,
                           int32_t validate, uint32_t* err_code) {
    Date n;
    if (!mk::next_coupon(code, bond, validate, &n, err_code)) return 0;
    return mk::write_exd(mk::days_before(n, days), m, d, y);
}

}  // namespace

// The conventions and the four dates, as every member receives them.
#define ORVEL_EXD_BOND                                                                                            \
    mk::ExdivBond { day_type, eom, cpn_freq, {sm, sd, sy}, {mm, md, my}, {dm, dd, dy}, { fm, fd, fy } }

ORVEL_EXPORT(int32_t) acgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t sm, int32_t sd, int32_t sy,
                               int32_t mm, int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm,
                               int32_t fd, int32_t fy, int32_t* m, int32_t* d, int32_t* y, int32_t validate,
                               uint32_t* err_code) {
    return days_before_coupon(100, 7, ORVEL_EXD_BOND, m, d, y, validate, err_code);
}

ORVEL_EXPORT(int32_t) dngb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t sm, int32_t sd, int32_t sy,
                               int32_t mm, int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm,
                               int32_t fd, int32_t fy, int32_t* m, int32_t* d, int32_t* y, int32_t validate,
                               uint32_t* err_code) {
    return days_before_coupon(160, 30, ORVEL_EXD_BOND, m, d, y, validate, err_code);
}

ORVEL_EXPORT(int32_t) grgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t sm, int32_t sd, int32_t sy,
                               int32_t mm, int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm,
                               int32_t fd, int32_t fy, int32_t, int32_t, int32_t, int32_t* m, int32_t* d, int32_t* y,
                               int32_t validate, uint32_t* err_code) {
    return days_before_coupon(200, 30, ORVEL_EXD_BOND, m, d, y, validate, err_code);
}

ORVEL_EXPORT(int32_t) nzgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t sm, int32_t sd, int32_t sy,
                               int32_t mm, int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm,
                               int32_t fd, int32_t fy, int32_t, int32_t, int32_t, int32_t* m, int32_t* d, int32_t* y,
                               int32_t validate, uint32_t* err_code) {
    return days_before_coupon(310, 9, ORVEL_EXD_BOND, m, d, y, validate, err_code);
}

ORVEL_EXPORT(int32_t) sdgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t exd_rule, int32_t sm,
                               int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my, int32_t dm, int32_t dd,
                               int32_t dy, int32_t fm, int32_t fd, int32_t fy, int32_t* m, int32_t* d, int32_t* y,
                               int32_t validate, uint32_t* err_code) {
    Date n;
    if (!mk::next_coupon(370, ORVEL_EXD_BOND, validate, &n, err_code)) return 0;
    if (!orvel::Check(err_code).expect(exd_rule >= 1 && exd_rule <= 3, ORVEL_E_EXD_RULE).ok()) return 0;
    return mk::write_exd(mk::days_before(n, exd_rule == 1 ? 4 : exd_rule == 2 ? 9 : 14), m, d, y);
}

ORVEL_EXPORT(int32_t) augb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t sm, int32_t sd, int32_t sy,
                               int32_t mm, int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm,
                               int32_t fd, int32_t fy, int32_t* m, int32_t* d, int32_t* y, int32_t validate,
                               uint32_t* err_code) {
    Date n;
    if (!mk::next_coupon(110, ORVEL_EXD_BOND, validate, &n, err_code)) return 0;
    return mk::write_exd(mk::austrian(n), m, d, y);
}

ORVEL_EXPORT(int32_t) irgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t sm, int32_t sd, int32_t sy,
                               int32_t mm, int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm,
                               int32_t fd, int32_t fy, int32_t* m, int32_t* d, int32_t* y, int32_t validate,
                               uint32_t* err_code) {
    Date n;
    if (!mk::next_coupon(230, ORVEL_EXD_BOND, validate, &n, err_code)) return 0;
    return mk::write_exd(mk::irish(n), m, d, y);
}

ORVEL_EXPORT(int32_t) ukgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t sm, int32_t sd, int32_t sy,
                               int32_t mm, int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm,
                               int32_t fd, int32_t fy, int32_t spec_exd, int32_t adj_bdt, int32_t hol_count,
                               const int32_t* holidays, int32_t* m, int32_t* d, int32_t* y, int32_t validate,
                               uint32_t* err_code) {
    const orvel::cal::Holidays h{holidays, hol_count};
    Date n;
    if (!mk::next_coupon(410, ORVEL_EXD_BOND, validate, &n, err_code) || !mk::holidays_ok(h, validate, err_code))
        return 0;
    return mk::write_exd(mk::british(n, spec_exd, adj_bdt, h), m, d, y);
}

ORVEL_EXPORT(int32_t) gmgb_exd(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t sm, int32_t sd, int32_t sy,
                               int32_t mm, int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm,
                               int32_t fd, int32_t fy, int32_t adj_bdt, int32_t hol_count, const int32_t* holidays,
                               int32_t* m, int32_t* d, int32_t* y, int32_t validate, uint32_t* err_code) {
    const orvel::cal::Holidays h{holidays, hol_count};
    Date n;
    if (!mk::next_coupon(170, ORVEL_EXD_BOND, validate, &n, err_code) || !mk::holidays_ok(h, validate, err_code))
        return 0;
    return mk::write_exd(mk::german(n, adj_bdt, h), m, d, y);
}

#undef ORVEL_EXD_BOND
