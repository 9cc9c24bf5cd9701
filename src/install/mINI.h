#pragma once

#include "base/Types.h"
#include "platform/WholeFile.h"

#include <string>

namespace railwright {

/// Reads a whole file as text, one character per byte.
/// @return the reason if the file is missing or cannot be read; `sText` is then empty.
FileResult ReadTextFile(const FilePath& sFile, text& sText);

/// Writes `sText` and a final CR LF. Replaces an existing file; on failure that is unchanged.
FileResult WriteTextFile(const FilePath& sFile, const text& sText);

} // namespace railwright
