// The layer tree the animLayer command builds and edits: the root, parent
// and children links, settings, members, events and undo.
#include "LayerTest.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MEventMessage.h>
#include <maya/MMessage.h>
#include <maya/MPlug.h>

#include <map>

namespace {

using namespace dgtest;

using Strings = std::vector<std::string>;

TEST_F(LayerTest, FirstLayerMakesTheRootAndHangsUnderIt)
{
    EXPECT_EQ(melString("animLayer"), "AnimLayer1");
    EXPECT_EQ(melString("animLayer"), "AnimLayer2");
    EXPECT_EQ(nodesOfType(MFn::kAnimLayer), (Strings{"BaseAnimation", "AnimLayer1", "AnimLayer2"}));
    EXPECT_TRUE(nodeNamed("BaseAnimation").hasFn(MFn::kSet));
    EXPECT_EQ(melString("animLayer -q -root"), "BaseAnimation");
    EXPECT_EQ(melStrings("animLayer -q -children BaseAnimation"), (Strings{"AnimLayer1", "AnimLayer2"}));
    EXPECT_EQ(melString("animLayer -q -parent AnimLayer2"), "BaseAnimation");
    EXPECT_EQ(melString("animLayer -q -parent BaseAnimation"), "");
    // Maya's root is an override layer.
    EXPECT_EQ(melNumber("getAttr BaseAnimation.override"), 1.0);
    EXPECT_EQ(melNumber("getAttr AnimLayer1.override"), 0.0);

    // How the plug-in reads the tree: the first destination of
    // "parentLayer", the sources of "childrenLayers" in order.
    MPlugArray destinations;
    plugNamed("AnimLayer1.parentLayer").destinations(destinations);
    ASSERT_EQ(destinations.length(), 1u);
    EXPECT_EQ(nameOf(destinations[0].node()), "BaseAnimation");
    const MPlug children = plugNamed("BaseAnimation.childrenLayers");
    ASSERT_EQ(children.numConnectedElements(), 2u);
    EXPECT_EQ(nameOf(children.elementByPhysicalIndex(1).source().node()), "AnimLayer2");
}

TEST_F(LayerTest, CreateAppliesSettingsAndParent)
{
    ASSERT_TRUE(mel("animLayer Parent"));
    EXPECT_EQ(melString("animLayer -parent \"Parent\" -mute 1 -override 1 -solo 0 -weight 0.123457 -lock 1 "
                        "\"Child\""),
              "Child");
    EXPECT_EQ(melString("animLayer -q -parent Child"), "Parent");
    EXPECT_EQ(melNumber("animLayer -q -mute Child"), 1.0);
    EXPECT_EQ(melNumber("animLayer -q -override Child"), 1.0);
    EXPECT_EQ(melNumber("animLayer -q -lock Child"), 1.0);
    EXPECT_DOUBLE_EQ(melNumber("animLayer -q -weight Child"), 0.123457);
    // Maya's defaults: passthrough on, nothing selected.
    EXPECT_EQ(melNumber("animLayer -q -passthrough Child"), 1.0);
    EXPECT_EQ(melNumber("animLayer -q -selected Child"), 0.0);

    EXPECT_FALSE(mel("animLayer -parent \"Missing\" Orphan"));
    EXPECT_FALSE(nodeNamed("Orphan").hasFn(MFn::kAnimLayer));
    EXPECT_FALSE(mel("animLayer -parent cube NotUnderATransform"));
}

TEST_F(LayerTest, EditInPlaceKeepsOneLayerAndOneBlendPerPlug)
{
    ASSERT_TRUE(mel("animLayer AnimLayer1"));
    // The restore texts, with their doubled blank and trailing blanks, twice.
    for (int pass = 0; pass < 2; ++pass)
    {
        ASSERT_TRUE(mel("animLayer -e  -parent \"BaseAnimation\" -mute 0 -override 1 -solo 0 -weight 0.5 -lock 0 "
                        "\"AnimLayer1\""));
        ASSERT_TRUE(mel("animLayer -e -attribute cube.translateX -attribute cube.translateY AnimLayer1"));
    }
    EXPECT_EQ(nodesOfType(MFn::kAnimLayer), (Strings{"BaseAnimation", "AnimLayer1"}));
    EXPECT_EQ(nodesOfType(MFn::kBlendNodeDoubleLinear),
              (Strings{"cube_translateX_AnimLayer1", "cube_translateY_AnimLayer1"}));
    EXPECT_EQ(melStrings("animLayer -q -attribute AnimLayer1"), (Strings{"cube.translateX", "cube.translateY"}));
    EXPECT_EQ(melStrings("animLayer -q -children BaseAnimation"), (Strings{"AnimLayer1"}));
    EXPECT_EQ(melNumber("animLayer -q -override AnimLayer1"), 1.0);
}

TEST_F(LayerTest, ReparentingMovesTheLinks)
{
    ASSERT_TRUE(mel("animLayer A; animLayer B"));
    ASSERT_TRUE(mel("animLayer -e -parent A B"));
    EXPECT_EQ(melStrings("animLayer -q -children BaseAnimation"), (Strings{"A"}));
    EXPECT_EQ(melStrings("animLayer -q -children A"), (Strings{"B"}));
    EXPECT_FALSE(mel("animLayer -e -parent B A")) << "a layer can't go under its own child";
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melString("animLayer -q -parent B"), "BaseAnimation");
}

