#pragma once

#include "base/Types.h"

#include <cstddef>
#include <cstdint>

namespace railwright {

/// The shortest allowed name of an object, in characters.
inline constexpr std::size_t ShortestObjectName = 5;

/// Gives objects of Track another model file. Checks neither the name nor whether the file exists.
/// @param Index the object, 0 to SceneryObjects.Count - 1. Any other index changes nothing.
/// @param NewName in the ANSI code page.
/// @param AllOfSameName renames all objects of the same name, ignoring case.
void RenameSceneryObject(std::int32_t Index, const text& NewName, bool AllOfSameName);

} // namespace railwright
