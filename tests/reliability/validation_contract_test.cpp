// The validation contract, driven by the sample calls: every double argument of a function with a
// validate flag, and of every validator, is checked. NaN, +inf and -inf in it fail the call (with validate
// = 1): an error number, result 0, and the failure is a validator's, not the arithmetic's (not 9020); a
// failing call leaves every output as the caller filled it and every io argument as it was given. The
// validators' own numbers for non-finite values are rows of tests/calls/frame_validators.calls.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <string_view>

#include "orvel/frame.h"
#include "sample_workload.hpp"

namespace {

using orvel::exports::Kind;
using orvel::reliability::arg_index;
using orvel::reliability::SampleCall;

constexpr double non_finite[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                                 -std::numeric_limits<double>::infinity()};
constexpr int32_t sentinel_i32 = -919191;
constexpr double sentinel_f64 = -919191.25;

bool same_bits(const std::vector<double>& a, const std::vector<double>& b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0);
}

bool is_output(Kind k) {
    return k == Kind::OutI32 || k == Kind::OutF64 || k == Kind::OutDate || k == Kind::OutArrI32 ||
           k == Kind::OutArrF64 || k == Kind::OutChr;
}

// Every output still holds the sentinel, every io argument what was passed in; the names of the others.
std::string changed_arguments(const SampleCall& s) {
    std::string changed;
    for (std::size_t i = 0; i < s.call.args().size(); ++i) {
        const auto& arg = s.call.entry().arg_list[i];
        const auto& v = s.call.args()[i];
        bool same = true;
        if (arg.kind == Kind::OutChr) {
            for (char c : v.text) same = same && c == '\0';
        } else if (is_output(arg.kind) || orvel::exports::is_array(arg.kind) || arg.kind == Kind::IoI32 ||
                   arg.kind == Kind::IoF64 || arg.kind == Kind::IoDate) {
            same = v.ints == v.ints0 && same_bits(v.reals, v.reals0);
        }
        if (!same) changed += std::string(" ") + arg.name;
    }
    return changed;
}

// The f64 arguments that a validated call must check (by value or in and out).
std::vector<int> double_arguments(const orvel::exports::ExportSpec& e) {
    std::vector<int> found;
    for (int i = 0; i < e.arg_count; ++i)
        if (e.arg_list[i].kind == Kind::F64 || e.arg_list[i].kind == Kind::IoF64) found.push_back(i);
    return found;
}

// Calls the sample with one double replaced; returns the number it wrote (0 for none).
uint32_t call_with(SampleCall& s, int arg, double value) {
    auto& slot = s.call.args()[static_cast<std::size_t>(arg)].reals0[0];
    const double kept = slot;
    slot = value;
    s.call.err_before = 0;
    s.call.invoke();
    slot = kept;
    return s.call.err_code();
}

// A sample that fails as written is a boundary row of tests/calls: it checks its own number, and a
// non-finite value in it may well be reported by an earlier check.
bool fails_as_written(SampleCall& s) {
    s.call.err_before = 0;
    s.call.invoke();
    return s.call.failed();
}

std::string describe(const SampleCall& s, int arg, double value) {
    return s.where + ": " + s.text + " with " + s.call.entry().arg_list[arg].name + " = " + std::to_string(value);
}

TEST(ValidationContract, NonFiniteDoublesFailAndLeaveOutputs) {
    int checked = 0;
    for (SampleCall& s : orvel::reliability::parse_samples()) {
        const int validate = arg_index(s.call.entry(), "validate");
        const bool validator = std::string_view(s.call.entry().name).substr(0, 3) == "ok_" && s.call.has_err();
        if (validate < 0 && !validator) continue;
        if (validate >= 0) s.call.args()[static_cast<std::size_t>(validate)].ints0[0] = 1;
        if (fails_as_written(s)) continue;
        s.call.fill_outputs(sentinel_i32, sentinel_f64);
        for (int arg : double_arguments(s.call.entry())) {
            for (double value : non_finite) {
                SCOPED_TRACE(describe(s, arg, value));
                const uint32_t err = call_with(s, arg, value);
                ++checked;
                EXPECT_NE(err, 0u) << "accepted";
                EXPECT_NE(err, static_cast<uint32_t>(ORVEL_E_SOLVER)) << "reached the solver";
                EXPECT_EQ(s.call.result_i32(), 0);
                EXPECT_EQ(s.call.result_f64(), 0.0);
                EXPECT_EQ(changed_arguments(s), "") << "written by a failing call";
            }
        }
    }
    RecordProperty("calls", checked);
}

}  // namespace
