// Messages about nodes: attribute changes, world-matrix moves, renames,
// deletion, nodes added and removed, selection and time changes.
#include <maya/MCallbackIdArray.h>
#include <maya/MDGMessage.h>
#include <maya/MDGModifier.h>
#include <maya/MDagMessage.h>
#include <maya/MDagPath.h>
#include <maya/MEventMessage.h>
#include <maya/MFileIO.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MModelMessage.h>
#include <maya/MNodeMessage.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>
#include <maya/MTime.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using ::testing::ElementsAre;

namespace {

bool mel(const std::string& text)
{
    return MGlobal::executeCommand(text.c_str(), false, true);
}

MObject nodeNamed(const std::string& name)
{
    MSelectionList list;
    MObject node;
    if (list.add(name.c_str()))
        list.getDependNode(0, node);
    return node;
}

MDagPath pathNamed(const std::string& name)
{
    MSelectionList list;
    MDagPath path;
    if (list.add(name.c_str()))
        list.getDagPath(0, path);
    return path;
}

std::string nameOf(const MObject& node)
{
    return MFnDependencyNode(node).name().asChar();
}

class NodeMessages : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(MFileIO::newFile(true)); }
    void TearDown() override { MMessage::removeCallbacks(ids); }

    MCallbackIdArray ids;
    std::vector<std::string> heard;
};

void hearAttribute(MNodeMessage::AttributeMessage message, MPlug& plug, MPlug&, void* clientData)
{
    if (message & MNodeMessage::kAttributeSet)
        static_cast<std::vector<std::string>*>(clientData)->push_back(plug.partialName().asChar());
}

void hearNode(MObject& node, void* clientData)
{
    static_cast<std::vector<std::string>*>(clientData)->push_back(nameOf(node));
}

void hearMove(MObject& node, MDagMessage::MatrixModifiedFlags&, void* clientData)
{
    static_cast<std::vector<std::string>*>(clientData)->push_back(nameOf(node));
}

void hearName(void* clientData, const std::string& text)
{
    static_cast<std::vector<std::string>*>(clientData)->push_back(text);
}

} // namespace

TEST_F(NodeMessages, AttributeSetNamesThePlugThatWasSet)
{
    ASSERT_TRUE(mel("createNode transform -n a"));
    MObject node = nodeNamed("a");
    MStatus status;
    ids.append(MNodeMessage::addAttributeChangedCallback(node, hearAttribute, &heard, &status));
    ASSERT_TRUE(status);
    ASSERT_TRUE(mel("setAttr a.tx 5"));
    ASSERT_TRUE(mel("setAttr a.rotate 0 45 0"));
    EXPECT_THAT(heard, ::testing::Contains("tx"));
    EXPECT_THAT(heard, ::testing::Contains("ry"));
}

TEST_F(NodeMessages, WorldMatrixCallbackHearsMovesOfTheNodeAndOfEveryParent)
{
    ASSERT_TRUE(mel("createNode transform -n top; createNode transform -n middle -p top;"
                    "createNode transform -n leaf -p middle; createNode transform -n aside"));
    MDagPath leaf = pathNamed("leaf");
    ids.append(MDagMessage::addWorldMatrixModifiedCallback(leaf, hearMove, &heard));
    ASSERT_TRUE(mel("setAttr top.tx 1"));
    ASSERT_TRUE(mel("setAttr middle.ry 10"));
    ASSERT_TRUE(mel("setAttr leaf.sz 2"));
    ASSERT_TRUE(mel("setAttr aside.tx 1"));
    EXPECT_THAT(heard, ElementsAre("leaf", "leaf", "leaf"));
}

TEST_F(NodeMessages, RenameReportsThePreviousName)
{
    ASSERT_TRUE(mel("createNode transform -n before"));
    MObject node = nodeNamed("before");
    ids.append(MNodeMessage::addNameChangedCallback(
        node, [](MObject& renamed, const MString& previous, void* data) {
            hearName(data, std::string(previous.asChar()) + " -> " + nameOf(renamed));
        },
        &heard));
    ASSERT_TRUE(mel("rename before after"));
    EXPECT_THAT(heard, ElementsAre("before -> after"));
}

