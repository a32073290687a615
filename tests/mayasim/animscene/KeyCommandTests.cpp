// setKeyframe, keyframe, cutKey, keyTangent, bufferCurve and getAttr -time
// on small scenes, each with its undo.
#include "SceneTest.h"

#include <maya/MDGModifier.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MPlug.h>
#include <maya/MPlugArray.h>

#include <cmath>

using namespace animscene;

namespace {

constexpr double kPi = 3.14159265358979323846;

class KeyCommands : public SceneTest
{
protected:
    void SetUp() override
    {
        SceneTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n box"));
    }

    // box.tx keyed 0 at frame 1, 10 at frame 11 and 4 at frame 21.
    void keyTranslateX()
    {
        ASSERT_TRUE(mel("setKeyframe -t 1 -v 0 -at tx box; setKeyframe -t 11 -v 10 -at tx box; "
                        "setKeyframe -t 21 -v 4 -at translateX box"));
    }

    static MFnAnimCurve curve(const std::string& name) { return MFnAnimCurve(nodeNamed(name)); }
};

} // namespace

TEST_F(KeyCommands, SetKeyframeKeysEveryKeyableChannelWithCurvesNamedAfterThem)
{
    EXPECT_EQ(melNumber("setKeyframe box"), 10.0);
    const std::vector<std::string> expected = {
        "box_visibility", "box_translateX", "box_translateY", "box_translateZ", "box_rotateX",
        "box_rotateY",    "box_rotateZ",    "box_scaleX",     "box_scaleY",     "box_scaleZ"};
    EXPECT_EQ(melStrings("ls -type animCurve"), expected);
    EXPECT_EQ(curve("box_translateX").animCurveType(), MFnAnimCurve::kAnimCurveTL);
    EXPECT_EQ(curve("box_rotateY").animCurveType(), MFnAnimCurve::kAnimCurveTA);
    EXPECT_EQ(curve("box_scaleZ").animCurveType(), MFnAnimCurve::kAnimCurveTU);
    EXPECT_EQ(plugNamed("box.tx").source().name(), MString("box_translateX.output"));
    EXPECT_EQ(curve("box_scaleX").value(0), 1.0);
    EXPECT_EQ(curve("box_translateX").time(0).value(), 1.0);
    // New keys take the global tangent types: auto in Maya 2022.
    EXPECT_EQ(curve("box_translateX").inTangentType(0), MFnAnimCurve::kTangentAuto);
    EXPECT_EQ(curve("box_translateX").outTangentType(0), MFnAnimCurve::kTangentAuto);
    // A switch holds its value from key to key.
    EXPECT_EQ(curve("box_visibility").outTangentType(0), MFnAnimCurve::kTangentStep);
}

TEST_F(KeyCommands, SetKeyframeValuesAreInUiUnitsAndCurvesHoldInternalOnes)
{
    ASSERT_TRUE(mel("setKeyframe -t 5 -at rotateX -v 90 box; setKeyframe -t 5 -attribute translate -v 2 box"));
    EXPECT_NEAR(curve("box_rotateX").value(0), kPi / 2, 1e-12);
    EXPECT_EQ(melNumbers("keyframe -q -vc box_rotateX"), std::vector<double>{90.0});
    EXPECT_EQ(melNumbers("keyframe -q -vc box_translateZ"), std::vector<double>{2.0});
    ASSERT_TRUE(mel("currentUnit -l mm"));
    ASSERT_TRUE(mel("setKeyframe -t 6 -at ty -v 20 box"));
    EXPECT_DOUBLE_EQ(curve("box_translateY").value(1), 2.0); // 20 mm
    EXPECT_DOUBLE_EQ(melNumbers("keyframe -q -vc -t 6 box_translateY").at(0), 20.0);
}

TEST_F(KeyCommands, SetKeyframeWithoutAValueKeysWhatThePlugHoldsNow)
{
    keyTranslateX();
    ASSERT_TRUE(mel("currentTime 6"));
    EXPECT_NEAR(melNumber("getAttr box.tx"), curve("box_translateX").evaluate(frame(6)), 1e-12);
    MDGModifier modifier;
    modifier.newPlugValueDouble(plugNamed("box.tx"), 7.25);
    ASSERT_TRUE(modifier.doIt());
    ASSERT_TRUE(mel("setKeyframe -attribute translateX \"|box\""));
    EXPECT_EQ(curve("box_translateX").numKeys(), 4u);
    EXPECT_EQ(curve("box_translateX").value(1), 7.25);
    EXPECT_EQ(melNumber("getAttr box.tx"), 7.25); // now the curve's own value
    // At another time the key takes what the curve gives there.
    const double at15 = curve("box_translateX").evaluate(frame(15));
    ASSERT_TRUE(mel("setKeyframe -t 15 -at tx box"));
    EXPECT_NEAR(curve("box_translateX").value(3), at15, 1e-12);
}

