#pragma once

namespace railwright {

/// Returns the scale of texts that the user has chosen, from 1 to 2.25. Excludes the scale of the screen,
/// which the toolkit applies itself. The scale is limited so that a window of this size, in unscaled pixels,
/// still fits the main screen.
double UserTextScale(int width, int height);

} // namespace railwright
