#pragma once

#include <cstdint>
#include <string>

namespace railwright {

inline constexpr std::uint32_t HKEY_CLASSES_ROOT = 0x80000000U;
inline constexpr std::uint32_t HKEY_CURRENT_USER = 0x80000001U;

/// Reads a value of the registry as text.
/// @param sValueName empty for the key's default value.
/// @param sResult the value, untouched on failure.
/// @return whether the value was read. Nothing is registered on this system yet, so it never is.
bool ReadRegistryValue(std::uint32_t hRoot, const std::string& sKey, const std::string& sValueName,
                       std::string& sResult);

} // namespace railwright
