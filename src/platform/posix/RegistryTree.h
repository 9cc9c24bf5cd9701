#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace railwright {

/// A text as the registry holds it: UTF-16 for keys, names and values.
using RegistryName = std::u16string;

struct RegistryValue {
    /// Empty for the default value of a key.
    RegistryName Name;
    std::uint32_t Type = 0;
    /// As the registry holds it: texts in UTF-16LE, with their NUL if they have one.
    std::vector<std::uint8_t> Data;

    bool operator==(const RegistryValue&) const = default;
};

struct RegistryKey {
    /// The whole path from the name of its root on, in the letters with which it was made.
    RegistryName Path;
    /// By the folded name.
    std::map<RegistryName, RegistryValue> Values;

    bool operator==(const RegistryKey&) const = default;
};

/// Whether values of that type are texts, which the ANSI calls convert.
bool IsTextType(std::uint32_t type);

/// @return `ansi`, in the code page, as UTF-16.
RegistryName WidenAnsi(std::string_view ansi);

/// @return the bytes of `wide` in UTF-16LE.
std::vector<std::uint8_t> ToWideBytes(std::u16string_view wide);

/// @return UTF-16LE bytes as text; an odd last byte is left out.
RegistryName FromWideBytes(const std::vector<std::uint8_t>& bytes);

/// The keys of a registry. Names are the same in any case of letters. A key implies those above it, which
/// take no memory until they are asked for.
class RegistryTree {
public:
    /// The key of that path, null if there is none.
    RegistryKey* Find(const RegistryName& path);
    /// The key of that path, which is made if it is missing.
    RegistryKey& Make(const RegistryName& path);
    bool HasSubkeys(const RegistryName& path) const;
    /// Removes the key with all its subkeys.
    void Remove(const RegistryName& path);
    /// The key's value of that name, which is made without type and data where it is missing.
    static RegistryValue& MakeValue(RegistryKey& key, const RegistryName& name);
    /// The key's value of that name, null if there is none.
    static const RegistryValue* FindValue(const RegistryKey& key, const RegistryName& name);

    /// All keys, each before its subkeys, by a form of the path that sorts so.
    const std::map<std::string, RegistryKey>& Keys() const { return keys; }

private:
    using Iterator = std::map<std::string, RegistryKey>::const_iterator;

    /// @return the first subkey of the key of that form, the end if there is none.
    Iterator FirstBelow(const std::string& form) const;

    std::map<std::string, RegistryKey> keys;
};

} // namespace railwright
