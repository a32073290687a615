// pieMenus.json: written at every change, read back with every field
// defaulted and clamped, whatever a hand edit left in it.
#include "GuiApplication.h"
#include "PieMenuTest.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gmock/gmock.h>

using ::testing::ElementsAre;
using PieMenu::Slice;

namespace {

QJsonObject readJson(const QString& path) { return QJsonDocument::fromJson(readBytes(path)).object(); }

} // namespace

TEST_F(PieMenuTest, EveryChangeIsWrittenAndReadBack)
{
    EXPECT_TRUE(store().menuIds().isEmpty());
    EXPECT_FALSE(QFile::exists(filePath()));
    EXPECT_EQ(store().addMenu(), 1);
    EXPECT_EQ(store().addMenu(), 2);
    EXPECT_EQ(store().addMenu(), 3);
    EXPECT_EQ(store().displayName(2), QStringLiteral("Pie Menu 2"));
    EXPECT_EQ(store().slicesOf(2).size(), 4);
    EXPECT_TRUE(store().renameMenu(2, QStringLiteral("  Tangents \"quick\"  ")));
    EXPECT_FALSE(store().renameMenu(2, QStringLiteral("   ")));
    EXPECT_FALSE(store().renameMenu(99, QStringLiteral("x")));
    EXPECT_EQ(store().displayName(2), QStringLiteral("Tangents \"quick\""));

    QVector<Slice> slices(30);
    slices[0] = {QStringLiteral("key"), QStringLiteral(":/plus.png"), QStringLiteral("setKeyframe"), PieMenu::Mel, -1};
    slices[1] = {QStringLiteral("py"), QString(), QStringLiteral("print(1)"), PieMenu::Python, -1};
    slices[2] = {QStringLiteral("keys"), QString(), QStringLiteral("Ctrl+K"), PieMenu::Hotkey, -1};
    slices[3] = {QStringLiteral("reset"), QStringLiteral(":/reset.png"), QStringLiteral("OVResetPose"), PieMenu::Mel, 21};
    store().setSlices(2, slices);
    EXPECT_EQ(store().slicesOf(2).size(), 24);
    store().setSlices(2, {});
    EXPECT_EQ(store().slicesOf(2).size(), 4);
    store().setSlices(2, slices.mid(0, 5));
    store().setHotkey(2, QStringLiteral(" ctrl+shift+q "));
    EXPECT_EQ(store().hotkeyOf(2), QStringLiteral("Ctrl+Shift+Q"));
    EXPECT_EQ(store().findHotkeyOwner(QStringLiteral("shift+ctrl+Q"), 1), 2);
    EXPECT_EQ(store().findHotkeyOwner(QStringLiteral("Ctrl+Shift+Q"), 2), -1);
    EXPECT_EQ(store().findHotkeyOwner(QString(), 1), -1);
    ASSERT_TRUE(store().save());
    // The highest id removed is never given out again.
    EXPECT_TRUE(store().removeMenu(3));
    EXPECT_FALSE(store().removeMenu(3));

    const QJsonObject root = readJson(filePath());
    EXPECT_EQ(root.value("version").toInt(), 1);
    EXPECT_EQ(root.value("nextMenuId").toInt(), 4);
    const QJsonArray menus = root.value("menus").toArray();
    ASSERT_EQ(menus.size(), 2);
    const QJsonObject slice = menus[1].toObject().value("pieSlots").toArray()[2].toObject();
    EXPECT_EQ(slice.value("commandLanguage").toString(), QStringLiteral("hotkey"));
    // Indented text with Qt's key order.
    const QByteArray bytes = readBytes(filePath());
    EXPECT_TRUE(bytes.startsWith("{\n    \"menus\": [\n        {\n            \"hotkey\": \"\",\n            \"id\": 1,"));
    EXPECT_LT(bytes.indexOf("\"menus\""), bytes.indexOf("\"nextMenuId\""));
    EXPECT_LT(bytes.indexOf("\"nextMenuId\""), bytes.indexOf("\"version\""));

    reload();
    EXPECT_THAT(store().menuIds(), ElementsAre(1, 2));
    EXPECT_EQ(store().displayName(2), QStringLiteral("Tangents \"quick\""));
    EXPECT_EQ(store().hotkeyOf(2), QStringLiteral("Ctrl+Shift+Q"));
    EXPECT_EQ(store().slicesOf(2), slices.mid(0, 5));
    EXPECT_EQ(store().addMenu(), 4);
    EXPECT_EQ(readBytes(filePath()).count("\"id\""), 3);
}

TEST_F(PieMenuTest, AHandEditedFileLoadsWhatIsValid)
{
    writeFile(R"({
        "version": 1, "nextMenuId": -5,
        "menus": [
            {"id": 0, "name": "dropped"},
            "not a menu",
            {"id": 7, "name": "", "pieSlots": []},
            {"id": 3, "name": "Thirty", "hotkey": "F5",
             "pieSlots": [{"label": "a", "commandLanguage": "MEL", "pluginCommandIndex": 4.0}, 12, {"commandLanguage": "python"},
                          {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}]},
            {"id": 3, "name": "same id again"},
            {"id": 9, "name": "quoted key", "hotkey": "Ctrl+\"; sphere; \""},
            {"name": "no id", "pieSlots": [{"label": "lost"}]}
        ]})");
    mayasim::host::clearSentCommands();
    reload();
    EXPECT_THAT(store().menuIds(), ElementsAre(3, 7, 9));
    // A key of the file's own reaches Maya as a string, never as MEL.
    EXPECT_THAT(sent(), ::testing::Contains("hotkey -ctl -k \"\\\"; sphere; \\\"\" -name \"OVPieMenuShow_9\" "
                                            "-releaseName \"OVPieMenuClose_9\""));
    EXPECT_EQ(store().displayName(7), QStringLiteral("Pie Menu 7"));
    EXPECT_EQ(store().slicesOf(7).size(), 4);
    const QVector<Slice>& slices = store().slicesOf(3);
    ASSERT_EQ(slices.size(), 24);
    EXPECT_EQ(slices[0].label, QStringLiteral("a"));
    EXPECT_EQ(slices[0].commandLanguage, PieMenu::Mel);
    EXPECT_EQ(slices[0].pluginCommandIndex, 4);
    EXPECT_EQ(slices[1].commandLanguage, PieMenu::Python); // the number was skipped
    EXPECT_EQ(slices[2].pluginCommandIndex, -1);
    EXPECT_EQ(store().addMenu(), 10); // above the highest id, whatever nextMenuId said
    const QJsonObject root = readJson(filePath());
    EXPECT_EQ(root.value("menus").toArray().size(), 4);
    EXPECT_EQ(root.value("menus").toArray()[0].toObject().value("pieSlots").toArray()[0].toObject().value("commandLanguage"),
              QStringLiteral("mel"));

    // A damaged file, or another version's, is an empty store and is left
    // as it is until the user changes something.
    for (const QByteArray& bytes : {QByteArray("{\"version\": 1, \"menus\": [{\"id\": 1,"),
                                    QByteArray("{\"version\": 2, \"menus\": [{\"id\": 1}]}"), QByteArray("[1, 2]"),
                                    QByteArray("\x00\xff\xfe garbage", 12)}) {
        writeFile(bytes);
        reload();
        EXPECT_TRUE(store().menuIds().isEmpty());
        EXPECT_EQ(readBytes(filePath()), bytes);
    }
    EXPECT_EQ(store().addMenu(), 1);
    EXPECT_EQ(readJson(filePath()).value("version").toInt(), 1);
}
