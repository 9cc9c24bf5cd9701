#pragma once

namespace railwright {

/// Makes Element run the other way: its last node becomes the first and comes to stand at the origin, control
/// points are crossed over, rolls negated, and the whole is turned about the vertical axis by an angle taken
/// from the direction in which it ended.
void ReverseElement();

} // namespace railwright
