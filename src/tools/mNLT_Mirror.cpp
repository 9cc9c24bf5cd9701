#include "tools/mNLT_Mirror.h"

#include "base/StoredFloat.h"
#include "tools/TrackPoints.h"

namespace railwright {

void MirrorTrack(int Mode, bool MirrorSupports) {
    if (Mode != MirrorMode::NorthSouth && Mode != MirrorMode::EastWest)
        return;
    float Vector3::*const flipped = Mode == MirrorMode::NorthSouth ? &Vector3::Z : &Vector3::X;
    ChangeTrackPoints(MirrorSupports, [&](Vector3 point) {
        point.*flipped = Stored(-(point.*flipped));
        return point;
    });
}

} // namespace railwright
