#include "track/TrackDocument.h"

namespace railwright {

TrackDocument Track;

void ClearTrackDocument() {
    Track = {};
}

} // namespace railwright
