// The library allocates nothing: every export, called through the export table with the arguments of its
// sample lines, must not reach malloc, calloc, realloc, free or operator new/delete.
//
// The allocation functions of this test binary are replaced by counting ones; counting is switched on for
// the invoke alone (parsing a call allocates, calling it must not). Under AddressSanitizer, which owns the
// allocator, the sanitizer's allocation hooks do the counting instead.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>

#include "sample_workload.hpp"

namespace {

thread_local bool counting = false;
thread_local long allocations = 0;

void note_allocation() {
    if (counting) ++allocations;
}

}  // namespace

#if defined(__SANITIZE_ADDRESS__)
#define ORVEL_TEST_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORVEL_TEST_ASAN 1
#endif
#endif

#ifdef ORVEL_TEST_ASAN
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*malloc_hook)(const volatile void*, std::size_t),
                                                          void (*free_hook)(const volatile void*));
namespace {
void on_malloc(const volatile void*, std::size_t) { note_allocation(); }
void on_free(const volatile void*) { note_allocation(); }
const int hooks_installed = __sanitizer_install_malloc_and_free_hooks(on_malloc, on_free);
}  // namespace
#else
// glibc's own entry points, which the replacements forward to. operator new and delete reach these too.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* p, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* p);

void* malloc(std::size_t size) noexcept { return note_allocation(), __libc_malloc(size); }
void* calloc(std::size_t count, std::size_t size) noexcept { return note_allocation(), __libc_calloc(count, size); }
void* realloc(void* p, std::size_t size) noexcept { return note_allocation(), __libc_realloc(p, size); }
void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return note_allocation(), __libc_memalign(alignment, size);
}
int posix_memalign(void** out, std::size_t alignment, std::size_t size) noexcept {
    void* p = (note_allocation(), __libc_memalign(alignment, size));
    return p == nullptr ? ENOMEM : (*out = p, 0);
}
void free(void* p) noexcept {
    if (p != nullptr) note_allocation();
    __libc_free(p);
}
}  // extern "C"

#endif

namespace {

// Allocations made on this thread from here to stop().
struct AllocationCount {
    AllocationCount() { allocations = 0, counting = true; }
    ~AllocationCount() { counting = false; }
    long stop() { return counting = false, allocations; }
};

// Keeps the compiler from pairing and removing the allocations of the self-test.
[[gnu::noinline]] void* opaque(void* p) {
    asm volatile("" : : "r"(p) : "memory");
    return p;
}

TEST(NoAllocation, CounterSeesEveryAllocationFunction) {
    AllocationCount count;
    delete static_cast<int*>(opaque(new int(1)));
    delete[] static_cast<double*>(opaque(new double[4]));
    std::free(opaque(std::malloc(8)));
    std::free(opaque(std::calloc(2, 8)));
    std::free(opaque(std::realloc(nullptr, 8)));
    EXPECT_GE(count.stop(), 10);  // new, new[], malloc, calloc and realloc, each with its release
}

// Samples.EveryExportHasASampleAndEveryErrorWrittenHasAMeaning sees that no export is left out. A function
// with a validate flag is called both ways: validators and calculation paths differ.
TEST(NoAllocation, EverySampleCallAllocatesNothing) {
    for (orvel::reliability::SampleCall& s : orvel::reliability::parse_samples()) {
        const int validate = orvel::reliability::arg_index(s.call.entry(), "validate");
        for (int flag : {1, 0}) {
            if (validate >= 0) s.call.args()[static_cast<std::size_t>(validate)].ints0[0] = flag;
            AllocationCount count;
            s.call.invoke();
            EXPECT_EQ(count.stop(), 0) << s.where << " with validate " << flag;
            if (validate < 0) break;
        }
    }
}

}  // namespace
