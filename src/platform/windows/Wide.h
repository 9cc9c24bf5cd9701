#pragma once

#include "platform/FilePath.h"

#include <string>
#include <string_view>

namespace railwright {

/// @return `utf8` in the system's UTF-16; ill-formed bytes become the replacement character, but for those
/// that FromWide makes.
std::wstring ToWide(std::string_view utf8);

/// @return `wide` as UTF-8. What is ill-formed in it, as a name of a file can be, comes back by ToWide.
std::string FromWide(std::wstring_view wide);

/// @return a path as the system's calls take it: one that is too long for them gets the prefix that lifts the
/// limit, on a drive as in the network.
std::wstring NativePath(const FilePath& path);

} // namespace railwright
