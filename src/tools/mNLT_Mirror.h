#pragma once

namespace railwright {

/// Modes of MirrorTrack.
namespace MirrorMode {
inline constexpr int NorthSouth = 0;
inline constexpr int EastWest = 1;
} // namespace MirrorMode

/// Mirrors Track at a vertical plane through the origin. Keeps rolls and the order of the nodes.
/// @param Mode one of MirrorMode; any other does nothing.
/// @param MirrorSupports also mirrors the free and fundamental nodes.
void MirrorTrack(int Mode, bool MirrorSupports);

} // namespace railwright
