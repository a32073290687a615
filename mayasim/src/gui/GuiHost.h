#pragma once
// The GUI host's shared pieces: the main window, widget lookup by Maya's
// control names, host icons.
#include <QtCore/QString>
#include <QtGui/QPixmap>

class QMainWindow;
class QObject;
class QWidget;

namespace mayasim::gui {

// Null while no main window is open (mayasim-batch, plain tests).
QMainWindow* mainWindow();
// Brings the widgets up to date with the scene and the host state (time,
// selection, highlights); they also do so on a timer.
void syncWidgets();

// A widget by control name, or by a '|'-path of names from an outer control
// down; a level may also be "Class#n", the n-th child widget of that class.
// Looks in `ancestor`'s descendants, or in every window without one.
QWidget* findWidget(const QString& path, const QWidget* ancestor = nullptr);
// The '|'-path of a widget: the names of its named ancestors and its own.
QString fullName(const QObject* object);
// Every top-level window: the main window first, then the others.
QList<QWidget*> windows();

// The host's own icons, by Maya's icon names ("timeplay.png"), or an image
// file; a null pixmap when there is no such icon.
QPixmap hostPixmap(const QString& name);

} // namespace mayasim::gui
