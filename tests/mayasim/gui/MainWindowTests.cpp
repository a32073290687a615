// The main window, MQtUtil, the time slider and the channel box, driven
// through mayasimUi as a person would.
#include "GuiTest.h"

#include <maya/MQtUtil.h>

#include <QtGui/QCursor>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QTableWidget>

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST_F(GuiTest, MQtUtilFindsTheHostControls)
{
    QWidget* window = MQtUtil::mainWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(MGlobal::mayaState(), MGlobal::kInteractive);
    EXPECT_EQ(window->objectName(), "MayaWindow");
    EXPECT_EQ(MQtUtil::findWindow("MayaWindow"), window);

    // The time slider by its short name, by its full path and through $gPlayBackSlider.
    QWidget* slider = MQtUtil::findControl(text("$s = $gPlayBackSlider").c_str());
    ASSERT_NE(slider, nullptr);
    const MString path = MQtUtil::fullName(slider);
    EXPECT_EQ(std::string(path.asChar()).rfind("MayaWindow|", 0), 0u) << path.asChar();
    EXPECT_EQ(MQtUtil::findControl(path), slider);
    EXPECT_EQ(MQtUtil::findControl("MayaWindow|timeControl1"), slider);
    EXPECT_EQ(MQtUtil::findControl("timeControl1", window), slider);
    EXPECT_EQ(MQtUtil::findControl("noSuchControl"), nullptr);
    EXPECT_EQ(MQtUtil::findLayout("timeControl1"), nullptr); // a control, not a layout
    EXPECT_NE(MQtUtil::findLayout("TimeSliderLayout"), nullptr);
    EXPECT_EQ(MQtUtil::findWindow("timeControl1"), nullptr);
    EXPECT_NE(MQtUtil::findControl(text("$c = $gChannelBoxName").c_str()), nullptr);

    EXPECT_EQ(MQtUtil::toQString("caf\xc3\xa9"), QString::fromUtf8("caf\xc3\xa9"));
    EXPECT_STREQ(MQtUtil::toMString(QString::fromUtf8("caf\xc3\xa9")).asChar(), "caf\xc3\xa9");
    std::unique_ptr<QIcon> icon(MQtUtil::createIcon("timeplay.png"));
    ASSERT_NE(icon, nullptr);
    EXPECT_FALSE(icon->isNull());
    EXPECT_EQ(MQtUtil::createPixmap("noSuchIcon.png"), nullptr);

    // The queries a script reads the interface with.
    EXPECT_EQ(strings("mayasimUi -q -find \"Play forwards\""), std::vector<std::string>{"MayaWindow|MainPane|TimeSliderLayout|playbackControls|playForwards"});
    EXPECT_EQ(text("mayasimUi -q -toolTip playForwards"), "Play forwards");
    EXPECT_EQ(text("mayasimUi -q -visible timeControl1"), "1");
    EXPECT_EQ(text("mayasimUi -q -exists noSuchControl"), "0");
    EXPECT_THAT(strings("mayasimUi -q -children TimeSliderLayout"),
                ElementsAre("MayaWindow|MainPane|TimeSliderLayout|timeControl1 QWidget timeControl1",
                            "MayaWindow|MainPane|TimeSliderLayout|playbackControls QWidget playbackControls"));

    // The cursor, where tools read it.
    ASSERT_TRUE(mel("mayasimUi -cursor 12 7 timeControl1"));
    EXPECT_EQ(QCursor::pos(), slider->mapToGlobal(QPoint(12, 7)));

    // Bad numbers are reported, not acted on.
    EXPECT_FALSE(mel("mayasimUi -click -at nan 3 timeControl1"));
    EXPECT_FALSE(mel("mayasimUi -drag 0 0 1e300 0 timeControl1"));
    EXPECT_THAT(lastError(), HasSubstr("Invalid number: 1e300"));
    EXPECT_FALSE(mel("mayasimUi -pump -5"));
    EXPECT_FALSE(mel("mayasimUi -click -button sideways timeControl1"));
    EXPECT_FALSE(mel("mayasimUi -key \"Ctrl+Nonsense\""));
    EXPECT_THAT(lastError(), HasSubstr("Invalid key: Ctrl+Nonsense"));

    // Without the interface (batch mode) there is no main window and no mayasimUi.
    mayasim::gui::closeMainWindow();
    EXPECT_EQ(MQtUtil::mainWindow(), nullptr);
    EXPECT_EQ(MGlobal::mayaState(), MGlobal::kLibraryApp);
    EXPECT_EQ(MQtUtil::findControl("timeControl1"), nullptr);
    EXPECT_FALSE(mel("mayasimUi -q -exists timeControl1"));
    EXPECT_THAT(lastError(), HasSubstr("not available in batch mode"));
}

