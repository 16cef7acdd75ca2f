/*
 * ORVEL mortgages and pass-throughs: level and graduated payments, balances, prepayment speeds, pass-through cash flows, price, yield and risk.
 */
#ifndef ORVEL_MORTGAGE_H
#define ORVEL_MORTGAGE_H

#include "orvel/frame.h"

#endif /* ORVEL_MORTGAGE_H */
