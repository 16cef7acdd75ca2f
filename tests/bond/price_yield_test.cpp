// Price and yield from dates, the risk set and the cash-flow lists: hand-worked cases, methods, taxes,
// and the errors of each.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "orvel/bond.h"

namespace {

struct PyResult {
    double result = -1.0, ai = -1.0;
    uint32_t err = 0;
};

// 8% semi-annual maturing 7/1/2025 under 30/360 (day_type 2), the dated and first coupon dates given.
PyResult py(int32_t method, int32_t calc_type, double given, int sm, int sd, int sy, int dm = 0, int dd = 0,
            int dy = 0, int fm = 0, int fd = 0, int fy = 0, double tax1 = 0.0, double tax2 = 0.0, int validate = 1) {
    PyResult r;
    bond_py_ai(method, 2, 0, 2, calc_type, given, 8.0, sm, sd, sy, 7, 1, 2025, dm, dd, dy, fm, fd, fy, 100.0, tax1,
               tax2, &r.result, &r.ai, validate, &r.err);
    return r;
}

TEST(PriceFromDates, FinalPeriodIsSimpleInterest) {
    // 3/1/2025: 120 of 180 days left, V = 1 + (2/3) x 6 / 200 = 1.02;
    // 100 x (1.04 / 1.02 - 1.3333 / 100) = 100.627450980.
    const PyResult r = py(1, 1, 6.0, 3, 1, 2025);
    EXPECT_EQ(r.err, 0u);
    EXPECT_NEAR(r.ai, 4.0 / 3, 1e-12);
    EXPECT_NEAR(r.result, 100.62745098039214, 1e-10);
}

TEST(PriceFromDates, OnePeriodEarlierCompounds) {
    // 9/1/2024: the coupon of 1/1/2025 at 2/3 of a period and 104 at 1 2/3, both compounded at 1.03:
    // 4 / 1.03^(2/3) + 104 / 1.03^(5/3) - 4/3 = 101.29906...
    const PyResult r = py(1, 1, 6.0, 9, 1, 2024);
    EXPECT_EQ(r.err, 0u);
    EXPECT_NEAR(r.result, 4.0 / std::pow(1.03, 2.0 / 3) + 104.0 / std::pow(1.03, 5.0 / 3) - 4.0 / 3, 1e-10);
}

TEST(PriceFromDates, MethodSixAtParShortcut) {
    EXPECT_EQ(py(6, 1, 8.0, 4, 15, 2020).result, 100.0);
    EXPECT_EQ(py(6, 2, 100.0, 4, 15, 2020).result, 8.0);
    // Without the shortcut a yield equal to the coupon between coupon dates is not exactly par.
    EXPECT_NE(py(1, 1, 8.0, 4, 15, 2020).result, 100.0);
}

TEST(PriceFromDates, RegularScheduleMethodsIgnoreTheOddFirstCoupon) {
    // Methods 3, 6 and 8 move the dated date to 1901 and the first coupon to 1902: a long first coupon is
    // then priced as the regular bond, while the accrued interest reported stays the bond's own.
    for (int32_t method : {3, 6, 8}) {
        SCOPED_TRACE(method);
        const PyResult odd = py(method, 1, 7.0, 11, 1, 2019, 3, 1, 2019, 1, 1, 2020);
        const PyResult regular = py(1, 1, 7.0, 11, 1, 2019);
        EXPECT_EQ(odd.err, 0u);
        EXPECT_NEAR(odd.ai, 16.0 / 3, 1e-12);  // 8 months accrued since the dated date
        // Priced with the regular 2.6667 accrued (4 months), hence the difference in the clean price.
        EXPECT_NEAR(odd.result, regular.result, 1e-12);
    }
    const PyResult own = py(1, 1, 7.0, 11, 1, 2019, 3, 1, 2019, 1, 1, 2020);
    EXPECT_GT(std::fabs(own.result - py(1, 1, 7.0, 11, 1, 2019).result), 0.01);
}

TEST(PriceFromDates, TaxAsPercentOrFraction) {
    const PyResult percent = py(1, 1, 7.0, 4, 15, 2020, 0, 0, 0, 0, 0, 0, 30.0, 15.0);
    const PyResult fraction = py(1, 1, 7.0, 4, 15, 2020, 0, 0, 0, 0, 0, 0, 0.30, 0.15);
    EXPECT_EQ(percent.err, 0u);
    EXPECT_DOUBLE_EQ(percent.result, fraction.result);
    const PyResult last_percent = py(1, 2, 99.0, 3, 1, 2025, 0, 0, 0, 0, 0, 0, 30.0, 0.0);
    const PyResult last_fraction = py(1, 2, 99.0, 3, 1, 2025, 0, 0, 0, 0, 0, 0, 0.30, 0.0);
    EXPECT_DOUBLE_EQ(last_percent.result, last_fraction.result);
}

TEST(PriceFromDates, MethodAndSelectorErrors) {
    for (int32_t method : {2, 0, 9, -1}) {
        SCOPED_TRACE(method);
        const PyResult r = py(method, 1, 7.0, 4, 15, 2020);
        EXPECT_EQ(r.err, 300u);
        EXPECT_NEAR(r.ai, 2.3111111111111111, 1e-12);  // the accrued interest is written first
        EXPECT_EQ(r.result, -1.0);
    }
    const PyResult r = py(1, 3, 7.0, 4, 15, 2020, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    EXPECT_EQ(r.err, 200u);
    EXPECT_EQ(r.result, -1.0);
}

TEST(PriceFromDates, UnreachablePricesEndPromptly) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (double price : {nan, inf, -inf, -5.0, -100.0}) {
        for (int sy : {2020, 2025}) {  // compound and final period
            SCOPED_TRACE(testing::Message() << "price " << price << " settle year " << sy);
            const PyResult r = py(1, 2, price, 3, 1, sy, 0, 0, 0, 0, 0, 0, 0, 0, 0);
            EXPECT_NE(r.err, 0u);
            EXPECT_TRUE(r.err == 9020u || r.err == 4090u || r.err == 4002u) << r.err;
            EXPECT_EQ(r.result, -1.0);
        }
    }
}

TEST(Duration, CallersPriceWeightsTheDuration) {
    // With a clean price as the divisor the duration grows by (value of the flows) / (clean price).
    double mac0 = 0, mod0 = 0, mac = 0, mod = 0;
    uint32_t err = 0;
    bond_dur(0.0, 6.5, 8.0, 100.0, 2, 0, 2, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, &mac0, &mod0, 1, &err);
    double ai = 0, clean = 0;
    bond_py_ai(1, 2, 0, 2, 1, 6.5, 8.0, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 100.0, 0, 0, &clean, &ai, 1, &err);
    bond_dur(clean, 6.5, 8.0, 100.0, 2, 0, 2, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, &mac, &mod, 1, &err);
    EXPECT_EQ(err, 0u);
    EXPECT_NEAR(mac, mac0 * (clean + ai) / clean, 1e-12);
    EXPECT_NEAR(mod, mac / 1.0325, 1e-12);
    // A zero-coupon bond's Macaulay duration is its time to maturity: 5 years and 76/180 of a period.
    bond_dur(0.0, 6.5, 0.0, 100.0, 2, 0, 2, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, &mac, &mod, 1, &err);
    EXPECT_NEAR(mac, (10 + 76.0 / 180) / 2, 1e-12);
}

TEST(RiskSet, AgreesWithTheSingleMeasures) {
    double price, yld, ai, mac, mod, cvx, cur, pvbp;
    uint32_t err = 0;
    bond_risk(7, 2, 0, 2, 2, 101.75, 8.0, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 100.0, &price, &yld, &ai, &mac,
              &mod, &cvx, &cur, &pvbp, 1, &err);  // sec_type 7: unrounded
    ASSERT_EQ(err, 0u);
    double mac1 = 0, mod1 = 0, back = 0, ai1 = 0;
    bond_py_ai(1, 2, 0, 2, 2, 101.75, 8.0, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 100.0, 0, 0, &back, &ai1, 1,
               &err);
    bond_dur(0.0, yld, 8.0, 100.0, 2, 0, 2, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, &mac1, &mod1, 1, &err);
    EXPECT_EQ(price, 101.75);
    EXPECT_EQ(yld, back);
    EXPECT_EQ(ai, ai1);
    EXPECT_EQ(mac, mac1);
    EXPECT_EQ(mod, mod1);
    EXPECT_NEAR(cvx, bond_cvx(0.0, yld, 8.0, 100.0, 2, 0, 2, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 1, &err),
                1e-12);
    EXPECT_DOUBLE_EQ(cur, 8.0 / 101.75 * 100);
    // A basis point moves the full price by about the modified duration times the full price / 10000.
    EXPECT_NEAR(pvbp, mod * (price + ai) / 10000, 1e-6);
    // Rounded for a market with three places: truncated, as the risk results of that market are.
    double mac3;
    bond_risk(3, 2, 0, 2, 2, 101.75, 8.0, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 100.0, &price, &yld, &ai, &mac3,
              &mod, &cvx, &cur, &pvbp, 1, &err);
    EXPECT_EQ(mac3, d_trunc_rnd(mac1, 3, 0));
    err = 0;
    bond_risk(9, 2, 0, 2, 2, 101.75, 8.0, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 100.0, &price, &yld, &ai, &mac3,
              &mod, &cvx, &cur, &pvbp, 1, &err);
    EXPECT_EQ(err, 300u);
}

TEST(CashFlows, TooSmallArraysAreAnErrorNotAnOverrun) {
    int32_t m[4] = {-7, -7, -7, -7}, d[4], y[4], count = -1;
    double amts[4] = {-7, -7, -7, -7}, times[4], ai = -1;
    uint32_t err = 0;
    // 11 flows remain (7/1/2020 .. 7/1/2025); 3 elements are not enough.
    EXPECT_EQ(bond_flows(2, 0, 2, 8.0, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 100.0, 3, m, d, y, amts, times,
                         &count, &ai, 1, &err),
              0);
    EXPECT_EQ(err, 13000u);
    EXPECT_EQ(count, 11);  // the number needed
    EXPECT_EQ(m[0], -7);
    EXPECT_EQ(amts[3], -7.0);
    EXPECT_EQ(ai, -1.0);
}

TEST(CashFlows, HoldingInterestAndPrincipal) {
    int32_t m[20], d[20], y[20], count = 0;
    double interest[20], principal[20];
    uint32_t err = 0;
    // 250 thousand of the long-first-coupon bond: the first flow is the 10-month coupon, principal only at
    // maturity.
    const int32_t n = bond_ifs_pfs(1, 2, 0, 2, 8.0, 11, 1, 2019, 7, 1, 2025, 3, 1, 2019, 1, 1, 2020, 250.0, 20, m, d, y,
                                   interest, principal, &count, 1, &err);
    ASSERT_EQ(err, 0u);
    ASSERT_EQ(n, 12);
    EXPECT_EQ(m[0] * 10000 + d[0] * 100 + y[0] % 100, 10120);  // 1/1/2020
    EXPECT_NEAR(interest[0], 20.0 / 3 * 2500, 1e-9);
    EXPECT_NEAR(interest[1], 4.0 * 2500, 1e-9);
    EXPECT_EQ(principal[10], 0.0);
    EXPECT_EQ(principal[11], 250000.0);
    EXPECT_EQ(y[11], 2025);
    // Method 3 ignores the odd coupon; a zero face is taken as 1 thousand.
    bond_ifs_pfs(3, 2, 0, 2, 8.0, 11, 1, 2019, 7, 1, 2025, 3, 1, 2019, 1, 1, 2020, 0.0, 20, m, d, y, interest,
                 principal, &count, 1, &err);
    EXPECT_NEAR(interest[0], 40.0, 1e-12);
    EXPECT_EQ(principal[11], 1000.0);
    const struct {
        int32_t method;
        double face;
        uint32_t expected;
    } bad[] = {{2, 1.0, 300}, {9, 1.0, 300}, {1, -1.0, 14100}};
    for (const auto& b : bad) {
        err = 0;
        EXPECT_EQ(bond_ifs_pfs(b.method, 2, 0, 2, 8.0, 11, 1, 2019, 7, 1, 2025, 3, 1, 2019, 1, 1, 2020, b.face, 20, m,
                               d, y, interest, principal, &count, 1, &err),
                  0);
        EXPECT_EQ(err, b.expected);
    }
}

TEST(CashFlows, HoldingAmountsAreThePer100FlowsScaled) {
    int32_t m[20], d[20], y[20], m2[20], d2[20], y2[20], count = 0, count2 = 0;
    double amts[20], times[20], money[20], ai = 0, ai_money = 0;
    uint32_t err = 0;
    bond_flows(1, 0, 2, 8.0, 11, 1, 2019, 7, 1, 2025, 3, 1, 2019, 1, 1, 2020, 101.0, 20, m, d, y, amts, times, &count,
               &ai, 1, &err);
    bond_cfs(1, 0, 2, 8.0, 11, 1, 2019, 7, 1, 2025, 3, 1, 2019, 1, 1, 2020, 101.0, 250.0, 20, m2, d2, y2, money,
             &count2, &ai_money, 1, &err);
    ASSERT_EQ(err, 0u);
    ASSERT_EQ(count, count2);
    for (int k = 0; k < count; ++k) {
        EXPECT_EQ(m[k], m2[k]);
        EXPECT_EQ(y[k], y2[k]);
        EXPECT_NEAR(money[k], amts[k] * 2500, 1e-9);
    }
    EXPECT_NEAR(ai_money, ai * 2500, 1e-9);
    EXPECT_EQ(amts[count - 1], 4.0 + 101.0);  // the last coupon and the redemption
}

}  // namespace

