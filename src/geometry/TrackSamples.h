#pragma once

#include "geometry/BezierSpan.h"
#include "platform/Processor.h"
#include "track/TrackDocument.h"

#include <cmath>
#include <cstdint>

namespace railwright {

/// Returns the number of spans of Track: one per node on a closed circuit, one fewer on an open track.
inline std::int32_t TrackSpanCount() {
    const std::int32_t nodes = Track.BezierCurve.NodeCount;
    return Track.SegmentList.ClosedCircuit || nodes < 1 ? nodes : nodes - 1;
}

/// Calls `visit` for each sample of the centre line in track order. Passes the point and the index of the
/// node where its span starts. A span has 101 samples, 0.01 apart in T; the last one is just below 1.
template <class Visit>
void ForEachTrackSample(Visit&& visit) {
    FreeWideRegisters();
    static const std::vector<BezierWeights> steps = BezierSteps(0.01F, 1.0F);
    const auto& nodes = Track.BezierCurve.Nodes;
    const std::int32_t spans = TrackSpanCount();
    for (std::int32_t i = 0; i < spans; ++i) {
        const BezierNode& start = nodes[static_cast<std::size_t>(i)];
        const std::int32_t next = i + 1 < Track.BezierCurve.NodeCount ? i + 1 : 0;
        const BezierNode& end = nodes[static_cast<std::size_t>(next)];
        const BezierSpan span(start.Position, start.ControlOut, end.Position, end.ControlIn);
        for (const BezierWeights& weights : steps)
            visit(i, span.Point(weights));
    }
}

/// Adds up the length of Track's centre line, sample by sample.
class LengthOfSamples {
public:
    /// Adds the straight distance from the previous sample, or from the first node. Rounds the sum to 32 bits
    /// each time.
    void Add(const Vector3& sample) {
        const double x = static_cast<double>(sample.X) - static_cast<double>(previous.X);
        const double y = static_cast<double>(sample.Y) - static_cast<double>(previous.Y);
        const double z = static_cast<double>(sample.Z) - static_cast<double>(previous.Z);
        length = static_cast<float>(static_cast<double>(length) + std::sqrt(x * x + y * y + z * z));
        previous = sample;
    }

    /// Returns metres; 0 for a track of one node.
    float Total() const { return Track.BezierCurve.NodeCount < 2 ? 0 : length; }

private:
    Vector3 previous = Track.BezierCurve.NodeCount < 1 ? Vector3{} : Track.BezierCurve.Nodes.front().Position;
    float length = 0;
};

} // namespace railwright
