// OVSelectOpposite end to end on a rig of the common naming conventions:
// pairing by name in the token order, by position and by hand, the side
// actions, auto-select and the pairs file.
#include "OppositeTest.h"

#include "SelectOpposite/Manager.h"
#include "Utils/Nodes/Node.h"

#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

class SelectOppositeCmd : public OppositeTest
{
protected:
    void SetUp() override
    {
        OppositeTest::SetUp();
        openRig(ORVANE_TEST_DATA "/opposite_rig.ma");
    }

    static std::string oppositeName(const char* name)
    {
        const MObject opposite = SelectOpposite::oppositeByName(objectByName(name));
        return opposite.isNull() ? "" : nodeDisplayName(opposite).asChar();
    }

    static std::vector<std::string> oppositesOf(const std::string& selection)
    {
        EXPECT_TRUE(mel("select -r " + selection + "; OVSelectOpposite"));
        return selected();
    }
};

TEST_F(SelectOppositeCmd, EachNameFormPairsInTheTokenOrderBothWays)
{
    const std::vector<std::pair<std::string, std::string>> pairs{
        {"arm_L_ctrl", "arm_R_ctrl"},   // _L_ in the middle
        {"Left_arm", "Right_arm"},      // "Right__arm" doesn't exist, the plain Left/Right row does
        {"leftArm", "rightArm"},        // lower case, no separator
        {"L_leg", "R_leg"},             // a leading L_
        {"foot_l", "foot_r"},           // a trailing _l
        {"hand_lf_ctrl", "hand_rt_ctrl"},
        {"brow_L_in_L", "brow_R_in_R"}, // two tokens, changed together
        {"foo_Lid", "foo_Rid"},         // _L inside a word pairs when such an object exists
        {"char:arm_L_ctrl", "char:arm_R_ctrl"},
    };
    for (const auto& [left, right] : pairs) {
        EXPECT_THAT(oppositesOf(left), ElementsAre(right)) << left;
        EXPECT_THAT(oppositesOf(right), ElementsAre(left)) << right;
    }
    // A name holding a right and a left token counts as right first.
    EXPECT_EQ(oppositeName("R_eye_L"), "L_eye_L");
    EXPECT_EQ(oppositeName("body_ctrl"), "");
    EXPECT_EQ(SelectOpposite::oppositeTokens().size(), 20u);
    EXPECT_TRUE(reports().empty());
}

TEST_F(SelectOppositeCmd, CentreObjectsStaySelectedAndAddOppositeKeepsBoth)
{
    EXPECT_THAT(oppositesOf("body_ctrl lonely_L_ctrl arm_L_ctrl"),
                ElementsAre("body_ctrl", "lonely_L_ctrl", "arm_R_ctrl"));
    ASSERT_TRUE(mel("select -r arm_L_ctrl foot_r; OVSelectOpposite -addOpposite"));
    // Each opposite goes in before its object; those already selected keep their place.
    EXPECT_THAT(selected(), ElementsAre("arm_L_ctrl", "foot_r", "arm_R_ctrl", "foot_l"));
    // Objects named on the command line, not the selection.
    ASSERT_TRUE(mel("select -cl; OVSelectOpposite leftArm"));
    EXPECT_THAT(selected(), ElementsAre("rightArm"));
}

