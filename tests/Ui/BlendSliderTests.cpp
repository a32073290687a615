// The blend sliders in the panel, driven by real mouse events: a drag blends
// live in one undo step and springs back, presets send their commands, the
// handle and the pies show the type's colour, prefs.json follows.
#include "DataFolderTest.h"
#include "FileBytes.h"

#include "KeyBlending/Data.h"
#include "TangentBlending/Manager.h"
#include "Ui/KeySlider.h"
#include "Ui/Main.h"
#include "Ui/Manager.h"
#include "Ui/TangentSlider.h"
#include "Ui/TimelineOverlay/Operations.h"
#include "Ui/Tools.h"
#include "Utils/File/PluginManager.h"

#include <maya/MGlobal.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <maya/MQtUtil.h>
#include <maya/MStringArray.h>
#include <mayasim/Gui.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLayout>
#include <QMenu>
#include <QStyle>
#include <QStyleOptionSlider>
// Mouse events go through the platform as a user's do, so that moves with a
// button held drag, and modifiers reach QGuiApplication.
#define QTEST_QPA_MOUSE_HANDLING
#include <QTest>
#include <QTimer>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

std::vector<std::string> sentSince()
{
    MStringArray result;
    EXPECT_TRUE(MGlobal::executeCommand("mayasimHost -q -sent", result));
    std::vector<std::string> sent;
    for (unsigned int i = 0; i < result.length(); ++i) {
        const std::string line = result[i].asChar();
        if (line.find("mayasimHost") == std::string::npos && line.find(" OV") != std::string::npos)
            sent.push_back(line);
    }
    MGlobal::executeCommand("mayasimHost -clearSent");
    return sent;
}

// The widgets stored in prefs.json, left to right.
QJsonArray storedWidgets()
{
    QFile file(File::PluginManager::pluginFilePath(QStringLiteral("prefs.json")));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QJsonDocument::fromJson(file.readAll()).object().value("widgets").toArray();
}

bool near(const QColor& a, const QColor& b, int tolerance = 2)
{
    return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance &&
           std::abs(a.blue() - b.blue()) <= tolerance;
}

} // namespace

