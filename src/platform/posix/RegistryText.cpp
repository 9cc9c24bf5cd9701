#include "platform/posix/RegistryText.h"

#include "platform/Registry.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace railwright {
namespace {

constexpr std::u16string_view Version5 = u"Windows Registry Editor Version 5.00";
constexpr char16_t ByteOrderMark = 0xFEFF;

/// Longest line of bytes, including the backslash at its end.
constexpr std::size_t LongestLine = 80;

int DigitOf(char16_t character) {
    constexpr std::u16string_view Lower = u"0123456789abcdef";
    constexpr std::u16string_view Upper = u"0123456789ABCDEF";
    const std::size_t digit = std::min(Lower.find(character), Upper.find(character));
    return digit == std::u16string_view::npos ? -1 : static_cast<int>(digit);
}

bool IsBlank(char16_t character) {
    return character == u' ' || character == u'\t';
}

bool IsLineEnd(char16_t character) {
    return character == u'\r' || character == u'\n';
}

/// Parses the text of a file into a tree.
class Reader {
public:
    explicit Reader(std::u16string characters) : text(std::move(characters)) {}

    std::optional<RegistryTree> Read() {
        SkipEmptyLines();
        if (!Take(Version5))
            return std::nullopt;
        SkipLine();
        while (SkipEmptyLines()) {
            if (Take(u"["))
                TakeKey();
            else if (Take(u"@"))
                TakeValue({});
            else if (Take(u"\""))
                TakeValue(TakeQuoted());
            SkipLine();
        }
        return std::move(tree);
    }

private:
    bool AtEnd() const { return at >= text.size(); }
    bool AtLineEnd() const { return AtEnd() || IsLineEnd(text[at]); }

    void SkipBlanks() {
        while (!AtEnd() && IsBlank(text[at]))
            ++at;
    }
    /// @return false at the end of the text.
    bool SkipEmptyLines() {
        while (!AtEnd() && (IsBlank(text[at]) || IsLineEnd(text[at])))
            ++at;
        return !AtEnd();
    }
    void SkipLine() { at = std::min(text.find_first_of(u"\r\n", at), text.size()); }

    bool Take(std::u16string_view wanted) {
        if (!std::u16string_view(text).substr(at).starts_with(wanted))
            return false;
        at += wanted.size();
        return true;
    }

    /// Reads up to the last bracket of the line, because a key's name may contain brackets.
    void TakeKey() {
        const std::size_t start = at;
        SkipLine();
        const std::size_t end = text.rfind(u']', at);
        key = nullptr;
        if (end == std::u16string::npos || end <= start || text[start] == u'-') // would delete a key
            return;
        key = &tree.Make(text.substr(start, end - start));
    }

    /// Reads from after the opening quote to the closing one, and skips that. A text may span several lines.
    std::u16string TakeQuoted() {
        std::u16string taken;
        while (!AtEnd() && text[at] != u'"') {
            const bool escaped = text[at] == u'\\' && at + 1 < text.size();
            taken += text[escaped ? at + 1 : at];
            at += escaped ? 2 : 1;
        }
        Take(u"\"");
        return taken;
    }

    void TakeValue(const std::u16string& name) {
        SkipBlanks();
        if (key == nullptr || !Take(u"="))
            return;
        SkipBlanks();
        if (Take(u"\""))
            Store(name, registry::REG_SZ, ToWideBytes(TakeQuoted() + u'\0'));
        else if (Take(u"dword:"))
            TakeDoubleWord(name);
        else if (Take(u"hex:"))
            Store(name, registry::REG_BINARY, TakeBytes());
        else if (Take(u"hex("))
            TakeTyped(name);
    }

    std::uint32_t TakeNumber() {
        std::uint32_t number = 0;
        for (; !AtEnd() && DigitOf(text[at]) >= 0; ++at)
            number = number << 4U | static_cast<std::uint32_t>(DigitOf(text[at]));
        return number;
    }

    void TakeDoubleWord(const std::u16string& name) {
        SkipBlanks();
        const std::uint32_t number = TakeNumber();
        std::vector<std::uint8_t> bytes;
        for (unsigned shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<std::uint8_t>(number >> shift));
        Store(name, registry::REG_DWORD, std::move(bytes));
    }

    void TakeTyped(const std::u16string& name) {
        const std::uint32_t type = TakeNumber();
        if (!Take(u"):"))
            return;
        Store(name, type, TakeBytes());
    }