namespace {

// The x of a frame's middle on the time slider (frames 1 to 100).
int frameX(QWidget* slider, double frame)
{
    return static_cast<int>(8 + (frame - 1 + 0.5) * (slider->width() - 16) / 100.0);
}

} // namespace

TEST_F(GuiTest, TimeSliderClicksAndShiftDrags)
{
    ASSERT_TRUE(mel("playbackOptions -min 1 -max 100"));
    QWidget* slider = MQtUtil::findControl("timeControl1");
    ASSERT_NE(slider, nullptr);

    // A click moves the time.
    ASSERT_TRUE(mel("mayasimUi -click -at " + std::to_string(frameX(slider, 50)) + " 10 timeControl1"));
    EXPECT_EQ(number("currentTime -q"), 50);
    EXPECT_EQ(text("mayasimUi -q -text currentTimeField"), "50");
    EXPECT_EQ(number("mayasimUi -q -value currentTimeField"), 50);

    // A shift-drag highlights the frames it passes, first to last; timeControl
    // answers one frame past the last.
    ASSERT_TRUE(mel("mayasimUi -drag " + std::to_string(frameX(slider, 20)) + " 10 " +
                    std::to_string(frameX(slider, 10)) + " 10 -steps 4 -modifiers shift timeControl1"));
    EXPECT_EQ(numbers("timeControl -q -rangeArray $gPlayBackSlider"), (std::vector<double>{10, 21}));
    EXPECT_EQ(number("currentTime -q"), 50);

    // A plain click drops the highlight.
    ASSERT_TRUE(mel("mayasimUi -click -at " + std::to_string(frameX(slider, 70)) + " 10 timeControl1"));
    EXPECT_EQ(text("timeControl -q -rangeVisible $gPlayBackSlider"), "0");
    EXPECT_EQ(number("currentTime -q"), 70);

    // The play buttons step the time and loop over the playback range.
    ASSERT_TRUE(mel("mayasimUi -click goToEnd; mayasimUi -click stepForward"));
    EXPECT_EQ(number("currentTime -q"), 1);
    ASSERT_TRUE(mel("mayasimUi -click playForwards; mayasimUi -pump 300; mayasimUi -click playForwards"));
    EXPECT_GT(number("currentTime -q"), 2);
}

