#pragma once
#include <maya/MString.h>

#include <QPushButton>

class QMenu;

namespace Ui {

// Ends a panel widget's menu with "Delete", which takes the widget out of
// the row, has the row saved without it (its uiStateChanged) and deletes it.
void addSlotDeleteEntry(QMenu* menu, QWidget* slot);

// What every tool button of the panel shares: a flat 30 by 30 icon, a main
// job on the left press, and its own menu on the right press, whose last
// entry "Delete" takes the button out of the panel.
class ToolButton : public QPushButton
{
    Q_OBJECT

public:
    ToolButton(const QString& toolTip, const QString& icon, QWidget* parent);

signals:
    void uiStateChanged();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    // A menu entry that runs a command with the display and undo flags.
    QAction* addCommandEntry(const QString& text, const MString& command, bool display, bool undo);
    // Ends the menu with "Delete"; each button calls it after its own entries.
    void addDeleteEntry();
    // Ctrl and Shift both held: the buttons' second action. Either alone is none.
    static bool ctrlAndShift();
    // The copy buttons: a press copies (no undo step: the scene is unchanged);
    // with Ctrl and Shift it pastes what was copied, undoably.
    void copyOrPasteOnPress(const MString& command);

    QMenu* menu;
};

} // namespace Ui
