#pragma once

#include "base/Types.h"

namespace railwright {

/// Shifts the curve of Track.
/// @param Offset metres along each axis.
/// @param MoveSupports whether the free and fundamental nodes move with the curve.
void MoveTrack(const Vector3& Offset, bool MoveSupports);

} // namespace railwright
