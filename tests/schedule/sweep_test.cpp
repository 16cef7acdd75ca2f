// Coupon schedules swept day by day against the schedule written out with the calendar's own period step,
// regular or with odd first and last periods; distances and interest earned against their own additivity;
// any input answered without checks. Hand-worked cases and every error number are rows of
// tests/calls/schedule.calls.
#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "orvel/orvel.h"

namespace {

struct D {
    int32_t m, d, y;
    friend bool operator==(const D&, const D&) = default;
    friend std::ostream& operator<<(std::ostream& os, const D& x) { return os << x.m << '/' << x.d << '/' << x.y; }
};
int32_t serial(D x) { return MDY_2_julian(x.m, x.d, x.y); }
D day_after(D x, int32_t n) { return incr_by_days(n, &x.m, &x.d, &x.y), x; }
D stepped(D anchor, int32_t n, int32_t cpn_freq, int32_t eom) {
    return incr_by_pers(n, cpn_freq, &anchor.m, &anchor.d, &anchor.y, eom), anchor;
}

// Every coupon date from `periods` periods before the anchor up to the anchor, oldest first.
std::vector<D> written_out(D anchor, int32_t periods, int32_t cpn_freq, int32_t eom) {
    std::vector<D> dates;
    for (int32_t k = periods; k >= 0; --k) dates.push_back(stepped(anchor, -k, cpn_freq, eom));
    return dates;
}

// The dates around `date` found by scanning a written-out schedule (dates.front() <= date < dates.back()),
// and how many dates lie strictly after it.
struct Around {
    D pcd, ncd;
    int32_t after;
};
Around scan(const std::vector<D>& dates, D date) {
    std::size_t i = dates.size() - 1;
    while (serial(dates[i]) > serial(date)) --i;
    return {dates[i], dates[i + 1], static_cast<int32_t>(dates.size() - 1 - i)};
}

struct Info {
    int32_t da, dp, dr, nper, frac;
    friend bool operator==(const Info&, const Info&) = default;
};
Info reg_info(D s, D mat, int32_t day_type, int32_t eom, int32_t freq) {
    Info i{};
    uint32_t err = 0;
    reg_per_info(s.m, s.d, s.y, mat.m, mat.d, mat.y, day_type, eom, freq, &i.da, &i.dp, &i.dr, &i.nper, &i.frac, 0,
                 &err);
    EXPECT_EQ(err, 0u);
    return i;
}

// Every settlement day of the last three years of each schedule: the coupon dates are those of the
// written-out schedule, the actual-day counts are the calendar's, the whole and partial periods count
// the coupons left under every day count, and the other forms of the same answer agree.
TEST(RegularSchedule, EverySettlementAgreesWithTheWrittenOutSchedule) {
    for (const D mat : {D{8, 31, 2030}, D{2, 28, 2031}, D{2, 29, 2032}, D{5, 15, 2027}, D{1, 31, 2029},
                        D{6, 30, 2026}, D{12, 31, 2040}, D{11, 30, 2025}})
        for (int32_t freq : {1, 2, 4, 12})
            for (int32_t eom : {0, 1}) {
                const auto dates = written_out(mat, 4 * freq, freq, eom);
                for (D s = day_after(mat, -3 * 365); serial(s) < serial(mat); s = day_after(s, 1)) {
                    SCOPED_TRACE(testing::Message() << "settle " << s << " mat " << mat << " freq " << freq
                                                    << " eom " << eom);
                    const auto want = scan(dates, s);
                    D pcd{}, ncd{}, p2{}, n2{};
                    uint32_t err = 0;
                    lst_nxt_ncpn(s.m, s.d, s.y, mat.m, mat.d, mat.y, freq, eom, &pcd.m, &pcd.d, &pcd.y, &ncd.m,
                                 &ncd.d, &ncd.y, 1, &err);
                    per_cpn_MDYs(s.m, s.d, s.y, mat.m, mat.d, mat.y, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, eom, freq, &p2.m,
                                 &p2.d, &p2.y, &n2.m, &n2.d, &n2.y, 1, &err);
                    ASSERT_EQ(err, 0u);
                    ASSERT_EQ((std::vector{pcd, ncd, p2, n2}), (std::vector{want.pcd, want.ncd, want.pcd, want.ncd}));
                    const bool on_coupon = pcd == s;
                    ASSERT_EQ(reg_info(s, mat, 1, eom, freq),
                              (Info{serial(s) - serial(pcd), serial(ncd) - serial(pcd), serial(ncd) - serial(s),
                                    on_coupon ? want.after : want.after - 1, on_coupon ? 0 : 1}));
                    for (int32_t day_type = 2; day_type <= 13; ++day_type) {
                        const Info i = reg_info(s, mat, day_type, eom, freq);
                        ASSERT_EQ(i.nper + i.frac, want.after) << "day_type " << day_type;
                        // On a coupon date a whole period is ahead; but code 11 counts a 31st to itself as a day.
                        ASSERT_TRUE(!on_coupon || i.frac == 0 || (day_type == 11 && s.d == 31)) << day_type;
                        Info n{0, 0, 0, -1, -1};
                        num_per_dt(s.m, s.d, s.y, mat.m, mat.d, mat.y, day_type, eom, freq, &n.nper, &n.frac, 0, &err);
                        ASSERT_EQ(std::pair(n.nper, n.frac), std::pair(i.nper, i.frac));
                        double x[5];
                        d_regperinfo(s.m, s.d, s.y, mat.m, mat.d, mat.y, day_type, eom, freq, x, x + 1, x + 2, x + 3,
                                     x + 4, 0, &err);
                        ASSERT_EQ((Info{int32_t(x[0]), int32_t(x[1]), int32_t(x[2]), int32_t(x[3]), int32_t(x[4])}), i);
                        d_qlb2dpdadr(s.m, s.d, s.y, mat.m, mat.d, mat.y, day_type, eom, freq, x, x + 1, x + 2, 0, &err);
                        ASSERT_EQ((Info{int32_t(x[0]), int32_t(x[1]), int32_t(x[2]), i.nper, i.frac}), i);
                    }
                }
            }
}

// Moving the start one day on under actual days shortens the distance by one day of its period.
TEST(PeriodDistance, FallsByOneDayOverThePeriodEachDay) {
    const D mat{11, 30, 2027};
    const auto dper = [&mat](D a) {
        uint32_t err = 0;
        const double v = num_dper(a.m, a.d, a.y, mat.m, mat.d, mat.y, 1, 0, 2, 1, &err);
        EXPECT_EQ(err, 0u);
        return v;
    };
    for (D a{1, 1, 2024}; serial(a) < serial(mat) - 1; a = day_after(a, 1))
        ASSERT_NEAR(dper(a) - dper(day_after(a, 1)), 1.0 / reg_info(a, mat, 1, 0, 2).dp, 1e-12) << a;
}

// Earned interest adds up over consecutive holdings, for every split day of a two-year span (NASD 30/360
// is left out: its 31st counts differently as an end and as a start).
TEST(InterestEarned, AddsUpOverConsecutiveHoldings) {
    const D mat{8, 31, 2030}, a{1, 10, 2027}, c{2, 20, 2029};
    for (int32_t day_type : {1, 5, 6, 8, 9}) {
        const auto earned = [&](D from, D to) {
            uint32_t err = 0;
            const double v = i_earn_MDYs(from.m, from.d, from.y, to.m, to.d, to.y, mat.m, mat.d, mat.y, 6.0, day_type,
                                         1, 2, 1, &err);
            EXPECT_EQ(err, 0u);
            return v;
        };
        for (D b = a; serial(b) <= serial(c); b = day_after(b, 1))
            ASSERT_NEAR(earned(a, b) + earned(b, c), earned(a, c), 1e-12) << "type " << day_type << " split " << b;
    }
}

// Without validation no input may hang, crash or overflow: nonsense frequencies and day counts, years far
// outside any calendar, malformed months and days, dates in either order. Run under the sanitizers too.
TEST(ScheduleWithoutChecks, AnyInputGivesAnAnswer) {
    const D dates[] = {{6, 30, 2030}, {1, 1, 9999}, {1, 1, -5}, {12, 31, INT_MAX}, {1, 1, INT_MIN}, {0, 0, 0},
                       {1000, 99, 2020}, {-7, -3, 2020}, {2, 29, 2023}, {INT_MAX, INT_MAX, INT_MAX},
                       {INT_MIN, INT_MIN, INT_MIN}, {INT_MIN, 1, 2020}};
    for (const int32_t freq : {0, -7, 1000, 5, 13, INT_MIN, INT_MAX, 2})
        for (const D a : dates)
            for (const D b : dates) {
                uint32_t err = 0;
                int32_t o[8], m[4], d[4], y[4];
                double x[5];
                lst_nxt_ncpn(a.m, a.d, a.y, b.m, b.d, b.y, freq, 1, o, o + 1, o + 2, o + 3, o + 4, o + 5, 0, &err);
                num_per(a.m, a.d, a.y, b.m, b.d, b.y, freq, o, o + 1, 0, &err);
                per_cpn_MDYs(a.m, a.d, a.y, b.m, b.d, b.y, a.m, a.d, a.y, b.m, b.d, b.y, 0, 0, 0, 1, 1, freq, o,
                             o + 1, o + 2, o + 3, o + 4, o + 5, 0, &err);
                all_cpn_dts(a.m, a.d, a.y, b.m, b.d, b.y, 0, 0, 0, 0, 0, 0, 1, freq, 4, m, d, y, o, 0, &err);
                for (int32_t day_type : {1, 2, 4, 13, 0, 99}) {
                    reg_per_info(a.m, a.d, a.y, b.m, b.d, b.y, day_type, 1, freq, o, o + 1, o + 2, o + 3, o + 4, 0,
                                 &err);
                    per2dp_da_dr(a.m, a.d, a.y, b.m, b.d, b.y, a.m, a.d, a.y, day_type, freq, o, o + 1, o + 2, 0, &err);
                    num_dper(a.m, a.d, a.y, b.m, b.d, b.y, day_type, 0, freq, 0, &err);
                    i_earn_MDYs(a.m, a.d, a.y, b.m, b.d, b.y, b.m, b.d, b.y, 5.0, day_type, 0, freq, 0, &err);
                    d_oddperinfo(a.m, a.d, a.y, b.m, b.d, b.y, a.m, a.d, a.y, b.m, b.d, b.y, day_type, 0, freq, x,
                                 x + 1, x + 2, x + 3, x + 4, 0, &err);
                    d_lstperinfo(a.m, a.d, a.y, b.m, b.d, b.y, a.m, a.d, a.y, day_type, 0, freq, x, x + 1, x + 2,
                                 x + 3, x + 4, 0, &err);
                }
                EXPECT_TRUE(err == 0 || err == ORVEL_E_CAPACITY) << a << " " << b << " freq " << freq;
            }
}

// Bonds with odd first and last periods: dated date, first coupon, the regular dates stepped back from the
// last regular coupon, maturity.
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
        regular.push_back(stepped(b.last, -k, b.freq, b.eom));
    EXPECT_EQ(regular.back(), b.first) << b.name << ": the first coupon is off the regular grid";
    std::vector<D> dates(regular.rbegin(), regular.rend());
    dates.push_back(b.mat);
    return dates;
}

