// The market conventions of each security type, as one constant table, for the export get_sec_dflt and for
// internal callers (market families, validators) that read a market's row or fill only the slots they want.
// A new market is one row here.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>

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

// Ascending by code; the slots in get_sec_dflt's order.
inline constexpr MarketRow rows[] = {
    // code day   eom   frq   odd   op5   l1p   op7   op8   op9  op10
    {   3,   10,    1,    2, none, none, none, none, none, none, none},  // US municipals (usmb py_ai, risk, ...)
    {   4,   10,    1,    2, none, none, none, none, none, none, none},  // US corporates (uscb py_ai, risk)
    {  10,    1,    1,    2, none, none, none, none, none, none, none},  // US Treasuries (ustb, usti, ok_uspm_type)
    {  11,    1,    1,    2, none, none, none, none, none, none, none},  // US Treasury, no family passes it
    {  12,    7,    1, none, none, none, none, none, none, none, none},  // US Treasury bills (usbl)
    {  20,    2,    0,    2, none, none, none, none, none, none, none},  // US agency bonds (usab, usam, usas)
    {  30,   10,    1,    2, none, none, none, none, none, none, none},  // US municipals (usmb, usmm, usms)
    {  40,   10,    1,    2, none, none, none, none, none, none, none},  // US corporates (uscb, uscm, uscs)
    {  90,    5,    1,    2, none, none,    2, none, none, none, none},  // Argentine government bonds (argb)
    { 100,    1,    1,    2,   12, none,    2, none, none, none, none},  // Australian Commonwealth bonds (acgb)
    { 110,    5,    1,    1, none, none,    2, none, none, none, none},  // Austrian government bonds (augb)
    { 120,    5,    1,    1, none,    5,    1, none, none, none, none},  // Belgian government bonds (blgb)
    { 140,    1,    1,    2, none, none, none,    8, none, none, none},  // Canadian government bonds (cngb)
    { 160,    5,    1,    1, none, none, none, none, none, none, none},  // Danish government bonds (dngb)
    { 170,    5, none, none, none, none, none, none, none, none, none},  // German bunds (gmgb, gmbf, gmms, gmis_exd)
    { 171,    5, none, none, none, none,    1, none, none, none, none},  // German bunds, compound to the end (gmis)
    { 180,    5,    1,    1, none, none,    2, none, none, none, none},  // Finnish government bonds (fngb)
    { 190,    1,    1,    1, none, none,    1, none,    0, none, none},  // French government bonds (frgb)
    { 200,    5,    1,    1, none, none, none, none, none, none, none},  // Greek government bonds (grgb)
    { 230,   12,    0,    2, none, none, none, none, none, none, none},  // Irish government bonds (irgb)
    { 250,   12,    1, none, none, none, none,    5,    1, none, none},  // Italian BTPs and floaters (itgb, itgf)
    { 260,   13,    1,    2, none, none, none, none, none,    2, none},  // Japanese government bonds (jpgb)
    { 261,   13,    1,    1, none, none, none, none, none,    1, none},  // Japanese discount bonds (jpdb)
    { 280,    5,    1,    2, none, none, none, none, none, none, none},  // Mexican government bonds (mxgb)
    { 290,    5,    1,    1, none, none, none, none, none, none, none},  // Dutch state loans (dusl)
    { 310,    1,    1,    2, none, none,    2, none, none, none, none},  // New Zealand government bonds (nzgb)
    { 360,   12,    1, none, none, none, none,    1, none, none, none},  // Spanish government bonds (spgb)
    { 370,    5,    1,    1, none, none,    2, none, none, none, none},  // Swedish government bonds (sdgb)
    { 380,   10,    1,    1, none, none, none, none, none, none, none},  // Swiss government bonds (swgb)
    { 410,   12,    0,    2, none, none,    1, none, none, none, none},  // UK gilts, compound throughout
    { 411,   12,    0,    2, none, none,    2, none, none, none, none},  // UK gilts, simple in the last period
    {4260,   13,    1,    2, none, none, none, none, none,    1,    1},  // Japanese corporate bonds (jpcb)
};

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
