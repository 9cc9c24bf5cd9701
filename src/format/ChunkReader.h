#pragma once

#include "format/Values.h"
#include "platform/List.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace railwright {

/// Thrown while a file is decoded: the error and its position. Never leaves the load.
struct BrokenFile {
    std::string Reason;
    std::int64_t Byte;
};

/// The chunks of a file that this program does not know. They are not saved.
struct UnknownChunks {
    std::int64_t Count = 0;
    /// First unknown chunk: its tag in printable characters, its size field, and the position of its tag in
    /// bytes.
    std::string FirstTag;
    std::int32_t FirstSize = 0;
    std::int64_t FirstByte = 0;

    /// Returns their number and the first one, as the subject of a sentence.
    std::string Described() const;
};

/// @return the item with the smallest size in a file. If that is not the zeroed item, a specialisation next
/// to the layout returns another one.
template <class Item>
Item SmallestItem() {
    return {};
}

class OpenFile;
class SizeCounter;
template <class Fields>
std::int64_t SizeOf(const Fields& fields);

/// The direction that fills a document's records from a file. Checks every count and length against the
/// remaining bytes. One zero byte after the file counts as one of them. Throws BrokenFile.
class ChunkReader {
public:
    /// @param file is at its first byte.
    /// @param length of the file in bytes.
    ChunkReader(OpenFile& file, std::int64_t length);

    std::int64_t Position() const { return endPosition - Ahead(); }
    std::int64_t FileLength() const { return fileLength; }

    /// Reads a tag and turns it to upper case. Later error messages name it.
    const std::string& Tag();

    /// @return whether four letters follow after `distance` bytes.
    bool LettersStandAhead(FilePos distance);

    /// Reads values of a fixed layout.
    template <class Layout>
    void Group(Layout&& values) {
        ValueReader reader(Passed(SizeOfGroup(values)));
        values(reader);
    }

    /// Reads a number of items or sub-chunks. Fails if it is negative.
    void Count(const char* name, std::int32_t& count) {
        countName = name;
        countAt = Position();
        count = Long();
        if (count < 0)
            Fail(std::string(name) + " is negative (" + std::to_string(count) + ')', countAt);
    }

    /// Sizes a list to `count` zeroed items and one more. Fails first if the file is too short for that many
    /// groups of a fixed layout.
    template <class Item, class Layout>
    void MakeRoom(std::int32_t count, List<Item>& items, Layout&& layoutOfOne) {
        NeedItems(count, SizeOfGroup(layoutOfOne));
        items.assign(static_cast<std::size_t>(count) + 1, Item{});
    }

    /// Reads `count` items whose size varies. Adds one zeroed element to the list.
    template <class Item>
    void Items(std::int32_t count, List<Item>& items) {
        NeedItems(count, SizeOf(SmallestItem<Item>()));
        Reserve(items, count + std::int64_t{1});
        const Item zeroed{};
        for (std::int32_t i = 0; i < count; ++i) {
            items.push_back(zeroed);
            Fields(*this, items.back());
        }
        items.push_back(zeroed);
    }

    /// Reads `count` items of a fixed layout. Adds one zeroed element to the list.
    template <class Item>
    void FixedItems(std::int32_t count, List<Item>& items) {
        const FilePos size = NeedFixedItems<Item>(count);
        Reserve(items, count + std::int64_t{1});
        AppendFixedItems(count, size, items);
        items.emplace_back();
    }

    /// Reads `count` owners. In the file, each owner is its number of parts, followed by the parts. All parts
    /// go into one list, grouped by owner.
    template <class Owner, class Part>
    void Nested(std::int32_t count, List<Owner>& owners, List<Part>& parts) {
        NeedItems(count, FileSize::Long);
        Reserve(owners, count + std::int64_t{1});
        parts.clear();
        for (std::int32_t i = 0; i < count; ++i) {
            Owner& owner = owners.emplace_back();
            owner.First = parts.size();
            Count(Owner::CountName, owner.Count());
            if (owner.Count() > 0)
                AppendFixedItems(owner.Count(), NeedFixedItems<Part>(owner.Count()), parts);
        }
        owners.emplace_back();
    }

