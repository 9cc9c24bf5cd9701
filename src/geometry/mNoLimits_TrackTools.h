#pragma once

#include "base/Types.h"
#include "platform/List.h"

#include <cstdint>
#include <functional>

namespace railwright {

/// The centre line of Track, computed by AnalyzeTrack: at least one point, about half a metre apart as seen
/// from above. On a closed circuit the last point is a copy of the first.
extern List<Vector3> TrackPolyline;
/// For each point of TrackPolyline, the index of the node where its span starts. Has no entry for the closing
/// copy.
extern List<std::int32_t> TrackPolylineNode;
/// The last valid index of TrackPolyline.
extern std::int32_t TrackPolylineLast;
/// The length of the centre line in metres, equal to TrackLength.
extern float TrackPolylineLength;

/// The curve of Element, computed by AnalyzeElement: 19 points per span, and the end; at least one point.
extern List<Vector3> ElementPolyline;
/// The last valid index of ElementPolyline.
extern std::int32_t ElementPolylineLast;

/// Computes all values derived from Track.
void AnalyzeTrack();
/// Computes all values derived from Element.
void AnalyzeElement();

void BuildTrackPolyline();
void BuildElementPolyline();

/// The node of a point without one: the closing copy.
inline constexpr std::int32_t NoNode = -1;

/// The initial bound in metres when searching for a least value; negative for a greatest one. Values beyond
/// it are not found.
inline constexpr float SearchStart = 999;

/// The bounding box of some points. A bound that no point exceeds keeps its initial value.
struct Bounds {
    Vector3 Least = {SearchStart, SearchStart, SearchStart};
    Vector3 Greatest = {-SearchStart, -SearchStart, -SearchStart};

    void Include(const Vector3& point);
    /// Returns greatest minus least, each rounded to a 32-bit float; 0 if that is not finite.
    Vector3 Extent() const;
};

/// The values of Track's curve in the report.
struct TrackMeasures {
    /// The bounding box of the polyline.
    Bounds Box;
    /// The length of the centre line in metres, equal to TrackLength.
    float Length = 0;
};

/// Measures Track without a previous analysis and without a list of points.
TrackMeasures MeasureTrack();

/// Calls `visit` with each point and node that AnalyzeTrack would store in TrackPolyline. Does not build the
/// list.
/// @return the value that AnalyzeTrack would store in TrackPolylineLength.
float ForEachTrackPoint(const std::function<void(const Vector3& point, std::int32_t node)>& visit);

/// Calls `visit` with each point that AnalyzeElement would store in ElementPolyline. Does not build the list.
void ForEachElementPoint(const std::function<void(const Vector3& point)>& visit);

/// Returns whether all three coordinates are finite.
bool IsFinite(const Vector3& point);

} // namespace railwright
