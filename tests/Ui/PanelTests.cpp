// The panel in the GUI host: opened, hidden and moved by `orvane`, filled and
// emptied by right presses, kept in prefs.json.
#include "DataFolderTest.h"
#include "FileBytes.h"
#include <mayasim/Gui.h>

#include "AnimationOffset/Manager.h"
#include "AnimationRecovery/Manager.h"
#include "MotionTrail/Manager.h"
#include "TempPivot/Manager.h"
#include "Ui/AnimationRecoveryBtn.h"
#include "Ui/Main.h"
#include "Ui/Manager.h"
#include "Ui/RetimingBtn.h"
#include "Ui/TangentBtn.h"
#include "Ui/TimelineOverlay/Operations.h"
#include "Ui/Tools.h"
#include "Utils/File/PluginManager.h"

#include <maya/MAnimControl.h>
#include <maya/MDoubleArray.h>
#include <maya/MFileIO.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MObjectHandle.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <maya/MQtUtil.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <QApplication>
#include <QDockWidget>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::Pointwise;

namespace {

const char* const Control = "ORVANE_WORKSPACE_CONTROL";

QString prefsPath() { return File::PluginManager::pluginFilePath(QStringLiteral("prefs.json")); }

std::vector<double> numbers(const std::string& command)
{
    MDoubleArray result;
    EXPECT_TRUE(MGlobal::executeCommand(command.c_str(), result)) << command;
    return std::vector<double>(&result[0], &result[0] + result.length());
}

// The workspace control commands sent since the last call, as
// "display:<flag> <text>".
std::vector<std::string> controlCommands()
{
    std::vector<std::string> sent;
    for (const std::string& line : strings("mayasimHost -q -sent")) {
        const size_t text = line.find("workspaceControl ");
        if (text != std::string::npos && line.find("mayasimHost") == std::string::npos)
            sent.push_back(line.substr(line.find("display:"), 10) + line.substr(text));
    }
    MGlobal::executeCommand("mayasimHost -clearSent");
    return sent;
}

// The kinds stored in prefs.json, left to right.
std::vector<std::string> storedKinds()
{
    QFile file(prefsPath());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QJsonObject document = QJsonDocument::fromJson(file.readAll()).object();
    EXPECT_EQ(document.value("version").toInt(), 1);
    EXPECT_TRUE(document.value("widgets").isArray());
    std::vector<std::string> kinds;
    for (const QJsonValue& entry : document.value("widgets").toArray())
        kinds.push_back(entry.toObject().value("kind").toString().toStdString());
    return kinds;
}

// The overlays' own commands are no tool's.
bool isToolCommand(const std::string& text)
{
    return text.rfind("OV", 0) == 0 && text.rfind("OVTimelineOverlay", 0) != 0;
}

// The tool commands sent since the last call, as "<display> <undo> [idle] <text>".

std::vector<std::string> toolCommands()
{
    std::vector<std::string> sent;
    for (const mayasim::host::SentCommand& command : mayasim::host::sentCommands())
        if (isToolCommand(command.text))
            sent.push_back(std::to_string(command.display) + " " + std::to_string(command.undo)
                           + (command.onIdle ? " idle " : " ") + command.text);
    mayasim::host::clearSentCommands();
    return sent;
}

// What waits on a 1 ms timer has run.
void runTimers()
{
    QTest::qWait(2);
    QApplication::processEvents();
}

// Whether a timeline overlay band has been painted, and how many tool
// commands had been sent by then: when the event loop runs the press's
// timer is not the test's to decide, the order of the two is.
struct BandPaintSpy : QObject
{
    BandPaintSpy() { qApp->installEventFilter(this); }
    ~BandPaintSpy() override { qApp->removeEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (!painted && event->type() == QEvent::Paint && dynamic_cast<TimelineOverlay::Operations*>(object)) {
            painted = true;
            for (const mayasim::host::SentCommand& command : mayasim::host::sentCommands())
                toolCommandsBefore += isToolCommand(command.text) ? 1 : 0;
        }
        return false;
    }
    bool painted = false;
    int toolCommandsBefore = 0;
};

bool sameIcon(const QIcon& icon, const char* path)
{
    return icon.pixmap(30).toImage() == QIcon(QString::fromLatin1(path)).pixmap(30).toImage();
}

} // namespace

class PanelTest : public DataFolderTest
{
protected:
    void SetUp() override
    {
        DataFolderTest::SetUp();
        mayasim::gui::openMainWindow(1000, 600);
        // A check made moments ago: no test of the panel goes to the network.
        QFile stamp(File::PluginManager::pluginFilePath(QStringLiteral("orvane_update.txt")));
        ASSERT_TRUE(stamp.open(QIODevice::WriteOnly));
        stamp.close();
        MGlobal::executeCommand("mayasimHost -clearSent");
    }

    void TearDown() override
    {
        DataFolderTest::TearDown();
        mayasim::gui::closeMainWindow();
    }

    static Ui::Main* panel() { return Ui::Manager::instance().panel(); }
    // `orvane`, and the events that show what it opened.
    static void toggle()
    {
        ASSERT_TRUE(mel("orvane"));
        QApplication::processEvents();
    }
    static std::string panelPath()
    {
        const std::vector<std::string> found = strings("mayasimUi -q -find \"Ui::Main\"");
        EXPECT_EQ(found.size(), 1u);
        return found.empty() ? std::string() : found[0];
    }
    static std::vector<std::string> buttonPaths()
    {
        return strings(std::string("mayasimUi -q -find \"Btn\" ") + Control);
    }
    // A right press on the widget at the path, then the entry picked from the
    // menu it opens; the menu's entries, separators as "---".
    static std::vector<std::string> rightPressChoosing(const std::string& path, const std::string& entry,
                                                       const std::string& at = "")
    {
        std::vector<std::string> entries;
        bool chosen = false;
        QTimer::singleShot(0, [&] {
            if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
                for (QAction* action : menu->actions())
                    entries.push_back(action->isSeparator() ? "---" : action->text().toStdString());
            chosen = mel("mayasimUi -menu \"" + entry + "\"");
        });
        EXPECT_TRUE(mel("mayasimUi -press -b right " + at + " \"" + path + "\""));
        // The entry may have deleted what was pressed: gone before the release.
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        mel("mayasimUi -release -b right " + at + " \"" + path + "\"");
        EXPECT_TRUE(chosen) << entry;
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return entries;
    }
    static QDockWidget* dock() { return MQtUtil::mainWindow()->findChild<QDockWidget*>("ORVANE_WORKSPACE_CONTROLDockWidget"); }
};

