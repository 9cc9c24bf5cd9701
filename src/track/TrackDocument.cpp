#include "track/TrackDocument.h"

#include <utility>

namespace railwright {

TrackDocument Track;

void ClearTrackDocument() {
    // Swap, because assignment would keep the memory of the old texts.
    TrackDocument empty;
    std::swap(Track, empty);
}

} // namespace railwright
