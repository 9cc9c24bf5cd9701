#pragma once

#include "platform/FilePath.h"

#include <optional>
#include <string>
#include <string_view>

/// Functions for the simulator, which runs under Wine off Windows. They read the user's Wine prefix: the
/// folder in the environment variable WINEPREFIX, or ~/.wine. They change nothing.
namespace railwright {

/// Reads a text value from HKEY_CURRENT_USER in Wine's registry.
/// @param key, value ASCII in lower case; matched in any case.
/// @return UTF-8; nothing if the prefix or the value is missing, and always nothing on Windows.
std::optional<std::string> ReadWineRegistry(std::string_view key, std::string_view value);

/// Converts a Windows path to a path on this system. Maps drive letters through the drives of the prefix; Z:
/// is always the whole file system. Matches names in any case. Returns paths on an unknown drive unchanged,
/// as well as every path on Windows.
FilePath FromWindowsPath(std::string_view path);

/// Converts a path for Windows programs. Off Windows, absolute paths get the drive Z:.
std::string ForWindowsPrograms(const FilePath& path);

} // namespace railwright
