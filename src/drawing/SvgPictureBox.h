#pragma once

#include "base/TextOutput.h"
#include "drawing/PictureBox.h"

namespace railwright {

/// A picture that is written as an SVG document while it is drawn, one element for each drawing call. What
/// was drawn before a Cls lies below the black ground of that.
class SvgPictureBox final : public PictureBox {
public:
    /// Begins the document.
    explicit SvgPictureBox(TextOutput& document);

    void Cls() override;
    void Line(float x1, float y1, float x2, float y2, Rgb colour) override;
    void PSet(float x, float y, Rgb colour) override;
    void DrawWidth(int pixels) override;

    /// Ends the document, behind the last drawing call.
    void End();

private:
    TextOutput& out;
    int penWidth = 1;
};

} // namespace railwright
