#pragma once

#include "track/TrackDocument.h"

#include <cstddef>

namespace railwright {

/// Replaces each point of Track's curve by the result of `change`. With `supports`, does the same for the
/// free and fundamental nodes. Changes nothing else.
template <class Change>
void ChangeTrackPoints(bool supports, Change&& change) {
    const auto first = [](auto& list, std::int32_t count) {
        return std::span(list).first(static_cast<std::size_t>(count));
    };
    for (BezierNode& node : first(Track.BezierCurve.Nodes, Track.BezierCurve.NodeCount))
        for (Vector3* const point : {&node.Position, &node.ControlIn, &node.ControlOut})
            *point = change(*point);
    if (!supports)
        return;
    for (FreeNode& node : first(Track.FreeNodes.Items, Track.FreeNodes.Count))
        node.Position = change(node.Position);
    for (FundamentalNode& node : first(Track.FundamentalNodes.Items, Track.FundamentalNodes.Count))
        node.Position = change(node.Position);
}

} // namespace railwright
