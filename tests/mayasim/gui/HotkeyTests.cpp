// Hotkey sets, named commands and hotkeys, pressed through mayasimUi.
#include "GuiTest.h"

#include <maya/MQtUtil.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>

#include <gmock/gmock.h>

#include <cstdlib>

using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

const char* const kCounts = "global int $gPresses; global int $gReleases; ";

} // namespace

TEST_F(GuiTest, HotkeysRunTheirNamedCommandsOncePerPress)
{
    // Maya's own set is current at start and can't be changed.
    EXPECT_EQ(text("hotkeySet -q -current"), "Maya_Default");
    EXPECT_EQ(text("hotkeySet -exists Maya_Default"), "1");
    // Other flags are ignored, query mode included.
    EXPECT_EQ(text("hotkeySet -q -exists Maya_Default"), "1");
    EXPECT_EQ(text("hotkeySet -q -exists NoSuchSet"), "0");
    ASSERT_TRUE(mel(std::string(kCounts) + "$gPresses = 0; $gReleases = 0;"));
    ASSERT_TRUE(mel("nameCommand -annotation \"Count a press\" -command \"global int $gPresses; $gPresses = $gPresses + 1\" "
                    "countPress"));
    ASSERT_TRUE(mel("nameCommand -annotation \"Count a release\" -command \"global int $gReleases; $gReleases = $gReleases + 1\" "
                    "countRelease"));
    EXPECT_FALSE(mel("hotkey -k \"k\" -ctl -name countPress"));
    EXPECT_THAT(lastError(), HasSubstr("'Maya_Default' is locked"));

    ASSERT_TRUE(mel("hotkeySet -source Maya_Default -current Animator"));
    EXPECT_EQ(text("hotkeySet -q -current"), "Animator");
    EXPECT_FALSE(mel("hotkeySet Animator"));
    ASSERT_TRUE(mel("hotkey -k \"k\" -ctl -name countPress -releaseName countRelease"));
    EXPECT_EQ(text("hotkey -q -name -k \"k\" -ctl"), "countPress");
    EXPECT_EQ(text("hotkey -q -releaseName -k \"k\" -ctl"), "countRelease");
    EXPECT_EQ(text("hotkey -q -name -k \"k\""), "");
    EXPECT_FALSE(mel("hotkey -k \"k\" -name noSuchCommand"));
    EXPECT_FALSE(mel("hotkey -k \"NoSuchKey\" -name countPress"));
    EXPECT_THAT(lastError(), HasSubstr("Invalid key: NoSuchKey"));

    // One press, however long auto-repeat runs, and one release; the
    // modifiers reach the application as with a real keyboard.
    ASSERT_TRUE(mel("mayasimUi -keyPress \"Ctrl+K\""));
    EXPECT_EQ(QGuiApplication::keyboardModifiers(), Qt::ControlModifier);
    EXPECT_EQ(QApplication::keyboardModifiers(), Qt::ControlModifier);
    ASSERT_TRUE(mel("mayasimUi -keyRelease \"Ctrl+K\" -autoRepeat; mayasimUi -keyPress \"Ctrl+K\" -autoRepeat; "
                    "mayasimUi -keyRelease \"Ctrl+K\" -autoRepeat; mayasimUi -keyPress \"Ctrl+K\" -autoRepeat"));
    EXPECT_EQ(number(std::string(kCounts) + "$n = $gPresses"), 1);
    EXPECT_EQ(number(std::string(kCounts) + "$n = $gReleases"), 0);
    ASSERT_TRUE(mel("mayasimUi -keyRelease \"Ctrl+K\""));
    EXPECT_EQ(number(std::string(kCounts) + "$n = $gReleases"), 1);
    EXPECT_EQ(QGuiApplication::keyboardModifiers(), Qt::NoModifier);
    // Without Ctrl it is another key.
    ASSERT_TRUE(mel("mayasimUi -key \"K\""));
    EXPECT_EQ(number(std::string(kCounts) + "$n = $gPresses"), 1);

    // Keys still work while a popup menu holds the keyboard, and the driver
    // picks the popup's entries.
    QMenu menu(MQtUtil::mainWindow());
    bool framed = false;
    QObject::connect(menu.addAction("Frame All"), &QAction::triggered, [&] { framed = true; });
    menu.popup(QPoint(100, 100));
    QApplication::processEvents();
    ASSERT_EQ(QApplication::activePopupWidget(), &menu);
    ASSERT_TRUE(mel("mayasimUi -key \"Ctrl+K\""));
    EXPECT_EQ(number(std::string(kCounts) + "$n = $gPresses"), 2);
    EXPECT_EQ(number(std::string(kCounts) + "$n = $gReleases"), 2);
    ASSERT_TRUE(mel("mayasimUi -menu \"Frame All\""));
    EXPECT_TRUE(framed);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);

    // Empty names unbind.
    ASSERT_TRUE(mel("hotkey -k \"k\" -ctl -name \"\" -releaseName \"\""));
    EXPECT_EQ(text("hotkey -q -name -k \"k\" -ctl"), "");
    ASSERT_TRUE(mel("mayasimUi -key \"Ctrl+K\""));
    EXPECT_EQ(number(std::string(kCounts) + "$n = $gPresses"), 2);

    // savePrefs -hotkeys writes the named commands and the user's sets.
    ASSERT_TRUE(mel("hotkey -k \"F5\" -alt -name countPress"));
    QTemporaryDir prefs;
    ASSERT_TRUE(prefs.isValid());
    setenv("MAYA_APP_DIR", prefs.path().toUtf8().constData(), 1);
    ASSERT_TRUE(mel("savePrefs -hotkeys"));
    unsetenv("MAYA_APP_DIR");
    QFile keys(QDir(prefs.path()).filePath("2022/prefs/hotkeys/Animator.mhk"));
    ASSERT_TRUE(keys.open(QIODevice::ReadOnly));
    EXPECT_THAT(keys.readAll().toStdString(),
                HasSubstr("hotkey -keyShortcut \"F5\" -alt -name \"countPress\" -releaseName \"\";"));
    QFile named(QDir(prefs.path()).filePath("2022/prefs/userNamedCommands.mel"));
    ASSERT_TRUE(named.open(QIODevice::ReadOnly));
    EXPECT_THAT(named.readAll().toStdString(), HasSubstr("\"countRelease\";"));
    ASSERT_TRUE(mel("hotkeySet -e -current Maya_Default"));
}

