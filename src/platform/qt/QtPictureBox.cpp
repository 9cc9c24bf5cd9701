#include "platform/qt/QtPictureBox.h"

#include <algorithm>
#include <optional>

#include <QLineF>
#include <QPaintEvent>
#include <QPainter>
#include <QPen>

namespace railwright {
namespace {

/// The part of a line that can touch the picture, empty if there is none. Far beyond the picture's edge a
/// painter loses its precision.
std::optional<QLineF> Clipped(const QLineF& line) {
    constexpr double margin = PictureBox::Size;
    double first = 0;
    double last = 1;
    const auto cut = [&](double start, double delta) {
        if (delta == 0) {
            if (start < -margin || start > PictureBox::Size + margin)
                last = -1;
            return;
        }
        const double enters = (-margin - start) / delta;
        const double leaves = (PictureBox::Size + margin - start) / delta;
        first = std::max(first, std::min(enters, leaves));
        last = std::min(last, std::max(enters, leaves));
    };
    cut(line.x1(), line.dx());
    cut(line.y1(), line.dy());
    if (first > last)
        return std::nullopt;
    return QLineF(line.pointAt(first), line.pointAt(last));
}

} // namespace

QtPictureBox::QtPictureBox(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void QtPictureBox::Cls() {
    strokes.clear();
    drawn = QPixmap();
    update();
}

void QtPictureBox::Line(float x1, float y1, float x2, float y2, Rgb colour) {
    Add({x1, y1, x2, y2, colour, penWidth});
}

void QtPictureBox::PSet(float x, float y, Rgb colour) {
    Add({x, y, x, y, colour, penWidth});
}

void QtPictureBox::DrawWidth(int pixels) {
    penWidth = pixels;
}

void QtPictureBox::Add(const Stroke& stroke) {
    strokes.push_back(stroke);
    drawn = QPixmap();
    update();
}

QPixmap QtPictureBox::Drawn(double ratio) const {
    QPixmap picture((QSizeF(Size, Size) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    // A whole coordinate means the middle of its pixel.
    painter.translate(0.5, 0.5);
    for (const Stroke& stroke : strokes) {
        const std::optional<QLineF> line = Clipped({stroke.X1, stroke.Y1, stroke.X2, stroke.Y2});
        if (!line)
            continue;
        const bool isPoint = line->isNull();
        const bool isUpright = line->dx() == 0 || line->dy() == 0;
        painter.setRenderHint(QPainter::Antialiasing, isPoint || !isUpright);
        painter.setPen(QPen(QColor(stroke.Colour.Red, stroke.Colour.Green, stroke.Colour.Blue), stroke.Width,
                            Qt::SolidLine, Qt::RoundCap));
        if (isPoint)
            painter.drawPoint(line->p1());
        else
            painter.drawLine(*line);
    }
    return picture;
}

void QtPictureBox::paintEvent(QPaintEvent* /*event*/) {
    if (drawn.isNull() || drawn.devicePixelRatio() != devicePixelRatioF())
        drawn = Drawn(devicePixelRatioF());
    QPainter(this).drawPixmap(0, 0, drawn);
}

} // namespace railwright
