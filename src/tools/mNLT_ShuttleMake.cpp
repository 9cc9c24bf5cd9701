#include "tools/mNLT_ShuttleMake.h"

#include "base/StoredFloat.h"
#include "track/TrackDocument.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace railwright {

void MakeShuttle() {
    auto& nodes = Track.BezierCurve.Nodes;
    auto& segments = Track.SegmentList.Segments;
    const auto oldCount = static_cast<std::size_t>(Track.BezierCurve.NodeCount);
    const std::size_t count = 2 * oldCount;
    nodes.resize(std::max(nodes.size(), count + 1));
    segments.resize(std::max(segments.size(), count + 1));
    for (std::size_t back = oldCount; back < count; ++back) {
        BezierNode& copy = nodes[back];
        copy = nodes[count - 1 - back];
        std::swap(copy.ControlIn, copy.ControlOut);
        copy.Roll = Stored(-copy.Roll);
        segments[back] = {};
    }
    Track.BezierCurve.NodeCount = static_cast<std::int32_t>(count);
    Track.SegmentList.SegmentCount = static_cast<std::int32_t>(count);
    Track.SegmentList.ClosedCircuit = true;
}

} // namespace railwright
