#include "platform/Registry.h"

#include <string>

#include <windows.h>

namespace railwright::registry {
namespace {

/// The roots are negative 32-bit numbers that the system widens with their sign.
HKEY Native(Handle key) {
    const bool isRoot = key >= 0x80000000U && key <= 0xFFFFFFFFU;
    return reinterpret_cast<HKEY>(isRoot ? static_cast<std::intptr_t>(static_cast<std::int32_t>(key))
                                         : static_cast<std::intptr_t>(key));
}

/// The registrations of the user, which HKEY_CLASSES_ROOT shows before those of the machine.
constexpr const char* UserClasses = "Software\\Classes\\";

LSTATUS Create(HKEY root, const char* subKey, HKEY* created) {
    return ::RegCreateKeyExA(root, subKey, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, created, nullptr);
}

} // namespace

std::int32_t RegOpenKeyExA(Handle key, const char* subKey, std::uint32_t options, std::uint32_t access,
                           Handle* result) {
    HKEY opened = nullptr;
    const LSTATUS status = ::RegOpenKeyExA(Native(key), subKey, options, access, &opened);
    if (status == 0)
        *result = reinterpret_cast<Handle>(opened);
    return status;
}

std::int32_t RegCreateKeyA(Handle key, const char* subKey, Handle* result) {
    HKEY opened = nullptr;
    LSTATUS status = Create(Native(key), subKey, &opened);
    // The machine's registrations belong to administrators; everybody else has registrations of their own.
    if (status == ERROR_ACCESS_DENIED && Native(key) == HKEY_CLASSES_ROOT)
        status = Create(HKEY_CURRENT_USER, (std::string(UserClasses) + subKey).c_str(), &opened);
    if (status == 0)
        *result = reinterpret_cast<Handle>(opened);
    return status;
}

std::int32_t RegQueryValueExA(Handle key, const char* valueName, std::uint32_t* reserved, std::uint32_t* type,
                              std::uint8_t* data, std::uint32_t* size) {
    DWORD foundType = 0;
    DWORD foundSize = size == nullptr ? 0 : *size;
    const LSTATUS status = ::RegQueryValueExA(Native(key), valueName, reinterpret_cast<DWORD*>(reserved),
                                              &foundType, data, size == nullptr ? nullptr : &foundSize);
    if (type != nullptr)
        *type = foundType;
    if (size != nullptr)
        *size = foundSize;
    return status;
}

std::int32_t RegSetValueExA(Handle key, const char* valueName, std::uint32_t reserved, std::uint32_t type,
                            const std::uint8_t* data, std::uint32_t size) {
    return ::RegSetValueExA(Native(key), valueName, reserved, type, data, size);
}

std::int32_t RegDeleteKeyA(Handle key, const char* subKey) {
    return ::RegDeleteKeyA(Native(key), subKey);
}

std::int32_t RegCloseKey(Handle key) {
    return ::RegCloseKey(Native(key));
}

} // namespace railwright::registry
