#include "geometry/mMatrix3D.h"

#include "tests/support/Tracks.h"

#include <gtest/gtest.h>

namespace railwright {
namespace {

using testing::ExpectNear;

TEST(Matrix3D, CarriesOneAxisTowardsTheNextByAPositiveAngle) {
    struct Case {
        Matrix3D (*Turn)(float);
        Vector3 Point;
        Vector3 At90;
        Vector3 At30;
    };
    constexpr float c = 0.8660254F;
    const Case cases[] = {
        {MatrixRotateX, {7, 1, 0}, {7, 0, 1}, {7, c, 0.5F}},
        {MatrixRotateX, {7, 0, 1}, {7, -1, 0}, {7, -0.5F, c}},
        {MatrixRotateY, {0, 7, 1}, {1, 7, 0}, {0.5F, 7, c}},
        {MatrixRotateY, {1, 7, 0}, {0, 7, -1}, {c, 7, -0.5F}},
        {MatrixRotateZ, {1, 0, 7}, {0, 1, 7}, {c, 0.5F, 7}},
        {MatrixRotateZ, {0, 1, 7}, {-1, 0, 7}, {-0.5F, c, 7}},
    };
    for (const Case& one : cases) {
        EXPECT_EQ(MatrixTransform(one.Turn(0), one.Point), one.Point);
        ExpectNear(MatrixTransform(one.Turn(90), one.Point), one.At90, 1e-6F);
        ExpectNear(MatrixTransform(one.Turn(30), one.Point), one.At30, 1e-6F);
        ExpectNear(MatrixTransform(one.Turn(-330), one.Point), one.At30, 1e-6F);
    }
}

// The angle is rounded to 32 bits in radians first: a quarter turn is then 1.57079637 and lies 4.371e-8 above
// the true one, a full turn 1.748e-7 above.
TEST(Matrix3D, RoundsTheAngleBeforeItsSineIsTaken) {
    const Matrix3D quarter = MatrixRotateY(90);
    EXPECT_NEAR(quarter[0], -4.371e-8F, 1e-11F);
    EXPECT_EQ(quarter[2], 1.0F);
    EXPECT_NEAR(MatrixRotateZ(360)[4], 1.748e-7F, 1e-10F);
    EXPECT_EQ(MatrixRotateZ(360)[0], 1.0F);
}

TEST(Matrix3D, LetsTheRightFactorActFirst) {
    const Matrix3D turn = MatrixRotateZ(90);
    const Matrix3D shift = MatrixTranslate(10, 20, 30);
    const Vector3 point = {1, 2, 3};
    // Shifted to (11, 22, 33) and then turned, or turned to (-2, 1, 3) and then shifted.
    ExpectNear(MatrixTransform(MatrixMultiply(turn, shift), point), {-22, 11, 33}, 1e-5F);
    ExpectNear(MatrixTransform(MatrixMultiply(shift, turn), point), {8, 21, 33}, 1e-5F);
}

TEST(Matrix3D, MultipliesAllSixteenElementsAndMayStoreOverAnArgument) {
    Matrix3D A = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    Matrix3D B = {2, 0, 0, 1, 0, 3, 1, 0, 1, 0, 0, 2, 0, 1, 0, 1};
    const Matrix3D product = {5, 10, 2, 11, 17, 26, 6, 27, 29, 42, 10, 43, 41, 58, 14, 59};
    const Matrix3D oldA = A;
    A = MatrixMultiply(A, B);
    EXPECT_EQ(A, product);
    B = MatrixMultiply(oldA, B);
    EXPECT_EQ(B, product);
}

TEST(Matrix3D, NeverReadsTheBottomRowForAPoint) {
    Matrix3D M = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 0, 0, 0, 1};
    const Vector3 expected = {18, 46, 74}; // of (1, 2, 3)
    EXPECT_EQ(MatrixTransform(M, {1, 2, 3}), expected);
    M[12] = M[13] = M[14] = M[15] = 99;
    EXPECT_EQ(MatrixTransform(M, {1, 2, 3}), expected);
}

} // namespace
} // namespace railwright