class BlendSliderTest : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        mayasim::gui::openMainWindow(1000, 600);
        // As the overlay tests have it: frame f covers x from 5 (f - 1) to 5 f - 1.
        fTimeSlider = MQtUtil::findControl("timeControl1");
        ASSERT_NE(fTimeSlider, nullptr);
        fTimeSlider->setFixedWidth(500);
        ASSERT_TRUE(mel("playbackOptions -min 1 -max 100"));
        // A check made moments ago: no test of the panel goes to the network.
        QFile stamp(File::PluginManager::pluginFilePath(QStringLiteral("orvane_update.txt")));
        ASSERT_TRUE(stamp.open(QIODevice::WriteOnly));
        stamp.close();
        ASSERT_TRUE(mel("orvane"));
        QApplication::processEvents();

        ASSERT_TRUE(mel("createNode transform -n obj"));
        keyPlug("obj.tx", {{1, 0}, {5, 10}, {9, 40}, {13, 20}});
        keyPlug("obj.ty", {{1, 3}, {5, -6}, {9, 7}});
        ASSERT_TRUE(mayasim::host::selectKeys("obj_translateX", {1, 2}));
        ASSERT_TRUE(mayasim::host::selectKeys("obj_translateY", {1}));
        ASSERT_TRUE(mel("select -add obj"));
        MGlobal::executeCommand("mayasimHost -clearSent");
    }

    void TearDown() override
    {
        // No modifier stays held for the tests that follow.
        if (panel())
            QTest::mouseMove(panel());
        DataFolderTest::TearDown();
        mayasim::gui::closeMainWindow();
    }

    static Ui::Main* panel() { return Ui::Manager::instance().panel(); }

    // The add menu's entry of that kind, as a right press on the panel picks it.
    template <class Slider>
    static Slider* addSlider(const char* kind)
    {
        const std::vector<Ui::Tool>& tools = Ui::tools();
        QAction entry;
        for (size_t row = 0; row < tools.size(); ++row)
            if (QLatin1String(tools[row].kind) == QLatin1String(kind))
                entry.setData(static_cast<int>(row));
        panel()->onContextMenu(&entry);
        panel()->window()->resize(700, 120);
        QApplication::processEvents();
        // The newest slider is the first of the row.
        QLayout* row = panel()->findChild<Slider*>()->parentWidget()->layout();
        return qobject_cast<Slider*>(row->itemAt(0)->widget());
    }

    static Ui::HandleSlider* handleOf(QWidget* slider) { return slider->findChild<Ui::HandleSlider*>(); }

    static QRect handleRect(Ui::HandleSlider* handle)
    {
        QStyleOptionSlider option;
        option.initFrom(handle);
        option.orientation = Qt::Horizontal;
        option.minimum = handle->minimum();
        option.maximum = handle->maximum();
        option.sliderPosition = handle->sliderPosition();
        option.sliderValue = handle->value();
        option.subControls = QStyle::SC_All;
        return handle->style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, handle);
    }

    // A press at the handle's centre with the modifiers held; the point pressed.
    static QPoint press(Ui::HandleSlider* handle, Qt::KeyboardModifiers modifiers)
    {
        const QPoint start = handleRect(handle).center();
        QTest::mousePress(handle, Qt::LeftButton, modifiers, start);
        EXPECT_EQ(QGuiApplication::keyboardModifiers(), modifiers);
        return start;
    }
    // Moves by each offset in turn (pixels from the press), the keys held
    // changed to `later` after the first; the handle's value at the end.
    static int moveThrough(Ui::HandleSlider* handle, const QPoint& start, const std::vector<int>& offsets,
                           Qt::KeyboardModifiers later)
    {
        for (size_t i = 0; i < offsets.size(); ++i) {
            QTest::mouseMove(handle, start + QPoint(offsets[i], 0));
            if (i == 0) {
                QTest::keyPress(handle->window()->windowHandle(), Qt::Key_Alt, later);
                EXPECT_EQ(QGuiApplication::keyboardModifiers(), later);
            }
        }
        return handle->value();
    }
    static void release(Ui::HandleSlider* handle, const QPoint& at, Qt::KeyboardModifiers modifiers)
    {
        QTest::mouseRelease(handle, Qt::LeftButton, modifiers, at);
    }

    // The scene a one-shot command leaves, undone again.
    static std::string sceneAfter(const std::string& command)
    {
        EXPECT_TRUE(mel(command)) << command;
        const std::string text = sceneText();
        EXPECT_TRUE(mel("undo"));
        return text;
    }

    // A right press on the handle, choosing the entry from the menu it
    // opens; the menu's entries, separators as "---".
    static std::vector<std::string> chooseFromMenu(Ui::HandleSlider* handle, const QString& entry)
    {
        std::vector<std::string> entries;
        bool chosen = false;
        QTimer::singleShot(0, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (!menu)
                return;
            for (QAction* action : menu->actions()) {
                entries.push_back(action->isSeparator() ? "---" : action->text().toStdString());
                if (action->text() == entry && !chosen) {
                    chosen = true;
                    menu->close();
                    action->trigger();
                }
            }
            menu->close();
        });
        QTest::mousePress(handle, Qt::RightButton, {}, handleRect(handle).center());
        QTest::mouseRelease(handle, Qt::RightButton, {}, handleRect(handle).center());
        EXPECT_TRUE(chosen) << entry.toStdString();
        return entries;
    }

    QImage timeSliderImage()
    {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 60)
            QApplication::processEvents(QEventLoop::AllEvents, 10);
        return fTimeSlider->grab().toImage().convertToFormat(QImage::Format_ARGB32);
    }

    QWidget* fTimeSlider = nullptr;
};

