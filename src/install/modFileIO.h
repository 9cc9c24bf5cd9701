#pragma once

#include "platform/WholeFile.h"

#include <cstdint>
#include <system_error>
#include <vector>

namespace railwright {

/// The content of a whole file.
using FileBuffer = std::vector<std::uint8_t>;

/// Reads a whole file.
/// @return the reason if the path is empty, or the file is missing or cannot be read; `buffer` is then empty.
FileResult ReadFileBuffer(const FilePath& sFile, FileBuffer& buffer);

/// Writes a whole file. Replaces an existing file; on failure that is unchanged. Keeps leftovers of
/// interrupted saves in the folder.
/// @param model as in WriteWholeFile.
FileResult WriteFileBuffer(const FilePath& sFile, const FileBuffer& buffer, const FilePath& model = {});

/// Returns whether a path exists, including dangling links.
/// @param unknown set if the system reports an error; the path then counts as existing.
bool Exists(const FilePath& path, std::error_code& unknown);

} // namespace railwright