TEST_F(PanelTest, OpensHidesAndRestoresTheControl)
{
    toggle();
    EXPECT_THAT(controlCommands(),
                ElementsAre("display:0 workspaceControl -q -exists \"ORVANE_WORKSPACE_CONTROL\"",
                            "display:1 workspaceControl -retain true -deleteLater true -loadImmediately true "
                            "-floating true -label \"Orvane 1.2.2\" -requiredPlugin \"orvane\" "
                            "\"ORVANE_WORKSPACE_CONTROL\"",
                            "display:1 workspaceControl -e -uiScript \"orvane\" \"ORVANE_WORKSPACE_CONTROL\"",
                            "display:0 workspaceControl -q -visible \"ORVANE_WORKSPACE_CONTROL\""));
    ASSERT_NE(panel(), nullptr);
    EXPECT_TRUE(panel()->isVisible());
    EXPECT_TRUE(dock()->isFloating());
    EXPECT_EQ(dock()->windowTitle(), "Orvane 1.2.2");

    // The empty row shows its hint, in white, and lets the mouse through.
    auto* hint = panel()->findChild<QLabel*>();
    ASSERT_NE(hint, nullptr);
    EXPECT_EQ(hint->text(), "Right click to add tool");
    EXPECT_TRUE(hint->isVisible());
    EXPECT_EQ(hint->palette().color(QPalette::Inactive, QPalette::WindowText), QColor(Qt::white));
    EXPECT_TRUE(hint->parentWidget()->testAttribute(Qt::WA_TransparentForMouseEvents));
    dock()->resize(420, 90);
    QApplication::processEvents();
    ASSERT_TRUE(mel(std::string("mayasimUi -screenshot \"" ORVANE_BINARY_DIR "/panel-empty.png\" ") + Control));

    toggle();
    EXPECT_THAT(controlCommands(),
                ElementsAre("display:0 workspaceControl -q -visible \"ORVANE_WORKSPACE_CONTROL\"",
                            "display:0 workspaceControl -e -visible 0 \"ORVANE_WORKSPACE_CONTROL\""));
    EXPECT_FALSE(dock()->isVisible());
    toggle();
    EXPECT_THAT(controlCommands(),
                ElementsAre("display:0 workspaceControl -q -visible \"ORVANE_WORKSPACE_CONTROL\"",
                            "display:0 workspaceControl -e -restore \"ORVANE_WORKSPACE_CONTROL\""));
    EXPECT_TRUE(dock()->isVisible());
    // The same panel all along, and nothing written while nothing changed.
    EXPECT_EQ(QApplication::topLevelWidgets().count(panel()->window()), 1);
    EXPECT_FALSE(QFile::exists(prefsPath()));

    // Bad flags change nothing.
    EXPECT_FALSE(mel("orvane -noSuchFlag"));
    EXPECT_FALSE(mel("orvane -moveUI 3"));
    EXPECT_TRUE(dock()->isVisible());
}

TEST_F(PanelTest, MoveUiCentresTheFloatingPanelOnTheCursorOnly)
{
    // Nothing to move yet: success, and no control made.
    ASSERT_TRUE(mel("orvane -moveUI"));
    EXPECT_TRUE(controlCommands().empty());
    EXPECT_EQ(Ui::Manager::instance().panel(), nullptr);

    toggle();
    QWidget* window = panel()->window();
    window->resize(301, 120);
    QApplication::processEvents();
    const QRect frame = window->frameGeometry();
    QCursor::setPos(400, 300);
    controlCommands();
    ASSERT_TRUE(mel("orvane -m"));
    EXPECT_THAT(controlCommands(),
                ElementsAre("display:0 workspaceControl -q -visible \"ORVANE_WORKSPACE_CONTROL\"",
                            "display:0 workspaceControl -q -floating \"ORVANE_WORKSPACE_CONTROL\""));
    // Integer halves of the frame's size, whatever its parity.
    EXPECT_EQ(window->frameGeometry().topLeft(), QPoint(400 - frame.width() / 2, 300 - frame.height() / 2));

    // Docked, or hidden, it stays where it is.
    ASSERT_TRUE(mel(std::string("workspaceControl -e -dockToMainWindow right 1 ") + Control));
    const QPoint docked = panel()->mapToGlobal(QPoint());
    QCursor::setPos(50, 60);
    ASSERT_TRUE(mel("orvane -moveUI"));
    EXPECT_EQ(panel()->mapToGlobal(QPoint()), docked);
    toggle();
    ASSERT_FALSE(dock()->isVisible());
    ASSERT_TRUE(mel("orvane -moveUI"));
    EXPECT_FALSE(dock()->isVisible());
}

TEST_F(PanelTest, RightPressesAddAndDeleteToolsAndPrefsFollow)
{
    toggle();
    const std::string path = panelPath();
    const std::vector<std::string> menu = rightPressChoosing(path, "Mirror");
    // Only the tools that exist, in the table's order, a bar between sections.
    std::vector<std::string> table;
    for (size_t row = 0; row < Ui::tools().size(); ++row) {
        if (row > 0 && Ui::tools()[row].section != Ui::tools()[row - 1].section)
            table.push_back("---");
        table.push_back(Ui::tools()[row].menuText);
    }
    // Then the entry that opens the pie menus.
    table.insert(table.end(), {"---", "Pie Menu"});
    EXPECT_EQ(menu, table);
    EXPECT_THAT(menu, testing::IsSupersetOf({"Mirror", "Select Opposite"}));
    EXPECT_THAT(storedKinds(), ElementsAre("mirrorBtn"));
    rightPressChoosing(path, "Select Opposite", "-at 2 2");
    rightPressChoosing(path, "Mirror", "-at 2 2");
    EXPECT_THAT(storedKinds(), ElementsAre("mirrorBtn", "selectOppositeBtn", "mirrorBtn"));
    auto* hint = panel()->findChild<QLabel*>();
    EXPECT_FALSE(hint->isVisible());
    EXPECT_FALSE(hint->parentWidget()->testAttribute(Qt::WA_TransparentForMouseEvents));
    dock()->resize(420, 90);
    QApplication::processEvents();
    ASSERT_TRUE(mel(std::string("mayasimUi -screenshot \"" ORVANE_BINARY_DIR "/panel-tools.png\" ") + Control));

    std::vector<std::string> buttons = buttonPaths();
    ASSERT_EQ(buttons.size(), 3u);
    // A left press runs the tool at once; its icon is the module's own.
    ASSERT_TRUE(mel("mayasimUi -press \"" + buttons[0] + "\""));
    ASSERT_TRUE(mel("mayasimUi -release \"" + buttons[0] + "\""));
    EXPECT_THAT(strings("mayasimHost -q -sent"), testing::Contains("mel display:1 undo:1 idle:0 OVMirror"));
    // Each button's own menu ends in "Delete".
    const std::vector<std::string> own = rightPressChoosing(buttons[1], "Delete");
    EXPECT_THAT(own, ElementsAre("Snapshot", "Fix pairs", "---", "Add Opposite", "---", "Deselect Right",
                                 "Deselect Left", "Deselect Center", "---", "Auto-select opposite", "---", "Delete"));
    EXPECT_THAT(storedKinds(), ElementsAre("mirrorBtn", "mirrorBtn"));
    buttons = buttonPaths();
    ASSERT_EQ(buttons.size(), 2u);
    EXPECT_THAT(rightPressChoosing(buttons[1], "Delete"),
                ElementsAre("Snapshot", "Fix Attribute", "---", "Remove Selected From Snapshot", "Remove Snapshot",
                            "---", "Delete"));
    rightPressChoosing(buttonPaths().at(0), "Delete");
    EXPECT_TRUE(storedKinds().empty());
    EXPECT_THAT(readBytes(prefsPath()).toStdString(), HasSubstr("\"widgets\": [\n    ]"));
    EXPECT_TRUE(hint->isVisible());
    EXPECT_TRUE(hint->parentWidget()->testAttribute(Qt::WA_TransparentForMouseEvents));
}

