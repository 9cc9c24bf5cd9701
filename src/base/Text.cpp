#include "base/Text.h"

#include <algorithm>
#include <cstddef>

namespace railwright {
namespace {

/// Bytes 0x80 to 0x9F of Windows-1252. All others equal the Unicode character of the same number.
constexpr std::array<char32_t, 32> SpecialsOf1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned char LowerOf1252(unsigned char byte) {
    switch (byte) {
    case 0x8A: // S with caron
    case 0x8C: // OE
    case 0x8E: // Z with caron
        return static_cast<unsigned char>(byte + 0x10);
    case 0x9F: // Y with diaeresis
        return 0xFF;
    case 0xD7: // the multiplication sign
        return byte;
    default:
        const bool isUpper = (byte >= 'A' && byte <= 'Z') || (byte >= 0xC0 && byte <= 0xDE);
        return static_cast<unsigned char>(isUpper ? byte + 0x20 : byte);
    }
}

constexpr CodePage MakeWindows1252() {
    CodePage page{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        const bool special = byte >= 0x80 && byte < 0xA0;
        page.Unicode[byte] = special ? SpecialsOf1252[byte - 0x80] : static_cast<char32_t>(byte);
        page.Lower[byte] = LowerOf1252(static_cast<unsigned char>(byte));
    }
    return page;
}

constexpr char32_t IllFormed = 0xFFFFFFFF;

/// Removes the first character of `utf8`: a complete well-formed one, or a single ill-formed byte.
char32_t TakeCharacter(std::string_view& utf8) {
    const auto byteAt = [&utf8](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    const unsigned char lead = byteAt(0);
    std::size_t length = 1;
    char32_t character = lead;
    char32_t smallest = 0;
    if (lead >= 0xF0 && lead < 0xF8) {
        length = 4, character = lead & 0x07U, smallest = 0x10000;
    } else if (lead >= 0xE0 && lead < 0xF0) {
        length = 3, character = lead & 0x0FU, smallest = 0x800;
    } else if (lead >= 0xC0 && lead < 0xE0) {
        length = 2, character = lead & 0x1FU, smallest = 0x80;
    } else if (lead >= 0x80) {
        length = 0;
    }
    bool wellFormed = length > 0 && length <= utf8.size();
    for (std::size_t i = 1; wellFormed && i < length; ++i) {
        wellFormed = (byteAt(i) & 0xC0) == 0x80;
        character = (character << 6) | (byteAt(i) & 0x3FU);
    }
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (!wellFormed || character < smallest || character > 0x10FFFF || surrogate) {
        utf8.remove_prefix(1);
        return IllFormed;
    }
    utf8.remove_prefix(length);
    return character;
}

/// Returns whether a character is a control character, a line separator or a bidirectional control.
bool ControlsLines(char32_t character) {
    constexpr std::array<std::array<char32_t, 2>, 4> ranges = {
        {{0x00, 0x1F}, {0x7F, 0x9F}, {0x2028, 0x202E}, {0x2066, 0x2069}}};
    return std::any_of(ranges.begin(), ranges.end(),
                       [&](const auto& range) { return character >= range[0] && character <= range[1]; });
}

// Both functions read all bytes without an early exit, so that the compiler can vectorize them.
bool HasAscii(const CodePage& codePage) {
    char32_t differences = 0;
    for (char32_t byte = 0; byte < 0x80; ++byte)
        differences |= codePage.Unicode[byte] ^ byte;
    return differences == 0;
}
bool IsAscii(std::string_view characters) {
    unsigned char all = 0;
    for (const char character : characters)
        all |= static_cast<unsigned char>(character);
    return all < 0x80;
}

} // namespace

void AppendUtf8(std::string& out, char32_t character) {
    const auto append = [&out](char32_t bits) { out += static_cast<char>(bits); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | (character >> 6));
        append(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    } else {
        append(0xF0 | (character >> 18));
        append(0x80 | ((character >> 12) & 0x3F));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}

const CodePage& Windows1252() {
    static constexpr CodePage page = MakeWindows1252();
    return page;
}

text TextOf(std::string_view bytes) {
    return {bytes.begin(), bytes.end()};
}

std::string BytesOf(TextView characters) {
    return {characters.begin(), characters.end()};
}

text LowerCase(text characters, const CodePage& codePage) {
    for (char& character : characters)
        character = static_cast<char>(codePage.Lower[static_cast<unsigned char>(character)]);
    return characters;
}

std::string ToUtf8(const text& characters, const CodePage& codePage) {
    std::string utf8;
    utf8.reserve(characters.size());
    for (const char character : characters)
        AppendUtf8(utf8, codePage.Unicode[static_cast<unsigned char>(character)]);
    return utf8;
}

void InUtf8(const text& characters, const CodePage& codePage,
            const std::function<void(std::string_view)>& take) {
    constexpr std::size_t longest = 4096;
    const bool hasAscii = HasAscii(codePage);
    for (std::size_t at = 0; at < characters.size(); at += longest) {
        const TextView piece = TextView(characters).substr(at, longest);
        const std::string_view bytes(piece.data(), piece.size());
        if (hasAscii && IsAscii(bytes)) // nearly always
            take(bytes);
        else
            take(ToUtf8(text(piece), codePage));
    }
}

text FromUtf8(std::string_view utf8, const CodePage& codePage) {
    text characters;
    characters.reserve(utf8.size());
    while (!utf8.empty()) {
        const auto byte = static_cast<unsigned char>(utf8.front());
        if (byte < 0x80 && codePage.Unicode[byte] == byte) { // nearly always
            characters += utf8.front();
            utf8.remove_prefix(1);
            continue;
        }
        const auto* const found =
            std::find(codePage.Unicode.begin(), codePage.Unicode.end(), TakeCharacter(utf8));
        characters +=
            found == codePage.Unicode.end() ? '?' : static_cast<char>(found - codePage.Unicode.begin());
    }
    return characters;
}

namespace {

/// @param kept ASCII control characters to keep.
std::string WithoutControls(std::string_view utf8, std::string_view kept) {
    constexpr char32_t Replacement = 0xFFFD;
    std::string line;
    line.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t character = TakeCharacter(utf8);
        const bool isKept =
            character < 0x80 && kept.find(static_cast<char>(character)) != std::string_view::npos;
        const bool isBad = character == IllFormed || (ControlsLines(character) && !isKept);
        AppendUtf8(line, isBad ? Replacement : character);
    }
    return line;
}

} // namespace

std::string OnOneLine(std::string_view utf8) {
    return WithoutControls(utf8, "");
}

std::string OnLines(std::string_view utf8) {
    return WithoutControls(utf8, "\t\n\r");
}

std::string_view FirstOutside(std::string_view utf8, const CodePage& codePage) {
    const auto isInside = [&codePage](char32_t character) {
        return std::find(codePage.Unicode.begin(), codePage.Unicode.end(), character) !=
               codePage.Unicode.end();
    };
    while (!utf8.empty()) {
        const std::string_view rest = utf8;
        if (!isInside(TakeCharacter(utf8)))
            return rest.substr(0, rest.size() - utf8.size());
    }
    return {};
}

} // namespace railwright
