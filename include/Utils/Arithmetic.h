#pragma once
#include <maya/MEulerRotation.h>
#include <maya/MQuaternion.h>
#include <maya/MTime.h>
#include <maya/MVector.h>

#include <climits>
#include <cmath>

// Small formulas shared by the blends.
inline double lerp(double a, double b, double t) { return a + (b - a) * t; }

inline MVector lerp(const MVector& a, const MVector& b, double t) { return a + (b - a) * t; }

inline double lineThrough(double x, double x0, double y0, double m) { return (x - x0) * m + y0; }

// No clamp: values outside the input range extrapolate.
inline double remap(double x, double inMin, double inMax, double outMin, double outMax)
{
    if (std::fabs(inMax - inMin) < 1e-10)
        return outMin;
    return (x - inMin) / (inMax - inMin) * (outMax - outMin) + outMin;
}

inline double slope(double x1, double y1, double x2, double y2)
{
    if (!(std::fabs(x2 - x1) > 1e-10))
        return 0.0;
    return (y2 - y1) / (x2 - x1);
}

inline bool withinRange(double v, double lo, double hi) { return v >= lo && hi >= v; }

inline bool timeInRange(const MTime& t, const MTime& start, const MTime& end)
{
    return withinRange(t.value(), start.value(), end.value());
}

// v truncated toward zero, or the fallback where that is no int (NaN, or
// beyond the range): a cast there would be undefined.
inline int truncatedInt(double v, int fallback)
{
    if (!(v > static_cast<double>(INT_MIN) - 1.0 && v < static_cast<double>(INT_MAX) + 1.0))
        return fallback;
    return static_cast<int>(v);
}

// The Euler angles (radians, in the order) of a rotation that lie nearest
// to near: whole turns added or taken per channel, and the alternate
// solution considered, as Maya's Euler filter does. A matrix or quaternion
// alone gives the principal angles, which would turn a channel keyed at 270
// degrees into -90.
inline MVector nearestEuler(const MQuaternion& rotation, MEulerRotation::RotationOrder order, const MVector& near)
{
    return rotation.asEulerRotation().reorderIt(order).closestSolution(MEulerRotation(near, order)).asVector();
}
