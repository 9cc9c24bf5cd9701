#include "thumbnailer/Thumbnail.h"

#include "geometry/PreviewCanvas.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <QPainter>
#include <QPen>
#include <QPolygonF>

namespace railwright {
namespace {

/// Enough to cross the picture more than a hundred times. More strokes take time without adding detail.
constexpr double MostStrokes = 50'000;

double SquaredLength(const QPointF& from, const QPointF& to) {
    return QPointF::dotProduct(to - from, to - from);
}

/// Measures the curve of a drawing, in the coordinates of the picture box.
class CurveMeasure final : public PictureBox {
public:
    void Cls() override {}
    void DrawWidth(int /*pixels*/) override {}
    void Line(float x1, float y1, float x2, float y2, Rgb colour) override {
        if (Preview::IsGround(colour))
            return;
        Include(x1, y1);
        Include(x2, y2);
        length += std::sqrt(SquaredLength({x1, y1}, {x2, y2}));
    }
    void PSet(float x, float y, Rgb /*colour*/) override {
        Include(x, y);
        ++points;
    }

    double Length() const { return length; }
    double PointCount() const { return points; }
    QPointF Centre() const { return {(left + right) / 2, (top + bottom) / 2}; }
    /// Returns the larger side of the curve's bounding box, or 1 if the curve is a single point.
    double Extent() const {
        const double larger = std::max(right - left, bottom - top);
        return larger > 0 ? larger : 1;
    }

private:
    void Include(double x, double y) {
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    }

    double left = std::numeric_limits<double>::max(), right = -left;
    double top = left, bottom = -left;
    double length = 0;
    double points = 0;
};

/// Paints the curve of a drawing so that it fills an image.
class FittedPicture final : public PictureBox {
public:
    FittedPicture(QImage& image, const CurveMeasure& curve)
        : painter(&image),
          lineWidth(std::max(1.5, image.width() / 80.0)),
          // The margin fits the widest pen.
          scale((image.width() - std::min(5 * lineWidth, image.width() / 2.0)) / curve.Extent()),
          share(MostStrokes / (curve.Length() * scale / Step() + curve.PointCount())) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(image.width() / 2.0, image.height() / 2.0);
        origin = curve.Centre();
    }
    ~FittedPicture() override { DrawPending(); }

    void Cls() override {}
    void DrawWidth(int pixels) override {
        DrawPending();
        penWidth = lineWidth * pixels;
    }
    void Line(float x1, float y1, float x2, float y2, Rgb colour) override {
        if (Preview::IsGround(colour))
            return;
        const QPointF begin = Placed(x1, y1);
        if (begin != end || colour != brush || pending.size() > LongestStroke) {
            DrawPending();
            pending = {begin};
            brush = colour;
        }
        end = Placed(x2, y2);
        if (SquaredLength(pending.last(), end) >= Step() * Step())
            pending += end;
    }
    void PSet(float x, float y, Rgb colour) override {
        DrawPending();
        brush = colour;
        if (TakePen())
            painter.drawPoint(Placed(x, y));
    }

private:
    static constexpr int LongestStroke = 16; // steps

    /// Steps shorter than this are skipped, because the pen covers the difference.
    double Step() const { return lineWidth / 2; }

    QPointF Placed(float x, float y) const { return (QPointF(x, y) - origin) * scale; }

    void DrawPending() {
        if (!pending.isEmpty() && TakePen())
            painter.drawPolyline(pending += end);
        pending.clear();
    }

    /// Returns whether to draw the next stroke. The golden ratio distributes the drawn share evenly, whatever
    /// the period of the curve.
    bool TakePen() {
        constexpr double golden = 0.6180339887498949;
        turn += turn + golden < 1 ? golden : golden - 1;
        if (turn >= share)
            return false;
        painter.setPen(QPen(QColor(brush.Red, brush.Green, brush.Blue), penWidth, Qt::SolidLine, Qt::RoundCap,
                            Qt::RoundJoin));
        return true;
    }

    QPainter painter;
    double lineWidth;
    double scale;
    double share;
    QPointF origin;
    double penWidth = lineWidth;
    double turn = 0;
    /// The stroke not drawn yet, without the last steps up to `end`.
    QPolygonF pending;
    QPointF end;
    Rgb brush;
};

} // namespace

QImage DrawThumbnail(int size, const std::function<void(PictureBox& plan)>& draw) {
    CurveMeasure curve;
    draw(curve);
    QImage image(size, size, QImage::Format_RGB32);
    image.fill(Qt::black);
    FittedPicture picture(image, curve);
    draw(picture);
    return image;
}

} // namespace railwright
