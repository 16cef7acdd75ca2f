// d_trunc_rnd for internal callers: num cut (rnd false) or rounded half away from zero (rnd true) to
// `places` decimals of its fractional part.
#pragma once

#include <cstdint>

namespace orvel {

double trunc_round(double num, int32_t places, bool rnd);

}  // namespace orvel
