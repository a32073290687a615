// OVXFormWorldSpace end to end on a rig of transforms under moving, rotated
// and scaled parents, with rotate axes, pivots, other rotate orders and
// joints: after each paste the targets' world matrices are the copied ones,
// in any unit, on one frame and over a range, with one undo step.
#include "WorldSpaceTest.h"

#include <mayasim/Host.h>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class XFormWorldSpaceCmd : public WorldSpaceTest
{
protected:
    static void setFrame(double frame) { MAnimControl::setCurrentTime(MTime(frame, MTime::uiUnit())); }

    // The number of keys on each of the nine transform channels of node.
    static std::vector<size_t> keyCounts(const std::string& node)
    {
        std::vector<size_t> counts;
        for (const char* channel : {"translateX", "translateY", "translateZ", "rotateX", "rotateY", "rotateZ",
                                    "scaleX", "scaleY", "scaleZ"})
            counts.push_back(nodeNamed(node + "_" + channel).isNull() ? 0 : keyTimes(node + "." + channel).size());
        return counts;
    }
};

TEST_F(XFormWorldSpaceCmd, APoseGoesBackWhereItWasAfterTheParentsMovedWithOneUndoStep)
{
    const std::vector<std::string> objects{"hand_L_ctrl", "hand_R_ctrl", "root_jnt", "elbow_jnt", "prop"};
    std::vector<MMatrix> copied;
    for (const std::string& object : objects)
        copied.push_back(worldAt(object, 1));
    // A parent before its child: each is keyed through its parent as it stands.
    ASSERT_TRUE(mel("select -r hand_L_ctrl hand_R_ctrl root_jnt elbow_jnt prop"));
    EXPECT_TRUE(result("OVXFormWorldSpace"));

    // The parents move and turn; the joints' parent turns too.
    ASSERT_TRUE(mel("setAttr arm_R_grp.r 5 -60 12; setAttr root_jnt.jo 10 20 30; setAttr arm_L_grp.t 1 1 1"));
    setFrame(15);
    expectOneUndoStep([&] { EXPECT_TRUE(result("OVXFormWorldSpace -paste")); });
    for (size_t i = 0; i < objects.size(); ++i) {
        expectSameMatrix(worldAt(objects[i], 15), copied[i], objects[i]);
        EXPECT_THAT(keyTimes(objects[i] + ".sy"), ElementsAre(15.0)) << objects[i];
    }
    EXPECT_EQ(keyCounts("prop"), std::vector<size_t>(9, 1));
    EXPECT_EQ(MAnimControl::currentTime().value(), 15.0);
    EXPECT_TRUE(reports().empty());
}

TEST_F(XFormWorldSpaceCmd, ATargetTakesItsOwnDataThenItsOppositesThenWhatIsLeft)
{
    const MMatrix hand = worldAt("hand_L_ctrl", 1);
    const MMatrix prop = worldAt("prop", 1);
    ASSERT_TRUE(mel("select -r prop hand_L_ctrl; OVXFormWorldSpace"));
    // Only the opposite of the second object copied: it gets that one's pose.
    ASSERT_TRUE(mel("select -r hand_R_ctrl; OVXFormWorldSpace -p"));
    expectSameMatrix(worldAt("hand_R_ctrl", 1), hand, "opposite");

    // One source for two targets: the surplus stays unkeyed.
    ASSERT_TRUE(mel("select -r prop; OVXFormWorldSpace; select -r elbow_jnt root_jnt; OVXFormWorldSpace -p"));
    expectSameMatrix(worldAt("elbow_jnt", 1), prop, "left over");
    EXPECT_EQ(keyCounts("root_jnt"), std::vector<size_t>(9, 0));
}

TEST_F(XFormWorldSpaceCmd, EveryRotateOrderAndEveryUnitGiveTheCopiedWorldMatrix)
{
    const MMatrix hand = worldAt("hand_L_ctrl", 1);
    ASSERT_TRUE(mel("select -r hand_L_ctrl; OVXFormWorldSpace; select -r hand_R_ctrl"));
    for (int order = 0; order < 6; ++order) {
        ASSERT_TRUE(mel("setAttr hand_R_ctrl.ro " + std::to_string(order) + "; OVXFormWorldSpace -p"));
        expectSameMatrix(worldAt("hand_R_ctrl", 1), hand, "rotate order " + std::to_string(order));
    }
    for (const char* units : {"-l m", "-l mm -a rad", "-l in"}) {
        ASSERT_TRUE(mel(std::string("currentUnit ") + units + "; currentTime 4; OVXFormWorldSpace -p"));
        expectSameMatrix(worldAt("hand_R_ctrl", 4), hand, units);
    }
    EXPECT_TRUE(reports().empty());
}

