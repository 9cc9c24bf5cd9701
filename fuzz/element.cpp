#include "fuzz/Document.h"

using namespace railwright::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (Load(Elements, {data, data + size}))
        RequireToComeBack(Elements);
    return 0;
}
