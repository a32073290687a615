// mayasim-gui as a user runs it: offscreen without a display, running MEL
// and Python once the window is shown, saving a screenshot and exiting.
#include "BatchRun.h"

#include <QtGui/QImage>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

using ::testing::HasSubstr;

TEST(GuiProgram, RunsScriptsSavesAScreenshotAndExits)
{
    const std::string program = std::string(ORVANE_BINARY_DIR) + "/mayasim/mayasim-gui";
    if (!std::filesystem::exists(program))
        GTEST_SKIP() << "mayasim-gui is not built";
    const std::string folder = ORVANE_BINARY_DIR "/gui_program";
    std::filesystem::create_directories(folder);
    const std::string python = folder + "/select.py";
    std::ofstream(python) << "import maya.cmds as cmds\ncmds.select('ball')\n";
    const std::string shot = folder + "/window.png";
    std::filesystem::remove(shot);

    const BatchRun run = runCommandLine(
        "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM ASAN_OPTIONS=detect_leaks=0 " + program +
        " -command \"createNode transform -n ball\" -python " + python +
        " -command \"ls -sl; mayasimUi -q -exists timeControl1\" -size 640x400 -screenshot " + shot + " -exit");
    EXPECT_EQ(run.status, 0) << run.output;
    EXPECT_THAT(run.output, HasSubstr("// Result: ball //"));
    EXPECT_THAT(run.output, HasSubstr("Screenshot: " + shot));
    const QImage image(QString::fromStdString(shot));
    EXPECT_EQ(image.size(), QSize(640, 400));

    // The same window at the same size is the same image on every run.
    const std::string again = folder + "/again.png";
    const std::string line = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM ASAN_OPTIONS=detect_leaks=0 " +
                             program + " -command \"createNode transform -n ball; select ball; currentTime 7\"" +
                             " -size 640x400 -exit -screenshot ";
    ASSERT_EQ(runCommandLine(line + shot).status, 0);
    ASSERT_EQ(runCommandLine(line + again).status, 0);
    const auto bytes = [](const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    EXPECT_FALSE(bytes(shot).empty());
    EXPECT_EQ(bytes(shot), bytes(again));

    // A bad size is a usage error.
    EXPECT_EQ(runCommandLine(program + " -size huge -exit").status, 2);
}
