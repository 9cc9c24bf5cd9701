#pragma once

namespace railwright {

/// Turns Track about the vertical axis through the world's origin. A positive angle turns east towards north.
/// @param Degrees angle.
/// @param RotateSupports whether the free and fundamental nodes turn with the curve.
void RotateTrack(float Degrees, bool RotateSupports);

} // namespace railwright
