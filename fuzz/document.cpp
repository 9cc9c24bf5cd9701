#include "fuzz/Document.h"

/// For the kind that the build names.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (railwright::fuzz::Load(railwright::fuzz::TARGET, {data, data + size}))
        railwright::fuzz::RequireToComeBack(railwright::fuzz::TARGET);
    return 0;
}
