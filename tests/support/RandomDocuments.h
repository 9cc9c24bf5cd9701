#pragma once

#include "element/ElementDocument.h"
#include "track/TrackDocument.h"

#include <string>

namespace railwright::testing {

/// @return a track with every kind of record: segments of known and unknown types, texts of all bytes, floats
/// of any bits, lists longer than their counts, and counts that do not go together. The same seed gives the
/// same track.
TrackDocument RandomTrack(unsigned seed);
ElementDocument RandomElement(unsigned seed);

/// @return all that a file of the document keeps, in an order of its own; equal for equal documents only.
std::string Kept(TrackDocument track);
std::string Kept(ElementDocument element);

} // namespace railwright::testing
