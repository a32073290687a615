#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! An angle in a unit; Maya's internal angle unit is radians.
class OPENMAYA_EXPORT MAngle
{
public:
    enum Unit
    {
        kInvalid,
        kRadians,
        kDegrees,
        kAngMinutes,
        kAngSeconds,
        kLast
    };

    MAngle();
    MAngle(const MAngle& src);
    MAngle(double value, Unit u = kRadians);
    ~MAngle();

    MAngle& operator=(const MAngle& other);

    Unit unit() const;
    double value() const;
    MStatus setUnit(Unit newUnit);
    MStatus setValue(double newValue);

BEGIN_NO_SCRIPT_SUPPORT:
    double as(Unit otherUnit, MStatus* ReturnStatus = NULL) const;
END_NO_SCRIPT_SUPPORT:

    double asUnits(Unit otherUnit, MStatus* ReturnStatus = NULL) const;
    double asRadians() const;
    double asDegrees() const;
    double asAngMinutes() const;
    double asAngSeconds() const;

    static Unit uiUnit();
    static MStatus setUIUnit(Unit newUnit);

    static Unit internalUnit();
    static double internalToUI(double internalValue);
    static double uiToInternal(double uiValue);

    static const char* className();

protected:
    double val;
    Unit valUnit;
};

OPENMAYA_NAMESPACE_CLOSE
