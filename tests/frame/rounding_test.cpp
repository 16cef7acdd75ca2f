#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "orvel/frame.h"

namespace {

struct RoundCase {
    double num;
    int32_t places;
    int32_t rnd;
    double expected;
};

TEST(TruncRound, HandWorkedCases) {
    const RoundCase cases[] = {
        {1.23456, 3, 0, 1.234},  {1.23456, 3, 1, 1.235},  {-1.25, 1, 1, -1.3},    {-1.25, 1, 0, -1.2},
        {99.999999, 2, 1, 100.0}, {2.5, 0, 1, 3.0},       {-2.5, 0, 1, -3.0},     {123456789.125, 2, 1, 123456789.13},
    };
    for (const RoundCase& c : cases) {
        SCOPED_TRACE(testing::Message() << c.num << " to " << c.places << " places, rnd " << c.rnd);
        EXPECT_DOUBLE_EQ(d_trunc_rnd(c.num, c.places, c.rnd), c.expected);
    }
}

TEST(TruncRound, ZeroAndNaNComeBackUnchanged) {
    EXPECT_EQ(d_trunc_rnd(0.0, 4, 1), 0.0);
    EXPECT_TRUE(std::isnan(d_trunc_rnd(std::numeric_limits<double>::quiet_NaN(), 4, 1)));
}

TEST(ResultPlaces, UnknownCodesReturnTheValueWithAnError) {
    uint32_t err = 0;
    EXPECT_EQ(rslt_fix_plc(9, 2, 1.23456789, &err), 1.23456789);
    EXPECT_EQ(err, 300u);
    err = 0;
    EXPECT_EQ(rslt_fix_plc(1, 6, 1.23456789, &err), 1.23456789);
    EXPECT_EQ(err, 200u);
}

TEST(ResultPlaces, MarketsQuoteTheirOwnPlaces) {
    uint32_t err = 0;
    EXPECT_DOUBLE_EQ(rslt_fix_plc(1, 2, 1.23456789, &err), 1.234568);
    EXPECT_DOUBLE_EQ(rslt_fix_plc(2, 2, 1.23456789, &err), 1.2345679);
    EXPECT_DOUBLE_EQ(rslt_fix_plc(2, 1, 1.23456789, &err), 1.234568);
    EXPECT_DOUBLE_EQ(rslt_fix_plc(3, 2, 1.23456789, &err), 1.234);
    EXPECT_DOUBLE_EQ(rslt_fix_plc(3, 1, 1.23469, &err), 1.235);  // 1.2346 truncated, then rounded
    EXPECT_DOUBLE_EQ(rslt_fix_plc(7, 2, 1.23456789, &err), 1.23456789);
    EXPECT_EQ(err, 0u);
}

TEST(PriceFractions, TicksBothWays) {
    EXPECT_DOUBLE_EQ(dec_2_frac(99.5, 32), 99.16);
    EXPECT_DOUBLE_EQ(frac_2_dec(99.16, 32), 99.5);
    EXPECT_DOUBLE_EQ(frac_2_dec(99.5, 8), 99.625);
}

TEST(Version, Is132Of31997) {
    int32_t v[9] = {0, 0, 0, 0, 0, -7, -7, -7, -7};
    ZEBA_vers(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &v[6], &v[7], &v[8]);
    EXPECT_EQ(v[0], 1);
    EXPECT_EQ(v[1], 32);
    EXPECT_EQ(v[2], 3);
    EXPECT_EQ(v[3], 19);
    EXPECT_EQ(v[4], 97);
    for (int k = 5; k < 9; ++k) EXPECT_EQ(v[k], -7);
}

}  // namespace
