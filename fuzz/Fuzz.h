#pragma once

#include "tests/support/MemoryFiles.h"

#include <cstdio>
#include <cstdlib>

extern "C" {
// These two are there in a build with the address sanitizer.
[[gnu::weak]] int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, std::size_t),
                                                            void (*)(const volatile void*));
[[gnu::weak]] std::size_t __sanitizer_get_allocated_size(const volatile void*);
/// The target.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
}

namespace railwright::fuzz {

using testing::MemoryFiles;
using Bytes = MemoryFiles::Bytes;

/// Ends the process where a property does not hold.
inline void Require(bool holds, const char* property) {
    if (!holds)
        std::fprintf(stderr, "BROKEN PROPERTY: %s\n", property), std::abort();
}

} // namespace railwright::fuzz
