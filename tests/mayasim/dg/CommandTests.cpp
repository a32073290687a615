// The scene commands through MEL, as .ma files and scripts use them, with
// undo, and errors in Maya's words that leave nothing half done.
#include "DgTest.h"

#include <maya/MPlug.h>

using namespace dgtest;

namespace {

class CommandTest : public DgTest
{
};

TEST_F(CommandTest, AFileStyleBlockAddressesTheNodeMadeLast)
{
    ASSERT_TRUE(mel("createNode transform -n \"group1\";"
                    " setAttr \".t\" -type \"double3\" 1 2 3;"
                    " setAttr \".r\" -type \"double3\" 0 90 0;"
                    " setAttr -k off \".v\";"
                    " createNode joint -n \"j1\" -p \"group1\";"
                    " setAttr \".jo\" -type \"double3\" 0 0 45;"
                    " addAttr -ci true -sn \"kt\" -ln \"keyTimes\" -at \"double\" -m;"
                    " setAttr -s 4 \".kt[0:3]\" 0 5 10 15;"
                    " addAttr -ln \"label\" -dt \"string\";"
                    " setAttr \".label\" -type \"string\" \"hello world\";"
                    " addAttr -ln \"names\" -dt \"stringArray\";"
                    " setAttr \".names\" -type \"stringArray\" 2 \"a\" \"b\";"
                    " addAttr -ln \"offset\" -at \"matrix\";"
                    " setAttr \".offset\" -type \"matrix\" 1 0 0 0 0 1 0 0 0 0 1 0 4 5 6 1;"));
    EXPECT_EQ(melNumbers("getAttr group1.t"), (std::vector<double>{1, 2, 3}));
    EXPECT_NEAR(melNumber("getAttr group1.ry"), 90.0, 1e-12);
    EXPECT_EQ(melNumber("getAttr -k group1.v"), 0.0);
    EXPECT_EQ(melNumbers("getAttr j1.jo"), (std::vector<double>{0, 0, 45}));
    EXPECT_EQ(melNumbers("getAttr j1.kt"), (std::vector<double>{0, 5, 10, 15}));
    EXPECT_EQ(melNumber("getAttr j1.kt[2]"), 10.0);
    EXPECT_EQ(melString("getAttr j1.label"), "hello world");
    EXPECT_EQ(melStrings("getAttr j1.names"), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(melNumbers("getAttr j1.offset")[12], 4.0);
    EXPECT_EQ(melString("getAttr -type j1.label"), "string");
    EXPECT_EQ(melString("getAttr -type group1.t"), "double3");
    EXPECT_EQ(melString("getAttr -type j1.offset"), "matrix");
    EXPECT_EQ(melNumber("getAttr -s j1.kt"), 4.0);
}

TEST_F(CommandTest, CompoundAttributesJoinTheNodeWithTheirLastChild)
{
    ASSERT_TRUE(mel("createNode transform -n n; addAttr -ln aim -at double3 n"));
    EXPECT_TRUE(plugNamed("n.aim").isNull()) << "waits for its children";
    ASSERT_TRUE(mel("addAttr -ln aimX -at double -p aim n; addAttr -ln aimY -at double -p aim n"));
    ASSERT_TRUE(mel("addAttr -ln aimZ -at double -p aim -dv 3 n"));
    EXPECT_TRUE(plugNamed("n.aim").isCompound());
    EXPECT_EQ(melNumbers("getAttr n.aim"), (std::vector<double>{0, 0, 3}));
    ASSERT_TRUE(mel("addAttr -ln mode -at enum -en \"off:on:auto=5\" -k true n"));
    ASSERT_TRUE(mel("setAttr n.mode 5"));
    EXPECT_EQ(melString("getAttr -as n.mode"), "auto");
    EXPECT_TRUE(plugNamed("n.mode").isKeyable());
    EXPECT_FALSE(mel("addAttr -ln mode -at double n"));
    ASSERT_TRUE(mel("undo")); // the setAttr
    ASSERT_TRUE(mel("undo")); // the addAttr
    EXPECT_TRUE(plugNamed("n.mode").isNull());
}

TEST_F(CommandTest, GetAttrAnswersInTheTypesMayaUses)
{
    ASSERT_TRUE(mel("createNode transform -n n; setAttr n.tx 5; setAttr n.ro 3"));
    EXPECT_EQ(melString("getAttr n.tx"), "5");
    EXPECT_EQ(melString("getAttr n.v"), "1");
    EXPECT_EQ(melString("getAttr n.ro"), "3");
    EXPECT_EQ(melString("getAttr -type n.ro"), "enum");
    EXPECT_EQ(melString("getAttr -type n.v"), "bool");
    EXPECT_EQ(melString("getAttr -type n.tx"), "doubleLinear");
    EXPECT_EQ(melNumbers("getAttr n.wm").size(), 16u);
    EXPECT_EQ(melNumbers("getAttr n.wm")[12], 5.0);
}

TEST_F(CommandTest, SceneEditsUndoAndRedo)
{
    ASSERT_TRUE(mel("createNode transform -n a"));
    ASSERT_TRUE(mel("createNode transform -n b"));
    ASSERT_TRUE(mel("setAttr a.tx 3"));
    ASSERT_TRUE(mel("connectAttr a.tx b.ty"));
    ASSERT_TRUE(mel("parent b a"));
    ASSERT_TRUE(mel("rename b c"));
    EXPECT_EQ(melString("ls -l c"), "|a|c");
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melString("ls -l b"), "|a|b");
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melString("ls -l b"), "|b");
    ASSERT_TRUE(mel("undo"));
    EXPECT_FALSE(plugNamed("b.ty").isDestination());
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melNumber("getAttr a.tx"), 0.0);
    ASSERT_TRUE(mel("redo; redo; redo; redo"));
    EXPECT_EQ(melString("ls -l c"), "|a|c");
    EXPECT_EQ(melNumber("getAttr c.ty"), 3.0);
    ASSERT_TRUE(mel("disconnectAttr a.tx c.ty"));
    EXPECT_FALSE(plugNamed("c.ty").isDestination());
}

