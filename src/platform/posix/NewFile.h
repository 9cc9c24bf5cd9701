#pragma once

#include "platform/FileOperations.h"

namespace railwright {

/// Creates a new file in the folder of `native`, to be renamed to `native` later. It is nameless if the file
/// system supports that. Otherwise its name begins with a dot, and the file is locked while it has that name.
/// @param model native path of the file whose rights the new file gets; empty for the default rights.
std::unique_ptr<NewFile> OpenNewNative(const std::string& native, const std::string& model,
                                       std::error_code& error);

/// Deletes the files in a folder that have such a temporary name, unless a living process has locked them.
void DeleteLeftoversIn(const std::string& nativeFolder);

} // namespace railwright