TEST_F(BlendSliderTest, EachKeyDragIsOneUndoStepComputedFromThePress)
{
    auto* slider = addSlider<Ui::KeySlider>("keyBlending");
    ASSERT_NE(slider, nullptr);
    Ui::HandleSlider* handle = handleOf(slider);
    const std::string before = sceneText();
    // Speeds fixed by the keys held at the press, whatever is held later.
    struct Case
    {
        Qt::KeyboardModifiers atPress;
        Qt::KeyboardModifiers later;
        double speed;
    };
    const std::vector<Case> cases = {{Qt::NoModifier, Qt::ControlModifier | Qt::ShiftModifier, 1.0},
                                     {Qt::ControlModifier, Qt::NoModifier, 0.1},
                                     {Qt::ControlModifier | Qt::ShiftModifier, Qt::ControlModifier, 4.0},
                                     {Qt::ShiftModifier, Qt::ControlModifier, 1.0}};
    // Back and forth many times; the last offset decides.
    std::vector<int> offsets;
    for (int i = 0; i < 40; ++i)
        offsets.push_back((i % 2 ? -1 : 1) * (5 + 2 * i));
    offsets.push_back(17);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.speed);
        int reached = 0;
        std::string dragged;
        expectOneUndoStep([&] {
            const QPoint start = press(handle, c.atPress);
            EXPECT_THAT(sentSince(), ElementsAre("mel display:0 undo:1 idle:0 OVKeyBlending -internal"));
            EXPECT_NE(KeyBlending::activeData, nullptr);
            reached = moveThrough(handle, start, offsets, c.later);
            // The drag's steps write nothing; the release stores where it springs to.
            EXPECT_EQ(storedWidgets()[0].toObject().value("sliderValue").toInt(), 0);
            dragged = sceneText();
            release(handle, start + QPoint(offsets.back(), 0), c.later);
        });
        EXPECT_NE(reached, 0);
        // Springs back, sends no command per move, and lets go of the blend.
        EXPECT_EQ(handle->value(), 0);
        EXPECT_EQ(storedWidgets()[0].toObject().value("sliderValue").toInt(), 0);
        EXPECT_THAT(sentSince(), IsEmpty());
        EXPECT_EQ(KeyBlending::activeData, nullptr);
        EXPECT_EQ(sceneText(), dragged);
        ASSERT_TRUE(mel("undo"));
        EXPECT_EQ(sceneText(), before);
        const double value = reached / 100.0 * c.speed;
        EXPECT_EQ(dragged, sceneAfter("OVKeyBlending -bt 0 -bv " + QString::number(value, 'g', 17).toStdString()));
        sentSince();
    }
}

TEST_F(BlendSliderTest, APressWithNothingSelectedSendsNothing)
{
    auto* slider = addSlider<Ui::KeySlider>("keyBlending");
    auto* tangents = addSlider<Ui::TangentSlider>("tangentSlider");
    ASSERT_TRUE(mel("select -cl"));
    const std::string before = sceneText();
    MGlobal::executeCommand("mayasimHost -clearSent");
    for (QWidget* widget : {static_cast<QWidget*>(slider), static_cast<QWidget*>(tangents)}) {
        Ui::HandleSlider* handle = handleOf(widget);
        const QPoint start = press(handle, Qt::NoModifier);
        EXPECT_GT(moveThrough(handle, start, {60}, Qt::NoModifier), 0);
        release(handle, start + QPoint(60, 0), Qt::NoModifier);
        EXPECT_EQ(handle->value(), 0);
    }
    EXPECT_THAT(sentSince(), IsEmpty());
    EXPECT_EQ(sceneText(), before);
    EXPECT_EQ(KeyBlending::activeData, nullptr);
    EXPECT_EQ(TangentBlending::activeData, nullptr);
}