TEST_F(PanelTest, RebuiltFromAHandWrittenFileKeepingWhatIsValid)
{
    const QByteArray written = R"({"version": 7, "widgets": [
        {"kind": "selectOppositeBtn", "blendType": 99, "sliderValue": 500},
        5, "mirrorBtn", {"kind": "noSuchTool"}, {},
        {"kind": "mirrorBtn"}
    ], "extra": true})";
    ASSERT_TRUE(writeBytes(prefsPath(), written));
    toggle();
    const std::vector<std::string> buttons = buttonPaths();
    ASSERT_EQ(buttons.size(), 2u);
    EXPECT_THAT(buttons[0], HasSubstr("SelectOppositeBtn"));
    EXPECT_THAT(buttons[1], HasSubstr("MirrorBtn"));
    EXPECT_FALSE(panel()->findChild<QLabel*>()->isVisible());
    // Nothing written until a change; then the file holds what the row holds.
    EXPECT_EQ(readBytes(prefsPath()), written);
    rightPressChoosing(panelPath(), "Mirror", "-at 2 2");
    EXPECT_THAT(storedKinds(), ElementsAre("selectOppositeBtn", "mirrorBtn", "mirrorBtn"));
    EXPECT_THAT(readBytes(prefsPath()).toStdString(), Not(HasSubstr("noSuchTool")));
}

TEST_F(PanelTest, FilesThatAreNoRowGiveAnEmptyPanel)
{
    for (const QByteArray& bytes : {QByteArray("not json"), QByteArray("[1, 2]"), QByteArray(R"({"widgets": 3})"),
                                    QByteArray(R"({"widgets": []})"), QByteArray("\xff\xfe{")}) {
        ASSERT_TRUE(writeBytes(prefsPath(), bytes));
        toggle();
        EXPECT_TRUE(buttonPaths().empty()) << bytes.toStdString();
        EXPECT_TRUE(panel()->findChild<QLabel*>()->isVisible());
        EXPECT_EQ(readBytes(prefsPath()), bytes);
        // A new panel reads the file again.
        Ui::Manager::destroy();
    }
}

TEST_F(PanelTest, ToolsComeBackAfterReloadAndUnloadLeavesNoWidget)
{
    toggle();
    rightPressChoosing(panelPath(), "Select Opposite");
    rightPressChoosing(panelPath(), "Mirror", "-at 2 2");

    ASSERT_TRUE(mel("unloadPlugin orvane"));
    EXPECT_FALSE(dock()->isVisible());
    for (QWidget* widget : QApplication::allWidgets())
        EXPECT_FALSE(QString(widget->metaObject()->className()).startsWith("Ui::")) << widget->metaObject()->className();

    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    toggle();
    EXPECT_TRUE(dock()->isVisible());
    const std::vector<std::string> buttons = buttonPaths();
    ASSERT_EQ(buttons.size(), 2u);
    EXPECT_THAT(buttons[0], HasSubstr("SelectOppositeBtn"));
    EXPECT_THAT(buttons[1], HasSubstr("MirrorBtn"));
}

TEST_F(PanelTest, ALayoutRebuildPutsThePanelBackWithoutHidingIt)
{
    toggle();
    rightPressChoosing(panelPath(), "Mirror");
    // Maya empties the control and runs its ui script, `orvane`, again.
    ASSERT_TRUE(mel(std::string("mayasimUi -rebuild ") + Control));
    QApplication::processEvents();
    EXPECT_TRUE(dock()->isVisible());
    ASSERT_NE(panel(), nullptr);
    EXPECT_TRUE(panel()->isVisible());
    EXPECT_EQ(buttonPaths().size(), 1u);
    // After which `orvane` toggles as before.
    toggle();
    EXPECT_FALSE(dock()->isVisible());
}

class ToolButtonTest : public PanelTest
{
protected:
    void SetUp() override
    {
        PanelTest::SetUp();
        toggle();
    }
    void TearDown() override
    {
        // No mode stays on for the tests that follow.
        AnimationOffset::Manager::instance().stop();
        AnimationRecovery::Manager::instance().disable();
        PanelTest::TearDown();
    }
    // Adds the tool from the panel's menu; the path of the new button.
    static std::string add(const std::string& entry)
    {
        rightPressChoosing(panelPath(), entry, "-at 2 2");
        return buttonPaths().back();
    }
    // A left press and release with the modifiers held ("" for none); the
    // tool commands sent, after the timers of the press have run.
    static std::vector<std::string> press(const std::string& path, const std::string& modifiers = "")
    {
        const std::string held = modifiers.empty() ? "" : " -mod " + modifiers;
        mayasim::host::clearSentCommands();
        EXPECT_TRUE(mel("mayasimUi -press" + held + " \"" + path + "\""));
        EXPECT_TRUE(mel("mayasimUi -release" + held + " \"" + path + "\""));
        runTimers();
        return toolCommands();
    }
    // The menu's entries; the command the entry sent.
    static std::vector<std::string> choose(const std::string& path, const std::string& entry,
                                           std::vector<std::string>* sent)
    {
        mayasim::host::clearSentCommands();
        const std::vector<std::string> entries = rightPressChoosing(path, entry);
        runTimers();
        *sent = toolCommands();
        return entries;
    }
};

