// The meanings of error numbers: every listed number, the roles and orderings built on a base, and a text
// buffer that is never overrun and always terminated.
#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <set>
#include <string>
#include <vector>

#include "orvel/frame.h"

namespace {

std::string text_of(int32_t number) {
    char buf[256];
    const int32_t n = err_2_text(number, buf, static_cast<int32_t>(sizeof buf));
    EXPECT_EQ(n, static_cast<int32_t>(std::strlen(buf))) << number;
    return buf;
}

struct Listed {
    uint32_t number;
    const char* meaning;
};
#define ORVEL_LISTED_(name, number, meaning) {number, meaning},
const std::vector<Listed> listed = {ORVEL_ERROR_TABLE(ORVEL_LISTED_)};
#undef ORVEL_LISTED_

TEST(ErrorText, EveryListedNumberIsUniqueAndGivesItsMeaning) {
    std::set<uint32_t> seen;
    for (const Listed& row : listed) {
        SCOPED_TRACE(row.number);
        EXPECT_TRUE(seen.insert(row.number).second) << "listed twice";
        EXPECT_EQ(text_of(static_cast<int32_t>(row.number)), row.meaning);
    }
}

// Numbers that the library's validators and engines write, each of which must have a meaning.
TEST(ErrorText, NumbersWrittenAcrossTheLibraryAreKnown) {
    const int32_t numbers[] = {
        200,  210,  300,  500,  501,  505,  535,  590,  591,  600,  601,  605,  650,  700,  705,  970,
        1100, 1200, 1300, 1500, 1502, 1503, 1507, 1609, 2000, 2027, 2100, 2121, 2123, 2171, 2181, 2191,
        2200, 2206, 2231, 2236, 2241, 2246, 2281, 2600, 2607, 2697, 2710, 2720, 2851, 2856, 4001, 4012,
        4021, 4100, 4200, 4300, 4301, 4302, 4400, 4410, 4500, 4600, 4700, 4830, 5100, 5103, 5104, 5200,
        5310, 5350, 5400, 5401, 5403, 5410, 5413, 6201, 6202, 6300, 6401, 6402, 6501, 6502, 6601, 6602,
        6701, 6702, 6800, 6901, 6902, 7001, 7004, 7100, 7701, 7702, 8510, 9020, 10040, 10042, 10047,
        11101, 11200, 11301, 11302, 11401, 11501, 11502, 11901, 11902, 12000, 13100, 13200, 14300,
    };
    for (int32_t n : numbers) EXPECT_EQ(text_of(n).find("unknown"), std::string::npos) << n << ": " << text_of(n);
}

struct TextCase {
    int32_t number;
    const char* text;
};

void expect_texts(std::initializer_list<TextCase> cases) {
    for (const TextCase& c : cases) EXPECT_EQ(text_of(c.number), c.text) << c.number;
}

TEST(ErrorText, RolesOrderingsKindsAndIndexes) {
    expect_texts({
        {0, "no error"},
        {1207, "month outside 1..12 (settlement date)"},
        {1301, "day outside 1..last day of the month (maturity date)"},
        {1109, "year outside 1800..2300 (ex-dividend date)"},
        {1502, "a required date is blank (dated date)"},
        {2171, "settlement date must be before maturity date"},
        {2027, "dated date must not be after settlement date"},
        {2123, "dated date must be before first coupon date"},
        {2121, "dated date must be before maturity date"},
        {2231, "first coupon date and maturity date not on one coupon cycle"},
        {2151, "step date must be before maturity date"},
        {2697, "floating-rate note schedule inconsistent (ex-dividend date, settlement date)"},
        {2607, "floating-rate note schedule inconsistent (settlement date)"},
        {4001, "given yield invalid for its kind (given_type 1)"},
        {4002, "given price invalid for its kind (given_type 2)"},
        {4003, "given discount rate invalid for its kind (given_type 3)"},
        {4022, "given price invalid for its kind (given_type 22)"},
        {4830, "days in the period below 30"},
        {12000, "bad date at index 0 of a date list"},
        {12417, "bad date at index 417 of a date list"},
        {12999, "bad date at index 999 of a date list"},
    });
}

// A role only makes sense on a date check, and a pair of roles only on an ordering or cycle check.
TEST(ErrorText, NumbersOutsideTheSchemeAreUnknown) {
    expect_texts({
        {1, "unknown error number 1"},
        {207, "unknown error number 207"},
        {1234, "unknown error number 1234"},
        {1270, "unknown error number 1270"},
        {2100 + 70, "unknown error number 2170"},
        {2100 + 10, "unknown error number 2110"},
        {4023, "unknown error number 4023"},
        {99999, "unknown error number 99999"},
        {-5, "unknown error number -5"},
        {INT32_MIN, "unknown error number -2147483648"},
    });
}

// The text is cut to size - 1 characters and terminated; the byte after the buffer is never touched; the
// result is always the whole length.
TEST(ErrorText, CutToTheBufferAndAlwaysTerminated) {
    const std::string full = "settlement date must be before maturity date";
    const auto whole = static_cast<int32_t>(full.size());
    for (int32_t size : {1, 2, 5, whole - 1, whole, whole + 1, whole + 40}) {
        SCOPED_TRACE(size);
        std::vector<char> buf(static_cast<std::size_t>(size) + 1, '#');
        EXPECT_EQ(err_2_text(2171, buf.data(), size), whole);
        const auto kept = static_cast<std::size_t>(std::min(size - 1, whole));
        EXPECT_EQ(std::string(buf.data()), full.substr(0, kept));
        EXPECT_EQ(buf[static_cast<std::size_t>(size)], '#') << "canary overwritten";
    }
    char untouched[2] = {'#', '#'};
    EXPECT_EQ(err_2_text(2171, untouched, 0), whole);
    EXPECT_EQ(err_2_text(2171, untouched, -3), whole);
    EXPECT_EQ(untouched[0], '#');
    EXPECT_EQ(err_2_text(2171, nullptr, 0), whole);
}

// Every number a validator can write, into every small buffer: never past the size, always terminated.
TEST(ErrorText, SweepNeverOverrunsAnyBuffer) {
    for (int32_t number = -10; number <= 15000; ++number) {
        char buf[16];
        std::memset(buf, '#', sizeof buf);
        const int32_t n = err_2_text(number, buf, 8);
        ASSERT_GT(n, 0) << number;
        ASSERT_EQ(std::strlen(buf), static_cast<std::size_t>(std::min(n, 7))) << number;
        ASSERT_EQ(buf[8], '#') << number;
    }
}

}  // namespace
