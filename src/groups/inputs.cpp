// Input groups: every argument of one kind of calculation, in the coupon-bond order: day count and
// frequency, the given_type selector (1 a yield, 2 a price), the given value, the coupon rate, the dates
// of the family (on copies: the defaults a date group supplies stay inside the check), the redemption
// value, then the tax rates with their positions (4301, 4302).
#include "groups/dates.hpp"

using orvel::Check;
using orvel::Date;

namespace {

// The selector and the value it names; 1 and 2 for securities, 1..5 for discount securities.
Check& given_value(Check& check, int32_t given_type, double given, int32_t highest_type) {
    return check.expect(given_type >= 1 && given_type <= highest_type, ORVEL_E_SELECTOR)
        .call(0, ok_given, given, given_type);
}

Check& taxes(Check& check, double tax1, double tax2) {
    return check.call(1, ok_tax_rate, tax1).call(2, ok_tax_rate, tax2);
}

Check& codes(Check& check, int32_t day_type, int32_t cpn_freq) {
    return check.call(0, ok_day_type, day_type).call(0, ok_cpn_freq, cpn_freq);
}

// The date groups take their optional dates in place; an input group checks copies.
struct Copies {
    Date dated, first, last;
};

Check& bond_dates(Check& check, Date settle, Date mat, Copies c, int32_t day_type, int32_t eom, int32_t cpn_freq,
                  decltype(&ok_bond_MDYs) group) {
    return check.call(0, group, settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, &c.dated.m, &c.dated.d, &c.dated.y,
                      &c.first.m, &c.first.d, &c.first.y, day_type, eom, cpn_freq);
}

Check& odd_last_dates(Check& check, Date settle, Date mat, Copies& c, int32_t day_type, int32_t eom, int32_t cpn_freq,
                      decltype(&ok_mtrm_MDYs) group) {
    return check.call(0, group, settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, &c.dated.m, &c.dated.d, &c.dated.y,
                      &c.first.m, &c.first.d, &c.first.y, &c.last.m, &c.last.d, &c.last.y, day_type, eom, cpn_freq);
}

// The opening every coupon group shares: codes, selector and given value, coupon rate.
Check& coupon_terms(Check& check, int32_t day_type, int32_t cpn_freq, int32_t calc_type, double given,
                    double cpn_rate) {
    codes(check, day_type, cpn_freq);
    return given_value(check, calc_type, given, 2).call(0, ok_cpn_rate, cpn_rate);
}

// A bond with dated date and first coupon: its terms, its date group, its redemption value.
Check& regular_bond(Check& check, int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                    double cpn_rate, Date settle, Date mat, Copies c, double redemptn,
                    decltype(&ok_bond_MDYs) group) {
    coupon_terms(check, day_type, cpn_freq, calc_type, given, cpn_rate);
    return bond_dates(check, settle, mat, c, day_type, eom, cpn_freq, group).call(0, ok_redemptn, redemptn);
}

}  // namespace

ORVEL_EXPORT(int32_t) ok_bond_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md,
                                 int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm, int32_t fd, int32_t fy,
                                 double redemptn, double tax1, double tax2, uint32_t* err_code) {
    Check check(err_code);
    regular_bond(check, day_type, eom, cpn_freq, calc_type, given, cpn_rate, {sm, sd, sy}, {mm, md, my},
                 {{dm, dd, dy}, {fm, fd, fy}, {}}, redemptn, &ok_bond_MDYs);
    return taxes(check, tax1, tax2).ok();
}

ORVEL_EXPORT(int32_t) ok_jpgb_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md,
                                 int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm, int32_t fd, int32_t fy,
                                 double redemptn, uint32_t* err_code) {
    Check check(err_code);
    return regular_bond(check, day_type, eom, cpn_freq, calc_type, given, cpn_rate, {sm, sd, sy}, {mm, md, my},
                        {{dm, dd, dy}, {fm, fd, fy}, {}}, redemptn, &ok_jpgb_MDYs)
        .ok();
}

ORVEL_EXPORT(int32_t) ok_auct_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md,
                                 int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm, int32_t fd, int32_t fy,
                                 double redemptn, uint32_t* err_code) {
    Check check(err_code);
    return regular_bond(check, day_type, eom, cpn_freq, calc_type, given, cpn_rate, {sm, sd, sy}, {mm, md, my},
                        {{dm, dd, dy}, {fm, fd, fy}, {}}, redemptn, &ok_auct_MDYs)
        .ok();
}

ORVEL_EXPORT(int32_t) ok_mtrm_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t sm, int32_t sd, int32_t sy, int32_t mm, int32_t md,
                                 int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm, int32_t fd, int32_t fy,
                                 int32_t lm, int32_t ld, int32_t ly, double redemptn, double tax1, double tax2,
                                 uint32_t* err_code) {
    Copies c{{dm, dd, dy}, {fm, fd, fy}, {lm, ld, ly}};
    Check check(err_code);
    coupon_terms(check, day_type, cpn_freq, calc_type, given, cpn_rate);
    odd_last_dates(check, {sm, sd, sy}, {mm, md, my}, c, day_type, eom, cpn_freq, &ok_mtrm_MDYs)
        .call(0, ok_redemptn, redemptn);
    return taxes(check, tax1, tax2).ok();
}

