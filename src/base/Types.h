#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace railwright {

/// A two-state value. In a file it is one byte, 0xFF for true and 0x00 for false.
using Flag = bool;

/// A colour in the low 24 bits: red in bits 16 to 23 as the first byte of the file, blue last. Bits 24 to 31
/// are 0. The program carries colours and never looks inside one.
using ColorValue = std::uint32_t;

/// Makes the strings of documents a type of their own, which does not turn into another by itself.
struct AnsiTraits : std::char_traits<char> {};

/// A character string of a document: one byte for each character, in the system's ANSI code page. Everything
/// that reaches a screen or a terminal is UTF-8 in a std::string instead; the functions of Text.h convert.
/// Only a literal becomes a text by itself; its bytes are those of the code page.
using text = std::basic_string<char, AnsiTraits>;
using TextView = std::basic_string_view<char, AnsiTraits>;

/// A three-dimensional point or direction in metres. X is east, Y is up, Z is south.
struct Vector3 {
    float X = 0;
    float Y = 0;
    float Z = 0;
};

} // namespace railwright