TEST_F(XFormWorldSpaceCmd, RotationsKeepTheWindingOfTheTargetsChannels)
{
    ASSERT_TRUE(mel("setAttr prop.rz 350; setAttr prop.rx -200; select -r prop; OVXFormWorldSpace"));
    ASSERT_TRUE(mel("OVXFormWorldSpace -p"));
    EXPECT_NEAR(keyValues("prop.rz")[0], 350.0, 1e-9);
    EXPECT_NEAR(keyValues("prop.rx")[0], -200.0, 1e-9);
    // Without keys at the frame, the channel's keys around it decide.
    ASSERT_TRUE(mel("setKeyframe -t 1 -v 710 prop.rz; setKeyframe -t 9 -v 730 prop.rz; currentTime 5"));
    ASSERT_TRUE(mel("OVXFormWorldSpace -p"));
    EXPECT_NEAR(keyValues("prop.rz")[1], 710.0, 1e-9);
}

TEST_F(XFormWorldSpaceCmd, ARangeCopyPastesEveryKeyedFrameOnItsOwnChannels)
{
    // The hand keyed on all channels at four frames: its world matrix there
    // is copied, and goes onto the other hand and onto itself after its
    // parent's animation changed.
    ASSERT_TRUE(mel("setKeyframe -t 1 -t 4 -t 7 -t 10 hand_L_ctrl; setKeyframe -t 13 hand_L_ctrl.tz"));
    std::vector<MMatrix> copied;
    for (double frame : {1, 4, 7, 10})
        copied.push_back(worldAt("hand_L_ctrl", frame));
    mayasim::host::setTimeSliderHighlight(1, 11);
    ASSERT_TRUE(mel("select -r hand_L_ctrl; OVXFormWorldSpace"));
    mayasim::host::clearTimeSliderHighlight();

    ASSERT_TRUE(mel("select -r hand_R_ctrl"));
    expectOneUndoStep([&] { EXPECT_TRUE(result("OVXFormWorldSpace -paste")); });
    EXPECT_THAT(keyTimes("hand_R_ctrl.tz"), ElementsAre(1, 4, 7, 10));
    // The source's keys decide the frames, channel by channel.
    EXPECT_THAT(keyTimes("hand_R_ctrl.rz"), ElementsAre(1, 4, 5, 7, 10));
    ASSERT_TRUE(mel("cutKey -cl mover; setAttr mover.r 0 90 0; select -r hand_L_ctrl; OVXFormWorldSpace -p"));
    EXPECT_THAT(keyTimes("hand_L_ctrl.tz"), ElementsAre(1, 4, 7, 10, 13));
    EXPECT_THAT(keyTimes("hand_R_ctrl.rx"), ElementsAre(1, 4, 7, 10));
    const double frames[] = {1, 4, 7, 10};
    for (size_t i = 0; i < 4; ++i) {
        expectSameMatrix(worldAt("hand_R_ctrl", frames[i]), copied[i], "other hand " + std::to_string(frames[i]));
        expectSameMatrix(worldAt("hand_L_ctrl", frames[i]), copied[i], "same hand " + std::to_string(frames[i]));
    }
    EXPECT_EQ(MAnimControl::currentTime().value(), 1.0);
    EXPECT_TRUE(reports().empty());
}

TEST_F(XFormWorldSpaceCmd, APoseOverAHighlightedRangeKeysEachFrameAndKeepsTheTime)
{
    const MMatrix prop = worldAt("prop", 1);
    ASSERT_TRUE(mel("select -r prop; OVXFormWorldSpace; select -r hand_R_ctrl; currentTime 2"));
    mayasim::host::setTimeSliderHighlight(3, 7);
    ASSERT_TRUE(mel("OVXFormWorldSpace -p"));
    EXPECT_THAT(keyTimes("hand_R_ctrl.sx"), ElementsAre(3, 4, 5, 6, 7));
    for (double frame : {3, 5, 7})
        expectSameMatrix(worldAt("hand_R_ctrl", frame), prop, "frame " + std::to_string(frame));
    EXPECT_EQ(MAnimControl::currentTime().value(), 2.0);
}

