#pragma once

#include "element/ElementDocument.h"
#include "platform/WholeFile.h"

#include <string>

namespace railwright {

/// Reads a .nlelem file into Element.
/// @param sFile path, UTF-8 in Windows form.
/// @return what is wrong where the file cannot be read. If its name is at fault, Element is as it was;
/// otherwise it is empty.
FileResult LoadElementFile(const std::string& sFile);

/// Writes Element as a .nlelem file.
/// @param sFile path, UTF-8 in Windows form; ".nlelem" is added unless it ends so already.
/// @return what is wrong where the file cannot be written; an old file of that name is then as it was.
FileResult SaveElementFile(const std::string& sFile);

} // namespace railwright
