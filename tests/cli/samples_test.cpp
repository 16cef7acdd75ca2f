// The sample calls (tests/calls/*.calls) are the realistic arguments that the no-allocation, threads and
// fuzz-corpus tests replay: every export needs at least one, and every line must parse.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "call_syntax.hpp"
#include "samples.hpp"

namespace {

namespace ck = orvel::callkit;
namespace tk = orvel::testkit;

TEST(Samples, EveryExportHasASample) {
    std::set<std::string> sampled;
    for (const tk::Sample& s : tk::read_samples(tk::samples_folder())) {
        const auto words = ck::split_words(s.text);
        if (!words.empty()) sampled.insert(std::string(words[0]));
    }
    std::string missing;
    for (const auto& e : orvel::exports::table())
        if (sampled.count(e.name) == 0) missing += std::string(" ") + e.name + " (" + e.section + ")";
    EXPECT_TRUE(missing.empty()) << "exports without a line in tests/calls/*.calls:" << missing;
}

TEST(Samples, EverySampleParsesAndRuns) {
    const auto samples = tk::read_samples(tk::samples_folder());
    ASSERT_FALSE(samples.empty());
    for (const tk::Sample& s : samples) {
        SCOPED_TRACE(s.file + ":" + std::to_string(s.line) + ": " + s.text);
        ck::PreparedCall call;
        std::string error;
        ASSERT_TRUE(ck::parse_line(s.text, call, error)) << error;
        call.invoke();
    }
}

// Whatever number a sample call writes, err_2_text knows it: a number without a row in the error table (or
// a role that the scheme has no name for) shows up here.
TEST(Samples, EveryErrorWrittenHasAMeaning) {
    for (const tk::Sample& s : tk::read_samples(tk::samples_folder())) {
        ck::PreparedCall call;
        std::string error;
        if (!ck::parse_line(s.text, call, error)) continue;
        call.invoke();
        if (!call.failed()) continue;
        const std::string meaning = ck::error_text(call.err_code());
        EXPECT_EQ(meaning.find("unknown"), std::string::npos)
            << s.file << ":" << s.line << ": " << s.text << " wrote " << call.err_code() << ": " << meaning;
    }
}

}  // namespace
