#include "orvel/frame.h"
#include "validators_test_util.hpp"

namespace {

using orvel_test::DoubleArg;
using orvel_test::expect_non_finite_rejected;
using orvel_test::expect_rows;
using orvel_test::kInf;
using orvel_test::kNaN;
using orvel_test::Row;

TEST(Amounts, BoundsAreInclusiveWhereTheRangeIsClosed) {
    expect_rows({
        {"cpn_rate 3000", [](uint32_t* e) { return ok_cpn_rate(3000.0, e); }, 0},
        {"cpn_rate 0", [](uint32_t* e) { return ok_cpn_rate(0.0, e); }, 0},
        {"cpn_rate 3000.000001", [](uint32_t* e) { return ok_cpn_rate(3000.000001, e); }, 4100},
        {"cpn_rate -0.0001", [](uint32_t* e) { return ok_cpn_rate(-0.0001, e); }, 4100},
        {"tax_rate 100", [](uint32_t* e) { return ok_tax_rate(100.0, e); }, 0},
        {"tax_rate 100.01", [](uint32_t* e) { return ok_tax_rate(100.01, e); }, 4300},
        {"tax_rate -1", [](uint32_t* e) { return ok_tax_rate(-1.0, e); }, 4300},
        {"redemptn 0", [](uint32_t* e) { return ok_redemptn(0.0, e); }, 4200},
        {"redemptn tiny", [](uint32_t* e) { return ok_redemptn(1e-300, e); }, 0},
        {"conv_rate 0", [](uint32_t* e) { return ok_conv_rate(0.0, e); }, 7100},
        {"lcpn_len 0", [](uint32_t* e) { return ok_lcpn_len(0.0, e); }, 4410},
        {"mbs_bal 0", [](uint32_t* e) { return ok_mbs_bal(0.0, e); }, 13100},
        {"ai 0", [](uint32_t* e) { return ok_ai(0.0, e); }, 0},
        {"ai -0.01", [](uint32_t* e) { return ok_ai(-0.01, e); }, 4500},
        {"days_pcnt -1e-9", [](uint32_t* e) { return ok_days_pcnt(-1e-9, e); }, 4400},
        {"mbs_fctr 0", [](uint32_t* e) { return ok_mbs_fctr(0.0, e); }, 0},
        {"mbs_fctr -0.1", [](uint32_t* e) { return ok_mbs_fctr(-0.1, e); }, 13200},
        {"rt_balinc -1", [](uint32_t* e) { return ok_rt_balinc(-1.0, e); }, 6800},
        {"rt_pmtinc -1", [](uint32_t* e) { return ok_rt_pmtinc(-1.0, e); }, 11501},
        {"sf_amt -1", [](uint32_t* e) { return ok_sf_amt(-1.0, e); }, 5100},
        {"srvc_fee at its bound", [](uint32_t* e) { return ok_srvc_fee(0.5, 0.5, e); }, 0},
        {"srvc_fee above", [](uint32_t* e) { return ok_srvc_fee(0.6, 0.5, e); }, 6202},
        {"srvc_fee below", [](uint32_t* e) { return ok_srvc_fee(-0.1, 0.5, e); }, 6201},
    });
}

TEST(GivenValues, ByKind) {
    expect_rows({
        {"price 10000", [](uint32_t* e) { return ok_given(10000.0, 2, e); }, 0},
        {"price 10000.5", [](uint32_t* e) { return ok_given(10000.5, 2, e); }, 4002},
        {"price 0", [](uint32_t* e) { return ok_given(0.0, 2, e); }, 4002},
        {"kind 7", [](uint32_t* e) { return ok_given(1.0, 7, e); }, 200},
        {"kind 6", [](uint32_t* e) { return ok_given(1.0, 6, e); }, 200},
        {"kind 10", [](uint32_t* e) { return ok_given(1.0, 10, e); }, 200},
        {"kind 13", [](uint32_t* e) { return ok_given(1.0, 13, e); }, 200},
        {"kind 0", [](uint32_t* e) { return ok_given(1.0, 0, e); }, 200},
        {"kind -1", [](uint32_t* e) { return ok_given(1.0, -1, e); }, 200},
        {"negative yield", [](uint32_t* e) { return ok_given(-2.5, 1, e); }, 0},
        {"yield 0", [](uint32_t* e) { return ok_given(0.0, 1, e); }, 4001},
        {"yield 0, kind 11", [](uint32_t* e) { return ok_given(0.0, 11, e); }, 4011},
        {"discount 25", [](uint32_t* e) { return ok_given(25.0, 3, e); }, 0},
        {"discount 25.01", [](uint32_t* e) { return ok_given(25.01, 3, e); }, 4003},
        {"discount 0", [](uint32_t* e) { return ok_given(0.0, 3, e); }, 4003},
        {"kind 4 at 0", [](uint32_t* e) { return ok_given(0.0, 4, e); }, 4004},
        {"kind 5 large", [](uint32_t* e) { return ok_given(1e9, 5, e); }, 0},
        {"kind 12 at 0", [](uint32_t* e) { return ok_given(0.0, 12, e); }, 4012},
        {"price/spread price", [](uint32_t* e) { return ok_given_ps(99.5, 2, e); }, 0},
        {"price/spread price 0", [](uint32_t* e) { return ok_given_ps(0.0, 2, e); }, 4002},
        {"price/spread spread", [](uint32_t* e) { return ok_given_ps(-35.0, 31, e); }, 0},
        {"price/spread kind 1", [](uint32_t* e) { return ok_given_ps(5.0, 1, e); }, 210},
        {"inflation real yield", [](uint32_t* e) { return ok_infl_gvn(-0.5, 21, e); }, 0},
        {"inflation yield 0", [](uint32_t* e) { return ok_infl_gvn(0.0, 1, e); }, 4001},
        {"inflation price 22 above 10000", [](uint32_t* e) { return ok_infl_gvn(10001.0, 22, e); }, 4022},
        {"inflation kind 3", [](uint32_t* e) { return ok_infl_gvn(5.0, 3, e); }, 200},
        {"inflation kind 23", [](uint32_t* e) { return ok_infl_gvn(5.0, 23, e); }, 200},
    });
}

TEST(PrepaymentSpeeds, ByModel) {
    const double schedule[] = {6.0, 8.0, 100.0};
    const double bad_schedule[] = {6.0, -1.0};
    expect_rows({
        {"CPR 100", [](uint32_t* e) { return ok_pcnt_spd(100.0, 1, e); }, 0},
        {"CPR 100.1", [](uint32_t* e) { return ok_pcnt_spd(100.1, 1, e); }, 7001},
        {"SMM -1", [](uint32_t* e) { return ok_pcnt_spd(-1.0, 2, e); }, 7002},
        {"PSA 1666 (CPR 99.96)", [](uint32_t* e) { return ok_pcnt_spd(1666.0, 3, e); }, 0},
        {"PSA -1", [](uint32_t* e) { return ok_pcnt_spd(-1.0, 3, e); }, 7003},
        {"PSA 1667 (CPR above 100)", [](uint32_t* e) { return ok_pcnt_spd(1667.0, 3, e); }, 7004},
        {"model 4", [](uint32_t* e) { return ok_pcnt_spd(1.0, 4, e); }, 700},
        {"schedule", [&](uint32_t* e) { return ok_pps(1, 3, schedule, e); }, 0},
        {"schedule with a negative speed", [&](uint32_t* e) { return ok_pps(1, 2, bad_schedule, e); }, 970},
        {"schedule of 0 months", [&](uint32_t* e) { return ok_pps(1, 0, schedule, e); }, 970},
        {"schedule of model 0", [&](uint32_t* e) { return ok_pps(0, 3, schedule, e); }, 970},
        {"PSA schedule", [&](uint32_t* e) { return ok_pps(3, 3, schedule, e); }, 0},
    });
}

TEST(NonFinite, EveryDoubleArgumentRejectsNaNAndInfinities) {
    expect_non_finite_rejected({
        {"ok_cpn_rate", [](double x, uint32_t* e) { return ok_cpn_rate(x, e); }, 4100},
        {"ok_tax_rate", [](double x, uint32_t* e) { return ok_tax_rate(x, e); }, 4300},
        {"ok_redemptn", [](double x, uint32_t* e) { return ok_redemptn(x, e); }, 4200},
        {"ok_conv_rate", [](double x, uint32_t* e) { return ok_conv_rate(x, e); }, 7100},
        {"ok_lcpn_len", [](double x, uint32_t* e) { return ok_lcpn_len(x, e); }, 4410},
        {"ok_mbs_bal", [](double x, uint32_t* e) { return ok_mbs_bal(x, e); }, 13100},
        {"ok_ai", [](double x, uint32_t* e) { return ok_ai(x, e); }, 4500},
        {"ok_days_pcnt", [](double x, uint32_t* e) { return ok_days_pcnt(x, e); }, 4400},
        {"ok_mbs_fctr", [](double x, uint32_t* e) { return ok_mbs_fctr(x, e); }, 13200},
        {"ok_rt_balinc", [](double x, uint32_t* e) { return ok_rt_balinc(x, e); }, 6800},
        {"ok_rt_pmtinc", [](double x, uint32_t* e) { return ok_rt_pmtinc(x, e); }, 11501},
        {"ok_sf_amt", [](double x, uint32_t* e) { return ok_sf_amt(x, e); }, 5100},
        {"ok_given yield", [](double x, uint32_t* e) { return ok_given(x, 1, e); }, 4001},
        {"ok_given price", [](double x, uint32_t* e) { return ok_given(x, 2, e); }, 4002},
        {"ok_given discount", [](double x, uint32_t* e) { return ok_given(x, 3, e); }, 4003},
        {"ok_given kind 4", [](double x, uint32_t* e) { return ok_given(x, 4, e); }, 4004},
        {"ok_given kind 11", [](double x, uint32_t* e) { return ok_given(x, 11, e); }, 4011},
        {"ok_given kind 12", [](double x, uint32_t* e) { return ok_given(x, 12, e); }, 4012},
        {"ok_given_ps price", [](double x, uint32_t* e) { return ok_given_ps(x, 2, e); }, 4002},
        {"ok_given_ps spread", [](double x, uint32_t* e) { return ok_given_ps(x, 31, e); }, 4031},
        {"ok_infl_gvn yield", [](double x, uint32_t* e) { return ok_infl_gvn(x, 21, e); }, 4021},
        {"ok_infl_gvn price", [](double x, uint32_t* e) { return ok_infl_gvn(x, 2, e); }, 4002},
        {"ok_pcnt_spd CPR", [](double x, uint32_t* e) { return ok_pcnt_spd(x, 1, e); }, 7001},
        {"ok_pcnt_spd SMM", [](double x, uint32_t* e) { return ok_pcnt_spd(x, 2, e); }, 7002},
        {"ok_pps speed", [](double x, uint32_t* e) { const double s[] = {5.0, x}; return ok_pps(1, 2, s, e); }, 970},
    });
    // A PSA speed: NaN and -inf fall below the ramp, +inf above it.
    uint32_t err = 0;
    for (double bad : {kNaN, -kInf}) {
        EXPECT_EQ(ok_pcnt_spd(bad, 3, &err), 0);
        EXPECT_EQ(err, 7003u);
    }
    EXPECT_EQ(ok_pcnt_spd(kInf, 3, &err), 0);
    EXPECT_EQ(err, 7004u);
    // The servicing fee and its bound: a NaN or -inf fee is below 0, +inf above the bound, a non-finite
    // bound above.
    for (double bad : {kNaN, -kInf}) {
        EXPECT_EQ(ok_srvc_fee(bad, 0.5, &err), 0);
        EXPECT_EQ(err, 6201u);
    }
    for (double bound : {kNaN, kInf, -kInf}) {
        EXPECT_EQ(ok_srvc_fee(0.25, bound, &err), 0);
        EXPECT_EQ(err, 6202u);
    }
    EXPECT_EQ(ok_srvc_fee(kInf, 0.5, &err), 0);
    EXPECT_EQ(err, 6202u);
}

}  // namespace
