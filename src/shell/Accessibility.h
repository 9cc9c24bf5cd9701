#pragma once

namespace railwright {

/// Describes the program's own controls (frames, pictures and previews) to screen readers. Call it once,
/// before the window is created.
void DescribeOwnControls();

} // namespace railwright
