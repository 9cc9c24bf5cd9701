#include "geometry/mMatrix3D.h"

#include "base/StoredFloat.h"

#include <cmath>
#include <cstddef>

namespace railwright {
namespace {

struct Turn {
    float Cosine;
    float Sine;
};

/// Rounds the angle in radians to 32 bits before computing its sine and cosine.
Turn TurnBy(float degrees) {
    const auto radians = static_cast<float>(static_cast<double>(degrees) * Pi / 180);
    return {static_cast<float>(std::cos(static_cast<double>(radians))),
            static_cast<float>(std::sin(static_cast<double>(radians)))};
}

} // namespace

Matrix3D MatrixRotateX(float degrees) {
    const auto [c, s] = TurnBy(degrees);
    return {1, 0, 0, 0, 0, c, -s, 0, 0, s, c, 0, 0, 0, 0, 1};
}

Matrix3D MatrixRotateY(float degrees) {
    const auto [c, s] = TurnBy(degrees);
    return {c, 0, s, 0, 0, 1, 0, 0, -s, 0, c, 0, 0, 0, 0, 1};
}

Matrix3D MatrixRotateZ(float degrees) {
    const auto [c, s] = TurnBy(degrees);
    return {c, -s, 0, 0, s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
}

Matrix3D MatrixTranslate(float x, float y, float z) {
    return {1, 0, 0, x, 0, 1, 0, y, 0, 0, 1, z, 0, 0, 0, 1};
}

Matrix3D MatrixMultiply(const Matrix3D& A, const Matrix3D& B) {
    Matrix3D product{};
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t column = 0; column < 4; ++column) {
            double sum = 0;
            for (std::size_t k = 0; k < 4; ++k)
                sum += static_cast<double>(A[4 * row + k]) * static_cast<double>(B[4 * k + column]);
            product[4 * row + column] = static_cast<float>(sum);
        }
    return product;
}

Vector3 MatrixTransform(const Matrix3D& M, const Vector3& P) {
    const auto row = [&](std::size_t first) {
        return Stored(static_cast<double>(M[first]) * static_cast<double>(P.X) +
                      static_cast<double>(M[first + 1]) * static_cast<double>(P.Y) +
                      static_cast<double>(M[first + 2]) * static_cast<double>(P.Z) +
                      static_cast<double>(M[first + 3]));
    };
    return {row(0), row(4), row(8)};
}

} // namespace railwright