TEST_F(KeyCommands, SetKeyframeOnAKeyReplacesItsValue)
{
    keyTranslateX();
    ASSERT_TRUE(mel("setKeyframe -t 11 -v -3 box.tx"));
    EXPECT_EQ(curve("box_translateX").numKeys(), 3u);
    EXPECT_EQ(curve("box_translateX").value(1), -3.0);
}

TEST_F(KeyCommands, SetKeyframeOnACurveKeysTheCurveItself)
{
    keyTranslateX();
    const double at6 = curve("box_translateX").evaluate(frame(6));
    ASSERT_TRUE(mel("setKeyframe -t 6 box_translateX; setKeyframe -t 30 -v 1 box_translateX"));
    EXPECT_EQ(melNumbers("keyframe -q box_translateX"), (std::vector<double>{1, 6, 11, 21, 30}));
    EXPECT_NEAR(curve("box_translateX").value(1), at6, 1e-12);
}

TEST_F(KeyCommands, SetKeyframeUndoTakesTheCurvesAway)
{
    ASSERT_TRUE(mel("setKeyframe -at translate box"));
    EXPECT_EQ(melStrings("ls -type animCurve").size(), 3u);
    ASSERT_TRUE(mel("undo"));
    EXPECT_TRUE(melStrings("ls -type animCurve").empty());
    EXPECT_TRUE(melStrings("listConnections box.tx").empty());
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(curve("box_translateY").numKeys(), 1u);
    EXPECT_FALSE(mel("setKeyframe -at noSuchAttribute box"));
    EXPECT_FALSE(mel("setKeyframe -bd true -at tx box"));
}

TEST_F(KeyCommands, KeyframeQueriesGiveTimesValuesIndicesAndCounts)
{
    keyTranslateX();
    ASSERT_TRUE(mel("setKeyframe -t 2.5 -v 1 -at tx box"));
    EXPECT_EQ(melNumbers("keyframe -q box_translateX"), (std::vector<double>{1, 2.5, 11, 21}));
    // Into an int array the frames are truncated toward zero.
    std::vector<int> frames;
    ASSERT_TRUE(melInts("keyframe -query box_translateX", frames));
    EXPECT_EQ(frames, (std::vector<int>{1, 2, 11, 21}));
    ASSERT_TRUE(melInts("keyframe -time \"2.5:11\" -query box_translateX", frames));
    EXPECT_EQ(frames, (std::vector<int>{2, 11}));
    EXPECT_EQ(melNumbers("keyframe -q -vc -t \"10:\" box_translateX"), (std::vector<double>{10, 4}));
    EXPECT_EQ(melNumbers("keyframe -q -tc -vc -t \":2\" box.tx"), (std::vector<double>{1, 0}));
    ASSERT_TRUE(melInts("keyframe -q -iv -t \"5:30\" box", frames));
    EXPECT_EQ(frames, (std::vector<int>{2, 3}));
    EXPECT_EQ(melNumber("keyframe -q -kc box_translateX"), 4.0);
    EXPECT_EQ(melNumber("keyframe -q -kc -t \"100:200\" box_translateX"), 0.0);
    // A query that finds nothing gives no answer, which a typed call reads as failure.
    EXPECT_FALSE(melInts("keyframe -q -t \"100:200\" box_translateX", frames));
    EXPECT_FALSE(mel("keyframe -q noSuchCurve"));
}

TEST_F(KeyCommands, KeyframeEditMovesAndChangesKeysUndoably)
{
    keyTranslateX();
    ASSERT_TRUE(mel("keyframe -e -r -tc 2 -t \"11:21\" box_translateX"));
    EXPECT_EQ(melNumbers("keyframe -q box_translateX"), (std::vector<double>{1, 13, 23}));
    ASSERT_TRUE(mel("keyframe -e -a -tc 30 -t 23 box_translateX; keyframe -e -r -vc 5 -t 1 box_translateX"));
    EXPECT_EQ(melNumbers("keyframe -q -tc -vc box_translateX"), (std::vector<double>{1, 5, 13, 10, 30, 4}));
    // A move onto another key is refused and changes nothing.
    EXPECT_FALSE(mel("keyframe -e -r -tc 12 -t 1 box_translateX"));
    EXPECT_EQ(melNumbers("keyframe -q box_translateX"), (std::vector<double>{1, 13, 30}));
    ASSERT_TRUE(mel("undo; undo"));
    EXPECT_EQ(melNumbers("keyframe -q -tc -vc box_translateX"), (std::vector<double>{1, 0, 13, 10, 23, 4}));
}

TEST_F(KeyCommands, CutKeyRemovesKeysAndCurvesLeftWithoutAny)
{
    keyTranslateX();
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 3 -at ty box"));
    EXPECT_EQ(melNumber("cutKey -cl -t \"5:30\" -at tx box"), 1.0);
    EXPECT_EQ(melNumbers("keyframe -q box_translateX"), std::vector<double>{1});
    EXPECT_EQ(melNumber("cutKey -cl box"), 2.0);
    EXPECT_TRUE(melStrings("ls -type animCurve").empty());
    EXPECT_TRUE(plugNamed("box.ty").source().isNull());
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melStrings("ls -type animCurve"), (std::vector<std::string>{"box_translateX", "box_translateY"}));
    EXPECT_EQ(plugNamed("box.ty").source().name(), MString("box_translateY.output"));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melNumbers("keyframe -q box_translateX"), (std::vector<double>{1, 11, 21}));
}

