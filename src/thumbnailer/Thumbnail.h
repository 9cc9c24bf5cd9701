#pragma once

#include "drawing/PictureBox.h"

#include <functional>

#include <QImage>

namespace railwright {

/// Draws the curve of a plan as a square picture that it fills, without the grid. The time does not grow with
/// the length of the curve: of an endless one only some strokes are drawn, as many as the picture can show.
/// @param size width and height in pixels.
/// @param draw draws the plan. It is called twice.
QImage DrawThumbnail(int size, const std::function<void(PictureBox& plan)>& draw);

} // namespace railwright
