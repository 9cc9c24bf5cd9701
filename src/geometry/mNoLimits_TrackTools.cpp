#include "geometry/mNoLimits_TrackTools.h"

#include "element/ElementDocument.h"
#include "geometry/BezierSpan.h"
#include "geometry/TrackSamples.h"

#include <cmath>
#include <cstddef>

namespace railwright {

std::vector<Vector3> TrackPolyline(1);
std::vector<std::int32_t> TrackPolylineNode(1);
std::int32_t TrackPolylineLast = 0;
float TrackPolylineLength = 0;
std::vector<Vector3> ElementPolyline(1);
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
    float running = Spacing; // so that the first sample is kept
    Vector3 previous;
    LengthOfSamples length;
    ForEachTrackSample([&](std::int32_t node, const Vector3& sample) {
        const double step = DistanceInPlan(previous, sample);
        if (std::isfinite(step)) // one bad node does not end the track
            running = static_cast<float>(static_cast<double>(running) + step);
        if (running >= Spacing) {
            running = 0;
            TrackPolyline.push_back(sample);
            TrackPolylineNode.push_back(node);
        }
        previous = sample;
        length.Add(sample);
    });
    TrackPolylineLength = length.Total();
    if (TrackPolyline.empty()) {
        TrackPolyline.assign(1, Vector3{});
        TrackPolylineNode.assign(1, 0);
    } else if (Track.SegmentList.ClosedCircuit) {
        TrackPolyline.push_back(Vector3(TrackPolyline.front()));
    }
    TrackPolylineLast = static_cast<std::int32_t>(TrackPolyline.size()) - 1;
}

void BuildElementPolyline() {
    static const std::vector<BezierWeights> steps = BezierSteps(0.05F, 0.95F);
    ElementPolyline.clear();
    const auto spans = static_cast<std::size_t>(Element.NodeCount);
    ElementPolyline.reserve(spans * steps.size() + 1);
    const auto sample = [](std::size_t end, const BezierWeights& weights) {
        const ElementNode& from = Element.Nodes[end - 1];
        const ElementNode& to = Element.Nodes[end];
        const BezierSpan span(from.Position, from.ControlOut, to.Position, to.ControlIn);
        ElementPolyline.push_back(span.Point(weights));
    };
    for (std::size_t end = 1; end <= spans; ++end)
        for (const BezierWeights& weights : steps)
            sample(end, weights);
    if (spans > 0)
        sample(spans, BezierWeightsAt(1));
    else
        ElementPolyline.assign(1, Vector3{});
    ElementPolylineLast = static_cast<std::int32_t>(ElementPolyline.size()) - 1;
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
