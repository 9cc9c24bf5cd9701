#pragma once

#include "format/Values.h"
#include "platform/Memory.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace railwright {

/// Thrown while a file is decoded: what is wrong with it, and at which byte. It never leaves the load.
struct BrokenFile {
    std::string Reason;
    std::int64_t Byte;
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
    void Count(const char* name, std::int32_t& count);

    /// Gives a list `count` zeroed items and one more, once as many groups of a fixed layout are known to
    /// remain.
    template <class Item, class Layout>
    void MakeRoom(std::int32_t count, std::vector<Item>& items, Layout&& layoutOfOne) {
        NeedItems(count, SizeOfGroup(layoutOfOne));
        items.assign(static_cast<std::size_t>(count) + 1, Item{});
    }

    /// Fills `count` items whose size varies. The list gets one zeroed element more than that.
    template <class Item>
    void Items(std::int32_t count, std::vector<Item>& items) {
        NeedItems(count, SizeOf(SmallestItem<Item>()));
        Reserve(items, count + std::int64_t{1});
        for (std::int32_t i = 0; i < count; ++i)
            Fields(*this, items.emplace_back());
        items.emplace_back();
    }

    /// Fills `count` items of a fixed layout. The list gets one zeroed element more than that.
    template <class Item>
    void FixedItems(std::int32_t count, std::vector<Item>& items) {
        const FilePos size = NeedFixedItems<Item>(count);
        Reserve(items, count + std::int64_t{1});
        AppendFixedItems(count, size, items);
        items.emplace_back();
    }

    /// Fills `count` owners; each has the number of its parts in the file, followed by the parts, which all
    /// come into one list, those of an owner side by side.
    template <class Owner, class Part>
    void Nested(std::int32_t count, std::vector<Owner>& owners, std::vector<Part>& parts) {
        NeedItems(count, FileSize::Long);
        Reserve(owners, count + std::int64_t{1});
        parts.clear();
        for (std::int32_t i = 0; i < count; ++i) {
            Owner& owner = owners.emplace_back();
            owner.First = parts.size();
            Count(Owner::CountName, owner.Count());
            AppendFixedItems(owner.Count(), NeedFixedItems<Part>(owner.Count()), parts);
        }
        owners.emplace_back();
    }

    /// Fills a grid of `width` x `depth` numbers, row by row.
    void Grid(std::int32_t width, std::int32_t depth, std::vector<float>& numbers);

    /// Reads a length and as many characters.
    void String(const char* name, text& characters);

    /// Reads a length and as many characters; a negative length counts as 0.
    void StringIfAny(const char* name, text& characters);

    /// Passes over the size of a parameter block and fills the block.
    template <class Layout>
    void Block(Layout&& values) {
        PassOver("parameter block", FileSize::Long);
        Group(values);
    }

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
    static void Reserve(std::vector<Item>& items, std::int64_t count) {
        items = {};
        items.reserve(static_cast<std::size_t>(count));
        PreferLargePages(items.data(), items.capacity() * sizeof(Item));
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

    void NeedItems(std::int32_t count, std::int64_t smallest) const;
    void Characters(const char* name, std::int32_t length, text& characters);
    std::int32_t Length();
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
    void AppendFixedItems(std::int32_t count, FilePos size, std::vector<Item>& items) {
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
    const char* countName = "";
    std::int64_t countAt = 0;
};

} // namespace railwright
