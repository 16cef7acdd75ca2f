// Pass-throughs: a 30-year pool at 100 PSA projected from its survival tables against a plain amortization
// written out here, priced, solved back, and measured against sums written out here; the yield solve's
// step counts; identities of the effective, total-return and graduated forms. The balance and
// sinking-fund forms are rows of tests/calls/mortgage.calls, their values worked from the flows.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "mortgage/passthrough.hpp"
#include "orvel/mortgage.h"

namespace {

constexpr int kTerm = 360;
constexpr double kGross = 7.0, kNet = 6.5;

// The pool month by month on its actual balance: level payment on the months left, the scheduled
// principal, then 100 PSA's monthly mortality on what is left of the balance.
struct Plain {
    std::vector<double> flow, prn, bal{100.0};
};
Plain amortize(int wam, int age0, double psa) {
    Plain p;
    const double r = kGross / 1200;
    double b = 100.0;
    for (int m = 0; m < wam; ++m) {
        const double pmt = b * r / (1 - std::pow(1 + r, -(wam - m)));
        const double sched = pmt - b * r, age = age0 + m;
        const double cpr = std::min(0.2 * age, 6.0) * psa / 100;
        const double prepay = (1 - std::pow(1 - cpr / 100, 1.0 / 12)) * (b - sched);
        p.prn.push_back(sched + prepay);
        p.flow.push_back(sched + prepay + b * kNet / 1200);
        b -= sched + prepay;
        p.bal.push_back(b);
    }
    return p;
}

// The pool's flows through the library: survival tables, then the projection.
std::vector<double> project(int wam, double psa, std::vector<double>* prn = nullptr,
                            std::vector<double>* bal = nullptr) {
    std::vector<double> surv(wam + 1), prepd(wam + 1), cfs(wam + 1), b(wam + 1), p(wam + 1);
    uint32_t err = 0;
    int32_t n = 0;
    EXPECT_EQ(mbs_gen_tbls(kTerm, wam, 3, psa, wam + 1, surv.data(), prepd.data(), &n, 1, &err), wam + 1);
    mbs_cfs_bals(kTerm, kGross, kNet, wam, 1, 1, 0, surv.data(), prepd.data(), wam + 1, cfs.data(), b.data(), p.data(),
                 &n, 1, &err);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(n, wam);
    cfs.resize(wam);
    p.resize(wam);
    if (prn != nullptr) *prn = p;
    if (bal != nullptr) *bal = b;
    return cfs;
}

TEST(PassThrough, PsaProjectionMatchesPlainAmortization) {
    for (int wam : {360, 300, 12}) {
        SCOPED_TRACE(wam);
        std::vector<double> prn, bal;
        const std::vector<double> cfs = project(wam, 100.0, &prn, &bal);
        const Plain plain = amortize(wam, kTerm - wam + 1, 100.0);
        for (int k = 0; k < wam; ++k) {
            ASSERT_NEAR(cfs[k], plain.flow[k], 1e-10 * 100) << k;
            ASSERT_NEAR(prn[k], plain.prn[k], 1e-10 * 100) << k;
            ASSERT_NEAR(bal[k + 1], plain.bal[k + 1], 1e-10 * 100) << k;
        }
        EXPECT_NEAR(bal[wam], 0.0, 1e-10 * 100);
    }
}

TEST(PassThrough, PriceYieldLifeAndDurationOfThePool) {
    std::vector<double> prn;
    const std::vector<double> cfs = project(kTerm, 100.0, &prn);
    for (int dly : {0, 24, 54})
        for (int acrd : {0, 14, 29}) {
            SCOPED_TRACE(testing::Message() << "delay " << dly << " accrued " << acrd);
            const double y = 6.8, b = 1 + y / 200, t0 = 1.0 / 12 + dly / 360.0 - acrd / 360.0;
            double pv = 0, pvt = 0, life = 0;
            for (int k = 0; k < kTerm; ++k) {
                const double t = t0 + k / 12.0, v = cfs[k] / std::pow(b, 2 * t);
                pv += v;
                pvt += t * v;
                life += t * prn[k] / 100;
            }
            uint32_t err = 0;
            const double price = mbs_p(y, kTerm, dly, acrd, cfs.data(), 1, &err);
            EXPECT_NEAR(price, pv, 1e-11 * pv);
            EXPECT_NEAR(mbs_y(price, kTerm, dly, acrd, cfs.data(), 1, &err), y, 1e-8);
            EXPECT_NEAR(mbs_avg_life(kTerm, dly, acrd, prn.data(), 1, &err), life, 1e-12);
            double mac = 0, mod = 0;
            mbs_duration(y, price, dly, acrd, kTerm, cfs.data(), &mac, &mod, 1, &err);
            EXPECT_NEAR(mac, pvt / pv, 1e-12);
            EXPECT_NEAR(mod, pvt / pv / b, 1e-12);
            EXPECT_EQ(err, 0u);
        }
}

// Yields far enough out that the month-by-month factor would overflow are priced by direct powers.
TEST(PassThrough, OverflowingFactorsFallBackToDirectPowers) {
    const std::vector<double> cfs(360, 1.0);
    for (double y : {1e5, 1e8, 1e12}) {
        double direct = 0;
        for (int k = 0; k < 360; ++k) direct += 1.0 / std::pow(1 + y / 200, 2 * (1.0 / 12 + k / 12.0));
        uint32_t err = 0;
        EXPECT_NEAR(mbs_p(y, 360, 0, 0, cfs.data(), 1, &err), direct, 1e-13 * direct) << y;
    }
}

// Recorded: pools at 50..600 PSA, yields 1..30%: at most 4 interpolation steps after 10, 9 and 11.
TEST(PassThrough, YieldSolveStepsAndFailure) {
    int most = 0;
    for (double psa : {50.0, 100.0, 300.0, 600.0})
        for (double y : {1.0, 4.0, 10.0, 18.0, 30.0}) {
            const std::vector<double> cfs = project(kTerm, psa);
            uint32_t err = 0;
            const double price = mbs_p(y, kTerm, 24, 10, cfs.data(), 1, &err);
            orvel::SolveStats stats;
            EXPECT_NEAR(mbs::yield(price, kTerm, mbs::first_time(24, 10), cfs.data(), &err, &stats), y, 1e-6);
            most = std::max(most, stats.steps);
        }
    EXPECT_LE(most, 4);
    // A flow of 0 is worth 0 at every yield: a flat residual, the first step degenerates (9020). A price of
    // 50 for a flow of 1 carries the yield below -200 (4090).
    const double zero = 0.0, one = 1.0;
    uint32_t err = 0;
    EXPECT_EQ(mbs_y(50.0, 1, 0, 0, &zero, 1, &err), 0.0);
    EXPECT_EQ(err, 9020u);
    err = 0;
    EXPECT_EQ(mbs_y(50.0, 1, 0, 0, &one, 1, &err), 0.0);
    EXPECT_EQ(err, 4090u);
}

// Equal speeds and a small shift: the effective measures are the analytic ones of the projected flows.
TEST(PassThrough, EffectiveMeasuresWithoutSpeedResponse) {
    const std::vector<double> cfs = project(kTerm, 150.0);
    uint32_t err = 0;
    double p = 0, mac = 0, mod = 0, cvx = 0, pvbp = 0, ep = 0, ed = 0, ec = 0;
    mbs_risk(6.0, 24, 0, kTerm, cfs.data(), &p, &mac, &mod, &cvx, &pvbp, 1, &err);
    mbs_efdurcvx(kTerm, kTerm, kGross, kNet, 24, 0, 3, 150, 150, 150, 6.0, 0.01, &ep, &ed, &ec, 1, &err);
    EXPECT_EQ(err, 0u);
    EXPECT_NEAR(ep, p, 1e-10);
    EXPECT_NEAR(ed, mod, 1e-5);
    EXPECT_NEAR(ec, cvx, 1e-3);
    EXPECT_NEAR(cvx, mbs_cvx(6.0, p, 24, 0, kTerm, cfs.data(), 1, &err), 1e-12);
    // Faster when yields fall: shorter, and negatively convex.
    mbs_efdurcvx(kTerm, kTerm, kGross, kNet, 24, 0, 3, 150, 250, 100, 6.0, 0.5, &ep, &ed, &ec, 1, &err);
    EXPECT_LT(ed, mod);
    EXPECT_LT(ec, 0.0);
}

// Holding to a horizon, reinvesting at the monthly equivalent of the yield and selling at it, earns it.
TEST(PassThrough, TotalReturnAtTheYieldIsTheYield) {
    const std::vector<double> cfs = project(kTerm, 100.0);
    for (int hold : {1, 12, 100, 360}) {
        uint32_t err = 0;
        const double y = 7.25, price = mbs_p(y, kTerm, 24, 0, cfs.data(), 1, &err);
        const double monthly = (std::pow(1 + y / 200, 1.0 / 6) - 1) * 1200;
        EXPECT_NEAR(mbs_tot_rtn(price, hold, monthly, y, 24, 0, kTerm, cfs.data(), 1, &err), y, 1e-9) << hold;
    }
}

// A graduated plan with no graduation is the level loan; with graduation it still pays off at its term.
TEST(PassThrough, GraduatedPaymentPools) {
    const int wam = 300;
    std::vector<double> surv(kTerm + 1), prepd(kTerm + 1), sched(kTerm + 1), a(kTerm + 1), b(wam), x(wam + 1), y(wam);
    uint32_t err = 0;
    int32_t n = 0;
    mbs_gentblsg(kTerm, wam, kGross, 60, 0.0, 3, 100, wam + 1, surv.data(), prepd.data(), sched.data(), &n, 1, &err);
    const double v = 1 / (1 + kGross / 1200);
    for (int k = 0; k <= wam; k += 50)
        EXPECT_NEAR(sched[k], 100 * (1 - std::pow(v, wam - k)) / (1 - std::pow(v, kTerm)), 1e-9) << k;
    mbs_cfs_bals(kTerm, kGross, kNet, wam, 1, 1, 1, surv.data(), prepd.data(), wam + 1, a.data(), x.data(), y.data(),
                 &n, 1, &err);
    mbs_cfsbalsg(kTerm, kGross, kNet, 60, 0.0, wam, 1, 1, 1, surv.data(), prepd.data(), wam + 1, b.data(), x.data(),
                 y.data(), &n, 1, &err);
    for (int k = 0; k < wam; ++k) ASSERT_NEAR(a[k], b[k], 1e-10) << k;
    // 7.5% a year for five years: the balance rises at first (negative amortization), 0 at the term.
    mbs_gentblsg(kTerm, kTerm, 9.0, 60, 7.5, 1, 0, kTerm + 1, surv.data(), prepd.data(), a.data(), &n, 1, &err);
    EXPECT_GT(a[12], a[0]);
    EXPECT_NEAR(a[kTerm], 0.0, 1e-9);
    EXPECT_EQ(err, 0u);
}

TEST(PassThrough, CountsAndCapacities) {
    std::vector<double> big(601, 1.0), out(700);
    uint32_t err = 0;
    int32_t n = -1;
    EXPECT_EQ(mbs_p(6, 601, 0, 0, big.data(), 0, &err), 0.0);
    EXPECT_EQ(err, 15600u);
    err = 0;
    EXPECT_EQ(mbs_gen_tbls(360, 360, 3, 100, 360, out.data(), out.data(), &n, 1, &err), 0);
    EXPECT_EQ(std::pair(err, n), std::pair(13000u, 361));
    err = 0;
    mbs_cfs_bals(360, 7, 6.5, 360, 1, 1, 0, big.data(), big.data(), 360, out.data(), out.data(), out.data(), &n, 0,
                 &err);
    EXPECT_EQ(std::pair(err, n), std::pair(10010u, 361));
}

}  // namespace
