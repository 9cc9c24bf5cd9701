#include "tools/mNLT_Scale.h"

#include "tools/TrackPoints.h"

namespace railwright {

void ScaleTrack(float Factor, bool ScaleSupports) {
    ChangeTrackPoints(ScaleSupports, [&](const Vector3& point) {
        return Vector3{point.X * Factor, point.Y * Factor, point.Z * Factor};
    });
}

} // namespace railwright
