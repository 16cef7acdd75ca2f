#include <gtest/gtest.h>

#include <array>
#include <climits>

#include "core/defaults.hpp"
#include "orvel/frame.h"

namespace {

constexpr int32_t _ = -1;  // a slot the market leaves to the caller
using Slots = std::array<int32_t, 10>;  // day_type, eom, cpn_freq, odd_day_type, mkt_opt5, l1p_rule, opt7..opt10

// get_sec_dflt as every market family calls it; `absent_slot` (0..9) points that slot at the absent word.
Slots defaults(int32_t code, Slots s = {_, _, _, _, _, _, _, _, _, _}, int absent_slot = -1) {
    int32_t absent = 5555, spare = -9;
    uint32_t err = 77;
    const int32_t got = get_sec_dflt(code, &s[0], &s[1], &s[2], &s[3], &s[4], &s[5], &s[6], &s[7], &s[8], &s[9],
                                     absent_slot < 0 ? &absent : &s[absent_slot], &spare, &spare, &spare, &spare, &err);
    EXPECT_TRUE(got == code && err == 77 && spare == -9) << code << " gave " << got << ", err_code " << err;
    return s;
}

// The slot-by-slot plumbing of the export against the table it reads, over every code a caller may pass.
TEST(MarketDefaults, ExportFillsExactlyTheRowOfEveryCode) {
    int known = 0;
    auto check = [&](int32_t code) {
        const orvel::MarketRow* row = orvel::market_row(code);
        known += row != nullptr;
        const Slots expected = row ? Slots{row->day_type, row->eom, row->cpn_freq, row->odd_day_type, row->mkt_opt5,
                                           row->l1p_rule, row->mkt_opt7, row->mkt_opt8, row->mkt_opt9, row->mkt_opt10}
                                   : Slots{_, _, _, _, _, _, _, _, _, _};
        EXPECT_EQ(defaults(code), expected) << "sec_type " << code;
    };
    for (int32_t code = -10; code <= 5000; ++code) check(code);
    for (int32_t code : {INT32_MIN, INT32_MAX}) check(code);
    EXPECT_EQ(known, 32);  // the markets of the defaults table in frame.h
}

// A slot pointed at the absent word is never written, whichever it is; the others still are.
TEST(MarketDefaults, EachSlotCanBeAbsentAlone) {
    for (int slot = 0; slot < 10; ++slot) {
        Slots expected = defaults(100);
        expected[slot] = _;
        EXPECT_EQ(defaults(100, {_, _, _, _, _, _, _, _, _, _}, slot), expected) << "slot " << slot;
    }
}

}  // namespace
