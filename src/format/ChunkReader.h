#pragma once

#include "format/Values.h"
#include "platform/List.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace railwright {

/// Thrown while a file is decoded: what is wrong with it, and at which byte. It never leaves the load.
struct BrokenFile {
    std::string Reason;
    std::int64_t Byte;
};

/// The chunks of a file that this program does not know and therefore does not save.
struct UnknownChunks {
    std::int64_t Count = 0;
    /// The first one: its tag in printable characters, its size field, and the position of its tag in bytes.
    std::string FirstTag;
    std::int32_t FirstSize = 0;
    std::int64_t FirstByte = 0;

    /// Returns how many there are and which is the first, as the subject of a sentence.
    std::string Described() const;
};

/// @return an item whose size in a file is the smallest of its kind. A kind whose zeroed item is not the
/// smallest has a specialisation beside its layout.
template <class Item>
Item SmallestItem() {
    return {};
}

class OpenFile;
class SizeCounter;
template <class Fields>
std::int64_t SizeOf(const Fields& fields);

/// The direction that fills the records of a document from a file. No count and no length is believed before
/// it is held against the bytes that remain; one zero byte behind the file counts as one of them. Throws
/// BrokenFile.
class ChunkReader {
public:
    /// @param file is read from where it stands, its first byte. @param length of it in bytes.
    ChunkReader(OpenFile& file, std::int64_t length);

    std::int64_t Position() const { return endPosition - Ahead(); }
    std::int64_t FileLength() const { return fileLength; }

    /// Reads a tag, turned to upper case, and names it in what is thrown from then on.
    const std::string& Tag();

    /// @return whether four letters stand in the file, so many bytes ahead.
    bool LettersStandAhead(FilePos distance);

    /// Fills values of a fixed layout.
    template <class Layout>
    void Group(Layout&& values) {
        ValueReader reader(Passed(SizeOfGroup(values)));
        values(reader);
    }

    /// Reads the number of items or sub-chunks, which is at least 0.
    void Count(const char* name, std::int32_t& count) {
        countName = name;
        countAt = Position();
        count = Long();
        if (count < 0)
            Fail(std::string(name) + " is negative (" + std::to_string(count) + ')', countAt);
    }

    /// Gives a list `count` zeroed items and one more, once as many groups of a fixed layout are known to
    /// remain.
    template <class Item, class Layout>
    void MakeRoom(std::int32_t count, List<Item>& items, Layout&& layoutOfOne) {
        NeedItems(count, SizeOfGroup(layoutOfOne));
        items.assign(static_cast<std::size_t>(count) + 1, Item{});
    }

    /// Fills `count` items whose size varies. The list gets one zeroed element more than that.
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

    /// Fills `count` items of a fixed layout. The list gets one zeroed element more than that.
    template <class Item>
    void FixedItems(std::int32_t count, List<Item>& items) {
        const FilePos size = NeedFixedItems<Item>(count);
        Reserve(items, count + std::int64_t{1});
        AppendFixedItems(count, size, items);
        items.emplace_back();
    }

    /// Fills `count` owners; each has the number of its parts in the file, followed by the parts, which all
    /// come into one list, those of an owner side by side.
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

    /// Fills a grid of `width` x `depth` numbers, row by row.
    void Grid(std::int32_t width, std::int32_t depth, List<float>& numbers);

    /// Reads a length and as many characters.
    void String(const char* name, text& characters);

    /// Reads a length and as many characters; a negative length counts as 0.
    void StringIfAny(const char* name, text& characters);

    /// Passes over the size of a parameter block and fills the block.
    template <class Layout>
    void Block(Layout&& values) {
        Passed(FileSize::Long);
        Group(values);
    }

    /// Counts a chunk that this program does not know, after its tag has been read.
    void CountUnknown(std::int32_t size);
    /// Returns all chunks counted so far.
    const UnknownChunks& Unknown() const { return unknown; }

    /// Passes over as many bytes as `count` says, which is at least 0.
    void PassOver(const char* name, std::int32_t count);

private:
    /// Bytes of the window that are still to be read.
    std::int64_t Ahead() const { return end - at; }
    /// Bytes of the file that are still to be read, the zero byte behind it included.
    std::int64_t Remaining() const { return fileLength + 1 - Position(); }
    /// Brings as many bytes into the window at least, and as many as it takes at best.
    void Refill(std::int64_t size);

    /// Passes over bytes, which are fewer than the window takes. @return the first of them.
    const std::uint8_t* Passed(FilePos size) {
        if (size > Ahead())
            Refill(size);
        at += size;
        return at - size;
    }

    /// Makes a list empty, with room for as many items as are now going to be appended.
    template <class Item>
    static void Reserve(List<Item>& items, std::int64_t count) {
        items.clear();
        items.reserve(static_cast<std::size_t>(count));
    }

    /// Calls `take` with the first byte and the number of all items of `size` bytes that the window holds,
    /// again and again, for `count` items in all, which are known to remain.
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
    /// Position in the file of the byte behind the window's last.
    std::int64_t endPosition = 0;
    std::string tag = "file";
    std::int64_t tagAt = 0;
    UnknownChunks unknown;
    const char* countName = "";
    std::int64_t countAt = 0;
};

} // namespace railwright
