#include <maya/MFloatMatrix.h>

#include "MatrixMath.h"

#include <ostream>

using namespace mayasim;

MFloatMatrix::MFloatMatrix()
{
    math::setIdentity(matrix);
}

MFloatMatrix::MFloatMatrix(const MFloatMatrix& src) = default;

MFloatMatrix::MFloatMatrix(const double m[4][4])
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            matrix[r][c] = static_cast<float>(m[r][c]);
}

MFloatMatrix::MFloatMatrix(const float m[4][4])
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            matrix[r][c] = m[r][c];
}

MFloatMatrix::~MFloatMatrix() = default;

MFloatMatrix& MFloatMatrix::operator=(const MFloatMatrix&) = default;

MStatus MFloatMatrix::get(double dest[4][4]) const
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            dest[r][c] = matrix[r][c];
    return MS::kSuccess;
}

MStatus MFloatMatrix::get(float dest[4][4]) const
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            dest[r][c] = matrix[r][c];
    return MS::kSuccess;
}

MFloatMatrix MFloatMatrix::transpose() const
{
    MFloatMatrix result;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            result.matrix[c][r] = matrix[r][c];
    return result;
}

MFloatMatrix& MFloatMatrix::setToIdentity()
{
    math::setIdentity(matrix);
    return *this;
}

MFloatMatrix& MFloatMatrix::setToProduct(const MFloatMatrix& left, const MFloatMatrix& right)
{
    math::multiply(left.matrix, right.matrix, matrix);
    return *this;
}

MFloatMatrix& MFloatMatrix::operator+=(const MFloatMatrix& right)
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            matrix[r][c] += right.matrix[r][c];
    return *this;
}

MFloatMatrix MFloatMatrix::operator+(const MFloatMatrix& right) const
{
    return MFloatMatrix(*this) += right;
}

MFloatMatrix& MFloatMatrix::operator-=(const MFloatMatrix& right)
{
    return *this += right * -1.0F;
}

MFloatMatrix MFloatMatrix::operator-(const MFloatMatrix& right) const
{
    return MFloatMatrix(*this) -= right;
}

MFloatMatrix& MFloatMatrix::operator*=(const MFloatMatrix& right)
{
    return setToProduct(*this, right);
}

MFloatMatrix MFloatMatrix::operator*(const MFloatMatrix& right) const
{
    return MFloatMatrix().setToProduct(*this, right);
}

MFloatMatrix& MFloatMatrix::operator*=(float scale)
{
    for (auto& row : matrix)
        for (float& value : row)
            value *= scale;
    return *this;
}

MFloatMatrix MFloatMatrix::operator*(float scale) const
{
    return MFloatMatrix(*this) *= scale;
}

MFloatMatrix operator*(float scale, const MFloatMatrix& right)
{
    return right * scale;
}

bool MFloatMatrix::operator==(const MFloatMatrix& other) const
{
    return math::equivalent(matrix, other.matrix, 0.0F);
}

bool MFloatMatrix::operator!=(const MFloatMatrix& other) const
{
    return !(*this == other);
}

MFloatMatrix MFloatMatrix::inverse() const
{
    MFloatMatrix result;
    math::invert(matrix, result.matrix);
    return result;
}

MFloatMatrix MFloatMatrix::adjoint() const
{
    MFloatMatrix result;
    math::adjoint(matrix, result.matrix);
    return result;
}

MFloatMatrix MFloatMatrix::homogenize() const
{
    MFloatMatrix result;
    math::homogenize(matrix, result.matrix);
    return result;
}

float MFloatMatrix::det4x4() const
{
    return math::determinant4(matrix);
}

float MFloatMatrix::det3x3() const
{
    return math::determinant3(matrix);
}

bool MFloatMatrix::isEquivalent(const MFloatMatrix& other, float tolerance) const
{
    return math::equivalent(matrix, other.matrix, tolerance);
}

const char* MFloatMatrix::className()
{
    return "MFloatMatrix";
}

std::ostream& operator<<(std::ostream& os, const MFloatMatrix& m)
{
    return os << math::matrixText(m.matrix);
}
