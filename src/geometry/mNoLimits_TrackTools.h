#pragma once

#include "base/Types.h"

#include <cstdint>
#include <vector>

namespace railwright {

/// The centre line of Track as the last AnalyzeTrack left it, resampled to points that are about half a metre
/// apart as seen from above. It holds at least one point; on a closed circuit the last one is a copy of the
/// first.
extern std::vector<Vector3> TrackPolyline;
/// For each point of TrackPolyline the index of the node at which its span starts. The closing copy has none.
extern std::vector<std::int32_t> TrackPolylineNode;
/// The last valid index of TrackPolyline.
extern std::int32_t TrackPolylineLast;
/// The length in metres of the centre line that TrackPolyline was sampled from: what TrackLength works out,
/// from the same samples.
extern float TrackPolylineLength;

/// The curve of Element as the last AnalyzeElement left it: 19 points for each span and its end. It holds at
/// least one point.
extern std::vector<Vector3> ElementPolyline;
/// The last valid index of ElementPolyline.
extern std::int32_t ElementPolylineLast;

/// Works out everything that is derived from Track.
void AnalyzeTrack();
/// Works out everything that is derived from Element.
void AnalyzeElement();

void BuildTrackPolyline();
void BuildElementPolyline();

/// The box that encloses some points. A bound that no point has moved stays at 999 or -999 metres.
struct Bounds {
    Vector3 Least = {999, 999, 999};
    Vector3 Greatest = {-999, -999, -999};

    void Include(const Vector3& point);
    /// Greatest minus least, each rounded to a 32-bit float; 0 where that is not finite.
    Vector3 Extent() const;
};

/// @return whether all three coordinates are finite.
bool IsFinite(const Vector3& point);

} // namespace railwright
