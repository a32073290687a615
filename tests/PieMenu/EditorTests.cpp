// The popup's other ways out, the preview's right drag, the editors, and
// what each kind of slice runs.
#include "PieMenuTest.h"

#include "PieMenu/EditDialog.h"
#include "PieMenu/HotkeyLineEdit.h"
#include "PieMenu/Icons.h"
#include "PieMenu/MenuListDialog.h"
#include "PieMenu/PieMenuPopup.h"
#include "PieMenu/PiePreviewWidget.h"
#include "PieMenu/PluginCommands.h"
#include "PieMenu/SliceDialog.h"
#include "Ui/Main.h"
#include "Ui/Manager.h"

#include <QCursor>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using PieMenu::Slice;

namespace PieMenu {
// Made from the .qrc files when the build is configured.
QStringList pluginResourceImages();
} // namespace PieMenu

namespace {

template <typename T>
T* shown()
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* found = qobject_cast<T*>(widget))
            if (found->isVisible())
                return found;
    return nullptr;
}

QPushButton* buttonNamed(QWidget* parent, const QString& text)
{
    for (QPushButton* button : parent->findChildren<QPushButton*>())
        if (button->text() == text && button->isVisible())
            return button;
    return nullptr;
}

// Runs the action once the next modal dialog is open, then goes on.
void whenModal(const std::function<void(QWidget*)>& action)
{
    QTimer::singleShot(0, [action] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog) {
            whenModal(action);
            return;
        }
        action(dialog);
    });
}

// Picks the entry of the popup menu that opens next, by a key press on it.
void whenMenu(const QString& entry)
{
    QTimer::singleShot(0, [entry] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu) {
            whenMenu(entry);
            return;
        }
        for (QAction* action : menu->actions())
            if (action->text() == entry)
                menu->setActiveAction(action);
        QTest::keyClick(menu, Qt::Key_Return);
    });
}

// Answers the text dialog that opens next.
void whenTextAsked(const QString& text)
{
    whenModal([text](QWidget* dialog) {
        auto* input = qobject_cast<QInputDialog*>(dialog);
        ASSERT_NE(input, nullptr);
        EXPECT_EQ(input->windowTitle(), QStringLiteral("Rename pie menu"));
        EXPECT_EQ(input->labelText(), QStringLiteral("Name:"));
        input->setTextValue(text);
        input->accept();
    });
}

// Where the middle of slice i of n lies on a preview.
QPoint sliceCentre(const QWidget* preview, int i, int n)
{
    const double radius = (std::min(preview->width(), preview->height()) * 0.5 - 4.0) * 0.69;
    const double angle = (90.0 - (i + 0.5) * 360.0 / n) * M_PI / 180.0;
    return QPoint(preview->width() / 2 + std::lround(radius * std::cos(angle)),
                  preview->height() / 2 - std::lround(radius * std::sin(angle)));
}

QString screenshot(QWidget* widget, const char* name)
{
    const QString path = QDir::temp().filePath(QString::fromLatin1(name));
    widget->grab().save(path);
    return path;
}

} // namespace

