#include <maya/MTime.h>

#include "NumberText.h"

#include <cmath>
#include <ostream>

namespace {

// Maya counts time in ticks of 1/141,120,000 s: every unit below is a
// whole number of ticks, so whole frames convert exactly.
constexpr int64_t kTicksPerSecond = 141120000;

constexpr int64_t perFrame(int64_t framesPerSecond, int64_t divisor = 1)
{
    return kTicksPerSecond * divisor / framesPerSecond;
}

// Ticks per unit, by MTime::Unit; 0 for kInvalid and kUserDef.
constexpr int64_t kTicksPer[] = {
    0,                                                             // kInvalid
    3600 * kTicksPerSecond, 60 * kTicksPerSecond, kTicksPerSecond, // hours, minutes, seconds
    kTicksPerSecond / 1000,                                        // milliseconds
    perFrame(15), perFrame(24), perFrame(25), perFrame(30), perFrame(48), perFrame(50), perFrame(60),
    perFrame(2), perFrame(3), perFrame(4), perFrame(5), perFrame(6), perFrame(8), perFrame(10), perFrame(12),
    perFrame(16), perFrame(20), perFrame(40), perFrame(75), perFrame(80), perFrame(100), perFrame(120),
    perFrame(125), perFrame(150), perFrame(200), perFrame(240), perFrame(250), perFrame(300), perFrame(375),
    perFrame(400), perFrame(500), perFrame(600), perFrame(750), perFrame(1200), perFrame(1500), perFrame(2000),
    perFrame(3000), perFrame(6000),
    perFrame(24000, 1001), perFrame(30000, 1001), perFrame(30000, 1001), // 23.976, 29.97, 29.97 drop frame
    perFrame(48000, 1001), perFrame(60000, 1001),                        // 47.952, 59.94
    perFrame(44100), perFrame(48000), perFrame(90),
    0, // kUserDef
};
static_assert(sizeof(kTicksPer) / sizeof(kTicksPer[0]) == MTime::kLast, "one entry per MTime::Unit");

int64_t ticksPer(MTime::Unit unit)
{
    return unit > MTime::kInvalid && unit < MTime::kLast ? kTicksPer[unit] : 0;
}

int64_t toTicks(double value, MTime::Unit unit)
{
    return std::llround(value * static_cast<double>(ticksPer(unit)));
}

MTime::Unit gUiUnit = MTime::kFilm;

} // namespace

MTime::MTime() : fTicks(0), fUnit(uiUnit()) {}
MTime::MTime(const MTime&) = default;
MTime::MTime(double time_val, Unit unit) : fTicks(toTicks(time_val, unit)), fUnit(unit) {}
MTime::~MTime() = default;
MTime& MTime::operator=(const MTime&) = default;

MTime::Unit MTime::unit() const
{
    return fUnit;
}

double MTime::value() const
{
    return as(fUnit);
}

// The time stays; only the unit it is read in changes.
MStatus MTime::setUnit(Unit new_unit)
{
    if (ticksPer(new_unit) == 0)
        return MS::kInvalidParameter;
    fUnit = new_unit;
    return MS::kSuccess;
}

MStatus MTime::setValue(double new_value)
{
    fTicks = toTicks(new_value, fUnit);
    return MS::kSuccess;
}

double MTime::as(Unit other_unit) const
{
    const int64_t per = ticksPer(other_unit);
    return per ? static_cast<double>(fTicks) / static_cast<double>(per) : 0.0;
}

double MTime::asUnits(Unit other_unit) const
{
    return as(other_unit);
}

MTime::Unit MTime::uiUnit()
{
    return gUiUnit;
}

MStatus MTime::setUIUnit(Unit new_unit)
{
    if (ticksPer(new_unit) == 0)
        return MS::kInvalidParameter;
    gUiUnit = new_unit;
    return MS::kSuccess;
}

bool MTime::operator==(const MTime& rhs) const { return fTicks == rhs.fTicks; }
bool MTime::operator!=(const MTime& rhs) const { return fTicks != rhs.fTicks; }
bool MTime::operator<=(const MTime& rhs) const { return fTicks <= rhs.fTicks; }
bool MTime::operator>=(const MTime& rhs) const { return fTicks >= rhs.fTicks; }
bool MTime::operator<(const MTime& rhs) const { return fTicks < rhs.fTicks; }
bool MTime::operator>(const MTime& rhs) const { return fTicks > rhs.fTicks; }

// Results keep the left operand's unit; plain numbers count in that unit.
MTime& MTime::operator+=(const MTime& rhs)
{
    fTicks += rhs.fTicks;
    return *this;
}

MTime MTime::operator+(const MTime& rhs) const
{
    return MTime(*this) += rhs;
}

MTime& MTime::operator+=(double rhs)
{
    fTicks += toTicks(rhs, fUnit);
    return *this;
}

MTime MTime::operator+(double rhs) const
{
    return MTime(*this) += rhs;
}

MTime& MTime::operator++()
{
    return *this += 1.0;
}

MTime& MTime::operator++(int)
{
    return *this += 1.0;
}

MTime& MTime::operator-=(const MTime& rhs)
{
    fTicks -= rhs.fTicks;
    return *this;
}

MTime MTime::operator-(const MTime& rhs) const
{
    return MTime(*this) -= rhs;
}

MTime& MTime::operator-=(double rhs)
{
    return *this += -rhs;
}

MTime MTime::operator-(double rhs) const
{
    return MTime(*this) -= rhs;
}

MTime& MTime::operator--()
{
    return *this -= 1.0;
}

MTime& MTime::operator--(int)
{
    return *this -= 1.0;
}

MTime& MTime::operator*=(double rhs)
{
    fTicks = std::llround(static_cast<double>(fTicks) * rhs);
    return *this;
}

MTime MTime::operator*(double rhs) const
{
    return MTime(*this) *= rhs;
}

MTime& MTime::operator/=(double rhs)
{
    fTicks = std::llround(static_cast<double>(fTicks) / rhs);
    return *this;
}

MTime MTime::operator/(double rhs) const
{
    return MTime(*this) /= rhs;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& os, const MTime& t)
{
    return os << mayasim::doubleText(t.value());
}
OPENMAYA_NAMESPACE_CLOSE

const char* MTime::className()
{
    return "MTime";
}
