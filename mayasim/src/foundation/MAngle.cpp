#include <maya/MAngle.h>

#include "MatrixMath.h"
#include "Units.h"

using namespace mayasim;

namespace {

// Radians per unit, by MAngle::Unit.
const double kRadiansPer[] = {0.0, 1.0, math::kPi / 180.0, math::kPi / 10800.0, math::kPi / 648000.0};

MAngle::Unit gUiUnit = MAngle::kDegrees;

} // namespace

MAngle::MAngle() : val(0.0), valUnit(kRadians) {}
MAngle::MAngle(const MAngle&) = default;
MAngle::MAngle(double value, Unit u) : val(value), valUnit(u) {}
MAngle::~MAngle() = default;
MAngle& MAngle::operator=(const MAngle&) = default;

MAngle::Unit MAngle::unit() const
{
    return valUnit;
}

double MAngle::value() const
{
    return val;
}

// The number stays; it is read in the new unit.
MStatus MAngle::setUnit(Unit newUnit)
{
    if (!validUnit(newUnit, kRadiansPer))
        return MS::kInvalidParameter;
    valUnit = newUnit;
    return MS::kSuccess;
}

MStatus MAngle::setValue(double newValue)
{
    val = newValue;
    return MS::kSuccess;
}

double MAngle::as(Unit otherUnit, MStatus* ReturnStatus) const
{
    return convertUnits(val, valUnit, otherUnit, kRadiansPer, ReturnStatus);
}

double MAngle::asUnits(Unit otherUnit, MStatus* ReturnStatus) const
{
    return as(otherUnit, ReturnStatus);
}

double MAngle::asRadians() const
{
    return as(kRadians);
}

double MAngle::asDegrees() const
{
    return as(kDegrees);
}

double MAngle::asAngMinutes() const
{
    return as(kAngMinutes);
}

double MAngle::asAngSeconds() const
{
    return as(kAngSeconds);
}

MAngle::Unit MAngle::uiUnit()
{
    return gUiUnit;
}

MStatus MAngle::setUIUnit(Unit newUnit)
{
    if (!validUnit(newUnit, kRadiansPer))
        return MS::kInvalidParameter;
    gUiUnit = newUnit;
    return MS::kSuccess;
}

MAngle::Unit MAngle::internalUnit()
{
    return kRadians;
}

double MAngle::internalToUI(double internalValue)
{
    return MAngle(internalValue, internalUnit()).as(uiUnit());
}

double MAngle::uiToInternal(double uiValue)
{
    return MAngle(uiValue, uiUnit()).as(internalUnit());
}

const char* MAngle::className()
{
    return "MAngle";
}
