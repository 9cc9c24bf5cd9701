#include "tools/mNLT_Remove.h"

#include "cli/Steps.h"
#include "tests/support/Tracks.h"

#include <gtest/gtest.h>

#include <string>

namespace railwright {
namespace {

class RemoveData : public testing::EmptyDocuments {
protected:
    void SetUp() override {
        EmptyDocuments::SetUp();
        testing::SetStraightCurve({{0, 1, 0}, {10, 1, 0}, {20, 1, 0}}, false);
        Track.SegmentList.SegmentCount = 4; // one more than the curve has nodes
        Track.SegmentList.Segments.resize(5);
        for (TrackSegment& segment : Track.SegmentList.Segments)
            segment.Tunnel = segment.CustomColors = true;
        Track.FreeNodes.Count = Track.FundamentalNodes.Count = Track.SupportBeams.Count = 2;
        Track.WoodCatwalks.Count = Track.Scenery.TreeCount = Track.SceneryObjects.Count = 2;
        Track.FreeNodes.Items.resize(3);
        Track.PreFabSupports.NodeCount = 2; // one fewer
        Track.PreFabSupports.Nodes = {{1, 0}, {1, 1}};
        Track.PreFabSupports.Supports.resize(2);
        Track.Terrain.HasTerrain = true;
        Track.Terrain.GridSizeX = 9;
        Track.TrackInfo.AuthorComments = Track.Environment.PreferredEnvironment = "text";
    }

    /// One letter for each class that is still there, in the order of the classes; a list of flags or
    /// supports is there as long as the last entry that can be reached is.
    static std::string Left() {
        const auto& segments = Track.SegmentList.Segments;
        const std::pair<char, bool> classes[] = {
            {'T', Track.BezierCurve.NodeCount > 0},
            {'t', segments[0].Tunnel || segments[2].Tunnel},
            {'c', segments[0].CustomColors || segments[2].CustomColors},
            {'f', Track.FreeNodes.Count > 0},
            {'F', Track.FundamentalNodes.Count > 0},
            {'p',
             Track.PreFabSupports.Nodes[0].SupportCount + Track.PreFabSupports.Nodes[1].SupportCount > 0},
            {'b', Track.SupportBeams.Count > 0},
            {'w', Track.WoodCatwalks.Count > 0},
            {'h', Track.Terrain.HasTerrain},
            {'r', Track.Scenery.TreeCount > 0},
            {'o', Track.SceneryObjects.Count > 0},
            {'a', !Track.TrackInfo.AuthorComments.empty()},
            {'e', !Track.Environment.PreferredEnvironment.empty()}};
        std::string left;
        for (const auto& [letter, there] : classes)
            left += there ? std::string(1, letter) : "";
        return left;
    }
};

TEST_F(RemoveData, EmptiesTheChosenClassAndNoOther) {
    const std::string all = "TtcfFpbwhroae";
    const std::string steps[] = {"remove=track",         "remove=tunnels",           "remove=custom-colors",
                                 "remove=free-nodes",    "remove=fundamental-nodes", "remove=prefab-supports",
                                 "remove=support-beams", "remove=catwalks",          "remove=terrain",
                                 "remove=trees",         "remove=objects",           "remove=comments",
                                 "remove=environment"};
    RemoveTrackData({});
    EXPECT_EQ(Left(), all);
    for (std::size_t i = 0; i < all.size(); ++i) {
        SetUp();
        EXPECT_TRUE(ApplyTrackSteps({&steps[i], 1}).Done);
        EXPECT_EQ(Left(), all.substr(0, i) + all.substr(i + 1));
        // The records stay, and so does what lies beyond the curve's nodes.
        EXPECT_TRUE(Track.SegmentList.Segments[3].Tunnel && Track.SegmentList.Segments[3].CustomColors);
        EXPECT_EQ(Track.SegmentList.SegmentCount, 4);
        EXPECT_EQ(Track.PreFabSupports.NodeCount, 2);
        EXPECT_EQ(Track.FreeNodes.Items.size(), 3U);
        EXPECT_EQ(Track.Terrain.GridSizeX, 9);
    }
}

TEST_F(RemoveData, StopsBehindTheTrack) {
    const TrackDataClasses everything = {true, true, true, true, true, true, true,
                                         true, true, true, true, true, true};
    RemoveTrackData(everything);
    EXPECT_EQ(Left(), "tc");
    RemoveTrackData(everything);
    EXPECT_EQ(Left(), "tc");
    EXPECT_EQ(Track.BezierCurve.Nodes.size(), 4U);
}

} // namespace
} // namespace railwright
