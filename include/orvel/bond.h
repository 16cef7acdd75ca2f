/* ORVEL fixed-coupon bond engine: accrued interest, price and yield, cash flows and risk measures. */
#ifndef ORVEL_BOND_H
#define ORVEL_BOND_H

#include "orvel/frame.h"

#endif /* ORVEL_BOND_H */
