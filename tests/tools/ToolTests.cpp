#include "cli/Steps.h"
#include "tests/support/Tracks.h"
#include "tools/mNLE_Reverse.h"
#include "tools/mNLE_Rotate.h"
#include "tools/mNLT_3DSRenamer.h"
#include "tools/mNLT_Backwards.h"
#include "tools/mNLT_Mirror.h"
#include "tools/mNLT_Remove.h"
#include "tools/mNLT_ShuttleMake.h"
#include "tools/mNLT_TunnelTest.h"

#include <gtest/gtest.h>

namespace railwright {
namespace {

using testing::ExpectNear;

class Tools : public testing::EmptyDocuments {};

TEST_F(Tools, ChangeTheCurveAndAtWillTheNodesOfTheSupports) {
    const Vector3 point = {1, 2, 3};
    const std::pair<std::string, Vector3> steps[] = {
        {"move=0,1,-10", {1, 3, -7}},       {"scale=0.5", {0.5F, 1, 1.5F}},   {"rotate=90", {3, 2, -1}},
        {"mirror=north-south", {1, 2, -3}}, {"mirror=east-west", {-1, 2, 3}}, {"scale=0", {0, 0, 0}}};
    for (const auto& [step, changed] : steps)
        for (const bool supports : {false, true}) {
            SCOPED_TRACE(step);
            testing::SetCurve({{point, point, point, 30, true, true, true}, {point, point, point}}, true);
            Track.FreeNodes = {{}, 1, {{point}, {point}}}; // the second lies beyond the count
            Track.FundamentalNodes = {{}, 1, {{point, true, 5, true, 6}, {point}}};
            const std::string whole = step + (supports ? "" : ",track-only");
            EXPECT_TRUE(ApplyTrackSteps({&whole, 1}).Done);
            MirrorTrack(2, true); // no mode
            for (std::size_t i = 0; i < 2; ++i) {
                const BezierNode& node = Track.BezierCurve.Nodes[i];
                for (const Vector3& now : {node.Position, node.ControlIn, node.ControlOut})
                    ExpectNear(now, changed, 1e-6F);
            }
            const BezierNode& node = Track.BezierCurve.Nodes[0];
            EXPECT_TRUE(node.Roll == 30 && node.FlagA && node.FlagB && node.FlagC);
            ExpectNear(Track.FreeNodes.Items[0].Position, supports ? changed : point, 1e-6F);
            const FundamentalNode& footer = Track.FundamentalNodes.Items[0];
            ExpectNear(footer.Position, supports ? changed : point, 1e-6F);
            EXPECT_TRUE(footer.Flag1 && footer.Value1 == 5 && footer.Flag2 && footer.Value2 == 6);
            EXPECT_EQ(Track.FreeNodes.Items[1].Position, point);
        }
}

TEST_F(Tools, TurnEveryPointOfAnElement) {
    const Vector3 point = {1, 2, 3};
    for (const auto& [axis, expected] : {std::pair(ElementAxis::X, Vector3{1, -3, 2}),
                                         {ElementAxis::Z, {-2, 1, 3}},
                                         {ElementAxis::Y, {3, 2, -1}},
                                         {3, point}}) {
        Element.NodeCount = 1;
        Element.Nodes.assign(2, {point, point, point, 30, true, true});
        RotateElement(axis, 90);
        for (const ElementNode& node : Element.Nodes)
            for (const Vector3& turned : {node.Position, node.ControlOut, node.ControlIn})
                ExpectNear(turned, expected, 1e-5F);
        EXPECT_TRUE(Element.Nodes[1].Roll == 30 && Element.Nodes[1].FlagA && Element.Nodes[1].FlagB);
    }
}

// The element leads from the origin to (20, 5, 30) and ends there in the direction of each row. The origin,
// which becomes its end, lies at (-20, -5, -30) from there, and that is what is turned.
TEST_F(Tools, ReverseAnElementFromItsEndByAnAngleOfItsDirection) {
    const float half = 0.70710678F;
    const std::tuple<float, float, Vector3> cases[] = {
        {0, -4, {20, -5, 30}},                 // north: half a turn
        {0, 0, {20, -5, 30}},                  // no direction: the same
        {4, 0, {30, -5, -20}},                 // east: a quarter turn back
        {-4, 0, {30, -5, -20}},                // west: the same
        {4, 4, {-50 * half, -5, -10 * half}},  // an eighth
        {4, -4, {10 * half, -5, -50 * half}}}; // an eighth back
    for (const auto& [x, z, newEnd] : cases) {
        Element.NodeCount = 2;
        Element.Nodes = {{{}, {0, 0, -1}, {0, 0, 1}, 10, true, false},
                         {{8, 1, 9}, {9, 1, 9}, {7, 1, 9}, 20, false, true},
                         {{20, 5, 30}, {21, 5, 31}, {20 - x, 5, 30 - z}, 30, false, false}};
        ReverseElement();
        const ElementNode &first = Element.Nodes[0], &middle = Element.Nodes[1], &last = Element.Nodes[2];
        ExpectNear(first.Position, {}, 1e-5F);
        ExpectNear(last.Position, newEnd, 1e-5F);
        EXPECT_TRUE(first.Roll == -30 && middle.Roll == -20 && last.Roll == -10);
        EXPECT_TRUE(!first.FlagA && middle.FlagB && last.FlagA && !last.FlagB);
    }
    testing::SetStraightElement({{}, {0, 0, -30}, {0, 6, -60}});
    ReverseElement(); // half a turn about the end: (x, y, z) becomes (-x, y - 6, -60 - z)
    const auto& nodes = Element.Nodes;
    ExpectNear(nodes[0].ControlOut, {0, -2, -10}, 1e-5F);
    ExpectNear(nodes[1].ControlIn, {0, -4, -20}, 1e-5F);
    ExpectNear(nodes[2].ControlIn, {0, -6, -50}, 1e-5F);
}

TEST_F(Tools, RenameTheChosenObjectAndThoseOfItsName) {
    // e with acute in both cases, the division sign (whose byte is 0x20 above the multiplication sign), and
    // S with caron, which lies apart from the other letters.
    const std::vector<text> names = {"CAF\xC9.3ds", "caf\xE9.3DS", "cafe.3ds", "x\xD7.3ds",
                                     "x\xF7.3ds",   "\x8A.3ds",    "\x9A.3ds", "caf\xE9.3ds "};
    const std::tuple<std::int32_t, bool, const char*> cases[] = {
        {0, true, "11000000"}, {1, true, "11000000"}, {1, false, "01000000"},
        {3, true, "00010000"}, {6, true, "00000110"}, {7, true, "00000001"}};
    for (const auto& [index, all, expected] : cases) {
        Track.SceneryObjects = {{}, 8, std::vector<SceneryObject>(9)};
        for (std::size_t i = 0; i < 8; ++i)
            Track.SceneryObjects.Items[i].FileName = names[i];
        RenameSceneryObject(index, "sub\\new", all);
        std::string renamed;
        for (std::size_t i = 0; i < 8; ++i)
            renamed += Track.SceneryObjects.Items[i].FileName == "sub\\new" ? '1' : '0';
        EXPECT_EQ(renamed, expected) << index;
    }
}

TEST_F(Tools, SetTunnelsOfAllSegmentsWhateverTheNumberOfNodes) {
    const std::pair<int, std::string> cases[] = {
        {TunnelMode::Toggle, "010"}, {TunnelMode::All, "111"}, {TunnelMode::None, "000"}, {3, "101"}};
    for (const auto& [mode, expected] : cases) {
        Track.SegmentList = {{}, false, 3, std::vector<TrackSegment>(4)}; // the last is beyond the count
        Track.SegmentList.Segments[0].Tunnel = Track.SegmentList.Segments[2].Tunnel = true;
        SetTunnels(mode);
        std::string flags;
        for (const TrackSegment& segment : Track.SegmentList.Segments)
            flags += segment.Tunnel ? '1' : '0';
        EXPECT_EQ(flags, expected + '0') << mode;
    }
}

void FillClasses() {
    testing::SetStraightCurve({{0, 1, 0}, {10, 1, 0}, {20, 1, 0}}, false);
    Track.SegmentList.SegmentCount = 4; // one more than the curve has nodes
    Track.SegmentList.Segments.resize(5);
    for (TrackSegment& segment : Track.SegmentList.Segments)
        segment.Tunnel = segment.CustomColors = true;
    Track.FreeNodes.Count = Track.FundamentalNodes.Count = Track.SupportBeams.Count = 2;
    Track.WoodCatwalks.Count = Track.Scenery.TreeCount = Track.SceneryObjects.Count = 2;
    Track.PreFabSupports = {{}, 2, {{1, 0}, {1, 1}}, {{}, {}}}; // one fewer
    Track.Terrain.HasTerrain = true;
    Track.TrackInfo.AuthorComments = Track.Environment.PreferredEnvironment = "text";
}

/// A 1 for each class of data that is still there, in their order.
std::string ClassesLeft() {
    const auto& segments = Track.SegmentList.Segments;
    const auto& prefab = Track.PreFabSupports.Nodes;
    std::string left;
    for (const bool there :
         {Track.BezierCurve.NodeCount > 0, segments[0].Tunnel || segments[2].Tunnel,
          segments[0].CustomColors || segments[2].CustomColors, Track.FreeNodes.Count > 0,
          Track.FundamentalNodes.Count > 0, prefab[0].SupportCount + prefab[1].SupportCount > 0,
          Track.SupportBeams.Count > 0, Track.WoodCatwalks.Count > 0, bool(Track.Terrain.HasTerrain),
          Track.Scenery.TreeCount > 0, Track.SceneryObjects.Count > 0,
          !Track.TrackInfo.AuthorComments.empty(), !Track.Environment.PreferredEnvironment.empty()})
        left += there ? '1' : '0';
    return left;
}

TEST_F(Tools, RemoveTheChosenClassAndNoOther) {
    const char* const names[] = {
        "track",           "tunnels",       "custom-colors", "free-nodes", "fundamental-nodes",
        "prefab-supports", "support-beams", "catwalks",      "terrain",    "trees",
        "objects",         "comments",      "environment"};
    for (std::size_t i = 0; i < 13; ++i) {
        FillClasses();
        const std::string step = std::string("remove=") + names[i];
        EXPECT_TRUE(ApplyTrackSteps({&step, 1}).Done);
        EXPECT_EQ(ClassesLeft(), std::string(i, '1') + '0' + std::string(12 - i, '1'));
        // The records stay, and so does what lies beyond the curve's nodes.
        EXPECT_TRUE(Track.SegmentList.Segments[3].Tunnel && Track.SegmentList.Segments[3].CustomColors);
        EXPECT_TRUE(Track.SegmentList.SegmentCount == 4 && Track.PreFabSupports.NodeCount == 2);
    }
    FillClasses(); // behind the track it stops
    RemoveTrackData({true, true, true, true, true, true, true, true, true, true, true, true, true});
    EXPECT_EQ(ClassesLeft(), "0110000000000");
}

TEST_F(Tools, LayATrackBackOverItselfAsAShuttle) {
    TrackSegment full;
    full.SegmentType = SegmentKind::Brake;
    full.Tunnel = full.CustomColors = true;
    for (const std::int32_t count : {0, 1, 3, 10}) { // a file may hold more or fewer segments than nodes
        testing::SetCurve({{{10, 1, 1}, {11, 1, 1}, {12, 1, 1}, 30, true, false, false},
                           {{20, 1, 1}, {21, 1, 1}, {22, 1, 1}, 0, false, false, false},
                           {{30, 1, 1}, {31, 1, 1}, {32, 1, 1}, -5, false, false, true}},
                          false);
        Track.SegmentList = {
            {}, false, count, std::vector<TrackSegment>(static_cast<std::size_t>(count) + 1, full)};
        MakeShuttle();
        ASSERT_TRUE(Track.BezierCurve.NodeCount == 6 && Track.SegmentList.SegmentCount == 6);
        EXPECT_TRUE(Track.SegmentList.ClosedCircuit);
        const float places[] = {10, 20, 30, 30, 20, 10}, rolls[] = {30, 0, -5, 5, 0, -30};
        for (std::size_t i = 0; i < 6; ++i) {
            const BezierNode& node = Track.BezierCurve.Nodes[i];
            const bool back = i >= 3;
            EXPECT_TRUE(node.Position.X == places[i] && node.Roll == rolls[i]) << i;
            EXPECT_TRUE(node.ControlIn.X == places[i] + (back ? 2 : 1) &&
                        node.ControlOut.X == places[i] + (back ? 1 : 2));
            EXPECT_TRUE(node.FlagA == (places[i] == 10) && node.FlagC == (places[i] == 30));
            const TrackSegment& segment = Track.SegmentList.Segments[i];
            if (back || static_cast<std::int32_t>(i) < count) {
                EXPECT_EQ(segment.SegmentType, back ? SegmentKind::Normal : SegmentKind::Brake) << i;
                EXPECT_TRUE(segment.Tunnel != back && segment.CustomColors != back);
            }
        }
    }
}

TEST_F(Tools, RunATrackBackwards) {
    std::vector<BezierNode> nodes;
    for (const float place : {10.0F, 20.0F, 30.0F, 40.0F})
        nodes.push_back(
            {{place, 0, 0}, {place + 1, 0, 0}, {place + 2, 0, 0}, place, place == 10, false, true});
    testing::SetCurve(nodes, true);
    auto& segments = Track.SegmentList.Segments;
    for (std::size_t i = 0; i < 4; ++i)
        segments[i].Color[0] = static_cast<ColorValue>(i);
    Track.TrackHeader.NumTrains = 3;
    Track.PreFabSupports = {{}, 4, {{1, 0}, {0, 1}, {0, 1}, {2, 1}}, {{}, {}, {}}};
    RebuildBackwards();
    const ColorValue colours[] = {2, 1, 0, 3};
    for (std::size_t i = 0; i < 4; ++i) {
        const BezierNode& node = Track.BezierCurve.Nodes[i];
        const float place = 40 - 10 * static_cast<float>(i);
        EXPECT_TRUE(node.Position.X == place && node.Roll == -place) << i;
        EXPECT_TRUE(node.ControlIn.X == place + 2 && node.ControlOut.X == place + 1);
        EXPECT_TRUE(node.FlagA == (place == 10) && !node.FlagB && node.FlagC);
        EXPECT_EQ(Track.PreFabSupports.Nodes[i].SupportCount, 0);
        EXPECT_EQ(segments[i].Color[0], colours[i]);
    }
    EXPECT_EQ(Track.TrackHeader.NumTrains, 1);
    EXPECT_TRUE(Track.SegmentList.ClosedCircuit);
}

using S = TrackSegment;

TEST_F(Tools, TurnTheSpeedsOfEachKindBackwardsByItsOwnFactors) {
    float S::*const numbers[] = {
        &S::StationValue4, &S::StationValue5, &S::StationValue6,   &S::StationValue7,   &S::LiftValue0,
        &S::LiftValue1,    &S::LiftValue2,    &S::TransportValue0, &S::TransportValue1, &S::TransportValue2,
        &S::BrakeValue2,   &S::BrakeValue3,   &S::BrakeValue4,     &S::BrakeValue5};
    const std::vector<float> kinds[] = {
        {10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10},
        {7.5F, -0.5F, -10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10},
        {10, 10, 10, 10, -17, -78.5332F, -19.6333F, 10, 10, 10, 10, 10, 10, 10},
        {10, 10, 10, 10, 10, 10, 10, -3, -5, 10, 10, 10, 10, 10},
        {10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, -1, -1, 10},
        {10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10, 10}};
    TrackSegment tens;
    for (float S::*const number : numbers)
        tens.*number = 10;
    for (; tens.SegmentType < 6; ++tens.SegmentType) {
        Track.SegmentList = {{}, false, 2, {tens, tens}};
        RebuildBackwards();
        for (std::size_t i = 0; i < std::size(numbers); ++i) {
            const float expected = kinds[static_cast<std::size_t>(tens.SegmentType)][i];
            EXPECT_FLOAT_EQ(Track.SegmentList.Segments[0].*numbers[i], expected)
                << tens.SegmentType << ' ' << i;
            EXPECT_EQ(Track.SegmentList.Segments[1].*numbers[i], 10); // the last one stays
        }
    }
}

} // namespace
} // namespace railwright
