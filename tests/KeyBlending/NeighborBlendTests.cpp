// Neighbors, Frame, Ease, Blend To Ease, Connect To Neighbors and Pull Push
// end to end: each blend at the ends of the slider, at rest and beyond.
#include "PluginTest.h"

#include "BlendTest.h"
#include "SliderDrag.h"

#include <maya/MFnAnimCurve.h>
#include <maya/MGlobal.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <cmath>

using ::testing::DoubleNear;
using ::testing::ElementsAre;

namespace {

enum BlendType { Neighbors = 1, Frame = 2, PullPush = 8, Ease = 10, ConnectToNeighbors = 20, BlendToEase = 24 };

class NeighborBlends : public BlendTest<PluginTest>
{
protected:
    void SetUp() override
    {
        BlendTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n obj"));
        // Frames 1..8; key 2 (frame 3) lies off the line of its neighbours.
        keyPlug("obj.tx", {{1, 0}, {2, 10}, {3, 25}, {4, 30}, {5, 40}, {6, 50}, {7, 60}, {8, 80}});
        mayasim::host::clearOutput();
    }

    static MFnAnimCurve curveFn() { return MFnAnimCurve(nodeNamed("obj_translateX")); }
};

TEST_F(NeighborBlends, NeighborsKeepTheKeyAtRestAndOvershootInALine)
{
    pickKeys("obj_translateX", {3});
    EXPECT_EQ(blended(Neighbors, -1)[3], 25);
    EXPECT_EQ(blended(Neighbors, -0.5)[3], 27.5);
    EXPECT_EQ(blended(Neighbors, 0)[3], 30);
    EXPECT_EQ(blended(Neighbors, 1)[3], 40);
    EXPECT_EQ(blended(Neighbors, 2)[3], 50);
}

TEST_F(NeighborBlends, NeighborsOnSeveralObjectsAndRuns)
{
    ASSERT_TRUE(mel("createNode transform -n other"));
    keyPlug("other.tx", {{1, 100}, {5, 200}});
    ASSERT_TRUE(mayasim::host::selectKeys("obj_translateX", {1, 2, 6}));
    ASSERT_TRUE(mayasim::host::selectKeys("other_translateX", {0}));
    ASSERT_TRUE(mel("select -add obj other"));
    ASSERT_TRUE(mel("OVKeyBlending -bt 1 -bv 0.5"));
    // Keys 1, 2 go halfway to key 3 (30); key 6 halfway to key 7 (80); the
    // first key of the other curve halfway to its second.
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(0, 20, 27.5, 30, 40, 50, 70, 80));
    EXPECT_THAT(keyValues("other_translateX"), ElementsAre(150, 200));
}

TEST_F(NeighborBlends, FrameTakesItsNeighboursFromTheFrameTimes)
{
    pickKeys("obj_translateX", {3});
    EXPECT_EQ(blended(Frame, -1, "obj_translateX", "-ft 2 6")[3], 10);
    EXPECT_EQ(blended(Frame, 0.5, "obj_translateX", "-ft 2 6")[3], 40);
    EXPECT_EQ(blended(Frame, 1, "obj_translateX", "-ft 2 6")[3], 50);
    EXPECT_EQ(blended(Frame, 0, "obj_translateX", "-ft 2 6")[3], 30);
    // Beyond the last key the curve holds its value (constant infinity).
    EXPECT_EQ(blended(Frame, 2, "obj_translateX", "-ft 2 20")[3], 130);
}

TEST_F(NeighborBlends, FrameWithoutTimesUsesThePlaybackRangeAtConstruction)
{
    pickKeys("obj_translateX", {3});
    // The playback range 1..120: the first key and the held last value.
    EXPECT_EQ(blended(Frame, -1)[3], 0);
    EXPECT_EQ(blended(Frame, 1)[3], 80);
    ASSERT_TRUE(mel("playbackOptions -min 3 -max 7"));
    EXPECT_EQ(blended(Frame, -1)[3], 25);
    EXPECT_EQ(blended(Frame, 1)[3], 60);
    // Frame times given to another type change nothing.
    EXPECT_EQ(blended(Neighbors, 1, "obj_translateX", "-ft 2 6")[3], 40);
}