namespace {

// One bad argument a call, in the order the date-driven members check them; the failing call writes
// nothing but err_code.
TEST(DateMemberValidation, FirstBadArgumentNamesItself) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    struct Row {
        const char* what;
        int32_t day_type, freq, calc_type, sm;
        double given, cpn, red, tax1, tax2;
        uint32_t expected;
    };
    const Row rows[] = {
        {"day count", 0, 2, 1, 4, 6.5, 8, 100, 0, 0, 500},
        {"day count missing", -1, 2, 1, 4, 6.5, 8, 100, 0, 0, 501},
        {"frequency", 2, 5, 1, 4, 6.5, 8, 100, 0, 0, 600},
        {"selector", 2, 2, 4, 4, 6.5, 8, 100, 0, 0, 200},
        {"zero yield", 2, 2, 1, 4, 0.0, 8, 100, 0, 0, 4001},
        {"price above 10000", 2, 2, 2, 4, 10000.5, 8, 100, 0, 0, 4002},
        {"coupon", 2, 2, 1, 4, 6.5, nan, 100, 0, 0, 4100},
        {"settlement month", 2, 2, 1, 13, 6.5, 8, 100, 0, 0, 1207},
        {"redemption", 2, 2, 1, 4, 6.5, 8, 0.0, 0, 0, 4200},
        {"first tax", 2, 2, 1, 4, 6.5, 8, 100, 100.5, 0, 4301},
        {"second tax", 2, 2, 1, 4, 6.5, 8, 100, 0, nan, 4302},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.what);
        double result = -1, ai = -1;
        uint32_t err = 0;
        bond_py_ai(1, r.day_type, 0, r.freq, r.calc_type, r.given, r.cpn, r.sm, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0,
                   r.red, r.tax1, r.tax2, &result, &ai, 1, &err);
        EXPECT_EQ(err, r.expected);
        EXPECT_EQ(result, -1.0);
        EXPECT_EQ(ai, -1.0);
    }
}

