#pragma once

#include "platform/PictureBox.h"

#include <string>

namespace railwright {

/// A picture as an SVG document, one element for each drawing call.
class SvgPictureBox final : public PictureBox {
public:
    void Cls() override;
    void Line(float x1, float y1, float x2, float y2, Rgb colour) override;
    void PSet(float x, float y, Rgb colour) override;
    void DrawWidth(int pixels) override;

    /// @return the whole document.
    std::string Document() const;

private:
    std::string elements;
    int penWidth = 1;
};

} // namespace railwright
