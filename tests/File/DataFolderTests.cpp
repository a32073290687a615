// The data folder beside the user's Maya scripts, the named data files in
// it, and whether the open scene counts as saved.
#include "DataFolderTest.h"

#include "Utils/File/BaseManager.h"

#include <maya/MFileIO.h>

#include <QJsonArray>
#include <QJsonObject>

namespace {

using File::BaseManager;
using File::PluginManager;

using DataFolder = DataFolderTest;

TEST_F(DataFolder, TheScriptsFolderCommonToAllVersionsWinsOverThe2022One)
{
    const QString versioned = makeHomeDir("maya/2022/scripts");
    EXPECT_EQ(PluginManager::scriptsDir(), versioned);
    const QString common = scriptsDir();
    EXPECT_EQ(PluginManager::scriptsDir(), common);
    EXPECT_EQ(PluginManager::pluginDir(), common + "/Orvane");
    EXPECT_TRUE(QFileInfo(common + "/Orvane").isDir());
    EXPECT_FALSE(QFileInfo::exists(versioned + "/Orvane"));
}

TEST_F(DataFolder, FilesAndSubFoldersOfTheDataFolder)
{
    const QString data = scriptsDir() + "/Orvane";
    EXPECT_EQ(PluginManager::pluginFilePath("mirror_snapshot"), data + "/mirror_snapshot");
    EXPECT_FALSE(QFileInfo::exists(data + "/mirror_snapshot"));
    EXPECT_EQ(PluginManager::pluginSubDir("TempPivot"), data + "/TempPivot");
    EXPECT_TRUE(QFileInfo(data + "/TempPivot").isDir());
    EXPECT_EQ(PluginManager::pluginSubDir("TempPivot"), data + "/TempPivot");
    // One level is made at a time.
    EXPECT_EQ(PluginManager::pluginSubDir("AnimationRecovery/123"), QString());
    EXPECT_FALSE(QFileInfo::exists(data + "/AnimationRecovery"));
}

TEST_F(DataFolder, WithoutAScriptsFolderPathsAreRelativeToTheWorkingDirectoryAndHomeStaysEmpty)
{
    makeHomeDir("maya"); // Maya installed, but no scripts folder yet
    EXPECT_EQ(PluginManager::scriptsDir(), QString());
    EXPECT_EQ(PluginManager::pluginDir(), "./Orvane");
    EXPECT_EQ(PluginManager::pluginFilePath("opposite_nodes_data"), "./Orvane/opposite_nodes_data");
    EXPECT_TRUE(BaseManager("opposite_nodes_data").writeObject(QJsonObject{{"L_arm", "R_arm"}}));
    EXPECT_EQ(entriesUnder(homePath()), QStringList({"Documents", "Documents/maya"}));
    EXPECT_EQ(entriesUnder(workPath()), QStringList({"Orvane", "Orvane/opposite_nodes_data"}));
}

TEST_F(DataFolder, ADataFolderThatCannotBeMadeGivesEmptyPathsAndNullReads)
{
    // A file where the data folder should be.
    ASSERT_TRUE(writeBytes(scriptsDir() + "/Orvane", "not a folder"));
    EXPECT_EQ(PluginManager::pluginDir(), QString());
    EXPECT_EQ(PluginManager::pluginFilePath("default_attributes_data"), QString());
    EXPECT_EQ(PluginManager::pluginSubDir("TempPivot"), QString());
    const BaseManager defaults("default_attributes_data");
    EXPECT_EQ(defaults.dataFilePath(), QString());
    EXPECT_TRUE(defaults.readObject().isEmpty());
    EXPECT_FALSE(defaults.writeObject(QJsonObject{{"pCube1.translateX", 0.0}}));
    EXPECT_EQ(readBytes(scriptsDir() + "/Orvane"), "not a folder");
}

TEST_F(DataFolder, ANamedDataFileHoldsOneCborObject)
{
    const BaseManager pairs("opposite_nodes_data");
    EXPECT_EQ(pairs.dataFilePath(), scriptsDir() + "/Orvane/opposite_nodes_data");
    EXPECT_TRUE(pairs.readObject().isEmpty());

    const QJsonObject saved{{"L_arm_ctrl", "R_arm_ctrl"}, {"L_leg_ctrl", "R_leg_ctrl"}};
    ASSERT_TRUE(pairs.writeObject(saved));
    EXPECT_EQ(BaseManager("opposite_nodes_data").readObject(), saved);
    EXPECT_FALSE(readBytes(pairs.dataFilePath()).startsWith("{"));

    // A file of another kind of value, or of random bytes, reads as empty and
    // stays until the next write replaces it.
    ASSERT_TRUE(File::IO::writeValue(QJsonArray{1, 2}, pairs.dataFilePath(), File::Format::Cbor));
    EXPECT_TRUE(pairs.readObject().isEmpty());
    const QByteArray noise("\x9f\x01\x5a\x00\x10\xff\x42\x13\x37", 9);
    ASSERT_TRUE(writeBytes(pairs.dataFilePath(), noise));
    EXPECT_TRUE(pairs.readObject().isEmpty());
    EXPECT_EQ(readBytes(pairs.dataFilePath()), noise);
    ASSERT_TRUE(pairs.writeObject(saved));
    EXPECT_EQ(pairs.readObject(), saved);

    EXPECT_TRUE(PluginManager::removeFile(pairs.dataFilePath()));
    EXPECT_TRUE(pairs.readObject().isEmpty());
    EXPECT_FALSE(PluginManager::removeFile(pairs.dataFilePath()));
}

TEST_F(DataFolder, ASceneNamedUntitledInAnyCaseCountsAsUnsaved)
{
    EXPECT_TRUE(QString(MFileIO::currentFile().asChar()).endsWith("/untitled"));
    EXPECT_EQ(PluginManager::sceneFilePath(), QString());
    EXPECT_TRUE(PluginManager::sceneIsUntitled());

    for (const char* name : {"UNTITLED", "shot_Untitled", "untitled"}) {
        ASSERT_TRUE(mel("file -rename \"" + workFile(name).toStdString() + "\""));
        EXPECT_EQ(PluginManager::sceneFilePath(), QString()) << name;
        EXPECT_TRUE(PluginManager::sceneIsUntitled()) << name;
    }
    for (const char* name : {"untitled.ma", "untitled_v2.ma", "shot.ma"}) {
        ASSERT_TRUE(mel("file -rename \"" + workFile(name).toStdString() + "\"; file -save"));
        EXPECT_EQ(PluginManager::sceneFilePath(), workFile(name)) << name;
        EXPECT_FALSE(PluginManager::sceneIsUntitled()) << name;
    }
    ASSERT_TRUE(MFileIO::newFile(true));
    EXPECT_TRUE(PluginManager::sceneIsUntitled());
}

} // namespace
