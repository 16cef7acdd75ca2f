/* ORVEL fixed-income analytics library: every public declaration. Include this one header. */
#ifndef ORVEL_H
#define ORVEL_H

#include "orvel/frame.h"
#include "orvel/conventions.h"
#include "orvel/calendar.h"
#include "orvel/schedule.h"
#include "orvel/bond.h"
#include "orvel/money.h"
#include "orvel/cashflow.h"
#include "orvel/perf.h"
#include "orvel/mortgage.h"
#include "orvel/markets.h"

#endif /* ORVEL_H */
