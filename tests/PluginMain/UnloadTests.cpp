// The module's nodes hold its code: unloading waits for them, or when forced
// leaves them as unknown nodes; either way none of its code runs once it is
// gone (a new scene, or the last MObject letting go of a node it made).
#include "PluginTest.h"

#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFileIO.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>

#include <gtest/gtest.h>

namespace {

class ModuleUnload : public PluginTest
{
protected:
    void SetUp() override
    {
        PluginTest::SetUp();
        // The module itself instead of the linked plug-in, from a new scene.
        ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
        ASSERT_TRUE(MGlobal::executeCommand("loadPlugin \"" ORVANE_PLUGIN_MODULE "\""));
    }
    void TearDown() override
    {
        ASSERT_TRUE(MFileIO::newFile(true));
        if (!MFnPlugin::findPlugin("orvane").isNull()) {
            EXPECT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
        }
    }
};

TEST_F(ModuleUnload, ForcedWhileItsNodeIsInTheScene)
{
    ASSERT_TRUE(mel("createNode OVSceneId")); // the node names itself "OVSceneId"
    EXPECT_FALSE(MGlobal::executeCommand("unloadPlugin orvane"));
    ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin -force orvane"));
    EXPECT_TRUE(nodeNamed("OVSceneId").hasFn(MFn::kUnknown));
    EXPECT_TRUE(MFileIO::newFile(true)); // this ran the unloaded module's destructor
}

TEST_F(ModuleUnload, WhileAnMObjectHoldsItsDeletedNode)
{
    ASSERT_TRUE(mel("createNode OVSceneId"));
    MObject held = nodeNamed("OVSceneId");
    ASSERT_TRUE(mel("delete OVSceneId"));
    ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
    held = MObject();
}

} // namespace
