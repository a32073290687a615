// A plug-in node's storable attribute saved and opened again: the file's
// value is read after postConstructor ran, so it wins over what
// postConstructor set.
#include "FileTest.h"

#include <maya/MFnNumericAttribute.h>
#include <maya/MFnPlugin.h>
#include <maya/MPlug.h>
#include <maya/MPxNode.h>
#include <maya/MTypeId.h>

namespace {

class StampNode : public MPxNode
{
public:
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
};

MObject StampNode::stamp;

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
        ASSERT_TRUE(mayasim::host::loadLinkedPlugin("fileTestPlugin", &initializePlugin, &uninitializePlugin));
        FileTest::SetUp();
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
