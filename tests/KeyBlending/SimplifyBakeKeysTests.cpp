// Simplify Bake Keys end to end: which keys may go and in what order, which
// gaps are filled and how evenly, and that a whole drag is one undo step.
#include "PluginTest.h"

#include "BlendTest.h"
#include "SliderDrag.h"

#include <maya/MFnAnimCurve.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

constexpr int Simplify = 16;

class SimplifyBakeKeys : public BlendTest<PluginTest>
{
protected:
    void SetUp() override
    {
        BlendTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n obj"));
        ASSERT_TRUE(mel("select -r obj"));
        mayasim::host::clearOutput();
    }

    static MFnAnimCurve curveFn() { return MFnAnimCurve(nodeNamed("obj_translateX")); }

    static double curveAt(double frame) { return curveFn().evaluate(MTime(frame, MTime::uiUnit())); }

    // The key times one command leaves; it is undone again.
    static std::vector<double> simplified(double x)
    {
        return readAfter(blendCommand(Simplify, x), [] { return keyTimes("obj_translateX"); });
    }
};

TEST_F(SimplifyBakeKeys, GapOfFiveFramesIsFilledEvenlyOnItsWholeFrames)
{
    keyPlug("obj.tx", {{1, 0}, {2, 10}, {7, 30}});
    mayasim::host::setTimeSliderHighlight(1, 7);
    // The one-frame gap has no free frame; the five-frame gap has four.
    EXPECT_THAT(simplified(1), ElementsAre(1, 2, 3, 4, 5, 6, 7));
    // Half way: two keys, at floor(5/3) and floor(10/3) frames into the gap.
    EXPECT_THAT(simplified(0.5), ElementsAre(1, 2, 3, 5, 7));
    EXPECT_THAT(simplified(0.2), ElementsAre(1, 2, 7));
    EXPECT_THAT(simplified(0), ElementsAre(1, 2, 7));
    // Far past the end, as from a script: every free frame, as at 1.
    EXPECT_THAT(simplified(1e14), ElementsAre(1, 2, 3, 4, 5, 6, 7));
}

