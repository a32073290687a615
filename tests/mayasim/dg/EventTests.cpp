// Scene edits fire Maya's messages, in both directions of undo.
#include "DgTest.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MDagMessage.h>
#include <maya/MDagPath.h>
#include <maya/MDGMessage.h>
#include <maya/MNodeMessage.h>
#include <maya/MPlug.h>

using namespace dgtest;

namespace {

std::vector<std::string>& log()
{
    static std::vector<std::string> entries;
    return entries;
}

void added(MObject& node, void*)
{
    log().push_back("added " + std::string(MFnDependencyNode(node).name().asChar()));
}

void removed(MObject& node, void*)
{
    log().push_back("removed " + std::string(MFnDependencyNode(node).name().asChar()));
}

void attributeChanged(MNodeMessage::AttributeMessage message, MPlug& plug, MPlug& other, void*)
{
    std::string entry = plug.partialName().asChar();
    if (message & MNodeMessage::kAttributeSet)
        entry += " set";
    if (message & MNodeMessage::kConnectionMade)
        entry += " connected";
    if (message & MNodeMessage::kConnectionBroken)
        entry += " disconnected";
    if (message & MNodeMessage::kIncomingDirection)
        entry += std::string(" from ") + other.partialName(true).asChar();
    if (message & MNodeMessage::kAttributeLocked)
        entry += " locked";
    log().push_back(entry);
}

void renamed(MObject& node, const MString& previous, void*)
{
    log().push_back(std::string("renamed ") + previous.asChar() + " to " + MFnDependencyNode(node).name().asChar());
}

void moved(MObject& node, MDagMessage::MatrixModifiedFlags&, void*)
{
    log().push_back("moved " + std::string(MFnDependencyNode(node).name().asChar()));
}

class EventTest : public DgTest
{
protected:
    void TearDown() override
    {
        MMessage::removeCallbacks(ids);
        DgTest::TearDown();
    }
    MCallbackIdArray ids;
};

TEST_F(EventTest, NodesAddedAndRemovedAlsoOnUndoAndRedo)
{
    ids.append(MDGMessage::addNodeAddedCallback(added));
    ids.append(MDGMessage::addNodeRemovedCallback(removed));
    log().clear();
    ASSERT_TRUE(mel("createNode transform -n a"));
    ASSERT_TRUE(mel("delete a"));
    ASSERT_TRUE(mel("undo"));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(log(), (std::vector<std::string>{"added a", "removed a", "added a", "removed a"}));
}

TEST_F(EventTest, AttributeChangesAndRenames)
{
    ASSERT_TRUE(mel("createNode transform -n a; createNode transform -n b"));
    MObject b = nodeNamed("b");
    ids.append(MNodeMessage::addAttributeChangedCallback(b, attributeChanged));
    ids.append(MNodeMessage::addNameChangedCallback(b, renamed));
    log().clear();
    ASSERT_TRUE(mel("setAttr b.tx 1"));
    ASSERT_TRUE(mel("connectAttr a.ty b.tz"));
    ASSERT_TRUE(mel("setAttr -l on b.sx"));
    ASSERT_TRUE(mel("rename b c"));
    ASSERT_TRUE(mel("disconnectAttr a.ty c.tz"));
    EXPECT_EQ(log(), (std::vector<std::string>{"tx set", "tz connected from a.ty", "sx locked", "renamed b to c",
                                               "tz disconnected from a.ty"}));
}

TEST_F(EventTest, ChannelChangesMoveTheNodeInTheWorld)
{
    ASSERT_TRUE(mel("createNode transform -n p; createNode transform -n c -p p; createNode transform -n other"));
    MDagPath path;
    MDagPath::getAPathTo(nodeNamed("c"), path);
    ids.append(MDagMessage::addWorldMatrixModifiedCallback(path, moved));
    auto movesC = [](const std::string& command) {
        log().clear();
        EXPECT_TRUE(mel(command));
        return !log().empty();
    };
    EXPECT_TRUE(movesC("setAttr p.rx 10")) << "a parent's channel carries the child";
    EXPECT_FALSE(movesC("setAttr c.v 0"));
    EXPECT_FALSE(movesC("setAttr other.tx 1"));
    EXPECT_TRUE(movesC("parent -r c other"));
    EXPECT_TRUE(movesC("undo"));
}

} // namespace
