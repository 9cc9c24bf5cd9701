#include "platform/posix/RegistryTree.h"

#include "platform/CodePage.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace railwright {
namespace {

/// Stands for the backslash in the form by which keys are sorted: below every character of a name, so that
/// the subkeys of a key follow it directly.
constexpr char16_t Separator = 1;

/// For each character the small one of its letter. Only those of the code page have one.
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

RegistryName SortedForm(const RegistryName& path) {
    RegistryName form = FoldedName(path);
    std::replace(form.begin(), form.end(), u'\\', Separator);
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
    std::vector<std::uint8_t> bytes;
    bytes.reserve(2 * wide.size());
    for (const char16_t unit : wide) {
        bytes.push_back(static_cast<std::uint8_t>(unit & 0xFFU));
        bytes.push_back(static_cast<std::uint8_t>(unit >> 8U));
    }
    return bytes;
}

RegistryName FromWideBytes(const std::vector<std::uint8_t>& bytes) {
    RegistryName wide;
    wide.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        wide += static_cast<char16_t>(bytes[i] | bytes[i + 1] << 8);
    return wide;
}

RegistryKey* RegistryTree::Find(const RegistryName& path) {
    const auto found = keys.find(SortedForm(path));
    return found == keys.end() ? nullptr : &found->second;
}

RegistryKey& RegistryTree::Make(const RegistryName& path) {
    if (const std::size_t above = path.rfind(u'\\'); above != RegistryName::npos)
        if (const RegistryName parent = path.substr(0, above); Find(parent) == nullptr)
            Make(parent);
    RegistryKey& key = keys[SortedForm(path)];
    if (key.Path.empty())
        key.Path = path;
    return key;
}

bool RegistryTree::HasSubkeys(const RegistryName& path) const {
    const RegistryName start = SortedForm(path) + Separator;
    const auto next = keys.lower_bound(start);
    return next != keys.end() && next->first.starts_with(start);
}

void RegistryTree::Remove(const RegistryName& path) {
    const RegistryName form = SortedForm(path);
    keys.erase(form);
    keys.erase(keys.lower_bound(form + Separator), keys.lower_bound(form + char16_t{Separator + 1}));
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

void RegistryTree::RemoveValue(RegistryKey& key, const RegistryName& name) {
    key.Values.erase(FoldedName(name));
}

} // namespace railwright
