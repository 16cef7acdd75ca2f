/* ORVEL calendar: MDY dates, day numbers, calendar arithmetic and day-count conventions. */
#ifndef ORVEL_CALENDAR_H
#define ORVEL_CALENDAR_H

#include "orvel/frame.h"

#endif /* ORVEL_CALENDAR_H */
