// Loading and unloading the module: registration order, the failure words,
// and the deferred task queue.
#include "PluginTest.h"

#include "Utils/Tasks.h"

#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

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
                                       "OVAnimationOffset", "OVTimelineOverlay", "OVAnimationRecovery", "OVMirror",
                                       "OVSelectOpposite", "OVTangent"));
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
    EXPECT_THAT(reports()[0], HasSubstr("Message: Failed to deregister OVTangent\n"));
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

// The real module, loaded with the dynamic loader as Maya loads it.
TEST(PluginModule, LoadsAndUnloadsRepeatedly)
{
    for (int round = 0; round < 100; ++round) {
        ASSERT_TRUE(MGlobal::executeCommand("loadPlugin \"" ORVANE_PLUGIN_MODULE "\"")) << round;
        ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane")) << round;
    }
}

} // namespace
