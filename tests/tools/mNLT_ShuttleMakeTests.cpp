#include "tools/mNLT_ShuttleMake.h"

#include "tests/support/Tracks.h"

#include <gtest/gtest.h>

namespace railwright {
namespace {

class ShuttleMake : public testing::EmptyDocuments {
protected:
    /// Three nodes that are told apart by their tens, and as many segments as asked for, none of them empty.
    static void SetOpenTrack(std::int32_t segments) {
        testing::SetCurve({{{10, 1, 1}, {11, 1, 1}, {12, 1, 1}, 30, true, false, false},
                           {{20, 1, 1}, {21, 1, 1}, {22, 1, 1}, 0, false, true, false},
                           {{30, 1, 1}, {31, 1, 1}, {32, 1, 1}, -5, false, false, true}},
                          false);
        TrackSegment full;
        full.SegmentType = SegmentKind::Brake;
        full.Tunnel = full.CustomColors = true;
        full.Color = {1, 2, 3};
        full.BrakeValue3 = full.LiftValue1 = full.StationValue10 = 9;
        Track.SegmentList.SegmentCount = segments;
        Track.SegmentList.Segments.assign(static_cast<std::size_t>(segments), full);
        Track.SegmentList.Segments.emplace_back();
        Track.PreFabSupports.NodeCount = 3;
    }
};

TEST_F(ShuttleMake, LaysTheTrackBackOverItself) {
    for (const std::int32_t segments : {0, 1, 3, 4, 10}) {
        SetOpenTrack(segments);
        MakeShuttle();
        ASSERT_EQ(Track.BezierCurve.NodeCount, 6);
        ASSERT_EQ(Track.SegmentList.SegmentCount, 6);
        EXPECT_TRUE(Track.SegmentList.ClosedCircuit);
        EXPECT_EQ(Track.PreFabSupports.NodeCount, 3);
        const float places[] = {10, 20, 30, 30, 20, 10};
        const float rolls[] = {30, 0, -5, 5, 0, -30};
        for (std::size_t i = 0; i < 6; ++i) {
            const BezierNode& node = Track.BezierCurve.Nodes[i];
            const bool back = i >= 3;
            EXPECT_EQ(node.Position.X, places[i]);
            EXPECT_EQ(node.ControlIn.X, places[i] + (back ? 2 : 1));
            EXPECT_EQ(node.ControlOut.X, places[i] + (back ? 1 : 2));
            EXPECT_EQ(node.Roll, rolls[i]);
            EXPECT_EQ(node.FlagA, places[i] == 10);
            EXPECT_EQ(node.FlagB, places[i] == 20);
            EXPECT_EQ(node.FlagC, places[i] == 30);
            const TrackSegment& segment = Track.SegmentList.Segments[i];
            const bool kept = !back && static_cast<std::int32_t>(i) < segments;
            EXPECT_EQ(segment.SegmentType, kept ? SegmentKind::Brake : SegmentKind::Normal) << i;
            EXPECT_TRUE(segment.Tunnel == kept && segment.CustomColors == kept);
            EXPECT_EQ(segment.Color[2], kept ? 3U : 0U);
            EXPECT_EQ(segment.BrakeValue3 + segment.LiftValue1 + segment.StationValue10, kept ? 27 : 0);
        }
    }
}

TEST_F(ShuttleMake, ClosesATrackWithoutNodes) {
    Track.SegmentList.SegmentCount = 2;
    Track.SegmentList.Segments.resize(3);
    MakeShuttle();
    EXPECT_EQ(Track.BezierCurve.NodeCount, 0);
    EXPECT_EQ(Track.SegmentList.SegmentCount, 0);
    EXPECT_TRUE(Track.SegmentList.ClosedCircuit);
}

} // namespace
} // namespace railwright