TEST_F(NodeMessages, DeletionRunsAboutToDeleteOnceAndPreRemovalOnEachRemoval)
{
    ASSERT_TRUE(mel("createNode transform -n doomed"));
    MObject node = nodeNamed("doomed");
    ids.append(MNodeMessage::addNodeAboutToDeleteCallback(
        node, [](MObject&, MDGModifier&, void* data) { hearName(data, "aboutToDelete"); }, &heard));
    ids.append(MNodeMessage::addNodePreRemovalCallback(
        node, [](MObject&, void* data) { hearName(data, "preRemoval"); }, &heard));
    ASSERT_TRUE(mel("delete doomed"));
    ASSERT_TRUE(mel("undo"));
    ASSERT_TRUE(mel("redo"));
    EXPECT_THAT(heard, ElementsAre("aboutToDelete", "preRemoval", "preRemoval"));
}

TEST_F(NodeMessages, CallbacksOfADeletedNodeLiveWhileUndoCanBringItBack)
{
    ASSERT_TRUE(mel("createNode transform -n a"));
    MObject node = nodeNamed("a");
    const MCallbackId id = MNodeMessage::addAttributeChangedCallback(node, hearAttribute, &heard);
    node = MObject();
    ASSERT_TRUE(mel("delete a; undo"));
    ASSERT_TRUE(mel("setAttr a.tx 1"));
    EXPECT_THAT(heard, ElementsAre("tx"));

    // Gone for good once the undo queue lets go of it.
    ASSERT_TRUE(mel("delete a; flushUndo"));
    EXPECT_EQ(MMessage::removeCallback(id), MS::kFailure);
}

TEST_F(NodeMessages, NodeAddedFiltersByTypeIncludingDerivedTypes)
{
    std::vector<std::string> transforms;
    ids.append(MDGMessage::addNodeAddedCallback(hearNode, "dependNode", &heard));
    ids.append(MDGMessage::addNodeAddedCallback(hearNode, "transform", &transforms));
    ASSERT_TRUE(mel("createNode transform -n t; createNode joint -n j; createNode locator -n shape -p t"));
    EXPECT_THAT(heard, ElementsAre("t", "j", "shape"));
    EXPECT_THAT(transforms, ElementsAre("t", "j"));
}

TEST_F(NodeMessages, NodeRemovedHearsDeletion)
{
    ASSERT_TRUE(mel("createNode transform -n gone"));
    ids.append(MDGMessage::addNodeRemovedCallback(hearNode, "transform", &heard));
    ASSERT_TRUE(mel("delete gone"));
    EXPECT_THAT(heard, ElementsAre("gone"));
}

TEST_F(NodeMessages, SelectionChangeRaisesActiveListModifiedThenSelectionChanged)
{
    ASSERT_TRUE(mel("createNode transform -n a; select -clear"));
    ids.append(MModelMessage::addCallback(
        MModelMessage::kActiveListModified, [](void* data) { hearName(data, "kActiveListModified"); }, &heard));
    ids.append(MEventMessage::addEventCallback(
        "SelectionChanged", [](void* data) { hearName(data, "SelectionChanged"); }, &heard));
    ASSERT_TRUE(mel("select a"));
    EXPECT_THAT(heard, ElementsAre("kActiveListModified", "SelectionChanged"));
}

TEST_F(NodeMessages, TimeChangeHandsOutTheNewTime)
{
    std::vector<double> times;
    ids.append(MDGMessage::addTimeChangeCallback(
        [](MTime& time, void* data) { static_cast<std::vector<double>*>(data)->push_back(time.as(MTime::uiUnit())); },
        &times));
    ASSERT_TRUE(mel("currentTime 12"));
    EXPECT_THAT(times, ElementsAre(12.0));
}

TEST_F(NodeMessages, NodeCallbacksListsWhatIsRegisteredOnANode)
{
    ASSERT_TRUE(mel("createNode transform -n a"));
    MObject node = nodeNamed("a");
    const MCallbackId id = MNodeMessage::addAttributeChangedCallback(node, hearAttribute, &heard);
    ids.append(id);
    MCallbackIdArray onNode;
    ASSERT_TRUE(MMessage::nodeCallbacks(node, onNode));
    ASSERT_EQ(onNode.length(), 1u);
    EXPECT_EQ(onNode[0], id);
    // A null object is no node to watch.
    MObject nothing;
    MStatus status;
    EXPECT_EQ(MNodeMessage::addAttributeChangedCallback(nothing, hearAttribute, nullptr, &status), 0u);
    EXPECT_FALSE(status);
}
