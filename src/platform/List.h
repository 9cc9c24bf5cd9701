#pragma once

#include <cstddef>
#include <new>
#include <vector>

namespace railwright {

/// Memory for a list, from the surrounding: a long list comes in large pages where there are such, which the
/// system hands out several times as fast. Throws std::bad_alloc.
/// @param size in bytes, the same for both.
void* AllocateForList(std::size_t size);
void FreeFromList(void* memory, std::size_t size) noexcept;

/// The allocator of a List.
template <class Item>
struct ListAllocator {
    using value_type = Item;

    ListAllocator() = default;
    template <class Other>
    ListAllocator(const ListAllocator<Other>&) {} // as every allocator converts, without a word

    Item* allocate(std::size_t count) {
        if (count > static_cast<std::size_t>(-1) / 2 / sizeof(Item))
            throw std::bad_array_new_length();
        return static_cast<Item*>(AllocateForList(count * sizeof(Item)));
    }
    void deallocate(Item* items, std::size_t count) noexcept { FreeFromList(items, count * sizeof(Item)); }

    bool operator==(const ListAllocator&) const = default;
};

/// A list of the records of a document, or of what is worked out from them: they can be very long.
template <class Item>
using List = std::vector<Item, ListAllocator<Item>>;

} // namespace railwright
