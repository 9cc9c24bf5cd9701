#pragma once

#include "base/TextOutput.h"
#include "drawing/PictureBox.h"

namespace railwright {

/// Writes an SVG document while drawing, one element per drawing call. Cls covers earlier elements with a
/// black background.
class SvgPictureBox final : public PictureBox {
public:
    /// Begins the document.
    explicit SvgPictureBox(TextOutput& document);

    void Cls() override;
    void Line(float x1, float y1, float x2, float y2, Rgb colour) override;
    void PSet(float x, float y, Rgb colour) override;
    void DrawWidth(int pixels) override;

    /// Ends the document. Call it after the last drawing call.
    void End();

private:
    TextOutput& out;
    int penWidth = 1;
};

} // namespace railwright
