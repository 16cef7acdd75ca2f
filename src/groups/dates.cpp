// The date groups of coupon securities. They all follow the coupon-bond pattern: conventions, maturity and
// settlement required, the dated date probed as optional, the first coupon date required only when the
// dated date starts an odd period, blank ones filled with the regular schedule, then the order of the dates.
#include "groups/dates.hpp"


using orvel::Check;
using orvel::Conventions;
using orvel::Date;
using orvel::DateRef;

namespace {

// The dates of one coupon bond: the anchor is where the regular schedule is counted back from (maturity,
// or the last regular coupon date of an odd-last bond).
struct BondGroup {
    Date settle, mat;
    DateRef dated, first;
    Conventions conv;
    Date anchor;
    bool supplied = false;  // a blank date was given a default
};

// Conventions, maturity and settlement required, the dated date probed as optional.
Check& open_group(Check& check, const BondGroup& g) {
    check.call(0, ok_day_type, g.conv.day_type).call(0, ok_cpn_freq, g.conv.cpn_freq);
    orvel::required(check, ORVEL_ROLE_MATURITY, g.mat);
    orvel::required(check, ORVEL_ROLE_SETTLE, g.settle);
    return orvel::optional(check, ORVEL_ROLE_DATED, g.dated.get());
}

// With neither date given the schedule runs regularly back from the anchor, without a first-period limit.
bool regular_defaults(BondGroup& g) {
    const auto p = orvel::schedule::unlimited_first_period(g.anchor, g.conv.cpn_freq, g.conv.eom);
    g.dated.set(p.dated);
    g.first.set(p.first_cpn);
    g.supplied = true;
    return true;
}

// The first coupon date: needed when a dated date is given and starts an odd period; otherwise a blank one
// is one period after the dated date.
bool first_coupon(uint32_t* err_code, BondGroup& g) {
    const Date dated = g.dated.get();
    if (orvel::is_blank(dated)) {
        if (orvel::is_blank(g.first.get())) return regular_defaults(g);
        Check check(err_code);
        return orvel::dated_for_first(check, g.dated, g.first.get()).ok();
    }
    const bool odd =
        orvel::schedule::count_periods(dated, g.anchor, g.conv.day_type, g.conv.eom, g.conv.cpn_freq).frac == 1;
    if (!odd && orvel::is_blank(g.first.get())) {
        g.first.set(orvel::schedule::grid_date(dated, 1, g.conv.cpn_freq, g.conv.eom));
        g.supplied = true;
        return true;
    }
    Check check(err_code);
    return (odd ? orvel::required : orvel::optional)(check, ORVEL_ROLE_FIRST_CPN, g.first.get()).ok();
}

Check& first_coupon_step(Check& check, BondGroup& g) {
    return check.step([&g](uint32_t* e) { return first_coupon(e, g); });
}

// Dated date not after settlement, before the first coupon; settlement before maturity.
Check& bond_order(Check& check, const BondGroup& g) {
    const int32_t dt = g.conv.day_type;
    orvel::not_after(check, 27, g.dated.get(), g.settle, dt);
    orvel::before(check, 23, g.dated.get(), g.first.get(), dt);
    return orvel::before(check, 71, g.settle, g.mat, dt);
}

// The first coupon on the cycle of the anchor: the end-of-month rule counts only when the anchor is a
// month end.
Check& on_anchor_cycle(Check& check, const BondGroup& g) {
    const Date f = g.first.get(), a = g.anchor;
    const int32_t eom = orvel::cal::is_month_end(a.m, a.d, a.y) ? g.conv.eom : 0;
    return check.call(31, ok_cpn_sync, f.m, f.d, f.y, a.m, a.d, a.y, eom, g.conv.cpn_freq, 0);
}

// A default overwrites the 1500 that probing the blank date left.
int32_t close_group(const Check& check, const BondGroup& g, uint32_t* err_code) {
    if (check && g.supplied) *err_code = 0;
    return check.ok();
}

// The last regular coupon date: optional, maturity when blank, not after maturity; it anchors the schedule.
Check& last_coupon(Check& check, BondGroup& g, DateRef last) {
    orvel::optional(check, ORVEL_ROLE_LAST_CPN, last.get());
    if (check && orvel::is_blank(last.get())) last.set(g.mat);
    g.anchor = last.get();
    return check;
}

// The step date of a step-coupon bond: required, before maturity, not before the first coupon.
Check& step_order(Check& check, const BondGroup& g, Date step) {
    orvel::before(check, 51, step, g.mat, g.conv.day_type);
    return orvel::not_after(check, 35, g.first.get(), step, g.conv.day_type);
}

BondGroup make_group(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my, int32_t* dm,
                     int32_t* dd, int32_t* dy, int32_t* fm, int32_t* fd, int32_t* fy, int32_t day_type, int32_t eom,
                     int32_t cpn_freq) {
    return BondGroup{{sm, sd, sy}, {mm, md, my}, {dm, dd, dy}, {fm, fd, fy}, {day_type, eom, cpn_freq}, {mm, md, my}};
}

// The coupon-bond pattern, with or without the cycle test of the first coupon against maturity.
int32_t bond_pattern(BondGroup g, bool cycle, uint32_t* err_code) {
    Check check(err_code);
    open_group(check, g);
    first_coupon_step(check, g);
    bond_order(check, g);
    if (cycle) on_anchor_cycle(check, g);
    return close_group(check, g, err_code);
}

}  // namespace

