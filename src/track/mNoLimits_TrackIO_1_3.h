#pragma once

#include "platform/WholeFile.h"
#include "track/TrackDocument.h"

#include <string>

namespace railwright {

struct UnknownChunks;

/// Reads a .nltrack file into Track.
/// @return on failure, the reason. If the name is wrong or the file cannot be opened, Track is unchanged;
/// after any other failure it is empty.
FileResult LoadTrackFile(const FilePath& sFile);

/// Reads a .nltrack file into Track like LoadTrackFile, but accepts a hidden file too.
/// @param unknown receives the chunks that Track cannot hold.
FileResult ReadTrackFile(const FilePath& sFile, UnknownChunks& unknown);

/// Writes Track as a .nltrack file, with the chunks in a fixed order. Updates ChunkSize and SubChunks of all
/// records.
/// @param sFile path of the file. Adds ".nltrack" if the path does not end in it.
/// @return on failure, the reason; an existing file is then unchanged.
FileResult SaveTrackFile(const FilePath& sFile);

/// Computes ChunkSize and SubChunks of all records of Track.
/// @return the length of its file in bytes. Leaves the fields unchanged if the format cannot hold such a
/// file.
std::int64_t ComputeChunkSizes();

} // namespace railwright
