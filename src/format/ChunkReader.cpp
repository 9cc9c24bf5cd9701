#include "format/ChunkReader.h"

#include <algorithm>

namespace railwright {
namespace {

bool IsLetter(std::uint8_t byte) {
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

} // namespace

const std::string& ChunkReader::Tag() {
    Need(FileSize::Tag);
    for (std::size_t i = 0; i < 4; ++i) {
        const std::uint8_t byte = bytes[static_cast<std::size_t>(pos) + i];
        tag[i] = static_cast<char>(byte >= 'a' && byte <= 'z' ? byte - 0x20 : byte);
    }
    pos += FileSize::Tag;
    return tag;
}

bool ChunkReader::LettersStandAt(std::int64_t position) const {
    if (position < 0 || position + FileSize::Tag > FileLength())
        return false;
    const std::uint8_t* const at = bytes.data() + position;
    return IsLetter(at[0]) && IsLetter(at[1]) && IsLetter(at[2]) && IsLetter(at[3]);
}

void ChunkReader::Count(const char* name, std::int32_t& count) {
    countName = name;
    countAt = pos;
    const std::int32_t read = Length();
    if (read < 0)
        Fail(std::string(name) + " is negative (" + std::to_string(read) + ')', countAt);
    count = read;
}

void ChunkReader::Grid(std::int32_t width, std::int32_t depth, std::vector<float>& numbers) {
    const std::int64_t size = static_cast<std::int64_t>(width) * depth;
    // Of a grid of this program's largest file the product is at most 2 to the 62; its bytes need not fit.
    if (size > (static_cast<std::int64_t>(bytes.size()) - pos) / FileSize::Single)
        Fail("a grid of " + std::to_string(width) + " x " + std::to_string(depth) +
                 " needs more bytes than remain",
             countAt);
    numbers.resize(static_cast<std::size_t>(size));
    ValueReader reader(bytes.data() + pos);
    for (float& number : numbers)
        reader.Single(number);
    pos += static_cast<FilePos>(size) * FileSize::Single;
}

void ChunkReader::String(const char* name, text& characters) {
    const FilePos at = pos;
    const std::int32_t length = Length();
    if (length < 0)
        Fail("the length of " + std::string(name) + " is negative (" + std::to_string(length) + ')', at);
    Characters(name, length, characters);
}

void ChunkReader::StringIfAny(const char* name, text& characters) {
    Characters(name, std::max(Length(), 0), characters);
}

void ChunkReader::PassOver(const char* name, std::int32_t count) {
    if (count < 0)
        Fail(std::string(name) + " is negative (" + std::to_string(count) + ')', pos - FileSize::Long);
    if (count > static_cast<std::int64_t>(bytes.size()) - pos)
        Fail(std::string(name) + " of " + std::to_string(count) + " bytes leads past the end of the file",
             pos - FileSize::Long);
    pos += count;
}

void ChunkReader::Need(std::int64_t size) const {
    if (size > static_cast<std::int64_t>(bytes.size()) - pos)
        Fail("the file ends too early", FileLength());
}

void ChunkReader::NeedItems(std::int32_t count, std::int64_t smallest) const {
    const std::int64_t remaining = static_cast<std::int64_t>(bytes.size()) - pos;
    if (count > remaining / smallest)
        Fail(std::string(countName) + " of " + std::to_string(count) + " needs at least " +
                 std::to_string(count * smallest) + " bytes, " +
                 std::to_string(std::max<std::int64_t>(FileLength() - pos, 0)) + " remain",
             countAt);
}

void ChunkReader::Characters(const char* name, std::int32_t length, text& characters) {
    if (length > static_cast<std::int64_t>(bytes.size()) - pos)
        Fail("the length of " + std::string(name) + ", " + std::to_string(length) +
                 ", leads past the end of the file",
             pos - FileSize::Long);
    characters.assign(reinterpret_cast<const char*>(bytes.data()) + pos, static_cast<std::size_t>(length));
    pos += length;
}

std::int32_t ChunkReader::Length() {
    std::int32_t length = 0;
    Group([&](auto& values) { values.Long(length); });
    return length;
}

void ChunkReader::Fail(const std::string& reason, std::int64_t byte) const {
    throw BrokenFile{tag + ": " + reason, byte};
}

} // namespace railwright
