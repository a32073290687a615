// The panel in the GUI host: opened, hidden and moved by `orvane`, filled and
// emptied by right presses, kept in prefs.json.
#include "DataFolderTest.h"
#include "FileBytes.h"
#include <mayasim/Gui.h>

#include "Ui/Main.h"
#include "Ui/Manager.h"
#include "Ui/Tools.h"
#include "Utils/File/PluginManager.h"

#include <maya/MGlobal.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <maya/MQtUtil.h>
#include <maya/MStringArray.h>
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
#include <QTimer>

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

const char* const Control = "ORVANE_WORKSPACE_CONTROL";

QString prefsPath() { return File::PluginManager::pluginFilePath(QStringLiteral("prefs.json")); }

std::vector<std::string> strings(const std::string& command)
{
    MStringArray result;
    EXPECT_TRUE(MGlobal::executeCommand(command.c_str(), result)) << command;
    std::vector<std::string> texts;
    for (unsigned int i = 0; i < result.length(); ++i)
        texts.push_back(result[i].asChar());
    return texts;
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
        // The entry may have deleted what was pressed.
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
