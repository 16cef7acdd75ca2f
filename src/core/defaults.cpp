// The market conventions of each security type. The knowledge lives in the branches: one function per
// convention slot maps a market code to its default, or to kNone when that market sets no default there.
#include "core/defaults.hpp"

#include "orvel/frame.h"

namespace orvel {
namespace {

constexpr int32_t kNone = -1;

int32_t day_type_of(int32_t sec_type) {
    switch (sec_type) {
        case 10: case 11: case 100: case 140: case 190: case 310: return 1;  // actual/actual
        case 20: return 2;                                                     // 30/360 NASD
        case 90: case 110: case 120: case 160: case 170: case 171: case 180: case 200: case 280: case 290:
        case 370: return 5;                                                    // 30E/360
        case 12: return 7;                                                     // actual/360 bills
        case 3: case 4: case 30: case 40: case 380: return 10;                 // 30/360 SIA
        case 230: case 250: case 360: case 410: case 411: return 12;
        case 260: case 261: case 4260: return 13;
        default: return kNone;
    }
}

int32_t eom_of(int32_t sec_type) {
    switch (sec_type) {
        case 20: case 230: case 410: case 411: return 0;
        case 3: case 4: case 10: case 11: case 12: case 30: case 40: case 90: case 100: case 110: case 120:
        case 140: case 160: case 180: case 190: case 200: case 250: case 260: case 261: case 280: case 290:
        case 310: case 360: case 370: case 380: case 4260: return 1;
        default: return kNone;  // 170 and 171 leave the end-of-month rule to the caller
    }
}

int32_t cpn_freq_of(int32_t sec_type) {
    switch (sec_type) {
        case 110: case 120: case 160: case 180: case 190: case 200: case 261: case 290: case 370: case 380:
            return 1;
        case 3: case 4: case 10: case 11: case 20: case 30: case 40: case 90: case 100: case 140: case 230:
        case 260: case 280: case 310: case 410: case 411: case 4260: return 2;
        default: return kNone;  // bills, 170/171, and 250/360 whose frequency the caller must give
    }
}

int32_t odd_day_type_of(int32_t sec_type) { return sec_type == 100 ? 12 : kNone; }

int32_t mkt_opt5_of(int32_t sec_type) { return sec_type == 120 ? 5 : kNone; }

// 2: simple-interest kernels while settlement lies in the last period; 1: compound throughout.
int32_t l1p_rule_of(int32_t sec_type) {
    switch (sec_type) {
        case 120: case 171: case 190: case 410: return 1;
        case 90: case 100: case 110: case 180: case 310: case 370: case 411: return 2;
        default: return kNone;
    }
}

int32_t mkt_opt7_of(int32_t sec_type) {
    switch (sec_type) {
        case 140: return 8;
        case 250: return 5;
        case 360: return 1;
        default: return kNone;
    }
}

int32_t mkt_opt8_of(int32_t sec_type) {
    switch (sec_type) {
        case 190: return 0;
        case 250: return 1;
        default: return kNone;
    }
}

int32_t mkt_opt9_of(int32_t sec_type) {
    switch (sec_type) {
        case 260: return 2;
        case 261: case 4260: return 1;
        default: return kNone;
    }
}

int32_t mkt_opt10_of(int32_t sec_type) { return sec_type == 4260 ? 1 : kNone; }

// A slot is filled only when the caller wants it (not the absent word, not null) and left it at -1.
void fill(int32_t* slot, const int32_t* absent, int32_t value) {
    if (slot == nullptr || slot == absent || value == kNone || *slot != -1) return;
    *slot = value;
}

}  // namespace

void market_defaults(int32_t sec_type, const MarketSlots& s, const int32_t* absent) {
    fill(s.day_type, absent, day_type_of(sec_type));
    fill(s.eom, absent, eom_of(sec_type));
    fill(s.cpn_freq, absent, cpn_freq_of(sec_type));
    fill(s.odd_day_type, absent, odd_day_type_of(sec_type));
    fill(s.mkt_opt5, absent, mkt_opt5_of(sec_type));
    fill(s.l1p_rule, absent, l1p_rule_of(sec_type));
    fill(s.mkt_opt7, absent, mkt_opt7_of(sec_type));
    fill(s.mkt_opt8, absent, mkt_opt8_of(sec_type));
    fill(s.mkt_opt9, absent, mkt_opt9_of(sec_type));
    fill(s.mkt_opt10, absent, mkt_opt10_of(sec_type));
}

}  // namespace orvel

ORVEL_EXPORT(int32_t) get_sec_dflt(int32_t sec_type, int32_t* day_type, int32_t* eom, int32_t* cpn_freq,
                                   int32_t* odd_day_type, int32_t* mkt_opt5, int32_t* l1p_rule, int32_t* mkt_opt7,
                                   int32_t* mkt_opt8, int32_t* mkt_opt9, int32_t* mkt_opt10, int32_t* absent,
                                   int32_t* /*spare1*/, int32_t* /*spare2*/, int32_t* /*spare3*/,
                                   int32_t* /*spare4*/, uint32_t* /*err_code*/) {
    orvel::market_defaults(sec_type, {day_type, eom, cpn_freq, odd_day_type, mkt_opt5, l1p_rule, mkt_opt7, mkt_opt8,
                                      mkt_opt9, mkt_opt10},
                           absent);
    return sec_type;
}
