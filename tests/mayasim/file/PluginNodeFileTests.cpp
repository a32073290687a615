// A plug-in node's storable attribute saved and opened again: the file's
// value is read after postConstructor ran, so it wins over what
// postConstructor set. Unloading the plug-in while its nodes live.
#include "FileTest.h"

#include <maya/MFnNumericAttribute.h>
#include <maya/MFnPlugin.h>
#include <maya/MPlug.h>
#include <maya/MPxNode.h>
#include <maya/MTypeId.h>

#include <gmock/gmock.h>

namespace {

class StampNode : public MPxNode
{
public:
    ~StampNode() override { ++destroyed; }
    static void* creator() { return new StampNode; }
    static MStatus initialize()
    {
        MFnNumericAttribute numeric;
        stamp = numeric.create("stamp", "stp", MFnNumericData::kDouble, 0.0);
        numeric.setStorable(true);
        return addAttribute(stamp);
    }
    // As a scene identity would be: a fresh node stamps itself.
    void postConstructor() override { MPlug(thisMObject(), stamp).setDouble(42.0); }

    static MObject stamp;
    static int destroyed; // plug-in parts destroyed so far
};

MObject StampNode::stamp;
int StampNode::destroyed = 0;

const MTypeId kStampId(0x0012F0A1);

MStatus initializePlugin(MObject plugin)
{
    return MFnPlugin(plugin, "File Tests", "1.0").registerNode("fileTestStamp", kStampId, &StampNode::creator,
                                                                &StampNode::initialize);
}

MStatus uninitializePlugin(MObject plugin)
{
    return MFnPlugin(plugin).deregisterNode(kStampId);
}

class PluginNodeFile : public FileTest
{
protected:
    void SetUp() override
    {
        load();
        FileTest::SetUp();
    }
    static void load()
    {
        ASSERT_TRUE(mayasim::host::loadLinkedPlugin("fileTestPlugin", &initializePlugin, &uninitializePlugin));
    }

    void TearDown() override
    {
        MFileIO::newFile(true);
        mel("unloadPlugin fileTestPlugin");
    }
};

} // namespace

TEST_F(PluginNodeFile, FileValueOverwritesWhatPostConstructorSet)
{
    ASSERT_TRUE(mel("createNode fileTestStamp -n fresh"));
    EXPECT_EQ(melNumber("getAttr fresh.stamp"), 42.0);
    ASSERT_TRUE(mel("createNode fileTestStamp -n stored; setAttr stored.stamp 7"));

    const std::string path = scratchFile("stamps.ma");
    ASSERT_TRUE(MFileIO::saveAs(path.c_str()));
    EXPECT_NE(contents(path).find("requires -nodeType \"fileTestStamp\" \"fileTestPlugin\" \"1.0\";\n"),
              std::string::npos);
    ASSERT_TRUE(MFileIO::open(path.c_str(), nullptr, true));
    EXPECT_EQ(melNumber("getAttr stored.stamp"), 7.0);
    EXPECT_EQ(melNumber("getAttr fresh.stamp"), 42.0);
    EXPECT_EQ(typeOf("stored"), "fileTestStamp");
}

TEST_F(PluginNodeFile, UnloadingWaitsForTheNodesInTheScene)
{
    ASSERT_TRUE(mel("createNode fileTestStamp -n kept"));
    mayasim::host::clearOutput();
    EXPECT_FALSE(mel("unloadPlugin fileTestPlugin"));
    EXPECT_THAT(errors(), ::testing::ElementsAre("line 1: Plug-in, \"fileTestPlugin\", is still in use and cannot be "
                                                 "unloaded: the scene holds its node kept. Use -force to unload it anyway."));
    EXPECT_TRUE(mel("createNode fileTestStamp -n another")); // still loaded

    // Deleted nodes the undo queue holds don't count (unloading flushes
    // it), nor does an MObject still holding one: its plug-in part goes now,
    // while the plug-in's code is there to run its destructor.
    const MObject held = nodeNamed("kept");
    ASSERT_TRUE(mel("delete kept another"));
    const int destroyed = StampNode::destroyed;
    ASSERT_TRUE(mel("unloadPlugin fileTestPlugin"));
    EXPECT_EQ(StampNode::destroyed, destroyed + 2);
    MStatus status;
    EXPECT_EQ(MFnDependencyNode(held).userNode(&status), nullptr);
    EXPECT_FALSE(status);
    load(); // for TearDown
}

TEST_F(PluginNodeFile, ForcedUnloadingLeavesItsNodesAsUnknownNodesWithTheirValues)
{
    ASSERT_TRUE(mel("createNode fileTestStamp -n kept; setAttr kept.stamp 7"));
    const int destroyed = StampNode::destroyed;
    ASSERT_TRUE(mel("unloadPlugin -force fileTestPlugin"));
    EXPECT_EQ(StampNode::destroyed, destroyed + 1);
    EXPECT_EQ(typeOf("kept"), "fileTestStamp");
    EXPECT_TRUE(MFnDependencyNode(nodeNamed("kept")).object().hasFn(MFn::kUnknown));
    EXPECT_EQ(melNumber("getAttr kept.stamp"), 7.0);
    EXPECT_FALSE(mel("createNode fileTestStamp"));

    // Saved as the plug-in's node, it is one again once the plug-in is back.
    const std::string path = scratchFile("unknown.ma");
    ASSERT_TRUE(MFileIO::saveAs(path.c_str()));
    load();
    ASSERT_TRUE(MFileIO::open(path.c_str(), nullptr, true));
    EXPECT_EQ(melNumber("getAttr kept.stamp"), 7.0);
    EXPECT_NE(MFnDependencyNode(nodeNamed("kept")).userNode(), nullptr);
}
