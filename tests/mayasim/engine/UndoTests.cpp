// The undo queue: which commands stay alive, how work groups into steps,
// and what undo and redo call.
#include "EngineTest.h"

#include <maya/MEventMessage.h>
#include <maya/MMessage.h>

#include <gmock/gmock.h>

using ::testing::ElementsAre;

using UndoQueue = EngineTest;

TEST_F(UndoQueue, UndoableCommandsStayAliveOnlyWhenRecorded)
{
    ASSERT_TRUE(mel("counter"));
    EXPECT_EQ(record().liveCounters, 1);
    ASSERT_TRUE(MGlobal::executeCommand("counter", false, false));
    EXPECT_EQ(record().liveCounters, 1);
    ASSERT_TRUE(mel("flushUndo"));
    EXPECT_EQ(record().liveCounters, 0);
    EXPECT_EQ(record().counter, 2);
    // A call that fails to parse never creates the command.
    EXPECT_FALSE(mel("counter -by many"));
    EXPECT_EQ(record().liveCounters, 0);
}

TEST_F(UndoQueue, UndoAndRedoCallTheCommandWithTheirFlagsSet)
{
    ASSERT_TRUE(mel("counter -by 3"));
    EXPECT_EQ(stringResult("undoInfo -q -undoName"), "counter -by 3");
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(record().counter, 0);
    EXPECT_EQ(stringResult("undoInfo -q -redoName"), "counter -by 3");
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(record().counter, 3);
    EXPECT_THAT(record().undoLog, ElementsAre("undo 3", "redo 3"));
    EXPECT_FALSE(MGlobal::isUndoing());
    EXPECT_FALSE(MGlobal::isRedoing());
}

TEST_F(UndoQueue, UndoAndRedoRaiseTheirEvents)
{
    static std::vector<std::string> events;
    events.clear();
    auto onUndo = [](void*) { events.push_back("Undo " + std::to_string(enginetest::record().counter)); };
    auto onRedo = [](void*) { events.push_back("Redo " + std::to_string(enginetest::record().counter)); };
    const MCallbackId undoId = MEventMessage::addEventCallback("Undo", onUndo);
    const MCallbackId redoId = MEventMessage::addEventCallback("Redo", onRedo);
    ASSERT_TRUE(mel("counter -by 2"));
    ASSERT_TRUE(mel("undo"));
    ASSERT_TRUE(mel("redo"));
    MMessage::removeCallback(undoId);
    MMessage::removeCallback(redoId);
    // Each fires after the work is done.
    EXPECT_THAT(events, ElementsAre("Undo 0", "Redo 2"));
}

TEST_F(UndoQueue, EachTopLevelStatementIsOneStep)
{
    ASSERT_TRUE(mel("counter -by 1; counter -by 2"));
    ASSERT_TRUE(mel("counter -by 4"));
    ASSERT_TRUE(mel("undo; undo"));
    EXPECT_EQ(record().counter, 1);
}

TEST_F(UndoQueue, NestedCommandsJoinTheRunningStep)
{
    ASSERT_TRUE(mel("nested"));
    EXPECT_EQ(record().counter, 110);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(record().counter, 0);
    EXPECT_THAT(record().undoLog, ElementsAre("undo 100", "undo 10")); // newest first
}

TEST_F(UndoQueue, ChunksMakeOneStepOfEverythingInside)
{
    ASSERT_TRUE(MGlobal::executeCommand("undoInfo -openChunk -chunkName \"TempPivot\""));
    ASSERT_TRUE(mel("counter -by 1"));
    ASSERT_TRUE(mel("counter -by 2"));
    ASSERT_TRUE(MGlobal::executeCommand("undoInfo -closeChunk -chunkName \"TempPivot\""));
    ASSERT_TRUE(mel("counter -by 4"));
    EXPECT_EQ(record().counter, 7);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(stringResult("undoInfo -q -undoName"), "TempPivot");
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(record().counter, 0);
    // An unbalanced close is harmless.
    EXPECT_TRUE(mel("undoInfo -closeChunk"));
}

TEST_F(UndoQueue, ANewStepDropsTheRedoSide)
{
    ASSERT_TRUE(mel("counter -by 1"));
    ASSERT_TRUE(mel("undo"));
    ASSERT_TRUE(mel("counter -by 5"));
    mayasim::host::clearOutput();
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(record().counter, 5);
    EXPECT_THAT(printed(), ElementsAre("// Warning: There are no more commands to redo. //"));
    EXPECT_EQ(record().liveCounters, 1); // the dropped command is gone
}

TEST_F(UndoQueue, QueriesDoNotTouchTheRedoSide)
{
    ASSERT_TRUE(mel("counter -by 1"));
    ASSERT_TRUE(mel("undo"));
    ASSERT_TRUE(mel("typedResult -i 1; recordArgs x"));
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(record().counter, 1);
}

TEST_F(UndoQueue, UndoOffRecordsNothing)
{
    ASSERT_TRUE(mel("counter -by 1"));
    ASSERT_TRUE(mel("undoInfo -stateWithoutFlush off"));
    EXPECT_EQ(stringResult("undoInfo -q -state"), "0");
    ASSERT_TRUE(mel("counter -by 2"));
    EXPECT_EQ(record().liveCounters, 1);
    ASSERT_TRUE(mel("undoInfo -stateWithoutFlush on"));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(record().counter, 2); // only the first was recorded
    // Turning undo off with -state also empties the queue.
    ASSERT_TRUE(mel("redo; undoInfo -state off; undoInfo -state on"));
    EXPECT_EQ(record().liveCounters, 0);
    EXPECT_EQ(stringResult("undoInfo -q -undoName"), "");
}

TEST_F(UndoQueue, WorkRunFromTheIdleQueueIsItsOwnStep)
{
    ASSERT_TRUE(mel("counter -by 1"));
    ASSERT_TRUE(MGlobal::executeCommandOnIdle("counter -by 2"));
    EXPECT_EQ(record().counter, 1); // nothing runs before the idle tick
    mayasim::host::pumpIdle();
    EXPECT_EQ(record().counter, 3);
    mayasim::host::pumpIdle();
    EXPECT_EQ(record().counter, 3); // ran once
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(record().counter, 1);
}

TEST_F(UndoQueue, BuiltinSceneEditsAndPluginCommandsShareSteps)
{
    ASSERT_TRUE(MGlobal::executeCommand("undoInfo -openChunk"));
    ASSERT_TRUE(mel("createNode transform -n undoTarget"));
    ASSERT_TRUE(mel("counter -by 1"));
    ASSERT_TRUE(MGlobal::executeCommand("undoInfo -closeChunk"));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(record().counter, 0);
    EXPECT_FALSE(mel("select undoTarget"));
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(record().counter, 1);
    EXPECT_TRUE(mel("select undoTarget; delete undoTarget"));
}

TEST_F(UndoQueue, UnloadingAPluginFlushesWorkItStillHolds)
{
    // The counter is still in the running statement's step when the module goes.
    ASSERT_TRUE(mel("{ counter -by 1; unloadPlugin engineTest; }"));
    EXPECT_EQ(record().liveCounters, 0);
    EXPECT_EQ(stringResult("undoInfo -q -undoName"), "");
    enginetest::load();
}
