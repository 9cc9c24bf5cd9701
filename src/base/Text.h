#pragma once

#include "base/Types.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace railwright {

/// A single-byte code page: what each of the 256 bytes means, and its lower-case byte.
struct CodePage {
    /// The Unicode character of each byte. No two bytes have the same one, so converting there and back gives
    /// the same bytes.
    std::array<char32_t, 256> Unicode;
    /// The byte of the same letter in lower case; the byte itself where there is none.
    std::array<unsigned char, 256> Lower;
};

/// Windows-1252. Its five unassigned bytes stand for the control characters of the same number.
const CodePage& Windows1252();

/// @return the text of which these are the bytes, one for each character.
text TextOf(std::string_view bytes);
/// @return the bytes of a text as they are, for the calls of a system.
std::string BytesOf(TextView characters);

/// @return `characters` in lower case, accented letters included.
text LowerCase(text characters, const CodePage& codePage);

/// Appends a Unicode character as UTF-8.
void AppendUtf8(std::string& out, char32_t character);

/// @return `characters` as UTF-8.
std::string ToUtf8(const text& characters, const CodePage& codePage);

/// Calls `take` with `characters` as UTF-8, piece by piece, so that a long text takes little memory.
void InUtf8(const text& characters, const CodePage& codePage,
            const std::function<void(std::string_view)>& take);

/// @return `utf8` in the code page. A character without a byte there, and every byte that is not well-formed
/// UTF-8, becomes "?".
text FromUtf8(std::string_view utf8, const CodePage& codePage);

/// @return `utf8` as it can stand in a line of output: every control character, also those that part lines or
/// turn their direction, and every byte that is not well-formed becomes the replacement character.
std::string OnOneLine(std::string_view utf8);

/// Returns `utf8` as text of several lines: like OnOneLine, but with its tabs, line feeds and carriage
/// returns.
std::string OnLines(std::string_view utf8);

/// Returns the first character of `utf8` that the code page lacks, or the first byte that is not well-formed
/// UTF-8. It is empty if there is none.
std::string_view FirstOutside(std::string_view utf8, const CodePage& codePage);

} // namespace railwright
