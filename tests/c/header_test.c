/* The public headers compiled as C, as a host includes them, and one call through the shared library. */
#include <stdio.h>

#include "orvel/orvel.h"

int main(void) {
    int32_t major = 0, minor = 0, m = 0, d = 0, y = 0, s1 = 0, s2 = 0, s3 = 0, s4 = 0;
    uint32_t err = 0;
    double r;
    ZEBA_vers(&major, &minor, &m, &d, &y, &s1, &s2, &s3, &s4);
    r = d_trunc_rnd(1.23456, 3, 1);
    (void)rslt_fix_plc(1, 2, r, &err);
    if (major != 1 || minor != 32 || m != 3 || d != 19 || y != 97 || (r - 1.235 > 1e-12 || 1.235 - r > 1e-12) || err != 0) {
        fprintf(stderr, "C host call gave %d.%d of %d/%d/%d, %.17g, err %u\n", major, minor, m, d, y, r,
                (unsigned)err);
        return 1;
    }
    return 0;
}