TEST_F(PieMenuTest, SlicesRunAsMelPythonKeysOrPluginRows)
{
    EXPECT_EQ(PieMenu::pluginCommands().size(), 35);
    EXPECT_EQ(PieMenu::pluginCommand(3)->label, QStringLiteral("platue tangent"));
    EXPECT_EQ(PieMenu::pluginCommand(3)->command, QStringLiteral("OVTangent -blendType 1 -inTangent -outTangent"));
    EXPECT_EQ(PieMenu::pluginCommand(34)->icon, QStringLiteral(":/animation_offset.png"));
    EXPECT_EQ(PieMenu::pluginCommand(35), nullptr);

    mayasim::host::clearSentCommands();
    PieMenu::runSlice({QString(), QString(), QStringLiteral("  createNode transform -n ball;  "), PieMenu::Mel, -1});
    PieMenu::runSlice({QString(), QString(), QStringLiteral("import maya.cmds as cmds\ncmds.createNode('transform', n='box')"),
                       PieMenu::Python, -1});
    PieMenu::runSlice({QString(), QString(), QStringLiteral("   "), PieMenu::Mel, -1});
    PieMenu::runSlice({QString(), QString(), QString(), PieMenu::Hotkey, -1});
    // The row's command, looked up at the run; the text stored beside it is ignored.
    PieMenu::runSlice({QString(), QString(), QStringLiteral("stale"), PieMenu::Mel, 22});
    PieMenu::runSlice({QString(), QString(), QString(), PieMenu::Python, 25});
    // Reset and tangent rows run once the events of the gesture are handled.
    for (const auto& command : mayasim::host::sentCommands())
        EXPECT_NE(command.text.rfind("OVResetPose", 0), 0u) << command.text;
    QTest::qWait(2);
    QApplication::processEvents();
    PieMenu::runSlice({QString(), QString(), QString(), PieMenu::Mel, 15});
    writeBytes(QDir(fData).filePath("prefs.json"),
               R"({"widgets": [{"kind": "tangentBtn"}, {"kind": "retimingBtn", "jumpToNewTime": false}]})");
    PieMenu::runSlice({QString(), QString(), QString(), PieMenu::Mel, 16});
    // What each sent, by text, with the flags it was sent with.
    std::vector<mayasim::host::SentCommand> commands;
    for (const auto& command : mayasim::host::sentCommands())
        if (command.text.rfind("import maya", 0) == 0 || command.text.rfind("createNode", 0) == 0
            || command.text.rfind("OVRe", 0) == 0)
            commands.push_back(command);
    ASSERT_EQ(commands.size(), 6u);
    EXPECT_EQ(commands[0].text, "createNode transform -n ball;");
    EXPECT_TRUE(commands[0].display && commands[0].undo && !commands[0].python);
    EXPECT_TRUE(commands[1].python && commands[1].display && commands[1].undo);
    EXPECT_FALSE(nodeNamed("box").isNull());
    EXPECT_EQ(commands[2].text, "OVResetPose -translate");
    EXPECT_TRUE(commands[2].display);
    EXPECT_EQ(commands[3].text, "OVResetPose -translate -rotate -scale");
    EXPECT_FALSE(commands[3].display);
    EXPECT_EQ(commands[4].text, "OVRetiming -value -1 -retimeType 0 -JumpToNewTime");
    EXPECT_EQ(commands[5].text, "OVRetiming -value 1 -retimeType 0");

    // Every row sends its own text first.
    for (const PieMenu::PluginCommand& row : PieMenu::pluginCommands()) {
        mayasim::host::clearSentCommands();
        PieMenu::runSlice({QString(), QString(), QString(), PieMenu::Mel, row.id});
        QTest::qWait(2);
        QApplication::processEvents();
        // Leaving out the query of the time slider's highlight.
        std::vector<std::string> texts;
        for (const auto& command : mayasim::host::sentCommands())
            if (command.text.rfind("$tmpVar", 0) != 0 && command.text.rfind("timeControl -q", 0) != 0)
                texts.push_back(command.text);
        ASSERT_FALSE(texts.empty()) << row.id;
        // The prefs.json written above turns the jump of rows 15 and 16 off.
        const std::string expected = row.command.toStdString();
        EXPECT_EQ(texts.front(), expected) << row.id;
        if (row.id == 32 || row.id == 33) {
            EXPECT_THAT(sent(), Contains(expected + " -moveUI"));
        }
    }

    // A key chord reaches the focus widget after the present event, and
    // with it whatever that key does: here another hotkey.
    ASSERT_TRUE(mel("global int $gChord; $gChord = 0; nameCommand -c \"global int $gChord; $gChord = $gChord + 1\" chordCount"));
    if (!number("hotkeySet -exists Animator")) {
        ASSERT_TRUE(mel("hotkeySet -source Maya_Default Animator"));
    }
    ASSERT_TRUE(mel("hotkeySet -e -current Animator; hotkey -k \"k\" -ctl -name chordCount"));
    PieMenu::runSlice({QString(), QString(), QStringLiteral(" Ctrl+K "), PieMenu::Hotkey, -1});
    int count = 0;
    MGlobal::executeCommand("global int $gChord; $gChord = $gChord", count);
    EXPECT_EQ(count, 0);
    // The timer, then the key events it posts.
    QApplication::processEvents();
    QApplication::processEvents();
    MGlobal::executeCommand("global int $gChord; $gChord = $gChord", count);
    EXPECT_EQ(count, 1);
    ASSERT_TRUE(mel("hotkey -k \"k\" -ctl -name \"\"; hotkeySet -e -current Maya_Default"));
}

