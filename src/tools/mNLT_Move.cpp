#include "tools/mNLT_Move.h"

#include "base/StoredFloat.h"
#include "tools/TrackPoints.h"

namespace railwright {

void MoveTrack(const Vector3& Offset, bool MoveSupports) {
    ChangeTrackPoints(MoveSupports, [&](const Vector3& point) {
        return Vector3{Stored(point.X + Offset.X), Stored(point.Y + Offset.Y), Stored(point.Z + Offset.Z)};
    });
}

} // namespace railwright
