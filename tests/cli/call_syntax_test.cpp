// The call syntax: words to a prepared call, a repeatable invoke, and the report and CSV forms.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "call_syntax.hpp"

namespace {

namespace ck = orvel::callkit;

ck::PreparedCall prepared(const std::string& line) {
    ck::PreparedCall call;
    std::string error;
    EXPECT_TRUE(ck::parse_line(line, call, error)) << line << ": " << error;
    return call;
}

std::string parse_error(const std::string& line) {
    ck::PreparedCall call;
    std::string error;
    EXPECT_FALSE(ck::parse_line(line, call, error)) << line;
    return error;
}

TEST(CallSyntax, DateFormsAgree) {
    struct Case {
        const char* line;
        int32_t m, d, y;
    };
    const Case cases[] = {
        {"ok_MDY 2/29/2024 1", 2, 29, 2024}, {"ok_MDY 2024-02-29 1", 2, 29, 2024},
        {"ok_MDY 0/0/0 0", 0, 0, 0},         {"ok_MDY 13/-4/1999 1", 13, -4, 1999},
        {"ok_MDY +1/+2/+2000 1", 1, 2, 2000},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        const ck::PreparedCall call = prepared(c.line);
        ASSERT_EQ(call.args()[0].ints0.size(), 3u);
        EXPECT_EQ(call.args()[0].ints0[0], c.m);
        EXPECT_EQ(call.args()[0].ints0[1], c.d);
        EXPECT_EQ(call.args()[0].ints0[2], c.y);
        EXPECT_EQ(call.args()[0].token, 1);
    }
}

TEST(CallSyntax, UsageErrorsNameWhatWasExpected) {
    struct Case {
        const char* line;
        const char* message_part;
    };
    const Case cases[] = {
        {"no_such_function 1", "unknown function 'no_such_function'"},
        {"d_trunc_rnd 1.5 2", "takes 3 arguments (num:f64 places:i32 rnd:i32), got 2"},
        {"d_trunc_rnd 1.5 2 1 7", "got 4"},
        {"d_trunc_rnd 1.5x 2 1", "'num' of d_trunc_rnd: expected a number, got '1.5x'"},
        {"d_trunc_rnd 1.5 2.0 1", "'places' of d_trunc_rnd: expected an integer"},
        {"d_trunc_rnd 1.5 2147483648 1", "expected an integer (32-bit), got '2147483648'"},
        {"ok_MDY 2/29 1", "'date' of ok_MDY: expected a date"},
        {"ok_MDY 2024-2-x 1", "expected a date"},
        {"ok_MDY -2024-02-01 1", "expected a date"},
        {"err_2_text 1207 100001", "'size' of err_2_text: expected a capacity 0..100000"},
        {"err_2_text 1207 -1", "got -1"},
        {"ZEBA_vers 1", "takes 0 arguments (none), got 1"},
        {"", "no function named"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        EXPECT_NE(parse_error(c.line).find(c.message_part), std::string::npos) << parse_error(c.line);
    }
}

TEST(CallSyntax, NumbersIncludeNonFiniteValues) {
    ck::PreparedCall call = prepared("d_trunc_rnd nan 2 1");
    call.invoke();
    EXPECT_TRUE(std::isnan(call.result_f64()));
    call = prepared("d_trunc_rnd -inf 2 1");
    EXPECT_EQ(call.args()[0].reals0[0], -INFINITY);
}

TEST(CallSyntax, InvokeStartsAgainFromTheParsedInputs) {
    ck::PreparedCall call = prepared("rslt_fix_plc 9 2 1.5");
    call.invoke();
    EXPECT_EQ(call.err_code(), 300u);
    call.invoke();
    EXPECT_EQ(call.err_code(), 300u);
    EXPECT_EQ(call.result_f64(), 1.5);

    // A succeeding call leaves the caller's err_code as it was.
    ck::PreparedCall ok = prepared("rslt_fix_plc 3 2 5.123456");
    ok.err_before = 77;
    ok.invoke();
    EXPECT_EQ(ok.err_code(), 77u);
    EXPECT_EQ(ok.result_f64(), 5.123);
}

TEST(CallSyntax, OutputsStartFromTheirFill) {
    ck::PreparedCall call = prepared("ZEBA_vers");
    call.fill_outputs(-7, 0.0);
    call.invoke();
    // The version writes its first five outputs and never touches the four spares.
    const int32_t expected[] = {1, 32, 3, 19, 97, -7, -7, -7, -7};
    for (int k = 0; k < 9; ++k) EXPECT_EQ(call.args()[static_cast<std::size_t>(k)].ints[0], expected[k]) << k;
}

TEST(CallSyntax, ReportAndCsvForms) {
    struct Case {
        const char* line;
        const char* report;
        const char* csv;
    };
    const Case cases[] = {
        {"d_trunc_rnd 1.23456 3 1", "d_trunc_rnd = 1.235\n", "d_trunc_rnd,1.235,"},
        {"rslt_fix_plc 9 2 1.5", "rslt_fix_plc = 1.5\nerr_code = 300 (security type or method not known)\n",
         "rslt_fix_plc,1.5,300"},
        {"err_2_text 2171 5", "err_2_text = 44\ntext = sett\n", "err_2_text,44,sett,"},
        {"err_2_text 12003 100", "err_2_text = 34\ntext = bad date at index 3 of a date list\n",
         "err_2_text,34,bad date at index 3 of a date list,"},
        {"err_2_text 2171 0", "err_2_text = 44\ntext = \n", "err_2_text,44,,"},
        {"ZEBA_vers", "major = 1\nminor = 32\nrel_month = 3\nrel_day = 19\nrel_year = 97\nspare1 = 0\n"
                      "spare2 = 0\nspare3 = 0\nspare4 = 0\n", "ZEBA_vers,,1,32,3,19,97,0,0,0,0,"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        ck::PreparedCall call = prepared(c.line);
        call.invoke();
        EXPECT_EQ(call.report(), c.report);
        EXPECT_EQ(call.csv(), c.csv);
    }
}

TEST(CallSyntax, DoublesShowFifteenOrSeventeenSignificantDigits) {
    struct Case {
        double x;
        const char* text;    // 15 digits, as printf("%.15g")
        const char* exact;   // 17 digits, as printf("%.17g")
    };
    const double inf = std::numeric_limits<double>::infinity();
    const Case cases[] = {
        {0.1 + 0.2, "0.3", "0.30000000000000004"},
        {1.235, "1.235", "1.2350000000000001"},
        {-1.3, "-1.3", "-1.3"},
        {100.0, "100", "100"},
        {1e-20, "1e-20", "9.9999999999999995e-21"},
        {123456789012345678.0, "1.23456789012346e+17", "1.2345678901234568e+17"},
        {99.99999999999999, "100", "99.999999999999986"},
        {1.0 / 3.0, "0.333333333333333", "0.33333333333333331"},
        {0.0, "0", "0"},
        {-0.0, "-0", "-0"},
        {inf, "inf", "inf"},
        {-inf, "-inf", "-inf"},
        {std::numeric_limits<double>::quiet_NaN(), "nan", "nan"},
        {std::numeric_limits<double>::denorm_min(), "4.94065645841247e-324", "4.9406564584124654e-324"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ck::format_double(c.x), c.text);
        EXPECT_EQ(ck::format_double(c.x, ck::exact_digits), c.exact);
    }
}

// 17 digits give back the double itself, across magnitudes and in the last bit.
TEST(CallSyntax, ExactDigitsRoundTrip) {
    double x = 1e-300;
    for (int k = 0; k < 4000; ++k, x = x * 1.4142135623730951) {
        for (double y : {x, std::nextafter(x, 0.0), -std::nextafter(x, 1e308)}) {
            const std::string text = ck::format_double(y, ck::exact_digits);
            EXPECT_EQ(std::strtod(text.c_str(), nullptr), y) << text;
        }
    }
}

TEST(CallSyntax, SignaturesAsListed) {
    const auto* e = orvel::exports::find("err_2_text");
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(ck::listed_signature(*e), "err_2_text i32 number:i32 text:out_chr[size] size:i32");
    EXPECT_EQ(ck::typed_signature(*e), "number:i32 size:i32");
}

TEST(CallSyntax, WordsStopAtAComment) {
    const auto words = ck::split_words("  d_trunc_rnd\t1.5  2 1   # half up\r");
    ASSERT_EQ(words.size(), 4u);
    EXPECT_EQ(words[0], "d_trunc_rnd");
    EXPECT_EQ(words[3], "1");
    EXPECT_TRUE(ck::split_words("# only a comment").empty());
}

}  // namespace
