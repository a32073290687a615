// File New / Open / Save: the messages around them, in Maya's order, and the
// document state (current file, unsaved changes).
#include "FileTest.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MEventMessage.h>
#include <maya/MSceneMessage.h>
#include <maya/MSelectionList.h>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

namespace {

// Records each message it hears, with whether the node "marker" exists then.
class MessageLog
{
public:
    ~MessageLog() { MMessage::removeCallbacks(fIds); }

    void listenScene(MSceneMessage::Message message, const std::string& name)
    {
        fIds.append(MSceneMessage::addCallback(message, record, remember(name)));
    }
    void listenEvent(const std::string& event)
    {
        fIds.append(MEventMessage::addEventCallback(event.c_str(), record, remember(event)));
    }

    std::vector<std::string> heard;

private:
    struct Listener
    {
        MessageLog* log;
        std::string name;
    };

    void* remember(const std::string& name)
    {
        fListeners.push_back(std::make_unique<Listener>(Listener{this, name}));
        return fListeners.back().get();
    }

    static void record(void* clientData)
    {
        auto* listener = static_cast<Listener*>(clientData);
        MSelectionList list;
        const bool markerExists = list.add("marker");
        listener->log->heard.push_back(listener->name + (markerExists ? " (marker)" : ""));
    }

    MCallbackIdArray fIds;
    std::vector<std::unique_ptr<Listener>> fListeners;
};

void listenToFileMessages(MessageLog& log)
{
    log.listenEvent("PreFileNewOrOpened");
    log.listenScene(MSceneMessage::kBeforeNew, "kBeforeNew");
    log.listenScene(MSceneMessage::kAfterNew, "kAfterNew");
    log.listenScene(MSceneMessage::kBeforeOpen, "kBeforeOpen");
    log.listenScene(MSceneMessage::kBeforeFileRead, "kBeforeFileRead");
    log.listenScene(MSceneMessage::kAfterFileRead, "kAfterFileRead");
    log.listenScene(MSceneMessage::kAfterOpen, "kAfterOpen");
}

} // namespace

using SceneLifecycle = FileTest;

TEST_F(SceneLifecycle, SceneMessageNumbersAreMaya2022s)
{
    EXPECT_EQ(MSceneMessage::kAfterNew, 2);
    EXPECT_EQ(MSceneMessage::kBeforeImport, 3);
    EXPECT_EQ(MSceneMessage::kAfterImport, 4);
    EXPECT_EQ(MSceneMessage::kAfterOpen, 6);
    EXPECT_EQ(MSceneMessage::kBeforeRemoveReference, 16);
    EXPECT_EQ(MSceneMessage::kAfterRemoveReference, 17);
    EXPECT_EQ(MSceneMessage::kBeforeLoadReference, 36);
    EXPECT_EQ(MSceneMessage::kAfterLoadReference, 37);
    EXPECT_EQ(MSceneMessage::kBeforeCreateReference, 44);
    EXPECT_EQ(MSceneMessage::kAfterCreateReference, 45);
    EXPECT_EQ(MSceneMessage::kLast, 51);
}

TEST_F(SceneLifecycle, FileNewRaisesPreFileNewOrOpenedFirstThenReplacesTheScene)
{
    ASSERT_TRUE(mel("createNode transform -n marker"));
    MessageLog log;
    listenToFileMessages(log);
    ASSERT_TRUE(mel("file -f -new"));
    EXPECT_THAT(log.heard, ElementsAre("PreFileNewOrOpened (marker)", "kBeforeNew (marker)", "kAfterNew"));
}

TEST_F(SceneLifecycle, FileOpenRaisesPreFileNewOrOpenedThenReadsBetweenItsMessages)
{
    const std::string path = scratchFile("marker.ma");
    ASSERT_TRUE(mel("createNode transform -n marker; file -rename \"" + path + "\"; file -save"));
    ASSERT_TRUE(mel("file -f -new; createNode transform -n other"));
    MessageLog log;
    listenToFileMessages(log);
    ASSERT_TRUE(mel("file -f -o \"" + path + "\""));
    EXPECT_THAT(log.heard, ElementsAre("PreFileNewOrOpened", "kBeforeOpen", "kBeforeFileRead",
                                       "kAfterFileRead (marker)", "kAfterOpen (marker)"));
    // The old scene is gone: open replaces it.
    MSelectionList list;
    EXPECT_FALSE(list.add("other"));
}

TEST_F(SceneLifecycle, CheckCallbackCanCancelFileNew)
{
    ASSERT_TRUE(mel("createNode transform -n marker"));
    const MCallbackId id = MSceneMessage::addCheckCallback(
        MSceneMessage::kBeforeNewCheck, [](bool* retCode, void*) { *retCode = false; });
    EXPECT_FALSE(mel("file -f -new"));
    MMessage::removeCallback(id);
    MSelectionList list;
    EXPECT_TRUE(list.add("marker"));
}

