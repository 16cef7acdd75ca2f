#include <gtest/gtest.h>

#include <array>

#include "orvel/frame.h"

namespace {

constexpr int32_t _ = -1;  // a slot the market leaves to the caller

// The market conventions, one row per market, transcribed from the market-defaults table:
// day_type, eom, cpn_freq, odd_day_type, mkt_opt5, l1p_rule, mkt_opt7, mkt_opt8, mkt_opt9, mkt_opt10.
struct Market {
    int32_t code;
    std::array<int32_t, 10> slots;
};

const Market kMarkets[] = {
    {3, {10, 1, 2, _, _, _, _, _, _, _}},     // US municipal
    {4, {10, 1, 2, _, _, _, _, _, _, _}},     // US corporate
    {10, {1, 1, 2, _, _, _, _, _, _, _}},     // US Treasury
    {11, {1, 1, 2, _, _, _, _, _, _, _}},
    {12, {7, 1, _, _, _, _, _, _, _, _}},     // US bills
    {20, {2, 0, 2, _, _, _, _, _, _, _}},     // US agency
    {30, {10, 1, 2, _, _, _, _, _, _, _}},
    {40, {10, 1, 2, _, _, _, _, _, _, _}},
    {90, {5, 1, 2, _, _, 2, _, _, _, _}},     // Argentina
    {100, {1, 1, 2, 12, _, 2, _, _, _, _}},   // Australia (Commonwealth)
    {110, {5, 1, 1, _, _, 2, _, _, _, _}},
    {120, {5, 1, 1, _, 5, 1, _, _, _, _}},    // Belgium
    {140, {1, 1, 2, _, _, _, 8, _, _, _}},    // Canada
    {160, {5, 1, 1, _, _, _, _, _, _, _}},    // Denmark
    {170, {5, _, _, _, _, _, _, _, _, _}},    // Germany
    {171, {5, _, _, _, _, 1, _, _, _, _}},
    {180, {5, 1, 1, _, _, 2, _, _, _, _}},    // Finland
    {190, {1, 1, 1, _, _, 1, _, 0, _, _}},    // France
    {200, {5, 1, 1, _, _, _, _, _, _, _}},
    {230, {12, 0, 2, _, _, _, _, _, _, _}},   // Ireland
    {250, {12, 1, _, _, _, _, 5, 1, _, _}},   // Italy
    {260, {13, 1, 2, _, _, _, _, _, 2, _}},   // Japan
    {261, {13, 1, 1, _, _, _, _, _, 1, _}},
    {280, {5, 1, 2, _, _, _, _, _, _, _}},
    {290, {5, 1, 1, _, _, _, _, _, _, _}},
    {310, {1, 1, 2, _, _, 2, _, _, _, _}},    // New Zealand
    {360, {12, 1, _, _, _, _, 1, _, _, _}},   // Spain
    {370, {5, 1, 1, _, _, 2, _, _, _, _}},
    {380, {10, 1, 1, _, _, _, _, _, _, _}},   // Switzerland
    {410, {12, 0, 2, _, _, 1, _, _, _, _}},   // UK gilts, compound to the end
    {411, {12, 0, 2, _, _, 2, _, _, _, _}},   // UK gilts, simple in the last period
    {4260, {13, 1, 2, _, _, _, _, _, 1, 1}},  // Japan corporate
};

// The call every market family makes: ten slots, the absent word, four spares and err_code.
struct Call {
    std::array<int32_t, 10> slots;
    int32_t absent = 5555;
    std::array<int32_t, 4> spare{-9, -9, -9, -9};
    uint32_t err = 77;

    explicit Call(int32_t fill) { slots.fill(fill); }

    int32_t run(int32_t code, int32_t* absent_ptr) {
        int32_t* s = slots.data();
        return get_sec_dflt(code, &s[0], &s[1], &s[2], &s[3], &s[4], &s[5], &s[6], &s[7], &s[8], &s[9], absent_ptr,
                            &spare[0], &spare[1], &spare[2], &spare[3], &err);
    }
    int32_t run(int32_t code) { return run(code, &absent); }
};

TEST(MarketDefaults, EveryMarketEverySlot) {
    for (const Market& m : kMarkets) {
        SCOPED_TRACE(testing::Message() << "sec_type " << m.code);
        Call call(-1);
        EXPECT_EQ(call.run(m.code), m.code);
        EXPECT_EQ(call.slots, m.slots);
        EXPECT_EQ(call.err, 77u);
        EXPECT_EQ(call.absent, 5555);
        EXPECT_EQ(call.spare, (std::array<int32_t, 4>{-9, -9, -9, -9}));
    }
}

// A value other than -1 is the caller's override: 0 and any other number survive every market.
TEST(MarketDefaults, OverridesSurvive) {
    for (const Market& m : kMarkets) {
        for (int32_t kept : {0, 7, -2}) {
            SCOPED_TRACE(testing::Message() << "sec_type " << m.code << " slot value " << kept);
            Call call(kept);
            call.run(m.code);
            EXPECT_EQ(call.slots, (Call(kept).slots));
        }
    }
}

TEST(MarketDefaults, OneOverrideAmongDefaults) {
    Call call(-1);
    call.slots[2] = 0;  // the caller fixes cpn_freq at 0 for an Australian bond
    call.run(100);
    EXPECT_EQ(call.slots, (std::array<int32_t, 10>{1, 1, 0, 12, _, 2, _, _, _, _}));
}

TEST(MarketDefaults, GermanyFillsOnlyTheDayCount) {
    Call call(-1);
    call.run(170);
    EXPECT_EQ(call.slots, (std::array<int32_t, 10>{5, _, _, _, _, _, _, _, _, _}));
}

TEST(MarketDefaults, UnknownCodesChangeNothingAndReturnThemselves) {
    for (int32_t code : {999, 0, -1, 1, 2, 5, 13, 170000, INT32_MIN, INT32_MAX}) {
        bool known = false;
        for (const Market& m : kMarkets) known = known || m.code == code;
        if (known) continue;
        SCOPED_TRACE(code);
        Call call(-1);
        EXPECT_EQ(call.run(code), code);
        EXPECT_EQ(call.slots, Call(-1).slots);
        EXPECT_EQ(call.err, 77u);
    }
}

// Callers point the slots they do not want at one scratch word and pass its address as absent.
TEST(MarketDefaults, AbsentSlotsAreNeverWritten) {
    for (const Market& m : kMarkets) {
        SCOPED_TRACE(testing::Message() << "sec_type " << m.code);
        int32_t scratch = -1;
        int32_t day_type = -1, cpn_freq = -1, spare = -9;
        uint32_t err = 77;
        get_sec_dflt(m.code, &day_type, &scratch, &cpn_freq, &scratch, &scratch, &scratch, &scratch, &scratch,
                     &scratch, &scratch, &scratch, &spare, &spare, &spare, &spare, &err);
        EXPECT_EQ(scratch, -1);
        EXPECT_EQ(day_type, m.slots[0]);
        EXPECT_EQ(cpn_freq, m.slots[2]);
        EXPECT_EQ(err, 77u);
    }
}

TEST(MarketDefaults, EachSlotCanBeAbsentAlone) {
    const Market& australia = kMarkets[9];
    ASSERT_EQ(australia.code, 100);
    for (int slot = 0; slot < 10; ++slot) {
        SCOPED_TRACE(slot);
        Call call(-1);
        call.run(100, &call.slots[slot]);
        std::array<int32_t, 10> expected = australia.slots;
        expected[slot] = -1;
        EXPECT_EQ(call.slots, expected);
    }
}

}  // namespace
