#pragma once

#include "base/Types.h"

#include <array>
#include <cstddef>
#include <vector>

namespace railwright {

/// The shares that the four points of a cubic Bezier span have in its point at one T.
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

inline Vector3 BezierPoint(const Vector3& Start, const Vector3& FirstControl, const Vector3& End,
                           const Vector3& SecondControl, const BezierWeights& weights) {
    const auto blend = [&](float start, float first, float end, float second) {
        return static_cast<float>(
            weights.Start * static_cast<double>(start) + weights.FirstControl * static_cast<double>(first) +
            weights.SecondControl * static_cast<double>(second) + weights.End * static_cast<double>(end));
    };
    return {blend(Start.X, FirstControl.X, End.X, SecondControl.X),
            blend(Start.Y, FirstControl.Y, End.Y, SecondControl.Y),
            blend(Start.Z, FirstControl.Z, End.Z, SecondControl.Z)};
}

/// The point of a cubic Bezier span at T. Note that the end comes before the second control point. It is
/// worked in double precision and each coordinate rounded once; T is not clamped to 0 and 1.
inline Vector3 BezierPoint(const Vector3& Start, const Vector3& FirstControl, const Vector3& End,
                           const Vector3& SecondControl, float T) {
    return BezierPoint(Start, FirstControl, End, SecondControl, BezierWeightsAt(T));
}

/// @return the weights at T = 0, `step`, 2 `step` and so on up to `last`. T is a 32-bit float to which the
/// step is added in 32-bit arithmetic, so that the number of samples follows from its rounding.
inline std::vector<BezierWeights> BezierSteps(float step, float last) {
    std::vector<BezierWeights> steps;
    // NOLINTNEXTLINE(clang-analyzer-security.FloatLoopCounter): the sum is what the samples are defined by.
    for (float T = 0; T <= last; T += step)
        steps.push_back(BezierWeightsAt(T));
    return steps;
}

} // namespace railwright
