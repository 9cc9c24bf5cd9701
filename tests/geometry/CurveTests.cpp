#include "geometry/BezierSpan.h"
#include "geometry/mMatrix3D.h"
#include "geometry/mNoLimits_TrackTools.h"
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

class Curves : public testing::EmptyDocuments {};

TEST_F(Curves, AreTurnedByMatricesWhoseRightFactorActsFirst) {
    constexpr float c = 0.8660254F;
    ExpectNear(MatrixTransform(MatrixRotateX(30), {7, 1, 0}), {7, c, 0.5F}, 1e-6F);
    ExpectNear(MatrixTransform(MatrixRotateZ(-330), {1, 0, 7}), {c, 0.5F, 7}, 1e-6F);
    // A quarter turn rounded to 32 bits in radians lies 4.371e-8 above the true one.
    EXPECT_NEAR(MatrixRotateY(90)[0], -4.371e-8F, 1e-11F);
    EXPECT_EQ(MatrixRotateY(90)[2], 1.0F);

    const Matrix3D A = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    Matrix3D B = {2, 0, 0, 1, 0, 3, 1, 0, 1, 0, 0, 2, 0, 1, 0, 1};
    B = MatrixMultiply(A, B);
    EXPECT_EQ(B, (Matrix3D{5, 10, 2, 11, 17, 26, 6, 27, 29, 42, 10, 43, 41, 58, 14, 59}));
    EXPECT_EQ(MatrixTransform(A, {1, 2, 3}), (Vector3{18, 46, 74})); // the bottom row is not read
}

TEST_F(Curves, AreCubicsWithTheEndBeforeTheSecondControl) {
    const Vector3 start = {64, 0, 0}, first = {0, 64, 0}, second = {0, 0, 64}, end = {6400, 6400, 6400};
    EXPECT_EQ(BezierPoint(start, first, end, second, 0.25F), (Vector3{127, 127, 109})); // 27, 27, 9, 1 of 64
}

TEST_F(Curves, KeepEverySampleThatLiesFarFromTheLast) {
    SetStraightCurve({{0, 9, 0}, {300, 9, 0}, {300, 9, 300}}, false);
    AnalyzeTrack();
    ASSERT_TRUE(TrackPolyline.size() == 201 && TrackPolylineNode.size() == 201 && TrackPolylineLast == 200);
    EXPECT_EQ(std::count(TrackPolylineNode.begin(), TrackPolylineNode.end(), 0), 101);
    // Adding 0.01 a hundred times in 32 bits falls short of 1.
    ExpectNear(TrackPolyline[100], {300 * 0.9999993F, 9, 0}, 5e-5F);
    ExpectNear(TrackPolyline[101], {300, 9, 3}, 1e-3F);
    EXPECT_NEAR(TrackLength(), 599.9998F, 2e-3F);
}

TEST_F(Curves, SpaceTheirPointsInPlan) {
    for (const float rise : {0.0F, 40.0F}) { // 0.3 metres from sample to sample: every other one is kept
        SetStraightCurve({{0, 5, 0}, {0, 5 + rise, 30}}, false);
        AnalyzeTrack();
        ASSERT_EQ(TrackPolyline.size(), 51U);
        ExpectNear(TrackPolyline[40], {0, 5 + rise * 0.8F, 24}, 1e-4F);
        EXPECT_NEAR(TrackLength(), rise == 0 ? 30.0F : 50.0F, 1e-3F);
    }
    SetStraightCurve({{5, 0, 5}, {5, 90, 5}}, true); // nothing of a vertical line but its first point
    AnalyzeTrack();
    EXPECT_EQ(TrackPolyline, std::vector<Vector3>(2, {5, 0, 5}));
}

TEST_F(Curves, OfCircuitsCloseByACopyOfTheFirstPoint) {
    SetStraightCurve({{100, 9, -50}, {400, 19, -50}}, true); // out and back
    AnalyzeTrack();
    ASSERT_TRUE(TrackPolyline.size() == 202 && TrackPolylineNode.size() == 201 && TrackPolylineLast == 201);
    EXPECT_EQ(TrackPolyline[201], TrackPolyline[0]);
    ExpectNear(TrackPolyline[120], {340, 17, -50}, 0.01F); // a fifth of the way back
    SetCurve({{{}, {0, 0, 40}, {40, 0, 0}}}, true);        // a single node, which leads to itself
    AnalyzeTrack();
    const auto isMiddle = [](const Vector3& point) { return std::hypot(point.X - 15, point.Z - 15) < 0.5F; };
    EXPECT_TRUE(std::any_of(TrackPolyline.begin(), TrackPolyline.end(), isMiddle));
    EXPECT_EQ(TrackLength(), 0); // fewer than two nodes have none
}

TEST_F(Curves, GoOnBehindABadNodeAndAreOnePointWithoutASpan) {
    for (const float bad : {std::numeric_limits<float>::quiet_NaN(), 3e38F}) {
        SetStraightCurve({{0, 9, 0}, {100, 9, 0}, {200, 9, 0}, {300, 9, 0}}, true);
        Track.BezierCurve.Nodes[2].Position = {bad, bad, bad};
        AnalyzeTrack();
        EXPECT_GT(TrackPolyline.size(), 200U); // the first span and the last have a hundred each
        EXPECT_FALSE(BuildTrackOverview("gone.nltrack", {}).empty());
    }
    for (const auto& [nodes, closed] : {std::pair(0U, true), {1U, false}}) {
        SetCurve(std::vector<BezierNode>(nodes, {{7, 7, 7}, {7, 7, 7}, {7, 7, 7}}), closed);
        AnalyzeTrack();
        EXPECT_EQ(TrackPolyline, std::vector<Vector3>(1));
        EXPECT_EQ(TrackPolylineNode, std::vector<std::int32_t>(1));
        EXPECT_EQ(TrackPolylineLast, 0);
    }
}

TEST_F(Curves, OfElementsHaveNineteenSamplesOfEachSpanAndTheEnd) {
    AnalyzeElement();
    EXPECT_EQ(ElementPolyline, std::vector<Vector3>(1));
    testing::SetStraightElement({{}, {0, 0, 1}, {0, 7, 1}});
    AnalyzeElement();
    EXPECT_EQ(ElementPolylineLast, 38);
    ASSERT_EQ(ElementPolyline.size(), 39U);
    ExpectNear(ElementPolyline[18], {0, 0, 0.9F}, 1e-6F);
    EXPECT_EQ(ElementPolyline[19], (Vector3{0, 0, 1}));
    EXPECT_EQ(ElementPolyline[38], (Vector3{0, 7, 1}));
}

} // namespace
} // namespace railwright
