#pragma once

#include "platform/WholeFile.h"

namespace railwright {

/// Overwrites an existing file, if no new one can take its place. Readers and other writers wait. A copy of
/// the old content is in a folder for temporary files until the new content is on the disk. If writing fails
/// the old content is put back; if that fails too, OldKeptIn names the copy. After success OldKeptIn names a
/// copy that an earlier, interrupted save of this file left, if there is one.
FileResult OverwriteInPlace(const FilePath& path, const FileContent& content);

/// Finds the copies of old content that interrupted saves of this user have left.
/// @param name only those of files of that name; empty for all.
std::vector<FilePath> LeftCopies(const FileName& name = {});

} // namespace railwright
