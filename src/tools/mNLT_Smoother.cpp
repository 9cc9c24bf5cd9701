#include "tools/mNLT_Smoother.h"

#include "track/TrackDocument.h"

#include <cmath>
#include <cstddef>
#include <vector>

namespace railwright {
namespace {

// Stored values are 32-bit floats; products, sums and roots are computed in 64 bits. Degenerate geometry (a
// length of 0, a cosine slightly above 1) gives NaN. Every comparison then fails, and the segment or node is
// skipped.

constexpr double StraightCosine = 0.998; // about 3.62 degrees
constexpr int SofteningSweeps = 20;
constexpr float WorldReach = 220; // metres to each side of the origin
constexpr float WorldHeight = 150;
constexpr float LeastShare = 0.05F;
constexpr float GreatestShare = 0.95F;

double Wide(float value) {
    return static_cast<double>(value);
}
float Narrow(double value) {
    return static_cast<float>(value);
}

Vector3 Difference(const Vector3& a, const Vector3& b) {
    return {a.X - b.X, a.Y - b.Y, a.Z - b.Z};
}

double Dot(const Vector3& a, const Vector3& b) {
    return Wide(a.X) * Wide(b.X) + Wide(a.Y) * Wide(b.Y) + Wide(a.Z) * Wide(b.Z);
}

double Length(const Vector3& a) {
    return std::sqrt(Dot(a, a));
}

double Cosine(const Vector3& a, const Vector3& b) {
    return Dot(a, b) / (Length(a) * Length(b));
}

Vector3 Cross(const Vector3& u, const Vector3& w) {
    return {Narrow(Wide(u.Y) * Wide(w.Z) - Wide(u.Z) * Wide(w.Y)),
            Narrow(Wide(u.Z) * Wide(w.X) - Wide(u.X) * Wide(w.Z)),
            Narrow(Wide(u.X) * Wide(w.Y) - Wide(u.Y) * Wide(w.X))};
}

struct ControlPoints {
    Vector3 In;
    Vector3 Out;
};

/// Returns whether control points may move to this point. The bounds are exclusive.
bool IsInWorld(const Vector3& point) {
    return std::abs(point.X) < WorldReach && std::abs(point.Z) < WorldReach && point.Y > 0 &&
           point.Y < WorldHeight;
}

class Smoother {
public:
    Smoother()
        : nodes(Track.BezierCurve.Nodes),
          count(static_cast<std::size_t>(Track.BezierCurve.NodeCount)),
          onStraight(count),
          onPlanStraight(count),
          proposals(count) {}

    void FindStraights() {
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t j = Next(i);
            Vector3 a = Difference(nodes[i].Position, nodes[i].ControlOut);
            Vector3 b = Difference(nodes[j].ControlIn, nodes[j].Position);
            Vector3 c = Difference(nodes[i].Position, nodes[j].Position);
            if (AreParallel(a, b, c)) {
                onStraight[i] = onStraight[j] = true;
                onPlanStraight[i] = onPlanStraight[j] = true;
            }
            a.Y = b.Y = c.Y = 0;
            if (AreParallel(a, b, c))
                onPlanStraight[i] = onPlanStraight[j] = true;
        }
    }

    /// Moves the control points of all nodes halfway to their planes.
    void Soften() {
        for (std::size_t i = 0; i < count; ++i) {
            const ControlPoints flat = Flattened(i);
            proposals[i] = {Middle(flat.In, nodes[i].ControlIn), Middle(flat.Out, nodes[i].ControlOut)};
        }
        AcceptProposals();
    }

    /// Moves the control points of every second node fully to its plane. The other nodes get the proposal of
    /// the last sweep again.
    void Flatten() {
        for (std::size_t i = 0; i < count; i += 2)
            proposals[i] = Flattened(i);
        AcceptProposals();
    }

    void SlidePositions() {
        for (std::size_t i = 0; i < count; ++i) {
            if (MaySlide(i))
                Slide(i);
            nodes[i].FlagC = false;
        }
    }

private:
    std::size_t Next(std::size_t i) const { return i + 1 < count ? i + 1 : 0; }
    std::size_t Previous(std::size_t i) const { return i > 0 ? i - 1 : count - 1; }
    bool IsHeld(std::size_t i) const { return onStraight[i] || onPlanStraight[i]; }

    static bool AreParallel(const Vector3& a, const Vector3& b, const Vector3& c) {
        return Cosine(a, b) > StraightCosine && Cosine(a, c) > StraightCosine &&
               Cosine(b, c) > StraightCosine;
    }

