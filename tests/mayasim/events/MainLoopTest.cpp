// Idle ticks, timers and conditions: the parts of Maya's main loop the host drives.
#include <maya/MCallbackIdArray.h>
#include <maya/MConditionMessage.h>
#include <maya/MEventMessage.h>
#include <maya/MString.h>
#include <maya/MTimerMessage.h>
#include <mayasim/Host.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Log
{
    std::vector<std::string> calls;
};

struct Recorder
{
    Log* log;
    std::string name;
};

void record(void* clientData)
{
    auto* recorder = static_cast<Recorder*>(clientData);
    recorder->log->calls.push_back(recorder->name);
}

class MainLoopTest : public ::testing::Test
{
protected:
    void TearDown() override { MMessage::removeCallbacks(ids); }

    MCallbackId addIdle(Recorder& recorder)
    {
        MStatus status;
        const MCallbackId id = MEventMessage::addEventCallback("idle", record, &recorder, &status);
        EXPECT_TRUE(status);
        ids.append(id);
        return id;
    }

    Log log;
    MCallbackIdArray ids;
};

TEST_F(MainLoopTest, IdleRunsOnlyWhenPumpedEachCallbackOnceInOrder)
{
    Recorder a{&log, "a"}, b{&log, "b"};
    addIdle(a);
    addIdle(b);
    EXPECT_TRUE(log.calls.empty());
    mayasim::host::pumpIdle();
    EXPECT_EQ(log.calls, (std::vector<std::string>{"a", "b"}));
    mayasim::host::pumpIdle();
    EXPECT_EQ(log.calls, (std::vector<std::string>{"a", "b", "a", "b"}));
}

// A task that queues another task: the new one waits for the next idle event.
TEST_F(MainLoopTest, CallbackAddedDuringATickWaitsForTheNextTick)
{
    Recorder child{&log, "child"};
    struct Context
    {
        Recorder* child;
        MCallbackIdArray* ids;
        Log* log;
    } context{&child, &ids, &log};
    ids.append(MEventMessage::addEventCallback(
        "idle",
        [](void* data) {
            auto* c = static_cast<Context*>(data);
            c->log->calls.push_back("parent");
            c->ids->append(MEventMessage::addEventCallback("idle", record, c->child));
            MMessage::removeCallback(MMessage::currentCallbackId());
        },
        &context));
    mayasim::host::pumpIdle();
    EXPECT_EQ(log.calls, (std::vector<std::string>{"parent"}));
    mayasim::host::pumpIdle();
    EXPECT_EQ(log.calls, (std::vector<std::string>{"parent", "child"}));
}

TEST_F(MainLoopTest, CallbackRemovingItselfOrALaterOneIsSafe)
{
    struct Context
    {
        Log* log;
        MCallbackId victim = 0;
    } context{&log};
    Recorder later{&log, "later"};
    // The first removes itself and the one after it, within one tick.
    const MCallbackId first = MEventMessage::addEventCallback(
        "idle",
        [](void* data) {
            auto* c = static_cast<Context*>(data);
            c->log->calls.push_back("first");
            EXPECT_TRUE(MMessage::removeCallback(MMessage::currentCallbackId()));
            EXPECT_TRUE(MMessage::removeCallback(c->victim));
        },
        &context);
    context.victim = addIdle(later);
    mayasim::host::pumpIdle();
    mayasim::host::pumpIdle();
    EXPECT_EQ(log.calls, (std::vector<std::string>{"first"}));
    // Already removed: reported by status only.
    EXPECT_EQ(MMessage::removeCallback(first), MS::kFailure);
    EXPECT_EQ(MMessage::removeCallback(context.victim), MS::kFailure);
}

TEST_F(MainLoopTest, CurrentCallbackIdNamesTheRunningCallbackAndFailsOutsideOne)
{
    struct Context
    {
        MCallbackId seen = 0;
    } context;
    const MCallbackId id = MEventMessage::addEventCallback(
        "idle", [](void* data) { static_cast<Context*>(data)->seen = MMessage::currentCallbackId(); }, &context);
    ids.append(id);
    mayasim::host::pumpIdle();
    EXPECT_EQ(context.seen, id);
    MStatus status;
    EXPECT_EQ(MMessage::currentCallbackId(&status), 0u);
    EXPECT_FALSE(status);
}

TEST_F(MainLoopTest, UnknownEventNameIsRefused)
{
    MStatus status;
    EXPECT_EQ(MEventMessage::addEventCallback("noSuchEvent", record, nullptr, &status), 0u);
    EXPECT_FALSE(status);
    MStringArray names;
    ASSERT_TRUE(MEventMessage::getEventNames(names));
    for (const char* used : {"idle", "SelectionChanged", "PreFileNewOrOpened", "Undo", "Redo", "DragRelease",
                             "playbackRangeChanged", "modelEditorChanged", "animLayerRebuild",
                             "animLayerLockChanged", "animLayerBaseLockChanged", "animLayerAnimationChanged",
                             "timeChanged"})
    {
        bool found = false;
        for (const MString& name : names)
            found = found || name == used;
        EXPECT_TRUE(found) << used;
    }
}

