// Overlays on the host's time slider, checked by the pixels a person sees.
#include "GuiApplication.h"
#include "TimeSliderTest.h"

#include "Ui/TimelineOverlay/Operations.h"

#include <maya/MGlobal.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <maya/MQtUtil.h>
#include <mayasim/Gui.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QWidget>

using ::testing::HasSubstr;

namespace {

// Columns and rows where two images differ.
QRect changed(const QImage& before, const QImage& after)
{
    QRect area;
    for (int y = 0; y < before.height(); ++y)
        for (int x = 0; x < before.width(); ++x)
            if (before.pixel(x, y) != after.pixel(x, y))
                area |= QRect(x, y, 1, 1);
    return area;
}

int countOf(const QImage& image, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == colour;
    return count;
}

} // namespace

class TimelineOverlayTest : public TimeSliderTest
{
protected:
    void SetUp() override
    {
        TimeSliderTest::SetUp();
        if (!HasFatalFailure())
            fBare = image();
    }

    // The overlay's band: where the slider looks different from without it.
    QRect band() { return changed(fBare, image()); }

    QImage fBare;
};

TEST_F(TimelineOverlayTest, BandCoversTheRangeClippedToThePlaybackRange)
{
    // Settings on the call that creates the overlay are lost: it shows its
    // defaults, the whole playback range.
    ASSERT_TRUE(mel("OVTimelineOverlay -show true -startRange 50 -endRange 50 -alpha 255 band"));
    const int height = fSlider->height();
    EXPECT_EQ(band(), QRect(0, 0, 500, height));
    const QColor track = fBare.pixelColor(250, height / 2);
    const QColor blended = image().pixelColor(250, height / 2);
    EXPECT_NEAR(blended.green(), track.green() + (255 - track.green()) * 80 / 255.0, 2);
    EXPECT_NEAR(blended.red(), track.red() * (1 - 80 / 255.0), 2);

    // One frame of 100 over 500 pixels is 5 pixels wide.
    ASSERT_TRUE(mel("OVTimelineOverlay -startRange 11 -endRange 11 band"));
    EXPECT_EQ(band(), QRect(50, 0, 5, height));
    // Beyond the playback range on both sides: clipped to it.
    ASSERT_TRUE(mel("OVTimelineOverlay -startRange -20 -endRange 300 band"));
    EXPECT_EQ(band(), QRect(0, 0, 500, height));
    // A changed playback range shows on the next paint; a resize is followed.
    ASSERT_TRUE(mel("OVTimelineOverlay -startRange 41 -endRange 60 band"));
    ASSERT_TRUE(mel("playbackOptions -min 1 -max 50"));
    fSlider->setFixedWidth(800);
    ASSERT_TRUE(mel("OVTimelineOverlay -show false band"));
    fBare = image();
    ASSERT_TRUE(mel("OVTimelineOverlay -show true band"));
    EXPECT_EQ(band(), QRect(640, 0, 160, height));

    // A start after the end paints nothing.
    ASSERT_TRUE(mel("OVTimelineOverlay -startRange 30 -endRange 20 band"));
    EXPECT_TRUE(band().isEmpty());
    EXPECT_TRUE(reports().empty());
}

TEST_F(TimelineOverlayTest, ColoursLineIconTextAndClamps)
{
    ASSERT_TRUE(mel("OVTimelineOverlay -show true mark"));
    ASSERT_TRUE(mel("OVTimelineOverlay -sr 21 -er 40 -bc 0 0 255 -a 300 -sl true -lw 4 -lc 255 0 0 mark"));
    const int height = fSlider->height();
    const int middle = height / 2;
    QImage shot = image();
    // Alpha is clamped to 255 and applies to the band only.
    EXPECT_EQ(shot.pixelColor(150, 2), QColor(0, 0, 255));
    EXPECT_EQ(shot.pixelColor(150, middle), QColor(255, 0, 0));
    EXPECT_EQ(countOf(shot, qRgb(255, 0, 0)), 100 * 4);
    // Colours outside 0..255 are ignored; a line width of 0 is 1.
    ASSERT_TRUE(mel("OVTimelineOverlay -bc 0 300 0 -lc -1 0 0 -lw 0 mark"));
    shot = image();
    EXPECT_EQ(shot.pixelColor(150, 2), QColor(0, 0, 255));
    EXPECT_EQ(countOf(shot, qRgb(255, 0, 0)), 100);
    // Alpha -1 is 0: the band disappears, the line stays.
    ASSERT_TRUE(mel("OVTimelineOverlay -a -1 mark"));
    shot = image();
    EXPECT_EQ(shot.pixelColor(150, 2), fBare.pixelColor(150, 2));
    EXPECT_EQ(countOf(shot, qRgb(255, 0, 0)), 100);

    // An icon of 3 pixels is drawn at 8, centred on the band.
    ASSERT_TRUE(mel("OVTimelineOverlay -sl false -a 255 -bc 0 0 255 mark"));
    const QString icon = QDir::temp().filePath(QStringLiteral("orvane_overlay_icon.png"));
    QImage square(32, 32, QImage::Format_ARGB32);
    square.fill(QColor(255, 255, 0));
    ASSERT_TRUE(square.save(icon));
    ASSERT_TRUE(mel("OVTimelineOverlay -si true -ics 3 -ip \"" + icon.toStdString() + "\" mark"));
    shot = image();
    EXPECT_EQ(countOf(shot, qRgb(255, 255, 0)), 64);
    EXPECT_EQ(shot.pixelColor(150, middle), QColor(255, 255, 0));
    // A missing icon draws as if there were none.
    ASSERT_TRUE(mel("OVTimelineOverlay -ip \"/no/such/icon.png\" mark"));
    EXPECT_EQ(countOf(image(), qRgb(255, 255, 0)), 0);

    // Text in its own colour, inside the band; a text size of -2 is automatic.
    ASSERT_TRUE(mel("OVTimelineOverlay -si false -t \"Offset\" -tc 255 255 0 -ts 0 mark"));
    const QImage automatic = image();
    const QRect text = changed(fBare, automatic).intersected(QRect(0, 0, 100, height));
    EXPECT_TRUE(text.isEmpty());
    EXPECT_GT(countOf(automatic, qRgb(255, 255, 0)), 20);
    ASSERT_TRUE(mel("OVTimelineOverlay -ts -2 mark"));
    EXPECT_EQ(image(), automatic);
    // A new overlay's text is bold and italic: turning either off changes it.
    ASSERT_TRUE(mel("OVTimelineOverlay -tb false mark"));
    const QImage upright = image();
    EXPECT_NE(upright, automatic);
    ASSERT_TRUE(mel("OVTimelineOverlay -tb true -ti false mark"));
    EXPECT_NE(image(), automatic);
    EXPECT_NE(image(), upright);
    // Icon and text together: the icon left of the text, both in the band.
    ASSERT_TRUE(mel("OVTimelineOverlay -ti true -si true -ics 16 -ip \"" + icon.toStdString() + "\" mark"));
    shot = image();
    EXPECT_GT(countOf(shot, qRgb(255, 255, 0)), 16 * 16 + 20);
    EXPECT_TRUE(changed(fBare, shot).intersected(QRect(0, 0, 100, height)).isEmpty());
    ASSERT_TRUE(mel("mayasimUi -screenshot \"" + QDir::temp().filePath("orvane_overlay.png").toStdString()
                    + "\" timeControl1"));
}

