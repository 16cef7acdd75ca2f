// Schedules with odd first and last periods, checked day by day against the schedule written out by
// hand: the dated date, the first coupon, the regular dates stepped back from the last regular coupon,
// maturity. Hand-worked cases and every error number are rows of tests/calls/schedule.calls.
#include <gtest/gtest.h>

#include <vector>

#include "schedule_testing.hpp"

namespace {

using schedule_testing::D;
using schedule_testing::serial;

struct Bond {
    D mat, dated, first, last;
    int32_t freq, eom;
    const char* name;
};
// Maturity, dated, first and last regular coupon, in the order the odd-period exports take them.
#define ODD_BOND(b) (b).mat.m, (b).mat.d, (b).mat.y, (b).dated.m, (b).dated.d, (b).dated.y, (b).first.m, (b).first.d, \
                    (b).first.y, (b).last.m, (b).last.d, (b).last.y

const Bond kBonds[] = {
    {{3, 1, 2030}, {2, 1, 2021}, {6, 15, 2021}, {12, 15, 2029}, 2, 0, "short first, short last"},
    {{3, 1, 2030}, {8, 1, 2020}, {6, 15, 2021}, {6, 15, 2029}, 2, 0, "long first, long last"},
    {{12, 15, 2029}, {11, 10, 2020}, {2, 28, 2021}, {8, 31, 2029}, 2, 1, "month-end regular dates"},
    {{5, 20, 2026}, {1, 5, 2021}, {3, 31, 2021}, {3, 31, 2026}, 4, 1, "quarterly month ends"},
    {{7, 10, 2024}, {1, 2, 2022}, {1, 31, 2022}, {6, 30, 2024}, 12, 1, "monthly"},
    {{9, 1, 2031}, {9, 1, 2021}, {9, 1, 2022}, {9, 1, 2030}, 1, 0, "annual, regular ends"},
};

// The coupon dates of a bond, oldest first: the first coupon, the regular dates back from the last
// regular coupon to it, maturity.
std::vector<D> coupons(const Bond& b) {
    std::vector<D> regular{b.last};
    for (int32_t k = 1; k <= 1000 && serial(regular.back()) > serial(b.first); ++k)
        regular.push_back(schedule_testing::stepped(b.last, -k, b.freq, b.eom));
    EXPECT_EQ(regular.back(), b.first) << b.name << ": the first coupon is off the regular grid";
    std::vector<D> dates(regular.rbegin(), regular.rend());
    dates.push_back(b.mat);
    return dates;
}

TEST(OddPeriods, EverySettlementDayAgreesWithTheWrittenOutSchedule) {
    for (const Bond& b : kBonds) {
        std::vector<D> dates{b.dated};
        for (const D x : coupons(b)) dates.push_back(x);
        for (int32_t day_type : {1, 2}) {
            for (D s = b.dated; serial(s) < serial(b.mat); s = schedule_testing::day_after(s, 1)) {
                SCOPED_TRACE(testing::Message() << b.name << " type " << day_type << " settle " << s);
                const auto want = schedule_testing::scan(dates, s);
                D pcd{}, ncd{}, p1{}, n1{};
                uint32_t err = 0;
                per_cpn_MDYs(s.m, s.d, s.y, ODD_BOND(b), day_type, b.eom, b.freq, &pcd.m, &pcd.d, &pcd.y, &ncd.m,
                             &ncd.d, &ncd.y, 1, &err);
                per_pcd(s.m, s.d, s.y, ODD_BOND(b), day_type, b.eom, b.freq, &p1.m, &p1.d, &p1.y, 0, &err);
                per_ncd(s.m, s.d, s.y, ODD_BOND(b), day_type, b.eom, b.freq, &n1.m, &n1.d, &n1.y, 0, &err);
                ASSERT_EQ(err, 0u);
                ASSERT_EQ(pcd, want.pcd);
                ASSERT_EQ(ncd, want.ncd);
                ASSERT_EQ(p1, pcd);
                ASSERT_EQ(n1, ncd);
            }
        }
    }
}

std::vector<D> listed(D s, const Bond& b) {
    int32_t m[400], d[400], y[400], count = -1;
    uint32_t err = 0;
    const int32_t n = all_cpn_dts(s.m, s.d, s.y, b.mat.m, b.mat.d, b.mat.y, b.first.m, b.first.d, b.first.y, b.last.m,
                                  b.last.d, b.last.y, b.eom, b.freq, 400, m, d, y, &count, 1, &err);
    EXPECT_EQ(err, 0u);
    EXPECT_EQ(n, count);
    std::vector<D> out;
    for (int32_t i = 0; i < n; ++i) out.push_back({m[i], d[i], y[i]});
    return out;
}

// The coupon list is the written-out dates after settlement: for the odd bonds, and for regular bonds of
// every frequency, month ends or not (the calendar's period step from maturity).
TEST(CouponList, IsTheWrittenOutScheduleAfterSettlement) {
    std::vector<std::pair<Bond, std::vector<D>>> cases;
    for (const Bond& b : kBonds) cases.emplace_back(b, coupons(b));
    for (const D mat : {D{8, 31, 2030}, D{2, 28, 2031}, D{5, 15, 2027}})
        for (int32_t freq : {1, 2, 4, 12})
            for (int32_t eom : {0, 1})
                cases.emplace_back(Bond{mat, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}, freq, eom, "regular"},
                                   schedule_testing::written_out(mat, 10 * freq, freq, eom));
    for (const auto& [b, dates] : cases) {
        const D from = b.dated.m != 0 ? schedule_testing::day_after(b.dated, -40) : dates.front();
        for (D s = from; serial(s) < serial(b.mat); s = schedule_testing::day_after(s, 11)) {
            SCOPED_TRACE(testing::Message() << b.name << " " << b.mat << " freq " << b.freq << " eom " << b.eom
                                            << " settle " << s);
            std::vector<D> want;
            for (const D x : dates)
                if (serial(x) > serial(s)) want.push_back(x);
            ASSERT_EQ(listed(s, b), want);
        }
    }
}

}  // namespace
