#include "fuzz/Fuzz.h"
#include "platform/posix/RegistryText.h"

/// A parsed registry must be the same after it is written and parsed again.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace railwright;
    if (const auto tree = ParseRegistry({data, size})) {
        const auto written = FormatRegistry(*tree);
        // A byte takes at most a line of hexadecimal digits.
        fuzz::Require(written.size() <= 100 * (size + 100), "a key takes little room");
        const auto again = ParseRegistry(written);
        fuzz::Require(again && again->Keys() == tree->Keys(), "what is written parses to the same");
    }
    return 0;
}
