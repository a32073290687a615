// The installed plug-in: `cmake --install` lays out a Maya module folder, and
// Maya, given the folder on MAYA_MODULE_PATH, finds the plug-in by name.
#include "BatchRun.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using ::testing::HasSubstr;

namespace {

TEST(MayaModule, InstallLaysOutAModuleFolderThatMayaFindsOnStart)
{
    QTemporaryDir folder;
    ASSERT_TRUE(folder.isValid());
    const QString module = QDir(folder.path()).filePath(QStringLiteral("Orvane"));
    const BatchRun install = runCommandLine(std::string(ORVANE_CMAKE_COMMAND) + " --install " ORVANE_BINARY_DIR
                                            + " --prefix " + module.toStdString());
    ASSERT_EQ(install.status, 0) << install.output;

    QFile description(QDir(module).filePath(QStringLiteral("orvane.mod")));
    ASSERT_TRUE(description.open(QIODevice::ReadOnly));
    EXPECT_EQ(description.readAll().toStdString(), "+ MAYAVERSION:2022 PLATFORM:linux Orvane 1.2.2 .\n");
    EXPECT_TRUE(QFileInfo(QDir(module).filePath(QStringLiteral("plug-ins/orvane.so"))).isFile());
    EXPECT_TRUE(QFileInfo(QDir(module).filePath(QStringLiteral("icons"))).isDir());

    // Maya reads the module files at start; loadPlugin then needs only the name.
    const BatchRun run = runBatch("-command \"loadPlugin orvane\" -command \"OVKeyBlending -internal\"",
                                  "MAYA_PLUG_IN_PATH= MAYA_MODULE_PATH=" + module.toStdString());
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_THAT(run.output, HasSubstr("// Result: orvane //"));
}

} // namespace
