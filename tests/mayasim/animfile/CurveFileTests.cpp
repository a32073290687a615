// Anim curves in Maya ASCII files: a hand-written file with curves of each
// kind evaluates to values worked out by hand; saved curves read as Maya
// writes them and load back evaluating and reading the same.
#include "AnimFileTest.h"

#include <gmock/gmock.h>

using namespace animfile;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

const std::vector<std::string> kAnimatedPlugs = {"box.tx", "box.ty", "box.ry", "box.rz", "box.sx", "follower.tz"};
const std::vector<std::string> kCurves = {"box_translateX", "box_translateY", "box_rotateY",
                                          "box_rotateZ",    "box_scaleX",     "follower_translateZ"};

// The plugs' values from well before the first key to well after the last.
std::vector<double> sampled(const std::vector<std::string>& plugs)
{
    std::vector<double> values;
    for (const std::string& plug : plugs)
        for (double time = -40.0; time <= 70.0; time += 0.75)
            values.push_back(at(plug, time));
    return values;
}

// Everything the key attributes of the curves read back.
std::vector<double> keyAttributes(const std::vector<std::string>& curves)
{
    std::vector<double> values;
    for (const std::string& name : curves)
    {
        for (const char* setting : {".wgt", ".pre", ".pst"})
            values.push_back(melNumber("getAttr " + name + setting));
        const unsigned int keys = MFnAnimCurve(nodeNamed(name)).numKeys();
        for (unsigned int i = 0; i < keys; ++i)
        {
            const std::string element = "[" + std::to_string(i) + "]";
            for (double number : melNumbers("getAttr " + name + ".ktv" + element))
                values.push_back(number);
            for (const char* array : {".kit", ".kot", ".kix", ".kiy", ".kox", ".koy", ".ktl", ".kwl"})
                values.push_back(melNumber("getAttr " + name + array + element));
        }
    }
    return values;
}

void expectSame(const std::vector<double>& actual, const std::vector<double>& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], 1e-12 * std::max(1.0, std::fabs(expected[i]))) << "item " << i;
}

class CurveFiles : public AnimFileTest
{
protected:
    // Saves the scene, opens the file again and expects the plugs and the
    // curves' key attributes to read as they did.
    void expectSameAfterSaveAndOpen(const std::vector<std::string>& plugs, const std::vector<std::string>& curves,
                                    const std::string& fileName)
    {
        const std::vector<double> values = sampled(plugs);
        const std::vector<double> attributes = keyAttributes(curves);
        const std::string path = scratchFile(fileName);
        ASSERT_TRUE(saveAs(path));
        ASSERT_TRUE(open(path));
        EXPECT_THAT(errors(), IsEmpty());
        expectSame(sampled(plugs), values);
        expectSame(keyAttributes(curves), attributes);
    }
};

} // namespace

