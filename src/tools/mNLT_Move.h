#pragma once

#include "base/Types.h"

namespace railwright {

/// Moves the curve of Track.
/// @param Offset metres along each axis.
/// @param MoveSupports also moves the free and fundamental nodes.
void MoveTrack(const Vector3& Offset, bool MoveSupports);

} // namespace railwright
