// OVRelationship end to end: a prop held at an offset from a hand is put back
// at that offset after the hand moved, at the current time as a value change
// or keyed over a highlighted range, with one undo step each.
#include "WorldSpaceTest.h"

#include <mayasim/Host.h>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class RelationshipCmd : public WorldSpaceTest
{
protected:
    // Where the prop must be at a frame: at its copied offset from the hand.
    static MMatrix heldAt(const MMatrix& relation, double frame) { return relation * worldAt("hand_L_ctrl", frame); }
};

TEST_F(RelationshipCmd, APasteAtTheCurrentTimePutsTheFirstObjectBackAtItsOffset)
{
    const MMatrix relation = worldAt("prop", 1) * worldAt("hand_L_ctrl", 1).inverse();
    ASSERT_TRUE(mel("select -r prop hand_L_ctrl"));
    EXPECT_TRUE(result("OVRelationship"));
    // The hand moves with its parent; the selection at the paste doesn't count.
    ASSERT_TRUE(mel("currentTime 8; setAttr arm_L_grp.r 30 0 -50; select -r hand_R_ctrl"));
    expectOneUndoStep([] { EXPECT_TRUE(result("OVRelationship -paste")); });
    expectSameMatrix(worldAt("prop", 8), heldAt(relation, 8), "prop");
    // A value change: no keys.
    EXPECT_TRUE(nodeNamed("prop_translateX").isNull());
    ASSERT_TRUE(mel("select -cl; currentUnit -l m -a rad; setAttr arm_L_grp.t 0 -2 0"));
    EXPECT_TRUE(result("OVRelationship -p"));
    expectSameMatrix(worldAt("prop", 8), heldAt(relation, 8), "prop in metres");
    EXPECT_TRUE(reports().empty());
}

TEST_F(RelationshipCmd, ARangePasteKeysEachFrameFollowingTheOtherObject)
{
    ASSERT_TRUE(mel("currentTime 4; setAttr -l true prop.tz"));
    const MMatrix relation = worldAt("prop", 4) * worldAt("hand_L_ctrl", 4).inverse();
    const double lockedZ = worldAt("prop", 4)(3, 2);
    // Scale is set, not keyed: undo takes it back with the keys.
    ASSERT_TRUE(mel("select -r prop hand_L_ctrl; OVRelationship; currentTime 2; setAttr prop.s 1 1 1"));
    mayasim::host::setTimeSliderHighlight(3, 9);
    expectOneUndoStep([] { EXPECT_TRUE(result("OVRelationship -p")); });
    EXPECT_EQ(MAnimControl::currentTime().value(), 2.0);
    EXPECT_THAT(keyTimes("prop.tx"), ElementsAre(3, 4, 5, 6, 7, 8, 9));
    EXPECT_THAT(keyTimes("prop.rz"), ElementsAre(3, 4, 5, 6, 7, 8, 9));
    // Translate and rotate only are keyed.
    EXPECT_TRUE(nodeNamed("prop_scaleX").isNull());
    // The locked channel stays; the hand (and the parent) animate.
    EXPECT_TRUE(nodeNamed("prop_translateZ").isNull());
    for (double frame : {3, 6, 9}) {
        const MMatrix held = heldAt(relation, frame);
        const MMatrix prop = worldAt("prop", frame);
        EXPECT_NEAR(prop(3, 2), lockedZ, 1e-9);
        for (unsigned int row = 0; row < 3; ++row)
            for (unsigned int column = 0; column < 3; ++column)
                EXPECT_NEAR(prop(row, column), held(row, column), 1e-9) << frame;
        EXPECT_NEAR(prop(3, 0), held(3, 0), 1e-9) << frame;
    }
}

TEST_F(RelationshipCmd, BadInputIsReportedAndKeepsTheFormerCopy)
{
    ASSERT_TRUE(mel("select -r prop hand_L_ctrl; OVRelationship"));
    const MMatrix relation = worldAt("prop", 1) * worldAt("hand_L_ctrl", 1).inverse();
    const std::string before = sceneText();
    ASSERT_TRUE(mel("select -r prop hand_L_ctrl hand_R_ctrl"));
    EXPECT_FALSE(result("OVRelationship"));
    ASSERT_TRUE(mel("select -r prop"));
    EXPECT_FALSE(mel("OVRelationship"));
    ASSERT_EQ(reports().size(), 2u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: select exactly 2 transforms\n"));
    EXPECT_THAT(reports()[1], HasSubstr("Message: no object/s specified\n"));
    EXPECT_FALSE(mel("OVRelationship -p -x 1"));
    EXPECT_EQ(sceneText(), before);

    ASSERT_TRUE(mel("setAttr mover.s 2 2 2; OVRelationship -p"));
    expectSameMatrix(worldAt("prop", 1), heldAt(relation, 1), "former copy");

    // Held far out under a scaled parent, the prop would leave the numbers.
    ASSERT_TRUE(mel("setAttr prop.t 1.7e308 1.7e308 1.7e308; select -r hand_R_ctrl prop; OVRelationship"));
    const std::string far = sceneText();
    ASSERT_TRUE(mel("OVRelationship -p"));
    EXPECT_EQ(sceneText(), far);
    ASSERT_EQ(reports().size(), 3u);
    EXPECT_THAT(reports()[2], HasSubstr("Message: paste: nothing updated\n"));
    ASSERT_TRUE(mel("select -r prop hand_L_ctrl; OVRelationship"));

    ASSERT_TRUE(mel("delete hand_L_ctrl"));
    const std::string deleted = sceneText();
    EXPECT_FALSE(result("OVRelationship -p"));
    ASSERT_EQ(reports().size(), 5u);
    EXPECT_THAT(reports()[3], HasSubstr("Message: clipboard is empty (copy first)\n"));
    EXPECT_THAT(reports()[4], HasSubstr("Message: source object no longer exists\n"));
    EXPECT_EQ(sceneText(), deleted);
}

} // namespace