TEST_F(GuiTest, ChannelBoxHighlightByMouse)
{
    ASSERT_TRUE(mel("createNode transform -n box; setKeyframe box.ty; select box"));
    auto* box = qobject_cast<QTableWidget*>(MQtUtil::findControl("mainChannelBox"));
    ASSERT_NE(box, nullptr);
    ASSERT_TRUE(mel("mayasimUi -q -exists mainChannelBox")); // brings the box up to date
    const auto rowAt = [&](const QString& label) {
        const auto items = box->findItems(label, Qt::MatchExactly);
        EXPECT_EQ(items.size(), 1) << label.toStdString();
        const QPoint middle = box->visualItemRect(items.at(0)).center();
        return std::to_string(middle.x()) + " " + std::to_string(middle.y());
    };
    EXPECT_EQ(box->item(0, 0)->text(), "box");
    EXPECT_EQ(box->item(1, 0)->text(), "Translate X");

    ASSERT_TRUE(mel("mayasimUi -click -at " + rowAt("Translate Y") + " mainChannelBox"));
    ASSERT_TRUE(mel("mayasimUi -click -modifiers ctrl -at " + rowAt("Rotate Z") + " mainChannelBox"));
    EXPECT_THAT(strings("channelBox -q -selectedMainAttributes $gChannelBoxName"), ElementsAre("ty", "rz"));
    ASSERT_TRUE(mel("mayasimUi -click -modifiers shift -at " + rowAt("Scale Y") + " mainChannelBox"));
    // Shift adds the channels from the last one clicked.
    EXPECT_THAT(strings("channelBox -q -sma $gChannelBoxName"), ElementsAre("ty", "rz", "sx", "sy"));

    // The host's highlight shows in the box.
    ASSERT_TRUE(mel("mayasimHost -channelBox main \"sx\""));
    ASSERT_TRUE(mel("mayasimUi -q -exists mainChannelBox"));
    EXPECT_TRUE(box->findItems("Scale X", Qt::MatchExactly).at(0)->isSelected());
    EXPECT_FALSE(box->findItems("Translate Y", Qt::MatchExactly).at(0)->isSelected());

    // The nodes feeding the object are its INPUTS, those it feeds its OUTPUTS,
    // each a section of its own.
    ASSERT_TRUE(mel("createNode transform -n driver; connectAttr driver.tx box.tz; createNode transform -n follower; "
                    "connectAttr box.tx follower.tz; select box; mayasimUi -q -exists mainChannelBox"));
    std::vector<QString> labels;
    for (int row = 0; row < box->rowCount(); ++row)
        if (box->columnSpan(row, 0) == 2)
            labels.push_back(box->item(row, 0)->text());
    EXPECT_EQ(labels, (std::vector<QString>{"box", "INPUTS", "driver", "OUTPUTS", "follower"}));
    const auto rowIn = [&](const QString& label, int which) {
        QList<QTableWidgetItem*> items = box->findItems(label, Qt::MatchExactly);
        std::sort(items.begin(), items.end(), [](auto* a, auto* b) { return a->row() < b->row(); });
        box->scrollToItem(items.at(which)); // as a person scrolls to it
        const QPoint middle = box->visualItemRect(items.at(which)).center();
        return std::to_string(middle.x()) + " " + std::to_string(middle.y());
    };
    ASSERT_TRUE(mel("mayasimUi -click -at " + rowIn("Rotate X", 1) + " mainChannelBox"));
    ASSERT_TRUE(mel("mayasimUi -click -modifiers ctrl -at " + rowIn("Scale Z", 2) + " mainChannelBox"));
    EXPECT_THAT(strings("channelBox -q -selectedHistoryAttributes $gChannelBoxName"), ElementsAre("rx"));
    EXPECT_THAT(strings("channelBox -q -selectedOutputAttributes $gChannelBoxName"), ElementsAre("sz"));
    EXPECT_EQ(text("channelBox -q -selectedMainAttributes $gChannelBoxName"), "");
}

TEST_F(GuiTest, ScreenshotsAreTheSameOnEveryRun)
{
    ASSERT_TRUE(mel("createNode transform -n ball; setKeyframe -t 10 ball.tx; setKeyframe -t 30 ball.tx; select ball; "
                    "currentTime 12; mayasimHost -timeSliderHighlight 40 60"));
    ASSERT_TRUE(mel("mayasimUi -resize 900 500 MayaWindow"));
    const std::string first = ORVANE_BINARY_DIR "/gui_first.png", second = ORVANE_BINARY_DIR "/gui_second.png";
    ASSERT_TRUE(mel("mayasimUi -screenshot \"" + first + "\""));
    ASSERT_TRUE(mel("mayasimUi -pump 50; mayasimUi -screenshot \"" + second + "\""));
    const auto bytes = [](const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    EXPECT_FALSE(bytes(first).empty());
    EXPECT_EQ(bytes(first), bytes(second));

    // The slider's track is Maya's dark grey; a key is red.
    QWidget* slider = MQtUtil::findControl("timeControl1");
    EXPECT_EQ(text("mayasimUi -q -pixel 3 30 timeControl1"), "43 43 43 255");
    const int key = static_cast<int>(8 + (30 - 1) * (slider->width() - 16) / 120.0) + 1;
    EXPECT_EQ(text("mayasimUi -q -pixel " + std::to_string(key) + " 25 timeControl1"), "204 39 40 255");
}