    /// Reads hexadecimal bytes between commas. A backslash continues on the next line.
    std::vector<std::uint8_t> TakeBytes() {
        std::vector<std::uint8_t> bytes;
        for (;;) {
            SkipBlanks();
            if (Take(u"\\")) {
                SkipLine();
                SkipEmptyLines();
            } else if (!AtLineEnd() && DigitOf(text[at]) >= 0) {
                bytes.push_back(static_cast<std::uint8_t>(TakeNumber()));
            } else if (!Take(u",")) {
                return bytes;
            }
        }
    }

    void Store(const std::u16string& name, std::uint32_t type, std::vector<std::uint8_t> bytes) {
        RegistryValue& value = RegistryTree::MakeValue(*key, name);
        value.Type = type;
        value.Data = std::move(bytes);
    }

    std::u16string text;
    std::size_t at = 0;
    RegistryTree tree;
    RegistryKey* key = nullptr;
};

std::u16string Quoted(std::u16string_view characters) {
    std::u16string quoted = u"\"";
    for (const char16_t character : characters) {
        if (character == u'"' || character == u'\\')
            quoted += u'\\';
        quoted += character;
    }
    return quoted + u'"';
}

std::u16string Hex(std::uint32_t number, int digits) {
    std::u16string hex;
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        hex += u"0123456789abcdef"[number >> static_cast<unsigned>(shift) & 0xFU];
    return hex;
}

/// @return whether a text can be written in quotes: it ends in its only NUL and has no control characters,
/// which would end the line.
bool FitsInQuotes(const RegistryValue& value) {
    if (value.Type != registry::REG_SZ || value.Data.size() % 2 != 0 || value.Data.empty())
        return false;
    const RegistryName text = FromWideBytes(value.Data);
    return text.back() == 0 &&
           std::none_of(text.begin(), text.end() - 1, [](char16_t character) { return character < u' '; });
}

/// @return `start`, which names the value and its type, followed by the bytes.
std::u16string WithBytes(std::u16string start, const std::vector<std::uint8_t>& bytes) {
    std::u16string lines;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const bool last = i + 1 == bytes.size();
        start += Hex(bytes[i], 2) + (last ? u"" : u",");
        // Leave room for the next byte's three characters and a backslash.
        if (!last && start.size() + 4 > LongestLine) {
            lines += start + u"\\\r\n";
            start = u"  ";
        }
    }
    return lines + start;
}

std::u16string FormatValue(const RegistryValue& value) {
    const std::u16string name = (value.Name.empty() ? u"@" : Quoted(value.Name)) + u"=";
    if (FitsInQuotes(value)) {
        const RegistryName text = FromWideBytes(value.Data);
        return name + Quoted(std::u16string_view(text).substr(0, text.size() - 1));
    }
    if (value.Type == registry::REG_DWORD && value.Data.size() == 4) {
        std::u16string digits;
        for (const std::uint8_t byte : value.Data)
            digits.insert(0, Hex(byte, 2));
        return name + u"dword:" + digits;
    }
    if (value.Type == registry::REG_BINARY)
        return WithBytes(name + u"hex:", value.Data);
    std::u16string type = Hex(value.Type, 8);
    type.erase(0, std::min(type.find_first_not_of(u'0'), type.size() - 1));
    return WithBytes(name + u"hex(" + type + u"):", value.Data);
}

} // namespace

std::optional<RegistryTree> ParseRegistry(std::span<const std::uint8_t> file) {
    const std::array<std::uint8_t, 2> mark = {0xFF, 0xFE};
    const bool isWide = file.size() >= 2 && std::equal(mark.begin(), mark.end(), file.begin());
    if (isWide)
        return Reader(FromWideBytes({file.begin() + 2, file.end()})).Read();
    return Reader(WidenAnsi(std::string(file.begin(), file.end()))).Read();
}

std::vector<std::uint8_t> FormatRegistry(const RegistryTree& tree) {
    std::u16string text(1, ByteOrderMark);
    text += Version5;
    text += u"\r\n\r\n";
    for (const auto& [form, key] : tree.Keys()) {
        text += u'[' + key.Path + u"]\r\n";
        for (const auto& [folded, value] : key.Values)
            text += FormatValue(value) + u"\r\n";
        text += u"\r\n";
    }
    return ToWideBytes(text);
}

} // namespace railwright
