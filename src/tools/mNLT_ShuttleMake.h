#pragma once

namespace railwright {

/// Turns Track into a closed circuit that runs out and back on itself: behind its nodes come copies of them
/// in reverse order, each with its control points crossed over and its roll negated, and as many Normal
/// segments. The pre-fabricated supports stay on the first half. It is meant for an open track; it tests
/// nothing.
void MakeShuttle();

} // namespace railwright
