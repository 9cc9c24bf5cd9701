#pragma once

#include "element/ElementDocument.h"
#include "track/TrackDocument.h"

#include <gtest/gtest.h>

#include <ostream>
#include <span>
#include <vector>

namespace railwright {

inline bool operator==(const Vector3& a, const Vector3& b) {
    return a.X == b.X && a.Y == b.Y && a.Z == b.Z;
}

inline void PrintTo(const Vector3& point, std::ostream* out) {
    *out << '(' << point.X << ", " << point.Y << ", " << point.Z << ')';
}

namespace testing {

inline void ExpectNear(const Vector3& actual, const Vector3& expected, float tolerance) {
    for (float Vector3::*const axis : {&Vector3::X, &Vector3::Y, &Vector3::Z})
        EXPECT_NEAR(actual.*axis, expected.*axis, tolerance);
}

/// A test that starts with two empty documents.
struct EmptyDocuments : ::testing::Test {
    EmptyDocuments() {
        ClearTrackDocument();
        ClearElementDocument();
    }
};

/// Gives Track a curve in the form that the reader produces, with a Normal segment for each node.
inline void SetCurve(List<BezierNode> nodes, bool closed) {
    const std::size_t count = nodes.size();
    nodes.resize(count + 1);
    Track.BezierCurve.NodeCount = Track.SegmentList.SegmentCount = static_cast<std::int32_t>(count);
    Track.BezierCurve.Nodes = std::move(nodes);
    Track.SegmentList.Segments.assign(count + 1, {});
    Track.SegmentList.ClosedCircuit = closed;
}

/// Gives Track straight spans between points. The distance along each span is proportional to T.
inline void SetStraightCurve(const List<Vector3>& points, bool closed) {
    const auto third = [](const Vector3& a, const Vector3& b) {
        return Vector3{a.X + (b.X - a.X) / 3, a.Y + (b.Y - a.Y) / 3, a.Z + (b.Z - a.Z) / 3};
    };
    List<BezierNode> nodes;
    for (std::size_t i = 0; i < points.size(); ++i)
        nodes.push_back({points[i], third(points[i], points[i > 0 ? i - 1 : points.size() - 1]),
                         third(points[i], points[i + 1 < points.size() ? i + 1 : 0])});
    SetCurve(std::move(nodes), closed);
}

/// Gives Element straight spans. Overwrites Track. The first point should be the origin.
inline void SetStraightElement(const List<Vector3>& points) {
    SetStraightCurve(points, false);
    Element.Nodes.clear();
    Element.NodeCount = static_cast<std::int32_t>(points.size()) - 1;
    for (const BezierNode& node : std::span(Track.BezierCurve.Nodes).first(points.size()))
        Element.Nodes.push_back({node.Position, node.ControlOut, node.ControlIn});
}

} // namespace testing
} // namespace railwright
