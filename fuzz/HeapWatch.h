#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// They are there in a build with the address sanitizer.
extern "C" {
[[gnu::weak]] int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, std::size_t),
                                                            void (*)(const volatile void*));
[[gnu::weak]] std::size_t __sanitizer_get_allocated_size(const volatile void*);
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
}

namespace railwright::fuzz {

/// Ends the process where a property does not hold.
inline void Require(bool holds, const char* property) {
    if (holds)
        return;
    std::fprintf(stderr, "BROKEN PROPERTY: %s\n", property);
    std::abort();
}

/// Measures how much more of the heap is in use at once while it lives than was at its beginning.
class HeapWatch {
public:
    /// The most that a load may take: so much for each byte of the file, and so much for any file.
    static constexpr std::size_t PerByte = 6;
    static constexpr std::size_t Constant = 8192;
    /// Files from this length on count for the largest share.
    static constexpr std::size_t Large = 10'000;

    HeapWatch() {
        static const bool hooked = __sanitizer_install_malloc_and_free_hooks != nullptr &&
                                   __sanitizer_install_malloc_and_free_hooks(Taken, GivenBack) > 0 &&
                                   std::atexit(Tell) == 0;
        used = peak = 0;
        isWatching = hooked;
    }
    ~HeapWatch() { isWatching = false; }
    HeapWatch(const HeapWatch&) = delete;
    HeapWatch& operator=(const HeapWatch&) = delete;

    void RequireSmall(std::size_t fileLength) const {
        isWatching = false;
        const auto most = static_cast<std::size_t>(peak);
        Require(most <= PerByte * fileLength + Constant, "a load takes a small multiple of the file's size");
        if (fileLength >= Large && most * itsFileLength > largestPeak * fileLength)
            largestPeak = most, itsFileLength = fileLength;
    }

private:
    static void Tell() {
        if (largestPeak > 0)
            std::fprintf(stderr, "largest heap: %zu bytes for a file of %zu, %.2f for each\n", largestPeak,
                         itsFileLength,
                         static_cast<double>(largestPeak) / static_cast<double>(itsFileLength));
    }
    static void Taken(const volatile void*, std::size_t size) {
        if (isWatching)
            peak = std::max(peak, used += static_cast<std::ptrdiff_t>(size));
    }
    static void GivenBack(const volatile void* memory) {
        if (isWatching && memory != nullptr)
            used -= static_cast<std::ptrdiff_t>(__sanitizer_get_allocated_size(memory));
    }

    static inline bool isWatching = false;
    static inline std::ptrdiff_t used = 0;
    static inline std::ptrdiff_t peak = 0;
    /// Of the load that took most for each byte of its file, told at the end of the process.
    static inline std::size_t largestPeak = 0;
    static inline std::size_t itsFileLength = 1;
};

} // namespace railwright::fuzz
