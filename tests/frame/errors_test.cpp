// err_2_text never writes past the size it is given and always terminates the text. The meanings
// themselves are rows of tests/calls/frame.calls; every number a sample call writes must have one
// (Samples.EveryErrorWrittenHasAMeaning).
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "orvel/frame.h"

namespace {

// The text is cut to size - 1 characters and terminated; the byte after the buffer is never touched; the
// result is always the whole length.
TEST(ErrorText, CutToTheBufferAndAlwaysTerminated) {
    const std::string full = "settlement date must be before maturity date";
    const auto whole = static_cast<int32_t>(full.size());
    for (int32_t size : {1, 2, 5, whole - 1, whole, whole + 1, whole + 40}) {
        SCOPED_TRACE(size);
        std::vector<char> buf(static_cast<std::size_t>(size) + 1, '#');
        EXPECT_EQ(err_2_text(2171, buf.data(), size), whole);
        EXPECT_EQ(std::string(buf.data()), full.substr(0, static_cast<std::size_t>(std::min(size - 1, whole))));
        EXPECT_EQ(buf[static_cast<std::size_t>(size)], '#') << "canary overwritten";
    }
    char untouched[2] = {'#', '#'};
    EXPECT_EQ(err_2_text(2171, untouched, 0), whole);
    EXPECT_EQ(err_2_text(2171, untouched, -3), whole);
    EXPECT_EQ(untouched[0], '#');
    EXPECT_EQ(err_2_text(2171, nullptr, 0), whole);
}

// Every number from -10 to 15000 into a small buffer: never past the size, always terminated.
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
