#pragma once

#include "base/Types.h"
#include "platform/Registry.h"

#include <cstdint>
#include <string>
#include <variant>

namespace railwright {

using registry::HKEY_CLASSES_ROOT;
using registry::HKEY_CURRENT_USER;
using registry::REG_BINARY;
using registry::REG_DWORD;
using registry::REG_SZ;

/// A value to write to the registry.
using RegistryInput = std::variant<text, std::int32_t>;

/// All texts are in the system's ANSI code page. No function shows a message; failures return false.

/// Reads a value of at most 1024 bytes. A text replaces `sResult`. For a 32-bit value, puts "&h" before
/// `sResult` and appends the digits. A value of another type leaves it unchanged.
/// @param sValueName empty for the key's default value.
/// @param sResult unchanged on failure.
/// @return false if the value is missing, cannot be read or is too long.
bool ReadRegistryValue(std::uint32_t hRoot, const std::string& sKey, const std::string& sValueName,
                       text& sResult);

/// Stores a value. Creates its key and the key's parents.
/// @param iType REG_SZ, REG_BINARY or REG_DWORD. With any other type, only creates the key and returns true.
/// @param sValueName empty for the key's default value.
/// @param vValue becomes an empty text on failure.
bool WriteRegistryValue(std::uint32_t hRoot, const std::string& sKey, std::uint32_t iType,
                        const std::string& sValueName, RegistryInput& vValue);

/// Deletes a key that has no subkeys.
/// @return whether it existed and was deleted.
bool DeleteRegistryKey(std::uint32_t hRoot, const std::string& sKey);

} // namespace railwright
