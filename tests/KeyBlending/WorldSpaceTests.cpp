// World Space, Neighbors World Space, Frame World Space and Infinity World
// Space end to end: world paths under moving parents, rotations with their
// offsets, the channels that keep the plain formulas, and the undo record.
#include "PluginTest.h"

#include "BlendTest.h"
#include "SliderDrag.h"

#include <maya/MEulerRotation.h>
#include <maya/MGlobal.h>
#include <maya/MQuaternion.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <set>

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::Not;
using ::testing::Pointwise;

namespace {

enum BlendType { WorldSpace = 4, NeighborsWorldSpace = 5, FrameWorldSpace = 6, InfinityWorldSpace = 7 };

constexpr double tolerance = 1e-9;

// Values equal to the expected ones within the tolerance: rotations go
// through radians and back.
auto near(const std::vector<double>& expected) { return Pointwise(DoubleNear(tolerance), expected); }

double radians(double degrees) { return degrees * M_PI / 180.0; }

// The angle of the turn from one rotation (degrees, XYZ) to another.
double angleBetween(const std::vector<double>& from, const std::vector<double>& to)
{
    const MQuaternion a = MEulerRotation(radians(from[0]), radians(from[1]), radians(from[2])).asQuaternion();
    const MQuaternion b = MEulerRotation(radians(to[0]), radians(to[1]), radians(to[2])).asQuaternion();
    const double dot = std::fabs(a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w);
    return 2.0 * std::acos(std::fmin(1.0, dot));
}

class WorldSpaceBlends : public BlendTest<PluginTest>
{
protected:
    // Picks the keys of the given indices on each of the node's channels.
    static void pickChannelKeys(const std::string& node, const std::vector<std::string>& channels,
                                const std::vector<unsigned int>& indices)
    {
        for (const std::string& channel : channels)
            pickKeys(node + "_" + channel, indices, node);
    }

    // Each curve's keys after one command, which is undone again.
    static std::vector<std::vector<double>> blendedCurves(int type, double x, const std::vector<std::string>& curves,
                                                          const std::string& flags = "")
    {
        return readAfter(blendCommand(type, x, flags), [&] {
            std::vector<std::vector<double>> values;
            for (const std::string& curve : curves)
                values.push_back(keyValues(curve));
            return values;
        });
    }

