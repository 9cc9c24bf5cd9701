#pragma once

#include "platform/WholeFile.h"
#include "track/TrackDocument.h"

#include <string>

namespace railwright {

struct UnknownChunks;

/// Reads a .nltrack file into Track.
/// @param sFile path, UTF-8 in Windows form.
/// @return on failure, the reason. If the name is wrong, Track stays as it was; otherwise it is empty.
FileResult LoadTrackFile(const FilePath& sFile);

/// Reads a .nltrack file into Track like LoadTrackFile, but a hidden file as well.
/// @param unknown takes the chunks of the file that are not in Track.
FileResult ReadTrackFile(const FilePath& sFile, UnknownChunks& unknown);

/// Writes Track as a .nltrack file, with the chunks in the program's own order, and updates ChunkSize and
/// SubChunks of all records.
/// @param sFile path, UTF-8 in Windows form; ".nltrack" is added unless it ends so already.
/// @return on failure, the reason; an old file of that name then stays as it was.
FileResult SaveTrackFile(const FilePath& sFile);

/// Computes ChunkSize and SubChunks of all records of Track.
/// @return the length of its file in bytes. If the format cannot hold that many, the fields are not set.
std::int64_t ComputeChunkSizes();

} // namespace railwright
