#include <functional>

#include "orvel/frame.h"
#include "validators_test_util.hpp"

namespace {

using orvel_test::kInf;
using orvel_test::kNaN;
using orvel_test::kUntouched;

struct D {
    int32_t m, d, y;
};

// Every argument any input group takes, set to a valid semi-annual bond priced at 99.5.
struct Inputs {
    int32_t day_type = 1, eom = 1, cpn_freq = 2, side = 1, calc_type = 2;
    double given = 99.5, cpn_rate = 6.5, cpn_rate2 = 7.0, redemptn = 100.0, tax1 = 0.0, tax2 = 0.0;
    D trade{2, 27, 2024}, settle{3, 1, 2024}, mat{11, 15, 2033}, dated{11, 15, 2023}, first{5, 15, 2024};
    D step{11, 15, 2028}, last{11, 15, 2033};
};

using Group = std::function<int32_t(const Inputs&, uint32_t*)>;

// What each group takes beyond the common arguments.
struct GroupInfo {
    const char* name;
    Group call;
    bool coupons, taxes, second_rate, side;
};

#define DATE(x) x.m, x.d, x.y
const GroupInfo kGroups[] = {
    {"ok_bond_in", [](const Inputs& i, uint32_t* e) {
         return ok_bond_in(i.day_type, i.eom, i.cpn_freq, i.calc_type, i.given, i.cpn_rate, DATE(i.settle), DATE(i.mat),
                           DATE(i.dated), DATE(i.first), i.redemptn, i.tax1, i.tax2, e);
     }, true, true, false, false},
    {"ok_jpgb_in", [](const Inputs& i, uint32_t* e) {
         return ok_jpgb_in(i.day_type, i.eom, i.cpn_freq, i.calc_type, i.given, i.cpn_rate, DATE(i.settle), DATE(i.mat),
                           DATE(i.dated), DATE(i.first), i.redemptn, e);
     }, true, false, false, false},
    {"ok_auct_in", [](const Inputs& i, uint32_t* e) {
         return ok_auct_in(i.day_type, i.eom, i.cpn_freq, i.calc_type, i.given, i.cpn_rate, DATE(i.settle), DATE(i.mat),
                           DATE(i.dated), DATE(i.first), i.redemptn, e);
     }, true, false, false, false},
    {"ok_mtrm_in", [](const Inputs& i, uint32_t* e) {
         return ok_mtrm_in(i.day_type, i.eom, i.cpn_freq, i.calc_type, i.given, i.cpn_rate, DATE(i.settle), DATE(i.mat),
                           DATE(i.dated), DATE(i.first), DATE(i.last), i.redemptn, i.tax1, i.tax2, e);
     }, true, true, false, false},
    {"ok_jpgb_inol", [](const Inputs& i, uint32_t* e) {
         return ok_jpgb_inol(i.day_type, i.eom, i.cpn_freq, i.side, i.calc_type, i.given, i.cpn_rate, DATE(i.settle),
                             DATE(i.mat), DATE(i.dated), DATE(i.first), DATE(i.last), i.redemptn, e);
     }, true, false, false, true},
    {"ok_ofsl_in", [](const Inputs& i, uint32_t* e) {
         return ok_ofsl_in(i.day_type, i.eom, i.cpn_freq, i.calc_type, i.given, i.cpn_rate, DATE(i.trade),
                           DATE(i.settle), DATE(i.mat), DATE(i.dated), DATE(i.first), DATE(i.last), i.redemptn, e);
     }, true, false, false, false},
    {"ok_stpd_in", [](const Inputs& i, uint32_t* e) {
         return ok_stpd_in(i.day_type, i.eom, i.cpn_freq, i.calc_type, i.given, i.cpn_rate, i.cpn_rate2, DATE(i.settle),
                           DATE(i.mat), DATE(i.dated), DATE(i.first), DATE(i.step), i.redemptn, i.tax1, i.tax2, e);
     }, true, true, true, false},
    {"ok_stpd_inol", [](const Inputs& i, uint32_t* e) {
         return ok_stpd_inol(i.day_type, i.eom, i.cpn_freq, i.calc_type, i.given, i.cpn_rate, i.cpn_rate2,
                             DATE(i.settle), DATE(i.mat), DATE(i.dated), DATE(i.first), DATE(i.step), DATE(i.last),
                             i.redemptn, i.tax1, i.tax2, e);
     }, true, true, true, false},
    {"ok_at_mat_in", [](const Inputs& i, uint32_t* e) {
         return ok_at_mat_in(i.day_type, i.calc_type, i.given, i.cpn_rate, DATE(i.settle), DATE(i.mat), DATE(i.dated),
                             i.redemptn, i.tax1, i.tax2, e);
     }, false, true, false, false},
    {"ok_disc_in", [](const Inputs& i, uint32_t* e) {
         return ok_disc_in(i.day_type, i.calc_type, i.given, DATE(i.settle), DATE(i.mat), i.redemptn, i.tax1, i.tax2, e);
     }, false, true, false, false},
};
#undef DATE

bool is_disc(const GroupInfo& g) { return std::string(g.name) == "ok_disc_in"; }

struct Change {
    const char* what;
    std::function<void(Inputs&)> apply;
    uint32_t expected;
    std::function<bool(const GroupInfo&)> applies;
};

const auto all = [](const GroupInfo&) { return true; };

TEST(InputGroups, EveryNumberInOrder) {
    const Change changes[] = {
        {"as quoted", [](Inputs&) {}, 0, all},
        {"day_type 0", [](Inputs& i) { i.day_type = 0; }, 500, all},
        {"day_type -1 before a bad selector", [](Inputs& i) { i.day_type = -1; i.calc_type = 9; }, 501, all},
        {"cpn_freq 0", [](Inputs& i) { i.cpn_freq = 0; }, 600, [](const GroupInfo& g) { return g.coupons; }},
        {"side 3", [](Inputs& i) { i.side = 3; }, 590, [](const GroupInfo& g) { return g.side; }},
        {"side -1 before the frequency", [](Inputs& i) { i.side = -1; i.cpn_freq = 3; }, 591,
         [](const GroupInfo& g) { return g.side; }},
        {"selector 0", [](Inputs& i) { i.calc_type = 0; }, 200, all},
        {"selector 3 for a security", [](Inputs& i) { i.calc_type = 3; }, 200, [](const GroupInfo& g) { return !is_disc(g); }},
        {"selector 6 for a discount security", [](Inputs& i) { i.calc_type = 6; }, 200, is_disc},
        {"discount rate 5.25 for a discount security", [](Inputs& i) { i.calc_type = 3; i.given = 5.25; }, 0, is_disc},
        {"price 0", [](Inputs& i) { i.given = 0.0; }, 4002, all},
        {"yield 0", [](Inputs& i) { i.calc_type = 1; i.given = 0.0; }, 4001, all},
        {"coupon 3001", [](Inputs& i) { i.cpn_rate = 3001.0; }, 4100, [](const GroupInfo& g) { return !is_disc(g); }},
        {"second coupon -1", [](Inputs& i) { i.cpn_rate2 = -1.0; }, 4101, [](const GroupInfo& g) { return g.second_rate; }},
        {"settlement month 13", [](Inputs& i) { i.settle.m = 13; }, 1207, all},
        {"settlement on maturity", [](Inputs& i) { i.settle = i.mat; i.trade = {11, 1, 2033}; }, 2171, all},
        {"redemption 0", [](Inputs& i) { i.redemptn = 0.0; }, 4200, all},
        {"first tax 101", [](Inputs& i) { i.tax1 = 101.0; }, 4301, [](const GroupInfo& g) { return g.taxes; }},
        {"second tax -1", [](Inputs& i) { i.tax2 = -1.0; }, 4302, [](const GroupInfo& g) { return g.taxes; }},
        {"taxes ignored where there are none", [](Inputs& i) { i.tax1 = i.tax2 = -5.0; }, 0,
         [](const GroupInfo& g) { return !g.taxes; }},
    };
    for (const GroupInfo& g : kGroups) {
        for (const Change& c : changes) {
            if (!c.applies(g)) continue;
            SCOPED_TRACE(std::string(g.name) + ": " + c.what);
            Inputs in;
            c.apply(in);
            uint32_t err = kUntouched;
            const int32_t result = g.call(in, &err);
            EXPECT_EQ(result, c.expected == 0 ? 1 : 0);
            EXPECT_EQ(err, c.expected == 0 ? kUntouched : c.expected);
        }
    }
}

// The date group's defaults fill copies: a blank dated and first coupon pass and err_code stays as it was.
TEST(InputGroups, DefaultsOfTheDateGroupStayInside) {
    for (const GroupInfo& g : kGroups) {
        if (!g.coupons) continue;
        SCOPED_TRACE(g.name);
        Inputs in;
        in.dated = in.first = {0, 0, 0};
        uint32_t err = kUntouched;
        EXPECT_EQ(g.call(in, &err), 1);
        EXPECT_EQ(err, kUntouched);
    }
}

TEST(InputGroups, EveryDoubleRejectsNaNAndInfinities) {
    struct Arg {
        const char* name;
        double Inputs::*field;
        uint32_t number;
        std::function<bool(const GroupInfo&)> applies;
    } const args[] = {
        {"given price", &Inputs::given, 4002, all},
        {"cpn_rate", &Inputs::cpn_rate, 4100, [](const GroupInfo& g) { return !is_disc(g); }},
        {"cpn_rate2", &Inputs::cpn_rate2, 4101, [](const GroupInfo& g) { return g.second_rate; }},
        {"redemptn", &Inputs::redemptn, 4200, all},
        {"tax1", &Inputs::tax1, 4301, [](const GroupInfo& g) { return g.taxes; }},
        {"tax2", &Inputs::tax2, 4302, [](const GroupInfo& g) { return g.taxes; }},
    };
    for (const GroupInfo& g : kGroups) {
        for (const Arg& a : args) {
            if (!a.applies(g)) continue;
            for (double bad : {kNaN, kInf, -kInf}) {
                SCOPED_TRACE(std::string(g.name) + " " + a.name + " " + std::to_string(bad));
                Inputs in;
                in.*a.field = bad;
                uint32_t err = kUntouched;
                EXPECT_EQ(g.call(in, &err), 0);
                EXPECT_EQ(err, a.number);
            }
        }
    }
}

TEST(ListInputs, EveryDoubleRejectsNaNAndInfinities) {
    const int32_t ms[] = {2, 5}, ds[] = {15, 15}, ys[] = {2024, 2024};
    for (double bad : {kNaN, kInf, -kInf}) {
        SCOPED_TRACE(bad);
        const double list[] = {5.0, bad};
        uint32_t err = kUntouched;
        EXPECT_EQ(ok_flt_rcs(3, 1, 2024, 2, ms, ds, ys, list, &err), 0);
        EXPECT_EQ(err, 4100u);
        err = kUntouched;
        EXPECT_EQ(ok_sf_in(3, 1, 2024, 11, 15, 2033, 2, ms, ds, ys, list, &err), 0);
        EXPECT_EQ(err, 5100u);
        err = kUntouched;
        EXPECT_EQ(ok_flt_in(1, 2, bad, 0.45, 3, 1, 2024, 11, 15, 2033, 0, 0, 0, 2, 15, 2024, 4, 40, 40, &err), 0);
        EXPECT_EQ(err, 4002u);
        err = kUntouched;
        EXPECT_EQ(ok_flt_in(1, 2, 99.5, bad, 3, 1, 2024, 11, 15, 2033, 0, 0, 0, 2, 15, 2024, 4, 40, 40, &err), 0);
        EXPECT_EQ(err, 4130u);
    }
}

}  // namespace