TEST_F(BlendSliderTest, KeyPresetsSendTheirCommandsAndFrameTypesTheCapturedFrames)
{
    auto* slider = addSlider<Ui::KeySlider>("keyBlending");
    Ui::HandleSlider* handle = handleOf(slider);
    const QList<Ui::PresetButton*> presets = slider->findChildren<Ui::PresetButton*>();
    ASSERT_EQ(presets.size(), 9);
    EXPECT_EQ(presets[3]->toolTip(), "-25%");
    EXPECT_EQ(slider->toolTip(), "ctrl: for nudge value \nctrl+shift: overshoot mode");
    const auto click = [&](int index, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(presets[index], Qt::LeftButton, modifiers, presets[index]->rect().center());
        const std::vector<std::string> sent = sentSince();
        EXPECT_EQ(sent.size(), 1u) << testing::PrintToString(sent);
        // The blend itself is the command's to test; one step each, undone here.
        EXPECT_TRUE(mel("undo"));
        return sent.empty() ? std::string() : sent[0];
    };
    EXPECT_EQ(click(6, Qt::NoModifier), "mel display:1 undo:1 idle:0 OVKeyBlending -blendType 0 -blendValue 0.5");
    EXPECT_EQ(click(6, Qt::ControlModifier | Qt::ShiftModifier),
              "mel display:1 undo:1 idle:0 OVKeyBlending -blendType 0 -blendValue 2");
    EXPECT_EQ(click(3, Qt::ControlModifier),
              "mel display:1 undo:1 idle:0 OVKeyBlending -blendType 0 -blendValue -0.025");
    EXPECT_EQ(click(0, Qt::ShiftModifier), "mel display:1 undo:1 idle:0 OVKeyBlending -blendType 0 -blendValue -1");
    // A preset leaves the handle alone.
    EXPECT_EQ(handle->value(), 0);

    // The type menu in its groups; "Frame" brings "P" and "N" and their
    // overlays at the ends of the playback range.
    QPushButton* prev = nullptr;
    QPushButton* next = nullptr;
    for (QPushButton* button : slider->findChildren<QPushButton*>()) {
        if (button->text() == "P")
            prev = button;
        if (button->text() == "N")
            next = button;
    }
    ASSERT_TRUE(prev && next);
    EXPECT_FALSE(prev->isVisible());
    const QImage bare = timeSliderImage();
    EXPECT_THAT(chooseFromMenu(handle, "Frame"),
                ElementsAre("Tween Machine", "Neighbors", "Frame", "Infinity", "---", "World Space",
                            "Neighbors World Space", "Frame World Space", "Infinity World Space", "---", "Pull Push",
                            "Default", "Ease", "Blend To Ease", "---", "Scale From Default", "Scale From Average",
                            "Scale From Frame", "Scale From Neighbor Left", "Scale From Neighbor Right", "---",
                            "Simplify Bake Keys", "Noise Wave", "Smooth Rough", "Gap Smoother", "---",
                            "Connect To Neighbors", "Buffer", "---", "Value Offset", "Value Offset Stagger", "---",
                            "Delete"));
    EXPECT_EQ(slider->blendType(), 2);
    EXPECT_EQ(storedWidgets()[0].toObject().value("blendType").toInt(), 2);
    EXPECT_TRUE(prev->isVisible() && next->isVisible());
    ASSERT_TRUE(mel(std::string("mayasimUi -screenshot \"" ORVANE_BINARY_DIR "/slider-frame-type.png\" ORVANE_WORKSPACE_CONTROL")));
    EXPECT_EQ(prev->toolTip(), "Capture current frame as previous (B)");
    EXPECT_EQ(next->toolTip(), "Capture current frame as next (N)");
    EXPECT_TRUE(TimelineOverlay::isVisible("PREV_FRAME_UI_OVERLAY"));
    EXPECT_TRUE(TimelineOverlay::isVisible("NEXT_FRAME_OVERLAY"));
    QImage shot = timeSliderImage();
    const int middle = shot.height() / 2;
    // Frame f is at x = 5 (f - 1) + 2.
    const auto marked = [&](const QImage& image, int frame) {
        return image.pixel(5 * (frame - 1) + 2, middle) != bare.pixel(5 * (frame - 1) + 2, middle);
    };
    EXPECT_TRUE(marked(shot, 1));
    EXPECT_TRUE(marked(shot, 100));
    EXPECT_FALSE(marked(shot, 7));
    EXPECT_EQ(click(7, Qt::NoModifier),
              "mel display:1 undo:1 idle:0 OVKeyBlending -blendType 2 -blendValue 0.75 -frameTimes 1 100");

    ASSERT_TRUE(mel("currentTime 7"));
    QTest::mouseClick(prev, Qt::LeftButton);
    ASSERT_TRUE(mel("currentTime 42"));
    QTest::mouseClick(next, Qt::LeftButton);
    shot = timeSliderImage();
    EXPECT_FALSE(marked(shot, 1));
    EXPECT_TRUE(marked(shot, 7));
    EXPECT_TRUE(marked(shot, 42));
    EXPECT_FALSE(marked(shot, 100));
    ASSERT_TRUE(mel(std::string("mayasimUi -screenshot \"" ORVANE_BINARY_DIR "/slider-frames.png\" timeControl1")));
    EXPECT_EQ(click(5, Qt::NoModifier),
              "mel display:1 undo:1 idle:0 OVKeyBlending -blendType 2 -blendValue 0.25 -frameTimes 7 42");

    // A drag of a frame type blends toward the captured frames.
    ASSERT_TRUE(mel("currentTime 1"));
    const QPoint start = press(handle, Qt::NoModifier);
    const int reached = moveThrough(handle, start, {25}, Qt::NoModifier);
    const std::string dragged = sceneText();
    release(handle, start + QPoint(25, 0), Qt::NoModifier);
    sentSince();
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(dragged, sceneAfter("OVKeyBlending -bt 2 -ft 7 42 -bv " +
                                  QString::number(reached / 100.0, 'g', 17).toStdString()));
    sentSince();

    // Another type hides them.
    chooseFromMenu(handle, "Neighbors");
    EXPECT_FALSE(prev->isVisible());
    EXPECT_FALSE(TimelineOverlay::isVisible("PREV_FRAME_UI_OVERLAY"));
    EXPECT_FALSE(TimelineOverlay::isVisible("NEXT_FRAME_OVERLAY"));
    EXPECT_EQ(click(8, Qt::NoModifier), "mel display:1 undo:1 idle:0 OVKeyBlending -blendType 1 -blendValue 1");
    // Choosing a frame type again starts from the playback range.
    chooseFromMenu(handle, "Scale From Frame");
    EXPECT_EQ(click(4, Qt::NoModifier),
              "mel display:1 undo:1 idle:0 OVKeyBlending -blendType 13 -blendValue 0 -frameTimes 1 100");
}

