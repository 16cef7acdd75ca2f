// Helpers shared by the coupon-schedule tests: dates as values, and schedules written out the slow way
// with the calendar's own period step.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <vector>

#include "orvel/orvel.h"

namespace schedule_testing {

struct D {
    int32_t m, d, y;
    friend bool operator==(const D&, const D&) = default;
    friend std::ostream& operator<<(std::ostream& os, const D& x) { return os << x.m << '/' << x.d << '/' << x.y; }
};

inline int32_t serial(D x) { return MDY_2_julian(x.m, x.d, x.y); }
inline D day_after(D x, int32_t n) {
    incr_by_days(n, &x.m, &x.d, &x.y);
    return x;
}

// The anchor moved n periods with the calendar's period step.
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

// The dates around `date` found by scanning a written-out schedule (dates.front() <= date < dates.back()),
// and how many dates lie strictly after it.
struct Around {
    D pcd, ncd;
    int32_t after;
};
inline Around scan(const std::vector<D>& dates, D date) {
    std::size_t i = dates.size() - 1;
    while (serial(dates[i]) > serial(date)) --i;
    return {dates[i], dates[i + 1], static_cast<int32_t>(dates.size() - 1 - i)};
}

}  // namespace schedule_testing