    // The keys of the given index on each curve, after one command.
    static std::vector<double> blendedAt(int type, double x, const std::vector<std::string>& curves, unsigned int index,
                                         const std::string& flags = "")
    {
        std::vector<double> values;
        for (const std::vector<double>& keys : blendedCurves(type, x, curves, flags))
            values.push_back(keys.at(index));
        return values;
    }
};

TEST_F(WorldSpaceBlends, WithoutParentOrPivotTheTranslationIsTheLerpOfTheWorldTranslations)
{
    ASSERT_TRUE(mel("createNode transform -n obj"));
    keyPlug("obj.tx", {{1, 2}, {5, 40}, {9, 10}});
    keyPlug("obj.ty", {{1, -4}, {5, 0}, {9, 8}});
    keyPlug("obj.tz", {{1, 0}, {5, 0}, {9, 1}});
    keyPlug("obj.rz", {{1, 10}, {5, 0}, {9, 50}});
    keyPlug("obj.sx", {{1, 1}, {5, 7}, {9, 3}});
    const std::vector<std::string> curves = {"obj_translateX", "obj_translateY", "obj_translateZ", "obj_rotateZ",
                                             "obj_scaleX"};
    pickChannelKeys("obj", {"translateX", "translateY", "translateZ", "rotateZ", "scaleX"}, {1});

    // x = 0.5 is three quarters of the way; the key's own pose plays no part.
    EXPECT_THAT(blendedAt(WorldSpace, 0.5, curves, 1), near({8, 5, 0.75, 40, 2.5}));
    EXPECT_THAT(blendedAt(WorldSpace, -1, curves, 1), near({2, -4, 0, 10, 1}));
    // Beyond the slider's end the pose overshoots along the same paths.
    EXPECT_THAT(blendedAt(WorldSpace, 2, curves, 1), near({14, 14, 1.5, 70, 4}));
}

TEST_F(WorldSpaceBlends, RotationsTurnAlongTheShortestArc)
{
    ASSERT_TRUE(mel("createNode transform -n obj"));
    keyPlug("obj.rx", {{1, 0}, {5, 0}, {9, 90}});
    keyPlug("obj.ry", {{1, 0}, {5, 0}, {9, 0}});
    keyPlug("obj.rz", {{1, 0}, {5, 0}, {9, 90}});
    const std::vector<std::string> curves = {"obj_rotateX", "obj_rotateY", "obj_rotateZ"};
    pickChannelKeys("obj", {"rotateX", "rotateY", "rotateZ"}, {1});

    const std::vector<double> left = {0, 0, 0};
    const std::vector<double> right = {90, 0, 90};
    const double whole = angleBetween(left, right);
    for (double x : {-0.5, 0.0, 0.5}) {
        const double t = (x + 1) / 2;
        const std::vector<double> rotation = blendedAt(WorldSpace, x, curves, 1);
        EXPECT_NEAR(angleBetween(left, rotation), whole * t, 1e-9) << x;
        EXPECT_NEAR(angleBetween(rotation, right), whole * (1 - t), 1e-9) << x;
    }
    // Not the channels' own halfway values.
    EXPECT_THAT(blendedAt(WorldSpace, 0, curves, 1), Not(near({45, 0, 45})));
}

TEST_F(WorldSpaceBlends, ATurnAcrossTheHalfTurnGoesTheShortWay)
{
    ASSERT_TRUE(mel("createNode transform -n obj"));
    keyPlug("obj.rz", {{1, 170}, {5, 0}, {9, -170}});
    pickChannelKeys("obj", {"rotateZ"}, {1});
    // 20 degrees through the half turn, not 340 back through 0.
    EXPECT_NEAR(std::fabs(blendedAt(WorldSpace, 0, {"obj_rotateZ"}, 1)[0]), 180, tolerance);
    EXPECT_NEAR(blendedAt(WorldSpace, -0.5, {"obj_rotateZ"}, 1)[0], 175, tolerance);
}

TEST_F(WorldSpaceBlends, AMovingParentIsCancelledAtTheKeysOwnTime)
{
    ASSERT_TRUE(mel("createNode transform -n parent"));
    ASSERT_TRUE(mel("createNode transform -n obj -p parent"));
    // The parent's turn peaks between the neighbours; in the world the child
    // stands at (10, 0, 0), unturned, at both neighbours.
    keyPlug("parent.rz", {{1, 0}, {5, 90}, {9, 0}});
    keyPlug("obj.tx", {{1, 10}, {5, 7}, {9, 10}});
    keyPlug("obj.ty", {{1, 0}, {5, 3}, {9, 0}});
    keyPlug("obj.rz", {{1, 0}, {5, 20}, {9, 0}});
    const std::vector<std::string> curves = {"obj_translateX", "obj_translateY", "obj_rotateZ"};
    pickChannelKeys("obj", {"translateX", "translateY", "rotateZ"}, {1});

    // Held still in the world, against a parent turned by 90 degrees.
    EXPECT_THAT(blendedAt(WorldSpace, 0, curves, 1), near({0, -10, -90}));
}

TEST_F(WorldSpaceBlends, AnOffsetPivotTurnsInPlace)
{
    ASSERT_TRUE(mel("createNode transform -n obj"));
    ASSERT_TRUE(mel("setAttr obj.rotatePivot 2 0 0"));
    keyPlug("obj.tx", {{1, 0}, {5, 9}, {9, 0}});
    keyPlug("obj.ty", {{1, 0}, {5, 9}, {9, 0}});
    keyPlug("obj.rz", {{1, 0}, {5, 0}, {9, 90}});
    const std::vector<std::string> curves = {"obj_translateX", "obj_translateY", "obj_rotateZ"};
    pickChannelKeys("obj", {"translateX", "translateY", "rotateZ"}, {1});
    // The pivot stays where it is while the object turns about it: the
    // matrices' own translations would swing the object on an arc.
    EXPECT_THAT(blendedAt(WorldSpace, 0, curves, 1), near({0, 0, 45}));
}

class JointPose : public WorldSpaceBlends
{
protected:
    void SetUp() override
    {
        WorldSpaceBlends::SetUp();
        ASSERT_TRUE(mel("createNode joint -n root"));
        ASSERT_TRUE(mel("createNode joint -n j -p root"));
        ASSERT_TRUE(mel("setAttr j.jointOrient 30 -20 45; setAttr j.rotateAxis 0 10 5; setAttr j.rotateOrder 2"));
        ASSERT_TRUE(mel("setAttr root.rotate 60 0 -15; setAttr root.tz 4"));
        keyPlug("j.tx", {{1, 1}, {5, 2}, {9, 3}});
        keyPlug("j.ty", {{1, -1}, {5, 0}, {9, 2}});
        keyPlug("j.rx", {{1, 20}, {5, 0}, {9, -35}});
        keyPlug("j.ry", {{1, -40}, {5, 0}, {9, 15}});
        keyPlug("j.rz", {{1, 70}, {5, 0}, {9, -10}});
        pickChannelKeys("j", {"translateX", "translateY", "rotateX", "rotateY", "rotateZ"}, {1});
    }

