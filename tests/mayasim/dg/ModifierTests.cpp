// MDGModifier / MDagModifier: doIt applies only what is new, undoIt takes
// back everything in reverse, a second doIt redoes; MObjectHandle liveness
// after deletion (B27).
#include "DgTest.h"

#include <maya/MDagModifier.h>
#include <maya/MFnDagNode.h>
#include <maya/MPlug.h>

using namespace dgtest;

namespace {

class ModifierTest : public DgTest
{
};

TEST_F(ModifierTest, DoItAppliesOnlyNewOperationsAndUndoItRevertsAllInReverse)
{
    MDGModifier modifier;
    MObject node = modifier.createNode("transform");
    ASSERT_FALSE(node.isNull());
    EXPECT_FALSE(MObjectHandle(node).isValid()) << "not in the scene before doIt";
    modifier.renameNode(node, "box");
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(MFnDependencyNode(node).name(), MString("box"));

    const MPlug tx = MFnDependencyNode(node).findPlug("tx", true);
    modifier.newPlugValueDouble(tx, 1.0);
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(tx.asDouble(), 1.0);

    // A change made elsewhere is not overwritten by the next doIt.
    ASSERT_TRUE(mel("setAttr box.tx 5"));
    modifier.newPlugValueDouble(MFnDependencyNode(node).findPlug("ty", true), 2.0);
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(tx.asDouble(), 5.0);
    EXPECT_EQ(MFnDependencyNode(node).findPlug("ty", true).asDouble(), 2.0);

    ASSERT_TRUE(mel("setAttr box.tx 1")); // as the modifier left it
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_FALSE(MObjectHandle(node).isValid());
    EXPECT_TRUE(nodeNamed("box").isNull());

    ASSERT_TRUE(modifier.doIt()); // redo: the same node, the same values
    EXPECT_TRUE(MObjectHandle(node).isValid());
    EXPECT_EQ(MFnDependencyNode(node).name(), MString("box"));
    EXPECT_EQ(tx.asDouble(), 1.0);
    EXPECT_EQ(MFnDependencyNode(node).findPlug("ty", true).asDouble(), 2.0);
}

TEST_F(ModifierTest, AFailedOperationStopsDoIt)
{
    ASSERT_TRUE(mel("createNode transform -n a; createNode transform -n b; setAttr -l on b.tx"));
    MDGModifier modifier;
    modifier.newPlugValueDouble(plugNamed("a.tx"), 3.0);
    modifier.connect(plugNamed("a.ty"), plugNamed("b.tx"));
    EXPECT_FALSE(modifier.doIt());
    EXPECT_EQ(plugNamed("a.tx").asDouble(), 3.0);
    EXPECT_FALSE(plugNamed("b.tx").isDestination());
}

TEST_F(ModifierTest, ConnectAndDisconnect)
{
    ASSERT_TRUE(mel("createNode transform -n a; createNode transform -n b; setAttr a.tx 4"));
    MDGModifier modifier;
    modifier.connect(plugNamed("a.tx"), plugNamed("b.ty"));
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(plugNamed("b.ty").asDouble(), 4.0);
    EXPECT_EQ(plugNamed("b.ty").source(), plugNamed("a.tx"));
    modifier.disconnect(plugNamed("a.tx"), plugNamed("b.ty"));
    ASSERT_TRUE(modifier.doIt());
    EXPECT_TRUE(plugNamed("b.ty").source().isNull());
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_FALSE(plugNamed("b.ty").isDestination());
}

TEST_F(ModifierTest, DagModifierCreatesUnderAParentAndReparents)
{
    MDagModifier modifier;
    MObject group = modifier.createNode("transform");
    MObject child = modifier.createNode("transform", group);
    MObject other = modifier.createNode("transform");
    modifier.renameNode(group, "group"); // after the other two took their default names
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(MFnDagNode(child).fullPathName(), MString("|group|transform2"));
    modifier.reparentNode(child, other);
    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(MFnDagNode(child).parent(0), other);
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_FALSE(MObjectHandle(child).isValid());
    EXPECT_FALSE(MObjectHandle(group).isValid());
}

TEST_F(ModifierTest, DeletedNodeHeldByUndoIsAliveButNotValid)
{
    ASSERT_TRUE(mel("createNode transform -n doomed"));
    MObjectHandle handle(nodeNamed("doomed"));
    const unsigned int hash = handle.hashCode();
    EXPECT_EQ(MObjectHandle(nodeNamed("doomed")).hashCode(), hash);
    ASSERT_TRUE(handle.isValid() && handle.isAlive());

    ASSERT_TRUE(mel("delete doomed"));
    EXPECT_FALSE(handle.isValid());
    EXPECT_TRUE(handle.isAlive()) << "the undo queue holds the node";
    ASSERT_TRUE(mel("undo"));
    EXPECT_TRUE(handle.isValid());
    EXPECT_EQ(handle.hashCode(), hash);
    ASSERT_TRUE(mel("redo"));
    EXPECT_FALSE(handle.isValid());
    ASSERT_TRUE(mel("flushUndo"));
    EXPECT_FALSE(handle.isAlive()) << "nothing holds the node any more";
}

TEST_F(ModifierTest, DeletingAParentDeletesItsChildrenAndConnections)
{
    ASSERT_TRUE(mel("createNode transform -n p; createNode transform -n c -p p; createNode transform -n d"));
    ASSERT_TRUE(mel("connectAttr c.tx d.tx"));
    MObjectHandle child(nodeNamed("c"));
    ASSERT_TRUE(mel("delete p"));
    EXPECT_FALSE(child.isValid());
    EXPECT_FALSE(plugNamed("d.tx").isDestination());
    ASSERT_TRUE(mel("undo"));
    EXPECT_TRUE(child.isValid());
    EXPECT_EQ(plugNamed("d.tx").source(), plugNamed("c.tx"));
    EXPECT_EQ(melString("listRelatives -f -c p"), "|p|c");
}

} // namespace
