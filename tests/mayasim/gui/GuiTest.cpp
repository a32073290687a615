#include "GuiTest.h"

#include "GuiApplication.h"

#include <maya/MDoubleArray.h>
#include <maya/MFileIO.h>
#include <mayasim/Host.h>

#include <QtWidgets/QApplication>

void GuiTest::SetUp()
{
    // A new scene, and the panels as the interface opens them.
    ASSERT_TRUE(MFileIO::newFile(true));
    mayasim::host::clearKeySelection();
    mayasim::host::clearTimeSliderHighlight();
    for (auto section : {mayasim::host::ChannelBoxSection::Main, mayasim::host::ChannelBoxSection::Shape,
                         mayasim::host::ChannelBoxSection::Output, mayasim::host::ChannelBoxSection::History})
        mayasim::host::setChannelBoxHighlight(section, {});
    mayasim::gui::openMainWindow(1000, 600);
    QApplication::processEvents();
    mayasim::host::clearOutput();
}

void GuiTest::TearDown()
{
    mayasim::gui::closeMainWindow();
}

std::vector<std::string> GuiTest::strings(const std::string& command)
{
    MStringArray result;
    EXPECT_TRUE(MGlobal::executeCommand(command.c_str(), result)) << command;
    std::vector<std::string> items;
    for (unsigned int i = 0; i < result.length(); ++i)
        items.push_back(result[i].asChar());
    return items;
}

std::vector<double> GuiTest::numbers(const std::string& command)
{
    MDoubleArray result;
    EXPECT_TRUE(MGlobal::executeCommand(command.c_str(), result)) << command;
    std::vector<double> items;
    for (unsigned int i = 0; i < result.length(); ++i)
        items.push_back(result[i]);
    return items;
}

double GuiTest::number(const std::string& command)
{
    double result = 0;
    EXPECT_TRUE(MGlobal::executeCommand(command.c_str(), result)) << command;
    return result;
}

std::string GuiTest::lastError()
{
    std::string error;
    for (const auto& line : mayasim::host::output())
        if (line.kind == mayasim::host::OutputLine::Kind::Error)
            error = line.text;
    return error;
}