TEST_F(SelectOppositeCmd, DeselectingASideKeepsTheOthers)
{
    const std::string all = "select -r arm_L_ctrl arm_R_ctrl body_ctrl L_leg; ";
    ASSERT_TRUE(mel(all + "OVSelectOpposite -deselectRight"));
    EXPECT_THAT(selected(), ElementsAre("arm_L_ctrl", "body_ctrl", "L_leg"));
    ASSERT_TRUE(mel(all + "OVSelectOpposite -dl"));
    EXPECT_THAT(selected(), ElementsAre("arm_R_ctrl", "body_ctrl"));
    ASSERT_TRUE(mel(all + "OVSelectOpposite -dc"));
    EXPECT_THAT(selected(), ElementsAre("arm_L_ctrl", "arm_R_ctrl", "L_leg"));
    // A token without a partner doesn't make a side.
    ASSERT_TRUE(mel("select -r lonely_L_ctrl; OVSelectOpposite -dc"));
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(SelectOppositeCmd, SnapshotPairsMirroredPositionsWithinTheTolerance)
{
    EXPECT_TRUE(result("OVSelectOpposite -snapshot prop_a prop_b prop_c prop_d prop_e prop_f prop_g prop_h arm_L_ctrl "
                       "arm_R_ctrl"));
    const QJsonObject stored = pairs();
    EXPECT_EQ(stored.value("prop_a").toObject(), (QJsonObject{{"on", "prop_b"}, {"s", 1}}));
    EXPECT_EQ(stored.value("prop_b").toObject(), (QJsonObject{{"on", "prop_a"}, {"s", 2}}));
    // 0.05 off in x, y and z is within the tolerance; 0.2 isn't, and 0.05
    // from the centre line is on it.
    EXPECT_EQ(stored.value("prop_d").toObject(), (QJsonObject{{"on", "prop_e"}, {"s", 1}}));
    EXPECT_EQ(stored.value("prop_e").toObject(), (QJsonObject{{"on", "prop_d"}, {"s", 2}}));
    // Names are enough for the arms: nothing stored.
    EXPECT_EQ(stored.keys(), (QStringList{"prop_a", "prop_b", "prop_d", "prop_e"}));

    EXPECT_THAT(oppositesOf("prop_b prop_c"), ElementsAre("prop_a", "prop_c"));
    // A pair known from the file only has its stored side.
    ASSERT_TRUE(mel("select -r prop_a prop_b prop_c; OVSelectOpposite -dc"));
    EXPECT_THAT(selected(), ElementsAre("prop_a", "prop_b"));
    ASSERT_TRUE(mel("select -r prop_a prop_b prop_c; OVSelectOpposite -dr"));
    EXPECT_THAT(selected(), ElementsAre("prop_a", "prop_c"));
}

TEST_F(SelectOppositeCmd, HandFixedPairsWinOverNamesAndSurviveAReload)
{
    // The first object is the left one, whatever the names say.
    EXPECT_TRUE(result("OVSelectOpposite -fixPairs body_ctrl lonely_L_ctrl"));
    EXPECT_EQ(pairs().value("body_ctrl").toObject(), (QJsonObject{{"on", "lonely_L_ctrl"}, {"s", 1}}));
    EXPECT_EQ(pairs().value("lonely_L_ctrl").toObject(), (QJsonObject{{"on", "body_ctrl"}, {"s", 2}}));
    EXPECT_TRUE(result("OVSelectOpposite -fp arm_R_ctrl arm_L_ctrl"));

    ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    openRig(ORVANE_TEST_DATA "/opposite_rig.ma");
    EXPECT_THAT(oppositesOf("lonely_L_ctrl"), ElementsAre("body_ctrl"));
    ASSERT_TRUE(mel("select -r arm_L_ctrl arm_R_ctrl lonely_L_ctrl; OVSelectOpposite -dl"));
    EXPECT_THAT(selected(), ElementsAre("arm_L_ctrl", "lonely_L_ctrl"));

    // Re-pairing forgets the former partner's entry, side and all.
    EXPECT_TRUE(result("OVSelectOpposite -fp body_ctrl prop_c"));
    EXPECT_FALSE(pairs().contains("lonely_L_ctrl"));
    // One object: an empty partner, the left side, and its former partner
    // forgotten; it is then its own opposite.
    EXPECT_TRUE(result("OVSelectOpposite -fp body_ctrl"));
    EXPECT_EQ(pairs().value("body_ctrl").toObject(), (QJsonObject{{"on", ""}, {"s", 1}}));
    EXPECT_FALSE(pairs().contains("prop_c"));
    EXPECT_THAT(oppositesOf("body_ctrl"), ElementsAre("body_ctrl"));
    EXPECT_TRUE(reports().empty());

    ASSERT_TRUE(mel("select -cl"));
    EXPECT_FALSE(result("OVSelectOpposite -fp"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: selection is empty\n"));
}

TEST_F(SelectOppositeCmd, AutoSelectAddsOppositesUntilTurnedOff)
{
    const size_t callbacks = mayasim::host::callbackCount();
    ASSERT_TRUE(mel("OVSelectOpposite -activateAutoSelect"));
    ASSERT_TRUE(mel("OVSelectOpposite -aas")); // a second start replaces the first
    EXPECT_EQ(mayasim::host::callbackCount(), callbacks + 1);
    ASSERT_TRUE(mel("select -r arm_L_ctrl"));
    EXPECT_THAT(selected(), ElementsAre("arm_L_ctrl", "arm_R_ctrl"));
    ASSERT_TRUE(mel("select -r body_ctrl; select -add Left_arm"));
    EXPECT_THAT(selected(), ElementsAre("body_ctrl", "Left_arm", "Right_arm"));
    ASSERT_TRUE(mel("select -cl"));
    EXPECT_THAT(selected(), IsEmpty());

    ASSERT_TRUE(mel("OVSelectOpposite -deactivateAutoSelect"));
    EXPECT_EQ(mayasim::host::callbackCount(), callbacks);
    ASSERT_TRUE(mel("OVSelectOpposite -das"));
    ASSERT_TRUE(mel("select -r arm_L_ctrl"));
    EXPECT_THAT(selected(), ElementsAre("arm_L_ctrl"));

    // Unloading turns it off before the command goes.
    ASSERT_TRUE(mel("OVSelectOpposite -aas"));
    ASSERT_TRUE(MFileIO::newFile(true));
    ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
    EXPECT_EQ(mayasim::host::callbackCount(), callbacks);
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    ASSERT_TRUE(mel("createNode transform -n a_L; createNode transform -n a_R; select -r a_L"));
    EXPECT_THAT(selected(), ElementsAre("a_L"));
}

TEST_F(SelectOppositeCmd, CorruptPairsReadAsEmptyAndAreOverwritten)
{
    ASSERT_TRUE(mel("OVSelectOpposite -fp arm_L_ctrl foot_l"));
    ASSERT_TRUE(writeBytes(pairsFile(), QByteArray("\xff\x00garbage{", 10)));
    const std::string scene = sceneText();
    EXPECT_THAT(oppositesOf("arm_L_ctrl"), ElementsAre("arm_R_ctrl"));
    EXPECT_TRUE(result("OVSelectOpposite -s prop_a prop_b"));
    EXPECT_EQ(pairs().keys(), (QStringList{"prop_a", "prop_b"}));
    EXPECT_EQ(sceneText(), scene);
    EXPECT_TRUE(reports().empty());
    EXPECT_FALSE(mel("OVSelectOpposite -bogus"));
}

} // namespace
