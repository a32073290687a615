// Pie hotkeys through the host's hotkey system: the exact MEL strings, the
// hot key set, the key press opening the popup and its release running the
// slice in the mouse's direction.
#include "PieMenuTest.h"

#include "PieMenu/Hotkeys.h"
#include "PieMenu/PieMenuPopup.h"
#include "PieMenu/PiePreviewWidget.h"

#include <maya/MStringArray.h>

#include <QCursor>
#include <QWidget>

#include <gmock/gmock.h>

#include <cmath>

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

const std::string HotkeySetScript
    = "if (`hotkeySet -q -current` == \"Maya_Default\") {  if (!`hotkeySet -q -exists Orvane_Hotkey_Set`) {    "
      "hotkeySet -source Maya_Default Orvane_Hotkey_Set;  }  hotkeySet -e -current Orvane_Hotkey_Set;}";

PieMenu::PieMenuPopup* openPopup()
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* popup = qobject_cast<PieMenu::PieMenuPopup*>(widget))
            if (popup->isVisible())
                return popup;
    return nullptr;
}

// A slice that says which one it is when it runs.
PieMenu::Slice marker(int index)
{
    return {QString(), QString(), QStringLiteral("// slice %1").arg(index), PieMenu::Mel, -1};
}

int hotkeySetCount()
{
    MStringArray sets;
    MGlobal::executeCommand("hotkeySet -q -hotkeySetArray", sets);
    return static_cast<int>(sets.length());
}

} // namespace

TEST(PieHotkeyText, ParsesPortableTextToMayasKeyNames)
{
    const PieMenu::KeyChord chord = PieMenu::parseHotkey(QStringLiteral(" Ctrl+Shift+Q "));
    EXPECT_TRUE(chord.valid && chord.ctl && chord.sht && !chord.alt && !chord.cmd);
    EXPECT_EQ(chord.key, QStringLiteral("q"));
    EXPECT_EQ(PieMenu::parseHotkey(QStringLiteral("Alt+PgUp")).key, QStringLiteral("Page_Up"));
    EXPECT_EQ(PieMenu::parseHotkey(QStringLiteral("PgDown")).key, QStringLiteral("Page_Down"));
    EXPECT_EQ(PieMenu::parseHotkey(QStringLiteral("Esc")).key, QStringLiteral("Escape"));
    EXPECT_EQ(PieMenu::parseHotkey(QStringLiteral("Meta+Del")).key, QStringLiteral("Delete"));
    EXPECT_TRUE(PieMenu::parseHotkey(QStringLiteral("Meta+Ins")).cmd);
    EXPECT_EQ(PieMenu::parseHotkey(QStringLiteral("Control+F12")).key, QStringLiteral("F12"));
    const PieMenu::KeyChord plus = PieMenu::parseHotkey(QStringLiteral("Ctrl++"));
    EXPECT_TRUE(plus.valid && plus.ctl);
    EXPECT_EQ(plus.key, QStringLiteral("+"));
    EXPECT_FALSE(PieMenu::parseHotkey(QStringLiteral("  ")).valid);
    EXPECT_EQ(PieMenu::escapeMel(QStringLiteral("a\\b\"c")), QStringLiteral("a\\\\b\\\"c"));
}

