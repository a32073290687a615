// Infinity, Noise Wave, Smooth Rough, Gap Smoother and Buffer end to end:
// their numbers on small curves, the keys they leave alone, and one undo
// step per command or drag.
#include "PluginTest.h"

#include "BlendTest.h"
#include "SliderDrag.h"

#include <maya/MGlobal.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <cmath>

using ::testing::DoubleNear;
using ::testing::ElementsAre;

namespace {

enum BlendType { Infinity = 3, NoiseWave = 17, SmoothRough = 18, GapSmoother = 19, Buffer = 21 };

class CurveShaping : public BlendTest<PluginTest>
{
protected:
    void SetUp() override
    {
        BlendTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n obj"));
    }

    // A slider drag through the given positions; the curve after each, and a
    // check that the drag is one undo step that redo gives again.
    static std::vector<std::vector<double>> dragged(int type, const std::vector<double>& xs,
                                                    const std::string& curve = "obj_translateX")
    {
        std::vector<std::vector<double>> steps;
        expectOneUndoStep([&] {
            KeyBlending::Data* data = pressSlider(type);
            ASSERT_NE(data, nullptr);
            for (double x : xs) {
                data->blend(x);
                steps.push_back(keyValues(curve));
            }
            releaseSlider(*data);
        });
        EXPECT_TRUE(mel("undo"));
        return steps;
    }
};

// --- Infinity ----------------------------------------------------------------

class InfinityBlend : public CurveShaping
{
protected:
    void SetUp() override
    {
        CurveShaping::SetUp();
        keyPlug("obj.tx", {{1, 0}, {2, 10}, {3, 25}, {4, 30}, {5, 40}, {6, 50}, {7, 70}, {8, 80}});
    }
};

TEST_F(InfinityBlend, RunCarriesOnTheLineOfTheOtherSide)
{
    pickKeys("obj_translateX", {3, 4});
    // Above 0: the line through frames 2 (10) and 3 (25), slope 15.
    EXPECT_THAT(blended(Infinity, 1), ElementsAre(0, 10, 25, 40, 55, 50, 70, 80));
    EXPECT_THAT(blended(Infinity, 0.5), ElementsAre(0, 10, 25, 35, 47.5, 50, 70, 80));
    // Below 0: the line through frames 6 (50) and 7 (70), slope 20.
    EXPECT_THAT(blended(Infinity, -1), ElementsAre(0, 10, 25, 10, 30, 50, 70, 80));
    EXPECT_THAT(blended(Infinity, -0.5), ElementsAre(0, 10, 25, 20, 35, 50, 70, 80));
    EXPECT_THAT(blended(Infinity, 0), ElementsAre(0, 10, 25, 30, 40, 50, 70, 80));
    // Beyond the slider's range the keys overshoot the line.
    EXPECT_THAT(blended(Infinity, 2), ElementsAre(0, 10, 25, 50, 70, 50, 70, 80));
}

TEST_F(InfinityBlend, RunAtTheStartTakesAFlatLineAtTheFirstKey)
{
    pickKeys("obj_translateX", {0, 1});
    EXPECT_THAT(blended(Infinity, 1), ElementsAre(0, 0, 25, 30, 40, 50, 70, 80));
    EXPECT_THAT(blended(Infinity, 0.5), ElementsAre(0, 5, 25, 30, 40, 50, 70, 80));
    // Key 1 alone has only key 0 before it: flat as well.
    mayasim::host::clearKeySelection();
    pickKeys("obj_translateX", {1});
    EXPECT_THAT(blended(Infinity, 1), ElementsAre(0, 0, 25, 30, 40, 50, 70, 80));
}

TEST_F(InfinityBlend, RunAtTheEndHasNothingAfterIt)
{
    pickKeys("obj_translateX", {7});
    EXPECT_EQ(curvesEditedBy(blendCommand(Infinity, -1)), 0u);
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(0, 10, 25, 30, 40, 50, 70, 80));
    // One key before the end: flat at the last key.
    mayasim::host::clearKeySelection();
    pickKeys("obj_translateX", {6});
    EXPECT_THAT(blended(Infinity, -1), ElementsAre(0, 10, 25, 30, 40, 50, 80, 80));
}

