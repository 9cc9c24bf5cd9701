#pragma once

#include "base/Types.h"

#include <array>
#include <functional>
#include <string>
#include <string_view>

namespace railwright {

/// A single-byte code page: the Unicode character and the lower-case byte of each byte.
struct CodePage {
    /// The Unicode character of each byte. No two bytes have the same one, so a round trip returns the same
    /// bytes.
    std::array<char32_t, 256> Unicode;
    /// The byte of the same letter in lower case; the byte itself if there is none.
    std::array<unsigned char, 256> Lower;
};

/// Returns Windows-1252. Its five unassigned bytes are the control characters of the same number.
const CodePage& Windows1252();

/// Converts bytes to text, one character per byte.
text TextOf(std::string_view bytes);
/// Converts text to its bytes unchanged, for system calls.
std::string BytesOf(TextView characters);

/// Returns `characters` in lower case, including accented letters.
text LowerCase(text characters, const CodePage& codePage);

/// Appends a Unicode character as UTF-8.
void AppendUtf8(std::string& out, char32_t character);

/// Converts text to UTF-8.
std::string ToUtf8(const text& characters, const CodePage& codePage);

/// Converts `characters` to UTF-8 and passes it to `take` in pieces, so that a long text uses little memory.
void InUtf8(const text& characters, const CodePage& codePage,
            const std::function<void(std::string_view)>& take);

/// Converts UTF-8 to the code page. Characters that it lacks and ill-formed bytes become "?".
text FromUtf8(std::string_view utf8, const CodePage& codePage);

/// Returns `utf8` for one line of output. Control characters, line separators, bidirectional controls and
/// ill-formed bytes become the replacement character.
std::string OnOneLine(std::string_view utf8);

/// Returns `utf8` for several lines of output: like OnOneLine, but keeps tabs, line feeds and carriage
/// returns.
std::string OnLines(std::string_view utf8);

/// Returns the first character of `utf8` that the code page lacks, or the first ill-formed byte; empty if
/// there is none.
std::string_view FirstOutside(std::string_view utf8, const CodePage& codePage);

} // namespace railwright
