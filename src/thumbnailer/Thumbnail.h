#pragma once

#include "drawing/PictureBox.h"

#include <functional>

#include <QImage>

namespace railwright {

/// Draws the curve of a plan as a square picture, fitted to its size and without the grid. For long curves
/// only as many strokes are drawn as the picture can show, so the time is limited.
/// @param size width and height in pixels.
/// @param draw draws the plan. Called twice.
QImage DrawThumbnail(int size, const std::function<void(PictureBox& plan)>& draw);

} // namespace railwright
