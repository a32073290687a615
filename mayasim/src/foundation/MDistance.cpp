#include <maya/MDistance.h>

#include "Units.h"

using namespace mayasim;

namespace {

// Centimetres per unit, by MDistance::Unit.
const double kCentimetresPer[] = {0.0, 2.54, 30.48, 91.44, 160934.4, 0.1, 1.0, 100000.0, 100.0};

MDistance::Unit gUiUnit = MDistance::kCentimeters;

} // namespace

MDistance::MDistance() : val(0.0), valUnit(kCentimeters) {}
MDistance::MDistance(double value, Unit unitSystem) : val(value), valUnit(unitSystem) {}
MDistance::MDistance(const MDistance&) = default;
MDistance::~MDistance() = default;
MDistance& MDistance::operator=(const MDistance&) = default;

MDistance::Unit MDistance::unit() const
{
    return valUnit;
}

double MDistance::value() const
{
    return val;
}

// The number stays; it is read in the new unit.
MStatus MDistance::setUnit(Unit newUnit)
{
    if (!validUnit(newUnit, kCentimetresPer))
        return MS::kInvalidParameter;
    valUnit = newUnit;
    return MS::kSuccess;
}

MStatus MDistance::setValue(double newValue)
{
    val = newValue;
    return MS::kSuccess;
}

double MDistance::as(Unit newUnit, MStatus* ReturnStatus) const
{
    return convertUnits(val, valUnit, newUnit, kCentimetresPer, ReturnStatus);
}

double MDistance::asUnits(Unit newUnit, MStatus* ReturnStatus) const
{
    return as(newUnit, ReturnStatus);
}

double MDistance::asInches() const { return as(kInches); }
double MDistance::asFeet() const { return as(kFeet); }
double MDistance::asYards() const { return as(kYards); }
double MDistance::asMiles() const { return as(kMiles); }
double MDistance::asMillimeters() const { return as(kMillimeters); }
double MDistance::asCentimeters() const { return as(kCentimeters); }
double MDistance::asKilometers() const { return as(kKilometers); }
double MDistance::asMeters() const { return as(kMeters); }

MDistance::Unit MDistance::uiUnit()
{
    return gUiUnit;
}

MStatus MDistance::setUIUnit(Unit newUnit)
{
    if (!validUnit(newUnit, kCentimetresPer))
        return MS::kInvalidParameter;
    gUiUnit = newUnit;
    return MS::kSuccess;
}

MDistance::Unit MDistance::internalUnit()
{
    return kCentimeters;
}

double MDistance::internalToUI(double internalValue)
{
    return MDistance(internalValue, internalUnit()).as(uiUnit());
}

double MDistance::uiToInternal(double uiValue)
{
    return MDistance(uiValue, uiUnit()).as(internalUnit());
}

const char* MDistance::className()
{
    return "MDistance";
}