TEST_F(PieMenuTest, PopupClosesByEscapeByClicksAndLeavesOtherMenusKeysAlone)
{
    const int first = store().addMenu();
    const int second = store().addMenu();
    store().setSlices(first, {{QStringLiteral("Key"), QStringLiteral(":/plus.png"), QStringLiteral("// up"), 0, -1},
                              {QString(), QString(), QStringLiteral("// right"), 0, -1},
                              {QStringLiteral("A rather long label"), QString(), QStringLiteral("// down"), 0, -1},
                              {QString(), QStringLiteral(":/plus.png"), QStringLiteral("// left"), 0, -1}});
    const QPoint centre(500, 350);
    QCursor::setPos(centre);
    ASSERT_TRUE(mel("OVPieMenu -s " + std::to_string(first)));
    auto* popup = shown<PieMenu::PieMenuPopup>();
    ASSERT_NE(popup, nullptr);
    EXPECT_TRUE(popup->windowFlags() & Qt::FramelessWindowHint);
    QCursor::setPos(centre + QPoint(0, -90));
    QApplication::processEvents();
    EXPECT_EQ(popup->preview()->hoveredIndex(), 0);
    // Shown again for the same menu (a key's auto-repeat), it stays put.
    ASSERT_TRUE(mel("OVPieMenu -s " + std::to_string(first)));
    EXPECT_EQ(popup->geometry().center(), centre - QPoint(1, 1));
    EXPECT_EQ(popup->preview()->hoveredIndex(), 0);
    const QString picture = screenshot(popup, "orvane_pie_popup.png");
    EXPECT_FALSE(QImage(picture).isNull());
    // The release of another menu's key does nothing to it.
    mayasim::host::clearSentCommands();
    ASSERT_TRUE(mel("OVPieMenu -c " + std::to_string(second)));
    EXPECT_TRUE(popup->isVisible());
    QTest::keyClick(popup, Qt::Key_Escape);
    EXPECT_FALSE(popup->isVisible());
    mayasim::host::clearSentCommands();
    MGlobal::executeCommand(("OVPieMenu -c " + std::to_string(first)).c_str());
    EXPECT_EQ(sent(), std::vector<std::string>{"OVPieMenu -c " + std::to_string(first)});

    // A left click on a slice runs it; on the centre, nothing.
    ASSERT_TRUE(mel("OVPieMenu -s " + std::to_string(first)));
    QTest::mouseClick(popup->preview(), Qt::LeftButton, {}, QPoint(160, 160));
    EXPECT_FALSE(popup->isVisible());
    ASSERT_TRUE(mel("OVPieMenu -s " + std::to_string(first)));
    mayasim::host::clearSentCommands();
    QTest::mouseClick(popup->preview(), Qt::LeftButton, {}, QPoint(300, 160));
    EXPECT_FALSE(popup->isVisible());
    EXPECT_THAT(sent(), ElementsAre("// right"));
    // Unknown ids do nothing.
    ASSERT_TRUE(mel("OVPieMenu -s 99; OVPieMenu -c 99; OVPieMenu"));
    EXPECT_FALSE(popup->isVisible());
    EXPECT_FALSE(mel("OVPieMenu -s"));
    // Without the interface there is nothing to show.
    mayasim::gui::closeMainWindow();
    EXPECT_FALSE(mel("OVPieMenu -e"));
    EXPECT_FALSE(mel("OVPieMenu -s " + std::to_string(first)));
    EXPECT_THAT(reports(), Contains(HasSubstr("Message: pie menus need Maya's interface\n")));
    EXPECT_TRUE(mel("OVPieMenu -c " + std::to_string(first)));
}

