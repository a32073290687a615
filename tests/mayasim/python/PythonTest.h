#pragma once
// Python in mayasim as a plug-in and a user reach it: MGlobal, MEL's python
// command and the script output. Each test starts from a new scene with an
// empty undo queue and output, and the time slider on its own list.
#include "SceneText.h"

#include <maya/MFileIO.h>
#include <maya/MGlobal.h>
#include <mayasim/Host.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

class PythonTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(MFileIO::newFile(true));
        MGlobal::executeCommand("undoInfo -state on; flushUndo; timeControl -e -mainListConnection animationList "
                                "$gPlayBackSlider");
        mayasim::host::clearOutput();
    }

    // Python as a plug-in sends it, undo on.
    static bool python(const std::string& text)
    {
        return MGlobal::executePythonCommand(text.c_str(), false, true);
    }
    static bool mel(const std::string& text) { return MGlobal::executeCommand(text.c_str(), false, true); }
    static std::string melString(const std::string& text)
    {
        return MGlobal::executeCommandStringResult(text.c_str(), false, true).asChar();
    }
    static double melNumber(const std::string& text)
    {
        double value = 0.0;
        EXPECT_TRUE(MGlobal::executeCommand(text.c_str(), value, false, true)) << text;
        return value;
    }

    // The script output as Maya prints it.
    static std::vector<std::string> printed()
    {
        std::vector<std::string> lines;
        for (const auto& line : mayasim::host::output())
            lines.push_back(line.printed);
        return lines;
    }

    // Runs the action and checks that it made one undo step: undo gives back
    // the scene from before it, redo the scene it left.
    static void expectOneUndoStep(const std::function<void()>& action)
    {
        const std::string before = sceneText();
        action();
        const std::string after = sceneText();
        ASSERT_NE(after, before);
        EXPECT_TRUE(mel("undo"));
        EXPECT_EQ(sceneText(), before);
        EXPECT_TRUE(mel("redo"));
        EXPECT_EQ(sceneText(), after);
    }
};
