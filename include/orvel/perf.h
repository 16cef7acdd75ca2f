/*
 * ORVEL performance statistics: period returns and their linking, money-weighted returns, dispersion, risk-adjusted ratios, debt service and currency conversions.
 */
#ifndef ORVEL_PERF_H
#define ORVEL_PERF_H

#include "orvel/frame.h"

#endif /* ORVEL_PERF_H */
