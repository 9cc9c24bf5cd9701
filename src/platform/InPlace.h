#pragma once

#include "platform/WholeFile.h"

namespace railwright {

/// Overwrites an existing file, for where no new one can take its place. Others that do the same wait for one
/// another. A copy of the old content lies in a folder for temporary files until the new one is on the disk;
/// if writing fails the old content is put back, and if that fails too, OldKeptIn names the copy.
FileResult OverwriteInPlace(const FilePath& path, const FileContent& content);

} // namespace railwright
