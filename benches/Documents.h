#pragma once

#include "format/FileBytes.h"

#include <cstdint>
#include <string>

namespace railwright::bench {

/// A document that was made up for the benches, as a file on the disk and as its bytes.
struct Sample {
    std::string Path;
    FileBytes Bytes;
};

/// Each makes a document of one size by random numbers of a fixed seed, and saves it. Supports, beams,
/// objects and kinds of segments stand in the proportions of the examples.

/// A track on a ground of 440 metres a side that is followed for as long as it takes, without terrain.
Sample MakeTrack(const std::string& folder, std::int64_t nodes);
/// A track of 100 nodes on a terrain of `side` x `side` heights.
Sample MakeTerrain(const std::string& folder, std::int64_t side);
Sample MakeElement(const std::string& folder, std::int64_t nodes);

} // namespace railwright::bench
