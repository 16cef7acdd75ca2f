// Every sample call through the export table: the cost of parsing a call line (what a batch line pays on
// top of the call) and of invoking the prepared call (the export itself plus the table's thunk).
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "call_syntax.hpp"
#include "samples.hpp"

namespace {

namespace ck = orvel::callkit;
namespace tk = orvel::testkit;

const std::vector<tk::Sample>& samples() {
    static const std::vector<tk::Sample> all = tk::read_samples(tk::samples_folder());
    return all;
}

// Every sample that parses, prepared (and invoked once when `invoked`).
std::vector<ck::PreparedCall> prepared_samples(bool invoked) {
    std::vector<ck::PreparedCall> calls;
    std::string error;
    for (const tk::Sample& s : samples()) {
        ck::PreparedCall call;
        if (!ck::parse_line(s.text, call, error)) continue;
        if (invoked) call.invoke();
        calls.push_back(std::move(call));
    }
    return calls;
}

void BM_ParseAllSamples(benchmark::State& state) {
    std::string error;
    for (auto _ : state) {
        for (const tk::Sample& s : samples()) {
            ck::PreparedCall call;
            benchmark::DoNotOptimize(ck::parse_line(s.text, call, error));
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(samples().size()));
}
BENCHMARK(BM_ParseAllSamples);

void BM_InvokeAllSamples(benchmark::State& state) {
    std::vector<ck::PreparedCall> calls = prepared_samples(false);
    for (auto _ : state) {
        for (ck::PreparedCall& c : calls) {
            c.invoke();
            benchmark::DoNotOptimize(c.result_f64());
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(calls.size()));
}
BENCHMARK(BM_InvokeAllSamples);

void BM_FormatCsvAllSamples(benchmark::State& state) {
    const std::vector<ck::PreparedCall> calls = prepared_samples(true);
    for (auto _ : state)
        for (const ck::PreparedCall& c : calls) benchmark::DoNotOptimize(c.csv());
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(calls.size()));
}
BENCHMARK(BM_FormatCsvAllSamples);

}  // namespace

