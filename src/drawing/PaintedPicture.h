#pragma once

#include "drawing/PictureBox.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#include <QImage>

namespace railwright {

/// A picture drawn by the toolkit's painter at any resolution. Records the visible drawing calls. Needs
/// neither a window nor a screen.
class PaintedPicture final : public PictureBox {
public:
    void Cls() override;
    void Line(float x1, float y1, float x2, float y2, Rgb colour) override;
    void PSet(float x, float y, Rgb colour) override;
    void DrawWidth(int pixels) override;

    /// Returns the number of lines and points since the last Cls that are on the picture or near it.
    std::size_t StrokeCount() const { return strokes.size(); }

    /// Returns the picture scaled by `ratio` in both directions.
    QImage Drawn(double ratio) const;

private:
    /// A line, or a point if both ends are equal. There may be millions.
    struct Stroke {
        float X1, Y1, X2, Y2;
        Rgb Colour;
        std::uint8_t Width;
    };

    std::vector<Stroke> strokes;
    std::uint8_t penWidth = 1;
};

} // namespace railwright
