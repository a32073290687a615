// Retiming end to end: each type on picked keys, on a highlighted range and
// at the current frame, against key times worked out by hand; the reports;
// and one undo step that gives back keys, current time and highlight.
#include "PluginTest.h"

#include <maya/MAnimControl.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MGlobal.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

using Times = std::vector<double>;

class RetimingTest : public PluginTest
{
protected:
    void SetUp() override
    {
        PluginTest::SetUp();
        ASSERT_TRUE(mel("createNode transform -n obj; createNode transform -n other"));
        ASSERT_TRUE(mel("playbackOptions -min 1 -max 100"));
        mayasim::host::clearTimeSliderHighlight();
    }

    // Keys a plug at the frames, values counting up from 0.
    static void keyAt(const std::string& plug, const Times& frames)
    {
        std::vector<std::pair<double, double>> keys;
        for (double frame : frames)
            keys.emplace_back(frame, static_cast<double>(keys.size()));
        keyPlug(plug, keys);
    }
    // Runs OVRetiming with the flags, at the frame, on the objects given or
    // the selection; the keys it reports moved, or -1 when it failed.
    static int retime(const std::string& flags, double now = 1)
    {
        EXPECT_TRUE(mel("currentTime " + std::to_string(now)));
        int changed = 0;
        if (!MGlobal::executeCommand(("OVRetiming " + flags).c_str(), changed, false, true))
            return -1;
        return changed;
    }
    static double now() { return MAnimControl::currentTime().as(MTime::uiUnit()); }
    static Times highlight()
    {
        double first = 0, last = 0;
        if (!mayasim::host::timeSliderHighlight(first, last))
            return {};
        return {first, last};
    }
};

TEST_F(RetimingTest, ShiftAtTheCurrentFrame)
{
    keyAt("obj.tx", {5, 10, 12});
    keyAt("obj.ty", {1, 10, 20, 30});
    // A key at the current frame goes by the value, up to a frame short of
    // the nearest key of any curve (12): both keys at 10 go to 11.
    EXPECT_EQ(retime("-v 5 -rt 0 -j obj", 10), 2);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(5, 11, 12));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(1, 11, 20, 30));
    EXPECT_EQ(now(), 11);
    // Backwards with no key here: the nearest key behind comes to the
    // current frame, whatever the value; the time stays.
    EXPECT_EQ(retime("-v -3 -rt 0 -j obj", 15), 1);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(5, 11, 15));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(1, 11, 20, 30));
    EXPECT_EQ(now(), 15);
    // Forwards with no key here: the next key comes in.
    EXPECT_EQ(retime("-v 50 -rt 0 obj", 17), 1);
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(1, 11, 17, 30));
    // Backwards from the keys here, held a frame after the key before (5).
    EXPECT_EQ(retime("-v -20 -rt 0 obj", 11), 2);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(5, 6, 15));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(1, 6, 17, 30));
    EXPECT_EQ(now(), 11);
    EXPECT_TRUE(reports().empty());
}

TEST_F(RetimingTest, ShiftAtAFractionalFrameAndJumpUndoRedo)
{
    keyAt("obj.tx", {5, 10.5, 14});
    // The frame is 10 for the nearest keys: the limit is 13.
    ASSERT_TRUE(mel("currentTime 10.5"));
    const std::string before = sceneText();
    EXPECT_EQ(retime("-v 6 -rt 0 -JumpToNewTime obj", 10.5), 1);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(5, 13, 14));
    EXPECT_EQ(now(), 13);
    const std::string after = sceneText();
    ASSERT_TRUE(mel("currentTime 40"));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(sceneText(), before);
    EXPECT_EQ(now(), 10.5);
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(sceneText(), after);
    EXPECT_EQ(now(), 13);
    // A jump where no key moved to another frame leaves the time; its undo
    // goes back to the time of the edit and its redo leaves the time: never
    // frame 0.
    EXPECT_EQ(retime("-v 5 -rt 0 -j obj", 8), 1);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(5, 8, 14));
    EXPECT_EQ(now(), 8);
    ASSERT_TRUE(mel("currentTime 3; undo"));
    EXPECT_EQ(now(), 8);
    ASSERT_TRUE(mel("currentTime 3; redo"));
    EXPECT_EQ(now(), 3);
}