TEST_F(InfinityBlend, EachRunHasItsOwnLines)
{
    pickKeys("obj_translateX", {2, 6});
    // Key 2 continues frames 1..2, or from the other side frames 4..5 (both
    // slope 10); key 6 continues frames 5..6, or holds the last key.
    EXPECT_THAT(blended(Infinity, 1), ElementsAre(0, 10, 20, 30, 40, 50, 60, 80));
    EXPECT_THAT(blended(Infinity, -1), ElementsAre(0, 10, 20, 30, 40, 50, 80, 80));
}

// --- Noise Wave --------------------------------------------------------------

class NoiseWaveBlend : public CurveShaping
{
protected:
    void SetUp() override
    {
        CurveShaping::SetUp();
        keyPlug("obj.tx", {{1, 0}, {2, 10}, {3, 10}, {4, 4}, {5, 20}});
        keyPlug("obj.ty", {{1, 5}, {2, 5}, {3, 5}});
    }
};

TEST_F(NoiseWaveBlend, WaveAlternatesByTheRangeOfTheKeys)
{
    pickKeys("obj_translateX", {2, 3, 4});
    // Range 16 (4 to 20); the first key goes down.
    EXPECT_THAT(blended(NoiseWave, 1), ElementsAre(0, 10, -6, 20, 4));
    EXPECT_THAT(blended(NoiseWave, 0.25), ElementsAre(0, 10, 6, 8, 16));
}

TEST_F(NoiseWaveBlend, KeysOfOneValueTakeTheWholeCurvesRange)
{
    pickKeys("obj_translateX", {1, 2});
    EXPECT_THAT(blended(NoiseWave, 1), ElementsAre(0, -10, 30, 4, 20));
    EXPECT_THAT(blended(NoiseWave, 0.5), ElementsAre(0, 0, 20, 4, 20));
}

TEST_F(NoiseWaveBlend, AFlatCurveTakesARangeOfOne)
{
    // Each curve has its own range, and its wave starts downward again.
    pickKeys("obj_translateX", {2, 3, 4});
    pickKeys("obj_translateY", {0, 1, 2});
    EXPECT_THAT(blended(NoiseWave, 1, "obj_translateY"), ElementsAre(4, 6, 4));
    EXPECT_THAT(blended(NoiseWave, 2, "obj_translateY"), ElementsAre(3, 7, 3));
    EXPECT_THAT(blended(NoiseWave, 1), ElementsAre(0, 10, -6, 20, 4));
}

TEST_F(NoiseWaveBlend, AtRestNothingIsWritten)
{
    pickKeys("obj_translateX", {1, 2, 3});
    EXPECT_EQ(curvesEditedBy(blendCommand(NoiseWave, 0)), 0u);
    // In a drag the keys keep what the last step wrote.
    const auto steps = dragged(NoiseWave, {0.5, 0});
    EXPECT_EQ(steps[1], steps[0]);
    // Range 6 (4 to 10): halfway is 3 down, up, down.
    EXPECT_THAT(steps[1], ElementsAre(0, 7, 13, 1, 20));
}

TEST_F(NoiseWaveBlend, NoiseIsFixedWithinADragAndNewInTheNext)
{
    pickKeys("obj_translateX", {1, 2, 3});
    const std::vector<double> keys = {10, 10, 4};
    const auto first = dragged(NoiseWave, {-1, 0.5, -0.5, -1});
    // Noise within the range (6) of the keys, the same each time x returns.
    for (size_t k = 0; k < keys.size(); ++k) {
        const double noise = first[0][k + 1] - keys[k];
        EXPECT_LT(std::fabs(noise), 6.0);
        EXPECT_THAT(first[2][k + 1], DoubleNear(keys[k] + noise * 0.5, 1e-12));
    }
    EXPECT_EQ(first[3], first[0]);
    EXPECT_NE(first[0], first[1]);
    // Another drag draws other numbers.
    const auto second = dragged(NoiseWave, {-1});
    EXPECT_NE(second[0], first[0]);
}

