#include "geometry/mNoLimits_TrackTools.h"

#include "geometry/BezierSpan.h"
#include "tests/support/Tracks.h"
#include "tools/mNLT_Overview.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace railwright {
namespace {

using testing::ExpectNear;
using testing::SetCurve;
using testing::SetStraightCurve;

/// T at the last of the 101 samples of a span: adding 0.01 a hundred times in 32 bits falls short of 1.
constexpr float LastT = 0.9999993F;

class Polylines : public testing::EmptyDocuments {};

TEST_F(Polylines, EvaluateTheCubicWithTheEndBeforeTheSecondControl) {
    // At 1/4 the weights are 27, 27, 9 and 1 of 64.
    const Vector3 start = {64, 0, 0};
    const Vector3 first = {0, 64, 0};
    const Vector3 second = {0, 0, 64};
    const Vector3 end = {6400, 6400, 6400};
    EXPECT_EQ(BezierPoint(start, first, end, second, 0.25F), (Vector3{127, 127, 109}));
    EXPECT_EQ(BezierPoint(start, first, end, second, 0), start);
    EXPECT_EQ(BezierPoint(start, first, end, second, 1), end);
    EXPECT_EQ(BezierPoint({}, {1, 0, 0}, {3, 0, 0}, {2, 0, 0}, 2), (Vector3{6, 0, 0}));
}

TEST_F(Polylines, KeepEverySampleOfATrackWhoseSamplesLieFarApart) {
    SetStraightCurve({{0, 9, 0}, {300, 9, 0}, {300, 9, 300}}, false);
    AnalyzeTrack();
    ASSERT_EQ(TrackPolyline.size(), 201U); // the first sample of the second span is no new point
    ASSERT_EQ(TrackPolylineNode.size(), 201U);
    EXPECT_EQ(TrackPolylineLast, 200);
    EXPECT_EQ(std::count(TrackPolylineNode.begin(), TrackPolylineNode.end(), 0), 101);
    EXPECT_EQ(TrackPolylineNode[100], 0);
    EXPECT_EQ(TrackPolylineNode[101], 1);
    EXPECT_EQ(TrackPolyline[0], (Vector3{0, 9, 0}));
    ExpectNear(TrackPolyline[40], {120, 9, 0}, 1e-3F);
    ExpectNear(TrackPolyline[100], {300 * LastT, 9, 0}, 5e-5F);
    ExpectNear(TrackPolyline[101], {300, 9, 3}, 1e-3F);
    EXPECT_NEAR(TrackLength(), 599.9998F, 2e-3F);
}

TEST_F(Polylines, SpaceTheirPointsInPlan) {
    for (const float rise : {0.0F, 40.0F}) { // 0.3 metres from sample to sample: every other one is kept
        SetStraightCurve({{0, 5, 0}, {0, 5 + rise, 30}}, false);
        AnalyzeTrack();
        ASSERT_EQ(TrackPolyline.size(), 51U);
        for (std::size_t k = 0; k < 51; ++k) {
            const auto share = static_cast<float>(k) / 50;
            ExpectNear(TrackPolyline[k], {0, 5 + rise * share, 30 * share}, 1e-4F);
        }
        EXPECT_NEAR(TrackLength(), rise == 0 ? 30.0F : 50.0F, 1e-3F);
    }
}

TEST_F(Polylines, CloseACircuitByACopyOfTheFirstPoint) {
    SetStraightCurve({{100, 9, -50}, {400, 19, -50}}, true); // out and back
    AnalyzeTrack();
    ASSERT_EQ(TrackPolyline.size(), 202U);
    EXPECT_EQ(TrackPolylineNode.size(), 201U);
    EXPECT_EQ(TrackPolylineLast, 201);
    EXPECT_EQ(TrackPolyline[201], TrackPolyline[0]);
    EXPECT_EQ(TrackPolylineNode[200], 1);
    ExpectNear(TrackPolyline[120], {340, 17, -50}, 0.01F); // a fifth of the way back
}

TEST_F(Polylines, AreOnePointAtTheOriginWithoutASpan) {
    for (const bool closed : {false, true})
        for (const std::size_t nodes : {0U, 1U}) {
            if (closed && nodes == 1)
                continue;
            SetCurve(std::vector<BezierNode>(nodes, {{7, 7, 7}, {7, 7, 7}, {7, 7, 7}}), closed);
            AnalyzeTrack();
            EXPECT_EQ(TrackPolyline, std::vector<Vector3>(1));
            EXPECT_EQ(TrackPolylineNode, std::vector<std::int32_t>(1));
            EXPECT_EQ(TrackPolylineLast, 0);
            EXPECT_EQ(TrackLength(), 0);
        }
}

TEST_F(Polylines, RunFromASingleNodeOfACircuitToItself) {
    SetCurve({{{}, {0, 0, 40}, {40, 0, 0}}}, true);
    AnalyzeTrack();
    EXPECT_EQ(TrackPolyline.back(), Vector3{});
    // Halfway both controls weigh 3/8.
    EXPECT_TRUE(std::any_of(TrackPolyline.begin(), TrackPolyline.end(), [](const Vector3& point) {
        return std::hypot(point.X - 15, point.Z - 15) < 0.5F;
    }));
    EXPECT_EQ(TrackLength(), 0); // fewer than two nodes have none
}

TEST_F(Polylines, KeepNothingOfAVerticalLineButItsFirstPoint) {
    for (const bool closed : {false, true}) {
        SetStraightCurve({{5, 0, 5}, {5, 90, 5}}, closed);
        AnalyzeTrack();
        EXPECT_EQ(TrackPolyline, std::vector<Vector3>(closed ? 2 : 1, {5, 0, 5}));
        EXPECT_EQ(TrackPolylineNode.size(), 1U);
        EXPECT_NEAR(TrackLength(), closed ? 180 : 90, 1e-3F);
    }
}

TEST_F(Polylines, MeasureACurve) {
    constexpr float handle = 55.22847F; // a quarter of a circle of 100 metres, within 3 centimetres
    SetCurve({{{100, 0, 0}, {}, {100, handle, 0}}, {{0, 100, 0}, {handle, 100, 0}, {}}}, false);
    EXPECT_NEAR(TrackLength(), 157.08F, 0.03F);
}

TEST_F(Polylines, GoOnBehindANodeThatIsNotFinite) {
    for (const float bad :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(), 3e38F}) {
        SetStraightCurve({{0, 9, 0}, {100, 9, 0}, {200, 9, 0}, {300, 9, 0}}, true);
        Track.BezierCurve.Nodes[2].Position = {bad, bad, bad};
        AnalyzeTrack();
        EXPECT_GT(TrackPolyline.size(), 200U); // the first span and the last have a hundred each
        EXPECT_EQ(TrackPolyline.back(), (Vector3{0, 9, 0}));
        EXPECT_FALSE(BuildTrackOverview("gone.nltrack", {}).empty());
    }
}

TEST_F(Polylines, TakeNineteenSamplesOfASpanOfAnElementAndItsEnd) {
    AnalyzeElement();
    EXPECT_EQ(ElementPolyline, std::vector<Vector3>(1));
    EXPECT_EQ(ElementPolylineLast, 0);

    testing::SetStraightElement({{}, {0, 0, 1}, {0, 7, 1}}); // no distance test
    AnalyzeElement();
    ASSERT_EQ(ElementPolylineLast, 38);
    ASSERT_EQ(ElementPolyline.size(), 39U);
    ExpectNear(ElementPolyline[1], {0, 0, 0.05F}, 1e-6F);
    ExpectNear(ElementPolyline[18], {0, 0, 0.9F}, 1e-6F);
    EXPECT_EQ(ElementPolyline[19], (Vector3{0, 0, 1}));
    ExpectNear(ElementPolyline[37], {0, 6.3F, 1}, 1e-5F);
    EXPECT_EQ(ElementPolyline[38], (Vector3{0, 7, 1}));
}

} // namespace
} // namespace railwright