TEST_F(PieMenuTest, BindsWithTheExactStringsInItsOwnHotkeySetMadeOnce)
{
    ASSERT_TRUE(mel("hotkeySet -e -current Maya_Default"));
    const int id = store().addMenu();
    ASSERT_TRUE(store().renameMenu(id, QStringLiteral("Say \"hi\"")));
    const int sets = hotkeySetCount();
    mayasim::host::clearSentCommands();
    store().setHotkey(id, QStringLiteral("Ctrl+Shift+Q"));
    const std::string show = "OVPieMenuShow_" + std::to_string(id), close = "OVPieMenuClose_" + std::to_string(id);
    EXPECT_THAT(sent(),
                ElementsAre("nameCommand -annotation \"Say \\\"hi\\\"\" -command \"OVPieMenu -s " + std::to_string(id)
                                + "\" -sourceType \"mel\" " + show,
                            "nameCommand -annotation \"Say \\\"hi\\\" (release)\" -command \"OVPieMenu -c "
                                + std::to_string(id) + "\" -sourceType \"mel\" " + close,
                            HotkeySetScript, "hotkey -ctl -sht -k \"q\" -name \"\" -releaseName \"\"",
                            "hotkey -ctl -sht -cmd -k \"q\" -name \"\" -releaseName \"\"",
                            "hotkey -ctl -sht -k \"q\" -name \"" + show + "\" -releaseName \"" + close + "\"",
                            "savePrefs -hotkeys "));
    for (const auto& command : mayasim::host::sentCommands())
        EXPECT_FALSE(command.display || command.undo) << command.text;
    EXPECT_EQ(text("hotkeySet -q -current"), "Orvane_Hotkey_Set");
    EXPECT_EQ(text("hotkey -q -name -ctl -sht -k \"q\""), show);
    EXPECT_EQ(text("hotkey -q -releaseName -ctl -sht -k \"q\""), close);
    EXPECT_TRUE(QFile::exists(QDir(homePath()).filePath("maya/2022/prefs/hotkeys/Orvane_Hotkey_Set.mhk")));

    // F5 to F6 unbinds F5 first; the same text again binds the same key once.
    store().setHotkey(id, QStringLiteral("F5"));
    mayasim::host::clearSentCommands();
    store().setHotkey(id, QStringLiteral("F6"));
    EXPECT_THAT(sent(), Contains("hotkey -k \"F5\" -name \"\" -releaseName \"\""));
    EXPECT_EQ(text("hotkey -q -name -k \"F5\""), "");
    EXPECT_EQ(text("hotkey -q -name -k \"F6\""), show);
    mayasim::host::clearSentCommands();
    store().setHotkey(id, QStringLiteral("F6"));
    EXPECT_THAT(sent(), Contains("hotkey -k \"F6\" -name \"" + show + "\" -releaseName \"" + close + "\""));
    const std::vector<std::string> again = sent();
    EXPECT_EQ(std::count(again.begin(), again.end(), "hotkey -k \"F6\" -name \"\" -releaseName \"\""), 1);
    // The copy of Maya's set is made once; a set of the user's own takes the key.
    const int withCopy = hotkeySetCount();
    EXPECT_LE(withCopy, sets + 1);
    ASSERT_TRUE(mel("hotkeySet -e -current Maya_Default"));
    store().setHotkey(id, QStringLiteral("Alt+PgUp"));
    EXPECT_EQ(hotkeySetCount(), withCopy);
    if (!number("hotkeySet -exists Animator")) {
        ASSERT_TRUE(mel("hotkeySet -source Maya_Default Animator"));
    }
    ASSERT_TRUE(mel("hotkeySet -e -current Animator"));
    store().setHotkey(id, QStringLiteral("Ctrl++"));
    EXPECT_EQ(text("hotkeySet -q -current"), "Animator");
    EXPECT_EQ(text("hotkey -q -name -ctl -k \"+\""), show);
    ASSERT_TRUE(store().save());

    // Unload takes every binding away and stores Maya's hotkeys.
    mayasim::host::clearSentCommands();
    ASSERT_TRUE(MGlobal::executeCommand("unloadPlugin orvane"));
    EXPECT_EQ(sent().back(), "savePrefs -hotkeys ");
    EXPECT_EQ(text("hotkey -q -name -ctl -k \"+\""), "");
    // Load binds it again, from the file.
    ASSERT_TRUE(mayasim::host::loadLinkedPlugin("orvane", initializePlugin, uninitializePlugin));
    EXPECT_EQ(text("hotkey -q -name -ctl -k \"+\""), show);
    // Removing the menu unbinds it.
    EXPECT_TRUE(store().removeMenu(id));
    EXPECT_EQ(text("hotkey -q -name -ctl -k \"+\""), "");
    ASSERT_TRUE(mel("hotkeySet -e -current Maya_Default"));
}

TEST_F(PieMenuTest, KeyPressOpensThePopupAndReleaseRunsTheSliceInTheMousesDirection)
{
    const int id = store().addMenu();
    store().setHotkey(id, QStringLiteral("Ctrl+Shift+Q"));
    const QPoint centre(400, 300);
    for (int n = 1; n <= 24; ++n) {
        QVector<PieMenu::Slice> slices;
        for (int i = 0; i < n; ++i)
            slices.append(marker(i));
        store().setSlices(id, slices);
        for (int i = 0; i < n; ++i) {
            SCOPED_TRACE("slice " + std::to_string(i) + " of " + std::to_string(n));
            QCursor::setPos(centre);
            ASSERT_TRUE(mel("mayasimUi -keyPress \"Ctrl+Shift+Q\""));
            PieMenu::PieMenuPopup* popup = openPopup();
            ASSERT_NE(popup, nullptr);
            EXPECT_EQ(popup->geometry(), QRect(centre - QPoint(160, 160), QSize(320, 320)));
            EXPECT_TRUE(popup->testAttribute(Qt::WA_TranslucentBackground));
            // Clockwise from 12 o'clock, near the slice's edges too, and far
            // outside the 320 by 320 window (still on the screen) for every
            // other slice.
            const double step = 360.0 / n;
            const double angle = (i + (i % 3 == 0 ? 0.5 : i % 3 == 1 ? 0.05 : 0.95)) * step * M_PI / 180.0;
            const double radius = i % 2 ? 280.0 : 80.0;
            QCursor::setPos(centre + QPoint(std::lround(radius * std::sin(angle)), -std::lround(radius * std::cos(angle))));
            QApplication::processEvents();
            EXPECT_EQ(popup->preview()->hoveredIndex(), i);
            // Auto-repeat neither opens it again nor closes it.
            ASSERT_TRUE(mel("mayasimUi -keyRelease \"Ctrl+Shift+Q\" -autoRepeat; mayasimUi -keyPress \"Ctrl+Shift+Q\" -autoRepeat"));
            EXPECT_TRUE(popup->isVisible());
            mayasim::host::clearSentCommands();
            ASSERT_TRUE(mel("mayasimUi -keyRelease \"Ctrl+Shift+Q\""));
            EXPECT_FALSE(popup->isVisible());
            EXPECT_THAT(sent(), Contains("// slice " + std::to_string(i)));
        }
    }
    // The centre runs nothing.
    QCursor::setPos(centre);
    ASSERT_TRUE(mel("mayasimUi -keyPress \"Ctrl+Shift+Q\""));
    QCursor::setPos(centre + QPoint(10, -10));
    mayasim::host::clearSentCommands();
    ASSERT_TRUE(mel("mayasimUi -keyRelease \"Ctrl+Shift+Q\""));
    EXPECT_EQ(openPopup(), nullptr);
    EXPECT_THAT(sent(), Not(Contains(HasSubstr("// slice"))));
}
