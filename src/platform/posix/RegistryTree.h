#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace railwright {

/// A key, name or text of the registry, in UTF-16.
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
    /// The full path from the root, in the case in which the key was created.
    RegistryName Path;
    /// Indexed by the folded name.
    std::map<RegistryName, RegistryValue> Values;

    bool operator==(const RegistryKey&) const = default;
};

/// Returns whether values of a type are texts, which the ANSI functions convert.
bool IsTextType(std::uint32_t type);

/// @return `ansi`, a text in the code page, as UTF-16.
RegistryName WidenAnsi(std::string_view ansi);

/// @return `wide` as UTF-16LE bytes.
std::vector<std::uint8_t> ToWideBytes(std::u16string_view wide);

/// @return UTF-16LE bytes as text. Ignores an odd last byte.
RegistryName FromWideBytes(const std::vector<std::uint8_t>& bytes);

/// The keys of a registry. Names ignore case. A key implies its parents, which are created on first access.
class RegistryTree {
public:
    /// Returns the key, or null if it is missing.
    RegistryKey* Find(const RegistryName& path);
    /// Returns the key. Creates it if it is missing.
    RegistryKey& Make(const RegistryName& path);
    bool HasSubkeys(const RegistryName& path) const;
    /// Removes a key and its subkeys.
    void Remove(const RegistryName& path);
    /// Returns a key's value. Creates it without type and data if it is missing.
    static RegistryValue& MakeValue(RegistryKey& key, const RegistryName& name);
    /// Returns a key's value, or null if it is missing.
    static const RegistryValue* FindValue(const RegistryKey& key, const RegistryName& name);

    /// Returns all keys, indexed by a form of the path that sorts each key before its subkeys.
    const std::map<std::string, RegistryKey>& Keys() const { return keys; }

private:
    using Iterator = std::map<std::string, RegistryKey>::const_iterator;

    /// @return the first subkey of a key in sorted form, or the end if there is none.
    Iterator FirstBelow(const std::string& form) const;

    std::map<std::string, RegistryKey> keys;
};

} // namespace railwright