TEST_F(SceneLifecycle, CurrentFileEndsInUntitledUntilTheSceneIsSaved)
{
    EXPECT_THAT(MFileIO::currentFile().asChar(), EndsWith("/untitled"));
    EXPECT_EQ(melString("file -q -sceneName"), "");

    const std::string path = scratchFile("saved.ma");
    ASSERT_TRUE(mel("file -rename \"" + path + "\"; file -save -type \"mayaAscii\""));
    EXPECT_EQ(MFileIO::currentFile().asChar(), path);
    EXPECT_EQ(melString("file -q -sceneName"), path);
    EXPECT_EQ(melString("file -q -sceneName -shortName"), std::filesystem::path(path).filename().string());
    EXPECT_TRUE(std::filesystem::is_regular_file(path));

    ASSERT_TRUE(MFileIO::newFile(true));
    EXPECT_THAT(MFileIO::currentFile().asChar(), EndsWith("/untitled"));
}

TEST_F(SceneLifecycle, UnsavedChangesStopNewAndOpenUnlessForced)
{
    EXPECT_EQ(melString("file -q -modified"), "0");
    ASSERT_TRUE(mel("createNode transform -n marker"));
    EXPECT_EQ(melString("file -q -modified"), "1");
    EXPECT_FALSE(mel("file -new"));
    EXPECT_THAT(errors(), ElementsAre(HasSubstr("Unsaved changes.")));
    EXPECT_FALSE(MFileIO::newFile());

    ASSERT_TRUE(mel("file -new -force"));
    EXPECT_EQ(melString("file -q -modified"), "0");
}

TEST_F(SceneLifecycle, SavingClearsModifiedAndAnUntitledSceneCannotBeSaved)
{
    ASSERT_TRUE(mel("createNode transform -n marker"));
    EXPECT_FALSE(MFileIO::save());

    // A cancelled save-as leaves the scene untitled.
    const MCallbackId veto = MSceneMessage::addCheckCallback(
        MSceneMessage::kBeforeSaveCheck, [](bool* retCode, void*) { *retCode = false; });
    EXPECT_FALSE(MFileIO::saveAs(scratchFile("vetoed.ma").c_str()));
    MMessage::removeCallback(veto);
    EXPECT_THAT(MFileIO::currentFile().asChar(), EndsWith("/untitled"));
    EXPECT_EQ(melString("file -q -modified"), "1");

    ASSERT_TRUE(MFileIO::saveAs(scratchFile("scene.ma").c_str()));
    EXPECT_EQ(melString("file -q -modified"), "0");
}

TEST_F(SceneLifecycle, OpeningAMissingFileFailsAndKeepsTheScene)
{
    ASSERT_TRUE(mel("createNode transform -n marker"));
    EXPECT_FALSE(MFileIO::open(scratchFile("missing.ma").c_str(), nullptr, true));
    EXPECT_THAT(errors(), ElementsAre(HasSubstr("File not found")));
    MSelectionList list;
    EXPECT_TRUE(list.add("marker"));
}

TEST_F(SceneLifecycle, ReadingAFileLeavesTheSelectionAsItWas)
{
    const std::string path = scratchFile("selected.ma");
    ASSERT_TRUE(mel("createNode transform -n first; createNode transform -n last; select -r first"));
    ASSERT_TRUE(mel("file -rename \"" + path + "\"; file -save"));
    // Opening used to leave the file's last node selected.
    ASSERT_TRUE(MFileIO::open(path.c_str(), nullptr, true));
    EXPECT_TRUE(melStrings("ls -sl").empty());
    ASSERT_TRUE(MFileIO::newFile(true));
    ASSERT_TRUE(mel("createNode transform -n marker; select -r marker"));
    ASSERT_TRUE(mel("file -import \"" + path + "\""));
    EXPECT_EQ(melStrings("ls -sl"), std::vector<std::string>{"marker"});
    ASSERT_TRUE(MFileIO::newFile(true));
    EXPECT_TRUE(melStrings("ls -sl").empty());
}

TEST_F(SceneLifecycle, ImportAddsToTheSceneAndKeepsItsName)
{
    const std::string path = scratchFile("part.ma");
    ASSERT_TRUE(mel("createNode transform -n part; file -rename \"" + path + "\"; file -save"));
    ASSERT_TRUE(MFileIO::newFile(true));
    ASSERT_TRUE(mel("createNode transform -n marker"));
    ASSERT_TRUE(mel("file -import \"" + path + "\""));
    MSelectionList list;
    EXPECT_TRUE(list.add("marker"));
    EXPECT_TRUE(list.add("part"));
    EXPECT_THAT(MFileIO::currentFile().asChar(), EndsWith("/untitled"));
}
