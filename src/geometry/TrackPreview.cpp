#include "geometry/Preview.h"
#include "geometry/PreviewCanvas.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "track/TrackDocument.h"

#include <array>
#include <cstddef>

namespace railwright {
namespace {

using Preview::Area;
using Preview::Centre;

constexpr int GridStep = 5;
constexpr int TopOfSide = 35; // 150 metres above the ground
constexpr std::size_t SamplesPerChord = 4;
constexpr double PixelsPerMetre = 0.5;

/// The colours of the five values of SegmentType, then the greys of the axes and the grid.
constexpr std::array<Rgb, 7> SegmentColours = {Preview::CurveColour, Rgb{255, 128, 0}, Rgb{0, 255, 0},
                                               Rgb{255, 255, 0},     Rgb{255, 0, 0},   Preview::AxisColour,
                                               Preview::GridColour};

Rgb ColourOf(std::int32_t segmentType) {
    const auto index = static_cast<std::size_t>(segmentType);
    return SegmentColours[index < SegmentColours.size() ? index : 0];
}

void DrawPlanGround(PictureBox& plan) {
    for (int i = 0; i <= Area; i += GridStep) {
        Preview::Line(plan, 0, i, Area, i, Preview::GridColour);
        Preview::Line(plan, i, 0, i, Area, Preview::GridColour);
    }
    Preview::Line(plan, Centre, 0, Centre, Area, Preview::AxisColour);
    Preview::Line(plan, 0, Centre, Area, Centre, Preview::AxisColour);
}

void DrawSideGround(PictureBox& side) {
    for (int i = TopOfSide; i <= Centre; i += GridStep)
        Preview::Line(side, 0, i, Area, i, Preview::GridColour);
    for (int i = 0; i <= Area; i += GridStep)
        Preview::Line(side, i, TopOfSide, i, Centre, Preview::GridColour);
    Preview::Line(side, Centre, TopOfSide, Centre, Centre, Preview::AxisColour);
    Preview::Line(side, 0, Centre, Area, Centre, Preview::AxisColour);
}

/// Draws everything except the track.
void DrawGround(PictureBox& plan, PictureBox& side) {
    plan.Cls();
    side.Cls();
    DrawPlanGround(plan);
    DrawSideGround(side);
}

/// Draws the track chord by chord in both views.
class TrackChords {
public:
    TrackChords(PictureBox& plan, PictureBox& side)
        : views{Preview::View{plan, {&Vector3::X, PixelsPerMetre, &Vector3::Z, PixelsPerMetre}},
                Preview::View{side, {&Vector3::X, PixelsPerMetre, &Vector3::Y, -PixelsPerMetre}}} {}

    /// Draws the chord from the previous point, if any, in the colour of the segment at that point's node.
    void To(const Vector3& point, std::int32_t node) {
        if (begun)
            for (const Preview::View& view : views)
                view.Chord(from, point, colour);
        begun = true;
        from = point;
        colour = ColourOf(Track.SegmentList.TypeAtNode(node));
    }

private:
    std::array<Preview::View, 2> views;
    bool begun = false;
    Vector3 from;
    Rgb colour;
};

} // namespace

void DrawTrackPreview(PictureBox& plan, PictureBox& side) {
    DrawGround(plan, side);
    TrackChords chords(plan, side);
    for (std::size_t k = 0; k < TrackPolyline.size(); k += SamplesPerChord)
        chords.To(TrackPolyline[k], k < TrackPolylineNode.size() ? TrackPolylineNode[k] : NoNode);
}

void DrawTrackWhileSampling(PictureBox& plan, PictureBox& side) {
    DrawAndMeasureTrack(plan, side);
}

TrackMeasures DrawAndMeasureTrack(PictureBox& plan, PictureBox& side) {
    DrawGround(plan, side);
    TrackChords chords(plan, side);
    TrackMeasures measures;
    std::size_t k = 0;
    measures.Length = ForEachTrackPoint([&](const Vector3& point, std::int32_t node) {
        if (k++ % SamplesPerChord == 0)
            chords.To(point, node);
        measures.Box.Include(point);
    });
    return measures;
}

} // namespace railwright
