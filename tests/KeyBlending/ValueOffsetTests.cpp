// Value Offset and Value Offset Stagger end to end: keys stay on their
// frames and take the old curve's values from x frames earlier, read from a
// cycling duplicate that never outlives the command or the drag.
#include "PluginTest.h"

#include "SliderDrag.h"

#include <maya/MFnAnimCurve.h>
#include <maya/MGlobal.h>
#include <maya/MStringArray.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::Pointwise;

namespace {

// Keys on frames 1..8 climbing by 10 from 0: relative cycling continues the
// line, so the old curve x frames earlier is the line lowered by 10 x.
std::vector<std::pair<double, double>> line()
{
    std::vector<std::pair<double, double>> keys;
    for (int frame = 1; frame <= 8; ++frame)
        keys.emplace_back(frame, (frame - 1) * 10.0);
    return keys;
}

std::vector<double> lineShiftedBy(double frames)
{
    std::vector<double> values;
    for (int frame = 1; frame <= 8; ++frame)
        values.push_back((frame - 1 - frames) * 10.0);
    return values;
}

class ValueOffset : public PluginTest
{
protected:
    void SetUp() override
    {
        PluginTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n obj"));
        keyPlug("obj.tx", line());
        keyPlug("obj.ty", {{4, 5}});
        mayasim::host::setTimeSliderHighlight(1, 8);
        ASSERT_TRUE(mel("select -r obj"));
        mayasim::host::clearOutput();
    }

    static unsigned int curveCount()
    {
        MStringArray curves;
        MGlobal::executeCommand("ls -type animCurve", curves);
        return curves.length();
    }

    static std::vector<std::string> selected()
    {
        MStringArray names;
        MGlobal::executeCommand("ls -sl", names);
        std::vector<std::string> result;
        for (unsigned int i = 0; i < names.length(); ++i)
            result.emplace_back(names[i].asChar());
        return result;
    }

    // One command; its undo must give back the scene, with no copy left.
    static std::vector<double> offset(const std::string& curve, int type, double x)
    {
        const std::string before = sceneText();
        const unsigned int curves = curveCount();
        EXPECT_TRUE(mel("OVKeyBlending -bt " + std::to_string(type) + " -bv " + std::to_string(x)));
        EXPECT_EQ(curveCount(), curves);
        const std::vector<double> values = keyValues(curve);
        EXPECT_TRUE(mel("undo"));
        EXPECT_EQ(sceneText(), before);
        EXPECT_EQ(curveCount(), curves);
        return values;
    }
};

TEST_F(ValueOffset, KeysTakeTheOldCurveFromXFramesEarlier)
{
    EXPECT_THAT(offset("obj_translateX", 22, 1), ElementsAreArray(lineShiftedBy(1)));
    EXPECT_THAT(offset("obj_translateX", 22, -1), ElementsAreArray(lineShiftedBy(-1)));
    // Beyond the curve's length the relative cycles carry on.
    EXPECT_THAT(offset("obj_translateX", 22, 10), ElementsAreArray(lineShiftedBy(10)));
    EXPECT_THAT(keyTimes("obj_translateX"), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
    // However far, at once and exactly (to the spacing of doubles near 1e15).
    for (double far : {1e14, -1e14, 1e9 + 3})
        EXPECT_THAT(offset("obj_translateX", 22, far), Pointwise(DoubleNear(0.5), lineShiftedBy(far))) << far;
}

TEST_F(ValueOffset, HalfFramesReadTheShapeBetweenKeys)
{
    // Straight spans: the keys the copy gets between the keys lie on the line.
    ASSERT_TRUE(mel("keyTangent -e -itt linear -ott linear obj_translateX"));
    EXPECT_THAT(offset("obj_translateX", 22, 0.5), Pointwise(DoubleNear(1e-9), lineShiftedBy(0.5)));
    EXPECT_THAT(offset("obj_translateX", 22, -2.5), Pointwise(DoubleNear(1e-9), lineShiftedBy(-2.5)));
}

TEST_F(ValueOffset, ZeroLeavesEveryValueAndALoneKeyHolds)
{
    EXPECT_THAT(offset("obj_translateX", 22, 0), ElementsAreArray(lineShiftedBy(0)));
    ASSERT_TRUE(mel("OVKeyBlending -bt 22 -bv 0"));
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAreArray(lineShiftedBy(0)));
    // ty's lone key (frame 4, in the highlight) keeps its value at any offset.
    EXPECT_THAT(offset("obj_translateY", 22, 2.5), ElementsAre(5));
}

TEST_F(ValueOffset, SteppedKeyTakesItsValueButKeepsItsTangents)
{
    ASSERT_TRUE(mel("keyTangent -e -t 4 -ott step obj_translateX"));
    const MFnAnimCurve fn(nodeNamed("obj_translateX"));
    const MFnAnimCurve::TangentType inType = fn.inTangentType(3);
    const MFnAnimCurve::TangentType nextInType = fn.inTangentType(4);

    ASSERT_TRUE(mel("OVKeyBlending -bt 22 -bv 1"));
    EXPECT_EQ(keyValues("obj_translateX")[3], 20);
    EXPECT_EQ(fn.outTangentType(3), MFnAnimCurve::kTangentStep);
    EXPECT_EQ(fn.inTangentType(3), inType);
    // A key that isn't stepped gets the copy's tangents, set as fixed ones.
    EXPECT_NE(fn.inTangentType(4), nextInType);
}

TEST_F(ValueOffset, CommandLeavesNoCopyAndKeepsTheSelection)
{
    ASSERT_TRUE(mel("OVKeyBlending -bt 22 -bv 2"));
    EXPECT_EQ(curveCount(), 2u);
    EXPECT_THAT(selected(), ElementsAre("obj"));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(curveCount(), 2u);
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(curveCount(), 2u);
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAreArray(lineShiftedBy(2)));
}

