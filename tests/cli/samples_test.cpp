// The sample calls (tests/calls/*.calls) are the realistic arguments that the no-allocation, threads and
// fuzz-corpus tests replay: every export needs at least one (tools/check_calls.py reports a line that does
// not parse). Whatever number a sample writes, err_2_text knows it: a number without a row in the error
// table, or a role the scheme has no name for, shows up here.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "call_syntax.hpp"
#include "samples.hpp"

namespace {

namespace ck = orvel::callkit;

TEST(Samples, EveryExportHasASampleAndEveryErrorWrittenHasAMeaning) {
    std::set<std::string> sampled;
    for (const orvel::testkit::Sample& s : orvel::testkit::read_samples(orvel::testkit::samples_folder())) {
        ck::PreparedCall call;
        std::string error;
        if (!ck::parse_line(s.text, call, error)) continue;
        sampled.insert(call.entry().name);
        call.invoke();
        const std::string meaning = ck::error_text(call.err_code());
        EXPECT_TRUE(!call.failed() || meaning.find("unknown") == std::string::npos)
            << s.file << ":" << s.line << ": " << s.text << " wrote " << call.err_code() << ": " << meaning;
    }
    std::string missing;
    for (const auto& e : orvel::exports::table())
        if (sampled.count(e.name) == 0) missing += std::string(" ") + e.name + " (" + e.section + ")";
    EXPECT_TRUE(missing.empty()) << "exports without a line in tests/calls/*.calls:" << missing;
}

}  // namespace