TEST_F(NeighborBlends, EaseLaysTheRunOnAnEasedCurveBetweenItsNeighbours)
{
    // Frames 3..5 between frame 2 (10) and frame 6 (50): u = 1/4, 1/2, 3/4.
    pickKeys("obj_translateX", {2, 3, 4});
    const auto easeOut = [](double u, double p) { return 40 * (1 - std::pow(1 - u, p)) + 10; };
    const auto easeIn = [](double u, double p) { return 40 * std::pow(u, p) + 10; };
    EXPECT_THAT(blended(Ease, 1), ElementsAre(0, 10, DoubleNear(easeOut(0.25, 10), 1e-9),
                                              DoubleNear(easeOut(0.5, 10), 1e-9),
                                              DoubleNear(easeOut(0.75, 10), 1e-9), 50, 60, 80));
    EXPECT_THAT(blended(Ease, -1), ElementsAre(0, 10, DoubleNear(easeIn(0.25, 10), 1e-9),
                                               DoubleNear(easeIn(0.5, 10), 1e-9),
                                               DoubleNear(easeIn(0.75, 10), 1e-9), 50, 60, 80));
    EXPECT_THAT(blended(Ease, 2)[3], DoubleNear(easeOut(0.5, 19), 1e-9));
    EXPECT_THAT(blended(Ease, 0), ElementsAre(0, 10, 25, 30, 40, 50, 60, 80));
}

TEST_F(NeighborBlends, EaseJumpsOntoTheNeighbourLineAtOneThousandth)
{
    pickKeys("obj_translateX", {2, 3, 4});
    EXPECT_THAT(blended(Ease, 0.0009), ElementsAre(0, 10, 25, 30, 40, 50, 60, 80));
    EXPECT_THAT(blended(Ease, -0.0009), ElementsAre(0, 10, 25, 30, 40, 50, 60, 80));
    // At 0.001 the exponent is just above 1: nearly the straight line.
    const std::vector<double> values = blended(Ease, 0.001);
    EXPECT_THAT(values[2], DoubleNear(20, 0.2));
    EXPECT_THAT(values[3], DoubleNear(30, 0.2));
    EXPECT_THAT(values[4], DoubleNear(40, 0.2));
    EXPECT_NE(values[2], 25);
}

TEST_F(NeighborBlends, EaseAtTheFirstKeyKeepsItsOwnValueAsLeftNeighbour)
{
    // Keys 0, 1 between key 0 itself (0) and key 2 (25, frame 3): u = 0, 1/2.
    pickKeys("obj_translateX", {0, 1});
    EXPECT_THAT(blended(Ease, -1), ElementsAre(0, DoubleNear(25 * std::pow(0.5, 10), 1e-12), 25, 30, 40, 50, 60, 80));
}

TEST_F(NeighborBlends, BlendToEaseBendsTowardTheNeighbourItApproaches)
{
    pickKeys("obj_translateX", {2, 3, 4});
    const auto towardRight = [](double u, double v, double p) { return std::pow(1 - u, p) * (v - 50) + 50; };
    const auto towardLeft = [](double u, double v, double p) { return std::pow(u, p) * (v - 10) + 10; };
    EXPECT_THAT(blended(BlendToEase, 1), ElementsAre(0, 10, DoubleNear(towardRight(0.25, 25, 10), 1e-9),
                                                     DoubleNear(towardRight(0.5, 30, 10), 1e-9),
                                                     DoubleNear(towardRight(0.75, 40, 10), 1e-9), 50, 60, 80));
    EXPECT_THAT(blended(BlendToEase, -1)[2], DoubleNear(towardLeft(0.25, 25, 10), 1e-9));
    EXPECT_THAT(blended(BlendToEase, -2)[3], DoubleNear(towardLeft(0.5, 30, 20), 1e-12));
    EXPECT_THAT(blended(BlendToEase, 0), ElementsAre(0, 10, 25, 30, 40, 50, 60, 80));
}

TEST_F(NeighborBlends, BlendToEaseScalesFixedTangentWeightsOnly)
{
    ASSERT_TRUE(mel("keyTangent -e -t 4 -itt fixed -ott fixed obj_translateX"));
    ASSERT_TRUE(curveFn().setIsWeighted(true));
    MAngle inAngle, outAngle;
    double inWeight = 0, outWeight = 0;
    ASSERT_TRUE(curveFn().getTangent(3, inAngle, inWeight, true));
    ASSERT_TRUE(curveFn().getTangent(3, outAngle, outWeight, false));
    pickKeys("obj_translateX", {3});
    ASSERT_TRUE(mel("OVKeyBlending -bt 24 -bv 0.5"));

    // p = 5, u = 1/2: r = 1/32 of the way left to the right neighbour (40).
    const double r = std::pow(0.5, 5);
    EXPECT_DOUBLE_EQ(keyValues("obj_translateX")[3], r * (30 - 40) + 40);
    const double scale = r * 6;
    MAngle angle;
    double weight = 0;
    ASSERT_TRUE(curveFn().getTangent(3, angle, weight, true));
    EXPECT_NEAR(weight, inWeight * scale, 1e-9);
    EXPECT_NEAR(angle.asRadians(), inAngle.asRadians(), 1e-12);
    ASSERT_TRUE(curveFn().getTangent(3, angle, weight, false));
    EXPECT_NEAR(weight, outWeight * scale, 1e-9);
    EXPECT_NEAR(angle.asRadians(), outAngle.asRadians(), 1e-12);
}

