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
    cal::Date at(int32_t i) const { return {m[i], d[i], y[i]}; }
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

// Bubble sort in calendar order, stable, stopping after a pass without an exchange; `swap_extra(i, j)`
// exchanges the companion arrays. A comparison that keeps the order writes 0 to err_code, as the
// "is before" comparison it stands for leaves its 2100 there and the sort clears it.
template <class SwapExtra>
void bubble_sort(DateList list, int32_t count, uint32_t* err_code, SwapExtra swap_extra) {
    for (int32_t k = count; k >= 2; --k) {
        bool exchanged = false;
        for (int32_t i = 0; i + 1 < k; ++i) {
            if (cal::compare(list.at(i + 1), list.at(i)) < 0) {
                std::swap(list.m[i], list.m[i + 1]);
                std::swap(list.d[i], list.d[i + 1]);
                std::swap(list.y[i], list.y[i + 1]);
                swap_extra(i, i + 1);
                exchanged = true;
            } else {
                *err_code = 0;
            }
        }
        if (!exchanged) return;
    }
}

}  // namespace

ORVEL_EXPORT(int32_t) sort_MDYs(int32_t* months, int32_t* days, int32_t* years, double* vals, int32_t count,
                                int32_t validate, uint32_t* err_code) {
    const auto dates_ok = [&](uint32_t* e) { return every_date_ok(months, days, years, count, e); };
    if (validate && !orvel::Check(err_code).step(dates_ok).ok()) return 0;
    bubble_sort({months, days, years}, count, err_code, [vals](int32_t i, int32_t j) { std::swap(vals[i], vals[j]); });
    return 1;
}

ORVEL_EXPORT(int32_t) sort2_MDYs(int32_t* months, int32_t* days, int32_t* years, double* vals, int32_t* ivals,
                                 int32_t count, int32_t validate, uint32_t* err_code) {
    const auto dates_ok = [&](uint32_t* e) { return every_date_ok(months, days, years, count, e); };
    if (validate && !orvel::Check(err_code).step(dates_ok).ok()) return 0;
    bubble_sort({months, days, years}, count, err_code, [vals, ivals](int32_t i, int32_t j) {
        std::swap(vals[i], vals[j]);
        std::swap(ivals[i], ivals[j]);
    });
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
    cal::Date at(int32_t i) const { return {m[i], d[i], y[i]}; }
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

void put(const Amounts& list, int32_t to, cal::Date date, double amount) {
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
        const cal::Date date = list.dates.at(i);
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