    const std::vector<std::string> curves = {"j_translateX", "j_translateY", "j_rotateX", "j_rotateY", "j_rotateZ"};
};

TEST_F(JointPose, NeighbourPosesComeBackThroughJointOrientAndRotateOrder)
{
    const std::vector<double> left = {1, -1, 20, -40, 70};
    const std::vector<double> right = {3, 2, -35, 15, -10};
    EXPECT_THAT(blendedAt(WorldSpace, -1, curves, 1), near(left));
    EXPECT_THAT(blendedAt(WorldSpace, 1, curves, 1), near(right));
    EXPECT_THAT(blendedAt(NeighborsWorldSpace, -1, curves, 1), near(left));
    EXPECT_THAT(blendedAt(NeighborsWorldSpace, 1, curves, 1), near(right));
    EXPECT_THAT(blendedAt(FrameWorldSpace, -1, curves, 1, "-ft 1 9"), near(left));
    EXPECT_THAT(blendedAt(FrameWorldSpace, 1, curves, 1, "-ft 1 9"), near(right));
}

TEST_F(JointPose, NeighborsWorldSpaceAtRestKeepsThePose)
{
    EXPECT_THAT(blendedAt(NeighborsWorldSpace, 0, curves, 1), near({2, 0, 0, 0, 0}));
}

class TranslatingParent : public WorldSpaceBlends
{
protected:
    void SetUp() override
    {
        WorldSpaceBlends::SetUp();
        ASSERT_TRUE(mel("createNode transform -n parent"));
        ASSERT_TRUE(mel("createNode transform -n obj -p parent"));
        ASSERT_TRUE(mel("addAttr -ln weight -at double obj"));
        ASSERT_TRUE(mel("addAttr -ln mytranslateXOffset -at double obj"));
        // In the world the object stands at x = 0, 83, 110 and 120.
        keyPlug("parent.tx", {{1, 0}, {5, 80}, {9, 100}, {13, 100}});
        keyPlug("obj.tx", {{1, 0}, {5, 3}, {9, 10}, {13, 20}});
        keyPlug("obj.weight", {{1, 0}, {5, 3}, {9, 10}, {13, 30}});
        keyPlug("obj.mytranslateXOffset", {{1, 100}, {5, 200}, {9, 300}, {13, 400}});
    }
};

TEST_F(TranslatingParent, TheWorldPathRunsBetweenTheNeighbours)
{
    pickChannelKeys("obj", {"translateX"}, {1});
    // World 0 and 110: halfway is 55, which is -25 from the parent at frame 5.
    EXPECT_THAT(blendedAt(WorldSpace, 0, {"obj_translateX"}, 1), near({-25}));
    EXPECT_THAT(blendedAt(WorldSpace, 1, {"obj_translateX"}, 1), near({30}));
}

TEST_F(TranslatingParent, OtherChannelsKeepThePlainFormula)
{
    // Beside a transform channel that follows the world pose, a plain one
    // gets the Tween Machine value.
    pickChannelKeys("obj", {"translateX", "weight"}, {1});
    const std::vector<std::string> curves = {"obj_translateX", "obj_weight"};
    EXPECT_THAT(blendedAt(WorldSpace, 0, curves, 1), near({-25, 5}));
    EXPECT_THAT(blendedAt(WorldSpace, 0.5, curves, 1), near({2.5, 7.5}));
    // Neighbors World Space: the Neighbors formula, at rest the key itself.
    EXPECT_THAT(blendedAt(NeighborsWorldSpace, 0, curves, 1), near({3, 3}));
    EXPECT_THAT(blendedAt(NeighborsWorldSpace, -0.5, curves, 1), near({-38.5, 1.5}));
    EXPECT_THAT(blendedAt(NeighborsWorldSpace, 0.5, curves, 1), near({16.5, 6.5}));
}

TEST_F(TranslatingParent, ACurveWhoseNameHoldsAChannelCountsAsThatChannel)
{
    // Its value is the translate X of the world pose: 55 in the world, -25
    // from the parent at frame 5; its own neighbours would give 200.
    pickChannelKeys("obj", {"mytranslateXOffset"}, {1});
    EXPECT_THAT(blendedAt(WorldSpace, 0, {"obj_mytranslateXOffset"}, 1), near({-25}));
}

TEST_F(TranslatingParent, FrameWorldSpaceWithoutTimesUsesThePlaybackRange)
{
    pickChannelKeys("obj", {"translateX", "weight"}, {1});
    ASSERT_TRUE(mel("playbackOptions -min 1 -max 9"));
    // The world pose at frame 9 is 110: 30 from the parent at frame 5.
    EXPECT_THAT(blendedAt(FrameWorldSpace, 1, {"obj_translateX", "obj_weight"}, 1), near({30, 10}));
    EXPECT_THAT(blendedAt(FrameWorldSpace, -1, {"obj_translateX", "obj_weight"}, 1), near({-80, 0}));
    ASSERT_TRUE(mel("playbackOptions -min 1 -max 13"));
    // At frame 13 the world pose is 120.
    EXPECT_THAT(blendedAt(FrameWorldSpace, 1, {"obj_translateX", "obj_weight"}, 1), near({40, 30}));
    EXPECT_THAT(blendedAt(FrameWorldSpace, 0.5, {"obj_translateX", "obj_weight"}, 1, "-ft 1 9"), near({16.5, 6.5}));
}

TEST_F(TranslatingParent, NeighborsWorldSpaceReadsTheKeysPoseAnewAtEachStep)
{
    pickChannelKeys("obj", {"translateX"}, {1});
    expectOneUndoStep([] {
        KeyBlending::Data* data = pressSlider(NeighborsWorldSpace);
        ASSERT_NE(data, nullptr);
        // Halfway from 3 toward 30, then halfway again from where the step left it.
        data->blend(0.5);
        EXPECT_NEAR(keyValues("obj_translateX")[1], 16.5, tolerance);
        data->blend(0.5);
        EXPECT_NEAR(keyValues("obj_translateX")[1], 23.25, tolerance);
        data->blend(-1);
        EXPECT_NEAR(keyValues("obj_translateX")[1], -80, tolerance);
        releaseSlider(*data);
    });
}

class InfinitySides : public WorldSpaceBlends
{
protected:
    void SetUp() override
    {
        WorldSpaceBlends::SetUp();
        ASSERT_TRUE(mel("createNode transform -n parent"));
        ASSERT_TRUE(mel("createNode transform -n obj -p parent"));
        ASSERT_TRUE(mel("addAttr -ln weight -at double obj"));
        keyPlug("parent.tx", {{1, 0}, {3, 100}, {5, 0}, {7, 0}, {9, 0}});
        keyPlug("obj.tx", {{1, 5}, {3, -95}, {5, 30}, {7, 35}, {9, 40}});
        keyPlug("obj.rz", {{1, 10}, {3, 20}, {5, 30}, {7, 50}, {9, 60}});
        keyPlug("obj.weight", {{1, 0}, {3, 10}, {5, 30}, {7, 35}, {9, 40}});
    }

