#pragma once

namespace railwright {

/// Reverses the direction of Track. Reverses the order of the nodes, swaps each node's control points and
/// negates its roll. Reverses the order of the segments except the last one. Speeds and accelerations get
/// values that the simulator treats as negative. Removes the pre-fabricated supports of the nodes, and leaves
/// one train.
void RebuildBackwards();

} // namespace railwright
