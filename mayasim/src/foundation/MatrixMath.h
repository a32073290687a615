#pragma once
// 4x4 matrix arithmetic shared by MMatrix and MFloatMatrix (row-vector
// convention: the product a * b applies a first).
#include "NumberText.h"

#include <cmath>
#include <initializer_list>
#include <string>

namespace mayasim::math {

constexpr double kPi = 3.14159265358979323846;

template <typename T>
void setIdentity(T m[4][4])
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            m[r][c] = r == c ? T(1) : T(0);
}

template <typename T>
void multiply(const T a[4][4], const T b[4][4], T out[4][4])
{
    T result[4][4];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
        {
            T sum = 0;
            for (int k = 0; k < 4; ++k)
                sum += a[r][k] * b[k][c];
            result[r][c] = sum;
        }
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            out[r][c] = result[r][c];
}

// Determinant of the 3x3 minor that leaves out row `skipRow` and column `skipCol`.
template <typename T>
T minor3(const T m[4][4], int skipRow, int skipCol)
{
    int rows[3], cols[3];
    for (int i = 0, r = 0, c = 0; i < 4; ++i)
    {
        if (i != skipRow)
            rows[r++] = i;
        if (i != skipCol)
            cols[c++] = i;
    }
    auto e = [&](int r, int c) { return m[rows[r]][cols[c]]; };
    return e(0, 0) * (e(1, 1) * e(2, 2) - e(1, 2) * e(2, 1)) - e(0, 1) * (e(1, 0) * e(2, 2) - e(1, 2) * e(2, 0)) +
           e(0, 2) * (e(1, 0) * e(2, 1) - e(1, 1) * e(2, 0));
}

template <typename T>
T determinant4(const T m[4][4])
{
    T det = 0;
    for (int c = 0; c < 4; ++c)
        det += (c % 2 ? -m[0][c] : m[0][c]) * minor3(m, 0, c);
    return det;
}

// Determinant of the upper-left 3x3 block.
template <typename T>
T determinant3(const T m[4][4])
{
    return minor3(m, 3, 3);
}

// Transposed cofactor matrix.
template <typename T>
void adjoint(const T m[4][4], T out[4][4])
{
    T result[4][4];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            result[c][r] = ((r + c) % 2 ? -1 : 1) * minor3(m, r, c);
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            out[r][c] = result[r][c];
}

// Inverse through the adjoint; a singular matrix leaves `out` unchanged
// and returns false.
template <typename T>
bool invert(const T m[4][4], T out[4][4])
{
    const T det = determinant4(m);
    if (det == T(0) || !std::isfinite(det))
        return false;
    T adj[4][4];
    adjoint(m, adj);
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            out[r][c] = adj[r][c] / det;
    return true;
}

// Divides every element by the bottom-right one.
template <typename T>
void homogenize(const T m[4][4], T out[4][4])
{
    const T w = m[3][3];
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            out[r][c] = w != T(0) ? m[r][c] / w : m[r][c];
}

template <typename T>
bool equivalent(const T a[4][4], const T b[4][4], T tolerance)
{
    for (int r = 0; r < 4; ++r)
        for (int c = 0; c < 4; ++c)
            if (std::fabs(a[r][c] - b[r][c]) > tolerance)
                return false;
    return true;
}

// Row vector (x, y, z, w) times matrix.
template <typename T, typename V>
void transformRow(const V in[4], const T m[4][4], V out[4])
{
    V result[4];
    for (int c = 0; c < 4; ++c)
        result[c] = in[0] * m[0][c] + in[1] * m[1][c] + in[2] * m[2][c] + in[3] * m[3][c];
    for (int c = 0; c < 4; ++c)
        out[c] = result[c];
}

// "[a, b, c]": how the math types print themselves.
inline std::string listText(std::initializer_list<double> values)
{
    std::string text = "[";
    for (double value : values)
        text += (text.size() > 1 ? ", " : "") + doubleText(value);
    return text + "]";
}

template <typename T>
std::string matrixText(const T m[4][4])
{
    std::string text = "[";
    for (int r = 0; r < 4; ++r)
        text += (r ? ", " : "") + listText({m[r][0], m[r][1], m[r][2], m[r][3]});
    return text + "]";
}

} // namespace mayasim::math
