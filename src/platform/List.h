#pragma once

#include <cstddef>
#include <new>
#include <vector>

namespace railwright {

/// Allocates memory for a list. Uses large pages for a long list if the system has them, because they are
/// allocated several times as fast. Throws std::bad_alloc.
/// @param size in bytes. Pass the same size to FreeFromList.
void* AllocateForList(std::size_t size);
void FreeFromList(void* memory, std::size_t size) noexcept;

template <class Item>
struct ListAllocator {
    using value_type = Item;

    ListAllocator() = default;
    template <class Other>
    ListAllocator(const ListAllocator<Other>&) {} // implicit, as in every allocator

    Item* allocate(std::size_t count) {
        if (count > static_cast<std::size_t>(-1) / 2 / sizeof(Item))
            throw std::bad_array_new_length();
        return static_cast<Item*>(AllocateForList(count * sizeof(Item)));
    }
    void deallocate(Item* items, std::size_t count) noexcept { FreeFromList(items, count * sizeof(Item)); }

    bool operator==(const ListAllocator&) const = default;
};

/// A list of the records of a document, or of values computed from them. Can be very long.
template <class Item>
using List = std::vector<Item, ListAllocator<Item>>;

} // namespace railwright
