// MFnAnimCurve on anim curve nodes: creating a curve for a plug, units,
// tangent angles as the UI shows them, refused edits, and MAnimCurveChange.
#include "../dg/DgTest.h"

#include <maya/MAnimCurveChange.h>
#include <maya/MDGContext.h>
#include <maya/MDGContextGuard.h>
#include <maya/MDGModifier.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MPlug.h>

#include <cmath>

using namespace dgtest;

namespace {

constexpr double kPi = 3.14159265358979323846;

MTime frame(double value)
{
    return MTime(value, MTime::kFilm);
}

class AnimCurveFn : public DgTest
{
protected:
    void SetUp() override
    {
        DgTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n box"));
    }

    // A curve on box.<attribute> with keys at frames 0 and 24.
    MObject keyed(const char* attribute, double first, double last, MFnAnimCurve::TangentType type)
    {
        MFnAnimCurve curve;
        MObject node = curve.create(plugNamed(std::string("box.") + attribute));
        curve.addKey(frame(0), first, type, type);
        curve.addKey(frame(24), last, type, type);
        return node;
    }
};

} // namespace

TEST_F(AnimCurveFn, CreateForAPlugPicksTheTypeNamesTheCurveAndDrivesThePlug)
{
    MStatus status;
    MFnAnimCurve curve;
    MObject node = curve.create(plugNamed("box.tx"), nullptr, &status);
    ASSERT_TRUE(status);
    EXPECT_EQ(curve.animCurveType(), MFnAnimCurve::kAnimCurveTL);
    EXPECT_EQ(curve.name(), MString("box_translateX"));
    EXPECT_TRUE(node.hasFn(MFn::kAnimCurveTimeToDistance));
    EXPECT_TRUE(curve.isTimeInput());
    EXPECT_TRUE(plugNamed("box.tx").isDestination());
    EXPECT_EQ(MFnAnimCurve(plugNamed("box.tx")).object(), node);

    MFnAnimCurve rotation;
    rotation.create(plugNamed("box.rz"));
    EXPECT_EQ(rotation.animCurveType(), MFnAnimCurve::kAnimCurveTA);
    MFnAnimCurve scale;
    scale.create(plugNamed("box.sy"));
    EXPECT_EQ(scale.animCurveType(), MFnAnimCurve::kAnimCurveTU);

    // A plug driven already, or locked, gets no curve.
    MFnAnimCurve again;
    again.create(plugNamed("box.tx"), nullptr, &status);
    EXPECT_EQ(status, MS::kFailure);
    ASSERT_TRUE(mel("setAttr -l on box.ty"));
    again.create(plugNamed("box.ty"), nullptr, &status);
    EXPECT_EQ(status, MS::kFailure);
    EXPECT_FALSE(plugNamed("box.ty").isDestination());
}

TEST_F(AnimCurveFn, ThePlugReadsTheCurveAtTheContextsTime)
{
    keyed("tx", 0, 24, MFnAnimCurve::kTangentLinear);
    const MPlug tx = plugNamed("box.tx");
    {
        MDGContextGuard guard(MDGContext(frame(6)));
        EXPECT_NEAR(tx.asDouble(), 6.0, 1e-12);
    }
    {
        MDGContextGuard guard(MDGContext(frame(30)));
        EXPECT_EQ(tx.asDouble(), 24.0);
    }
}

TEST_F(AnimCurveFn, KeysAreInInternalUnitsAndTicks)
{
    MFnAnimCurve curve(keyed("rx", 0, kPi / 2, MFnAnimCurve::kTangentLinear));
    EXPECT_EQ(curve.value(1), kPi / 2); // radians, whatever the UI shows
    EXPECT_EQ(curve.time(1), frame(24));
    EXPECT_NEAR(curve.evaluate(frame(12)), kPi / 4, 1e-12);
    // A time between ticks lands on the nearest tick.
    unsigned int index = 9;
    EXPECT_TRUE(curve.find(MTime(1.0 + 1e-12, MTime::kSeconds), index));
    EXPECT_EQ(index, 1u);
}

