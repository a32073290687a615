#pragma once
// Binding pie menus to keys through Maya's hotkey system: per menu a named
// command that shows the popup on the key press and one that closes it and
// runs the slice on the release, in a hot key set the user may change.
#include <QString>

namespace PieMenu {

// A hotkey as Maya's hotkey command takes it.
struct KeyChord
{
    QString key; // Maya's key name: "q", "F5", "Page_Up", "+"
    bool alt = false;
    bool ctl = false;
    bool sht = false;
    bool cmd = false;
    bool valid = false;
};

// From QKeySequence's portable text ("Ctrl+Shift+Q", "Alt+PgUp", "Ctrl++").
KeyChord parseHotkey(const QString& text);

// Text for a MEL string literal.
QString escapeMel(const QString& text);

QString showCommandName(int id);
QString closeCommandName(int id);

// Makes the menu's two named commands, then moves its binding from the old
// hotkey to the new one (either may be empty) and stores Maya's hotkeys.
void rebind(int id, const QString& name, const QString& oldHotkey, const QString& newHotkey);

} // namespace PieMenu
