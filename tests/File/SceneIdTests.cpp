// The scene's identity node: made when a saved scene first needs it, kept by
// save, save-as and reopen, and the tool paths built from it.
#include "DataFolderTest.h"

#include "Utils/Nodes/SceneId/Manager.h"
#include "Utils/Nodes/SceneId/Node.h"

#include <maya/MDoubleArray.h>
#include <maya/MFileIO.h>
#include <maya/MFnDependencyNode.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MStringArray.h>
#include <mayasim/Host.h>

#include <QDateTime>

#include <algorithm>

#include <gmock/gmock.h>

namespace {

using ::testing::HasSubstr;

class SceneIdentity : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        fData = scriptsDir() + "/Orvane";
    }

    static std::vector<std::string> idNodes()
    {
        MStringArray names;
        MGlobal::executeCommand("ls -type OVSceneId", names);
        std::vector<std::string> result;
        for (const MString& name : names)
            result.push_back(name.asChar());
        return result;
    }
    static double idOf(const std::string& node)
    {
        double value = 0.0;
        MGlobal::executeCommand(("getAttr " + node + ".id").c_str(), value);
        return value;
    }
    void saveAs(const QString& name) const
    {
        ASSERT_TRUE(MFileIO::saveAs(workFile(name).toUtf8().constData(), "mayaAscii", true));
    }
    void reopen(const QString& name) const
    {
        ASSERT_TRUE(MFileIO::newFile(true));
        ASSERT_TRUE(MFileIO::open(workFile(name).toUtf8().constData(), nullptr, true));
    }
    static const SceneId::Manager& ids() { return SceneId::manager(); }

    QString fData;
};

TEST_F(SceneIdentity, AnUnsavedSceneHasNoIdentityAndGetsNoNode)
{
    EXPECT_EQ(ids().sceneId(), 0.0);
    EXPECT_TRUE(idNodes().empty());
    EXPECT_EQ(ids().scenePath(SceneId::TempPivotFolder), QString());
    EXPECT_EQ(ids().sceneDir(SceneId::AnimationRecoveryFolder), QString());
    EXPECT_TRUE(entriesUnder(fData).isEmpty());

    // Recovery makes the node in an untitled scene; it still has no identity.
    ids().findOrCreateNode();
    EXPECT_EQ(idNodes(), std::vector<std::string>{"OVSceneId"});
    EXPECT_NE(idOf("OVSceneId"), 0.0);
    EXPECT_EQ(ids().sceneId(), 0.0);
}

TEST_F(SceneIdentity, ASavedSceneGetsTheMomentItsNodeWasMadeOnce)
{
    saveAs("shot.ma");
    const qint64 before = QDateTime::currentMSecsSinceEpoch();
    const double id = ids().sceneId();
    const qint64 after = QDateTime::currentMSecsSinceEpoch();
    EXPECT_GE(id, static_cast<double>(before));
    EXPECT_LE(id, static_cast<double>(after));
    EXPECT_EQ(id, static_cast<double>(static_cast<qint64>(id)));
    EXPECT_EQ(ids().sceneId(), id);
    EXPECT_EQ(idNodes(), std::vector<std::string>{"OVSceneId"});
    EXPECT_EQ(MFnDependencyNode(ids().findOrCreateNode()).typeId(), SceneId::NodeTypeId);
    // Made outside the undo queue: undo leaves it.
    mel("undo");
    EXPECT_EQ(idNodes(), std::vector<std::string>{"OVSceneId"});
}

TEST_F(SceneIdentity, ASecondNodeIsRenamedAndTheFirstKeepsAnswering)
{
    saveAs("shot.ma");
    ASSERT_TRUE(mel("createNode OVSceneId; setAttr OVSceneId.id 111"));
    ASSERT_TRUE(mel("createNode OVSceneId -n other; setAttr OVSceneId1.id 222"));
    EXPECT_EQ(idNodes(), (std::vector<std::string>{"OVSceneId", "OVSceneId1"}));
    EXPECT_EQ(ids().sceneId(), 111.0);
    EXPECT_EQ(MFnDependencyNode(ids().findOrCreateNode()).name(), "OVSceneId");
}

