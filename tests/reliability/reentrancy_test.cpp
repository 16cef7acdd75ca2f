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

TEST(Reentrancy, EightThreadsGiveTheBitsOfOne) {
    std::vector<SampleCall> samples = parse_samples();
    ASSERT_FALSE(samples.empty());
    std::vector<std::vector<unsigned char>> reference;  // each sample once, on this thread
    for (SampleCall& s : samples) {
        s.call.invoke();
        reference.push_back(fingerprint(s.call));
    }
    const std::size_t n = samples.size();
    for (std::size_t threads : {1u, 8u}) {
        // Per thread: the mismatches with the reference over 200 rounds, and the first one.
        std::vector<long> mismatches(threads, 0);
        std::vector<std::string> first(threads);
        std::latch start(static_cast<std::ptrdiff_t>(threads));
        std::vector<std::thread> pool;
        for (std::size_t t = 0; t < threads; ++t)
            pool.emplace_back([&, t, own = parse_samples()]() mutable {
                start.arrive_and_wait();
                for (int round = 0; round < 200; ++round)
                    for (std::size_t k = 0, at = t * n / threads; k < n; ++k, at = (at + 1) % n) {
                        own[at].call.invoke();
                        if (fingerprint(own[at].call) != reference[at] && mismatches[t]++ == 0)
                            first[t] = own[at].where;
                    }
            });
        for (std::thread& t : pool) t.join();
        for (std::size_t t = 0; t < threads; ++t)
            EXPECT_EQ(mismatches[t], 0) << threads << " threads, thread " << t << ", first at " << first[t];
    }
}

}  // namespace
