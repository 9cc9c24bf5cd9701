#pragma once

#include "format/Values.h"

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

class SizeCounter;
template <class Fields>
std::int64_t SizeOf(const Fields& fields);

/// The direction that fills the records of a document from a file. No count and no length is believed before
/// it is held against the bytes that remain. Throws BrokenFile.
class ChunkReader {
public:
    /// `file` holds the file and one zero byte behind it.
    explicit ChunkReader(const FileBytes& file) : bytes(file) {}

    FilePos Position() const { return pos; }
    std::int64_t FileLength() const { return static_cast<std::int64_t>(bytes.size()) - 1; }
    void MoveTo(FilePos position) { pos = position; }

    /// Reads a tag, turned to upper case, and names it in what is thrown from then on.
    const std::string& Tag();

    /// @return whether four letters stand at `position`.
    bool LettersStandAt(std::int64_t position) const;

    /// Fills values of a fixed layout.
    template <class Layout>
    void Group(Layout&& values) {
        const FilePos size = SizeOfGroup(values);
        Need(size);
        ValueReader reader(bytes.data() + pos);
        values(reader);
        pos += size;
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
        items.assign(static_cast<std::size_t>(count) + 1, Item{});
        for (std::int32_t i = 0; i < count; ++i)
            Fields(*this, items[static_cast<std::size_t>(i)]);
    }

    /// Fills `count` items of a fixed layout. The list gets one zeroed element more than that.
    template <class Item>
    void FixedItems(std::int32_t count, std::vector<Item>& items) {
        items.clear();
        AppendFixedItems(count, items);
        items.emplace_back();
    }

    /// Fills `count` owners; each has the number of its parts in the file, followed by the parts, which all
    /// come into one list, those of an owner side by side.
    template <class Owner, class Part>
    void Nested(std::int32_t count, std::vector<Owner>& owners, std::vector<Part>& parts) {
        NeedItems(count, FileSize::Long);
        owners.assign(static_cast<std::size_t>(count) + 1, Owner{});
        parts.clear();
        for (std::int32_t i = 0; i < count; ++i) {
            Owner& owner = owners[static_cast<std::size_t>(i)];
            owner.First = parts.size();
            Count(Owner::CountName, owner.Count());
            AppendFixedItems(owner.Count(), parts);
        }
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
    void Need(std::int64_t size) const;
    void NeedItems(std::int32_t count, std::int64_t smallest) const;
    void Characters(const char* name, std::int32_t length, text& characters);
    std::int32_t Length();
    [[noreturn]] void Fail(const std::string& reason, std::int64_t byte) const;

    template <class Item>
    void AppendFixedItems(std::int32_t count, std::vector<Item>& items) {
        const FilePos size = SizeOfGroup([](auto& direction) {
            const Item item{};
            Values(direction, item);
        });
        NeedItems(count, size);
        const std::size_t first = items.size();
        items.resize(first + static_cast<std::size_t>(count));
        ValueReader reader(bytes.data() + pos);
        for (std::size_t i = first; i < items.size(); ++i)
            Values(reader, items[i]);
        pos += count * size;
    }

    const FileBytes& bytes;
    FilePos pos = 0;
    std::string tag = "file";
    const char* countName = "";
    FilePos countAt = 0;
};

} // namespace railwright