// --- Smooth Rough ------------------------------------------------------------

class SmoothRoughBlend : public CurveShaping
{
protected:
    void SetUp() override
    {
        CurveShaping::SetUp();
        keyPlug("obj.tx", {{1, 0}, {3, 50}, {4, 20}, {9, 80}});
        keyPlug("obj.ty", {{2, 7}});
    }
};

TEST_F(SmoothRoughBlend, KeysMoveAboutTheLineThroughTheirCurveNeighbours)
{
    // Picked together, each key still compares with its own neighbours on
    // the curve: key 1 with the line of frames 1 and 4 (40/3 at frame 3),
    // key 2 with that of frames 3 and 9 (55 at frame 4).
    pickKeys("obj_translateX", {1, 2});
    const double line1 = 40.0 / 3.0;
    EXPECT_THAT(blended(SmoothRough, -1), ElementsAre(0, DoubleNear((50 - line1) * 0.5 + line1, 1e-12), 37.5, 80));
    EXPECT_THAT(blended(SmoothRough, 1), ElementsAre(0, DoubleNear((50 - line1) * 2 + line1, 1e-12), -15, 80));
    EXPECT_THAT(blended(SmoothRough, 0), ElementsAre(0, 50, 20, 80));
    EXPECT_THAT(blended(SmoothRough, -2), ElementsAre(0, DoubleNear(line1, 1e-12), 55, 80));
}

TEST_F(SmoothRoughBlend, EndKeysCompareWithTheMiddleOfTheirOnlyNeighbour)
{
    pickKeys("obj_translateX", {0, 3});
    // Key 0 about 25, key 3 about 50.
    EXPECT_THAT(blended(SmoothRough, -1), ElementsAre(12.5, 50, 20, 65));
    EXPECT_THAT(blended(SmoothRough, 0.5), ElementsAre(-12.5, 50, 20, 95));
}

TEST_F(SmoothRoughBlend, ALoneKeyHasNoLine)
{
    pickKeys("obj_translateY", {0});
    EXPECT_EQ(curvesEditedBy(blendCommand(SmoothRough, 1)), 0u);
    EXPECT_THAT(keyValues("obj_translateY"), ElementsAre(7));
}

// --- Gap Smoother ------------------------------------------------------------

class GapSmootherBlend : public CurveShaping
{
protected:
    // A run of keys 1..3 between key 0 (0) and key 4 (20), frames 1..5: the
    // steps along it are 1, 10, third - 11 and 20 - third.
    void keyRun(double third)
    {
        keyPlug("obj.tx", {{1, 0}, {2, 1}, {3, 11}, {4, third}, {5, 20}});
        pickKeys("obj_translateX", {1, 2, 3});
    }
};

TEST_F(GapSmootherBlend, TheJumpIsSpreadOverTheRunOnAnSCurve)
{
    // Steps 1, 10, 8, 1: 8 is exactly 0.8 of 10, so the jump dominates.
    // Delta 20, ratio 0.5; u = 1/4, 1/2, 3/4; the jump lies before key 2.
    keyRun(19);
    EXPECT_THAT(blended(GapSmoother, 1), ElementsAre(0, 1.625, 6, 18.375, 20));
    EXPECT_THAT(blended(GapSmoother, -1), ElementsAre(0, 1.625, 6, 18.375, 20));
    EXPECT_THAT(blended(GapSmoother, 0.5), ElementsAre(0, 1.625, 8.5, 18.375, 20));
    // a = 0 aims every key at where it comes from.
    EXPECT_THAT(blended(GapSmoother, 0), ElementsAre(0, 1, 11, 19, 20));
}

TEST_F(GapSmootherBlend, NoJumpDominatesWhenTheNextIsAboveFourFifths)
{
    keyRun(19.1);
    EXPECT_EQ(curvesEditedBy(blendCommand(GapSmoother, 1)), 0u);
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(0, 1, 11, 19.1, 20));
}

