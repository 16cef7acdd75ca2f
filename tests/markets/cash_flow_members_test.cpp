// The members that price from the flows agree with the model members on the 1st of every month of a gilt
// with a long first coupon and a semi-annual bono with a short one (annual yield), under both final-period
// rules, and solve back to their yield.
#include <gtest/gtest.h>
#include "orvel/markets.h"
TEST(CashFlowMembers, AgreeWithTheModelMembersOverTheBondsLife) {
    using Member = decltype(&ukgb_py_ai);
    struct Case { Member model, flows; int32_t mat_m, mat_d, mat_y, dated_m, dated_d, first_m, first_d; double cpn; };
    for (const Case& c : {Case{ukgb_py_ai, ukgb_cf_py, 6, 7, 2032, 1, 20, 12, 7, 4.25},
                          Case{spgb_py_ai, spgb_cf_py, 4, 30, 2028, 6, 3, 10, 31, 1.4}})
        for (int32_t l1p : {1, 2})
            for (double y : {0.5, 5.0, 15.0})
                for (int32_t month = 6 + 2020 * 12; month < c.mat_m + c.mat_y * 12; ++month) {
                    double out[6] = {};  // price and ai of the model member, of the flows', the yield back
                    uint32_t err = 0;
                    const auto call = [&](Member f, int32_t calc, double value, double* res) {
                        f(12, -1, 2, calc, value, c.cpn, month % 12 + 1, 1, month / 12, 0, 0, 0, 0, c.mat_m, c.mat_d,
                          c.mat_y, c.dated_m, c.dated_d, 2020, c.first_m, c.first_d, 2020, 100.0, l1p, 1, 0, res,
                          res + 1, 1, &err);
                    };
                    call(c.model, 1, y, out);
                    call(c.flows, 1, y, out + 2);
                    call(c.flows, 2, out[2], out + 4);
                    ASSERT_EQ(err, 0u) << c.mat_y << " " << l1p << " " << y << " " << month;
                    EXPECT_NEAR(out[2], out[0], 1e-10 * out[0]) << month;
                    EXPECT_NEAR(out[4], y, 1e-8) << month;
                }
}
