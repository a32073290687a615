// The selection set strip in the GUI host, driven by the mouse and keyboard
// as an animator drives it, on a scene with three sets.
#include "PluginTest.h"

#include "Ui/SelectionSet/Button.h"
#include "Ui/SelectionSet/Manager.h"
#include "Ui/SelectionSet/Ui.h"

#include <maya/MFileIO.h>
#define MNoVersionString // the plug-in emits the version symbols
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>
#include <mayasim/Gui.h>
#include <mayasim/Host.h>

#include <gmock/gmock.h>

#include <QApplication>
#include <QDialog>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QTimer>


using ::testing::ElementsAre;

namespace {

const std::string Control = "OVSELECTIONSET_WORKSPACE_CONTROL";

std::string text(const std::string& command)
{
    MString result;
    EXPECT_TRUE(MGlobal::executeCommand(command.c_str(), result)) << command;
    return result.asChar();
}

int number(const std::string& command)
{
    int result = -1;
    EXPECT_TRUE(MGlobal::executeCommand(command.c_str(), result)) << command;
    return result;
}

class SelectionSetPanelTest : public PluginTest
{
protected:
    void SetUp() override
    {
        PluginTest::SetUp();
        mayasim::gui::openMainWindow(1000, 600);
        ASSERT_TRUE(MFileIO::open(ORVANE_TEST_DATA "/selection_sets.ma", nullptr, true));
        ASSERT_TRUE(mel("OVSelectionSetUi"));
        QApplication::processEvents();
        ASSERT_NE(panel(), nullptr);
    }
    void TearDown() override
    {
        mayasim::gui::closeMainWindow();
        PluginTest::TearDown();
    }

    static SelectionSetUi::Ui* panel() { return SelectionSetUi::Manager::instance().panel(); }
    // The set buttons from left to right, by their node names.
    static std::vector<std::string> buttonNames()
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        std::vector<std::string> names;
        QLayout* row = panel()->layout();
        for (int i = 0; i < row->count(); ++i)
            if (auto* button = qobject_cast<SelectionSetUi::Button*>(row->itemAt(i)->widget()))
                names.push_back(button->objectName().toStdString());
        return names;
    }
    static SelectionSetUi::Button* button(const std::string& node)
    {
        return panel()->findChild<SelectionSetUi::Button*>(QString::fromStdString(node));
    }
    static std::string path(const std::string& node) { return Control + "|" + node; }
    static std::string toolPath(const std::string& tip)
    {
        const std::vector<std::string> found = strings("mayasimUi -q -find \"" + tip + "\" " + Control);
        EXPECT_EQ(found.size(), 1u) << tip;
        return found.empty() ? std::string() : found[0];
    }
    static void click(const std::string& node, const std::string& modifiers = "")
    {
        ASSERT_TRUE(mel("mayasimUi -click " + (modifiers.empty() ? "" : "-mod " + modifiers + " ") + "\"" + path(node)
                        + "\""));
    }
    // The colour a person sees on the button, left of its label, with the
    // mouse elsewhere.
    static std::string colourOf(const std::string& node)
    {
        EXPECT_TRUE(mel("mayasimUi -move 1 1 \"" + path(node) + "\""));
        EXPECT_TRUE(mel("mayasimUi -move 1 1 \"" + toolPath("create set") + "\""));
        const int middle = button(node)->height() / 2;
        return text("mayasimUi -q -pixel 2 " + std::to_string(middle) + " \"" + path(node) + "\"");
    }
    // A right press on the widget, then the entry chosen from the menu it
    // opens; the menu's entries.
    static std::vector<std::string> rightPressChoosing(const std::string& widget, const std::string& entry)
    {
        std::vector<std::string> entries;
        bool chosen = false;
        QTimer::singleShot(0, [&] {
            if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
                for (QAction* action : menu->actions())
                    entries.push_back(action->text().toStdString());
            chosen = mel("mayasimUi -menu \"" + entry + "\"");
        });
        EXPECT_TRUE(mel("mayasimUi -press -b right \"" + widget + "\""));
        // The entry may have deleted what was pressed: gone before the release.
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        mel("mayasimUi -release -b right \"" + widget + "\"");
        EXPECT_TRUE(chosen) << entry;
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return entries;
    }
    // The last entry of a button's menu, which hides or shows.
    static std::string hideEntry(const std::string& node)
    {
        return button(node)->findChild<QMenu*>()->actions().back()->text().toStdString();
    }
    static std::vector<std::string> selection() { return strings("ls -sl"); }
    static std::string content(const std::string& set) { return text("getAttr " + set + ".content"); }
    static QDialog* dialog() { return qobject_cast<QDialog*>(QApplication::activeModalWidget()); }
};

