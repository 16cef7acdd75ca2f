// The call syntax: parse errors, arrays, capacities and 1-based tables (on two exports made up here, so that
// every kind the export list allows is covered), outputs refilled at every invoke, the number format.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <tuple>

#include "call_syntax.hpp"

namespace {

namespace ck = orvel::callkit;
using namespace orvel::exports;

// pair_sum(n, a:f64[n], b:i32[n], out:out_f64[n], err): out[k] = a[k] + b[k]; returns n; err 1 when n is 0.
constexpr ArgSpec pair_sum_args[] = {
    {"n", Kind::I32, 0, -1, 0},        {"a", Kind::ArrF64, 1, 0, 0}, {"b", Kind::ArrI32, 2, 0, 0},
    {"out", Kind::OutArrF64, 3, 0, 0}, {"err", Kind::Err, 4, -1, 0},
};
void pair_sum(Frame& f) {
    const auto* a = static_cast<const double*>(f.p[1]);
    const auto* b = static_cast<const int32_t*>(f.p[2]);
    for (int32_t k = 0; k < f.i[0]; ++k) static_cast<double*>(f.p[3])[k] = a[k] + b[k];
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
    for (int32_t k = 1; k <= f.i[0]; ++k) static_cast<double*>(f.p[1])[k] = k;
    for (int32_t k = 1; k <= f.i[2]; ++k) static_cast<double*>(f.p[3])[k] *= 2.0;
    f.ret_f = static_cast<double*>(f.p[3])[0];
}
constexpr ExportSpec table_spec = {"table", "test", Result::F64, table_args, 4, 4, 16, &table};

// The export (nullptr: the library's, by name), the line, and the expected report or nullptr and a part of
// the usage error. The caller sets err_code to 9 before each call: a call that succeeds leaves it alone.
TEST(CallSyntax, ParseInvokeAndReport) {
    const ExportSpec *const P = &pair_sum_spec, *const T = &table_spec;
    const std::string ok = "err_code = 9 (unknown error number 9)\n";
    const struct {
        const ExportSpec* entry;
        const char* line;
        std::string report;
        const char* message_part;
    } cases[] = {
        {P, "pair_sum 1.5,2.5,3 1,2,-3", "pair_sum = 3\nout = 2.5,4.5,0\n" + ok, nullptr},
        {P, "pair_sum [0.25] [4]", "pair_sum = 1\nout = 4.25\n" + ok, nullptr},
        {P, "pair_sum [] []", "pair_sum = 0\nout = \nerr_code = 1 (unknown error number 1)\n", nullptr},
        {P, "pair_sum 1,2 1", "", "'b' of pair_sum: expected 2 elements like the other lists counted by 'n', got 1"},
        {P, "pair_sum 1,,2 1,2,3", "", "'a' of pair_sum: expected a comma-separated list of numbers"},
        {P, "pair_sum 1,2 1.5,2", "", "'b' of pair_sum: expected a comma-separated list of integers"},
        {P, "pair_sum 1,2", "", "takes 2 arguments (a:f64[] b:i32[]), got 1"},
        {T, "table 3 5,7", "table = 0\ntbl = 1,2,3\nrates = 10,14\n", nullptr},
        {T, "table 0 []", "table = 0\ntbl = \nrates = \n", nullptr},
        {T, "table 100001 1", "", "'cap' of table: expected a capacity 0..100000 for 'tbl', got 100001"},
        {T, "table -1 1", "", "got -1"},
        {nullptr, "d_trunc_rnd 1.5 2", "", "takes 3 arguments (num:f64 places:i32 rnd:i32), got 2"},
        {nullptr, "d_trunc_rnd 1.5 2.0 1", "", "'places' of d_trunc_rnd: expected an integer"},
        {nullptr, "d_trunc_rnd 1.5 2147483648 1", "", "got '2147483648'"},
        {nullptr, "ok_MDY 2/29 1", "", "'date' of ok_MDY: expected a date"},
        {nullptr, "ZEBA_vers 1", "", "takes 0 arguments (none), got 1"},
        {nullptr, "", "", "no function named"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.line);
        const auto words = ck::split_words(c.line);
        ck::PreparedCall parsed;
        std::string error;
        if (!(c.entry ? ck::parse(*c.entry, words, parsed, error) : ck::parse(words, parsed, error))) {
            ASSERT_NE(c.message_part, nullptr) << error;
            EXPECT_NE(error.find(c.message_part), std::string::npos) << error;
            continue;
        }
        ASSERT_EQ(c.message_part, nullptr);
        ck::PreparedCall call = std::move(parsed);  // the frame is bound to the storage at every invoke
        call.err_before = 9;
        for (int twice = 0; twice < 2; ++twice) {  // a second call starts from the typed values again
            call.invoke();
            EXPECT_EQ(call.report(), c.report);
        }
    }
}

// The version writes its first five outputs and never touches the four spares.
TEST(CallSyntax, OutputsStartFromTheirFill) {
    ck::PreparedCall version;
    std::string error;
    ASSERT_TRUE(ck::parse_line("ZEBA_vers", version, error)) << error;
    version.fill_outputs(-7, 0.0);
    version.invoke();
    const int32_t expected[] = {1, 32, 3, 19, 97, -7, -7, -7, -7};
    for (int k = 0; k < 9; ++k) EXPECT_EQ(version.args()[static_cast<std::size_t>(k)].ints[0], expected[k]) << k;
}

// 15 digits as printf("%.15g") shows them; 17 (--exact) give back the double itself.
TEST(CallSyntax, DoublesShowFifteenOrSeventeenSignificantDigits) {
    const double inf = std::numeric_limits<double>::infinity();
    const std::tuple<double, const char*, const char*> cases[] = {
        {0.1 + 0.2, "0.3", "0.30000000000000004"}, {1.235, "1.235", "1.2350000000000001"}, {-1.3, "-1.3", "-1.3"},
        {100.0, "100", "100"}, {1e-20, "1e-20", "9.9999999999999995e-21"}, {0.0, "0", "0"}, {-0.0, "-0", "-0"},
        {123456789012345678.0, "1.23456789012346e+17", "1.2345678901234568e+17"}, {inf, "inf", "inf"},
        {99.99999999999999, "100", "99.999999999999986"}, {1.0 / 3.0, "0.333333333333333", "0.33333333333333331"},
        {-inf, "-inf", "-inf"}, {std::numeric_limits<double>::quiet_NaN(), "nan", "nan"},
        {std::numeric_limits<double>::denorm_min(), "4.94065645841247e-324", "4.9406564584124654e-324"},
    };
    for (const auto& [x, text, exact] : cases) {
        EXPECT_EQ(ck::format_double(x), text);
        EXPECT_EQ(ck::format_double(x, ck::exact_digits), exact);
    }
    double x = 1e-300;
    for (int k = 0; k < 4000; ++k, x = x * 1.4142135623730951)
        for (double y : {x, std::nextafter(x, 0.0), -std::nextafter(x, 1e308)})
            EXPECT_EQ(std::strtod(ck::format_double(y, ck::exact_digits).c_str(), nullptr), y);
}

}  // namespace