// The modifiers of a click are held for the click only, as a person lets go
// of the keys after it: what runs later reads no modifier.
TEST_F(GuiTest, ModifiersOfAClickAreLetGoAfterIt)
{
    QPushButton button(MQtUtil::mainWindow());
    button.setGeometry(0, 0, 40, 40);
    button.show();
    button.raise();
    std::vector<Qt::KeyboardModifiers> seen;
    QObject::connect(&button, &QPushButton::clicked, [&] { seen.push_back(QGuiApplication::keyboardModifiers()); });

    ASSERT_TRUE(mel("mayasimUi -press -at 20 20 -mod ctrl"));
    EXPECT_EQ(QGuiApplication::keyboardModifiers(), Qt::ControlModifier) << "held while the button is";
    ASSERT_TRUE(mel("mayasimUi -release -at 20 20 -mod ctrl"));
    EXPECT_EQ(QGuiApplication::keyboardModifiers(), Qt::NoModifier);
    ASSERT_TRUE(mel("mayasimUi -click -at 20 20 -mod ctrl+shift"));
    EXPECT_EQ(QGuiApplication::keyboardModifiers(), Qt::NoModifier);
    // Shift let go between the press and the release.
    ASSERT_TRUE(mel("mayasimUi -press -at 20 20 -mod ctrl+shift; mayasimUi -release -at 20 20 -mod ctrl"));
    EXPECT_EQ(QGuiApplication::keyboardModifiers(), Qt::NoModifier);
    EXPECT_THAT(seen, ElementsAre(Qt::KeyboardModifiers(Qt::ControlModifier), Qt::ControlModifier | Qt::ShiftModifier,
                                  Qt::KeyboardModifiers(Qt::ControlModifier)));
}

// A right press that deletes its widget, as a menu's Delete entry does: the
// release naming it fails, yet lets go of the button where it was pressed,
// so that the next clicks still land.
TEST_F(GuiTest, AReleaseOnAWidgetThePressDeletedLetsGo)
{
    auto* doomed = new QPushButton(MQtUtil::mainWindow());
    doomed->setObjectName("doomed");
    doomed->setGeometry(0, 0, 40, 40);
    doomed->show();
    doomed->raise();
    doomed->setContextMenuPolicy(Qt::CustomContextMenu);
    QObject::connect(doomed, &QWidget::customContextMenuRequested, doomed, &QObject::deleteLater);
    QPushButton other(MQtUtil::mainWindow());
    other.setGeometry(50, 0, 40, 40);
    other.show();
    other.raise();
    int clicks = 0;
    QObject::connect(&other, &QPushButton::clicked, [&] { ++clicks; });

    const std::string path = MQtUtil::fullName(doomed).asChar();
    ASSERT_TRUE(mel("mayasimUi -press -b right -mod shift \"" + path + "\""));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(mel("mayasimUi -release -b right -mod shift \"" + path + "\""));
    EXPECT_EQ(QGuiApplication::mouseButtons(), Qt::NoButton);
    EXPECT_EQ(QGuiApplication::keyboardModifiers(), Qt::NoModifier);
    ASSERT_TRUE(mel("mayasimUi -click -at 70 20"));
    EXPECT_EQ(clicks, 1);
}
