#pragma once

namespace railwright {

/// Scales Track about the world's origin, heights too.
/// @param Factor 1 is the present size.
/// @param ScaleSupports whether the free and fundamental nodes are scaled with the curve.
void ScaleTrack(float Factor, bool ScaleSupports);

} // namespace railwright
