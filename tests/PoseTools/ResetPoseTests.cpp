// OVResetPose end to end: stored poses and attribute defaults, the channel
// flags and the channel box, the keys manner, and one undo step each time.
#include "PoseTest.h"

#include <maya/MAngle.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MFnUnitAttribute.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class ResetPoseCmd : public PoseTest
{
protected:
    // Moves every channel away from both the stored pose and the defaults.
    static void scramble()
    {
        ASSERT_TRUE(mel("setAttr obj.t 11 12 13; setAttr obj.r 21 22 23; setAttr obj.s 3 4 5"));
    }
};

TEST_F(ResetPoseCmd, SnapshotThenResetReturnsEveryChannelIncludingRotateOrder)
{
    ASSERT_TRUE(mel("setAttr obj.t 1 2 3; setAttr obj.r 33.3 -71.25 190; setAttr obj.s 0.5 2 1.25"));
    ASSERT_TRUE(mel("setAttr obj.ro 5; setAttr obj.v off"));
    const char* const channels[] = {"obj.tx", "obj.ty", "obj.tz", "obj.rx", "obj.ry", "obj.rz",
                                    "obj.sx", "obj.sy", "obj.sz", "obj.ro", "obj.v"};
    std::vector<double> posed;
    for (const char* channel : channels)
        posed.push_back(value(channel));
    ASSERT_TRUE(mel("OVSnapshot obj"));

    scramble();
    ASSERT_TRUE(mel("setAttr obj.ro 2; setAttr obj.v on"));
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVResetPose obj")); });
    // Rotations come back bit for bit: stored and written in radians.
    for (size_t i = 0; i < posed.size(); ++i)
        EXPECT_EQ(value(channels[i]), posed[i]) << channels[i];
    EXPECT_TRUE(reports().empty());
}

TEST_F(ResetPoseCmd, WithoutFileChannelsTakeTheirAttributeDefaults)
{
    scramble();
    ASSERT_TRUE(mel("setAttr obj.ro 3; setAttr obj.v off"));
    ASSERT_FALSE(QFile::exists(dataFile()));
    ASSERT_TRUE(mel("select -r obj"));
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVResetPose")); });
    EXPECT_EQ(value("obj.tx"), 0.0);
    EXPECT_EQ(value("obj.rx"), 0.0);
    EXPECT_EQ(value("obj.rz"), 0.0);
    EXPECT_EQ(value("obj.sx"), 1.0);
    EXPECT_EQ(value("obj.sz"), 1.0);
    EXPECT_EQ(value("obj.ro"), 0.0);
    EXPECT_EQ(value("obj.v"), 1.0);
}

TEST_F(ResetPoseCmd, AChannelWithoutEntryFallsBackToItsDefault)
{
    ASSERT_TRUE(mel("setAttr obj.tx 4; OVSnapshot obj; addAttr -ln weight -at double -dv 0.25 -k true obj"));
    // A short's default is read through the int overload, the one Maya has.
    ASSERT_TRUE(mel("addAttr -ln steps -at short -dv 3 -k true obj"));
    ASSERT_TRUE(mel("setAttr obj.weight 9; setAttr obj.steps 8; setAttr obj.tx 7"));
    ASSERT_TRUE(mel("OVResetPose obj"));
    EXPECT_EQ(value("obj.tx"), 4.0);
    EXPECT_EQ(value("obj.weight"), 0.25);
    EXPECT_EQ(value("obj.steps"), 3.0);
}

TEST_F(ResetPoseCmd, AttributeDefaultsAreTakenInUiUnitsAndWrittenAsTheyAre)
{
    ASSERT_TRUE(mel("addAttr -ln swing -at doubleAngle -dv 90 -k true obj; setAttr obj.swing 10"));
    MSelectionList list;
    MPlug swing;
    ASSERT_TRUE(list.add("obj.swing") && list.getPlug(0, swing));
    MAngle angle;
    ASSERT_TRUE(MFnUnitAttribute(swing.attribute()).getDefault(angle));
    ASSERT_NE(angle.asDegrees(), angle.asRadians());
    ASSERT_TRUE(mel("OVResetPose obj"));
    // The number in degrees lands in the plug's internal unit, radians.
    EXPECT_DOUBLE_EQ(value("obj.swing"), angle.asDegrees());
}

TEST_F(ResetPoseCmd, FlagsPickChannelsByName)
{
    scramble();
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVResetPose -t -r obj")); });
    EXPECT_EQ(value("obj.ty"), 0.0);
    EXPECT_EQ(value("obj.ry"), 0.0);
    EXPECT_EQ(value("obj.sy"), 4.0);

    scramble();
    ASSERT_TRUE(mel("OVResetPose -scale obj"));
    EXPECT_EQ(value("obj.ty"), 12.0);
    EXPECT_NEAR(value("obj.ry"), 22.0 * M_PI / 180.0, 1e-12);
    EXPECT_EQ(value("obj.sy"), 1.0);

    // The node's name counts too: every channel of translateGrp is a translate.
    ASSERT_TRUE(mel("createNode transform -n translateGrp; setAttr translateGrp.s 2 2 2"));
    ASSERT_TRUE(mel("OVResetPose -translate translateGrp"));
    EXPECT_EQ(value("translateGrp.sx"), 1.0);
}