TEST_F(ToolButtonTest, CopyButtonsPasteWithCtrlAndShiftTogetherOnly)
{
    const std::string world = add("Copy World Space");
    const std::string relation = add("Copy Relationship");
    const std::string sets = add("Selection Set");
    EXPECT_THAT(storedKinds(), ElementsAre("xFormWorldSpaceBtn", "relationshipBtn", "selectionSetBtn"));
    auto* worldButton = qobject_cast<QPushButton*>(MQtUtil::findControl(world.c_str()));
    ASSERT_NE(worldButton, nullptr);
    EXPECT_EQ(worldButton->toolTip(), "copy world space (copy);\nCtrl+Shift+click or right-click for paste");
    EXPECT_TRUE(sameIcon(worldButton->icon(), ":CopyWorldSpace.png"));

    EXPECT_THAT(press(world), ElementsAre("1 0 OVXFormWorldSpace"));
    EXPECT_THAT(press(world, "ctrl+shift"), ElementsAre("1 1 OVXFormWorldSpace -paste"));
    EXPECT_THAT(press(world, "ctrl"), ElementsAre("1 0 OVXFormWorldSpace"));
    EXPECT_THAT(press(world, "shift"), ElementsAre("1 0 OVXFormWorldSpace"));
    EXPECT_THAT(press(relation), ElementsAre("1 0 OVRelationship"));
    EXPECT_THAT(press(relation, "ctrl+shift"), ElementsAre("1 1 OVRelationship -paste"));
    EXPECT_THAT(press(relation, "ctrl"), ElementsAre("1 0 OVRelationship"));
    EXPECT_THAT(press(relation, "shift"), ElementsAre("1 0 OVRelationship"));
    EXPECT_EQ(qobject_cast<QPushButton*>(MQtUtil::findControl(sets.c_str()))->toolTip(), "selection set");

    std::vector<std::string> sent;
    EXPECT_THAT(choose(world, "Paste <ctrl+shift>", &sent), ElementsAre("Paste <ctrl+shift>", "---", "Delete"));
    EXPECT_THAT(sent, ElementsAre("1 1 OVXFormWorldSpace -paste"));
    EXPECT_THAT(choose(relation, "Paste Relationship <ctrl+shift>", &sent),
                ElementsAre("Paste Relationship <ctrl+shift>", "---", "Delete"));
    EXPECT_THAT(sent, ElementsAre("1 1 OVRelationship -paste"));
    EXPECT_THAT(choose(sets, "Delete", &sent), ElementsAre("Delete"));
    EXPECT_THAT(storedKinds(), ElementsAre("xFormWorldSpaceBtn", "relationshipBtn"));
    // The right button is let go on the deleted button, and a paste's keys
    // once it is done: nothing stays held for what comes next.
    EXPECT_EQ(QGuiApplication::mouseButtons(), Qt::NoButton);
    EXPECT_THAT(press(world, "ctrl+shift"), ElementsAre("1 1 OVXFormWorldSpace -paste"));
    EXPECT_EQ(QGuiApplication::keyboardModifiers(), Qt::NoModifier);
    EXPECT_THAT(press(relation), ElementsAre("1 0 OVRelationship"));
}

TEST_F(ToolButtonTest, ResetAndTangentRunAfterThePressWithTheHighlightMarked)
{
    const std::string reset = add("Reset");
    auto* button = qobject_cast<QPushButton*>(MQtUtil::findControl(reset.c_str()));
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->toolTip(), "reset");
    // No highlight: no band, and the command only once the press is handled.
    QTest::mousePress(button, Qt::LeftButton);
    EXPECT_THAT(toolCommands(), IsEmpty());
    EXPECT_FALSE(TimelineOverlay::exists("orvane"));
    runTimers();
    EXPECT_THAT(toolCommands(), ElementsAre("1 1 OVResetPose"));
    QTest::mouseRelease(button, Qt::LeftButton);

    // With one: the band is painted before the command runs, and gone after it.
    mayasim::host::setTimeSliderHighlight(5, 10);
    {
        BandPaintSpy band;
        mayasim::host::clearSentCommands();
        QTest::mousePress(button, Qt::LeftButton);
        runTimers();
        EXPECT_TRUE(band.painted);
        EXPECT_EQ(band.toolCommandsBefore, 0);
    }
    EXPECT_FALSE(TimelineOverlay::exists("orvane"));
    EXPECT_THAT(toolCommands(), ElementsAre("1 1 OVResetPose"));
    QTest::mouseRelease(button, Qt::LeftButton);

    EXPECT_THAT(press(reset, "ctrl+shift"), ElementsAre("1 1 OVResetPose -translate -rotate -scale"));
    EXPECT_THAT(press(reset, "ctrl"), ElementsAre("1 1 OVResetPose"));
    EXPECT_THAT(press(reset, "shift"), ElementsAre("1 1 OVResetPose"));
    const std::vector<std::pair<std::string, std::string>> entries = {
        {"Translate", "1 1 OVResetPose -translate"},
        {"Rotate", "1 1 OVResetPose -rotate"},
        {"Scale", "1 1 OVResetPose -scale"},
        {"Translate Rotate Scale <ctrl+shift", "0 1 OVResetPose -translate -rotate -scale"},
        {"Snapshot", "0 0 OVSnapshot"},
        {"Clear Snapshot", "0 0 OVSnapshot -clear"}};
    std::vector<std::string> sent;
    for (const auto& [entry, command] : entries) {
        EXPECT_THAT(choose(reset, entry, &sent),
                    ElementsAre("Translate", "Rotate", "Scale", "Translate Rotate Scale <ctrl+shift", "---",
                                "Snapshot", "Clear Snapshot", "---", "Delete"));
        EXPECT_THAT(sent, ElementsAre(command)) << entry;
    }

    const std::string tangent = add("Tangent");
    auto* tangentButton = panel()->findChild<Ui::TangentBtn*>();
    ASSERT_NE(tangentButton, nullptr);
    EXPECT_EQ(tangentButton->toolTip(), "Linear");
    EXPECT_TRUE(sameIcon(tangentButton->icon(), ":/Tangent/linear.png"));
    EXPECT_THAT(press(tangent), ElementsAre("1 1 OVTangent -blendType 0 -inTangent -outTangent"));
    EXPECT_THAT(press(tangent, "ctrl+shift"), ElementsAre("1 1 OVTangent -blendType 0 -inTangent -outTangent"));
    EXPECT_THAT(choose(tangent, "Step", &sent),
                ElementsAre("Auto", "Linear", "Spline", "Plateau", "Flat", "Clamped", "Step", "---", "In", "Out", "---",
                            "Delete"));
    EXPECT_TRUE(sent.empty());
    EXPECT_EQ(tangentButton->toolTip(), "Step");
    EXPECT_TRUE(sameIcon(tangentButton->icon(), ":/Tangent/step.png"));
    choose(tangent, "In", &sent);
    EXPECT_THAT(press(tangent), ElementsAre("1 1 OVTangent -blendType 6 -outTangent"));
    choose(tangent, "Out", &sent);
    EXPECT_THAT(press(tangent), ElementsAre("1 1 OVTangent -blendType 6"));
    choose(tangent, "Spline", &sent);
    EXPECT_EQ(tangentButton->toolTip(), "Spline");
    EXPECT_TRUE(sameIcon(tangentButton->icon(), ":/Tangent/spline.png"));
    const QJsonArray stored = QJsonDocument::fromJson(readBytes(prefsPath())).object().value("widgets").toArray();
    EXPECT_EQ(stored.at(1).toObject(), QJsonObject({{"kind", "tangentBtn"}, {"blendType", 4}}));
}

