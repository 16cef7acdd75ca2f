// The validation contract, driven by the sample calls: every double argument of a function with a
// validate flag, and of every validator, is checked. NaN, +inf and -inf in it fail the call (with validate
// = 1): an error number, result 0, and the failure is a validator's, not the arithmetic's (not 9020); a
// failing call leaves every output as the caller filled it and every io argument as it was given. The
// validators' own numbers for non-finite values are rows of tests/calls/frame_validators.calls.
#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <limits>
#include <string>
#include <string_view>

#include "orvel/frame.h"
#include "sample_workload.hpp"

namespace {

using orvel::exports::Kind;

constexpr double inf = std::numeric_limits<double>::infinity();

// The arguments other than `skip` that differ from what was passed in (outputs: from the fill, text: from
// zeros), by bits.
std::string changed_arguments(const orvel::callkit::PreparedCall& call, std::size_t skip) {
    const auto same_bits = [](double x, double y) {
        return std::bit_cast<uint64_t>(x) == std::bit_cast<uint64_t>(y);
    };
    std::string changed;
    for (std::size_t i = 0; i < call.args().size(); ++i) {
        const auto& v = call.args()[i];
        const bool same = v.ints == v.ints0 && std::equal(v.reals.begin(), v.reals.end(), v.reals0.begin(), same_bits);
        if (i != skip && !(same && std::all_of(v.text.begin(), v.text.end(), [](char c) { return c == '\0'; })))
            changed += std::string(" ") + call.entry().arg_list[i].name;
    }
    return changed;
}

TEST(ValidationContract, NonFiniteDoublesFailAndLeaveOutputs) {
    int checked = 0;
    for (orvel::reliability::SampleCall& s : orvel::reliability::parse_samples()) {
        const auto& e = s.call.entry();
        const int validate = orvel::reliability::arg_index(e, "validate");
        if (validate < 0 && !(std::string_view(e.name).substr(0, 3) == "ok_" && s.call.has_err())) continue;
        if (validate >= 0) s.call.args()[static_cast<std::size_t>(validate)].ints0[0] = 1;
        s.call.invoke();
        // A sample that fails as written is a boundary row of tests/calls: it checks its own number, and a
        // non-finite value in it may well be reported by an earlier check.
        if (s.call.failed()) continue;
        s.call.fill_outputs(-919191, -919191.25);
        for (std::size_t arg = 0; arg < s.call.args().size(); ++arg) {
            if (e.arg_list[arg].kind != Kind::F64 && e.arg_list[arg].kind != Kind::IoF64) continue;
            double& slot = s.call.args()[arg].reals0[0];
            const double kept = slot;
            for (double value : {std::numeric_limits<double>::quiet_NaN(), inf, -inf}) {
                SCOPED_TRACE(s.where + " with " + e.arg_list[arg].name + " = " + std::to_string(value));
                slot = value;
                s.call.invoke();
                ++checked;
                EXPECT_NE(s.call.err_code(), 0u) << "accepted";
                EXPECT_NE(s.call.err_code(), static_cast<uint32_t>(ORVEL_E_SOLVER)) << "reached the solver";
                EXPECT_EQ(s.call.result_i32(), 0);
                EXPECT_EQ(s.call.result_f64(), 0.0);
                EXPECT_EQ(changed_arguments(s.call, arg), "") << "written by a failing call";
            }
            slot = kept;
        }
    }
    RecordProperty("calls", checked);
}

}  // namespace
