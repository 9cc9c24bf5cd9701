#pragma once

#include "base/Types.h"

#include <cstddef>
#include <cstdint>

namespace railwright {

/// The shortest name that an object may be given, in characters.
inline constexpr std::size_t ShortestObjectName = 5;

/// Gives objects of Track another model file. The name is not checked, and no file is looked for.
/// @param Index the object, 0 to SceneryObjects.Count - 1. Any other index changes nothing.
/// @param NewName in the ANSI code page.
/// @param AllOfSameName whether all objects of the same name are renamed with it. Case does not matter.
void RenameSceneryObject(std::int32_t Index, const text& NewName, bool AllOfSameName);

} // namespace railwright
