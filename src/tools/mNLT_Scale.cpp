#include "tools/mNLT_Scale.h"

#include "base/StoredFloat.h"
#include "tools/TrackPoints.h"

namespace railwright {

void ScaleTrack(float Factor, bool ScaleSupports) {
    ChangeTrackPoints(ScaleSupports, [&](const Vector3& point) {
        return Vector3{Stored(point.X * Factor), Stored(point.Y * Factor), Stored(point.Z * Factor)};
    });
}

} // namespace railwright
