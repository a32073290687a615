#pragma once
// Matchers and literal builders shared by the math tests.
#include <maya/MMatrix.h>

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <sstream>

namespace mathtest {

constexpr double kPi = 3.14159265358979323846;

inline double degrees(double d)
{
    return d * kPi / 180.0;
}

// A matrix written out row by row.
inline MMatrix rows(std::initializer_list<std::initializer_list<double>> values)
{
    MMatrix m;
    int r = 0;
    for (const auto& row : values)
    {
        int c = 0;
        for (double v : row)
            m[r][c++] = v;
        ++r;
    }
    return m;
}

inline MMatrix translate(double x, double y, double z)
{
    return rows({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {x, y, z, 1}});
}

// Maya's documented single-axis rotations for row vectors.
inline MMatrix rotateX(double a)
{
    const double c = std::cos(a), s = std::sin(a);
    return rows({{1, 0, 0, 0}, {0, c, s, 0}, {0, -s, c, 0}, {0, 0, 0, 1}});
}

inline MMatrix rotateY(double a)
{
    const double c = std::cos(a), s = std::sin(a);
    return rows({{c, 0, -s, 0}, {0, 1, 0, 0}, {s, 0, c, 0}, {0, 0, 0, 1}});
}

inline MMatrix rotateZ(double a)
{
    const double c = std::cos(a), s = std::sin(a);
    return rows({{c, s, 0, 0}, {-s, c, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}});
}

inline ::testing::AssertionResult matricesNear(const MMatrix& actual, const MMatrix& expected, double tolerance = 1e-9)
{
    if (actual.isEquivalent(expected, tolerance))
        return ::testing::AssertionSuccess();
    std::ostringstream text;
    text << "actual " << actual << "\nexpected " << expected;
    return ::testing::AssertionFailure() << text.str();
}

} // namespace mathtest
