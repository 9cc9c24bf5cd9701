#pragma once

#include "element/ElementDocument.h"
#include "platform/WholeFile.h"

#include <string>

namespace railwright {

struct UnknownChunks;

/// Reads a .nlelem file into Element.
/// @param sFile path, UTF-8 in Windows form.
/// @return on failure, the reason. If the name is wrong, Element stays as it was; otherwise it is empty.
FileResult LoadElementFile(const FilePath& sFile);

/// Reads a .nlelem file into Element like LoadElementFile, but a hidden file as well.
/// @param unknown takes the chunks of the file that are not in Element.
FileResult ReadElementFile(const FilePath& sFile, UnknownChunks& unknown);

/// Writes Element as a .nlelem file.
/// @param sFile path, UTF-8 in Windows form; ".nlelem" is added unless it ends so already.
/// @return on failure, the reason; an old file of that name then stays as it was.
FileResult SaveElementFile(const FilePath& sFile);

} // namespace railwright
