#pragma once

#include <array>

#include <QColor>
#include <QLineF>
#include <QWidget>

namespace railwright {

/// A panel that holds other controls, with a raised border of one pixel of the screen around it. Light falls
/// from the top left; the colours are those of the user's scheme.
class ucFrame final : public QWidget {
public:
    explicit ucFrame(QWidget* parent);

    /// One side of the border.
    struct BorderLine {
        QLineF Ends;
        QPalette::ColorRole Colour;
    };
    /// Top, left, right and bottom, in the order in which they are drawn.
    const std::array<BorderLine, 4>& Border() const { return border; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// @return the side of one pixel of the screen.
    double Pixel() const { return 1 / devicePixelRatioF(); }
    void UserControl_Resize();

    std::array<BorderLine, 4> border;
    double placedFor = 0;
};

} // namespace railwright
