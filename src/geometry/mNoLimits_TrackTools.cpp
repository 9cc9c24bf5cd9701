#include "geometry/mNoLimits_TrackTools.h"

#include "element/ElementDocument.h"
#include "geometry/BezierSpan.h"
#include "geometry/TrackSamples.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

namespace railwright {

List<Vector3> TrackPolyline(1);
List<std::int32_t> TrackPolylineNode(1);
std::int32_t TrackPolylineLast = 0;
float TrackPolylineLength = 0;
List<Vector3> ElementPolyline(1);
std::int32_t ElementPolylineLast = 0;

namespace {

constexpr float Spacing = 0.5F; // metres in plan

double DistanceInPlan(const Vector3& a, const Vector3& b) {
    const double x = static_cast<double>(a.X) - static_cast<double>(b.X);
    const double z = static_cast<double>(a.Z) - static_cast<double>(b.Z);
    return std::sqrt(x * x + z * z);
}

float FiniteOrZero(float value) {
    return std::isfinite(value) ? value : 0;
}

/// Calls `visit` with each point of Track's polyline and its node.
/// @return the length of the centre line.
template <class Visit>
float VisitTrackPoints(Visit&& visit) {
    float running = Spacing; // so that the first sample is included
    Vector3 previous;
    std::optional<Vector3> first;
    LengthOfSamples length;
    ForEachTrackSample([&](std::int32_t node, const Vector3& sample) {
        const double step = DistanceInPlan(previous, sample);
        if (std::isfinite(step)) // a bad node must not end the track
            running = static_cast<float>(static_cast<double>(running) + step);
        if (running >= Spacing) {
            running = 0;
            if (!first)
                first = sample;
            visit(sample, node);
        }
        previous = sample;
        length.Add(sample);
    });
    if (!first)
        visit(Vector3{}, 0);
    else if (Track.SegmentList.ClosedCircuit)
        visit(*first, NoNode);
    return length.Total();
}

const std::vector<BezierWeights>& ElementSteps() {
    static const std::vector<BezierWeights> steps = BezierSteps(0.05F, 0.95F);
    return steps;
}

template <class Visit>
void VisitElementPoints(Visit&& visit) {
    const auto visitSpan = [&](std::size_t end, std::span<const BezierWeights> steps) {
        const ElementNode& from = Element.Nodes[end - 1];
        const ElementNode& to = Element.Nodes[end];
        const BezierSpan span(from.Position, from.ControlOut, to.Position, to.ControlIn);
        for (const BezierWeights& weights : steps)
            visit(span.Point(weights));
    };
    const auto spans = static_cast<std::size_t>(Element.NodeCount);
    for (std::size_t end = 1; end <= spans; ++end)
        visitSpan(end, ElementSteps());
    if (spans > 0)
        visitSpan(spans, std::array{BezierWeightsAt(1)});
    else
        visit(Vector3{});
}

} // namespace

void AnalyzeTrack() {
    BuildTrackPolyline();
}

void AnalyzeElement() {
    BuildElementPolyline();
}

void BuildTrackPolyline() {
    TrackPolyline.clear();
    TrackPolylineNode.clear();
    TrackPolylineLength = VisitTrackPoints([](const Vector3& point, std::int32_t node) {
        TrackPolyline.push_back(point);
        if (node != NoNode)
            TrackPolylineNode.push_back(node);
    });
    TrackPolylineLast = static_cast<std::int32_t>(TrackPolyline.size()) - 1;
}

void BuildElementPolyline() {
    ElementPolyline.clear();
    ElementPolyline.reserve(static_cast<std::size_t>(Element.NodeCount) * ElementSteps().size() + 1);
    VisitElementPoints([](const Vector3& point) { ElementPolyline.push_back(point); });
    ElementPolylineLast = static_cast<std::int32_t>(ElementPolyline.size()) - 1;
}

TrackMeasures MeasureTrack() {
    TrackMeasures measures;
    measures.Length =
        VisitTrackPoints([&](const Vector3& point, std::int32_t) { measures.Box.Include(point); });
    return measures;
}

float ForEachTrackPoint(const std::function<void(const Vector3& point, std::int32_t node)>& visit) {
    // The points are passed on in batches. A call after each point would spill the sampling values from the
    // processor's registers.
    struct Point {
        Vector3 Place;
        std::int32_t Node;
    };
    std::array<Point, 256> bunch;
    std::size_t count = 0;
    const auto handOn = [&] {
        for (const Point& point : std::span(bunch).first(std::exchange(count, 0)))
            visit(point.Place, point.Node);
    };
    const float length = VisitTrackPoints([&](const Vector3& point, std::int32_t node) {
        bunch[count++] = {point, node};
        if (count == bunch.size())
            handOn();
    });
    handOn();
    return length;
}

void ForEachElementPoint(const std::function<void(const Vector3& point)>& visit) {
    VisitElementPoints(visit);
}

void Bounds::Include(const Vector3& point) {
    const auto widen = [](float value, float& least, float& greatest) {
        if (value < least)
            least = value;
        if (value > greatest)
            greatest = value;
    };
    widen(point.X, Least.X, Greatest.X);
    widen(point.Y, Least.Y, Greatest.Y);
    widen(point.Z, Least.Z, Greatest.Z);
}

Vector3 Bounds::Extent() const {
    return {FiniteOrZero(Greatest.X - Least.X), FiniteOrZero(Greatest.Y - Least.Y),
            FiniteOrZero(Greatest.Z - Least.Z)};
}

bool IsFinite(const Vector3& point) {
    return std::isfinite(point.X) && std::isfinite(point.Y) && std::isfinite(point.Z);
}

} // namespace railwright