TEST(DateMemberValidation, RiskAndFlowArguments) {
    double mac = -1, mod = -1;
    uint32_t err = 0;
    bond_dur(0.0, 0.0, 8, 100, 2, 0, 2, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, &mac, &mod, 1, &err);
    EXPECT_EQ(err, 4001u);
    err = 0;
    bond_dur(-3.0, 6.5, 8, 100, 2, 0, 2, 4, 15, 2020, 7, 1, 2025, 0, 0, 0, 0, 0, 0, &mac, &mod, 1, &err);
    EXPECT_EQ(err, 4002u);
    err = 0;
    bond_dur(0.0, 6.5, 8, 100, 2, 0, 2, 7, 15, 2025, 7, 1, 2025, 0, 0, 0, 0, 0, 0, &mac, &mod, 1, &err);
    EXPECT_EQ(err, 2171u);
    EXPECT_EQ(mac, -1.0);
    err = 0;
    // A negative face amount.
    EXPECT_EQ(bond_fpi(2, 0, 2, 8.0, 11, 1, 2019, 7, 1, 2025, 3, 1, 2019, 1, 1, 2020, -1.0, 1, &err), 0.0);
    EXPECT_EQ(err, 14100u);
    err = 0;
    double nxt, cpn;
    int32_t n;
    // An ex-dividend date after maturity.
    bond_ex_ai(6, 20, 2020, 6, 25, 2020, 8, 1, 2025, 1, 7, 1, 2025, 0, 0, 0, 0, 0, 0, 8.0, 1, 0, 2, &nxt, &cpn, &n, 1,
               &err);
    EXPECT_EQ(err, 2191u);
}

}  // namespace
