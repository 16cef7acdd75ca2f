// The sample calls (tests/calls/*.calls) as a workload: every line parsed once into a call that can be
// invoked again and again, and the means to compare what two invocations produced.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "call_syntax.hpp"
#include "samples.hpp"

namespace orvel::reliability {

struct SampleCall {
    std::string where;  // file:line: call
    callkit::PreparedCall call;
};

// Every sample line, parsed; a line that does not parse is a test failure and left out.
inline std::vector<SampleCall> parse_samples() {
    std::vector<SampleCall> samples;
    for (const testkit::Sample& s : testkit::read_samples(testkit::samples_folder())) {
        SampleCall sample{s.file + ":" + std::to_string(s.line) + ": " + s.text, {}};
        std::string error;
        if (callkit::parse_line(s.text, sample.call, error))
            samples.push_back(std::move(sample));
        else
            ADD_FAILURE() << sample.where << ": " << error;
    }
    return samples;
}

// Index of the argument of that name, -1 when the export has none.
inline int arg_index(const exports::ExportSpec& e, const char* name) {
    for (int i = 0; i < e.arg_count; ++i)
        if (std::strcmp(e.arg_list[i].name, name) == 0) return i;
    return -1;
}

// Everything a call produced, as bytes: the result, err_code and the content of every argument after the
// call (doubles by their bits, so NaN equals NaN and 0.0 differs from -0.0).
inline std::vector<unsigned char> fingerprint(const callkit::PreparedCall& call) {
    std::vector<unsigned char> out;
    const auto append = [&out](const void* p, std::size_t n) {
        const auto* bytes = static_cast<const unsigned char*>(p);
        if (n > 0) out.insert(out.end(), bytes, bytes + n);
    };
    const int32_t ret_i = call.result_i32();
    const double ret_f = call.result_f64();
    const uint32_t err = call.err_code();
    append(&ret_i, sizeof ret_i);
    append(&ret_f, sizeof ret_f);
    append(&err, sizeof err);
    for (const callkit::ArgValue& v : call.args()) {
        append(v.ints.data(), v.ints.size() * sizeof(int32_t));
        append(v.reals.data(), v.reals.size() * sizeof(double));
        append(v.text.data(), v.text.size());
    }
    return out;
}

}  // namespace orvel::reliability
