/* ORVEL calendar: MDY dates, day numbers, calendar arithmetic and day-count conventions. */
#ifndef ORVEL_CALENDAR_H
#define ORVEL_CALENDAR_H

#include "orvel/frame.h"

/* 1 when y is a leap year of the Gregorian calendar (divisible by 4 and not by 100, or by 400), else 0. */
ORVEL_EXPORT(int32_t) is_leap_year(int32_t y);

/* The last day of month m in year y (28..31); a month outside 1..12 comes back as it is. */
ORVEL_EXPORT(int32_t) last_dom(int32_t m, int32_t y);

/* 1 when d is the last day of month m of year y; 0 otherwise and for a month outside 1..12. */
ORVEL_EXPORT(int32_t) is_last_dom(int32_t m, int32_t d, int32_t y);

#endif /* ORVEL_CALENDAR_H */
