// MSelectionList name resolution (B18), the active list and its
// adjustments (B17), MItSelectionList filters.
#include "DgTest.h"

#include <maya/MDagPath.h>
#include <maya/MEventMessage.h>
#include <maya/MItSelectionList.h>
#include <maya/MMessage.h>
#include <maya/MPlug.h>
#include <maya/MUuid.h>

using namespace dgtest;

namespace {

std::vector<std::string> strings(const MSelectionList& list)
{
    MStringArray array;
    list.getSelectionStrings(array);
    std::vector<std::string> result;
    for (unsigned int i = 0; i < array.length(); ++i)
        result.push_back(array[i].asChar());
    return result;
}

std::vector<std::string> active()
{
    MSelectionList list;
    MGlobal::getActiveSelectionList(list);
    return strings(list);
}

void countChange(void* clientData)
{
    ++*static_cast<int*>(clientData);
}

class SelectionTest : public DgTest
{
protected:
    void SetUp() override
    {
        DgTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n pCube1; createNode mesh -n pCubeShape1 -p pCube1"));
        ASSERT_TRUE(mel("createNode transform -n pCube2; createNode transform -n ab; createNode transform -n g"));
        ASSERT_TRUE(mel("createNode transform -n child -p g; select -cl"));
        fCallback = MEventMessage::addEventCallback("SelectionChanged", countChange, &fChanges);
        fChanges = 0;
    }
    void TearDown() override
    {
        MMessage::removeCallback(fCallback);
        DgTest::TearDown();
    }

