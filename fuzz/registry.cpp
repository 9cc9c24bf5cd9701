#include "fuzz/Fuzz.h"
#include "platform/posix/RegistryText.h"

/// What parses is written and parses to the same.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (const auto tree = railwright::ParseRegistry({data, size})) {
        const auto again = railwright::ParseRegistry(railwright::FormatRegistry(*tree));
        railwright::fuzz::Require(again && again->Keys() == tree->Keys(),
                                  "what is written parses to the same");
    }
    return 0;
}
