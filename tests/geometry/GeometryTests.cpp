#include "geometry/BezierSpan.h"
#include "geometry/Preview.h"
#include "geometry/mMatrix3D.h"
#include "geometry/mNoLimits_TrackTools.h"
#include "tests/support/Tracks.h"
#include "tools/mNLT_Overview.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <sstream>

namespace railwright::testing {

using Curves = EmptyDocuments;

TEST_F(Curves, AreTurnedByMatricesWhoseRightFactorActsFirst) {
    ExpectNear(MatrixTransform(MatrixRotateX(30), {7, 1, 0}), {7, 0.8660254F, 0.5F}, 1e-6F);
    // A quarter turn in radians, rounded to 32 bits, is 4.371e-8 too large.
    EXPECT_NEAR(MatrixRotateY(90)[0], -4.371e-8F, 1e-11F);
    // The sine is ...929 from radians in 64 bits, but ...931 from a product of 32-bit numbers.
    EXPECT_EQ(MatrixRotateX(326)[9], -0.55919272F);
    const Matrix3D A = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const Matrix3D product = MatrixMultiply(A, {2, 0, 0, 1, 0, 3, 1, 0, 1, 0, 0, 2, 0, 1, 0, 1});
    EXPECT_EQ(product, (Matrix3D{5, 10, 2, 11, 17, 26, 6, 27, 29, 42, 10, 43, 41, 58, 14, 59}));
    EXPECT_EQ(MatrixTransform(A, {1, 2, 3}), (Vector3{18, 46, 74})); // the bottom row is ignored
    // At a quarter of a span the weights are 27, 27, 1 (of the end) and 9 of 64.
    const Vector3 point = BezierPoint({64, 0, 0}, {0, 64, 0}, {6400, 6400, 6400}, {0, 0, 64}, 0.25F);
    EXPECT_EQ(point, (Vector3{127, 127, 109}));
}

TEST_F(Curves, AreSampledAtASpacingInPlan) {
    SetStraightCurve({{0, 9, 0}, {300, 9, 0}, {300, 9, 300}}, false);
    AnalyzeTrack();
    ASSERT_TRUE(TrackPolyline.size() == 201 && TrackPolylineNode.size() == 201 && TrackPolylineLast == 200);
    EXPECT_EQ(std::count(TrackPolylineNode.begin(), TrackPolylineNode.end(), 0), 101);
    // The sum of a hundred times 0.01 in 32 bits is less than 1.
    ExpectNear(TrackPolyline[100], {300 * 0.9999993F, 9, 0}, 5e-5F);
    ExpectNear(TrackPolyline[101], {300, 9, 3}, 1e-3F);
    EXPECT_NEAR(TrackLength(), 599.9998F, 2e-3F);
    EXPECT_EQ(TrackPolylineLength, TrackLength());
    for (const float rise : {0.0F, 40.0F}) { // samples are 0.3 metres apart: every other one is kept
        SetStraightCurve({{0, 5, 0}, {0, 5 + rise, 30}}, false);
        AnalyzeTrack();
        ASSERT_EQ(TrackPolyline.size(), 51U);
        ExpectNear(TrackPolyline[40], {0, 5 + rise * 0.8F, 24}, 1e-4F);
        EXPECT_NEAR(TrackLength(), rise == 0 ? 30.0F : 50.0F, 1e-3F);
    }
    SetStraightCurve({{5, 0, 5}, {5, 90, 5}}, true); // only the first point of a vertical line is kept
    AnalyzeTrack();
    EXPECT_EQ(TrackPolyline, List<Vector3>(2, {5, 0, 5}));
}

TEST_F(Curves, CloseCircuitsGetOverBadNodesAndAreSampledEvenlyOfElements) {
    SetStraightCurve({{100, 9, -50}, {400, 19, -50}}, true); // out and back
    AnalyzeTrack();
    ASSERT_TRUE(TrackPolyline.size() == 202 && TrackPolylineNode.size() == 201 && TrackPolylineLast == 201);
    EXPECT_EQ(TrackPolyline[201], TrackPolyline[0]);
    ExpectNear(TrackPolyline[120], {340, 17, -50}, 0.01F); // a fifth of the way back
    SetCurve({{{}, {0, 0, 40}, {40, 0, 0}}}, true);        // a single node leads to itself, with length zero
    AnalyzeTrack();
    EXPECT_TRUE(TrackPolyline.size() > 40 && TrackLength() == 0 && TrackPolylineLength == 0);
    SetStraightCurve({{0, 9, 0}, {100, 9, 0}, {200, 9, 0}, {300, 9, 0}}, true);
    Track.BezierCurve.Nodes[2].Position = {0, 0, std::numeric_limits<float>::quiet_NaN()};
    AnalyzeTrack();
    EXPECT_GT(TrackPolyline.size(), 200U); // the first and the last span have a hundred each
    EXPECT_FALSE(BuildTrackOverview({}, {}, MeasureTrack()).empty());
    for (const auto& [nodes, closed] : {std::pair(0U, true), {1U, false}}) {
        SetCurve(List<BezierNode>(nodes, {{7, 7, 7}, {7, 7, 7}, {7, 7, 7}}), closed);
        AnalyzeTrack();
        EXPECT_EQ(TrackPolyline, List<Vector3>(1));
        EXPECT_TRUE(TrackPolylineNode == List<std::int32_t>(1) && TrackPolylineLast == 0);
    }
    AnalyzeElement();
    EXPECT_EQ(ElementPolyline, List<Vector3>(1));
    SetStraightElement({{}, {0, 0, 1}, {0, 7, 1}});
    AnalyzeElement();
    ASSERT_TRUE(ElementPolyline.size() == 39 && ElementPolylineLast == 38);
    ExpectNear(ElementPolyline[18], {0, 0, 0.9F}, 1e-6F);
    EXPECT_EQ(ElementPolyline[19], (Vector3{0, 0, 1}));
    EXPECT_EQ(ElementPolyline[38], (Vector3{0, 7, 1}));
}

/// A picture that records its calls in a list, which two pictures can share.
struct RecordingPictureBox final : PictureBox {
    std::string Name;
    std::vector<std::string>& Calls;
    Vector3 LastPoint;
    RecordingPictureBox(const char* name, std::vector<std::string>& calls) : Name(name), Calls(calls) {}
    void Cls() override { Record("cls"); }
    void Line(float x1, float y1, float x2, float y2, Rgb c) override { Record("", x1, y1, x2, y2, In(c)); }
    void PSet(float x, float y, Rgb c) override {
        Record("point", x, y, In(c));
        LastPoint = {x, y, 0};
    }
    void DrawWidth(int pixels) override { Record("width", pixels); }
    static int In(Rgb c) { return c.Red << 16 | c.Green << 8 | c.Blue; }
    template <class... Words>
    void Record(const char* action, const Words&... words) {
        std::ostringstream call;
        call << Name << action << std::hex;
        ((call << ' ' << words), ...);
        Calls.push_back(call.str());
    }
};

class Previews : public EmptyDocuments {
protected:
    std::vector<std::string> calls;
    RecordingPictureBox plan{"p", calls}, side{"s", calls};
    void Draw(void (*analyze)(), void (*draw)(PictureBox&, PictureBox&)) {
        calls.clear();
        analyze();
        draw(plan, side);
    }
    void DrawTrack() { Draw(AnalyzeTrack, DrawTrackPreview); }
    void DrawElement() { Draw(AnalyzeElement, DrawElementPreview); }
    /// Number of calls that end in `ending`, for example a colour.
    std::ptrdiff_t Count(const char* ending) const {
        return std::ranges::count_if(calls, [&](const std::string& call) { return call.ends_with(ending); });
    }
    /// @param expected calls with their indexes in the list, each followed by a semicolon.
    void ExpectCalls(const std::string& expected) const {
        std::istringstream rows(expected);
        std::size_t place = 0;
        for (std::string call; rows >> place && std::getline(rows >> std::ws, call, ';');)
            EXPECT_EQ(calls.at(place), call) << place;
    }
};

TEST_F(Previews, DrawATrackOverItsGroundInChordsColouredByTheirFirstSample) {
    SetStraightCurve({{-200, 30, 50}, {200, 30, 50}}, false); // samples are 4 metres apart
    DrawTrack();
    ASSERT_EQ(calls.size(), 157U + 50); // two clears, 92 and 63 lines of the grid
    ExpectCalls("0 pcls; 1 scls; 4 p 0 5 220 5 202020; 91 p 220 0 220 220 202020; 92 p 110 0 110 220 404040; "
                "93 p 0 110 220 110 404040; 94 s 0 35 220 35 202020; 109 s 0 110 220 110 202020; "
                "111 s 5 35 5 110 202020; 154 s 220 35 220 110 202020; 155 s 110 35 110 110 404040; "
                "156 s 0 110 220 110 404040; 157 p 10 135 18 135 80ff; 158 s 10 95 18 95 80ff; "
                "159 p 18 135 26 135 80ff;");
    for (const auto& [length, chords] : {std::pair(2.4F, 1U), {1.9F, 0U}}) { // 5 points or 4
        SetStraightCurve({{0, 0, 0}, {0, 0, length}}, false);
        DrawTrack();
        EXPECT_EQ(calls.size(), 157 + 2 * chords);
    }
    SetStraightCurve({{-150, 0, 0}, {150, 0, 0}, {150, 0, 150}}, false);
    auto& segments = Track.SegmentList.Segments;
    segments[1].SegmentType = SegmentKind::Lift;
    DrawTrack();
    EXPECT_TRUE(Count(" 80ff") == 2 * 26 && Count(" ff00") == 2 * 24); // sample 100 ends the first span
    const std::pair<std::int32_t, const char*> colours[] = {
        {0, " 80ff"},   {1, " ff8000"}, {2, " ff00"}, {3, " ffff00"}, {4, " ff0000"},
        {5, " 404040"}, {6, " 202020"}, {7, " 80ff"}, {99, " 80ff"},  {-1, " 80ff"}};
    for (const auto& [type, colour] : colours) {
        segments[0].SegmentType = segments[1].SegmentType = type;
        DrawTrack();
        calls.erase(calls.begin(), calls.begin() + 157);
        EXPECT_EQ(Count(colour), 100) << type;
    }
    segments.clear(); // a file may contain fewer segments than nodes
    Track.SegmentList.SegmentCount = 0;
    DrawTrack();
    EXPECT_EQ(Count(" 80ff"), 100);
    SetStraightCurve({{-150, 0, 0}, {150, std::numeric_limits<float>::infinity(), 0}, {150, 0, 150}}, false);
    DrawTrack();
    EXPECT_EQ(calls.size(),
              157U); // no chord has a finite end; none is drawn, even in the view without Y
    SetStraightElement({{}, {std::numeric_limits<float>::quiet_NaN(), 0, 20}, {0, 0, 40}});
    DrawElement();
    EXPECT_EQ(Count(" ffffff"), 2); // of the other nodes only the last one remains
    // The nodes are finite but their extent overflows, so the scaled positions do too.
    for (const auto& [axis, drawn] : {std::pair(&Vector3::X, 4), {&Vector3::Y, 4}, {&Vector3::Z, 2}}) {
        Vector3 far;
        far.*axis = 3e38F;
        SetStraightElement({{}, far, {-far.X, -far.Y, -far.Z}, {}});
        DrawElement();
        EXPECT_EQ(Count("inf"), 0);
        EXPECT_EQ(Count(" ffffff"), drawn); // a view along the axis shows all three, the other only the last
    }
}

TEST_F(Previews, DrawAnElementToScaleOverItsGridAndItsNodesLast) {
    SetStraightElement({{}, {4, 8, -40}}); // the extent without the end is 36 metres: S is 1.5
    DrawElement();
    // The first grid line is at 110 - 7 * 15 = 5: 15 lines each way and two axes in both pictures.
    ASSERT_EQ(calls.size(), 4U + 2 * 32 + 2 * 19 + 2 + 4);
    ExpectCalls("0 pcls; 1 scls; 2 pwidth 1; 3 swidth 1; 4 p 0 5 220 5 202020; 5 p 5 0 5 220 202020; "
                "34 p 110 0 110 220 404040; 35 p 0 110 220 110 404040; 36 s 0 5 220 5 202020; "
                "68 p 110 110 110.3 107 80ff; 69 s 110 110 113 109.4 80ff; "
                "105 s 164 99.2 170 98 80ff; 106 pwidth 3; 107 swidth 3; "
                "109 spoint 110 110 ffff00; 110 ppoint 116 50 ffffff; "
                "111 spoint 170 98 ffffff;");
    const std::tuple<float, float, std::ptrdiff_t> cases[] = {
        // extent, scale, grid lines each way
        {0.2F, 55, 1},
        {2.4F, 27.5F, 1},
        {2.6F, 18.5F, 1},
        {10, 5.5F, 5},
        {30, 2, 11},
        {50, 1, 23},
        {100, 0.5F, 45},
        {219, 0.5F, 45},
        {220, 0.25F, 111}, // a spacing of 2.5
                           // rounds to 2
        {1000, 0.055F, 221},
        {2000, 0.0275F, 0}}; // a spacing of zero: only the axes
    for (const auto& [extent, scale, lines] : cases)
        for (float Vector3::*const axis : {&Vector3::X, &Vector3::Y, &Vector3::Z}) {
            Vector3 end; // ignored: nine tenths of the way remain
            end.*axis = extent / 0.9F;
            SetStraightElement({{}, end});
            DrawElement();
            EXPECT_EQ(Count(" 202020"), 4 * lines) << extent;
            const Vector3 &p = plan.LastPoint, &q = side.LastPoint;
            EXPECT_NEAR(p.X - 110 + p.Y - 110 + 110 - q.Y, scale * extent / 0.9F, scale * extent * 1e-3F);
        }
    SetStraightElement({{}, {2.5F, 0, 0}, {}}); // half a metre is rounded to the even 2: S is 27.5
    DrawElement();
    EXPECT_EQ(Count("ppoint 178.75 110 ffffff"), 1);
}

} // namespace railwright::testing
