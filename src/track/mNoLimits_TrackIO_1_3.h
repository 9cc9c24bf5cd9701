#pragma once

#include "platform/WholeFile.h"
#include "track/TrackDocument.h"

#include <string>

namespace railwright {

/// Reads a .nltrack file into Track.
/// @param sFile path, UTF-8 in Windows form.
/// @return what is wrong where the file cannot be read. If its name is at fault, Track is as it was;
/// otherwise it is empty.
FileResult LoadTrackFile(const std::string& sFile);

/// Writes Track as a .nltrack file, in the writer's own form, and brings its ChunkSize and SubChunks up to
/// date.
/// @param sFile path, UTF-8 in Windows form; ".nltrack" is added unless it ends so already.
/// @return what is wrong where the file cannot be written; an old file of that name is then as it was.
FileResult SaveTrackFile(const std::string& sFile);

/// Sets ChunkSize and SubChunks of all records of Track to what its file needs.
/// @return the length of that file in bytes. If it is above what the format can hold, the fields stay unset.
std::int64_t ComputeChunkSizes();

} // namespace railwright
