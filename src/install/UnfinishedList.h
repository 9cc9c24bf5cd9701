#pragma once

#include "platform/WholeFile.h"

#include <set>

namespace railwright {

/// Reads the list of environments that an interrupted run left unfinished.
/// @param names receives the names of their .env files; empty if the list is missing.
FileResult ReadList(const FilePath& list, std::set<FileName>& names);

/// Writes the list. An empty list deletes the file.
FileResult WriteList(const FilePath& list, const std::set<FileName>& names);

} // namespace railwright