    static Vector3 Middle(const Vector3& a, const Vector3& b) {
        const auto middle = [](float x, float y) { return Narrow((Wide(x) + Wide(y)) / 2); };
        return {middle(a.X, b.X), middle(a.Y, b.Y), middle(a.Z, b.Z)};
    }

    /// Returns the projection of a control point onto the plane through `position`.
    /// @param s squared length of the normal.
    static Vector3 Projected(const Vector3& point, const Vector3& position, const Vector3& normal, float s) {
        const float distance = Narrow(Dot(normal, Difference(point, position)));
        const auto moved = [&](float coordinate, float along) {
            return Narrow(Wide(coordinate) - Wide(along) * Wide(distance) / Wide(s));
        };
        return {moved(point.X, normal.X), moved(point.Y, normal.Y), moved(point.Z, normal.Z)};
    }

    /// Returns the node's control points, projected onto its plane. Returns them unchanged if the node is
    /// held or has no plane.
    ControlPoints Flattened(std::size_t i) const {
        const BezierNode& node = nodes[i];
        const ControlPoints asTheyStand = {node.ControlIn, node.ControlOut};
        if (IsHeld(i))
            return asTheyStand;
        const Vector3 u = Difference(nodes[Previous(i)].ControlOut, node.Position);
        const Vector3 w = Difference(nodes[Next(i)].ControlIn, node.Position);
        const Vector3 normal = Cross(u, w);
        const float s = Narrow(Dot(normal, normal));
        if (s == 0)
            return asTheyStand;
        return {Projected(node.ControlIn, node.Position, normal, s),
                Projected(node.ControlOut, node.Position, normal, s)};
    }

    /// A proposal is accepted completely or not at all.
    void AcceptProposals() {
        for (std::size_t i = 0; i < count; ++i)
            if (IsInWorld(proposals[i].In) && IsInWorld(proposals[i].Out)) {
                nodes[i].ControlIn = proposals[i].In;
                nodes[i].ControlOut = proposals[i].Out;
            }
    }

    /// Returns whether a node may slide. A held node may if it and both neighbours are straight in plan only.
    bool MaySlide(std::size_t i) const {
        return !IsHeld(i) || (!onStraight[i] && onPlanStraight[Previous(i)] && onPlanStraight[Next(i)]);
    }

    void Slide(std::size_t i) {
        BezierNode& node = nodes[i];
        const Vector3 e = Difference(node.ControlOut, node.ControlIn);
        const Vector3 f = Difference(node.ControlIn, nodes[Previous(i)].ControlOut);
        const Vector3 g = Difference(node.ControlOut, nodes[Next(i)].ControlIn);
        const float lengthF = Narrow(Length(f));
        const float lengthG = Narrow(Length(g));
        if (lengthG == 0)
            return;
        const double cosineF = Cosine(f, e);
        const double cosineG = Cosine(g, {-e.X, -e.Y, -e.Z});
        const double sineF = std::sqrt(1 - cosineF * cosineF);
        const double sineG = std::sqrt(1 - cosineG * cosineG);
        if (std::isnan(sineF) || std::isnan(sineG))
            return;
        float r = 1;
        if (sineG != 0) {
            const float sines = Narrow(sineF / sineG);
            const float lengths = Narrow(Wide(lengthF) / Wide(lengthG));
            r = Narrow(std::sqrt(Wide(sines) * Wide(lengths)));
        }
        const float t = Narrow(1 - 1 / (Wide(r) + 1));
        if (t > LeastShare && t < GreatestShare) {
            const auto slid = [&](float from, float along) {
                return Narrow(Wide(from) + Wide(t) * Wide(along));
            };
            node.Position = {slid(node.ControlIn.X, e.X), slid(node.ControlIn.Y, e.Y),
                             slid(node.ControlIn.Z, e.Z)};
        }
    }

    List<BezierNode>& nodes;
    std::size_t count;
    /// The node is an end of a segment that is straight in space.
    std::vector<bool> onStraight;
    /// The node is an end of a segment that is straight as seen from above.
    std::vector<bool> onPlanStraight;
    std::vector<ControlPoints> proposals;
};

} // namespace

void SmoothTrackNodes() {
    if (Track.BezierCurve.NodeCount > SmootherNodeLimit)
        return;
    Smoother smoother;
    smoother.FindStraights();
    for (int sweep = 0; sweep < SofteningSweeps; ++sweep)
        smoother.Soften();
    smoother.Flatten();
    smoother.SlidePositions();
}

} // namespace railwright
