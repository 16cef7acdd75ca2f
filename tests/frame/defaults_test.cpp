// get_sec_dflt with one slot pointed at the absent word: that slot is never written, whichever it is, and
// the others still take the market's defaults. The defaults of the markets are rows of tests/calls.
#include <gtest/gtest.h>

#include <array>

#include "orvel/frame.h"

namespace {

using Slots = std::array<int32_t, 10>;  // day_type, eom, cpn_freq, odd_day_type, mkt_opt5, l1p_rule, opt7..opt10

// Market 100's slots filled from -1, with slot `absent_slot` (-1: none) pointed at the absent word.
Slots defaults_of_100(int absent_slot) {
    Slots s{-1, -1, -1, -1, -1, -1, -1, -1, -1, -1};
    int32_t absent = 5555, spare = -9;
    uint32_t err = 77;
    EXPECT_EQ(get_sec_dflt(100, &s[0], &s[1], &s[2], &s[3], &s[4], &s[5], &s[6], &s[7], &s[8], &s[9],
                           absent_slot < 0 ? &absent : &s[absent_slot], &spare, &spare, &spare, &spare, &err), 100);
    EXPECT_TRUE(err == 77 && spare == -9 && absent == 5555);
    return s;
}

TEST(MarketDefaults, EachSlotCanBeAbsentAlone) {
    const Slots all = defaults_of_100(-1);
    EXPECT_EQ(all, (Slots{1, 1, 2, 12, -1, 2, -1, -1, -1, -1}));  // as the row of tests/calls
    for (int slot = 0; slot < 10; ++slot) {
        Slots expected = all;
        expected[slot] = -1;
        EXPECT_EQ(defaults_of_100(slot), expected) << "slot " << slot;
    }
}

}  // namespace
