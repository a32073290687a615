// OVMirror end to end on a rig of pairs whose frames match, are mirrored by
// behaviour (a joint chain), are mirrored through a negative scale, or only
// partly match: the signs worked out by hand, the factor file and its fixes,
// and one undo step.
#include "OppositeTest.h"

#include "Utils/Nodes/Node.h"

#include <maya/MDoubleArray.h>
#include <maya/MPlug.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <cmath>

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Pointwise;

namespace {

const double Degree = M_PI / 180.0;

class MirrorCmd : public OppositeTest
{
protected:
    void SetUp() override
    {
        OppositeTest::SetUp();
        openRig(ORVANE_TEST_DATA "/mirror_rig.ma");
    }

    // A compound or single plug's values, angles in degrees.
    static std::vector<double> values(const std::string& plug)
    {
        const MString command = ("getAttr " + plug).c_str();
        MDoubleArray result;
        if (MGlobal::executeCommand(command, result))
            return std::vector<double>(result.begin(), result.end());
        double single = 0.0;
        EXPECT_TRUE(MGlobal::executeCommand(command, single)) << plug;
        return {single};
    }

    static std::vector<double> worldPosition(const std::string& node)
    {
        MDoubleArray result;
        EXPECT_TRUE(MGlobal::executeCommand(("xform -q -ws -t " + node).c_str(), result)) << node;
        return std::vector<double>(result.begin(), result.end());
    }

