// Business-day arithmetic on a caller's holiday table. Each function walks the table at most once, in one
// direction, so every loop ends within count + 1 steps whatever the table holds.
#include "calendar/business.hpp"

namespace orvel::cal {

int32_t first_not_before(Holidays h, int64_t j) {
    int32_t lo = 0, hi = readable(h) ? h.count : 0;  // the answer lies in [lo, hi]
    while (lo < hi) {
        const int32_t mid = lo + (hi - lo) / 2;
        if (h.day[mid] < j) lo = mid + 1;
        else hi = mid;
    }
    return lo;
}

bool is_holiday(int64_t j, Holidays h) {
    const int32_t k = first_not_before(h, j);
    return readable(h) && k < h.count && h.day[k] == j;
}

int64_t roll(int64_t j, int32_t dir, Holidays h) {
    const int32_t n = readable(h) ? h.count : 0;
    if (dir >= 0) {
        for (int32_t k = first_not_before(h, j);; ++j, ++k) {
            const int32_t wd = weekday(j);
            if (wd > 5) j += 8 - wd;  // Saturday +2, Sunday +1: the Monday after
            while (k < n && h.day[k] < j) ++k;
            if (k >= n || h.day[k] != j) return j;
        }
    }
    for (int32_t k = first_not_before(h, j + 1) - 1;; --j, --k) {
        const int32_t wd = weekday(j);
        if (wd > 5) j -= wd - 5;  // Saturday -1, Sunday -2: the Friday before
        while (k >= 0 && h.day[k] > j) --k;
        if (k < 0 || h.day[k] != j) return j;
    }
}

int64_t add_business_days(int64_t j0, int64_t n, Holidays h) {
    const int32_t count = readable(h) ? h.count : 0;
    if (!is_business_day(j0, h)) j0 = roll(j0, n >= 0 ? 1 : -1, h);
    const int64_t w = n / 5, r = n % 5;  // both truncated: r has the sign of n
    int64_t j = j0 + 7 * w;
    const int64_t wd = weekday(j) + r;
    if (wd < 1 || wd > 5) j += n >= 0 ? 2 : -2;  // the remainder crosses a weekend
    j += r;
    // Each holiday passed on the way moves the result one business day further.
    if (n >= 0) {
        for (int32_t k = first_not_before(h, j0); k < count && h.day[k] <= j; ++k) {
            if (h.day[k] < j0) continue;
            ++j;
            if (weekday(j) == 6) j += 2;
        }
    } else {
        for (int32_t k = first_not_before(h, j0 + 1) - 1; k >= 0 && h.day[k] >= j; --k) {
            if (h.day[k] > j0) continue;
            --j;
            if (weekday(j) > 5) j -= weekday(j) - 5;
        }
    }
    return j;
}

int64_t business_days(int64_t j1, int64_t j2, Holidays h) {
    const int64_t s = j1 < j2 ? 1 : -1;
    const int64_t d = j2 - j1;
    int64_t count = 5 * (d / 7) + d % 7;
    const int64_t wd = weekday(j1) + d % 7;
    if (wd < 1 || wd > 5) count -= 2 * s;
    const int64_t earlier = j1 < j2 ? j1 : j2, later = j1 < j2 ? j2 : j1;
    const int32_t n = readable(h) ? h.count : 0;
    for (int32_t k = 0; k < n; ++k) {
        if (h.day[k] > later) continue;
        if (h.day[k] >= earlier) count -= s;
        break;
    }
    return count;
}

int32_t weekday_of_month(int32_t m, int64_t y, int32_t occur, int32_t dow) {
    const int64_t f = weekday(jdn(m, 1, y));
    const int64_t t = dow - f + 1 + (f > dow ? 7 : 0);  // the first such weekday
    const int64_t last = month_end(m, y);
    int64_t day = occur == 0 ? (t + 28 <= last ? t + 28 : t + 21) : t + 7 * (int64_t{occur} - 1);
    if (occur == 5 && day > last) day = 0;
    return static_cast<int32_t>(day);
}

}  // namespace orvel::cal
