#pragma once

#include "base/Types.h"

#include <cstddef>
#include <cstdint>

namespace railwright {

/// The shortest name that an object may be given, in characters.
inline constexpr std::size_t ShortestObjectName = 5;

/// Gives objects of Track another model file. The name is stored as it is; no file is looked for.
/// @param Index of the object, 0 to SceneryObjects.Count - 1. With any other nothing happens.
/// @param NewName in the ANSI code page.
/// @param AllOfSameName whether every object whose name is that of the chosen one, in any case of letters, is
/// renamed with it.
void RenameSceneryObject(std::int32_t Index, const text& NewName, bool AllOfSameName);

} // namespace railwright
