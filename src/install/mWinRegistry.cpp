#include "install/mWinRegistry.h"

#include "base/Text.h"

#include <array>
#include <charconv>
#include <optional>
#include <span>

namespace railwright {
namespace {

/// Reading and writing, whichever the key is opened for.
constexpr std::uint32_t ReadAndWrite = 0x2003F;

constexpr std::size_t LongestValue = 1024;

/// An open key, closed at the end of the operation that opened it.
class OpenedKey {
public:
    explicit OpenedKey(std::uint32_t hRoot, const std::string& sKey)
        : isOpen(registry::RegOpenKeyExA(hRoot, sKey.c_str(), 0, ReadAndWrite, &handle) ==
                 registry::ERROR_SUCCESS) {}
    ~OpenedKey() {
        if (isOpen)
            registry::RegCloseKey(handle);
    }
    OpenedKey(const OpenedKey&) = delete;
    OpenedKey& operator=(const OpenedKey&) = delete;

    void Create(std::uint32_t hRoot, const std::string& sKey) {
        isOpen = registry::RegCreateKeyA(hRoot, sKey.c_str(), &handle) == registry::ERROR_SUCCESS;
    }
    bool IsOpen() const { return isOpen; }
    registry::Handle Handle() const { return handle; }

private:
    registry::Handle handle = 0;
    bool isOpen;
};

/// The digits of a 32-bit value, which lies with its lowest byte first.
text Digits(std::span<const std::uint8_t> bytes) {
    constexpr TextView Hex = "0123456789ABCDEF";
    text digits;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
        digits += Hex[*byte / 16U];
        digits += Hex[*byte % 16U];
    }
    return digits;
}

text AsText(const RegistryInput& value) {
    const auto* const number = std::get_if<std::int32_t>(&value);
    return number == nullptr ? std::get<text>(value) : TextOf(std::to_string(*number));
}

/// @return nothing for a text that is no 32-bit number.
std::optional<std::int32_t> AsNumber(const RegistryInput& value) {
    if (const auto* const number = std::get_if<std::int32_t>(&value))
        return *number;
    const text& digits = std::get<text>(value);
    std::int32_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

bool Store(registry::Handle key, const std::string& name, std::uint32_t type, const void* data,
           std::size_t size) {
    return registry::RegSetValueExA(key, name.c_str(), 0, type, static_cast<const std::uint8_t*>(data),
                                    static_cast<std::uint32_t>(size)) == registry::ERROR_SUCCESS;
}

bool StoreText(registry::Handle key, const std::string& name, std::uint32_t type,
               const RegistryInput& value) {
    const text characters = AsText(value);
    return Store(key, name, type, characters.c_str(), characters.size()); // its NUL lies behind it, uncounted
}

bool StoreNumber(registry::Handle key, const std::string& name, const RegistryInput& value) {
    const std::optional<std::int32_t> number = AsNumber(value);
    return number && Store(key, name, REG_DWORD, &*number, sizeof *number);
}

} // namespace

bool ReadRegistryValue(std::uint32_t hRoot, const std::string& sKey, const std::string& sValueName,
                       text& sResult) {
    const OpenedKey key(hRoot, sKey);
    if (!key.IsOpen())
        return false;
    std::array<std::uint8_t, LongestValue> buffer{};
    std::uint32_t type = 0;
    std::uint32_t size = LongestValue;
    if (registry::RegQueryValueExA(key.Handle(), sValueName.c_str(), nullptr, &type, buffer.data(), &size) !=
        registry::ERROR_SUCCESS)
        return false;
    std::span<const std::uint8_t> bytes(buffer.data(), size);
    if (!bytes.empty() && bytes.back() == 0)
        bytes = bytes.first(bytes.size() - 1);
    if (type == REG_SZ) {
        sResult.assign(bytes.begin(), bytes.end());
    } else if (type == REG_DWORD) {
        sResult = "&h" + sResult + Digits(bytes);
    }
    return true;
}

bool WriteRegistryValue(std::uint32_t hRoot, const std::string& sKey, std::uint32_t iType,
                        const std::string& sValueName, RegistryInput& vValue) {
    OpenedKey key(hRoot, sKey);
    if (!key.IsOpen())
        key.Create(hRoot, sKey);
    bool stored = true;
    if (iType == REG_SZ || iType == REG_BINARY)
        stored = StoreText(key.Handle(), sValueName, iType, vValue);
    else if (iType == REG_DWORD)
        stored = StoreNumber(key.Handle(), sValueName, vValue);
    if (!stored)
        vValue = text();
    return stored;
}

bool DeleteRegistryKey(std::uint32_t hRoot, const std::string& sKey) {
    return registry::RegDeleteKeyA(hRoot, sKey.c_str()) == registry::ERROR_SUCCESS;
}

} // namespace railwright
