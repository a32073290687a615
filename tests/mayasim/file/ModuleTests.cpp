// Maya modules: at start, the module description files on MAYA_MODULE_PATH
// make their plug-in folders part of the plug-in search path, so that
// loadPlugin finds a module's plug-ins by name.
#include "FileTest.h"

#include "BatchRun.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

using ::testing::HasSubstr;
using ::testing::Not;

namespace {

class Modules : public FileTest
{
protected:
    void SetUp() override
    {
        FileTest::SetUp();
        if (!std::filesystem::exists(batchProgram()))
            GTEST_SKIP() << "mayasim-batch is not built";
        ASSERT_TRUE(fFolder.isValid());
    }

    // A path in this test's own folder, with its parent folders made.
    std::string path(const std::string& relative) const
    {
        const std::filesystem::path full = std::filesystem::path(fFolder.path().toStdString()) / relative;
        std::filesystem::create_directories(full.parent_path());
        return full.lexically_normal().string();
    }

    // A file that passes for a plug-in until it is loaded.
    std::string plugin(const std::string& relative) const
    {
        const std::string file = path(relative);
        write(file, "not a shared library");
        return file;
    }

    // loadPlugin by name, with the module folders of this test.
    BatchRun loadPlugin(const std::string& name, const std::string& modulePath = "") const
    {
        return runBatch("-command \"loadPlugin " + name + "\"",
                        "MAYA_PLUG_IN_PATH= MAYA_MODULE_PATH=" + (modulePath.empty() ? path("modules") : modulePath));
    }

private:
    QTemporaryDir fFolder;
};

TEST_F(Modules, AnEntryForThisMayaPutsItsPluginFolderOnThePluginPath)
{
    // Relative paths start at the module file's folder; any file name counts.
    const std::string found = plugin("tools/Rigging/plug-ins/rigging.so");
    write(path("modules/rigging.mod"), "# studio rigging tools\n"
                                       "+ MAYAVERSION:2022 PLATFORM:linux Rigging 2.0 ../tools/Rigging\n");
    EXPECT_THAT(loadPlugin("rigging").output, HasSubstr("Unable to dynamically load : " + found + "\n"));

    plugin("anywhere/plug-ins/anywhere.so");
    write(path("modules/anywhere.txt"), "+ Anywhere 1.0 " + path("anywhere") + "\n");
    EXPECT_THAT(loadPlugin("anywhere").output, HasSubstr("Unable to dynamically load : "));
}

TEST_F(Modules, EntriesForOtherVersionsPlatformsAndLocalesArePassedOver)
{
    plugin("other/plug-ins/other.so");
    for (const char* conditions : {"MAYAVERSION:2023", "PLATFORM:win64", "PLATFORM:mac", "LOCALE:ja_JP"}) {
        write(path("modules/other.mod"), std::string("+ ") + conditions + " Other 1.0 ../other\n");
        EXPECT_THAT(loadPlugin("other").output, HasSubstr("was not found on MAYA_PLUG_IN_PATH")) << conditions;
    }
    // A disabled entry, and the lines under it, count for nothing either.
    write(path("modules/other.mod"), "- Other 1.0 ../other\nMAYA_PLUG_IN_PATH+:=plug-ins\n");
    EXPECT_THAT(loadPlugin("other").output, HasSubstr("was not found on MAYA_PLUG_IN_PATH"));
}

TEST_F(Modules, LinesUnderAnEntryMoveItsPluginFolderOrExtendThePath)
{
    const std::string moved = plugin("moved/bin/moved.so");
    const std::string nested = plugin("nested/plug-ins/linux/deep/nested.so");
    const std::string extra = plugin("extra/more/extra.so");
    write(path("modules/all.mod"), "+ PLATFORM:linux Moved 1.0 ../moved\n"
                                   "plug-ins: bin\n"
                                   "+ Nested 1.0 ../nested\n"
                                   "[r] plug-ins: plug-ins\n"
                                   "+ Extra 1.0 ../extra\n"
                                   "MAYA_PLUG_IN_PATH+:=more\n");
    EXPECT_THAT(loadPlugin("moved").output, HasSubstr("Unable to dynamically load : " + moved + "\n"));
    EXPECT_THAT(loadPlugin("nested").output, HasSubstr("Unable to dynamically load : " + nested + "\n"));
    EXPECT_THAT(loadPlugin("extra").output, HasSubstr("Unable to dynamically load : " + extra + "\n"));
}

TEST_F(Modules, OnlyTheFirstFittingEntryOfAModuleCounts)
{
    plugin("first/plug-ins/first.so");
    plugin("second/plug-ins/second.so");
    write(path("modules/a.mod"), "+ Twice 1.0 ../first\n+ Twice 2.0 ../second\n");
    EXPECT_THAT(loadPlugin("first").output, HasSubstr("Unable to dynamically load : "));
    EXPECT_THAT(loadPlugin("second").output, HasSubstr("was not found on MAYA_PLUG_IN_PATH"));
    // Folders of the path are read in turn, and files of a folder by name.
    write(path("later/b.mod"), "+ Later 1.0 ../second\n");
    EXPECT_THAT(loadPlugin("second", path("modules") + ":" + path("later")).output,
                Not(HasSubstr("was not found")));
}

} // namespace