TEST_F(CurveFiles, HandWrittenCurvesEvaluateAsWorkedOutByHand)
{
    ASSERT_TRUE(open(dataFile("anim_curves.ma")));
    EXPECT_THAT(errors(), IsEmpty());
    // Linear keys 0, 10, 0 at frames 1, 11, 21; linear before, oscillating after.
    EXPECT_NEAR(at("box.tx", 6), 5.0, 1e-9);
    EXPECT_NEAR(at("box.tx", 16), 5.0, 1e-9);
    EXPECT_NEAR(at("box.tx", -4), -5.0, 1e-9);
    EXPECT_NEAR(at("box.tx", 31), 10.0, 1e-9); // mirrored: as frame 11
    EXPECT_NEAR(at("box.tx", 46), 5.0, 1e-9);  // forward again: as frame 6
    // Degrees in the file: 0, 90, 45 at frames 1, 5, 9 with step, step-next
    // and step out tangents; cycling before, cycling with offset after.
    EXPECT_NEAR(at("box.ry", 3), 0.0, 1e-9);
    EXPECT_NEAR(at("box.ry", 5), 90.0, 1e-9);
    EXPECT_NEAR(at("box.ry", 7), 45.0, 1e-9);
    EXPECT_NEAR(at("box.ry", -1), 45.0, 1e-9); // as frame 7
    EXPECT_NEAR(at("box.ry", -3), 90.0, 1e-9); // as frame 5
    EXPECT_NEAR(at("box.ry", 13), 135.0,
                1e-9); // as frame 5, one cycle's rise (45) up
    // Fixed tangents: leaving 0 at pi/2 rad/s (kiy is in radians), arriving
    // at 90 degrees flat one second later. Hermite: (h10 + h01) * pi/2.
    EXPECT_NEAR(at("box.rz", 6), (0.140625 + 0.15625) * 90.0, 1e-9);
    EXPECT_NEAR(at("box.rz", 12), (0.125 + 0.5) * 90.0, 1e-9);
    // Weighted (no .wgt line): Bezier (0,0) (1/6 s,4) (5/6 s,10) (1 s,10);
    // halfway in time is halfway along it: (3*4 + 3*10 + 10) / 8.
    EXPECT_NEAR(at("box.ty", 12), 6.5, 1e-9);
    EXPECT_NEAR(at("box.ty", 36), 15.0, 1e-9); // linear after: 10 cm/s for 0.5 s
    EXPECT_NEAR(at("box.ty", -5), 0.0, 1e-9);
    // Auto tangents of 1, 2, 1: flat at the ends and at the peak.
    EXPECT_NEAR(at("box.sx", 6), 1.5, 1e-9);
    // A set driven key on box.tx: 0 -> 0, 10 -> 20.
    EXPECT_NEAR(at("follower.tz", 6), 10.0, 1e-9);
    EXPECT_NEAR(at("follower.tz", 11), 20.0, 1e-9);
}

TEST_F(CurveFiles, KeysTangentsAndSettingsLoadIntoTheCurves)
{
    ASSERT_TRUE(open(dataFile("anim_curves.ma")));
    MFnAnimCurve rotateY = curve("box_rotateY");
    EXPECT_NEAR(rotateY.value(1), kPi / 2, 1e-15); // radians inside
    EXPECT_EQ(melNumber("getAttr box_rotateY.ktv[1].kv"), 90.0);
    EXPECT_EQ(melNumber("getAttr box_rotateY.ktv[1].kt"), 5.0);
    EXPECT_EQ(rotateY.inTangentType(1),
              MFnAnimCurve::kTangentAuto); // the curve's tangentType
    EXPECT_EQ(rotateY.outTangentType(1), MFnAnimCurve::kTangentStepNext);
    EXPECT_EQ(melNumber("getAttr box_rotateY.kot[1]"),
              17.0); // the file's number, not the API's
    EXPECT_EQ(rotateY.preInfinityType(), MFnAnimCurve::kCycle);
    EXPECT_EQ(rotateY.postInfinityType(), MFnAnimCurve::kCycleRelative);

    MFnAnimCurve translateY = curve("box_translateY");
    EXPECT_TRUE(translateY.isWeighted());
    EXPECT_FALSE(translateY.weightsLocked(0));
    EXPECT_TRUE(translateY.tangentsLocked(0));
    EXPECT_EQ(melNumber("getAttr box_translateY.kox[0]"), 0.5);
    EXPECT_EQ(melNumber("getAttr box_translateY.koy[0]"), 12.0);
    EXPECT_EQ(melNumber("getAttr box_translateY.wgt"), 1.0);

    MFnAnimCurve translateX = curve("box_translateX");
    EXPECT_FALSE(translateX.isWeighted());
    EXPECT_EQ(translateX.preInfinityType(), MFnAnimCurve::kLinear);
    EXPECT_EQ(translateX.postInfinityType(), MFnAnimCurve::kOscillate);
    EXPECT_EQ(translateX.inTangentType(0), MFnAnimCurve::kTangentLinear);

    MFnAnimCurve scaleX = curve("box_scaleX");
    EXPECT_FALSE(scaleX.tangentsLocked(1));
    EXPECT_TRUE(scaleX.tangentsLocked(2));
    EXPECT_EQ(melNumber("getAttr box_scaleX.ktl[1]"), 0.0);

    EXPECT_TRUE(curve("follower_translateZ").isUnitlessInput());
    EXPECT_EQ(melNumber("getAttr follower_translateZ.ktv[1].kt"), 10.0);
}

