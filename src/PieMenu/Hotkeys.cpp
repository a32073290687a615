#include "PieMenu/Hotkeys.h"

#include "PieMenu/Cmd.h"

#include <maya/MGlobal.h>

#include <QHash>
#include <QStringList>

namespace PieMenu {

namespace {

// Maya's own set can't be edited: while it is current, a copy is made once
// and made current. Any other current set takes the binding.
const char* const HotkeySetScript
    = "if (`hotkeySet -q -current` == \"Maya_Default\") {  if (!`hotkeySet -q -exists Orvane_Hotkey_Set`) {    "
      "hotkeySet -source Maya_Default Orvane_Hotkey_Set;  }  hotkeySet -e -current Orvane_Hotkey_Set;}";

// Qt's portable key names where Maya's hotkey command spells them otherwise.
QString mayaKeyName(const QString& portable)
{
    static const QHash<QString, QString> names = {{QStringLiteral("PgUp"), QStringLiteral("Page_Up")},
                                                  {QStringLiteral("PgDown"), QStringLiteral("Page_Down")},
                                                  {QStringLiteral("Esc"), QStringLiteral("Escape")},
                                                  {QStringLiteral("Del"), QStringLiteral("Delete")},
                                                  {QStringLiteral("Ins"), QStringLiteral("Insert")}};
    return names.value(portable, portable);
}

// Hotkeys change Maya's state, not the scene: never echoed, never undone.
void runMel(const QString& text) { MGlobal::executeCommand(MString(text.toUtf8().constData()), false, false); }

void makeNamedCommand(const QString& name, const QString& annotation, const QString& command)
{
    runMel(QStringLiteral("nameCommand -annotation \"") + annotation + QStringLiteral("\" -command \"") + command
           + QStringLiteral("\" -sourceType \"mel\" ") + name);
}

QString modifierFlags(const KeyChord& chord)
{
    QString flags;
    if (chord.ctl)
        flags += QStringLiteral(" -ctl");
    if (chord.alt)
        flags += QStringLiteral(" -alt");
    if (chord.sht)
        flags += QStringLiteral(" -sht");
    if (chord.cmd)
        flags += QStringLiteral(" -cmd");
    return flags;
}

// The key is escaped: a hand-edited file may hold any text.
QString keyFlag(const KeyChord& chord)
{
    return QStringLiteral("hotkey") + modifierFlags(chord) + QStringLiteral(" -k \"") + escapeMel(chord.key);
}

// Both variants, with and without the command key.
void unbind(KeyChord chord)
{
    for (bool cmd : {false, true}) {
        chord.cmd = cmd;
        runMel(keyFlag(chord) + QStringLiteral("\" -name \"\" -releaseName \"\""));
    }
}

void bind(const KeyChord& chord, const QString& show, const QString& close)
{
    runMel(keyFlag(chord) + QStringLiteral("\" -name \"") + show + QStringLiteral("\" -releaseName \"") + close
           + QStringLiteral("\""));
}

QString commandText(int id, const char* flag)
{
    return QStringLiteral("%1 -%2 %3")
        .arg(QString::fromUtf8(CommandName.asChar()), QString::fromLatin1(flag), QString::number(id));
}

} // namespace

KeyChord parseHotkey(const QString& text)
{
    KeyChord chord;
    const QString trimmed = text.trimmed();
    QStringList parts = trimmed.split(QLatin1Char('+'), Qt::SkipEmptyParts);
    // A trailing "+" is the plus key itself ("Ctrl++", "+"), not a separator.
    if (trimmed.endsWith(QLatin1Char('+')))
        parts.append(QStringLiteral("+"));
    if (parts.isEmpty())
        return chord;
    for (int i = 0; i < parts.size() - 1; ++i) {
        const QString modifier = parts[i].trimmed().toLower();
        if (modifier == QLatin1String("ctrl") || modifier == QLatin1String("control"))
            chord.ctl = true;
        else if (modifier == QLatin1String("meta"))
            chord.cmd = true;
        else if (modifier == QLatin1String("alt"))
            chord.alt = true;
        else if (modifier == QLatin1String("shift"))
            chord.sht = true;
    }
    QString key = parts.last().trimmed();
    if (key.size() == 1 && key[0].isLetter())
        key = key.toLower();
    chord.key = mayaKeyName(key);
    chord.valid = !chord.key.isEmpty();
    return chord;
}

QString escapeMel(const QString& text)
{
    QString escaped = text;
    escaped.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    escaped.replace(QLatin1Char('"'), QStringLiteral("\\\""));
    return escaped;
}

QString showCommandName(int id) { return QStringLiteral("OVPieMenuShow_%1").arg(id); }

QString closeCommandName(int id) { return QStringLiteral("OVPieMenuClose_%1").arg(id); }

void rebind(int id, const QString& name, const QString& oldHotkey, const QString& newHotkey)
{
    const QString show = showCommandName(id);
    const QString close = closeCommandName(id);
    makeNamedCommand(show, escapeMel(name), commandText(id, "s"));
    makeNamedCommand(close, escapeMel(name) + QStringLiteral(" (release)"), commandText(id, "c"));

    const KeyChord oldChord = parseHotkey(oldHotkey);
    const KeyChord newChord = parseHotkey(newHotkey);
    if (!oldChord.valid && !newChord.valid)
        return;
    runMel(QString::fromLatin1(HotkeySetScript));
    if (oldChord.valid && oldHotkey.trimmed() != newHotkey.trimmed())
        unbind(oldChord);
    if (newChord.valid) {
        // Whatever held the key before loses it.
        unbind(newChord);
        bind(newChord, show, close);
    }
    runMel(QStringLiteral("savePrefs -hotkeys "));
}

} // namespace PieMenu
