#pragma once

#include "platform/FilePath.h"

#include <string>
#include <string_view>

namespace railwright {

/// Converts UTF-8 to UTF-16. Invalid bytes become the replacement character, except for unpaired surrogates
/// from FromWide.
std::wstring ToWide(std::string_view utf8);

/// Converts UTF-16 to UTF-8. Encodes unpaired surrogates, as in some file names, so that ToWide restores
/// them.
std::string FromWide(std::wstring_view wide);

/// Returns a path for the system's calls. A path that is too long for them gets the prefix that lifts the
/// limit.
std::wstring NativePath(const FilePath& path);

} // namespace railwright
