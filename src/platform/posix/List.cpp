#include "platform/List.h"

#include <sys/mman.h>

namespace railwright {
namespace {

constexpr auto LargePage = std::size_t{2} * 1024 * 1024;
constexpr auto Alignment = std::align_val_t{LargePage};

/// From half a large page on, one large page is cheaper than many small ones.
bool IsLong(std::size_t size) {
    return size >= LargePage / 2;
}

} // namespace

void* AllocateForList(std::size_t size) {
    if (!IsLong(size))
        return ::operator new(size);
    const std::size_t pages = (size + LargePage - 1) / LargePage * LargePage;
    void* const memory = ::operator new(pages, Alignment);
    madvise(memory, pages, MADV_HUGEPAGE); // if unsupported, small pages are used
    return memory;
}

void FreeFromList(void* memory, std::size_t size) noexcept {
    if (IsLong(size))
        ::operator delete(memory, Alignment);
    else
        ::operator delete(memory);
}

} // namespace railwright