TEST_F(RetimingTest, ShiftPickedKeysClampedByTheirNeighbours)
{
    keyAt("obj.tx", {0, 10, 20, 30, 40});
    ASSERT_TRUE(mel("select -r obj"));
    ASSERT_TRUE(mayasim::host::selectKeys("obj_translateX", {1, 2}));
    // Each picked key has 9 frames of room; a picked neighbour inside the
    // curve limits too.
    EXPECT_EQ(retime("-v 15 -rt 0 -j", 10), 2);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 19, 29, 30, 40));
    EXPECT_EQ(now(), 10); // -JumpToNewTime follows the current key only
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(retime("-v 5 -rt 0"), 2);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 15, 25, 30, 40));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(retime("-v -15 -rt 0"), 2);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 1, 11, 30, 40));
    ASSERT_TRUE(mel("undo"));

    // Both ends picked: the first key has room up to the second, the last
    // key has nothing after it to limit it.
    mayasim::host::clearKeySelection();
    ASSERT_TRUE(mel("select -r obj"));
    ASSERT_TRUE(mayasim::host::selectKeys("obj_translateX", {0, 4}));
    EXPECT_EQ(retime("-v 50 -rt 0"), 2);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(9, 10, 20, 30, 49));

    // Fractional frames: the room forward is kept exact, the room back is
    // cut to whole frames.
    keyAt("other.tx", {0, 10.5, 20});
    mayasim::host::clearKeySelection();
    ASSERT_TRUE(mel("select -r other"));
    ASSERT_TRUE(mayasim::host::selectKeys("other_translateX", {1}));
    EXPECT_EQ(retime("-v 20 -rt 0"), 1);
    EXPECT_THAT(keyTimes("other.tx"), ElementsAre(0, 19, 20));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(retime("-v -20 -rt 0"), 1);
    EXPECT_THAT(keyTimes("other.tx"), ElementsAre(0, 1.5, 20));
}

TEST_F(RetimingTest, ShiftTheHighlightedRangeAndItsHighlight)
{
    keyAt("obj.tx", {0, 10, 20, 30, 40});
    keyAt("obj.ty", {0, 15, 50});
    ASSERT_TRUE(mel("select -r obj"));
    mayasim::host::setTimeSliderHighlight(8, 22);
    expectOneUndoStep([] { EXPECT_EQ(retime("-v 5 -rt 0"), 3); });
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 15, 25, 30, 40));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(0, 20, 50));
    EXPECT_EQ(highlight(), (Times{13, 27}));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(highlight(), (Times{8, 22}));
    ASSERT_TRUE(mel("redo"));
    EXPECT_EQ(highlight(), (Times{13, 27}));
    ASSERT_TRUE(mel("undo"));

    // No room: the next key (30) lies 10 frames behind the last in range
    // (20). A refusal changes nothing, the highlight included.
    const std::string before = sceneText();
    EXPECT_EQ(retime("-v 10 -rt 0"), 0);
    EXPECT_EQ(retime("-v -10 -rt 0"), 0);
    EXPECT_EQ(sceneText(), before);
    EXPECT_EQ(highlight(), (Times{8, 22}));
    EXPECT_EQ(retime("-v -9 -rt 0"), 3);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 1, 11, 30, 40));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(0, 6, 50));
    EXPECT_EQ(highlight(), (Times{-1, 13}));
    EXPECT_TRUE(reports().empty());
}

TEST_F(RetimingTest, ShiftAllKeysOfTheObjectsOrTheScene)
{
    keyAt("obj.tx", {0, 10, 20});
    keyAt("obj.ty", {5, 15});
    keyAt("other.tz", {1, 2.5});
    ASSERT_TRUE(mel("select -r obj"));
    mayasim::host::setTimeSliderHighlight(8, 12); // no matter to these types
    expectOneUndoStep([] { EXPECT_EQ(retime("-v 3 -rt 1"), 5); });
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(3, 13, 23));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(8, 18));
    EXPECT_THAT(keyTimes("other.tz"), ElementsAre(1, 2.5));
    EXPECT_EQ(highlight(), (Times{8, 12}));
    expectOneUndoStep([] { EXPECT_EQ(retime("-v -2.5 -rt 2"), 7); });
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0.5, 10.5, 20.5));
    EXPECT_THAT(keyTimes("other.tz"), ElementsAre(-1.5, 0));
}