TEST_F(ToolButtonTest, StoredTangentTypeAndRecoveryStateComeBack)
{
    ASSERT_TRUE(writeBytes(prefsPath(), R"({"version": 1, "widgets": [
        {"kind": "tangentBtn", "blendType": 6}, {"kind": "tangentBtn", "blendType": 99},
        {"kind": "animationRecoveryBtn", "recoveryEnabled": false}, {"kind": "animationOffsetBtn"}]})"));
    Ui::Manager::destroy();
    AnimationRecovery::Manager::instance().enable();
    toggle();
    const QList<Ui::TangentBtn*> tangents = panel()->findChildren<Ui::TangentBtn*>();
    ASSERT_EQ(tangents.size(), 2);
    EXPECT_EQ(tangents[0]->toolTip(), "Step");
    EXPECT_TRUE(sameIcon(tangents[0]->icon(), ":/Tangent/step.png"));
    // No such type: "Auto"'s icon, and its index is sent as it is.
    EXPECT_EQ(tangents[1]->toolTip(), "");
    EXPECT_TRUE(sameIcon(tangents[1]->icon(), ":/Tangent/auto.png"));

    // The file turned recovery off.
    auto* shield = panel()->findChild<Ui::AnimationRecoveryBtn*>();
    ASSERT_NE(shield, nullptr);
    EXPECT_FALSE(AnimationRecovery::Manager::instance().enabled());
    EXPECT_TRUE(sameIcon(shield->icon(), ":/red_shield.png"));
    EXPECT_EQ(shield->toolTip(), "animation recovery");
    const std::vector<std::string> buttons = buttonPaths();
    ASSERT_EQ(buttons.size(), 4u);
    EXPECT_TRUE(press(buttons[2]).empty());
    EXPECT_TRUE(AnimationRecovery::Manager::instance().enabled());
    EXPECT_TRUE(sameIcon(shield->icon(), ":/green_shield.png"));
    EXPECT_THAT(readBytes(prefsPath()).toStdString(), HasSubstr("\"recoveryEnabled\": true"));
    press(buttons[2], "ctrl+shift");
    EXPECT_FALSE(AnimationRecovery::Manager::instance().enabled());
    EXPECT_TRUE(sameIcon(shield->icon(), ":/red_shield.png"));
    EXPECT_THAT(readBytes(prefsPath()).toStdString(), HasSubstr("\"recoveryEnabled\": false"));
    std::vector<std::string> sent;
    EXPECT_THAT(choose(buttons[2], "Restore", &sent), ElementsAre("Restore", "---", "Delete"));
    EXPECT_THAT(sent, ElementsAre("0 0 OVAnimationRecovery -restore"));

    // The offset mode by a direct call: on, then off.
    EXPECT_TRUE(press(buttons[3]).empty());
    EXPECT_TRUE(AnimationOffset::Manager::instance().isActive());
    press(buttons[3], "ctrl");
    EXPECT_FALSE(AnimationOffset::Manager::instance().isActive());
    EXPECT_THAT(choose(buttons[3], "Delete", &sent), ElementsAre("Delete"));

    // A missing state restores recovery as on; a new shield shows the manager's state.
    ASSERT_TRUE(writeBytes(prefsPath(), R"({"widgets": [{"kind": "animationRecoveryBtn"}]})"));
    Ui::Manager::destroy();
    toggle();
    EXPECT_TRUE(AnimationRecovery::Manager::instance().enabled());
    add("Animation Recovery");
    const QList<Ui::AnimationRecoveryBtn*> shields = panel()->findChildren<Ui::AnimationRecoveryBtn*>();
    ASSERT_EQ(shields.size(), 2);
    EXPECT_TRUE(sameIcon(shields[1]->icon(), ":/green_shield.png"));
}

