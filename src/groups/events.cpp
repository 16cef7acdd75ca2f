// Validators of the dates around a trade: trade date, ex-dividend dates, early redemption, and the
// floating-rate and sinking-fund inputs that carry lists of dates.
#include "groups/dates.hpp"

using orvel::Check;
using orvel::Date;


namespace {

// The ex-dividend date of the coupon being earned: after the previous coupon date of settlement, not after
// its next one, and before maturity.
int32_t exdiv_in_period(Date exdiv, Date settle, Date mat, Date dated, Date first, Date last, int32_t day_type,
                        int32_t eom, int32_t cpn_freq, uint32_t* err_code) {
    Check check(err_code);
    check.call(0, ok_cpn_freq, cpn_freq);
    orvel::required(check, ORVEL_ROLE_MATURITY, mat);
    orvel::required(check, ORVEL_ROLE_SETTLE, settle);
    orvel::required(check, ORVEL_ROLE_EXDIV, exdiv);
    orvel::before(check, 91, exdiv, mat, day_type);
    if (!check) return 0;
    const auto p = orvel::settlement_period(settle, mat, dated, first, last, eom, cpn_freq);
    return check.expect(orvel::earlier(p.pcd, exdiv) && !orvel::earlier(p.ncd, exdiv), ORVEL_E_EXDIV).ok();
}

// Each date of three parallel lists valid: 12000 + the index of the first bad one. A list longer than
// ORVEL_DATE_LIST_MAX is 14010 first, so that an index never reaches the numbers above 12999.
Check& date_list(Check& check, int32_t count, const int32_t* ms, const int32_t* ds, const int32_t* ys) {
    check.expect(count <= ORVEL_DATE_LIST_MAX, ORVEL_E_LIST_LENGTH);
    for (int32_t i = 0; check && i < count; ++i)
        check.expect(orvel::is_given({ms[i], ds[i], ys[i]}), ORVEL_E_DATE_LIST_BASE + static_cast<uint32_t>(i));
    return check;
}

bool lists_present(const int32_t* ms, const int32_t* ds, const int32_t* ys) {
    return ms != nullptr && ds != nullptr && ys != nullptr;
}

// The reference date of a floating-rate list (settlement): any failure is 1507.
Check& reference_date(Check& check, Date ref) { return check.expect(orvel::is_given(ref), orvel::with_role(ORVEL_E_BLANK, ORVEL_ROLE_SETTLE)); }

}  // namespace

ORVEL_EXPORT(int32_t) ok_trade_MDY(int32_t tm, int32_t td, int32_t ty, int32_t mm, int32_t md, int32_t my, int32_t dm,
                                   int32_t dd, int32_t dy, uint32_t* err_code) {
    const Date trade{tm, td, ty}, mat{mm, md, my}, dated{dm, dd, dy};
    Check check(err_code);
    orvel::required(check, ORVEL_ROLE_TRADE, trade);
    orvel::before(check, 41, trade, mat, 1);
    if (orvel::is_given(dated)) orvel::not_after(check, 24, dated, trade, 1);
    return check.ok();
}

ORVEL_EXPORT(int32_t) ok_exdiv_MDY(int32_t xm, int32_t xd, int32_t xy, int32_t sm, int32_t sd, int32_t sy, int32_t mm,
                                   int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm, int32_t fd,
                                   int32_t fy, int32_t day_type, int32_t eom, int32_t cpn_freq, uint32_t* err_code) {
    return exdiv_in_period({xm, xd, xy}, {sm, sd, sy}, {mm, md, my}, {dm, dd, dy}, {fm, fd, fy}, {0, 0, 0}, day_type,
                           eom, cpn_freq, err_code);
}

ORVEL_EXPORT(int32_t) ok_exdol_MDY(int32_t xm, int32_t xd, int32_t xy, int32_t sm, int32_t sd, int32_t sy, int32_t mm,
                                   int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm, int32_t fd,
                                   int32_t fy, int32_t lm, int32_t ld, int32_t ly, int32_t day_type, int32_t eom,
                                   int32_t cpn_freq, uint32_t* err_code) {
    return exdiv_in_period({xm, xd, xy}, {sm, sd, sy}, {mm, md, my}, {dm, dd, dy}, {fm, fd, fy}, {lm, ld, ly},
                           day_type, eom, cpn_freq, err_code);
}

// An early redemption: the trade date as ok_trade_MDY sees it, then the redemption date valid and not
// after maturity (8510) and not before the dated date (8510 + 2).
ORVEL_EXPORT(int32_t) ok_er_in(int32_t tm, int32_t td, int32_t ty, int32_t em, int32_t ed, int32_t ey, int32_t mm,
                               int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, uint32_t* err_code) {
    const Date er{em, ed, ey}, mat{mm, md, my}, dated{dm, dd, dy};
    if (!ok_trade_MDY(tm, td, ty, mm, md, my, dm, dd, dy, err_code)) return 0;
    return Check(err_code)
        .expect(orvel::is_given(er) && !orvel::earlier(mat, er), ORVEL_E_ER_IN)
        .expect(!orvel::is_given(dated) || !orvel::earlier(er, dated), ORVEL_E_ER_DATED)
        .ok();
}

