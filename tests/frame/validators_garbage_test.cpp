// Any int32 in any date field or code: a validator answers 0 or 1 with a number, and never crashes,
// overflows or loops (run under the sanitizers to see the overflow part).
#include <gtest/gtest.h>

#include <cstdint>

#include "orvel/frame.h"

namespace {

const int32_t kWild[] = {INT32_MIN, -1, 0, 2, 13, 31, 1804, 2300, 2301, INT32_MAX};

TEST(WildArguments, DateGroupsAnswerEveryInt32) {
    for (int32_t a : kWild) {
        for (int32_t b : kWild) {
            SCOPED_TRACE(testing::Message() << a << ", " << b);
            int32_t dm = a, dd = b, dy = 2023, fm = b, fd = 15, fy = a, lm = a, ld = a, ly = b;
            uint32_t err = 0;
            const int32_t results[] = {
                ok_bond_MDYs(3, 1, 2024, a, b, 2033, &dm, &dd, &dy, &fm, &fd, &fy, 1, 1, 2, &err),
                ok_bond_MDYs(a, 1, b, 11, 15, 2033, &dm, &dd, &dy, &fm, &fd, &fy, a, b, 2, &err),
                ok_mtrm_MDYs(3, 1, 2024, 11, 15, 2033, &dm, &dd, &dy, &fm, &fd, &fy, &lm, &ld, &ly, 1, a, 2, &err),
                ok_stpd_d_ol(3, 1, 2024, 12, 31, 2033, &dm, &dd, &dy, &fm, &fd, &fy, a, b, a, &lm, &ld, &ly, 1, 1, 2, &err),
                ok_cpn_sync(a, b, a, b, a, b, a, b, 0, &err),
                ok_cpn_sync(3, 15, 1999, 9, 15, 1999, a, b, 0, &err),
                ok_sync_dwm(a, b, 2024, 6, 19, 2024, a, b, a, 0, &err),
                ok_sync_dwm(3, 20, 2024, 6, 19, 2024, 4, a, b, 0, &err),
                ok_lt_MDY(a, b, a, 11, 15, 2033, b, a, &err),
                ok_trade_MDY(2, 27, 2024, a, b, a, b, a, b, &err),
                ok_exdiv_MDY(a, b, 2024, 5, 1, 2024, 11, 15, 2033, a, b, a, b, a, b, a, b, 2, &err),
                ok_exdol_MDY(5, 8, 2024, 5, 1, 2024, 11, 15, 2033, a, b, 2023, 5, 15, 2024, a, b, a, 1, a, 2, &err),
                ok_ogpd_MDYs(3, 1, 2024, 11, 15, 2033, &dm, &dd, &dy, &fm, &fd, &fy, &lm, &ld, &ly, a, b, a, b, &err),
                ok_ofsl_dwm(4, 1, 2024, 6, 17, 2025, &dm, &dd, &dy, &fm, &fd, &fy, &lm, &ld, &ly, a, 4, a, b, 0, nullptr,
                            &err),
                ok_days_per(a, b, &err),
                ok_uspm_type(a, b, a, &err),
                ok_given(1.0, a, &err),
                ok_infl_gvn(1.0, b, &err),
                ok_pcnt_spd(1.0, a, &err),
            };
            for (int32_t r : results) EXPECT_TRUE(r == 0 || r == 1);
        }
    }
}

}  // namespace
