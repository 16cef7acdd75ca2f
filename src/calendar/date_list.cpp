// Date lists: three parallel arrays (months, days, years) with companion values. Sorting, and the
// maintenance of a list of dated amounts by merging and deleting.
#include <utility>

#include "core/civil.hpp"
#include "core/check.hpp"
#include "orvel/calendar.h"

namespace cal = orvel::cal;

namespace {

struct DateList {
    int32_t* m;
    int32_t* d;
    int32_t* y;
    orvel::Date at(int32_t i) const { return {m[i], d[i], y[i]}; }
};

// Index of the first entry that is not a valid required date (with the number of ok_MDY in *number),
// or -1 when every one is.
int32_t first_bad_date(const int32_t* m, const int32_t* d, const int32_t* y, int32_t count, uint32_t* number) {
    for (int32_t i = 0; i < count; ++i)
        if (!ok_MDY(m[i], d[i], y[i], 1, number)) return i;
    return -1;
}

// The sorts report a bad date by the number of ok_MDY.
bool every_date_ok(const int32_t* m, const int32_t* d, const int32_t* y, int32_t count, uint32_t* err_code) {
    uint32_t number = 0;
    return first_bad_date(m, d, y, count, &number) < 0 || orvel::fail(err_code, number);
}

// The list maintenance reports a bad date by its index: 12000 + i.
bool every_date_ok_by_index(const int32_t* m, const int32_t* d, const int32_t* y, int32_t count,
                            uint32_t* err_code) {
    uint32_t number = 0;
    const int32_t bad = first_bad_date(m, d, y, count, &number);
    return bad < 0 || orvel::fail(err_code, ORVEL_E_DATE_LIST_BASE + static_cast<uint32_t>(bad));
}

// The arrays of a sort: the dates and the companion arrays that travel with them (ivals may be null).
struct SortList {
    int32_t* m;
    int32_t* d;
    int32_t* y;
    double* vals;
    int32_t* ivals;

