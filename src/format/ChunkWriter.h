#pragma once

#include "format/Values.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

namespace railwright {

/// The direction that stores the records of a document. The bytes it is given are as many as the file is to
/// have, which were counted over the same layout, and all zero.
class ChunkWriter {
public:
    explicit ChunkWriter(FileBytes& file) : at(file.data()) {}

    void Tag(const char* tag) {
        std::memcpy(at, tag, FileSize::Tag);
        at += FileSize::Tag;
    }

    template <class Layout>
    void Group(Layout&& values) {
        ValueWriter writer(at);
        values(writer);
        at += SizeOfGroup(values);
    }

    void Count(const char*, std::int32_t count) { Long(count); }

    template <class Item, class Layout>
    void MakeRoom(std::int32_t, const std::vector<Item>&, Layout&&) const {} // only a reader has to

    template <class Item>
    void Items(std::int32_t count, const std::vector<Item>& items) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            Fields(*this, items[i]);
    }

    template <class Item>
    void FixedItems(std::int32_t count, const std::vector<Item>& items) {
        FixedItems(items.data(), count);
    }

    template <class Owner, class Part>
    void Nested(std::int32_t count, const std::vector<Owner>& owners, const std::vector<Part>& parts) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
            Long(owners[i].Count());
            FixedItems(parts.data() + owners[i].First, owners[i].Count());
        }
    }

    void Grid(std::int32_t, std::int32_t, const std::vector<float>& numbers) {
        ValueWriter writer(at);
        for (const float number : numbers)
            writer.Single(number);
        at += numbers.size() * FileSize::Single;
    }

    void String(const char*, const text& characters) {
        Long(static_cast<std::int32_t>(characters.size()));
        std::memcpy(at, characters.data(), characters.size());
        at += characters.size();
    }
    void StringIfAny(const char* name, const text& characters) { String(name, characters); }

    template <class Layout>
    void Block(Layout&& values) {
        Long(SizeOfGroup(values));
        Group(values);
    }

    void PassOver(const char*, std::int32_t count) { at += count; }

private:
    void Long(std::int32_t value) {
        WriteLong(at, value);
        at += FileSize::Long;
    }

    template <class Item>
    void FixedItems(const Item* items, std::int32_t count) {
        if (count == 0)
            return;
        ValueWriter writer(at);
        for (std::int32_t i = 0; i < count; ++i)
            Values(writer, items[i]);
        at += static_cast<std::size_t>(count) *
              static_cast<std::size_t>(SizeOfGroup([&](auto& direction) { Values(direction, items[0]); }));
    }

    std::uint8_t* at;
};

} // namespace railwright
