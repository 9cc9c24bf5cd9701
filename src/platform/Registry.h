#pragma once

#include <cstdint>

/// The calls of the Windows registry that the program uses, with their own names, arguments and results. On
/// Windows they are the system's. Elsewhere they work on a file in the registry editor's own text form:
/// `railwright/registry.reg` in the user's data folder, or the file that the environment variable
/// RAILWRIGHT_REGISTRY names. What is written there can be imported on Windows.
///
/// All texts are in the system's ANSI code page. The result of every call is 0 or one of the system's errors.
namespace railwright::registry {

/// An open key, or one of the roots below.
using Handle = std::uintptr_t;

inline constexpr std::uint32_t HKEY_CLASSES_ROOT = 0x80000000U;
inline constexpr std::uint32_t HKEY_CURRENT_USER = 0x80000001U;

inline constexpr std::uint32_t REG_SZ = 1;
inline constexpr std::uint32_t REG_BINARY = 3;
inline constexpr std::uint32_t REG_DWORD = 4;

inline constexpr std::int32_t ERROR_SUCCESS = 0;
inline constexpr std::int32_t ERROR_FILE_NOT_FOUND = 2;
inline constexpr std::int32_t ERROR_ACCESS_DENIED = 5;
inline constexpr std::int32_t ERROR_INVALID_HANDLE = 6;
inline constexpr std::int32_t ERROR_BAD_PATHNAME = 161;
inline constexpr std::int32_t ERROR_MORE_DATA = 234;
inline constexpr std::int32_t ERROR_BADDB = 1009;
inline constexpr std::int32_t ERROR_KEY_DELETED = 1018;

/// Opens a key that exists. @param result the open key, to be closed; untouched on failure.
std::int32_t RegOpenKeyExA(Handle key, const char* subKey, std::uint32_t options, std::uint32_t access,
                           Handle* result);

/// Opens a key and makes it if it is missing, those above it included. What an ordinary user may not change
/// below HKEY_CLASSES_ROOT becomes the user's own.
std::int32_t RegCreateKeyA(Handle key, const char* subKey, Handle* result);

/// Reads a value.
/// @param type may be null.
/// @param data null to ask for the size only.
/// @param size the room in `data`, in bytes, and then the size of the value, also where it has no room there.
std::int32_t RegQueryValueExA(Handle key, const char* valueName, std::uint32_t* reserved, std::uint32_t* type,
                              std::uint8_t* data, std::uint32_t* size);

/// Stores a value. A text that does not end in a NUL is stored with the one behind it if there is one, so the
/// byte behind `data` must be readable for a text.
std::int32_t RegSetValueExA(Handle key, const char* valueName, std::uint32_t reserved, std::uint32_t type,
                            const std::uint8_t* data, std::uint32_t size);

/// Deletes a key without subkeys.
std::int32_t RegDeleteKeyA(Handle key, const char* subKey);

std::int32_t RegCloseKey(Handle key);

} // namespace railwright::registry