    MCallbackId fCallback = 0;
    int fChanges = 0;
};

TEST_F(SelectionTest, AddResolvesNamesPathsWildcardsPlugsComponentsAndUuids)
{
    MSelectionList list;
    EXPECT_TRUE(list.add("pCube*"));
    EXPECT_EQ(strings(list), (std::vector<std::string>{"pCube1", "pCubeShape1", "pCube2"}));
    list.clear();
    EXPECT_TRUE(list.add("?b"));
    EXPECT_TRUE(list.add("|g|child"));
    EXPECT_TRUE(list.add("g|child")) << "already present: merged";
    EXPECT_TRUE(list.add("pCube1.tx"));
    EXPECT_TRUE(list.add("pCube1.vtx[0:3]"));
    EXPECT_EQ(strings(list), (std::vector<std::string>{"ab", "child", "pCube1.translateX", "pCube1.vtx[0:3]"}));
    EXPECT_EQ(list.length(), 4u);

    MPlug plug;
    EXPECT_TRUE(list.getPlug(2, plug));
    EXPECT_EQ(plug.name(), MString("pCube1.translateX"));
    MDagPath path;
    EXPECT_TRUE(list.getDagPath(1, path));
    EXPECT_EQ(path.fullPathName(), MString("|g|child"));

    EXPECT_FALSE(list.add("nothing"));
    EXPECT_FALSE(list.add("pCube1.nothing"));
    EXPECT_FALSE(list.add("x1E0x1E*")) << "a wildcard that matches nothing fails";
    EXPECT_EQ(list.length(), 4u);

    MSelectionList curvePick;
    EXPECT_TRUE(curvePick.add("ab[2]"));
    EXPECT_EQ(strings(curvePick), (std::vector<std::string>{"ab[2]"}));

    MSelectionList byUuid;
    const MString uuid = MFnDependencyNode(nodeNamed("ab")).uuid().asString();
    EXPECT_TRUE(byUuid.add(uuid));
    EXPECT_EQ(strings(byUuid), (std::vector<std::string>{"ab"}));
}

TEST_F(SelectionTest, ListEditing)
{
    MSelectionList list;
    list.add("pCube1");
    list.add("pCube2");
    MSelectionList other;
    other.add("pCube2");
    other.add("ab");
    MSelectionList merged = list;
    merged.merge(other);
    EXPECT_EQ(strings(merged), (std::vector<std::string>{"pCube1", "pCube2", "ab"}));
    MSelectionList toggled = list;
    toggled.merge(other, MSelectionList::kXORWithList);
    EXPECT_EQ(strings(toggled), (std::vector<std::string>{"pCube1", "ab"}));
    MSelectionList removed = list;
    removed.merge(other, MSelectionList::kRemoveFromList);
    EXPECT_EQ(strings(removed), (std::vector<std::string>{"pCube1"}));
    EXPECT_TRUE(list.hasItem(nodeNamed("pCube2")));
    EXPECT_TRUE(list.remove(0));
    EXPECT_FALSE(list.hasItem(nodeNamed("pCube1")));
    list.clear();
    EXPECT_TRUE(list.isEmpty());
}

TEST_F(SelectionTest, ActiveListAdjustmentsEachFireTheSelectionMessages)
{
    MSelectionList cubes;
    cubes.add("pCube1");
    cubes.add("pCube2");
    MSelectionList second;
    second.add("pCube2");
    second.add("ab");

    MGlobal::selectCommand(cubes, MGlobal::kReplaceList);
    EXPECT_EQ(active(), (std::vector<std::string>{"pCube1", "pCube2"}));
    MGlobal::selectCommand(second, MGlobal::kAddToList);
    EXPECT_EQ(active(), (std::vector<std::string>{"pCube1", "pCube2", "ab"}));
    MGlobal::selectCommand(second, MGlobal::kRemoveFromList);
    EXPECT_EQ(active(), (std::vector<std::string>{"pCube1"}));
    MGlobal::selectCommand(second, MGlobal::kXORWithList);
    EXPECT_EQ(active(), (std::vector<std::string>{"pCube1", "pCube2", "ab"}));
    MGlobal::setActiveSelectionList(second, MGlobal::kAddToHeadOfList);
    EXPECT_EQ(active(), (std::vector<std::string>{"pCube2", "ab", "pCube1"}));
    EXPECT_EQ(fChanges, 5);

    EXPECT_TRUE(MGlobal::selectByName("g|child", MGlobal::kReplaceList));
    EXPECT_EQ(active(), (std::vector<std::string>{"child"}));
    MObject child = nodeNamed("child");
    EXPECT_TRUE(MGlobal::isSelected(child));
    EXPECT_TRUE(MGlobal::unselectByName("child"));
    EXPECT_FALSE(MGlobal::isSelected(child));
    EXPECT_FALSE(MGlobal::selectByName("nothing"));
    EXPECT_EQ(fChanges, 7);
    MGlobal::clearSelectionList();
    EXPECT_TRUE(active().empty());
}

TEST_F(SelectionTest, SelectCommandIsUndoable)
{
    ASSERT_TRUE(mel("select -r pCube1"));
    ASSERT_TRUE(mel("select -add ab"));
    ASSERT_TRUE(mel("select -d pCube1"));
    EXPECT_EQ(active(), (std::vector<std::string>{"ab"}));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(active(), (std::vector<std::string>{"pCube1", "ab"}));
    ASSERT_TRUE(mel("select -tgl ab pCube2"));
    EXPECT_EQ(active(), (std::vector<std::string>{"pCube1", "pCube2"}));
    EXPECT_EQ(melStrings("ls -sl"), (std::vector<std::string>{"pCube1", "pCube2"}));
    EXPECT_FALSE(mel("select -r nothing"));
    EXPECT_EQ(lastError(), "No object matches name: nothing");
    EXPECT_EQ(active(), (std::vector<std::string>{"pCube1", "pCube2"}));
}

TEST_F(SelectionTest, IteratorFiltersByFunctionSetType)
{
    MSelectionList list;
    list.add("pCubeShape1");
    list.add("ab");
    list.add("pCube1.tx");
    std::vector<std::string> transforms;
    for (MItSelectionList it(list, MFn::kDagNode); !it.isDone(); it.next())
    {
        MDagPath path;
        ASSERT_TRUE(it.getDagPath(path));
        if (!path.hasFn(MFn::kTransform))
            path.pop();
        transforms.push_back(path.partialPathName().asChar());
    }
    EXPECT_EQ(transforms, (std::vector<std::string>{"pCube1", "ab", "pCube1"}));
    MItSelectionList meshes(list, MFn::kMesh);
    EXPECT_FALSE(meshes.isDone());
    meshes.next();
    EXPECT_TRUE(meshes.isDone());
    MItSelectionList curves(list, MFn::kAnimCurve);
    EXPECT_TRUE(curves.isDone());
}

TEST_F(SelectionTest, DeletedNodesLeaveTheActiveListUndoably)
{
    ASSERT_TRUE(mel("select -r ab pCube2"));
    ASSERT_TRUE(mel("delete ab"));
    EXPECT_EQ(active(), (std::vector<std::string>{"pCube2"}));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(active(), (std::vector<std::string>{"ab", "pCube2"}));
    // Redo once left the deleted node selected.
    ASSERT_TRUE(mel("undo; redo; redo"));
    EXPECT_EQ(melStrings("ls -sl"), (std::vector<std::string>{"pCube2"}));
    EXPECT_TRUE(mel("select -add pCube1"));

    // A group's children go with it, and come back selected with it.
    ASSERT_TRUE(mel("select -r child; delete g"));
    EXPECT_TRUE(active().empty());
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(active(), (std::vector<std::string>{"child"}));
}

} // namespace
