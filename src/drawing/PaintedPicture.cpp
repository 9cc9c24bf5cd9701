#include "drawing/PaintedPicture.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include <QLineF>
#include <QPainter>
#include <QPen>

namespace railwright {
namespace {

/// Moves the end of a line that lies outside of the range between `least` and `greatest` onto its border.
void CutEnd(double& along, double& across, double otherAlong, double otherAcross, double least,
            double greatest) {
    const double border = std::clamp(along, least, greatest);
    if (along != border) {
        across += (border - along) / (otherAlong - along) * (otherAcross - across);
        along = border;
    }
}

/// Does so with both ends. @return whether any part of the line lies within the range.
bool CutLine(double& along1, double& across1, double& along2, double& across2, double least,
             double greatest) {
    if (std::max(along1, along2) < least || std::min(along1, along2) > greatest)
        return false;
    CutEnd(along1, across1, along2, across2, least, greatest);
    CutEnd(along2, across2, along1, across1, least, greatest);
    return true;
}

/// The part of a line that lies on the picture or at most so far beyond its edge, nothing if there is none.
std::optional<QLineF> Clipped(double x1, double y1, double x2, double y2, double beyond) {
    const double greatest = PictureBox::Size + beyond;
    if (!CutLine(x1, y1, x2, y2, -beyond, greatest) || !CutLine(y1, x1, y2, x2, -beyond, greatest))
        return std::nullopt;
    return QLineF(x1, y1, x2, y2);
}

/// How far beyond the edge a line is followed, as far as a pixel of the smallest picture is wide: a painter
/// loses its precision in the distance.
constexpr double Followed = PictureBox::Size;

std::optional<QLineF> Followable(float x1, float y1, float x2, float y2) {
    return Clipped(static_cast<double>(x1), static_cast<double>(y1), static_cast<double>(x2),
                   static_cast<double>(y2), Followed);
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
    strokes = std::vector<Stroke>(); // those of a long track take much memory
}

void PaintedPicture::Line(float x1, float y1, float x2, float y2, Rgb colour) {
    if (Followable(x1, y1, x2, y2))
        strokes.push_back({x1, y1, x2, y2, colour, penWidth});
}

void PaintedPicture::PSet(float x, float y, Rgb colour) {
    Line(x, y, x, y, colour);
}

void PaintedPicture::DrawWidth(int pixels) {
    penWidth = static_cast<std::uint8_t>(std::min(pixels, 255)); // more than the picture
}

QImage PaintedPicture::Drawn(double ratio) const {
    QImage picture((QSizeF(Size, Size) * ratio).toSize(), QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    // The painter ignores a ratio of the image that is below 1.
    painter.scale(ratio, ratio);
    // A whole coordinate means the middle of its pixel.
    painter.translate(0.5, 0.5);
    std::optional<Brush> brush; // that the painter has in hand
    for (const Stroke& stroke : strokes) {
        const std::optional<QLineF> line = Followable(stroke.X1, stroke.Y1, stroke.X2, stroke.Y2);
        // Its width, and a pixel that it may touch at its border.
        if (!line || !Clipped(line->x1(), line->y1(), line->x2(), line->y2(), stroke.Width + 1 + 1 / ratio))
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
    painter.end();
    picture.setDevicePixelRatio(ratio);
    return picture;
}

} // namespace railwright