TEST_F(SelectionSetPanelTest, ShowsTheScenesSetsNewestLeftInTheirColours)
{
    EXPECT_THAT(buttonNames(), ElementsAre("x1E2x1Eface", "x1E1x1Espine", "x1E0x1Ehands"));
    EXPECT_EQ(button("x1E0x1Ehands")->text(), "hands");
    EXPECT_EQ(colourOf("x1E0x1Ehands"), "192 64 64 255");
    EXPECT_EQ(colourOf("x1E1x1Espine"), "112 112 208 255");
    // Index 40 is beyond the table: the first colour, and 0 on the button.
    EXPECT_EQ(colourOf("x1E2x1Eface"), "80 80 80 255");
    EXPECT_EQ(button("x1E2x1Eface")->property("colorIndex").toInt(), 0);
    EXPECT_EQ(text("mayasimUi -q -toolTip \"" + path("x1E0x1Ehands") + "\""),
              "shift+click: add set to selection\nctrl+click: remove set from selection\n"
              "ctrl+shift+click: toggle hide objects in set");
    ASSERT_TRUE(mel("mayasimUi -screenshot \"" ORVANE_BINARY_DIR "/selection_set_strip.png\" " + Control));

    // A new scene has no sets; opening one brings its buttons back.
    ASSERT_TRUE(MFileIO::newFile(true));
    EXPECT_TRUE(buttonNames().empty());
    ASSERT_TRUE(MFileIO::open(ORVANE_TEST_DATA "/selection_sets.ma", nullptr, true));
    EXPECT_THAT(buttonNames(), ElementsAre("x1E2x1Eface", "x1E1x1Espine", "x1E0x1Ehands"));
}

TEST_F(SelectionSetPanelTest, ClicksSelectAndModifiersAddRemoveOrHide)
{
    ASSERT_TRUE(mel("select -r spine_ctrl"));
    click("x1E0x1Ehands");
    EXPECT_THAT(selection(), ElementsAre("hand_L_ctrl", "hand_R_ctrl"));
    click("x1E1x1Espine", "shift");
    EXPECT_THAT(selection(), ElementsAre("hand_L_ctrl", "hand_R_ctrl", "spine_ctrl"));
    click("x1E0x1Ehands", "ctrl");
    EXPECT_THAT(selection(), ElementsAre("spine_ctrl"));

    // Ctrl and Shift hide; again, show; the menu entry follows.
    const std::string shown = sceneText();
    click("x1E0x1Ehands", "ctrl+shift");
    EXPECT_EQ(number("getAttr hand_L_ctrlShape.lodVisibility"), 0);
    EXPECT_EQ(number("getAttr x1E0x1Ehands.hide"), 1);
    EXPECT_EQ(hideEntry("x1E0x1Ehands"), "Show <Ctrl+Shift>");
    click("x1E0x1Ehands", "ctrl+shift");
    EXPECT_EQ(number("getAttr hand_L_ctrlShape.lodVisibility"), 1);
    EXPECT_EQ(hideEntry("x1E0x1Ehands"), "Hide <Ctrl+Shift>");
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(number("getAttr hand_L_ctrlShape.lodVisibility"), 0);
    ASSERT_TRUE(mel("undo"));
    EXPECT_EQ(sceneText(), shown) << "each click is one undo step";
}

