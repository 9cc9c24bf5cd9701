#pragma once

#include "base/NumberFormat.h"
#include "base/TextOutput.h"
#include "platform/FilePath.h"

#include <cstdint>
#include <string>

namespace railwright {

struct TrackMeasures;

/// @return the report of Track as UTF-8 text; lines end in CR LF.
/// @param sDocumentFile path of the track's file. The report gives its name and its size; a missing file has
/// 0 bytes.
/// @param measures of Track as it is now.
std::string BuildTrackOverview(const FilePath& sDocumentFile, const NumberSeparators& separators,
                               const TrackMeasures& measures);

/// Measures Track and prints the same report, without holding its text in memory.
void PrintTrackOverview(TextOutput& out, const FilePath& sDocumentFile, const NumberSeparators& separators);

/// @return the name of a TrackHeaderRecord::TrackType; empty for an unknown one.
std::string TrackTypeName(std::int32_t TrackType);

/// @return "Yes" or "No".
std::string YesNoText(bool value);

/// @return the length of the centre line in metres, measured in space along all samples; 0 with fewer than
/// two nodes. The report takes the same figure from MeasureTrack, which visits these samples anyway.
float TrackLength();

} // namespace railwright
