#include "element/ElementDocument.h"
#include "geometry/Preview.h"
#include "geometry/PreviewCanvas.h"
#include "geometry/mNoLimits_TrackTools.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

namespace railwright {
namespace {

using Preview::Area;
using Preview::Centre;

constexpr Rgb FirstNodeColour = {255, 255, 0};
constexpr Rgb NodeColour = {255, 255, 255};
constexpr int LargestSteppedExtent = 219; // above this, the stepped scale would be 0
constexpr int LargestExtent = 1'000'000;  // large enough for a scale near 0, and far below the int limit
constexpr int CurvePen = 1;
constexpr int NodePen = 3;

/// @param forEachPoint calls its argument with each point of the curve.
/// @return the largest extent of the curve in whole metres, at least 1. Excludes the end of the curve.
template <class ForEachPoint>
int LargestExtentOfCurve(ForEachPoint&& forEachPoint) {
    Bounds bounds;
    std::optional<Vector3> previous;
    forEachPoint([&](const Vector3& point) {
        if (previous)
            bounds.Include(*previous);
        previous = point;
    });
    const Vector3 extent = bounds.Extent();
    int largest = 1;
    for (const float one : {extent.X, extent.Y, extent.Z})
        if (one > static_cast<float>(largest))
            largest = static_cast<int>(std::nearbyint(std::min(one, static_cast<float>(LargestExtent))));
    return largest;
}

/// Returns the scale in pixels per metre, rounded to halves unless that gives 0.
float ScaleFor(int largestExtent) {
    const double quotient = 110.0 / largestExtent;
    return static_cast<float>((largestExtent <= LargestSteppedExtent ? std::nearbyint(quotient) : quotient) /
                              2);
}

/// Draws the axes and the grid, with a spacing of ten metres and a line through the centre.
void DrawGround(PictureBox& picture, float scale) {
    const int step = static_cast<int>(std::nearbyint(static_cast<double>(scale) * 10));
    if (step >= 1)
        for (int p = Centre - Centre / step * step; p <= Area; p += step) {
            Preview::Line(picture, 0, p, Area, p, Preview::GridColour);
            Preview::Line(picture, p, 0, p, Area, Preview::GridColour);
        }
    Preview::Line(picture, Centre, 0, Centre, Area, Preview::AxisColour);
    Preview::Line(picture, 0, Centre, Area, Centre, Preview::AxisColour);
}

/// @param forEachPoint calls its argument with each point of the curve.
template <class ForEachPoint>
void Draw(PictureBox& plan, PictureBox& side, ForEachPoint&& forEachPoint) {
    const float scale = ScaleFor(LargestExtentOfCurve(forEachPoint));
    const auto S = static_cast<double>(scale);
    const std::array<Preview::View, 2> views = {Preview::View{plan, {&Vector3::X, S, &Vector3::Z, S}},
                                                Preview::View{side, {&Vector3::Z, -S, &Vector3::Y, -S}}};
    for (const Preview::View& view : views)
        view.Picture.Cls();
    for (const Preview::View& view : views)
        view.Picture.DrawWidth(CurvePen);
    for (const Preview::View& view : views)
        DrawGround(view.Picture, scale);
    std::optional<Vector3> previous;
    forEachPoint([&](const Vector3& point) {
        if (previous)
            for (const Preview::View& view : views)
                view.Chord(*previous, point, Preview::CurveColour);
        previous = point;
    });
    for (const Preview::View& view : views)
        view.Picture.DrawWidth(NodePen);
    for (std::size_t i = 0; i <= static_cast<std::size_t>(Element.NodeCount); ++i)
        for (const Preview::View& view : views)
            view.Point(Element.Nodes[i].Position, i == 0 ? FirstNodeColour : NodeColour);
}

} // namespace

void DrawElementPreview(PictureBox& plan, PictureBox& side) {
    Draw(plan, side,
         [](auto&& visit) { std::for_each(ElementPolyline.begin(), ElementPolyline.end(), visit); });
}

void DrawElementWhileSampling(PictureBox& plan, PictureBox& side) {
    Draw(plan, side, ForEachElementPoint);
}

} // namespace railwright