TEST_F(PieMenuTest, EditorDragsSlicesCapturesHotkeysAndRefusesATakenOne)
{
    const int other = store().addMenu();
    store().setHotkey(other, QStringLiteral("Ctrl+K"));
    ASSERT_TRUE(store().save());
    const int id = store().addMenu();
    QVector<Slice> slices;
    for (int i = 0; i < 6; ++i)
        slices.append({QStringLiteral("s%1").arg(i), QString(), QStringLiteral("// %1").arg(i), i % 2, i == 2 ? 7 : -1});
    store().setSlices(id, slices);
    ASSERT_TRUE(store().save());

    // The list: one button per menu, then the add button.
    ASSERT_TRUE(mel("OVPieMenu -e"));
    auto* list = shown<PieMenu::MenuListDialog>();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->windowTitle(), QStringLiteral("Orvane — Pie Menu"));
    QPushButton* button = buttonNamed(list, QStringLiteral("Pie Menu %1").arg(id));
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
    auto* editor = shown<PieMenu::EditDialog>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->menuId(), id);
    auto* preview = editor->findChild<PieMenu::PiePreviewWidget*>();
    auto* count = editor->findChild<QSpinBox*>();
    auto* field = editor->findChild<PieMenu::HotkeyLineEdit*>();
    ASSERT_TRUE(preview && count && field);
    EXPECT_EQ(count->value(), 6);
    QApplication::processEvents();

    // A right drag swaps two slices whole; onto the centre, nothing.
    QTest::mousePress(preview, Qt::RightButton, {}, sliceCentre(preview, 2, 6));
    QTest::mouseMove(preview, sliceCentre(preview, 5, 6));
    QTest::mouseRelease(preview, Qt::RightButton, {}, sliceCentre(preview, 5, 6));
    EXPECT_EQ(preview->sliceAt(5), slices[2]);
    EXPECT_EQ(preview->sliceAt(2), slices[5]);
    QTest::mousePress(preview, Qt::RightButton, {}, sliceCentre(preview, 1, 6));
    QTest::mouseRelease(preview, Qt::RightButton, {}, QPoint(preview->width() / 2, preview->height() / 2));
    EXPECT_EQ(preview->sliceAt(1), slices[1]);

    // The field takes chords: a modifier alone waits, Backspace clears.
    QTest::mouseClick(field, Qt::LeftButton);
    QTest::keyClick(field, Qt::Key_Control, Qt::ControlModifier);
    EXPECT_EQ(field->text(), QString());
    QTest::keyClick(field, Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(field->text(), QKeySequence(QStringLiteral("Ctrl+K")).toString(QKeySequence::NativeText));
    QTest::keyClick(field, Qt::Key_Shift, Qt::ShiftModifier);
    EXPECT_EQ(field->text(), QKeySequence(QStringLiteral("Ctrl+K")).toString(QKeySequence::NativeText));

    // Another menu's key: the warning, and nothing stored, slices included.
    const QByteArray before = readBytes(filePath());
    std::pair<QString, QString> warning;
    whenModal([&warning](QWidget* box) {
        warning = {box->windowTitle(), box->findChild<QLabel*>("qt_msgbox_label")->text()};
        static_cast<QDialog*>(box)->accept();
    });
    QTest::mouseClick(buttonNamed(editor, QStringLiteral("Apply")), Qt::LeftButton);
    EXPECT_EQ(warning.first, QStringLiteral("Hotkey"));
    EXPECT_EQ(warning.second, QStringLiteral("This hotkey is already assigned to \"Pie Menu %1\".").arg(other));
    EXPECT_EQ(readBytes(filePath()), before);
    EXPECT_EQ(store().slicesOf(id), slices);

    QTest::keyClick(field, Qt::Key_Backspace);
    EXPECT_EQ(field->text(), QString());
    QTest::keyClick(field, Qt::Key_F7, Qt::AltModifier);
    count->setValue(5);
    const QString picture = screenshot(editor, "orvane_pie_editor.png");
    EXPECT_FALSE(QImage(picture).isNull());
    QTest::mouseClick(buttonNamed(editor, QStringLiteral("Apply and Close")), Qt::LeftButton);
    EXPECT_FALSE(editor->isVisible());
    EXPECT_EQ(store().hotkeyOf(id), QStringLiteral("Alt+F7"));
    ASSERT_EQ(store().slicesOf(id).size(), 5);
    EXPECT_EQ(store().slicesOf(id)[2], slices[5]);
    EXPECT_EQ(text("hotkey -q -name -alt -k \"F7\""), "OVPieMenuShow_" + std::to_string(id));

    // Lowering the count and closing keeps what is stored; clearing the
    // field and applying unbinds the key.
    store().openEditor(id);
    count->setValue(2);
    QTest::mouseClick(buttonNamed(editor, QStringLiteral("Close")), Qt::LeftButton);
    EXPECT_EQ(store().slicesOf(id).size(), 5);
    store().openEditor(id);
    EXPECT_EQ(count->value(), 5);
    field->clear();
    QTest::mouseClick(buttonNamed(editor, QStringLiteral("Apply")), Qt::LeftButton);
    EXPECT_EQ(store().hotkeyOf(id), QString());
    EXPECT_EQ(text("hotkey -q -name -alt -k \"F7\""), "");
}

