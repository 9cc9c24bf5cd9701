#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// The Windows registry. On other systems it is a file in the registry editor's text format, which Windows
/// can import. The environment variable RAILWRIGHT_REGISTRY names the file. The default is
/// `railwright/registry.reg` in the user's data folder.
///
/// All texts are in the system's ANSI code page. Names of keys and values ignore case.
namespace railwright::registry {

inline constexpr std::uint32_t HKEY_CLASSES_ROOT = 0x80000000U;
inline constexpr std::uint32_t HKEY_CURRENT_USER = 0x80000001U;

inline constexpr std::uint32_t REG_SZ = 1;
inline constexpr std::uint32_t REG_BINARY = 3;
inline constexpr std::uint32_t REG_DWORD = 4;

struct Value {
    std::uint32_t Type = 0;
    /// A text includes its NUL if it is stored with one.
    std::string Data;
};

/// The longest value that Read returns, in bytes.
inline constexpr std::size_t LongestValue = 1024;

/// Reads a value. @param name empty for the default value of the key.
/// @return nothing if the value is missing, cannot be read or is longer than LongestValue.
std::optional<Value> Read(std::uint32_t root, const std::string& key, const std::string& name);

/// Creates a key and its parents. If a user without administrator rights may not change HKEY_CLASSES_ROOT,
/// creates the key for that user only.
/// @return whether the key exists.
bool CreateKey(std::uint32_t root, const std::string& key);

/// Stores a value and creates its key. Adds a NUL to a text that lacks one, unless the text is empty.
/// @return false if the value could not be stored; the key may have been created nevertheless.
bool Write(std::uint32_t root, const std::string& key, const std::string& name, const Value& value);

/// Deletes a key that has no subkeys. @return whether it existed and was deleted.
bool Delete(std::uint32_t root, const std::string& key);

} // namespace railwright::registry
