#include "format/ChunkReader.h"

#include "platform/FileOperations.h"

#include <algorithm>

namespace railwright {
namespace {

bool IsLetter(std::uint8_t byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

} // namespace

ChunkReader::ChunkReader(OpenFile& opened, std::int64_t length) : file(opened), fileLength(length) {}

void ChunkReader::Refill(std::int64_t size) {
    if (size > Remaining())
        Fail("the file ends too early", FileLength());
    std::uint8_t* filled = std::copy(at, end, window.data());
    at = window.data();
    end = filled;
    while (Ahead() < size) {
        const auto room = static_cast<std::int64_t>(window.size()) - Ahead();
        const std::int64_t wanted = std::min(room, fileLength - endPosition);
        std::error_code error;
        std::size_t read = 1;
        if (wanted > 0)
            read = file.Read({filled, static_cast<std::size_t>(wanted)}, error);
        else
            *filled = 0; // the zero byte after the file
        if (error)
            Fail("cannot be read: " + error.message(), endPosition);
        if (read == 0) // another process truncated the file
            Fail("the file ends too early", endPosition);
        filled += read;
        end = filled;
        endPosition += static_cast<std::int64_t>(read);
    }
}

std::string UnknownChunks::Described() const {
    const std::string first = "'" + FirstTag + "' (" + std::to_string(FirstSize) + " bytes at byte " +
                              std::to_string(FirstByte) + ')';
    return Count == 1 ? "1 unknown chunk " + first
                      : std::to_string(Count) + " unknown chunks, the first " + first + ',';
}

void ChunkReader::CountUnknown(std::int32_t size) {
    if (++unknown.Count > 1)
        return;
    unknown.FirstTag = ShownTag();
    unknown.FirstSize = size;
    unknown.FirstByte = tagAt;
}

const std::string& ChunkReader::Tag() {
    tagAt = Position();
    const std::uint8_t* const read = Passed(FileSize::Tag);
    for (std::size_t i = 0; i < 4; ++i)
        tag[i] = static_cast<char>(read[i] >= 'a' && read[i] <= 'z' ? read[i] - 0x20 : read[i]);
    return tag;
}

bool ChunkReader::LettersStandAhead(FilePos distance) {
    const FilePos size = distance + FileSize::Tag;
    if (Position() + size > FileLength())
        return false;
    const std::uint8_t* const there = Passed(size) + distance;
    at -= size;
    return std::all_of(there, there + FileSize::Tag, IsLetter);
}

void ChunkReader::Grid(std::int32_t width, std::int32_t depth, List<float>& numbers) {
    const std::int64_t size = static_cast<std::int64_t>(width) * depth;
    // For the largest file that the program writes, the product is at most 2 to the 62. Its size in bytes
    // could overflow.
    if (size > Remaining() / FileSize::Single)
        Fail("a grid of " + std::to_string(width) + " x " + std::to_string(depth) +
                 " needs more bytes than remain",
             countAt);
    Reserve(numbers, size);
    InBatches(size, FileSize::Single, [&](const std::uint8_t* first, std::size_t batch) {
        const std::size_t before = numbers.size();
        numbers.resize(before + batch);
        ValueReader reader(first);
        for (std::size_t i = before; i < numbers.size(); ++i)
            reader.Single(numbers[i]);
    });
}

void ChunkReader::String(const char* name, text& characters) {
    const std::int64_t position = Position();
    const std::int32_t length = Long();
    if (length < 0)
        Fail("the length of " + std::string(name) + " is negative (" + std::to_string(length) + ')',
             position);
    Characters(name, length, characters);
}

void ChunkReader::StringIfAny(const char* name, text& characters) {
    Characters(name, std::max(Long(), 0), characters);
}

void ChunkReader::PassOver(const char* name, std::int32_t count) {
    const std::int64_t countPosition = Position() - FileSize::Long;
    if (count < 0)
        Fail(std::string(name) + " is negative (" + std::to_string(count) + ')', countPosition);
    if (count > Remaining())
        Fail(std::string(name) + " of " + std::to_string(count) + " bytes leads past the end of the file",
             countPosition);
    InBatches(count, 1, [](const std::uint8_t*, std::size_t) {});
}

void ChunkReader::NeedItems(std::int32_t count, std::int64_t smallest) const {
    if (count * smallest > Remaining())
        Fail(std::string(countName) + " of " + std::to_string(count) + " needs at least " +
                 std::to_string(count * smallest) + " bytes, " +
                 std::to_string(std::max<std::int64_t>(Remaining() - 1, 0)) + " remain",
             countAt);
}

void ChunkReader::Characters(const char* name, std::int32_t length, text& characters) {
    if (length > Remaining())
        Fail("the length of " + std::string(name) + ", " + std::to_string(length) +
                 ", leads past the end of the file",
             Position() - FileSize::Long);
    characters.clear();
    characters.reserve(static_cast<std::size_t>(length));
    InBatches(length, 1, [&](const std::uint8_t* first, std::size_t batch) {
        characters.append(reinterpret_cast<const char*>(first), batch);
    });
}

std::string ChunkReader::ShownTag() const {
    // A broken file may contain control characters here.
    std::string shown = tag;
    std::replace_if(
        shown.begin(), shown.end(), [](char character) { return character <= ' ' || character > '~'; }, '?');
    return shown;
}

void ChunkReader::Fail(const std::string& reason, std::int64_t byte) const {
    throw BrokenFile{ShownTag() + ": " + reason, byte};
}

} // namespace railwright
