#include "sample_workload.hpp"

#include <gtest/gtest.h>

#include <cstring>

#include "samples.hpp"

namespace orvel::reliability {

namespace {

template <class T>
void append(std::vector<unsigned char>& out, const T* values, std::size_t n) {
    const auto* bytes = reinterpret_cast<const unsigned char*>(values);
    out.insert(out.end(), bytes, bytes + n * sizeof(T));
}

}  // namespace

std::vector<SampleCall> parse_samples() {
    std::vector<SampleCall> samples;
    for (const testkit::Sample& s : testkit::read_samples(testkit::samples_folder())) {
        SampleCall sample{s.file + ":" + std::to_string(s.line), s.text, {}};
        std::string error;
        if (callkit::parse_line(s.text, sample.call, error))
            samples.push_back(std::move(sample));
        else
            ADD_FAILURE() << sample.where << ": " << s.text << ": " << error;
    }
    return samples;
}

int arg_index(const exports::ExportSpec& e, const char* name) {
    for (int i = 0; i < e.arg_count; ++i)
        if (std::strcmp(e.arg_list[i].name, name) == 0) return i;
    return -1;
}

std::vector<unsigned char> fingerprint(const callkit::PreparedCall& call) {
    std::vector<unsigned char> out;
    const int32_t ret_i = call.result_i32();
    const double ret_f = call.result_f64();
    const uint32_t err = call.err_code();
    append(out, &ret_i, 1);
    append(out, &ret_f, 1);
    append(out, &err, 1);
    for (const callkit::ArgValue& v : call.args()) {
        append(out, v.ints.data(), v.ints.size());
        append(out, v.reals.data(), v.reals.size());
        append(out, v.text.data(), v.text.size());
    }
    return out;
}

}  // namespace orvel::reliability