TEST_F(GapSmootherBlend, ARunOfOneKeyOrWithoutChangeIsLeftAlone)
{
    keyPlug("obj.tx", {{1, 0}, {2, 9}, {3, 0}});
    pickKeys("obj_translateX", {1});
    EXPECT_EQ(curvesEditedBy(blendCommand(GapSmoother, 1)), 0u);
    // Keys 0 and 1 of a curve that ends where it starts: no change to spread.
    keyPlug("obj.ty", {{1, 3}, {2, 8}, {3, 3}, {4, 3}});
    mayasim::host::clearKeySelection();
    pickKeys("obj_translateY", {1, 2});
    EXPECT_EQ(curvesEditedBy(blendCommand(GapSmoother, 1)), 0u);
}

// --- Buffer ------------------------------------------------------------------

class BufferBlend : public CurveShaping
{
protected:
    void SetUp() override
    {
        CurveShaping::SetUp();
        // The buffer holds a straight line from 0 at frame 1 to 40 at frame
        // 5; the curve then gets keys off it.
        keyPlug("obj.tx", {{1, 0}, {5, 40}});
        ASSERT_TRUE(mel("keyTangent -e -itt linear -ott linear obj_translateX"));
        ASSERT_TRUE(mel("bufferCurve -animation objects -overwrite true obj_translateX"));
        keyPlug("obj.tx", {{2, 16}, {3, 26}, {5, 50}});
    }

    // The buffer evaluates its linear segment to within rounding.
    static auto near(double value) { return DoubleNear(value, 1e-9); }

    // What a swap shows: the buffer's keys (the curve's own if it has none).
    static std::vector<double> swappedIn(const std::string& curve)
    {
        EXPECT_TRUE(MGlobal::executeCommand(("bufferCurve -swap " + curve).c_str(), false, false));
        const std::vector<double> values = keyValues(curve);
        EXPECT_TRUE(MGlobal::executeCommand(("bufferCurve -swap " + curve).c_str(), false, false));
        return values;
    }
};

TEST_F(BufferBlend, KeysMoveTowardTheBufferCurveOrAsFarAway)
{
    pickKeys("obj_translateX", {1, 2});
    // The buffer reads 10 and 20 at frames 2 and 3.
    EXPECT_THAT(blended(Buffer, 1), ElementsAre(0, near(10), near(20), 50));
    EXPECT_THAT(blended(Buffer, 0.5), ElementsAre(0, near(13), near(23), 50));
    EXPECT_THAT(blended(Buffer, -1), ElementsAre(0, near(22), near(32), 50));
    EXPECT_THAT(blended(Buffer, 0), ElementsAre(0, 16, 26, 50));
}

TEST_F(BufferBlend, TheSwapLeavesCurveAndBufferAsTheyWere)
{
    pickKeys("obj_translateX", {1, 2, 3});
    const std::string curve = sceneText();
    const auto steps = dragged(Buffer, {1, -0.5});
    EXPECT_THAT(steps[0], ElementsAre(0, near(10), near(20), near(40)));
    EXPECT_THAT(steps[1], ElementsAre(0, near(19), near(29), near(55)));
    EXPECT_EQ(sceneText(), curve);
    EXPECT_EQ(swappedIn("obj_translateX"), (std::vector<double>{0, 40}));
    EXPECT_EQ(sceneText(), curve);
}

TEST_F(BufferBlend, ACurveWithoutABufferIsItsOwnTarget)
{
    keyPlug("obj.ty", {{1, 3}, {2, 8}, {3, 4}});
    pickKeys("obj_translateY", {1});
    EXPECT_THAT(blended(Buffer, 1, "obj_translateY"), ElementsAre(3, 8, 4));
    EXPECT_THAT(blended(Buffer, -1, "obj_translateY"), ElementsAre(3, 8, 4));
    EXPECT_EQ(swappedIn("obj_translateY"), (std::vector<double>{3, 8, 4}));
    int exists = -1;
    ASSERT_TRUE(MGlobal::executeCommand("bufferCurve -q -exists obj_translateY", exists));
    EXPECT_EQ(exists, 0);
}

} // namespace
