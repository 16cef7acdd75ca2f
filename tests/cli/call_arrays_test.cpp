// Arrays, counts, capacities and 1-based tables in the call syntax, on exports made up here so that every
// combination the export list allows is covered whatever the library holds today. (Dates in, io and out
// are rows of tests/calls.)
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "call_syntax.hpp"

namespace {

namespace ck = orvel::callkit;
using orvel::exports::ArgSpec;
using orvel::exports::ExportSpec;
using orvel::exports::Frame;
using orvel::exports::Kind;
using orvel::exports::Result;

// pair_sum(n, a:f64[n], b:i32[n], out:out_f64[n], err): out[k] = a[k] + b[k]; returns n; err 1 when n is 0.
constexpr ArgSpec pair_sum_args[] = {
    {"n", Kind::I32, 0, -1, 0},          {"a", Kind::ArrF64, 1, 0, 0}, {"b", Kind::ArrI32, 2, 0, 0},
    {"out", Kind::OutArrF64, 3, 0, 0},   {"err", Kind::Err, 4, -1, 0},
};
void pair_sum(Frame& f) {
    const auto* a = static_cast<const double*>(f.p[1]);
    const auto* b = static_cast<const int32_t*>(f.p[2]);
    auto* out = static_cast<double*>(f.p[3]);
    for (int32_t k = 0; k < f.i[0]; ++k) out[k] = a[k] + b[k];
    if (f.i[0] == 0) *static_cast<uint32_t*>(f.p[4]) = 1;
    f.ret_i = f.i[0];
}
constexpr ExportSpec pair_sum_spec = {"pair_sum", "test", Result::I32, pair_sum_args, 5, 5, 20, &pair_sum};

// table(cap, tbl:out_f64[cap+1], m, rates:io_f64[m+1]): 1-based tables; tbl[k] = k for k = 1..cap, element 0
// left alone; rates[k] doubled for k = 1..m; returns rates[0], which the caller passes as 0.
constexpr ArgSpec table_args[] = {
    {"cap", Kind::I32, 0, -1, 0}, {"tbl", Kind::OutArrF64, 1, 0, 1}, {"m", Kind::I32, 2, -1, 0},
    {"rates", Kind::IoArrF64, 3, 2, 1},
};
void table(Frame& f) {
    auto* tbl = static_cast<double*>(f.p[1]);
    auto* rates = static_cast<double*>(f.p[3]);
    for (int32_t k = 1; k <= f.i[0]; ++k) tbl[k] = k;
    for (int32_t k = 1; k <= f.i[2]; ++k) rates[k] *= 2.0;
    f.ret_f = rates[0];
}
constexpr ExportSpec table_spec = {"table", "test", Result::F64, table_args, 4, 4, 16, &table};

// words[0] is the name; the expected report, or nullptr and a part of the usage error when parsing must fail.
struct Case {
    const ExportSpec* entry;
    std::vector<std::string_view> words;
    const char *report, *message_part;
};

TEST(CallArrays, CountsCapacitiesAndTables) {
    const Case cases[] = {
        {&pair_sum_spec, {"pair_sum", "1.5,2.5,3", "1,2,-3"}, "pair_sum = 3\nout = 2.5,4.5,0\nerr_code = 0 (no error)\n", ""},
        {&pair_sum_spec, {"pair_sum", "[0.25]", "[4]"}, "pair_sum = 1\nout = 4.25\nerr_code = 0 (no error)\n", ""},
        {&pair_sum_spec, {"pair_sum", "[]", "[]"}, "pair_sum = 0\nout = \nerr_code = 1 (unknown error number 1)\n", ""},
        {&pair_sum_spec, {"pair_sum", "1,2", "1"}, nullptr, "'b' of pair_sum: expected 2 elements like the other lists counted by 'n', got 1"},
        {&pair_sum_spec, {"pair_sum", "1,,2", "1,2,3"}, nullptr, "'a' of pair_sum: expected a comma-separated list of numbers"},
        {&pair_sum_spec, {"pair_sum", "1,2", "1.5,2"}, nullptr, "'b' of pair_sum: expected a comma-separated list of integers"},
        {&pair_sum_spec, {"pair_sum", "1,2"}, nullptr, "takes 2 arguments (a:f64[] b:i32[]), got 1"},
        {&table_spec, {"table", "3", "5,7"}, "table = 0\ntbl = 1,2,3\nrates = 10,14\n", ""},
        {&table_spec, {"table", "0", "[]"}, "table = 0\ntbl = \nrates = \n", ""},
        {&table_spec, {"table", "100001", "1"}, nullptr, "'cap' of table: expected a capacity 0..100000 for 'tbl', got 100001"},
        {&table_spec, {"table", "-1", "1"}, nullptr, "got -1"},
    };
    for (const Case& c : cases) {
        std::string line;
        for (auto w : c.words) line += std::string(w) + " ";
        SCOPED_TRACE(line);
        ck::PreparedCall call;
        std::string error;
        const bool parsed = ck::parse(*c.entry, c.words, call, error);
        if (c.report == nullptr) {
            EXPECT_FALSE(parsed);
            EXPECT_NE(error.find(c.message_part), std::string::npos) << error;
            continue;
        }
        ASSERT_TRUE(parsed) << error;
        call.invoke();
        EXPECT_EQ(call.report(), c.report);
        call.invoke();  // a second call starts from the typed values again
        EXPECT_EQ(call.report(), c.report);
    }
}

// A moved call keeps working: the frame is bound to the storage at every invoke.
TEST(CallArrays, MovedCallStillInvokes) {
    ck::PreparedCall first;
    std::string error;
    ASSERT_TRUE(ck::parse(pair_sum_spec, {"pair_sum", "1", "2"}, first, error));
    ck::PreparedCall moved = std::move(first);
    moved.err_before = 9;
    moved.invoke();
    EXPECT_EQ(moved.report(), "pair_sum = 1\nout = 3\nerr_code = 9 (unknown error number 9)\n");
}

}  // namespace