ORVEL_EXPORT(int32_t) ok_disc_MDYs(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my,
                                   int32_t day_type, uint32_t* err_code) {
    Check check(err_code);
    orvel::required(check, ORVEL_ROLE_MATURITY, {mm, md, my});
    orvel::required(check, ORVEL_ROLE_SETTLE, {sm, sd, sy});
    return orvel::before(check, 71, {sm, sd, sy}, {mm, md, my}, day_type).ok();
}

ORVEL_EXPORT(int32_t) ok_amat_MDYs(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my,
                                   int32_t dm, int32_t dd, int32_t dy, int32_t day_type, uint32_t* err_code) {
    const Date settle{sm, sd, sy}, mat{mm, md, my}, dated{dm, dd, dy};
    Check check(err_code);
    orvel::required(check, ORVEL_ROLE_MATURITY, mat);
    orvel::required(check, ORVEL_ROLE_SETTLE, settle);
    orvel::required(check, ORVEL_ROLE_DATED, dated);
    orvel::not_after(check, 27, dated, settle, day_type);
    orvel::before(check, 21, dated, mat, day_type);
    return orvel::before(check, 71, settle, mat, day_type).ok();
}

ORVEL_EXPORT(int32_t) ok_bond_MDYs(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my,
                                   int32_t* dm, int32_t* dd, int32_t* dy, int32_t* fm, int32_t* fd, int32_t* fy,
                                   int32_t day_type, int32_t eom, int32_t cpn_freq, uint32_t* err_code) {
    return bond_pattern(make_group(sm, sd, sy, mm, md, my, dm, dd, dy, fm, fd, fy, day_type, eom, cpn_freq), true,
                        err_code);
}

ORVEL_EXPORT(int32_t) ok_jpgb_MDYs(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my,
                                   int32_t* dm, int32_t* dd, int32_t* dy, int32_t* fm, int32_t* fd, int32_t* fy,
                                   int32_t day_type, int32_t eom, int32_t cpn_freq, uint32_t* err_code) {
    return bond_pattern(make_group(sm, sd, sy, mm, md, my, dm, dd, dy, fm, fd, fy, day_type, eom, cpn_freq), false,
                        err_code);
}

ORVEL_EXPORT(int32_t) ok_auct_MDYs(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my,
                                   int32_t* dm, int32_t* dd, int32_t* dy, int32_t* fm, int32_t* fd, int32_t* fy,
                                   int32_t day_type, int32_t eom, int32_t cpn_freq, uint32_t* err_code) {
    return bond_pattern(make_group(sm, sd, sy, mm, md, my, dm, dd, dy, fm, fd, fy, day_type, eom, cpn_freq), false,
                        err_code);
}

