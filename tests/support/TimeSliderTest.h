#pragma once
// A test with Maya's main window open and the plug-in loaded, its time
// slider 500 pixels wide over frames 1 to 100: frame f covers x from
// 5 (f - 1) to 5 f - 1. Checks look at the slider's pixels as shown.
#include "PluginTest.h"

#include <maya/MQtUtil.h>
#include <mayasim/Gui.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QWidget>

class TimeSliderTest : public PluginTest
{
protected:
    void SetUp() override
    {
        PluginTest::SetUp();
        mayasim::gui::openMainWindow(1000, 600);
        fSlider = MQtUtil::findControl("timeControl1");
        ASSERT_NE(fSlider, nullptr);
        fSlider->setFixedWidth(500);
        ASSERT_TRUE(mel("playbackOptions -min 1 -max 100"));
        QApplication::processEvents();
    }
    void TearDown() override
    {
        mayasim::gui::closeMainWindow();
        PluginTest::TearDown();
    }

    // The slider as shown: the idle work of 60 ms done, then the host's
    // refresh run by a query (its 50 ms timer can fire late on a busy
    // machine, leaving the slider a range behind).
    QImage image()
    {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 60)
            QApplication::processEvents(QEventLoop::AllEvents, 10);
        EXPECT_TRUE(mel("mayasimUi -q -exists timeControl1"));
        return fSlider->grab().toImage().convertToFormat(QImage::Format_ARGB32);
    }

    QWidget* fSlider = nullptr;
};