TEST_F(PieMenuTest, SliceFormPicksPluginRowsIconsAndKeys)
{
    const Slice start{QStringLiteral("old"), QString(), QStringLiteral("print 1"), PieMenu::Python, -1};
    PieMenu::SliceDialog form(3, start);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Slice 4"));
    EXPECT_EQ(form.slice(), start);
    auto* pick = form.findChild<QPushButton*>();
    ASSERT_EQ(pick->text(), QStringLiteral("Plugin command…"));
    // The row picked by its search, then OK.
    whenModal([](QWidget* dialog) {
        QTest::keyClicks(dialog->findChild<QLineEdit*>(), QStringLiteral("RESET ROT"));
        buttonNamed(dialog, QStringLiteral("&OK")) ? buttonNamed(dialog, QStringLiteral("&OK"))->click()
                                                   : static_cast<QDialog*>(dialog)->accept();
    });
    pick->click();
    Slice picked = form.slice();
    EXPECT_EQ(picked.label, QStringLiteral("reset rotate"));
    EXPECT_EQ(picked.iconPath, QStringLiteral(":/reset.png"));
    EXPECT_EQ(picked.pluginCommandIndex, 23);
    EXPECT_EQ(picked.commandText, QStringLiteral("OVResetPose -rotate"));
    EXPECT_EQ(picked.commandLanguage, PieMenu::Mel);
    // Edited by hand, the command is the user's own.
    auto* script = form.findChild<QPlainTextEdit*>();
    script->moveCursor(QTextCursor::End);
    QTest::keyClicks(script, QStringLiteral(" -s"));
    picked = form.slice();
    EXPECT_EQ(picked.pluginCommandIndex, -1);
    EXPECT_EQ(picked.commandText, QStringLiteral("OVResetPose -rotate -s"));
    // Hotkey: the other page, and no plug-in rows.
    QRadioButton* keys = nullptr;
    for (QRadioButton* radio : form.findChildren<QRadioButton*>())
        if (radio->text() == QStringLiteral("Hotkey"))
            keys = radio;
    keys->click();
    EXPECT_FALSE(pick->isEnabled());
    auto* field = form.findChild<PieMenu::HotkeyLineEdit*>();
    QTest::keyClick(field, Qt::Key_PageUp, Qt::ShiftModifier);
    picked = form.slice();
    EXPECT_EQ(picked.commandLanguage, PieMenu::Hotkey);
    EXPECT_EQ(picked.commandText, QStringLiteral("Shift+PgUp"));

    // The plug-in's own images and the host's, never mixed.
    EXPECT_THAT(PieMenu::pluginIconPaths(), Contains(QStringLiteral(":/plus.png")));
    for (const QString& path : PieMenu::mayaIconPaths())
        EXPECT_FALSE(PieMenu::pluginIconPaths().contains(path)) << path.toStdString();
    // One resource file per image path: two blobs with one path shadow each other.
    const QStringList listed = PieMenu::pluginResourceImages();
    EXPECT_EQ(QSet<QString>(listed.begin(), listed.end()).size(), listed.size()) << listed.join(' ').toStdString();
    EXPECT_TRUE(PieMenu::isImageFile(QStringLiteral("a/B.PNG")));
    EXPECT_FALSE(PieMenu::isImageFile(QStringLiteral("a/b.txt")));
    whenModal([](QWidget* dialog) {
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Icons"));
        static_cast<QDialog*>(dialog)->accept();
    });
    EXPECT_EQ(PieMenu::pickIconPath(nullptr, {QStringLiteral(":/plus.png")}), QStringLiteral(":/plus.png"));
    // Icons resolve as paths, plug-in names and Maya's names.
    EXPECT_FALSE(PieMenu::sliceIcon(QStringLiteral(":/plus.png")).isNull());
    EXPECT_FALSE(PieMenu::sliceIcon(QStringLiteral("plus.png")).isNull());
    EXPECT_FALSE(PieMenu::sliceIcon(QStringLiteral("timeplay.png")).isNull());
    EXPECT_TRUE(PieMenu::sliceIcon(QStringLiteral("no such icon")).isNull());
}

