// Key-edit messages: keyframe deltas for keys added, replaced, removed,
// moved and re-tangented, queued until the next idle tick or a flush, as
// Maya documents, and curve-edited messages.
#include "SceneTest.h"

#include <mayasim/Host.h>

#include <maya/MAnimMessage.h>
#include <maya/MAnimCurveChange.h>
#include <maya/MCallbackIdArray.h>
#include <maya/MEventMessage.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MFnKeyframeDeltaAddRemove.h>
#include <maya/MFnKeyframeDeltaInfType.h>
#include <maya/MFnKeyframeDeltaMove.h>
#include <maya/MFnKeyframeDeltaTangent.h>
#include <maya/MObjectArray.h>

using namespace animscene;

namespace {

// One delta as a test reads it.
struct Delta
{
    MFn::Type type;
    std::string curve;
    unsigned int index;
    double time = 0.0;     // added/removed: the key's; moved: the new time
    double value = 0.0;    // added/removed: the key's; moved: the new value
    double previous = 0.0; // replaced or moved: the value before
    int deltaType = -1;    // MFnKeyframeDeltaAddRemove::DeltaType
};

class KeyEvents : public SceneTest
{
public:
    void listen()
    {
        ids.append(MAnimMessage::addAnimKeyframeEditedCallback(onKeys, this));
        ids.append(MAnimMessage::addAnimCurveEditedCallback(onCurves, this));
    }
    void stopListening()
    {
        MMessage::removeCallbacks(ids);
        ids.clear();
    }
    static void idle() { mayasim::host::pumpIdle(); }

protected:
    void SetUp() override
    {
        SceneTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n box"));
        listen();
    }
    void TearDown() override
    {
        stopListening();
        SceneTest::TearDown();
    }

    // The key additions, removals and moves of each delivery (tangent
    // changes of the neighbours are left out).
    std::vector<std::vector<Delta>> deliveries;
    std::vector<std::vector<std::string>> editedCurves;
    std::vector<MObject> tangentDeltas;
    MCallbackIdArray ids;
    std::function<void()> duringDelivery;

private:
    static void onKeys(MObjectArray& objects, void* data)
    {
        auto* self = static_cast<KeyEvents*>(data);
        std::vector<Delta> deltas;
        for (unsigned int i = 0; i < objects.length(); ++i)
        {
            const MObject& object = objects[i];
            EXPECT_TRUE(object.hasFn(MFn::kKeyframeDelta));
            MFnKeyframeDelta base(object);
            Delta d{object.apiType(), MFnDependencyNode(base.paramCurve()).name().asChar(), base.keyIndex()};
            if (object.hasFn(MFn::kKeyframeDeltaAddRemove))
            {
                MFnKeyframeDeltaAddRemove change(object);
                d.time = change.time().value();
                d.value = change.value();
                d.deltaType = change.deltaType();
                if (change.deltaType() == MFnKeyframeDeltaAddRemove::kReplaced)
                    d.previous = change.replacedValue();
            }
            else if (object.hasFn(MFn::kKeyframeDeltaMove))
            {
                MFnKeyframeDeltaMove move(object);
                d.time = move.currentTime().value();
                d.value = move.currentValue();
                d.previous = move.previousValue();
                EXPECT_EQ(move.previousIndex(), move.keyIndex());
            }
            else
            {
                self->tangentDeltas.push_back(object);
                continue;
            }
            deltas.push_back(d);
        }
        self->deliveries.push_back(deltas);
        if (self->duringDelivery)
            self->duringDelivery();
    }
    static void onCurves(MObjectArray& curves, void* data)
    {
        std::vector<std::string> names;
        for (unsigned int i = 0; i < curves.length(); ++i)
            names.push_back(MFnDependencyNode(curves[i]).name().asChar());
        static_cast<KeyEvents*>(data)->editedCurves.push_back(names);
    }
};

} // namespace