TEST_F(AnimCurveFn, TangentAnglesAndWeightsAreInUiUnits)
{
    // 24 cm over 24 frames: 1 cm per frame is 45 degrees in the graph editor;
    // internally the tangent is the direction of (1 s, 24 cm).
    MFnAnimCurve curve(keyed("tx", 0, 24, MFnAnimCurve::kTangentLinear));
    MAngle angle;
    double weight = 0;
    ASSERT_TRUE(curve.getTangent(0, angle, weight, false));
    EXPECT_NEAR(angle.asDegrees(), 45.0, 1e-12);
    EXPECT_EQ(weight, 1.0);
    MFnAnimCurve::TangentValue x = 0, y = 0;
    ASSERT_TRUE(curve.getTangent(0, x, y, false));
    EXPECT_NEAR(y / x, 24.0, 1e-12);

    // 24 degrees over 24 frames on a rotation curve is 45 degrees too.
    MFnAnimCurve rotation(keyed("ry", 0, 24 * kPi / 180, MFnAnimCurve::kTangentLinear));
    ASSERT_TRUE(rotation.getTangent(1, angle, weight, true));
    EXPECT_NEAR(angle.asDegrees(), 45.0, 1e-12);

    // Weighted: the weight is the handle's length, a third of the span of 24 frames.
    curve.setIsWeighted(true);
    ASSERT_TRUE(curve.getTangent(1, angle, weight, true));
    EXPECT_NEAR(weight, std::hypot(24.0, 24.0) / 3, 1e-12);
}

TEST_F(AnimCurveFn, WrittenAngleAndWeightReadBackAndMakeTheTangentFixed)
{
    MFnAnimCurve curve(keyed("tz", 0, 10, MFnAnimCurve::kTangentAuto));
    curve.addKey(frame(12), 3);
    curve.setIsWeighted(true);
    ASSERT_TRUE(curve.setTangentsLocked(1, false));
    ASSERT_TRUE(curve.setTangent(1, MAngle(30, MAngle::kDegrees), 2.5, true, nullptr, true));
    EXPECT_EQ(curve.inTangentType(1), MFnAnimCurve::kTangentFixed);
    EXPECT_EQ(curve.outTangentType(1), MFnAnimCurve::kTangentAuto);
    MAngle angle;
    double weight = 0;
    curve.getTangent(1, angle, weight, true);
    EXPECT_NEAR(angle.asDegrees(), 30.0, 1e-12);
    EXPECT_NEAR(weight, 2.5, 1e-12);

    // setAngle keeps the weight, setWeight the angle.
    ASSERT_TRUE(curve.setAngle(1, MAngle(-10, MAngle::kDegrees), false));
    ASSERT_TRUE(curve.setWeight(1, 4.0, false));
    curve.getTangent(1, angle, weight, false);
    EXPECT_NEAR(angle.asDegrees(), -10.0, 1e-12);
    EXPECT_NEAR(weight, 4.0, 1e-12);
    EXPECT_EQ(curve.outTangentType(1), MFnAnimCurve::kTangentFixed);

    // x/y written in UI units (frames) read back in seconds.
    ASSERT_TRUE(curve.setTangent(1, 24.0, 6.0, false));
    MFnAnimCurve::TangentValue x = 0, y = 0;
    curve.getTangent(1, x, y, false);
    EXPECT_NEAR(x, 1.0, 1e-12);
    EXPECT_NEAR(y, 6.0, 1e-12);
}

TEST_F(AnimCurveFn, FindClosestGivesTheEndKeysOutsideTheRange)
{
    MFnAnimCurve curve(keyed("tx", 0, 1, MFnAnimCurve::kTangentAuto));
    curve.addKey(frame(10), 5);
    EXPECT_EQ(curve.findClosest(frame(-100)), 0u);
    EXPECT_EQ(curve.findClosest(frame(4)), 0u);
    EXPECT_EQ(curve.findClosest(frame(6)), 1u);
    EXPECT_EQ(curve.findClosest(frame(1000)), 2u);
    unsigned int index = 0;
    EXPECT_FALSE(curve.find(frame(5), index));
}

