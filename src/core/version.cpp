#include "orvel/frame.h"

ORVEL_EXPORT(void) ZEBA_vers(int32_t* major, int32_t* minor, int32_t* rel_month, int32_t* rel_day,
                             int32_t* rel_year, int32_t*, int32_t*, int32_t*, int32_t*) {
    *major = 1;
    *minor = 32;
    *rel_month = 3;
    *rel_day = 19;
    *rel_year = 97;
}
