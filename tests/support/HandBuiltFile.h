#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace railwright::testing {

using Bytes = std::vector<unsigned char>;

/// How a file may depart from the form in which this program writes it.
struct Form {
    /// Stands in every byte that is passed over, and in a colour's first.
    int Noise = 0x00;
    /// The byte of a flag that is set.
    int True = 0xFF;
    /// The four bytes of the version.
    std::uint32_t Version = 0x01030000;
    bool LowerCaseTags = false;
    /// Every chunk's sub-chunks stand in reverse order.
    bool Reversed = false;
    /// Added to every ChunkSize and to the size of every parameter block.
    int SizeError = 0;
    /// A chunk that nobody knows stands before each sub-chunk, and its size leaves out so many of its bytes;
    /// -1 for no such chunks.
    int UnknownChunksShortBy = -1;
    /// Bytes behind the last chunk.
    std::size_t Trailing = 0;
};

/// Values of one kind that stand one behind the other.
template <class T>
struct Several {
    Several(std::initializer_list<T> values) : Values(values) {}
    std::vector<T> Values;
};
using Longs = Several<std::int64_t>;
using Singles = Several<float>;
using Flags = Several<bool>;
using Colors = Several<std::uint32_t>;
struct Zeros {
    std::size_t Count;
};
struct Byte {
    int Value;
};
struct Tag {
    std::string Letters;
};

/// Puts a file together value by value, with an arithmetic of its own.
class FileBuilder {
public:
    explicit FileBuilder(const Form& formOfFile = {}) : form(formOfFile) {}

    template <class T>
    FileBuilder& operator<<(const Several<T>& several) {
        for (const T value : several.Values)
            Put(value);
        return *this;
    }
    FileBuilder& operator<<(Zeros zeros);
    FileBuilder& operator<<(Byte byte);
    FileBuilder& operator<<(const Tag& tag);
    FileBuilder& operator<<(const std::string& characters);
    FileBuilder& operator<<(const Bytes& more);

    operator const Bytes&() const { return bytes; }

private:
    void Put(std::int64_t value);
    void Put(float value);
    void Put(bool value);
    void Put(std::uint32_t color);

    Form form;
    Bytes bytes;
};

/// The own fields of chunks by their tag, without the frame: no tag, ChunkSize and SubChunks.
using ChunkFields = std::map<std::string, Bytes>;

/// @return a track file. Chunks that `fields` leaves out are those of an empty track; without "TERA" there is
/// no terrain.
Bytes TrackFile(const ChunkFields& fields, const Form& form = {});

/// @return the own fields of a list chunk.
Bytes ListFields(int count, const Bytes& records, const Form& form = {});

} // namespace railwright::testing
