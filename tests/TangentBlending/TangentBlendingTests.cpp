// OVTangentBlending end to end: targets computed by Maya, the blend of
// angles and weights, lock handling, the curve ends, the drag and the reports.
#include "TangentCurvesTest.h"

#include "TangentBlending/Manager.h"

#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <gmock/gmock.h>

#include <cmath>

using ::testing::HasSubstr;

namespace {

bool locked(const char* curve, unsigned int index) { return MFnAnimCurve(nodeNamed(curve)).tangentsLocked(index); }

using TangentBlend = TangentCurvesTest;

TEST_F(TangentBlend, BlendOfOneSetsTheTypeAndUndoRedoRestoreTheScene)
{
    pickKeys("ball_translateX", {1, 2});
    expectOneUndoStep([] {
        ASSERT_TRUE(mel("OVTangentBlending -bt 2 -bv 1"));
        for (unsigned int index : {1u, 2u}) {
            EXPECT_EQ(tangentSide("ball_translateX", index, true).type, MFnAnimCurve::kTangentFlat);
            EXPECT_EQ(tangentSide("ball_translateX", index, false).type, MFnAnimCurve::kTangentFlat);
            EXPECT_EQ(tangentSide("ball_translateX", index, true).angle, 0.0);
        }
        EXPECT_EQ(tangentSide("ball_translateX", 3, true).type, MFnAnimCurve::kTangentSmooth);
        EXPECT_TRUE(reports().empty());
    });
}

// Linear aims at the neighbouring key: the in side of (10, 4) comes from
// (5, 10), the out side goes to (15, 20), slopes in units per frame.
TEST_F(TangentBlend, BelowOneTheAnglesAreWrittenAndTheTypeBecomesFixed)
{
    pickKeys("ball_translateX", {2});
    const TangentSide oldIn = tangentSide("ball_translateX", 2, true);
    const TangentSide oldOut = tangentSide("ball_translateX", 2, false);
    const TangentSide leftOut = tangentSide("ball_translateX", 1, false);
    const TangentSide rightIn = tangentSide("ball_translateX", 3, true);
    ASSERT_TRUE(mel("OVTangentBlending -bt 0 -bv 0.999"));
    // The probe set the type on the whole curve; the other keys show nothing of it.
    EXPECT_EQ(tangentSide("ball_translateX", 1, false).angle, leftOut.angle);
    EXPECT_EQ(tangentSide("ball_translateX", 1, false).type, MFnAnimCurve::kTangentSmooth);
    EXPECT_EQ(tangentSide("ball_translateX", 3, true).angle, rightIn.angle);
    EXPECT_EQ(tangentSide("ball_translateX", 3, true).type, MFnAnimCurve::kTangentSmooth);
    const TangentSide in = tangentSide("ball_translateX", 2, true);
    const TangentSide out = tangentSide("ball_translateX", 2, false);
    EXPECT_EQ(in.type, MFnAnimCurve::kTangentFixed);
    EXPECT_EQ(out.type, MFnAnimCurve::kTangentFixed);
    EXPECT_NEAR(in.angle, oldIn.angle + (std::atan(-6.0 / 5.0) - oldIn.angle) * 0.999, 1e-9);
    EXPECT_NEAR(out.angle, oldOut.angle + (std::atan(16.0 / 5.0) - oldOut.angle) * 0.999, 1e-9);
}

TEST_F(TangentBlend, BlendOfZeroStillFixesTheOldAngles)
{
    pickKeys("ball_translateX", {2});
    const TangentSide oldIn = tangentSide("ball_translateX", 2, true);
    ASSERT_TRUE(mel("OVTangentBlending -bt 0 -bv 0"));
    const TangentSide in = tangentSide("ball_translateX", 2, true);
    EXPECT_EQ(in.type, MFnAnimCurve::kTangentFixed);
    EXPECT_NEAR(in.angle, oldIn.angle, 1e-12);
}

TEST_F(TangentBlend, HalfwayToFlatHalvesTheAngleAndWritesNoWeight)
{
    pickKeys("ball_translateX", {1});
    const TangentSide oldOut = tangentSide("ball_translateX", 1, false);
    ASSERT_TRUE(mel("OVTangentBlending -bt 2 -bv 0.5"));
    const TangentSide out = tangentSide("ball_translateX", 1, false);
    EXPECT_NEAR(out.angle, oldOut.angle / 2, 1e-12);
    EXPECT_EQ(out.weight, 1.0);
}

// Every type of the table, on the unweighted and the weighted curve: a blend
// lands at its share of the way to what the type itself gives.
TEST_F(TangentBlend, EveryTypeBlendsAnglesAndWeightsTowardTheType)
{
    for (const char* curve : {"ball_translateX", "ball_translateY"}) {
        const bool weighted = std::string(curve) == "ball_translateY";
        for (int type = 0; type < TangentBlending::TangentTypeCount; ++type) {
            SCOPED_TRACE(std::string(curve) + " type " + std::to_string(type));
            ASSERT_TRUE(mel("select -cl"));
            pickKeys(curve, {2});
            const std::string before = sceneText();
            const TangentSide oldIn = tangentSide(curve, 2, true);
            const TangentSide oldOut = tangentSide(curve, 2, false);

            ASSERT_TRUE(mel("OVTangentBlending -bt " + std::to_string(type) + " -bv 1"));
            EXPECT_EQ(tangentSide(curve, 2, true).type, TangentBlending::tangentType(type));
            EXPECT_EQ(tangentSide(curve, 2, false).type, TangentBlending::tangentType(type));
            const TangentSide targetIn = tangentSide(curve, 2, true);
            const TangentSide targetOut = tangentSide(curve, 2, false);
            ASSERT_TRUE(mel("undo"));

            ASSERT_TRUE(mel("OVTangentBlending -bt " + std::to_string(type) + " -bv 0.25"));
            const TangentSide in = tangentSide(curve, 2, true);
            const TangentSide out = tangentSide(curve, 2, false);
            EXPECT_NEAR(in.angle, oldIn.angle + (targetIn.angle - oldIn.angle) * 0.25, 1e-9);
            EXPECT_NEAR(out.angle, oldOut.angle + (targetOut.angle - oldOut.angle) * 0.25, 1e-9);
            if (weighted) {
                EXPECT_NEAR(in.weight, oldIn.weight + (targetIn.weight - oldIn.weight) * 0.25, 1e-9);
                EXPECT_NEAR(out.weight, oldOut.weight + (targetOut.weight - oldOut.weight) * 0.25, 1e-9);
            } else {
                EXPECT_EQ(in.weight, 1.0);
            }
            ASSERT_TRUE(mel("undo"));
            EXPECT_EQ(sceneText(), before);
        }
    }
}

TEST_F(TangentBlend, SideFlagsChooseTheSides)
{
    pickKeys("ball_translateX", {2});
    const TangentSide oldOut = tangentSide("ball_translateX", 2, false);
    ASSERT_TRUE(mel("OVTangentBlending -bt 2 -bv 1 -i"));
    EXPECT_EQ(tangentSide("ball_translateX", 2, true).type, MFnAnimCurve::kTangentFlat);
    EXPECT_EQ(tangentSide("ball_translateX", 2, false).type, MFnAnimCurve::kTangentSmooth);
    EXPECT_EQ(tangentSide("ball_translateX", 2, false).angle, oldOut.angle);

    ASSERT_TRUE(mel("OVTangentBlending -bt 0 -bv 1 -o"));
    EXPECT_EQ(tangentSide("ball_translateX", 2, true).type, MFnAnimCurve::kTangentFlat);
    EXPECT_EQ(tangentSide("ball_translateX", 2, false).type, MFnAnimCurve::kTangentLinear);

    ASSERT_TRUE(mel("OVTangentBlending -bt 6 -bv 1 -i -o"));
    EXPECT_EQ(tangentSide("ball_translateX", 2, true).type, MFnAnimCurve::kTangentStep);
    EXPECT_EQ(tangentSide("ball_translateX", 2, false).type, MFnAnimCurve::kTangentStep);
}

// The first key has no in side to blend and the last no out side.
TEST_F(TangentBlend, CurveEndsKeepTheirOuterSides)
{
    pickKeys("ball_translateX", {0, 4});
    const TangentSide firstIn = tangentSide("ball_translateX", 0, true);
    const TangentSide lastOut = tangentSide("ball_translateX", 4, false);
    ASSERT_TRUE(mel("OVTangentBlending -bt 2 -bv 0.5"));
    EXPECT_EQ(tangentSide("ball_translateX", 0, true).type, MFnAnimCurve::kTangentSmooth);
    EXPECT_EQ(tangentSide("ball_translateX", 0, false).type, MFnAnimCurve::kTangentFixed);
    EXPECT_EQ(tangentSide("ball_translateX", 4, true).type, MFnAnimCurve::kTangentFixed);
    EXPECT_EQ(tangentSide("ball_translateX", 4, false).type, MFnAnimCurve::kTangentSmooth);
    ASSERT_TRUE(mel("OVTangentBlending -bt 2 -bv 1"));
    EXPECT_EQ(tangentSide("ball_translateX", 0, true).type, MFnAnimCurve::kTangentSmooth);
    EXPECT_EQ(tangentSide("ball_translateX", 0, true).angle, firstIn.angle);
    EXPECT_EQ(tangentSide("ball_translateX", 4, false).type, MFnAnimCurve::kTangentSmooth);
    EXPECT_EQ(tangentSide("ball_translateX", 4, false).angle, lastOut.angle);
}

TEST_F(TangentBlend, SingleKeyCurveHasNeitherSide)
{
    ASSERT_TRUE(mel("currentTime 5"));
    const TangentSide in = tangentSide("ball_scaleX", 0, true);
    ASSERT_TRUE(mel("OVTangentBlending -bt 0 -bv 0.5"));
    EXPECT_EQ(tangentSide("ball_scaleX", 0, true).type, in.type);
    EXPECT_EQ(tangentSide("ball_scaleX", 0, true).angle, in.angle);
    EXPECT_TRUE(locked("ball_scaleX", 0));
}

// Writing one side of a locked key would turn the other: the key is opened
// for the write and closed again; an open key stays open.
TEST_F(TangentBlend, LockedTangentsAreUnlockedForTheWriteAndLockedAgain)
{
    pickKeys("ball_translateX", {2, 3});
    const TangentSide in2 = tangentSide("ball_translateX", 2, true);
    const TangentSide in3 = tangentSide("ball_translateX", 3, true);
    ASSERT_TRUE(mel("OVTangentBlending -bt 2 -bv 0.5 -o"));
    EXPECT_TRUE(locked("ball_translateX", 2));
    EXPECT_FALSE(locked("ball_translateX", 3));
    EXPECT_EQ(tangentSide("ball_translateX", 2, true).angle, in2.angle);
    EXPECT_EQ(tangentSide("ball_translateX", 3, true).angle, in3.angle);
    EXPECT_EQ(tangentSide("ball_translateX", 2, true).type, MFnAnimCurve::kTangentSmooth);
}

// Driving the Manager as the slider does: collection alone changes nothing,
// each step starts from the tangents at the press, and undo takes all back.
TEST_F(TangentBlend, DragIsOneUndoStepWithoutDrift)
{
    pickKeys("ball_translateY", {1, 2});
    const std::string before = sceneText();
    ASSERT_TRUE(MGlobal::executeCommand("OVTangentBlending -internal", false, true));
    TangentBlending::Manager* manager = TangentBlending::activeData;
    ASSERT_NE(manager, nullptr);

    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    manager->setBlendType(5);
    manager->setInTangent(true);
    manager->setOutTangent(true);
    manager->collect(selection);
    EXPECT_EQ(sceneText(), before);
    // Setting angle then weight starts from the handle already there, so
    // steps agree with a single blend to rounding.
    for (double blend : {0.3, -0.9, 1.7, 0.5})
        manager->apply(blend);
    const TangentSide in = tangentSide("ball_translateY", 1, true);
    const TangentSide out = tangentSide("ball_translateY", 2, false);
    TangentBlending::activeData = nullptr;

    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(sceneText(), before);
    ASSERT_TRUE(mel("OVTangentBlending -bt 5 -bv 0.5"));
    EXPECT_NEAR(tangentSide("ball_translateY", 1, true).angle, in.angle, 1e-12);
    EXPECT_NEAR(tangentSide("ball_translateY", 1, true).weight, in.weight, 1e-12);
    EXPECT_NEAR(tangentSide("ball_translateY", 2, false).angle, out.angle, 1e-12);
    EXPECT_NEAR(tangentSide("ball_translateY", 2, false).weight, out.weight, 1e-12);
}

TEST_F(TangentBlend, InternalAloneTouchesNoKeyAndTheCommandClearsItsPointer)
{
    const std::string before = sceneText();
    ASSERT_TRUE(MGlobal::executeCommand("OVTangentBlending -internal", false, true));
    EXPECT_NE(TangentBlending::activeData, nullptr);
    EXPECT_EQ(sceneText(), before);
    // A new scene flushes the undo queue, which deletes the command.
    ASSERT_TRUE(mel("file -f -new"));
    EXPECT_EQ(TangentBlending::activeData, nullptr);
}

TEST_F(TangentBlend, MissingValueAndTypeAreReportedAndDefaulted)
{
    ASSERT_TRUE(mel("currentTime 10"));
    const TangentSide in = tangentSide("ball_translateX", 2, true);
    ASSERT_TRUE(mel("OVTangentBlending"));
    // Blend 0 toward "Auto": the old angle, now fixed.
    EXPECT_EQ(tangentSide("ball_translateX", 2, true).type, MFnAnimCurve::kTangentFixed);
    EXPECT_NEAR(tangentSide("ball_translateX", 2, true).angle, in.angle, 1e-12);
    const auto blocks = reports();
    ASSERT_EQ(blocks.size(), 2u);
    EXPECT_THAT(blocks[0], HasSubstr("Message: no blend value specified so, the value 0 "
                                     "will be used\nto specify "
                                     "blend value use flag [-bv, -blendValue]\n\n\n"));
    EXPECT_THAT(blocks[1], HasSubstr("Message: no blend type specified\nso, the default blend type [Auto] "
                                     "will be "
                                     "used\n\nuse flag [-bt, -blendType] with any of these types:\n"
                                     "Linear                      => 0\nPlateau                     => 1\n"
                                     "Flat                        => 2\nClamped                     => 3\n"
                                     "Spline                      => 4\nAuto                        => 5\n"
                                     "Step                        => 6\n\n\nFunction: doIt\n"));
    EXPECT_THAT(blocks[1], HasSubstr("File: Cmd\n"));
}

TEST_F(TangentBlend, TypesOutsideTheTableBlendToAuto)
{
    pickKeys("ball_translateX", {2});
    // Numbers beyond any int are no types either.
    for (const char* type : {"7", "-1", "1e12", "-3e9"}) {
        mayasim::host::clearOutput();
        ASSERT_TRUE(mel(std::string("OVTangentBlending -bv 1 -bt ") + type));
        ASSERT_EQ(reports().size(), 1u);
        EXPECT_THAT(reports()[0], HasSubstr("Message: Invalid Blend Type\nThe Default Blend Type Auto Will Be "
                                            "Used\n\nValid Blend Types is:\nLinear                      => "
                                            "0\n"));
        EXPECT_THAT(reports()[0], HasSubstr("Function: setBlendType\n"));
        EXPECT_THAT(reports()[0], HasSubstr("File: Manager\n"));
        EXPECT_EQ(tangentSide("ball_translateX", 2, true).type, MFnAnimCurve::kTangentAuto);
    }
    // Truncated toward zero: 2.9 is "Flat".
    ASSERT_TRUE(mel("OVTangentBlending -bv 1 -bt 2.9"));
    EXPECT_EQ(tangentSide("ball_translateX", 2, true).type, MFnAnimCurve::kTangentFlat);
}

TEST_F(TangentBlend, BadArgumentsAndNoObjectsFail)
{
    const std::string before = sceneText();
    // Maya checks the flags against the syntax before the command runs.
    EXPECT_FALSE(mel("OVTangentBlending -bv abc"));
    EXPECT_FALSE(mel("OVTangentBlending -bt 2 -bv 1 -nosuchflag"));
    EXPECT_TRUE(reports().empty());
    // A number too large for a double reads as an infinity: reported with
    // its flag, and the command fails before it touches a tangent.
    for (const std::string flags : {"-bt 2 -bv 1e400", "-bt -1e400 -bv 1", "-internal -bv -1e400"}) {
        mayasim::host::clearOutput();
        EXPECT_FALSE(mel("OVTangentBlending " + flags)) << flags;
        ASSERT_EQ(reports().size(), 1u) << flags;
        EXPECT_THAT(reports()[0], HasSubstr(" flag needs a finite number\n\nFunction: doIt\n"));
        EXPECT_THAT(reports()[0], HasSubstr("File: Cmd\n"));
    }
    EXPECT_THAT(reports()[0], HasSubstr("Message: [-bv, -blendValue] flag needs"));
    EXPECT_EQ(TangentBlending::activeData, nullptr);
    mayasim::host::clearOutput();
    ASSERT_TRUE(mel("select -cl"));
    EXPECT_FALSE(mel("OVTangentBlending -bt 2 -bv 1"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: no object/s specified\n"));
    EXPECT_EQ(sceneText(), before);
}

} // namespace
