// The market conventions of each security type, as one constant table, for the export get_sec_dflt and for
// internal callers (market families, validators) that read a market's row or fill only the slots they want.
// A new market is one row of ORVEL_MARKET_TABLE (orvel/conventions.h), which names its code too.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "orvel/conventions.h"

namespace orvel {

// One market: its code, then the ten convention slots in get_sec_dflt's order.
struct MarketRow {
    int32_t code;
    int32_t day_type;      // day-count code for regular periods
    int32_t eom;           // end-of-month rule, 0 or 1
    int32_t cpn_freq;      // coupons a year
    int32_t odd_day_type;  // day count of periods out of step with maturity
    int32_t mkt_opt5;
    int32_t l1p_rule;      // 2: simple-interest kernels while settlement lies in the last period; 1: compound
    int32_t mkt_opt7;
    int32_t mkt_opt8;
    int32_t mkt_opt9;
    int32_t mkt_opt10;
};

namespace market_table {

inline constexpr int32_t none = -1;  // the market leaves the slot to the caller

// Ascending by code; the slots in get_sec_dflt's order: the rows of the named market codes.
#define ORVEL_MARKET_ROW_(name, code, day, eom, frq, odd, op5, l1p, op7, op8, op9, op10, market) \
    {code, day, eom, frq, odd, op5, l1p, op7, op8, op9, op10},
inline constexpr MarketRow rows[] = {ORVEL_MARKET_TABLE(ORVEL_MARKET_ROW_)};
#undef ORVEL_MARKET_ROW_

static_assert(std::adjacent_find(std::begin(rows), std::end(rows),
                                 [](const MarketRow& a, const MarketRow& b) { return a.code >= b.code; }) ==
                  std::end(rows),
              "market rows must be in strictly ascending order of code");

}  // namespace market_table

// The row of market `sec_type`, or null for a code without defaults.
constexpr const MarketRow* market_row(int32_t sec_type) {
    const MarketRow* row = std::lower_bound(std::begin(market_table::rows), std::end(market_table::rows), sec_type,
                                            [](const MarketRow& r, int32_t code) { return r.code < code; });
    return row != std::end(market_table::rows) && row->code == sec_type ? row : nullptr;
}

// The ten convention slots in get_sec_dflt's order; a null slot is not wanted.
struct MarketSlots {
    int32_t* day_type = nullptr;
    int32_t* eom = nullptr;
    int32_t* cpn_freq = nullptr;
    int32_t* odd_day_type = nullptr;
    int32_t* mkt_opt5 = nullptr;
    int32_t* l1p_rule = nullptr;
    int32_t* mkt_opt7 = nullptr;
    int32_t* mkt_opt8 = nullptr;
    int32_t* mkt_opt9 = nullptr;
    int32_t* mkt_opt10 = nullptr;
};

// Each wanted slot (not null, not `absent`) that holds -1 gets the market's default, when it has one.
void market_defaults(int32_t sec_type, const MarketSlots& slots, const int32_t* absent = nullptr);

}  // namespace orvel
