#pragma once
#include "TestPlugin.h"

#include <maya/MGlobal.h>

#include <mayasim/Host.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

// Each test starts with the test plug-in loaded, undo on and an empty queue,
// output and command log.
class EngineTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        enginetest::load();
        MGlobal::executeCommand("undoInfo -state on; flushUndo");
        mayasim::host::clearOutput();
        mayasim::host::clearSentCommands();
    }
    void TearDown() override { enginetest::unload(); }

    static enginetest::Record& record() { return enginetest::record(); }

    // Runs MEL as a script would, undo on.
    static bool mel(const std::string& text) { return MGlobal::executeCommand(text.c_str(), false, true); }

    static std::string stringResult(const std::string& text)
    {
        return MGlobal::executeCommandStringResult(text.c_str()).asChar();
    }

    // The script output as Maya's script editor prints it.
    static std::vector<std::string> printed()
    {
        std::vector<std::string> lines;
        for (const auto& line : mayasim::host::output())
            lines.push_back(line.printed);
        return lines;
    }
};