TEST_F(BlendSliderTest, TangentPresetsSendTheSidesThatAreChecked)
{
    auto* slider = addSlider<Ui::TangentSlider>("tangentSlider");
    Ui::HandleSlider* handle = handleOf(slider);
    const QList<Ui::PresetButton*> presets = slider->findChildren<Ui::PresetButton*>();
    const auto click = [&](int index, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(presets[index], Qt::LeftButton, modifiers, presets[index]->rect().center());
        const std::vector<std::string> sent = sentSince();
        EXPECT_EQ(sent.size(), 1u);
        mel("undo");
        return sent.empty() ? std::string() : sent[0];
    };
    EXPECT_EQ(click(6, Qt::ControlModifier | Qt::ShiftModifier),
              "mel display:1 undo:1 idle:0 OVTangentBlending -blendType 0 -blendValue 2 -inTangent -outTangent");
    EXPECT_THAT(chooseFromMenu(handle, "In"), ElementsAre("Auto", "Linear", "Spline", "Plateau", "Flat", "Clamped",
                                                          "---", "In", "Out", "---", "Delete"));
    EXPECT_EQ(click(2, Qt::NoModifier),
              "mel display:1 undo:1 idle:0 OVTangentBlending -blendType 0 -blendValue -0.5 -outTangent");
    chooseFromMenu(handle, "Out");
    chooseFromMenu(handle, "Plateau");
    EXPECT_EQ(slider->blendType(), 1);
    EXPECT_EQ(click(5, Qt::ControlModifier),
              "mel display:1 undo:1 idle:0 OVTangentBlending -blendType 1 -blendValue 0.025");
}

