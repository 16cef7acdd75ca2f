// Table rows for validator tests: a call with one argument set, and the number it must write (0: accepted).
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "orvel/frame.h"

namespace orvel_test {

using Call = std::function<int32_t(uint32_t*)>;

struct Row {
    std::string what;    // the call, as a reader would write it
    Call call;
    uint32_t expected;   // 0: accepted, err_code left as it was
};

// A value err_code holds before each call, so that "not touched" is visible.
constexpr uint32_t kUntouched = 77;

inline void expect_rows(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        uint32_t err = kUntouched;
        const int32_t result = row.call(&err);
        if (row.expected == 0) {
            EXPECT_EQ(result, 1);
            EXPECT_EQ(err, kUntouched);
        } else {
            EXPECT_EQ(result, 0);
            EXPECT_EQ(err, row.expected);
            char text[128];
            err_2_text(static_cast<int32_t>(row.expected), text, sizeof text);
            EXPECT_EQ(std::string(text).rfind("unknown", 0), std::string::npos) << "no meaning for " << row.expected;
        }
    }
}

inline const double kNaN = std::numeric_limits<double>::quiet_NaN();
inline const double kInf = std::numeric_limits<double>::infinity();

// A validator seen through one of its double arguments.
struct DoubleArg {
    std::string what;
    std::function<int32_t(double, uint32_t*)> call;
    uint32_t number;                 // the number NaN, +inf and -inf must give
};

inline void expect_non_finite_rejected(const std::vector<DoubleArg>& args) {
    for (const DoubleArg& arg : args) {
        for (double bad : {kNaN, kInf, -kInf}) {
            SCOPED_TRACE(arg.what + " with " + std::to_string(bad));
            uint32_t err = kUntouched;
            EXPECT_EQ(arg.call(bad, &err), 0);
            EXPECT_EQ(err, arg.number);
        }
    }
}

}  // namespace orvel_test
