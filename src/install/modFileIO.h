#pragma once

#include "platform/WholeFile.h"

#include <cstdint>
#include <system_error>
#include <vector>

namespace railwright {

/// A whole file on its way from one place to another.
using FileBuffer = std::vector<std::uint8_t>;

/// Reads a whole file.
/// @return why not, if no file is named, it does not exist or cannot be read; `buffer` is then empty.
FileResult ReadFileBuffer(const FilePath& sFile, FileBuffer& buffer);

/// Writes a whole file in place of an existing one. On failure the old file is as it was. Leftovers of
/// interrupted saves stay in the folder.
/// @param model for a new file, one whose rights it may not exceed; empty for the usual rights.
FileResult WriteFileBuffer(const FilePath& sFile, const FileBuffer& buffer, const FilePath& model = {});

/// @return whether anything has that name, a link to nothing included.
/// @param unknown set where the system cannot tell; then it counts as there.
bool Exists(const FilePath& path, std::error_code& unknown);

} // namespace railwright
