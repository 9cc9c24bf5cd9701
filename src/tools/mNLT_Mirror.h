#pragma once

namespace railwright {

/// Modes of MirrorTrack.
namespace MirrorMode {
inline constexpr int NorthSouth = 0;
inline constexpr int EastWest = 1;
} // namespace MirrorMode

/// Mirrors Track at a vertical plane through the world's origin. Rolls and the order of the nodes stay.
/// @param Mode one of MirrorMode; any other does nothing.
/// @param MirrorSupports whether the free and fundamental nodes are mirrored with the curve.
void MirrorTrack(int Mode, bool MirrorSupports);

} // namespace railwright