TEST_F(XFormWorldSpaceCmd, LockedAndUnhighlightedChannelsGetNoKey)
{
    ASSERT_TRUE(mel("setAttr -l true hand_R_ctrl.ty; select -r hand_L_ctrl; OVXFormWorldSpace"));
    ASSERT_TRUE(mel("select -r hand_R_ctrl; OVXFormWorldSpace -p"));
    EXPECT_EQ(keyCounts("hand_R_ctrl"), (std::vector<size_t>{1, 0, 1, 1, 1, 1, 1, 1, 1}));
    mayasim::host::setChannelBoxHighlight(mayasim::host::ChannelBoxSection::Main, {"tz", "rx"});
    ASSERT_TRUE(mel("currentTime 3; select -r prop; OVXFormWorldSpace -p"));
    EXPECT_EQ(keyCounts("prop"), (std::vector<size_t>{0, 0, 1, 1, 0, 0, 0, 0, 0}));
}

TEST_F(XFormWorldSpaceCmd, TheClipboardOutlivesTheScene)
{
    const MMatrix hand = worldAt("hand_L_ctrl", 1);
    ASSERT_TRUE(mel("select -r hand_L_ctrl; OVXFormWorldSpace"));
    ASSERT_TRUE(MFileIO::newFile(true));
    ASSERT_TRUE(mel("createNode transform -n grp; setAttr grp.r 0 45 0; createNode transform -n ctrl -p grp"));
    ASSERT_TRUE(mel("select -r ctrl; OVXFormWorldSpace -p"));
    expectSameMatrix(worldAt("ctrl", 1), hand, "new scene");
}

TEST_F(XFormWorldSpaceCmd, BadInputIsReportedAndChangesNothing)
{
    const std::string before = sceneText();
    ASSERT_TRUE(mel("select -cl"));
    EXPECT_FALSE(mel("OVXFormWorldSpace"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: no object/s specified\n"));

    // A range without keys copies nothing.
    mayasim::host::setTimeSliderHighlight(1, 5);
    ASSERT_TRUE(mel("select -r prop; OVXFormWorldSpace"));
    mayasim::host::clearTimeSliderHighlight();
    EXPECT_FALSE(result("OVXFormWorldSpace -p"));
    ASSERT_EQ(reports().size(), 2u);
    EXPECT_THAT(reports()[1], HasSubstr("Message: clipboard is empty (copy first)\n"));

    ASSERT_TRUE(mel("OVXFormWorldSpace; select -r mover_translateX"));
    EXPECT_FALSE(result("OVXFormWorldSpace -p"));
    ASSERT_EQ(reports().size(), 3u);
    EXPECT_THAT(reports()[2], HasSubstr("Message: paste: nothing updated (no matching transforms in selection)\n"));
    EXPECT_FALSE(mel("OVXFormWorldSpace -p -bogus"));
    EXPECT_EQ(sceneText(), before);
}

TEST_F(XFormWorldSpaceCmd, APoseBeyondTheNumbersUnderAScaledParentIsKeyedNowhere)
{
    // The other hand's parent halves its scale: there the translation
    // doubles past the largest double.
    ASSERT_TRUE(mel("setAttr prop.t 1.7e308 1.7e308 1.7e308; select -r prop; OVXFormWorldSpace; select -r hand_R_ctrl"));
    const std::string before = sceneText();
    EXPECT_FALSE(result("OVXFormWorldSpace -p"));
    ASSERT_TRUE(mel("setKeyframe -t 1 -t 2 prop; select -r prop"));
    mayasim::host::setTimeSliderHighlight(1, 2);
    ASSERT_TRUE(mel("OVXFormWorldSpace; select -r hand_R_ctrl"));
    mayasim::host::clearTimeSliderHighlight();
    const std::string keyed = sceneText();
    EXPECT_FALSE(result("OVXFormWorldSpace -p"));
    EXPECT_EQ(sceneText(), keyed);
    ASSERT_EQ(reports().size(), 2u);
    EXPECT_THAT(reports()[1], HasSubstr("Message: paste: nothing updated (no matching transforms in selection)\n"));
    EXPECT_EQ(before.find("hand_R_ctrl_translateX"), std::string::npos);
}

} // namespace