    void swap(int32_t i, int32_t j) const {
        std::swap(m[i], m[j]);
        std::swap(d[i], d[j]);
        std::swap(y[i], y[j]);
        std::swap(vals[i], vals[j]);
        if (ivals != nullptr) std::swap(ivals[i], ivals[j]);
    }
    // Calendar order: the order of the day numbers, which any triple has (an unvalidated one too).
    int64_t key(int32_t i) const { return cal::jdn(m[i], d[i], y[i]); }
};

// While a list is tagged, each entry keeps its original position in the bits of its month and day above
// the low 8 (bits 8..15 of the month hold position bits 23..30, bits 8..30 of the day position bits
// 0..22), so that ordering by date and then by position, a strict order, gives the stable result with
// any algorithm. Only a list whose every month and day lies in 0..255 can be tagged: every valid date.
constexpr int32_t kField = 0xFF;

bool taggable(const SortList& v, int32_t count) {
    for (int32_t i = 0; i < count; ++i)
        if (v.m[i] < 0 || v.m[i] > kField || v.d[i] < 0 || v.d[i] > kField) return false;
    return true;
}

void tag(const SortList& v, int32_t count) {
    for (int32_t i = 0; i < count; ++i) {
        v.m[i] |= (i >> 23) << 8;
        v.d[i] |= (i & 0x7FFFFF) << 8;
    }
}

void untag(const SortList& v, int32_t count) {
    for (int32_t i = 0; i < count; ++i) {
        v.m[i] &= kField;
        v.d[i] &= kField;
    }
}

// Date, then original position, of two tagged entries.
bool tagged_less(const SortList& v, int32_t i, int32_t j) {
    const int64_t ki = cal::jdn(v.m[i] & kField, v.d[i] & kField, v.y[i]);
    const int64_t kj = cal::jdn(v.m[j] & kField, v.d[j] & kField, v.y[j]);
    if (ki != kj) return ki < kj;
    return (v.m[i] >> 8 != v.m[j] >> 8) ? v.m[i] >> 8 < v.m[j] >> 8 : v.d[i] >> 8 < v.d[j] >> 8;
}

// Heap sort of a tagged list: O(n log n) comparisons and exchanges, no memory beyond a few locals.
void heap_sort(const SortList& v, int32_t count) {
    const auto sift_down = [&v](int32_t root, int32_t end) {
        for (;;) {
            const int64_t left = 2 * int64_t{root} + 1;
            if (left >= end) return;
            auto child = static_cast<int32_t>(left);
            if (child + 1 < end && tagged_less(v, child, child + 1)) ++child;
            if (!tagged_less(v, root, child)) return;
            v.swap(root, child);
            root = child;
        }
    };
    for (int32_t i = count / 2; i-- > 0;) sift_down(i, count);
    for (int32_t end = count - 1; end > 0; --end) {
        v.swap(0, end);
        sift_down(0, end);
    }
}

// The stable in-place merge sort for a list that cannot be tagged (a month or day outside 0..255, which
// only an unvalidated call can pass): O(n log^2 n) exchanges, recursion depth O(log n).
void reverse(const SortList& v, int32_t first, int32_t last) {
    while (first < --last) v.swap(first++, last);
}

// The first index of [lo, hi) whose key is above k (after_equal) or not below k.
int32_t bound(const SortList& v, int32_t lo, int32_t hi, int64_t k, bool after_equal) {
    while (lo < hi) {
        const int32_t mid = lo + (hi - lo) / 2;
        if (after_equal ? v.key(mid) <= k : v.key(mid) < k) lo = mid + 1;
        else hi = mid;
    }
    return lo;
}

// Merges the sorted runs [first, middle) and [middle, last) by rotations: a run is cut in half, the
// other at the same key, the middle pieces exchanged, and the two smaller merges done (the smaller one
// by recursion, so the depth stays below log2 of the length).
void merge_in_place(const SortList& v, int32_t first, int32_t middle, int32_t last) {
    while (first < middle && middle < last) {
        if (last - first == 2) {
            if (v.key(middle) < v.key(first)) v.swap(first, middle);
            return;
        }
        int32_t cut1, cut2;
        if (middle - first > last - middle) {
            cut1 = first + (middle - first) / 2;
            cut2 = bound(v, middle, last, v.key(cut1), false);
        } else {
            cut2 = middle + (last - middle) / 2;
            cut1 = bound(v, first, middle, v.key(cut2), true);
        }
        reverse(v, cut1, middle);
        reverse(v, middle, cut2);
        reverse(v, cut1, cut2);
        const int32_t joint = cut1 + (cut2 - middle);
        if (joint - first < last - joint) {
            merge_in_place(v, first, cut1, joint);
            first = joint, middle = cut2;
        } else {
            merge_in_place(v, joint, cut2, last);
            middle = cut1, last = joint;
        }
    }
}

void merge_sort(const SortList& v, int32_t first, int32_t last) {
    if (last - first <= 12) {
        for (int32_t i = first + 1; i < last; ++i)
            for (int32_t j = i; j > first && v.key(j) < v.key(j - 1); --j) v.swap(j, j - 1);
        return;
    }
    const int32_t middle = first + (last - first) / 2;
    merge_sort(v, first, middle);
    merge_sort(v, middle, last);
    merge_in_place(v, first, middle, last);
}

// Sorts in calendar order, stably, with the documented err_code writes of a stable bubble sort: each of
// its comparisons that keeps two neighbours in place clears the 2100 that the "is before" comparison
// leaves, so err_code is written 0 unless every comparison exchanges, which happens exactly when the
// list is strictly descending.
void sort_dates(const SortList& v, int32_t count, uint32_t* err_code) {
    if (count < 2) return;
    bool descending = true;
    for (int32_t i = 1; descending && i < count; ++i) descending = v.key(i) < v.key(i - 1);
    if (taggable(v, count)) {
        tag(v, count);
        heap_sort(v, count);
        untag(v, count);
    } else {
        merge_sort(v, 0, count);
    }
    if (!descending) *err_code = 0;
}

}  // namespace

ORVEL_EXPORT(int32_t) sort_MDYs(int32_t* months, int32_t* days, int32_t* years, double* vals, int32_t count,
                                int32_t validate, uint32_t* err_code) {
    const auto dates_ok = [&](uint32_t* e) { return every_date_ok(months, days, years, count, e); };
    if (validate && !orvel::Check(err_code).step(dates_ok).ok()) return 0;
    sort_dates({months, days, years, vals, nullptr}, count, err_code);
    return 1;
}

ORVEL_EXPORT(int32_t) sort2_MDYs(int32_t* months, int32_t* days, int32_t* years, double* vals, int32_t* ivals,
                                 int32_t count, int32_t validate, uint32_t* err_code) {
    const auto dates_ok = [&](uint32_t* e) { return every_date_ok(months, days, years, count, e); };
    if (validate && !orvel::Check(err_code).step(dates_ok).ok()) return 0;
    sort_dates({months, days, years, vals, ivals}, count, err_code);
    return 1;
}

