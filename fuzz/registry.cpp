#include "fuzz/Fuzz.h"
#include "platform/posix/RegistryText.h"

namespace railwright {

static bool operator==(const RegistryValue& a, const RegistryValue& b) {
    return a.Name == b.Name && a.Type == b.Type && a.Data == b.Data;
}
static bool operator==(const RegistryKey& a, const RegistryKey& b) {
    return a.Path == b.Path && a.Values == b.Values;
}

} // namespace railwright

/// What parses is written and parses to the same.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace railwright;
    if (const auto tree = ParseRegistry({data, size})) {
        const auto again = ParseRegistry(FormatRegistry(*tree));
        fuzz::Require(again && again->Keys() == tree->Keys(), "what is written parses to the same");
    }
    return 0;
}
