#pragma once

namespace railwright {

/// Axes of RotateElement, in the order of the buttons.
namespace ElementAxis {
inline constexpr int X = 0;
inline constexpr int Z = 1;
inline constexpr int Y = 2;
} // namespace ElementAxis

/// Turns Element about an axis of the world through the origin.
/// @param Axis one of ElementAxis; any other does nothing.
/// @param Degrees angle.
void RotateElement(int Axis, float Degrees);

} // namespace railwright
