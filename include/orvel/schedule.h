/* ORVEL coupon schedules: previous and next coupon dates, numbers of periods, days accrued and remaining. */
#ifndef ORVEL_SCHEDULE_H
#define ORVEL_SCHEDULE_H

#include "orvel/frame.h"

#endif /* ORVEL_SCHEDULE_H */
