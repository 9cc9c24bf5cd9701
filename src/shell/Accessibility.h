#pragma once

namespace railwright {

/// Tells screen readers what the controls of our own are: frames, pictures and previews. Runs once, before
/// the window is made.
void DescribeOwnControls();

} // namespace railwright
