#pragma once
// Conversion between the units of MAngle and MDistance: each unit is a
// factor onto the internal unit; a zero factor marks an invalid unit.
#include <maya/MStatus.h>

#include <cstddef>

namespace mayasim {

template <typename Unit, std::size_t N>
bool validUnit(Unit unit, const double (&factors)[N])
{
    return static_cast<std::size_t>(unit) < N && factors[unit] != 0.0;
}

template <typename Unit, std::size_t N>
double convertUnits(double value, Unit from, Unit to, const double (&factors)[N], MStatus* status)
{
    const bool valid = validUnit(from, factors) && validUnit(to, factors);
    if (status)
        *status = valid ? MS::kSuccess : MS::kInvalidParameter;
    return valid ? value * factors[from] / factors[to] : 0.0;
}

} // namespace mayasim
