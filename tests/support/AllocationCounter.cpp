#include "tests/support/AllocationCounter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> allocated = 0;

void* Allocate(std::size_t size) noexcept {
    allocated += size;
    return std::malloc(size == 0 ? 1 : size);
}

} // namespace

void* operator new(std::size_t size) {
    if (void* const memory = Allocate(size))
        return memory;
    throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace railwright::testing {

std::size_t AllocatedBytes() {
    return allocated;
}

} // namespace railwright::testing
