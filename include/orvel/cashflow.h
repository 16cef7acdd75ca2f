/*
 * ORVEL time value of money and cash-flow sets: annuities, present and future values, amortization tables, price, yield and risk of dated or timed cash flows.
 */
#ifndef ORVEL_CASHFLOW_H
#define ORVEL_CASHFLOW_H

#include "orvel/frame.h"

/* ---- Time value of money ----------------------------------------------------------------------------- */



/* ---- Cash-flow sets ---------------------------------------------------------------------------------- */



#endif /* ORVEL_CASHFLOW_H */
