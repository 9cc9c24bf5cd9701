#pragma once

#include "tests/support/MemoryFiles.h"

#include <cstdio>
#include <cstdlib>

extern "C" {
// They are there in a build with the address sanitizer.
[[gnu::weak]] int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, std::size_t),
                                                            void (*)(const volatile void*));
[[gnu::weak]] std::size_t __sanitizer_get_allocated_size(const volatile void*);
/// The target.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
}

namespace railwright::fuzz {

using Bytes = testing::MemoryFiles::Bytes;

/// Ends the process where a property does not hold.
inline void Require(bool holds, const char* property) {
    if (!holds)
        std::fprintf(stderr, "BROKEN PROPERTY: %s\n", property), std::abort();
}

/// Measures how much more of the heap is in use at once, while it is on, than was at its beginning.
struct Heap {
    static inline bool IsOn = false;
    static inline std::ptrdiff_t Used = 0, Peak = 0;
    static inline double LargestShare = 0; // of a file from 10 kB on, in bytes for each of its own

    static void Start() {
        static const bool hooked = __sanitizer_install_malloc_and_free_hooks != nullptr &&
                                   __sanitizer_install_malloc_and_free_hooks(Taken, GivenBack) > 0 &&
                                   std::atexit(Tell) == 0;
        Used = Peak = 0;
        IsOn = hooked;
    }
    /// A load takes 6 bytes for each of the file, and 8 kB, at most.
    static void StopAfter(std::size_t fileLength) {
        IsOn = false;
        Require(static_cast<std::size_t>(Peak) <= 6 * fileLength + 8192, "a load takes little memory");
        if (fileLength >= 10'000)
            LargestShare =
                std::max(LargestShare, static_cast<double>(Peak) / static_cast<double>(fileLength));
    }

private:
    static void Taken(const volatile void*, std::size_t size) {
        if (IsOn)
            Peak = std::max(Peak, Used += static_cast<std::ptrdiff_t>(size));
    }
    static void GivenBack(const volatile void* memory) {
        if (IsOn && memory != nullptr)
            Used -= static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(memory));
    }
    static void Tell() { std::fprintf(stderr, "heap for each byte of a large file: %.2f\n", LargestShare); }
};

} // namespace railwright::fuzz
