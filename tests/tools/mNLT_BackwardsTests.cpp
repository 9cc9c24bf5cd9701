#include "tools/mNLT_Backwards.h"

#include "tests/support/Tracks.h"

#include <gtest/gtest.h>

namespace railwright {
namespace {

class Backwards : public testing::EmptyDocuments {};

TEST_F(Backwards, ReversesNodesAndAllSegmentsButTheLast) {
    std::vector<BezierNode> nodes;
    for (const float place : {10.0F, 20.0F, 30.0F, 40.0F})
        nodes.push_back(
            {{place, 0, 0}, {place + 1, 0, 0}, {place + 2, 0, 0}, place, place == 10, false, true});
    testing::SetCurve(nodes, true);
    auto& segments = Track.SegmentList.Segments;
    for (std::size_t i = 0; i < 4; ++i) {
        segments[i].SegmentType = SegmentKind::Transport;
        segments[i].Color[0] = static_cast<ColorValue>(i);
        segments[i].TransportValue1 = static_cast<float>(i + 1);
    }
    Track.TrackHeader.NumTrains = 3;
    Track.TrackHeader.CarsPerTrain = 6;
    Track.PreFabSupports.NodeCount = 4;
    Track.PreFabSupports.Nodes = {{1, 0}, {0, 1}, {0, 1}, {2, 1}};
    Track.PreFabSupports.Supports.resize(3);
    Track.FreeNodes.Count = 5;

    RebuildBackwards();
    for (std::size_t i = 0; i < 4; ++i) {
        const BezierNode& node = Track.BezierCurve.Nodes[i];
        const float place = 40 - 10 * static_cast<float>(i);
        EXPECT_EQ(node.Position.X, place);
        EXPECT_EQ(node.ControlIn.X, place + 2);
        EXPECT_EQ(node.ControlOut.X, place + 1);
        EXPECT_EQ(node.Roll, -place);
        EXPECT_TRUE(node.FlagA == (place == 10) && !node.FlagB && node.FlagC);
        EXPECT_EQ(Track.PreFabSupports.Nodes[i].SupportCount, 0);
    }
    const std::pair<ColorValue, float> expected[] = {{2, -1.5F}, {1, -1}, {0, -0.5F}, {3, 4}};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(std::pair(segments[i].Color[0], segments[i].TransportValue1), expected[i]);
    EXPECT_EQ(Track.TrackHeader.NumTrains, 1);
    EXPECT_EQ(Track.TrackHeader.CarsPerTrain, 6);
    EXPECT_TRUE(Track.SegmentList.ClosedCircuit);
    EXPECT_EQ(Track.FreeNodes.Count, 5);
}

using S = TrackSegment;
constexpr float S::*Numbers[] = {
    &S::StationValue0,   &S::StationValue1,   &S::StationValue2, &S::StationValue3, &S::StationValue4,
    &S::StationValue5,   &S::StationValue6,   &S::StationValue7, &S::StationValue8, &S::StationValue9,
    &S::StationValue10,  &S::LiftValue0,      &S::LiftValue1,    &S::LiftValue2,    &S::TransportValue0,
    &S::TransportValue1, &S::TransportValue2, &S::BrakeValue0,   &S::BrakeValue1,   &S::BrakeValue2,
    &S::BrakeValue3,     &S::BrakeValue4,     &S::BrakeValue5,   &S::BrakeValue6};

TrackSegment SegmentOfTens(std::int32_t type) {
    TrackSegment segment;
    segment.SegmentType = type;
    for (float S::*const number : Numbers)
        segment.*number = 10;
    return segment;
}

TEST_F(Backwards, TurnsTheSpeedsOfEachKindByItsOwnFactors) {
    struct Change {
        std::size_t Place; // in Numbers
        float Once;
        float Twice;
    };
    const std::pair<std::int32_t, std::vector<Change>> kinds[] = {
        {SegmentKind::Normal, {}},
        {SegmentKind::Station, {{4, 7.5F, 5.625F}, {5, -0.5F, 0.025F}, {6, -10, 10}}},
        {SegmentKind::Lift, {{11, -17, 28.9F}, {12, -78.5332F, -78.5332F}, {13, -19.6333F, -19.6333F}}},
        {SegmentKind::Transport, {{14, -3, 0.9F}, {15, -5, 2.5F}}},
        {SegmentKind::Brake, {{20, -1, 0.1F}, {21, -1, 0.1F}}},
        {5, {}},
        {-1, {}},
    };
    for (const auto& [type, changes] : kinds) {
        Track.SegmentList.SegmentCount = 2;
        Track.SegmentList.Segments.assign(2, SegmentOfTens(type));
        std::vector<float> once(24, 10);
        std::vector<float> twice = once;
        for (const Change& change : changes) {
            once[change.Place] = change.Once;
            twice[change.Place] = change.Twice;
        }
        for (const std::vector<float>& expected : {once, twice}) {
            RebuildBackwards();
            for (std::size_t i = 0; i < expected.size(); ++i) {
                EXPECT_FLOAT_EQ(Track.SegmentList.Segments[0].*Numbers[i], expected[i]) << type << ' ' << i;
                EXPECT_EQ(Track.SegmentList.Segments[1].*Numbers[i], 10);
            }
        }
    }
}

TEST_F(Backwards, LeavesASingleSegmentAlone) {
    for (const std::int32_t count : {0, 1}) {
        testing::SetStraightCurve({{0, 1, 0}, {10, 1, 0}, {20, 1, 0}}, false);
        Track.SegmentList.SegmentCount = count;
        Track.SegmentList.Segments.assign(static_cast<std::size_t>(count) + 1,
                                          SegmentOfTens(SegmentKind::Lift));
        RebuildBackwards();
        EXPECT_EQ(Track.SegmentList.Segments[0].LiftValue1, 10);
        EXPECT_EQ(Track.BezierCurve.Nodes[0].Position.X, 20);
    }
}

} // namespace
} // namespace railwright
