#include "tests/support/Tracks.h"
#include "tools/mNLE_Reverse.h"
#include "tools/mNLE_Rotate.h"

#include <gtest/gtest.h>

namespace railwright {
namespace {

using testing::ExpectNear;

class ElementTools : public testing::EmptyDocuments {};

TEST_F(ElementTools, TurnEveryPointOfEveryNode) {
    const std::pair<int, Vector3> cases[] = {{ElementAxis::X, {1, -3, 2}},
                                             {ElementAxis::Z, {-2, 1, 3}},
                                             {ElementAxis::Y, {3, 2, -1}},
                                             {3, {1, 2, 3}},
                                             {-1, {1, 2, 3}}};
    const Vector3 point = {1, 2, 3};
    for (const auto& [axis, expected] : cases) {
        Element.NodeCount = 1;
        Element.Nodes.assign(2, {point, point, point, 30, true, true});
        RotateElement(axis, 90);
        for (const ElementNode& node : Element.Nodes) {
            for (const Vector3& turned : {node.Position, node.ControlOut, node.ControlIn})
                ExpectNear(turned, expected, 1e-5F);
            EXPECT_TRUE(node.Roll == 30 && node.FlagA && node.FlagB);
        }
    }
}

// The element leads from the origin to (20, 5, 30) and ends there in the direction of each row. The origin,
// which becomes its end, lies at (-20, -5, -30) from there, and that is what is turned.
TEST_F(ElementTools, ReverseFromTheEndByAnAngleOfItsDirection) {
    struct Case {
        float DirectionX;
        float DirectionZ;
        Vector3 NewEnd;
        Vector3 NewStartOut; // the old direction, turned and pointing back
    };
    const float half = 0.70710678F;
    const Case cases[] = {
        {0, -4, {20, -5, 30}, {0, 0, -4}},                        // north: half a turn
        {0, 4, {20, -5, 30}, {0, 0, 4}},                          // south: the same
        {0, 0, {20, -5, 30}, {0, 0, 0}},                          // no direction: the same
        {4, 0, {30, -5, -20}, {0, 0, -4}},                        // east: a quarter turn back
        {-4, 0, {30, -5, -20}, {0, 0, 4}},                        // west: the same
        {4, 4, {-50 * half, -5, -10 * half}, {-8 * half, 0, 0}},  // an eighth
        {-4, -4, {-50 * half, -5, -10 * half}, {8 * half, 0, 0}}, // the same
        {4, -4, {10 * half, -5, -50 * half}, {-8 * half, 0, 0}},  // an eighth back
    };
    for (const Case& one : cases) {
        const Vector3 end = {20, 5, 30};
        const Vector3 in = {20 - one.DirectionX, 5, 30 - one.DirectionZ};
        Element.NodeCount = 2;
        Element.Nodes = {{{}, {0, 0, -1}, {0, 0, 1}, 10, true, false},
                         {{8, 1, 9}, {9, 1, 9}, {7, 1, 9}, 20, false, true},
                         {end, {21, 5, 31}, in, 30, false, false}};
        ReverseElement();
        ASSERT_EQ(Element.NodeCount, 2);
        const ElementNode& first = Element.Nodes.front();
        const ElementNode& last = Element.Nodes.back();
        ExpectNear(first.Position, {}, 1e-5F);
        ExpectNear(first.ControlOut, one.NewStartOut, 1e-5F);
        ExpectNear(last.Position, one.NewEnd, 1e-5F);
        EXPECT_EQ(first.Roll, -30);
        EXPECT_EQ(Element.Nodes[1].Roll, -20);
        EXPECT_EQ(last.Roll, -10);
        EXPECT_TRUE(!first.FlagA && Element.Nodes[1].FlagB && last.FlagA && !last.FlagB);
    }
}

TEST_F(ElementTools, ReverseCrossesControlPointsOver) {
    testing::SetStraightElement({{}, {0, 0, -30}, {0, 6, -60}});
    ReverseElement(); // half a turn about the end: (x, y, z) becomes (-x, y - 6, -60 - z)
    const Vector3 expected[] = {{0, -2, -10}, {0, -4, -20}, {0, -6, -40}, {0, -6, -50}};
    const auto& nodes = Element.Nodes;
    std::size_t i = 0;
    for (const Vector3& point :
         {nodes[0].ControlOut, nodes[1].ControlIn, nodes[1].ControlOut, nodes[2].ControlIn})
        ExpectNear(point, expected[i++], 1e-5F);
    ExpectNear(nodes[1].Position, {0, -6, -30}, 1e-5F);

    ClearElementDocument();
    Element.Nodes[0] = {{1, 2, 3}, {2, 2, 3}, {1, 2, 5}, 7, true, true}; // a single node
    ReverseElement();
    ExpectNear(Element.Nodes[0].Position, {}, 1e-5F);
    ExpectNear(Element.Nodes[0].ControlOut, {0, 0, -2}, 1e-5F);
    ExpectNear(Element.Nodes[0].ControlIn, {-1, 0, 0}, 1e-5F);
}

} // namespace
} // namespace railwright