TEST_F(NeighborBlends, BlendToEaseOnASingleKeyCurveWritesNothing)
{
    keyPlug("obj.ty", {{4, 5}});
    pickKeys("obj_translateY", {0});
    EXPECT_EQ(curvesEditedBy("OVKeyBlending -bt 24 -bv 1"), 0u);
    EXPECT_EQ(curvesEditedBy("OVKeyBlending -bt 24 -bv -1"), 0u);
    // The same selection with a blend that writes is seen.
    EXPECT_EQ(curvesEditedBy("OVKeyBlending -bt 1 -bv 1"), 1u);
}

TEST_F(NeighborBlends, ConnectToNeighborsMovesARunAsABlock)
{
    // Keys 2, 3 (25, 30) between 10 and 40.
    pickKeys("obj_translateX", {2, 3});
    EXPECT_THAT(blended(ConnectToNeighbors, 1), ElementsAre(0, 10, 35, 40, 40, 50, 60, 80));
    EXPECT_THAT(blended(ConnectToNeighbors, -1), ElementsAre(0, 10, 10, 15, 40, 50, 60, 80));
    EXPECT_THAT(blended(ConnectToNeighbors, 2), ElementsAre(0, 10, 45, 50, 40, 50, 60, 80));
    EXPECT_THAT(blended(ConnectToNeighbors, 0), ElementsAre(0, 10, 25, 30, 40, 50, 60, 80));
}

TEST_F(NeighborBlends, ConnectToNeighborsCarriesALoneKeysFarSide)
{
    pickKeys("obj_translateX", {3});
    // Toward the left neighbour all later keys come along, the left one (25) holding.
    EXPECT_THAT(blended(ConnectToNeighbors, -0.5), ElementsAre(0, 10, 25, 27.5, 37.5, 47.5, 57.5, 77.5));
    // Toward the right one all earlier keys, up to the right neighbour (40).
    EXPECT_THAT(blended(ConnectToNeighbors, 0.5), ElementsAre(5, 15, 30, 35, 40, 50, 60, 80));
}

TEST_F(NeighborBlends, ConnectToNeighborsKeepsTheSideOfTheFirstMovement)
{
    pickKeys("obj_translateX", {3});
    const std::string before = sceneText();
    KeyBlending::Data* data = pressSlider(ConnectToNeighbors);
    ASSERT_NE(data, nullptr);
    data->blend(0);
    data->blend(0.5);
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(5, 15, 30, 35, 40, 50, 60, 80));
    // Moved left now, the block of the earlier keys reverses over the same
    // keys (their left neighbour is key 0 itself): the later keys stay put.
    data->blend(-1);
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(0, 10, 25, 30, 40, 50, 60, 80));
    data->blend(1);
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(10, 20, 35, 40, 40, 50, 60, 80));
    releaseSlider(*data);

    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(sceneText(), before);
}

TEST_F(NeighborBlends, PullPushMovesKeysOffTheNeighbourLine)
{
    // Key 2 (25) against the line through 10 and 30: 20.
    pickKeys("obj_translateX", {2});
    EXPECT_EQ(blended(PullPush, -1)[2], 20);
    EXPECT_EQ(blended(PullPush, -0.5)[2], 22.5);
    EXPECT_EQ(blended(PullPush, 0)[2], 25);
    // Away from the line at half the pace.
    EXPECT_EQ(blended(PullPush, 1)[2], 27.5);
    EXPECT_EQ(blended(PullPush, -2)[2], 15);
}

TEST_F(NeighborBlends, PullPushExtendsARunAtTheEndOfTheCurve)
{
    // Keys 6, 7 (60, 80) after key 5 (50): the run is read as if a key
    // followed at frame 9, so the line runs from frame 6 to frame 9.
    pickKeys("obj_translateX", {6, 7});
    // Key 6 lies on that line and stays; key 7 goes to 70 on it.
    EXPECT_THAT(blended(PullPush, -1), ElementsAre(0, 10, 25, 30, 40, 50, DoubleNear(60, 1e-9), 70));
    EXPECT_THAT(blended(PullPush, 1), ElementsAre(0, 10, 25, 30, 40, 50, DoubleNear(60, 1e-9), 85));
}

TEST_F(NeighborBlends, PullPushOnCollinearKeysWritesNothing)
{
    keyPlug("obj.ty", {{1, 0}, {2, 5}, {3, 10}});
    pickKeys("obj_translateY", {1});
    EXPECT_EQ(curvesEditedBy("OVKeyBlending -bt 8 -bv -1"), 0u);
    EXPECT_EQ(curvesEditedBy("OVKeyBlending -bt 8 -bv 1"), 0u);
    EXPECT_THAT(keyValues("obj_translateY"), ElementsAre(0, 5, 10));
}

} // namespace