TEST_F(PieMenuTest, MenuListRenamesAndDeletes)
{
    const int id = store().addMenu();
    ASSERT_TRUE(mel("OVPieMenu -e"));
    auto* list = shown<PieMenu::MenuListDialog>();
    ASSERT_NE(list, nullptr);
    // The add button.
    QPushButton* add = nullptr;
    for (QPushButton* button : list->findChildren<QPushButton*>())
        if (button->toolTip() == QStringLiteral("Add pie menu"))
            add = button;
    ASSERT_NE(add, nullptr);
    EXPECT_FALSE(add->icon().isNull());
    QTest::mouseClick(add, Qt::LeftButton);
    EXPECT_THAT(store().menuIds(), ElementsAre(id, id + 1));
    QApplication::processEvents();
    ASSERT_NE(buttonNamed(list, QStringLiteral("Pie Menu %1").arg(id + 1)), nullptr);

    // Rename through the button's menu; blanks change nothing.
    whenMenu(QStringLiteral("Rename"));
    whenTextAsked(QStringLiteral("Poses"));
    ASSERT_NE(buttonNamed(list, QStringLiteral("Pie Menu %1").arg(id)), nullptr);
    QTest::mousePress(buttonNamed(list, QStringLiteral("Pie Menu %1").arg(id)), Qt::RightButton);
    QApplication::processEvents();
    EXPECT_EQ(store().displayName(id), QStringLiteral("Poses"));
    ASSERT_NE(buttonNamed(list, QStringLiteral("Poses")), nullptr);
    whenMenu(QStringLiteral("Rename"));
    whenTextAsked(QStringLiteral("   "));
    ASSERT_NE(buttonNamed(list, QStringLiteral("Poses")), nullptr);
    QTest::mousePress(buttonNamed(list, QStringLiteral("Poses")), Qt::RightButton);
    QApplication::processEvents();
    EXPECT_EQ(store().displayName(id), QStringLiteral("Poses"));

    whenMenu(QStringLiteral("Delete"));
    ASSERT_NE(buttonNamed(list, QStringLiteral("Poses")), nullptr);
    QTest::mousePress(buttonNamed(list, QStringLiteral("Poses")), Qt::RightButton);
    QApplication::processEvents();
    EXPECT_THAT(store().menuIds(), ElementsAre(id + 1));
    EXPECT_EQ(buttonNamed(list, QStringLiteral("Poses")), nullptr);
    const QString picture = screenshot(list, "orvane_pie_list.png");
    EXPECT_FALSE(QImage(picture).isNull());
}

TEST_F(PieMenuTest, ThePanelsPieMenuEntryOpensTheList)
{
    ASSERT_TRUE(mel("orvane"));
    Ui::Main* panel = Ui::Manager::instance().panel();
    ASSERT_NE(panel, nullptr);
    QApplication::processEvents();
    mayasim::host::clearSentCommands();
    whenMenu(QStringLiteral("Pie Menu"));
    QTest::mousePress(panel, Qt::RightButton, {}, QPoint(2, 2));
    QApplication::processEvents();
    ASSERT_FALSE(mayasim::host::sentCommands().empty());
    const auto& command = mayasim::host::sentCommands().front();
    EXPECT_EQ(command.text, "OVPieMenu -e");
    EXPECT_TRUE(command.display && !command.undo);
    EXPECT_NE(shown<PieMenu::MenuListDialog>(), nullptr);
    // The panel keeps no widget for it.
    EXPECT_TRUE(readBytes(QDir(fData).filePath("prefs.json")).isEmpty()
                || !readBytes(QDir(fData).filePath("prefs.json")).contains("Pie"));
}