TEST_F(SelectionSetPanelTest, TheButtonMenuEditsTheSet)
{
    ASSERT_TRUE(mel("select -r spine_ctrl face"));
    EXPECT_THAT(rightPressChoosing(path("x1E0x1Ehands"), "Add"),
                ElementsAre("Add", "Remove", "Update", "Change style", "Delete", "Hide    <Ctrl+Shift>"));
    EXPECT_EQ(content("x1E0x1Ehands"), "hand_L_ctrl hand_R_ctrl spine_ctrl face ");
    ASSERT_TRUE(mel("select -r hand_L_ctrl face"));
    rightPressChoosing(path("x1E0x1Ehands"), "Remove");
    EXPECT_EQ(content("x1E0x1Ehands"), "hand_R_ctrl spine_ctrl ");
    rightPressChoosing(path("x1E0x1Ehands"), "Update");
    EXPECT_EQ(content("x1E0x1Ehands"), "hand_L_ctrl face ");
    rightPressChoosing(path("x1E0x1Ehands"), "Hide    <Ctrl+Shift>");
    EXPECT_EQ(number("getAttr x1E0x1Ehands.hide"), 1);

    rightPressChoosing(path("x1E0x1Ehands"), "Delete");
    EXPECT_TRUE(nodeNamed("x1E0x1Ehands").isNull());
    EXPECT_EQ(number("getAttr hand_L_ctrlShape.lodVisibility"), 1) << "a deleted set shows what it hid";
    EXPECT_THAT(buttonNames(), ElementsAre("x1E2x1Eface", "x1E1x1Espine"));
    // Undone by the command, the set keeps no button until the next rebuild.
    ASSERT_TRUE(mel("undo"));
    EXPECT_FALSE(nodeNamed("x1E0x1Ehands").isNull());
    EXPECT_THAT(buttonNames(), ElementsAre("x1E2x1Eface", "x1E1x1Espine"));

    // "Delete all" from the strip's free part.
    rightPressChoosing(toolPath("create set"), "Delete all");
    EXPECT_TRUE(buttonNames().empty());
    EXPECT_TRUE(nodeNamed("x1E1x1Espine").isNull());
    EXPECT_FALSE(nodeNamed("x1E0x1Ehands").isNull()) << "it had no button";
    ASSERT_TRUE(mel("undo"));
    EXPECT_FALSE(nodeNamed("x1E1x1Espine").isNull());
    EXPECT_FALSE(nodeNamed("x1E2x1Eface").isNull());
}

