// Accrued interest walked along whole schedules: every coupon date starts afresh, and a holding's daily
// interest adds up to the coupon of the period. Hand-worked bonds and every error number are rows of
// tests/calls/bond.calls.
#include <gtest/gtest.h>

#include <tuple>

#include "orvel/bond.h"
#include "orvel/calendar.h"

namespace {

// Every coupon date of a 10-year month-end bond, each frequency: nothing accrued, a whole period ahead,
// the regular coupon next, one whole period fewer after it each date.
TEST(AccruedInterest, EveryCouponDateStartsAfresh) {
    for (int32_t freq : {1, 2, 4, 12})
        for (int32_t k = 0; k < 10 * freq; ++k) {
            int32_t m = 11, d = 30, y = 2030, n_after = -1;
            incr_by_pers(-k - 1, freq, &m, &d, &y, 1);
            SCOPED_TRACE(testing::Message() << m << "/" << d << "/" << y << " freq " << freq);
            double nxt = 0, cpn = 0;
            uint32_t err = 0;
            const double ai =
                bond_ai(m, d, y, 11, 30, 2030, 0, 0, 0, 0, 0, 0, 6.0, 1, 1, freq, &nxt, &cpn, &n_after, 1, &err);
            EXPECT_EQ(std::tuple(ai, err, nxt, n_after, cpn), std::tuple(0.0, 0u, 1.0, k, 6.0 / freq));
        }
}

// Under actual days a holding of 1 thousand earns 1/dp of the coupon x 10 each day, the coupon date
// included, so the days of a period add up to the coupon and bond_pip reports it all along.
TEST(HoldingIncome, DailyInterestAddsUpToThePeriodsCoupon) {
    for (int32_t day_type : {1, 8, 12}) {
        int32_t m = 1, d = 1, y = 2024;  // the period Jan 1 -> Jul 1 2024, 182 days, of an 8% bond to 2030
        double sum = 0.0;
        for (int32_t day = 1; day <= 182; ++day) {
            incr_by_days(1, &m, &d, &y);
            SCOPED_TRACE(testing::Message() << m << "/" << d << "/" << y << " day_type " << day_type);
            uint32_t err = 0;
            sum += bond_1di(day_type, 0, 2, 8.0, m, d, y, 7, 1, 2030, 0, 0, 0, 0, 0, 0, 1.0, 1, &err);
            EXPECT_NEAR(sum, 40.0 * day / 182, 1e-9);
            EXPECT_EQ(bond_pip(day_type, 0, 2, 8.0, m, d, y, 7, 1, 2030, 0, 0, 0, 0, 0, 0, 1.0, 1, &err), 40.0);
            EXPECT_EQ(err, 0u);
        }
    }
}

}  // namespace
