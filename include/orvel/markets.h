/*
 * ORVEL market bond families and ex-dividend rules: each national market's conventions on the fixed-coupon engine.
 */
#ifndef ORVEL_MARKETS_H
#define ORVEL_MARKETS_H

#include "orvel/frame.h"

/* ---- Market families --------------------------------------------------------------------------------- */



/* ---- Ex-dividend dates ------------------------------------------------------------------------------- */



#endif /* ORVEL_MARKETS_H */
