// Helpers shared by the coupon-schedule tests: dates as values, and the schedule written out the slow way.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <vector>

#include "core/civil.hpp"
#include "orvel/orvel.h"

namespace schedule_testing {

struct D {
    int32_t m, d, y;
    friend bool operator==(const D&, const D&) = default;
    friend std::ostream& operator<<(std::ostream& os, const D& x) { return os << x.m << '/' << x.d << '/' << x.y; }
};

inline int64_t serial(D x) { return orvel::cal::jdn(x.m, x.d, x.y); }
inline D day_after(D x, int64_t n) {
    const auto r = orvel::cal::add_days({x.m, x.d, x.y}, n);
    return {r.m, r.d, r.y};
}

// The anchor moved n periods with the calendar's own period step.
inline D stepped(D anchor, int32_t n, int32_t cpn_freq, int32_t eom) {
    incr_by_pers(n, cpn_freq, &anchor.m, &anchor.d, &anchor.y, eom);
    return anchor;
}

// Every coupon date from `periods` periods before the anchor up to the anchor, oldest first.
inline std::vector<D> written_out(D anchor, int32_t periods, int32_t cpn_freq, int32_t eom) {
    std::vector<D> dates;
    for (int32_t k = periods; k >= 0; --k) dates.push_back(stepped(anchor, -k, cpn_freq, eom));
    return dates;
}

struct Around {
    D pcd, ncd;
    int32_t after;  // coupon dates strictly after the date looked up
};

// The coupon dates around `date` found by scanning the written-out schedule.
inline Around scan(const std::vector<D>& dates, D date) {
    std::size_t i = dates.size() - 1;
    while (serial(dates[i]) > serial(date)) --i;
    return {dates[i], dates[i + 1], static_cast<int32_t>(dates.size() - 1 - i)};
}

inline D pcd_of(D settle, D mat, int32_t freq, int32_t eom, D* ncd) {
    D pcd{};
    uint32_t err = 0;
    lst_nxt_ncpn(settle.m, settle.d, settle.y, mat.m, mat.d, mat.y, freq, eom, &pcd.m, &pcd.d, &pcd.y, &ncd->m,
                 &ncd->d, &ncd->y, 0, &err);
    EXPECT_EQ(err, 0u);
    return pcd;
}

}  // namespace schedule_testing
