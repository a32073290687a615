#pragma once
#include <maya/MTypes.h>
#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A colour (r, g, b, a) of floats.
class OPENMAYA_EXPORT MColor
{
public:
    enum MColorType
    {
        kRGB,
        kHSV,
        kCMY,
        kCMYK
    };

    MColor();
    MColor(const MColor& src);
    MColor(float rr, float gg, float bb = 0.0, float aa = 1.0);
    MColor(const float d[3]);
    MColor(float alpha);
    ~MColor();
    MColor& operator=(const MColor& src);
    float operator()(unsigned int i) const;
    float operator[](unsigned int i) const;
    MColor& operator*=(float scalar);
    MColor operator*(float scalar) const;
    MColor& operator*=(const MColor& other);
    MColor operator*(const MColor& other) const;
    MColor& operator/=(float scalar);
    MColor operator/(float scalar) const;
    MColor& operator+=(const MColor& other);
    MColor operator+(const MColor& other) const;
    MColor operator-() const;
    MColor operator-(const MColor& other) const;
    bool operator==(const MColor& other) const;
    bool operator!=(const MColor& other) const;
    bool get(float d[3]) const;

BEGIN_NO_SCRIPT_SUPPORT:
    float& operator()(unsigned int i);
    float& operator[](unsigned int i);
    friend OPENMAYA_EXPORT MColor operator*(float scalar, const MColor& other);
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MColor& c);
END_NO_SCRIPT_SUPPORT:

    static const MColor kOpaqueBlack;

    float r;
    float g;
    float b;
    float a;
};

OPENMAYA_NAMESPACE_CLOSE