TEST_F(MainLoopTest, HostRaisesTheEventsOnlyTheUiRaises)
{
    Recorder drag{&log, "DragRelease"}, editor{&log, "modelEditorChanged"};
    ids.append(MEventMessage::addEventCallback("DragRelease", record, &drag));
    ids.append(MEventMessage::addEventCallback("modelEditorChanged", record, &editor));
    mayasim::host::raiseEvent("modelEditorChanged");
    mayasim::host::raiseEvent("DragRelease");
    EXPECT_EQ(log.calls, (std::vector<std::string>{"modelEditorChanged", "DragRelease"}));
}

// --- timers -------------------------------------------------------------------

struct TimerLog
{
    std::vector<std::string> calls;
    std::vector<float> elapsed;
};

struct Timer
{
    TimerLog* log;
    std::string name;
    bool once = false;
};

void onTimer(float elapsedTime, float /*lastTime*/, void* clientData)
{
    auto* timer = static_cast<Timer*>(clientData);
    timer->log->calls.push_back(timer->name);
    timer->log->elapsed.push_back(elapsedTime);
    if (timer->once)
        MMessage::removeCallback(MMessage::currentCallbackId());
}

TEST_F(MainLoopTest, TimersRunOnlyAsTheHostAdvancesTheClockInTimeOrder)
{
    TimerLog timers;
    Timer slow{&timers, "slow"}, fast{&timers, "fast"};
    ids.append(MTimerMessage::addTimerCallback(1.0f, onTimer, &slow));
    ids.append(MTimerMessage::addTimerCallback(0.4f, onTimer, &fast));
    mayasim::host::advanceClock(0.3);
    EXPECT_TRUE(timers.calls.empty());
    // Due: fast at 0.4 and 0.8, slow at 1.0, fast at 1.2.
    mayasim::host::advanceClock(0.95);
    EXPECT_EQ(timers.calls, (std::vector<std::string>{"fast", "fast", "slow", "fast"}));
    EXPECT_FLOAT_EQ(timers.elapsed[0], 0.4f);
    EXPECT_FLOAT_EQ(timers.elapsed[2], 1.0f);
}

TEST_F(MainLoopTest, TimerThatRemovesItselfFiresOnce)
{
    TimerLog timers;
    Timer save{&timers, "save", true};
    const MCallbackId id = MTimerMessage::addTimerCallback(1.0f, onTimer, &save);
    mayasim::host::advanceClock(0.999);
    EXPECT_TRUE(timers.calls.empty());
    mayasim::host::advanceClock(5.0);
    EXPECT_EQ(timers.calls, (std::vector<std::string>{"save"}));
    EXPECT_EQ(MMessage::removeCallback(id), MS::kFailure);
}

TEST_F(MainLoopTest, ReplacedTimerCountsFromItsOwnStart)
{
    // A burst of events comes to one call, one period after the last event.
    TimerLog timers;
    Timer save{&timers, "save", true};
    MCallbackId id = MTimerMessage::addTimerCallback(1.0f, onTimer, &save);
    for (int burst = 0; burst < 3; ++burst)
    {
        mayasim::host::advanceClock(0.5);
        MMessage::removeCallback(id);
        id = MTimerMessage::addTimerCallback(1.0f, onTimer, &save);
    }
    mayasim::host::advanceClock(0.9);
    EXPECT_TRUE(timers.calls.empty());
    mayasim::host::advanceClock(0.2);
    EXPECT_EQ(timers.calls.size(), 1u);
}

TEST_F(MainLoopTest, TimerNeedsAPositivePeriod)
{
    MStatus status;
    EXPECT_EQ(MTimerMessage::addTimerCallback(0.0f, onTimer, nullptr, &status), 0u);
    EXPECT_FALSE(status);
}

// --- conditions ---------------------------------------------------------------

struct ConditionLog
{
    std::vector<bool> states;
};

TEST_F(MainLoopTest, ConditionCallbacksGetTheNewState)
{
    ConditionLog conditions;
    MStatus status;
    ids.append(MConditionMessage::addConditionCallback(
        "playblasting", [](bool state, void* data) { static_cast<ConditionLog*>(data)->states.push_back(state); },
        &conditions, &status));
    ASSERT_TRUE(status);
    EXPECT_FALSE(MConditionMessage::getConditionState("playblasting"));
    mayasim::host::setCondition("playblasting", true);
    EXPECT_TRUE(MConditionMessage::getConditionState("playblasting"));
    mayasim::host::setCondition("playblasting", false);
    EXPECT_EQ(conditions.states, (std::vector<bool>{true, false}));
}

TEST_F(MainLoopTest, UnknownConditionIsRefused)
{
    MStatus status;
    EXPECT_EQ(MConditionMessage::addConditionCallback("noSuchCondition", [](bool, void*) {}, nullptr, &status), 0u);
    EXPECT_FALSE(status);
    MConditionMessage::getConditionState("noSuchCondition", &status);
    EXPECT_FALSE(status);
}

} // namespace