TEST_F(CurveFiles, SavedCurvesLoadBackEvaluatingAndReadingTheSame)
{
    ASSERT_TRUE(open(dataFile("anim_curves.ma")));
    expectSameAfterSaveAndOpen(kAnimatedPlugs, kCurves, "curves.ma");
    // Fixed tangents keep their exact numbers.
    EXPECT_EQ(melNumber("getAttr box_rotateZ.kox[0]"), 0.5370292721463151);
    EXPECT_EQ(melNumber("getAttr box_rotateZ.koy[0]"), 0.8435636080687686);
}

TEST_F(CurveFiles, EditedCurvesLoadBackTheSame)
{
    ASSERT_TRUE(mel("createNode transform -n box; createNode transform -n follower;"
                    "setKeyframe -t 1 -v 0 -at tx box; setKeyframe -t 7 -v 3 -at tx box;"
                    "setKeyframe -t 15 -v -2 -at tx box; setKeyframe -t 24 -v 5 -at tx box;"
                    "setKeyframe -t 1 -v 10 -at ry box; setKeyframe -t 13 -v -30 -at ry box;"
                    "setKeyframe -t 30 -v 45 -at ry box;"
                    "keyTangent -e -itt clamped -ott plateau -t 7 box_translateX;"
                    "keyTangent -e -ott step -t 13 box_rotateY"));
    MFnAnimCurve translateX = curve("box_translateX");
    ASSERT_TRUE(translateX.setIsWeighted(true));
    ASSERT_TRUE(translateX.setTangentsLocked(2, false));
    ASSERT_TRUE(translateX.setTangent(2, MAngle(35.0, MAngle::kDegrees), 2.5, true));
    ASSERT_TRUE(translateX.setTangent(2, MAngle(-10.0, MAngle::kDegrees), 0.75, false));
    ASSERT_TRUE(translateX.setWeightsLocked(1, false));
    ASSERT_TRUE(translateX.setPreInfinityType(MFnAnimCurve::kCycleRelative));
    MFnAnimCurve rotateY = curve("box_rotateY");
    ASSERT_TRUE(rotateY.setTangent(0, MAngle(20.0, MAngle::kDegrees), 1.0, false));
    ASSERT_TRUE(rotateY.setPostInfinityType(MFnAnimCurve::kOscillate));
    // A clamped side given numbers of its own, until something recomputes it.
    ASSERT_TRUE(mel("setAttr box_translateX.kiy[1] 0.3"));
    expectSameAfterSaveAndOpen({"box.tx", "box.ry"}, {"box_translateX", "box_rotateY"}, "edited.ma");
    EXPECT_TRUE(curve("box_translateX").isWeighted());
    EXPECT_FALSE(curve("box_rotateY").isWeighted());
}