TEST_F(AnimCurveFn, BadEditsFailAndLeaveTheCurveAlone)
{
    MFnAnimCurve curve(keyed("tx", 0, 24, MFnAnimCurve::kTangentAuto));
    curve.addKey(frame(12), 3);
    MStatus status;
    EXPECT_EQ(curve.setTime(1, frame(24)), MS::kFailure);
    EXPECT_EQ(curve.setTime(1, frame(30)), MS::kFailure);
    EXPECT_EQ(curve.time(1), frame(12));
    EXPECT_EQ(curve.setValue(7, 1.0), MS::kInvalidParameter);
    EXPECT_EQ(curve.remove(3), MS::kInvalidParameter);
    curve.value(3, &status);
    EXPECT_EQ(status, MS::kInvalidParameter);
    EXPECT_EQ(curve.setInTangentType(1, static_cast<MFnAnimCurve::TangentType>(15)), MS::kInvalidParameter);
    curve.addKey(frame(5), 1.0, static_cast<MFnAnimCurve::TangentType>(40), MFnAnimCurve::kTangentAuto, nullptr,
                 &status);
    EXPECT_EQ(status, MS::kInvalidParameter);
    EXPECT_EQ(curve.addKey(2.0, 1.0, MFnAnimCurve::kTangentAuto, MFnAnimCurve::kTangentAuto, nullptr, &status), 0u);
    EXPECT_EQ(status, MS::kInvalidParameter); // unitless input on a time curve
    EXPECT_EQ(curve.numKeys(), 3u);

    // The keys of a locked attribute don't change.
    ASSERT_TRUE(mel("setAttr -l on box.tx"));
    EXPECT_EQ(curve.setValue(1, 9.0), MS::kFailure);
    EXPECT_EQ(curve.value(1), 3.0);
    EXPECT_EQ(curve.numKeys(), 3u);
}

TEST_F(AnimCurveFn, AChangeTakesBackInsertsRemovalsAndValues)
{
    MFnAnimCurve curve(keyed("tx", 0, 24, MFnAnimCurve::kTangentAuto));
    const double before = curve.evaluate(frame(7));
    const double atSix = curve.evaluate(frame(6));
    MAnimCurveChange change;
    const unsigned int index = curve.insertKey(frame(6), false, &change);
    EXPECT_EQ(index, 1u);
    EXPECT_EQ(curve.value(index), atSix);
    curve.setInTangentType(index, MFnAnimCurve::kTangentAuto, &change);
    curve.setValue(index, 50, &change);
    curve.remove(0, &change);
    curve.setPostInfinityType(MFnAnimCurve::kCycleRelative, &change);
    EXPECT_EQ(curve.numKeys(), 2u);

    ASSERT_TRUE(change.undoIt());
    EXPECT_EQ(curve.numKeys(), 2u);
    EXPECT_EQ(curve.time(0), frame(0));
    EXPECT_EQ(curve.postInfinityType(), MFnAnimCurve::kConstant);
    EXPECT_EQ(curve.evaluate(frame(7)), before);
    ASSERT_TRUE(change.redoIt());
    EXPECT_EQ(curve.value(0), 50.0);
}

TEST_F(AnimCurveFn, UnitlessInputCurves)
{
    MFnAnimCurve curve;
    MObject node = curve.create(MFnAnimCurve::kAnimCurveUU);
    ASSERT_FALSE(node.isNull());
    EXPECT_FALSE(curve.isTimeInput());
    EXPECT_TRUE(curve.isUnitlessInput());
    curve.addKey(0.0, 0.0, MFnAnimCurve::kTangentLinear, MFnAnimCurve::kTangentLinear);
    curve.addKey(2.0, 10.0, MFnAnimCurve::kTangentLinear, MFnAnimCurve::kTangentLinear);
    double value = 0;
    ASSERT_TRUE(curve.evaluate(0.5, value));
    EXPECT_NEAR(value, 2.5, 1e-12);
    EXPECT_EQ(curve.evaluate(frame(1), value), MS::kInvalidParameter);
    EXPECT_EQ(curve.unitlessInput(1), 2.0);

    // Driven through its input plug (a set driven key).
    ASSERT_TRUE(mel("connectAttr box.tx " + std::string(curve.name().asChar()) + ".input"));
    ASSERT_TRUE(mel("setAttr box.tx 1"));
    EXPECT_NEAR(MFnDependencyNode(node).findPlug("output", true).asDouble(), 5.0, 1e-12);
}

TEST_F(AnimCurveFn, CreatedThroughAModifierTheCurveWaitsForDoIt)
{
    MDGModifier modifier;
    MFnAnimCurve curve;
    MObject node = curve.create(plugNamed("box.tz"), &modifier);
    ASSERT_FALSE(node.isNull());
    curve.addKey(frame(0), 1.0);
    EXPECT_FALSE(plugNamed("box.tz").isDestination());
    ASSERT_TRUE(modifier.doIt());
    EXPECT_TRUE(plugNamed("box.tz").isDestination());
    EXPECT_EQ(MFnDependencyNode(node).name(), MString("box_translateZ"));
    EXPECT_EQ(plugNamed("box.tz").asDouble(), 1.0);
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_FALSE(plugNamed("box.tz").isDestination());
}
