#include "platform/posix/RegistryTree.h"

#include "platform/CodePage.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace railwright {
namespace {

/// Separator replaces the backslash in the form by which keys are sorted. It is less than any character of a
/// name, so subkeys directly follow their key. BehindSeparator ends them.
constexpr std::string_view Separator("\0\1", 2), BehindSeparator("\0\2", 2);

/// Maps each character to its lower case. Only letters of the code page change.
RegistryName FoldedCharacters() {
    constexpr std::size_t characters = 0x10000;
    RegistryName folded(characters, u'\0');
    std::iota(folded.begin(), folded.end(), u'\0');
    const CodePage& page = SystemCodePage();
    for (std::size_t byte = 0; byte < page.Unicode.size(); ++byte)
        folded[page.Unicode[byte]] = static_cast<char16_t>(page.Unicode[page.Lower[byte]]);
    return folded;
}

RegistryName FoldedName(RegistryName name) {
    static const RegistryName folded = FoldedCharacters();
    std::transform(name.begin(), name.end(), name.begin(),
                   [&](char16_t character) { return folded[character]; });
    return name;
}

/// @return two bytes per character of a path, high byte first, which compare fastest.
std::string SortedForm(const RegistryName& path) {
    const RegistryName folded = FoldedName(path);
    std::string form(2 * folded.size(), '\0');
    for (std::size_t i = 0; i < folded.size(); ++i) {
        const unsigned unit = folded[i] == u'\\' ? 1 : folded[i];
        form[2 * i] = static_cast<char>(unit >> 8U);
        form[2 * i + 1] = static_cast<char>(unit & 0xFFU);
    }
    return form;
}

} // namespace

bool IsTextType(std::uint32_t type) {
    constexpr std::uint32_t Plain = 1;
    constexpr std::uint32_t WithVariables = 2;
    constexpr std::uint32_t Several = 7;
    return type == Plain || type == WithVariables || type == Several;
}

RegistryName WidenAnsi(std::string_view ansi) {
    RegistryName wide;
    for (const char byte : ansi)
        wide += static_cast<char16_t>(SystemCodePage().Unicode[static_cast<unsigned char>(byte)]);
    return wide;
}

std::vector<std::uint8_t> ToWideBytes(std::u16string_view wide) {
    std::vector<std::uint8_t> bytes(2 * wide.size());
    for (std::size_t i = 0; i < wide.size(); ++i) {
        bytes[2 * i] = static_cast<std::uint8_t>(wide[i] & 0xFFU);
        bytes[2 * i + 1] = static_cast<std::uint8_t>(wide[i] >> 8U);
    }
    return bytes;
}

RegistryName FromWideBytes(const std::vector<std::uint8_t>& bytes) {
    RegistryName wide(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < wide.size(); ++i)
        wide[i] = static_cast<char16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8);
    return wide;
}

RegistryKey* RegistryTree::Find(const RegistryName& path) {
    const std::string form = SortedForm(path);
    const auto found = keys.find(form);
    if (found != keys.end())
        return &found->second;
    const auto below = FirstBelow(form);
    return below == keys.end() ? nullptr : &Make(below->second.Path.substr(0, path.size()));
}

RegistryKey& RegistryTree::Make(const RegistryName& path) {
    RegistryKey& key = keys[SortedForm(path)];
    if (key.Path.empty())
        key.Path = path;
    return key;
}

RegistryTree::Iterator RegistryTree::FirstBelow(const std::string& form) const {
    const std::string start = form + std::string(Separator);
    const auto next = keys.lower_bound(start);
    return next != keys.end() && next->first.starts_with(start) ? next : keys.end();
}

bool RegistryTree::HasSubkeys(const RegistryName& path) const {
    return FirstBelow(SortedForm(path)) != keys.end();
}

void RegistryTree::Remove(const RegistryName& path) {
    if (const std::size_t end = path.rfind(u'\\'); end != RegistryName::npos && end > 0)
        Find(path.substr(0, end)); // keeps the parent key
    const std::string form = SortedForm(path);
    keys.erase(form);
    keys.erase(keys.lower_bound(form + std::string(Separator)),
               keys.lower_bound(form + std::string(BehindSeparator)));
}

RegistryValue& RegistryTree::MakeValue(RegistryKey& key, const RegistryName& name) {
    RegistryValue& value = key.Values[FoldedName(name)];
    if (value.Name.empty())
        value.Name = name;
    return value;
}

const RegistryValue* RegistryTree::FindValue(const RegistryKey& key, const RegistryName& name) {
    const auto found = key.Values.find(FoldedName(name));
    return found == key.Values.end() ? nullptr : &found->second;
}

} // namespace railwright
