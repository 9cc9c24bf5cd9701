#pragma once

#include "drawing/PaintedPicture.h"

#include <QPixmap>
#include <QWidget>

namespace railwright {

/// A picture box on the screen. It keeps the drawing calls and paints them once after each change, in the
/// pixels of the screen that it stands on, so that it is as sharp as that screen can be.
class QtPictureBox final : public QWidget, public PictureBox {
public:
    explicit QtPictureBox(QWidget* parent);

    void Cls() override;
    void Line(float x1, float y1, float x2, float y2, Rgb colour) override;
    void PSet(float x, float y, Rgb colour) override;
    void DrawWidth(int pixels) override;

    /// @return the picture in the pixels of a screen with `ratio` of them to a logical one.
    QPixmap Drawn(double ratio) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Refresh();

    PaintedPicture picture;
    QPixmap drawn;
};

} // namespace railwright
