#include "fuzz/Document.h"

using namespace railwright::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (Load(Tracks, {data, data + size}))
        RequireToComeBack(Tracks);
    return 0;
}
