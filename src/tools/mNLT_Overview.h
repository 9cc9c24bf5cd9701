#pragma once

#include "base/NumberFormat.h"
#include "base/TextOutput.h"
#include "platform/FilePath.h"

#include <cstdint>
#include <string>

namespace railwright {

struct TrackMeasures;

/// Returns the report of Track as UTF-8 text with CR LF line ends.
/// @param sDocumentFile path of the track's file, for its name and size in the report. A missing file has 0
/// bytes.
/// @param measures the current result of MeasureTrack.
std::string BuildTrackOverview(const FilePath& sDocumentFile, const NumberSeparators& separators,
                               const TrackMeasures& measures);

/// Measures Track and prints the same report without holding it in memory. Control characters in its texts
/// are printed as U+FFFD, but for the line ends and tabs of the comments.
void PrintTrackOverview(TextOutput& out, const FilePath& sDocumentFile, const NumberSeparators& separators);

/// Returns the name of a TrackHeaderRecord::TrackType; empty if unknown.
std::string TrackTypeName(std::int32_t TrackType);

/// Returns "Yes" or "No".
std::string YesNoText(bool value);

/// Returns the length of the centre line in metres, measured in space along all samples; 0 for fewer than two
/// nodes. The report takes the same value from MeasureTrack.
float TrackLength();

} // namespace railwright
