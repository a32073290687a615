// Workspace controls, modal dialogs answered by mayasimUi, and mayasimHost.
#include "GuiTest.h"

#include <maya/MConditionMessage.h>
#include <maya/MEventMessage.h>
#include <maya/MMessage.h>
#include <maya/MQtUtil.h>
#include <maya/MTimerMessage.h>
#include <mayasim/Host.h>

#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>
#include <QtWidgets/QApplication>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QTabBar>

#include <gmock/gmock.h>

#include <algorithm>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST_F(GuiTest, WorkspaceControlLife)
{
    // The uiScript fills the control when it is made; a plug-in adds its
    // widgets through findControl and addWidgetToMayaLayout.
    ASSERT_TRUE(mel("workspaceControl -label \"Tool Panel\" -retain true -floating true "
                    "-uiScript \"createNode transform -n builtByUi\" toolPanel"));
    EXPECT_THAT(strings("ls builtByUi"), ElementsAre("builtByUi"));
    QWidget* control = MQtUtil::findControl("toolPanel");
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(MQtUtil::findLayout("toolPanel"), control);
    auto* label = new QLabel("Hello");
    label->setObjectName("greeting");
    EXPECT_TRUE(MQtUtil::addWidgetToMayaLayout(label, control));
    EXPECT_EQ(text("mayasimUi -q -text \"toolPanel|greeting\""), "Hello");
    EXPECT_EQ(MQtUtil::findControl("greeting", control), label);

    // A floating window titled by its label.
    EXPECT_EQ(text("workspaceControl -q -exists toolPanel"), "1");
    EXPECT_EQ(text("workspaceControl -q -floating toolPanel"), "1");
    EXPECT_EQ(text("workspaceControl -q -visible toolPanel"), "1");
    EXPECT_EQ(text("workspaceControl -q -label toolPanel"), "Tool Panel");
    EXPECT_TRUE(control->window()->isWindow());
    EXPECT_EQ(control->window()->windowTitle(), "Tool Panel");

    // A taken name is refused.
    EXPECT_FALSE(mel("workspaceControl toolPanel"));
    EXPECT_THAT(lastError(), HasSubstr("Object's name 'toolPanel' is not unique."));
    EXPECT_FALSE(mel("workspaceControl timeControl1"));

    // Closing a retained control hides it; -restore shows it again.
    ASSERT_TRUE(mel("workspaceControl -e -close toolPanel"));
    EXPECT_EQ(text("workspaceControl -q -exists toolPanel"), "1");
    EXPECT_EQ(text("workspaceControl -q -visible toolPanel"), "0");
    ASSERT_TRUE(mel("workspaceControl -e -restore toolPanel"));
    EXPECT_EQ(text("workspaceControl -q -visible toolPanel"), "1");

    // Docked into the main window, and floating again.
    ASSERT_TRUE(mel("workspaceControl -e -floating false toolPanel"));
    EXPECT_EQ(text("workspaceControl -q -floating toolPanel"), "0");
    auto* window = qobject_cast<QMainWindow*>(MQtUtil::mainWindow());
    auto* dock = qobject_cast<QDockWidget*>(control->parentWidget());
    ASSERT_NE(dock, nullptr);
    EXPECT_EQ(window->dockWidgetArea(dock), Qt::RightDockWidgetArea);
    EXPECT_EQ(control->window(), window);
    // A tab beside the channel box, brought to the front.
    EXPECT_EQ(window->tabifiedDockWidgets(dock).size(), 1);
    ASSERT_EQ(text("mayasimUi -q -visible toolPanel"), "1");
    const QList<QTabBar*> tabBars = window->findChildren<QTabBar*>();
    EXPECT_TRUE(std::any_of(tabBars.begin(), tabBars.end(), [](QTabBar* tabs) {
        return tabs->isVisible() && tabs->tabText(tabs->currentIndex()) == "Tool Panel";
    }));
    ASSERT_TRUE(mel("workspaceControl -e -floating true toolPanel"));
    EXPECT_EQ(text("workspaceControl -q -floating toolPanel"), "1");

    // The host rebuilds a control from its stored uiScript.
    ASSERT_TRUE(mel("workspaceControl -e -uiScript \"createNode transform -n rebuilt\" toolPanel"));
    ASSERT_TRUE(mel("mayasimUi -rebuild toolPanel"));
    EXPECT_THAT(strings("ls rebuilt"), ElementsAre("rebuilt"));
    EXPECT_EQ(MQtUtil::findControl("greeting"), nullptr);

    // Without -retain, closing deletes the control.
    ASSERT_TRUE(mel("workspaceControl -retain false -label Once oneShot"));
    ASSERT_TRUE(mel("workspaceControl -e -close oneShot"));
    QApplication::processEvents();
    EXPECT_EQ(text("workspaceControl -q -exists oneShot"), "0");
    EXPECT_FALSE(mel("workspaceControl -q -visible oneShot"));
    EXPECT_THAT(lastError(), HasSubstr("Object 'oneShot' not found."));
}

