#pragma once

#include "platform/PictureBox.h"

namespace railwright {

/// Draws Track as a plan seen from above and as a side elevation along X, both at two metres to a pixel, from
/// what the last AnalyzeTrack left. The pens keep their width.
void DrawTrackPreview(PictureBox& plan, PictureBox& side);

/// Draws Element as a plan seen from above and as a side elevation along Z, at a scale that follows its size,
/// from what the last AnalyzeElement left. Both pens are 3 pixels wide afterwards.
void DrawElementPreview(PictureBox& plan, PictureBox& side);

} // namespace railwright
