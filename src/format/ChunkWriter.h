#pragma once

#include "format/Values.h"
#include "platform/List.h"
#include "platform/WholeFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>
#include <system_error>

namespace railwright {

/// The direction that stores a document's records in a file. Never throws: it keeps the first failure and
/// writes nothing more.
class ChunkWriter {
public:
    /// Writes from the current position of `opened`.
    ChunkWriter(OpenFile& opened, std::error_code& failure) : file(opened), error(failure) {}

    /// Writes the rest of the window to the file.
    void Flush() {
        WriteAll(file, std::span<const std::uint8_t>(window.data(), at), error);
        std::fill(window.data(), at, std::uint8_t{0});
        at = window.data();
    }

    void Tag(const char* tag) { Characters({tag, FileSize::Tag}); }

    template <class Layout>
    void Group(Layout&& values) {
        ValueWriter writer(Passed(SizeOfGroup(values)));
        values(writer);
    }

    void Count(const char*, std::int32_t count) { Long(count); }

    template <class Item, class Layout>
    void MakeRoom(std::int32_t, const List<Item>&, Layout&&) const {} // only for readers

    template <class Item>
    void Items(std::int32_t count, const List<Item>& items) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            Fields(*this, items[i]);
    }

    template <class Item>
    void FixedItems(std::int32_t count, const List<Item>& items) {
        FixedItems(items.data(), count);
    }

    template <class Owner, class Part>
    void Nested(std::int32_t count, const List<Owner>& owners, const List<Part>& parts) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
            Long(owners[i].Count());
            FixedItems(parts.data() + owners[i].First, owners[i].Count());
        }
    }

    void Grid(std::int32_t, std::int32_t, const List<float>& numbers) {
        InBatches(numbers.data(), numbers.size(), FileSize::Single,
                  [](ValueWriter& writer, float number) { writer.Single(number); });
    }

    void String(const char*, const text& characters) {
        Long(static_cast<std::int32_t>(characters.size()));
        Characters(characters);
    }
    void StringIfAny(const char* name, const text& characters) { String(name, characters); }

    template <class Layout>
    void Block(Layout&& values) {
        Long(SizeOfGroup(values));
        Group(values);
    }

    void PassOver(const char*, std::int32_t count) {
        for (std::int32_t left = count; left > 0;) {
            const std::int32_t piece = std::min(left, static_cast<std::int32_t>(window.size()));
            Passed(piece);
            left -= piece;
        }
    }

private:
    std::ptrdiff_t Room() const { return window.data() + window.size() - at; }

    /// Skips `size` zeroed bytes, which must fit into the window.
    /// @return the first of them.
    std::uint8_t* Passed(FilePos size) {
        if (size > Room())
            Flush();
        at += size;
        return at - size;
    }

    void Long(std::int32_t value) { WriteLong(Passed(FileSize::Long), value); }

    void Characters(TextView characters) {
        while (!characters.empty()) {
            const std::size_t piece = std::min(characters.size(), window.size());
            std::memcpy(Passed(static_cast<FilePos>(piece)), characters.data(), piece);
            characters.remove_prefix(piece);
        }
    }

    template <class Item>
    void FixedItems(const Item* items, std::int32_t count) {
        if (count == 0)
            return;
        const FilePos size = SizeOfGroup([&](auto& direction) { Values(direction, items[0]); });
        InBatches(items, static_cast<std::size_t>(count), size,
                  [](ValueWriter& writer, const Item& item) { Values(writer, item); });
    }

    /// Stores items of `size` bytes each, in batches that fit into the window.
    template <class Item, class Store>
    void InBatches(const Item* items, std::size_t count, FilePos size, Store&& store) {
        while (count > 0) {
            if (size > Room())
                Flush();
            const std::size_t batch = std::min(count, static_cast<std::size_t>(Room() / size));
            ValueWriter writer(Passed(static_cast<FilePos>(batch) * size));
            for (std::size_t i = 0; i < batch; ++i)
                store(writer, items[i]);
            items += batch;
            count -= batch;
        }
    }

    OpenFile& file;
    std::error_code& error;
    /// The bytes before `at` are not yet in the file. All others are zero.
    std::array<std::uint8_t, FileWindow> window{};
    std::uint8_t* at = window.data();
};

} // namespace railwright
