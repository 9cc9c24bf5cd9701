#pragma once

#include "base/Types.h"
#include "drawing/PictureBox.h"
#include "geometry/mNoLimits_TrackTools.h"

#include <cmath>
#include <optional>

namespace railwright {

/// The common part of the previews: a drawing area of 220 pixels with the world's origin at its centre.
namespace Preview {

inline constexpr int Area = 220;
inline constexpr int Centre = 110;
inline constexpr Rgb AxisColour = {64, 64, 64};
inline constexpr Rgb GridColour = {32, 32, 32};
inline constexpr Rgb CurveColour = {0, 128, 255};

/// Returns whether lines of this colour are part of the grid or an axis.
inline bool IsGround(Rgb colour) {
    return colour == GridColour || colour == AxisColour;
}

inline void Line(PictureBox& picture, int x1, int y1, int x2, int y2, Rgb colour) {
    picture.Line(static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
                 static_cast<float>(y2), colour);
}

/// A position on a picture.
struct Pixel {
    float X;
    float Y;
};

/// Maps points of the world to a picture. Coordinates are computed in double precision and rounded once.
struct Mapping {
    /// The coordinate shown along each direction of the picture, and its scale in pixels per metre.
    float Vector3::*Across;
    double AcrossScale;
    float Vector3::*Down;
    double DownScale;

    /// Returns nothing if the point or its pixel is not finite.
    std::optional<Pixel> Of(const Vector3& point) const {
        const Pixel pixel = {At(point.*Across, AcrossScale), At(point.*Down, DownScale)};
        const bool isThere = IsFinite(point) && std::isfinite(pixel.X) && std::isfinite(pixel.Y);
        return isThere ? std::optional(pixel) : std::nullopt;
    }

private:
    static float At(float metres, double scale) {
        return static_cast<float>(Centre + scale * static_cast<double>(metres));
    }
};

/// One of the two views: a picture and its mapping.
struct View {
    PictureBox& Picture;
    Mapping Map;

    /// Draws a chord of the curve if both ends can be mapped.
    void Chord(const Vector3& from, const Vector3& to, Rgb colour) const {
        const auto start = Map.Of(from);
        const auto end = Map.Of(to);
        if (start && end)
            Picture.Line(start->X, start->Y, end->X, end->Y, colour);
    }

    void Point(const Vector3& point, Rgb colour) const {
        if (const auto place = Map.Of(point))
            Picture.PSet(place->X, place->Y, colour);
    }
};

} // namespace Preview
} // namespace railwright
