#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <iosfwd>

#define MFloatMatrix_kTol 1.0e-5F

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A 4x4 matrix of floats, same row-vector convention as MMatrix.
class OPENMAYA_EXPORT MFloatMatrix
{
public:
    MFloatMatrix();
    MFloatMatrix(const MFloatMatrix& src);
    MFloatMatrix(const double m[4][4]);
    MFloatMatrix(const float m[4][4]);
    ~MFloatMatrix();
    MFloatMatrix& operator=(const MFloatMatrix&);
    float operator()(unsigned int row, unsigned int col) const;
    const float* operator[](unsigned int row) const;
    MStatus get(double dest[4][4]) const;
    MStatus get(float dest[4][4]) const;
    MFloatMatrix transpose() const;
    MFloatMatrix& setToIdentity();
    MFloatMatrix& setToProduct(const MFloatMatrix& left, const MFloatMatrix& right);
    MFloatMatrix& operator+=(const MFloatMatrix& right);
    MFloatMatrix operator+(const MFloatMatrix& right) const;
    MFloatMatrix& operator-=(const MFloatMatrix& right);
    MFloatMatrix operator-(const MFloatMatrix& right) const;
    MFloatMatrix& operator*=(const MFloatMatrix& right);
    MFloatMatrix operator*(const MFloatMatrix& right) const;
    MFloatMatrix& operator*=(float);
    MFloatMatrix operator*(float) const;
    bool operator==(const MFloatMatrix& other) const;
    bool operator!=(const MFloatMatrix& other) const;
    MFloatMatrix inverse() const;
    MFloatMatrix adjoint() const;
    MFloatMatrix homogenize() const;
    float det4x4() const;
    float det3x3() const;
    bool isEquivalent(const MFloatMatrix& other, float tolerance = MFloatMatrix_kTol) const;

BEGIN_NO_SCRIPT_SUPPORT:
    float& operator()(unsigned int row, unsigned int col) { return matrix[row][col]; }
    float* operator[](unsigned int row) { return matrix[row]; }
    friend OPENMAYA_EXPORT MFloatMatrix operator*(float, const MFloatMatrix& right);
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MFloatMatrix& m);
END_NO_SCRIPT_SUPPORT:

    float matrix[4][4];

    static const char* className();
};

inline float MFloatMatrix::operator()(unsigned int row, unsigned int col) const
{
    return matrix[row][col];
}

inline const float* MFloatMatrix::operator[](unsigned int row) const
{
    return matrix[row];
}

OPENMAYA_NAMESPACE_CLOSE
