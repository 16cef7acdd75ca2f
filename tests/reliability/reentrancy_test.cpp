// Every export is re-entrant: the same mixed workload (all sample calls, repeated, each thread starting at a
// different sample) gives on eight threads at once exactly the bits that it gives on one.
#include <gtest/gtest.h>

#include <latch>
#include <thread>
#include <vector>

#include "sample_workload.hpp"

namespace {

using orvel::reliability::fingerprint;
using orvel::reliability::parse_samples;
using orvel::reliability::SampleCall;
using Fingerprints = std::vector<std::vector<unsigned char>>;

constexpr int thread_count = 8;
constexpr int rounds = 200;

// Runs every sample `rounds` times, starting at sample `first`; counts the results that differ from the
// reference and remembers the first one.
struct Worker {
    std::vector<SampleCall> samples;
    std::size_t first = 0;
    long mismatches = 0;
    std::string first_mismatch;

    void run(const Fingerprints& reference) {
        const std::size_t n = samples.size();
        for (int r = 0; r < rounds; ++r) {
            for (std::size_t k = 0; k < n; ++k) {
                const std::size_t at = (first + k) % n;
                samples[at].call.invoke();
                if (fingerprint(samples[at].call) != reference[at] && mismatches++ == 0)
                    first_mismatch = samples[at].where + ": " + samples[at].text;
            }
        }
    }
};

TEST(Reentrancy, EightThreadsGiveTheBitsOfOne) {
    // The reference: each sample once, on this thread.
    std::vector<SampleCall> samples = parse_samples();
    ASSERT_FALSE(samples.empty());
    Fingerprints reference;
    for (SampleCall& s : samples) {
        s.call.invoke();
        reference.push_back(fingerprint(s.call));
    }

    // The same workload on one thread, then on eight at once.
    for (int threads : {1, thread_count}) {
        SCOPED_TRACE(std::to_string(threads) + " threads");
        std::vector<Worker> workers(static_cast<std::size_t>(threads));
        for (std::size_t t = 0; t < workers.size(); ++t) {
            workers[t].samples = parse_samples();
            workers[t].first = t * samples.size() / workers.size();
        }
        std::latch start(threads);
        std::vector<std::thread> pool;
        for (Worker& w : workers)
            pool.emplace_back([&w, &start, &reference] {
                start.arrive_and_wait();
                w.run(reference);
            });
        for (std::thread& t : pool) t.join();
        for (std::size_t t = 0; t < workers.size(); ++t)
            EXPECT_EQ(workers[t].mismatches, 0) << "thread " << t << ", first at " << workers[t].first_mismatch;
    }
}

}  // namespace
