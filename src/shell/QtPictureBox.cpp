#include "shell/QtPictureBox.h"

#include "platform/Desktop.h"

#include <optional>

#include <QPaintEvent>
#include <QPainter>

namespace railwright {
namespace {

/// From this number of strokes on, painting takes noticeable time.
constexpr std::size_t ManyStrokes = 100'000;

} // namespace

QtPictureBox::QtPictureBox(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void QtPictureBox::Cls() {
    picture.Cls();
    drawn = QPixmap();
    update();
}

void QtPictureBox::Line(float x1, float y1, float x2, float y2, Rgb colour) {
    picture.Line(x1, y1, x2, y2, colour);
    Refresh();
}

void QtPictureBox::PSet(float x, float y, Rgb colour) {
    picture.PSet(x, y, colour);
    Refresh();
}

void QtPictureBox::DrawWidth(int pixels) {
    picture.DrawWidth(pixels);
}

void QtPictureBox::Refresh() {
    if (drawn.isNull())
        return; // will be redrawn anyway
    drawn = QPixmap();
    update();
}

QPixmap QtPictureBox::Drawn(double ratio) const {
    return QPixmap::fromImage(picture.Drawn(ratio));
}

void QtPictureBox::paintEvent(QPaintEvent* /*event*/) {
    if (drawn.isNull() || drawn.devicePixelRatio() != devicePixelRatioF()) {
        std::optional<WaitPointer> wait;
        if (picture.StrokeCount() > ManyStrokes)
            wait.emplace();
        drawn = Drawn(devicePixelRatioF());
    }
    QPainter(this).drawPixmap(0, 0, drawn);
}

} // namespace railwright
