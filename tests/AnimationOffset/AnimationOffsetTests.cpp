// The offset mode end to end: key edits made as a user makes them spread to
// the other keys in the span, once, and undo and redo cleanly.
#include "GuiApplication.h"
#include "PluginTest.h"

#include "AnimationOffset/Manager.h"

#include <maya/MGlobal.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <mayasim/Gui.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

using ::testing::DoubleNear;
using ::testing::Pointwise;

class AnimationOffsetTest : public PluginTest
{
protected:
    void SetUp() override
    {
        PluginTest::SetUp();
        mayasim::gui::openMainWindow(1000, 600);
        ASSERT_TRUE(mel("createNode transform -n obj"));
        ASSERT_TRUE(mel("playbackOptions -min 1 -max 30"));
    }
    void TearDown() override
    {
        if (active()) {
            EXPECT_TRUE(mel("OVAnimationOffset"));
        }
        mayasim::gui::closeMainWindow();
        PluginTest::TearDown();
    }

    // A person's action: idle ticks come before and after it, so the key
    // edits it makes reach the mode as they do in Maya.
    static bool act(const std::string& command)
    {
        mayasim::host::pumpIdle();
        const bool ran = mel(command);
        mayasim::host::pumpIdle();
        return ran;
    }
    static bool active()
    {
        int visible = 0;
        MGlobal::executeCommand("OVTimelineOverlay -visible OVAnimationOffset_Timeline_Overlay", visible);
        return visible;
    }
    // Each value near the expected one.
    static void expectValues(const std::string& plug, const std::vector<double>& expected)
    {
        EXPECT_THAT(keyValues(plug), Pointwise(DoubleNear(1e-9), expected)) << plug;
    }
};

TEST_F(AnimationOffsetTest, AMovedKeySpreadsOnceAndUndoesCleanly)
{
    keyPlug("obj.ty", {{1, 0}, {10, 0}, {20, 0}, {30, 0}, {40, 0}});
    ASSERT_TRUE(act("OVAnimationOffset"));
    EXPECT_TRUE(active());
    const std::string before = sceneText();
    ASSERT_TRUE(act("keyframe -e -t 10 -r -vc 2 obj.ty"));
    // Every other key in the span follows; frame 40 is outside it.
    expectValues("obj.ty", {2, 2, 2, 2, 0});
    const std::string after = sceneText();

    // The spread is an undo step of its own, after the user's edit.
    ASSERT_TRUE(act("undo"));
    expectValues("obj.ty", {0, 2, 0, 0, 0});
    ASSERT_TRUE(act("undo"));
    EXPECT_EQ(sceneText(), before);
    ASSERT_TRUE(act("redo"));
    expectValues("obj.ty", {0, 2, 0, 0, 0});
    ASSERT_TRUE(act("redo"));
    EXPECT_EQ(sceneText(), after);

    // After undo and redo the callback is there once: one more edit spreads once.
    ASSERT_TRUE(act("keyframe -e -t 20 -r -vc 1 obj.ty"));
    expectValues("obj.ty", {3, 3, 3, 3, 0});
    // Deleting a key adds no offset.
    ASSERT_TRUE(act("cutKey -t 30 obj.ty"));
    expectValues("obj.ty", {3, 3, 3, 0});
    EXPECT_TRUE(reports().empty());

    // A second toggle ends the mode: edits stay where they are put.
    ASSERT_TRUE(act("OVAnimationOffset"));
    EXPECT_FALSE(active());
    ASSERT_TRUE(act("keyframe -e -t 10 -r -vc 1 obj.ty"));
    expectValues("obj.ty", {3, 4, 3, 0});
}

TEST_F(AnimationOffsetTest, OffsetsBlendBetweenEditedKeys)
{
    keyPlug("obj.tx", {{1, 0}, {10, 0}, {15, 0}, {20, 0}, {25, 0}});
    ASSERT_TRUE(act("OVAnimationOffset"));
    // Frames 10 and 20 edited by 0 and 4 in one action: 15 moves by 2, the
    // keys beyond them by the nearest edit.
    ASSERT_TRUE(act("setKeyframe -t 10 -v 0 obj.tx; setKeyframe -t 20 -v 4 obj.tx"));
    expectValues("obj.tx", {0, 0, 2, 4, 4});
}

TEST_F(AnimationOffsetTest, AnAddedKeyOffsetsByItsDifferenceFromTheCurve)
{
    keyPlug("obj.tz", {{1, 0}, {21, 20}, {40, 20}});
    ASSERT_TRUE(act("keyTangent -itt linear -ott linear obj.tz"));
    ASSERT_TRUE(act("OVAnimationOffset"));
    // The curve read 10 at frame 11: the new key is 5 above it.
    ASSERT_TRUE(act("setKeyframe -t 11 -v 15 obj.tz"));
    expectValues("obj.tz", {5, 15, 25, 20});
}

TEST_F(AnimationOffsetTest, UnitsOfTheSceneAndAngles)
{
    ASSERT_TRUE(act("currentUnit -linear m"));
    keyPlug("obj.tx", {{1, 0}, {10, 1}, {20, 0}});
    keyPlug("obj.ry", {{1, 0}, {10, 90}, {20, 0}});
    ASSERT_TRUE(act("OVAnimationOffset"));
    ASSERT_TRUE(act("keyframe -e -t 10 -r -vc 0.02 obj.tx"));
    expectValues("obj.tx", {0.02, 1.02, 0.02});
    // Degrees as the user sees them; radians inside.
    ASSERT_TRUE(act("keyframe -e -t 10 -r -vc 10 obj.ry"));
    expectValues("obj.ry", {10, 100, 10});
    ASSERT_TRUE(act("currentUnit -linear cm"));
    expectValues("obj.tx", {2, 102, 2});
}

TEST_F(AnimationOffsetTest, SpanOfSelectedKeysAndANewSceneEndsTheMode)
{
    keyPlug("obj.ty", {{1, 0}, {10, 0}, {20, 0}, {30, 0}});
    ASSERT_TRUE(act("selectKey -t 10 -t 20 obj.ty"));
    ASSERT_TRUE(act("OVAnimationOffset"));
    ASSERT_TRUE(act("selectKey -clear"));
    ASSERT_TRUE(act("keyframe -e -t 10 -r -vc 1 obj.ty"));
    expectValues("obj.ty", {0, 1, 1, 0});

    ASSERT_TRUE(act("file -f -new"));
    EXPECT_FALSE(active());
    ASSERT_TRUE(act("createNode transform -n obj"));
    keyPlug("obj.ty", {{1, 0}, {10, 0}});
    ASSERT_TRUE(act("keyframe -e -t 10 -r -vc 1 obj.ty"));
    expectValues("obj.ty", {0, 1});
    EXPECT_TRUE(reports().empty());
}

TEST_F(AnimationOffsetTest, UnloadEndsTheModeFirst)
{
    keyPlug("obj.ty", {{1, 0}, {10, 0}});
    const size_t callbacks = mayasim::host::callbackCount();
    ASSERT_TRUE(act("OVAnimationOffset"));
    EXPECT_EQ(mayasim::host::callbackCount(), callbacks + 4);
    ASSERT_TRUE(act("unloadPlugin orvane"));
    EXPECT_FALSE(AnimationOffset::Manager::instance().isActive());
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    EXPECT_EQ(mayasim::host::callbackCount(), callbacks);
    EXPECT_FALSE(active());
    ASSERT_TRUE(act("keyframe -e -t 10 -r -vc 1 obj.ty"));
    expectValues("obj.ty", {0, 1});
}
