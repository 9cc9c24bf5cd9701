#include "tools/TrackPoints.h"

#include "tests/support/Tracks.h"
#include "tools/mNLT_Mirror.h"
#include "tools/mNLT_Move.h"
#include "tools/mNLT_Rotate.h"
#include "tools/mNLT_Scale.h"

#include <gtest/gtest.h>

#include <functional>

namespace railwright {
namespace {

class ToolsOnPoints : public testing::EmptyDocuments {};

TEST_F(ToolsOnPoints, ChangeTheCurveAndAtWillTheNodesOfTheSupports) {
    struct Case {
        const char* Name;
        std::function<void(bool)> Run;
        Vector3 Of123; // what becomes of (1, 2, 3)
    };
    const Case cases[] = {
        {"north",
         [](bool all) {
             MoveTrack({0, 0, -10}, all);
         },
         {1, 2, -7}},
        {"east",
         [](bool all) {
             MoveTrack({2.5F, 0, 0}, all);
         },
         {3.5F, 2, 3}},
        {"half", [](bool all) { ScaleTrack(0.5F, all); }, {0.5F, 1, 1.5F}},
        {"nothing", [](bool all) { ScaleTrack(0, all); }, {0, 0, 0}},
        {"quarter", [](bool all) { RotateTrack(90, all); }, {3, 2, -1}},
        {"quarter back", [](bool all) { RotateTrack(-90, all); }, {-3, 2, 1}},
        {"full turn", [](bool all) { RotateTrack(360, all); }, {1, 2, 3}},
        {"no turn", [](bool all) { RotateTrack(0, all); }, {1, 2, 3}},
        {"north and south", [](bool all) { MirrorTrack(0, all); }, {1, 2, -3}},
        {"east and west", [](bool all) { MirrorTrack(1, all); }, {-1, 2, 3}},
        {"no mirror", [](bool all) { MirrorTrack(2, all); }, {1, 2, 3}},
        {"no mirror either", [](bool all) { MirrorTrack(-1, all); }, {1, 2, 3}},
    };
    const Vector3 point = {1, 2, 3};
    for (const Case& one : cases)
        for (const bool supports : {false, true}) {
            SCOPED_TRACE(one.Name);
            ClearTrackDocument();
            testing::SetCurve({{point, point, point, 30, true, true, true}, {point, point, point}}, true);
            Track.FreeNodes = {{}, 1, {{point}, {point}}}; // the second lies beyond the count
            Track.FundamentalNodes = {{}, 1, {{point, true, 5, true, 6}, {point}}};
            Track.Scenery.TreeCount = 1;
            Track.Scenery.Trees = {{point, 1, 1}};
            one.Run(supports);
            const Vector3& near = one.Of123;
            for (std::size_t i = 0; i < 2; ++i) {
                const BezierNode& node = Track.BezierCurve.Nodes[i];
                for (const Vector3& changed : {node.Position, node.ControlIn, node.ControlOut})
                    testing::ExpectNear(changed, near, 1e-6F);
            }
            const BezierNode& node = Track.BezierCurve.Nodes[0];
            EXPECT_TRUE(node.Roll == 30 && node.FlagA && node.FlagB && node.FlagC);
            testing::ExpectNear(Track.FreeNodes.Items[0].Position, supports ? near : point, 1e-6F);
            const FundamentalNode& footer = Track.FundamentalNodes.Items[0];
            testing::ExpectNear(footer.Position, supports ? near : point, 1e-6F);
            EXPECT_TRUE(footer.Flag1 && footer.Value1 == 5 && footer.Flag2 && footer.Value2 == 6);
            EXPECT_EQ(Track.FreeNodes.Items[1].Position, point);
            EXPECT_EQ(Track.Scenery.Trees[0].Position, point);
        }
}

} // namespace
} // namespace railwright
