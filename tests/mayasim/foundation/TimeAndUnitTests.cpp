#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MTime.h>

#include "MathTestSupport.h"

using mathtest::kPi;

namespace {

// Restores the UI unit a test changes.
template <typename T>
struct UiUnitGuard
{
    typename T::Unit saved = T::uiUnit();
    ~UiUnitGuard() { T::setUIUnit(saved); }
};

} // namespace

TEST(Time, UnitEnumerationHasMayaValues)
{
    EXPECT_EQ(MTime::kSeconds, 3);
    EXPECT_EQ(MTime::kGames, 5);
    EXPECT_EQ(MTime::k15FPS, MTime::kGames);
    EXPECT_EQ(MTime::kFilm, 6);
    EXPECT_EQ(MTime::k24FPS, MTime::kFilm);
    EXPECT_EQ(MTime::kPALFrame, 7);
    EXPECT_EQ(MTime::kNTSCFrame, 8);
    EXPECT_EQ(MTime::kShowScan, 9);
    EXPECT_EQ(MTime::kPALField, 10);
    EXPECT_EQ(MTime::kNTSCField, 11);
    EXPECT_EQ(MTime::k2FPS, 12);
    EXPECT_EQ(MTime::k10FPS, 18);
    EXPECT_EQ(MTime::k100FPS, 25);
    EXPECT_EQ(MTime::k3000FPS, 41);
    EXPECT_EQ(MTime::k23_976FPS, 43);
    EXPECT_EQ(MTime::k29_97FPS, 44);
    EXPECT_EQ(MTime::k29_97DF, 45);
    EXPECT_EQ(MTime::k47_952FPS, 46);
    EXPECT_EQ(MTime::k59_94FPS, 47);
    EXPECT_EQ(MTime::k44100FPS, 48);
    EXPECT_EQ(MTime::k48000FPS, 49);
    EXPECT_EQ(MTime::k90FPS, 50);
}

TEST(Time, ConvertsBetweenUnits)
{
    const MTime second(1.0, MTime::kSeconds);
    EXPECT_EQ(second.as(MTime::kFilm), 24.0);
    EXPECT_EQ(second.as(MTime::kNTSCFrame), 30.0);
    EXPECT_EQ(second.as(MTime::kPALFrame), 25.0);
    EXPECT_EQ(second.as(MTime::k6000FPS), 6000.0);
    EXPECT_EQ(second.as(MTime::kMilliseconds), 1000.0);
    EXPECT_EQ(second.as(MTime::k44100FPS), 44100.0);
    EXPECT_EQ(MTime(1.0, MTime::kHours).as(MTime::kMinutes), 60.0);
    EXPECT_DOUBLE_EQ(second.as(MTime::k29_97FPS), 30000.0 / 1001.0);
    EXPECT_DOUBLE_EQ(MTime(30.0, MTime::k29_97FPS).as(MTime::kSeconds), 1.001);
    EXPECT_DOUBLE_EQ(MTime(24.0, MTime::k23_976FPS).as(MTime::kFilm), 24.024);
    EXPECT_EQ(second.asUnits(MTime::kShowScan), 48.0);
}

TEST(Time, WholeFramesStayWholeThroughOtherUnits)
{
    // value() is truncated to a frame number: it must not come back as 6.999...
    MTime t(7.0, MTime::kFilm);
    EXPECT_EQ(t.value(), 7.0);
    ASSERT_EQ(t.setUnit(MTime::kNTSCFrame), MS::kSuccess);
    EXPECT_EQ(t.value(), 8.75);
    t.setUnit(MTime::k29_97FPS);
    t.setUnit(MTime::kFilm);
    EXPECT_EQ(t.value(), 7.0);
    EXPECT_EQ(t.unit(), MTime::kFilm);
    EXPECT_EQ(MTime(0.1, MTime::kFilm).value(), 0.1);
}

TEST(Time, ArithmeticKeepsTheLeftUnit)
{
    const MTime sum = MTime(10.0, MTime::kFilm) + MTime(1.0, MTime::kSeconds);
    EXPECT_EQ(sum.unit(), MTime::kFilm);
    EXPECT_EQ(sum.value(), 34.0);
    EXPECT_EQ((MTime(1.0, MTime::kSeconds) - MTime(12.0, MTime::kFilm)).value(), 0.5);
    EXPECT_EQ((MTime(3.0, MTime::kNTSCFrame) + 2.5).value(), 5.5);
    EXPECT_EQ((MTime(3.0, MTime::kNTSCFrame) - 4.0).value(), -1.0);
    EXPECT_EQ((MTime(3.0, MTime::kFilm) * 2.5).value(), 7.5);
    EXPECT_EQ((MTime(3.0, MTime::kFilm) / 2.0).value(), 1.5);

    MTime t(1.0, MTime::kNTSCFrame);
    ++t;
    t++;
    EXPECT_EQ(t.value(), 3.0);
    --t;
    EXPECT_EQ(t.value(), 2.0);
    t += 0.5;
    t -= MTime(1.0, MTime::kNTSCField);
    EXPECT_EQ(t.value(), 2.0);
}