    static std::vector<double> mirrored(std::vector<double> position)
    {
        position[0] = -position[0];
        return position;
    }
};

MATCHER(Near, "") { return std::abs(std::get<0>(arg) - std::get<1>(arg)) < 1e-9; }

TEST_F(MirrorCmd, ACentreObjectMirrorsOntoItself)
{
    ASSERT_TRUE(mel("setAttr body_ctrl.t 1 2 3; setAttr body_ctrl.r 10 20 30; setAttr body_ctrl.s 1 2 3"));
    ASSERT_TRUE(mel("OVMirror body_ctrl"));
    EXPECT_THAT(values("body_ctrl.t"), Pointwise(Near(), std::vector<double>{-1, 2, 3}));
    EXPECT_THAT(values("body_ctrl.r"), Pointwise(Near(), std::vector<double>{10, -20, -30}));
    EXPECT_THAT(values("body_ctrl.s"), Pointwise(Near(), std::vector<double>{1, 2, 3}));
    EXPECT_TRUE(reports().empty());
}

TEST_F(MirrorCmd, MatchingFramesCarryTheSameSignsAcrossAndEnumsStayValid)
{
    ASSERT_TRUE(mel("setAttr hand_L_ctrl.t 4 1 2; setAttr hand_L_ctrl.r 10 20 30; setAttr hand_L_ctrl.ro 3"));
    ASSERT_TRUE(mel("setAttr hand_L_ctrl.space 2; setAttr hand_L_ctrl.ikfk 1; setAttr hand_L_ctrl.count 4"));
    ASSERT_TRUE(mel("setAttr hand_L_ctrl.rotateBend 15; setAttr hand_L_ctrl.sx 2"));
    ASSERT_TRUE(mel("select -r hand_L_ctrl; OVMirror"));
    EXPECT_THAT(values("hand_R_ctrl.t"), Pointwise(Near(), std::vector<double>{-4, 1, 2}));
    EXPECT_THAT(values("hand_R_ctrl.r"), Pointwise(Near(), std::vector<double>{10, -20, -30}));
    EXPECT_THAT(values("hand_R_ctrl.s"), Pointwise(Near(), std::vector<double>{2, 1, 1}));
    // Enum, boolean and integer channels copy unsigned; a user attribute
    // named like a rotation takes the rotation's sign.
    EXPECT_THAT(values("hand_R_ctrl.ro"), ElementsAre(3));
    EXPECT_THAT(values("hand_R_ctrl.space"), ElementsAre(2));
    EXPECT_THAT(values("hand_R_ctrl.ikfk"), ElementsAre(1));
    EXPECT_THAT(values("hand_R_ctrl.count"), ElementsAre(4));
    EXPECT_THAT(values("hand_R_ctrl.rotateBend"), ElementsAre(-15));
    EXPECT_THAT(values("hand_L_ctrl.t"), Pointwise(Near(), std::vector<double>{4, 1, 2}));

    // With both sides selected the poses swap; a locked channel is neither
    // read nor written.
    ASSERT_TRUE(mel("setAttr hand_R_ctrl.t -5 3 0; setAttr -l on hand_R_ctrl.tz"));
    ASSERT_TRUE(mel("OVMirror hand_L_ctrl hand_R_ctrl"));
    EXPECT_THAT(values("hand_L_ctrl.t"), Pointwise(Near(), std::vector<double>{5, 3, 2}));
    EXPECT_THAT(values("hand_R_ctrl.t"), Pointwise(Near(), std::vector<double>{-4, 1, 0}));
    EXPECT_TRUE(reports().empty());
}

TEST_F(MirrorCmd, AJointChainMirroredByBehaviourCopiesRotationsAndMirrorsTheWorldPose)
{
    ASSERT_TRUE(mel("setAttr shoulder_L_jnt.r 10 20 30; setAttr elbow_L_jnt.t 3 0.5 0.25; setAttr elbow_L_jnt.r 5 -15 40"));
    ASSERT_TRUE(mel("OVMirror shoulder_L_jnt elbow_L_jnt"));
    EXPECT_THAT(values("shoulder_R_jnt.r"), Pointwise(Near(), std::vector<double>{10, 20, 30}));
    EXPECT_THAT(values("elbow_R_jnt.t"), Pointwise(Near(), std::vector<double>{-3, -0.5, -0.25}));
    EXPECT_THAT(values("elbow_R_jnt.r"), Pointwise(Near(), std::vector<double>{5, -15, 40}));
    EXPECT_THAT(worldPosition("elbow_R_jnt"), Pointwise(Near(), mirrored(worldPosition("elbow_L_jnt"))));
}

TEST_F(MirrorCmd, FramesMirroredByANegativeScaleOrOnlyPartlyMatching)
{
    // One axis points the other way in the parents' space: channels copy.
    ASSERT_TRUE(mel("setAttr wing_L_ctrl.t 3 5 1; setAttr wing_L_ctrl.r 10 20 30; OVMirror wing_L_ctrl"));
    EXPECT_THAT(values("wing_R_ctrl.t"), Pointwise(Near(), std::vector<double>{3, 5, 1}));
    EXPECT_THAT(values("wing_R_ctrl.r"), Pointwise(Near(), std::vector<double>{10, 20, 30}));
    EXPECT_THAT(worldPosition("wing_R_ctrl"), Pointwise(Near(), mirrored(worldPosition("wing_L_ctrl"))));

    // The right foot's rotate axis turns its X to -Z and Z to X, Y agreeing:
    // translates keep X and Y, rotations keep Z.
    ASSERT_TRUE(mel("setAttr foot_L_ctrl.t 1 2 3; setAttr foot_L_ctrl.r 10 20 30; OVMirror foot_L_ctrl"));
    EXPECT_THAT(values("foot_R_ctrl.t"), Pointwise(Near(), std::vector<double>{1, 2, -3}));
    EXPECT_THAT(values("foot_R_ctrl.r"), Pointwise(Near(), std::vector<double>{-10, -20, 30}));

    // Rest frames alike, but the right hand turned about Y so that only the
    // world Y axes agree: the world frames decide, as for the foot.
    ASSERT_TRUE(mel("setAttr hand_R_ctrl.ry 180; setAttr hand_L_ctrl.t 4 1 2; setAttr hand_L_ctrl.r 10 20 30"));
    ASSERT_TRUE(mel("OVMirror hand_L_ctrl"));
    EXPECT_THAT(values("hand_R_ctrl.t"), Pointwise(Near(), std::vector<double>{4, 1, -2}));
    EXPECT_THAT(values("hand_R_ctrl.r"), Pointwise(Near(), std::vector<double>{-10, -20, 30}));
}

TEST_F(MirrorCmd, SnapshotFreezesFactorsThatFixesFlipAndRemovalsForget)
{
    EXPECT_TRUE(result("OVMirror -snapshot hand_L_ctrl"));
    const QJsonObject frozen = factors();
    EXPECT_EQ(frozen.value("hand_L_ctrl.translateX").toDouble(), -1.0);
    EXPECT_EQ(frozen.value("hand_L_ctrl.translateY").toDouble(), 1.0);
    EXPECT_EQ(frozen.value("hand_L_ctrl.rotateZ").toDouble(), -1.0);
    EXPECT_EQ(frozen.value("hand_L_ctrl.rotateOrder").toDouble(), 1.0);
    EXPECT_EQ(frozen.value("hand_L_ctrl.scaleX").toDouble(), 1.0);
    EXPECT_FALSE(frozen.contains("hand_R_ctrl.translateX"));

    // A flip of ty for the first object and its opposite, then a mirror of
    // the highlighted channel only.
    ASSERT_TRUE(mel("setAttr hand_L_ctrl.t 4 1 2; setAttr hand_R_ctrl.t -4 7 7"));
    mayasim::host::setChannelBoxHighlight(mayasim::host::ChannelBoxSection::Main, {"ty"});
    ASSERT_TRUE(mel("OVMirror -fixAttribute hand_L_ctrl body_ctrl"));
    EXPECT_EQ(factors().value("hand_L_ctrl.translateY").toDouble(), -1.0);
    EXPECT_EQ(factors().value("hand_R_ctrl.translateY").toDouble(), -1.0);
    EXPECT_FALSE(factors().contains("body_ctrl.translateY"));
    EXPECT_THAT(values("hand_R_ctrl.t"), Pointwise(Near(), std::vector<double>{-4, -1, 7}));
    ASSERT_TRUE(mel("OVMirror -fa hand_L_ctrl"));
    EXPECT_EQ(factors().value("hand_L_ctrl.translateY").toDouble(), 1.0);

    // A stored key wins over the computation; 0 zeroes the target.
    QJsonObject edited = factors();
    edited.insert("hand_L_ctrl.translateZ", 0);
    ASSERT_TRUE(File::IO::writeValue(edited, factorsFile(), File::Format::Cbor));
    mayasim::host::setChannelBoxHighlight(mayasim::host::ChannelBoxSection::Main, {});
    ASSERT_TRUE(mel("OVMirror hand_L_ctrl"));
    EXPECT_THAT(values("hand_R_ctrl.t"), Pointwise(Near(), std::vector<double>{-4, 1, 0}));

    mayasim::host::setChannelBoxHighlight(mayasim::host::ChannelBoxSection::Main, {"ty"});
    EXPECT_TRUE(result("OVMirror -removeSelectedFromSnapshot hand_L_ctrl"));
    EXPECT_FALSE(factors().contains("hand_L_ctrl.translateY"));
    EXPECT_FALSE(factors().contains("hand_R_ctrl.translateY"));
    EXPECT_TRUE(factors().contains("hand_L_ctrl.translateZ"));
    EXPECT_TRUE(result("OVMirror -rs"));
    EXPECT_FALSE(QFile::exists(factorsFile()));
    EXPECT_TRUE(reports().empty());
}

TEST_F(MirrorCmd, FailedFixesMirrorNothing)
{
    ASSERT_TRUE(mel("setAttr hand_L_ctrl.tx 9"));
    const std::string scene = sceneText();
    ASSERT_TRUE(mel("OVMirror -fa hand_L_ctrl"));
    ASSERT_TRUE(mel("select -cl; OVMirror -fa"));
    EXPECT_FALSE(result("OVMirror -s"));
    EXPECT_EQ(sceneText(), scene);
    ASSERT_EQ(reports().size(), 3u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: select one or more attribute.\n"));
    EXPECT_THAT(reports()[1], HasSubstr("Message: selection is empty\n"));
    EXPECT_THAT(reports()[2], HasSubstr("Message: selection is empty\n"));
}

TEST_F(MirrorCmd, OneUndoStepRestoresTheWholeScene)
{
    ASSERT_TRUE(mel("setAttr hand_L_ctrl.t 4 1 2; setAttr hand_L_ctrl.r 10 20 30; setAttr body_ctrl.t 1 2 3"));
    ASSERT_TRUE(mel("setAttr shoulder_L_jnt.r 10 20 30; setAttr wing_L_ctrl.ry 45"));
    expectOneUndoStep([] {
        ASSERT_TRUE(mel("OVMirror hand_L_ctrl body_ctrl shoulder_L_jnt wing_L_ctrl foot_R_ctrl"));
    });
}

TEST_F(MirrorCmd, CorruptFilesReadAsEmpty)
{
    ASSERT_TRUE(writeBytes(pairsFile(), QByteArray("\xa1\x61", 2)));
    ASSERT_TRUE(writeBytes(factorsFile(), QByteArray("{not cbor")));
    ASSERT_TRUE(mel("setAttr hand_L_ctrl.t 4 1 2; OVMirror hand_L_ctrl"));
    EXPECT_THAT(values("hand_R_ctrl.t"), Pointwise(Near(), std::vector<double>{-4, 1, 2}));
    // A factor far beyond a sign leaves the channel alone rather than infinite.
    ASSERT_TRUE(File::IO::writeValue(QJsonObject{{"hand_L_ctrl.translateY", 1e308}}, factorsFile(), File::Format::Cbor));
    ASSERT_TRUE(mel("setAttr hand_L_ctrl.ty 10; OVMirror hand_L_ctrl"));
    EXPECT_THAT(values("hand_R_ctrl.t"), Pointwise(Near(), std::vector<double>{-4, 1, 2}));
    EXPECT_TRUE(result("OVMirror -s hand_L_ctrl"));
    EXPECT_EQ(factors().value("hand_L_ctrl.translateX").toDouble(), -1.0);
    EXPECT_TRUE(reports().empty());
}

} // namespace
