#include "platform/windows/Wide.h"

#include <windows.h>

namespace railwright {
namespace {

/// A folder's path must leave room for a name with eight characters and an extension of three.
constexpr std::size_t LongestPlainPath = MAX_PATH - 12;

constexpr std::wstring_view LongPrefix = L"\\\\?\\";
constexpr std::wstring_view LongNetworkPrefix = L"\\\\?\\UNC\\";

/// Returns the absolute path without "." and "..".
std::wstring FullPath(const std::wstring& path) {
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), 0);
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

std::wstring WellFormedToWide(std::string_view utf8) {
    const int length = static_cast<int>(utf8.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0)), 0);
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string WellFormedFromWide(std::wstring_view wide) {
    const int length = static_cast<int>(wide.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(bytes), 0);
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(), bytes, nullptr, nullptr);
    return utf8;
}

/// Length of an unpaired surrogate in UTF-8. File names may contain unpaired surrogates. Each is encoded in
/// three bytes like any other unit of its size, which is invalid UTF-8 but restores the name.
constexpr std::size_t HalfLength = 3;

/// Returns the position of the next unpaired surrogate; the end if there is none.
std::size_t NextHalf(std::string_view utf8, std::size_t from) {
    for (std::size_t at = from; at + HalfLength <= utf8.size(); ++at)
        if (utf8[at] == '\xED' && (utf8[at + 1] & 0xE0) == 0xA0 && (utf8[at + 2] & 0xC0) == 0x80)
            return at;
    return utf8.size();
}

std::size_t NextHalf(std::wstring_view wide, std::size_t from) {
    for (std::size_t at = from; at < wide.size(); ++at) {
        const bool begins = IS_HIGH_SURROGATE(wide[at]);
        if (begins && at + 1 < wide.size() && IS_LOW_SURROGATE(wide[at + 1]))
            ++at;
        else if (begins || IS_LOW_SURROGATE(wide[at]))
            return at;
    }
    return wide.size();
}

} // namespace

std::wstring ToWide(std::string_view utf8) {
    std::wstring wide;
    for (std::size_t at = 0; at < utf8.size();) {
        const std::size_t end = NextHalf(utf8, at);
        wide += WellFormedToWide(utf8.substr(at, end - at));
        if (end < utf8.size())
            wide += static_cast<wchar_t>(0xD000U | (utf8[end + 1] & 0x3FU) << 6U | (utf8[end + 2] & 0x3FU));
        at = end + HalfLength;
    }
    return wide;
}

std::string FromWide(std::wstring_view wide) {
    std::string utf8;
    for (std::size_t at = 0; at < wide.size();) {
        const std::size_t end = NextHalf(wide, at);
        utf8 += WellFormedFromWide(wide.substr(at, end - at));
        if (end < wide.size())
            for (const unsigned unit :
                 {0xEDU, 0x80U | (wide[end] >> 6U & 0x3FU), 0x80U | (wide[end] & 0x3FU)})
                utf8 += static_cast<char>(unit);
        at = end + 1;
    }
    return utf8;
}

std::wstring NativePath(const FilePath& path) {
    std::wstring wide = ToWide(path.Native());
    if (wide.starts_with(LongPrefix))
        return wide;
    const std::wstring full = FullPath(wide);
    if (full.size() < LongestPlainPath)
        return wide;
    if (full.starts_with(L"\\\\"))
        return std::wstring(LongNetworkPrefix) + full.substr(2);
    return std::wstring(LongPrefix) + full;
}

} // namespace railwright