// The drag: the copies live from the press to the release, outside the undo
// queue; the drag is one undo step.
TEST_F(ValueOffset, CopiesLiveForTheDragAlone)
{
    expectOneUndoStep([] {
        KeyBlending::Data* data = pressSlider(22);
        ASSERT_NE(data, nullptr);
        EXPECT_EQ(curveCount(), 4u);
        EXPECT_THAT(selected(), ElementsAre("obj"));
        for (double x : {0.4, 3.0, -2.0, 1.0})
            data->blend(x);
        EXPECT_THAT(keyValues("obj_translateX"), ElementsAreArray(lineShiftedBy(1)));
        releaseSlider(*data);
        EXPECT_EQ(curveCount(), 2u);
    });
}

TEST_F(ValueOffset, ReleaseWithoutAMoveLeavesTheSceneAsItWas)
{
    const std::string before = sceneText();
    KeyBlending::Data* data = pressSlider(23);
    ASSERT_NE(data, nullptr);
    releaseSlider(*data);
    EXPECT_EQ(sceneText(), before);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(sceneText(), before);
}

TEST_F(ValueOffset, StaggerGivesEachObjectAGrowingShare)
{
    for (const char* name : {"b", "c"}) {
        ASSERT_TRUE(mel(std::string("createNode transform -n ") + name));
        keyPlug(std::string(name) + ".tx", line());
    }
    keyPlug("obj.tz", line());
    ASSERT_TRUE(mel("select -r obj b c"));

    const std::string before = sceneText();
    ASSERT_TRUE(mel("OVKeyBlending -bt 23 -bv 3"));
    // Three objects: 1, 2 and 3 frames; both curves of the first object move alike.
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAreArray(lineShiftedBy(1)));
    EXPECT_THAT(keyValues("obj_translateZ"), ElementsAreArray(lineShiftedBy(1)));
    EXPECT_THAT(keyValues("b_translateX"), ElementsAreArray(lineShiftedBy(2)));
    EXPECT_THAT(keyValues("c_translateX"), ElementsAreArray(lineShiftedBy(3)));
    EXPECT_EQ(curveCount(), 5u);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(sceneText(), before);

    // Value Offset gives all of them the whole offset.
    ASSERT_TRUE(mel("OVKeyBlending -bt 22 -bv 3"));
    EXPECT_THAT(keyValues("b_translateX"), ElementsAreArray(lineShiftedBy(3)));
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAreArray(lineShiftedBy(3)));
}

} // namespace