namespace {

struct Amounts {
    DateList dates;
    double* amounts;
};

struct ConstAmounts {
    const int32_t* m;
    const int32_t* d;
    const int32_t* y;
    const double* amounts;
    orvel::Date at(int32_t i) const { return {m[i], d[i], y[i]}; }
};

bool strictly_ascending(const int32_t* m, const int32_t* d, const int32_t* y, int32_t count) {
    for (int32_t i = 1; i < count; ++i)
        if (cal::compare({m[i - 1], d[i - 1], y[i - 1]}, {m[i], d[i], y[i]}) >= 0) return false;
    return true;
}

// Dates of `chg` that `list` does not hold (both ascending): the entries a merge adds.
int64_t new_dates(const Amounts& list, int32_t count, const ConstAmounts& chg, int32_t chg_count) {
    int64_t added = 0;
    int32_t i = 0;
    for (int32_t j = 0; j < chg_count; ++j) {
        while (i < count && cal::compare(list.dates.at(i), chg.at(j)) < 0) ++i;
        if (i == count || cal::compare(list.dates.at(i), chg.at(j)) != 0) ++added;
    }
    return added;
}

void put(const Amounts& list, int32_t to, orvel::Date date, double amount) {
    list.dates.m[to] = date.m;
    list.dates.d[to] = date.d;
    list.dates.y[to] = date.y;
    list.amounts[to] = amount;
}

// Merges from the back into the room behind the list, so that no entry is overwritten before it is read;
// `total` is count plus the new dates. An inconsistent (unsorted) input stops the merge rather than
// letting it write before the entries not yet moved.
void merge_from_back(const Amounts& list, int32_t count, int32_t total, const ConstAmounts& chg, int32_t chg_count) {
    int32_t i = count - 1, j = chg_count - 1, k = total - 1;
    while (j >= 0 && k >= 0) {
        const int64_t order = i >= 0 ? cal::compare(list.dates.at(i), chg.at(j)) : -1;
        if (order > 0) {
            put(list, k, list.dates.at(i), list.amounts[i]);
            --i;
        } else if (order == 0) {
            put(list, k, list.dates.at(i), list.amounts[i] + chg.amounts[j]);
            --i, --j;
        } else {
            if (k <= i) return;
            put(list, k, chg.at(j), chg.amounts[j]);
            --j;
        }
        --k;
    }
}

// Deletes (reduce = false) or reduces by the change amounts (reduce = true) the entries on the change
// dates, compacting forward; returns the new count.
int32_t remove_dates(const Amounts& list, int32_t count, const ConstAmounts& chg, int32_t chg_count, bool reduce) {
    int32_t kept = 0, j = 0;
    for (int32_t i = 0; i < count; ++i) {
        const orvel::Date date = list.dates.at(i);
        while (j < chg_count && cal::compare(chg.at(j), date) < 0) ++j;
        double amount = list.amounts[i];
        if (j < chg_count && cal::compare(chg.at(j), date) == 0) {
            if (!reduce) continue;
            amount -= chg.amounts[j];
            if (amount == 0.0) continue;
        }
        put(list, kept++, date, amount);
    }
    return kept;
}

}  // namespace

ORVEL_EXPORT(int32_t) MDY_maint(int32_t action, int32_t* months, int32_t* days, int32_t* years, double* amounts,
                                int32_t count, int32_t capacity, const int32_t* chg_months,
                                const int32_t* chg_days, const int32_t* chg_years, const double* chg_amounts,
                                int32_t chg_count, int32_t validate, uint32_t* err_code) {
    if (count < 0) count = 0;
    if (chg_count < 0) chg_count = 0;
    orvel::Check check(err_code);
    check.expect(action == 1 || action == -1 || action == -2, ORVEL_E_MAINT_ACTION)
        .expect(count <= capacity, ORVEL_E_CAPACITY);
    if (validate) {
        check.expect(count <= ORVEL_DATE_LIST_MAX && chg_count <= ORVEL_DATE_LIST_MAX, ORVEL_E_LIST_LENGTH)
            .step([&](uint32_t* e) { return every_date_ok_by_index(months, days, years, count, e); })
            .step([&](uint32_t* e) { return every_date_ok_by_index(chg_months, chg_days, chg_years, chg_count, e); })
            .step([&](uint32_t* e) {
                return strictly_ascending(months, days, years, count) || orvel::fail(e, ORVEL_E_LIST_ORDER1);
            })
            .step([&](uint32_t* e) {
                return strictly_ascending(chg_months, chg_days, chg_years, chg_count) ||
                       orvel::fail(e, ORVEL_E_LIST_ORDER2);
            });
    }
    if (!check.ok()) return 0;

    const Amounts list{{months, days, years}, amounts};
    const ConstAmounts chg{chg_months, chg_days, chg_years, chg_amounts};
    if (action != 1) return remove_dates(list, count, chg, chg_count, action == -2);
    const int64_t total = count + new_dates(list, count, chg, chg_count);
    if (!check.expect(total <= capacity, ORVEL_E_CAPACITY)
             .expect(!validate || total <= ORVEL_DATE_LIST_MAX, ORVEL_E_LIST_LENGTH)
             .ok())
        return 0;
    merge_from_back(list, count, static_cast<int32_t>(total), chg, chg_count);
    return static_cast<int32_t>(total);
}
