#pragma once

#include "base/NumberFormat.h"

#include <cstdint>
#include <string>

namespace railwright {

/// @return the report of Track as UTF-8 text whose lines end in CR LF, from Track and from what the last
/// AnalyzeTrack left.
/// @param sDocumentFile path of the track's file, whose name and size on disk the report tells; a file that
/// is gone has 0 bytes.
std::string BuildTrackOverview(const std::string& sDocumentFile, const NumberSeparators& separators);

/// @return the name of a TrackHeaderRecord::TrackType, empty for one that is not known.
std::string TrackTypeName(std::int32_t TrackType);

/// @return "Yes" or "No".
std::string YesNoText(bool value);

/// @return the length of the centre line in metres, measured in space along all of its samples; 0 with fewer
/// than two nodes. The report takes the same figure from the analysis, which goes through these samples
/// anyway.
float TrackLength();

} // namespace railwright
