#pragma once

#include "base/Types.h"
#include "platform/List.h"

#include <cstdint>
#include <functional>

namespace railwright {

/// The centre line of Track, computed by AnalyzeTrack: points about half a metre apart as seen from above.
/// There is at least one. On a closed circuit the last point is a copy of the first.
extern List<Vector3> TrackPolyline;
/// For each point of TrackPolyline, the index of the node at which its span starts. The copy at the end has
/// none.
extern List<std::int32_t> TrackPolylineNode;
/// The last valid index of TrackPolyline.
extern std::int32_t TrackPolylineLast;
/// The length of the centre line in metres, the same figure as TrackLength gives.
extern float TrackPolylineLength;

/// The curve of Element, computed by AnalyzeElement: 19 points for each span, and the end. There is at least
/// one point.
extern List<Vector3> ElementPolyline;
/// The last valid index of ElementPolyline.
extern std::int32_t ElementPolylineLast;

/// Computes everything that is derived from Track.
void AnalyzeTrack();
/// Computes everything that is derived from Element.
void AnalyzeElement();

void BuildTrackPolyline();
void BuildElementPolyline();

/// The node of a point that has none: the closing copy.
inline constexpr std::int32_t NoNode = -1;

/// Metres. Where the search for a least value begins, and below zero that for a greatest one; a value that
/// lies beyond is not found.
inline constexpr float SearchStart = 999;

/// The box around some points. A bound that no point has moved stays where its search begins.
struct Bounds {
    Vector3 Least = {SearchStart, SearchStart, SearchStart};
    Vector3 Greatest = {-SearchStart, -SearchStart, -SearchStart};

    void Include(const Vector3& point);
    /// Greatest minus least, each rounded to a 32-bit float; 0 where that is not finite.
    Vector3 Extent() const;
};

/// What the report tells of the curve of Track.
struct TrackMeasures {
    /// The box around the points of its polyline.
    Bounds Box;
    /// Of the centre line in metres, the same figure as TrackLength gives.
    float Length = 0;
};

/// Measures Track. No analysis is needed before, and no list of points is made.
TrackMeasures MeasureTrack();

/// Calls `visit` with each point that AnalyzeTrack would put into TrackPolyline, and with its node. No
/// list of them is made, however many there are.
/// @return what AnalyzeTrack would put into TrackPolylineLength.
float ForEachTrackPoint(const std::function<void(const Vector3& point, std::int32_t node)>& visit);

/// Calls `visit` with each point that AnalyzeElement would put into ElementPolyline, in the same way.
void ForEachElementPoint(const std::function<void(const Vector3& point)>& visit);

/// @return whether all three coordinates are finite.
bool IsFinite(const Vector3& point);

} // namespace railwright