TEST(OddPeriods, EverySettlementDayAgreesWithTheWrittenOutSchedule) {
    for (const Bond& b : kBonds) {
        std::vector<D> dates = coupons(b);
        dates.insert(dates.begin(), b.dated);
        for (int32_t day_type : {1, 2})
            for (D s = b.dated; serial(s) < serial(b.mat); s = day_after(s, 1)) {
                SCOPED_TRACE(testing::Message() << b.name << " type " << day_type << " settle " << s);
                const auto want = scan(dates, s);
                D pcd{}, ncd{}, p1{}, n1{};
                uint32_t err = 0;
                per_cpn_MDYs(s.m, s.d, s.y, ODD_BOND(b), day_type, b.eom, b.freq, &pcd.m, &pcd.d, &pcd.y, &ncd.m,
                             &ncd.d, &ncd.y, 1, &err);
                per_pcd(s.m, s.d, s.y, ODD_BOND(b), day_type, b.eom, b.freq, &p1.m, &p1.d, &p1.y, 0, &err);
                per_ncd(s.m, s.d, s.y, ODD_BOND(b), day_type, b.eom, b.freq, &n1.m, &n1.d, &n1.y, 0, &err);
                ASSERT_EQ(err, 0u);
                ASSERT_EQ((std::vector{pcd, ncd, p1, n1}), (std::vector{want.pcd, want.ncd, want.pcd, want.ncd}));
            }
    }
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
                                   written_out(mat, 10 * freq, freq, eom));
    for (const auto& [b, dates] : cases) {
        const D from = b.dated.m != 0 ? day_after(b.dated, -40) : dates.front();
        for (D s = from; serial(s) < serial(b.mat); s = day_after(s, 11)) {
            SCOPED_TRACE(testing::Message() << b.name << " " << b.mat << " freq " << b.freq << " eom " << b.eom
                                            << " settle " << s);
            int32_t m[400], d[400], y[400], count = -1;
            uint32_t err = 0;
            const int32_t n = all_cpn_dts(s.m, s.d, s.y, b.mat.m, b.mat.d, b.mat.y, b.first.m, b.first.d, b.first.y,
                                          b.last.m, b.last.d, b.last.y, b.eom, b.freq, 400, m, d, y, &count, 1, &err);
            std::vector<D> got, want;
            for (int32_t i = 0; i < n; ++i) got.push_back({m[i], d[i], y[i]});
            for (const D x : dates)
                if (serial(x) > serial(s)) want.push_back(x);
            ASSERT_EQ(err, 0u);
            ASSERT_EQ(n, count);
            ASSERT_EQ(got, want);
        }
    }
}

}  // namespace
