/*
 * ORVEL discount securities: bills and other discount paper, their prices, discount rates, money-market and bond-equivalent yields.
 */
#ifndef ORVEL_MONEY_H
#define ORVEL_MONEY_H

#include "orvel/frame.h"

#endif /* ORVEL_MONEY_H */