TEST_F(ToolButtonTest, RetimingArrowsSendTheValueTheTypeAndTheJump)
{
    const std::string path = add("Retiming");
    auto* retiming = panel()->findChild<Ui::RetimingBtn*>();
    ASSERT_NE(retiming, nullptr);
    const QList<QPushButton*> arrows = retiming->findChildren<QPushButton*>();
    auto* box = retiming->findChild<QSpinBox*>();
    ASSERT_EQ(arrows.size(), 2);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(arrows[0]->toolTip(), "Retiming backward (negative value)");
    EXPECT_TRUE(sameIcon(arrows[0]->icon(), ":left_arrow.png"));
    EXPECT_EQ(arrows[1]->toolTip(), "Retiming forward (positive value)");
    EXPECT_TRUE(sameIcon(arrows[1]->icon(), ":right_arrow.png"));
    EXPECT_EQ(retiming->toolTip(), QString::fromUtf8("Retime: Move keys — 1\nJump to new time: on"));

    // A click, not a press; the command once the click is handled.
    mayasim::host::clearSentCommands();
    QTest::mousePress(arrows[1], Qt::LeftButton);
    runTimers();
    EXPECT_TRUE(toolCommands().empty());
    QTest::mouseRelease(arrows[1], Qt::LeftButton);
    EXPECT_TRUE(toolCommands().empty());
    runTimers();
    EXPECT_THAT(toolCommands(), ElementsAre("1 1 OVRetiming -value 1 -retimeType 0 -JumpToNewTime"));

    // The box grows with the number and never goes under 1.
    const int narrow = box->width();
    box->setFocus();
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, "123456");
    EXPECT_EQ(box->value(), 123456);
    EXPECT_GT(box->width(), narrow);
    EXPECT_EQ(box->width(), 12 + box->fontMetrics().horizontalAdvance("123456"));
    QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(box, "3");
    EXPECT_EQ(box->width(), 12 + box->fontMetrics().horizontalAdvance("3"));
    QTest::keyClick(box, Qt::Key_Down);
    QTest::keyClick(box, Qt::Key_Down);
    QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(box->value(), 1);
    QTest::keyClick(box, Qt::Key_Up);
    QTest::keyClick(box, Qt::Key_Up);
    EXPECT_EQ(box->value(), 3);
    QTest::mouseClick(arrows[0], Qt::LeftButton);
    runTimers();
    EXPECT_THAT(toolCommands(), ElementsAre("1 1 OVRetiming -value -3 -retimeType 0 -JumpToNewTime"));

    // Each type from the menu, opened on the widget or on the number box.
    const std::vector<std::string> menu = {
        "Move keys", "Move keys (all keys on selected objects)", "Move keys (all keys in scene)", "---",
        "Insert inbetween", "Insert inbetween (all keys on selected objects)", "Insert inbetween (all keys in scene)",
        "---", "Fixed Number of Inbetweens", "---", "Jump to new time", "---", "Delete"};
    const QPoint onBox = box->geometry().center();
    const std::string atBox = "-at " + std::to_string(onBox.x()) + " " + std::to_string(onBox.y());
    for (int type = 0; type < 7; ++type) {
        const std::string entry = menu[type + type / 3];
        EXPECT_EQ(rightPressChoosing(path, entry, type % 2 ? atBox : ""), menu) << entry;
        EXPECT_EQ(retiming->retimeType(), type);
        QTest::mouseClick(arrows[1], Qt::LeftButton);
        runTimers();
        EXPECT_THAT(toolCommands(), ElementsAre("1 1 OVRetiming -value 3 -retimeType " + std::to_string(type)
                                                + " -JumpToNewTime"));
    }
    EXPECT_EQ(retiming->toolTip(), QString::fromUtf8("Retime: Fixed Number of Inbetweens — 3\nJump to new time: on"));
    rightPressChoosing(path, "Jump to new time");
    EXPECT_EQ(retiming->toolTip(), QString::fromUtf8("Retime: Fixed Number of Inbetweens — 3"));
    QTest::mouseClick(arrows[0], Qt::LeftButton);
    runTimers();
    EXPECT_THAT(toolCommands(), ElementsAre("1 1 OVRetiming -value -3 -retimeType 6"));
    const QJsonArray stored = QJsonDocument::fromJson(readBytes(prefsPath())).object().value("widgets").toArray();
    EXPECT_EQ(stored.at(0).toObject(), QJsonObject({{"kind", "retimingBtn"}, {"retimeType", 6}, {"retimeValue", 3},
                                                    {"jumpToNewTime", false}}));
}

TEST_F(ToolButtonTest, RetimingRestoresWithinItsRanges)
{
    ASSERT_TRUE(writeBytes(prefsPath(), R"({"version": 1, "widgets": [
        {"kind": "retimingBtn", "retimeType": 9, "retimeValue": -5},
        {"kind": "retimingBtn", "retimeType": -2, "retimeValue": 40, "jumpToNewTime": false},
        {"kind": "retimingBtn"}]})"));
    Ui::Manager::destroy();
    toggle();
    const QList<Ui::RetimingBtn*> widgets = panel()->findChildren<Ui::RetimingBtn*>();
    ASSERT_EQ(widgets.size(), 3);
    const auto state = [](const Ui::RetimingBtn* widget) {
        return std::make_tuple(widget->retimeType(), widget->retimeValue(), widget->jumpToNewTime());
    };
    EXPECT_EQ(state(widgets[0]), std::make_tuple(6, 1, true));
    EXPECT_EQ(state(widgets[1]), std::make_tuple(0, 40, false));
    EXPECT_EQ(state(widgets[2]), std::make_tuple(0, 1, true));
    EXPECT_EQ(widgets[1]->toolTip(), QString::fromUtf8("Retime: Move keys — 40"));
    auto* box = widgets[1]->findChild<QSpinBox*>();
    EXPECT_EQ(box->width(), 12 + box->fontMetrics().horizontalAdvance("40"));
    // The menu's check follows the restored type.
    rightPressChoosing(buttonPaths().at(0), "Jump to new time");
    EXPECT_FALSE(widgets[0]->jumpToNewTime());
    for (QAction* action : widgets[0]->findChild<QMenu*>()->actions())
        EXPECT_EQ(action->isChecked(), action->text() == "Fixed Number of Inbetweens") << action->text().toStdString();
}

TEST_F(ToolButtonTest, EveryToolOfTheMenuJoinsTheRow)
{
    dock()->resize(900, 80);
    std::vector<std::string> kinds;
    for (const Ui::Tool& tool : Ui::tools()) {
        rightPressChoosing(panelPath(), tool.menuText, "-at 2 2");
        kinds.insert(tool.atFront ? kinds.begin() : kinds.end(), tool.kind);
    }
    EXPECT_EQ(storedKinds(), kinds);
    QApplication::processEvents();
    ASSERT_TRUE(mel(std::string("mayasimUi -screenshot \"" ORVANE_BINARY_DIR "/panel-full.png\" ") + Control));
}