    const std::vector<std::string> curves = {"obj_translateX", "obj_rotateZ", "obj_weight"};
};

TEST_F(InfinitySides, ARunNearTheStartGoesToThePoseOfTheFirstKey)
{
    // Keys 1, 2: the left side's near and far keys are both key 0.
    pickChannelKeys("obj", {"translateX", "rotateZ", "weight"}, {1, 2});
    const std::vector<std::vector<double>> values = blendedCurves(InfinityWorldSpace, 1, curves);
    // The world pose of frame 1 (5, turned 10 degrees), under the parent at
    // frames 3 and 5.
    EXPECT_THAT(values[0], near({5, -95, 5, 35, 40}));
    EXPECT_THAT(values[1], near({10, 10, 10, 50, 60}));
    // A plain channel goes onto the line through its run's neighbours.
    EXPECT_THAT(values[2], near({0, 35.0 / 3, 70.0 / 3, 35, 40}));

    // A run from key 0 itself: key 0 holds its pose, key 1 takes it.
    mayasim::host::clearKeySelection();
    pickChannelKeys("obj", {"translateX", "rotateZ"}, {0, 1});
    EXPECT_THAT(blendedCurves(InfinityWorldSpace, 1, curves)[1], near({10, 10, 30, 50, 60}));
}

TEST_F(InfinitySides, AMiddleRunCarriesOnTheMotionBeyondItsNeighbour)
{
    pickChannelKeys("obj", {"translateX", "rotateZ", "weight"}, {3});
    // From the left: the world motion from frame 3 to frame 5 (out from 5 to
    // 30 while turning 10 degrees about the origin) once more after frame 5.
    const double beyond = 30 + 25 * std::cos(radians(10));
    std::vector<std::vector<double>> values = blendedCurves(InfinityWorldSpace, 1, curves);
    EXPECT_NEAR(values[0][3], beyond, tolerance);
    EXPECT_NEAR(values[1][3], 40, tolerance);
    values = blendedCurves(InfinityWorldSpace, 0.5, curves);
    EXPECT_NEAR(values[0][3], (35 + beyond) / 2, tolerance);
    EXPECT_NEAR(values[1][3], 45, tolerance);
    // From the right the neighbour is the last key, so its pose is the target.
    values = blendedCurves(InfinityWorldSpace, -1, curves);
    EXPECT_NEAR(values[0][3], 40, tolerance);
    EXPECT_NEAR(values[1][3], 60, tolerance);
    // The plain channel: the line through the neighbours.
    EXPECT_NEAR(values[2][3], 35, tolerance);
}

TEST_F(InfinitySides, ARunAtTheLastKeyMovesTowardItsRightValueFromTheRight)
{
    // No key follows the run: no pose on the right, so the channels go flat
    // toward the run's right neighbour, the last key itself.
    pickChannelKeys("obj", {"translateX", "rotateZ"}, {3, 4});
    const std::vector<std::vector<double>> values = blendedCurves(InfinityWorldSpace, -1, curves);
    EXPECT_THAT(values[0], near({5, -95, 30, 40, 40}));
    EXPECT_THAT(values[1], near({10, 20, 30, 60, 60}));
    const std::vector<std::vector<double>> half = blendedCurves(InfinityWorldSpace, -0.5, curves);
    EXPECT_THAT(half[0], near({5, -95, 30, 37.5, 40}));
}

TEST_F(InfinitySides, ADragIsOneUndoStep)
{
    pickChannelKeys("obj", {"translateX", "rotateZ", "weight"}, {1, 2});
    expectOneUndoStep([] {
        KeyBlending::Data* data = pressSlider(InfinityWorldSpace);
        ASSERT_NE(data, nullptr);
        for (double x : {0.3, -0.2, 0.7, 1.0})
            data->blend(x);
        releaseSlider(*data);
        EXPECT_THAT(keyValues("obj_translateX"), near({5, -95, 5, 35, 40}));
    });
}

// A pose comes back from a matrix as angles: of all that give it, each key
// takes those nearest its own, per channel by whole turns and between the
// two Euler solutions, so no channel jumps a turn or flips.
class Windings : public WorldSpaceBlends
{
protected:
    void SetUp() override
    {
        WorldSpaceBlends::SetUp();
        // A turn keyed through 270 degrees: the matrix alone would say -90.
        ASSERT_TRUE(mel("createNode transform -n wound"));
        keyPlug("wound.rz", {{1, 0}, {5, 270}, {9, 300}});
        // One pose keyed as two angle triples: (0, 180, 0) is the alternate
        // solution of (180, 0, 180), the one a matrix gives.
        ASSERT_TRUE(mel("createNode transform -n flipped"));
        keyPlug("flipped.rx", {{1, 0}, {5, 0}, {9, 0}});
        keyPlug("flipped.ry", {{1, 170}, {5, 180}, {9, 190}});
        keyPlug("flipped.rz", {{1, 0}, {5, 0}, {9, 0}});
        ASSERT_TRUE(mel("createNode transform -n upright"));
        keyPlug("upright.rx", {{1, 180}, {5, 180}, {9, 180}});
        keyPlug("upright.ry", {{1, 10}, {5, 0}, {9, -10}});
        keyPlug("upright.rz", {{1, 180}, {5, 180}, {9, 180}});
        pickChannelKeys("wound", {"rotateZ"}, {1});
        pickChannelKeys("flipped", {"rotateX", "rotateY", "rotateZ"}, {1});
        pickChannelKeys("upright", {"rotateX", "rotateY", "rotateZ"}, {1});
    }

