// A standalone program may end mayasim and start it again.
#include <maya/MEventMessage.h>
#include <maya/MFileIO.h>
#include <maya/MGlobal.h>
#include <maya/MLibrary.h>
#include <maya/MSelectionList.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

TEST(Library, InitializeAfterCleanupStartsFromAnEmptyUntitledScene)
{
    ASSERT_TRUE(MGlobal::executeCommand("file -f -new; createNode transform -n leftover; file -rename \"kept.ma\""));
    int ticks = 0;
    MEventMessage::addEventCallback("idle", [](void* data) { ++*static_cast<int*>(data); }, &ticks);

    MLibrary::cleanup(0, false);
    ASSERT_TRUE(MLibrary::initialize("again"));

    mayasim::host::pumpIdle();
    EXPECT_EQ(ticks, 0);
    MSelectionList list;
    EXPECT_FALSE(list.add("leftover"));
    EXPECT_THAT(MFileIO::currentFile().asChar(), ::testing::EndsWith("/untitled"));
    EXPECT_TRUE(MGlobal::executeCommand("createNode transform -n fresh"));
}
