#include "platform/List.h"

#include <sys/mman.h>

namespace railwright {
namespace {

constexpr auto LargePage = std::size_t{2} * 1024 * 1024;
constexpr auto Alignment = std::align_val_t{LargePage};

/// From half a page on, one whole page costs less than the small ones do.
bool IsLong(std::size_t size) {
    return size >= LargePage / 2;
}

} // namespace

void* AllocateForList(std::size_t size) {
    if (!IsLong(size))
        return ::operator new(size);
    const std::size_t pages = (size + LargePage - 1) / LargePage * LargePage;
    void* const memory = ::operator new(pages, Alignment);
    madvise(memory, pages, MADV_HUGEPAGE); // a system without them goes on with small ones
    return memory;
}

void FreeFromList(void* memory, std::size_t size) noexcept {
    if (IsLong(size))
        ::operator delete(memory, Alignment);
    else
        ::operator delete(memory);
}

} // namespace railwright