ORVEL_EXPORT(int32_t) ok_jpgb_inol(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t side, int32_t calc_type,
                                   double given, double cpn_rate, int32_t sm, int32_t sd, int32_t sy, int32_t mm,
                                   int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm, int32_t fd,
                                   int32_t fy, int32_t lm, int32_t ld, int32_t ly, double redemptn,
                                   uint32_t* err_code) {
    Copies c{{dm, dd, dy}, {fm, fd, fy}, {lm, ld, ly}};
    Check check(err_code);
    check.call(0, ok_day_type, day_type).call(0, ok_1or2_side, side).call(0, ok_cpn_freq, cpn_freq);
    given_value(check, calc_type, given, 2).call(0, ok_cpn_rate, cpn_rate);
    return odd_last_dates(check, {sm, sd, sy}, {mm, md, my}, c, day_type, eom, cpn_freq, &ok_jpgb_d_ol)
        .call(0, ok_redemptn, redemptn)
        .ok();
}

ORVEL_EXPORT(int32_t) ok_ofsl_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, int32_t tm, int32_t td, int32_t ty, int32_t sm, int32_t sd,
                                 int32_t sy, int32_t mm, int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy,
                                 int32_t fm, int32_t fd, int32_t fy, int32_t lm, int32_t ld, int32_t ly,
                                 double redemptn, uint32_t* err_code) {
    Copies c{{dm, dd, dy}, {fm, fd, fy}, {lm, ld, ly}};
    Check check(err_code);
    coupon_terms(check, day_type, cpn_freq, calc_type, given, cpn_rate);
    return check
        .call(0, ok_ofsl_MDYs, tm, td, ty, sm, sd, sy, mm, md, my, &c.dated.m, &c.dated.d, &c.dated.y, &c.first.m,
              &c.first.d, &c.first.y, &c.last.m, &c.last.d, &c.last.y, day_type, eom, cpn_freq)
        .call(0, ok_redemptn, redemptn)
        .ok();
}

ORVEL_EXPORT(int32_t) ok_stpd_in(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                 double cpn_rate, double cpn_rate2, int32_t sm, int32_t sd, int32_t sy, int32_t mm,
                                 int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm, int32_t fd,
                                 int32_t fy, int32_t stm, int32_t std, int32_t sty, double redemptn, double tax1,
                                 double tax2, uint32_t* err_code) {
    Copies c{{dm, dd, dy}, {fm, fd, fy}, {}};
    Check check(err_code);
    coupon_terms(check, day_type, cpn_freq, calc_type, given, cpn_rate).call(1, ok_cpn_rate, cpn_rate2);
    check.call(0, ok_stpd_MDYs, sm, sd, sy, mm, md, my, &c.dated.m, &c.dated.d, &c.dated.y, &c.first.m, &c.first.d,
               &c.first.y, stm, std, sty, day_type, eom, cpn_freq)
        .call(0, ok_redemptn, redemptn);
    return taxes(check, tax1, tax2).ok();
}

ORVEL_EXPORT(int32_t) ok_stpd_inol(int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t calc_type, double given,
                                   double cpn_rate, double cpn_rate2, int32_t sm, int32_t sd, int32_t sy, int32_t mm,
                                   int32_t md, int32_t my, int32_t dm, int32_t dd, int32_t dy, int32_t fm, int32_t fd,
                                   int32_t fy, int32_t stm, int32_t std, int32_t sty, int32_t lm, int32_t ld,
                                   int32_t ly, double redemptn, double tax1, double tax2, uint32_t* err_code) {
    Copies c{{dm, dd, dy}, {fm, fd, fy}, {lm, ld, ly}};
    Check check(err_code);
    coupon_terms(check, day_type, cpn_freq, calc_type, given, cpn_rate).call(1, ok_cpn_rate, cpn_rate2);
    check.call(0, ok_stpd_d_ol, sm, sd, sy, mm, md, my, &c.dated.m, &c.dated.d, &c.dated.y, &c.first.m, &c.first.d,
               &c.first.y, stm, std, sty, &c.last.m, &c.last.d, &c.last.y, day_type, eom, cpn_freq)
        .call(0, ok_redemptn, redemptn);
    return taxes(check, tax1, tax2).ok();
}

ORVEL_EXPORT(int32_t) ok_at_mat_in(int32_t day_type, int32_t calc_type, double given, double cpn_rate, int32_t sm,
                                   int32_t sd, int32_t sy, int32_t mm, int32_t md, int32_t my, int32_t dm,
                                   int32_t dd, int32_t dy, double redemptn, double tax1, double tax2,
                                   uint32_t* err_code) {
    Check check(err_code);
    check.call(0, ok_day_type, day_type);
    given_value(check, calc_type, given, 2)
        .call(0, ok_cpn_rate, cpn_rate)
        .call(0, ok_amat_MDYs, sm, sd, sy, mm, md, my, dm, dd, dy, day_type)
        .call(0, ok_redemptn, redemptn);
    return taxes(check, tax1, tax2).ok();
}

ORVEL_EXPORT(int32_t) ok_disc_in(int32_t day_type, int32_t calc_type, double given, int32_t sm, int32_t sd,
                                 int32_t sy, int32_t mm, int32_t md, int32_t my, double redemptn, double tax1,
                                 double tax2, uint32_t* err_code) {
    Check check(err_code);
    check.call(0, ok_day_type, day_type);
    given_value(check, calc_type, given, 5)
        .call(0, ok_disc_MDYs, sm, sd, sy, mm, md, my, day_type)
        .call(0, ok_redemptn, redemptn);
    return taxes(check, tax1, tax2).ok();
}
