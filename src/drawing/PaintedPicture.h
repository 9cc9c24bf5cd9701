#pragma once

#include "drawing/PictureBox.h"

#include <cstddef>
#include <cstdint>
#include <vector>

#include <QImage>

namespace railwright {

/// A picture that the toolkit's painter draws, in any number of pixels. It keeps the drawing calls that can
/// be seen, and takes neither a window nor a screen.
class PaintedPicture final : public PictureBox {
public:
    void Cls() override;
    void Line(float x1, float y1, float x2, float y2, Rgb colour) override;
    void PSet(float x, float y, Rgb colour) override;
    void DrawWidth(int pixels) override;

    /// @return the number of lines and points since the last Cls that are on the picture or near it.
    std::size_t StrokeCount() const { return strokes.size(); }

    /// @return the picture with `ratio` pixels to each of its own along both sides.
    QImage Drawn(double ratio) const;

private:
    /// A line, or a point where both ends are the same place. There may be millions.
    struct Stroke {
        float X1, Y1, X2, Y2;
        Rgb Colour;
        std::uint8_t Width;
    };

    std::vector<Stroke> strokes;
    std::uint8_t penWidth = 1;
};

} // namespace railwright