TEST_F(KeyCommands, KeyTangentSetsTypesAnglesAndTheGlobalDefaults)
{
    keyTranslateX();
    EXPECT_EQ(melStrings("keyTangent -q -g -itt"), std::vector<std::string>{"auto"});
    ASSERT_TRUE(mel("keyTangent -e -itt linear -ott flat -t 11 box_translateX"));
    EXPECT_EQ(melStrings("keyTangent -q -itt box_translateX"), (std::vector<std::string>{"auto", "linear", "auto"}));
    EXPECT_EQ(melStrings("keyTangent -q -ott -t 11 box_translateX"), std::vector<std::string>{"flat"});
    EXPECT_EQ(melNumbers("keyTangent -q -oa -t 11 box_translateX"), std::vector<double>{0.0});
    // Writing an angle makes the tangent fixed; locked tangents turn together.
    ASSERT_TRUE(mel("keyTangent -e -lock 1 -ia 30 -t 21 box_translateX"));
    EXPECT_EQ(melStrings("keyTangent -q -itt -t 21 box_translateX"), std::vector<std::string>{"fixed"});
    EXPECT_NEAR(melNumbers("keyTangent -q -oa -t 21 box_translateX").at(0), 30.0, 1e-9);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melStrings("keyTangent -q -itt -t 21 box_translateX"), std::vector<std::string>{"auto"});
    ASSERT_TRUE(mel("keyTangent -g -itt linear -ott step"));
    ASSERT_TRUE(mel("setKeyframe -t 40 -v 1 -at tx box"));
    EXPECT_EQ(melStrings("keyTangent -q -ott -t 40 box_translateX"), std::vector<std::string>{"step"});
    EXPECT_FALSE(mel("keyTangent -g -itt sideways"));
}

TEST_F(KeyCommands, BufferCurveSwapIsItsOwnInverse)
{
    keyTranslateX();
    ASSERT_TRUE(mel("bufferCurve -ov 1 box_translateX"));
    EXPECT_EQ(melNumber("bufferCurve -q -ex box_translateX"), 1.0);
    ASSERT_TRUE(mel("keyframe -e -vc 8 -t 11 box_translateX; cutKey -cl -t 21 box_translateX"));
    ASSERT_TRUE(mel("bufferCurve -swap \"box_translateX\""));
    EXPECT_EQ(melNumbers("keyframe -q -tc -vc box_translateX"), (std::vector<double>{1, 0, 11, 10, 21, 4}));
    ASSERT_TRUE(mel("bufferCurve -swap \"box_translateX\""));
    EXPECT_EQ(melNumbers("keyframe -q -tc -vc box_translateX"), (std::vector<double>{1, 0, 11, 8}));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melNumbers("keyframe -q -tc -vc box_translateX"), (std::vector<double>{1, 0, 11, 10, 21, 4}));
    // A curve without a buffer stays as it is.
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 2 -at ty box; bufferCurve -swap box_translateY"));
    EXPECT_EQ(melNumber("bufferCurve -q -ex box_translateY"), 0.0);
    EXPECT_EQ(melNumbers("keyframe -q -vc box_translateY"), std::vector<double>{2});
}

TEST_F(KeyCommands, GetAttrAtAnotherTimeLeavesTheCurrentTime)
{
    keyTranslateX();
    ASSERT_TRUE(mel("currentTime 3"));
    EXPECT_EQ(melNumber("getAttr -time 11 box.tx"), 10.0);
    EXPECT_NEAR(melNumber("getAttr -t 16 box.tx"), curve("box_translateX").evaluate(frame(16)), 1e-12);
    EXPECT_EQ(melNumber("currentTime -q"), 3.0);
}

TEST_F(KeyCommands, DuplicateOfACurveIsAnUnconnectedCopyWithTheSameKeys)
{
    keyTranslateX();
    ASSERT_TRUE(mel("keyTangent -e -ott linear -t 1 box_translateX"));
    const std::vector<std::string> copy = melStrings("duplicate box_translateX");
    ASSERT_EQ(copy.size(), 1u);
    EXPECT_NE(copy[0], "box_translateX");
    EXPECT_FALSE(MFnDependencyNode(nodeNamed(copy[0])).findPlug("output", true).isConnected());
    EXPECT_EQ(melNumbers("keyframe -q -tc -vc " + copy[0]), (std::vector<double>{1, 0, 11, 10, 21, 4}));
    EXPECT_EQ(melStrings("keyTangent -q -ott " + copy[0]), (std::vector<std::string>{"linear", "auto", "auto"}));
    // The copy is a curve of its own.
    ASSERT_TRUE(mel("cutKey -cl -t 11 " + copy[0]));
    EXPECT_EQ(curve("box_translateX").numKeys(), 3u);
}
