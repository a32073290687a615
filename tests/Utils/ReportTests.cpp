#include "Utils/Arithmetic.h"
#include "Utils/Report.h"
#include "Utils/TimeControl.h"

#include <maya/MFileIO.h>
#include <maya/MGlobal.h>
#include <mayasim/Host.h>

#include <gtest/gtest.h>

namespace {

TEST(Report, FramesMessageFunctionLineAndFileName)
{
    EXPECT_EQ(formatReport("something failed", "42", "/work/src/KeyBlending/Cmd.cpp", "doIt"),
              "\n===============[Orvane]===============\n"
              "Message: something failed\n\n"
              "Function: doIt\n"
              "Line: 42\n"
              "File: Cmd\n"
              "===============================================\n");
}

TEST(Report, EmptyMessageHasNoMessageLineAndFileKeepsItsFirstPiece)
{
    const QString block = formatReport(QString(), "7", "C:\\plugin\\src\\a.b.c", "f");
    EXPECT_FALSE(block.contains("Message"));
    EXPECT_TRUE(block.contains("\nFunction: f\nLine: 7\nFile: a\n"));
}

TEST(Report, GoesToTheScriptOutputAsInfo)
{
    mayasim::host::clearOutput();
    reportError("m", "1", "src/Utils/TimeControl.cpp", "rangeArray");
    ASSERT_EQ(mayasim::host::output().size(), 1u);
    EXPECT_EQ(mayasim::host::output()[0].kind, mayasim::host::OutputLine::Kind::Info);
    EXPECT_EQ(QString::fromStdString(mayasim::host::output()[0].text),
              formatReport("m", "1", "src/Utils/TimeControl.cpp", "rangeArray"));
}

TEST(Arithmetic, EdgesOfTheFormulas)
{
    EXPECT_EQ(remap(0.5, 2, 2, 7, 9), 7);
    EXPECT_EQ(remap(0, -1, 1, 0, 1), 0.5);
    EXPECT_EQ(remap(3, -1, 1, 0, 1), 2);
    EXPECT_EQ(slope(1, 0, 1, 5), 0);
    EXPECT_EQ(slope(0, 0, 2, 5), 2.5);
    EXPECT_EQ(lineThrough(3, 1, 2, 0.5), 3);
    EXPECT_TRUE(withinRange(1, 1, 2));
    EXPECT_FALSE(withinRange(2.5, 1, 2));
}

TEST(TimeSlider, HighlightOfTwoFramesIsARangeAndTheCurrentFrameIsNot)
{
    ASSERT_TRUE(MFileIO::newFile(true));
    MTime start, end;
    mayasim::host::setTimeSliderHighlight(10, 11);
    EXPECT_TRUE(timeSliderRange(start, end));
    EXPECT_EQ(start.value(), 10);
    EXPECT_EQ(end.value(), 11);

    mayasim::host::clearTimeSliderHighlight();
    ASSERT_TRUE(MGlobal::executeCommand("currentTime 10"));
    EXPECT_FALSE(timeSliderRange(start, end));
    EXPECT_EQ(start.value(), 10);
    EXPECT_EQ(end.value(), 10);
}

} // namespace
