#pragma once

#include "base/Types.h"
#include "platform/WholeFile.h"

#include <string>

namespace railwright {

/// Reads a whole file as text, one character for each byte.
/// @return why not, if it does not exist or cannot be read; `sText` is then empty.
FileResult ReadTextFile(const FilePath& sFile, text& sText);

/// Writes `sText` and a closing CR LF in place of what stood under the name. On failure the old file is as it
/// was.
FileResult WriteTextFile(const FilePath& sFile, const text& sText);

} // namespace railwright
