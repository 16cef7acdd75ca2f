// The sample calls (tests/calls/*.calls) as a workload: every line parsed once into a call that can be
// invoked again and again, and the means to compare what two invocations produced.
#pragma once

#include <string>
#include <vector>

#include "call_syntax.hpp"

namespace orvel::reliability {

struct SampleCall {
    std::string where;  // file:line
    std::string text;
    callkit::PreparedCall call;
};

// Every sample line, parsed; a line that does not parse is reported as a test failure and left out.
std::vector<SampleCall> parse_samples();

// Index of the argument of that name, -1 when the export has none.
int arg_index(const exports::ExportSpec& e, const char* name);

// Everything a call produced, as bytes: the result, err_code and the content of every argument after the
// call (doubles by their bits, so NaN equals NaN and 0.0 differs from -0.0).
std::vector<unsigned char> fingerprint(const callkit::PreparedCall& call);

}  // namespace orvel::reliability