TEST(Time, ComparesTheInstantAcrossUnits)
{
    EXPECT_EQ(MTime(1.0, MTime::kSeconds), MTime(24.0, MTime::kFilm));
    EXPECT_NE(MTime(1.0, MTime::kSeconds), MTime(24.0, MTime::kNTSCFrame));
    EXPECT_LT(MTime(24.0, MTime::kFilm), MTime(31.0, MTime::kNTSCFrame));
    EXPECT_GT(MTime(2.0, MTime::kSeconds), MTime(47.0, MTime::kFilm));
    EXPECT_LE(MTime(25.0, MTime::kPALFrame), MTime(1.0, MTime::kSeconds));
    EXPECT_GE(MTime(25.0, MTime::kPALFrame), MTime(1.0, MTime::kSeconds));
}

TEST(Time, UiUnitIsFilmUntilChanged)
{
    UiUnitGuard<MTime> guard;
    EXPECT_EQ(MTime::uiUnit(), MTime::kFilm);
    EXPECT_EQ(MTime().unit(), MTime::kFilm);
    EXPECT_EQ(MTime().value(), 0.0);
    ASSERT_EQ(MTime::setUIUnit(MTime::kNTSCFrame), MS::kSuccess);
    EXPECT_EQ(MTime().unit(), MTime::kNTSCFrame);
    EXPECT_EQ(MTime(1.0, MTime::kSeconds).as(MTime::uiUnit()), 30.0);
    EXPECT_EQ(MTime::setUIUnit(MTime::kInvalid), MS::kInvalidParameter);
    EXPECT_EQ(MTime::setUIUnit(MTime::kUserDef), MS::kInvalidParameter);
    EXPECT_EQ(MTime::uiUnit(), MTime::kNTSCFrame);
}

TEST(Time, SetValueReadsInTheOwnUnit)
{
    MTime t(5.0, MTime::kPALFrame);
    t.setValue(50.0);
    EXPECT_EQ(t.as(MTime::kSeconds), 2.0);
    EXPECT_EQ(t.setUnit(MTime::kLast), MS::kInvalidParameter);
    EXPECT_EQ(t.unit(), MTime::kPALFrame);
}

TEST(Angle, ConvertsBetweenUnits)
{
    EXPECT_DOUBLE_EQ(MAngle(180.0, MAngle::kDegrees).asRadians(), kPi);
    EXPECT_DOUBLE_EQ(MAngle(kPi / 2.0).asDegrees(), 90.0);
    EXPECT_DOUBLE_EQ(MAngle(1.0, MAngle::kDegrees).asAngMinutes(), 60.0);
    EXPECT_DOUBLE_EQ(MAngle(1.0, MAngle::kDegrees).asAngSeconds(), 3600.0);
    EXPECT_DOUBLE_EQ(MAngle(90.0, MAngle::kDegrees).as(MAngle::kRadians), kPi / 2.0);
    EXPECT_EQ(MAngle(2.0).unit(), MAngle::kRadians);
    EXPECT_EQ(MAngle(2.0).value(), 2.0);
    MStatus status;
    MAngle(1.0).as(MAngle::kInvalid, &status);
    EXPECT_EQ(status, MS::kInvalidParameter);
}

TEST(Angle, InternalUnitIsRadiansUiUnitDegrees)
{
    UiUnitGuard<MAngle> guard;
    EXPECT_EQ(MAngle::internalUnit(), MAngle::kRadians);
    EXPECT_EQ(MAngle::uiUnit(), MAngle::kDegrees);
    EXPECT_DOUBLE_EQ(MAngle::internalToUI(kPi), 180.0);
    EXPECT_DOUBLE_EQ(MAngle::uiToInternal(45.0), kPi / 4.0);
    ASSERT_EQ(MAngle::setUIUnit(MAngle::kRadians), MS::kSuccess);
    EXPECT_DOUBLE_EQ(MAngle::internalToUI(1.5), 1.5);
}

TEST(Distance, ConvertsBetweenUnits)
{
    EXPECT_DOUBLE_EQ(MDistance(1.0, MDistance::kInches).asCentimeters(), 2.54);
    EXPECT_DOUBLE_EQ(MDistance(1.0, MDistance::kFeet).asInches(), 12.0);
    EXPECT_DOUBLE_EQ(MDistance(1.0, MDistance::kYards).asFeet(), 3.0);
    EXPECT_DOUBLE_EQ(MDistance(1.0, MDistance::kMiles).asKilometers(), 1.609344);
    EXPECT_DOUBLE_EQ(MDistance(1.0, MDistance::kMeters).asMillimeters(), 1000.0);
    EXPECT_DOUBLE_EQ(MDistance(250.0).asMeters(), 2.5);
    EXPECT_DOUBLE_EQ(MDistance(3.0, MDistance::kKilometers).asMiles(), 3.0 / 1.609344);
    EXPECT_DOUBLE_EQ(MDistance(1.0, MDistance::kMeters).asYards(), 100.0 / 91.44);
}

TEST(Distance, InternalUnitIsCentimetres)
{
    UiUnitGuard<MDistance> guard;
    EXPECT_EQ(MDistance::internalUnit(), MDistance::kCentimeters);
    EXPECT_EQ(MDistance::uiUnit(), MDistance::kCentimeters);
    ASSERT_EQ(MDistance::setUIUnit(MDistance::kMeters), MS::kSuccess);
    EXPECT_DOUBLE_EQ(MDistance::internalToUI(250.0), 2.5);
    EXPECT_DOUBLE_EQ(MDistance::uiToInternal(2.5), 250.0);
    EXPECT_EQ(MDistance::setUIUnit(MDistance::kLast), MS::kInvalidParameter);
}
