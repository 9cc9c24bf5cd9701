#pragma once

namespace railwright {

/// Turns Track into a closed circuit that runs back over itself. Appends copies of the nodes in reverse
/// order, with swapped control points and negated rolls, and as many Normal segments. The pre-fabricated
/// supports stay on the first half. The track should be open; this is not checked.
void MakeShuttle();

} // namespace railwright
