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
    /// Smooths a curve of one free node, at `place` of the list, and two that a straight holds, so that the
    /// control points `before` and `after` beside the free node stay. @return the node.
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

/// Nodes 0 and 1 lie on a straight, 1 to 4 are straight in plan only, node 6 would sink into the ground.
const List<BezierNode> WorkedCurve = {
    {{0, 20, 0}, {-12, 23, 4}, {10, 20, 0}},       {{30, 20, 0}, {20, 20, 0}, {40, 22, 1}},
    {{60, 30, 10}, {50, 26, 10}, {70, 36, 10}},    {{90, 28, 10}, {80, 31, 10}, {100, 24, 10}},
    {{120, 18, 10}, {110, 20, 10}, {130, 15, 12}}, {{140, 25, 40}, {142, 18, 26}, {136, 33, 51}},
    {{100, 5, 70}, {112, 1, 75}, {90, 9, 68}},     {{50, 30, 60}, {66, 25, 67}, {38, 36, 54}},
    {{-5, 28, 30}, {4, 33, 41}, {-13, 21, 20}},
};

/// What smoother_reference.py makes of it, which reads it here.
constexpr const char* WorkedResult[] = {
    "00000000 41A00000 00000000 C1400000 41B80000 40800000 41200000 41A00000 00000000",
    "41F00000 41A00000 00000000 41A00000 41A00000 00000000 42200000 41B00000 3F800000",
    "42701C7B 41F81C7B 41200000 42480000 41D00000 41200000 428C0000 42100000 41200000",
    "42B95BE6 41D47F57 41200000 42A00000 41F80000 41200000 42C80000 41C00000 41200000",
    "42F00000 41900000 41200000 42DC0000 41A00000 41200000 43020000 41700000 41400000",
    "430AF211 41BEA7E5 420539C1 4309D560 41B4B454 41CECBAC 430D9D50 41D689FD 424CCFC2",
    "42BFC50D 40DBA3B9 428BC228 42DF3CB4 3CE86780 4291B0D8 42B4482E 4115BEF4 428997BB",
    "42563989 41EE6FE8 427589EB 42857BF0 41CDD856 42828DFD 4213B8AA 420BC416 4261E7F6",
    "C0B1BEC6 41DE77D4 41E8B7E5 40862994 41F42D69 4225B2D8 C155D383 41CD12F9 4199A798"};

TEST_F(NodeSmoother, ComesToTheBitsOfTheReference) {
    for (const bool closed : {false, true}) { // first and last node are neighbours either way
        SetCurve(WorkedCurve, closed);
        SmoothTrackNodes();
        for (std::size_t i = 0; i < 9; ++i) {
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

// All is level but the outgoing control point, which the sweeps bring down or up to the level of the node
// unless the other one, which stays where it is, lies outside.
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
            // Twenty halvings leave a hundred-thousandth, which the last sweep takes off at even places.
            EXPECT_TRUE(!accepted || y > 20 || (node.ControlOut.Y == y) == (place % 2 == 0));
        }
}

// The control points lie 20 metres apart at right angles to those of the neighbours, and the way is shared as
// the roots of the distances to these: 1 : 1, 3 : 1 and 14.1 : 1, but 20 : 1 is above 0.95.
TEST_F(NodeSmoother, SlidesAPositionWithinLimits) {
    const std::tuple<float, float, Vector3> cases[] = {{50, 50, {0, 20, 0}},      {90, 10, {5, 20, 0}},
                                                       {200, 1, {8.679F, 20, 0}}, {200, 0.5F, {0, 20, 5}},
                                                       {0.5F, 200, {0, 20, 5}},   {50, 0, {0, 20, 5}}};
    const Vector3 in = {-10, 20, 0}, out = {10, 20, 0};
    for (const auto& [before, after, expected] : cases)
        ExpectNear(Smoothed({{0, 20, 5}, in, out}, {-10, 20, -before}, {10, 20, -after}).Position, expected,
                   1e-3F);
    // All four in one line: the exact middle, whatever the distances.
    EXPECT_EQ(Smoothed({{3, 25, 0}, in, out}, {-40, 20, 0}, {30, 20, 0}).Position, (Vector3{0, 20, 0}));
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
        EXPECT_EQ(notFinite, curve.size() / 9); // it has not spread
    }
}

} // namespace railwright::testing
