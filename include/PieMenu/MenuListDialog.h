#pragma once
// A strip of buttons, one per pie menu: a click opens its editor, a right
// press offers "Rename" and "Delete", the last button adds a menu.
#include <QDialog>

class QHBoxLayout;
class QPushButton;

namespace PieMenu {

class MenuListDialog : public QDialog
{
    Q_OBJECT

public:
    explicit MenuListDialog(QWidget* parent = nullptr);

    // One button per menu, in ascending id order, then the add button.
    void refresh();

public slots:
    void onAddClicked();

private:
    QHBoxLayout* fRow;
    QPushButton* fAddButton;
};

} // namespace PieMenu