TEST_F(ToolButtonTest, TempPivotButtonTurnsThePivotOnAndOffInTheChosenMode)
{
    ASSERT_TRUE(mel("createNode transform -n a; createNode transform -n b; setAttr b.tx 4; select -r a b"));
    const std::string path = add("Temp Pivot");
    const TempPivot::Manager& pivot = TempPivot::Manager::instance();
    EXPECT_TRUE(press(path).empty());
    EXPECT_TRUE(pivot.isEnabled());
    press(path, "ctrl+shift");
    EXPECT_FALSE(pivot.isEnabled());
    ASSERT_TRUE(mel("select -r a b"));
    std::vector<std::string> sent;
    EXPECT_THAT(choose(path, "Center", &sent), ElementsAre("Last Object", "Center", "World Space", "---", "Reset",
                                                           "Toggle Edit", "---", "Delete"));
    ASSERT_TRUE(pivot.isEnabled());
    // Between the two objects.
    MDoubleArray at;
    ASSERT_TRUE(MGlobal::executeCommand("xform -q -ws -t " + MFnDependencyNode(pivot.pivotNode()).name(), at));
    EXPECT_DOUBLE_EQ(at[0], 2.0);
    press(path, "shift");
    EXPECT_FALSE(pivot.isEnabled());
    ASSERT_TRUE(mel("select -r a b"));
    choose(path, "Last Object", &sent);
    EXPECT_TRUE(pivot.isEnabled());
    ASSERT_TRUE(MGlobal::executeCommand("xform -q -ws -t " + MFnDependencyNode(pivot.pivotNode()).name(), at));
    EXPECT_DOUBLE_EQ(at[0], 4.0);
    // While it is on, the pivot alone is selected: a mode entry starts it
    // anew in that mode for the same objects.
    choose(path, "Center", &sent);
    ASSERT_TRUE(pivot.isEnabled());
    const MString centred = MFnDependencyNode(pivot.pivotNode()).name();
    ASSERT_TRUE(MGlobal::executeCommand("xform -q -ws -t " + centred, at));
    EXPECT_DOUBLE_EQ(at[0], 2.0);
    EXPECT_THAT(strings("ls -sl"), ElementsAre(centred.asChar()));
    EXPECT_THAT(strings("ls \"transform*\""), ElementsAre(centred.asChar()));
    ASSERT_TRUE(mel("setAttr " + std::string(centred.asChar()) + ".tx 3"));
    EXPECT_DOUBLE_EQ(MFnDependencyNode(nodeNamed("a")).findPlug("tx", false).asDouble(), 1.0);
    EXPECT_DOUBLE_EQ(MFnDependencyNode(nodeNamed("b")).findPlug("tx", false).asDouble(), 5.0);
    choose(path, "Last Object", &sent);
    ASSERT_TRUE(pivot.isEnabled());
    ASSERT_TRUE(MGlobal::executeCommand("xform -q -ws -t " + MFnDependencyNode(pivot.pivotNode()).name(), at));
    EXPECT_DOUBLE_EQ(at[0], 5.0);
    press(path, "ctrl");
    EXPECT_FALSE(pivot.isEnabled());
    choose(path, "Delete", &sent);
    EXPECT_TRUE(sent.empty());
}

TEST_F(ToolButtonTest, MotionTrailButtonStylesTrailsAndKeepsTheStyle)
{
    const QString stylePath = File::PluginManager::pluginFilePath(QStringLiteral("motionTrail_prefs.json"));
    const std::string path = add("Motion Trail");
    std::vector<std::string> sent;
    const std::vector<std::string> menu = {
        "Camera Space Mode", "---", "Show Line", "Solid Line", "Dash Line", "Main Line Color", "Secondary Line Color",
        "Line Size", "---", "Show Points", "Squares Points", "Circles Points", "Points Color", "Points Size", "---",
        "Show Current Frame", "Current Frame Color", "Current Frame Size", "Transparency Falloff", "---",
        "Remove All<Ctrl+Shift>", "---", "Delete"};
    // The line can't go while the points are off: the entry snaps back on.
    // Sent for Maya's idle time.
    EXPECT_EQ(choose(path, "Show Line", &sent), menu);
    EXPECT_THAT(sent, ElementsAre("0 1 idle OVMotionTrail -showLine true"));
    QMenu* own = MQtUtil::findControl(path.c_str())->findChild<QMenu*>();
    ASSERT_NE(own, nullptr);
    EXPECT_TRUE(own->isTearOffEnabled());
    EXPECT_TRUE(own->actions()[2]->isChecked());
    const auto chosen = [&](const std::string& entry) {
        choose(path, entry, &sent);
        return sent;
    };
    EXPECT_THAT(chosen("Show Points"), ElementsAre("0 1 idle OVMotionTrail -showPoints 1"));
    EXPECT_THAT(chosen("Show Line"), ElementsAre("0 1 idle OVMotionTrail -showLine 0"));
    EXPECT_THAT(chosen("Circles Points"), ElementsAre("0 1 idle OVMotionTrail -pointsStyle true"));
    // A colour answered, one cancelled (nothing sent, nothing written), a size.
    ASSERT_TRUE(mel("mayasimUi -dialog \"OK\" -value \"0 1 0.5\""));
    EXPECT_THAT(chosen("Main Line Color"), ElementsAre("0 1 idle OVMotionTrail -mainLineColor 0 1 0.5019607843137255"));
    const QByteArray written = readBytes(stylePath);
    ASSERT_TRUE(mel("mayasimUi -dialog \"Cancel\""));
    EXPECT_TRUE(chosen("Points Color").empty());
    EXPECT_EQ(readBytes(stylePath), written);
    ASSERT_TRUE(mel("mayasimUi -dialog \"OK\" -value \"4.5\""));
    EXPECT_THAT(chosen("Line Size"), ElementsAre("0 1 idle OVMotionTrail -lineSize 4.5"));
    ASSERT_TRUE(mel("mayasimUi -dialog \"Cancel\""));
    EXPECT_TRUE(chosen("Points Size").empty());
    const QJsonObject stored = QJsonDocument::fromJson(readBytes(stylePath)).object();
    EXPECT_EQ(stored.value("showLine"), false);
    EXPECT_EQ(stored.value("pointsStyle"), true);
    EXPECT_EQ(stored.value("lineSize"), 4.5);
    EXPECT_EQ(stored.value("mainLineColor").toArray(), QJsonArray({0, 255, 128}));
    EXPECT_EQ(stored.value("pointsColor").toArray(), QJsonArray({253, 3, 251}));
    EXPECT_EQ(stored.keys().size(), 14);

    // A press toggles the trail, then sends every setting; Ctrl+Shift removes all.
    const std::vector<std::string> applied = press(path);
    ASSERT_EQ(applied.size(), 15u);
    EXPECT_EQ(applied[0], "0 0 OVMotionTrail");
    EXPECT_EQ(applied[1], "0 0 OVMotionTrail -showLine 0");
    EXPECT_EQ(applied[6], "0 0 OVMotionTrail -lineSize 4.5");
    EXPECT_EQ(applied[8], "0 0 OVMotionTrail -mainLineColor 0 1 0.5019607843137255");
    EXPECT_EQ(applied[14], "0 0 OVMotionTrail -transparencyFalloff 1");
    EXPECT_EQ(press(path, "ctrl"), applied);
    EXPECT_EQ(press(path, "shift"), applied);
    choose(path, "Camera Space Mode", &sent);
    EXPECT_TRUE(own->actions()[0]->isChecked());
    EXPECT_THAT(press(path, "ctrl+shift"), ElementsAre("0 1 idle OVMotionTrail -deleteAll"));
    EXPECT_FALSE(own->actions()[0]->isChecked());
    EXPECT_EQ(QJsonDocument::fromJson(readBytes(stylePath)).object().value("cameraSpace"), false);

    // A new button starts from the file.
    const std::string second = add("Motion Trail");
    EXPECT_EQ(press(second), applied);

    // A damaged file gives the defaults; a hand-edited one each default whose
    // value has the wrong type or lies outside what the menu can set.
    ASSERT_TRUE(writeBytes(stylePath, "{\"showLine\": fals"));
    const std::vector<std::string> defaults = press(add("Motion Trail"));
    ASSERT_EQ(defaults.size(), 15u);
    EXPECT_EQ(defaults[1], "0 0 OVMotionTrail -showLine 1");
    EXPECT_EQ(defaults[6], "0 0 OVMotionTrail -lineSize 3");
    ASSERT_TRUE(writeBytes(stylePath, R"({"showLine": "no", "showPoints": true, "cameraSpace": 1,
        "lineSize": -2, "pointsSize": 12.5, "currentFrameSize": 1e300, "mainLineColor": [300, 0, 0],
        "secondaryLineColor": [0, 0], "pointsColor": [0, 255, 51, 7], "currentFrameColor": ["a", 1, 2]})"));
    std::vector<std::string> edited = defaults;
    edited[2] = "0 0 OVMotionTrail -showPoints 1";
    edited[5] = "0 0 OVMotionTrail -pointsSize 12.5";
    edited[7] = "0 0 OVMotionTrail -pointsColor 0 1 0.2";
    EXPECT_EQ(press(add("Motion Trail")), edited);
}

