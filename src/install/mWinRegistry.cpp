#include "install/mWinRegistry.h"

#include "base/Text.h"

#include <charconv>
#include <optional>
#include <string_view>

namespace railwright {
namespace {

/// Returns the digits of a 32-bit value stored with its lowest byte first.
text Digits(std::string_view bytes) {
    constexpr TextView Hex = "0123456789ABCDEF";
    text digits;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
        digits += Hex[static_cast<unsigned char>(*byte) / 16U];
        digits += Hex[static_cast<unsigned char>(*byte) % 16U];
    }
    return digits;
}

text AsText(const RegistryInput& value) {
    const auto* const number = std::get_if<std::int32_t>(&value);
    return number == nullptr ? std::get<text>(value) : TextOf(std::to_string(*number));
}

/// @return nothing if a text is not a 32-bit number.
std::optional<std::int32_t> AsNumber(const RegistryInput& value) {
    if (const auto* const number = std::get_if<std::int32_t>(&value))
        return *number;
    const text& digits = std::get<text>(value);
    std::int32_t number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

/// Returns the bytes of a value, or nothing if it does not fit the type.
std::optional<std::string> BytesFor(std::uint32_t type, const RegistryInput& value) {
    if (type == REG_SZ || type == REG_BINARY)
        return BytesOf(AsText(value));
    const std::optional<std::int32_t> number = AsNumber(value);
    if (type != REG_DWORD || !number)
        return std::nullopt;
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(static_cast<std::uint32_t>(*number) >> shift & 0xFFU);
    return bytes;
}

} // namespace

bool ReadRegistryValue(std::uint32_t hRoot, const std::string& sKey, const std::string& sValueName,
                       text& sResult) {
    std::optional<registry::Value> value = registry::Read(hRoot, sKey, sValueName);
    if (!value)
        return false;
    if (value->Data.ends_with('\0'))
        value->Data.pop_back();
    if (value->Type == REG_SZ)
        sResult = TextOf(value->Data);
    else if (value->Type == REG_DWORD)
        sResult = "&h" + sResult + Digits(value->Data);
    return true;
}

bool WriteRegistryValue(std::uint32_t hRoot, const std::string& sKey, std::uint32_t iType,
                        const std::string& sValueName, RegistryInput& vValue) {
    if (iType != REG_SZ && iType != REG_BINARY && iType != REG_DWORD) {
        registry::CreateKey(hRoot, sKey);
        return true;
    }
    const std::optional<std::string> bytes = BytesFor(iType, vValue);
    bool isStored = false;
    if (bytes)
        isStored = registry::Write(hRoot, sKey, sValueName, {iType, *bytes});
    else
        registry::CreateKey(hRoot, sKey);
    if (!isStored)
        vValue = text();
    return isStored;
}

bool DeleteRegistryKey(std::uint32_t hRoot, const std::string& sKey) {
    return registry::Delete(hRoot, sKey);
}

} // namespace railwright
