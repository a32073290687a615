#include <maya/MFloatMatrix.h>

#include <maya/MMatrix.h>

#include "MatrixMath.h"

#include <ostream>

using namespace mayasim;

// The float matrix follows MMatrix's rules; it computes through MMatrix.

namespace {

MMatrix wide(const MFloatMatrix& m)
{
    return MMatrix(m.matrix);
}

MFloatMatrix narrow(const MMatrix& m)
{
    return MFloatMatrix(m.matrix);
}

} // namespace

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
    return wide(*this).get(dest);
}

MStatus MFloatMatrix::get(float dest[4][4]) const
{
    return wide(*this).get(dest);
}

MFloatMatrix MFloatMatrix::transpose() const { return narrow(wide(*this).transpose()); }
MFloatMatrix& MFloatMatrix::setToIdentity() { return *this = MFloatMatrix(); }

MFloatMatrix& MFloatMatrix::setToProduct(const MFloatMatrix& left, const MFloatMatrix& right)
{
    return *this = narrow(wide(left) * wide(right));
}

MFloatMatrix& MFloatMatrix::operator+=(const MFloatMatrix& right) { return *this = *this + right; }
MFloatMatrix MFloatMatrix::operator+(const MFloatMatrix& right) const { return narrow(wide(*this) + wide(right)); }
MFloatMatrix& MFloatMatrix::operator-=(const MFloatMatrix& right) { return *this = *this - right; }
MFloatMatrix MFloatMatrix::operator-(const MFloatMatrix& right) const { return narrow(wide(*this) - wide(right)); }
MFloatMatrix& MFloatMatrix::operator*=(const MFloatMatrix& right) { return setToProduct(*this, right); }
MFloatMatrix MFloatMatrix::operator*(const MFloatMatrix& right) const { return MFloatMatrix().setToProduct(*this, right); }
MFloatMatrix& MFloatMatrix::operator*=(float scale) { return *this = *this * scale; }
MFloatMatrix MFloatMatrix::operator*(float scale) const { return narrow(wide(*this) * double(scale)); }
OPENMAYA_MAJOR_NAMESPACE_OPEN
MFloatMatrix operator*(float scale, const MFloatMatrix& right) { return right * scale; }
OPENMAYA_NAMESPACE_CLOSE
bool MFloatMatrix::operator==(const MFloatMatrix& other) const { return wide(*this) == wide(other); }
bool MFloatMatrix::operator!=(const MFloatMatrix& other) const { return !(*this == other); }
MFloatMatrix MFloatMatrix::inverse() const { return narrow(wide(*this).inverse()); }
MFloatMatrix MFloatMatrix::adjoint() const { return narrow(wide(*this).adjoint()); }
MFloatMatrix MFloatMatrix::homogenize() const { return narrow(wide(*this).homogenize()); }
float MFloatMatrix::det4x4() const { return float(wide(*this).det4x4()); }
float MFloatMatrix::det3x3() const { return float(wide(*this).det3x3()); }

bool MFloatMatrix::isEquivalent(const MFloatMatrix& other, float tolerance) const
{
    return wide(*this).isEquivalent(wide(other), tolerance);
}

const char* MFloatMatrix::className()
{
    return "MFloatMatrix";
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& os, const MFloatMatrix& m)
{
    return os << wide(m);
}
OPENMAYA_NAMESPACE_CLOSE
