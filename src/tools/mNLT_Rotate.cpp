#include "tools/mNLT_Rotate.h"

#include "geometry/mMatrix3D.h"
#include "tools/TrackPoints.h"

namespace railwright {

void RotateTrack(float Degrees, bool RotateSupports) {
    const Matrix3D turn = MatrixRotateY(Degrees);
    ChangeTrackPoints(RotateSupports, [&](const Vector3& point) { return MatrixTransform(turn, point); });
}

} // namespace railwright
