#include "shell/ucFrame.h"

#include <algorithm>

#include <QPainter>
#include <QPalette>

namespace railwright {

ucFrame::ucFrame(QWidget* parent)
    : QWidget(parent),
      border{{{{}, QPalette::Light}, {{}, QPalette::Light}, {{}, QPalette::Shadow}, {{}, QPalette::Shadow}}} {
    UserControl_Resize();
}

void ucFrame::UserControl_Resize() {
    placedFor = Pixel();
    const double right = width() - placedFor;
    const double bottom = height() - placedFor;
    border[0].Ends = {0, 0, static_cast<double>(width()), 0};
    border[1].Ends = {0, 0, 0, static_cast<double>(height())};
    border[2].Ends = {right, 0, right, static_cast<double>(height())};
    border[3].Ends = {0, bottom, static_cast<double>(width()), bottom};
}

void ucFrame::resizeEvent(QResizeEvent* /*event*/) {
    UserControl_Resize();
}

void ucFrame::paintEvent(QPaintEvent* /*event*/) {
    // The window may have moved to a screen of a different resolution.
    if (placedFor != Pixel())
        UserControl_Resize();
    QPainter painter(this);
    for (const BorderLine& line : border) {
        const QSizeF size(std::max(line.Ends.dx(), placedFor), std::max(line.Ends.dy(), placedFor));
        painter.fillRect(QRectF(line.Ends.p1(), size), palette().color(line.Colour));
    }
}

} // namespace railwright