    // Each channel within degrees of the keys' own angles.
    static auto within(double degrees) { return Pointwise(DoubleNear(degrees), keyed); }

    static const inline std::vector<std::string> curves = {
        "wound_rotateZ",   "flipped_rotateX", "flipped_rotateY", "flipped_rotateZ",
        "upright_rotateX", "upright_rotateY", "upright_rotateZ"};
    static const inline std::vector<double> keyed = {270, 0, 180, 0, 180, 0, 180};
};

TEST_F(Windings, AtRestEveryKeyKeepsItsAnglesAndASmallStepStaysNearThem)
{
    for (const auto& [type, flags] : {std::pair{NeighborsWorldSpace, ""}, std::pair{FrameWorldSpace, "-ft 1 9"},
                                      std::pair{InfinityWorldSpace, ""}}) {
        SCOPED_TRACE(type);
        EXPECT_THAT(blendedAt(type, 0, curves, 1, flags), within(tolerance));
        for (double x : {0.02, -0.02})
            EXPECT_THAT(blendedAt(type, x, curves, 1, flags), within(2.5)) << x;
    }
    // World Space at rest is the pose halfway between the neighbours: the
    // short way from 0 to 300 passes -30, which lies 60 from 270 as 330.
    EXPECT_THAT(blendedAt(WorldSpace, 0, curves, 1), near({330, 0, 180, 0, 180, 0, 180}));
    EXPECT_THAT(blendedAt(WorldSpace, 0.02, curves, 1),
                Pointwise(DoubleNear(1), std::vector<double>{329.4, 0, 180, 0, 180, 0, 180}));
}

TEST_F(Windings, ADragStaysNearTheKeysFromItsFirstStep)
{
    expectOneUndoStep([this] {
        KeyBlending::Data* data = pressSlider(NeighborsWorldSpace);
        ASSERT_NE(data, nullptr);
        for (double x : {0.0, 0.01, 0.03, -0.02, 0.0}) {
            data->blend(x);
            std::vector<double> values;
            for (const std::string& curve : curves)
                values.push_back(keyValues(curve)[1]);
            EXPECT_THAT(values, within(5)) << x;
        }
        releaseSlider(*data);
    });
}

// A node without transform attributes whose curve is named like a channel:
// it blends toward identity poses, and what its reader misses is reported
// once per drag, not at every step.
TEST_F(WorldSpaceBlends, AMissingTransformAttributeIsReportedOncePerDrag)
{
    ASSERT_TRUE(mel("createNode unknown -n net"));
    ASSERT_TRUE(mel("addAttr -ln mytranslateX -at double net"));
    keyPlug("net.mytranslateX", {{1, 0}, {5, 3}, {9, 10}});
    pickChannelKeys("net", {"mytranslateX"}, {1});
    for (int type : {WorldSpace, NeighborsWorldSpace, FrameWorldSpace, InfinityWorldSpace}) {
        SCOPED_TRACE(type);
        mayasim::host::clearOutput();
        expectOneUndoStep([type] {
            KeyBlending::Data* data = pressSlider(type);
            ASSERT_NE(data, nullptr);
            for (double x : {0.1, 0.2, -0.3, 0.4, 1.0})
                data->blend(x);
            releaseSlider(*data);
        });
        const std::vector<std::string> blocks = reports();
        EXPECT_EQ(std::set<std::string>(blocks.begin(), blocks.end()).size(), blocks.size());
        EXPECT_EQ(std::count_if(blocks.begin(), blocks.end(),
                                [](const std::string& block) {
                                    return block.find("Message: failed to find: worldMatrix\n") != std::string::npos;
                                }),
                  1);
        EXPECT_LE(blocks.size(), 4u);
    }
}

} // namespace