TEST_F(KeyEvents, EditsWaitForTheNextIdleAndArriveTogether)
{
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 0 -at tx box"));
    ASSERT_TRUE(mel("setKeyframe -t 11 -v 10 -at tx -at ty box"));
    EXPECT_TRUE(deliveries.empty());
    idle();
    ASSERT_EQ(deliveries.size(), 1u);
    const std::vector<Delta>& d = deliveries[0];
    ASSERT_EQ(d.size(), 3u);
    EXPECT_EQ(d[0].type, MFn::kKeyframeDeltaAddRemove);
    EXPECT_EQ(d[0].curve, "box_translateX");
    EXPECT_EQ(d[0].deltaType, MFnKeyframeDeltaAddRemove::kAdded);
    EXPECT_EQ(d[0].time, 1.0);
    EXPECT_EQ(d[1].curve, "box_translateX");
    EXPECT_EQ(d[1].index, 1u);
    EXPECT_EQ(d[1].value, 10.0);
    EXPECT_EQ(d[2].curve, "box_translateY");
    EXPECT_EQ(editedCurves, (std::vector<std::vector<std::string>>{{"box_translateX", "box_translateY"}}));
    idle();
    EXPECT_EQ(deliveries.size(), 1u); // nothing queued, nothing delivered
    // A key beyond the last turns the last key's auto tangents from flat.
    ASSERT_TRUE(mel("setKeyframe -t 21 -v 20 -at tx box"));
    MAnimMessage::flushAnimKeyframeEditedCallbacks();
    ASSERT_EQ(tangentDeltas.size(), 2u);
    MFnKeyframeDeltaTangent tangent(tangentDeltas[0]);
    EXPECT_EQ(tangent.keyIndex(), 1u);
    EXPECT_TRUE(tangent.isInTangent());
    EXPECT_EQ(tangent.currentTangentType(), MFnAnimCurve::kTangentAuto);
    MFnAnimCurve::TangentValue x = 0.0, y = 0.0;
    ASSERT_TRUE(tangent.getPreviousPosition(x, y));
    EXPECT_EQ(y, 0.0);
    ASSERT_TRUE(tangent.getCurrentPosition(x, y));
    EXPECT_GT(y, 0.0);
}

TEST_F(KeyEvents, SetKeyframeOverAKeyReportsTheKeyItReplaced)
{
    ASSERT_TRUE(mel("setKeyframe -t 5 -v 2 -at tx box"));
    idle();
    deliveries.clear();
    ASSERT_TRUE(mel("setKeyframe -t 5 -v 6 -at tx box; setKeyframe -t 5 -v 6 -at tx box"));
    idle();
    ASSERT_EQ(deliveries.size(), 1u);
    ASSERT_EQ(deliveries[0].size(), 2u);
    for (const Delta& d : deliveries[0])
    {
        EXPECT_EQ(d.type, MFn::kKeyframeDeltaAddRemove);
        EXPECT_EQ(d.deltaType, MFnKeyframeDeltaAddRemove::kReplaced);
        EXPECT_EQ(d.value, 6.0);
    }
    EXPECT_EQ(deliveries[0][0].previous, 2.0);
    EXPECT_EQ(deliveries[0][1].previous, 6.0);
}

TEST_F(KeyEvents, ApiEditsOutsideMelAreQueuedTooAndUndoIsReported)
{
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 0 -at tx box; setKeyframe -t 11 -v 10 -at tx box"));
    idle();
    deliveries.clear();
    MFnAnimCurve curve(nodeNamed("box_translateX"));
    MAnimCurveChange change;
    ASSERT_TRUE(curve.setValue(1, 4.0, &change));
    ASSERT_TRUE(curve.remove(0, &change));
    EXPECT_TRUE(deliveries.empty());
    MAnimMessage::flushAnimKeyframeEditedCallbacks();
    ASSERT_EQ(deliveries.size(), 1u);
    ASSERT_EQ(deliveries[0].size(), 2u);
    EXPECT_EQ(deliveries[0][0].type, MFn::kKeyframeDeltaMove);
    EXPECT_EQ(deliveries[0][0].previous, 10.0);
    EXPECT_EQ(deliveries[0][0].value, 4.0);
    EXPECT_EQ(deliveries[0][1].deltaType, MFnKeyframeDeltaAddRemove::kRemoved);
    EXPECT_EQ(deliveries[0][1].value, 0.0);
    EXPECT_EQ(deliveries[0][1].time, 1.0);
    ASSERT_TRUE(change.undoIt());
    idle();
    ASSERT_EQ(deliveries.size(), 2u);
    ASSERT_EQ(deliveries[1].size(), 2u); // each edit taken back, last first
    EXPECT_EQ(deliveries[1][0].deltaType, MFnKeyframeDeltaAddRemove::kAdded);
    EXPECT_EQ(deliveries[1][1].previous, 4.0);
    EXPECT_EQ(deliveries[1][1].value, 10.0);
    curve.addKey(frame(11), -1.0);
    idle();
    ASSERT_EQ(deliveries.size(), 3u);
    EXPECT_EQ(deliveries[2][0].deltaType, MFnKeyframeDeltaAddRemove::kReplaced);
    EXPECT_EQ(deliveries[2][0].previous, 10.0);
    EXPECT_EQ(deliveries[2][0].value, -1.0);
}

