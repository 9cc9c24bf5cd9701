#pragma once

namespace railwright {

/// Turns Track into a closed circuit that runs back over itself. After its nodes come copies of them in
/// reverse order, with control points that change places and rolls that change their sign, and as many Normal
/// segments. The pre-fabricated supports stay on the first half. The track should be open; this is not
/// checked.
void MakeShuttle();

} // namespace railwright
