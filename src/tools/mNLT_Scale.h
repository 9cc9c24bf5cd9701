#pragma once

namespace railwright {

/// Scales Track about the origin, including heights.
/// @param Factor 1 keeps the size.
/// @param ScaleSupports also scales the free and fundamental nodes.
void ScaleTrack(float Factor, bool ScaleSupports);

} // namespace railwright
