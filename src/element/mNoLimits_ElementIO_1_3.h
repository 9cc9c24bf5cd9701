#pragma once

#include "element/ElementDocument.h"
#include "platform/WholeFile.h"

#include <string>

namespace railwright {

struct UnknownChunks;

/// Reads a .nlelem file into Element.
/// @return on failure, the reason. If the name is wrong or the file cannot be opened, Element is unchanged;
/// after any other failure it is empty.
FileResult LoadElementFile(const FilePath& sFile);

/// Reads a .nlelem file into Element like LoadElementFile, but accepts a hidden file too.
/// @param unknown receives the chunks that Element cannot hold.
FileResult ReadElementFile(const FilePath& sFile, UnknownChunks& unknown);

/// Writes Element as a .nlelem file.
/// @param sFile path of the file. Adds ".nlelem" if the path does not end in it.
/// @return on failure, the reason; an existing file is then unchanged.
FileResult SaveElementFile(const FilePath& sFile);

} // namespace railwright
