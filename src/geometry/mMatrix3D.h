#pragma once

#include "base/Types.h"

#include <array>

namespace railwright {

/// Pi to fifteen digits. All results depend on exactly this value.
inline constexpr double Pi = 3.14159265358979;

/// A 4x4 matrix in row-major order. Points are column vectors, so the product A times B applies B first. Sums
/// are computed in double precision; each stored element is rounded once.
using Matrix3D = std::array<float, 16>;

/// Return a rotation about an axis. About X it rotates +Y towards +Z, about Y +Z towards +X, about Z +X
/// towards +Y.
Matrix3D MatrixRotateX(float degrees);
Matrix3D MatrixRotateY(float degrees);
Matrix3D MatrixRotateZ(float degrees);

Matrix3D MatrixTranslate(float x, float y, float z);

/// Returns A times B.
Matrix3D MatrixMultiply(const Matrix3D& A, const Matrix3D& B);

/// Returns M times P, where the fourth component of P is 1. Ignores the bottom row of M.
Vector3 MatrixTransform(const Matrix3D& M, const Vector3& P);

} // namespace railwright
