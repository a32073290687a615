#pragma once
// Hotkeys in the GUI host: key presses and releases anywhere in the
// application (a popup too) run the named commands the current hotkey set
// binds to them, once per press, whatever the auto-repeat.
class QObject;

namespace mayasim::gui {

// Watches the application's keys for as long as `owner` lives.
void installHotkeys(QObject* owner);

} // namespace mayasim::gui
