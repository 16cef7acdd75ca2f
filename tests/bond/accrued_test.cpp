// Accrued interest and its variants on hand-worked bonds; the working is in the comments.
#include <gtest/gtest.h>

#include "orvel/bond.h"
#include "orvel/calendar.h"

namespace {

struct Schedule {
    double ai, nxt_frac, cpn_amt;
    int32_t n_after;
    uint32_t err;
};

Schedule ai_of(int sm, int sd, int sy, int dm, int dd, int dy, int fm, int fd, int fy, int day_type,
               int validate = 1) {
    Schedule s{};
    // 8% semi-annual maturing 7/1/2025, no end-of-month rule.
    s.ai = bond_ai(sm, sd, sy, 7, 1, 2025, dm, dd, dy, fm, fd, fy, 8.0, day_type, 0, 2, &s.nxt_frac, &s.cpn_amt,
                   &s.n_after, validate, &s.err);
    return s;
}

TEST(AccruedInterest, HandWorkedBonds) {
    struct Row {
        const char* working;
        int sm, sd, sy, dm, dd, dy, fm, fd, fy, day_type;
        Schedule expected;
    };
    const Row rows[] = {
        // 30/360 between coupons: 1/1/2020 to 4/15/2020 is 104 days of 180, 4 x 104/180 = 2.3111; 76 days
        // remain (76/180 of a period); after 7/1/2020 come 10 more coupons to 7/1/2025.
        {"regular, between coupons", 4, 15, 2020, 0, 0, 0, 0, 0, 0, 2, {2.3111111111111111, 76.0 / 180, 4.0, 10, 0}},
        // On a coupon date nothing has accrued, the next coupon is a whole period away.
        {"regular, on a coupon date", 1, 1, 2020, 0, 0, 0, 0, 0, 0, 1, {0.0, 1.0, 4.0, 10, 0}},
        // Under day_type 12 the fraction stays dr / dp, which on a coupon date is 182 / 182.
        {"day_type 12, on a coupon date", 1, 1, 2020, 0, 0, 0, 0, 0, 0, 12, {0.0, 1.0, 4.0, 10, 0}},
        // 12 between coupons: 1/1/2020 to 4/15/2020 is 105 of 182 days; 77 remain.
        {"day_type 12, between coupons", 4, 15, 2020, 0, 0, 0, 0, 0, 0, 12, {4.0 * 105 / 182, 77.0 / 182, 4.0, 10, 0}},
        // Final period: 1/1/2025 to 3/1/2025 is 60 of 180 days, 4 x 60/180; 120/180 remain.
        {"final period", 3, 1, 2025, 0, 0, 0, 0, 0, 0, 2, {4.0 / 3, 2.0 / 3, 4.0, 0, 0}},
        // Long first coupon 3/1/2019 to 1/1/2020 (10 months). Settlement 11/1/2019 has accrued 8 months,
        // 8 x 8/12 = 5.3333; the first coupon pays 10 months, 6.6667; 2 months remain (1/3 period); 11
        // regular coupons follow it.
        {"long first coupon", 11, 1, 2019, 3, 1, 2019, 1, 1, 2020, 2, {16.0 / 3, 1.0 / 3, 20.0 / 3, 11, 0}},
        // The same bond in the dated date's own quasi-period: 1 month accrued, 9 months to the first coupon.
        {"long first, first quasi-period", 4, 1, 2019, 3, 1, 2019, 1, 1, 2020, 2, {2.0 / 3, 1.5, 20.0 / 3, 11, 0}},
        // A 16-month first period (3/1/2019 to 7/1/2020): two quasi-periods in, 12 months have accrued, more
        // than a regular coupon: 8.0; the first coupon is 16 months, 10.6667.
        {"long first, two quasi-periods in", 3, 1, 2020, 3, 1, 2019, 7, 1, 2020, 2, {8.0, 2.0 / 3, 32.0 / 3, 10, 0}},
        // Short first coupon 11/1/2019 to 1/1/2020 (2 months), settlement 12/1/2019: 1 month accrued.
        {"short first coupon", 12, 1, 2019, 11, 1, 2019, 1, 1, 2020, 2, {2.0 / 3, 1.0 / 6, 4.0 / 3, 11, 0}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.working);
        const Schedule s = ai_of(r.sm, r.sd, r.sy, r.dm, r.dd, r.dy, r.fm, r.fd, r.fy, r.day_type);
        EXPECT_EQ(s.err, 0u);
        EXPECT_NEAR(s.ai, r.expected.ai, 1e-12);
        EXPECT_NEAR(s.nxt_frac, r.expected.nxt_frac, 1e-12);
        EXPECT_NEAR(s.cpn_amt, r.expected.cpn_amt, 1e-12);
        EXPECT_EQ(s.n_after, r.expected.n_after);
    }
}

TEST(AccruedInterest, NothingLeftToRun) {
    // Settlement on maturity (only without validation): no period left, no partial period.
    const Schedule s = ai_of(7, 1, 2025, 0, 0, 0, 0, 0, 0, 1, 0);
    EXPECT_EQ(s.ai, 0.0);
    EXPECT_EQ(s.nxt_frac, 0.0);
    EXPECT_EQ(s.n_after, 0);
    EXPECT_EQ(s.cpn_amt, 4.0);
}

TEST(AccruedInterest, EveryCouponDateOfAScheduleStartsAfresh) {
    // Walking a 10-year quarterly bond's coupon dates: 0 accrued, a whole period ahead, one fewer after.
    for (int k = 0; k < 40; ++k) {
        int32_t m = 11, d = 30, y = 2030;  // month-end maturity kept on month ends
        incr_by_pers(-k - 1, 4, &m, &d, &y, 1);
        SCOPED_TRACE(testing::Message() << m << "/" << d << "/" << y);
        double nxt = 0, cpn = 0;
        int32_t n_after = -1;
        uint32_t err = 0;
        EXPECT_EQ(bond_ai(m, d, y, 11, 30, 2030, 0, 0, 0, 0, 0, 0, 6.0, 1, 1, 4, &nxt, &cpn, &n_after, 1, &err), 0.0);
        EXPECT_EQ(err, 0u);
        EXPECT_EQ(nxt, 1.0);
        EXPECT_EQ(n_after, k);
        EXPECT_EQ(cpn, 1.5);
    }
}

TEST(ExDividend, SettlementBetweenExDateAndCouponIsNegative) {
    // Actual/actual: 1/1/2020 to 6/25/2020 is 176 of 182 days, 4 x 176/182 = 3.8681; ex-dividend the
    // buyer gets back the 6 days to 7/1: 3.8681 - 4 = -4 x 6/182.
    double nxt = 0, cpn = 0;
    int32_t n = 0;
    uint32_t err = 0;
    EXPECT_NEAR(bond_ex_ai(6, 20, 2020, 6, 25, 2020, 6, 20, 2020, 1, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 8.0, 1, 0, 2, &nxt,
                           &cpn, &n, 1, &err),
                -4.0 * 6 / 182, 1e-12);
    // Actual/365: -(6 days) x 8 / 365.
    EXPECT_NEAR(bond_ex_ai(6, 20, 2020, 6, 25, 2020, 6, 20, 2020, 1, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 8.0, 8, 0, 2, &nxt,
                           &cpn, &n, 1, &err),
                -6 * 8.0 / 365, 1e-12);
    // Tested against a trade date before the ex-dividend date: cum-dividend, plain accrued interest.
    EXPECT_NEAR(bond_ex_ai(6, 18, 2020, 6, 25, 2020, 6, 20, 2020, 2, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 8.0, 1, 0, 2, &nxt,
                           &cpn, &n, 1, &err),
                4.0 * 176 / 182, 1e-12);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(bond_ex_ai(6, 18, 2020, 6, 25, 2020, 6, 20, 2020, 3, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 8.0, 1, 0, 2, &nxt,
                         &cpn, &n, 0, &err),
              0.0);
    EXPECT_EQ(err, 960u);
}

TEST(TradeDateAccrual, CouponBetweenTradeAndSettlementIsOwed) {
    // Trade 6/25/2020, settlement 7/3/2020: the 7/1 coupon fell in between; 2 days accrued of 184 plus the
    // whole 4.0 of the trade's period.
    double nxt = 0, cpn = 0;
    int32_t n = 0;
    uint32_t err = 0;
    EXPECT_NEAR(
        bond_td_ai(6, 25, 2020, 7, 3, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 8.0, 1, 0, 2, &nxt, &cpn, &n, 1, &err),
        4.0 * 2 / 184 + 4.0, 1e-12);
    EXPECT_NEAR(bond_td_ai(7, 2, 2020, 7, 3, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 8.0, 1, 0, 2, &nxt, &cpn, &n, 1, &err),
                4.0 * 2 / 184, 1e-12);
    EXPECT_EQ(err, 0u);
}

TEST(HoldingIncome, OneDayAndPeriodPayments) {
    uint32_t err = 0;
    // 30/360: one day of an 8% coupon on 1,000 face is 4 / 180 x 10.
    EXPECT_NEAR(bond_1di(2, 0, 2, 8.0, 7, 5, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 1.0, 1, &err), 40.0 / 180, 1e-12);
    // On a coupon date: the last day of the period just ended, not a negative number.
    EXPECT_NEAR(bond_1di(2, 0, 2, 8.0, 7, 1, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 1.0, 1, &err), 40.0 / 180, 1e-12);
    // Actual/actual on 1/1/2020: the period 7/1/2019 to 1/1/2020 has 184 days.
    EXPECT_NEAR(bond_1di(1, 0, 2, 8.0, 1, 1, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 100.0, 1, &err), 4000.0 / 184, 1e-9);
    // Settlement on the dated date earns nothing yet.
    EXPECT_EQ(bond_1di(2, 0, 2, 8.0, 3, 1, 2019, 7, 1, 2025, 3, 1, 2019, 1, 1, 2020, 1.0, 1, &err), 0.0);
    // The coupon paid on a coupon date is that period's: the 16-month odd first coupon on 7/1/2020.
    EXPECT_NEAR(bond_pip(2, 0, 2, 8.0, 7, 1, 2020, 7, 1, 2025, 3, 1, 2019, 7, 1, 2020, 1.0, 1, &err), 320.0 / 3, 1e-9);
    // At maturity: the final coupon.
    EXPECT_NEAR(bond_pip(2, 0, 2, 8.0, 7, 1, 2025, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 1.0, 0, &err), 40.0, 1e-12);
    // The next payment: the odd first coupon for a holding of 250 thousand.
    EXPECT_NEAR(bond_fpi(2, 0, 2, 8.0, 11, 1, 2019, 7, 1, 2025, 3, 1, 2019, 1, 1, 2020, 250.0, 1, &err),
                20.0 / 3 * 2500, 1e-9);
    EXPECT_EQ(err, 0u);
}

}  // namespace
