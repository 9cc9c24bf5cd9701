#pragma once

#include "drawing/PaintedPicture.h"

#include <QPixmap>
#include <QWidget>

namespace railwright {

/// A picture box on the screen. Records the drawing calls and paints them once after each change, at the
/// resolution of its screen.
class QtPictureBox final : public QWidget, public PictureBox {
public:
    explicit QtPictureBox(QWidget* parent);

    void Cls() override;
    void Line(float x1, float y1, float x2, float y2, Rgb colour) override;
    void PSet(float x, float y, Rgb colour) override;
    void DrawWidth(int pixels) override;

    /// Returns the picture with `ratio` device pixels per logical pixel.
    QPixmap Drawn(double ratio) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Refresh();

    PaintedPicture picture;
    QPixmap drawn;
};

} // namespace railwright
