#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <iosfwd>

#define MMatrix_kTol 1.0e-10

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A 4x4 matrix of doubles. Maya multiplies row vectors on the left
//! (p' = p * M), so the translation sits in row 3.
class OPENMAYA_EXPORT MMatrix
{
public:
    MMatrix();
    MMatrix(const MMatrix& src);
    MMatrix(const double m[4][4]);
    MMatrix(const float m[4][4]);
    ~MMatrix();
    MMatrix& operator=(const MMatrix&);
    double operator()(unsigned int row, unsigned int col) const;
    const double* operator[](unsigned int row) const;
    MStatus get(double dest[4][4]) const;
    MStatus get(float dest[4][4]) const;
    MMatrix transpose() const;
    MMatrix& setToIdentity();
    MMatrix& setToProduct(const MMatrix& left, const MMatrix& right);
    MMatrix& operator+=(const MMatrix& right);
    MMatrix operator+(const MMatrix& right) const;
    MMatrix& operator-=(const MMatrix& right);
    MMatrix operator-(const MMatrix& right) const;
    MMatrix& operator*=(const MMatrix& right);
    MMatrix operator*(const MMatrix& right) const;
    MMatrix& operator*=(double);
    MMatrix operator*(double) const;
    bool operator==(const MMatrix& other) const;
    bool operator!=(const MMatrix& other) const;
    MMatrix inverse() const;
    MMatrix adjoint() const;
    MMatrix homogenize() const;
    double det4x4() const;
    double det3x3() const;
    bool isEquivalent(const MMatrix& other, double tolerance = MMatrix_kTol) const;
    bool isSingular() const;

BEGIN_NO_SCRIPT_SUPPORT:
    double& operator()(unsigned int row, unsigned int col) { return matrix[row][col]; }
    double* operator[](unsigned int row) { return matrix[row]; }
    friend OPENMAYA_EXPORT MMatrix operator*(double, const MMatrix& right);
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MMatrix& m);
END_NO_SCRIPT_SUPPORT:

    double matrix[4][4];

    static const MMatrix identity;

    static const char* className();
};

inline double MMatrix::operator()(unsigned int row, unsigned int col) const
{
    return matrix[row][col];
}

inline const double* MMatrix::operator[](unsigned int row) const
{
    return matrix[row];
}

OPENMAYA_NAMESPACE_CLOSE
