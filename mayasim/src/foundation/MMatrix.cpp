#include <maya/MMatrix.h>

#include "MatrixMath.h"

#include <ostream>

using namespace mayasim;

const MMatrix MMatrix::identity;

MMatrix::MMatrix()
{
    math::setIdentity(matrix);
}

MMatrix::MMatrix(const MMatrix& src) = default;

MMatrix::MMatrix(const double m[4][4])
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            matrix[r][c] = m[r][c];
}

MMatrix::MMatrix(const float m[4][4])
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            matrix[r][c] = m[r][c];
}

MMatrix::~MMatrix() = default;

MMatrix& MMatrix::operator=(const MMatrix&) = default;

MStatus MMatrix::get(double dest[4][4]) const
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            dest[r][c] = matrix[r][c];
    return MS::kSuccess;
}

MStatus MMatrix::get(float dest[4][4]) const
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            dest[r][c] = static_cast<float>(matrix[r][c]);
    return MS::kSuccess;
}

MMatrix MMatrix::transpose() const
{
    MMatrix result;
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            result.matrix[c][r] = matrix[r][c];
    return result;
}

MMatrix& MMatrix::setToIdentity()
{
    math::setIdentity(matrix);
    return *this;
}

MMatrix& MMatrix::setToProduct(const MMatrix& left, const MMatrix& right)
{
    math::multiply(left.matrix, right.matrix, matrix);
    return *this;
}

MMatrix& MMatrix::operator+=(const MMatrix& right)
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            matrix[r][c] += right.matrix[r][c];
    return *this;
}

MMatrix MMatrix::operator+(const MMatrix& right) const
{
    return MMatrix(*this) += right;
}

MMatrix& MMatrix::operator-=(const MMatrix& right)
{
    return *this += right * -1.0;
}

MMatrix MMatrix::operator-(const MMatrix& right) const
{
    return MMatrix(*this) -= right;
}

MMatrix& MMatrix::operator*=(const MMatrix& right)
{
    return setToProduct(*this, right);
}

MMatrix MMatrix::operator*(const MMatrix& right) const
{
    return MMatrix().setToProduct(*this, right);
}

MMatrix& MMatrix::operator*=(double scale)
{
    for (auto& row : matrix)
        for (double& value : row)
            value *= scale;
    return *this;
}

MMatrix MMatrix::operator*(double scale) const
{
    return MMatrix(*this) *= scale;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
MMatrix operator*(double scale, const MMatrix& right)
{
    return right * scale;
}
OPENMAYA_NAMESPACE_CLOSE

bool MMatrix::operator==(const MMatrix& other) const
{
    return math::equivalent(matrix, other.matrix, 0.0);
}

bool MMatrix::operator!=(const MMatrix& other) const
{
    return !(*this == other);
}

MMatrix MMatrix::inverse() const
{
    MMatrix result;
    math::invert(matrix, result.matrix);
    return result;
}

MMatrix MMatrix::adjoint() const
{
    MMatrix result;
    math::adjoint(matrix, result.matrix);
    return result;
}

MMatrix MMatrix::homogenize() const
{
    MMatrix result;
    math::homogenize(matrix, result.matrix);
    return result;
}

double MMatrix::det4x4() const
{
    return math::determinant4(matrix);
}

double MMatrix::det3x3() const
{
    return math::determinant3(matrix);
}

bool MMatrix::isEquivalent(const MMatrix& other, double tolerance) const
{
    return math::equivalent(matrix, other.matrix, tolerance);
}

bool MMatrix::isSingular() const
{
    return std::fabs(det4x4()) < MMatrix_kTol;
}

const char* MMatrix::className()
{
    return "MMatrix";
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& os, const MMatrix& m)
{
    return os << math::matrixText(m.matrix);
}
OPENMAYA_NAMESPACE_CLOSE
