#include "track/TrackDocument.h"

#include <utility>

namespace railwright {

TrackDocument Track;

void ClearTrackDocument() {
    // A text that is assigned another keeps its memory, however much that is.
    TrackDocument empty;
    std::swap(Track, empty);
}

} // namespace railwright