TEST_F(GuiTest, ModalDialogsAnsweredByTheDriver)
{
    // Given before the dialog opens, the answer waits for it.
    ASSERT_TRUE(mel("mayasimUi -dialog \"OK\" -value \"42\""));
    bool accepted = false;
    const int value = QInputDialog::getInt(MQtUtil::mainWindow(), "Frames", "How many frames?", 1, 0, 100, 1, &accepted);
    EXPECT_TRUE(accepted);
    EXPECT_EQ(value, 42);
    EXPECT_THAT(strings("mayasimUi -q -dialog"), ElementsAre("Frames", "How many frames?"));

    ASSERT_TRUE(mel("mayasimUi -dialog \"No\""));
    EXPECT_EQ(QMessageBox::question(MQtUtil::mainWindow(), "Delete", "Delete the keys?"), QMessageBox::No);
    EXPECT_THAT(strings("mayasimUi -q -dialog"), ElementsAre("Delete", "Delete the keys?"));

    // A colour, filled before pressing the button.
    ASSERT_TRUE(mel("mayasimUi -dialog \"OK\" -value \"1 0 0.5\""));
    const QColor colour = QColorDialog::getColor(Qt::white, MQtUtil::mainWindow(), "Colour");
    EXPECT_EQ(colour.name(), "#ff0080");
}

namespace {

int idleTicks = 0;
int timerCalls = 0;

} // namespace

TEST_F(GuiTest, HostDriverCommand)
{
    const std::string count = text("mayasimHost -q -callbackCount");
    MCallbackId idle = MEventMessage::addEventCallback("idle", [](void*) { ++idleTicks; });
    MCallbackId timer = MTimerMessage::addTimerCallback(0.5f, [](float, float, void*) { ++timerCalls; });
    EXPECT_EQ(std::stoi(text("mayasimHost -q -callbackCount")), std::stoi(count) + 2);
    idleTicks = timerCalls = 0;
    ASSERT_TRUE(mel("mayasimHost -idle 3"));
    EXPECT_EQ(idleTicks, 3);
    ASSERT_TRUE(mel("mayasimHost -advanceClock 1250"));
    EXPECT_EQ(timerCalls, 2);
    MMessage::removeCallback(idle);
    MMessage::removeCallback(timer);

    // Events and conditions that only Maya's interface raises.
    static std::vector<std::string> heard;
    heard.clear();
    const MCallbackId drag = MEventMessage::addEventCallback("DragRelease", [](void*) { heard.push_back("drag"); });
    const MCallbackId playing = MConditionMessage::addConditionCallback(
        "playingBack", [](bool state, void*) { heard.push_back(state ? "playing" : "stopped"); });
    ASSERT_TRUE(mel("mayasimHost -raiseEvent DragRelease; mayasimHost -condition playingBack on; "
                    "mayasimHost -condition playingBack off"));
    EXPECT_THAT(heard, ElementsAre("drag", "playing", "stopped"));
    MMessage::removeCallback(drag);
    MMessage::removeCallback(playing);

    // The panels' highlights, read back as Maya's queries give them.
    ASSERT_TRUE(mel("mayasimHost -channelBox main \"tx ry\" -timeSliderHighlight 5 9"));
    EXPECT_THAT(strings("channelBox -q -sma $gChannelBoxName"), ElementsAre("tx", "ry"));
    EXPECT_EQ(numbers("timeControl -q -rangeArray $gPlayBackSlider"), (std::vector<double>{5, 10}));
    EXPECT_FALSE(mel("mayasimHost -channelBox middle \"tx\""));
    EXPECT_THAT(lastError(), HasSubstr("Invalid channel box section: middle"));
    EXPECT_FALSE(mel("mayasimHost -timeSliderHighlight 9 5"));

    // Addresses are recorded, not opened.
    ASSERT_TRUE(mel("mayasimHost -clearUrls"));
    EXPECT_TRUE(QDesktopServices::openUrl(QUrl("https://example.com/help#keys")));
    EXPECT_THAT(strings("mayasimHost -q -urls"), ElementsAre("https://example.com/help#keys"));

    // What was handed to MGlobal, with its flags.
    ASSERT_TRUE(mel("mayasimHost -clearSent"));
    MGlobal::executeCommandOnIdle("print \"later\\n\"", true);
    MGlobal::executeCommand("currentTime -q", false, false);
    EXPECT_THAT(strings("mayasimHost -q -sent"),
                ElementsAre("mel display:1 undo:1 idle:1 print \"later\\n\"", "mel display:0 undo:0 idle:0 currentTime -q",
                            HasSubstr("mayasimHost -q -sent")));
}
