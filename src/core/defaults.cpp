// The export get_sec_dflt and the internal market_defaults over the one market table (core/defaults.hpp).
#include "core/defaults.hpp"

#include "orvel/frame.h"

namespace orvel {
namespace {

// A slot is filled only when the caller wants it (not the absent word, not null) and left it at -1.
void fill(int32_t* slot, const int32_t* absent, int32_t value) {
    if (slot == nullptr || slot == absent || value == market_table::none || *slot != -1) return;
    *slot = value;
}

}  // namespace

void market_defaults(int32_t sec_type, const MarketSlots& s, const int32_t* absent) {
    const MarketRow* row = market_row(sec_type);
    if (row == nullptr) return;  // an unknown code leaves every slot as it was
    fill(s.day_type, absent, row->day_type);
    fill(s.eom, absent, row->eom);
    fill(s.cpn_freq, absent, row->cpn_freq);
    fill(s.odd_day_type, absent, row->odd_day_type);
    fill(s.mkt_opt5, absent, row->mkt_opt5);
    fill(s.l1p_rule, absent, row->l1p_rule);
    fill(s.mkt_opt7, absent, row->mkt_opt7);
    fill(s.mkt_opt8, absent, row->mkt_opt8);
    fill(s.mkt_opt9, absent, row->mkt_opt9);
    fill(s.mkt_opt10, absent, row->mkt_opt10);
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
