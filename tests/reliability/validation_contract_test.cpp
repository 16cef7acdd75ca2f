// The validation contract, driven by the sample calls:
//  - every double argument of a function with a validate flag is checked: NaN, +inf and -inf in it fail the
//    call with validate = 1 (an error number, result 0), and the failure is a validator's, not the
//    arithmetic's (not 9020);
//  - a failing call leaves every output as the caller filled it and every io argument as it was given;
//  - a validator's own double arguments reject NaN, +inf and -inf with the validator's number.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <set>
#include <string>
#include <string_view>

#include "orvel/frame.h"
#include "sample_workload.hpp"

namespace {

using orvel::exports::Kind;
using orvel::reliability::arg_index;
using orvel::reliability::SampleCall;

constexpr double nan_value = std::numeric_limits<double>::quiet_NaN();
constexpr double inf_value = std::numeric_limits<double>::infinity();
constexpr double non_finite[] = {nan_value, inf_value, -inf_value};

constexpr int32_t sentinel_i32 = -919191;
constexpr double sentinel_f64 = -919191.25;

// Exports documented to write an output before a later check can fail: their outputs are not required to
// hold the caller's content after a failure.
const std::set<std::string_view> writes_before_failing = {
};

// A validator's number for a non-finite value of one of its double arguments: NaN, -inf, +inf.
// 0 stands for 4000 + the sample's given_type (the given-value checks number their failures by the kind).
struct ValidatorRow {
    const char* validator;
    const char* argument;
    uint32_t nan, minus_inf, plus_inf;
};
constexpr ValidatorRow validator_numbers[] = {
    {"ok_cpn_rate", "cpn_rate", 4100, 4100, 4100},
    {"ok_tax_rate", "rate", 4300, 4300, 4300},
    {"ok_redemptn", "redemptn", 4200, 4200, 4200},
    {"ok_conv_rate", "rate", 7100, 7100, 7100},
    {"ok_lcpn_len", "length", 4410, 4410, 4410},
    {"ok_mbs_bal", "balance", 13100, 13100, 13100},
    {"ok_ai", "ai", 4500, 4500, 4500},
    {"ok_days_pcnt", "value", 4400, 4400, 4400},
    {"ok_mbs_fctr", "factor", 13200, 13200, 13200},
    {"ok_rt_balinc", "rate", 6800, 6800, 6800},
    {"ok_rt_pmtinc", "rate", 11501, 11501, 11501},
    {"ok_sf_amt", "amount", 5100, 5100, 5100},
    // the fee is checked against 0 first, then against its bound
    {"ok_srvc_fee", "fee", 6201, 6201, 6202},
    {"ok_srvc_fee", "bound", 6202, 6202, 6202},
    {"ok_given", "value", 0, 0, 0},
    {"ok_given_ps", "value", 0, 0, 0},
    {"ok_infl_gvn", "value", 0, 0, 0},
};

const ValidatorRow* find_row(std::string_view validator, std::string_view argument) {
    for (const ValidatorRow& row : validator_numbers)
        if (validator == row.validator && argument == row.argument) return &row;
    return nullptr;
}

uint32_t expected_number(const ValidatorRow& row, double value, const SampleCall& s) {
    const uint32_t number = std::isnan(value) ? row.nan : value < 0 ? row.minus_inf : row.plus_inf;
    if (number != 0) return number;
    const int kind = arg_index(s.call.entry(), "given_type");
    return ORVEL_E_GIVEN_BASE + static_cast<uint32_t>(s.call.args()[static_cast<std::size_t>(kind)].ints0[0]);
}

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

TEST(ValidationContract, ValidatedCallsRejectNonFiniteDoublesAndKeepOutputs) {
    int checked = 0;
    for (SampleCall& s : orvel::reliability::parse_samples()) {
        const int validate = arg_index(s.call.entry(), "validate");
        if (validate < 0) continue;
        s.call.args()[static_cast<std::size_t>(validate)].ints0[0] = 1;
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
                if (writes_before_failing.count(s.call.entry().name) == 0) {
                    EXPECT_EQ(changed_arguments(s), "") << "written by a failing call";
                }
            }
        }
    }
    RecordProperty("calls", checked);
}

TEST(ValidationContract, ValidatorsRejectNonFiniteWithTheirNumber) {
    for (SampleCall& s : orvel::reliability::parse_samples()) {
        const std::string_view name = s.call.entry().name;
        if (name.substr(0, 3) != "ok_" || !s.call.has_err() || fails_as_written(s)) continue;
        for (int arg : double_arguments(s.call.entry())) {
            const ValidatorRow* row = find_row(name, s.call.entry().arg_list[arg].name);
            for (double value : non_finite) {
                SCOPED_TRACE(describe(s, arg, value));
                const uint32_t err = call_with(s, arg, value);
                EXPECT_EQ(s.call.result_i32(), 0) << "accepted";
                if (row != nullptr) {
                    EXPECT_EQ(err, expected_number(*row, value, s));
                } else {
                    EXPECT_NE(err, 0u);
                }
            }
        }
    }
}

// err_code is written on failure only: a sample of the frame and calendar exports that succeeds leaves what
// the caller put there, but for the clean-ups that write 0 (an accepted holiday table, a date group that
// supplied a default over its own probe's 1500, the sorts; see ErrCode.SuccessLeavesItAloneButForTheCleanUps).
// An engine that runs a date group on the caller's err_code passes its clean-up on, so the others are left out.
TEST(ValidationContract, SuccessLeavesErrCodeAsTheCallerSetIt) {
    const std::set<std::string_view> clean_ups = {
        "ok_hol_table", "sort_MDYs",    "sort2_MDYs",   "ok_bond_MDYs", "ok_jpgb_MDYs", "ok_auct_MDYs",
        "ok_mtrm_MDYs", "ok_ofsl_MDYs", "ok_stpd_MDYs", "ok_stpd_d_ol", "ok_jpgb_d_ol",
    };
    for (SampleCall& s : orvel::reliability::parse_samples()) {
        const std::string_view section = s.call.entry().section;
        if ((section != "frame" && section != "calendar") || !s.call.has_err() || fails_as_written(s)) continue;
        s.call.err_before = 77;
        s.call.invoke();
        const uint32_t err = s.call.err_code();
        EXPECT_TRUE(err == 77 || (err == 0 && clean_ups.count(s.call.entry().name) != 0))
            << s.where << ": " << s.text << " left " << err;
    }
}

// A row that names no argument of its validator would silently test nothing.
TEST(ValidationContract, EveryValidatorRowNamesADoubleArgument) {
    for (const ValidatorRow& row : validator_numbers) {
        const auto* e = orvel::exports::find(row.validator);
        if (e == nullptr) continue;  // not built yet
        const int arg = arg_index(*e, row.argument);
        EXPECT_TRUE(arg >= 0 && e->arg_list[arg].kind == Kind::F64) << row.validator << " " << row.argument;
    }
}

}  // namespace
