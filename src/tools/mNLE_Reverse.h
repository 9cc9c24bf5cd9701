#pragma once

namespace railwright {

/// Reverses the direction of Element. The last node becomes the first and moves to the origin. Each node's
/// control points are swapped, and rolls change sign. The element is then rotated about the vertical axis by
/// the angle of its former end direction.
void ReverseElement();

} // namespace railwright