TEST_F(RetimingTest, MoveKeysRipplesFromTheCurrentFrame)
{
    keyAt("obj.tx", {0, 10, 20, 30});
    keyAt("obj.ty", {0, 10, 13, 20});
    keyAt("obj.tz", {0, 10.5, 20});
    // The gap behind the key at or before the frame grows; the rest follow.
    ASSERT_TRUE(mel("select -r obj"));
    expectOneUndoStep([] { EXPECT_EQ(retime("-v 2 -rt 3 -j", 10), 6); });
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 10, 22, 32));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(0, 10, 15, 22));
    EXPECT_THAT(keyTimes("obj.tz"), ElementsAre(0, 12.5, 22));
    EXPECT_EQ(now(), 10); // -JumpToNewTime is for type 0 alone
    ASSERT_TRUE(mel("undo"));
    // Closing: a gap of 3 with -5 keeps one frame.
    EXPECT_EQ(retime("-v -5 -rt 3", 10), 6);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 10, 15, 25));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(0, 10, 11, 18));
    EXPECT_THAT(keyTimes("obj.tz"), ElementsAre(0, 5.5, 15));
    // Before every key the whole curve moves.
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(retime("-v 4 -rt 3 obj", -10), 11);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(4, 14, 24, 34));
    EXPECT_THAT(keyTimes("obj.tz"), ElementsAre(4, 14.5, 24));
}

TEST_F(RetimingTest, MoveKeysOnARangeOrOnPickedKeys)
{
    keyAt("obj.tx", {0, 10, 20, 30, 40, 50});
    keyAt("obj.ty", {0, 5, 25});
    ASSERT_TRUE(mel("select -r obj"));
    // Three keys in the range: each of their gaps grows, the rest follow as
    // a block. The ripple starts at the first key in the range over all
    // curves (10), so obj.ty's gap from 5 grows too.
    mayasim::host::setTimeSliderHighlight(9, 31);
    expectOneUndoStep([] { EXPECT_EQ(retime("-v 2 -rt 3"), 5); });
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 10, 22, 34, 46, 56));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(0, 5, 27));
    EXPECT_EQ(highlight(), (Times{9, 31}));
    ASSERT_TRUE(mel("undo"));

    // Picked keys without a range: each gets the value in the gap after it.
    mayasim::host::clearTimeSliderHighlight();
    ASSERT_TRUE(mayasim::host::selectKeys("obj_translateX", {1, 3}));
    expectOneUndoStep([] { EXPECT_EQ(retime("-v 3 -rt 3"), 4); });
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 10, 23, 33, 46, 56));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(0, 5, 25));
    ASSERT_TRUE(mel("undo"));
    // Type 4 takes every curve of the objects from the current frame,
    // picks or not; type 5 the scene's.
    keyAt("other.tx", {0, 12, 14});
    EXPECT_EQ(retime("-v -4 -rt 4 obj", 12), 5);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 10, 16, 26, 36, 46));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(0, 5, 21));
    EXPECT_THAT(keyTimes("other.tx"), ElementsAre(0, 12, 14));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(retime("-v -4 -rt 5 obj", 12), 6);
    EXPECT_THAT(keyTimes("other.tx"), ElementsAre(0, 12, 13));
}

