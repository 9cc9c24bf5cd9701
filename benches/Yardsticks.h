#pragma once

#include "format/FileBytes.h"

#include <cstdint>
#include <string>

namespace railwright::bench {

/// What the program is measured against: the same work, done as plainly as can be.

/// One pass over a file that swaps the bytes of each 32-bit word into `into`, which is as long.
void ByteSwapCopy(const FileBytes& file, FileBytes& into);

/// What the readers of a track have to agree in.
struct TrackFigures {
    std::int64_t Nodes = 0, Segments = 0, Supports = 0, Beams = 0, Trees = 0, Objects = 0, Heights = 0;
    float LastX = 0, LastRoll = 0;
    std::string LastObject;
    bool operator==(const TrackFigures&) const = default;
};

/// Reads a whole track with a QDataStream, field by field into lists of structures, which take the place of
/// those that the last call has left.
TrackFigures QDataStreamReader(const FileBytes& file);
/// The same straight from a file on the disk.
TrackFigures QDataStreamReader(const std::string& path);

/// The 101 points of each span of Track, by the formula of the textbooks.
/// @return the length of the curve through them.
double TextbookSamples();

} // namespace railwright::bench
