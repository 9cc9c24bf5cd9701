#pragma once

#include "element/ElementDocument.h"
#include "platform/WholeFile.h"

#include <string>

namespace railwright {

/// Reads a .nlelem file into Element.
/// @param sFile path, UTF-8 in Windows form.
/// @return on failure, the reason. If the name is wrong, Element stays as it was; otherwise it is empty.
FileResult LoadElementFile(const FilePath& sFile);

/// Writes Element as a .nlelem file.
/// @param sFile path, UTF-8 in Windows form; ".nlelem" is added unless it ends so already.
/// @return on failure, the reason; an old file of that name then stays as it was.
FileResult SaveElementFile(const FilePath& sFile);

} // namespace railwright
