// The sample calls of tests/calls/*.calls, read for the tests and benchmarks that replay them.
#pragma once

#include <string>
#include <vector>

namespace orvel::testkit {

struct Sample {
    std::string file;  // file name without its folder
    int line = 0;
    std::string text;  // the call, without its comment and without the expected output after =>
};

// Every call line of the .calls files of `folder`, in file and line order.
std::vector<Sample> read_samples(const std::string& folder);
std::string samples_folder();  // the source tree's tests/calls

}  // namespace orvel::testkit
