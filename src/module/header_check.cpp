// Compile-time check that every public declaration has exactly the signature of the export list.
#include <type_traits>

#include "orvel/orvel.h"

#include "header_check.inc"
