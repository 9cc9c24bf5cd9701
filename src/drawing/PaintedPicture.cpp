#include "drawing/PaintedPicture.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include <QLineF>
#include <QPainter>
#include <QPen>

namespace railwright {
namespace {

/// Moves the end of a line that lies outside of the range between `least` and `greatest` onto its border.
void CutEnd(QPointF& end, const QPointF& other, qreal& (QPointF::*along)(), qreal& (QPointF::*across)(),
            double least, double greatest) {
    const double place = (end.*along)();
    const double border = std::clamp(place, least, greatest);
    QPointF opposite = other;
    if (place != border) {
        const double share = (border - place) / ((opposite.*along)() - place);
        (end.*across)() += share * ((opposite.*across)() - (end.*across)());
        (end.*along)() = border;
    }
}

/// The part of a line that lies on the picture or at most so far beyond its edge, nothing if there is none.
std::optional<QLineF> Clipped(QPointF from, QPointF to, double beyond) {
    const double least = -beyond;
    const double greatest = PictureBox::Size + beyond;
    using Coordinate = qreal& (QPointF::*)();
    constexpr Coordinate x = &QPointF::rx;
    constexpr Coordinate y = &QPointF::ry;
    for (const auto& [along, across] : {std::pair(x, y), std::pair(y, x)}) {
        const auto [low, high] = std::minmax((from.*along)(), (to.*along)());
        if (high < least || low > greatest)
            return std::nullopt;
        CutEnd(from, to, along, across, least, greatest);
        CutEnd(to, from, along, across, least, greatest);
    }
    return QLineF(from, to);
}

/// How far beyond the edge a line is followed, as far as a pixel of the smallest picture is wide: a painter
/// loses its precision in the distance.
constexpr double Followed = PictureBox::Size;

std::optional<QLineF> Followable(float x1, float y1, float x2, float y2) {
    return Clipped({x1, y1}, {x2, y2}, Followed);
}

/// How a line is drawn.
struct Brush {
    Rgb Colour;
    int Width;
    bool Smooth;

    bool operator==(const Brush&) const = default;
};

bool IsAlongPixels(const QLineF& line) {
    return (line.dx() == 0 && line.x1() == std::round(line.x1())) ||
           (line.dy() == 0 && line.y1() == std::round(line.y1()));
}

} // namespace

void PaintedPicture::Cls() {
    strokes.clear();
}

void PaintedPicture::Line(float x1, float y1, float x2, float y2, Rgb colour) {
    if (Followable(x1, y1, x2, y2))
        strokes.push_back({x1, y1, x2, y2, colour, penWidth});
}

void PaintedPicture::PSet(float x, float y, Rgb colour) {
    Line(x, y, x, y, colour);
}

void PaintedPicture::DrawWidth(int pixels) {
    penWidth = pixels;
}

QImage PaintedPicture::Drawn(double ratio) const {
    QImage picture((QSizeF(Size, Size) * ratio).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    // A whole coordinate means the middle of its pixel.
    painter.translate(0.5, 0.5);
    std::optional<Brush> brush; // that the painter has in hand
    for (const Stroke& stroke : strokes) {
        const std::optional<QLineF> line = Followable(stroke.X1, stroke.Y1, stroke.X2, stroke.Y2);
        // Its width, and a pixel that it may touch at its border.
        if (!line || !Clipped(line->p1(), line->p2(), stroke.Width + 1 + 1 / ratio))
            continue;
        const bool isPoint = line->isNull();
        // A line along a row or a column of pixels fills just these.
        const Brush own = {stroke.Colour, stroke.Width, isPoint || !IsAlongPixels(*line)};
        if (own != brush) {
            painter.setRenderHint(QPainter::Antialiasing, own.Smooth);
            painter.setPen(QPen(QColor(own.Colour.Red, own.Colour.Green, own.Colour.Blue), own.Width,
                                Qt::SolidLine, Qt::RoundCap));
            brush = own;
        }
        if (isPoint)
            painter.drawPoint(line->p1());
        else
            painter.drawLine(*line);
    }
    return picture;
}

} // namespace railwright
