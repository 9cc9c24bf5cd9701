#include "platform/windows/Wide.h"

#include <windows.h>

namespace railwright {
namespace {

/// A folder must leave room for a name of eight characters with an extension of three in it.
constexpr std::size_t LongestPlainPath = MAX_PATH - 12;

constexpr std::wstring_view LongPrefix = L"\\\\?\\";
constexpr std::wstring_view LongNetworkPrefix = L"\\\\?\\UNC\\";

/// @return `path` from its drive or server on, without "." and "..".
std::wstring FullPath(const std::wstring& path) {
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), 0);
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

} // namespace

std::wstring ToWide(std::string_view utf8) {
    const int length = static_cast<int>(utf8.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0)), 0);
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string FromWide(std::wstring_view wide) {
    const int length = static_cast<int>(wide.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(bytes), 0);
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(), bytes, nullptr, nullptr);
    return utf8;
}

std::wstring NativePath(std::string_view path) {
    std::wstring wide = ToWide(path);
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
