#include <maya/MColor.h>

#include "MatrixMath.h"

#include <ostream>

using namespace mayasim;

const MColor MColor::kOpaqueBlack;

MColor::MColor() : r(0.0F), g(0.0F), b(0.0F), a(1.0F) {}
MColor::MColor(const MColor&) = default;
MColor::MColor(float rr, float gg, float bb, float aa) : r(rr), g(gg), b(bb), a(aa) {}
MColor::MColor(const float d[3]) : r(d[0]), g(d[1]), b(d[2]), a(1.0F) {}
MColor::MColor(float alpha) : r(0.0F), g(0.0F), b(0.0F), a(alpha) {}
MColor::~MColor() = default;
MColor& MColor::operator=(const MColor&) = default;

float MColor::operator()(unsigned int i) const
{
    return (*this)[i];
}

float MColor::operator[](unsigned int i) const
{
    return i == 0 ? r : i == 1 ? g : i == 2 ? b : a;
}

float& MColor::operator()(unsigned int i)
{
    return (*this)[i];
}

float& MColor::operator[](unsigned int i)
{
    return i == 0 ? r : i == 1 ? g : i == 2 ? b : a;
}

// Arithmetic works on all four channels.
MColor& MColor::operator*=(float scalar)
{
    return *this *= MColor(scalar, scalar, scalar, scalar);
}

MColor MColor::operator*(float scalar) const
{
    return MColor(*this) *= scalar;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
MColor operator*(float scalar, const MColor& other)
{
    return other * scalar;
}
OPENMAYA_NAMESPACE_CLOSE

MColor& MColor::operator*=(const MColor& other)
{
    r *= other.r;
    g *= other.g;
    b *= other.b;
    a *= other.a;
    return *this;
}

MColor MColor::operator*(const MColor& other) const
{
    return MColor(*this) *= other;
}

MColor& MColor::operator/=(float scalar)
{
    return *this *= 1.0F / scalar;
}

MColor MColor::operator/(float scalar) const
{
    return MColor(*this) /= scalar;
}

MColor& MColor::operator+=(const MColor& other)
{
    r += other.r;
    g += other.g;
    b += other.b;
    a += other.a;
    return *this;
}

MColor MColor::operator+(const MColor& other) const
{
    return MColor(*this) += other;
}

MColor MColor::operator-() const
{
    return MColor(-r, -g, -b, -a);
}

MColor MColor::operator-(const MColor& other) const
{
    return *this + -other;
}

bool MColor::operator==(const MColor& other) const
{
    return r == other.r && g == other.g && b == other.b && a == other.a;
}

bool MColor::operator!=(const MColor& other) const
{
    return !(*this == other);
}

bool MColor::get(float d[3]) const
{
    d[0] = r;
    d[1] = g;
    d[2] = b;
    return true;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& os, const MColor& c)
{
    return os << math::listText({c.r, c.g, c.b, c.a});
}
OPENMAYA_NAMESPACE_CLOSE