ORVEL_EXPORT(int32_t) ok_mtrm_MDYs(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my,
                                   int32_t* dm, int32_t* dd, int32_t* dy, int32_t* fm, int32_t* fd, int32_t* fy,
                                   int32_t* lm, int32_t* ld, int32_t* ly, int32_t day_type, int32_t eom,
                                   int32_t cpn_freq, uint32_t* err_code) {
    BondGroup g = make_group(sm, sd, sy, mm, md, my, dm, dd, dy, fm, fd, fy, day_type, eom, cpn_freq);
    const DateRef last{lm, ld, ly};
    Check check(err_code);
    open_group(check, g);
    last_coupon(check, g, last);
    first_coupon_step(check, g);
    bond_order(check, g);
    orvel::not_after(check, 61, last.get(), g.mat, day_type);
    return close_group(check, g, err_code);
}

ORVEL_EXPORT(int32_t) ok_ofsl_MDYs(int32_t tm, int32_t td, int32_t ty, int32_t sm, int32_t sd, int32_t sy, int32_t mm,
                                   int32_t md, int32_t my, int32_t* dm, int32_t* dd, int32_t* dy, int32_t* fm,
                                   int32_t* fd, int32_t* fy, int32_t* lm, int32_t* ld, int32_t* ly, int32_t day_type,
                                   int32_t eom, int32_t cpn_freq, uint32_t* err_code) {
    if (!ok_mtrm_MDYs(sm, sd, sy, mm, md, my, dm, dd, dy, fm, fd, fy, lm, ld, ly, day_type, eom, cpn_freq, err_code))
        return 0;
    if (orvel::is_blank({tm, td, ty})) return 1;
    return ok_trade_MDY(tm, td, ty, mm, md, my, *dm, *dd, *dy, err_code);
}

ORVEL_EXPORT(int32_t) ok_stpd_MDYs(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my,
                                   int32_t* dm, int32_t* dd, int32_t* dy, int32_t* fm, int32_t* fd, int32_t* fy,
                                   int32_t stm, int32_t std, int32_t sty, int32_t day_type, int32_t eom,
                                   int32_t cpn_freq, uint32_t* err_code) {
    BondGroup g = make_group(sm, sd, sy, mm, md, my, dm, dd, dy, fm, fd, fy, day_type, eom, cpn_freq);
    const Date step{stm, std, sty};
    Check check(err_code);
    open_group(check, g);
    first_coupon_step(check, g);
    orvel::required(check, ORVEL_ROLE_STEP, step);
    bond_order(check, g);
    step_order(check, g, step);
    on_anchor_cycle(check, g);
    return close_group(check, g, err_code);
}

ORVEL_EXPORT(int32_t) ok_stpd_d_ol(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my,
                                   int32_t* dm, int32_t* dd, int32_t* dy, int32_t* fm, int32_t* fd, int32_t* fy,
                                   int32_t stm, int32_t std, int32_t sty, int32_t* lm, int32_t* ld, int32_t* ly,
                                   int32_t day_type, int32_t eom, int32_t cpn_freq, uint32_t* err_code) {
    BondGroup g = make_group(sm, sd, sy, mm, md, my, dm, dd, dy, fm, fd, fy, day_type, eom, cpn_freq);
    const Date step{stm, std, sty};
    const DateRef last{lm, ld, ly};
    Check check(err_code);
    open_group(check, g);
    last_coupon(check, g, last);
    first_coupon_step(check, g);
    orvel::required(check, ORVEL_ROLE_STEP, step);
    bond_order(check, g);
    step_order(check, g, step);
    orvel::not_after(check, 61, last.get(), g.mat, day_type);
    on_anchor_cycle(check, g);
    return close_group(check, g, err_code);
}

ORVEL_EXPORT(int32_t) ok_jpgb_d_ol(int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my,
                                   int32_t* dm, int32_t* dd, int32_t* dy, int32_t* fm, int32_t* fd, int32_t* fy,
                                   int32_t* lm, int32_t* ld, int32_t* ly, int32_t day_type, int32_t eom,
                                   int32_t cpn_freq, uint32_t* err_code) {
    return ok_jpgb_MDYs(sm, sd, sy, mm, md, my, dm, dd, dy, fm, fd, fy, day_type, eom, cpn_freq, err_code) &&
           ok_mtrm_MDYs(sm, sd, sy, mm, md, my, dm, dd, dy, fm, fd, fy, lm, ld, ly, day_type, eom, cpn_freq,
                        err_code);
}
