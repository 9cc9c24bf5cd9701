#pragma once

namespace railwright {

/// Makes Track run the other way round: its nodes in reverse order with control points crossed over and rolls
/// negated, its segments but the last one likewise, with the speeds and accelerations of the special ones
/// replaced by what the simulator takes for negative ones. The nodes lose their pre-fabricated supports, and
/// one train remains.
void RebuildBackwards();

} // namespace railwright
