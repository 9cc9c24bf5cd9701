#pragma once

#include "base/Types.h"

#include <array>

namespace railwright {

/// Pi to fifteen digits. All results depend on exactly this value.
inline constexpr double Pi = 3.14159265358979;

/// A 4x4 matrix, row by row. Points are column vectors, so in a product A times B the matrix B acts first.
/// Sums are computed in double precision; each stored element is rounded once.
using Matrix3D = std::array<float, 16>;

/// A turn about an axis, in degrees. About X it turns +Y towards +Z, about Y +Z towards +X, about Z +X
/// towards +Y.
Matrix3D MatrixRotateX(float degrees);
Matrix3D MatrixRotateY(float degrees);
Matrix3D MatrixRotateZ(float degrees);

Matrix3D MatrixTranslate(float x, float y, float z);

/// @return A times B.
Matrix3D MatrixMultiply(const Matrix3D& A, const Matrix3D& B);

/// @return M times P, where the fourth component of P is 1. The bottom row of M is not read.
Vector3 MatrixTransform(const Matrix3D& M, const Vector3& P);

} // namespace railwright
