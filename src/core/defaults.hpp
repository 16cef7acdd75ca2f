// The market-default table for internal callers: fill only the slots they want, without the scratch words
// and spare pointers of the exported get_sec_dflt.
#pragma once

#include <cstdint>

namespace orvel {

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
