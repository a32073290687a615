#pragma once
#include <QWidget>

class QAction;
class QBoxLayout;
class QHBoxLayout;
class QLabel;
class QMenu;

namespace Ui {

// The panel: one centred row of tool widgets, filled from the right-click
// menu and kept in prefs.json, which it writes at every change and reads
// when it is built.
class Main : public QWidget
{
    Q_OBJECT

public:
    Main();

public slots:
    void onContextMenu(QAction* action);
    void saveUiState();

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void loadUiState();
    void updateHint();
    // Puts a new widget in the row and has it save the row when it changes.
    void addSlot(QWidget* widget, bool atFront);

    QMenu* addMenu = nullptr;
    // The last entry of the add menu: opens the pie menus instead of adding a widget.
    QAction* pieMenuAction = nullptr;
    QHBoxLayout* mainLayout = nullptr;
    QWidget* toolRow = nullptr;
    QBoxLayout* toolLayout = nullptr;
    QLabel* hintLabel = nullptr;
    bool restoring = false;
};

} // namespace Ui
