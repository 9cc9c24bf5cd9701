#pragma once

#include "base/Types.h"

#include <array>

namespace railwright {

/// Pi as the program knows it, to fifteen digits.
inline constexpr double Pi = 3.14159265358979;

/// A 4x4 matrix, row by row. Points are column vectors, so that in a product A times B the matrix B acts
/// first. Sums are formed in double precision and rounded once to each stored element.
using Matrix3D = std::array<float, 16>;

/// A turn about an axis, in degrees: about X carries +Y towards +Z, about Y +Z towards +X, about Z +X towards
/// +Y.
Matrix3D MatrixRotateX(float degrees);
Matrix3D MatrixRotateY(float degrees);
Matrix3D MatrixRotateZ(float degrees);

Matrix3D MatrixTranslate(float x, float y, float z);

/// @return A times B.
Matrix3D MatrixMultiply(const Matrix3D& A, const Matrix3D& B);

/// @return M times P, the fourth component of P being 1. The bottom row of M is not read.
Vector3 MatrixTransform(const Matrix3D& M, const Vector3& P);

} // namespace railwright
