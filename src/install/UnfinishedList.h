#pragma once

#include "platform/WholeFile.h"

#include <set>

namespace railwright {

/// Reads which environments a run was cut off from finishing, by the names of their files.
/// @param names none where there is no list.
FileResult ReadList(const FilePath& list, std::set<FileName>& names);

/// Writes them down. Of no names there is no list.
FileResult WriteList(const FilePath& list, const std::set<FileName>& names);

} // namespace railwright