// Like the slider, the command thins what is selected now, whatever
// objects it is handed.
TEST_F(SimplifyBakeKeys, WorksOnTheActiveSelectionNotTheGivenObjects)
{
    ASSERT_TRUE(mel("createNode transform -n other"));
    keyPlug("obj.tx", {{1, 0}, {3, 10}, {5, 30}});
    keyPlug("other.tx", {{1, 0}, {3, 10}, {5, 30}});
    ASSERT_TRUE(mel("select -r obj"));
    mayasim::host::setTimeSliderHighlight(1, 5);
    ASSERT_TRUE(mel("OVKeyBlending -bt 16 -bv 1 other"));
    EXPECT_THAT(keyTimes("obj_translateX"), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(keyTimes("other_translateX"), ElementsAre(1, 3, 5));
}

TEST_F(SimplifyBakeKeys, InsertedKeysKeepTheCurvesShape)
{
    keyPlug("obj.tx", {{1, 0}, {2, 10}, {7, 30}, {9, -4}});
    ASSERT_TRUE(mel("keyTangent -e -itt linear -ott linear obj_translateX"));
    mayasim::host::setTimeSliderHighlight(1, 9);
    std::vector<double> expected;
    for (double frame = 1; frame <= 9; ++frame)
        expected.push_back(curveAt(frame));
    ASSERT_TRUE(mel("OVKeyBlending -bt 16 -bv 1"));
    ASSERT_EQ(curveFn().numKeys(), 9u);
    for (unsigned int i = 0; i < 9; ++i)
        EXPECT_NEAR(curveFn().value(i), expected[i], 1e-9) << "frame " << i + 1;
}

TEST_F(SimplifyBakeKeys, DragRightAddsTheKeysOfTheNewSpacingAndUndoesAsOne)
{
    keyPlug("obj.tx", {{1, 0}, {2, 10}, {7, 30}});
    mayasim::host::setTimeSliderHighlight(1, 7);
    expectOneUndoStep([] {
        KeyBlending::Data* data = pressSlider(Simplify);
        ASSERT_NE(data, nullptr);
        data->blend(0.5);
        EXPECT_THAT(keyTimes("obj_translateX"), ElementsAre(1, 2, 3, 5, 7));
        data->blend(1);
        EXPECT_THAT(keyTimes("obj_translateX"), ElementsAre(1, 2, 3, 4, 5, 6, 7));
        // Left in the same drag: the one inner key of the run goes.
        data->blend(-1);
        releaseSlider(*data);
        EXPECT_THAT(keyTimes("obj_translateX"), ElementsAre(1, 3, 4, 5, 6, 7));
    });
}

TEST_F(SimplifyBakeKeys, CurrentFrameBetweenTwoKeysFillsTheirGapWithoutKeyingTheFrame)
{
    keyPlug("obj.tx", {{1, 0}, {6, 50}, {10, 20}});
    keyPlug("obj.ty", {{4, 7}});
    ASSERT_TRUE(mel("currentTime 3.5"));
    EXPECT_THAT(simplified(1), ElementsAre(1, 2, 3, 4, 5, 6, 10));
    EXPECT_THAT(keyTimes("obj_translateY"), ElementsAre(4));
    // Nothing to remove from a single span, and nothing at rest.
    EXPECT_THAT(simplified(-1), ElementsAre(1, 6, 10));
    EXPECT_THAT(simplified(0), ElementsAre(1, 6, 10));
}

TEST_F(SimplifyBakeKeys, CurrentFrameOnAKeyLooksToTheNextKeyAndTheLastKeyBack)
{
    keyPlug("obj.tx", {{1, 0}, {6, 50}, {10, 20}});
    ASSERT_TRUE(mel("currentTime 6"));
    EXPECT_THAT(simplified(1), ElementsAre(1, 6, 7, 8, 9, 10));
    ASSERT_TRUE(mel("currentTime 10"));
    EXPECT_THAT(simplified(1), ElementsAre(1, 6, 7, 8, 9, 10));
    ASSERT_TRUE(mel("currentTime 1"));
    EXPECT_THAT(simplified(1), ElementsAre(1, 2, 3, 4, 5, 6, 10));
    // Outside the keys there is no span to fill.
    ASSERT_TRUE(mel("currentTime -5"));
    EXPECT_THAT(simplified(1), ElementsAre(1, 6, 10));
    ASSERT_TRUE(mel("currentTime 15"));
    EXPECT_THAT(simplified(1), ElementsAre(1, 6, 10));
}

TEST_F(SimplifyBakeKeys, RangeWithOneKeyOrNoneFallsBackToOneSpan)
{
    keyPlug("obj.tx", {{1, 0}, {5, 50}, {9, 20}});
    mayasim::host::setTimeSliderHighlight(4, 6);
    EXPECT_THAT(simplified(1), ElementsAre(1, 5, 6, 7, 8, 9));
    EXPECT_THAT(simplified(-1), ElementsAre(1, 5, 9));
    mayasim::host::setTimeSliderHighlight(8, 10);
    EXPECT_THAT(simplified(1), ElementsAre(1, 5, 6, 7, 8, 9));
    // No key in the range: the span around the current time.
    mayasim::host::setTimeSliderHighlight(2, 4);
    ASSERT_TRUE(mel("currentTime 7"));
    EXPECT_THAT(simplified(1), ElementsAre(1, 5, 6, 7, 8, 9));
}

TEST_F(SimplifyBakeKeys, RunOfTwoPickedKeysHasNothingToRemove)
{
    keyPlug("obj.tx", {{1, 0}, {2, 10}, {3, 25}, {4, 30}, {5, 45}, {6, 50}});
    pickKeys("obj_translateX", {1, 2, 4});
    EXPECT_THAT(simplified(-1), ElementsAre(1, 2, 3, 4, 5, 6));
    // Three neighbouring keys: the middle one can go, at the first step.
    pickKeys("obj_translateX", {1, 2, 3});
    EXPECT_THAT(simplified(-0.01), ElementsAre(1, 2, 4, 5, 6));
}

TEST_F(SimplifyBakeKeys, GapsBetweenPickedKeysCountEveryKeyOfTheCurve)
{
    keyPlug("obj.tx", {{1, 0}, {5, 10}, {9, 0}, {13, 10}, {17, 0}});
    // Frames 5 and 13 picked: the keys between them split the span in two.
    pickKeys("obj_translateX", {1, 3});
    EXPECT_THAT(simplified(1), ElementsAre(1, 5, 6, 7, 8, 9, 10, 11, 12, 13, 17));
}

TEST_F(SimplifyBakeKeys, SmallestStepRemovesTheFlattestOfThirtyKeys)
{
    // A zigzag that widens with time, so that each inner key stands further
    // off its neighbours' line, except frame 17, which lies on it.
    std::vector<std::pair<double, double>> keys;
    for (int frame = 1; frame <= 32; ++frame)
        keys.emplace_back(frame, frame % 2 == 0 ? frame : -frame);
    keys[16].second = 17;
    keyPlug("obj.tx", keys);
    mayasim::host::setTimeSliderHighlight(1, 32);

    const auto without = [](std::initializer_list<double> removed) {
        std::vector<double> times;
        for (double frame = 1; frame <= 32; ++frame)
            if (std::find(removed.begin(), removed.end(), frame) == removed.end())
                times.push_back(frame);
        return times;
    };
    // 30 removable keys: a hundredth of the drag rounds to none, and the
    // minimum of one removal takes the key on the line.
    EXPECT_THAT(simplified(-0.01), ElementsAreArray(without({17})));
    // Two: then frame 2, the smallest zigzag.
    EXPECT_THAT(simplified(-0.1), ElementsAreArray(without({17, 2})));
    // Full drag: two thirds of thirty.
    EXPECT_EQ(simplified(-1).size(), 32u - 20u);
}

TEST_F(SimplifyBakeKeys, FirstStepRemovesOneKeyOfEachCurve)
{
    keyPlug("obj.tx", {{1, 0}, {2, 5}, {3, 20}, {4, 30}});
    keyPlug("obj.ty", {{1, 0}, {2, 1}, {3, 0}, {4, 4}, {5, 0}});
    mayasim::host::setTimeSliderHighlight(1, 5);
    const std::string before = sceneText();
    ASSERT_TRUE(mel("OVKeyBlending -bt 16 -bv -0.01"));
    // tx: frame 3 lies 2.5 off its neighbours' line, frame 2 5 off.
    EXPECT_THAT(keyTimes("obj_translateX"), ElementsAre(1, 2, 4));
    // ty: frame 2 lies 1 off, frames 3 and 4 further.
    EXPECT_THAT(keyTimes("obj_translateY"), ElementsAre(1, 3, 4, 5));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(sceneText(), before);
    // Far past the other end, as from a script: every removable key, as
    // from -1.5 on.
    EXPECT_THAT(simplified(-1.5), ElementsAre(1, 4));
    EXPECT_THAT(simplified(-1e14), ElementsAre(1, 4));
}

// A baked curve: one key per frame on a noisy sine.
class BakedCurve : public SimplifyBakeKeys
{
protected:
    static constexpr int keyCount = 2000;

    struct Snapshot
    {
        std::vector<MTime> times;
        std::vector<double> values;
        std::vector<MFnAnimCurve::TangentValue> tangents; // in x, in y, out x, out y per key
        bool operator==(const Snapshot& other) const
        {
            return times == other.times && values == other.values && tangents == other.tangents;
        }
    };

    void SetUp() override
    {
        SimplifyBakeKeys::SetUp();
        MFnAnimCurve fn;
        fn.create(MFnDependencyNode(nodeNamed("obj")).findPlug("tx", false));
        std::mt19937 random(7);
        std::uniform_real_distribution<double> noise(-0.5, 0.5);
        for (int frame = 1; frame <= keyCount; ++frame)
            fn.addKey(MTime(frame, MTime::uiUnit()), 10.0 * std::sin(frame * 0.05) + noise(random));
        mayasim::host::setTimeSliderHighlight(1, keyCount);
    }

    static Snapshot snapshot()
    {
        const MFnAnimCurve fn = curveFn();
        Snapshot result;
        for (unsigned int i = 0; i < fn.numKeys(); ++i) {
            result.times.push_back(fn.time(i));
            result.values.push_back(fn.value(i));
            for (bool in : {true, false}) {
                MFnAnimCurve::TangentValue x = 0, y = 0;
                fn.getTangent(i, x, y, in);
                result.tangents.push_back(x);
                result.tangents.push_back(y);
            }
        }
        return result;
    }

    // How far each inner key stands off the line of its neighbours.
    static std::vector<std::pair<double, double>> deviationByFrame(const Snapshot& curve)
    {
        std::vector<std::pair<double, double>> result;
        for (size_t i = 1; i + 1 < curve.values.size(); ++i) {
            const double line = (curve.values[i - 1] + curve.values[i + 1]) / 2;
            result.emplace_back(curve.times[i].value(), std::fabs(curve.values[i] - line));
        }
        return result;
    }
};

TEST_F(BakedCurve, DragLeftRemovesKeysInOrderOfDeviationAndOneUndoRestoresThem)
{
    const Snapshot original = snapshot();
    const std::vector<std::pair<double, double>> deviations = deviationByFrame(original);
    const std::string before = sceneText();

    KeyBlending::Data* data = pressSlider(Simplify);
    ASSERT_NE(data, nullptr);
    // 1998 removable keys; the slider's way back removes nothing more.
    const std::pair<double, size_t> steps[] = {{-0.1, 133}, {-0.25, 333}, {-0.5, 666}, {-0.25, 666},
                                               {0.0, 666},  {-1.0, 1332}, {-0.3, 1332}};
    for (const auto& [x, removedCount] : steps) {
        data->blend(x);
        const std::vector<double> times = keyTimes("obj_translateX");
        ASSERT_EQ(times.size(), keyCount - removedCount) << "x = " << x;
        const std::set<double> kept(times.begin(), times.end());
        double largestRemoved = 0;
        double smallestKept = HUGE_VAL;
        for (const auto& [frame, deviation] : deviations) {
            if (kept.count(frame))
                smallestKept = std::min(smallestKept, deviation);
            else
                largestRemoved = std::max(largestRemoved, deviation);
        }
        EXPECT_LE(largestRemoved, smallestKept) << "x = " << x;
        EXPECT_TRUE(kept.count(1) && kept.count(keyCount)) << "the ends stay";
    }
    releaseSlider(*data);
    const std::string after = sceneText();

    ASSERT_TRUE(mel("undo"));
    EXPECT_TRUE(snapshot() == original);
    EXPECT_EQ(sceneText(), before);
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(sceneText(), after);
}

} // namespace