TEST_F(SelectionSetPanelTest, TheDialogNamesAndColoursSets)
{
    ASSERT_TRUE(mel("select -r hand_L_ctrl"));
    ASSERT_TRUE(mel("mayasimUi -click \"" + toolPath("create set") + "\""));
    ASSERT_NE(dialog(), nullptr);
    EXPECT_EQ(dialog()->windowTitle(), "Selection Sets Tool");
    auto* field = dialog()->findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->text(), "");
    for (const char* key : {"a", "Space", "b", "-", "c"})
        ASSERT_TRUE(mel(std::string("mayasimUi -key \"") + key + "\""));
    EXPECT_EQ(field->text(), "a_b_c");
    EXPECT_EQ(field->cursorPosition(), 5);
    ASSERT_TRUE(mel("mayasimUi -key Home; mayasimUi -key Right; mayasimUi -key \"!\""));
    EXPECT_EQ(field->text(), "a__b_c");
    EXPECT_EQ(field->cursorPosition(), 2) << "the cursor stays where the character went in";
    // Enter acts as Ok: a set of the selection, in the colour checked at first.
    ASSERT_TRUE(mel("mayasimUi -key Return"));
    QApplication::processEvents();
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_EQ(content("x1E3x1Ea__b_c"), "hand_L_ctrl ");
    EXPECT_EQ(number("getAttr x1E3x1Ea__b_c.colorIndex"), 12);
    EXPECT_EQ(buttonNames().front(), "x1E3x1Ea__b_c");
    EXPECT_EQ(button("x1E3x1Ea__b_c")->text(), "a__b_c");
    EXPECT_EQ(colourOf("x1E3x1Ea__b_c"), "112 112 208 255");
    ASSERT_TRUE(mel("undo"));
    EXPECT_TRUE(nodeNamed("x1E3x1Ea__b_c").isNull()) << "the set and its colour are one undo step";
    ASSERT_TRUE(mel("redo"));

    // "Change style" opens it on the button: a new colour, Ok.
    rightPressChoosing(path("x1E1x1Espine"), "Change style");
    ASSERT_NE(dialog(), nullptr);
    EXPECT_EQ(dialog()->findChild<QLineEdit*>()->text(), "spine");
    // The 19 swatches, then Ok and Cancel; the button's colour is checked.
    const std::vector<std::string> buttons = strings("mayasimUi -q -find \"QPushButton\" dialog");
    ASSERT_EQ(buttons.size(), 21u);
    EXPECT_EQ(number("mayasimUi -q -checked \"" + buttons[12] + "\""), 1);
    ASSERT_TRUE(mel("mayasimUi -screenshot \"" ORVANE_BINARY_DIR "/selection_set_dialog.png\" dialog"));
    ASSERT_TRUE(mel("mayasimUi -click \"" + buttons[3] + "\""));
    ASSERT_TRUE(mel("mayasimUi -click \"" + buttons[19] + "\""));
    EXPECT_EQ(number("getAttr x1E1x1Espine.colorIndex"), 3);
    EXPECT_EQ(colourOf("x1E1x1Espine"), "224 112 112 255");
    EXPECT_EQ(button("x1E1x1Espine")->text(), "spine");
    // Cancel changes nothing.
    rightPressChoosing(path("x1E0x1Ehands"), "Change style");
    ASSERT_TRUE(mel("mayasimUi -click \"" + buttons[5] + "\""));
    ASSERT_TRUE(mel("mayasimUi -click \"" + buttons[20] + "\""));
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_EQ(number("getAttr x1E0x1Ehands.colorIndex"), 4);
    // The button of a set deleted by hand recolours itself and says nothing.
    ASSERT_TRUE(mel("delete x1E0x1Ehands"));
    mayasim::host::clearOutput();
    rightPressChoosing(path("x1E0x1Ehands"), "Change style");
    ASSERT_TRUE(mel("mayasimUi -click \"" + buttons[8] + "\""));
    ASSERT_TRUE(mel("mayasimUi -click \"" + buttons[19] + "\""));
    EXPECT_EQ(button("x1E0x1Ehands")->property("colorIndex").toInt(), 8);
    for (const auto& line : mayasim::host::output())
        EXPECT_NE(line.kind, mayasim::host::OutputLine::Kind::Error) << line.text;
}

TEST_F(SelectionSetPanelTest, HideUiHidesTheStripAndTheCommandBringsItBack)
{
    QPointer<SelectionSetUi::Ui> strip = panel();
    ASSERT_TRUE(mel("mayasimUi -click \"" + toolPath("hide ui") + "\""));
    QApplication::processEvents();
    EXPECT_EQ(number("workspaceControl -q -visible " + Control), 0);
    EXPECT_FALSE(strip.isNull());
    ASSERT_TRUE(mel("OVSelectionSetUi"));
    QApplication::processEvents();
    EXPECT_EQ(number("workspaceControl -q -visible " + Control), 1);
    EXPECT_EQ(panel(), strip.data());
    ASSERT_TRUE(mel("OVSelectionSetUi"));
    EXPECT_EQ(number("workspaceControl -q -visible " + Control), 0) << "a second run hides it";
    // Maya's layout rebuild empties the control and runs the ui script: a
    // strip of the scene's sets is back in it, shown.
    ASSERT_TRUE(mel("OVSelectionSetUi"));
    ASSERT_TRUE(mel("mayasimUi -rebuild " + Control));
    QApplication::processEvents();
    EXPECT_EQ(number("workspaceControl -q -visible " + Control), 1);
    ASSERT_NE(panel(), nullptr);
    EXPECT_TRUE(MQtUtil::findControl(Control.c_str())->isAncestorOf(panel()));
    EXPECT_EQ(buttonNames().size(), 3u);
}

TEST_F(SelectionSetPanelTest, UnloadingClosesTheControlAndDeletesTheStrip)
{
    QPointer<SelectionSetUi::Ui> strip = panel();
    ASSERT_TRUE(MFileIO::newFile(true));
    ASSERT_TRUE(mel("unloadPlugin orvane"));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(strip.isNull());
    EXPECT_EQ(number("workspaceControl -q -visible " + Control), 0);
    // A new scene after the unload finds no callback of the strip.
    ASSERT_TRUE(MFileIO::newFile(true));
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
}

} // namespace
