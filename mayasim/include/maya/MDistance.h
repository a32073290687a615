#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A distance in a unit; Maya's internal distance unit is centimetres.
class OPENMAYA_EXPORT MDistance
{
public:
    enum Unit
    {
        kInvalid,
        kInches,
        kFeet,
        kYards,
        kMiles,
        kMillimeters,
        kCentimeters,
        kKilometers,
        kMeters,
        kLast
    };
    MDistance();
    MDistance(double value, Unit unitSystem = kCentimeters);
    MDistance(const MDistance& src);
    ~MDistance();
    MDistance& operator=(const MDistance& src);
    Unit unit() const;
    double value() const;
    MStatus setUnit(Unit newUnit);
    MStatus setValue(double newValue);

BEGIN_NO_SCRIPT_SUPPORT:
    double as(Unit newUnit, MStatus* ReturnStatus = NULL) const;
END_NO_SCRIPT_SUPPORT:

    double asUnits(Unit newUnit, MStatus* ReturnStatus = NULL) const;
    double asInches() const;
    double asFeet() const;
    double asYards() const;
    double asMiles() const;
    double asMillimeters() const;
    double asCentimeters() const;
    double asKilometers() const;
    double asMeters() const;
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
