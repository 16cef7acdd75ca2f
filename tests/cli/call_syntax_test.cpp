// The call syntax: words to a prepared call, a repeatable invoke, the report form and the number format.
// The CSV form of `orvel batch` is what tools/check_calls.py compares for every row of tests/calls.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "call_syntax.hpp"

namespace {

namespace ck = orvel::callkit;

ck::PreparedCall prepared(const std::string& line) {
    ck::PreparedCall call;
    std::string error;
    EXPECT_TRUE(ck::parse_line(line, call, error)) << line << ": " << error;
    return call;
}

TEST(CallSyntax, DateFormsAgree) {
    const std::pair<const char*, std::vector<int32_t>> cases[] = {
        {"ok_MDY 2/29/2024 1", {2, 29, 2024}}, {"ok_MDY 2024-02-29 1", {2, 29, 2024}},
        {"ok_MDY 0/0/0 0", {0, 0, 0}},         {"ok_MDY 13/-4/1999 1", {13, -4, 1999}},
        {"ok_MDY +1/+2/+2000 1", {1, 2, 2000}},
    };
    for (const auto& [line, mdy] : cases) {
        const ck::PreparedCall call = prepared(line);
        EXPECT_EQ(call.args()[0].ints0, mdy) << line;
        EXPECT_EQ(call.args()[0].token, 1) << line;
    }
}

TEST(CallSyntax, UsageErrorsNameWhatWasExpected) {
    const std::pair<const char*, const char*> cases[] = {
        {"no_such_function 1", "unknown function 'no_such_function'"},
        {"d_trunc_rnd 1.5 2", "takes 3 arguments (num:f64 places:i32 rnd:i32), got 2"},
        {"d_trunc_rnd 1.5x 2 1", "'num' of d_trunc_rnd: expected a number, got '1.5x'"},
        {"d_trunc_rnd 1.5 2.0 1", "'places' of d_trunc_rnd: expected an integer"},
        {"d_trunc_rnd 1.5 2147483648 1", "expected an integer (32-bit), got '2147483648'"},
        {"ok_MDY 2/29 1", "'date' of ok_MDY: expected a date"},
        {"ok_MDY -2024-02-01 1", "expected a date"},
        {"err_2_text 1207 100001", "'size' of err_2_text: expected a capacity 0..100000"},
        {"err_2_text 1207 -1", "got -1"},
        {"ZEBA_vers 1", "takes 0 arguments (none), got 1"},
        {"", "no function named"},
    };
    for (const auto& [line, message_part] : cases) {
        ck::PreparedCall call;
        std::string error;
        EXPECT_FALSE(ck::parse_line(line, call, error)) << line;
        EXPECT_NE(error.find(message_part), std::string::npos) << line << ": " << error;
    }
}

// Outputs start from their fill at every invoke (a repeated invoke starts from the typed values again: see
// CallArrays). The version writes its first five outputs and never touches the four spares.
TEST(CallSyntax, OutputsStartFromTheirFill) {
    ck::PreparedCall version = prepared("ZEBA_vers");
    version.fill_outputs(-7, 0.0);
    version.invoke();
    const int32_t expected[] = {1, 32, 3, 19, 97, -7, -7, -7, -7};
    for (int k = 0; k < 9; ++k) EXPECT_EQ(version.args()[static_cast<std::size_t>(k)].ints[0], expected[k]) << k;
}

TEST(CallSyntax, ReportForms) {
    const std::pair<const char*, const char*> cases[] = {
        {"rslt_fix_plc 9 2 1.5", "rslt_fix_plc = 1.5\nerr_code = 300 (security type or method not known)\n"},
        {"err_2_text 2171 5", "err_2_text = 44\ntext = sett\n"},
        {"julian_2_MDY 2451545", "julian_2_MDY = 2000\ndate = 1/1/2000\n"},
        {"ZEBA_vers", "major = 1\nminor = 32\nrel_month = 3\nrel_day = 19\nrel_year = 97\nspare1 = 0\nspare2 = 0\n"
                      "spare3 = 0\nspare4 = 0\n"},
    };
    for (const auto& [line, report] : cases) {
        ck::PreparedCall call = prepared(line);
        call.invoke();
        EXPECT_EQ(call.report(), report) << line;
    }
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

TEST(CallSyntax, WordsStopAtAComment) {
    const auto words = ck::split_words("  d_trunc_rnd\t1.5  2 1   # half up\r");
    ASSERT_EQ(words.size(), 4u);
    EXPECT_EQ(words[0], "d_trunc_rnd");
    EXPECT_EQ(words[3], "1");
    EXPECT_TRUE(ck::split_words("# only a comment").empty());
}

}  // namespace
