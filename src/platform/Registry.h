#pragma once

#include <cstdint>
#include <optional>
#include <string>

/// The Windows registry. Elsewhere it is a file in the registry editor's text form, which can be imported on
/// Windows: the file that the environment variable RAILWRIGHT_REGISTRY names, or else
/// `railwright/registry.reg` in the user's data folder.
///
/// All texts are in the system's ANSI code page. Keys and names are the same in any case of letters.
namespace railwright::registry {

inline constexpr std::uint32_t HKEY_CLASSES_ROOT = 0x80000000U;
inline constexpr std::uint32_t HKEY_CURRENT_USER = 0x80000001U;

inline constexpr std::uint32_t REG_SZ = 1;
inline constexpr std::uint32_t REG_BINARY = 3;
inline constexpr std::uint32_t REG_DWORD = 4;

struct Value {
    std::uint32_t Type = 0;
    /// A text has its NUL if it is stored with one.
    std::string Data;
};

/// The longest value that Read returns, in bytes.
inline constexpr std::size_t LongestValue = 1024;

/// Reads a value. @param name empty for the default value of the key.
/// @return nothing if there is no such value, or if it cannot be read or is longer than LongestValue.
std::optional<Value> Read(std::uint32_t root, const std::string& key, const std::string& name);

/// Creates a key and those above it. If an ordinary user may not change HKEY_CLASSES_ROOT, the key becomes
/// the user's own. @return whether it exists.
bool CreateKey(std::uint32_t root, const std::string& key);

/// Stores a value and creates its key. A text that does not end in a NUL is stored with one unless it is
/// empty.
/// @return false if it could not be stored; nothing has changed then but, at most, the key.
bool Write(std::uint32_t root, const std::string& key, const std::string& name, const Value& value);

/// Deletes a key that has no subkeys. @return whether it existed and was deleted.
bool Delete(std::uint32_t root, const std::string& key);

} // namespace railwright::registry
