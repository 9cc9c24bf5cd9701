#pragma once

#include "base/Types.h"

#include <array>
#include <cstddef>
#include <vector>

namespace railwright {

/// The weights of the four points of a cubic Bezier span at one T.
struct BezierWeights {
    double Start;
    double FirstControl;
    double SecondControl;
    double End;
};

inline BezierWeights BezierWeightsAt(float T) {
    const auto t = static_cast<double>(T);
    const double rest = 1 - t;
    return {rest * rest * rest, 3 * t * rest * rest, 3 * t * t * rest, t * t * t};
}

/// A cubic Bezier span, in double precision.
class BezierSpan {
public:
    BezierSpan(const Vector3& Start, const Vector3& FirstControl, const Vector3& End,
               const Vector3& SecondControl)
        : x(Start.X, FirstControl.X, End.X, SecondControl.X),
          y(Start.Y, FirstControl.Y, End.Y, SecondControl.Y),
          z(Start.Z, FirstControl.Z, End.Z, SecondControl.Z) {}

    Vector3 Point(const BezierWeights& weights) const {
        return {x.Blend(weights), y.Blend(weights), z.Blend(weights)};
    }

private:
    struct Coordinate {
        Coordinate(float start, float first, float end, float second)
            : Start(static_cast<double>(start)),
              FirstControl(static_cast<double>(first)),
              SecondControl(static_cast<double>(second)),
              End(static_cast<double>(end)) {}

        float Blend(const BezierWeights& weights) const {
            return static_cast<float>(weights.Start * Start + weights.FirstControl * FirstControl +
                                      weights.SecondControl * SecondControl + weights.End * End);
        }

        double Start, FirstControl, SecondControl, End;
    };

    Coordinate x, y, z;
};

/// Returns the point of a cubic Bezier span at T. Note the order of the parameters: the end comes before the
/// second control point. The point is computed in double precision, and each coordinate is rounded once. T
/// may be outside 0 to 1.
inline Vector3 BezierPoint(const Vector3& Start, const Vector3& FirstControl, const Vector3& End,
                           const Vector3& SecondControl, float T) {
    return BezierSpan(Start, FirstControl, End, SecondControl).Point(BezierWeightsAt(T));
}

/// Returns the weights at T = 0, `step`, 2 `step` and so on up to `last`. T is accumulated in 32 bits, so
/// rounding affects the number of samples.
inline std::vector<BezierWeights> BezierSteps(float step, float last) {
    std::vector<BezierWeights> steps;
    // NOLINTNEXTLINE(clang-analyzer-security.FloatLoopCounter): the accumulated sum defines the samples.
    for (float T = 0; T <= last; T += step)
        steps.push_back(BezierWeightsAt(T));
    return steps;
}

} // namespace railwright
