#pragma once

#include "format/Values.h"
#include "platform/List.h"

#include <cstddef>

namespace railwright {

/// The direction that adds up the size of the records in a file.
class SizeCounter {
public:
    /// The sum so far.
    std::int64_t Bytes() const { return bytes; }

    template <class Layout>
    void Group(Layout&& values) {
        bytes += SizeOfGroup(values);
    }

    void Count(const char*, std::int32_t) { bytes += FileSize::Long; }

    template <class Item, class Layout>
    void MakeRoom(std::int32_t, const List<Item>&, Layout&&) const {} // only for readers

    template <class Item>
    void Items(std::int32_t count, const List<Item>& items) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            Fields(*this, items[i]);
    }

    template <class Item>
    void FixedItems(std::int32_t count, const List<Item>&) {
        bytes += count * SizeOfItem<Item>();
    }

    template <class Owner, class Part>
    void Nested(std::int32_t count, const List<Owner>& owners, const List<Part>&) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            bytes += FileSize::Long + owners[i].Count() * SizeOfItem<Part>();
    }

    void Grid(std::int32_t, std::int32_t, const List<float>& numbers) {
        bytes += static_cast<std::int64_t>(numbers.size()) * FileSize::Single;
    }

    void String(const char*, const text& characters) {
        bytes += FileSize::Long + static_cast<std::int64_t>(characters.size());
    }
    void StringIfAny(const char* name, const text& characters) { String(name, characters); }

    template <class Layout>
    void Block(Layout&& values) {
        bytes += FileSize::Long + SizeOfGroup(values);
    }

    void PassOver(const char*, std::int32_t count) { bytes += count; }

private:
    template <class Item>
    static std::int64_t SizeOfItem() {
        return SizeOfGroup([](auto& direction) {
            const Item item{};
            Values(direction, item);
        });
    }

    std::int64_t bytes = 0;
};

/// @return the size in bytes of a record's fields in a file.
template <class Record>
std::int64_t SizeOf(const Record& record) {
    SizeCounter counter;
    Fields(counter, record);
    return counter.Bytes();
}

} // namespace railwright
