#pragma once

#include "drawing/PictureBox.h"

namespace railwright {

struct TrackMeasures;

/// Draws Track from above and from the side, along X, at two metres per pixel. Uses the result of the last
/// AnalyzeTrack. Does not change the pen widths.
void DrawTrackPreview(PictureBox& plan, PictureBox& side);

/// Draws Element from above and from the side, along Z, at a scale that depends on its size. Uses the result
/// of the last AnalyzeElement. Leaves both pens 3 pixels wide.
void DrawElementPreview(PictureBox& plan, PictureBox& side);

/// Draw the same pictures without a previous analysis. The points are computed while drawing, so memory does
/// not grow with their number.
void DrawTrackWhileSampling(PictureBox& plan, PictureBox& side);
void DrawElementWhileSampling(PictureBox& plan, PictureBox& side);

/// Draws Track and returns the result of MeasureTrack, in one pass over the curve.
TrackMeasures DrawAndMeasureTrack(PictureBox& plan, PictureBox& side);

} // namespace railwright
