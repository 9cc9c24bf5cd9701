#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace railwright {

/// A Boolean. In a file it is one byte: 0xFF for true, 0x00 for false.
using Flag = bool;

/// A colour in the low 24 bits. Red is in bits 16 to 23 and is the first byte in the file; blue is last. Bits
/// 24 to 31 are 0. The program copies colours without interpreting them.
using ColorValue = std::uint32_t;

/// Makes document strings a distinct type without implicit conversions to or from other strings.
struct AnsiTraits : std::char_traits<char> {};

/// A string of a document: one byte per character, in the system's ANSI code page. Output to a screen or
/// terminal is UTF-8 in a std::string; the functions of Text.h convert. Only a literal converts implicitly;
/// its bytes are in the code page.
using text = std::basic_string<char, AnsiTraits>;
using TextView = std::basic_string_view<char, AnsiTraits>;

/// A three-dimensional point or direction in metres. X is east, Y is up, Z is south.
struct Vector3 {
    float X = 0;
    float Y = 0;
    float Z = 0;
};

} // namespace railwright
