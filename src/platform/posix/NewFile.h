#pragma once

#include "platform/FileOperations.h"

namespace railwright {

/// Makes a new file beside `native`, whose name it is to take. Without a name where the file system can do
/// so, otherwise under one that begins with a dot; the file is locked as long as it may have that.
/// @param model native path of the file whose rights it takes; empty for the usual rights.
std::unique_ptr<NewFile> OpenNewNative(const std::string& native, const std::string& model,
                                       std::error_code& error);

/// Deletes the files in a folder that have such a name and that no living process has locked.
void DeleteLeftoversIn(const std::string& nativeFolder);

} // namespace railwright
