#pragma once

#include "platform/WholeFile.h"

namespace railwright {

/// Overwrites an existing file that cannot be replaced by a new one. Readers and other writers wait. A copy
/// of the old content stays in a folder for temporary files until the new content is flushed. If writing
/// fails, the old content is restored. If that fails too, OldKeptIn names the copy. After success, OldKeptIn
/// names a copy left by an earlier, interrupted save of this file, if there is one.
FileResult OverwriteInPlace(const FilePath& path, const FileContent& content);

/// Finds copies of old content left by interrupted saves of this user.
/// @param name limits the search to copies of files of that name; empty for all.
std::vector<FilePath> LeftCopies(const FileName& name = {});

} // namespace railwright
