#pragma once

namespace railwright {

/// Makes Track run the other way. The nodes stand in reverse order; each node's control points change places
/// and its roll changes its sign. The segments stand in reverse order too, but for the last; speeds and
/// accelerations become what the simulator takes for negative ones. The nodes lose their pre-fabricated
/// supports, and one train remains.
void RebuildBackwards();

} // namespace railwright