// Each button pressed on the demo rig does its tool's work on the scene, and
// one undo takes the press back. Selecting the opposite and the motion trail
// are outside the undo queue: a second press takes the trail away.
TEST_F(ToolButtonTest, ButtonsActOnTheDemoRigEachInOneUndoStep)
{
    ASSERT_TRUE(MFileIO::open(ORVANE_TEST_DATA "/../../demo/demo.ma", nullptr, true));
    const std::string mirror = add("Mirror");
    const std::string opposite = add("Select Opposite");
    const std::string reset = add("Reset");
    const std::string tangent = add("Tangent");
    add("Retiming");
    const std::string world = add("Copy World Space");
    const std::string relation = add("Copy Relationship");
    const std::string trail = add("Motion Trail");

    ASSERT_TRUE(mel("select -r foot_L_ctrl; setAttr foot_L_ctrl.t 3.5 -9 1; setAttr foot_L_ctrl.r 10 20 30"));
    expectOneUndoStep([&] { EXPECT_THAT(press(mirror), ElementsAre("1 1 OVMirror")); });
    EXPECT_THAT(numbers("getAttr foot_R_ctrl.t"), ElementsAre(-3.5, -9, 1));
    EXPECT_THAT(numbers("getAttr foot_R_ctrl.r"), Pointwise(DoubleNear(1e-9), {10.0, -20.0, -30.0}));

    // The opposite is selected, outside the undo queue; the scene stays.
    const std::string mirrored = sceneText();
    press(opposite);
    EXPECT_THAT(strings("ls -sl"), ElementsAre("foot_R_ctrl"));
    EXPECT_EQ(sceneText(), mirrored);

    ASSERT_TRUE(mel("select -r foot_L_ctrl"));
    expectOneUndoStep([&] { press(reset); });
    EXPECT_THAT(numbers("getAttr foot_L_ctrl.t"), ElementsAre(0, 0, 0));
    EXPECT_THAT(numbers("getAttr foot_L_ctrl.r"), ElementsAre(0, 0, 0));

    ASSERT_TRUE(mel("select -r arm_ctrl"));
    expectOneUndoStep([&] { press(tangent); });
    EXPECT_THAT(strings("keyTangent -t 1 -q -itt arm_ctrl_translateY"), ElementsAre("linear"));
    EXPECT_THAT(strings("keyTangent -t 1 -q -ott arm_ctrl_translateY"), ElementsAre("linear"));
    EXPECT_THAT(strings("keyTangent -t 10 -q -itt arm_ctrl_translateY"), ElementsAre("auto"));

    // The arm's keys at the current frame move one frame on, and the time with them.
    auto* forward = panel()->findChild<Ui::RetimingBtn*>()->findChildren<QPushButton*>().at(1);
    expectOneUndoStep([&] {
        QTest::mouseClick(forward, Qt::LeftButton);
        runTimers();
    });
    EXPECT_THAT(keyTimes("arm_ctrl_translateY"), ElementsAre(2, 10, 20, 30, 40));
    EXPECT_THAT(keyTimes("arm_ctrl_rotateZ"), ElementsAre(2, 20, 40));
    EXPECT_EQ(MAnimControl::currentTime().value(), 2.0);

    // The foot's place in the world, copied, comes back after its parent moved.
    ASSERT_TRUE(mel("select -r foot_L_ctrl"));
    const std::vector<double> footAt = numbers("xform -q -ws -t foot_L_ctrl");
    press(world);
    ASSERT_TRUE(mel("setAttr root_ctrl.tx 5"));
    expectOneUndoStep([&] { press(world, "ctrl+shift"); });
    const std::vector<double> pasted = numbers("xform -q -ws -t foot_L_ctrl");
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(pasted[i], footAt[i], 1e-9) << i;

    // The right foot follows the arm it was copied with.
    ASSERT_TRUE(mel("select -r foot_R_ctrl arm_ctrl"));
    press(relation);
    const std::vector<double> armBefore = numbers("xform -q -ws -t arm_ctrl");
    const std::vector<double> footBefore = numbers("xform -q -ws -t foot_R_ctrl");
    ASSERT_TRUE(mel("setAttr arm_ctrl.tx 7"));
    const std::vector<double> armAfter = numbers("xform -q -ws -t arm_ctrl");
    expectOneUndoStep([&] { press(relation, "ctrl+shift"); });
    const std::vector<double> followed = numbers("xform -q -ws -t foot_R_ctrl");
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(followed[i], footBefore[i] + armAfter[i] - armBefore[i], 1e-9) << i;

    // A trail on the arm in the button's style, not the command's own.
    ASSERT_TRUE(mel("select -r arm_ctrl"));
    press(trail);
    const MotionTrail::Manager& trails = MotionTrail::Manager::instance();
    ASSERT_EQ(trails.trailCount(), 1u);
    const MotionTrail::Trail* made = trails.trail(MObjectHandle(nodeNamed("arm_ctrl")).hashCode());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->style.lineSize, 3.0);
    EXPECT_EQ(made->style.pointsSize, 9.0);
    press(trail);
    EXPECT_EQ(trails.trailCount(), 0u);
}
