#pragma once

#include <cstdint>

namespace railwright {

/// The longest track that the Node Smoother works on.
inline constexpr std::int32_t SmootherNodeLimit = 501;

/// Reshapes the curve of Track: marks the nodes of straight stretches, pulls the control points of the others
/// towards one plane in 21 sweeps, and slides each position along the line between its control points. First
/// and last node count as neighbours, on an open track too. Clears FlagC of every node. A track of more than
/// SmootherNodeLimit nodes stays as it is.
void SmoothTrackNodes();

} // namespace railwright
