#pragma once

namespace railwright {

/// Makes Element run the other way. Its last node becomes the first and moves to the origin, each node's
/// control points change places, and rolls change their sign. Then the element is turned about the vertical
/// axis by the angle of the direction in which it ended.
void ReverseElement();

} // namespace railwright