// Floating-rate note: settlement (7) and the last and next reset dates (9) valid; last reset not after
// settlement (2097), settlement before the next reset (2179), last before next reset (2199), settlement
// before maturity (2171); a next reset after maturity is 2600.
ORVEL_EXPORT(int32_t) ok_frn_MDYs(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my, int32_t lm,
                                  int32_t ld, int32_t ly, int32_t nm, int32_t nd, int32_t ny, uint32_t* err_code) {
    const Date settle{sm, sd, sy}, mat{mm, md, my}, last{lm, ld, ly}, next{nm, nd, ny};
    Check check(err_code);
    orvel::required(check, ORVEL_ROLE_MATURITY, mat);
    orvel::required(check, ORVEL_ROLE_SETTLE, settle);
    orvel::required(check, ORVEL_ROLE_EXDIV, last);
    orvel::required(check, ORVEL_ROLE_EXDIV, next);
    orvel::not_after(check, 97, last, settle, 1);
    orvel::before(check, 79, settle, next, 1);
    orvel::before(check, 99, last, next, 1);
    orvel::before(check, 71, settle, mat, 1);
    return check.expect(!orvel::earlier(mat, next), ORVEL_E_FRN_DATES).ok();
}

ORVEL_EXPORT(int32_t) ok_flt_cpns(int32_t rm, int32_t rd, int32_t ry, int32_t count, const int32_t* months,
                                  const int32_t* days, const int32_t* years, uint32_t* err_code) {
    const Date ref{rm, rd, ry};
    Check check(err_code);
    reference_date(check, ref).expect(count > 0 && lists_present(months, days, years), ORVEL_E_FLT_CPN_COUNT);
    date_list(check, count, months, days, years);
    if (!check) return 0;
    const Date first{months[0], days[0], years[0]}, last{months[count - 1], days[count - 1], years[count - 1]};
    return check.expect(!orvel::earlier(ref, first), ORVEL_E_FLT_FIRST)
        .expect(orvel::earlier(ref, last), ORVEL_E_FLT_LAST)
        .ok();
}

ORVEL_EXPORT(int32_t) ok_flt_rcs(int32_t rm, int32_t rd, int32_t ry, int32_t count, const int32_t* months,
                                 const int32_t* days, const int32_t* years, const double* rates, uint32_t* err_code) {
    Check check(err_code);
    reference_date(check, {rm, rd, ry})
        .expect(count > 0 && lists_present(months, days, years) && rates != nullptr, ORVEL_E_FLT_RST_COUNT);
    date_list(check, count, months, days, years);
    for (int32_t i = 0; check && i < count; ++i) check.call(0, ok_cpn_rate, rates[i]);
    for (int32_t i = 1; check && i < count; ++i)
        check.expect(orvel::earlier({months[i - 1], days[i - 1], years[i - 1]}, {months[i], days[i], years[i]}),
                     ORVEL_E_FLT_RST_ORDER);
    return check.ok();
}

ORVEL_EXPORT(int32_t) ok_flt_in(int32_t index_type, int32_t given_type, double given, double margin, int32_t sm,
                                int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my, int32_t dm, int32_t dd,
                                int32_t dy, int32_t lm, int32_t ld, int32_t ly, int32_t rst_freq, int32_t cpn_count,
                                int32_t rst_count, uint32_t* err_code) {
    const Date settle{sm, sd, sy}, mat{mm, md, my}, dated{dm, dd, dy}, last_reset{lm, ld, ly};
    uint32_t scratch = 0;
    Check check(err_code);
    check.expect(index_type == 1 || index_type == 2, ORVEL_E_FLT_CODE)
        .expect(given_type == 1 || given_type == 2, ORVEL_E_SELECTOR)
        .call(0, ok_given, given, given_type)
        .expect(orvel::within(margin, -3000.0, 3000.0), ORVEL_E_FLT_MARGIN);
    reference_date(check, settle);
    orvel::required(check, ORVEL_ROLE_MATURITY, mat);
    orvel::optional(check, ORVEL_ROLE_DATED, dated);
    orvel::required(check, ORVEL_ROLE_STEP, last_reset);
    check.expect(cpn_count > 0, ORVEL_E_FLT_CPN_COUNT)
        .expect(rst_count > 0, ORVEL_E_FLT_RST_COUNT)
        .expect(ok_cpn_freq(rst_freq, &scratch) != 0, ORVEL_E_FLT_FREQ);
    orvel::not_after(check, 57, last_reset, settle, 1);
    return orvel::before(check, 71, settle, mat, 1).ok();
}

// Sinking-fund schedule: settlement and maturity valid; up to 1000 dated amounts (more is 14300), each date valid (12000 +
// index), strictly ascending (14300), not after maturity (14301); each amount ok_sf_amt (5100), all of them
// together at most the whole issue, 100 per 100 (14300).
ORVEL_EXPORT(int32_t) ok_sf_in(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my, int32_t count,
                               const int32_t* months, const int32_t* days, const int32_t* years,
                               const double* amounts, uint32_t* err_code) {
    const Date settle{sm, sd, sy}, mat{mm, md, my};
    Check check(err_code);
    orvel::required(check, ORVEL_ROLE_MATURITY, mat);
    orvel::required(check, ORVEL_ROLE_SETTLE, settle);
    check.expect(count >= 0 && count <= ORVEL_DATE_LIST_MAX && (count == 0 || (lists_present(months, days, years) && amounts)),
                 ORVEL_E_SF_IN);
    date_list(check, count, months, days, years);
    double total = 0.0;
    for (int32_t i = 0; check && i < count; ++i) {
        const Date at{months[i], days[i], years[i]};
        check.call(0, ok_sf_amt, amounts[i])
            .expect(i == 0 || orvel::earlier({months[i - 1], days[i - 1], years[i - 1]}, at), ORVEL_E_SF_IN)
            .expect(!orvel::earlier(mat, at), ORVEL_E_SF_AFTER_MAT);
        total += amounts[i];
    }
    return check.expect(total <= 100.0, ORVEL_E_SF_IN).ok();
}