TEST_F(ResetPoseCmd, ChannelBoxHighlightLimitsTheReset)
{
    scramble();
    mayasim::host::setChannelBoxHighlight(mayasim::host::ChannelBoxSection::Main, {"tx", "sy"});
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVResetPose obj")); });
    EXPECT_EQ(value("obj.tx"), 0.0);
    EXPECT_EQ(value("obj.sy"), 1.0);
    EXPECT_EQ(value("obj.ty"), 12.0);
    EXPECT_EQ(value("obj.sx"), 3.0);
    // The flags still apply on top of the highlight.
    scramble();
    mayasim::host::setChannelBoxHighlight(mayasim::host::ChannelBoxSection::Main, {"tx", "ry"});
    ASSERT_TRUE(mel("OVResetPose -r obj"));
    EXPECT_EQ(value("obj.ry"), 0.0);
    EXPECT_EQ(value("obj.tx"), 11.0);
    EXPECT_NEAR(value("obj.rx"), 21.0 * M_PI / 180.0, 1e-12);
}

TEST_F(ResetPoseCmd, LockedAndHiddenChannelsAreNeitherStoredNorReset)
{
    ASSERT_TRUE(mel("addAttr -ln secret -at double -k true -h true obj; setAttr obj.secret 2; setAttr obj.ty 2"));
    ASSERT_TRUE(mel("setAttr -l on obj.ty"));
    ASSERT_TRUE(mel("OVSnapshot obj"));
    EXPECT_FALSE(storedPoses().contains(QStringLiteral("obj.secret")));
    EXPECT_FALSE(storedPoses().contains(QStringLiteral("obj.translateY")));
    ASSERT_TRUE(mel("setAttr obj.secret 5; setAttr -l off obj.ty; setAttr obj.ty 5; setAttr -l on obj.ty"));
    ASSERT_TRUE(mel("OVResetPose obj"));
    EXPECT_EQ(value("obj.secret"), 5.0);
    EXPECT_EQ(value("obj.ty"), 5.0);
}

TEST_F(ResetPoseCmd, CorruptFileReadsAsEmpty)
{
    ASSERT_TRUE(QDir().mkpath(QFileInfo(dataFile()).path()));
    ASSERT_TRUE(writeBytes(dataFile(), QByteArray("\xff\xfe not a pose", 14)));
    scramble();
    ASSERT_TRUE(mel("OVResetPose obj"));
    EXPECT_EQ(value("obj.tx"), 0.0);
    EXPECT_EQ(value("obj.sx"), 1.0);
    EXPECT_TRUE(reports().empty());
}

TEST_F(ResetPoseCmd, ClearedSnapshotGivesDefaultsAgain)
{
    ASSERT_TRUE(mel("setAttr obj.tx 6; OVSnapshot obj; setAttr obj.tx 9; OVResetPose obj"));
    EXPECT_EQ(value("obj.tx"), 6.0);
    ASSERT_TRUE(mel("OVSnapshot -clear; setAttr obj.tx 9; OVResetPose obj"));
    EXPECT_EQ(value("obj.tx"), 0.0);
}

TEST_F(ResetPoseCmd, SelectedKeysAreResetInsteadOfValues)
{
    ASSERT_TRUE(mel("setAttr obj.tx 7; OVSnapshot obj"));
    keyPlug("obj.tx", {{1, 0}, {5, 10}, {10, 4}});
    keyPlug("obj.ry", {{1, 30}, {10, 60}});
    ASSERT_TRUE(mel("setAttr obj.sx 3"));
    MFnAnimCurve curve(nodeNamed("obj_translateX"));
    ASSERT_TRUE(curve.setInTangentType(1, MFnAnimCurve::kTangentFixed));
    ASSERT_TRUE(curve.setOutTangentType(1, MFnAnimCurve::kTangentFixed));
    ASSERT_TRUE(mayasim::host::selectKeys("obj_translateX", {1}));
    ASSERT_TRUE(mayasim::host::selectKeys("obj_rotateY", {1}));
    ASSERT_TRUE(mel("select -add obj"));

    expectOneUndoStep([] { ASSERT_TRUE(mel("OVResetPose -t")); });
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(0, 7, 4));
    EXPECT_THAT(keyValues("obj_rotateY"), ElementsAre(DoubleNear(30, 1e-9), DoubleNear(60, 1e-9)))
        << "-t leaves rotation curves";
    // Fixed tangents would keep the old slope; they turn auto.
    EXPECT_EQ(curve.inTangentType(1), MFnAnimCurve::kTangentAuto);
    EXPECT_EQ(curve.outTangentType(1), MFnAnimCurve::kTangentAuto);
    EXPECT_EQ(value("obj.sx"), 3.0) << "no value is set in the keys manner";

    ASSERT_TRUE(mel("OVResetPose"));
    EXPECT_THAT(keyValues("obj_rotateY"), ElementsAre(DoubleNear(30, 1e-9), 0));
}

TEST_F(ResetPoseCmd, HighlightedRangeResetsTheKeysInIt)
{
    keyPlug("obj.sx", {{1, 2}, {5, 3}, {10, 4}});
    keyPlug("obj.tx", {{1, 2}, {8, 3}});
    ASSERT_TRUE(mel("select -r obj"));
    mayasim::host::setTimeSliderHighlight(4, 10);
    expectOneUndoStep([] { ASSERT_TRUE(mel("OVResetPose -s")); });
    EXPECT_THAT(keyValues("obj_scaleX"), ElementsAre(2, 1, 1));
    EXPECT_THAT(keyValues("obj_translateX"), ElementsAre(2, 3));
}

TEST_F(ResetPoseCmd, NoObjectsIsReportedAndChangesNothing)
{
    scramble();
    const std::string before = sceneText();
    ASSERT_TRUE(mel("select -cl"));
    EXPECT_FALSE(mel("OVResetPose"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: no object/s specified\n"));
    EXPECT_THAT(reports()[0], HasSubstr("File: Cmd\n"));
    EXPECT_EQ(sceneText(), before);
}

} // namespace
