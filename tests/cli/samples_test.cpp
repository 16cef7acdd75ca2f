// The sample calls (tests/calls/*.calls) are what the no-allocation, threads and fuzz-corpus tests replay:
// every export needs one. Every number a sample writes has a meaning in err_2_text.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "call_syntax.hpp"
#include "samples.hpp"

TEST(Samples, EveryExportHasASampleAndEveryErrorWrittenHasAMeaning) {
    std::set<std::string> sampled;
    for (const orvel::testkit::Sample& s : orvel::testkit::read_samples(orvel::testkit::samples_folder())) {
        orvel::callkit::PreparedCall call;
        std::string error;
        if (!orvel::callkit::parse_line(s.text, call, error)) continue;  // check_calls.py reports it
        sampled.insert(call.entry().name);
        call.invoke();
        const std::string meaning = orvel::callkit::error_text(call.err_code());
        EXPECT_TRUE(!call.failed() || meaning.find("unknown") == std::string::npos)
            << s.file << ":" << s.line << ": " << s.text << " wrote " << call.err_code() << ": " << meaning;
    }
    for (const auto& e : orvel::exports::table()) EXPECT_EQ(sampled.count(e.name), 1u) << e.name << " has no sample";
}
