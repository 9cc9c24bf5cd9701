#pragma once

namespace railwright {

/// Axes of RotateElement, in the order of the buttons.
namespace ElementAxis {
inline constexpr int X = 0;
inline constexpr int Z = 1;
inline constexpr int Y = 2;
} // namespace ElementAxis

/// Rotates Element about an axis through the origin.
/// @param Axis one of ElementAxis; any other does nothing.
void RotateElement(int Axis, float Degrees);

} // namespace railwright