TEST_F(LayerTest, AddingACompoundAddsItsChildrenAndRotationSharesOneBlend)
{
    ASSERT_TRUE(mel("animLayer L1"));
    ASSERT_TRUE(mel("animLayer -e -attribute cube.rotate -attribute cube.s L1"));
    EXPECT_EQ(melStrings("animLayer -q -attribute L1"),
              (Strings{"cube.rotateX", "cube.rotateY", "cube.rotateZ", "cube.scaleX", "cube.scaleY", "cube.scaleZ"}));
    EXPECT_EQ(nodesOfType(MFn::kBlendNodeAdditiveRotation), (Strings{"cube_rotate_L1"}));
    EXPECT_EQ(nodesOfType(MFn::kBlendNodeAdditiveScale).size(), 3u);
    EXPECT_EQ(plugNamed("cube.ry").source().partialName(), MString("oy"));
    // Adding to the root adds nothing: every plug is in it.
    ASSERT_TRUE(mel("animLayer -e -attribute cube.tx BaseAnimation"));
    EXPECT_TRUE(plugNamed("cube.tx").source().isNull());
}

TEST_F(LayerTest, UndoTakesBackLayersAndMembers)
{
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 5 cube.tx"));
    ASSERT_TRUE(mel("animLayer L1"));
    ASSERT_TRUE(mel("animLayer -e -attribute cube.tx L1"));
    EXPECT_EQ(nameOf(plugNamed("cube.tx").source().node()), "cube_translateX_L1");

    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(nameOf(plugNamed("cube.tx").source().node()), "cube_translateX");
    EXPECT_TRUE(nodesOfType(MFn::kBlendNodeBase).empty());
    EXPECT_TRUE(melStrings("animLayer -q -attribute L1").empty());
    ASSERT_TRUE(mel("undo"));
    EXPECT_TRUE(nodesOfType(MFn::kAnimLayer).empty()) << "the root goes with the layer that made it";
    EXPECT_EQ(bestLayer("cube.tx"), "");

    ASSERT_TRUE(mel("redo; redo"));
    EXPECT_EQ(nodesOfType(MFn::kAnimLayer), (Strings{"BaseAnimation", "L1"}));
    EXPECT_EQ(nameOf(plugNamed("cube.tx").source().node()), "cube_translateX_L1");
    EXPECT_DOUBLE_EQ(melNumber("getAttr cube.tx"), 5.0);
}

void countEvent(void* clientData)
{
    ++*static_cast<int*>(clientData);
}

TEST_F(LayerTest, LayerEventsFireOnTheirChangesAndTheirUndo)
{
    std::map<std::string, int> fired;
    MCallbackIdArray ids;
    for (const char* event :
         {"animLayerRebuild", "animLayerLockChanged", "animLayerBaseLockChanged", "animLayerAnimationChanged"})
        ids.append(MEventMessage::addEventCallback(event, countEvent, &fired[event]));

    ASSERT_TRUE(mel("animLayer L1"));
    EXPECT_EQ(fired["animLayerRebuild"], 1);
    ASSERT_TRUE(mel("animLayer -e -attribute cube.tx L1"));
    EXPECT_EQ(fired["animLayerRebuild"], 2);
    ASSERT_TRUE(mel("animLayer -e -lock 1 L1"));
    ASSERT_TRUE(mel("animLayer -e -lock 1 L1")); // no change, no event
    EXPECT_EQ(fired["animLayerLockChanged"], 1);
    ASSERT_TRUE(mel("animLayer -e -lock 1 BaseAnimation"));
    EXPECT_EQ(fired["animLayerBaseLockChanged"], 1);
    ASSERT_TRUE(mel("animLayer -e -mute 1 -weight 0.5 L1"));
    EXPECT_EQ(fired["animLayerAnimationChanged"], 2);

    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(fired["animLayerAnimationChanged"], 4);
    EXPECT_EQ(fired["animLayerLockChanged"], 1);
    MMessage::removeCallbacks(ids);
}

TEST_F(LayerTest, LockedLayerTakesNoKeysButStillPlays)
{
    twoLayersOnTranslateX();
    ASSERT_TRUE(mel("setAttr cube_translateX_L2.inputB 3"));
    ASSERT_TRUE(mel("animLayer -e -lock 1 L2"));
    EXPECT_EQ(bestLayer("cube.tx"), "L1");
    ASSERT_TRUE(mel("animLayer -e -selected true L2"));
    EXPECT_EQ(bestLayer("cube.tx"), "L1") << "a selected layer that is locked counts as not selected";
    ASSERT_TRUE(mel("currentTime 1"));
    EXPECT_DOUBLE_EQ(melNumber("getAttr cube.tx"), 5.0);
    ASSERT_TRUE(mel("animLayer -e -lock 1 L1"));
    EXPECT_EQ(bestLayer("cube.tx"), "BaseAnimation");
}

} // namespace
