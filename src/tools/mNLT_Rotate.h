#pragma once

namespace railwright {

/// Rotates Track about the vertical axis through the origin.
/// @param Degrees the angle; positive from east towards north.
/// @param RotateSupports also rotates the free and fundamental nodes.
void RotateTrack(float Degrees, bool RotateSupports);

} // namespace railwright
