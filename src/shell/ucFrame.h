#pragma once

#include <array>

#include <QColor>
#include <QLineF>
#include <QWidget>

namespace railwright {

/// A panel that contains other controls, with a raised border of one device pixel. Light falls from the top
/// left. The colours follow the user's scheme.
class ucFrame final : public QWidget {
public:
    explicit ucFrame(QWidget* parent);

    /// One side of the border.
    struct BorderLine {
        QLineF Ends;
        QPalette::ColorRole Colour;
    };
    /// Returns top, left, right and bottom, in drawing order.
    const std::array<BorderLine, 4>& Border() const { return border; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Returns the size of a device pixel in logical pixels.
    double Pixel() const { return 1 / devicePixelRatioF(); }
    void UserControl_Resize();

    std::array<BorderLine, 4> border;
    double placedFor = 0;
};

} // namespace railwright
