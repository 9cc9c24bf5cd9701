#include "drawing/PaintedPicture.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include <QLineF>
#include <QPainter>
#include <QPen>

namespace railwright {
namespace {

/// Moves a line's end that is outside the range from `least` to `greatest` onto the border of the range.
void CutEnd(double& along, double& across, double otherAlong, double otherAcross, double least,
            double greatest) {
    const double border = std::clamp(along, least, greatest);
    if (along != border) {
        across += (border - along) / (otherAlong - along) * (otherAcross - across);
        along = border;
    }
}

/// Cuts both ends. @return whether any part of the line is in the range.
bool CutLine(double& along1, double& across1, double& along2, double& across2, double least,
             double greatest) {
    if (std::max(along1, along2) < least || std::min(along1, along2) > greatest)
        return false;
    CutEnd(along1, across1, along2, across2, least, greatest);
    CutEnd(along2, across2, along1, across1, least, greatest);
    return true;
}

/// Returns the part of a line on the picture or at most `beyond` pixels outside; nothing if there is none.
std::optional<QLineF> Clipped(double x1, double y1, double x2, double y2, double beyond) {
    const double greatest = PictureBox::Size + beyond;
    if (!CutLine(x1, y1, x2, y2, -beyond, greatest) || !CutLine(y1, x1, y2, x2, -beyond, greatest))
        return std::nullopt;
    return QLineF(x1, y1, x2, y2);
}

/// Lines are kept up to this distance from the edge, which is one pixel of the smallest picture. The painter
/// is imprecise at large coordinates.
constexpr double Followed = PictureBox::Size;

std::optional<QLineF> Followable(float x1, float y1, float x2, float y2) {
    return Clipped(static_cast<double>(x1), static_cast<double>(y1), static_cast<double>(x2),
                   static_cast<double>(y2), Followed);
}

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
    strokes = std::vector<Stroke>(); // releases the memory, which is large for a long track
}

void PaintedPicture::Line(float x1, float y1, float x2, float y2, Rgb colour) {
    if (Followable(x1, y1, x2, y2))
        strokes.push_back({x1, y1, x2, y2, colour, penWidth});
}

void PaintedPicture::PSet(float x, float y, Rgb colour) {
    Line(x, y, x, y, colour);
}

void PaintedPicture::DrawWidth(int pixels) {
    penWidth = static_cast<std::uint8_t>(std::min(pixels, 255)); // larger than the picture
}

QImage PaintedPicture::Drawn(double ratio) const {
    QImage picture((QSizeF(Size, Size) * ratio).toSize(), QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    // The painter ignores a ratio of the image that is below 1.
    painter.scale(ratio, ratio);
    // Whole coordinates mean the centre of a pixel.
    painter.translate(0.5, 0.5);
    std::optional<Brush> brush; // currently set in the painter
    for (const Stroke& stroke : strokes) {
        const std::optional<QLineF> line = Followable(stroke.X1, stroke.Y1, stroke.X2, stroke.Y2);
        // The pen's width, plus a pixel for antialiasing.
        if (!line || !Clipped(line->x1(), line->y1(), line->x2(), line->y2(), stroke.Width + 1 + 1 / ratio))
            continue;
        const bool isPoint = line->isNull();
        // A line along a row or column of pixels needs no antialiasing.
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
