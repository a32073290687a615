// OVTangent end to end: one type on the collected keys, both ends of the
// curve included, no key created, and the reports.
#include "TangentCurvesTest.h"

#include <gmock/gmock.h>

using ::testing::HasSubstr;

namespace {

MFnAnimCurve::TangentType typeOf(const char* curve, unsigned int index, bool in)
{
    return tangentSide(curve, index, in).type;
}

using TangentType = TangentCurvesTest;

// At frame 5 translateY has no key: that curve is left out and gets none.
TEST_F(TangentType, CurrentFrameSetsBothSidesAndLeavesCurvesWithoutAKeyOut)
{
    ASSERT_TRUE(mel("currentTime 5"));
    expectOneUndoStep([] {
        ASSERT_TRUE(mel("OVTangent -bt 5"));
        EXPECT_EQ(typeOf("ball_translateX", 1, true), MFnAnimCurve::kTangentAuto);
        EXPECT_EQ(typeOf("ball_translateX", 1, false), MFnAnimCurve::kTangentAuto);
        EXPECT_EQ(typeOf("ball_translateX", 2, true), MFnAnimCurve::kTangentSmooth);
        EXPECT_EQ(typeOf("ball_scaleX", 0, true), MFnAnimCurve::kTangentAuto);
        EXPECT_EQ(keyTimes("ball_translateY"), (std::vector<double>{1, 8, 14, 20}));
        for (unsigned int index = 0; index < 4; ++index)
            EXPECT_EQ(typeOf("ball_translateY", index, true), MFnAnimCurve::kTangentSmooth);
        EXPECT_TRUE(reports().empty());
    });
}

// Unlike the blend, the type goes on both sides of the first and last keys.
TEST_F(TangentType, SideFlagsChooseTheSidesAndTheEndsAreWritten)
{
    pickKeys("ball_translateX", {0, 4});
    ASSERT_TRUE(mel("OVTangent -bt 0 -i"));
    EXPECT_EQ(typeOf("ball_translateX", 0, true), MFnAnimCurve::kTangentLinear);
    EXPECT_EQ(typeOf("ball_translateX", 0, false), MFnAnimCurve::kTangentSmooth);
    EXPECT_EQ(typeOf("ball_translateX", 4, true), MFnAnimCurve::kTangentLinear);
    ASSERT_TRUE(mel("OVTangent -bt 6 -o"));
    EXPECT_EQ(typeOf("ball_translateX", 0, false), MFnAnimCurve::kTangentStep);
    EXPECT_EQ(typeOf("ball_translateX", 4, false), MFnAnimCurve::kTangentStep);
    EXPECT_EQ(typeOf("ball_translateX", 4, true), MFnAnimCurve::kTangentLinear);
    ASSERT_TRUE(mel("OVTangent -bt 3 -i -o"));
    EXPECT_EQ(typeOf("ball_translateX", 4, true), MFnAnimCurve::kTangentClamped);
    EXPECT_EQ(typeOf("ball_translateX", 4, false), MFnAnimCurve::kTangentClamped);
}

TEST_F(TangentType, InvalidOrMissingTypeFailsAndChangesNothing)
{
    ASSERT_TRUE(mel("currentTime 5"));
    const std::string before = sceneText();
    EXPECT_FALSE(mel("OVTangent -bt 7"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: tangent type invalid\n"));

    mayasim::host::clearOutput();
    EXPECT_FALSE(mel("OVTangent -i"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: [-bt, -blendType] flag required\n"));
    EXPECT_THAT(reports()[0], HasSubstr("Function: doIt\n"));
    EXPECT_THAT(reports()[0], HasSubstr("File: Cmd\n"));

    mayasim::host::clearOutput();
    ASSERT_TRUE(mel("select -cl"));
    EXPECT_FALSE(mel("OVTangent -bt 2"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: no object/s specified\n"));

    // Maya checks the flags against the syntax before the command runs.
    mayasim::host::clearOutput();
    EXPECT_FALSE(mel("OVTangent -bt flat ball"));
    EXPECT_FALSE(mel("OVTangent -bt -1 ball"));
    EXPECT_TRUE(reports().empty());
    EXPECT_EQ(sceneText(), before);
}

} // namespace
