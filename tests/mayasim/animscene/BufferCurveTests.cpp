// bufferCurve as Maya documents it: a snapshot of whole curves (the picked
// keys' curves with -animation keys), kept unless -overwrite is true, and a
// swap that exchanges curve and buffer, is its own inverse, and leaves a
// curve without a buffer alone.
#include "SceneTest.h"

#include <mayasim/Host.h>

using namespace animscene;

namespace {

class BufferCurve : public SceneTest
{
protected:
    void SetUp() override
    {
        SceneTest::SetUp();
        // box.tx: 0, 10, 4 at frames 1, 11, 21, the first key out linear;
        // box.ty: a single key.
        ASSERT_TRUE(mel("createNode transform -n box"));
        ASSERT_TRUE(mel("setKeyframe -t 1 -v 0 -at tx box; setKeyframe -t 11 -v 10 -at tx box; "
                        "setKeyframe -t 21 -v 4 -at tx box; keyTangent -e -ott linear -t 1 box_translateX; "
                        "setKeyframe -t 5 -v 2 -at ty box"));
    }

    // Everything the curve holds that a swap exchanges.
    static std::vector<double> curveX()
    {
        std::vector<double> all = melNumbers("keyframe -q -tc -vc box_translateX");
        for (const char* query : {"-ia", "-oa", "-iw", "-ow"})
            for (double number : melNumbers(std::string("keyTangent -q ") + query + " box_translateX"))
                all.push_back(number);
        all.push_back(melNumber("getAttr box_translateX.postInfinity"));
        return all;
    }

    static void editX()
    {
        ASSERT_TRUE(mel("keyframe -e -vc 8 -t 11 box_translateX; cutKey -cl -t 21 box_translateX; "
                        "setAttr box_translateX.postInfinity 4"));
    }
};

} // namespace

TEST_F(BufferCurve, SnapshotOfThePickedKeysCurvesOnly)
{
    EXPECT_EQ(melNumber("bufferCurve -q -ex box_translateX"), 0.0);
    EXPECT_EQ(melNumber("bufferCurve -animation keys -overwrite true"), 0.0); // nothing picked
    ASSERT_TRUE(mayasim::host::selectKeys("box_translateX", {1}));
    EXPECT_EQ(melNumber("bufferCurve -animation keys -overwrite true"), 1.0);
    EXPECT_EQ(melNumber("bufferCurve -q -ex box_translateX"), 1.0);
    EXPECT_EQ(melNumber("bufferCurve -q -ex box_translateY"), 0.0);
    EXPECT_EQ(melNumber("bufferCurve -q -useReferencedCurve box_translateX"), 0.0);
}

TEST_F(BufferCurve, WithoutOverwriteAnExistingBufferStays)
{
    const std::vector<double> original = curveX();
    ASSERT_TRUE(mel("bufferCurve box_translateX"));
    editX();
    EXPECT_EQ(melNumber("bufferCurve box_translateX"), 1.0);
    EXPECT_EQ(melNumber("bufferCurve -ov false box_translateX"), 1.0);
    ASSERT_TRUE(mel("bufferCurve -sw box_translateX"));
    EXPECT_EQ(curveX(), original);
}

TEST_F(BufferCurve, OverwriteTakesTheCurveAsItIsNow)
{
    ASSERT_TRUE(mel("bufferCurve box_translateX"));
    editX();
    const std::vector<double> edited = curveX();
    ASSERT_TRUE(mel("bufferCurve -overwrite true box_translateX"));
    ASSERT_TRUE(mel("bufferCurve -swap box_translateX"));
    EXPECT_EQ(curveX(), edited);
}

TEST_F(BufferCurve, SwapExchangesCurveAndBufferAndIsItsOwnInverse)
{
    const std::vector<double> original = curveX();
    ASSERT_TRUE(mel("bufferCurve -ov true box_translateX"));
    editX();
    const std::vector<double> edited = curveX();
    EXPECT_EQ(melNumber("bufferCurve -swap \"box_translateX\""), 1.0);
    EXPECT_EQ(curveX(), original);
    EXPECT_EQ(melStrings("keyTangent -q -ott -t 1 box_translateX"), std::vector<std::string>{"linear"});
    ASSERT_TRUE(mel("bufferCurve -swap \"box_translateX\""));
    EXPECT_EQ(curveX(), edited);
    // Undo takes back the curve and the buffer alike.
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(curveX(), original);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(curveX(), edited);
    ASSERT_TRUE(mel("bufferCurve -swap box_translateX"));
    EXPECT_EQ(curveX(), original);
}

TEST_F(BufferCurve, SwapLeavesACurveWithoutABufferAsItIs)
{
    ASSERT_TRUE(mel("bufferCurve -ov true box_translateX"));
    editX();
    const std::vector<double> edited = curveX();
    EXPECT_EQ(melNumber("bufferCurve -swap box_translateY box_translateX"), 1.0);
    EXPECT_EQ(melNumbers("keyframe -q -tc -vc box_translateY"), (std::vector<double>{5, 2}));
    EXPECT_EQ(melNumber("bufferCurve -q -ex box_translateY"), 0.0);
    EXPECT_NE(curveX(), edited);
}

TEST_F(BufferCurve, SwapWithUndoOffLeavesNoStep)
{
    ASSERT_TRUE(mel("bufferCurve -ov true box_translateX"));
    editX();
    const std::vector<double> edited = curveX();
    ASSERT_TRUE(MGlobal::executeCommand("bufferCurve -swap box_translateX", false, false));
    ASSERT_TRUE(MGlobal::executeCommand("bufferCurve -swap box_translateX", false, false));
    EXPECT_EQ(curveX(), edited);
    // The last step is still the last edit before the swaps.
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melNumber("getAttr box_translateX.postInfinity"), 0.0);
    EXPECT_EQ(melNumbers("keyframe -q -tc -vc box_translateX"), (std::vector<double>{1, 0, 11, 8}));
}
