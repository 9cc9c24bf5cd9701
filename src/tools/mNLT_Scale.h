#pragma once

namespace railwright {

/// Makes Track larger or smaller about the world's origin, heights included.
/// @param Factor 1 leaves the size as it is.
/// @param ScaleSupports whether the free and fundamental nodes are scaled with the curve.
void ScaleTrack(float Factor, bool ScaleSupports);

} // namespace railwright