TEST_F(BlendSliderTest, ATangentDragIsOneUndoStepAndShowsTheRangeWhileItRuns)
{
    auto* slider = addSlider<Ui::TangentSlider>("tangentSlider");
    Ui::HandleSlider* handle = handleOf(slider);
    chooseFromMenu(handle, "Flat");
    mayasim::host::setTimeSliderHighlight(5, 9);
    const std::string before = sceneText();
    int reached = 0;
    std::string dragged;
    expectOneUndoStep([&] {
        const QPoint start = press(handle, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_THAT(sentSince(), ElementsAre("mel display:0 undo:1 idle:0 OVTangentBlending -internal"));
        EXPECT_TRUE(TimelineOverlay::isVisible("TANGENT_BLENDING_UI_OVERLAY"));
        reached = moveThrough(handle, start, {-30, 10, -20, -6}, Qt::NoModifier);
        dragged = sceneText();
        release(handle, start + QPoint(-6, 0), Qt::NoModifier);
    });
    EXPECT_LT(reached, 0);
    EXPECT_EQ(handle->value(), 0);
    EXPECT_EQ(TangentBlending::activeData, nullptr);
    EXPECT_FALSE(TimelineOverlay::exists("TANGENT_BLENDING_UI_OVERLAY"));
    EXPECT_EQ(sceneText(), dragged);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(sceneText(), before);
    EXPECT_EQ(dragged, sceneAfter("OVTangentBlending -blendType 2 -inTangent -outTangent -blendValue " +
                                  QString::number(reached / 100.0 * 4, 'g', 17).toStdString()));
    EXPECT_NE(dragged, before);
    sentSince();

    // The sides unchecked in the menu are left alone by a drag too.
    chooseFromMenu(handle, "In");
    const QPoint again = press(handle, Qt::NoModifier);
    reached = moveThrough(handle, again, {25}, Qt::NoModifier);
    dragged = sceneText();
    release(handle, again + QPoint(25, 0), Qt::NoModifier);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(dragged, sceneAfter("OVTangentBlending -blendType 2 -outTangent -blendValue " +
                                  QString::number(reached / 100.0, 'g', 17).toStdString()));
    EXPECT_NE(dragged, sceneAfter("OVTangentBlending -blendType 2 -inTangent -outTangent -blendValue " +
                                  QString::number(reached / 100.0, 'g', 17).toStdString()));

    // The key slider shows its own range overlay only while it drags.
    auto* keys = addSlider<Ui::KeySlider>("keyBlending");
    Ui::HandleSlider* keyHandle = handleOf(keys);
    const QPoint start = press(keyHandle, Qt::NoModifier);
    EXPECT_TRUE(TimelineOverlay::isVisible("KEY_BLENDING_UI_OVERLAY"));
    moveThrough(keyHandle, start, {20}, Qt::NoModifier);
    release(keyHandle, start + QPoint(20, 0), Qt::NoModifier);
    EXPECT_FALSE(TimelineOverlay::exists("KEY_BLENDING_UI_OVERLAY"));
    // Sliders go to the front of the row, the newest first.
    const QJsonArray stored = storedWidgets();
    ASSERT_EQ(stored.size(), 2);
    EXPECT_EQ(stored[0].toObject().value("kind").toString(), "keyBlending");
    EXPECT_EQ(stored[1].toObject().value("kind").toString(), "tangentSlider");
    EXPECT_EQ(stored[1].toObject().value("blendType").toInt(), 2);
}

TEST_F(BlendSliderTest, HandleAndPresetsShowTheTypeByPixel)
{
    auto* slider = addSlider<Ui::KeySlider>("keyBlending");
    Ui::HandleSlider* handle = handleOf(slider);
    Ui::PresetButton* quarter = slider->findChildren<Ui::PresetButton*>()[5];
    const auto check = [&](const QColor& colour, const QColor& text, const QString& initials) {
        SCOPED_TRACE(initials.toStdString());
        EXPECT_EQ(handle->text(), initials);
        EXPECT_EQ(handle->textColor(), text);
        QApplication::processEvents();
        const QImage image = handle->grab().toImage();
        const QRect rect = handleRect(handle);
        // The handle is 50 pixels wide: left of the initials is its colour.
        EXPECT_TRUE(near(image.pixelColor(rect.center().x() - 18, rect.center().y()), colour));
        // The initials are drawn in the text colour.
        int inText = 0;
        for (int x = rect.center().x() - 12; x <= rect.center().x() + 12; ++x)
            for (int y = 0; y < image.height(); ++y)
                inText += near(image.pixelColor(x, y), text, 10);
        EXPECT_GT(inText, 4);
        // The wedge of 25% runs clockwise from 12 o'clock in the type's colour.
        const QImage pie = quarter->grab().toImage();
        const QPointF centre((quarter->width() - 6 - 17) * 0.5 + 3 + 8.5, 5 + 8.5);
        EXPECT_TRUE(near(pie.pixelColor((centre + QPointF(4, -4)).toPoint()), colour));
        EXPECT_TRUE(near(pie.pixelColor((centre + QPointF(-4, 4)).toPoint()), QColor("#48AAB5")));
    };
    check(QColor("#F2E56C"), QColor("#1A1A1A"), "TM");
    chooseFromMenu(handle, "Scale From Average");
    check(QColor("#34495E"), QColor("#F0F0F0"), "SF");
    ASSERT_TRUE(mel(std::string("mayasimUi -screenshot \"" ORVANE_BINARY_DIR "/slider-key.png\" ORVANE_WORKSPACE_CONTROL")));

    // While the mouse is over a preset its wedge takes the hover shade.
    QTest::mouseMove(quarter);
    ASSERT_TRUE(quarter->underMouse());
    const QImage pie = quarter->grab().toImage();
    const QPointF centre((quarter->width() - 6 - 17) * 0.5 + 3 + 8.5, 5 + 8.5);
    EXPECT_TRUE(near(pie.pixelColor((centre + QPointF(4, -4)).toPoint()), Ui::hoverShade(QColor("#34495E"))));
    EXPECT_NE(Ui::hoverShade(QColor("#34495E")).name(), QColor("#34495E").name());
    EXPECT_EQ(Ui::hoverShade(QColor("#95A5A6")).isValid(), true);
    EXPECT_EQ(Ui::hoverShade(QColor("#808080")), QColor("#808080").lighter(112));
    EXPECT_EQ(Ui::handleInitials(" frame  world space"), "FW");
    EXPECT_EQ(Ui::handleInitials("3d view"), "3V");
}

TEST_F(BlendSliderTest, StoredSlidersComeBackClampedAndUnloadMidDragLetsGo)
{
    ASSERT_TRUE(writeBytes(File::PluginManager::pluginFilePath(QStringLiteral("prefs.json")), R"({"version": 1,
        "widgets": [{"kind": "tangentSlider", "blendType": 99, "sliderValue": -500},
                    {"kind": "keyBlending", "blendType": 99, "sliderValue": 500}]})"));
    Ui::Manager::destroy();
    ASSERT_TRUE(mel("orvane"));
    QApplication::processEvents();
    auto* tangents = panel()->findChild<Ui::TangentSlider*>();
    auto* keys = panel()->findChild<Ui::KeySlider*>();
    ASSERT_TRUE(tangents && keys);
    EXPECT_EQ(tangents->blendType(), 6);
    EXPECT_EQ(tangents->value(), -100);
    EXPECT_EQ(keys->blendType(), 24);
    EXPECT_EQ(keys->value(), 100);
    EXPECT_EQ(handleOf(keys)->text(), "BT");
    // Nothing ran while they were restored.
    EXPECT_THAT(sentSince(), IsEmpty());

    // The panel goes at unload, mid-drag; the blend ends with it.
    for (int round = 0; round < 2; ++round) {
        Ui::BlendSliderBase* slider = round == 0 ? static_cast<Ui::BlendSliderBase*>(keys) : tangents;
        Ui::HandleSlider* handle = handleOf(slider);
        handle->setValue(0);
        const QPoint start = press(handle, Qt::NoModifier);
        moveThrough(handle, start, {30}, Qt::NoModifier);
        ASSERT_TRUE(round == 0 ? KeyBlending::activeData != nullptr : TangentBlending::activeData != nullptr);
        ASSERT_TRUE(mel("unloadPlugin orvane"));
        EXPECT_EQ(KeyBlending::activeData, nullptr);
        EXPECT_EQ(TangentBlending::activeData, nullptr);
        // The person lets go over the main window, where the handle was:
        // held, the button would turn later moves into drags.
        QTest::mouseRelease(MQtUtil::mainWindow(), Qt::LeftButton);
        EXPECT_EQ(QGuiApplication::mouseButtons(), Qt::NoButton);
        ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
        ASSERT_TRUE(mel("orvane"));
        QApplication::processEvents();
        tangents = panel()->findChild<Ui::TangentSlider*>();
        keys = panel()->findChild<Ui::KeySlider*>();
        ASSERT_TRUE(tangents && keys);
    }
}
