#pragma once

namespace railwright {

/// @return how many times as large as usual the user wants texts, beyond the resolution of the screen that
/// the toolkit follows by itself: 1 to 2.25, but no more than a window of that size in usual pixels takes to
/// fill the main screen.
double UserTextScale(int width, int height);

} // namespace railwright