TEST_F(CommandTest, DuplicateCopiesValuesAndShapesAndSelectsTheCopy)
{
    ASSERT_TRUE(mel("createNode transform -n pCube1; createNode mesh -n pCubeShape1 -p pCube1; setAttr pCube1.tx 2"));
    EXPECT_EQ(melStrings("duplicate -rr pCube1"), (std::vector<std::string>{"pCube2"}));
    EXPECT_EQ(melNumber("getAttr pCube2.tx"), 2.0);
    EXPECT_EQ(melStrings("listRelatives -s pCube2"), (std::vector<std::string>{"pCubeShape2"}));
    EXPECT_EQ(melStrings("ls -sl"), (std::vector<std::string>{"pCube2"}));
    ASSERT_TRUE(mel("undo"));
    EXPECT_TRUE(nodeNamed("pCube2").isNull());
}

TEST_F(CommandTest, ListRelativesAndLs)
{
    ASSERT_TRUE(mel("createNode transform -n top; createNode transform -n mid -p top"));
    ASSERT_TRUE(mel("createNode locator -n midShape -p mid; createNode transform -n leaf -p mid"));
    EXPECT_EQ(melStrings("listRelatives top"), (std::vector<std::string>{"mid"}));
    EXPECT_EQ(melStrings("listRelatives -c mid"), (std::vector<std::string>{"midShape", "leaf"}));
    EXPECT_EQ(melStrings("listRelatives -s -fullPath mid"), (std::vector<std::string>{"|top|mid|midShape"}));
    EXPECT_EQ(melStrings("listRelatives -ad top"), (std::vector<std::string>{"leaf", "midShape", "mid"}));
    EXPECT_EQ(melStrings("listRelatives -ad -type transform top"), (std::vector<std::string>{"leaf", "mid"}));
    EXPECT_EQ(melStrings("listRelatives -p leaf"), (std::vector<std::string>{"mid"}));
    EXPECT_TRUE(melStrings("listRelatives -s leaf").empty());
    EXPECT_EQ(melStrings("ls -type locator"), (std::vector<std::string>{"midShape"}));
    EXPECT_EQ(melStrings("ls \"m*\""), (std::vector<std::string>{"mid", "midShape"}));
    EXPECT_EQ(melStrings("ls -l -dag \"*f\""), (std::vector<std::string>{"|top|mid|leaf"}));
    int transforms = 0;
    for (MItDependencyNodes it(MFn::kTransform); !it.isDone(); it.next())
        ++transforms;
    EXPECT_EQ(transforms, 3);
}

TEST_F(CommandTest, ParentToTheWorldAndShapeParenting)
{
    ASSERT_TRUE(mel("createNode transform -n p; setAttr p.tx 10; createNode transform -n c -p p"));
    ASSERT_TRUE(mel("parent -w c"));
    EXPECT_EQ(melString("ls -l c"), "|c");
    EXPECT_EQ(melNumber("getAttr c.tx"), 10.0) << "kept its world position";
    ASSERT_TRUE(mel("createNode locator -n shape -p p"));
    ASSERT_TRUE(mel("parent -s -r shape c"));
    EXPECT_EQ(melStrings("listRelatives -s c"), (std::vector<std::string>{"shape"}));
    EXPECT_FALSE(mel("parent p c; parent c p")) << "a node can't go under its descendant";
}

TEST_F(CommandTest, ErrorsUseMayasWordsAndLeaveNoPartialEdits)
{
    EXPECT_FALSE(mel("createNode noSuchType"));
    EXPECT_EQ(lastError(), "Unknown object type: noSuchType");
    EXPECT_FALSE(mel("delete nothing"));
    EXPECT_EQ(lastError(), "No object matches name: nothing");
    ASSERT_TRUE(mel("createNode transform -n a"));
    EXPECT_FALSE(mel("setAttr a.foo 1"));
    EXPECT_EQ(lastError(), "setAttr: No object matches name: a.foo");
    EXPECT_FALSE(mel("getAttr a.foo"));
    EXPECT_EQ(lastError(), "No object matches name: a.foo");
    EXPECT_FALSE(mel("setAttr a.t 1 2"));
    EXPECT_EQ(melNumbers("getAttr a.t"), (std::vector<double>{0, 0, 0}));
    EXPECT_FALSE(mel("createNode transform -n x -p nothing"));
    EXPECT_EQ(lastError(), "No object matches name: nothing");
    EXPECT_TRUE(nodeNamed("x").isNull());
    // One statement that fails part way leaves nothing of it behind.
    ASSERT_TRUE(mel("createNode transform -n b; setAttr -l on b.tx"));
    EXPECT_FALSE(mel("setAttr \".kt[0:1]\" 1 2"));
    EXPECT_FALSE(mel("select -r a b; setAttr \".tx\" 7"));
    EXPECT_EQ(melNumber("getAttr a.tx"), 0.0);
    EXPECT_FALSE(mel("delete a nothing"));
    EXPECT_FALSE(nodeNamed("a").isNull());
}

} // namespace