TEST_F(TimelineOverlayTest, ExistsVisibleRemoveAndReports)
{
    int answer = -1;
    ASSERT_TRUE(MGlobal::executeCommand("OVTimelineOverlay -exists a", answer));
    EXPECT_EQ(answer, 0);
    ASSERT_TRUE(MGlobal::executeCommand("OVTimelineOverlay -visible a", answer));
    EXPECT_EQ(answer, 0);
    // A setting alone makes an entry without a widget.
    ASSERT_TRUE(mel("OVTimelineOverlay -alpha 10 a"));
    ASSERT_TRUE(MGlobal::executeCommand("OVTimelineOverlay -exists a", answer));
    EXPECT_EQ(answer, 1);
    ASSERT_TRUE(MGlobal::executeCommand("OVTimelineOverlay -visible a", answer));
    EXPECT_EQ(answer, 0);
    ASSERT_TRUE(mel("OVTimelineOverlay -show true a"));
    ASSERT_TRUE(MGlobal::executeCommand("OVTimelineOverlay -visible a", answer));
    EXPECT_EQ(answer, 1);
    ASSERT_TRUE(mel("OVTimelineOverlay -show false a"));
    ASSERT_TRUE(MGlobal::executeCommand("OVTimelineOverlay -visible a", answer));
    EXPECT_EQ(answer, 0);
    EXPECT_TRUE(reports().empty());

    EXPECT_FALSE(mel("OVTimelineOverlay -remove -show true a"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("can't use -remove with -show"));
    ASSERT_TRUE(MGlobal::executeCommand("OVTimelineOverlay -exists a", answer));
    EXPECT_EQ(answer, 1);
    ASSERT_TRUE(mel("OVTimelineOverlay -remove a"));
    ASSERT_TRUE(MGlobal::executeCommand("OVTimelineOverlay -exists a", answer));
    EXPECT_EQ(answer, 0);
    EXPECT_TRUE(fSlider->findChildren<TimelineOverlay::Operations*>().isEmpty());
    ASSERT_TRUE(mel("OVTimelineOverlay -remove unknown"));

    EXPECT_FALSE(mel("OVTimelineOverlay \"\""));
    EXPECT_FALSE(mel("OVTimelineOverlay -alpha 1e400 a"));
    const auto blocks = reports();
    ASSERT_EQ(blocks.size(), 3u);
    EXPECT_THAT(blocks[1], HasSubstr("name is empty"));
    EXPECT_THAT(blocks[2], HasSubstr("[-a, -alpha] flag needs a finite number"));
}

TEST_F(TimelineOverlayTest, UnloadDestroysEveryOverlayAndBatchChangesNothing)
{
    ASSERT_TRUE(mel("OVTimelineOverlay -show true one"));
    ASSERT_TRUE(mel("OVTimelineOverlay -show true two"));
    ASSERT_TRUE(mel("OVTimelineOverlay -show false two"));
    EXPECT_EQ(fSlider->findChildren<TimelineOverlay::Operations*>().size(), 2);
    ASSERT_TRUE(mel("unloadPlugin orvane"));
    EXPECT_TRUE(fSlider->findChildren<TimelineOverlay::Operations*>().isEmpty());
    EXPECT_FALSE(TimelineOverlay::exists(QStringLiteral("one")));
    EXPECT_EQ(image(), fBare);

    // Without the interface: a report, and no entry made.
    mayasim::gui::closeMainWindow();
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    mayasim::host::clearOutput();
    EXPECT_FALSE(mel("OVTimelineOverlay -show true one"));
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_THAT(reports()[0], HasSubstr("overlays need Maya's interface"));
    EXPECT_FALSE(TimelineOverlay::exists(QStringLiteral("one")));
}
