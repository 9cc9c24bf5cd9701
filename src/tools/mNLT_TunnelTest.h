#pragma once

namespace railwright {

/// Modes of SetTunnels.
namespace TunnelMode {
inline constexpr int Toggle = 0;
inline constexpr int All = 1;
inline constexpr int None = 2;
} // namespace TunnelMode

/// Sets the tunnel flag of all segments of Track.
/// @param Mode one of TunnelMode; any other does nothing.
void SetTunnels(int Mode);

} // namespace railwright
