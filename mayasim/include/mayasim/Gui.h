#pragma once
// The GUI host: Maya's main window, time slider, channel box and workspace
// controls on real Qt widgets, for mayasim-gui and for tests that drive the
// interface. Without it (mayasim-batch) MQtUtil::mainWindow() is null.
class QWidget;

#pragma GCC visibility push(default)
namespace mayasim::gui {

// Before the QApplication exists: the offscreen platform when there is no
// display, and a fixed DPI, so that images are the same on every machine.
void prepareEnvironment();
// Once it exists: the Fusion style, a dark palette like Maya's, DejaVu fonts.
void applyLook();
// Opens "MayaWindow" at the given size and starts running idle events and
// timers from the Qt event loop. Returns the window.
QWidget* openMainWindow(int width, int height);
// Closes the main window and every workspace control.
void closeMainWindow();

} // namespace mayasim::gui
#pragma GCC visibility pop
