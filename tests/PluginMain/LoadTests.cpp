// Loading and unloading the module: registration order, the failure words,
// and the deferred task queue.
#include "DataFolderTest.h"

#include "Utils/Tasks.h"

#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFileIO.h>
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <set>

using ::testing::HasSubstr;

namespace {

std::vector<std::string> registeredCommands()
{
    std::vector<std::string> names;
    for (const auto& entry : mayasim::host::registrations()) {
        if (entry.plugin == "orvane" && entry.succeeded && entry.call == "registerCommand")
            names.push_back(entry.name);
    }
    return names;
}

class PluginLoad : public PluginTest
{
};

TEST_F(PluginLoad, RegistersTheCommandsInOrder)
{
    ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
    mayasim::host::clearRegistrations();
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    EXPECT_THAT(registeredCommands(),
                ::testing::ElementsAre("OVKeyBlending", "OVTangentBlending", "OVSnapshot", "OVResetPose",
                                       "OVAnimationOffset", "OVTimelineOverlay", "OVTempPivot", "OVMotionTrail", "OVAnimationRecovery", "OVSelectionSet",
                                       "orvane", "OVSelectionSetUi", "OVMirror",
                                       "OVSelectOpposite", "OVXFormWorldSpace", "OVRetiming", "OVTangent", "OVPieMenu", "OVRelationship"));
}

TEST_F(PluginLoad, FailedRegistrationStopsTheLoadWithOneReport)
{
    ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
    mayasim::host::clearOutput();
    mayasim::host::failRegistrationAt(1);
    EXPECT_FALSE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: Failed to register OVKeyBlending\n"));
    EXPECT_THAT(reports()[0], HasSubstr("Function: Register\n"));
    EXPECT_THAT(reports()[0], HasSubstr("File: Registration\n"));
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
}

TEST_F(PluginLoad, FailedDeregistrationKeepsThePluginWithItsTasksCancelled)
{
    bool ran = false;
    deferTask([&ran] { ran = true; });
    mayasim::host::failRegistrationAt(1);
    EXPECT_FALSE(MGlobal::executeCommand("unloadPlugin orvane"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: Failed to deregister OVRelationship\n"));
    EXPECT_THAT(reports()[0], HasSubstr("Function: Deregister\n"));
    mayasim::host::pumpIdle();
    EXPECT_FALSE(ran);
    EXPECT_TRUE(MGlobal::executeCommand("OVKeyBlending -internal", false, false));
}

TEST_F(PluginLoad, TasksRunOnceOnTheNextIdleTick)
{
    int runs = 0;
    const int first = deferTask([&runs] { ++runs; });
    EXPECT_GE(first, 1);
    mayasim::host::pumpIdle();
    EXPECT_EQ(runs, 1);
    mayasim::host::pumpIdle();
    EXPECT_EQ(runs, 1);
    cancelTask(first); // already run: no effect
}

TEST_F(PluginLoad, ReplacingKeepsOnlyTheNewestAndCancelledTasksNeverRun)
{
    std::vector<int> order;
    int id = deferTaskReplacing(0, [&order] { order.push_back(0); });
    id = deferTaskReplacing(id, [&order] { order.push_back(1); });
    const int cancelled = deferTask([&order] { order.push_back(2); });
    cancelTask(cancelled);
    cancelTask(12345);
    mayasim::host::pumpIdle();
    EXPECT_EQ(order, std::vector<int>{1});
}

TEST_F(PluginLoad, TaskQueuedByATaskWaitsForTheNextTick)
{
    std::vector<int> order;
    deferTask([&order] {
        order.push_back(1);
        deferTask([&order] { order.push_back(2); });
    });
    mayasim::host::pumpIdle();
    EXPECT_EQ(order, std::vector<int>{1});
    mayasim::host::pumpIdle();
    EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TEST_F(PluginLoad, UnloadingWithATaskQueuedMeansItNeverRuns)
{
    ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
    const size_t callbacksWithoutPlugin = mayasim::host::callbackCount();
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    bool ran = false;
    deferTask([&ran] { ran = true; });
    ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
    EXPECT_EQ(mayasim::host::callbackCount(), callbacksWithoutPlugin);
    mayasim::host::pumpIdle();
    EXPECT_FALSE(ran);
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
}

// Every tool, run as a script runs it on the rig with its controls selected,
// with its mode on where it has one. A new tool joins with one row.
const char* const everyTool[] = {
    "OVKeyBlending -bt 0 -bv 0.5",
    "OVKeyBlending -internal",
    "OVTangentBlending -bt 1 -bv 0.5",
    "OVTangentBlending -internal",
    "OVTangent -bt 2",
    "OVSnapshot",
    "OVResetPose",
    "OVMirror",
    "OVSelectOpposite -ao",
    "OVSelectOpposite -aas",
    "OVXFormWorldSpace",
    "OVXFormWorldSpace -p",
    "OVRetiming -v 2 -rt 3",
    "OVRelationship body_ctrl arm_L_ctrl",
    "OVRelationship -p",
    "OVPieMenu -c 1",
    "OVMotionTrail arm_R_ctrl",
    "OVMotionTrail -cameraSpace 1",
    "OVMotionTrail -lineStyle 0 arm_R_ctrl",
    "OVAnimationRecovery -enable true",
    "OVSelectionSet arms",
    "OVSelectionSet -m 1 x1E0x1Earms arm_R_ctrl",
    "OVSelectionSet -h 1 x1E0x1Earms",
    "OVSelectionSet -s 0 x1E0x1Earms",
    "select -r arm_R_ctrl",
    "OVTempPivot -e true -lastObject body_ctrl arm_L_ctrl",
    "OVTempPivot -toggleEdit",
    "setAttr transform1.ry 30",
    "OVTempPivot -reset",
};

// The names each register call of the plug-in made and each deregister call
// took back again, as "registerCommand OVKeyBlending".
std::pair<std::multiset<std::string>, std::multiset<std::string>> registeredAndDeregistered()
{
    std::multiset<std::string> registered, deregistered;
    for (const auto& entry : mayasim::host::registrations()) {
        if (entry.plugin != "orvane" || !entry.succeeded)
            continue;
        if (entry.call.rfind("register", 0) == 0)
            registered.insert(entry.call + " " + entry.name);
        else if (entry.call.rfind("deregister", 0) == 0)
            deregistered.insert("r" + entry.call.substr(3) + " " + entry.name);
    }
    return {registered, deregistered};
}

class PluginModule : public DataFolderTest
{
};

// The real module, loaded with the dynamic loader as Maya loads it, a hundred
// times with every tool run in between: each unload leaves no callback and no
// registered name behind, and nothing leaks (AddressSanitizer's leak check).
TEST_F(PluginModule, LoadsRunsEveryToolAndUnloadsRepeatedly)
{
    scriptsDir();
    ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
    const size_t callbacksWithoutPlugin = mayasim::host::callbackCount();
    for (int round = 0; round < 100; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        mayasim::host::clearRegistrations();
        ASSERT_TRUE(MGlobal::executeCommand("loadPlugin \"" ORVANE_PLUGIN_MODULE "\""));
        ASSERT_TRUE(MFileIO::open(ORVANE_TEST_DATA "/rig.ma", nullptr, true));
        ASSERT_TRUE(mel("select -r body_ctrl arm_L_ctrl spine_jnt"));
        for (const char* tool : everyTool)
            EXPECT_TRUE(mel(tool)) << tool;
        mayasim::host::pumpIdle();
        // Maya keeps a plug-in whose nodes are in the scene or on the undo queue.
        ASSERT_TRUE(MFileIO::newFile(true));
        ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));

        EXPECT_EQ(mayasim::host::callbackCount(), callbacksWithoutPlugin);
        const auto [registered, deregistered] = registeredAndDeregistered();
        EXPECT_FALSE(registered.empty());
        EXPECT_EQ(registered, deregistered);
        // Maya knows none of the names any more.
        for (const std::string& entry : registered) {
            const std::string name = entry.substr(entry.find(' ') + 1);
            if (entry.rfind("registerCommand ", 0) == 0) {
                EXPECT_FALSE(MGlobal::executeCommand(name.c_str())) << name;
            } else if (entry.rfind("registerNode ", 0) == 0) {
                EXPECT_FALSE(MGlobal::executeCommand(("createNode " + name).c_str())) << name;
            }
        }
    }
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
}

} // namespace
