#pragma once

#include <cstdint>
#include <string>

namespace railwright {

/// A two-state value. In a file it is one byte, 0xFF for true and 0x00 for false.
using Flag = bool;

/// A colour in the low 24 bits: red in bits 16 to 23 as the first byte of the file, blue last. Bits 24 to 31
/// are 0. The program carries colours and never looks inside one.
using ColorValue = std::uint32_t;

/// A character string of a document: one byte for each character, in the system's ANSI code page. Everything
/// that reaches a screen or a terminal is UTF-8 in a std::string instead; ToUtf8 and FromUtf8 convert.
using text = std::string;

/// A three-dimensional point or direction in metres. X is east, Y is up, Z is south.
struct Vector3 {
    float X = 0;
    float Y = 0;
    float Z = 0;
};

} // namespace railwright
