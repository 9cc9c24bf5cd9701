#include "tools/mNLT_Remove.h"

#include "track/TrackDocument.h"

#include <algorithm>
#include <cstddef>

namespace railwright {
namespace {

/// Calls `change` for each item that belongs to a node of the curve.
template <class Item, class Change>
void ForEachAtNode(List<Item>& items, Change&& change) {
    const auto nodes = static_cast<std::size_t>(Track.BezierCurve.NodeCount);
    for (std::size_t i = 0; i < std::min(nodes, items.size()); ++i)
        change(items[i]);
}

} // namespace

void RemoveTrackData(const TrackDataClasses& Classes) {
    TrackDocument& track = Track;
    if (Classes.PreferredEnvironment)
        track.Environment.PreferredEnvironment.clear();
    if (Classes.AuthorComments)
        track.TrackInfo.AuthorComments.clear();
    if (Classes.SceneryObjects)
        track.SceneryObjects.Count = 0;
    if (Classes.Trees)
        track.Scenery.TreeCount = 0;
    if (Classes.Terrain)
        track.Terrain.HasTerrain = false;
    if (Classes.WoodCatwalks)
        track.WoodCatwalks.Count = 0;
    if (Classes.SupportBeams)
        track.SupportBeams.Count = 0;
    if (Classes.FundamentalNodes)
        track.FundamentalNodes.Count = 0;
    if (Classes.FreeNodes)
        track.FreeNodes.Count = 0;
    if (Classes.PreFabSupports)
        ForEachAtNode(track.PreFabSupports.Nodes, [](PreFabNode& node) { node.SupportCount = 0; });
    if (Classes.Track) {
        track.BezierCurve.NodeCount = 0;
        return;
    }
    if (Classes.Tunnels)
        ForEachAtNode(track.SegmentList.Segments, [](TrackSegment& segment) { segment.Tunnel = false; });
    if (Classes.CustomColors)
        ForEachAtNode(track.SegmentList.Segments,
                      [](TrackSegment& segment) { segment.CustomColors = false; });
}

} // namespace railwright