TEST_F(RetimingTest, FixedGapsOnARangeAtTheFrameAndOnPickedKeys)
{
    keyAt("obj.tx", {0, 3, 5, 9, 30});
    keyAt("obj.ty", {0, 3, 5, 9, 13, 20});
    ASSERT_TRUE(mel("select -r obj"));
    // The range's keys and the first after it stand 4 apart; a key behind
    // that far enough away stays, a nearer one is pushed and the rest follow.
    mayasim::host::setTimeSliderHighlight(2, 6);
    expectOneUndoStep([] { EXPECT_EQ(retime("-v 4 -rt 6"), 6); });
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 3, 7, 11, 30));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(0, 3, 7, 11, 15, 22));
    ASSERT_TRUE(mel("undo"));
    // At the frame: the key there and the next one; the arrow's sign
    // doesn't matter.
    mayasim::host::clearTimeSliderHighlight();
    EXPECT_EQ(retime("-v -4 -rt 6", 3), 7);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 3, 7, 11, 32));
    EXPECT_THAT(keyTimes("obj.ty"), ElementsAre(0, 3, 7, 11, 15, 22));
    ASSERT_TRUE(mel("undo"));

    // Picked keys: gaps between neighbouring picks become the value.
    keyAt("other.tx", {0, 2, 4, 6, 20});
    ASSERT_TRUE(mel("select -r other"));
    ASSERT_TRUE(mayasim::host::selectKeys("other_translateX", {1, 2, 3}));
    EXPECT_EQ(retime("-v 5 -rt 6"), 2);
    EXPECT_THAT(keyTimes("other.tx"), ElementsAre(0, 2, 7, 12, 20));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(retime("-v 8 -rt 6"), 3);
    EXPECT_THAT(keyTimes("other.tx"), ElementsAre(0, 2, 10, 18, 26));
    ASSERT_TRUE(mel("undo"));

    // A range past the curve's last key: the spacing starts at the first key
    // in the range and stops at the last key.
    mayasim::host::clearKeySelection();
    mayasim::host::setTimeSliderHighlight(1, 30);
    EXPECT_EQ(retime("-v 3 -rt 6 other"), 3);
    EXPECT_THAT(keyTimes("other.tx"), ElementsAre(0, 2, 5, 8, 11));
    EXPECT_TRUE(reports().empty());
}

TEST_F(RetimingTest, ValuesAndTangentsTravelWithTheirKeys)
{
    ASSERT_TRUE(mel("setKeyframe -t 0 -v 1 obj.tx; setKeyframe -t 10 -v 7 obj.tx; setKeyframe -t 20 -v 3 obj.tx"));
    ASSERT_TRUE(mel("keyTangent -t 10 -itt linear -ott step obj.tx"));
    ASSERT_TRUE(mel("select -r obj"));
    EXPECT_EQ(retime("-v 4 -rt 3", 10), 1);
    EXPECT_THAT(keyTimes("obj.tx"), ElementsAre(0, 10, 24));
    EXPECT_THAT(keyValues("obj.tx"), ElementsAre(1, 7, 3));
    const MFnAnimCurve curve(nodeNamed("obj_translateX"));
    EXPECT_EQ(curve.inTangentType(1), MFnAnimCurve::kTangentLinear);
    EXPECT_EQ(curve.outTangentType(1), MFnAnimCurve::kTangentStep);
}

TEST_F(RetimingTest, BadInputIsReportedAndChangesNothing)
{
    keyAt("obj.tx", {0, 10, 20});
    ASSERT_TRUE(mel("select -r obj"));
    const std::string before = sceneText();
    const std::vector<std::pair<std::string, std::string>> cases{
        {"-v 0 -rt 0", "Message: invalid -value\n"},
        {"-v 1e12 -rt 3", "Message: invalid -value\n"},
        {"-v 2", "Message: no -retimeType specified\n"},
        {"-rt 3", "Message: no -value specified\n"},
        {"-v 2 -rt 7", "4: Insert inbetween (all keys on selected objects)\n"},
    };
    for (const auto& [flags, words] : cases) {
        mayasim::host::clearOutput();
        EXPECT_EQ(retime(flags), -1) << flags;
        ASSERT_EQ(reports().size(), 1u) << flags;
        EXPECT_THAT(reports()[0], HasSubstr(words)) << flags;
        EXPECT_THAT(reports()[0], HasSubstr("Function: doIt\n")) << flags;
    }
    ASSERT_TRUE(mel("select -cl"));
    mayasim::host::clearOutput();
    EXPECT_EQ(retime("-v 2 -rt 3"), -1);
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: selection currepted\n"));
    EXPECT_EQ(sceneText(), before);
    // Nothing to move is no undo step.
    ASSERT_TRUE(mel("select -r other"));
    EXPECT_EQ(retime("-v 2 -rt 3"), 0);
    MString undoName;
    MGlobal::executeCommand("undoInfo -q -un", undoName);
    EXPECT_THAT(undoName.asChar(), ::testing::Not(HasSubstr("OVRetiming")));
}

} // namespace
