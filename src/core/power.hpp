// x^y with the same bits on every platform: the library's own power function, built from basic IEEE
// arithmetic only (no fused multiply-add, no call into the C runtime's pow), so Linux and Windows, 32 and
// 64 bits, price a bond to the last bit alike. Within 1 ulp everywhere, and correctly rounded unless the
// exact value lies within about 2^-75 of a rounding boundary; x^k is exact whenever it is a double
// (10^k for 0 <= k <= 22, 2^k). Special values follow C's pow.
#pragma once

namespace orvel {

double pow(double x, double y) noexcept;

// Natural logarithm and exponential on the same kernels, so they too give the same bits everywhere
// (log: NaN below 0, -inf at 0; exp: +inf above 710, 0 below -746). Use these, not the C runtime's.
double log(double x) noexcept;
double exp(double x) noexcept;

// log(1 + x) and e^x - 1 within about an ulp, in plain double arithmetic on the same tables: not
// correctly rounded, but three times faster than pow and as platform-independent. For the inner loops of
// the rate solves, where (1 + i)^-n - 1 = expm1(-n log1p(i)) keeps its digits at the smallest rates.
// log1p: NaN below -1, -inf at -1; expm1: -1 below -40, +inf above 709.78.
double log1p(double x) noexcept;
double expm1(double x) noexcept;

}  // namespace orvel
