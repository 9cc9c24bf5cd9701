#pragma once

#include "drawing/PictureBox.h"

namespace railwright {

struct TrackMeasures;

/// Draws Track from above and from the side, along X, at two metres to a pixel. It uses the result of the
/// last AnalyzeTrack. The pens keep their width.
void DrawTrackPreview(PictureBox& plan, PictureBox& side);

/// Draws Element from above and from the side, along Z, at a scale that follows its size. It uses the result
/// of the last AnalyzeElement. Both pens are 3 pixels wide afterwards.
void DrawElementPreview(PictureBox& plan, PictureBox& side);

/// The same drawings, but the points are worked out while they are drawn: no analysis is needed before, and
/// no list is made, however many points there are.
void DrawTrackWhileSampling(PictureBox& plan, PictureBox& side);
void DrawElementWhileSampling(PictureBox& plan, PictureBox& side);

/// The same drawing, and what MeasureTrack gives, by one pass over the curve.
TrackMeasures DrawAndMeasureTrack(PictureBox& plan, PictureBox& side);

} // namespace railwright
