// Maya's node naming: unique names by a number suffix, default names from
// the type, DAG names unique among siblings only, and path names.
#include "DgTest.h"
#include "TestNodes.h"

#include <maya/MDGModifier.h>
#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MUuid.h>

using namespace dgtest;

namespace {

class NamingTest : public DgTest
{
};

TEST_F(NamingTest, AClashAddsOrIncrementsANumberSuffix)
{
    EXPECT_EQ(melString("createNode transform -n pCube"), "pCube");
    EXPECT_EQ(melString("createNode transform -n pCube"), "pCube1");
    EXPECT_EQ(melString("createNode transform -n a1"), "a1");
    EXPECT_EQ(melString("createNode transform -n a1"), "a2");
    EXPECT_EQ(melString("createNode transform -n b5; createNode transform -n b6; createNode transform -n b5"), "b7");
    EXPECT_EQ(melString("rename a2 pCube"), "pCube2");
}

TEST_F(NamingTest, DefaultNamesComeFromTheTypeAndReuseFreedNumbers)
{
    EXPECT_EQ(melString("createNode transform"), "transform1");
    EXPECT_EQ(melString("createNode transform"), "transform2");
    EXPECT_EQ(melString("createNode joint"), "joint1");
    ASSERT_TRUE(mel("delete transform1"));
    EXPECT_EQ(melString("createNode transform"), "transform1");
    // A shape made without a parent gets a transform of its own.
    EXPECT_EQ(melString("createNode locator"), "locator1");
    EXPECT_EQ(melString("listRelatives -p locator1"), "transform3");
}

TEST_F(NamingTest, DagNamesNeedOnlyBeUniqueAmongSiblings)
{
    ASSERT_TRUE(mel("createNode transform -n g1; createNode transform -n g2"));
    EXPECT_EQ(melString("createNode transform -n x -p g1"), "x");
    EXPECT_EQ(melString("createNode transform -n x -p g2"), "g2|x");
    EXPECT_EQ(melString("createNode transform -n x -p g2"), "x1");
    EXPECT_EQ(melStrings("ls -type transform"), (std::vector<std::string>{"g1", "g2", "g1|x", "g2|x", "x1"}));
    EXPECT_EQ(melStrings("ls -l \"*x\""), (std::vector<std::string>{"|g1|x", "|g2|x"}));
    MDagPath path;
    ASSERT_TRUE(MDagPath::getAPathTo(nodeNamed("|g2|x"), path));
    EXPECT_EQ(path.fullPathName(), MString("|g2|x"));
    EXPECT_EQ(path.partialPathName(), MString("g2|x"));
    EXPECT_EQ(path.length(), 2u);
    // A plain name that matches two nodes names neither.
    EXPECT_FALSE(mel("rename x y"));
    EXPECT_EQ(lastError(), "More than one object matches name: x");
}

TEST_F(NamingTest, RenameThroughAModifierMakesTheNameUnique)
{
    loadTestNodes();
    MFnDependencyNode first;
    first.create("dgRenamer");
    MFnDependencyNode second;
    second.create("dgRenamer");
    EXPECT_EQ(first.name(), MString("dgRenamed"));
    EXPECT_EQ(second.name(), MString("dgRenamed1"));
    EXPECT_EQ(MFnDependencyNode(nodeNamed("dgRenamed")).uuid(), first.uuid());
    EXPECT_EQ(first.setName("dgRenamed1"), MString("dgRenamed2"));
}

TEST_F(NamingTest, UuidsSurviveRenameAndDuplicatesGetNewOnes)
{
    ASSERT_TRUE(mel("createNode transform -n pCube1"));
    const MUuid uuid = MFnDependencyNode(nodeNamed("pCube1")).uuid();
    EXPECT_TRUE(uuid.valid());
    ASSERT_TRUE(mel("rename pCube1 box"));
    EXPECT_EQ(MFnDependencyNode(nodeNamed("box")).uuid(), uuid);
    EXPECT_EQ(melString("ls -uid box"), uuid.asString().asChar());
    EXPECT_EQ(melString("duplicate box"), "box1");
    EXPECT_NE(MFnDependencyNode(nodeNamed("box1")).uuid(), uuid);
    MSelectionList byUuid;
    ASSERT_TRUE(byUuid.add(uuid));
    MObject found;
    byUuid.getDependNode(0, found);
    EXPECT_EQ(MFnDependencyNode(found).name(), MString("box"));

    ASSERT_TRUE(mel("rename -uid box \"4B2F1C6E-0000-1111-2222-333344445555\""));
    EXPECT_EQ(melString("ls -uid box"), "4B2F1C6E-0000-1111-2222-333344445555");
}

} // namespace
