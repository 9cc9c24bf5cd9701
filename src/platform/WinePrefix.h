#pragma once

#include "platform/FilePath.h"

#include <optional>
#include <string>
#include <string_view>

/// Off Windows the simulator runs under Wine. These functions read the user's Wine prefix, the folder named
/// by the environment variable WINEPREFIX, or else ~/.wine. They change nothing.
namespace railwright {

/// Reads a text value of the user's part of Wine's registry.
/// @param key, value ASCII in lower case, found in any case of letters; the key below HKEY_CURRENT_USER.
/// @return UTF-8; nothing on Windows, and if there is no prefix or no such value.
std::optional<std::string> ReadWineRegistry(std::string_view key, std::string_view value);

/// Finds the place that a path of Windows means here. Drive letters lead through the drives of the prefix; Z:
/// is the whole file system in every case. Names are found in any case of letters. A path on an unknown drive
/// stays as it is, as does every path on Windows.
FilePath FromWindowsPath(std::string_view path);

/// @return a path as programs of Windows take it: here from the drive Z: on if it is absolute.
std::string ForWindowsPrograms(const FilePath& path);

} // namespace railwright
