#include "tools/mNLT_Smoother.h"

#include "tests/support/Tracks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <iomanip>
#include <limits>
#include <sstream>

namespace railwright::testing {

static std::array<float, 9> Coordinates(const BezierNode& node) {
    const Vector3 &p = node.Position, &in = node.ControlIn, &out = node.ControlOut;
    return {p.X, p.Y, p.Z, in.X, in.Y, in.Z, out.X, out.Y, out.Z};
}

class NodeSmoother : public EmptyDocuments {
protected:
    /// Smooths a curve of a free node, at index `place`, and two nodes held by a straight. The control points
    /// `before` and `after` next to the free node do not move.
    /// @return the node.
    static BezierNode Smoothed(const BezierNode& node, const Vector3& before, const Vector3& after,
                               std::size_t place = 0) {
        List<BezierNode> nodes = {
            node, {{60, 20, 100}, after, {20, 20, 100}}, {{-60, 20, 100}, {-20, 20, 100}, before}};
        std::rotate(nodes.begin(), nodes.end() - static_cast<std::ptrdiff_t>(place), nodes.end());
        SetCurve(nodes, true);
        SmoothTrackNodes();
        return Track.BezierCurve.Nodes[place];
    }
};

/// Nodes 0 and 1 are on a straight. Nodes 1 to 4, and 9 and 10 after a node on no straight, are straight only
/// in plan. Node 6 would sink into the ground. The tenths of the others make every rounding visible.
const List<BezierNode> WorkedCurve = {
    {{0, 20, 0}, {-12, 23, 4}, {10, 20, 0}},
    {{30, 20, 0}, {20, 20, 0}, {40, 22, 1}},
    {{60, 30, 10}, {50, 26, 10}, {70, 36, 10}},
    {{90, 28, 10}, {80, 31, 10}, {100, 24, 10}},
    {{120, 18, 10}, {110, 20, 10}, {130, 15, 12}},
    {{139.1F, 20.6F, 40.5F}, {148, 14.3F, 23.8F}, {136.6F, 27.3F, 46.2F}},
    {{100, 5, 70}, {112, 9, 75}, {90, 1, 68}},
    {{83.7F, 29.4F, 91.2F}, {93.4F, 23, 76.9F}, {75.6F, 35.3F, 99.9F}},
    {{62.3F, 43.6F, 108.2F}, {70.9F, 48.3F, 105.1F}, {51.5F, 44.7F, 107.5F}},
    {{50, 30, 60}, {66, 25, 67}, {39, 36, 54}},
    {{-5, 28, 30}, {6, 33, 36}, {-13, 21, 20}},
};

/// The bits that a separate implementation in another language computed for the worked curve.
constexpr const char* WorkedResult[] = {
    "00000000 41A00000 00000000 C1400000 41B80000 40800000 41200000 41A00000 00000000",
    "41F00000 41A00000 00000000 41A00000 41A00000 00000000 42200000 41B00000 3F800000",
    "42701C7B 41F81C7B 41200000 42480000 41D00000 41200000 428C0000 42100000 41200000",
    "42B95BE6 41D47F57 41200000 42A00000 41F80000 41200000 42C80000 41C00000 41200000",
    "42F00000 41900000 41200000 42DC0000 41A00000 41200000 43020000 41700000 41400000",
    "430E64BA 41AA36CE 42067C61 4310CED8 41AAF306 41BB7130 430B5598 41A94856 423A2224",
    "42C88CA8 40B148F4 428BFC02 42D4988E 41295AA0 428698AB 42BB52D6 3AEF051A 4291E664",
    "42A0EA22 42016154 42BDE4E3 42B9DED7 41A15FE1 42A08002 429933AA 42106DD6 42C6FA80",
    "427E246F 422C1A56 42D73C89 4289E270 4226E164 42D7CA16 424F9967 42375796 42D60BE6",
    "42480000 41F00000 42700000 42840000 41C80000 42860000 421C0000 42100000 42580000",
    "C06B43E6 41D71C53 41DED06E 40C00000 42040000 42100000 C1500000 41A80000 41A00000"};

TEST_F(NodeSmoother, ComesToTheBitsOfTheReference) {
    for (const bool closed : {false, true}) { // first and last node are neighbours in both cases
        SetCurve(WorkedCurve, closed);
        SmoothTrackNodes();
        for (std::size_t i = 0; i < WorkedCurve.size(); ++i) {
            std::ostringstream bits;
            bits << std::hex << std::uppercase << std::setfill('0');
            for (const float coordinate : Coordinates(Track.BezierCurve.Nodes[i]))
                bits << std::setw(8) << std::bit_cast<std::uint32_t>(coordinate) << ' ';
            EXPECT_EQ(bits.str(), WorkedResult[i] + std::string(" "));
        }
    }
}

TEST_F(NodeSmoother, KeepsStraightsClearsFlagCAndEndsWithNumbers) {
    for (const std::size_t count : {501U, 502U}) {
        List<Vector3> points(count, {0, 20, 0});
        points[1] = {100, 40, 0}, points[2] = {100, 20, 90}, points[3] = {0, -5, 300};
        SetStraightCurve(points, false);
        const List<BezierNode> before = Track.BezierCurve.Nodes;
        Track.BezierCurve.Nodes[2].FlagA = Track.BezierCurve.Nodes[2].FlagC = true;
        SmoothTrackNodes();
        for (std::size_t i = 0; i < count; ++i)
            EXPECT_EQ(Coordinates(Track.BezierCurve.Nodes[i]), Coordinates(before[i]));
        EXPECT_TRUE(Track.BezierCurve.Nodes[2].FlagA && Track.BezierCurve.Nodes[2].FlagC == (count == 502));
    }
}

// Two nodes lead to each other. The way back is straight in plan but far from straight in space, so both
// nodes are held in plan. They are also held in space, and do not move, if the way out is nearly straight:
// the angles between its ends, and between each end and the chord, are less than 3.6243 degrees (a tangent of
// 0.06334).
TEST_F(NodeSmoother, HoldsBothEndsOfASegmentBentByLessThanTheLimit) {
    const std::tuple<float, float, bool> bends[] = {
        {0.0633F, 0, true},   {0, -0.0633F, true},    {0.0634F, 0, false},   {0, -0.0634F, false},
        {0.05F, 0.05F, true}, {0.05F, -0.05F, false}, {0.08F, 0.04F, false}, {0.04F, 0.08F, false}};
    for (const auto& [atStart, atEnd, isStraight] : bends) {
        const List<BezierNode> nodes = {{{0, 80, 0}, {20, 120, 0}, {40, 80 + 40 * atStart, 0}},
                                        {{120, 80, 0}, {80, 80 - 40 * atEnd, 0}, {100, 120, 0}}};
        SetCurve(nodes, true);
        SmoothTrackNodes();
        for (const std::size_t i : {0U, 1U}) {
            EXPECT_EQ(Track.BezierCurve.Nodes[i].ControlIn, nodes[i].ControlIn);
            EXPECT_EQ(Track.BezierCurve.Nodes[i].Position == nodes[i].Position, isStraight) << atStart;
        }
    }
}

// Everything is level except the outgoing control point. The sweeps move it down or up to the level of the
// node, unless the other control point, which does not move, is outside the world.
TEST_F(NodeSmoother, RefusesANodeAsAWholeAtTheBoundsOfTheWorld) {
    const std::pair<Vector3, bool> cases[] = {{{220, 20, 0}, false},    {{219.5F, 20, 0}, true},
                                              {{-220, 20, 0}, false},   {{-60, 20, 220}, false},
                                              {{-60, 20, -220}, false}, {{-60, 20, -219.5F}, true},
                                              {{-60, 150, 0}, false},   {{-60, 149.5F, 0}, true},
                                              {{-60, 0, 0}, false},     {{-60, 0.5F, 0}, true}};
    for (const auto& [in, accepted] : cases)
        for (const std::size_t place : {0U, 1U, 2U}) {
            const float y = in.Y;
            const Vector3 out = {10, y < 75 ? y + 10 : y - 10, 10};
            const BezierNode node = Smoothed({{0, y, 0}, in, out}, {-10, y, 5}, {5, y, -10}, place);
            EXPECT_EQ(node.ControlIn, in);
            ExpectNear(node.ControlOut, accepted ? Vector3{10, y, 10} : out, 1e-4F);
            // Twenty halvings leave a hundred-thousandth, which the last sweep removes at even indexes.
            EXPECT_TRUE(!accepted || y > 20 || (node.ControlOut.Y == y) == (place % 2 == 0));
        }
}

// The control points are 20 metres apart, at right angles to those of the neighbours. The ratio of the shares
// is that of the square roots of the distances: 1 : 1, 3 : 1, and 18.7 : 1 or the reverse. At 19.3 : 1 the
// greater share exceeds 0.95.
TEST_F(NodeSmoother, SlidesAPositionWithinLimits) {
    const std::tuple<float, float, Vector3> cases[] = {
        {50, 50, {0, 20, 0}},    {90, 10, {5, 20, 0}},           {175, 0.5F, {8.9852F, 20, 0}},
        {186, 0.5F, {0, 20, 5}}, {0.5F, 175, {-8.9852F, 20, 0}}, {0.5F, 186, {0, 20, 5}},
        {50, 0, {0, 20, 5}}};
    const Vector3 in = {-10, 20, 0}, out = {10, 20, 0};
    for (const auto& [before, after, expected] : cases)
        ExpectNear(Smoothed({{0, 20, 5}, in, out}, {-10, 20, -before}, {10, 20, -after}).Position, expected,
                   1e-3F);
    // All four in a line: the exact middle, whatever the distances.
    EXPECT_EQ(Smoothed({{3, 25, 0}, in, out}, {-40, 20, 0}, {30, 20, 0}).Position, (Vector3{0, 20, 0}));
    // The same if only the last three are in a line. With the first three, the shares are 0 and 1.
    EXPECT_EQ(Smoothed({{3, 20, 0}, in, out}, {-10, 20, -50}, {30, 20, 0}).Position, (Vector3{0, 20, 0}));
    EXPECT_EQ(Smoothed({{3, 20, 0}, in, out}, {-40, 20, 0}, {10, 20, -50}).Position, (Vector3{3, 20, 0}));
    const Vector3 a = {1, 2, 3}, b = {10, 20, 30}, c = {40, 20, 5};
    List<BezierNode> bad = WorkedCurve;
    bad[7].ControlIn.Y = std::numeric_limits<float>::quiet_NaN();
    for (const auto& curve : {List<BezierNode>{},
                              {{a, b, {-5, 2, 9}}},
                              {{a, a, a}, {b, b, b}, {c, c, c}},
                              {{a, a, {3e38F, 3, 3}}, {b, {-3e38F, 3, 3}, b}, {a, b, a}},
                              bad}) {
        SetCurve(curve, true);
        SmoothTrackNodes();
        std::size_t notFinite = 0;
        for (const BezierNode& node : Track.BezierCurve.Nodes)
            for (const float coordinate : Coordinates(node))
                notFinite += std::isfinite(coordinate) ? 0 : 1;
        EXPECT_EQ(notFinite, curve.size() / 11); // NaN has not spread
    }
}

} // namespace railwright::testing