TEST_F(SceneIdentity, SaveAsAndReopenKeepTheIdentityAndItsFolders)
{
    saveAs("shot.ma");
    ids().findOrCreateNode();
    // Far from any clock value, so the file's value must win over the one
    // postConstructor stamps when the node is read back.
    ASSERT_TRUE(mel("setAttr OVSceneId.id 1234567890123"));
    ASSERT_TRUE(MFileIO::save(true));
    const QString pivotFile = ids().scenePath(SceneId::TempPivotFolder);
    const QString recoveryDir = ids().sceneDir(SceneId::AnimationRecoveryFolder);
    EXPECT_EQ(pivotFile, fData + "/TempPivot/1234567890123");
    EXPECT_EQ(recoveryDir, fData + "/AnimationRecovery/1234567890123");
    EXPECT_FALSE(QFileInfo::exists(pivotFile));
    EXPECT_TRUE(QFileInfo(recoveryDir).isDir());

    saveAs("shot_v2.ma");
    EXPECT_EQ(ids().sceneId(), 1234567890123.0);

    reopen("shot.ma");
    EXPECT_EQ(idNodes(), std::vector<std::string>{"OVSceneId"});
    EXPECT_EQ(ids().sceneId(), 1234567890123.0);
    EXPECT_EQ(ids().scenePath(SceneId::TempPivotFolder), pivotFile);
    reopen("shot_v2.ma");
    EXPECT_EQ(ids().sceneDir(SceneId::AnimationRecoveryFolder), recoveryDir);
    EXPECT_EQ(entriesUnder(fData), QStringList({"AnimationRecovery", "AnimationRecovery/1234567890123", "TempPivot"}));
}

TEST_F(SceneIdentity, ANewSceneDropsTheNodeAndGetsItsOwnIdentityWhenSaved)
{
    saveAs("first.ma");
    ASSERT_TRUE(mel("createNode OVSceneId; setAttr OVSceneId.id 5"));
    ASSERT_TRUE(MFileIO::newFile(true));
    EXPECT_TRUE(idNodes().empty());
    saveAs("second.ma");
    const double second = ids().sceneId();
    EXPECT_NE(second, 0.0);
    EXPECT_NE(second, 5.0);
    const QString path = ids().scenePath(SceneId::TempPivotFolder);
    EXPECT_EQ(path, fData + "/TempPivot/" + QString::number(second, 'f', 0));
    const QString name = QFileInfo(path).fileName();
    EXPECT_FALSE(name.contains('.') || name.contains('e')) << name.toStdString();
}

TEST_F(SceneIdentity, ANodeOfAnotherTypeNamedOVSceneIdGivesNoIdentity)
{
    saveAs("shot.ma");
    ASSERT_TRUE(mel("createNode transform -n OVSceneId"));
    EXPECT_EQ(ids().sceneId(), 0.0);
    EXPECT_EQ(ids().scenePath(SceneId::TempPivotFolder), QString());
}

TEST_F(SceneIdentity, WithoutADataFolderTheSceneHasNoPaths)
{
    saveAs("shot.ma");
    ASSERT_TRUE(QDir(fData).removeRecursively());
    ASSERT_TRUE(writeBytes(fData, "in the way"));
    EXPECT_NE(ids().sceneId(), 0.0);
    EXPECT_EQ(ids().scenePath(SceneId::TempPivotFolder), QString());
    EXPECT_EQ(ids().sceneDir(SceneId::AnimationRecoveryFolder), QString());
}

TEST_F(SceneIdentity, FailingToRegisterTheNodeStopsTheLoadWithItsOwnWords)
{
    ASSERT_TRUE(mel("unloadPlugin orvane"));
    mayasim::host::clearRegistrations();
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    const auto& calls = mayasim::host::registrations();
    const auto step = std::find_if(calls.begin(), calls.end(),
                                   [](const auto& call) { return call.name == "OVSceneId"; });
    ASSERT_NE(step, calls.end());
    EXPECT_EQ(step->call, "registerNode");
    const int position = static_cast<int>(step - calls.begin()) + 1;

    ASSERT_TRUE(mel("unloadPlugin orvane"));
    mayasim::host::clearOutput();
    mayasim::host::failRegistrationAt(position);
    EXPECT_FALSE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("Message: Failed to register : OVSceneId\n"));
    EXPECT_THAT(reports()[0], HasSubstr("Function: Register\n"));
    EXPECT_THAT(reports()[0], HasSubstr("File: Registration\n"));
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
}

} // namespace