TEST_F(CurveFiles, SavedCurvesReadAsMayaWritesThem)
{
    ASSERT_TRUE(mel("createNode transform -n box;"
                    "setKeyframe -t 1 -v 0 -at tx box; setKeyframe -t 11 -v 10 -at tx box;"
                    "setKeyframe -t 21 -v 4 -at tx box;"
                    "keyTangent -e -ott linear -t 1 box_translateX;"
                    "setKeyframe -t 1 -v 90 -at rz box"));
    ASSERT_TRUE(curve("box_translateX").setTangent(1, MAngle(0.0), 1.0, true));
    const std::string path = scratchFile("keyed.ma");
    ASSERT_TRUE(saveAs(path));
    const std::string text = contents(path);
    // Keys in UI units; tangentType is the keys' commonest type (auto, 18)
    // and only types, locks and tangents that differ from what loading the
    // lines before gives are listed, from the first such key on.
    EXPECT_THAT(text, HasSubstr("createNode animCurveTL -n \"box_translateX\";\n"));
    EXPECT_THAT(text, HasSubstr("\tsetAttr \".tan\" 18;\n"
                                "\tsetAttr \".wgt\" no;\n"
                                "\tsetAttr -s 3 \".ktv[0:2]\"  1 0 11 10 21 4;\n"
                                "\tsetAttr -s 3 \".kit[1:2]\"  1 18;\n"
                                "\tsetAttr -s 3 \".kot[0:2]\"  2 1 18;\n"
                                "\tsetAttr -s 3 \".kix[1:2]\"  1 1;\n"
                                "\tsetAttr -s 3 \".kiy[1:2]\"  0 0;\n"
                                "\tsetAttr -s 3 \".kox[1:2]\"  1 1;\n"
                                "\tsetAttr -s 3 \".koy[1:2]\"  0 0;\n"));
    EXPECT_THAT(text, HasSubstr("\tsetAttr \".ktv[0]\"  1 90;\n"));
    EXPECT_THAT(text, HasSubstr("connectAttr \"box_translateX.o\" \"box.tx\";\n"));
    EXPECT_THAT(text, Not(HasSubstr(".pre")));
}

TEST_F(CurveFiles, KeysAreInTheFilesUnitsAndTangentsInInternalOnes)
{
    // Metres, radians and 30 frames a second; a linear curve rising 0.3 m a
    // second has the tangent (1, 30) in seconds and centimetres.
    const std::string path = scratchFile("units.ma");
    write(path, "requires maya \"2022\";\n"
                "currentUnit -l meter -a radian -t ntsc;\n"
                "createNode animCurveTL -n \"slide\";\n"
                "\tsetAttr \".tan\" 1;\n"
                "\tsetAttr \".wgt\" no;\n"
                "\tsetAttr -s 2 \".ktv[0:1]\"  15 0.05 45 0.35;\n"
                "\tsetAttr -s 2 \".kix[0:1]\"  1 1;\n"
                "\tsetAttr -s 2 \".kiy[0:1]\"  30 30;\n"
                "\tsetAttr -s 2 \".kox[0:1]\"  1 1;\n"
                "\tsetAttr -s 2 \".koy[0:1]\"  30 30;\n"
                "createNode animCurveTA -n \"turn\";\n"
                "\tsetAttr \".ktv[0]\"  15 1.5707963267948966;\n");
    ASSERT_TRUE(open(path));
    MFnAnimCurve slide = curve("slide");
    EXPECT_EQ(slide.time(0).as(MTime::kSeconds), 0.5);
    EXPECT_NEAR(slide.value(0), 5.0, 1e-12); // centimetres inside
    EXPECT_NEAR(slide.value(1), 35.0, 1e-12);
    double value = 0.0;
    ASSERT_TRUE(slide.evaluate(MTime(1.0, MTime::kSeconds), value));
    EXPECT_NEAR(value, 20.0, 1e-12); // halfway along the straight span
    EXPECT_NEAR(curve("turn").value(0), kPi / 2, 1e-15);
    EXPECT_TRUE(curve("turn").isWeighted());
    EXPECT_NEAR(melNumber("getAttr slide.ktv[1].kv"), 0.35, 1e-15); // read back in metres

    ASSERT_TRUE(saveAs(path));
    EXPECT_THAT(contents(path), HasSubstr("\tsetAttr -s 2 \".ktv[0:1]\"  15 0.05 45 0.35;\n"));
    EXPECT_THAT(contents(path), HasSubstr("\tsetAttr -s 2 \".koy[0:1]\"  30 30;\n"));
}
