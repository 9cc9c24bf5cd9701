#pragma once

#include <cstdint>

namespace railwright {

/// The maximum number of nodes for the Node Smoother.
inline constexpr std::int32_t SmootherNodeLimit = 501;

/// Smooths the curve of Track. Keeps the nodes of straight sections. Moves the control points of the others
/// towards a common plane per node in 21 sweeps. Then slides each position along the line between its control
/// points. The first and last node are treated as neighbours, even on an open track. Clears FlagC of every
/// node. Does nothing if the track has more than SmootherNodeLimit nodes.
void SmoothTrackNodes();

} // namespace railwright
