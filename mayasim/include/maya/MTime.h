#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <iosfwd>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A time: a whole number of ticks (141,120,000 per second, as Maya counts
//! time) shown in a unit. value() is the time in that unit.
class OPENMAYA_EXPORT MTime
{
public:
    enum Unit
    {
        kInvalid,
        kHours,
        kMinutes,
        kSeconds,
        kMilliseconds,
        kGames,
        k15FPS = kGames,
        kFilm,
        k24FPS = kFilm,
        kPALFrame,
        k25FPS = kPALFrame,
        kNTSCFrame,
        k30FPS = kNTSCFrame,
        kShowScan,
        k48FPS = kShowScan,
        kPALField,
        k50FPS = kPALField,
        kNTSCField,
        k60FPS = kNTSCField,
        k2FPS,
        k3FPS,
        k4FPS,
        k5FPS,
        k6FPS,
        k8FPS,
        k10FPS,
        k12FPS,
        k16FPS,
        k20FPS,
        k40FPS,
        k75FPS,
        k80FPS,
        k100FPS,
        k120FPS,
        k125FPS,
        k150FPS,
        k200FPS,
        k240FPS,
        k250FPS,
        k300FPS,
        k375FPS,
        k400FPS,
        k500FPS,
        k600FPS,
        k750FPS,
        k1200FPS,
        k1500FPS,
        k2000FPS,
        k3000FPS,
        k6000FPS,
        k23_976FPS,
        k29_97FPS,
        k29_97DF,
        k47_952FPS,
        k59_94FPS,
        k44100FPS,
        k48000FPS,
        k90FPS,
        kUserDef,
        kLast
    };

    MTime();
    MTime(const MTime&);
    MTime(double time_val, Unit = kFilm);
    ~MTime();
    Unit unit() const;
    double value() const;
    MStatus setUnit(Unit new_unit);
    MStatus setValue(double new_value);
    double as(Unit other_unit) const;
    double asUnits(Unit other_unit) const;
    static Unit uiUnit();
    static MStatus setUIUnit(Unit new_unit);

    MTime& operator=(const MTime& rhs);
    bool operator==(const MTime& rhs) const;
    bool operator!=(const MTime& rhs) const;
    bool operator<=(const MTime& rhs) const;
    bool operator>=(const MTime& rhs) const;
    bool operator<(const MTime& rhs) const;
    bool operator>(const MTime& rhs) const;
    MTime operator+(const MTime& rhs) const;
    MTime& operator+=(const MTime& rhs);
    MTime operator+(double rhs) const;
    MTime& operator+=(double rhs);
    MTime& operator++();
    MTime& operator++(int);
    MTime operator-(const MTime& rhs) const;
    MTime& operator-=(const MTime& rhs);
    MTime operator-(double rhs) const;
    MTime& operator-=(double rhs);
    MTime& operator--();
    MTime& operator--(int);
    MTime operator*(double rhs) const;
    MTime& operator*=(double rhs);
    MTime operator/(double rhs) const;
    MTime& operator/=(double rhs);

BEGIN_NO_SCRIPT_SUPPORT:
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MTime& t);
END_NO_SCRIPT_SUPPORT:

    static const char* className();

private:
    int64_t fTicks;
    Unit fUnit;
};

OPENMAYA_NAMESPACE_CLOSE
