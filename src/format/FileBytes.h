#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>

namespace railwright {

/// A position in a document file, counted from 0.
using FilePos = std::int32_t;

/// Bytes of a file that are in memory at once during reading and writing. Fits into the processor's cache,
/// and is far larger than any record of fixed size.
inline constexpr std::size_t FileWindow = std::size_t{64} * 1024;

/// Sizes in bytes of the values of a file. Values of more than one byte are big-endian.
namespace FileSize {
inline constexpr FilePos Byte = 1;
inline constexpr FilePos Long = 4;
inline constexpr FilePos Single = 4;
inline constexpr FilePos Color = 4;
inline constexpr FilePos Tag = 4;
} // namespace FileSize

/// The functions below read or write one value at `at`. The caller must check first that there are enough
/// bytes.

inline std::uint32_t ReadBits(const std::uint8_t* at) {
    return static_cast<std::uint32_t>(at[0]) << 24U | static_cast<std::uint32_t>(at[1]) << 16U |
           static_cast<std::uint32_t>(at[2]) << 8U | static_cast<std::uint32_t>(at[3]);
}
inline std::int32_t ReadLong(const std::uint8_t* at) {
    return static_cast<std::int32_t>(ReadBits(at));
}
inline float ReadSingle(const std::uint8_t* at) {
    return std::bit_cast<float>(ReadBits(at));
}
inline std::uint32_t ReadColor(const std::uint8_t* at) {
    return ReadBits(at) & 0x00FFFFFFU;
}

inline void WriteBits(std::uint8_t* at, std::uint32_t bits) {
    at[0] = static_cast<std::uint8_t>(bits >> 24U);
    at[1] = static_cast<std::uint8_t>(bits >> 16U);
    at[2] = static_cast<std::uint8_t>(bits >> 8U);
    at[3] = static_cast<std::uint8_t>(bits);
}
inline void WriteLong(std::uint8_t* at, std::int32_t value) {
    WriteBits(at, static_cast<std::uint32_t>(value));
}
inline void WriteSingle(std::uint8_t* at, float value) {
    WriteBits(at, std::bit_cast<std::uint32_t>(value));
}
inline void WriteColor(std::uint8_t* at, std::uint32_t value) {
    WriteBits(at, value & 0x00FFFFFFU);
}

} // namespace railwright
