#include "tools/mNLT_Move.h"

#include "tools/TrackPoints.h"

namespace railwright {

void MoveTrack(const Vector3& Offset, bool MoveSupports) {
    ChangeTrackPoints(MoveSupports, [&](const Vector3& point) {
        return Vector3{point.X + Offset.X, point.Y + Offset.Y, point.Z + Offset.Z};
    });
}

} // namespace railwright
