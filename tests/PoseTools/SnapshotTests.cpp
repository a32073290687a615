// OVSnapshot end to end: which channels a pose holds, how poses accumulate
// in the data file, and the failures.
#include "PoseTest.h"

#include "Snapshot/Manager.h"

#include <maya/MGlobal.h>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

class SnapshotCmd : public PoseTest
{
};

std::vector<std::string> channelNames(const char* objects)
{
    MSelectionList list;
    list.add(objects);
    const MPlugArray plugs = Snapshot::resettableChannels(list);
    std::vector<std::string> names;
    for (unsigned int i = 0; i < plugs.length(); ++i)
        names.push_back(plugs[i].partialName().asChar());
    return names;
}

TEST_F(SnapshotCmd, ChannelsAreTheUndrivenRotateOrderThenVisibleUnlockedKeyableOrChannelBoxPlugs)
{
    EXPECT_THAT(channelNames("obj"), ElementsAre("ro", "v", "tx", "ty", "tz", "rx", "ry", "rz", "sx", "sy", "sz"));

    ASSERT_TRUE(mel("setAttr -l on obj.ty; setAttr -k off obj.v; setAttr -k off -cb on obj.sz"));
    ASSERT_TRUE(mel("addAttr -ln secret -at double -k true -h true obj; addAttr -ln note -dt \"string\" obj"));
    ASSERT_TRUE(mel("setAttr -cb on obj.note"));
    // A keyable rotate order stands twice: once first, once in its place.
    ASSERT_TRUE(mel("setAttr -k on obj.ro"));
    EXPECT_THAT(channelNames("obj"), ElementsAre("ro", "tx", "tz", "rx", "ry", "rz", "sx", "sy", "sz", "ro"));

    // A driven channel stays, except the rotate order, which then goes.
    ASSERT_TRUE(mel("createNode transform -n driver; connectAttr driver.tx obj.tz; connectAttr driver.ty obj.ro"));
    EXPECT_THAT(channelNames("obj"), ElementsAre("tx", "tz", "rx", "ry", "rz", "sx", "sy", "sz", "ro"));
}

TEST_F(SnapshotCmd, StoresPlugValuesInInternalUnitsUnderPlugNames)
{
    ASSERT_TRUE(mel("setAttr obj.tx 1.5; setAttr obj.rx 33.3; setAttr obj.sy 2; setAttr obj.v off; setAttr obj.ro 4"));
    ASSERT_TRUE(mel("setAttr -l on obj.tz"));
    ASSERT_TRUE(mel("OVSnapshot obj"));
    EXPECT_TRUE(reports().empty());

    const QJsonObject poses = storedPoses();
    EXPECT_EQ(poses.size(), 10);
    EXPECT_EQ(poses.value(QStringLiteral("obj.translateX")).toDouble(), 1.5);
    EXPECT_EQ(poses.value(QStringLiteral("obj.rotateX")).toDouble(), value("obj.rx"));
    EXPECT_NEAR(poses.value(QStringLiteral("obj.rotateX")).toDouble(), 33.3 * M_PI / 180.0, 1e-12);
    EXPECT_EQ(poses.value(QStringLiteral("obj.scaleY")).toDouble(), 2.0);
    EXPECT_EQ(poses.value(QStringLiteral("obj.visibility")).toDouble(), 0.0);
    EXPECT_EQ(poses.value(QStringLiteral("obj.rotateOrder")).toDouble(), 4.0);
    EXPECT_FALSE(poses.contains(QStringLiteral("obj.translateZ")));
    EXPECT_FALSE(readBytes(dataFile()).startsWith('{')) << "the file holds CBOR, not JSON text";
}

TEST_F(SnapshotCmd, SnapshotsAccumulateAndOverwriteOnlyWhatTheyCover)
{
    ASSERT_TRUE(mel("createNode transform -n other; setAttr other.tx 3; setAttr obj.tx 1"));
    ASSERT_TRUE(mel("OVSnapshot obj other"));
    ASSERT_TRUE(mel("setAttr obj.tx 2; setAttr other.tx 4"));
    ASSERT_TRUE(mel("select -r obj; OVSnapshot"));
    const QJsonObject poses = storedPoses();
    EXPECT_EQ(poses.value(QStringLiteral("obj.translateX")).toDouble(), 2.0);
    EXPECT_EQ(poses.value(QStringLiteral("other.translateX")).toDouble(), 3.0);
    EXPECT_EQ(poses.size(), 22);
}

TEST_F(SnapshotCmd, ClearRemovesTheFileWithoutObjects)
{
    ASSERT_TRUE(mel("OVSnapshot obj"));
    ASSERT_TRUE(QFile::exists(dataFile()));
    ASSERT_TRUE(mel("select -cl"));
    EXPECT_TRUE(mel("OVSnapshot -clear"));
    EXPECT_FALSE(QFile::exists(dataFile()));
    EXPECT_TRUE(mel("OVSnapshot -c")) << "a missing file is no failure";
    EXPECT_TRUE(reports().empty());
}

TEST_F(SnapshotCmd, NoObjectsIsReportedAndStoresNothing)
{
    ASSERT_TRUE(mel("select -cl"));
    EXPECT_FALSE(mel("OVSnapshot"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: no object/s specified\n"));
    EXPECT_THAT(reports()[0], HasSubstr("File: Cmd\n"));
    EXPECT_FALSE(QFile::exists(dataFile()));
}

TEST_F(SnapshotCmd, UnwritableFileIsReportedAndLeavesTheDiskAsItWas)
{
    // A folder where the file should be: the atomic write can't replace it.
    ASSERT_TRUE(QDir().mkpath(dataFile()));
    ASSERT_TRUE(writeBytes(QDir(dataFile()).filePath(QStringLiteral("keep")), "x"));
    const QString folder = QDir(scriptsDir()).filePath(QStringLiteral("Orvane"));
    const QStringList before = entriesUnder(folder);

    EXPECT_TRUE(mel("OVSnapshot obj"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: failed to save snapshot\n"));
    EXPECT_THAT(reports()[0], HasSubstr("Function: snapshot\n"));
    EXPECT_THAT(reports()[0], HasSubstr("File: Manager\n"));
    EXPECT_EQ(entriesUnder(folder), before);
    EXPECT_EQ(readBytes(QDir(dataFile()).filePath(QStringLiteral("keep"))), QByteArray("x"));
}

TEST_F(SnapshotCmd, IsNotAnUndoStep)
{
    ASSERT_TRUE(mel("setAttr obj.tx 5"));
    ASSERT_TRUE(mel("OVSnapshot obj"));
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(value("obj.tx"), 0.0) << "undo skips the snapshot and takes back the setAttr";
    EXPECT_EQ(storedPoses().value(QStringLiteral("obj.translateX")).toDouble(), 5.0);
}

} // namespace