    /// Reads a grid of `width` x `depth` numbers, row by row.
    void Grid(std::int32_t width, std::int32_t depth, List<float>& numbers);

    /// Reads a length, then that many characters.
    void String(const char* name, text& characters);

    /// Reads a string like String, but treats a negative length as 0.
    void StringIfAny(const char* name, text& characters);

    /// Skips the size of a parameter block, then reads the block.
    template <class Layout>
    void Block(Layout&& values) {
        Passed(FileSize::Long);
        Group(values);
    }

    /// Counts an unknown chunk whose tag was just read.
    void CountUnknown(std::int32_t size);
    const UnknownChunks& Unknown() const { return unknown; }

    /// Skips `count` bytes. Fails if `count` is negative.
    void PassOver(const char* name, std::int32_t count);

private:
    /// Unread bytes of the window.
    std::int64_t Ahead() const { return end - at; }
    /// Unread bytes of the file, including the zero byte after it.
    std::int64_t Remaining() const { return fileLength + 1 - Position(); }
    /// Reads from the file until the window holds at least `size` unread bytes.
    void Refill(std::int64_t size);

    /// Skips `size` bytes, which must fit into the window.
    /// @return the first of them.
    const std::uint8_t* Passed(FilePos size) {
        if (size > Ahead())
            Refill(size);
        at += size;
        return at - size;
    }

    /// Empties a list and reserves memory for `count` items.
    template <class Item>
    static void Reserve(List<Item>& items, std::int64_t count) {
        items.clear();
        items.reserve(static_cast<std::size_t>(count));
    }

    /// Calls `take` repeatedly, until it has consumed `count` items of `size` bytes. Passes the first byte
    /// and the number of items in the window. The caller must check first that the file is long enough.
    template <class Take>
    void InBatches(std::int64_t count, FilePos size, Take&& take) {
        while (count > 0) {
            if (size > Ahead())
                Refill(size);
            const std::int64_t batch = std::min(count, Ahead() / size);
            take(at, static_cast<std::size_t>(batch));
            at += batch * size;
            count -= batch;
        }
    }

    std::string ShownTag() const;
    void NeedItems(std::int32_t count, std::int64_t smallest) const;
    void Characters(const char* name, std::int32_t length, text& characters);
    std::int32_t Long() { return ReadLong(Passed(FileSize::Long)); }
    [[noreturn]] void Fail(const std::string& reason, std::int64_t byte) const;

    /// Fails if fewer than `count` items remain.
    /// @return the size of one item.
    template <class Item>
    FilePos NeedFixedItems(std::int32_t count) const {
        const FilePos size = SizeOfGroup([](auto& direction) {
            const Item item{};
            Values(direction, item);
        });
        NeedItems(count, size);
        return size;
    }

    template <class Item>
    void AppendFixedItems(std::int32_t count, FilePos size, List<Item>& items) {
        InBatches(count, size, [&](const std::uint8_t* first, std::size_t batch) {
            const std::size_t before = items.size();
            items.resize(before + batch);
            ValueReader reader(first);
            for (std::size_t i = before; i < items.size(); ++i)
                Values(reader, items[i]);
        });
    }

    OpenFile& file;
    std::int64_t fileLength;
    std::array<std::uint8_t, FileWindow> window;
    const std::uint8_t* at = window.data();
    const std::uint8_t* end = window.data();
    /// Position in the file where the window ends.
    std::int64_t endPosition = 0;
    std::string tag = "file";
    std::int64_t tagAt = 0;
    UnknownChunks unknown;
    const char* countName = "";
    std::int64_t countAt = 0;
};

} // namespace railwright
