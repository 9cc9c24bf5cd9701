#pragma once

#include <cstdint>

namespace railwright {

/// The longest track that the Node Smoother works on.
inline constexpr std::int32_t SmootherNodeLimit = 501;

/// Smooths the curve of Track. It holds the nodes of straight stretches, moves the control points of the
/// others towards one plane in 21 sweeps, and slides each position along the line between its control points.
/// The first and last node are neighbours, also on an open track. FlagC of every node is cleared. A track of
/// more than SmootherNodeLimit nodes does not change.
void SmoothTrackNodes();

} // namespace railwright