TEST_F(KeyEvents, UndoOfACommandReportsTheKeysItTakesBack)
{
    ASSERT_TRUE(mel("setKeyframe -t 3 -v 1 -at tx box"));
    ASSERT_TRUE(mel("setKeyframe -t 8 -v 2 -at tx box"));
    idle();
    deliveries.clear();
    ASSERT_TRUE(mel("undo"));
    idle();
    ASSERT_EQ(deliveries.size(), 1u);
    ASSERT_EQ(deliveries[0].size(), 1u);
    EXPECT_EQ(deliveries[0][0].deltaType, MFnKeyframeDeltaAddRemove::kRemoved);
    EXPECT_EQ(deliveries[0][0].time, 8.0);
    ASSERT_TRUE(mel("keyframe -e -r -tc 4 box_translateX"));
    idle();
    ASSERT_EQ(deliveries.size(), 2u);
    EXPECT_EQ(deliveries[1][0].type, MFn::kKeyframeDeltaMove);
    EXPECT_EQ(deliveries[1][0].time, 7.0);
}

TEST_F(KeyEvents, CommandsACallbackRunsAreAnUndoStepOfTheirOwn)
{
    // As a tool that spreads a key edit to another channel does.
    duringDelivery = [this] {
        duringDelivery = nullptr;
        MGlobal::executeCommand("setKeyframe -t 1 -v 5 -at ty box", false, true);
    };
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 3 -at tx box"));
    idle();
    EXPECT_EQ(deliveries.size(), 1u);
    idle();
    EXPECT_EQ(deliveries.size(), 2u); // the spread's own edit, at the next idle
    EXPECT_EQ(melStrings("ls -type animCurve"), (std::vector<std::string>{"box_translateX", "box_translateY"}));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(melStrings("ls -type animCurve"), std::vector<std::string>{"box_translateX"});
    ASSERT_TRUE(mel("undo"));
    EXPECT_TRUE(melStrings("ls -type animCurve").empty());
}

TEST_F(KeyEvents, InfinityChangesAreDeltasToo)
{
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 3 -at tx box"));
    idle();
    tangentDeltas.clear();
    MFnAnimCurve curve(nodeNamed("box_translateX"));
    ASSERT_TRUE(curve.setPostInfinityType(MFnAnimCurve::kCycleRelative));
    idle();
    ASSERT_EQ(tangentDeltas.size(), 1u);
    MFnKeyframeDeltaInfType infinity(tangentDeltas[0]);
    EXPECT_FALSE(infinity.isPreInfinity());
    EXPECT_EQ(infinity.previousInfinityType(), MFnAnimCurve::kConstant);
    EXPECT_EQ(infinity.currentInfinityType(), MFnAnimCurve::kCycleRelative);
    EXPECT_EQ(infinity.paramCurve(), nodeNamed("box_translateX"));
    // A function set of another kind doesn't attach.
    MStatus status;
    MFnKeyframeDeltaMove move(tangentDeltas[0], &status);
    EXPECT_FALSE(status);
}

// An edit is kept for the callbacks registered when it is made: one
// registered later, even before the delivery, doesn't receive it.
TEST_F(KeyEvents, AnEditReachesTheCallbacksRegisteredWhenItIsMade)
{
    stopListening();
    const MCallbackId selection = MEventMessage::addEventCallback(
        "SelectionChanged", [](void* data) { static_cast<KeyEvents*>(data)->listen(); }, this);
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 2 -at tx box; select box; setKeyframe -t 5 -v 3 -at tx box"));
    MMessage::removeCallback(selection);
    idle();
    ASSERT_EQ(deliveries.size(), 1u);
    ASSERT_EQ(deliveries[0].size(), 1u);
    EXPECT_EQ(deliveries[0][0].time, 5.0);
    EXPECT_EQ(deliveries[0][0].deltaType, MFnKeyframeDeltaAddRemove::kAdded);
    EXPECT_EQ(editedCurves, (std::vector<std::vector<std::string>>{{"box_translateX"}}));

    stopListening();
    MFnAnimCurve curve(nodeNamed("box_translateX"));
    ASSERT_TRUE(curve.setValue(0, 5.0));
    listen();
    ASSERT_TRUE(curve.setValue(0, 6.0));
    idle();
    ASSERT_EQ(deliveries.size(), 2u);
    ASSERT_EQ(deliveries[1].size(), 1u);
    EXPECT_EQ(deliveries[1][0].previous, 5.0);
    EXPECT_EQ(deliveries[1][0].value, 6.0);
    EXPECT_EQ(editedCurves.size(), 2u);
}
