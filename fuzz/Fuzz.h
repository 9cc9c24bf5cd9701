#pragma once

#include "fuzz/MemoryFiles.h"

#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace railwright::fuzz {

using Bytes = MemoryFiles::Bytes;

/// Aborts if a property does not hold.
inline void Require(bool holds, const char* property) {
    if (!holds)
        std::fprintf(stderr, "BROKEN PROPERTY: %s\n", property), std::abort();
}

} // namespace railwright::fuzz
