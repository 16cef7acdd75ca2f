// Discount securities: the compound-equivalent solve against its price formula over every term to two years,
// and the combined quotes of a bill against the kernels they are built on.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/civil.hpp"
#include "money/discount.hpp"
#include "orvel/money.h"

namespace {

// Every term of 1 to 730 days (half-years of a 365-day year), yields and prices from deep discount to above
// par, before tax and (from one whole half-year, where the validated kernels start) after it: the solved
// yield reprices within 5e-7, in a few steps.
TEST(CompoundEquivalent, SolveRoundTripsThePriceOverEveryTerm) {
    int most_steps = 0, solves = 0;
    for (int days = 1; days <= 730; ++days) {
        const double q = days / 182.5;
        const int32_t n = static_cast<int32_t>(q);
        const double f = q - n;
        for (double tax : {0.0, n >= 1 ? 25.0 : 0.0})
            for (double cey : {-0.5, 0.25, 3.0, 8.0, 25.0}) {
                SCOPED_TRACE(testing::Message() << days << " days, cey " << cey << ", tax " << tax);
                uint32_t err = 0;
                const double price = disc_cey_2_p(cey, 100.0, f, n, tax, 0, &err);
                orvel::SolveStats stats;
                const double y = orvel::money::cey_from_price(price, 100.0, f, n, tax / 100.0, &err, &stats);
                ASSERT_EQ(err, 0u);
                EXPECT_LT(std::fabs(disc_cey_2_p(y, 100.0, f, n, tax, 0, &err) - price), 5e-7);
                EXPECT_NEAR(y, cey, 1e-4 * (1.0 + 365.0 / days));
                EXPECT_EQ(disc_p_2_cey(price, 100.0, f, n, tax, 0, &err), y);  // the export is this solve
                most_steps = std::max(most_steps, stats.steps);
                ++solves;
            }
    }
    EXPECT_LE(most_steps, 5);
    RecordProperty("solves", solves);
    RecordProperty("most_steps", most_steps);
}

TEST(CompoundEquivalent, ASolveWithoutAStartFails) {
    uint32_t err = 0;
    EXPECT_EQ(disc_p_2_cey(95.0, 100.0, 0.0, 0, 0.0, 0, &err), 0.0);  // no term: 1/(n + f) is infinite
    EXPECT_EQ(err, static_cast<uint32_t>(ORVEL_E_SOLVER));
}

// A bill over every term to two years, from its discount rate: each other quote, given back to disc_pydbey,
// gives the same price; under half of the actual year cey and bey are the yield moved to that year.
TEST(BillQuotes, EveryQuoteGivesBackThePrice) {
    for (int days = 1; days <= 730; ++days) {
        SCOPED_TRACE(days);
        const int32_t sm = 3, sd = 7, sy = 2023;  // a year of 366 days from settlement, to 3/7/2024
        const orvel::Date mat = orvel::cal::add_days({sm, sd, sy}, days);
        const int32_t mm = mat.m, md = mat.d, my = mat.y;
        double q[5];  // yld, price, disc, cey, bey
        uint32_t err = 0;
        disc_pydbey(4.0, 3, sm, sd, sy, mm, md, my, 7, 1, 100.0, 0.0, 0.0, &q[0], &q[1], &q[2], &q[3], &q[4], 1, &err);
        ASSERT_EQ(err, 0u);
        if (days < 183) {
            EXPECT_DOUBLE_EQ(q[3], q[0] * 366.0 / 360.0);
            EXPECT_EQ(q[4], q[3]);
        }
        for (int32_t calc : {1, 2, 4, 5}) {
            double back[5];
            disc_pydbey(calc == 2 ? q[1] : q[calc - 1], calc, sm, sd, sy, mm, md, my, 7, 1, 100.0, 0.0, 0.0, &back[0],
                        &back[1], &back[2], &back[3], &back[4], 1, &err);
            ASSERT_EQ(err, 0u);
            EXPECT_NEAR(back[1], q[1], calc == 4 ? 5e-7 : 1e-11) << "calc_type " << calc;
        }
    }
}

}  // namespace
