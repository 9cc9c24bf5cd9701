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

/// A value on its way into the registry.
using RegistryInput = std::variant<text, std::int32_t>;

/// All texts are in the system's ANSI code page. No operation shows a message: a failure is the result false.

/// Reads a value. A text takes the place of `sResult`; the digits of a 32-bit value are appended to it and
/// "&h" is put in front; a value of another type leaves it as it was.
/// @param sValueName empty for the key's default value.
/// @param sResult untouched on failure.
/// @return whether there is such a value of 1024 bytes at most.
bool ReadRegistryValue(std::uint32_t hRoot, const std::string& sKey, const std::string& sValueName,
                       text& sResult);

/// Stores a value, and makes its key with those above it where it is missing.
/// @param iType REG_SZ, REG_BINARY or REG_DWORD. With any other type only the key is made.
/// @param sValueName empty for the key's default value.
/// @param vValue becomes the empty text on failure.
bool WriteRegistryValue(std::uint32_t hRoot, const std::string& sKey, std::uint32_t iType,
                        const std::string& sValueName, RegistryInput& vValue);

/// Deletes a key, which must not have subkeys.
/// @return whether it was there and is gone.
bool DeleteRegistryKey(std::uint32_t hRoot, const std::string& sKey);

} // namespace railwright
