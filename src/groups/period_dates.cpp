// per_pcd and per_ncd: the previous or next coupon date of a schedule with optional odd periods, found
// only after the whole multi-rate date group has been checked (they always check it), so they sit with
// the date groups rather than in the schedule below them.
#include "groups/dates.hpp"
#include "schedule/odd_periods.hpp"

namespace {

using orvel::Date;
using orvel::schedule::OddSchedule;

// The multi-rate date group, run on copies: its defaults for blank dates apply to this call only.
bool checked_schedule(Date settle, OddSchedule& s, int32_t day_type, uint32_t* err_code) {
    return ok_mtrm_MDYs(settle.m, settle.d, settle.y, s.mat.m, s.mat.d, s.mat.y, &s.dated.m, &s.dated.d,
                        &s.dated.y, &s.first_cpn.m, &s.first_cpn.d, &s.first_cpn.y, &s.last_cpn.m, &s.last_cpn.d,
                        &s.last_cpn.y, day_type, s.eom, s.cpn_freq, err_code) != 0;
}

// The date group checked, then one of the two dates of settle's period written out.
void period_date(bool previous, Date settle, OddSchedule s, int32_t day_type, int32_t* m, int32_t* d, int32_t* y,
                 uint32_t* err_code) {
    if (!checked_schedule(settle, s, day_type, err_code)) return;
    const auto b = orvel::schedule::odd_period_of(settle, s);
    orvel::store(previous ? b.pcd : b.ncd, m, d, y);
}

}  // namespace

ORVEL_EXPORT(void) per_pcd(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                           int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m,
                           int32_t first_d, int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y,
                           int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t* pcd_m, int32_t* pcd_d,
                           int32_t* pcd_y, int32_t /*validate: the date group is always checked*/,
                           uint32_t* err_code) {
    period_date(true, {settle_m, settle_d, settle_y},
                {{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_m, first_d, first_y},
                 {last_m, last_d, last_y}, eom, cpn_freq},
                day_type, pcd_m, pcd_d, pcd_y, err_code);
}

ORVEL_EXPORT(void) per_ncd(int32_t settle_m, int32_t settle_d, int32_t settle_y, int32_t mat_m, int32_t mat_d,
                           int32_t mat_y, int32_t dated_m, int32_t dated_d, int32_t dated_y, int32_t first_m,
                           int32_t first_d, int32_t first_y, int32_t last_m, int32_t last_d, int32_t last_y,
                           int32_t day_type, int32_t eom, int32_t cpn_freq, int32_t* ncd_m, int32_t* ncd_d,
                           int32_t* ncd_y, int32_t /*validate: the date group is always checked*/,
                           uint32_t* err_code) {
    period_date(false, {settle_m, settle_d, settle_y},
                {{mat_m, mat_d, mat_y}, {dated_m, dated_d, dated_y}, {first_m, first_d, first_y},
                 {last_m, last_d, last_y}, eom, cpn_freq},
                day_type, ncd_m, ncd_d, ncd_y, err_code);
}
