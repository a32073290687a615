#pragma once
// GUI host tests: a real QApplication on the offscreen platform for the
// whole program, and a main window opened on an empty scene for each test.
#include <maya/MEventMessage.h>
#include <maya/MGlobal.h>
#include <maya/MStringArray.h>
#include <mayasim/Gui.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

class GuiTest : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    // Runs MEL as a script would, undo on.
    static bool mel(const std::string& text) { return MGlobal::executeCommand(text.c_str(), false, true); }
    static std::string text(const std::string& command)
    {
        return MGlobal::executeCommandStringResult(command.c_str()).asChar();
    }
    static std::vector<std::string> strings(const std::string& command);
    static std::vector<double> numbers(const std::string& command);
    static double number(const std::string& command);
    // The last error the script output shows.
    static std::string lastError();
};

// Counts the times an event is raised while it lives.
struct EventCount
{
    explicit EventCount(const char* event)
        : id(MEventMessage::addEventCallback(event, [](void* data) { ++static_cast<EventCount*>(data)->count; }, this))
    {
    }
    ~EventCount() { MMessage::removeCallback(id); }
    EventCount(const EventCount&) = delete;
    EventCount& operator=(const EventCount&) = delete;

    int count = 0;
    MCallbackId id;
};
