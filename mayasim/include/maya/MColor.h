#pragma once
#include <maya/MTypes.h>
#include <iosfwd>

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
    MColor(MColorType colorModel, unsigned char c1, unsigned char c2, unsigned char c3, unsigned char alpha = 255U);
    MColor(MColorType colorModel, unsigned short c1, unsigned short c2, unsigned short c3,
           unsigned short alpha = 65535U);
    MColor(MColorType colorModel, float c1, float c2, float c3, float alpha = 1.0);
    MColor(MColorType colorModel, double c1, double c2, double c3, double alpha = 1.0);
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
    bool get(MColorType colorModel, float&, float&, float&) const;
    bool get(MColorType colorModel, float&, float&, float&, float& alpha) const;
    bool set(MColorType colorModel, float, float, float, float alpha = 1.0);

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
