#include "tools/mNLT_Backwards.h"

#include "base/StoredFloat.h"
#include "tools/mNLT_Remove.h"
#include "track/TrackDocument.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

namespace railwright {
namespace {

/// A segment's speed or acceleration, and the factor that makes the simulator treat it as negative.
struct Factor {
    std::int32_t SegmentType;
    float TrackSegment::*Value;
    double By;
};
constexpr Factor Factors[] = {
    {SegmentKind::Station, &TrackSegment::StationValue6, -1},
    {SegmentKind::Station, &TrackSegment::StationValue5, -0.05},
    {SegmentKind::Station, &TrackSegment::StationValue4, 0.75},
    {SegmentKind::Lift, &TrackSegment::LiftValue0, -1.7},
    {SegmentKind::Transport, &TrackSegment::TransportValue1, -0.5},
    {SegmentKind::Transport, &TrackSegment::TransportValue0, -0.3},
    {SegmentKind::Brake, &TrackSegment::BrakeValue4, -0.1},
    {SegmentKind::Brake, &TrackSegment::BrakeValue3, -0.1},
};
constexpr float BackwardsLiftValue1 = -78.5332F;
constexpr float BackwardsLiftValue2 = -19.6333F;

void TurnParameters(TrackSegment& segment) {
    for (const Factor& factor : Factors)
        if (segment.SegmentType == factor.SegmentType)
            segment.*factor.Value = Stored(static_cast<double>(segment.*factor.Value) * factor.By);
    if (segment.SegmentType == SegmentKind::Lift) {
        segment.LiftValue1 = BackwardsLiftValue1;
        segment.LiftValue2 = BackwardsLiftValue2;
    }
}

} // namespace

void RebuildBackwards() {
    RemoveTrackData({.PreFabSupports = true});

    const auto nodes =
        std::span(Track.BezierCurve.Nodes).first(static_cast<std::size_t>(Track.BezierCurve.NodeCount));
    for (BezierNode& node : nodes) {
        std::swap(node.ControlIn, node.ControlOut);
        node.Roll = Stored(-node.Roll);
    }
    std::reverse(nodes.begin(), nodes.end());

    // The last segment leads back to node 0. It keeps its position and its values.
    const auto count = static_cast<std::size_t>(std::max(Track.SegmentList.SegmentCount - 1, 0));
    const auto turned = std::span(Track.SegmentList.Segments).first(count);
    for (TrackSegment& segment : turned)
        TurnParameters(segment);
    std::reverse(turned.begin(), turned.end());

    Track.TrackHeader.NumTrains = 1;
}

} // namespace railwright
