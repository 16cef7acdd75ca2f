#include <array>

#include "orvel/calendar.h"
#include "orvel/frame.h"
#include "validators_test_util.hpp"

namespace {

using orvel_test::expect_rows;
using orvel_test::kUntouched;
using orvel_test::Row;

struct D {
    int32_t m, d, y;
    bool operator==(const D&) const = default;
};
constexpr D kBlank{0, 0, 0};

// A semi-annual actual/actual bond maturing 11/15/2033, settling 3/1/2024, dated 11/15/2023 with its first
// coupon 5/15/2024. Each row changes one thing.
struct Bond {
    D settle{3, 1, 2024}, mat{11, 15, 2033}, dated{11, 15, 2023}, first{5, 15, 2024};
    int32_t day_type = 1, eom = 1, cpn_freq = 2;

    int32_t check(uint32_t* e) {
        return ok_bond_MDYs(settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, &dated.m, &dated.d, &dated.y, &first.m,
                            &first.d, &first.y, day_type, eom, cpn_freq, e);
    }
};

template <class Group, class Change>
Row row(std::string what, Change change, uint32_t expected) {
    return {std::move(what), [change](uint32_t* e) { Group g; change(g); return g.check(e); }, expected};
}

TEST(BondDates, EveryNumberAndRole) {
    expect_rows({
        row<Bond>("as issued", [](Bond&) {}, 0),
        row<Bond>("day_type 14", [](Bond& b) { b.day_type = 14; }, 500),
        row<Bond>("day_type -1", [](Bond& b) { b.day_type = -1; }, 501),
        row<Bond>("cpn_freq 3", [](Bond& b) { b.cpn_freq = 3; }, 600),
        row<Bond>("cpn_freq -1", [](Bond& b) { b.cpn_freq = -1; }, 601),
        row<Bond>("maturity year 2301", [](Bond& b) { b.mat.y = 2301; }, 1101),
        row<Bond>("maturity month 13", [](Bond& b) { b.mat.m = 13; }, 1201),
        row<Bond>("maturity 11/31", [](Bond& b) { b.mat.d = 31; }, 1301),
        row<Bond>("maturity blank", [](Bond& b) { b.mat = kBlank; }, 1501),
        row<Bond>("settlement year 1799", [](Bond& b) { b.settle.y = 1799; }, 1107),
        row<Bond>("settlement month 13", [](Bond& b) { b.settle.m = 13; }, 1207),
        row<Bond>("settlement 2/30", [](Bond& b) { b.settle = {2, 30, 2024}; }, 1307),
        row<Bond>("settlement blank", [](Bond& b) { b.settle = {0, 0, 1900}; }, 1507),
        row<Bond>("dated month 13", [](Bond& b) { b.dated.m = 13; }, 1202),
        row<Bond>("dated 2/29/2023", [](Bond& b) { b.dated = {2, 29, 2023}; }, 1302),
        row<Bond>("dated blank, first given", [](Bond& b) { b.dated = kBlank; }, 1502),
        row<Bond>("dated 12/1/2023 (odd period), first blank", [](Bond& b) { b.dated = {12, 1, 2023}; b.first = kBlank; }, 1503),
        row<Bond>("dated odd, first 5/32", [](Bond& b) { b.dated = {12, 1, 2023}; b.first.d = 32; }, 1303),
        row<Bond>("dated whole, first month 0", [](Bond& b) { b.first = {0, 15, 2024}; }, 1203),
        row<Bond>("dated 3/2/2024 after settlement", [](Bond& b) { b.dated = {3, 2, 2024}; }, 2027),
        row<Bond>("dated on the first coupon", [](Bond& b) { b.dated = {5, 15, 2024}; b.settle = {5, 20, 2024}; b.first = {5, 15, 2024}; }, 2123),
        row<Bond>("settlement on maturity", [](Bond& b) { b.settle = b.mat; }, 2171),
        row<Bond>("settlement after maturity", [](Bond& b) { b.settle = {1, 2, 2034}; }, 2171),
        row<Bond>("first coupon a month off the cycle", [](Bond& b) { b.first = {6, 15, 2024}; }, 2231),
        row<Bond>("first coupon a day off the cycle", [](Bond& b) { b.first = {5, 14, 2024}; }, 2231),
        row<Bond>("odd dated date with a first coupon on the cycle", [](Bond& b) { b.dated = {12, 1, 2023}; }, 0),
        // Without eom the default first coupon of a 3/31 maturity is 9/30/1804, off the 31st's cycle.
        row<Bond>("blank dates, 3/31 maturity without eom", [](Bond& b) { b.mat = {3, 31, 2034}; b.eom = 0; b.dated = b.first = kBlank; }, 2231),
        row<Bond>("annual first coupon off a semi-annual maturity", [](Bond& b) { b.cpn_freq = 1; b.first = {5, 15, 2024}; }, 2231),
    });
}

TEST(BondDates, DatedDateZeroedWhenTheFirstCouponIsGivenAlone) {
    Bond b;
    b.dated = {0, 0, 1900};
    uint32_t err = 0;
    EXPECT_EQ(b.check(&err), 0);
    EXPECT_EQ(err, 1502u);
    EXPECT_EQ(b.dated, kBlank);
    EXPECT_EQ(b.first, (D{5, 15, 2024}));
}

// With both dates blank the schedule runs back from maturity without a first-period limit: the dated date
// is maturity's month and day in 1804 (month end kept under eom), the first coupon one period later.
struct DefaultCase {
    const char* what;
    D mat;
    int32_t eom, cpn_freq;
    D dated, first;
};

TEST(BondDates, BlankDatesTakeTheRegularScheduleBackFromMaturity) {
    const DefaultCase cases[] = {
        {"mid-month", {11, 15, 2033}, 1, 2, {11, 15, 1804}, {5, 15, 1805}},
        {"February end with eom: 1804 is a leap year", {2, 28, 2031}, 1, 2, {2, 29, 1804}, {8, 31, 1804}},
        {"February end without eom", {2, 28, 2031}, 0, 2, {2, 28, 1804}, {8, 28, 1804}},
        // 8/31 + 6 months is 2/28/1805 either way; without eom the February end still pairs with the 31st.
        {"August end without eom", {8, 31, 2030}, 0, 2, {8, 31, 1804}, {2, 28, 1805}},
        {"August end with eom", {8, 31, 2030}, 1, 2, {8, 31, 1804}, {2, 28, 1805}},
        {"March 31st with eom: the 30th of September is its month end", {3, 31, 2034}, 1, 2, {3, 31, 1804}, {9, 30, 1804}},
        {"September end with eom, quarterly", {9, 30, 2030}, 1, 4, {9, 30, 1804}, {12, 31, 1804}},
        {"September end without eom, quarterly", {9, 30, 2030}, 0, 4, {9, 30, 1804}, {12, 30, 1804}},
        {"monthly", {1, 31, 2030}, 0, 12, {1, 31, 1804}, {2, 29, 1804}},
        {"annual", {6, 1, 2030}, 0, 1, {6, 1, 1804}, {6, 1, 1805}},
    };
    for (const DefaultCase& c : cases) {
        SCOPED_TRACE(c.what);
        Bond b;
        b.mat = c.mat;
        b.settle = {3, 1, 2024};
        b.eom = c.eom;
        b.cpn_freq = c.cpn_freq;
        b.dated = kBlank;
        b.first = {0, 0, 2000};
        uint32_t err = kUntouched;
        EXPECT_EQ(b.check(&err), 1);
        EXPECT_EQ(err, 0u) << "a supplied default clears the probe's 1500";
        EXPECT_EQ(b.dated, c.dated);
        EXPECT_EQ(b.first, c.first);
    }
}

// Under the end-of-month rule the defaults of every maturity of four years pass the group's own checks,
// and the first coupon is one period after the dated date.
TEST(BondDates, DefaultsOfEveryMaturityPassUnderTheMonthEndRule) {
    for (int32_t j = MDY_2_julian(1, 1, 2030); j <= MDY_2_julian(12, 31, 2033); ++j) {
        Bond b;
        julian_2_MDY(j, &b.mat.m, &b.mat.d, &b.mat.y);
        for (int32_t f : {1, 2, 4, 12}) {
            b.cpn_freq = f;
            b.dated = b.first = kBlank;
            uint32_t err = kUntouched;
            ASSERT_EQ(b.check(&err), 1) << b.mat.m << "/" << b.mat.d << "/" << b.mat.y << " f " << f << ": " << err;
            D next = b.dated;
            incr_by_pers(1, f, &next.m, &next.d, &next.y, 1);
            ASSERT_EQ(b.first, next);
            ASSERT_EQ(b.dated.y, 1804);
            ASSERT_EQ(b.dated.m, b.mat.m);
        }
    }
}

TEST(BondDates, WholePeriodsFromTheDatedDateFillTheFirstCoupon) {
    struct Case {
        const char* what;
        D dated;
        int32_t day_type, eom;
        D first;
    } const cases[] = {
        {"mid-month", {11, 15, 2023}, 1, 1, {5, 15, 2024}},
        {"30/360", {11, 15, 2023}, 10, 1, {5, 15, 2024}},
        {"dated on a month end, eom", {5, 31, 2023}, 1, 1, {11, 30, 2023}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Bond b;
        b.dated = c.dated;
        b.day_type = c.day_type;
        b.eom = c.eom;
        b.first = kBlank;
        if (c.dated.d == 31) b.mat = {11, 30, 2033};
        uint32_t err = kUntouched;
        EXPECT_EQ(b.check(&err), 1);
        EXPECT_EQ(err, 0u);
        EXPECT_EQ(b.first, c.first);
        EXPECT_EQ(b.dated, c.dated);
    }
}

TEST(BondDates, NoDefaultLeavesErrCodeAlone) {
    Bond b;
    uint32_t err = kUntouched;
    EXPECT_EQ(b.check(&err), 1);
    EXPECT_EQ(err, kUntouched);
}

TEST(BondDates, DefaultsStandWhenALaterCheckFails) {
    Bond b;
    b.dated = kBlank;
    b.first = kBlank;
    b.settle = b.mat;
    uint32_t err = kUntouched;
    EXPECT_EQ(b.check(&err), 0);
    EXPECT_EQ(err, 2171u);
    EXPECT_EQ(b.dated, (D{11, 15, 1804}));
}

TEST(BondDates, JapaneseAndAuctionGroupsSkipTheCycle) {
    for (auto group : {&ok_jpgb_MDYs, &ok_auct_MDYs}) {
        Bond b;
        b.first = {6, 15, 2024};
        uint32_t err = kUntouched;
        EXPECT_EQ(group(b.settle.m, b.settle.d, b.settle.y, b.mat.m, b.mat.d, b.mat.y, &b.dated.m, &b.dated.d,
                        &b.dated.y, &b.first.m, &b.first.d, &b.first.y, b.day_type, b.eom, b.cpn_freq, &err),
                  1);
        EXPECT_EQ(err, kUntouched);
        b.dated = kBlank;
        EXPECT_EQ(group(b.settle.m, b.settle.d, b.settle.y, b.mat.m, b.mat.d, b.mat.y, &b.dated.m, &b.dated.d,
                        &b.dated.y, &b.first.m, &b.first.d, &b.first.y, b.day_type, b.eom, b.cpn_freq, &err),
                  0);
        EXPECT_EQ(err, 1502u);
    }
}

// Odd first and last periods: the regular schedule is counted back from the last regular coupon.
struct OddBond {
    D settle{6, 3, 2024}, mat{12, 31, 2030}, dated{3, 10, 2024}, first{9, 30, 2024}, last{9, 30, 2030};
    int32_t day_type = 1, eom = 1, cpn_freq = 2;

    int32_t check(uint32_t* e) {
        return ok_mtrm_MDYs(settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, &dated.m, &dated.d, &dated.y, &first.m,
                            &first.d, &first.y, &last.m, &last.d, &last.y, day_type, eom, cpn_freq, e);
    }
};

TEST(OddPeriodDates, EveryNumberAndRole) {
    expect_rows({
        row<OddBond>("as issued", [](OddBond&) {}, 0),
        row<OddBond>("maturity blank", [](OddBond& b) { b.mat = kBlank; }, 1501),
        row<OddBond>("settlement month 0", [](OddBond& b) { b.settle.m = 0; }, 1207),
        row<OddBond>("dated 4/31", [](OddBond& b) { b.dated = {4, 31, 2024}; }, 1302),
        row<OddBond>("last coupon 9/31", [](OddBond& b) { b.last.d = 31; }, 1306),
        row<OddBond>("last coupon year 2301", [](OddBond& b) { b.last.y = 2301; }, 1106),
        row<OddBond>("odd dated date, first blank", [](OddBond& b) { b.first = kBlank; }, 1503),
        row<OddBond>("first coupon month 13", [](OddBond& b) { b.first.m = 13; }, 1203),
        row<OddBond>("dated blank, first given", [](OddBond& b) { b.dated = kBlank; }, 1502),
        row<OddBond>("dated after settlement", [](OddBond& b) { b.dated = {6, 4, 2024}; }, 2027),
        row<OddBond>("first coupon before the dated date", [](OddBond& b) { b.first = {3, 31, 2024}; b.dated = {3, 31, 2024}; }, 2123),
        row<OddBond>("settlement on maturity", [](OddBond& b) { b.settle = b.mat; b.first = {9, 30, 2024}; }, 2171),
        row<OddBond>("last coupon after maturity", [](OddBond& b) { b.last = {1, 31, 2031}; }, 2061),
        row<OddBond>("last coupon on maturity", [](OddBond& b) { b.last = b.mat; b.first = {6, 30, 2024}; }, 0),
    });
}

TEST(OddPeriodDates, BlankLastCouponIsMaturityAndAnchorsTheDefaults) {
    OddBond b;
    b.dated = kBlank;
    b.first = kBlank;
    b.last = kBlank;
    uint32_t err = kUntouched;
    EXPECT_EQ(b.check(&err), 1);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(b.last, (D{12, 31, 2030}));
    EXPECT_EQ(b.dated, (D{12, 31, 1804}));
    EXPECT_EQ(b.first, (D{6, 30, 1805}));

    OddBond c;  // anchored on a last coupon of 9/30/2030, a month end kept under eom
    c.dated = kBlank;
    c.first = kBlank;
    EXPECT_EQ(c.check(&err), 1);
    EXPECT_EQ(c.dated, (D{9, 30, 1804}));
    EXPECT_EQ(c.first, (D{3, 31, 1805}));
}

TEST(OddPeriodDates, TradeDateAndJapaneseVariants) {
    OddBond b;
    uint32_t err = kUntouched;
    const auto ofsl = [&](D trade) {
        return ok_ofsl_MDYs(trade.m, trade.d, trade.y, b.settle.m, b.settle.d, b.settle.y, b.mat.m, b.mat.d, b.mat.y,
                            &b.dated.m, &b.dated.d, &b.dated.y, &b.first.m, &b.first.d, &b.first.y, &b.last.m,
                            &b.last.d, &b.last.y, b.day_type, b.eom, b.cpn_freq, &err);
    };
    EXPECT_EQ(ofsl({5, 30, 2024}), 1);
    EXPECT_EQ(ofsl(kBlank), 1);
    EXPECT_EQ(err, kUntouched);
    EXPECT_EQ(ofsl({5, 32, 2024}), 0);
    EXPECT_EQ(err, 1304u);
    EXPECT_EQ(ofsl({3, 1, 2024}), 0);  // before the dated date 3/10/2024
    EXPECT_EQ(err, 2024u);

    OddBond j;  // Japanese: the dated date to maturity is odd, so the first coupon is needed
    j.first = kBlank;
    EXPECT_EQ(ok_jpgb_d_ol(j.settle.m, j.settle.d, j.settle.y, j.mat.m, j.mat.d, j.mat.y, &j.dated.m, &j.dated.d,
                           &j.dated.y, &j.first.m, &j.first.d, &j.first.y, &j.last.m, &j.last.d, &j.last.y, 13, 1, 2,
                           &err),
              0);
    EXPECT_EQ(err, 1503u);
}

struct StepBond {
    D settle{3, 1, 2024}, mat{11, 15, 2033}, dated{11, 15, 2023}, first{5, 15, 2024}, step{11, 15, 2028};
    D last{11, 15, 2033};
    int32_t day_type = 1, eom = 1, cpn_freq = 2;
    bool odd_last = false;

    int32_t check(uint32_t* e) {
        if (odd_last)
            return ok_stpd_d_ol(settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, &dated.m, &dated.d, &dated.y,
                                &first.m, &first.d, &first.y, step.m, step.d, step.y, &last.m, &last.d, &last.y,
                                day_type, eom, cpn_freq, e);
        return ok_stpd_MDYs(settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, &dated.m, &dated.d, &dated.y, &first.m,
                            &first.d, &first.y, step.m, step.d, step.y, day_type, eom, cpn_freq, e);
    }
};

TEST(StepCouponDates, EveryNumberAndRole) {
    expect_rows({
        row<StepBond>("as issued", [](StepBond&) {}, 0),
        row<StepBond>("step 2/30", [](StepBond& b) { b.step = {2, 30, 2028}; }, 1305),
        row<StepBond>("step blank", [](StepBond& b) { b.step = kBlank; }, 1505),
        row<StepBond>("step on maturity", [](StepBond& b) { b.step = b.mat; }, 2151),
        row<StepBond>("first coupon after the step", [](StepBond& b) { b.step = {4, 15, 2024}; }, 2035),
        row<StepBond>("first coupon off the cycle", [](StepBond& b) { b.first = {5, 16, 2024}; }, 2231),
        row<StepBond>("dated blank, first given", [](StepBond& b) { b.dated = kBlank; }, 1502),
        row<StepBond>("odd last, as issued", [](StepBond& b) { b.odd_last = true; b.mat = {12, 31, 2033}; }, 0),
        row<StepBond>("odd last, last 11/31", [](StepBond& b) { b.odd_last = true; b.last.d = 31; }, 1306),
        row<StepBond>("odd last after maturity", [](StepBond& b) { b.odd_last = true; b.last = {1, 15, 2034}; b.mat = {12, 31, 2033}; }, 2061),
        row<StepBond>("odd last, first off the last coupon's cycle", [](StepBond& b) { b.odd_last = true; b.first = {4, 15, 2024}; b.mat = {12, 31, 2033}; }, 2231),
    });
}

TEST(DiscountAndMaturityDates, OrderAndRoles) {
    expect_rows({
        {"discount", [](uint32_t* e) { return ok_disc_MDYs(1, 15, 2024, 7, 15, 2024, 7, e); }, 0},
        {"discount settling on maturity", [](uint32_t* e) { return ok_disc_MDYs(7, 15, 2024, 7, 15, 2024, 7, e); }, 2171},
        {"discount settlement month 13", [](uint32_t* e) { return ok_disc_MDYs(13, 15, 2024, 7, 15, 2024, 7, e); }, 1207},
        {"discount maturity blank", [](uint32_t* e) { return ok_disc_MDYs(1, 15, 2024, 0, 0, 0, 7, e); }, 1501},
        // Under 30/360 the 30th and 31st are one day: settlement 7/30 is not before maturity 7/31.
        {"discount 30/360, 7/30 to 7/31", [](uint32_t* e) { return ok_disc_MDYs(7, 30, 2024, 7, 31, 2024, 10, e); }, 2171},
        {"discount actual, 7/30 to 7/31", [](uint32_t* e) { return ok_disc_MDYs(7, 30, 2024, 7, 31, 2024, 1, e); }, 0},
        {"at maturity", [](uint32_t* e) { return ok_amat_MDYs(1, 15, 2024, 7, 15, 2024, 10, 15, 2023, 7, e); }, 0},
        {"at maturity, dated blank", [](uint32_t* e) { return ok_amat_MDYs(1, 15, 2024, 7, 15, 2024, 0, 0, 0, 7, e); }, 1502},
        {"at maturity, dated after settlement", [](uint32_t* e) { return ok_amat_MDYs(1, 15, 2024, 7, 15, 2024, 1, 16, 2024, 7, e); }, 2027},
        {"at maturity, dated on maturity", [](uint32_t* e) { return ok_amat_MDYs(7, 15, 2024, 7, 15, 2024, 7, 15, 2024, 7, e); }, 2121},
        {"at maturity, settlement on maturity", [](uint32_t* e) { return ok_amat_MDYs(7, 15, 2024, 7, 15, 2024, 1, 15, 2024, 7, e); }, 2171},
    });
}

TEST(TradeAndExDividendDates, EveryNumberAndRole) {
    expect_rows({
        {"trade", [](uint32_t* e) { return ok_trade_MDY(2, 27, 2024, 11, 15, 2033, 11, 15, 2023, e); }, 0},
        {"trade blank", [](uint32_t* e) { return ok_trade_MDY(0, 0, 0, 11, 15, 2033, 11, 15, 2023, e); }, 1504},
        {"trade on maturity", [](uint32_t* e) { return ok_trade_MDY(11, 15, 2033, 11, 15, 2033, 11, 15, 2023, e); }, 2141},
        {"trade before dated (when issued)", [](uint32_t* e) { return ok_trade_MDY(11, 14, 2023, 11, 15, 2033, 11, 15, 2023, e); }, 2024},
        {"trade, dated blank", [](uint32_t* e) { return ok_trade_MDY(11, 14, 2023, 11, 15, 2033, 0, 0, 0, e); }, 0},
        // Settlement 5/1/2024 lies in the period 11/15/2023 .. 5/15/2024.
        {"ex-dividend a week before the coupon", [](uint32_t* e) { return ok_exdiv_MDY(5, 8, 2024, 5, 1, 2024, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024, 1, 1, 2, e); }, 0},
        {"ex-dividend on the coupon date", [](uint32_t* e) { return ok_exdiv_MDY(5, 15, 2024, 5, 1, 2024, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024, 1, 1, 2, e); }, 0},
        {"ex-dividend after the next coupon", [](uint32_t* e) { return ok_exdiv_MDY(5, 16, 2024, 5, 1, 2024, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024, 1, 1, 2, e); }, 1609},
        {"ex-dividend on the previous coupon", [](uint32_t* e) { return ok_exdiv_MDY(11, 15, 2023, 5, 1, 2024, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024, 1, 1, 2, e); }, 1609},
        {"ex-dividend blank", [](uint32_t* e) { return ok_exdiv_MDY(0, 0, 0, 5, 1, 2024, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024, 1, 1, 2, e); }, 1509},
        {"ex-dividend 4/31", [](uint32_t* e) { return ok_exdiv_MDY(4, 31, 2024, 5, 1, 2024, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024, 1, 1, 2, e); }, 1309},
        {"ex-dividend on maturity", [](uint32_t* e) { return ok_exdiv_MDY(11, 15, 2033, 11, 1, 2033, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024, 1, 1, 2, e); }, 2191},
        {"regular period later on", [](uint32_t* e) { return ok_exdiv_MDY(11, 8, 2026, 10, 1, 2026, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024, 1, 1, 2, e); }, 0},
        {"regular period later on, wrong period", [](uint32_t* e) { return ok_exdiv_MDY(5, 8, 2026, 10, 1, 2026, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024, 1, 1, 2, e); }, 1609},
        // A long first period from a dated date of 11/1/2023.
        {"long first period", [](uint32_t* e) { return ok_exdiv_MDY(11, 2, 2023, 11, 5, 2023, 11, 15, 2033, 11, 1, 2023, 5, 15, 2024, 1, 1, 2, e); }, 0},
        {"long first period, before the dated date", [](uint32_t* e) { return ok_exdiv_MDY(10, 31, 2023, 11, 5, 2023, 11, 15, 2033, 11, 1, 2023, 5, 15, 2024, 1, 1, 2, e); }, 1609},
        {"ex-dividend with frequency -1", [](uint32_t* e) { return ok_exdiv_MDY(5, 8, 2024, 5, 1, 2024, 11, 15, 2033, 11, 15, 2023, 5, 15, 2024, 1, 1, -1, e); }, 601},
        // An odd last period from 11/15/2033 to 12/31/2033.
        {"odd last period", [](uint32_t* e) { return ok_exdol_MDY(12, 24, 2033, 12, 1, 2033, 12, 31, 2033, 11, 15, 2023, 5, 15, 2024, 11, 15, 2033, 1, 1, 2, e); }, 0},
        {"odd last period, ex before the last coupon", [](uint32_t* e) { return ok_exdol_MDY(11, 10, 2033, 12, 1, 2033, 12, 31, 2033, 11, 15, 2023, 5, 15, 2024, 11, 15, 2033, 1, 1, 2, e); }, 1609},
        {"odd last period, regular part", [](uint32_t* e) { return ok_exdol_MDY(5, 8, 2030, 5, 1, 2030, 12, 31, 2033, 11, 15, 2023, 5, 15, 2024, 11, 15, 2033, 1, 1, 2, e); }, 0},
        {"early redemption", [](uint32_t* e) { return ok_er_in(2, 27, 2024, 11, 15, 2030, 11, 15, 2033, 11, 15, 2023, e); }, 0},
        {"early redemption after maturity", [](uint32_t* e) { return ok_er_in(2, 27, 2024, 11, 16, 2033, 11, 15, 2033, 11, 15, 2023, e); }, 8510},
        {"early redemption blank", [](uint32_t* e) { return ok_er_in(2, 27, 2024, 0, 0, 0, 11, 15, 2033, 11, 15, 2023, e); }, 8510},
        {"early redemption before the dated date", [](uint32_t* e) { return ok_er_in(2, 27, 2024, 11, 14, 2023, 11, 15, 2033, 11, 15, 2023, e); }, 8512},
        {"early redemption, trade on maturity", [](uint32_t* e) { return ok_er_in(11, 15, 2033, 11, 15, 2030, 11, 15, 2033, 11, 15, 2023, e); }, 2141},
    });
}

TEST(CouponCycle, EdgeCases) {
    expect_rows({
        {"February end against a later day", [](uint32_t* e) { return ok_cpn_sync(2, 28, 1999, 8, 31, 1999, 0, 2, 1, e); }, 0},
        {"later day against a February end", [](uint32_t* e) { return ok_cpn_sync(8, 30, 1998, 2, 28, 1999, 0, 2, 1, e); }, 0},
        {"four months is no multiple of six", [](uint32_t* e) { return ok_cpn_sync(1, 15, 1999, 5, 15, 1999, 0, 2, 1, e); }, 2200},
        {"February 27 is no month end", [](uint32_t* e) { return ok_cpn_sync(2, 27, 1999, 8, 31, 1999, 0, 2, 1, e); }, 2200},
        {"month ends under eom", [](uint32_t* e) { return ok_cpn_sync(4, 30, 1999, 10, 31, 1999, 1, 2, 1, e); }, 0},
        {"month ends without eom", [](uint32_t* e) { return ok_cpn_sync(4, 30, 1999, 10, 31, 1999, 0, 2, 1, e); }, 2200},
        {"years do not enter", [](uint32_t* e) { return ok_cpn_sync(3, 15, 1999, 9, 15, 2030, 0, 2, 1, e); }, 0},
        {"with validate, date2 first", [](uint32_t* e) { return ok_cpn_sync(9, 15, 1999, 3, 15, 1999, 0, 2, 1, e); }, 2100},
        {"with validate, bad date2", [](uint32_t* e) { return ok_cpn_sync(9, 15, 1999, 3, 32, 2000, 0, 2, 1, e); }, 1300},
        {"with validate, frequency 0", [](uint32_t* e) { return ok_cpn_sync(3, 15, 1999, 9, 15, 1999, 0, 0, 1, e); }, 600},
        {"without validate, frequency 0 counts as annual", [](uint32_t* e) { return ok_cpn_sync(3, 15, 1999, 9, 15, 1999, 0, 0, 0, e); }, 2200},
        {"without validate, frequency 1000 has periods of no months", [](uint32_t* e) { return ok_cpn_sync(3, 15, 1999, 4, 15, 1999, 0, 1000, 0, e); }, 2200},
        {"without validate, extreme months", [](uint32_t* e) { return ok_cpn_sync(INT32_MIN, 15, 1999, INT32_MAX, 15, 1999, 0, 2, 0, e); }, 2200},
        {"a date before a later one on its cycle", [](uint32_t* e) { return ok_lt_MDY(5, 15, 2024, 11, 15, 2033, 1, 2, e); }, 0},
        {"a date on its reference", [](uint32_t* e) { return ok_lt_MDY(11, 15, 2033, 11, 15, 2033, 1, 2, e); }, 2181},
        {"a date off the cycle", [](uint32_t* e) { return ok_lt_MDY(6, 15, 2024, 11, 15, 2033, 1, 2, e); }, 2281},
        {"a bad date", [](uint32_t* e) { return ok_lt_MDY(6, 31, 2024, 11, 15, 2033, 1, 2, e); }, 1308},
        {"a bad reference", [](uint32_t* e) { return ok_lt_MDY(6, 15, 2024, 0, 0, 0, 1, 2, e); }, 1501},
        {"ok_lt_MDY frequency -1", [](uint32_t* e) { return ok_lt_MDY(5, 15, 2024, 11, 15, 2033, 1, -1, e); }, 601},
    });
}

// Stepping whole periods from a day the shortest month still has always stays on the cycle; a month
// more is off it whenever a period is longer than one month.
TEST(CouponCycle, AgreesWithPeriodStepsOverFourYears) {
    for (int32_t j = MDY_2_julian(1, 1, 2000); j <= MDY_2_julian(12, 31, 2003); ++j) {
        int32_t m = 0, d = 0, y = 0;
        julian_2_MDY(j, &m, &d, &y);
        if (d > 28) continue;
        for (int32_t f : {1, 2, 4, 12}) {
            for (int32_t n = 1; n <= 6; ++n) {
                int32_t m2 = m, d2 = d, y2 = y;
                incr_by_pers(n, f, &m2, &d2, &y2, 0);
                uint32_t err = 0;
                ASSERT_EQ(ok_cpn_sync(m, d, y, m2, d2, y2, 0, f, 1, &err), 1) << m << "/" << d << "/" << y << " f " << f;
                if (f == 12) continue;
                incr_by_mths(1, &m2, &d2, &y2, 0);
                ASSERT_EQ(ok_cpn_sync(m, d, y, m2, d2, y2, 0, f, 1, &err), 0) << m << "/" << d << "/" << y << " f " << f;
                ASSERT_EQ(err, 2200u);
            }
        }
    }
}

TEST(WeekdayCycle, ThirdWednesdaysAndLastFridays) {
    // Third Wednesdays: 3/20/2024, 6/19/2024, 9/18/2024; the last Friday of March 2024 is 3/29.
    expect_rows({
        {"quarterly third Wednesdays", [](uint32_t* e) { return ok_sync_dwm(3, 20, 2024, 6, 19, 2024, 4, 3, 3, 1, e); }, 0},
        {"a day off", [](uint32_t* e) { return ok_sync_dwm(3, 20, 2024, 6, 20, 2024, 4, 3, 3, 1, e); }, 2200},
        {"months out of step", [](uint32_t* e) { return ok_sync_dwm(3, 20, 2024, 5, 15, 2024, 4, 3, 3, 1, e); }, 2200},
        {"last Fridays", [](uint32_t* e) { return ok_sync_dwm(3, 29, 2024, 9, 27, 2024, 2, 0, 5, 1, e); }, 0},
        {"occur 6", [](uint32_t* e) { return ok_sync_dwm(3, 20, 2024, 6, 19, 2024, 4, 6, 3, 1, e); }, 2720},
        {"dow 0", [](uint32_t* e) { return ok_sync_dwm(3, 20, 2024, 6, 19, 2024, 4, 3, 0, 1, e); }, 2710},
        {"occur 6 without validate is off every cycle", [](uint32_t* e) { return ok_sync_dwm(3, 20, 2024, 6, 19, 2024, 4, 6, 3, 0, e); }, 2200},
        {"garbage dates without validate", [](uint32_t* e) { return ok_sync_dwm(INT32_MAX, 1, INT32_MAX, 6, 19, 2024, 4, 3, 3, 0, e); }, 2200},
    });
}

// A weekday-of-month schedule: quarterly third Tuesdays, 3/19/2024 to 3/18/2025, maturity 6/17/2025.
struct DwmBond {
    D settle{4, 1, 2024}, mat{6, 17, 2025}, dated{2, 15, 2024}, first{3, 19, 2024}, last{3, 18, 2025};
    int32_t day_type = 1, cpn_freq = 4, occur = 3, dow = 2;
    std::vector<int32_t> holidays{MDY_2_julian(1, 1, 2024)};

    int32_t check(uint32_t* e) {
        return ok_ofsl_dwm(settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, &dated.m, &dated.d, &dated.y, &first.m,
                           &first.d, &first.y, &last.m, &last.d, &last.y, day_type, cpn_freq, occur, dow,
                           static_cast<int32_t>(holidays.size()), holidays.data(), e);
    }
};

TEST(WeekdayCycle, OddPeriodsOnABusinessDaySchedule) {
    expect_rows({
        row<DwmBond>("as issued", [](DwmBond&) {}, 0),
        row<DwmBond>("occur 6", [](DwmBond& b) { b.occur = 6; }, 5410),
        row<DwmBond>("dow 8", [](DwmBond& b) { b.dow = 8; }, 5411),
        row<DwmBond>("a Sunday holiday", [](DwmBond& b) { b.holidays = {MDY_2_julian(1, 7, 2024)}; }, 5412),
        row<DwmBond>("frequency 3", [](DwmBond& b) { b.cpn_freq = 3; }, 5413),
        row<DwmBond>("dated blank, first given", [](DwmBond& b) { b.dated = kBlank; }, 1502),
        row<DwmBond>("first coupon blank", [](DwmBond& b) { b.first = kBlank; }, 1503),
        row<DwmBond>("last coupon blank is maturity", [](DwmBond& b) { b.last = kBlank; }, 0),
        row<DwmBond>("first coupon a day late", [](DwmBond& b) { b.first = {3, 20, 2024}; }, 2231),
        row<DwmBond>("last coupon a month off", [](DwmBond& b) { b.last = {2, 18, 2025}; }, 2236),
        row<DwmBond>("maturity off the rule", [](DwmBond& b) { b.mat = {6, 18, 2025}; }, 2241),
        row<DwmBond>("last coupon off the rule", [](DwmBond& b) { b.last = {12, 10, 2024}; }, 2246),
        // With the third Tuesday of March 2024 a holiday the coupon moves to Wednesday the 20th.
        row<DwmBond>("coupon rolled over a holiday", [](DwmBond& b) {
            b.holidays = {MDY_2_julian(3, 19, 2024)};
            b.first = {3, 20, 2024};
        }, 0),
        row<DwmBond>("coupon on a holiday", [](DwmBond& b) { b.holidays = {MDY_2_julian(3, 19, 2024)}; }, 2231),
    });
}

// Odd periods given by length: a 4-month first period 1/15/2024..5/15/2024, a 6-month last period.
struct GivenByPeriod {
    D settle{3, 1, 2024}, mat{11, 15, 2033}, dated{1, 15, 2024}, first{5, 15, 2024}, last{5, 15, 2033};
    int32_t first_mths = 4, last_mths = 6, eom = 1, cpn_freq = 2;

    int32_t check(uint32_t* e) {
        return ok_ogpd_MDYs(settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, &dated.m, &dated.d, &dated.y, &first.m,
                            &first.d, &first.y, &last.m, &last.d, &last.y, first_mths, last_mths, eom, cpn_freq, e);
    }
};

TEST(OddPeriodsByLength, EveryNumber) {
    expect_rows({
        row<GivenByPeriod>("as issued", [](GivenByPeriod&) {}, 0),
        row<GivenByPeriod>("first period -1", [](GivenByPeriod& g) { g.first_mths = -1; }, 2851),
        row<GivenByPeriod>("first period 13 months", [](GivenByPeriod& g) { g.first_mths = 13; }, 2852),
        row<GivenByPeriod>("last period -1", [](GivenByPeriod& g) { g.last_mths = -1; }, 2853),
        row<GivenByPeriod>("last period 13 months", [](GivenByPeriod& g) { g.last_mths = 13; }, 2854),
        row<GivenByPeriod>("first coupon not 4 months on", [](GivenByPeriod& g) { g.first_mths = 5; }, 2855),
        row<GivenByPeriod>("last coupon not 6 months before maturity", [](GivenByPeriod& g) { g.last = {6, 15, 2033}; }, 2856),
        row<GivenByPeriod>("first and last out of step", [](GivenByPeriod& g) { g.last = {8, 15, 2033}; g.last_mths = 3; }, 2206),
        row<GivenByPeriod>("dated blank, first given", [](GivenByPeriod& g) { g.dated = kBlank; }, 1502),
        row<GivenByPeriod>("last coupon 2/30", [](GivenByPeriod& g) { g.last = {2, 30, 2033}; }, 1306),
        row<GivenByPeriod>("settlement on maturity", [](GivenByPeriod& g) { g.settle = g.mat; }, 2171),
        row<GivenByPeriod>("frequency -1", [](GivenByPeriod& g) { g.cpn_freq = -1; }, 601),
    });
}

TEST(FloatingRateDates, EveryNumberAndRole) {
    const int32_t ms[] = {2, 5, 8}, ds[] = {15, 15, 15}, ys[] = {2024, 2024, 2024};
    const int32_t bad_ds[] = {15, 32, 15};
    const int32_t down_ms[] = {5, 2, 8};
    const double rates[] = {5.25, 5.4, 5.35}, bad_rates[] = {5.25, -1.0, 5.35};
    expect_rows({
        {"note", [](uint32_t* e) { return ok_frn_MDYs(3, 1, 2024, 11, 15, 2033, 2, 15, 2024, 5, 15, 2024, e); }, 0},
        {"note, settlement blank", [](uint32_t* e) { return ok_frn_MDYs(0, 0, 0, 11, 15, 2033, 2, 15, 2024, 5, 15, 2024, e); }, 1507},
        {"note, last reset 2/30", [](uint32_t* e) { return ok_frn_MDYs(3, 1, 2024, 11, 15, 2033, 2, 30, 2024, 5, 15, 2024, e); }, 1309},
        {"note, last reset after settlement", [](uint32_t* e) { return ok_frn_MDYs(3, 1, 2024, 11, 15, 2033, 3, 2, 2024, 5, 15, 2024, e); }, 2097},
        {"note, next reset on settlement", [](uint32_t* e) { return ok_frn_MDYs(3, 1, 2024, 11, 15, 2033, 2, 15, 2024, 3, 1, 2024, e); }, 2179},
        {"note, resets equal", [](uint32_t* e) { return ok_frn_MDYs(3, 1, 2024, 11, 15, 2033, 3, 1, 2024, 3, 1, 2024, e); }, 2179},
        {"note, settlement on maturity", [](uint32_t* e) { return ok_frn_MDYs(3, 1, 2024, 3, 1, 2024, 2, 15, 2024, 5, 15, 2024, e); }, 2171},
        {"note, next reset after maturity", [](uint32_t* e) { return ok_frn_MDYs(3, 1, 2024, 4, 15, 2024, 2, 15, 2024, 5, 15, 2024, e); }, 2600},
        {"coupons", [&](uint32_t* e) { return ok_flt_cpns(3, 1, 2024, 3, ms, ds, ys, e); }, 0},
        {"coupons, reference 2/30", [&](uint32_t* e) { return ok_flt_cpns(2, 30, 2024, 3, ms, ds, ys, e); }, 1507},
        {"coupons, none", [&](uint32_t* e) { return ok_flt_cpns(3, 1, 2024, 0, ms, ds, ys, e); }, 10040},
        {"coupons, bad second date", [&](uint32_t* e) { return ok_flt_cpns(3, 1, 2024, 3, ms, bad_ds, ys, e); }, 12001},
        {"coupons, reference before the first", [&](uint32_t* e) { return ok_flt_cpns(2, 1, 2024, 3, ms, ds, ys, e); }, 10046},
        {"coupons, reference on the last", [&](uint32_t* e) { return ok_flt_cpns(8, 15, 2024, 3, ms, ds, ys, e); }, 10047},
        {"resets", [&](uint32_t* e) { return ok_flt_rcs(3, 1, 2024, 3, ms, ds, ys, rates, e); }, 0},
        {"resets, reference blank", [&](uint32_t* e) { return ok_flt_rcs(0, 0, 0, 3, ms, ds, ys, rates, e); }, 1507},
        {"resets, none", [&](uint32_t* e) { return ok_flt_rcs(3, 1, 2024, -2, ms, ds, ys, rates, e); }, 10041},
        {"resets, bad date", [&](uint32_t* e) { return ok_flt_rcs(3, 1, 2024, 3, ms, bad_ds, ys, rates, e); }, 12001},
        {"resets, negative rate", [&](uint32_t* e) { return ok_flt_rcs(3, 1, 2024, 3, ms, ds, ys, bad_rates, e); }, 4100},
        {"resets out of order", [&](uint32_t* e) { return ok_flt_rcs(3, 1, 2024, 3, down_ms, ds, ys, rates, e); }, 10045},
    });
}

// Floating-rate inputs: a price given for a note with quarterly resets.
struct FloatingInputs {
    int32_t index_type = 1, given_type = 2;
    double given = 99.75, margin = 0.45;
    D settle{3, 1, 2024}, mat{11, 15, 2033}, dated{0, 0, 0}, last_rst{2, 15, 2024};
    int32_t rst_freq = 4, cpn_count = 40, rst_count = 40;

    int32_t check(uint32_t* e) const {
        return ok_flt_in(index_type, given_type, given, margin, settle.m, settle.d, settle.y, mat.m, mat.d, mat.y,
                         dated.m, dated.d, dated.y, last_rst.m, last_rst.d, last_rst.y, rst_freq, cpn_count, rst_count,
                         e);
    }
};

TEST(FloatingRateInputs, EveryNumberAndRole) {
    expect_rows({
        row<FloatingInputs>("as quoted", [](FloatingInputs&) {}, 0),
        row<FloatingInputs>("index type 3", [](FloatingInputs& f) { f.index_type = 3; }, 535),
        row<FloatingInputs>("given type 3", [](FloatingInputs& f) { f.given_type = 3; }, 200),
        row<FloatingInputs>("price 0", [](FloatingInputs& f) { f.given = 0.0; }, 4002),
        row<FloatingInputs>("margin 3000.5", [](FloatingInputs& f) { f.margin = 3000.5; }, 4130),
        row<FloatingInputs>("negative margin", [](FloatingInputs& f) { f.margin = -0.25; }, 0),
        row<FloatingInputs>("settlement 2/30", [](FloatingInputs& f) { f.settle = {2, 30, 2024}; }, 1507),
        row<FloatingInputs>("maturity month 0", [](FloatingInputs& f) { f.mat.m = 0; }, 1201),
        row<FloatingInputs>("dated 4/31", [](FloatingInputs& f) { f.dated = {4, 31, 2023}; }, 1302),
        row<FloatingInputs>("last reset blank", [](FloatingInputs& f) { f.last_rst = kBlank; }, 1505),
        row<FloatingInputs>("no coupons", [](FloatingInputs& f) { f.cpn_count = 0; }, 10040),
        row<FloatingInputs>("no resets", [](FloatingInputs& f) { f.rst_count = 0; }, 10041),
        row<FloatingInputs>("reset frequency 3", [](FloatingInputs& f) { f.rst_freq = 3; }, 650),
        row<FloatingInputs>("last reset after settlement", [](FloatingInputs& f) { f.last_rst = {3, 4, 2024}; }, 2057),
        row<FloatingInputs>("settlement on maturity", [](FloatingInputs& f) { f.settle = f.mat; f.last_rst = {11, 1, 2033}; }, 2171),
    });
}

TEST(SinkingFund, EveryNumber) {
    const int32_t ms[] = {11, 11, 11}, ds[] = {15, 15, 15}, ys[] = {2030, 2031, 2032};
    const int32_t late_ys[] = {2030, 2031, 2034}, same_ys[] = {2030, 2030, 2032};
    const double amounts[] = {10, 10, 10}, negative[] = {10, -1, 10}, too_much[] = {50, 40, 20};
    expect_rows({
        {"three payments", [&](uint32_t* e) { return ok_sf_in(3, 1, 2024, 11, 15, 2033, 3, ms, ds, ys, amounts, e); }, 0},
        {"none", [&](uint32_t* e) { return ok_sf_in(3, 1, 2024, 11, 15, 2033, 0, nullptr, nullptr, nullptr, nullptr, e); }, 0},
        {"maturity blank", [&](uint32_t* e) { return ok_sf_in(3, 1, 2024, 0, 0, 0, 3, ms, ds, ys, amounts, e); }, 1501},
        {"count -1", [&](uint32_t* e) { return ok_sf_in(3, 1, 2024, 11, 15, 2033, -1, ms, ds, ys, amounts, e); }, 14300},
        {"negative amount", [&](uint32_t* e) { return ok_sf_in(3, 1, 2024, 11, 15, 2033, 3, ms, ds, ys, negative, e); }, 5100},
        {"two on one date", [&](uint32_t* e) { return ok_sf_in(3, 1, 2024, 11, 15, 2033, 3, ms, ds, same_ys, amounts, e); }, 14300},
        {"after maturity", [&](uint32_t* e) { return ok_sf_in(3, 1, 2024, 11, 15, 2033, 3, ms, ds, late_ys, amounts, e); }, 14301},
        {"more than the issue", [&](uint32_t* e) { return ok_sf_in(3, 1, 2024, 11, 15, 2033, 3, ms, ds, ys, too_much, e); }, 14300},
    });
}

}  // namespace
